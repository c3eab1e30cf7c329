// The demo company's pending delivery notes invoiced as the batch screen
// invoices them on the demo's last day, without issuing.
#pragma once

#include <InteraccionGuion.h>
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

} // namespace vk::prueba
