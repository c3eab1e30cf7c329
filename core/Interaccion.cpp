#include "Interaccion.h"

#include "Error.h"
#include "MensajesCore.h"

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
        throw Error(mensajes::kSinInteraccion);
    }
    return *g_interaccion;
}

} // namespace vk
