#include "SistemaInformatico.h"

namespace vk::fiscal {

SistemaInformatico fnSistemaInformatico(const QString& numeroInstalacion) {
    SistemaInformatico s;
    // The producer of this build, as its responsible declaration names it.
    s.nombreRazon = QStringLiteral("Equipo de Facturación de Ventas VK");
    s.nif = QStringLiteral("89890001K");
    s.nombreSistema = QStringLiteral("vkfactuven");
    s.idSistema = QStringLiteral("VK");
    s.version = QStringLiteral(VK_VERSION);
    s.numeroInstalacion = numeroInstalacion.trimmed();
    return s;
}

} // namespace vk::fiscal
