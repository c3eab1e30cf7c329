#include "BloqueoSerie.h"

#include <BdSesion.h>

namespace vk {

void msBloqueaSerie(BdSesion& bd, const QString& serie) {
    const QString bloqueo = bd.dialecto().bloqueoSerie();
    if (!bloqueo.isEmpty()) {
        bd.cn().Execute(bloqueo, {bd.Catalogo() + QStringLiteral("/Fav/") + serie});
    }
}

} // namespace vk
