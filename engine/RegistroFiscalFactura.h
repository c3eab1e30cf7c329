// The invoicing record (VERI*FACTU) of the invoice in the facade, written in
// the transaction that issues, changes or deletes it: a crash or a rolled
// back invoice never leaves a record behind, nor an invoice without one.
// Nothing is written when the company keeps no records (Par_VfActivo).
#pragma once

#include <RegistroFiscal.h>

namespace vk {

class BdSesion;
class RegistroFactura;
class VKFACVENTAS;

// What the records say of an invoice: series/number, date, type (a credit
// note rectifies the invoice it names; a negative invoice is never an F1),
// recipient, the VAT slots with their surcharge and the totals without the
// withholding. The recipient and the creditors' proceedings flag (R2) are
// read as the save stored them.
fiscal::FacturaFiscal fnFacturaFiscal(BdSesion& bd, const RegistroFactura& factura);

// The alta of the invoice just issued in the facade.
void msRegistraFacturaNueva(VKFACVENTAS& factura);
// After a change of the invoice in the facade: a new alta that replaces the
// old one (Subsanacion), or an anulación and an alta when its series, number
// or date changed; nothing when what the records say is unchanged.
void msRegistraFacturaCambiada(VKFACVENTAS& factura);
// Before an invoice is deleted: the anulación of its record.
void msRegistraBajaFactura(BdSesion& bd, qint32 idFactura);

// Whether the invoice has a record in force (an alta not cancelled): its
// registered data can only change by a corrected record.
bool fnFacturaRegistrada(BdSesion& bd, qint32 idFactura);

} // namespace vk
