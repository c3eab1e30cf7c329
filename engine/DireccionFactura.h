// The invoice's own address columns (idDir -1 or 0: the address is stored by
// value), copied into the facade from a delivery note or from an address, and
// the customer's addresses as the invoicing screens offer them.
#pragma once

#include <QString>
#include <vector>

namespace vk {

class BdSesion;
class RegistroFactura;
class VKFACVENTAS;

// An address as an invoice keeps it.
struct DireccionFactura {
    qint32 idDir = 0; // above 0: the columns are a copy of that Dir row
    QString sg, nombre, numero, escalera, piso, puerta, cp, pais, poblacion;
    qint16 provincia = 0;
    bool operator==(const DireccionFactura&) const = default;
};

void msDireccionDeAlbaran(VKFACVENTAS& factura, qint32 idCav);
void msDireccionDeDir(VKFACVENTAS& factura, qint32 idDir);

// The Dir row, empty when there is none.
DireccionFactura fnDireccionDir(BdSesion& bd, qint32 idDir);
// The address stored in the invoice's own columns, and back.
DireccionFactura fnDireccionDeRegistro(const RegistroFactura& factura);
void msPonDireccion(RegistroFactura& factura, const DireccionFactura& direccion);

struct DireccionCliente {
    qint32 idDir = 0;
    QString poblacion;
    bool fiscal = false;
};

// The customer's addresses, the fiscal one first: the first is the one an
// invoice takes unless a person chooses another.
std::vector<DireccionCliente> fnDireccionesCliente(BdSesion& bd, qint32 idCliente);

} // namespace vk
