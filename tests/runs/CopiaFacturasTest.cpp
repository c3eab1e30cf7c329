// The copy screen driven as a person would, alone and from the invoice
// editor: what it shows, a No that writes nothing, a credit note that leaves
// the editor on it, a date that is not one; on both backends.
#include "EmpresaPrueba.h"

#include <Combos.h>
#include <FacturacionAlbaranes.h>
#include <Formato.h>
#include <MensajesRuns.h>
#include <RegistroSuite.h>
#include <frmCopiaFacturas.h>
#include <frmEdicionFacturas.h>
#include <frmIniFav.h>

namespace vk::prueba {
namespace {

const QDate kDia1(2026, 3, 1);
const QDate kDia25(2026, 3, 25);

class CopiaFacturasPantalla : public PruebaMotores {
protected:
    void SetUp() override {
        suite::RegistraComponentesSuite();
        e = std::make_unique<EmpresaPrueba>(GetParam());
        contado = e->formaPago(QStringLiteral("Contado"), {{0, 100, 1}});
        ClientePrueba c;
        c.idFco = contado;
        cliente = e->cliente(c);
        e->cn().Execute(QStringLiteral("UPDATE Cli SET CLI_OBSER = ? WHERE Cli_Id = ?"),
                        {QStringLiteral("Paga tarde"), cliente});
        nota = e->albaran(cliente, kDia1, 1, {{100}, {50, 1, 2}});
        CabeceraFactura h;
        h.serie = QStringLiteral("A");
        h.fecha = kDia1;
        h.idCliente = cliente;
        h.idFco = contado;
        e->ui().dialogos.push_back(
            [](DialogoModelo& d) { return dynamic_cast<frmIniFav&>(d).cmdInforme(); });
        const ResultadoFacturacion r = FacturaAlbaranes(e->factura(), h, {nota});
        e->ui().dialogos.clear();
        // What the tests look at starts after the source was made.
        e->ui().vistos.clear();
        ASSERT_EQ(r.estado, EstadoFacturacion::Hecha) << r.motivo.toStdString();
        origen = r.idFactura;
    }
    qint64 cuenta(const QString& tabla) {
        // The table is one of the schema's, never user text.
        return e->cn()
            .Execute(QStringLiteral("SELECT COUNT(*) FROM %1").arg(tabla))
            .Fields(0)
            .Entero();
    }
    double total(qint32 id) {
        return e->cn()
            .Execute(QStringLiteral("SELECT Fav_Total FROM Fav WHERE Fav_Id = ?"), {id})
            .Fields(0)
            .Doble();
    }

    std::unique_ptr<EmpresaPrueba> e;
    qint32 contado = 0, cliente = 0, nota = 0, origen = 0;
};

TEST_P(CopiaFacturasPantalla, ShowsTheSeriesTodayAndTheNotes) {
    frmCopiaFacturas c(e->factura(), origen);
    EXPECT_EQ(c.Nombre(), QStringLiteral("frmCopiaFacturas"));
    EXPECT_EQ(c.Caption, QStringLiteral("Copia de facturas"));
    EXPECT_EQ(c.Text1[0], QStringLiteral("A"));
    EXPECT_EQ(c.Text1[2], Format(QDate::currentDate(), QStringLiteral("dd/mm/yyyy")));
    EXPECT_EQ(c.lblCliObs, QStringLiteral("Paga tarde"));
    EXPECT_FALSE(c.lblCliente.isEmpty());
    const Recordset rs = e->cn().Execute(
        QStringLiteral("SELECT Cav_Serie, Cav_Numero FROM Cav WHERE Cav_Id = ?"), {nota});
    ASSERT_EQ(c.dbgAlbaranes.size(), 1u);
    EXPECT_EQ(c.dbgAlbaranes[0].albaran,
              rs.Fields(0).Texto().trimmed() + u'/' + QString::number(rs.Fields(1).Entero()));
    EXPECT_EQ(c.dbgAlbaranes[0].fecha, kDia1);
    EXPECT_TRUE(c.cboSeries.contains(QStringLiteral("A")));
    EXPECT_EQ(c.cboSeries.value(c.cboSeriesIndex), QStringLiteral("A"));
    EXPECT_FALSE(c.Check1);
    EXPECT_FALSE(c.Check2);
    EXPECT_EQ(c.IdNueva(), 0);
}

TEST_P(CopiaFacturasPantalla, ANoWritesNothing) {
    const qint64 facturas = cuenta(QStringLiteral("Fav"));
    const qint64 notas = cuenta(QStringLiteral("Cav"));
    frmCopiaFacturas c(e->factura(), origen);
    e->ui().respuestas = {false};
    EXPECT_FALSE(c.cmdCopiar());
    ASSERT_EQ(e->ui().vistos.size(), 1u);
    EXPECT_EQ(e->ui().vistos[0].texto, mensajes::kConfirmaCopia);
    EXPECT_EQ(c.IdNueva(), 0);
    EXPECT_EQ(cuenta(QStringLiteral("Fav")), facturas);
    EXPECT_EQ(cuenta(QStringLiteral("Cav")), notas);
}

TEST_P(CopiaFacturasPantalla, ACreditNoteFromTheEditorLeavesItShown) {
    // Read-only is enough: the source is not written.
    frmEdicionFacturas p(e->factura(), QStringLiteral("A"), 1, true);
    ASSERT_EQ(p.IdFactura(), origen);
    e->ui().respuestas = {true};
    e->ui().dialogos.push_back([](DialogoModelo& d) {
        auto& c = dynamic_cast<frmCopiaFacturas&>(d);
        c.Check1 = true;
        c.Text1[2] = Format(kDia25, QStringLiteral("dd/mm/yyyy"));
        return c.cmdCopiar();
    });
    p.cmdCopiar();
    EXPECT_FALSE(p.ultimaOrdenFallida);
    ASSERT_TRUE(p.HayFactura());
    EXPECT_NE(p.IdFactura(), origen);
    EXPECT_EQ(p.Text1[0], QStringLiteral("A"));
    EXPECT_EQ(p.Text1[1], QStringLiteral("2"));
    EXPECT_EQ(p.Text1[2], QStringLiteral("25/03/2026"));
    EXPECT_NE(total(origen), 0);
    EXPECT_DOUBLE_EQ(total(p.IdFactura()), -total(origen));
    bool preguntado = false, dicho = false;
    for (const MensajeVisto& m : e->ui().vistos) {
        preguntado |= m.tipo == MensajeVisto::Tipo::Pregunta && m.texto == mensajes::kConfirmaAbono;
        dicho |= m.tipo == MensajeVisto::Tipo::Mensaje && m.texto == mensajes::kAbonoFinalizado &&
                 m.titulo == QStringLiteral("Factura de Abono");
    }
    EXPECT_TRUE(preguntado);
    EXPECT_TRUE(dicho);
}

TEST_P(CopiaFacturasPantalla, ADateThatIsNotOneIsToldAndNothingWritten) {
    const qint64 facturas = cuenta(QStringLiteral("Fav"));
    const qint64 notas = cuenta(QStringLiteral("Cav"));
    frmCopiaFacturas c(e->factura(), origen);
    c.Text1[2] = QStringLiteral("31/02/2026");
    e->ui().respuestas = {true};
    EXPECT_FALSE(c.cmdCopiar());
    ASSERT_EQ(e->ui().vistos.size(), 2u);
    EXPECT_EQ(e->ui().vistos[1].tipo, MensajeVisto::Tipo::Mensaje);
    EXPECT_EQ(e->ui().vistos[1].titulo, c.Caption);
    EXPECT_FALSE(e->ui().vistos[1].texto.isEmpty());
    EXPECT_EQ(c.IdNueva(), 0);
    EXPECT_EQ(cuenta(QStringLiteral("Fav")), facturas);
    EXPECT_EQ(cuenta(QStringLiteral("Cav")), notas);
}

TEST_P(CopiaFacturasPantalla, TheAddressTermsAndDiscountsLeftOnScreenAreTheNewInvoices) {
    const qint32 giro = e->formaPago(QStringLiteral("Giro 30"), {{30, 100, 2}});
    ClientePrueba otro;
    otro.idFco = giro;
    const qint32 segundo = e->cliente(otro);
    const qint64 dir =
        e->cn()
            .Execute(QStringLiteral("INSERT INTO Dir (DIR_NOMBRE, DIR_NUMERO, DIR_LETRA, DIR_CP, "
                                    "DIR_POBLACION, dir_fiscal) VALUES (?, ?, ?, ?, ?, '0') "
                                    "RETURNING DIR_ID"),
                     {QStringLiteral("Calle de la Paz"), QStringLiteral("7"), QStringLiteral("C"),
                      QStringLiteral("46003"), QStringLiteral("Valencia")})
            .Fields(0)
            .Entero();
    e->cn().Execute(QStringLiteral("INSERT INTO CliDir (CLIDIR_CLI, CLIDIR_DIR) VALUES (?, ?)"),
                    {segundo, dir});
    const QString fuente =
        e->cn()
            .Execute(QStringLiteral("SELECT Fav_Nombre FROM Fav WHERE Fav_Id = ?"), {origen})
            .Fields(0)
            .Texto();

    frmCopiaFacturas c(e->factura(), origen);
    EXPECT_EQ(c.Text1[23], fuente);
    EXPECT_EQ(c.cboFpago.value(c.cboFpagoIndex).left(2), Format(contado, QStringLiteral("00")));
    // Another customer: its terms and its only address replace the source's.
    // The lookup lists every customer; the second row is the new one.
    e->ui().busquedas = {1};
    c.XPButton2();
    EXPECT_EQ(c.cboFpago.value(c.cboFpagoIndex).left(2), Format(giro, QStringLiteral("00")));
    EXPECT_EQ(c.Text1[23], QStringLiteral("Calle de la Paz"));
    EXPECT_EQ(c.Text1[19], QStringLiteral("Valencia"));
    // Its other addresses are the ones offered.
    e->ui().busquedas = {0};
    c.cmdDir();
    EXPECT_EQ(e->ui().peticionesBusca.back().titulo, QStringLiteral("Otras direcciones"));
    EXPECT_EQ(c.Text1[14], QStringLiteral("C")); // the door takes the letter
    // And what the person types on top.
    c.Text1[23] = QStringLiteral("Avenida del Puerto");
    c.Text1[20] = QStringLiteral("7,5");
    c.Text1[22] = QStringLiteral("no es un número"); // keeps the customer's
    c.Text1[24] = QStringLiteral("Sr. Pons");
    c.txtFavObs = QStringLiteral("Sustituye a la factura A/1");
    c.cboFpagoIndex = fnIndiceCombo(c.cboFpago, Format(contado, QStringLiteral("00")));
    e->ui().respuestas = {true};
    ASSERT_TRUE(c.cmdCopiar());
    const Recordset rs = e->cn().Execute(
        QStringLiteral("SELECT Fav_IdCli, Fav_Nombre, Fav_Puerta, Fav_Poblacion, Fav_Dto1, "
                       "Fav_Dto2, Fav_Fatencion, Fav_Obs, Fav_IdFco, Fav_IdDir FROM Fav WHERE "
                       "Fav_Id = ?"),
        {c.IdNueva()});
    ASSERT_FALSE(rs.Eof());
    EXPECT_EQ(rs.Fields(0).Entero(), segundo);
    EXPECT_EQ(rs.Fields(1).Texto().trimmed(), QStringLiteral("Avenida del Puerto"));
    EXPECT_EQ(rs.Fields(2).Texto().trimmed(), QStringLiteral("C"));
    EXPECT_EQ(rs.Fields(3).Texto().trimmed(), QStringLiteral("Valencia"));
    EXPECT_DOUBLE_EQ(rs.Fields(4).Doble(), 7.5);
    EXPECT_DOUBLE_EQ(rs.Fields(5).Doble(), 0);
    EXPECT_EQ(rs.Fields(6).Texto(), QStringLiteral("Sr. Pons"));
    EXPECT_EQ(rs.Fields(7).Texto(), QStringLiteral("Sustituye a la factura A/1"));
    EXPECT_EQ(rs.Fields(8).Entero(), contado);
    // Typed over, the address is kept by value, as issued.
    EXPECT_LE(rs.Fields(9).Entero(), 0);
    // Its notes are the new customer's too.
    EXPECT_EQ(e->cn()
                  .Execute(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE Cav_IdFactura = ? AND "
                                          "Cav_IdCli <> ?"),
                           {c.IdNueva(), segundo})
                  .Fields(0)
                  .Entero(),
              0);
}

VK_EN_AMBOS_MOTORES(CopiaFacturasPantalla);

} // namespace
} // namespace vk::prueba
