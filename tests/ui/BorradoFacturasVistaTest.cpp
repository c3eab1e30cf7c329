// The batch deletion view offscreen: the boxes reach the model, the search
// fills the grid and enables the deletion, and the screen's name is found in
// the views' registry. The view holds no SQL, so SQLite alone is enough.
#include <EmpresaPrueba.h>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <RegistroVistas.h>
#include <VistaBorradoFacturas.h>
#include <frmBorradoFacturas.h>

namespace vk::prueba {
namespace {

class BorradoFacturasVista : public PruebaMotores {};

TEST_P(BorradoFacturasVista, SearchFillsTheGridAndEnablesTheDeletion) {
    EmpresaPrueba e(GetParam());
    const qint32 cliente = e.cliente();
    e.nuevaFactura(cliente, QDate(2026, 3, 1),
                   {e.albaran(cliente, QDate(2026, 3, 1), 1, {{100}, {50, 1, 2}})});
    frmBorradoFacturas modelo(e.factura());
    ASSERT_FALSE(modelo.Cerrada);
    ui::VistaBorradoFacturas v(modelo);
    v.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&v));
    EXPECT_EQ(v.windowTitle(), QStringLiteral("Borrado de Facturas de venta"));
    auto* borrar = v.findChild<QPushButton*>(QStringLiteral("cmdBorrar"));
    ASSERT_NE(borrar, nullptr);
    EXPECT_FALSE(borrar->isEnabled());
    auto* serie = v.findChild<QLineEdit*>(QStringLiteral("Text1_5"));
    ASSERT_NE(serie, nullptr);
    serie->setText(QStringLiteral("A"));
    v.findChild<QPushButton*>(QStringLiteral("cmdBuscar"))->click();
    auto* rejilla = v.findChild<QTableWidget*>(QStringLiteral("dbgFacturas"));
    ASSERT_NE(rejilla, nullptr);
    ASSERT_EQ(rejilla->rowCount(), 1);
    EXPECT_EQ(rejilla->item(0, 0)->text(), QStringLiteral("A/1"));
    EXPECT_EQ(rejilla->item(0, 1)->text(), QStringLiteral("01/03/2026"));
    EXPECT_EQ(rejilla->item(0, 10)->text(), QStringLiteral("No Contabilizada"));
    EXPECT_TRUE(borrar->isEnabled());
    EXPECT_NE(v.findChild<QCheckBox*>(QStringLiteral("Check1")), nullptr);

    EXPECT_NE(ui::BuscaVistaPantalla(QStringLiteral("frmBorradoFacturas")), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Motores, BorradoFacturasVista, ::testing::Values(Motor::SQLite),
                         NombreMotor);

} // namespace
} // namespace vk::prueba
