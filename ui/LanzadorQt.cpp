#include "LanzadorQt.h"

#include "RegistroVistas.h"

#include <Interaccion.h>

namespace vk::ui {

void LanzadorQt::Muestra(const PeticionPantalla& peticion) {
    if (const VistaPantalla* vista = BuscaVistaPantalla(peticion.pantalla)) {
        (*vista)(factura_, peticion, padre_);
        return;
    }
    Ui().Mensaje(TextoNoDisponible(peticion.pantalla), Icono::Informacion,
                 mensajes::kTituloFacturacion);
}

} // namespace vk::ui
