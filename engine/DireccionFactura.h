// The invoice's own address columns (idDir -1 or 0: the address is stored by
// value), copied into the facade from a delivery note or from an address, and
// the customer's addresses as the invoicing screens offer them.
#pragma once

#include <QString>
#include <vector>

namespace vk {

class BdSesion;
class VKFACVENTAS;

void msDireccionDeAlbaran(VKFACVENTAS& factura, qint32 idCav);
void msDireccionDeDir(VKFACVENTAS& factura, qint32 idDir);

struct DireccionCliente {
    qint32 idDir = 0;
    QString poblacion;
    bool fiscal = false;
};

// The customer's addresses, the fiscal one first: the first is the one an
// invoice takes unless a person chooses another.
std::vector<DireccionCliente> fnDireccionesCliente(BdSesion& bd, qint32 idCliente);

} // namespace vk
