// The batch invoicing screen driven as a person would: filters, search,
// ticks, invoice; on both backends.
#include "EmisorAnotado.h"
#include "EmpresaPrueba.h"

#include <Conexion.h>
#include <FacturacionAlbaranes.h>
#include <MensajesMotor.h>
#include <MensajesRuns.h>
#include <RegistroSuite.h>
#include <frmFactuAlbaran.h>
#include <frmFacturasVenta.h>
#include <frmIniFav.h>
#include <set>

namespace vk::prueba {
namespace {

const QDate kDia1(2026, 3, 1);
const QDate kDia10(2026, 3, 10);
const QDate kDia20(2026, 3, 20);

class Multifactura : public PruebaMotores {
protected:
    void SetUp() override {
        suite::RegistraComponentesSuite();
        EmisorAnotado::Registra();
        e = std::make_unique<EmpresaPrueba>(GetParam());
        contado = e->formaPago(QStringLiteral("Contado"), {{0, 100, 1}});
        domiciliado = e->formaPago(QStringLiteral("Domiciliado 30"), {{30, 100, 2}});
    }
    void TearDown() override { EmisorAnotado::Olvida(); }

    // A note with its payment terms, discounts and agent set.
    qint32 albaran(qint32 cliente, QDate fecha, double importe, qint32 fco, double dto1 = 0,
                   double dto2 = 0, qint32 agente = 0) {
        const qint32 id = e->albaran(cliente, fecha, 1, {{importe, 1, 1}}, agente);
        e->cn().Execute(
            QStringLiteral(
                "UPDATE Cav SET Cav_IdFco = ?, Cav_Dto1 = ?, Cav_Dto2 = ? WHERE Cav_Id = ?"),
            {fco, dto1, dto2, id});
        return id;
    }
    std::unique_ptr<frmFacturasVenta> pantalla() {
        auto p = std::make_unique<frmFacturasVenta>(e->factura());
        p->Text1[3].clear();
        p->Text1[6] = QStringLiteral("31/03/2026");
        // The series is new: its first number is the dialog's default.
        e->ui().dialogos.push_back(
            [](DialogoModelo& d) { return dynamic_cast<frmIniFav&>(d).cmdInforme(); });
        return p;
    }
    void facturaTodos(frmFacturasVenta& p) {
        p.Check4 = true;
        p.Check4_Click();
        e->ui().respuestas.push_back(true);
        p.cmdFacturar();
    }
    qint64 pendientes() {
        return e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE Cav_Situa = 1 AND "
                                        "Cav_IdFactura IS NULL"));
    }
    std::unique_ptr<EmpresaPrueba> e;
    qint32 contado = 0;
    qint32 domiciliado = 0;
};

TEST_P(Multifactura, GroupsSplitByTermsDiscountsAndAgents) {
    const qint32 c = e->cliente();
    albaran(c, kDia1, 100, contado, 0, 0, 1);
    albaran(c, kDia10, 50, contado, 0, 0, 2);
    albaran(c, kDia10, 80, contado, 5, 0, 1);
    auto p = pantalla();
    p->cmdBuscar();
    ASSERT_EQ(p->NumeroGrupos(), 3);
    EXPECT_FALSE(p->Text1_14_Enabled);
    EXPECT_EQ(p->ListView1.size(), 1u);
    EXPECT_EQ(p->Label1_1, QStringLiteral("Albaranes pendientes de Cliente Número 1 "));

    // Agents no longer split: the two notes without discount are one group.
    p->chkGroupAgentes = true;
    p->cmdBuscar();
    ASSERT_EQ(p->NumeroGrupos(), 2);
    EXPECT_EQ(p->Grupo(0).Cav_Agente.toInt(), 0);
    const auto& sinDto = p->Grupo(0).cav_dto1 == 0 ? p->Grupo(0) : p->Grupo(1);
    EXPECT_DOUBLE_EQ(sinDto.tOTAL, 150);
    p->SeleccionaGrupo(p->Grupo(0).cav_dto1 == 0 ? 0 : 1);
    EXPECT_EQ(p->ListView1.size(), 2u);
    EXPECT_EQ(p->ListView1[0].Cav_Fecha, kDia1); // date order
    EXPECT_EQ(p->dbgLineas.RecordCount(), 1);

    facturaTodos(*p);
    EXPECT_EQ(p->facturasGeneradas.size(), 2u);
    EXPECT_EQ(pendientes(), 0);
    EXPECT_EQ(e->ui().Textos().back(), mensajes::kSinAlbaranesPendientes);
    EXPECT_EQ(e->ui().progresos.back(), std::make_pair(2, 2));
}

TEST_P(Multifactura, SecondDiscountDoesNotSplitTheNotesOfARun) {
    const qint32 c = e->cliente();
    albaran(c, kDia1, 100, contado, 5, 0);
    albaran(c, kDia10, 100, contado, 5, 3);
    auto p = pantalla();
    p->cmdBuscar();
    ASSERT_EQ(p->NumeroGrupos(), 2);
    // Each group lists the notes of both.
    EXPECT_EQ(p->ListView1.size(), 2u);
    facturaTodos(*p);
    // The first group took both notes; the second found none left.
    ASSERT_EQ(p->facturasGeneradas.size(), 1u);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE Cav_IdFactura = ?"),
                        {p->facturasGeneradas[0]}),
              2);
}

TEST_P(Multifactura, DateFiltersAndZeroNotes) {
    const qint32 c = e->cliente();
    albaran(c, kDia1, 100, contado);
    albaran(c, kDia10, 100, contado);
    albaran(c, kDia20, 100, contado);
    const qint32 cero = albaran(c, kDia1, 0, contado);
    auto p = pantalla();
    // A lone from-date acts as a latest date.
    p->Text1[2] = QStringLiteral("10/03/2026");
    p->cmdBuscar();
    ASSERT_EQ(p->NumeroGrupos(), 1);
    EXPECT_EQ(p->ListView1.size(), 2u);
    p->Text1[2].clear();
    p->Text1[3] = QStringLiteral("10/03/2026");
    p->cmdBuscar();
    EXPECT_EQ(p->ListView1.size(), 2u);
    p->Text1[2] = QStringLiteral("05/03/2026");
    p->Text1[3] = QStringLiteral("20/03/2026");
    p->cmdBuscar();
    EXPECT_EQ(p->ListView1.size(), 2u);
    // Notes at zero only with Check1.
    p->Text1[2].clear();
    p->Text1[3].clear();
    p->cmdBuscar();
    EXPECT_EQ(p->ListView1.size(), 3u);
    p->Check1 = true;
    p->cmdBuscar();
    ASSERT_EQ(p->ListView1.size(), 4u);
    EXPECT_TRUE(std::any_of(p->ListView1.begin(), p->ListView1.end(),
                            [cero](const auto& a) { return a.Cav_Id == cero && a.TAlbaran == 0; }));
    // No notes in range: the message.
    p->Text1[2] = QStringLiteral("01/01/2020");
    p->Text1[3] = QStringLiteral("02/01/2020");
    p->cmdBuscar();
    EXPECT_EQ(p->NumeroGrupos(), 0);
    EXPECT_EQ(e->ui().Textos().back(), mensajes::kSinAlbaranesPendientes);
}

TEST_P(Multifactura, SelectiveRunInvoicesTheTickedNotes) {
    const qint32 c = e->cliente();
    const qint32 a1 = albaran(c, kDia1, 100, contado);
    const qint32 a2 = albaran(c, kDia10, 100, contado);
    auto p = pantalla();
    p->cmdBuscar();
    ASSERT_TRUE(p->Text1_14_Enabled);
    for (auto& a : p->ListView1) {
        a.marcado = false;
    }
    e->ui().respuestas.push_back(true);
    p->cmdFacturar();
    EXPECT_EQ(e->ui().Textos().back(), mensajes::kDebeSeleccionar);
    EXPECT_TRUE(p->facturasGeneradas.empty());

    p->cmdBuscar();
    p->Text1[14] = QStringLiteral("Sr. Pons");
    p->ListView1[1].marcado = false;
    e->ui().respuestas.push_back(true);
    p->cmdFacturar();
    ASSERT_EQ(p->facturasGeneradas.size(), 1u);
    const qint32 id = p->facturasGeneradas[0];
    EXPECT_TRUE(e->ui().Textos().contains(mensajes::kProcesoConcluido + QStringLiteral("A/1")));
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE Cav_IdFactura = ? AND "
                                       "Cav_Id = ?"),
                        {id, a1}),
              1);
    EXPECT_EQ(
        e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE Cav_Id = ? AND Cav_Situa = 1"),
                  {a2}),
        1);
    Recordset fav = e->cn().Execute(
        QStringLiteral("SELECT Fav_Total, Fav_Fatencion FROM Fav WHERE Fav_Id = ?"), {id});
    EXPECT_DOUBLE_EQ(fav.Fields(0).Doble(), 121);
    EXPECT_EQ(fav.Fields(1).Texto(), QStringLiteral("Sr. Pons"));
    // Issued once, with the copies of the company.
    ASSERT_EQ(EmisorAnotado::llamadas.size(), 1u);
    EXPECT_EQ(EmisorAnotado::llamadas[0], QVector<qint32>{id});
}

TEST_P(Multifactura, ChecksRefuseWithTheirMessages) {
    const qint32 sinCuenta = e->cliente({.idFco = domiciliado});
    albaran(sinCuenta, kDia1, 100, domiciliado);
    auto p = pantalla();
    p->cmdBuscar();
    const std::pair<QString, QString> casos[] = {
        {QString(), mensajes::kFaltaFechaFactura},
        {QStringLiteral("31/02/2026"), mensajes::kFaltaFechaFactura},
        {QStringLiteral("31/03/2026"), mensajes::kCuentaCobroIncorrecta},
    };
    for (const auto& [fecha, mensaje] : casos) {
        p->Text1[6] = fecha;
        p->cmdFacturar();
        EXPECT_TRUE(p->ultimaOrdenRechazada);
        EXPECT_EQ(e->ui().Textos().back(), mensaje);
    }
    // An invoice of a later date makes this date too early.
    e->cn().Execute(QStringLiteral("UPDATE Cli SET Cli_Cta = ?"),
                    {QStringLiteral("ES9121000418450200051332")});
    e->cn().Execute(QStringLiteral("INSERT INTO Fav (Fav_Serie, Fav_Numero, Fav_Fecha) VALUES "
                                   "('A', 1, ?)"),
                    {e->bd().dialecto().valorFecha(QDate(2026, 4, 2))});
    p->cmdBuscar();
    p->cmdFacturar();
    EXPECT_TRUE(p->ultimaOrdenRechazada);
    EXPECT_EQ(e->ui().Textos().back(),
              QStringLiteral("La Fecha de Factura no puede ser inferior a 02/04/2026"));
    // The customer's account is right now, the date too: confirmed No stops.
    p->Text1[6] = QStringLiteral("02/04/2026");
    e->ui().respuestas.push_back(false);
    p->cmdFacturar();
    EXPECT_TRUE(p->ultimaOrdenRechazada);
    EXPECT_EQ(pendientes(), 1);
}

TEST_P(Multifactura, FailedLinkUndoesOneInvoiceAndTheRunGoesOn) {
    const qint32 a = e->cliente();
    const qint32 b = e->cliente();
    const qint32 c = e->cliente();
    albaran(a, kDia1, 100, contado);
    const qint32 bloqueado = albaran(b, kDia1, 200, contado);
    albaran(c, kDia1, 300, contado);
    // The database refuses to link one note.
    if (GetParam() == Motor::SQLite) {
        e->cn().Execute(QStringLiteral("CREATE TRIGGER bloquea BEFORE UPDATE ON Cav WHEN "
                                       "OLD.Cav_Id = %1 BEGIN SELECT RAISE(ABORT, 'bloqueado'); "
                                       "END")
                            .arg(bloqueado));
    } else {
        e->cn().Execute(QStringLiteral("CREATE FUNCTION bloquea() RETURNS trigger AS $$ BEGIN IF "
                                       "OLD.cav_id = %1 THEN RAISE EXCEPTION 'bloqueado'; END IF; "
                                       "RETURN NEW; END $$ LANGUAGE plpgsql")
                            .arg(bloqueado));
        e->cn().Execute(QStringLiteral("CREATE TRIGGER bloquea BEFORE UPDATE ON Cav FOR EACH ROW "
                                       "EXECUTE FUNCTION bloquea()"));
    }
    auto p = pantalla();
    p->Text1[11] = QStringLiteral("1");
    p->cmdBuscar();
    ASSERT_EQ(p->NumeroGrupos(), 3);
    facturaTodos(*p);
    ASSERT_EQ(p->facturasGeneradas.size(), 2u);
    // No trace of the failed invoice, and no gap in the numbers.
    Recordset rs = e->cn().Execute(
        QStringLiteral("SELECT Fav_Numero, Fav_IdCli, Fav_Total FROM Fav ORDER BY Fav_Numero"));
    ASSERT_EQ(rs.RecordCount(), 2);
    EXPECT_EQ(rs.Fields(0).Entero(), 1);
    EXPECT_EQ(rs.Fields(1).Entero(), a);
    rs.MoveNext();
    EXPECT_EQ(rs.Fields(0).Entero(), 2);
    EXPECT_EQ(rs.Fields(1).Entero(), c);
    EXPECT_DOUBLE_EQ(rs.Fields(2).Doble(), 363);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE Cav_Id = ? AND Cav_Situa = "
                                       "1 AND Cav_IdFactura IS NULL"),
                        {bloqueado}),
              1);
    // Both made invoices went to the issue in one call.
    ASSERT_EQ(EmisorAnotado::llamadas.size(), 1u);
    EXPECT_EQ(EmisorAnotado::llamadas[0].size(), 2);
}

TEST_P(Multifactura, FailedSaveKeepsWhatItWroteAndTellsEachInvoiceOnce) {
    const qint32 a = e->cliente();
    const qint32 b = e->cliente();
    albaran(a, kDia1, 100, contado);
    albaran(b, kDia1, 200, contado);
    RechazaInserciones(e->bd(), QStringLiteral("Rec")); // the save fails after the amounts
    auto p = pantalla();
    p->Text1[11] = QStringLiteral("0");
    p->cmdBuscar();
    facturaTodos(*p);
    // Both invoices stand with their notes and every amount the save wrote
    // before the receipts: never a numbered invoice at 0,00.
    EXPECT_EQ(p->facturasGeneradas.size(), 2u);
    EXPECT_EQ(pendientes(), 0);
    Recordset rs = e->cn().Execute(QStringLiteral(
        "SELECT Fav_Numero, Fav_Bruto, Fav_Total, Fav_Liquido FROM Fav ORDER BY Fav_Numero"));
    ASSERT_EQ(rs.RecordCount(), 2);
    EXPECT_DOUBLE_EQ(rs.Fields(1).Doble(), 100);
    EXPECT_DOUBLE_EQ(rs.Fields(2).Doble(), 121);
    EXPECT_DOUBLE_EQ(rs.Fields(3).Doble(), 121);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Rec")), 0);
    // Each unfinished invoice is named with its number, in one message.
    ASSERT_EQ(p->incidencias.size(), 2u);
    EXPECT_EQ(p->incidencias[0].factura, QStringLiteral("A/1"));
    EXPECT_TRUE(p->incidencias[0].motivo.startsWith(QStringLiteral("La factura se ha grabado")))
        << p->incidencias[0].motivo.toStdString();
    EXPECT_FALSE(p->ejecucionDetenida);
    const QStringList textos = e->ui().Textos();
    EXPECT_EQ(std::count_if(textos.begin(), textos.end(),
                            [](const QString& t) {
                                return t.startsWith(QStringLiteral("2 facturas o grupos")) &&
                                       t.contains(QStringLiteral("A/2"));
                            }),
              1);
}

TEST_P(Multifactura, FailedTotalsUndoTheInvoiceAndKeepTheNumber) {
    const qint32 a = e->cliente();
    const qint32 b = e->cliente();
    const qint32 malo = albaran(a, kDia1, 100, contado);
    albaran(b, kDia1, 200, contado);
    // A line without a tax row cannot be calculated.
    e->cn().Execute(QStringLiteral("UPDATE Lav SET Lav_Tiva = 0 WHERE Lav_IdCav = ?"), {malo});
    auto p = pantalla();
    // The series is still empty when the second invoice comes: it asks again.
    e->ui().dialogos.push_back(
        [](DialogoModelo& d) { return dynamic_cast<frmIniFav&>(d).cmdInforme(); });
    p->Text1[11] = QStringLiteral("0");
    p->cmdBuscar();
    facturaTodos(*p);
    // Nothing of the first stands: its note is pending, and the next
    // invoice takes the first number.
    ASSERT_EQ(p->facturasGeneradas.size(), 1u);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE Cav_Id = ? AND Cav_Situa = "
                                       "1 AND Cav_IdFactura IS NULL"),
                        {malo}),
              1);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT Fav_Numero FROM Fav")), 1);
    ASSERT_EQ(p->incidencias.size(), 1u);
    EXPECT_TRUE(p->incidencias[0].factura.isEmpty());
    EXPECT_TRUE(p->incidencias[0].motivo.contains(QStringLiteral("sin un tipo de IVA válido")))
        << p->incidencias[0].motivo.toStdString();
}

TEST_P(Multifactura, EachInvoiceTakesItsOwnCustomersRetentionWhateverCameBefore) {
    const qint32 x = e->cliente({.retNf = 5});
    const qint32 y = e->cliente();
    const qint32 z = e->cliente({.retNf = 3, .modoRetNf = 1});
    albaran(x, kDia1, 100, contado);
    albaran(y, kDia1, 200, contado);
    albaran(z, kDia1, 300, contado);
    auto p = pantalla();
    p->Text1[11] = QStringLiteral("0");
    p->Text1[0] =
        QString::number(e->cuenta(QStringLiteral("SELECT Cli_Cod FROM Cli WHERE Cli_Id = ?"), {x}));
    p->Text1_0_LostFocus();
    p->cmdBuscar();
    e->ui().respuestas.push_back(true);
    p->cmdFacturar(); // X alone: 5 % kept back
    p->Text1[0].clear();
    p->Text1_0_LostFocus();
    p->cmdBuscar();
    facturaTodos(*p);
    // Y keeps nothing back, Z its own 3 % of the total: nothing of X's.
    Recordset rs = e->cn().Execute(
        QStringLiteral("SELECT Fav_IdCli, Fav_PRetNf, Fav_IRetNf FROM Fav ORDER BY Fav_Numero"));
    ASSERT_EQ(rs.RecordCount(), 3);
    EXPECT_DOUBLE_EQ(rs.Fields(2).Doble(), 5);
    rs.MoveNext();
    EXPECT_EQ(rs.Fields(0).Entero(), y);
    EXPECT_DOUBLE_EQ(rs.Fields(1).Doble(), 0);
    EXPECT_DOUBLE_EQ(rs.Fields(2).Doble(), 0);
    rs.MoveNext();
    EXPECT_EQ(rs.Fields(0).Entero(), z);
    EXPECT_DOUBLE_EQ(rs.Fields(2).Doble(), 10.89);
}

// A full disk, as SQLite meets it when the file may not grow: the run stops
// at the first invoice, says so once, and leaves every note pending.
TEST(MultifacturaDiscoLleno, AFullDiskStopsTheRunAndLosesNothing) {
    suite::RegistraComponentesSuite();
    EmpresaPrueba e(Motor::SQLite);
    const qint32 contado = e.formaPago(QStringLiteral("Contado"), {{0, 100, 1}});
    for (int i = 0; i < 40; ++i) {
        const qint32 a = e.albaran(e.cliente(), kDia1, 1, {{100.0 + i, 1, 1}});
        e.cn().Execute(QStringLiteral("UPDATE Cav SET Cav_IdFco = ? WHERE Cav_Id = ?"),
                       {contado, a});
    }
    frmFacturasVenta p(e.factura());
    p.Text1[3].clear();
    p.Text1[6] = QStringLiteral("31/03/2026");
    p.Text1[11] = QStringLiteral("0");
    p.cmdBuscar();
    ASSERT_EQ(p.NumeroGrupos(), 40);
    const qint64 paginas = e.cn().Execute(QStringLiteral("PRAGMA page_count")).Fields(0).Entero();
    e.cn().Execute(QStringLiteral("PRAGMA max_page_count = %1").arg(paginas));
    e.ui().dialogos.push_back(
        [](DialogoModelo& d) { return dynamic_cast<frmIniFav&>(d).cmdInforme(); });
    p.Check4 = true;
    p.Check4_Click();
    e.ui().respuestas.push_back(true);
    p.cmdFacturar();
    // The invoices made before the disk filled are whole; the one that met
    // it left nothing, and the run stopped there.
    EXPECT_TRUE(p.ejecucionDetenida);
    const qint64 hechas = static_cast<qint64>(p.facturasGeneradas.size());
    EXPECT_EQ(e.cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav")), hechas);
    EXPECT_LT(hechas, 40);
    EXPECT_EQ(e.cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav WHERE Fav_Total <= 0 OR "
                                      "ABS(Fav_Liquido - (SELECT SUM(Rec_Importe) FROM Rec WHERE "
                                      "Rec_IdFac = Fav_Id)) > 0.005")),
              0);
    EXPECT_EQ(e.cuenta(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE Cav_Situa = 1")),
              40 - hechas);
    // The disk may fill where the engine ends the whole open batch: then
    // each invoice of it is told lost with the same cause, as is the one
    // that met it, and the run says how many groups it left untried.
    const std::size_t n = p.incidencias.size();
    ASSERT_GE(n, 2u);
    for (std::size_t i = 0; i + 1 < n; ++i) {
        EXPECT_TRUE(p.incidencias[i].motivo.contains(
            QStringLiteral("No queda espacio en el disco de la base de datos")))
            << p.incidencias[i].motivo.toStdString();
    }
    EXPECT_EQ(
        p.incidencias[n - 1].motivo.toStdString(),
        mensajes::kGruposSinIntentar.arg(40 - hechas - static_cast<qint64>(n - 1)).toStdString());
}

// More groups than one page: a group past the boundary has its own
// customer's data, and the run gives every invoice its own customer's.
TEST_P(Multifactura, GroupsPastAPageKeepTheirOwnCustomersData) {
    constexpr int kPagina = GruposFacturables::kGruposPorPagina;
    const int n = kPagina + 12;
    {
        Transaccion t(e->cn());
        for (int i = 0; i < n; ++i) {
            const qint32 c = e->cliente();
            e->cn().Execute(
                QStringLiteral("UPDATE Cli SET Cli_favobs = ?, Cli_Fatencion = ? WHERE Cli_Id = ?"),
                {QStringLiteral("Observaciones de %1").arg(c), QStringLiteral("Sr. %1").arg(c), c});
            albaran(c, kDia1, 10 + i, contado);
        }
        t.Confirma();
    }
    auto p = pantalla();
    p->Text1[11] = QStringLiteral("0");
    p->cmdBuscar();
    ASSERT_EQ(p->NumeroGrupos(), n);
    const auto nombre = [this](qint32 id) {
        return QStringLiteral("Cliente Número %1")
            .arg(e->cuenta(QStringLiteral("SELECT Cli_Cod FROM Cli WHERE Cli_Id = ?"), {id}));
    };
    for (const int fila : {kPagina + 7, 3, kPagina, kPagina - 1, n - 1}) {
        const GrupoFacturable g = p->Grupo(fila);
        EXPECT_EQ(g.Cli_Nom.trimmed(), nombre(g.Cav_Idcli)) << fila;
        EXPECT_EQ(g.cli_favobs.toString(), QStringLiteral("Observaciones de %1").arg(g.Cav_Idcli))
            << fila;
        EXPECT_EQ(g.Fco_Des, QStringLiteral("Contado")) << fila;
    }
    // Every customer once: the pages neither repeat nor skip a group.
    std::set<qint32> clientes;
    for (int fila = 0; fila < n; ++fila) {
        clientes.insert(p->Grupo(fila).Cav_Idcli);
    }
    EXPECT_EQ(clientes.size(), static_cast<std::size_t>(n));
    const GrupoFacturable g = p->Grupo(kPagina + 7);
    p->SeleccionaGrupo(kPagina + 7);
    EXPECT_EQ(p->Text1[7], QStringLiteral("Observaciones de %1").arg(g.Cav_Idcli));
    EXPECT_EQ(p->Label1_1.trimmed(), mensajes::kAlbaranesPendientesDe + nombre(g.Cav_Idcli));
    ASSERT_EQ(p->ListView1.size(), 1u);

    facturaTodos(*p);
    EXPECT_EQ(p->facturasGeneradas.size(), static_cast<std::size_t>(n));
    EXPECT_EQ(pendientes(), 0);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav INNER JOIN Cli ON Cli_Id = "
                                       "Fav_IdCli WHERE Fav_Obs = Cli_favobs AND Fav_Fatencion = "
                                       "Cli_Fatencion")),
              n);
}

TEST_P(Multifactura, NoCopiesSkipTheIssue) {
    const qint32 c = e->cliente();
    albaran(c, kDia1, 100, contado);
    auto p = pantalla();
    p->Text1[11] = QStringLiteral("0");
    p->cmdBuscar();
    facturaTodos(*p);
    EXPECT_EQ(p->facturasGeneradas.size(), 1u);
    EXPECT_TRUE(EmisorAnotado::llamadas.empty());
}

TEST_P(Multifactura, SingleNoteDialogFillsItself) {
    frmFactuAlbaran d(e->factura());
    EXPECT_EQ(d.Caption, QStringLiteral("Facturación de un Albaran"));
    EXPECT_EQ(d.Text1[5], QStringLiteral("A"));
    EXPECT_EQ(d.Text1[6], QDate::currentDate().toString(QStringLiteral("dd/MM/yyyy")));
    EXPECT_EQ(
        d.cboFpago,
        (QStringList{
            QStringLiteral("%1 - Contado").arg(contado, 2, 10, QLatin1Char('0')),
            QStringLiteral("%1 - Domiciliado 30").arg(domiciliado, 2, 10, QLatin1Char('0'))}));
    d.XPButton1();
    EXPECT_FALSE(d.Visible);
}

VK_EN_AMBOS_MOTORES(Multifactura);

} // namespace
} // namespace vk::prueba
