// What the invoicing does with receipts: it gathers what the treasury class
// needs and lets that class write them.
#pragma once

#include <QString>

namespace vk {

class VKFACVENTAS;

// The receipts of the invoice in hand (IdFactu) through VKTESORERIA.VKTESORE,
// on its Liquido. Returns the class's collection text for the posting.
QString msGeneraRecibosFactura(VKFACVENTAS& factura);

// The agent of the invoice's delivery notes (the last one with an agent
// wins); 0 when none has one.
qint32 fnAgenteFactura(VKFACVENTAS& factura);

// After a change of agent on the notes: the invoice's receipts follow it.
// Throws ErrorBd when they cannot be written.
void msActualizaAgenteRecibos(VKFACVENTAS& factura);

} // namespace vk
