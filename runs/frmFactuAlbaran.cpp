#include "frmFactuAlbaran.h"

#include "Combos.h"

#include <Formato.h>
#include <VKFACVENTAS.h>

namespace vk {

frmFactuAlbaran::frmFactuAlbaran(VKFACVENTAS& factura) {
    Text1[5] = fnSerieFacturaPorDefecto(factura.MyBd());
    Text1[6] = Format(QDate::currentDate(), QStringLiteral("dd/mm/yyyy"));
    cboFpago = msCargarFormasCobro(factura.MyBd());
    if (!cboFpago.isEmpty()) {
        cboFpagoIndex = 0;
    }
}

} // namespace vk
