#include "Ficheros.h"

#include <DisenoInforme.h>
#include <ErrorBd.h>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace vk {

QString fnCarpetaFdoc(int idUsuario) {
    const QString datos = fnCarpetaDatos();
    const QString carpeta = QDir(datos).filePath(QStringLiteral("FDOC%1").arg(idUsuario));
    return QDir().mkpath(carpeta) ? carpeta : datos;
}

bool fnExisteFichero(const QString& fichero) {
    return QFileInfo::exists(fichero);
}

void msRegistraDisenos() {
    const QFileInfo disenos(informe::CarpetaDisenos());
    if (disenos.exists() && (!disenos.isDir() || !disenos.isReadable())) {
        throw ErrorBd(
            QStringLiteral("No se puede leer la carpeta de diseños %1.").arg(disenos.filePath()));
    }
}

bool fnAbreFichero(const QString& fichero) {
    // The texts of the legacy error table, by the cause found here.
    const QFileInfo info(fichero);
    if (!info.dir().exists()) {
        throw ErrorBd(QStringLiteral("Path not found"));
    }
    if (!info.exists()) {
        throw ErrorBd(QStringLiteral("File not found"));
    }
    if (!info.isReadable()) {
        throw ErrorBd(QStringLiteral("Path/file access error"));
    }
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(fichero))) {
        throw ErrorBd(QStringLiteral("No application is associated with this file type."));
    }
    return true;
}

} // namespace vk
