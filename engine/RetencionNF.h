// The row of RetNF that a non-fiscal retention leaves behind: rewritten on
// every save of the invoice, from the row of Fav just updated.
#pragma once

namespace vk {

class VKFACVENTAS;

// Deletes the invoice's retention rows (keeping the receipt id of the first)
// and, when the percentage is not 0, inserts the new one. Throws ErrorBd with
// code 9999 when the insert fails, ErrorRegla when the invoice does not exist.
void msReescribeRetencionNF(VKFACVENTAS& factura);

} // namespace vk
