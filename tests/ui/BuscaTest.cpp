// The lookup list: filtering as one types, Enter and Escape.
#include <DialogoBusca.h>
#include <QLineEdit>
#include <QTableWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace vk::ui {
namespace {

PeticionBusca clientes() {
    PeticionBusca p;
    p.titulo = QStringLiteral("Buscar Clientes");
    p.columna = QStringLiteral("RSNOM");
    p.cabeceraCodigo = QStringLiteral("Nombre");
    p.cabeceraNombre = QStringLiteral("Codigo");
    p.anchoCodigo = 1300;
    p.anchoNombre = 6000;
    p.columnas = {QStringLiteral("Cli_ID"), QStringLiteral("Cli_COD"), QStringLiteral("RSNOM")};
    p.filas = {{7, 3, QStringLiteral("Zapatería Ruzafa")},
               {8, 1, QStringLiteral("Andrés Vidal")},
               {9, 2, QStringLiteral("Carmen Roca")}};
    return p;
}

TEST(DialogoBusca, ListsByNameInTwipWidthsAndEnterReturnsTheRowOfTheRequest) {
    const PeticionBusca p = clientes();
    DialogoBusca d(p);
    QTableWidget* t = d.lista();
    ASSERT_EQ(t->rowCount(), 3);
    // Sorted on the searched column, not in the order of the request.
    EXPECT_EQ(t->item(0, 1)->text(), QStringLiteral("Andrés Vidal"));
    EXPECT_EQ(t->item(0, 0)->text(), QStringLiteral("1"));
    EXPECT_EQ(t->columnWidth(0), 1300 / 15);
    EXPECT_EQ(d.windowTitle(), QStringLiteral("Buscar Clientes"));

    QTest::keyClicks(d.cajaBusca(), QStringLiteral("roca"));
    EXPECT_TRUE(t->isRowHidden(0));
    EXPECT_FALSE(t->isRowHidden(1));
    EXPECT_TRUE(t->isRowHidden(2));
    QTest::keyClick(d.cajaBusca(), Qt::Key_Return);
    EXPECT_EQ(d.result(), QDialog::Accepted);
    ASSERT_TRUE(d.Elegida().has_value());
    EXPECT_EQ(*d.Elegida(), 2); // index into the request's rows
}

TEST(DialogoBusca, ArrowsMoveFromTheBoxAndEscapeChoosesNothing) {
    const PeticionBusca p = clientes();
    DialogoBusca d(p);
    QTest::keyClick(d.cajaBusca(), Qt::Key_Down);
    EXPECT_EQ(d.lista()->currentRow(), 1);
    QTest::keyClick(d.cajaBusca(), Qt::Key_Escape);
    EXPECT_EQ(d.result(), QDialog::Rejected);
    EXPECT_FALSE(d.Elegida().has_value());

    // Nothing matches: Enter picks nothing and the dialog stays.
    DialogoBusca vacio(p);
    QTest::keyClicks(vacio.cajaBusca(), QStringLiteral("xyz"));
    QTest::keyClick(vacio.cajaBusca(), Qt::Key_Enter);
    EXPECT_FALSE(vacio.Elegida().has_value());
    EXPECT_NE(vacio.result(), QDialog::Accepted);
}

TEST(DialogoBusca, FurtherColumnsShowAndAnUnsortedRequestKeepsItsOrder) {
    PeticionBusca p;
    p.titulo = QStringLiteral("Albaranes pendientes del cliente");
    p.columna = QStringLiteral("Serie");
    p.ordenar = false;
    p.cabeceraCodigo = QStringLiteral("Serie");
    p.cabeceraNombre = QStringLiteral("Número");
    p.columnas = {QStringLiteral("Cav_Id"), QStringLiteral("Serie"), QStringLiteral("Número"),
                  QStringLiteral("Fecha")};
    p.filas = {{5, QStringLiteral("B"), 9, QStringLiteral("20/03/2026")},
               {4, QStringLiteral("A"), 10, QStringLiteral("01/03/2026")}};
    DialogoBusca d(p);
    QTableWidget* t = d.lista();
    ASSERT_EQ(t->columnCount(), 3);
    EXPECT_EQ(t->horizontalHeaderItem(2)->text(), QStringLiteral("Fecha"));
    EXPECT_EQ(t->item(0, 0)->text(), QStringLiteral("B")); // as given, newest first
    EXPECT_EQ(t->item(0, 2)->text(), QStringLiteral("20/03/2026"));
    QTest::keyClicks(d.cajaBusca(), QStringLiteral("A"));
    QTest::keyClick(d.cajaBusca(), Qt::Key_Return);
    ASSERT_TRUE(d.Elegida().has_value());
    EXPECT_EQ(*d.Elegida(), 1);
}

} // namespace
} // namespace vk::ui
