// Messages of the issue shown to people, each defined once.
#pragma once

#include <QString>

namespace vk::mensajes {

// The legends of the tax QR, above and below the code, as the law words them.
inline const QString kQrEncima = QStringLiteral("QR tributario:");
inline const QString kQrDebajo = QStringLiteral("VERI*FACTU");
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

inline const QString kCarpetaDisenosIlegible =
    QStringLiteral("No se puede leer la carpeta de diseños %1.");
inline const QString kPdfNoEscrito = QStringLiteral("No se ha podido escribir el fichero %1.");
// The legacy texts of a file that the desktop could not open, by cause.
inline const QString kRutaNoEncontrada = QStringLiteral("Path not found");
inline const QString kFicheroNoEncontrado = QStringLiteral("File not found");
inline const QString kAccesoDenegado = QStringLiteral("Path/file access error");
inline const QString kSinAplicacionAsociada =
    QStringLiteral("No application is associated with this file type.");

} // namespace vk::mensajes
