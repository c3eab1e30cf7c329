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

// The delivery notes.
inline const QString kTituloAlbaranesPendientes =
    QStringLiteral("Albaranes pendientes del cliente");
inline const QString kAlbaranInexistente =
    QStringLiteral("El albarán que se quiere mostrar no existe (id %1).");
inline const QString kAlbaranPendiente = QStringLiteral("Pendiente");
inline const QString kAlbaranFacturadoEn = QStringLiteral("Facturado en %1");
inline const QString kAlbaranFacturado = QStringLiteral("Facturado");

// The transport legs.
inline const QString kTituloTramosLibres = QStringLiteral("Tramos pendientes de facturar");
inline const QString kTituloViajesCliente = QStringLiteral("Tramos facturados al cliente");
inline const QString kTituloTransporte = QStringLiteral("Transportes");
inline const QString kImporteTramo = QStringLiteral("Importe del tramo");
inline const QString kImporteNoNumerico =
    QStringLiteral("«%1» no es un importe válido: el tramo no se ha facturado.");
inline const QString kDescripcionTramo = QStringLiteral("Porte %1 - %2 %3");
inline const QString kTramoYaFacturado =
    QStringLiteral("El tramo ya está facturado en otra factura.");
inline const QString kFacturaSinAlbaran =
    QStringLiteral("La factura no tiene ningún albarán en el que añadir la línea del tramo.");
inline const QString kAlbaranSinLineas = QStringLiteral(
    "El primer albarán de la factura no tiene líneas de las que tomar el tipo de IVA del tramo.");
inline const QString kTramoInexistente =
    QStringLiteral("El tramo que se quiere mostrar no existe (id %1).");

} // namespace vk::suite::mensajes
