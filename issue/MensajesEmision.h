// Messages of the issue shown to people, each defined once.
#pragma once

#include <QString>

namespace vk::mensajes {

inline const QString kErrorEmitiendo = QStringLiteral("Error Emitiendo Factura");
inline const QString kAccionCancelada = QStringLiteral("Acción Cancelada");
// The works and transport families name their failures apart.
inline const QString kGeneradorInformes = QStringLiteral("Generador de Informes");
inline const QString kErrorGenerando = QStringLiteral("Error Generando Factura");
inline const QString kPlantillaPersonalNoPresente =
    QStringLiteral("Plantilla de factura personal no presente");
inline const QString kErrorAperturandoPlantilla =
    QStringLiteral("Error aperturando fichero plantilla de factura");
inline const QString kCorreoNoDisponible =
    QStringLiteral("El envío de facturas por correo electrónico todavía no está disponible en esta "
                   "instalación.");
inline const QString kImpresoraNoValida =
    QStringLiteral("No se puede imprimir en la impresora «%1».");
// Prompt of the footwear design for the volume line.
inline const QString kVolumen = QStringLiteral("Volumen: ");

} // namespace vk::mensajes
