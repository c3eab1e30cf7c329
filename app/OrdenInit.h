// `vkfactuven init` and `vkfactuven demo`.
#pragma once

#include <QStringList>
#include <QTextStream>

namespace vk::app {

int OrdenInit(const QStringList& args, QTextStream& out);
int OrdenDemo(const QStringList& args, QTextStream& out, QTextStream& err);

} // namespace vk::app
