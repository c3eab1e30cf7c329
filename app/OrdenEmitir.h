// `vkfactuven emitir`: issues a range of invoices of a series by the
// company's design, to PDF files, a printer or the screen.
#pragma once

#include <QStringList>
#include <QTextStream>

namespace vk::app {

int OrdenEmitir(const QStringList& args, QTextStream& out, QTextStream& err);

} // namespace vk::app
