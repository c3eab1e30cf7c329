// Fixed-width columns of the text layouts: every value is formatted with its
// own mask and then padded with a text mask, so a column is always as wide as
// the stationery wants whatever the value (a wider value pushes the rest of
// the line to the right: it is never cut).
//
// Widths are counted on text already in the printer's code page: what the
// code page lacks is transliterated before a column is padded or cut, so a
// line keeps its width in bytes on the paper ("€" becomes "EUR" first).
#pragma once

#include <QByteArray>
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

// The printer's code page (iconv names: CP850, CP437, ISO-8859-15...): the
// setting "CodePage" of the spool (application "ORVA", section "Spool"),
// CP850 when not set.
QString CodigoPaginaImpresora();
// The text in the code page. Characters the code page lacks are
// transliterated ("€" becomes "EUR"), a "?" when there is nothing to
// transliterate them to. Throws ErrorBd when the code page is unknown.
QByteArray ConvierteCodigoPagina(const QString& texto, const QString& codigoPagina);
// The same text back in Unicode, holding only what the code page prints: on
// a single-byte code page one character is one byte on the paper, so a
// column padded on it keeps its width.
QString AjustaCodigoPagina(const QString& texto, const QString& codigoPagina);

} // namespace vk::spool
