#include "LanzadorQt.h"

#include "VistaFacturasVenta.h"

#include <ErrorBd.h>
#include <Interaccion.h>
#include <frmFacturasVenta.h>

namespace vk::ui {

void LanzadorQt::Muestra(const PeticionPantalla& peticion) {
    if (peticion.pantalla == QLatin1String("frmFacturasVenta")) {
        // The model's load reads the database: a failure there is told, and
        // the screen does not open.
        std::unique_ptr<frmFacturasVenta> modelo;
        try {
            modelo = std::make_unique<frmFacturasVenta>(factura_);
        } catch (const ErrorBd& e) {
            Ui().Mensaje(e.Mensaje(), Icono::Error, QStringLiteral("Facturación de ventas"));
            return;
        }
        VistaFacturasVenta vista(*modelo, padre_);
        vista.exec();
        return;
    }
    Ui().Mensaje(QStringLiteral("Esta pantalla todavía no está disponible: %1")
                     .arg(peticion.pantalla),
                 Icono::Informacion, QStringLiteral("Facturación de ventas"));
}

} // namespace vk::ui
