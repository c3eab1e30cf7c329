// The command line as a person runs it: real processes on both backends.
#include "BasePrueba.h"

#include <BdSesion.h>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <sys/stat.h>

namespace vk::prueba {
namespace {

struct Salida {
    int codigo;
    QString texto; // both channels, for what may be said on either
    QString salida;
    QString error;
    bool normal; // ended by itself, not by a signal
};

Salida ejecuta(const QStringList& args) {
    // The program's working files (the viewer's PDF, the designs) in a
    // folder of the tests, not the user's.
    static QTemporaryDir datos;
    QProcess p;
    QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
    entorno.insert(QStringLiteral("VKFACTUVEN_DATOS"), datos.path());
    p.setProcessEnvironment(entorno);
    p.start(QStringLiteral(VK_PROGRAMA), args);
    p.waitForFinished(120000);
    const QString salida = QString::fromUtf8(p.readAllStandardOutput());
    const QString error = QString::fromUtf8(p.readAllStandardError());
    return {p.exitCode(), salida + error, salida, error, p.exitStatus() == QProcess::NormalExit};
}

class Ordenes : public PruebaMotores {
protected:
    void SetUp() override {
        base = std::make_unique<BasePrueba>(GetParam());
        db = base->cadenaCatalogo(QStringLiteral("vkemp0001"));
    }
    // Pending notes of one customer of the demo company, and one of another.
    std::pair<QStringList, QString> albaranes() {
        auto s = BdSesion::Abre(db);
        Recordset rs = s->cn().Execute(QStringLiteral(
            "SELECT Cav_Id, Cav_IdCli FROM Cav WHERE Cav_Situa = 1 ORDER BY Cav_IdCli, Cav_Id"));
        QStringList mismos;
        const qint64 primero = rs.Fields(1).Entero();
        QString otro;
        for (; !rs.Eof(); rs.MoveNext()) {
            if (rs.Fields(1).Entero() == primero) {
                mismos << rs.Fields(0).Texto();
            } else if (otro.isEmpty()) {
                otro = rs.Fields(0).Texto();
            }
        }
        return {mismos, otro};
    }
    qint64 facturas() {
        return BdSesion::Abre(db)
            ->cn()
            .Execute(QStringLiteral("SELECT COUNT(*) FROM Fav"))
            .Fields(0)
            .Entero();
    }
    qint64 pendientes() {
        return BdSesion::Abre(db)
            ->cn()
            .Execute(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE Cav_Situa = 1"))
            .Fields(0)
            .Entero();
    }
    void creaDemo() {
        const Salida s =
            ejecuta({QStringLiteral("init"), QStringLiteral("--db"), db, QStringLiteral("--demo")});
        ASSERT_EQ(s.codigo, 0) << s.texto.toStdString();
    }
    std::unique_ptr<BasePrueba> base;
    QString db;
};

TEST_P(Ordenes, InitTwiceThenInvoiceNotesOfOneCustomer) {
    Salida s =
        ejecuta({QStringLiteral("init"), QStringLiteral("--db"), db, QStringLiteral("--demo")});
    ASSERT_EQ(s.codigo, 0) << s.texto.toStdString();
    EXPECT_TRUE(s.texto.contains(QStringLiteral("Empresa VKEMP0001 creada")))
        << s.texto.toStdString();
    s = ejecuta({QStringLiteral("init"), QStringLiteral("--db"), db, QStringLiteral("--demo")});
    ASSERT_EQ(s.codigo, 0) << s.texto.toStdString();
    EXPECT_TRUE(s.texto.contains(QStringLiteral("ya existían")));

    const auto [mismos, otro] = albaranes();
    ASSERT_GE(mismos.size(), 2);
    const QStringList comun{
        QStringLiteral("factura"),   QStringLiteral("--db"), db,
        QStringLiteral("--serie"),   QStringLiteral("F"),    QStringLiteral("--fecha"),
        QStringLiteral("20/11/2026")};
    // Refusals: nothing written, a clear message, exit status not 0.
    const std::pair<QString, QString> rechazos[] = {
        {QStringLiteral("99999"), QStringLiteral("No existe el albarán 99999.")},
        {mismos[0] + QLatin1Char(',') + otro,
         QStringLiteral("Los albaranes son de varios clientes")},
    };
    for (const auto& [lista, mensaje] : rechazos) {
        s = ejecuta(comun + QStringList{QStringLiteral("--albaranes"), lista});
        EXPECT_NE(s.codigo, 0);
        EXPECT_TRUE(s.texto.contains(mensaje)) << s.texto.toStdString();
    }
    EXPECT_EQ(facturas(), 0);

    // A new series starts at the number given.
    s = ejecuta(comun + QStringList{QStringLiteral("--albaranes"),
                                    mismos.mid(0, 2).join(QLatin1Char(',')),
                                    QStringLiteral("--numero"), QStringLiteral("70")});
    ASSERT_EQ(s.codigo, 0) << s.texto.toStdString();
    EXPECT_TRUE(s.texto.contains(QStringLiteral("Factura F/70 de 20/11/2026")))
        << s.texto.toStdString();
    EXPECT_TRUE(s.texto.contains(QStringLiteral("Total factura"))) << s.texto.toStdString();
    // The same notes again are already invoiced; an earlier date is refused.
    s = ejecuta(comun + QStringList{QStringLiteral("--albaranes"), mismos[0]});
    EXPECT_NE(s.codigo, 0);
    EXPECT_TRUE(s.texto.contains(QStringLiteral("ya está facturado"))) << s.texto.toStdString();
    if (mismos.size() > 2) {
        QStringList anterior = comun;
        anterior[6] = QStringLiteral("19/11/2026");
        s = ejecuta(anterior + QStringList{QStringLiteral("--albaranes"), mismos[2]});
        EXPECT_NE(s.codigo, 0);
        EXPECT_TRUE(s.texto.contains(QStringLiteral("no puede ser inferior a 20/11/2026")));
        // The next number follows.
        s = ejecuta(comun + QStringList{QStringLiteral("--albaranes"), mismos[2]});
        EXPECT_EQ(s.codigo, 0) << s.texto.toStdString();
        EXPECT_TRUE(s.texto.contains(QStringLiteral("Factura F/71"))) << s.texto.toStdString();
    }
    EXPECT_EQ(facturas(), mismos.size() > 2 ? 2 : 1);

    s = ejecuta({QStringLiteral("factura"), QStringLiteral("--db"), db});
    EXPECT_EQ(s.codigo, 2);
    EXPECT_TRUE(s.texto.contains(QStringLiteral("Indique la serie")));
}

TEST_P(Ordenes, BatchRunInvoicesEveryPendingNoteOfTheDemo) {
    ASSERT_EQ(
        ejecuta({QStringLiteral("init"), QStringLiteral("--db"), db, QStringLiteral("--demo")})
            .codigo,
        0);
    // Without the date nothing is done.
    Salida s = ejecuta({QStringLiteral("facturar"), QStringLiteral("--db"), db});
    EXPECT_EQ(s.codigo, 2);
    EXPECT_TRUE(s.error.contains(QStringLiteral("Indique la fecha"))) << s.texto.toStdString();
    EXPECT_EQ(facturas(), 0);

    // Options are written "--opcion valor" or "--opcion=valor".
    s = ejecuta({QStringLiteral("facturar"), QStringLiteral("--db=") + db,
                 QStringLiteral("--fecha=20/11/2026"), QStringLiteral("--salida=ninguna")});
    ASSERT_EQ(s.codigo, 0) << s.texto.toStdString();
    EXPECT_TRUE(s.texto.contains(QStringLiteral("A/1 "))) << s.texto.toStdString();
    EXPECT_TRUE(s.texto.contains(QStringLiteral("1 de "))) << s.texto.toStdString();
    const qint64 hechas = facturas();
    EXPECT_GE(hechas, 20);
    EXPECT_TRUE(s.texto.contains(QStringLiteral("Facturas emitidas: %1,").arg(hechas)));
    auto sesion = BdSesion::Abre(db);
    EXPECT_EQ(sesion->cn()
                  .Execute(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE Cav_Situa = 1"))
                  .Fields(0)
                  .Entero(),
              0);
    // Receipts add up to what was invoiced.
    EXPECT_NEAR(
        sesion->cn().Execute(QStringLiteral("SELECT SUM(Fav_Liquido) FROM Fav")).Fields(0).Doble(),
        sesion->cn().Execute(QStringLiteral("SELECT SUM(Rec_Importe) FROM Rec")).Fields(0).Doble(),
        0.001);

    s = ejecuta({QStringLiteral("facturar"), QStringLiteral("--db"), db, QStringLiteral("--fecha"),
                 QStringLiteral("20/11/2026")});
    EXPECT_EQ(s.codigo, 0);
    EXPECT_TRUE(s.texto.contains(QStringLiteral(
        "No existen albaranes pendientes de facturar entre los datos seleccionados")));
    EXPECT_EQ(facturas(), hechas);

    // Every invoice to its own PDF file, named by its series and number.
    QTemporaryDir pdf;
    s = ejecuta({QStringLiteral("emitir"), QStringLiteral("--db"), db, QStringLiteral("--serie"),
                 QStringLiteral("A"), QStringLiteral("--desde"), QStringLiteral("1"),
                 QStringLiteral("--hasta"), QString::number(hechas), QStringLiteral("--pdf"),
                 pdf.path()});
    ASSERT_EQ(s.codigo, 0) << s.texto.toStdString();
    for (qint64 n = 1; n <= hechas; ++n) {
        const QString fichero = QDir(pdf.path()).filePath(QStringLiteral("F_A_%1.pdf").arg(n));
        EXPECT_TRUE(QFileInfo(fichero).size() > 1000) << fichero.toStdString();
        EXPECT_TRUE(s.salida.contains(fichero)) << fichero.toStdString();
    }
    EXPECT_TRUE(s.texto.contains(QStringLiteral("Ficheros PDF escritos: %1.").arg(hechas)));
    // The private folder the files were written in is gone.
    EXPECT_EQ(
        QDir(pdf.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(),
        hechas);
    s = ejecuta({QStringLiteral("emitir"), QStringLiteral("--db"), db, QStringLiteral("--serie"),
                 QStringLiteral("Z"), QStringLiteral("--desde"), QStringLiteral("1"),
                 QStringLiteral("--pdf"), pdf.path()});
    EXPECT_NE(s.codigo, 0);
    EXPECT_TRUE(s.texto.contains(QStringLiteral("No hay facturas de la serie Z")));
}

TEST_P(Ordenes, EmitirToAPathPrintsTheTextLayoutOfDesignSix) {
    ASSERT_EQ(
        ejecuta({QStringLiteral("init"), QStringLiteral("--db"), db, QStringLiteral("--demo")})
            .codigo,
        0);
    ASSERT_EQ(ejecuta({QStringLiteral("facturar"), QStringLiteral("--db"), db,
                       QStringLiteral("--fecha"), QStringLiteral("20/11/2026")})
                  .codigo,
              0);
    BdSesion::Abre(db)->cn().Execute(QStringLiteral(
        "UPDATE Parametros SET Par_DiseñoFactura = 6, PAR_PLANTILLA_FAC = 'matricial'"));
    QTemporaryDir dir;
    const QString impresora = dir.filePath(QStringLiteral("matricial.prn"));
    const QStringList emitir{
        QStringLiteral("emitir"),      QStringLiteral("--db"),       db,
        QStringLiteral("--serie"),     QStringLiteral("A"),          QStringLiteral("--desde"),
        QStringLiteral("1"),           QStringLiteral("--hasta"),    QStringLiteral("2"),
        QStringLiteral("--albaranes"), QStringLiteral("--impresora")};
    Salida s = ejecuta(emitir + QStringList{impresora});
    ASSERT_EQ(s.codigo, 0) << s.texto.toStdString();
    EXPECT_TRUE(s.texto.contains(QStringLiteral("Trabajo de 2 facturas enviado a la impresora")));
    QFile f(impresora);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray bytes = f.readAll();
    // Text for the impact printer, in its code page: both invoices, each
    // with its tax QR's legend at the top of its first page, their notes, a
    // form feed between them.
    EXPECT_TRUE(bytes.startsWith("\x12QR tributario:\r\nhttps://"));
    EXPECT_EQ(bytes.count("QR tributario:\r\n"), 2);
    EXPECT_EQ(bytes.count("VERI*FACTU\r\n"), 2);
    EXPECT_TRUE(bytes.contains("Factura......: A/1 "));
    EXPECT_TRUE(bytes.contains("Factura......: A/2 "));
    EXPECT_TRUE(bytes.contains("Albar\xa0n n\xa7: "));
    EXPECT_TRUE(bytes.contains('\f'));
    EXPECT_FALSE(bytes.contains("%PDF"));
    // A printer that cannot be reached: nothing printed, exit status not 0.
    s = ejecuta(emitir + QStringList{dir.filePath(QStringLiteral("no/existe.prn"))});
    EXPECT_NE(s.codigo, 0);
    EXPECT_TRUE(s.texto.contains(QStringLiteral("Error de acceso al dispositivo de impresión")))
        << s.texto.toStdString();
}

TEST_P(Ordenes, RefusedOptionsSayWhyAndChangeNothing) {
    creaDemo();
    const qint64 antesFacturas = facturas();
    const qint64 antesPendientes = pendientes();
    ASSERT_GT(antesPendientes, 0);
    QTemporaryDir dir;
    const QString carpeta = dir.filePath(QStringLiteral("pdf"));
    const QStringList facturar{QStringLiteral("facturar"), QStringLiteral("--db"), db,
                               QStringLiteral("--fecha"), QStringLiteral("20/11/2026")};
    const QStringList emitir{
        QStringLiteral("emitir"), QStringLiteral("--db"),  db,     QStringLiteral("--serie"),
        QStringLiteral("A"),      QStringLiteral("--pdf"), carpeta};
    const QString notas = albaranes().first.join(QLatin1Char(','));
    const QStringList factura{QStringLiteral("factura"), QStringLiteral("--db"), db,
                              QStringLiteral("--serie"), QStringLiteral("F")};
    const std::pair<QStringList, QString> casos[] = {
        {factura + QStringList{QStringLiteral("--fecha"), QStringLiteral("20/11/2026"),
                               QStringLiteral("--albaranes"), notas, QStringLiteral("--usuario"),
                               QStringLiteral("999")},
         QStringLiteral("No existe el usuario 999")},
        {factura + QStringList{QStringLiteral("--fecha=31/02/2026"),
                               QStringLiteral("--albaranes=") + notas},
         QStringLiteral("--fecha: «31/02/2026» no es una fecha válida")},
        {factura + QStringList{QStringLiteral("--fecha"), QStringLiteral("20/11/2026"),
                               QStringLiteral("--albaranes"), QStringLiteral("5abc")},
         QStringLiteral("--albaranes debe ser un número entero")},
        {facturar + QStringList{QStringLiteral("--desde"), QStringLiteral("31/02/2026")},
         QStringLiteral("--desde: «31/02/2026» no es una fecha válida")},
        {{QStringLiteral("facturar"), QStringLiteral("--db"), db, QStringLiteral("--fecha"),
          QStringLiteral("31/12/9999")},
         QStringLiteral("fuera de las admitidas")},
        {facturar + QStringList{QStringLiteral("--hasta"), QStringLiteral("1/1/1999")},
         QStringLiteral("fuera de las admitidas")},
        {facturar + QStringList{QStringLiteral("--salida"), QStringLiteral("pdf"),
                                QStringLiteral("--copias"), QStringLiteral("abc")},
         QStringLiteral("--copias debe ser un número entero")},
        {facturar + QStringList{QStringLiteral("--copias=abc")},
         QStringLiteral("--copias debe ser un número entero")},
        {facturar + QStringList{QStringLiteral("--copias"), QStringLiteral("100")},
         QStringLiteral("--copias debe estar entre 0 y 99")},
        {facturar + QStringList{QStringLiteral("--cliente"), QStringLiteral("5abc")},
         QStringLiteral("--cliente debe ser un número entero")},
        {facturar + QStringList{QStringLiteral("--cliente"), QStringLiteral("99999")},
         QStringLiteral("No existe el cliente con código 99999")},
        {facturar + QStringList{QStringLiteral("--usuario"), QStringLiteral("999")},
         QStringLiteral("No existe el usuario 999")},
        {facturar + QStringList{QStringLiteral("--salida"), QStringLiteral("x")},
         QStringLiteral("Valor no admitido en --salida")},
        {facturar + QStringList{QStringLiteral("--opcion-rara")},
         QStringLiteral("Opción desconocida: --opcion-rara")},
        {facturar + QStringList{QStringLiteral("--serie"), QStringLiteral("A/B")},
         QStringLiteral("--serie solo admite letras, cifras y guiones")},
        {facturar + QStringList{QStringLiteral("--serie"), QStringLiteral("ABCDEFGHIJK")},
         QStringLiteral("--serie admite como mucho 10 caracteres")},
        // The next option is not taken for the value.
        {facturar + QStringList{QStringLiteral("--serie"), QStringLiteral("--incluir-cero")},
         QStringLiteral("Falta el valor de la opción --serie")},
        {facturar + QStringList{QStringLiteral("--serie")},
         QStringLiteral("Falta el valor de la opción --serie")},
        {facturar + QStringList{QStringLiteral("--incluir-cero=1")},
         QStringLiteral("La opción --incluir-cero no lleva valor")},
        {facturar + QStringList{QStringLiteral("--fecha"), QStringLiteral("21/11/2026")},
         QStringLiteral("La opción --fecha está repetida")},
        {facturar + QStringList{QStringLiteral("A")}, QStringLiteral("Argumento inesperado")},
        {emitir + QStringList{QStringLiteral("--desde"), QStringLiteral("1"),
                              QStringLiteral("--diseno"), QStringLiteral("70000")},
         QStringLiteral("--diseno debe estar entre 0 y 19")},
        {emitir + QStringList{QStringLiteral("--desde"), QStringLiteral("99999999999")},
         QStringLiteral("--desde debe estar entre 1 y 2147483647")},
        {emitir + QStringList{QStringLiteral("--desde"), QStringLiteral("2"),
                              QStringLiteral("--hasta"), QStringLiteral("1")},
         QStringLiteral("--hasta (1) no puede ser menor que --desde (2)")},
        {emitir + QStringList{QStringLiteral("--desde"), QStringLiteral("1"),
                              QStringLiteral("--pantalla")},
         QStringLiteral("Indique una salida")},
    };
    for (const auto& [args, mensaje] : casos) {
        const Salida s = ejecuta(args);
        const std::string caso = args.join(QLatin1Char(' ')).toStdString();
        EXPECT_EQ(s.codigo, 2) << caso << "\n" << s.texto.toStdString();
        EXPECT_TRUE(s.error.contains(mensaje)) << caso << "\n" << s.error.toStdString();
        EXPECT_FALSE(s.salida.contains(QStringLiteral("Facturas emitidas"))) << caso;
    }
    EXPECT_EQ(facturas(), antesFacturas);
    EXPECT_EQ(pendientes(), antesPendientes);
    EXPECT_FALSE(QFileInfo::exists(carpeta));
}

TEST_P(Ordenes, EmitirKeepsTheFilesOfTwoSeriesWithTheSameNumber) {
    creaDemo();
    const auto [mismos, otro] = albaranes();
    ASSERT_FALSE(mismos.isEmpty());
    Salida s = ejecuta({QStringLiteral("factura"), QStringLiteral("--db"), db,
                        QStringLiteral("--serie"), QStringLiteral("B"), QStringLiteral("--fecha"),
                        QStringLiteral("20/11/2026"), QStringLiteral("--albaranes"), mismos[0]});
    ASSERT_EQ(s.codigo, 0) << s.texto.toStdString();
    s = ejecuta({QStringLiteral("facturar"), QStringLiteral("--db"), db, QStringLiteral("--fecha"),
                 QStringLiteral("20/11/2026")});
    ASSERT_EQ(s.codigo, 0) << s.texto.toStdString();

    QTemporaryDir dir;
    const auto emite = [&](const QString& serie) {
        return ejecuta({QStringLiteral("emitir"), QStringLiteral("--db"), db,
                        QStringLiteral("--serie"), serie, QStringLiteral("--desde"),
                        QStringLiteral("1"), QStringLiteral("--pdf"), dir.path()});
    };
    s = emite(QStringLiteral("A"));
    ASSERT_EQ(s.codigo, 0) << s.texto.toStdString();
    const QString a1 = dir.filePath(QStringLiteral("F_A_1.pdf"));
    QFile fa(a1);
    ASSERT_TRUE(fa.open(QIODevice::ReadOnly));
    const QByteArray bytesA = fa.readAll();
    fa.close();
    s = emite(QStringLiteral("B"));
    ASSERT_EQ(s.codigo, 0) << s.texto.toStdString();
    const QString b1 = dir.filePath(QStringLiteral("F_B_1.pdf"));
    EXPECT_TRUE(s.salida.contains(b1)) << s.salida.toStdString();
    EXPECT_TRUE(s.salida.contains(QStringLiteral("Ficheros PDF escritos: 1.")));
    // A/1 is still the file written for A/1.
    ASSERT_TRUE(fa.open(QIODevice::ReadOnly));
    EXPECT_EQ(fa.readAll(), bytesA);
    EXPECT_GT(QFileInfo(b1).size(), 1000);
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              (QStringList{QStringLiteral("F_A_1.pdf"), QStringLiteral("F_B_1.pdf")}));
}

TEST_P(Ordenes, FacturarTellsWhereThePdfWentAndTheScreenRouteEndsCleanly) {
    creaDemo();
    // The first customer's notes to a PDF; the path is printed and holds it.
    auto bd = BdSesion::Abre(db);
    const QString codigo = bd->cn()
                               .Execute(QStringLiteral("SELECT MIN(Cli_Cod) FROM Cli INNER JOIN "
                                                       "Cav ON Cav_IdCli = Cli_Id WHERE "
                                                       "Cav_Situa = 1"))
                               .Fields(0)
                               .Texto();
    bd.reset();
    Salida s =
        ejecuta({QStringLiteral("facturar"), QStringLiteral("--db"), db, QStringLiteral("--fecha"),
                 QStringLiteral("20/11/2026"), QStringLiteral("--cliente"), codigo,
                 QStringLiteral("--salida"), QStringLiteral("pdf")});
    ASSERT_EQ(s.codigo, 0) << s.texto.toStdString();
    const QRegularExpressionMatch m =
        QRegularExpression(QStringLiteral("PDF de las facturas: (.+\\.pdf)")).match(s.salida);
    ASSERT_TRUE(m.hasMatch()) << s.salida.toStdString();
    EXPECT_GT(QFileInfo(m.captured(1)).size(), 1000) << m.captured(1).toStdString();
    const qint64 antes = facturas();

    // The rest to the screen: without a desktop viewer it fails with a
    // message, after the invoices were made; it never aborts.
    s = ejecuta({QStringLiteral("facturar"), QStringLiteral("--db"), db, QStringLiteral("--fecha"),
                 QStringLiteral("20/11/2026"), QStringLiteral("--salida"),
                 QStringLiteral("pantalla")});
    EXPECT_TRUE(s.normal) << s.texto.toStdString();
    EXPECT_TRUE(s.codigo == 0 || s.codigo == 1) << s.codigo << s.texto.toStdString();
    if (s.codigo == 1) {
        EXPECT_TRUE(s.error.contains(QStringLiteral("No se puede abrir el visor de PDF")))
            << s.error.toStdString();
    }
    EXPECT_FALSE(s.texto.contains(QStringLiteral("Error interno"))) << s.texto.toStdString();
    EXPECT_GT(facturas(), antes);
    EXPECT_EQ(pendientes(), 0);
}

TEST_P(Ordenes, FacturarListsWhatDidNotFinishAndFails) {
    creaDemo();
    const auto [mismos, otro] = albaranes();
    ASSERT_FALSE(mismos.isEmpty());
    // One note whose lines have no tax row: its group cannot be invoiced.
    auto bd = BdSesion::Abre(db);
    bd->cn().Execute(QStringLiteral("UPDATE Lav SET Lav_Tiva = 999999 WHERE Lav_IdCav = ?"),
                     {mismos[0].toInt()});
    const QString cliente =
        bd->cn()
            .Execute(QStringLiteral("SELECT Cli_Nom FROM Cli INNER JOIN Cav ON Cav_IdCli = Cli_Id "
                                    "WHERE Cav_Id = ?"),
                     {mismos[0].toInt()})
            .Fields(0)
            .Texto()
            .trimmed();
    bd.reset();
    const Salida s = ejecuta({QStringLiteral("facturar"), QStringLiteral("--db"), db,
                              QStringLiteral("--fecha"), QStringLiteral("20/11/2026")});
    EXPECT_EQ(s.codigo, 1) << s.texto.toStdString();
    EXPECT_TRUE(s.error.contains(QStringLiteral("Grupo de %1: ").arg(cliente)) ||
                s.error.contains(QRegularExpression(QStringLiteral("Factura \\S+/\\d+ \\(%1\\): ")
                                                        .arg(QRegularExpression::escape(cliente)))))
        << s.error.toStdString();
    // The other groups were invoiced and said so.
    EXPECT_TRUE(s.salida.contains(QStringLiteral("Facturas emitidas: %1,").arg(facturas())))
        << s.salida.toStdString();
    EXPECT_GT(facturas(), 0);
}

TEST_P(Ordenes, DatabaseErrorsShowTheirDetailOnlyWhenAsked) {
    creaDemo();
    BdSesion::Abre(db)->cn().Execute(QStringLiteral("ALTER TABLE Fav RENAME TO FavApartada"));
    const QStringList emitir{
        QStringLiteral("emitir"),  QStringLiteral("--db"),       db,
        QStringLiteral("--serie"), QStringLiteral("A"),          QStringLiteral("--desde"),
        QStringLiteral("1"),       QStringLiteral("--impresora")};
    Salida s = ejecuta(emitir);
    EXPECT_EQ(s.codigo, 1) << s.texto.toStdString();
    EXPECT_TRUE(s.error.contains(QStringLiteral("La base de datos ha rechazado la operación")))
        << s.error.toStdString();
    EXPECT_FALSE(s.error.contains(QStringLiteral("Sentencia:"))) << s.error.toStdString();
    s = ejecuta(emitir + QStringList{QStringLiteral("--detalle")});
    EXPECT_EQ(s.codigo, 1);
    EXPECT_TRUE(s.error.contains(QStringLiteral("Sentencia: SELECT"))) << s.error.toStdString();
    // Before the command's name as well.
    s = ejecuta(QStringList{QStringLiteral("--detalle")} + emitir);
    EXPECT_TRUE(s.error.contains(QStringLiteral("Sentencia: SELECT"))) << s.error.toStdString();
}

// An invoice and its receipts as the customer sees them: everything but its
// identity in the table and its number.
QStringList facturaComoTexto(BdSesion& bd, qint64 idFactura) {
    const QStringList columnas{QStringLiteral("Fav_Fecha"),   QStringLiteral("Fav_IdCli"),
                               QStringLiteral("Fav_CliNom"),  QStringLiteral("Fav_IdFco"),
                               QStringLiteral("Fav_Dto1"),    QStringLiteral("Fav_Dto2"),
                               QStringLiteral("Fav_Bruto"),   QStringLiteral("Fav_ImpDto1"),
                               QStringLiteral("Fav_ImpDto2"), QStringLiteral("Fav_ImpDtoPie1"),
                               QStringLiteral("Fav_Biva1"),   QStringLiteral("Fav_ImpIva1"),
                               QStringLiteral("Fav_Biva2"),   QStringLiteral("Fav_ImpIva2"),
                               QStringLiteral("Fav_Biva3"),   QStringLiteral("Fav_ImpIva3"),
                               QStringLiteral("Fav_ImpRet"),  QStringLiteral("Fav_Total"),
                               QStringLiteral("Fav_IRetNf"),  QStringLiteral("Fav_Liquido"),
                               QStringLiteral("Fav_Sg"),      QStringLiteral("Fav_Nombre"),
                               QStringLiteral("Fav_Cp"),      QStringLiteral("Fav_Poblacion"),
                               QStringLiteral("Fav_Obs"),     QStringLiteral("Fav_Fatencion")};
    Recordset fav = bd.cn().Execute(QStringLiteral("SELECT %1 FROM Fav WHERE Fav_Id = ?")
                                        .arg(columnas.join(QStringLiteral(", "))),
                                    {idFactura});
    QStringList r;
    for (const QString& c : columnas) {
        r << c + QLatin1Char('=') + fav.Fields(c).Texto();
    }
    for (Recordset rec = bd.cn().Execute(QStringLiteral("SELECT Rec_FVto, Rec_Importe, Rec_Texto "
                                                        "FROM Rec WHERE Rec_IdFac = ? ORDER BY "
                                                        "Rec_FVto, Rec_Id"),
                                         {idFactura});
         !rec.Eof(); rec.MoveNext()) {
        r << rec.Fields(0).Texto() + QLatin1Char(' ') + rec.Fields(1).Texto() + QLatin1Char(' ') +
                 rec.Fields(2).Texto();
    }
    return r;
}

TEST_P(Ordenes, FacturaAndFacturarMakeTheSameInvoiceOfTheSameNotes) {
    // Two copies of the demo company: the batch run in one, the single
    // invoice of the same notes in the other.
    creaDemo();
    const QString otra = base->cadenaCatalogo(QStringLiteral("vkemp0002"));
    ASSERT_EQ(
        ejecuta({QStringLiteral("init"), QStringLiteral("--db"), otra, QStringLiteral("--demo")})
            .codigo,
        0);
    Salida s = ejecuta({QStringLiteral("facturar"), QStringLiteral("--db"), otra,
                        QStringLiteral("--fecha"), QStringLiteral("20/11/2026")});
    ASSERT_EQ(s.codigo, 0) << s.texto.toStdString();
    auto lote = BdSesion::Abre(otra);
    auto sola = BdSesion::Abre(db);
    // Every invoice of several notes with discounts, retention or a fiscal
    // address is compared, not just one.
    int comparadas = 0;
    for (Recordset rs = lote->cn().Execute(QStringLiteral(
             "SELECT Cav_IdFactura FROM Cav WHERE Cav_IdFactura IS NOT NULL GROUP BY "
             "Cav_IdFactura HAVING COUNT(*) > 1 ORDER BY Cav_IdFactura LIMIT 6"));
         !rs.Eof(); rs.MoveNext()) {
        QStringList ids;
        for (Recordset a = lote->cn().Execute(
                 QStringLiteral("SELECT Cav_Id FROM Cav WHERE Cav_IdFactura = ? ORDER BY Cav_Id"),
                 {rs.Fields(0).Entero()});
             !a.Eof(); a.MoveNext()) {
            ids << a.Fields(0).Texto();
        }
        s = ejecuta({QStringLiteral("factura"), QStringLiteral("--db"), db,
                     QStringLiteral("--serie"), QStringLiteral("A"), QStringLiteral("--fecha"),
                     QStringLiteral("20/11/2026"), QStringLiteral("--albaranes"),
                     ids.join(QLatin1Char(','))});
        ASSERT_EQ(s.codigo, 0) << s.texto.toStdString();
        const qint64 hecha = sola->cn()
                                 .Execute(QStringLiteral("SELECT Cav_IdFactura FROM Cav WHERE "
                                                         "Cav_Id = ?"),
                                          {ids.first().toInt()})
                                 .Fields(0)
                                 .Entero();
        EXPECT_EQ(
            facturaComoTexto(*sola, hecha).join(QLatin1Char('\n')).toStdString(),
            facturaComoTexto(*lote, rs.Fields(0).Entero()).join(QLatin1Char('\n')).toStdString())
            << ids.join(QLatin1Char(',')).toStdString();
        ++comparadas;
    }
    EXPECT_GE(comparadas, 3);
}

TEST_P(Ordenes, AFailedSaveKeepsTheAmountsAndTheCommandsFail) {
    creaDemo();
    const auto [mismos, otro] = albaranes();
    // The database refuses every receipt.
    RechazaInserciones(*BdSesion::Abre(db), QStringLiteral("Rec"));
    Salida s = ejecuta({QStringLiteral("factura"), QStringLiteral("--db"), db,
                        QStringLiteral("--serie"), QStringLiteral("A"), QStringLiteral("--fecha"),
                        QStringLiteral("20/11/2026"), QStringLiteral("--albaranes"), mismos[0]});
    EXPECT_EQ(s.codigo, 1) << s.texto.toStdString();
    EXPECT_TRUE(s.error.contains(QStringLiteral("Factura A/1: La factura se ha grabado con sus "
                                                "importes, pero no se terminó")))
        << s.error.toStdString();
    s = ejecuta({QStringLiteral("facturar"), QStringLiteral("--db"), db, QStringLiteral("--fecha"),
                 QStringLiteral("20/11/2026")});
    EXPECT_EQ(s.codigo, 1) << s.texto.toStdString();
    // Each unfinished invoice once, by its number.
    EXPECT_EQ(s.error.count(QStringLiteral("Factura A/2 (")), 1) << s.error.toStdString();
    auto bd = BdSesion::Abre(db);
    EXPECT_EQ(pendientes(), 0);
    EXPECT_EQ(bd->cn()
                  .Execute(QStringLiteral("SELECT COUNT(*) FROM Fav WHERE Fav_Total <= 0 OR "
                                          "Fav_Liquido <= 0 OR Fav_Bruto <= 0"))
                  .Fields(0)
                  .Entero(),
              0);
    EXPECT_EQ(bd->cn().Execute(QStringLiteral("SELECT COUNT(*) FROM Rec")).Fields(0).Entero(), 0);
}

// What needs no company: help, version, the command's name.
TEST_P(Ordenes, VerEditarYBorrarRunTheEditScreensStepsAndARefusalChangesNothing) {
    creaDemo();
    ASSERT_EQ(ejecuta({QStringLiteral("facturar"), QStringLiteral("--db"), db,
                       QStringLiteral("--fecha"), QStringLiteral("20/11/2026"),
                       QStringLiteral("--salida"), QStringLiteral("ninguna")})
                  .codigo,
              0);
    const qint64 hechas = facturas();
    const QString ultima = QString::number(hechas);
    const auto orden = [this](const QString& nombre, const QString& numero, QStringList mas = {}) {
        return ejecuta(QStringList{nombre, QStringLiteral("--db"), db, QStringLiteral("--serie"),
                                   QStringLiteral("A"), QStringLiteral("--numero"), numero} +
                       mas);
    };
    const auto observaciones = [this](int numero) {
        return BdSesion::Abre(db)
            ->cn()
            .Execute(QStringLiteral("SELECT Fav_Obs FROM Fav WHERE Fav_Serie = 'A' AND "
                                    "Fav_Numero = ?"),
                     {numero})
            .Fields(0)
            .Texto();
    };

    Salida s = orden(QStringLiteral("ver"), QStringLiteral("1"));
    ASSERT_EQ(s.codigo, 0) << s.texto.toStdString();
    for (const char* parte : {"Factura A/1 de 20/11/2026", "Cliente: ", "Albaranes:", "Importes:",
                              "Total factura", "Recibos: "}) {
        EXPECT_TRUE(s.salida.contains(QString::fromUtf8(parte))) << parte << s.texto.toStdString();
    }
    s = orden(QStringLiteral("ver"), QStringLiteral("9999"));
    EXPECT_EQ(s.codigo, 1);
    EXPECT_TRUE(s.error.contains(QStringLiteral("Factura Inexistente"))) << s.texto.toStdString();
    EXPECT_EQ(orden(QStringLiteral("ver"), QStringLiteral("uno")).codigo, 2);

    // The remark is written first, then the date is refused: both go back.
    const QString antes = observaciones(1);
    s = orden(QStringLiteral("editar"), QStringLiteral("1"),
              {QStringLiteral("--observaciones"), QStringLiteral("Revisada"),
               QStringLiteral("--rca"), QStringLiteral("si"), QStringLiteral("--fecha"),
               QStringLiteral("21/11/2026")});
    EXPECT_EQ(s.codigo, 1) << s.texto.toStdString();
    EXPECT_TRUE(s.error.contains(QStringLiteral("La fecha no puede ser posterior a 20/11/2026. "
                                                "Cambio de fecha cancelado")))
        << s.texto.toStdString();
    EXPECT_EQ(observaciones(1), antes);
    EXPECT_EQ(BdSesion::Abre(db)
                  ->cn()
                  .Execute(QStringLiteral("SELECT COALESCE(Fav_RCA, 0) FROM Fav WHERE Fav_Serie = "
                                          "'A' AND Fav_Numero = 1"))
                  .Fields(0)
                  .Entero(),
              0);
    s = orden(QStringLiteral("editar"), QStringLiteral("1"),
              {QStringLiteral("--observaciones"), QStringLiteral("Revisada")});
    ASSERT_EQ(s.codigo, 0) << s.texto.toStdString();
    EXPECT_TRUE(s.salida.contains(QStringLiteral("Observaciones: Revisada")));
    EXPECT_EQ(observaciones(1), QStringLiteral("Revisada"));
    // With --no every question is answered no: nothing changes.
    s = orden(QStringLiteral("editar"), QStringLiteral("1"),
              {QStringLiteral("--observaciones"), QStringLiteral("Otra"), QStringLiteral("--no")});
    EXPECT_EQ(s.codigo, 0) << s.texto.toStdString();
    EXPECT_EQ(observaciones(1), QStringLiteral("Revisada"));
    EXPECT_EQ(orden(QStringLiteral("editar"), QStringLiteral("1"),
                    {QStringLiteral("--dto1"), QStringLiteral("cien")})
                  .codigo,
              2);

    // Only the last invoice of the series can be deleted; its notes wait again.
    s = orden(QStringLiteral("borrar"), QStringLiteral("1"));
    EXPECT_EQ(s.codigo, 1);
    EXPECT_TRUE(
        s.error.contains(QStringLiteral("Sólo se admite eliminar el último número de una serie")))
        << s.texto.toStdString();
    EXPECT_EQ(facturas(), hechas);
    s = orden(QStringLiteral("borrar"), ultima);
    ASSERT_EQ(s.codigo, 0) << s.texto.toStdString();
    EXPECT_TRUE(s.salida.contains(QStringLiteral("Factura A/%1 borrada.").arg(ultima)));
    EXPECT_EQ(facturas(), hechas - 1);
    EXPECT_GT(pendientes(), 0);
}

TEST_P(Ordenes, AbonarMakesTheExactNegativeAndCopiarANewInvoice) {
    creaDemo();
    ASSERT_EQ(ejecuta({QStringLiteral("facturar"), QStringLiteral("--db"), db,
                       QStringLiteral("--fecha"), QStringLiteral("20/11/2026"),
                       QStringLiteral("--salida"), QStringLiteral("ninguna")})
                  .codigo,
              0);
    const auto total = [this](const QString& serie, int numero) {
        return BdSesion::Abre(db)
            ->cn()
            .Execute(QStringLiteral("SELECT Fav_Total FROM Fav WHERE Fav_Serie = ? AND "
                                    "Fav_Numero = ?"),
                     {serie, numero})
            .Fields(0)
            .Doble();
    };
    const double origen = total(QStringLiteral("A"), 2);
    Salida s = ejecuta({QStringLiteral("abonar"), QStringLiteral("--db"), db,
                        QStringLiteral("--serie"), QStringLiteral("A"), QStringLiteral("--numero"),
                        QStringLiteral("2"), QStringLiteral("--serie-destino"), QStringLiteral("R"),
                        QStringLiteral("--fecha"), QStringLiteral("21/11/2026")});
    ASSERT_EQ(s.codigo, 0) << s.texto.toStdString();
    EXPECT_TRUE(s.salida.contains(QStringLiteral("Factura de abono R/1 de la factura A/2.")))
        << s.texto.toStdString();
    EXPECT_DOUBLE_EQ(total(QStringLiteral("R"), 1), -origen);
    EXPECT_DOUBLE_EQ(total(QStringLiteral("A"), 2), origen);

    // A date before the series' last: refused, nothing made.
    const qint64 antes = facturas();
    s = ejecuta({QStringLiteral("copiar"), QStringLiteral("--db"), db, QStringLiteral("--serie"),
                 QStringLiteral("A"), QStringLiteral("--numero"), QStringLiteral("2"),
                 QStringLiteral("--fecha"), QStringLiteral("01/11/2026")});
    EXPECT_EQ(s.codigo, 1);
    EXPECT_TRUE(s.error.contains(QStringLiteral("Error en el proceso de copia de factura")))
        << s.texto.toStdString();
    EXPECT_EQ(facturas(), antes);
    s = ejecuta({QStringLiteral("copiar"), QStringLiteral("--db"), db, QStringLiteral("--serie"),
                 QStringLiteral("A"), QStringLiteral("--numero"), QStringLiteral("2"),
                 QStringLiteral("--fecha"), QStringLiteral("21/11/2026")});
    ASSERT_EQ(s.codigo, 0) << s.texto.toStdString();
    EXPECT_EQ(facturas(), antes + 1);
    EXPECT_TRUE(s.salida.contains(QStringLiteral(", copia de la factura A/2.")));
}

TEST_P(Ordenes, BorrarLoteIsForAdministratorsAndDeletesTheInvoicesListed) {
    creaDemo();
    ASSERT_EQ(ejecuta({QStringLiteral("facturar"), QStringLiteral("--db"), db,
                       QStringLiteral("--fecha"), QStringLiteral("20/11/2026"),
                       QStringLiteral("--salida"), QStringLiteral("ninguna")})
                  .codigo,
              0);
    const qint64 hechas = facturas();
    ASSERT_GE(hechas, 3);
    const qint64 antes = pendientes();
    const QStringList lote{QStringLiteral("borrar-lote"),
                           QStringLiteral("--db"),
                           db,
                           QStringLiteral("--serie"),
                           QStringLiteral("A"),
                           QStringLiteral("--desde-numero"),
                           QStringLiteral("2"),
                           QStringLiteral("--hasta-numero"),
                           QStringLiteral("3")};

    // The demo's second user is not an administrator.
    Salida s = ejecuta(lote + QStringList{QStringLiteral("--usuario"), QStringLiteral("2")});
    EXPECT_EQ(s.codigo, 1) << s.texto.toStdString();
    EXPECT_TRUE(s.texto.contains(
        QStringLiteral("Opción solo disponible para administradores - Acción cancelada -")))
        << s.texto.toStdString();
    EXPECT_EQ(facturas(), hechas);
    EXPECT_EQ(ejecuta({QStringLiteral("borrar-lote"), QStringLiteral("--db"), db}).codigo, 2);

    s = ejecuta(lote);
    ASSERT_EQ(s.codigo, 0) << s.texto.toStdString();
    EXPECT_TRUE(s.salida.contains(QStringLiteral("Facturas borradas: 2.")))
        << s.texto.toStdString();
    EXPECT_EQ(facturas(), hechas - 2);
    EXPECT_GT(pendientes(), antes);
}

TEST(Programa, HelpVersionAndUnknownCommands) {
    Salida s = ejecuta({QStringLiteral("--help")});
    EXPECT_EQ(s.codigo, 0);
    EXPECT_TRUE(s.salida.contains(QStringLiteral("Órdenes:"))) << s.texto.toStdString();
    for (const QString& orden :
         {QStringLiteral("facturar"), QStringLiteral("factura"), QStringLiteral("emitir"),
          QStringLiteral("init"), QStringLiteral("demo")}) {
        for (const QString& ayuda :
             {QStringLiteral("--help"), QStringLiteral("-h"), QStringLiteral("--ayuda")}) {
            s = ejecuta({orden, ayuda});
            EXPECT_EQ(s.codigo, 0) << orden.toStdString() << " " << ayuda.toStdString();
            EXPECT_TRUE(s.salida.startsWith(QStringLiteral("Uso: vkfactuven ") + orden))
                << s.texto.toStdString();
            EXPECT_TRUE(s.salida.contains(QStringLiteral("--db DB")));
            EXPECT_TRUE(s.salida.contains(QStringLiteral("--detalle")));
        }
    }
    for (const QString& version : {QStringLiteral("--version"), QStringLiteral("-v")}) {
        s = ejecuta({version});
        EXPECT_EQ(s.codigo, 0);
        EXPECT_TRUE(QRegularExpression(QStringLiteral("^vkfactuven \\d+\\.\\d+\\.\\d+\\n$"))
                        .match(s.salida)
                        .hasMatch())
            << s.salida.toStdString();
    }

    s = ejecuta({});
    EXPECT_EQ(s.codigo, 2);
    EXPECT_TRUE(s.error.contains(QStringLiteral("Órdenes:")));
    s = ejecuta({QStringLiteral("facturas")});
    EXPECT_EQ(s.codigo, 2);
    EXPECT_TRUE(s.error.contains(QStringLiteral("Orden desconocida: facturas")));
    s = ejecuta({QStringLiteral("--rara"), QStringLiteral("init")});
    EXPECT_EQ(s.codigo, 2);
    EXPECT_TRUE(s.error.contains(QStringLiteral("Opción desconocida: --rara")));
}

// The company's files are its owner's alone, whatever the caller's mask.
TEST(Programa, InitWritesFilesOnlyTheirOwnerReads) {
    QTemporaryDir dir;
    const QString carpeta = dir.filePath(QStringLiteral("empresa"));
    const mode_t anterior = umask(022);
    const Salida s = ejecuta({QStringLiteral("init"), QStringLiteral("--db"), carpeta});
    umask(anterior);
    ASSERT_EQ(s.codigo, 0) << s.texto.toStdString();
    const QFileInfoList ficheros = QDir(carpeta).entryInfoList(QDir::Files | QDir::Hidden);
    ASSERT_FALSE(ficheros.isEmpty());
    // 0600: the test's user owns them, so its bits are the owner's.
    const QFileDevice::Permissions soloPropietario = QFileDevice::ReadOwner |
                                                     QFileDevice::WriteOwner |
                                                     QFileDevice::ReadUser | QFileDevice::WriteUser;
    for (const QFileInfo& f : ficheros) {
        EXPECT_EQ(f.permissions(), soloPropietario) << f.fileName().toStdString();
    }
    const auto carpetaAjenos =
        QFileInfo(carpeta).permissions() &
        (QFileDevice::ReadGroup | QFileDevice::WriteGroup | QFileDevice::ExeGroup |
         QFileDevice::ReadOther | QFileDevice::WriteOther | QFileDevice::ExeOther);
    EXPECT_EQ(carpetaAjenos, QFileDevice::Permissions());
}

// The demo company lives on SQLite in a folder by definition; the commands it
// runs are tested on both backends above.
TEST(Demo, MakesTheCompanyInvoicesItAndWritesOnePdfPerInvoice) {
    QTemporaryDir dir;
    Salida s = ejecuta({QStringLiteral("demo"), QStringLiteral("--db"), dir.path()});
    ASSERT_EQ(s.codigo, 0) << s.texto.toStdString();
    EXPECT_TRUE(s.texto.contains(QStringLiteral("Resumen de la empresa de demostración")));
    const QStringList pdfs =
        QDir(dir.filePath(QStringLiteral("pdf"))).entryList({QStringLiteral("F_*.pdf")});
    auto bd = BdSesion::Abre(dir.path());
    EXPECT_EQ(pdfs.size(),
              bd->cn().Execute(QStringLiteral("SELECT COUNT(*) FROM Fav")).Fields(0).Entero());
    EXPECT_TRUE(s.texto.contains(QStringLiteral("%1 ficheros en").arg(pdfs.size())));
    // The second run finds nothing pending and keeps what was made.
    s = ejecuta({QStringLiteral("demo"), QStringLiteral("--db"), dir.path()});
    EXPECT_EQ(s.codigo, 0) << s.texto.toStdString();
    EXPECT_TRUE(s.texto.contains(QStringLiteral("No existen albaranes pendientes")));
}

VK_EN_AMBOS_MOTORES(Ordenes);

} // namespace
} // namespace vk::prueba
