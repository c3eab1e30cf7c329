// The commands that look at, change, delete, copy and credit one invoice.
// The first three are thin hosts of the edit screen's model, whose questions
// they answer yes (no with --no).
#pragma once

#include <QStringList>
#include <QTextStream>

namespace vk::app {

int OrdenVer(const QStringList& args, QTextStream& out, QTextStream& err);
int OrdenEditar(const QStringList& args, QTextStream& out, QTextStream& err);
int OrdenBorrar(const QStringList& args, QTextStream& out, QTextStream& err);
// The invoices of a series between two numbers and dates deleted at once, by
// the batch deletion screen's model; administrators only.
int OrdenBorrarLote(const QStringList& args, QTextStream& out, QTextStream& err);
// A credit note of an invoice, or a copy of it, as a new invoice.
int OrdenAbonar(const QStringList& args, QTextStream& out, QTextStream& err);
int OrdenCopiar(const QStringList& args, QTextStream& out, QTextStream& err);

} // namespace vk::app
