// The save of an invoice, step by step: the amounts into Fav, then its
// dependents (the non-fiscal retention, the receipts, the posting), each
// step whole or not at all.
#pragma once

#include <QtGlobal>
#include <optional>

namespace vk {

class BdSesion;
class VKFACVENTAS;

// The company's id in the accounting when it posts its sales as they are
// saved (and unposts them as they are deleted); nothing otherwise.
std::optional<qint16> fnEmpresaContabiliza(BdSesion& bd);

// What VKFACVENTAS::GrabaFactura does, telling the caller in `importesEscritos`
// whether the amounts reached Fav before a failure: a failure after that
// leaves them written, as a later step never undoes an earlier one.
bool fnGrabaFactura(VKFACVENTAS& factura, bool bRecibos, bool bEdi, bool& importesEscritos);

} // namespace vk
