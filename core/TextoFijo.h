// Fixed-width text: every value is formatted with its own mask and then
// padded with a text mask, so a column is always as wide as the paper or the
// exchange file wants. Used by the text layouts of impact printers and by the
// exchange files of the accounting offices.
#pragma once

#include <QString>
#include <QVariant>

namespace vk {

// n blanks (none for n <= 0).
QString Espacios(int n);
// The text right-aligned in n characters (mask of n "@"); a wider text is
// never cut: it pushes the rest of the line to the right.
QString Derecha(const QString& texto, int n);
// The text left-aligned in n characters (mask "!" and n "@"), never cut.
QString Izquierda(const QString& texto, int n);
// The value with its number mask, right-aligned in n.
QString Cifra(const QVariant& valor, const QString& mascara, int n);
// The same, or n blanks when the value is 0.
QString CifraSi(double valor, const QString& mascara, int n);
// Blanks cut from both ends, as the legacy Trim did (tabs and line ends stay).
QString TrimBlancos(const QString& texto);

// Fits the text to nAncho: as it is when it has that length, cut when
// longer, otherwise padded by nModo: 0 blanks behind, 1 blanks in front, any
// other value half the missing blanks (integer division) on each side, so an
// odd remainder leaves the result one short.
QString fnAlinea(const QString& sTexto, int nAncho, int nModo);

} // namespace vk
