// `vkfactuven verifactu ...`: the invoicing records of the company: their
// state, the chain checked whole, their export and their sending.
#pragma once

#include <QStringList>
#include <QTextStream>

namespace vk::app {

int OrdenVerifactu(const QStringList& args, QTextStream& out, QTextStream& err);

} // namespace vk::app
