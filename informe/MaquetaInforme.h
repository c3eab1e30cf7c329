// The layout of a report: its rows, groups and sections evaluated and broken
// into pages of positioned items (texts, fills, frames, boxes, lines and
// pictures), with nothing painted yet. A sink draws the items: the paged
// QPainter of PintaPaginas.h for the viewer, the printer and PDF. Measuring a
// text needs the font metrics of the target's resolution, so the layout is
// made for a device; the same report and device always give the same items.
#pragma once

#include "Reporte.h"

#include <QFont>
#include <QImage>
#include <QRectF>
#include <vector>

class QPaintDevice;

namespace vk::informe {

// Where each section instance went: for tests and the preview's page count.
struct SeccionColocada {
    QString seccion;
    int fila = -1;  // row of the saved data it was printed with
    int pagina = 0; // 0-based
    int top = 0;    // twips from the paper's top edge
    int alto = 0;
};

// One thing to draw. Rects are twips from the paper's top left corner; a sink
// scales them to its device as a whole, so that every sink places an item
// the same way.
struct ElementoInforme {
    enum class Clase {
        Fondo,   // the background of a section: a fill that belongs to no object
        Relleno, // the background of a text object
        Marco,   // the frame of a text object: an outline
        Caja,    // a box object: outline and/or fill, corners maybe rounded
        Linea,   // from the rect's top left, by its width and height
        Imagen,  // a picture fitted into the rect, keeping its proportions
        Texto,
        // A QR code: `modulos` (row by row, `ladoModulos` a side, true for
        // dark) filling the rect; its quiet zone is kept free around it.
        CodigoQr,
    };
    Clase clase = Clase::Texto;
    QRectF rect;
    QString objeto; // name of the design's object (empty for a Fondo)
    QString origen; // the column, formula or expression it shows
    // Colours are 0xRRGGBB or kSinColor.
    int color = 0x000000; // the text, the line, the outline
    int relleno = kSinColor;
    int grosor = 10;  // twips of a line or outline; a device pixel at least
    int redondeo = 0; // twips of a box's corner radius
    // Texto: the text as it shows (already cut with an ellipsis when it may
    // not grow), its font, Qt's alignment and wrapping flags, and the inner
    // margin of the rect at each side.
    QString texto;
    Fuente fuente;
    int banderas = 0;
    double margen = 0;
    bool numero = false; // the value was a figure (for sinks that type cells)
    QImage imagen;       // Imagen: the picture as read, not yet scaled
    std::vector<bool> modulos;
    int ladoModulos = 0;
};

// The band of a report's QR code (Reporte::Qr), in twips. The symbol is 32 mm
// a side (the modules only; the law asks 30 to 40 mm) with a quiet zone of 3 mm
// or four modules, whichever is more, on every side: 38 mm with it, so the
// code is within the range whether or not its margin is counted. The legends
// stand above and below the quiet zone, and a gap separates the band from
// the page's first section.
namespace bandaqr {
constexpr int kLado = 1814;      // 32 mm
constexpr int kZonaMinima = 170; // 3 mm
constexpr int kSeparacion = 113; // 2 mm
// The quiet zone of a code of that many modules a side.
int ZonaSilencio(int ladoModulos);
// The height of a legend line in the code's font.
int AltoLeyenda(const Fuente& f);
// The whole band: legend, quiet zone, symbol, quiet zone, legend, gap.
int Alto(const Fuente& f, int ladoModulos);
} // namespace bandaqr

struct PaginaInforme {
    std::vector<ElementoInforme> elementos; // in painting order
};

struct InformeMaquetado {
    QString nombre;                    // the report's name, for messages
    int anchoPapel = 0, altoPapel = 0; // twips
    std::vector<PaginaInforme> paginas;
    std::vector<SeccionColocada> colocadas; // in page order
};

// Reads the records when needed and lays the report out for a device of
// that resolution (its logical dpi and fonts). Throws ErrorDiseno on a formula
// error or a column, link or special field that is not there.
InformeMaquetado MaquetaInforme(Reporte& reporte, const QPaintDevice& medidas);

// The QFont of a design's font, as measured and painted.
QFont FuenteQt(const Fuente& f);

// A rect in twips on a device of `k` device units per twip. Layout and sinks
// scale through this one function, so that they agree to the last bit.
QRectF EnDispositivo(const QRectF& twips, double k);

// The box a Texto element's text is laid in on that device: its rect less
// the inner margin at each side.
QRectF CajaTexto(const ElementoInforme& e, double k);

// Device units per twip of a device.
double UnidadesPorTwip(const QPaintDevice& dispositivo);

} // namespace vk::informe
