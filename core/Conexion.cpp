#include "Conexion.h"

#include "ErrorBd.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

namespace vk {

namespace {

QString textoError(const QSqlError& e) {
    QString t = e.databaseText().trimmed();
    if (t.isEmpty()) {
        t = e.text().trimmed();
    }
    return t;
}

} // namespace

Conexion::Conexion(QString nombreConexion, Dialecto dialecto)
    : nombre_(std::move(nombreConexion)), dialecto_(dialecto) {}

Conexion::~Conexion() {
    Cierra();
    QSqlDatabase::removeDatabase(nombre_);
}

bool Conexion::EstaAbierta() const {
    const QSqlDatabase db = QSqlDatabase::database(nombre_, false);
    return db.isValid() && db.isOpen();
}

void Conexion::Cierra() {
    QSqlDatabase db = QSqlDatabase::database(nombre_, false);
    if (db.isOpen()) {
        db.close();
    }
}

Recordset Conexion::Execute(const QString& sql, const QVariantList& parametros) {
    QSqlDatabase db = QSqlDatabase::database(nombre_, false);
    QSqlQuery q(db);
    q.setForwardOnly(true);
    q.setNumericalPrecisionPolicy(QSql::LowPrecisionDouble);
    ++sentencias_;
    bool ok = false;
    if (parametros.isEmpty()) {
        ok = q.exec(sql);
    } else {
        ok = q.prepare(sql);
        if (ok) {
            for (const QVariant& p : parametros) {
                q.addBindValue(p);
            }
            ok = q.exec();
        }
    }
    if (!ok) {
        throw ErrorBd(QStringLiteral("Error de base de datos: %1\nSentencia: %2")
                          .arg(textoError(q.lastError()), sql.simplified()));
    }
    if (!q.isSelect()) {
        filasAfectadas_ = q.numRowsAffected();
        return {};
    }
    const QSqlRecord registro = q.record();
    QStringList nombres;
    nombres.reserve(registro.count());
    for (int i = 0; i < registro.count(); ++i) {
        nombres << registro.fieldName(i);
    }
    std::vector<std::vector<QVariant>> filas;
    while (q.next()) {
        std::vector<QVariant> fila;
        fila.reserve(nombres.size());
        for (int i = 0; i < nombres.size(); ++i) {
            fila.push_back(q.value(i));
        }
        filas.push_back(std::move(fila));
    }
    if (q.lastError().isValid()) {
        throw ErrorBd(QStringLiteral("Error de base de datos: %1\nSentencia: %2")
                          .arg(textoError(q.lastError()), sql.simplified()));
    }
    return Recordset(std::move(nombres), std::move(filas));
}

int Conexion::BeginTrans() {
    if (nivel_ == 0) {
        Execute(dialecto_.inicioTransaccion());
    } else {
        Execute(QStringLiteral("SAVEPOINT vk_nivel_%1").arg(nivel_));
    }
    return ++nivel_;
}

void Conexion::CommitTrans() {
    if (nivel_ == 0) {
        throw ErrorBd(QStringLiteral("No hay ninguna transacción abierta que confirmar."));
    }
    --nivel_;
    if (nivel_ == 0) {
        Execute(QStringLiteral("COMMIT"));
    } else {
        Execute(QStringLiteral("RELEASE SAVEPOINT vk_nivel_%1").arg(nivel_));
    }
}

void Conexion::RollbackTrans() {
    if (nivel_ == 0) {
        throw ErrorBd(QStringLiteral("No hay ninguna transacción abierta que deshacer."));
    }
    --nivel_;
    if (nivel_ == 0) {
        Execute(QStringLiteral("ROLLBACK"));
    } else {
        Execute(QStringLiteral("ROLLBACK TO SAVEPOINT vk_nivel_%1").arg(nivel_));
        Execute(QStringLiteral("RELEASE SAVEPOINT vk_nivel_%1").arg(nivel_));
    }
}

Transaccion::~Transaccion() {
    if (abierta_) {
        try {
            cn_.RollbackTrans();
        } catch (const ErrorBd&) {
            // The connection is gone: the server has dropped the work anyway.
        }
    }
}

void Transaccion::Confirma() {
    abierta_ = false;
    cn_.CommitTrans();
}

void Transaccion::Deshaz() {
    abierta_ = false;
    cn_.RollbackTrans();
}

} // namespace vk
