// Messages of the invoicing records shown to people, each defined once.
#pragma once

#include <QString>

namespace vk::mensajes {

inline const QString kSinNifEmisor = QStringLiteral(
    "La empresa no tiene NIF en sus parámetros: sin él no se pueden registrar sus facturas "
    "(VERI*FACTU).");
inline const QString kRelojAtrasado = QStringLiteral(
    "La fecha y hora de este equipo (%1) es anterior en más de un minuto a la del último "
    "registro de facturación (%2). Corrija el reloj antes de facturar.");
inline const QString kCadenaRota = QStringLiteral(
    "El último registro de facturación (%1, factura %2) no está bien encadenado: no se "
    "puede añadir otro. Ejecute «vkfactuven verifactu verificar».");
inline const QString kCadenaCorrecta =
    QStringLiteral("Cadena de registros de facturación correcta: %1 registros.");
inline const QString kCadenaVacia = QStringLiteral("No hay registros de facturación.");
inline const QString kRegistroAlterado =
    QStringLiteral("Registro %1 (%2 de la factura %3): su huella no corresponde a sus datos.");
inline const QString kRegistroMalEncadenado =
    QStringLiteral("Registro %1 (%2 de la factura %3): no encadena con el registro anterior.");
inline const QString kXmlAlterado =
    QStringLiteral("Registro %1 (%2 de la factura %3): su XML no corresponde a sus datos.");

inline const QString kNoRechazado = QStringLiteral(
    "El registro en vigor de la factura %1 no es un alta rechazada por la AEAT: no hay nada que "
    "subsanar.");
inline const QString kSubsanacionOtraFactura = QStringLiteral(
    "La factura ya no tiene la serie, número o fecha de su registro rechazado (%1 de %2): "
    "guárdela para que se registre como factura nueva.");

} // namespace vk::mensajes
