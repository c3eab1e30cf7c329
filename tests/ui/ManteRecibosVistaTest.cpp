// The receipt maintenance view, offscreen on the demo company: opened from
// the edit screen's receipts through the treasury and the launcher, a new
// due date typed and accepted reaches the database; a read-only receipt
// disables what writes. The view holds no SQL, so SQLite alone is enough.
#include <BasePrueba.h>
#include <FacturacionDemo.h>
#include <Formato.h>
#include <InteraccionGuion.h>
#include <LanzadorQt.h>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <VistaManteRecibos.h>
#include <frmEdicionFacturas.h>
#include <frmManteRecibos.h>

namespace vk::prueba {
namespace {

using ManteRecibosVista = DemoFacturadaPrueba;

TEST_P(ManteRecibosVista, ADueDateTypedAndAcceptedIsSaved) {
    ASSERT_FALSE(facturas.empty());
    frmEdicionFacturas edicion(*factura, QStringLiteral("A"), 1);
    ASSERT_TRUE(edicion.HayFactura());
    ASSERT_FALSE(edicion.dbgRecibos.empty());
    const ReciboFactura recibo = edicion.dbgRecibos.front();
    ASSERT_EQ(recibo.Rec_Sit, 1);
    const QDate nueva = recibo.Rec_Fvto.addDays(10);
    const QString tecleada = Format(nueva, QStringLiteral("dd/mm/yyyy"));

    ui::LanzadorQt lanzador(*factura);
    EstableceLanzador(&lanzador);
    QString nombre, importe, siguiente;
    // The screen is modal: type into it once it is up.
    QTimer::singleShot(0, [&] {
        QWidget* d = QApplication::activeModalWidget();
        if (!d) {
            return;
        }
        nombre = d->objectName();
        auto* vto = d->findChild<QLineEdit*>(QStringLiteral("txtFVto"));
        if (!vto) {
            QTest::keyClick(d, Qt::Key_Escape);
            return;
        }
        importe = d->findChild<QLineEdit*>(QStringLiteral("txtImporte"))->text();
        vto->setFocus();
        vto->selectAll();
        QTest::keyClicks(vto, tecleada);
        // Enter moves on to the amount.
        QTest::keyClick(vto, Qt::Key_Return);
        siguiente = d->focusWidget() ? d->focusWidget()->objectName() : QString();
        d->findChild<QPushButton*>(QStringLiteral("cmdAceptar"))->click();
    });
    edicion.dbgRecibos_DblClick(0);

    EXPECT_EQ(nombre, QStringLiteral("frmManteRecibos"));
    EXPECT_EQ(importe, Format(recibo.Rec_Importe, QStringLiteral("#,##0.00")));
    EXPECT_EQ(siguiente, QStringLiteral("txtImporte"));
    EXPECT_TRUE(guion.vistos.empty());
    EXPECT_EQ(
        bd->cn()
            .Execute(QStringLiteral("SELECT Rec_FVto FROM Rec WHERE Rec_Id = ?"), {recibo.Rec_Id})
            .Fields(0)
            .Fecha(),
        nueva);
    // The edit screen shows its receipts again after the maintenance.
    bool visto = false;
    for (const ReciboFactura& r : edicion.dbgRecibos) {
        visto = visto || (r.Rec_Id == recibo.Rec_Id && r.Rec_Fvto == nueva);
    }
    EXPECT_TRUE(visto);
}

TEST_P(ManteRecibosVista, AReadOnlyReceiptDisablesWhatWrites) {
    ASSERT_FALSE(facturas.empty());
    const qint32 id = static_cast<qint32>(
        bd->cn()
            .Execute(QStringLiteral("SELECT MIN(Rec_Id) FROM Rec WHERE Rec_Tipo = 1"))
            .Fields(0)
            .Entero());
    suite::frmManteRecibos modelo(*bd, id, true);
    ui::VistaManteRecibos v(modelo);
    EXPECT_FALSE(v.findChild<QLineEdit*>(QStringLiteral("txtFVto"))->isEnabled());
    EXPECT_FALSE(v.findChild<QLineEdit*>(QStringLiteral("txtImporte"))->isEnabled());
    EXPECT_FALSE(v.findChild<QComboBox*>(QStringLiteral("cboSituacion"))->isEnabled());
    EXPECT_FALSE(v.findChild<QLineEdit*>(QStringLiteral("txtObser"))->isEnabled());
    EXPECT_FALSE(v.findChild<QPushButton*>(QStringLiteral("cmdAceptar"))->isEnabled());
    EXPECT_EQ(v.findChild<QLabel*>(QStringLiteral("lblFactura"))->text(), modelo.lblFactura);
    EXPECT_EQ(v.findChild<QTableWidget*>(QStringLiteral("dbgRecibos"))->rowCount(),
              static_cast<int>(modelo.dbgRecibos.size()));
    v.show();
    QTest::keyClick(&v, Qt::Key_Escape);
    EXPECT_EQ(v.result(), QDialog::Rejected);
}

INSTANTIATE_TEST_SUITE_P(Motores, ManteRecibosVista, ::testing::Values(Motor::SQLite), NombreMotor);

} // namespace
} // namespace vk::prueba
