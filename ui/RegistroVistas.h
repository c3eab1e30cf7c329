// Which view shows a model: a dialog model by its type, a screen by its name.
// A new screen or dialog adds one line to the tables of RegistroVistas.cpp;
// the port and the launcher only look up.
#pragma once

#include "MensajesUi.h"

#include <LanzadorPantallas.h>
#include <QString>
#include <functional>

class QWidget;

namespace vk {
class DialogoModelo;
class VKFACVENTAS;
} // namespace vk

namespace vk::ui {

// Shows the dialog model modally; true when the user accepted it.
using VistaDialogo = std::function<bool(DialogoModelo& modelo, QWidget* padre)>;
// Builds the screen's model on the facade and shows its view modally.
using VistaPantalla =
    std::function<void(VKFACVENTAS& factura, const PeticionPantalla& peticion, QWidget* padre)>;

// What a screen or dialog without a view answers.
inline QString TextoNoDisponible(const QString& nombre) {
    return mensajes::kPantallaNoDisponible.arg(nombre);
}

// Null when no view is registered for it.
const VistaDialogo* BuscaVistaDialogo(const DialogoModelo& modelo);
const VistaPantalla* BuscaVistaPantalla(const QString& pantalla);

} // namespace vk::ui
