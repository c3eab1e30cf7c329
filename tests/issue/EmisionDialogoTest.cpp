// The design and paper options dialog: what it loads, and that its choices
// belong to the run that opened it, never to the session or the table.
#include "EmpresaPrueba.h"

#include <frmEmisionFacturas.h>

namespace vk::prueba {
namespace {

class DialogoEmision : public PruebaMotores {};

TEST_P(DialogoEmision, ChoicesBelongToTheRunOnly) {
    EmpresaPrueba e(GetParam());
    e.parametro(QStringLiteral("Par_DiseñoFactura"), 13);
    e.parametro(QStringLiteral("Par_PrnEmp"), 1);
    e.parametro(QStringLiteral("Par_PrnL1"), -1); // only 1 counts as ticked
    e.parametro(QStringLiteral("Par_Flopd"), -1); // a boolean: any true
    frmEmisionFacturas d(e.factura());
    EXPECT_EQ(d.Caption, QStringLiteral("Emisión de facturas - Diseño de Factura"));
    ASSERT_EQ(d.cmbDiseno.size(), 20);
    EXPECT_EQ(d.cmbDiseno[6], QStringLiteral("Matricial"));
    EXPECT_EQ(d.cmbDiseno[19], QStringLiteral("General Izquierda"));
    EXPECT_EQ(d.cmbDisenoIndex, 13);
    EXPECT_EQ(d.lstOpcionesPapel[0].caption, QStringLiteral("Imprimir Logotipo en papel "));
    EXPECT_FALSE(d.lstOpcionesPapel[0].marcada);
    EXPECT_TRUE(d.lstOpcionesPapel[1].marcada);
    EXPECT_FALSE(d.lstOpcionesPapel[2].marcada);
    EXPECT_TRUE(d.lstOpcionesPapel[9].marcada);
    EXPECT_EQ(d.cmdVerCaption, QStringLiteral("&Ver Opciones de Salida"));
    d.cmdVer();
    EXPECT_EQ(d.cmdVerCaption, QStringLiteral("&Ocultar Opciones de Salida"));
    EXPECT_EQ(d.Height, 4350);
    d.cmdVer();
    EXPECT_EQ(d.Height, 1605);

    d.cmbDisenoIndex = 2;
    d.lstOpcionesPapel[0].marcada = true;
    d.lstOpcionesPapel[9].marcada = false;
    d.cmdEmitir();
    EXPECT_EQ(d.nDisenoEmision, 2);
    const BdParametros& par = e.bd().Parametros();
    EXPECT_EQ(d.Eleccion.Entero(par, QStringLiteral("Par_DiseñoFactura")), 2);
    EXPECT_EQ(d.Eleccion.Entero(par, QStringLiteral("par_prnlogo")), 1);
    EXPECT_EQ(d.Eleccion.Entero(par, QStringLiteral("Par_Flopd")), 0);
    // Neither the session nor the table saw them.
    EXPECT_EQ(par.Item(QStringLiteral("Par_PrnLogo")).Entero(), 0);
    EXPECT_EQ(par.Item(QStringLiteral("Par_DiseñoFactura")).Entero(), 13);
    EXPECT_EQ(e.cuenta(QStringLiteral("SELECT Par_PrnLogo FROM Parametros")), 0);

    frmEmisionFacturas otro(e.factura());
    EXPECT_EQ(otro.nDisenoEmision, -1);
    otro.cmdSalir();
    EXPECT_EQ(otro.nDisenoEmision, -1);
    EXPECT_TRUE(otro.Eleccion.Vacio());
}

VK_EN_AMBOS_MOTORES(DialogoEmision);

} // namespace
} // namespace vk::prueba
