#include "CargaFactura.h"

#include <ColumnasFav.h>
#include <Conexion.h>
#include <VKFACVENTAS.h>

namespace vk {

bool fnCargaFactura(Conexion& cn, RegistroFactura& r, qint32 idFactu) {
    // The column names come from the map, never from a caller.
    const Recordset rs = cn.Execute(
        QStringLiteral("SELECT %1 FROM Fav WHERE Fav_Id = ?").arg(ListaColumnasFav()), {idFactu});
    if (rs.Eof()) {
        return false;
    }
    LeeColumnasFav(rs, r);
    return true;
}

bool VKFACVENTAS::CargaFactura(qint32 idFactu) {
    return fnCargaFactura(MyBd().cn(), *this, idFactu);
}

} // namespace vk
