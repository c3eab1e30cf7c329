// Text in a single-byte code page (iconv names: CP850, CP437, CP1252,
// ISO-8859-15...), for printers and for files read by programs that expect
// one. Widths are counted on text already in the code page: what it lacks is
// transliterated before a column is padded or cut, so a line keeps its width
// in bytes ("€" becomes "EUR" on CP850).
#pragma once

#include <QByteArray>
#include <QString>

namespace vk {

// The text in the code page. Characters the code page lacks are
// transliterated, a "?" when there is nothing to transliterate them to.
// Throws ErrorDispositivo when the code page is unknown to the system.
QByteArray ConvierteCodigoPagina(const QString& texto, const QString& codigoPagina);
// The same text back in Unicode, holding only what the code page has: on a
// single-byte code page one character is one byte, so a column padded on it
// keeps its width.
QString AjustaCodigoPagina(const QString& texto, const QString& codigoPagina);

} // namespace vk
