#include "ParametrosEmision.h"

namespace vk {

const BdParametro* ParametrosEmision::propio(const QString& nombre) const {
    for (const BdParametro& p : propios_) {
        if (p.Name().compare(nombre, Qt::CaseInsensitive) == 0) {
            return &p;
        }
    }
    return nullptr;
}

void ParametrosEmision::Fija(const QString& nombre, const QVariant& valor) {
    for (BdParametro& p : propios_) {
        if (p.Name().compare(nombre, Qt::CaseInsensitive) == 0) {
            p.setValue(valor);
            return;
        }
    }
    propios_.emplace_back(nombre, valor);
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
