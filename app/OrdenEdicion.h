// The commands that look at, change and delete one invoice: thin hosts of
// the edit screen's model, whose questions they answer yes (no with --no).
#pragma once

#include <QStringList>
#include <QTextStream>

namespace vk::app {

int OrdenVer(const QStringList& args, QTextStream& out, QTextStream& err);
int OrdenEditar(const QStringList& args, QTextStream& out, QTextStream& err);
int OrdenBorrar(const QStringList& args, QTextStream& out, QTextStream& err);

} // namespace vk::app
