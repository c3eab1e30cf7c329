#include "LayoutsTexto.h"

#include "MensajesSpool.h"

#include <Error.h>

namespace vk {

bool EjecutaLayoutTexto(const QString& nombre, VKFACVENTAS& f, const QVector<qint32>& vIds) {
    using Layout = bool (*)(VKFACVENTAS&, const QVector<qint32>&);
    struct Fila {
        const char* nombre;
        Layout layout;
    };
    static const Fila kLayouts[] = {
        {"msFacturaSpoolMatricial", msFacturaSpoolMatricial},
        {"msFacturaSpoolPlt01", msFacturaSpoolPlt01},
        {"msFacturaSpoolPlt02", msFacturaSpoolPlt02},
        {"msFacturaSpoolPlt03", msFacturaSpoolPlt03},
        {"msFacturaSpoolPlt04", msFacturaSpoolPlt04},
        {"msFacturaSpoolPlt05", msFacturaSpoolPlt05},
        {"msFacturaSpoolPlt06", msFacturaSpoolPlt06},
        {"msFacturaSpoolPlt07", msFacturaSpoolPlt07},
        {"msFacturaSpoolPlt08", msFacturaSpoolPlt08},
        {"msFacturaSpoolPlt10", msFacturaSpoolPlt10},
        {"msFacturaSpoolPlt11", msFacturaSpoolPlt11},
        {"msFacturaSpoolPlt12", msFacturaSpoolPlt12},
        {"msFacturaSpoolPlt13", msFacturaSpoolPlt13},
        {"msFacturaSpoolGomas", msFacturaSpoolGomas},
        {"msFacturaSpoolPlt14", msFacturaSpoolPlt14},
        {"msFacturaSpoolPlt15", msFacturaSpoolPlt15},
        {"msFacturaSpoolPlt16", msFacturaSpoolPlt16},
        {"msFacturaSpoolPlt17", msFacturaSpoolPlt17},
    };
    for (const Fila& fila : kLayouts) {
        if (nombre == QLatin1String(fila.nombre)) {
            return fila.layout(f, vIds);
        }
    }
    throw ErrorDiseno(mensajes::kLayoutDesconocido.arg(nombre));
}

} // namespace vk
