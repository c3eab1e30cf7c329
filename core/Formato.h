// The legacy Format(value, mask) function for the masks the system uses, with
// the Spanish separators: thousands ".", decimals "," (1.234,56). Every amount,
// date and fixed-width field the system prints or exports goes through here.
#pragma once

#include <QString>
#include <QVariant>
#include <optional>

namespace vk {

// Formats valor with mascara. The kind of mask decides how:
//
// - Text masks (with "@" or "&"): each "@" holds one character, blank when
//   unused; "&" the same but nothing when unused. Filling starts from the right,
//   so short text is right-aligned; a "!" anywhere fills from the left instead.
//   Placeholders only pad, they never cut: text longer than the mask keeps its
//   extra characters and widens the result. "<" and ">" force lower/upper case.
// - Numeric masks (with "0" or "#"): "0" is a required digit, "#" an optional
//   one, a "," before the decimal point turns on grouping in threes, the first
//   "." is the decimal point and is always shown (so "0." and "0.##" give "5,"
//   for 5), "%" multiplies by 100. The value is rounded half away from zero to
//   the mask's decimals, like Redondea. The integer digits that do not fit go to
//   the leftmost placeholder, never lost. A minus sign goes in front of the whole
//   result, and only when the rounded value is not zero.
// - Date masks (d, m, y in either case): d/dd day, ddd/dddd Spanish day name,
//   m/mm month, mmm/mmmm Spanish month name in lower case ("mar", "marzo"),
//   yy/yyyy year, y day of the year. Minutes and times are not supported.
//
// Anything else in a mask is literal text; "\x" and "..." quote literals.
// Numbers may come as text ("1234.56" or "1.234,56"); dates as QDate, QDateTime
// or text "dd/mm/yyyy" or "yyyy-mm-dd". A value that does not suit the mask is
// returned as plain text, and so is any value with an empty mask (numbers with a
// decimal comma and no grouping, dates as dd/mm/yyyy). A null or invalid value
// gives "". Sections separated by ";" are not supported.
QString Format(const QVariant& valor, const QString& mascara);

// Money for people: "1.234,56 €".
QString FormatoMoneda(double importe);

// The numeric value of the text's leading number, as the legacy Val read it:
// blanks skipped, then a sign, digits and a decimal point ("12B" is 12, "B12"
// is 0, " -3.5x" is -3.5).
double Val(const QString& texto);

// A number as people type it: "1.234,56", "1234,56" or "1234.56", blanks
// and "€" ignored. Nothing when the text is not a number.
std::optional<double> LeeNumeroTecleado(const QString& texto);

// A value held as a number (not as text that looks like one).
bool EsNumero(const QVariant& valor);

} // namespace vk
