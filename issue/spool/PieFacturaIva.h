// The foot of PLT03: totals with both discounts as percentages, the VAT
// table aligned with fnAlinea, payment terms beside their due dates and the
// observations in pieces of 40.
#pragma once

#include <QString>
#include <QStringList>
#include <Recordset.h>
#include <functional>

namespace vk::spool {

// rs stands on a row of the invoice that ended; printline sends text as it
// stands. Fills with line ends from nLinea up to nLimite + 3 first. Texts
// are measured in codigoPagina, the printer's. The lines of the VAT mention
// go to the free lines under the VAT table when they all fit there, and then
// leave `mencion`; otherwise the caller prints them after the foot.
void msPieFacturaIva(const std::function<void(const QString&)>& printline, const Recordset& rs,
                     int nLinea, int nLimite, const QString& codigoPagina, QStringList& mencion);

} // namespace vk::spool
