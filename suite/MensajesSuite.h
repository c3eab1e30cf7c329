// Messages of the suite's built-in classes shown to people, each defined once.
#pragma once

#include <QString>

namespace vk::suite::mensajes {

// The treasury.
inline const QString kTesoreriaSinSesion = QStringLiteral(
    "La tesorería no tiene sesión de base de datos: asigne MyBd antes de calcular los recibos.");
inline const QString kTesoreriaSinFactura =
    QStringLiteral("No se pueden calcular los recibos: no se ha indicado la factura.");
inline const QString kTesoreriaSinFecha =
    QStringLiteral("No se pueden calcular los recibos de la factura %1: no tiene fecha.");
inline const QString kTesoreriaErrorRecibo =
    QStringLiteral("No se ha podido grabar el recibo de la factura %1: %2");

// The spool.
inline const QString kSpoolColaRechaza =
    QStringLiteral("La cola de impresión «%1» no ha aceptado el trabajo: %2");
inline const QString kSpoolFichero = QStringLiteral("No se ha podido escribir en el fichero %1.");

} // namespace vk::suite::mensajes
