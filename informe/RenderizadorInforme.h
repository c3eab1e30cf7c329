// A report on any paged device in one step: laid out (MaquetaInforme.h) and
// painted by the paged sink (PintaPaginas.h). The PDF writer, the printer and
// the preview's printer all come here.
#pragma once

#include "MaquetaInforme.h"
#include "PintaPaginas.h"
#include "Reporte.h"

class QPagedPaintDevice;

namespace vk::informe {

struct ResultadoRender {
    int paginas = 0;
    int anchoPapel = 0;                     // twips
    std::vector<SeccionColocada> colocadas; // in page order
    std::vector<Pintado> pintados;
};

// Reads the records when needed, sets the device's page to the report's paper
// (no margins: the report places everything), and paints every page. Throws
// ErrorDiseno on a formula error, ErrorDispositivo on a device that cannot be
// painted on.
ResultadoRender RenderizaInforme(Reporte& reporte, QPagedPaintDevice& dispositivo);

} // namespace vk::informe
