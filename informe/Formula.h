// The expressions of formula fields. A formula's text is an expression of the
// report engine, so a text value travels as a quoted literal ('O''Brien').
// The language is the small subset the designs and the issue code use:
//
//   'text' or "text"     literal, the quote doubled inside ('' is empty)
//   True, False          flags
//   12, 3.5              numbers
//   {Tabla.Columna}      a column of the current row (the table is ignored)
//   {@nombre}            another formula
//   Columna, nombre      a bare name: a column when the row has it, else a formula
//   a + b                concatenation (text) or sum (numbers)
//   Trozo(t, 's', n)     the n-th piece (1-based) of t split on s, '' past the end
//   Formato(v, 'mask')   v through the legacy Format masks (Spanish separators)
//   Descuentos(a, b...)  chained discounts as "10+5" ("12,5" alone, '' when all are 0)
//
// An empty text evaluates to the empty text.
#pragma once

#include <QString>
#include <QVariant>

namespace vk::informe {

// Where a formula finds the values it names.
class FuenteValores {
public:
    virtual ~FuenteValores() = default;
    // The value of a column of the current row; false when there is no such column.
    virtual bool Campo(const QString& nombre, QVariant& valor) const = 0;
    // The text of a formula field; false when there is no such formula.
    virtual bool Formula(const QString& nombre, QString& texto) const = 0;
};

// Evaluates the text. Throws ErrorDiseno with a Spanish message on a syntax error,
// an unknown name, or formulas that refer to each other in a loop.
QVariant EvaluaFormula(const QString& texto, const FuenteValores& fuente);

// The quoting of the issue code: an apostrophe, the value with every
// apostrophe doubled, an apostrophe.
QString Entrecomilla(const QString& valor);

// How a design reads a value as a condition: null, false, 0, empty or the
// text "False" are false.
bool EsVerdadero(const QVariant& valor);

} // namespace vk::informe
