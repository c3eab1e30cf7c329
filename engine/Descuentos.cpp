#include "Descuentos.h"

#include <Redondeo.h>

namespace vk {

ImportesDescontados fnDescuentosEnCascada(double suma, double porcentajeDto1, double porcentajeDto2,
                                          double dtoUnidad) {
    ImportesDescontados r;
    r.bruto = fnRedondeoMoney(suma);
    r.dto1 = fnRedondeoMoney(suma * porcentajeDto1 / 100);
    r.dto2 = fnRedondeoMoney((r.bruto - r.dto1) * porcentajeDto2 / 100);
    r.neto = fnRedondeoMoney(r.bruto - r.dto1 - r.dto2 - fnRedondeoMoney(dtoUnidad));
    return r;
}

} // namespace vk
