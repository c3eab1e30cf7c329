// The load of an invoice into a record: what the edit screen shows and what
// a command prints, read through the same map the insert and the save write.
#pragma once

#include <QtGlobal>

namespace vk {

class Conexion;
class RegistroFactura;

// Reads the Fav row `idFactu` into `r` with one SELECT; false, and `r` as it
// was, when there is no such row.
bool fnCargaFactura(Conexion& cn, RegistroFactura& r, qint32 idFactu);

} // namespace vk
