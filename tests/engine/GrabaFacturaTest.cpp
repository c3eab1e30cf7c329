// Saving an invoice: the row, its accounts, the retention's row, the
// receipts and the automatic posting's conditions. Read as business
// scenarios: invoice, save, change, save again.
#include "EmpresaPrueba.h"

#include <Error.h>
#include <MensajesCore.h>
#include <MensajesMotor.h>
#include <Recibos.h>
#include <TesoreriaIncorporada.h>

namespace vk::prueba {
namespace {

const QDate kHoy(2026, 3, 10);

class Graba : public PruebaMotores {
protected:
    void SetUp() override {
        suite::RegistraTesoreria();
        e = std::make_unique<EmpresaPrueba>(GetParam());
        fco = e->formaPago(QStringLiteral("30-60 días"), {{30, 50, 3}, {60, 50, 3}});
    }
    // Invoice of one note, calculated and saved.
    VKFACVENTAS& factura(const ClientePrueba& c, const std::vector<LineaPrueba>& lineas,
                         bool recibos = true, int regimen = 1) {
        const qint32 cli = e->cliente(c);
        e->nuevaFactura(cli, kHoy, {e->albaran(cli, kHoy, regimen, lineas, c.agente)});
        VKFACVENTAS& f = e->factura();
        f.CalculoTotalesFactura();
        EXPECT_TRUE(f.GrabaFactura(recibos, false));
        return f;
    }
    Recordset fav() {
        return e->cn().Execute(QStringLiteral("SELECT * FROM Fav WHERE Fav_Id = ?"),
                               {e->factura().IdFactu});
    }
    qint64 recibos() {
        return e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Rec WHERE Rec_Tipo = 1 AND "
                                        "Rec_IdFac = ?"),
                         {e->factura().IdFactu});
    }
    std::unique_ptr<EmpresaPrueba> e;
    qint32 fco = 0;
};

TEST_P(Graba, RowHoldsEveryAmountAndOnlyTheAccountsThatCarryOne) {
    VKFACVENTAS& f = factura({.idFco = fco}, {{100, 1, 1}, {50, 1, 4}});
    Recordset r = fav();
    EXPECT_DOUBLE_EQ(r.Fields(QStringLiteral("Fav_Bruto")).Doble(), 150);
    EXPECT_DOUBLE_EQ(r.Fields(QStringLiteral("Fav_Biva1")).Doble(), 100);
    EXPECT_DOUBLE_EQ(r.Fields(QStringLiteral("Fav_ImpIva1")).Doble(), 21);
    EXPECT_EQ(r.Fields(QStringLiteral("Fav_CtaIva1")).Texto(), QStringLiteral("47700021"));
    // No surcharge and an exempt slot: their accounts stay NULL.
    EXPECT_TRUE(r.Fields(QStringLiteral("Fav_CtaRec1")).IsNull());
    EXPECT_TRUE(r.Fields(QStringLiteral("Fav_CtaIva2")).IsNull());
    EXPECT_TRUE(r.Fields(QStringLiteral("Fav_CtaRet")).IsNull());
    EXPECT_DOUBLE_EQ(r.Fields(QStringLiteral("Fav_Total")).Doble(), 171);
    EXPECT_DOUBLE_EQ(r.Fields(QStringLiteral("Fav_Liquido")).Doble(), 171);
    EXPECT_EQ(r.Fields(QStringLiteral("Fav_Conex")).Entero(), 0);

    // The attention line is written only when it is not blank.
    f.Aatencion = QStringLiteral("  Sra. Gómez ");
    ASSERT_TRUE(f.GrabaFactura());
    EXPECT_EQ(fav().Fields(QStringLiteral("Fav_Fatencion")).Texto(), QStringLiteral("Sra. Gómez"));
    f.Aatencion = QStringLiteral("   ");
    ASSERT_TRUE(f.GrabaFactura());
    EXPECT_EQ(fav().Fields(QStringLiteral("Fav_Fatencion")).Texto(), QStringLiteral("Sra. Gómez"));

    // An invoice that is not there: the update fails and nothing follows.
    f.IdFactu = 0;
    EXPECT_TRUE(f.GrabaFactura()); // an update of no row is no failure
}

TEST_P(Graba, RetentionRowIsRewrittenOnEverySave) {
    VKFACVENTAS& f = factura({.idFco = fco, .retNf = 5, .modoRetNf = 0}, {{1000, 1, 1}}, false);
    const QString sql = QStringLiteral(
        "SELECT RetNF_ImpRet, RetNF_IdRec, RetNF_Fecha, RetNF_IdClPr, RetNF_Obs FROM RetNF WHERE "
        "RetNF_Origen = 1 AND RetNF_Tipo = 'F' AND RetNF_IdFactura = ?");
    Recordset r = e->cn().Execute(sql, {f.IdFactu});
    ASSERT_EQ(r.RecordCount(), 1);
    EXPECT_DOUBLE_EQ(r.Fields(0).Doble(), 50);
    EXPECT_EQ(r.Fields(QStringLiteral("RetNF_Fecha")).Fecha(), kHoy);
    EXPECT_EQ(r.Fields(QStringLiteral("RetNF_IdClPr")).Entero(), f.IdCliente);
    EXPECT_TRUE(r.Fields(QStringLiteral("RetNF_Obs")).IsNull());

    // The receipt id of the old row is carried into the new one.
    e->cn().Execute(QStringLiteral("UPDATE RetNF SET RetNF_IdRec = 77"));
    ASSERT_TRUE(f.GrabaFactura());
    r = e->cn().Execute(sql, {f.IdFactu});
    ASSERT_EQ(r.RecordCount(), 1);
    EXPECT_EQ(r.Fields(QStringLiteral("RetNF_IdRec")).Entero(), 77);

    // A percentage of 0 deletes the row and writes none.
    f.porcentajeretencionnf = 0;
    f.CalculoTotalesFactura(); // reads the percentage back from the row: still 5
    f.porcentajeretencionnf = 0;
    f.RetencionNF = 0;
    ASSERT_TRUE(f.GrabaFactura());
    EXPECT_EQ(e->cn().Execute(sql, {f.IdFactu}).RecordCount(), 0);
}

TEST_P(Graba, ReceiptsAddUpToTheNetAmount) {
    VKFACVENTAS& f =
        factura({.idFco = fco, .retNf = 3, .modoRetNf = 1, .agente = 4}, {{100, 1, 1}});
    EXPECT_DOUBLE_EQ(f.Liquido, 121 - 3.63);
    Recordset r = e->cn().Execute(
        QStringLiteral("SELECT Rec_Importe, Rec_FVto, Rec_Age, Rec_Sit, Rec_Texto FROM Rec WHERE "
                       "Rec_IdFac = ? ORDER BY Rec_FVto"),
        {f.IdFactu});
    ASSERT_EQ(r.RecordCount(), 2);
    EXPECT_DOUBLE_EQ(r.Fields(0).Doble(), 58.69);
    EXPECT_EQ(r.Fields(1).Fecha(), kHoy.addDays(30));
    EXPECT_EQ(r.Fields(2).Entero(), 4);
    EXPECT_EQ(r.Fields(3).Entero(), 1);
    EXPECT_EQ(r.Fields(4).Texto(),
              QStringLiteral("30-60 días#09/04/2026  58,69 €#09/05/2026  58,68 €"));
    r.MoveNext();
    EXPECT_DOUBLE_EQ(r.Fields(0).Doble(), 58.68);

    // Saved again, the receipts are not doubled.
    ASSERT_TRUE(f.GrabaFactura(true));
    EXPECT_EQ(recibos(), 2);

    // The notes change agent: the receipts follow; a note without one does not clear it.
    e->cn().Execute(QStringLiteral("UPDATE Cav SET Cav_Agente = 9 WHERE Cav_IdFactura = ?"),
                    {f.IdFactu});
    msActualizaAgenteRecibos(f);
    EXPECT_EQ(
        e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Rec WHERE Rec_IdFac = ? AND Rec_Age = 9"),
                  {f.IdFactu}),
        2);
    e->cn().Execute(QStringLiteral("UPDATE Cav SET Cav_Agente = 0 WHERE Cav_IdFactura = ?"),
                    {f.IdFactu});
    msActualizaAgenteRecibos(f);
    EXPECT_EQ(
        e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Rec WHERE Rec_IdFac = ? AND Rec_Age = 9"),
                  {f.IdFactu}),
        2);
}

TEST_P(Graba, LastNoteWithAnAgentGivesTheReceiptsTheirAgent) {
    const qint32 cli = e->cliente({.idFco = fco});
    const qint32 a1 = e->albaran(cli, kHoy, 1, {{100, 1, 1}}, 3);
    const qint32 a2 = e->albaran(cli, kHoy, 1, {{100, 1, 1}}, 5);
    const qint32 a3 = e->albaran(cli, kHoy, 1, {{100, 1, 1}}, 0); // none: does not clear it
    e->nuevaFactura(cli, kHoy, {a1, a2, a3});
    VKFACVENTAS& f = e->factura();
    f.CalculoTotalesFactura();
    ASSERT_TRUE(f.GrabaFactura(true));
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Rec WHERE Rec_IdFac = ? AND "
                                       "Rec_Age = 5"),
                        {f.IdFactu}),
              2);
}

TEST_P(Graba, HandTypedRetentionOfTheRepairTradeWritesNoRetentionRow) {
    e->parametro(QStringLiteral("Par_Automocion"), 1);
    const qint32 cli = e->cliente({.idFco = fco});
    e->nuevaFactura(cli, kHoy, {e->albaran(cli, kHoy, 1, {{100, 1, 1}})});
    VKFACVENTAS& f = e->factura();
    f.RetencionNF = 20;
    f.CalculoTotalesFactura();
    ASSERT_TRUE(f.GrabaFactura(true));
    Recordset r = fav();
    EXPECT_DOUBLE_EQ(r.Fields(QStringLiteral("Fav_IRetNf")).Doble(), 20);
    EXPECT_DOUBLE_EQ(r.Fields(QStringLiteral("Fav_Liquido")).Doble(), 101);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM RetNF")), 0);
    EXPECT_DOUBLE_EQ(
        e->cn()
            .Execute(QStringLiteral("SELECT SUM(Rec_Importe) FROM Rec WHERE Rec_IdFac = ?"),
                     {f.IdFactu})
            .Fields(0)
            .Doble(),
        101);
}

TEST_P(Graba, CreditNotesMakeReceiptsOnlyWhenTheCompanySaysSo) {
    factura({.idFco = fco}, {{-100, 1, 1}});
    EXPECT_EQ(recibos(), 0);
    e->parametro(QStringLiteral("Par_RecAbonos"), 1);
    factura({.idFco = fco}, {{-100, 1, 1}});
    EXPECT_EQ(recibos(), 2);
    EXPECT_DOUBLE_EQ(
        e->cn()
            .Execute(QStringLiteral("SELECT SUM(Rec_Importe) FROM Rec WHERE Rec_IdFac = ?"),
                     {e->factura().IdFactu})
            .Fields(0)
            .Doble(),
        -121);
    // Without bRecibos there are none.
    factura({.idFco = fco}, {{100, 1, 1}}, false);
    EXPECT_EQ(recibos(), 0);
}

TEST_P(Graba, PostingOnSaveNeedsAllFourConditions) {
    factura({.idFco = fco}, {{100, 1, 1}}); // the demo settings: no posting
    e->parametro(QStringLiteral("Par_GContable"), QStringLiteral("orvacon"));
    e->parametro(QStringLiteral("Par_Contav"), 1);
    factura({.idFco = fco}, {{100, 1, 1}}); // Par_ModConCon still 0
    e->parametro(QStringLiteral("Par_ModConCon"), 1);
    const qint32 cli = e->cliente({.idFco = fco});
    e->nuevaFactura(cli, kHoy, {e->albaran(cli, kHoy, 1, {{100, 1, 1}})});
    VKFACVENTAS& f = e->factura();
    f.CalculoTotalesFactura();
    try {
        f.GrabaFactura(true);
        FAIL() << "se esperaba el aviso de contabilización no disponible";
    } catch (const Error& error) {
        EXPECT_EQ(error.Mensaje(), mensajes::kSinContabilizacion);
    }
    // The header and the receipts are written before the posting is reached.
    EXPECT_DOUBLE_EQ(fav().Fields(QStringLiteral("Fav_Total")).Doble(), 121);
    EXPECT_EQ(recibos(), 2);
}

TEST_P(Graba, LostConnectionWritesNothing) {
    const qint32 cli = e->cliente({.idFco = fco});
    e->nuevaFactura(cli, kHoy, {e->albaran(cli, kHoy, 1, {{100, 1, 1}})});
    e->factura().CalculoTotalesFactura();
    // A second session on the company whose connection drops under the facade.
    auto otra = BdSesion::Abre(e->base().cadenaCatalogo(QStringLiteral("vkemp0001")));
    VKFACVENTAS g;
    g.setMyBd(*otra);
    g.IdFactu = e->factura().IdFactu;
    g.TotalFactura = 999;
    otra->cn().Cierra();
    e->ui().vistos.clear();
    EXPECT_FALSE(g.GrabaFactura(true));
    EXPECT_EQ(e->ui().Textos(), QStringList{mensajes::kConexionPerdida});
    EXPECT_DOUBLE_EQ(fav().Fields(QStringLiteral("Fav_Total")).Doble(), 0);
    EXPECT_EQ(recibos(), 0);
}

VK_EN_AMBOS_MOTORES(Graba);

} // namespace
} // namespace vk::prueba
