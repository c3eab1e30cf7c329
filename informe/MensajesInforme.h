// Messages of the report engine's listing sink shown to people, each defined
// once.
#pragma once

#include <QString>

namespace vk::mensajes {

inline const QString kListadoSinColumnas = QStringLiteral("El listado «%1» no tiene columnas.");
inline const QString kFilaIncompleta =
    QStringLiteral("La fila %1 del listado tiene %2 valores y el listado tiene %3 columnas.");
inline const QString kNoEsNumero =
    QStringLiteral("El valor «%1» de la columna «%2» (fila %3) no es un número.");
inline const QString kNoEsFecha =
    QStringLiteral("El valor «%1» de la columna «%2» (fila %3) no es una fecha.");
inline const QString kTotalSinNumeros =
    QStringLiteral("La columna «%1» no es de números y no se puede sumar.");
inline const QString kGraficoSinColumnas =
    QStringLiteral("El gráfico del listado pide una columna que el listado no tiene.");
inline const QString kGraficoSinNumeros =
    QStringLiteral("Los valores del gráfico han de ser una columna de números: «%1» no lo es.");
inline const QString kHojaNoValida =
    QStringLiteral("«%1» no vale como nombre de hoja de cálculo (hasta 31 caracteres, sin [ ] : "
                   "* ? / \\).");
inline const QString kNoSeEscribeHoja =
    QStringLiteral("No se puede escribir la hoja de cálculo %1.");

} // namespace vk::mensajes
