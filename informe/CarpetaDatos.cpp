#include "CarpetaDatos.h"

#include <QDir>

namespace vk {

QString fnCarpetaDatos() {
    QString carpeta = qEnvironmentVariable("VKFACTUVEN_DATOS");
    if (carpeta.isEmpty()) {
        carpeta = QDir::home().filePath(QStringLiteral(".local/share/vkfactuven"));
    }
    return carpeta;
}

} // namespace vk
