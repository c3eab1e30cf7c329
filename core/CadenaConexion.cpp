#include "CadenaConexion.h"

#include "ErrorBd.h"
#include "MensajesCore.h"

#include <QRegularExpression>
#include <QUrl>
#include <QUrlQuery>

namespace vk {

namespace {

ErrorBd errorCadena(const QString& texto) {
    return ErrorBd(mensajes::kCadenaNoValida.arg(texto));
}

QString catalogoValidado(const QString& nombre) {
    if (!EsNombreCatalogoValido(nombre)) {
        throw ErrorBd(mensajes::kCatalogoNoValido.arg(nombre));
    }
    return nombre.toLower();
}

int usuarioValidado(const QString& valor) {
    bool ok = false;
    const int id = valor.toInt(&ok);
    if (!ok || id <= 0) {
        throw ErrorBd(mensajes::kUsuarioConexionNoValido.arg(valor));
    }
    return id;
}

int esperaValidada(const QString& valor) {
    bool ok = false;
    const int segundos = valor.toInt(&ok);
    if (!ok || segundos < 0 || segundos > 3600) {
        throw ErrorBd(mensajes::kEsperaNoValida.arg(valor));
    }
    return segundos;
}

CadenaConexion interpretaSqlite(const QString& texto, const QString& resto) {
    CadenaConexion c;
    c.motor = Motor::SQLite;
    const qsizetype interrogacion = resto.indexOf(QLatin1Char('?'));
    c.directorio = interrogacion < 0 ? resto : resto.left(interrogacion);
    c.catalogo = QString::fromLatin1(CadenaConexion::kCatalogoPorDefecto);
    if (c.directorio.isEmpty()) {
        throw errorCadena(texto);
    }
    if (interrogacion >= 0) {
        const QUrlQuery consulta(resto.mid(interrogacion + 1));
        for (const auto& [clave, valor] : consulta.queryItems(QUrl::FullyDecoded)) {
            if (clave.compare(QLatin1String("catalogo"), Qt::CaseInsensitive) == 0) {
                c.catalogo = catalogoValidado(valor);
            } else if (clave.compare(QLatin1String("usuario"), Qt::CaseInsensitive) == 0) {
                c.idUsuario = usuarioValidado(valor);
            } else if (clave.compare(QLatin1String("espera"), Qt::CaseInsensitive) == 0) {
                c.esperaSegundos = esperaValidada(valor);
            } else {
                throw ErrorBd(mensajes::kOpcionSqliteDesconocida.arg(clave));
            }
        }
    }
    return c;
}

CadenaConexion interpretaPostgres(const QString& texto) {
    const QUrl url(texto, QUrl::StrictMode);
    if (!url.isValid() || url.path().size() < 2) {
        throw errorCadena(texto);
    }
    CadenaConexion c;
    c.motor = Motor::PostgreSQL;
    c.servidor = url.host();
    c.puerto = url.port(5432);
    c.baseDatos = url.path().mid(1);
    c.usuario = url.userName();
    if (!url.password().isEmpty()) {
        throw ErrorBd(mensajes::kClaveEnCadena);
    }
    c.catalogo = QString::fromLatin1(CadenaConexion::kCatalogoPorDefecto);
    QStringList opciones;
    for (const auto& [clave, valor] : QUrlQuery(url).queryItems(QUrl::FullyDecoded)) {
        if (clave.compare(QLatin1String("catalogo"), Qt::CaseInsensitive) == 0) {
            c.catalogo = catalogoValidado(valor);
        } else if (clave.compare(QLatin1String("usuario"), Qt::CaseInsensitive) == 0) {
            c.idUsuario = usuarioValidado(valor);
        } else if (clave == QLatin1String("host")) {
            c.servidor = valor; // a socket folder, as libpq accepts it
        } else if (clave == QLatin1String("port")) {
            c.puerto = valor.toInt();
        } else if (clave == QLatin1String("user")) {
            c.usuario = valor;
        } else if (clave.compare(QLatin1String("espera"), Qt::CaseInsensitive) == 0) {
            c.esperaSegundos = esperaValidada(valor);
        } else if (clave.compare(QLatin1String("password"), Qt::CaseInsensitive) == 0) {
            throw ErrorBd(mensajes::kClaveEnCadena);
        } else {
            if (valor.contains(QLatin1Char(';'))) {
                throw errorCadena(texto);
            }
            opciones << clave + QLatin1Char('=') + valor;
        }
    }
    if (c.servidor.isEmpty()) {
        c.servidor = QStringLiteral("localhost");
    }
    c.opciones = opciones.join(QLatin1Char(';'));
    return c;
}

} // namespace

bool EsNombreCatalogoValido(const QString& nombre) {
    static const QRegularExpression patron(QStringLiteral("^[A-Za-z][A-Za-z0-9_]{0,62}$"));
    return patron.match(nombre).hasMatch();
}

CadenaConexion CadenaConexion::Interpreta(const QString& textoOriginal) {
    const QString texto = textoOriginal.trimmed();
    if (texto.isEmpty()) {
        throw ErrorBd(mensajes::kCadenaVacia);
    }
    if (texto.startsWith(QLatin1String("postgresql://"), Qt::CaseInsensitive) ||
        texto.startsWith(QLatin1String("postgres://"), Qt::CaseInsensitive)) {
        return interpretaPostgres(texto);
    }
    if (texto.startsWith(QLatin1String("sqlite:"), Qt::CaseInsensitive)) {
        QString resto = texto.mid(7);
        if (resto.startsWith(QLatin1String("//"))) {
            resto = resto.mid(2);
        }
        return interpretaSqlite(texto, resto);
    }
    if (texto.contains(QLatin1String("://"))) {
        throw errorCadena(texto);
    }
    return interpretaSqlite(texto, texto);
}

CadenaConexion CadenaConexion::conCatalogo(const QString& otro) const {
    CadenaConexion c = *this;
    c.catalogo = catalogoValidado(otro);
    return c;
}

QString CadenaConexion::descripcion() const {
    if (motor == Motor::SQLite) {
        return QStringLiteral("SQLite %1, catálogo %2").arg(directorio, catalogo);
    }
    return QStringLiteral("PostgreSQL %1:%2/%3, catálogo %4")
        .arg(servidor)
        .arg(puerto)
        .arg(baseDatos, catalogo);
}

} // namespace vk
