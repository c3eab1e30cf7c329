// The header of a new invoice: numbering, the customer's identity, the
// columns stored as NULL, and the series of a user.
#include "EmpresaPrueba.h"

#include <Cuentas.h>
#include <NuevaFactura.h>
#include <frmIniFav.h>

namespace vk::prueba {
namespace {

class Nueva : public PruebaMotores {
protected:
    void SetUp() override {
        e = std::make_unique<EmpresaPrueba>(GetParam());
        cliente = e->cliente();
        VKFACVENTAS& f = e->factura();
        f.SerieFactura = QStringLiteral("A");
        f.NumeroFactura = 0;
        f.IdCliente = cliente;
        f.FechaFactura = QDate(2026, 5, 4);
    }
    Recordset fila(qint32 id) {
        return e->cn().Execute(QStringLiteral("SELECT * FROM Fav WHERE Fav_Id = ?"), {id});
    }
    // Accepts the first-number dialog with the given text.
    void aceptaPrimerNumero(const QString& texto) {
        e->ui().dialogos.push_back([texto](DialogoModelo& d) {
            auto& dialogo = dynamic_cast<frmIniFav&>(d);
            dialogo.Text1 = texto;
            return dialogo.cmdInforme();
        });
    }
    std::unique_ptr<EmpresaPrueba> e;
    qint32 cliente = 0;
};

TEST_P(Nueva, FirstNumberOfASeriesIsAskedOnce) {
    VKFACVENTAS& f = e->factura();
    // Cancelled: nothing written, 0 back.
    e->ui().dialogos.push_back([](DialogoModelo& d) {
        auto& dialogo = dynamic_cast<frmIniFav&>(d);
        EXPECT_EQ(dialogo.Caption, QStringLiteral("Inicialización de Series de facturación"));
        EXPECT_EQ(dialogo.lblSerie, QStringLiteral("Serie: A"));
        dialogo.XPButton1();
        return false;
    });
    EXPECT_EQ(f.NuevaFactura(), 0);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav")), 0);

    // A number that is not one keeps the dialog open; then 100 is taken.
    e->ui().dialogos.push_back([](DialogoModelo& d) {
        auto& dialogo = dynamic_cast<frmIniFav&>(d);
        dialogo.Text1 = QStringLiteral("cien");
        EXPECT_FALSE(dialogo.cmdInforme());
        dialogo.Text1 = QStringLiteral("100");
        return dialogo.cmdInforme();
    });
    f.NumeroFactura = 0;
    const qint32 primera = f.NuevaFactura(1);
    ASSERT_GT(primera, 0);
    EXPECT_EQ(f.NumeroFactura, 100);
    EXPECT_TRUE(e->ui().dialogos.empty());

    // The next ones follow without asking: max + 1.
    f.NumeroFactura = 0;
    const qint32 segunda = f.NuevaFactura(1);
    EXPECT_EQ(f.NumeroFactura, 101);
    EXPECT_EQ(segunda, primera + 1); // the id comes from the insert itself
    EXPECT_EQ(fila(segunda).Fields(QStringLiteral("Fav_Numero")).Entero(), 101);
    EXPECT_EQ(fila(segunda).Fields(QStringLiteral("Fav_Tipo")).Entero(), 1);
    EXPECT_EQ(fila(segunda).Fields(QStringLiteral("Fav_IdUsu")).Entero(), 1);

    // Accepted empty: the dialog's default is 1.
    f.SerieFactura = QStringLiteral("B");
    f.NumeroFactura = 0;
    aceptaPrimerNumero(QString());
    ASSERT_GT(f.NuevaFactura(), 0);
    EXPECT_EQ(f.NumeroFactura, 1);

    // A number given is used as it is; a duplicate is refused without a
    // message, and the caller that asks is told the database's reason.
    f.NumeroFactura = 101;
    f.SerieFactura = QStringLiteral("A");
    e->ui().vistos.clear();
    EXPECT_EQ(f.NuevaFactura(), 0);
    EXPECT_TRUE(e->ui().Textos().isEmpty());
    const CabeceraNueva rechazada = CreaCabeceraFactura(f, 0);
    EXPECT_EQ(rechazada.motivo, CabeceraNueva::Motivo::Rechazada);
    ASSERT_TRUE(rechazada.error.has_value());
    EXPECT_FALSE(rechazada.error->Mensaje().isEmpty());
    EXPECT_FALSE(rechazada.error->AfectaATodo());
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav")), 3);
}

TEST_P(Nueva, ColumnsStoredAsTheLegacyRulesSay) {
    VKFACVENTAS& f = e->factura();
    aceptaPrimerNumero(QString());
    f.Num = QStringLiteral("12B");
    f.Observaciones = QStringLiteral(" ");
    f.PorcentajeDto1 = 3.5;
    f.porcentajeretencionnf = 5;
    f.nModoRetNF = 1;
    f.Provincia = 46;
    f.Pais = QStringLiteral("011");
    Recordset r = fila(f.NuevaFactura());
    ASSERT_FALSE(r.Eof());
    EXPECT_EQ(r.Fields(QStringLiteral("Fav_Num")).Entero(), 12);
    EXPECT_EQ(r.Fields(QStringLiteral("Fav_Obs")).Texto(QStringLiteral("nulo")),
              QStringLiteral(" "));
    EXPECT_DOUBLE_EQ(r.Fields(QStringLiteral("Fav_Dto1")).Doble(), 3.5);
    EXPECT_DOUBLE_EQ(r.Fields(QStringLiteral("Fav_PRetNf")).Doble(), 5);
    EXPECT_EQ(r.Fields(QStringLiteral("Fav_ModRet")).Entero(), 1);
    EXPECT_EQ(r.Fields(QStringLiteral("Fav_Fecha")).Fecha(), QDate(2026, 5, 4));
    EXPECT_EQ(r.Fields(QStringLiteral("Fav_CliNom")).Texto(), QStringLiteral("Cliente Número 1 "));
    EXPECT_EQ(r.Fields(QStringLiteral("Fav_CliCod")).Entero(), 1);

    f.NumeroFactura = 0;
    f.Num = QStringLiteral("B12");
    f.Observaciones.clear();
    f.FechaFactura = QDate();
    r = fila(f.NuevaFactura());
    EXPECT_TRUE(r.Fields(QStringLiteral("Fav_Num")).IsNull());
    EXPECT_TRUE(r.Fields(QStringLiteral("Fav_Obs")).IsNull());
    EXPECT_EQ(r.Fields(QStringLiteral("Fav_Fecha")).Fecha(), QDate::currentDate());

    // No such customer: nothing written.
    f.NumeroFactura = 0;
    f.IdCliente = 999;
    EXPECT_EQ(f.NuevaFactura(), 0);
    EXPECT_EQ(CreaCabeceraFactura(f, 0).motivo, CabeceraNueva::Motivo::SinCliente);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav")), 2);
}

TEST_P(Nueva, CounterCustomerTakesTheTypedIdentity) {
    VKFACVENTAS& f = e->factura();
    aceptaPrimerNumero(QString());
    f.CliCod = 1;
    f.CliNom = QStringLiteral("Comprador ocasional");
    f.CliDoc = QStringLiteral("00000000T");
    // Par_CliCon 0 names no counter customer.
    Recordset r = fila(f.NuevaFactura());
    EXPECT_EQ(r.Fields(QStringLiteral("Fav_CliNom")).Texto(), QStringLiteral("Cliente Número 1 "));
    e->parametro(QStringLiteral("Par_CliCon"), 1);
    f.NumeroFactura = 0;
    r = fila(f.NuevaFactura());
    EXPECT_EQ(r.Fields(QStringLiteral("Fav_CliNom")).Texto(),
              QStringLiteral("Comprador ocasional"));
    EXPECT_EQ(r.Fields(QStringLiteral("Fav_CliDoc")).Texto(), QStringLiteral("00000000T"));
}

TEST_P(Nueva, SeriesOfTheUserAndSmallLookups) {
    VKFACVENTAS& f = e->factura();
    EXPECT_EQ(f.getSeriesFactura(), QStringLiteral("A"));
    EXPECT_EQ(f.sSerieAlbaran, QStringLiteral("A"));
    const qint64 emp = e->bd().IdEmpresa();
    e->cn().Execute(QStringLiteral("INSERT INTO vkcomun.Pus (Pus_IdUsu, Pus_IdEmp, Pus_SerFac, "
                                   "Pus_SerAlb) VALUES (1, ?, ?, ?)"),
                    {emp, QStringLiteral("F2"), QString()});
    EXPECT_EQ(f.getSeriesFactura(), QStringLiteral("F2"));
    EXPECT_EQ(f.sSerieAlbaran, QStringLiteral("A")); // an empty one does not replace
    e->cn().Execute(QStringLiteral("INSERT INTO Centra (centra_id, centra_sfav) VALUES (7, ?)"),
                    {QStringLiteral("TDA")});
    e->cn().Execute(
        QStringLiteral("INSERT INTO Cenusu (cenusu_idcen, cenusu_idusu) VALUES (7, 1)"));
    EXPECT_EQ(f.getSeriesFactura(), QStringLiteral("TDA"));

    EXPECT_EQ(fnRegimenCliente(e->bd(), cliente), 1);
    EXPECT_EQ(fnRegimenCliente(e->bd(), 999), 0);
    e->cn().Execute(QStringLiteral("UPDATE Cli SET Cli_Reg = NULL"));
    EXPECT_EQ(fnRegimenCliente(e->bd(), cliente), 1);

    e->parametro(QStringLiteral("Par_CtaNum"), 8);
    EXPECT_EQ(fnCuentaOcho(e->bd(), QStringLiteral("4300000123")), QStringLiteral("43000123"));
    EXPECT_EQ(fnCuentaOcho(e->bd(), QStringLiteral("430000012")), QStringLiteral("430000012"));
    e->parametro(QStringLiteral("Par_CtaNum"), 10);
    EXPECT_EQ(fnCuentaOcho(e->bd(), QStringLiteral("4300000123")), QStringLiteral("4300000123"));
}

VK_EN_AMBOS_MOTORES(Nueva);

} // namespace
} // namespace vk::prueba
