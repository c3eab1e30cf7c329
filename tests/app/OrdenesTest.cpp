// The command line as a person runs it: real processes on both backends.
#include "BasePrueba.h"

#include <BdSesion.h>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

namespace vk::prueba {
namespace {

struct Salida {
    int codigo;
    QString texto;
};

Salida ejecuta(const QStringList& args) {
    QProcess p;
    p.setProcessChannelMode(QProcess::MergedChannels);
    p.start(QStringLiteral(VK_PROGRAMA), args);
    p.waitForFinished(120000);
    return {p.exitCode(), QString::fromUtf8(p.readAll())};
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
    // Refused by the screen's checks: exit status not 0, nothing written.
    Salida s = ejecuta({QStringLiteral("facturar"), QStringLiteral("--db"), db});
    EXPECT_NE(s.codigo, 0);
    EXPECT_TRUE(s.texto.contains(QStringLiteral("Falta Fecha Factura"))) << s.texto.toStdString();
    EXPECT_EQ(facturas(), 0);

    s = ejecuta({QStringLiteral("facturar"), QStringLiteral("--db"), db, QStringLiteral("--fecha"),
                 QStringLiteral("20/11/2026")});
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

    // Every invoice to its own PDF file, named by its number.
    QTemporaryDir pdf;
    s = ejecuta({QStringLiteral("emitir"), QStringLiteral("--db"), db, QStringLiteral("--serie"),
                 QStringLiteral("A"), QStringLiteral("--desde"), QStringLiteral("1"),
                 QStringLiteral("--hasta"), QString::number(hechas), QStringLiteral("--pdf"),
                 pdf.path()});
    ASSERT_EQ(s.codigo, 0) << s.texto.toStdString();
    for (qint64 n = 1; n <= hechas; ++n) {
        const QString fichero = QDir(pdf.path()).filePath(QStringLiteral("F_%1.pdf").arg(n));
        EXPECT_TRUE(QFileInfo(fichero).size() > 1000) << fichero.toStdString();
    }
    EXPECT_TRUE(s.texto.contains(QStringLiteral("Ficheros PDF escritos: %1.").arg(hechas)));
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
    // Text for the impact printer, in its code page: both invoices, their
    // notes, a form feed between them.
    EXPECT_TRUE(bytes.startsWith("\x12\r\n"));
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
