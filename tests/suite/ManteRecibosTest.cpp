// The maintenance of one receipt, on an invoice made as the batch makes it:
// what it shows, what it saves, the rest of a lowered amount in a new
// receipt, each refusal with its message and nothing written, and a receipt
// another session remitted between the load and the save; on both backends.
#include "EmpresaPrueba.h"

#include <FacturacionAlbaranes.h>
#include <MensajesMotor.h>
#include <MensajesSuite.h>
#include <QtGlobal>
#include <TesoreriaIncorporada.h>
#include <frmIniFav.h>
#include <frmManteRecibos.h>

namespace vk::prueba {
namespace {

using suite::frmManteRecibos;

const QDate kDia1(2026, 3, 1);
const QDate kVto1(2026, 3, 31);
const QDate kVto2(2026, 4, 30);

class ManteRecibos : public PruebaMotores {
protected:
    void SetUp() override {
        suite::RegistraTesoreria();
        e = std::make_unique<EmpresaPrueba>(GetParam());
        // Two receipts by direct debit (mode 2), at 30 and 60 days.
        const qint32 plazos = e->formaPago(QStringLiteral("30-60"), {{30, 50, 2}, {60, 50, 2}});
        ClientePrueba c;
        c.idFco = plazos;
        cliente = e->cliente(c);
        CabeceraFactura f;
        f.serie = QStringLiteral("A");
        f.fecha = kDia1;
        f.idCliente = cliente;
        f.idFco = plazos;
        e->ui().dialogos.push_back(
            [](DialogoModelo& d) { return dynamic_cast<frmIniFav&>(d).cmdInforme(); });
        // 100 at 21 % and 50 at 10 %: a Liquido of 176, two receipts of 88.
        const ResultadoFacturacion r =
            FacturaAlbaranes(e->factura(), f, {e->albaran(cliente, kDia1, 1, {{100}, {50, 1, 2}})});
        e->ui().dialogos.clear();
        e->ui().vistos.clear(); // the first number's dialog
        ASSERT_EQ(r.estado, EstadoFacturacion::Hecha) << r.motivo.toStdString();
        idFactura = r.idFactura;
        Recordset rs = recibos();
        ASSERT_EQ(rs.RecordCount(), 2);
        primero = static_cast<qint32>(rs.Fields(QStringLiteral("Rec_Id")).Entero());
        rs.MoveNext();
        segundo = static_cast<qint32>(rs.Fields(QStringLiteral("Rec_Id")).Entero());
    }
    void TearDown() override {
        e.reset();
        OlvidaComponente(QString::fromLatin1(VKTESORE::kProgId));
    }

    Recordset recibos() {
        return e->cn().Execute(QStringLiteral("SELECT * FROM Rec WHERE Rec_Tipo = 1 AND "
                                              "Rec_IdFac = ? ORDER BY Rec_FVto, Rec_Id"),
                               {idFactura});
    }
    // Every column of the invoice's receipts, as text: what must not change.
    QString todo() {
        QStringList filas;
        for (Recordset rs = recibos(); !rs.Eof(); rs.MoveNext()) {
            QStringList c;
            for (int i = 0; i < rs.FieldCount(); ++i) {
                c << rs.Fields(i).Texto();
            }
            filas << c.join(u'|');
        }
        return filas.join(u'\n');
    }
    Recordset recibo(qint32 id) {
        return e->cn().Execute(QStringLiteral("SELECT * FROM Rec WHERE Rec_Id = ?"), {id});
    }
    qint64 centimos(double x) { return qRound64(x * 100); }
    qint64 sumaCentimos() {
        qint64 suma = 0;
        for (Recordset rs = recibos(); !rs.Eof(); rs.MoveNext()) {
            suma += centimos(rs.Fields(QStringLiteral("Rec_Importe")).Doble());
        }
        return suma;
    }
    double liquido() {
        return e->cn()
            .Execute(QStringLiteral("SELECT Fav_Liquido FROM Fav WHERE Fav_Id = ?"), {idFactura})
            .Fields(0)
            .Doble();
    }
    std::unique_ptr<frmManteRecibos> pantalla(qint32 id, bool bCobPag = false) {
        return std::make_unique<frmManteRecibos>(e->bd(), id, bCobPag);
    }

    std::unique_ptr<EmpresaPrueba> e;
    qint32 cliente = 0, idFactura = 0, primero = 0, segundo = 0;
};

TEST_P(ManteRecibos, LoadingShowsWhatTheReceiptHolds) {
    auto p = pantalla(primero);
    EXPECT_EQ(p->Caption, suite::mensajes::kTituloManteRecibos);
    EXPECT_EQ(p->lblFactura, QStringLiteral("A/1"));
    EXPECT_EQ(p->lblFechaFactura, QStringLiteral("01/03/2026"));
    EXPECT_TRUE(p->lblCliente.startsWith(QStringLiteral("1 - "))) << p->lblCliente.toStdString();
    EXPECT_TRUE(p->lblCliente.contains(QStringLiteral("Cliente"))) << p->lblCliente.toStdString();
    EXPECT_EQ(p->lblModalidad, QStringLiteral("2 - Recibo domiciliado"));
    EXPECT_EQ(p->lblCuenta, recibo(primero).Fields(QStringLiteral("Rec_Cta")).Texto().trimmed());
    EXPECT_EQ(p->txtFVto, QStringLiteral("31/03/2026"));
    EXPECT_EQ(p->txtImporte, QStringLiteral("88,00"));
    EXPECT_EQ(p->txtObser, QString());
    ASSERT_EQ(p->cboSituacion.size(), 6);
    EXPECT_EQ(p->cboSituacion.value(p->cboSituacionIndex), QStringLiteral("Pendiente"));
    ASSERT_EQ(p->dbgRecibos.size(), 1u);
    EXPECT_EQ(p->dbgRecibos[0].Rec_Id, segundo);
    EXPECT_EQ(p->dbgRecibos[0].Rec_FVto, kVto2);
    EXPECT_DOUBLE_EQ(p->dbgRecibos[0].Rec_Importe, 88);
    EXPECT_EQ(p->dbgRecibos[0].Situacion, QStringLiteral("Pendiente"));
    EXPECT_FALSE(p->SoloLectura());

    EXPECT_THROW(pantalla(999999), ErrorRegla);
}

TEST_P(ManteRecibos, SavesTheDueDateAndTheRemarks) {
    auto p = pantalla(primero);
    p->txtFVto = QStringLiteral("15/04/2026");
    p->txtObser = QStringLiteral("Pasar al cobro tras la obra");
    EXPECT_TRUE(p->cmdAceptar());
    EXPECT_TRUE(e->ui().vistos.empty());
    const Recordset r = recibo(primero);
    EXPECT_EQ(r.Fields(QStringLiteral("Rec_FVto")).Fecha(), QDate(2026, 4, 15));
    EXPECT_EQ(r.Fields(QStringLiteral("Rec_Obser")).Texto(),
              QStringLiteral("Pasar al cobro tras la obra"));
    EXPECT_DOUBLE_EQ(r.Fields(QStringLiteral("Rec_Importe")).Doble(), 88);
    EXPECT_EQ(r.Fields(QStringLiteral("Rec_Sit")).Entero(), 1);
    EXPECT_EQ(recibos().RecordCount(), 2);
}

TEST_P(ManteRecibos, SavesTheState) {
    auto p = pantalla(segundo);
    p->cboSituacionIndex = static_cast<int>(p->cboSituacion.indexOf(QStringLiteral("Cobrado")));
    ASSERT_GE(p->cboSituacionIndex, 0);
    EXPECT_TRUE(p->cmdAceptar());
    EXPECT_EQ(recibo(segundo).Fields(QStringLiteral("Rec_Sit")).Entero(), 3);
    // Collected, it is only looked at from now on.
    EXPECT_TRUE(pantalla(segundo)->SoloLectura());
}

TEST_P(ManteRecibos, ALoweredAmountLeavesTheRestInANewPendingReceipt) {
    auto p = pantalla(primero);
    p->txtFVto = QStringLiteral("10/04/2026");
    p->txtImporte = QStringLiteral("50,5");
    EXPECT_TRUE(p->cmdAceptar());
    EXPECT_TRUE(e->ui().vistos.empty());

    const Recordset original = recibo(primero);
    EXPECT_DOUBLE_EQ(original.Fields(QStringLiteral("Rec_Importe")).Doble(), 50.5);
    Recordset rs = e->cn().Execute(
        QStringLiteral("SELECT * FROM Rec WHERE Rec_IdFac = ? AND Rec_Id <> ? AND Rec_Id <> ?"),
        {idFactura, primero, segundo});
    ASSERT_EQ(rs.RecordCount(), 1);
    EXPECT_DOUBLE_EQ(rs.Fields(QStringLiteral("Rec_Importe")).Doble(), 37.5);
    EXPECT_EQ(rs.Fields(QStringLiteral("Rec_FVto")).Fecha(), QDate(2026, 4, 10));
    EXPECT_EQ(rs.Fields(QStringLiteral("Rec_Sit")).Entero(), 1);
    EXPECT_EQ(rs.Fields(QStringLiteral("Rec_Tipo")).Entero(), 1);
    EXPECT_EQ(rs.Fields(QStringLiteral("Rec_IdRem")).Entero(), 0);
    for (const char* columna :
         {"Rec_IdClPr", "Rec_Serie", "Rec_Numero", "Rec_Cta", "Rec_CtaBanco", "Rec_Iban",
          "Rec_Swift", "Rec_Mod", "Rec_Age", "Rec_Cartera", "Rec_Texto"}) {
        const QString c = QString::fromLatin1(columna);
        EXPECT_EQ(rs.Fields(c).Texto(), original.Fields(c).Texto()) << columna;
    }
    EXPECT_EQ(sumaCentimos(), centimos(liquido()));
    EXPECT_EQ(centimos(liquido()), 17600);

    // Raised again within what the others leave: no receipt is made.
    auto q = pantalla(primero);
    EXPECT_EQ(q->dbgRecibos.size(), 2u);
    q->txtImporte = QStringLiteral("50,50");
    EXPECT_TRUE(q->cmdAceptar());
    EXPECT_EQ(recibos().RecordCount(), 3);
}

TEST_P(ManteRecibos, EachRefusalSaysWhyAndWritesNothing) {
    const QString antes = todo();
    const struct {
        const char* fecha;
        const char* importe;
        QString mensaje;
    } casos[] = {
        {"31/02/2026", "88,00", mensajes::kFechaNoValida.arg(QStringLiteral("31/02/2026"))},
        {"28/02/2026", "88,00",
         suite::mensajes::kReciboVencimientoAnterior.arg(QStringLiteral("01/03/2026"))},
        {"31/03/2026", "0", suite::mensajes::kReciboImporteNoPositivo},
        {"31/03/2026", "-10,00", suite::mensajes::kReciboImporteNoPositivo},
        {"31/03/2026", "88,01",
         suite::mensajes::kReciboImporteExcesivo.arg(QStringLiteral("88,00 €"))},
        {"31/03/2026", "ochenta",
         suite::mensajes::kReciboImporteNoNumero.arg(QStringLiteral("ochenta"))},
    };
    for (const auto& c : casos) {
        e->ui().vistos.clear();
        auto p = pantalla(primero);
        p->txtFVto = QString::fromLatin1(c.fecha);
        p->txtImporte = QString::fromLatin1(c.importe);
        p->txtObser = QStringLiteral("no se guarda");
        EXPECT_FALSE(p->cmdAceptar()) << c.fecha << ' ' << c.importe;
        EXPECT_EQ(e->ui().Textos(), QStringList{c.mensaje}) << c.fecha << ' ' << c.importe;
        EXPECT_EQ(todo(), antes) << c.fecha << ' ' << c.importe;
        EXPECT_FALSE(p->SoloLectura());
    }
}

TEST_P(ManteRecibos, AReceiptRemittedByAnotherSessionMeanwhileIsRefused) {
    auto p = pantalla(primero);
    p->txtFVto = QStringLiteral("20/04/2026");
    p->txtImporte = QStringLiteral("40,00");
    {
        // Another user of the company remits it while the screen is open.
        auto otra = BdSesion::Abre(e->base().cadena());
        otra->cn().Execute(QStringLiteral("UPDATE Rec SET Rec_Sit = 2, Rec_IdRem = 7 WHERE "
                                          "Rec_Id = ?"),
                           {primero});
    }
    const QString antes = todo();
    EXPECT_FALSE(p->cmdAceptar());
    EXPECT_EQ(e->ui().Textos(), QStringList{suite::mensajes::kReciboNoPendiente});
    EXPECT_EQ(todo(), antes);
    EXPECT_EQ(recibos().RecordCount(), 2);
    // The screen now shows it as it is, for looking only.
    EXPECT_TRUE(p->SoloLectura());
    EXPECT_EQ(p->cboSituacion.value(p->cboSituacionIndex), QStringLiteral("Remesado"));
    EXPECT_EQ(p->txtFVto, QStringLiteral("31/03/2026"));
}

TEST_P(ManteRecibos, ReadOnlyWhenCollectingOrNotPending) {
    const QString antes = todo();
    auto p = pantalla(primero, true);
    EXPECT_TRUE(p->SoloLectura());
    p->txtFVto = QStringLiteral("20/04/2026");
    EXPECT_FALSE(p->cmdAceptar());
    p->cmdCancelar();
    e->cn().Execute(QStringLiteral("UPDATE Rec SET Rec_Sit = 3 WHERE Rec_Id = ?"), {segundo});
    const QString cobrado = todo();
    auto q = pantalla(segundo);
    EXPECT_TRUE(q->SoloLectura());
    q->txtObser = QStringLiteral("no se guarda");
    EXPECT_FALSE(q->cmdAceptar());
    EXPECT_EQ(todo(), cobrado);
    EXPECT_NE(todo(), antes);
    EXPECT_TRUE(e->ui().vistos.empty());
}

} // namespace

VK_EN_AMBOS_MOTORES(ManteRecibos);

} // namespace vk::prueba
