// A listing written as .xlsx and read back with openpyxl: typed cells, the
// number formats a Spanish reader sees as 1.234,56 €, the totals row and the
// chart; and listings that do not hold together, refused before writing.
#include <Error.h>
#include <HojaXlsx.h>
#include <QDate>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace vk::informe {
namespace {

// The python that has openpyxl: the system's first (where the Debian package
// puts it), then the one on the path. Empty when neither has it.
QString pythonConOpenpyxl() {
    for (const QString& p : {QStringLiteral("/usr/bin/python3"), QStringLiteral("python3")}) {
        QProcess q;
        q.start(p, {QStringLiteral("-c"), QStringLiteral("import openpyxl")});
        if (q.waitForFinished(30000) && q.exitStatus() == QProcess::NormalExit &&
            q.exitCode() == 0) {
            return p;
        }
    }
    return {};
}

// What lee_xlsx.py reads in the workbook.
QJsonObject lee(const QString& python, const QString& fichero) {
    QProcess q;
    q.start(python, {QStringLiteral(VK_LEE_XLSX), fichero});
    if (!q.waitForFinished(60000) || q.exitCode() != 0) {
        ADD_FAILURE() << "lee_xlsx.py failed: " << q.readAllStandardError().toStdString();
        return {};
    }
    return QJsonDocument::fromJson(q.readAllStandardOutput()).object();
}

ListadoHoja ventas() {
    ListadoHoja l;
    l.titulo = QStringLiteral("Ventas por cliente");
    l.hoja = QStringLiteral("Ventas 2026");
    l.columnas = {
        {QStringLiteral("Cliente"), TipoCelda::Texto, {}, 30, false},
        {QStringLiteral("Fecha"), TipoCelda::Fecha, {}, 0, false},
        {QStringLiteral("Unidades"), TipoCelda::Numero, kFormatoEntero, 0, true},
        {QStringLiteral("Importe"), TipoCelda::Numero, kFormatoEuros, 0, true},
        {QStringLiteral("Descuento"), TipoCelda::Numero, {}, 0, false},
    };
    l.filas = {
        {QStringLiteral("Peñas Núñez, S.L."), QDate(2026, 3, 15), 1200, 15234.5, 2.5},
        {QStringLiteral("O'Brien Distribución"), QDate(2026, 3, 2), 3, 99.99, QVariant()},
        {QStringLiteral("Ferretería Ávila"), QStringLiteral("2026-04-30"), 45, 1000.0, 0.0},
    };
    l.grafico = GraficoListado{TipoGrafico::Columnas, 0, 3, QStringLiteral("Importe por cliente")};
    return l;
}

class HojaXlsx : public ::testing::Test {
protected:
    void SetUp() override {
        python_ = pythonConOpenpyxl();
        if (python_.isEmpty()) {
            GTEST_SKIP() << "python3 with openpyxl (python3-openpyxl) is not installed";
        }
    }
    QString fichero(const QString& nombre) const { return dir_.filePath(nombre); }
    QJsonObject escribeYLee(const ListadoHoja& l, const QString& nombre) {
        EscribeHojaXlsx(l, fichero(nombre));
        return lee(python_, fichero(nombre));
    }

    QString python_;
    QTemporaryDir dir_;
};

TEST_F(HojaXlsx, ListingKeepsItsTypesFormatsTotalsAndChart) {
    const QJsonObject x = escribeYLee(ventas(), QStringLiteral("ventas.xlsx"));
    const QJsonObject c = x.value(QStringLiteral("celdas")).toObject();
    const auto celda = [&](const char* ref) { return c.value(QLatin1String(ref)).toObject(); };
    const auto valor = [&](const char* ref) { return celda(ref).value(QStringLiteral("valor")); };
    const auto formato = [&](const char* ref) {
        return celda(ref).value(QStringLiteral("formato")).toString();
    };
    EXPECT_EQ(x.value(QStringLiteral("hoja")).toString(), QStringLiteral("Ventas 2026"));
    EXPECT_EQ(x.value(QStringLiteral("titulo")).toString(), QStringLiteral("Ventas por cliente"));

    // The title, a blank row, the headings.
    EXPECT_EQ(valor("A1").toString(), QStringLiteral("Ventas por cliente"));
    EXPECT_TRUE(celda("A1").value(QStringLiteral("negrita")).toBool());
    EXPECT_FALSE(c.contains(QStringLiteral("A2")));
    int i = 0;
    for (const char* ref : {"A3", "B3", "C3", "D3", "E3"}) {
        EXPECT_EQ(valor(ref).toString(), ventas().columnas[static_cast<size_t>(i++)].titulo);
        EXPECT_TRUE(celda(ref).value(QStringLiteral("negrita")).toBool()) << ref;
    }

    // Texts as texts, dates as dates, figures as numbers with their format.
    EXPECT_EQ(valor("A4").toString(), QStringLiteral("Peñas Núñez, S.L."));
    EXPECT_EQ(valor("A5").toString(), QStringLiteral("O'Brien Distribución"));
    EXPECT_EQ(valor("B4").toString(), QStringLiteral("2026-03-15T00:00:00"));
    EXPECT_EQ(valor("B6").toString(), QStringLiteral("2026-04-30T00:00:00"));
    EXPECT_EQ(formato("B4"), QStringLiteral("dd/mm/yyyy"));
    EXPECT_EQ(valor("C4").toDouble(), 1200);
    EXPECT_EQ(formato("C4"), QStringLiteral("#,##0"));
    EXPECT_DOUBLE_EQ(valor("D4").toDouble(), 15234.5);
    EXPECT_EQ(formato("D4"), QStringLiteral("#,##0.00 \"€\""));
    EXPECT_DOUBLE_EQ(valor("E4").toDouble(), 2.5);
    EXPECT_EQ(formato("E4"), QStringLiteral("#,##0.00")); // a figure's default: two decimals
    EXPECT_FALSE(c.contains(QStringLiteral("E5")));       // null is blank
    EXPECT_DOUBLE_EQ(valor("E6").toDouble(), 0);          // zero is not

    // The totals: formulas over the data rows, calculated already, in the
    // column's format; nothing under a column not asked for.
    EXPECT_EQ(valor("A7").toString(), QStringLiteral("Total"));
    EXPECT_EQ(valor("C7").toString(), QStringLiteral("=SUM(C4:C6)"));
    EXPECT_EQ(celda("C7").value(QStringLiteral("calculado")).toDouble(), 1248);
    EXPECT_EQ(formato("C7"), QStringLiteral("#,##0"));
    EXPECT_EQ(valor("D7").toString(), QStringLiteral("=SUM(D4:D6)"));
    EXPECT_NEAR(celda("D7").value(QStringLiteral("calculado")).toDouble(), 16334.49, 1e-9);
    EXPECT_EQ(formato("D7"), QStringLiteral("#,##0.00 \"€\""));
    EXPECT_TRUE(celda("D7").value(QStringLiteral("negrita")).toBool());
    EXPECT_FALSE(c.contains(QStringLiteral("E7")));
    EXPECT_FALSE(c.contains(QStringLiteral("A8")));

    // Widths: as asked, or fitted to what the column shows.
    const QJsonObject anchos = x.value(QStringLiteral("anchos")).toObject();
    EXPECT_NEAR(anchos.value(QStringLiteral("A")).toDouble(), 30, 1);
    EXPECT_GE(anchos.value(QStringLiteral("B")).toDouble(), 10);
    EXPECT_GE(anchos.value(QStringLiteral("D")).toDouble(), 9);

    // The chart: the amounts by customer, beside the table.
    const QJsonArray graficos = x.value(QStringLiteral("graficos")).toArray();
    ASSERT_EQ(graficos.size(), 1);
    const QJsonObject g = graficos.first().toObject();
    EXPECT_EQ(g.value(QStringLiteral("tipo")).toString(), QStringLiteral("barChart"));
    EXPECT_EQ(g.value(QStringLiteral("direccion")).toString(), QStringLiteral("col"));
    EXPECT_EQ(g.value(QStringLiteral("titulo")).toString(), QStringLiteral("Importe por cliente"));
    EXPECT_EQ(g.value(QStringLiteral("valores")).toString(),
              QStringLiteral("'Ventas 2026'!$D$4:$D$6"));
    EXPECT_EQ(g.value(QStringLiteral("categorias")).toString(),
              QStringLiteral("'Ventas 2026'!$A$4:$A$6"));
}

TEST_F(HojaXlsx, ChartKindsAndAListingWithoutTitleTotalsOrRows) {
    ListadoHoja l = ventas();
    l.grafico->tipo = TipoGrafico::Barras;
    l.grafico->titulo.clear();
    QJsonObject g = escribeYLee(l, QStringLiteral("barras.xlsx"))
                        .value(QStringLiteral("graficos"))
                        .toArray()
                        .first()
                        .toObject();
    EXPECT_EQ(g.value(QStringLiteral("direccion")).toString(), QStringLiteral("bar"));
    EXPECT_EQ(g.value(QStringLiteral("titulo")).toString(), QStringLiteral("Importe"));
    l.grafico->tipo = TipoGrafico::Circular;
    g = escribeYLee(l, QStringLiteral("circular.xlsx"))
            .value(QStringLiteral("graficos"))
            .toArray()
            .first()
            .toObject();
    EXPECT_EQ(g.value(QStringLiteral("tipo")).toString(), QStringLiteral("pieChart"));

    // No rows: the headings and zero totals, and no chart of nothing.
    l.titulo.clear();
    l.hoja.clear();
    l.filas.clear();
    const QJsonObject x = escribeYLee(l, QStringLiteral("vacio.xlsx"));
    const QJsonObject c = x.value(QStringLiteral("celdas")).toObject();
    EXPECT_EQ(x.value(QStringLiteral("hoja")).toString(), QStringLiteral("Listado"));
    EXPECT_FALSE(c.contains(QStringLiteral("A1")));
    EXPECT_EQ(c.value(QStringLiteral("A3")).toObject().value(QStringLiteral("valor")).toString(),
              QStringLiteral("Cliente"));
    EXPECT_EQ(c.value(QStringLiteral("A4")).toObject().value(QStringLiteral("valor")).toString(),
              QStringLiteral("Total"));
    EXPECT_EQ(
        c.value(QStringLiteral("D4")).toObject().value(QStringLiteral("calculado")).toDouble(), 0);
    EXPECT_TRUE(x.value(QStringLiteral("graficos")).toArray().isEmpty());
}

// Refusals need no reader: the message is the test.
TEST(HojaXlsxRechazo, ListingsThatDoNotHoldTogetherWriteNothing) {
    QTemporaryDir dir;
    const QString fichero = dir.filePath(QStringLiteral("mal.xlsx"));
    const auto mensaje = [&](const ListadoHoja& l) {
        try {
            EscribeHojaXlsx(l, fichero);
        } catch (const ErrorDiseno& e) {
            return e.Mensaje();
        }
        return QStringLiteral("(sin error)");
    };
    ListadoHoja l = ventas();
    l.filas[1][3] = QStringLiteral("mucho");
    EXPECT_EQ(mensaje(l), QStringLiteral("El valor «mucho» de la columna «Importe» (fila 2) no "
                                         "es un número."));
    l = ventas();
    l.filas[2][1] = QStringLiteral("el martes");
    EXPECT_EQ(mensaje(l), QStringLiteral("El valor «el martes» de la columna «Fecha» (fila 3) no "
                                         "es una fecha."));
    l = ventas();
    l.filas[0].pop_back();
    EXPECT_EQ(mensaje(l), QStringLiteral("La fila 1 del listado tiene 4 valores y el listado "
                                         "tiene 5 columnas."));
    l = ventas();
    l.columnas[0].total = true;
    EXPECT_EQ(mensaje(l),
              QStringLiteral("La columna «Cliente» no es de números y no se puede sumar."));
    l = ventas();
    l.grafico->columnaValores = 9;
    EXPECT_EQ(mensaje(l),
              QStringLiteral("El gráfico del listado pide una columna que el listado no tiene."));
    l.grafico->columnaValores = 1;
    EXPECT_EQ(mensaje(l), QStringLiteral("Los valores del gráfico han de ser una columna de "
                                         "números: «Fecha» no lo es."));
    l = ventas();
    l.hoja = QStringLiteral("Ventas: marzo");
    EXPECT_TRUE(mensaje(l).startsWith(QStringLiteral("«Ventas: marzo» no vale como nombre")));
    l = ventas();
    l.columnas.clear();
    EXPECT_EQ(mensaje(l), QStringLiteral("El listado «Ventas por cliente» no tiene columnas."));
    EXPECT_FALSE(QFile::exists(fichero));

    // A folder that is not there: the library's reason travels apart.
    try {
        EscribeHojaXlsx(ventas(), dir.filePath(QStringLiteral("no/existe/ventas.xlsx")));
        FAIL();
    } catch (const ErrorDispositivo& e) {
        EXPECT_TRUE(
            e.Mensaje().startsWith(QStringLiteral("No se puede escribir la hoja de cálculo")))
            << e.what();
        EXPECT_FALSE(e.Detalle().isEmpty());
    }
}

} // namespace
} // namespace vk::informe
