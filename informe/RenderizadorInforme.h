// Lays a report's rows out in pages and paints them with QPainter on any
// paged device: a PDF writer, a printer, or the preview's printer. One code
// path, so that what the viewer shows is what the printer and the PDF get.
#pragma once

#include "Reporte.h"

#include <QRectF>

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

// What was painted where, in painting order: the texts as they really
// stand (their own extent, which may pass their object's frame) and the
// filled boxes and pictures, in twips from the paper's top left corner. Lets
// a check find a figure drawn over another, over a picture, or hidden under a
// box painted after it.
struct Pintado {
    enum class Clase { Texto, Relleno, Imagen };
    Clase clase = Clase::Texto;
    QString objeto; // name of the design's object
    QString origen; // the column or formula it shows
    QString texto;
    int pagina = 0;
    QRectF rect;
};

struct ResultadoRender {
    int paginas = 0;
    int anchoPapel = 0;                     // twips
    std::vector<SeccionColocada> colocadas; // in page order
    std::vector<Pintado> pintados;
};

// Reads the records when needed, sets the device's page to the report's paper
// (no margins: the report places everything), and paints every page. Throws
// ErrorBd on a formula error or a device that cannot be painted on.
ResultadoRender RenderizaInforme(Reporte& reporte, QPagedPaintDevice& dispositivo);

} // namespace vk::informe
