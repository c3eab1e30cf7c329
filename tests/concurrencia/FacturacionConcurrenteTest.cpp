// Two office workers at once on one company, as real processes of the
// command line: the batch run twice over the same notes, and a single
// invoice with a later date while a batch is running.
#include "EmpresaPrueba.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QThread>
#include <VerificaCadena.h>

namespace vk::prueba {
namespace {

constexpr int kClientes = 1000;
constexpr int kAlbaranesPorCliente = 2;

class Concurrencia : public PruebaMotores {
protected:
    void SetUp() override {
        e = std::make_unique<EmpresaPrueba>(GetParam());
        cadena = e->base().cadenaCatalogo(QStringLiteral("vkemp0001"));
        // 2,000 pending notes: groups split by payment terms and discounts,
        // lines of three rates, some with per-unit discounts and amounts
        // added, customers with retentions.
        const qint32 contado = e->formaPago(QStringLiteral("Contado"), {{0, 100, 1}});
        const qint32 plazos = e->formaPago(QStringLiteral("30-60"), {{30, 50, 3}, {60, 50, 3}});
        Transaccion t(e->cn());
        for (int i = 0; i < kClientes; ++i) {
            const qint32 c = e->cliente({.retNf = i % 7 == 0 ? 2.5 : 0.0, .modoRetNf = i % 2});
            for (int j = 0; j < kAlbaranesPorCliente; ++j) {
                const double base = 10 + (i * 37 + j * 11) % 900 + 0.37 * j;
                const qint32 a = e->albaran(
                    c, QDate(2026, 11, 2 + (i + j) % 18), 1,
                    {{base, 1, 1 + (i + j) % 3}, {base / 3, 1, 1, QDate(2026, 1, 1), 1.25, 0.555}});
                e->cn().Execute(
                    QStringLiteral("UPDATE Cav SET Cav_IdFco = ?, Cav_Dto1 = ? WHERE Cav_Id = ?"),
                    {j % 2 == 0 || i % 3 ? contado : plazos, i % 5 == 0 ? 7.5 : 0, a});
            }
        }
        t.Confirma();
    }

    QProcess* lanza(const QStringList& args) {
        auto* p = new QProcess;
        procesos.emplace_back(p);
        p->setProcessChannelMode(QProcess::SeparateChannels);
        p->start(QStringLiteral(VK_PROGRAMA), args);
        return p;
    }
    QStringList facturar(const QString& fecha) {
        return {QStringLiteral("facturar"), QStringLiteral("--db"), cadena,
                QStringLiteral("--fecha"), fecha};
    }
    void espera(QProcess* p) {
        ASSERT_TRUE(p->waitForFinished(300000));
        // A refused or stopped run says so in its status; it never crashes.
        EXPECT_EQ(p->exitStatus(), QProcess::NormalExit);
        EXPECT_LE(p->exitCode(), 1) << p->readAllStandardError().toStdString();
    }
    qint64 cuenta(const QString& sql) { return e->cuenta(sql); }

    // Whatever happened to the runs: every invoice whole (its notes, its
    // gross, its receipts), numbered 1..n without a gap or a repeat, and no
    // note on an invoice that does not exist; with `todas`, no note left.
    void compruebaCoherencia(bool todas) {
        EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE (Cav_Situa = 2) <> "
                                        "(Cav_IdFactura IS NOT NULL) OR Cav_IdFactura NOT IN "
                                        "(SELECT Fav_Id FROM Fav)")),
                  0);
        if (todas) {
            EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE Cav_Situa <> 2")), 0);
        }
        EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav WHERE Fav_Id NOT IN (SELECT "
                                        "Cav_IdFactura FROM Cav WHERE Cav_IdFactura IS NOT "
                                        "NULL)")),
                  0);
        const qint64 n = cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav"));
        EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(DISTINCT Fav_Numero) FROM Fav")), n);
        if (n > 0) {
            EXPECT_EQ(
                cuenta(QStringLiteral("SELECT MAX(Fav_Numero) - MIN(Fav_Numero) + 1 FROM Fav")), n);
        }
        EXPECT_EQ(cuenta(QStringLiteral(
                      "SELECT COUNT(*) FROM Fav WHERE ABS(Fav_Bruto - (SELECT SUM(Lav_Importe + "
                      "Lav_ImpResDes) FROM Lav INNER JOIN Cav ON Lav_IdCav = Cav_Id WHERE "
                      "Cav_IdFactura = Fav_Id)) > 0.005")),
                  0);
        EXPECT_EQ(cuenta(QStringLiteral(
                      "SELECT COUNT(*) FROM Fav WHERE ABS(Fav_Liquido - COALESCE((SELECT "
                      "SUM(Rec_Importe) FROM Rec WHERE Rec_Tipo = 1 AND Rec_IdFac = Fav_Id), 0)) "
                      "> 0.005")),
                  0);
        EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav WHERE Fav_Total = 0")), 0);
        // Every invoice with exactly one record, no record without its
        // invoice, and one unbroken chain whoever wrote it.
        EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav WHERE (SELECT COUNT(*) FROM "
                                        "VfRegistro WHERE Vfr_IdFactura = Fav_Id) <> 1")),
                  0);
        EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM VfRegistro WHERE Vfr_IdFactura NOT "
                                        "IN (SELECT Fav_Id FROM Fav)")),
                  0);
        const fiscal::ResultadoVerificacion v = fiscal::fnVerificaCadena(e->bd());
        EXPECT_TRUE(v.Correcta()) << v.descripcion.toStdString();
        EXPECT_EQ(v.registros, n);
    }

    std::unique_ptr<EmpresaPrueba> e;
    QString cadena;
    std::vector<std::unique_ptr<QProcess>> procesos;
};

TEST_P(Concurrencia, TwoBatchRunsAtOnceBillEveryNoteExactlyOnce) {
    QProcess* a = lanza(facturar(QStringLiteral("22/11/2026")));
    QProcess* b = lanza(facturar(QStringLiteral("22/11/2026")));
    espera(a);
    espera(b);
    EXPECT_GT(cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav")), kClientes);
    compruebaCoherencia(true);
}

TEST_P(Concurrencia, ARunKilledMidwayLeavesWholeInvoicesAndTheNextOneFinishes) {
    QProcess* a = lanza(facturar(QStringLiteral("22/11/2026")));
    // Killed once a few batches stand, at a moment of its own each run, as a
    // power cut or kill -9 would.
    const qint64 minimo = 40 + QRandomGenerator::global()->bounded(120);
    QElapsedTimer reloj;
    reloj.start();
    while (cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav")) < minimo &&
           reloj.elapsed() < 120000) {
        QThread::msleep(1 + QRandomGenerator::global()->bounded(5));
    }
    a->kill();
    ASSERT_TRUE(a->waitForFinished(30000));
    const qint64 hechas = cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav"));
    EXPECT_GE(hechas, minimo);
    EXPECT_GT(cuenta(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE Cav_Situa = 1")), 0);
    compruebaCoherencia(false);

    espera(lanza(facturar(QStringLiteral("22/11/2026"))));
    EXPECT_GT(cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav")), hechas);
    compruebaCoherencia(true);
}

TEST_P(Concurrencia, ALaterSingleInvoiceDuringABatchNeverPutsADateBeforeALowerNumber) {
    // The note of the customer whose name sorts last: the batch reaches it
    // at the end, if at all.
    const qint64 nota = e->cuenta(QStringLiteral(
        "SELECT MAX(Cav_Id) FROM Cav WHERE Cav_IdCli = (SELECT Cli_Id FROM Cli ORDER BY cli_nom "
        "DESC, cli_ape1 DESC LIMIT 1)"));
    QProcess* lote = lanza(facturar(QStringLiteral("22/11/2026")));
    // Let the batch get going, then a colleague invoices one note dated later.
    for (int i = 0; i < 600 && cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav")) < 30; ++i) {
        QThread::msleep(50);
    }
    QProcess* sola =
        lanza({QStringLiteral("factura"), QStringLiteral("--db"), cadena, QStringLiteral("--serie"),
               QStringLiteral("A"), QStringLiteral("--fecha"), QStringLiteral("25/11/2026"),
               QStringLiteral("--albaranes"), QString::number(nota)});
    espera(sola);
    espera(lote);
    // Numbers and dates run together in the series, whoever came first.
    EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav a INNER JOIN Fav b ON a.Fav_Serie "
                                    "= b.Fav_Serie AND a.Fav_Numero < b.Fav_Numero AND "
                                    "a.Fav_Fecha > b.Fav_Fecha")),
              0);
    const qint64 n = cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav"));
    EXPECT_EQ(cuenta(QStringLiteral("SELECT MAX(Fav_Numero) FROM Fav")), n);
    if (sola->exitCode() == 0 && lote->exitCode() != 0) {
        // The single invoice came in the middle: the batch stopped there and
        // said why, leaving the rest pending for a later run.
        EXPECT_TRUE(QString::fromUtf8(lote->readAllStandardError())
                        .contains(QStringLiteral("no puede ser inferior a 25/11/2026")));
        EXPECT_GT(cuenta(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE Cav_Situa = 1")), 0);
    }
    compruebaCoherencia(false);
}

VK_EN_AMBOS_MOTORES(Concurrencia);

} // namespace
} // namespace vk::prueba
