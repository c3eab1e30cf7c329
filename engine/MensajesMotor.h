// Messages of the invoice engine shown to people, each defined once.
#pragma once

#include <QString>

namespace vk::mensajes {

inline const QString kNumeroInicialNoValido =
    QStringLiteral("Escriba un número de factura entero mayor que 0.");
inline const QString kConexionPerdida =
    QStringLiteral("La conexión con la Base de Datos se perdió");
inline const QString kTituloFecha = QStringLiteral("Verificación de la fecha factura");
inline const QString kFechaInferior =
    QStringLiteral("La Fecha de Factura no puede ser inferior a ");
inline const QString kFechaNoValida = QStringLiteral("La fecha «%1» no es una fecha válida.");
inline const QString kUltimaFechaSerie =
    QStringLiteral("La Fecha de la última factura de la serie %1 es %2\nDese cambiar la factura "
                   "a este fecha");
inline const QString kCambioSerieImposible =
    QStringLiteral("No es posible realizar el cambio de serie con la fecha de factura");
inline const QString kFechaPosterior = QStringLiteral("La fecha no puede ser posterior a %1");
inline const QString kFechaAnterior =
    QStringLiteral("La fecha no puede ser anterior a %1. Cambio de fecha cancelado");
inline const QString kLineaSinIva = QStringLiteral(
    "La factura %1 tiene líneas de albarán sin un tipo de IVA válido (Lav_Tiva): corrija los "
    "albaranes antes de calcularla.");
inline const QString kSinTipoEnVigor =
    QStringLiteral("No hay ningún tipo de IVA del régimen %1, clase %2, en vigor el %3.");

} // namespace vk::mensajes
