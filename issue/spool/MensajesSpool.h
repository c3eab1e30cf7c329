// Messages of the text layouts shown to people, each defined once.
#pragma once

#include <QString>

namespace vk::mensajes {

inline const QString kErrorAccesoDispositivo =
    QStringLiteral("Error de acceso al dispositivo de impresión");
inline const QString kDecimalesCantidad = QStringLiteral(
    "Numero de decimales en cantidad es superior al máximo permitido para este diseño");
inline const QString kSuperadoCaracteres =
    QStringLiteral("Superado el número máximos de caractéres por linea");
inline const QString kLayoutDesconocido =
    QStringLiteral("No existe el diseño de impresión en texto «%1».");
inline const QString kTituloEmisionFacturas = QStringLiteral("Emisión de facturas");

} // namespace vk::mensajes
