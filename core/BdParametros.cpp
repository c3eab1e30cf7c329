#include "BdParametros.h"

#include "ErrorBd.h"
#include "MensajesCore.h"

namespace vk {

qint64 BdParametro::Entero(qint64 siNulo) const {
    if (valor_.isNull()) {
        return siNulo;
    }
    return valor_.typeId() == QMetaType::Double ? static_cast<qint64>(valor_.toDouble())
                                                : valor_.toLongLong();
}

double BdParametro::Doble(double siNulo) const {
    return valor_.isNull() ? siNulo : valor_.toDouble();
}

QString BdParametro::Texto(const QString& siNulo) const {
    return valor_.isNull() ? siNulo : valor_.toString();
}

bool BdParametro::Activo() const {
    return !valor_.isNull() && valor_.toDouble() != 0.0;
}

void BdParametros::Carga(const Recordset& rs) {
    items_.clear();
    indice_.clear();
    tieneFila_ = !rs.Eof();
    items_.reserve(rs.FieldCount());
    for (int i = 0; i < rs.FieldCount(); ++i) {
        const Campo c = rs.Fields(i);
        items_.emplace_back(c.Name(), tieneFila_ ? c.Value() : QVariant());
        // The first column of a name wins, as the search in order did.
        const QString clave = c.Name().toCaseFolded();
        if (!indice_.contains(clave)) {
            indice_.insert(clave, i);
        }
    }
}

BdParametro& BdParametros::Item(const QString& nombre) {
    const int i = buscar(nombre);
    if (i < 0) {
        throw ErrorBd(mensajes::kParametroNoExiste.arg(nombre.trimmed()));
    }
    return items_[i];
}

const BdParametro& BdParametros::Item(const QString& nombre) const {
    return const_cast<BdParametros*>(this)->Item(nombre);
}

int BdParametros::buscar(const QString& nombre) const {
    const auto it = indice_.constFind(nombre.trimmed().toCaseFolded());
    return it == indice_.constEnd() ? -1 : *it;
}

} // namespace vk
