// Fixed-width columns of the text layouts: every value is formatted with its
// own mask and then padded with a text mask, so a column is always as wide as
// the stationery wants whatever the value (a wider value pushes the rest of
// the line to the right: it is never cut).
#pragma once

#include <QString>
#include <QVariant>

namespace vk::spool {

// Printer control characters sent inside the text.
inline const QString kSaltoPagina = QString(QChar(12));
inline const QString kCondensado = QString(QChar(15));
inline const QString kFinCondensado = QString(QChar(18));
inline const QString kNegrita = QString(QChar(27)) + QLatin1Char('E');
inline const QString kFinNegrita = QString(QChar(27)) + QLatin1Char('F');
inline const QString kFinLinea = QStringLiteral("\r\n");

// n blanks (none for n <= 0).
QString Espacios(int n);
// The text right-aligned in n characters (mask of n "@").
QString Derecha(const QString& texto, int n);
// The text left-aligned in n characters (mask "!" and n "@").
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

} // namespace vk::spool
