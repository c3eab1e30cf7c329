// How the command line prints an invoice: its amounts, one figure a line,
// and, for `ver`, the whole invoice as the edit screen shows it.
#pragma once

#include <QTextStream>

namespace vk {
class RegistroFactura;
class frmEdicionFacturas;
} // namespace vk

namespace vk::app {

// Gross, discounts, each VAT slot with its surcharge, withholding, total and,
// with a non-fiscal retention, what is left to collect.
void ImprimeImportes(const RegistroFactura& factura, QTextStream& out);

// The invoice the edit screen has loaded: header, customer and address,
// delivery notes with their lines, amounts by slot and receipts.
void ImprimeFacturaEditada(const frmEdicionFacturas& pantalla, const RegistroFactura& factura,
                           QTextStream& out);

} // namespace vk::app
