// The paged sink of a laid-out report: QPainter on a paged device, one page
// of items after another. The PDF writer, the printer and the preview's
// printer all go through it, so that what the viewer shows is what the
// printer and the PDF get.
#pragma once

#include "MaquetaInforme.h"

#include <QRectF>
#include <vector>

class QPagedPaintDevice;

namespace vk::informe {

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

// Paints the pages on the device, whose page is already set to the report's
// paper; the layout must have been made for this device's resolution.
// Throws ErrorDispositivo when the device cannot be painted on.
std::vector<Pintado> PintaInforme(const InformeMaquetado& informe, QPagedPaintDevice& dispositivo);

} // namespace vk::informe
