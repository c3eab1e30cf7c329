// The invoice's own address columns (idDir -1 or 0: the address is stored by
// value), copied into the facade from a delivery note or from an address.
#pragma once

#include <QtGlobal>

namespace vk {

class VKFACVENTAS;

void msDireccionDeAlbaran(VKFACVENTAS& factura, qint32 idCav);
void msDireccionDeDir(VKFACVENTAS& factura, qint32 idDir);

} // namespace vk
