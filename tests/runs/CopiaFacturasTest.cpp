// The copy screen driven as a person would, alone and from the invoice
// editor: what it shows, a No that writes nothing, a credit note that leaves
// the editor on it, a date that is not one; on both backends.
#include "EmpresaPrueba.h"

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

VK_EN_AMBOS_MOTORES(CopiaFacturasPantalla);

} // namespace
} // namespace vk::prueba
