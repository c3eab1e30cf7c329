// The save of an invoice, step by step: the amounts into Fav, then its
// dependents (the non-fiscal retention, the receipts, the posting), each
// step whole or not at all.
#pragma once

namespace vk {

class VKFACVENTAS;

// What VKFACVENTAS::GrabaFactura does, telling the caller in `importesEscritos`
// whether the amounts reached Fav before a failure: a failure after that
// leaves them written, as a later step never undoes an earlier one.
bool fnGrabaFactura(VKFACVENTAS& factura, bool bRecibos, bool bEdi, bool& importesEscritos);

} // namespace vk
