#include "ParametrosEmision.h"

namespace vk {

BdParametro* ParametrosEmision::propio(const QString& nombre) {
    for (BdParametro& p : propios_) {
        if (p.SeLlama(nombre)) {
            return &p;
        }
    }
    return nullptr;
}

const BdParametro* ParametrosEmision::propio(const QString& nombre) const {
    return const_cast<ParametrosEmision*>(this)->propio(nombre);
}

void ParametrosEmision::Fija(const QString& nombre, const QVariant& valor) {
    if (BdParametro* p = propio(nombre)) {
        p->setValue(valor);
    } else {
        propios_.emplace_back(nombre.trimmed(), valor);
    }
}

qint64 ParametrosEmision::Entero(const BdParametros& empresa, const QString& nombre) const {
    const BdParametro* p = propio(nombre);
    return p ? p->Entero() : empresa.Entero(nombre);
}

QString ParametrosEmision::Texto(const BdParametros& empresa, const QString& nombre) const {
    const BdParametro* p = propio(nombre);
    return p ? p->Texto().trimmed() : empresa.Texto(nombre);
}

} // namespace vk
