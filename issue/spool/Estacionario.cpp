#include "Estacionario.h"

#include "MensajesSpool.h"

#include <Error.h>
#include <Ficheros.h>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>
#include <cmath>

namespace vk::spool {

namespace {
constexpr int kMaximo = 999;
}

Estacionario::Estacionario(std::initializer_list<std::pair<const char*, int>> defectos) {
    for (const auto& [nombre, valor] : defectos) {
        Fija(QString::fromLatin1(nombre), valor);
    }
}

int Estacionario::operator()(const char* nombre) const {
    const QString n = QString::fromLatin1(nombre);
    for (const auto& [clave, valor] : valores_) {
        if (clave == n) {
            return valor;
        }
    }
    throw ErrorDiseno(mensajes::kSinMedida.arg(n));
}

bool Estacionario::Tiene(const QString& nombre) const {
    for (const auto& v : valores_) {
        if (v.first == nombre) {
            return true;
        }
    }
    return false;
}

void Estacionario::Fija(const QString& nombre, int valor) {
    for (auto& v : valores_) {
        if (v.first == nombre) {
            v.second = valor;
            return;
        }
    }
    valores_.append({nombre, valor});
}

QStringList Estacionario::Nombres() const {
    QStringList r;
    for (const auto& v : valores_) {
        r << v.first;
    }
    return r;
}

QString RutaEstacionario(const QString& clave) {
    return QDir(fnCarpetaDatos()).filePath(QStringLiteral("spool/%1.json").arg(clave.toUpper()));
}

void Estacionario::Carga(const QString& clave) {
    const QString ruta = RutaEstacionario(clave);
    QFile fichero(ruta);
    if (!fichero.exists()) {
        return;
    }
    if (!fichero.open(QIODevice::ReadOnly)) {
        throw ErrorDiseno(mensajes::kMedidasIlegibles.arg(ruta));
    }
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(fichero.readAll(), &error);
    if (error.error != QJsonParseError::NoError || !doc.isObject()) {
        throw ErrorDiseno(mensajes::kMedidasNoJson.arg(
            ruta, error.error != QJsonParseError::NoError ? error.errorString()
                                                          : mensajes::kMedidasSeEsperabaObjeto));
    }
    // Checked whole before anything changes: a bad file leaves the built-in
    // figures as they were.
    const QJsonObject objeto = doc.object();
    QList<QPair<QString, int>> cambios;
    for (auto it = objeto.begin(); it != objeto.end(); ++it) {
        if (!Tiene(it.key())) {
            throw ErrorDiseno(
                mensajes::kMedidaAjena.arg(ruta, it.key(), Nombres().join(QStringLiteral(", "))));
        }
        const double v = it.value().toDouble(-1);
        if (!it.value().isDouble() || v < 0 || v > kMaximo || std::floor(v) != v) {
            throw ErrorDiseno(mensajes::kMedidaNoEntera.arg(ruta, it.key()).arg(kMaximo));
        }
        cambios.append({it.key(), static_cast<int>(v)});
    }
    for (const auto& [nombre, valor] : cambios) {
        Fija(nombre, valor);
    }
}

} // namespace vk::spool
