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

// The stationery file of a text layout.
inline const QString kSinMedida = QStringLiteral("El diseño de texto no tiene la medida «%1».");
inline const QString kMedidasIlegibles =
    QStringLiteral("No se puede leer el fichero de medidas %1.");
inline const QString kMedidasNoJson =
    QStringLiteral("El fichero de medidas %1 no es un objeto JSON válido: %2.");
inline const QString kMedidasSeEsperabaObjeto = QStringLiteral("se esperaba {\"nombre\": número}");
inline const QString kMedidaAjena =
    QStringLiteral("El fichero de medidas %1 nombra «%2», que este diseño no "
                   "tiene. Las medidas de este diseño son: %3.");
inline const QString kMedidaNoEntera =
    QStringLiteral("En el fichero de medidas %1, «%2» debe ser un número "
                   "entero entre 0 y %3.");

} // namespace vk::mensajes
