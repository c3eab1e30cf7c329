#include "BdCampos.h"

namespace vk {

void BdCampos::Add(const QString& nombre, TipoCampo tipo, const QVariant& valor, qint16 decimales) {
    const QString limpio = nombre.trimmed();
    for (BdCampo& c : campos_) {
        if (c.nombre.compare(limpio, Qt::CaseInsensitive) == 0) {
            c = {limpio, tipo, valor, decimales};
            return;
        }
    }
    campos_.push_back({limpio, tipo, valor, decimales});
}

} // namespace vk
