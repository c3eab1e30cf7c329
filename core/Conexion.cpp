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

QSqlQuery& Conexion::preparada(const QString& sql, bool& nueva) {
    constexpr int kMaximo = 200;
    auto it = preparadas_.find(sql);
    nueva = it == preparadas_.end();
    if (nueva) {
        if (preparadas_.size() >= kMaximo) {
            preparadas_.clear();
        }
        auto q = std::make_shared<QSqlQuery>(QSqlDatabase::database(nombre_, false));
        q->setForwardOnly(true);
        q->setNumericalPrecisionPolicy(QSql::LowPrecisionDouble);
        it = preparadas_.insert(sql, q);
    }
    return **it;
}

bool Conexion::EstaAbierta() const {
    const QSqlDatabase db = QSqlDatabase::database(nombre_, false);
    return db.isValid() && db.isOpen();
}

void Conexion::Cierra() {
    preparadas_.clear();
    QSqlDatabase db = QSqlDatabase::database(nombre_, false);
    if (db.isOpen()) {
        db.close();
    }
}

Recordset Conexion::Execute(const QString& sql, const QVariantList& parametros) {
    ++sentencias_;
    QSqlQuery directa(QSqlDatabase::database(nombre_, false));
    QSqlQuery* consulta = &directa;
    bool ok = false;
    if (parametros.isEmpty()) {
        directa.setForwardOnly(true);
        directa.setNumericalPrecisionPolicy(QSql::LowPrecisionDouble);
        ok = directa.exec(sql);
    } else {
        bool nueva = false;
        consulta = &preparada(sql, nueva);
        ok = !nueva || consulta->prepare(sql);
        if (ok) {
            for (int i = 0; i < parametros.size(); ++i) {
                consulta->bindValue(i, parametros[i]);
            }
            ok = consulta->exec();
        }
    }
    QSqlQuery& q = *consulta;
    const auto falla = [&]() {
        const QString error = textoError(q.lastError());
        q.finish();
        // A statement that failed to prepare is not kept.
        preparadas_.remove(sql);
        return ErrorBd(QStringLiteral("Error de base de datos: %1\nSentencia: %2")
                           .arg(error, sql.simplified()));
    };
    if (!ok) {
        throw falla();
    }
    if (!q.isSelect()) {
        filasAfectadas_ = q.numRowsAffected();
        q.finish();
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
        throw falla();
    }
    // Releases the statement's read snapshot: the rows are ours now.
    q.finish();
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
