// The design and paper options dialog: what it loads, and that what it
// writes lives in memory until the parameters are read again.
#include "EmpresaPrueba.h"

#include <frmEmisionFacturas.h>

namespace vk::prueba {
namespace {

class DialogoEmision : public PruebaMotores {};

TEST_P(DialogoEmision, OptionsLiveInMemoryUntilReloaded) {
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
    EXPECT_EQ(nDisenoEmision, 2);
    BdParametros& par = e.bd().Parametros();
    EXPECT_EQ(par.Item(QStringLiteral("Par_PrnLogo")).Entero(), 1);
    EXPECT_FALSE(par.Item(QStringLiteral("Par_Flopd")).Activo());
    // The table never saw them.
    EXPECT_EQ(e.cuenta(QStringLiteral("SELECT Par_PrnLogo FROM Parametros")), 0);
    e.bd().RecargaParametros(QStringLiteral("Select * from parametros"));
    EXPECT_EQ(e.bd().Parametros().Item(QStringLiteral("Par_PrnLogo")).Entero(), 0);

    frmEmisionFacturas otro(e.factura());
    otro.cmdSalir();
    EXPECT_EQ(nDisenoEmision, -1);
}

VK_EN_AMBOS_MOTORES(DialogoEmision);

} // namespace
} // namespace vk::prueba
