#include "Ficheros.h"

#include <ErrorBd.h>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace vk {

QString fnCarpetaDatos() {
    QString carpeta = qEnvironmentVariable("VKFACTUVEN_DATOS");
    if (carpeta.isEmpty()) {
        carpeta = QDir::home().filePath(QStringLiteral(".local/share/vkfactuven"));
    }
    QDir().mkpath(carpeta);
    return carpeta;
}

QString fnCarpetaFdoc(int idUsuario) {
    const QString datos = fnCarpetaDatos();
    const QString carpeta = QDir(datos).filePath(QStringLiteral("FDOC%1").arg(idUsuario));
    return QDir().mkpath(carpeta) ? carpeta : datos;
}

bool fnExisteFichero(const QString& fichero) {
    return QFileInfo::exists(fichero);
}

bool fnAbreFichero(const QString& fichero) {
    if (!fnExisteFichero(fichero)) {
        throw ErrorBd(QStringLiteral("File not found"));
    }
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(fichero))) {
        throw ErrorBd(QStringLiteral("No application is associated with this file type."));
    }
    return true;
}

} // namespace vk
