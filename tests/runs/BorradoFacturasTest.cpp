// The batch deletion screen driven as a person would: refused to anyone but
// an administrator, the search and its obligatory series, the deletion of
// what is listed with or without the notes, and a refusal of the database in
// the middle that leaves every invoice as it was; on both backends.
#include "EmisorAnotado.h"
#include "EmpresaPrueba.h"

#include <FacturacionAlbaranes.h>
#include <RegistroSuite.h>
#include <frmBorradoFacturas.h>
#include <frmIniFav.h>

namespace vk::prueba {
namespace {

const QDate kDia1(2026, 3, 1);
const QDate kDia5(2026, 3, 5);
const QDate kDia10(2026, 3, 10);

class BorradoFacturas : public PruebaMotores {
protected:
    void SetUp() override {
        suite::RegistraComponentesSuite();
        e = std::make_unique<EmpresaPrueba>(GetParam());
        administrador(true);
        contado = e->formaPago(QStringLiteral("Contado"), {{0, 100, 1}});
        ClientePrueba c;
        c.idFco = contado;
        c.retNf = 2;
        cliente = e->cliente(c);
    }

    void administrador(bool si) {
        e->cn().Execute(QStringLiteral("UPDATE vkcomun.Usu SET Usu_Admin = ? WHERE Usu_Id = ?"),
                        {si ? 1 : 0, e->bd().IdUsuario()});
    }

    // A whole invoice, as the batch makes it: totals, receipts, retention.
    qint32 factura(const QDate& fecha, const std::vector<qint32>& notas,
                   const QString& serie = QStringLiteral("A")) {
        CabeceraFactura c;
        c.serie = serie;
        c.fecha = fecha;
        c.idCliente = cliente;
        c.idFco = contado;
        c.retencionNF = 2;
        e->ui().dialogos.push_back(
            [](DialogoModelo& d) { return dynamic_cast<frmIniFav&>(d).cmdInforme(); });
        const ResultadoFacturacion r = FacturaAlbaranes(e->factura(), c, notas);
        e->ui().dialogos.clear();
        EXPECT_EQ(r.estado, EstadoFacturacion::Hecha) << r.motivo.toStdString();
        return r.idFactura;
    }
    qint32 albaran(const QDate& fecha, double importe) {
        return e->albaran(cliente, fecha, 1, {{importe}, {importe / 2, 1, 2}});
    }
    // Every row of the tables a deletion touches, as text.
    QString todo() {
        QStringList r;
        for (const char* sql :
             {"SELECT * FROM Fav ORDER BY Fav_Id", "SELECT * FROM Rec ORDER BY Rec_Id",
              "SELECT * FROM RetNF ORDER BY RetNF_Id", "SELECT * FROM Cav ORDER BY Cav_Id",
              "SELECT * FROM Lav ORDER BY Lav_Id"}) {
            for (Recordset rs = e->cn().Execute(QString::fromLatin1(sql)); !rs.Eof();
                 rs.MoveNext()) {
                QStringList c;
                for (int i = 0; i < rs.FieldCount(); ++i) {
                    c << rs.Fields(i).Texto();
                }
                r << c.join(u'|');
            }
        }
        return r.join(u'\n');
    }
    qint64 cuenta(const QString& sql, const QVariantList& params = {}) {
        return e->cuenta(sql, params);
    }
    // From now on the database refuses to delete the invoice: a trigger on
    // its remarks, which the test sets.
    void rechazaBorrado(qint32 idFactura) {
        e->cn().Execute(QStringLiteral("UPDATE Fav SET Fav_Obs = ? WHERE Fav_Id = ?"),
                        {QStringLiteral("intocable"), idFactura});
        if (e->bd().dialecto().esSQLite()) {
            e->cn().Execute(QStringLiteral(
                "CREATE TRIGGER rechaza_borrado BEFORE DELETE ON Fav WHEN OLD.Fav_Obs = "
                "'intocable' BEGIN SELECT RAISE(ABORT, 'prohibido en la prueba'); END"));
            return;
        }
        e->cn().Execute(QStringLiteral(
            "CREATE OR REPLACE FUNCTION rechaza_borrado() RETURNS trigger AS $$ BEGIN IF "
            "OLD.Fav_Obs = 'intocable' THEN RAISE EXCEPTION 'prohibido en la prueba'; END IF; "
            "RETURN OLD; END $$ LANGUAGE plpgsql"));
        e->cn().Execute(QStringLiteral("CREATE TRIGGER rechaza_borrado BEFORE DELETE ON Fav FOR "
                                       "EACH ROW EXECUTE FUNCTION rechaza_borrado()"));
    }
    std::unique_ptr<frmBorradoFacturas> pantalla() {
        return std::make_unique<frmBorradoFacturas>(e->factura());
    }

    std::unique_ptr<EmpresaPrueba> e;
    qint32 contado = 0, cliente = 0;
};

TEST_P(BorradoFacturas, RefusesAnyoneButAnAdministratorAndChangesNothing) {
    factura(kDia1, {albaran(kDia1, 100)});
    administrador(false);
    const QString antes = todo();
    auto p = pantalla();
    EXPECT_TRUE(p->Cerrada);
    EXPECT_EQ(p->Caption, QStringLiteral("Borrado de Facturas de venta"));
    ASSERT_FALSE(e->ui().Textos().isEmpty());
    EXPECT_EQ(e->ui().Textos().back(),
              QStringLiteral("Opción solo disponible para administradores - Acción cancelada -"));
    p->Text1[5] = QStringLiteral("A");
    e->ui().ResponderSiSiempre(true);
    p->cmdBuscar();
    p->cmdBorrar();
    EXPECT_TRUE(p->dbgFacturas.empty());
    EXPECT_EQ(todo(), antes);
}

TEST_P(BorradoFacturas, SearchNeedsTheSeriesAndKeepsTheList) {
    factura(kDia1, {albaran(kDia1, 100)});
    factura(kDia5, {albaran(kDia5, 50)});
    factura(kDia10, {albaran(kDia10, 80)});
    factura(kDia5, {albaran(kDia5, 70)}, QStringLiteral("B"));
    auto p = pantalla();
    ASSERT_FALSE(p->Cerrada);
    EXPECT_FALSE(p->cmdBorrar_Enabled);
    p->Text1[5] = QStringLiteral("A");
    p->Text1[0] = QStringLiteral("2");
    p->Text1[3] = QStringLiteral("10/03/2026");
    p->cmdBuscar();
    ASSERT_EQ(p->dbgFacturas.size(), 2u);
    EXPECT_TRUE(p->cmdBorrar_Enabled);
    EXPECT_EQ(p->dbgFacturas[0].Factura, QStringLiteral("A/2"));
    EXPECT_EQ(p->dbgFacturas[1].Factura, QStringLiteral("A/3"));
    EXPECT_EQ(p->dbgFacturas[0].Fecha, kDia5);
    EXPECT_EQ(p->dbgFacturas[0].EstadoContable, QStringLiteral("No Contabilizada"));
    EXPECT_TRUE(p->dbgFacturas[0].Cliente.endsWith(u')'));
    EXPECT_TRUE(p->dbgFacturas[0].Cliente.contains(QStringLiteral("  (")));
    // 50 at 21 % and 25 at 10 %.
    EXPECT_DOUBLE_EQ(p->dbgFacturas[0].Bases, 75);
    EXPECT_DOUBLE_EQ(p->dbgFacturas[0].Total, 88);

    p->Text1[5].clear();
    p->cmdBuscar();
    EXPECT_TRUE(p->ultimaOrdenFallida);
    EXPECT_EQ(e->ui().Textos().back(),
              QStringLiteral("Es obligatorio indicar la serie de facturas"));
    EXPECT_EQ(p->dbgFacturas.size(), 2u);
    EXPECT_TRUE(p->cmdBorrar_Enabled);
}

TEST_P(BorradoFacturas, DeletesTheListedInvoicesAndReopensTheirNotes) {
    const qint32 n1 = albaran(kDia1, 100);
    const qint32 n2 = albaran(kDia1, 60);
    const qint32 a1 = factura(kDia1, {n1, n2});
    const qint32 n3 = albaran(kDia5, 50);
    const qint32 a2 = factura(kDia5, {n3});
    const qint32 a3 = factura(kDia10, {albaran(kDia10, 80)});
    ASSERT_GT(cuenta(QStringLiteral("SELECT COUNT(*) FROM Rec WHERE Rec_IdFac = ?"), {a1}), 0);
    ASSERT_GT(cuenta(QStringLiteral("SELECT COUNT(*) FROM RetNF WHERE RetNF_IdFactura = ?"), {a2}),
              0);
    auto p = pantalla();
    p->Text1[5] = QStringLiteral("A");
    p->Text1[3] = QStringLiteral("05/03/2026");
    p->cmdBuscar();
    ASSERT_EQ(p->dbgFacturas.size(), 2u);

    e->ui().respuestas = {true, false};
    p->cmdBorrar();
    EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav")), 3);
    e->ui().respuestas = {true, true};
    p->cmdBorrar();
    EXPECT_FALSE(p->ultimaOrdenFallida);
    EXPECT_EQ(p->facturasBorradas, 2);
    EXPECT_EQ(e->ui().Textos().back(),
              QStringLiteral("Proceso de borrado de facturas de venta finalizado"));
    EXPECT_TRUE(p->dbgFacturas.empty());
    EXPECT_FALSE(p->cmdBorrar_Enabled);
    for (const qint32 id : {a1, a2}) {
        EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav WHERE Fav_Id = ?"), {id}), 0);
        EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Rec WHERE Rec_IdFac = ?"), {id}), 0);
        EXPECT_EQ(
            cuenta(QStringLiteral("SELECT COUNT(*) FROM RetNF WHERE RetNF_IdFactura = ?"), {id}),
            0);
    }
    for (const qint32 n : {n1, n2, n3}) {
        EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE Cav_Id = ? AND Cav_Situa "
                                        "= 1 AND Cav_IdFactura IS NULL"),
                         {n}),
                  1);
        EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Lav WHERE Lav_IdCav = ?"), {n}), 2);
    }
    EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav WHERE Fav_Id = ?"), {a3}), 1);
    EXPECT_GT(cuenta(QStringLiteral("SELECT COUNT(*) FROM Rec WHERE Rec_IdFac = ?"), {a3}), 0);
}

TEST_P(BorradoFacturas, WithTheNotesTheNotesAndTheirLinesGo) {
    const qint32 n1 = albaran(kDia1, 100);
    const qint32 n2 = albaran(kDia5, 50);
    factura(kDia1, {n1});
    factura(kDia5, {n2});
    auto p = pantalla();
    p->Text1[5] = QStringLiteral("A");
    p->Check1 = true;
    p->cmdBuscar();
    ASSERT_EQ(p->dbgFacturas.size(), 2u);
    e->ui().ResponderSiSiempre(true);
    p->cmdBorrar();
    EXPECT_EQ(p->facturasBorradas, 2);
    EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav")), 0);
    EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Rec")), 0);
    EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM RetNF")), 0);
    for (const qint32 n : {n1, n2}) {
        EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE Cav_Id = ?"), {n}), 0);
        EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Lav WHERE Lav_IdCav = ?"), {n}), 0);
    }
}

TEST_P(BorradoFacturas, AFailureInTheMiddleLeavesEveryInvoiceAsItWas) {
    factura(kDia1, {albaran(kDia1, 100)});
    const qint32 a2 = factura(kDia5, {albaran(kDia5, 50)});
    factura(kDia10, {albaran(kDia10, 80)});
    rechazaBorrado(a2);
    const QString antes = todo();
    auto p = pantalla();
    p->Text1[5] = QStringLiteral("A");
    p->Check1 = true;
    p->cmdBuscar();
    ASSERT_EQ(p->dbgFacturas.size(), 3u);
    e->ui().ResponderSiSiempre(true);
    p->cmdBorrar();
    EXPECT_TRUE(p->ultimaOrdenFallida);
    EXPECT_EQ(p->facturasBorradas, 0);
    EXPECT_TRUE(e->ui().Textos().back().startsWith(
        QStringLiteral("Error en el borrado de facturas de ventas. ")));
    EXPECT_EQ(todo(), antes);
    EXPECT_EQ(p->dbgFacturas.size(), 3u);
}

VK_EN_AMBOS_MOTORES(BorradoFacturas);

} // namespace
} // namespace vk::prueba
