#include "BasePrueba.h"

#include <ErrorBd.h>
#include <QAtomicInteger>
#include <QCoreApplication>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

namespace vk::prueba {

namespace {

QString servidor() {
    const QString host = qEnvironmentVariable("VKFACTUVEN_PG_HOST");
    if (host.isEmpty()) {
        throw ErrorBd(QStringLiteral("VKFACTUVEN_PG_HOST no está definido: ejecute las pruebas con "
                                     "ctest, que arranca el servidor PostgreSQL de pruebas."));
    }
    return host;
}

// Runs one administrative statement on the cluster's maintenance database.
void administra(const QString& sql) {
    static QAtomicInteger<int> n = 0;
    const QString nombre = QStringLiteral("vk_admin_%1").arg(n.fetchAndAddRelaxed(1));
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), nombre);
        db.setHostName(servidor());
        db.setDatabaseName(QStringLiteral("postgres"));
        db.setUserName(QStringLiteral("postgres"));
        if (!db.open()) {
            throw ErrorBd(db.lastError().text());
        }
        QSqlQuery q(db);
        if (!q.exec(sql)) {
            throw ErrorBd(q.lastError().text());
        }
    }
    QSqlDatabase::removeDatabase(nombre);
}

} // namespace

QString CadenaServidorPrueba(const QString& baseDatos) {
    return QStringLiteral("postgresql://postgres@/%1?host=%2").arg(baseDatos, servidor());
}

BasePrueba::BasePrueba(Motor motor) : motor_(motor) {
    if (motor_ == Motor::SQLite) {
        cadena_ = dir_.path();
        return;
    }
    static QAtomicInteger<int> n = 0;
    baseDatos_ = QStringLiteral("prueba_%1_%2")
                     .arg(QCoreApplication::applicationPid())
                     .arg(n.fetchAndAddRelaxed(1));
    administra(QStringLiteral("CREATE DATABASE %1").arg(baseDatos_));
    cadena_ = CadenaServidorPrueba(baseDatos_);
}

BasePrueba::~BasePrueba() {
    if (!baseDatos_.isEmpty()) {
        try {
            administra(QStringLiteral("DROP DATABASE IF EXISTS %1 WITH (FORCE)").arg(baseDatos_));
        } catch (const ErrorBd&) {
            // The cluster is thrown away at the end of the run anyway.
        }
    }
}

QString BasePrueba::cadenaCatalogo(const QString& catalogo) const {
    if (motor_ == Motor::SQLite) {
        return QStringLiteral("sqlite:%1?catalogo=%2").arg(dir_.path(), catalogo);
    }
    return cadena_ + QStringLiteral("&catalogo=") + catalogo;
}

std::unique_ptr<BdSesion> BasePrueba::CreaEmpresa(const QString& catalogo) {
    std::unique_ptr<BdSesion> s = BdSesion::Abre(cadenaCatalogo(catalogo), ModoApertura::Crea);
    vk::CreaEmpresa(*s);
    // Every company of the tests has a NIF, as the invoicing records need;
    // the demo brings its own.
    s->cn().Execute(
        QStringLiteral("UPDATE Parametros SET Par_Doc = ? WHERE COALESCE(Par_Doc, '') = ''"),
        {QStringLiteral("B12345674")});
    s->RecargaParametros();
    return s;
}

void RechazaInserciones(BdSesion& bd, const QString& tabla) {
    if (bd.dialecto().esSQLite()) {
        bd.cn().Execute(QStringLiteral("CREATE TRIGGER rechaza_%1 BEFORE INSERT ON %1 BEGIN SELECT "
                                       "RAISE(ABORT, 'prohibido en la prueba'); END")
                            .arg(tabla));
        return;
    }
    bd.cn().Execute(
        QStringLiteral("CREATE OR REPLACE FUNCTION rechaza() RETURNS trigger AS $$ "
                       "BEGIN RAISE EXCEPTION 'prohibido en la prueba'; END $$ LANGUAGE plpgsql"));
    bd.cn().Execute(QStringLiteral("CREATE TRIGGER rechaza_%1 BEFORE INSERT ON %1 FOR EACH ROW "
                                   "EXECUTE FUNCTION rechaza()")
                        .arg(tabla));
}

} // namespace vk::prueba
