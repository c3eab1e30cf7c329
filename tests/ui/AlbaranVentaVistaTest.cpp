// The read-only note view offscreen: the header and lines the model loaded,
// the current line selected, Escape closing it, and the screen's name found
// in the views' registry. The view holds no SQL, so SQLite alone is enough.
#include <EmpresaPrueba.h>
#include <QLineEdit>
#include <QTableWidget>
#include <QTest>
#include <RegistroVistas.h>
#include <VistaAlbaranVenta.h>
#include <frmAlbaranVenta.h>

namespace vk::prueba {
namespace {

class AlbaranVentaVista : public PruebaMotores {};

TEST_P(AlbaranVentaVista, ShowsTheNoteWithItsCurrentLineAndEscapeCloses) {
    EmpresaPrueba e(GetParam());
    const qint32 cliente = e.cliente();
    const qint32 nota = e.albaran(cliente, QDate(2026, 3, 1), 1, {{100}, {50, 1, 2}});
    const qint32 segunda = static_cast<qint32>(e.cuenta(
        QStringLiteral("SELECT Lav_Id FROM Lav WHERE Lav_IdCav = ? AND Lav_Orden = 2"), {nota}));
    frmAlbaranVenta modelo(e.bd(), nota, segunda);
    ui::VistaAlbaranVenta v(modelo);
    v.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&v));

    const auto caja = [&v](const char* nombre) {
        auto* c = v.findChild<QLineEdit*>(QString::fromLatin1(nombre));
        EXPECT_NE(c, nullptr) << nombre;
        return c ? c->text() : QString();
    };
    EXPECT_EQ(caja("txtAlbaran"), modelo.txtAlbaran);
    EXPECT_EQ(caja("txtFecha"), QStringLiteral("01/03/2026"));
    EXPECT_EQ(caja("txtSituacion"), QStringLiteral("Pendiente"));
    EXPECT_EQ(caja("txtTotal"), QStringLiteral("150,00 €"));
    EXPECT_TRUE(v.findChild<QLineEdit*>(QStringLiteral("txtFecha"))->isReadOnly());
    auto* lineas = v.findChild<QTableWidget*>(QStringLiteral("dbgLineas"));
    ASSERT_NE(lineas, nullptr);
    ASSERT_EQ(lineas->rowCount(), 2);
    EXPECT_EQ(lineas->item(0, 2)->text(), QStringLiteral("Línea 1"));
    EXPECT_EQ(lineas->item(1, 7)->text(), QStringLiteral("50,00 €"));
    EXPECT_EQ(lineas->item(1, 8)->text(), QStringLiteral("10,00"));
    EXPECT_EQ(lineas->currentRow(), 1);
    // It fits the smallest screen the desktop supports.
    EXPECT_LE(v.width(), 1366);
    EXPECT_LE(v.height(), 768);

    QTest::keyClick(&v, Qt::Key_Escape);
    EXPECT_FALSE(v.isVisible());
    EXPECT_EQ(v.result(), QDialog::Rejected);
    EXPECT_FALSE(modelo.Visible);

    EXPECT_NE(ui::BuscaVistaPantalla(QStringLiteral("frmAlbaranVenta")), nullptr);
    EXPECT_NE(ui::BuscaVistaPantalla(QStringLiteral("frmTramo")), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Motores, AlbaranVentaVista, ::testing::Values(Motor::SQLite), NombreMotor);

} // namespace
} // namespace vk::prueba
