#include "ControlImpresora.h"

#include <Ajustes.h>

namespace vk::spool {

QString CodigoPaginaImpresora() {
    return LeeAjuste(QStringLiteral("ORVA"), QStringLiteral("Spool"), QStringLiteral("CodePage"),
                     QStringLiteral("CP850"));
}

} // namespace vk::spool
