// Messages of the issue shown to people, each defined once.
#pragma once

#include <QString>

namespace vk::mensajes {

inline const QString kErrorEmitiendo = QStringLiteral("Error Emitiendo Factura");
inline const QString kAccionCancelada = QStringLiteral("Acción Cancelada");
inline const QString kFamiliaNoDisponible =
    QStringLiteral("La emisión de facturas de %1 todavía no está disponible en esta instalación.");
inline const QString kCorreoNoDisponible =
    QStringLiteral("El envío de facturas por correo electrónico todavía no está disponible en esta "
                   "instalación.");
inline const QString kImpresoraNoValida =
    QStringLiteral("No se puede imprimir en la impresora «%1».");
inline const QString kFicheroPdf = QStringLiteral("Indique el fichero PDF de destino");

} // namespace vk::mensajes
