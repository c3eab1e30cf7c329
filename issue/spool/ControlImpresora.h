// What the text layouts send to an impact printer besides the text: its
// control characters and the code page it prints in. The fixed-width columns
// and the code-page conversion themselves are core's (TextoFijo.h,
// CodigoPagina.h), shared with the exchange files.
#pragma once

#include <CodigoPagina.h>
#include <QString>
#include <TextoFijo.h>

namespace vk::spool {

// Printer control characters sent inside the text.
inline const QString kSaltoPagina = QString(QChar(12));
inline const QString kCondensado = QString(QChar(15));
inline const QString kFinCondensado = QString(QChar(18));
inline const QString kNegrita = QString(QChar(27)) + QLatin1Char('E');
inline const QString kFinNegrita = QString(QChar(27)) + QLatin1Char('F');
inline const QString kFinLinea = QStringLiteral("\r\n");

// The printer's code page: the setting "CodePage" of the spool (application
// "ORVA", section "Spool"), CP850 when not set.
QString CodigoPaginaImpresora();

} // namespace vk::spool
