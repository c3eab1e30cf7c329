// Messages of the report engine shown to people, each defined once.
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

// Designs, their objects and formulas.
inline const QString kSeccionSinObjeto = QStringLiteral("La sección %1 no tiene el objeto %2.");
inline const QString kSinSubinforme = QStringLiteral("El informe %1 no tiene el subinforme %2.");
inline const QString kSinFormula = QStringLiteral("El informe no tiene la fórmula %1.");
inline const QString kSinSeccion = QStringLiteral("El informe no tiene la sección %1.");
inline const QString kSinTabla = QStringLiteral("El informe no tiene la tabla %1.");
inline const QString kInformeSinObjeto = QStringLiteral("El informe %1 no tiene el objeto %2.");
inline const QString kSinOrigenDatos = QStringLiteral("El informe %1 no tiene origen de datos.");
inline const QString kGrupoFueraDeDatos =
    QStringLiteral("El informe %1 agrupa por %2, que no está en los datos.");
inline const QString kCampoFueraDeDatos =
    QStringLiteral("El campo %1 del objeto %2 no está en los datos.");
inline const QString kQrFueraDeDatos =
    QStringLiteral("El código QR del informe %1 lee %2, que no está en los datos.");
inline const QString kQrNoCodifica = QStringLiteral("El texto «%1» no cabe en un código QR.");
inline const QString kCampoEspecialDesconocido = QStringLiteral("Campo especial desconocido: %1.");
inline const QString kEnlaceFueraDeDatos =
    QStringLiteral("El enlace %1 del subinforme %2 no está en los datos.");
inline const QString kDisenoIlegible = QStringLiteral("No se puede leer el diseño %1.");
inline const QString kDisenoNoValido =
    QStringLiteral("El diseño %1 no es válido: %2 (posición %3).");
inline const QString kDisenosEnCiclo =
    QStringLiteral("Los diseños se extienden entre sí sin fin: %1.");
inline const QString kDisenoNoExiste = QStringLiteral("No existe el diseño de informe %1.");
inline const QString kColorNoValido = QStringLiteral("Color no válido en el diseño: %1.");
inline const QString kTipoDesconocido = QStringLiteral("Tipo de %1 desconocido en el diseño: %2.");
inline const QString kSeccionSinGrupo =
    QStringLiteral("La sección %1 es de un grupo que no existe: %2.");
inline const QString kFicheroDisenoNoExiste = QStringLiteral("No existe el fichero %1.");
inline const QString kNoSeDibuja =
    QStringLiteral("No se puede dibujar el informe %1 en el destino.");
inline const QString kErrorFormula = QStringLiteral("Error en la fórmula «%1»: %2.");
// What is wrong in a formula, for kErrorFormula.
inline const QString kFormulaSobra = QStringLiteral("sobra «%1»");
inline const QString kFormulaFaltaValor = QStringLiteral("falta un valor");
inline const QString kFormulaFaltaLlave = QStringLiteral("falta «}»");
inline const QString kFormulaSinCampo = QStringLiteral("no existe el campo «%1»");
inline const QString kFormulaFaltaParentesis = QStringLiteral("falta «)»");
inline const QString kFormulaNumeroMal = QStringLiteral("número mal escrito");
inline const QString kFormulaInesperado = QStringLiteral("no se esperaba «%1»");
inline const QString kFormulaTextoAbierto = QStringLiteral("falta cerrar el texto");
inline const QString kFormulaSinCampoNiFormula =
    QStringLiteral("no existe el campo o fórmula «%1»");
inline const QString kFormulaEnCiclo = QStringLiteral("las fórmulas se llaman entre sí sin fin");
inline const QString kFormulaFuncionDesconocida = QStringLiteral("función desconocida «%1»");

} // namespace vk::mensajes
