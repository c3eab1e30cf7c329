// Messages of the desktop views shown to people, each defined once.
#pragma once

#include <QString>

namespace vk::mensajes {

// The title of a message box that names no other.
inline const QString kTituloFacturacion = QStringLiteral("Facturación de ventas");
inline const QString kPantallaNoDisponible =
    QStringLiteral("Esta pantalla todavía no está disponible: %1");
inline const QString kDocumentoGuardado = QStringLiteral("Se ha guardado el documento en %1");

} // namespace vk::mensajes
