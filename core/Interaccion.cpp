#include "Interaccion.h"

#include "ErrorBd.h"

namespace vk {

namespace {
Interaccion* g_interaccion = nullptr;
} // namespace

Interaccion* InteraccionActual() {
    return g_interaccion;
}

void EstableceInteraccion(Interaccion* interaccion) {
    g_interaccion = interaccion;
}

Interaccion& Ui() {
    if (!g_interaccion) {
        throw ErrorBd(QStringLiteral("Esta aplicación no ha registrado ninguna forma de "
                                     "comunicarse con el usuario."));
    }
    return *g_interaccion;
}

} // namespace vk
