#include "BloqueoSerie.h"

#include <BdSesion.h>

namespace vk {

namespace {

void bloquea(BdSesion& bd, const QString& clave) {
    const QString bloqueo = bd.dialecto().bloqueoSerie();
    if (!bloqueo.isEmpty()) {
        bd.cn().Execute(bloqueo, {bd.Catalogo() + clave});
    }
}

} // namespace

void msBloqueaSerie(BdSesion& bd, const QString& serie) {
    bloquea(bd, QStringLiteral("/Fav/") + serie);
}

void msBloqueaSerieAlbaranes(BdSesion& bd, const QString& serie) {
    bloquea(bd, QStringLiteral("/Cav/") + serie);
}

} // namespace vk
