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

// The maintenance of one receipt.
inline const QString kTituloManteRecibos = QStringLiteral("Mantenimiento de recibos");
inline const QString kReciboNoExiste = QStringLiteral("El recibo %1 no existe.");
inline const QString kReciboVencimientoAnterior =
    QStringLiteral("El vencimiento no puede ser anterior a la fecha de la factura (%1).");
inline const QString kReciboImporteNoNumero =
    QStringLiteral("El importe «%1» no es un número válido.");
inline const QString kReciboImporteNoPositivo =
    QStringLiteral("El importe del recibo debe ser mayor que cero.");
inline const QString kReciboImporteExcesivo = QStringLiteral(
    "El importe del recibo no puede superar %1: el líquido de la factura menos sus otros recibos.");
inline const QString kReciboNoPendiente =
    QStringLiteral("El recibo ya no está pendiente: otro usuario lo ha cambiado.");
inline const QString kReciboSumaDistinta = QStringLiteral(
    "Los recibos de la factura %1 sumarían %2 y la factura pide %3: otro usuario los ha "
    "cambiado. No se ha grabado nada.");
inline const QString kReciboSinSituacion = QStringLiteral("Elija la situación del recibo.");

// The spool.
inline const QString kSpoolColaRechaza =
    QStringLiteral("La cola de impresión «%1» no ha aceptado el trabajo: %2");
inline const QString kSpoolFichero = QStringLiteral("No se ha podido escribir en el fichero %1.");

} // namespace vk::suite::mensajes
