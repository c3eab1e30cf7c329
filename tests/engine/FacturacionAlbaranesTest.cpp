// Invoicing a set of delivery notes, the one operation every run calls: the
// safeguards it keeps on both backends.
#include "EmpresaPrueba.h"

#include <BloqueoSerie.h>
#include <FacturacionAlbaranes.h>
#include <MensajesMotor.h>
#include <TesoreriaIncorporada.h>
#include <frmIniFav.h>

namespace vk::prueba {
namespace {

const QDate kDia(2026, 3, 20);

class Facturacion : public PruebaMotores {
protected:
    void SetUp() override {
        suite::RegistraTesoreria();
        e = std::make_unique<EmpresaPrueba>(GetParam());
    }
    CabeceraFactura cabecera(qint32 cliente, const QDate& fecha = kDia) {
        CabeceraFactura c;
        c.serie = QStringLiteral("A");
        c.fecha = fecha;
        c.idCliente = cliente;
        return c;
    }
    ResultadoFacturacion factura(const CabeceraFactura& c, const std::vector<qint32>& albaranes) {
        // A new series takes the dialog's default first number.
        e->ui().dialogos.push_back([](DialogoModelo& d) {
            auto* dialogo = dynamic_cast<frmIniFav*>(&d);
            return dialogo && dialogo->cmdInforme();
        });
        ResultadoFacturacion r = FacturaAlbaranes(e->factura(), c, albaranes);
        e->ui().dialogos.clear();
        return r;
    }
    qint64 facturas() { return e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav")); }
    std::unique_ptr<EmpresaPrueba> e;
};

TEST_P(Facturacion, ANoteTakenMeanwhileUndoesTheInvoiceAndSpendsNoNumber) {
    const qint32 c = e->cliente();
    const qint32 a1 = e->albaran(c, kDia, 1, {{100}});
    const qint32 a2 = e->albaran(c, kDia, 1, {{50}});
    // Another user's run took the second note after this one listed it.
    const ResultadoFacturacion otra = factura(cabecera(c), {a2});
    ASSERT_EQ(otra.estado, EstadoFacturacion::Hecha);
    const ResultadoFacturacion r = factura(cabecera(c), {a1, a2});
    EXPECT_EQ(r.estado, EstadoFacturacion::NoHecha);
    EXPECT_EQ(r.motivo, mensajes::kAlbaranTomado.arg(QStringLiteral("A/2")));
    EXPECT_FALSE(r.detieneEjecucion);
    EXPECT_EQ(facturas(), 1);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT Cav_Situa FROM Cav WHERE Cav_Id = ?"), {a1}), 1);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE Cav_IdFactura = ?"),
                        {otra.idFactura}),
              1);
    // The next invoice takes the number the undone one would have had.
    const ResultadoFacturacion siguiente = factura(cabecera(c), {a1});
    EXPECT_EQ(siguiente.factura, QStringLiteral("A/2"));
}

TEST_P(Facturacion, DatesRunWithNumbersAndStayWithinTheCentury) {
    const qint32 c = e->cliente();
    const qint32 a1 = e->albaran(c, kDia, 1, {{100}});
    const qint32 a2 = e->albaran(c, kDia, 1, {{100}});
    ASSERT_EQ(factura(cabecera(c, QDate(2026, 3, 25)), {a1}).estado, EstadoFacturacion::Hecha);
    // An earlier date than the series' last, found under the lock: refused,
    // and every following invoice of a run would be too.
    ResultadoFacturacion r = factura(cabecera(c, QDate(2026, 3, 22)), {a2});
    EXPECT_EQ(r.estado, EstadoFacturacion::NoHecha);
    EXPECT_EQ(r.motivo, mensajes::kFechaInferior + QStringLiteral("25/03/2026"));
    EXPECT_TRUE(r.detieneEjecucion);
    EXPECT_EQ(facturas(), 1);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT Cav_Situa FROM Cav WHERE Cav_Id = ?"), {a2}), 1);
    // A date no one means (a mistyped year) would close the series.
    for (const QDate& d : {QDate(9999, 12, 31), QDate(1999, 12, 31), QDate()}) {
        r = factura(cabecera(c, d), {a2});
        EXPECT_EQ(r.estado, EstadoFacturacion::NoHecha);
        EXPECT_TRUE(r.motivo.contains(QStringLiteral("entre el 01/01/2000 y el 31/12/2099")));
    }
    // The same date as the last passes.
    EXPECT_EQ(factura(cabecera(c, QDate(2026, 3, 25)), {a2}).factura, QStringLiteral("A/2"));
}

TEST_P(Facturacion, ASeriesAtItsLastNumberRefusesInsteadOfOverflowing) {
    const qint32 c = e->cliente();
    ASSERT_EQ(factura(cabecera(c), {e->albaran(c, kDia, 1, {{100}})}).estado,
              EstadoFacturacion::Hecha);
    e->cn().Execute(QStringLiteral("UPDATE Fav SET Fav_Numero = 2147483647"));
    const ResultadoFacturacion r = factura(cabecera(c), {e->albaran(c, kDia, 1, {{100}})});
    EXPECT_EQ(r.estado, EstadoFacturacion::NoHecha);
    EXPECT_EQ(r.motivo, mensajes::kSerieAgotada.arg(QStringLiteral("A")));
    EXPECT_TRUE(r.detieneEjecucion);
    EXPECT_EQ(facturas(), 1);
}

TEST_P(Facturacion, TheStoredFooterDiscountIsTheInvoicesOwn) {
    const qint32 c = e->cliente();
    const qint32 con = e->albaran(c, kDia, 1, {{100, 1, 1, QDate(2026, 1, 1), 0, 5.555}});
    const qint32 sin = e->albaran(c, kDia, 1, {{80}});
    const ResultadoFacturacion r1 = factura(cabecera(c), {con});
    const ResultadoFacturacion r2 = factura(cabecera(c), {sin});
    ASSERT_EQ(r2.estado, EstadoFacturacion::Hecha);
    EXPECT_DOUBLE_EQ(
        e->cuenta(QStringLiteral("SELECT Fav_ImpDtoPie1 * 100 FROM Fav WHERE Fav_Id = ?"),
                  {r1.idFactura}),
        556);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav WHERE Fav_Id = ? AND "
                                       "Fav_ImpDtoPie1 = 0"),
                        {r2.idFactura}),
              1);
}

TEST_P(Facturacion, AFailedSaveKeepsTheAmountsAndRetentionItWrote) {
    const qint32 c = e->cliente({.retNf = 5});
    RechazaInserciones(e->bd(), QStringLiteral("Rec"));
    CabeceraFactura cab = cabecera(c);
    cab.retencionNF = 5;
    cab.modoRetencionNF = 0;
    const qint32 a = e->albaran(c, kDia, 1, {{200}});
    const ResultadoFacturacion r = factura(cab, {a});
    EXPECT_EQ(r.estado, EstadoFacturacion::SinTerminar);
    EXPECT_EQ(r.factura, QStringLiteral("A/1"));
    EXPECT_TRUE(r.motivo.startsWith(QStringLiteral("La factura se ha grabado con sus importes")));
    // The server's own words are kept apart, for a log, never in the message.
    EXPECT_TRUE(r.detalle.contains(QStringLiteral("prohibido en la prueba")))
        << r.detalle.toStdString();
    EXPECT_FALSE(r.motivo.contains(QStringLiteral("prohibido en la prueba")));
    Recordset fav = e->cn().Execute(
        QStringLiteral("SELECT Fav_Total, Fav_IRetNf, Fav_Liquido FROM Fav WHERE Fav_Id = ?"),
        {r.idFactura});
    EXPECT_DOUBLE_EQ(fav.Fields(0).Doble(), 242);
    EXPECT_DOUBLE_EQ(fav.Fields(1).Doble(), 10);
    EXPECT_DOUBLE_EQ(fav.Fields(2).Doble(), 232);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM RetNF WHERE RetNF_IdFactura = ?"),
                        {r.idFactura}),
              1);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Rec")), 0);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT Cav_IdFactura FROM Cav WHERE Cav_Id = ?"), {a}),
              r.idFactura);
}

TEST_P(Facturacion, NotesGroupAsTheBatchWouldOrAreRefusedWithTheReason) {
    const qint32 domiciliado = e->formaPago(QStringLiteral("Domiciliado"), {{30, 100, 2}});
    const qint32 c = e->cliente();
    const qint32 otro = e->cliente();
    // Two addresses: the fiscal one leads whatever its id.
    for (const auto& [poblacion, fiscal] :
         {std::pair{QStringLiteral("Sagunto"), 0}, std::pair{QStringLiteral("Valencia"), 1}}) {
        const qint64 dir =
            e->cn()
                .Execute(QStringLiteral("INSERT INTO Dir (Dir_Poblacion, "
                                        "Dir_Fiscal) VALUES (?, ?) RETURNING Dir_Id"),
                         {poblacion, QString::number(fiscal)})
                .Fields(0)
                .Entero();
        e->cn().Execute(QStringLiteral("INSERT INTO CliDir (Clidir_Cli, Clidir_Dir) VALUES (?, ?)"),
                        {c, dir});
    }
    const qint32 tarde = e->albaran(c, QDate(2026, 3, 15), 1, {{100}});
    const qint32 pronto = e->albaran(c, QDate(2026, 3, 2), 1, {{100}});
    e->cn().Execute(
        QStringLiteral("UPDATE Cav SET Cav_Dto1 = 10, Cav_Dto2 = 2 WHERE Cav_IdCli = ?"), {c});
    GrupoAlbaranes g = fnGrupoDeAlbaranes(e->bd(), {tarde, pronto});
    EXPECT_EQ(g.albaranes, (std::vector<qint32>{pronto, tarde}));
    EXPECT_DOUBLE_EQ(g.cabecera.dto1, 10);
    EXPECT_DOUBLE_EQ(g.cabecera.dto2, 2);
    ASSERT_TRUE(g.cabecera.idDireccion);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Dir WHERE Dir_Id = ? AND "
                                       "Dir_Poblacion = 'Valencia'"),
                        {*g.cabecera.idDireccion}),
              1);

    const auto rechazo = [&](const std::vector<qint32>& ids) {
        try {
            fnGrupoDeAlbaranes(e->bd(), ids);
        } catch (const ErrorRegla& error) {
            return error.Mensaje();
        }
        return QString();
    };
    const qint32 otroCliente = e->albaran(otro, kDia, 1, {{10}});
    EXPECT_EQ(rechazo({pronto, otroCliente}), mensajes::kAlbaranesVariosClientes);
    EXPECT_EQ(rechazo({999999}), mensajes::kAlbaranNoExiste.arg(999999));
    const std::pair<QString, QString> cambios[] = {
        {QStringLiteral("Cav_IdFco = %1").arg(domiciliado), QStringLiteral("forma de cobro")},
        {QStringLiteral("Cav_Dto1 = 12"), QStringLiteral("pareja de descuentos")},
        {QStringLiteral("Cav_Agente = 7"), QStringLiteral("agente")},
    };
    for (const auto& [cambio, que] : cambios) {
        const qint32 distinto = e->albaran(c, kDia, 1, {{10}});
        e->cn().Execute(
            QStringLiteral("UPDATE Cav SET Cav_Dto1 = 10, Cav_Dto2 = 2 WHERE Cav_Id = ?"),
            {distinto});
        e->cn().Execute(QStringLiteral("UPDATE Cav SET %1 WHERE Cav_Id = ?").arg(cambio),
                        {distinto});
        EXPECT_TRUE(rechazo({pronto, distinto}).endsWith(QStringLiteral("tiene otra %1.").arg(que)))
            << rechazo({pronto, distinto}).toStdString();
        e->cn().Execute(QStringLiteral("DELETE FROM Cav WHERE Cav_Id = ?"), {distinto});
    }
    // Direct debit without the customer's account.
    e->cn().Execute(QStringLiteral("UPDATE Cav SET Cav_IdFco = ? WHERE Cav_IdCli = ?"),
                    {domiciliado, c});
    EXPECT_EQ(rechazo({pronto}), mensajes::kCuentaCobroIncorrecta);
    e->cn().Execute(QStringLiteral("UPDATE Cli SET CLI_CTA = ? WHERE Cli_Id = ?"),
                    {QStringLiteral("ES9121000418450200051332"), c});
    EXPECT_TRUE(rechazo({pronto}).isEmpty());
    // An invoiced note.
    g = fnGrupoDeAlbaranes(e->bd(), {pronto});
    g.cabecera.serie = QStringLiteral("A");
    g.cabecera.fecha = kDia;
    ASSERT_EQ(factura(g.cabecera, g.albaranes).estado, EstadoFacturacion::Hecha);
    EXPECT_EQ(rechazo({pronto}), mensajes::kAlbaranFacturado.arg(QStringLiteral("A/2")));
}

TEST_P(Facturacion, AWriteThatFindsTheSeriesLockedFailsClearlyAndStopsTheRun) {
    const qint32 c = e->cliente();
    const qint32 a = e->albaran(c, kDia, 1, {{100}});
    // Another user holds the series (on SQLite, the database's write lock);
    // this session waits one second.
    auto otro = BdSesion::Abre(e->base().cadenaCatalogo(QStringLiteral("vkemp0001")));
    Transaccion bloqueo(otro->cn());
    msBloqueaSerie(*otro, QStringLiteral("A"));
    auto sesion = BdSesion::Abre(e->base().cadenaCatalogo(QStringLiteral("vkemp0001")) +
                                 QStringLiteral("&espera=1"));
    VKFACVENTAS f;
    f.setMyBd(*sesion);
    CabeceraFactura cab;
    cab.serie = QStringLiteral("A");
    cab.fecha = kDia;
    cab.idCliente = c;
    const ResultadoFacturacion r = FacturaAlbaranes(f, cab, {a});
    EXPECT_EQ(r.estado, EstadoFacturacion::NoHecha);
    EXPECT_EQ(r.motivo, QStringLiteral("La base de datos está ocupada por otro usuario; "
                                       "inténtelo de nuevo"));
    EXPECT_TRUE(r.detieneEjecucion);
    bloqueo.Deshaz();
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav")), 0);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT Cav_Situa FROM Cav WHERE Cav_Id = ?"), {a}), 1);
}

VK_EN_AMBOS_MOTORES(Facturacion);

} // namespace
} // namespace vk::prueba
