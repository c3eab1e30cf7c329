// The foot of PLT03: totals with both discounts as percentages, the VAT
// table aligned with fnAlinea, payment terms beside their due dates and the
// observations in pieces of 40.
#pragma once

#include <QString>
#include <Recordset.h>
#include <functional>

namespace vk::spool {

// rs stands on a row of the invoice that ended; printline sends text as it
// stands. Fills with line ends from nLinea up to nLimite + 3 first. Texts
// are measured in codigoPagina, the printer's.
void msPieFacturaIva(const std::function<void(const QString&)>& printline, const Recordset& rs,
                     int nLinea, int nLimite, const QString& codigoPagina);

} // namespace vk::spool
