#include "LanzadorPantallas.h"

namespace vk {

namespace {
LanzadorPantallas* g_lanzador = nullptr;
} // namespace

LanzadorPantallas* LanzadorActual() {
    return g_lanzador;
}

void EstableceLanzador(LanzadorPantallas* lanzador) {
    g_lanzador = lanzador;
}

} // namespace vk
