// The demo company's pending delivery notes invoiced as the batch screen
// invoices them on the demo's last day, without issuing; and a fixture of the
// demo company set to print as its invoices are printed.
#pragma once

#include "EmpresaPrueba.h"

#include <EmpresaDemo.h>
#include <InteraccionGuion.h>
#include <LanzadorPantallas.h>
#include <QTemporaryDir>
#include <RegistroSuite.h>
#include <VKFACVENTAS.h>
#include <frmFacturasVenta.h>
#include <frmIniFav.h>
#include <vector>

namespace vk::prueba {

inline std::vector<qint32> FacturaPendientesDemo(VKFACVENTAS& f, InteraccionGuion& ui) {
    frmFacturasVenta pantalla(f);
    pantalla.Text1[6] = QStringLiteral("20/11/2026");
    pantalla.Check4 = true;
    pantalla.Check4_Click();
    pantalla.optSalida = 0;
    pantalla.Text1[11] = QStringLiteral("0");
    // A new series asks for its first number: the default one.
    ui.dialogos.push_back(
        [](DialogoModelo& d) { return dynamic_cast<frmIniFav&>(d).cmdInforme(); });
    pantalla.cmdBuscar();
    pantalla.cmdFacturar();
    return pantalla.facturasGeneradas;
}

// The demo company with its pending notes invoiced, and a scripted port that
// answers yes: what the screens that show invoices start from.
class DemoFacturadaPrueba : public PruebaMotores {
protected:
    void SetUp() override {
        suite::RegistraComponentesSuite();
        base = std::make_unique<BasePrueba>(GetParam());
        bd = base->CreaEmpresa();
        CreaDatosDemo(*bd);
        factura = std::make_unique<VKFACVENTAS>();
        factura->setMyBd(*bd);
        usa = std::make_unique<UsaInteraccion>(guion);
        guion.ResponderSiSiempre(true);
        facturas = FacturaPendientesDemo(*factura, guion);
        guion.vistos.clear();
    }
    void TearDown() override {
        usa.reset();
        EstableceLanzador(nullptr);
    }

    std::unique_ptr<BasePrueba> base;
    std::unique_ptr<BdSesion> bd;
    std::unique_ptr<VKFACVENTAS> factura;
    InteraccionGuion guion;
    std::unique_ptr<UsaInteraccion> usa;
    std::vector<qint32> facturas;
};

// The demo company in its own data folder, with its logo, lots and packages
// printed, and the interaction port answering yes.
class EmpresaDemoPrueba : public PruebaMotores {
protected:
    void SetUp() override {
        qputenv("VKFACTUVEN_DATOS", datos.path().toUtf8());
        suite::RegistraComponentesSuite();
        s = base.CreaEmpresa();
        CreaDatosDemo(*s);
        s->cn().Execute(QStringLiteral("UPDATE Parametros SET Par_PrnEmp = 1, Par_PrintFco = 1, "
                                       "Par_Lotes = 1, par_bultos = 1, Par_prnlogo = 1"));
        s->RecargaParametros();
        f.setMyBd(*s);
        ui.ResponderSiSiempre(true);
    }
    void TearDown() override { qunsetenv("VKFACTUVEN_DATOS"); }

    QTemporaryDir datos;
    BasePrueba base{GetParam()};
    std::unique_ptr<BdSesion> s;
    VKFACVENTAS f;
    InteraccionGuion ui;
    UsaInteraccion puerto{ui};
};

} // namespace vk::prueba
