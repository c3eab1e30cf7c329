// Lays a report's rows out in pages and paints them with QPainter on any
// paged device: a PDF writer, a printer, or the preview's printer. One code
// path, so that what the viewer shows is what the printer and the PDF get.
#pragma once

#include "Reporte.h"

class QPagedPaintDevice;

namespace vk::informe {

// Where each section instance went: for tests and the preview's page count.
struct SeccionColocada {
    QString seccion;
    int fila = -1;  // row of the saved data it was printed with
    int pagina = 0; // 0-based
    int top = 0;    // twips from the paper's top edge
    int alto = 0;
};

struct ResultadoRender {
    int paginas = 0;
    std::vector<SeccionColocada> colocadas; // in page order
};

// Reads the records when needed, sets the device's page to the report's paper
// (no margins: the report places everything), and paints every page. Throws
// ErrorBd on a formula error or a device that cannot be painted on.
ResultadoRender RenderizaInforme(Reporte& reporte, QPagedPaintDevice& dispositivo);

} // namespace vk::informe
