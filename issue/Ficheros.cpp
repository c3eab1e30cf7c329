#include "Ficheros.h"

#include "MensajesEmision.h"

#include <DisenoInforme.h>
#include <Error.h>
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
        throw ErrorDispositivo(mensajes::kCarpetaDisenosIlegible.arg(disenos.filePath()));
    }
}

bool fnAbreFichero(const QString& fichero) {
    // The texts of the legacy error table, by the cause found here.
    const QFileInfo info(fichero);
    if (!info.dir().exists()) {
        throw ErrorDispositivo(mensajes::kRutaNoEncontrada);
    }
    if (!info.exists()) {
        throw ErrorDispositivo(mensajes::kFicheroNoEncontrado);
    }
    if (!info.isReadable()) {
        throw ErrorDispositivo(mensajes::kAccesoDenegado);
    }
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(fichero))) {
        throw ErrorDispositivo(mensajes::kSinAplicacionAsociada);
    }
    return true;
}

} // namespace vk
