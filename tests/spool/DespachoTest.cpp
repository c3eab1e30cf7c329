// The text route of the dispatcher and the layouts' failures: design 6 on
// the printer runs the layout of the template key; PLT15 goes on to the
// report; an unreachable printer, a failing statement and a bad stationery
// file each end in their message.
#include "EmpresaSpool.h"
#include "PdfTexto.h"

#include <Ficheros.h>
#include <LayoutsTexto.h>
#include <MensajesEmision.h>
#include <MensajesSpool.h>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <RutasEmision.h>

namespace vk::prueba {
namespace {

const QDate kDia(2026, 3, 10);

class Despacho : public PruebaMotores {
protected:
    void SetUp() override {
        s = std::make_unique<EmpresaSpool>(GetParam());
        const qint32 fco = s->formaPago(QStringLiteral("Contado"), {{0, 100}});
        const qint32 c = s->cliente(QStringLiteral("Bar"), QStringLiteral("El Cabanyal"),
                                    QStringLiteral("B46777888"), fco);
        id = s->factura(
            c, kDia,
            {s->albaran(c, kDia,
                        {{.des = QStringLiteral("Caja de vasos"), .uni = 3, .precio = 9.6},
                         {.des = QStringLiteral("Servilletas"), .uni = 10, .precio = 1.2}})});
        s->f().Tipo_Emision = 1;
    }
    void plantilla(const QString& clave) {
        s->e().parametro(QStringLiteral("PAR_PLANTILLA_FAC"), clave);
    }
    // Through the facade, as the invoicing screens issue.
    QByteArray emite() {
        return s->imprime(
            [](VKFACVENTAS& f, const QVector<qint32>& ids) {
                return f.EmisionMultiplesFacturas(0, true, ids) == ResultadoEmision::Hecha;
            },
            {id});
    }
    std::unique_ptr<EmpresaSpool> s;
    qint32 id = 0;
};

TEST_P(Despacho, DesignSixOnThePrinterRunsTheLayoutOfTheKey) {
    plantilla(QStringLiteral("matricial")); // keys are compared upper-cased
    const QByteArray directo = s->imprime(msFacturaSpoolMatricial, {id});
    const QByteArray emitido = emite();
    EXPECT_TRUE(s->mensajes().isEmpty());
    ASSERT_FALSE(emitido.isEmpty());
    EXPECT_EQ(emitido, directo);
    EXPECT_TRUE(emitido.startsWith("\x12\r\n"));
    EXPECT_TRUE(emitido.contains("Factura......: A/1"));
    EXPECT_EQ(s->ui().preguntasImpresora, 2); // each run asked for the printer once

    // A key without a layout prints the general report on the printer.
    plantilla(QStringLiteral("PLT99"));
    const QString pdf = QFileInfo(s->salida()).dir().filePath(QStringLiteral("informe.pdf"));
    s->ui().impresoras = {pdf};
    EXPECT_TRUE(emite().isEmpty());
    EXPECT_TRUE(s->mensajes().isEmpty());
    EXPECT_TRUE(TextoPdf(pdf).contains(QStringLiteral("Caja de vasos")));
}

TEST_P(Despacho, Plt15PrintsItsTextAndThenTheReport) {
    plantilla(QStringLiteral("PLT15"));
    const QString pdf = QFileInfo(s->salida()).dir().filePath(QStringLiteral("informe.pdf"));
    // The spool asks first, the report's printer route after it.
    s->ui().impresoras = {s->salida(), pdf};
    const QByteArray texto = emite();
    EXPECT_TRUE(s->mensajes().isEmpty());
    EXPECT_TRUE(texto.contains("(Euros)..:"));
    ASSERT_TRUE(QFileInfo::exists(pdf));
    const QString informe = TextoPdf(pdf);
    EXPECT_TRUE(informe.contains(QStringLiteral("Servilletas"))) << informe.toStdString();
}

TEST_P(Despacho, Plt15ToOneFileKeepsTheTextAndPutsTheReportBesideIt) {
    plantilla(QStringLiteral("PLT15"));
    // The same file for both, as the saved printer answers each time.
    s->ui().impresoras = {s->salida(), s->salida()};
    const QString pdf = s->salida() + QStringLiteral(".pdf");
    const QByteArray texto = emite();
    EXPECT_TRUE(s->mensajes().isEmpty());
    EXPECT_TRUE(texto.startsWith("\x12")) << Legible(texto).toStdString();
    EXPECT_TRUE(texto.contains("(Euros)..:"));
    EXPECT_FALSE(texto.contains("%PDF"));
    ASSERT_TRUE(QFileInfo::exists(pdf));
    EXPECT_TRUE(TextoPdf(pdf).contains(QStringLiteral("Servilletas")));
    // A report file chosen apart is written as chosen.
    EXPECT_EQ(FicheroInformeImpresora(pdf, true), pdf);
    EXPECT_EQ(FicheroInformeImpresora(s->salida(), false), s->salida());
}

TEST_P(Despacho, AnUnreachablePrinterPrintsNothingAndSaysSo) {
    plantilla(QStringLiteral("MATRICIAL"));
    s->ui().impresoras = {QStringLiteral("/no/existe/esta/carpeta/impresora.txt")};
    emite();
    ASSERT_EQ(s->ui().vistos.size(), 1u);
    EXPECT_EQ(s->ui().vistos[0].texto, mensajes::kErrorAccesoDispositivo);
    EXPECT_TRUE(s->ui().vistos[0].titulo.isEmpty());
    EXPECT_FALSE(QFileInfo::exists(QStringLiteral("/no/existe/esta/carpeta/impresora.txt")));
}

TEST_P(Despacho, AFailingStatementEndsInTheLayoutsOwnExitWithTheSpoolClosed) {
    plantilla(QStringLiteral("PLT02"));
    s->f().ImprimeAlbaran = true;
    s->e().cn().Execute(QStringLiteral("DROP TABLE PedSe"));
    const QByteArray bytes = emite();
    ASSERT_EQ(s->ui().vistos.size(), 1u);
    EXPECT_EQ(s->ui().vistos[0].titulo, mensajes::kAccionCancelada);
    EXPECT_TRUE(s->ui().vistos[0].texto.startsWith(mensajes::kErrorEmitiendo + QLatin1Char('\n')));
    // The job stays as far as it got: the head and the note, no lines.
    EXPECT_TRUE(bytes.contains("Albar\xa0n n\xa7: A/1"));
    EXPECT_FALSE(bytes.contains("Caja de vasos"));
}

TEST_P(Despacho, TheStationeryFileMovesTheBlocksAndABadOneStopsThePrint) {
    plantilla(QStringLiteral("MATRICIAL"));
    const QString ruta = QDir(fnCarpetaDatos()).filePath(QStringLiteral("spool/MATRICIAL.json"));
    QDir().mkpath(QFileInfo(ruta).path());
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(R"({"lineasAntesCabecera": 1, "sangriaRaya": 0, "lineasCuerpo": 10})");
    f.close();
    const QByteArray ajustado = emite();
    QFile::remove(ruta);
    EXPECT_TRUE(s->mensajes().isEmpty());
    EXPECT_TRUE(ajustado.startsWith("\x12\r\n----------------------------------------\r\n"))
        << Legible(ajustado).toStdString();
    // Ten lines of body: two printed, the page filled from 2 to 13.
    QByteArray relleno;
    for (int i = 2; i <= 13; ++i) {
        relleno += "\r\n";
    }
    EXPECT_TRUE(ajustado.contains("12,00\r\n" + relleno + "---BRUTO---"))
        << Legible(ajustado).toStdString();

    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(R"({"lineasAntesCabezera": 1})");
    f.close();
    const QByteArray nada = emite();
    QFile::remove(ruta);
    EXPECT_TRUE(nada.isEmpty());
    ASSERT_EQ(s->ui().vistos.size(), 1u);
    EXPECT_TRUE(s->ui().vistos[0].texto.contains(QStringLiteral("«lineasAntesCabezera»")));
}

VK_EN_AMBOS_MOTORES(Despacho);

} // namespace
} // namespace vk::prueba
