#include "Conexion.h"

#include "ErrorBd.h"
#include "MensajesCore.h"

#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <optional>

namespace vk {

namespace {

QString textoError(const QSqlError& e) {
    QString t = e.databaseText().trimmed();
    if (t.isEmpty()) {
        t = e.text().trimmed();
    }
    return t;
}

// The failure as a person should read it, by the engine's own code: SQLite's
// result code, PostgreSQL's SQLSTATE.
ErrorBd errorDeSentencia(const QString& codigo, QString texto, bool sqlite, const QString& sql) {
    if (!codigo.isEmpty() && !texto.contains(codigo)) {
        texto += QStringLiteral(" (") + codigo + QLatin1Char(')');
    }
    const QString detalle = texto + QStringLiteral("\nSentencia: ") + sql.simplified();
    if (sqlite) {
        switch (codigo.toInt() & 0xff) {
        case 5: // SQLITE_BUSY
        case 6: // SQLITE_LOCKED
            return ErrorBd(mensajes::kBdOcupada, detalle, ClaseError::Ocupada);
        case 13: // SQLITE_FULL
            return ErrorBd(mensajes::kBdSinEspacio, detalle, ClaseError::Almacenamiento);
        case 8:  // SQLITE_READONLY
        case 10: // SQLITE_IOERR
        case 11: // SQLITE_CORRUPT
        case 14: // SQLITE_CANTOPEN
        case 26: // SQLITE_NOTADB
            return ErrorBd(mensajes::kBdNoEscribible, detalle, ClaseError::Almacenamiento);
        default:
            break;
        }
    } else {
        if (codigo == QLatin1String("55P03") || codigo == QLatin1String("40001") ||
            codigo == QLatin1String("40P01")) {
            return ErrorBd(mensajes::kBdOcupada, detalle, ClaseError::Ocupada);
        }
        if (codigo == QLatin1String("53100")) {
            return ErrorBd(mensajes::kBdSinEspacio, detalle, ClaseError::Almacenamiento);
        }
        // No SQLSTATE: the client library failed, not the server; on a
        // connection that worked, that means the server is gone.
        if (codigo.isEmpty() || codigo.startsWith(QLatin1String("08")) ||
            codigo.startsWith(QLatin1String("57P")) || codigo.startsWith(QLatin1String("53"))) {
            return ErrorBd(mensajes::kBdConexionPerdida, detalle, ClaseError::Almacenamiento);
        }
    }
    return ErrorBd(mensajes::kBdRechazo, detalle, ClaseError::General);
}

ErrorBd errorDeSentencia(const QSqlError& e, bool sqlite, const QString& sql) {
    return errorDeSentencia(e.nativeErrorCode(), textoError(e), sqlite, sql);
}

ErrorBd errorDeSentencia(const SentenciaSqlite::Fallo& f, const QString& sql) {
    return errorDeSentencia(QString::number(f.codigo), f.texto, true, sql);
}

// What a statement's first word says about keeping it prepared.
enum class Clase { Datos, Transaccion, Esquema, Otra };

Clase claseDe(const QString& sql) {
    qsizetype i = 0;
    while (i < sql.size() && sql[i].isSpace()) {
        ++i;
    }
    qsizetype fin = i;
    while (fin < sql.size() && sql[fin].isLetter()) {
        ++fin;
    }
    const QStringView palabra = QStringView(sql).mid(i, fin - i);
    const auto es = [&palabra](const char* p) {
        return palabra.compare(QLatin1String(p), Qt::CaseInsensitive) == 0;
    };
    if (es("SELECT") || es("INSERT") || es("UPDATE") || es("DELETE") || es("WITH") ||
        es("VALUES")) {
        return Clase::Datos;
    }
    if (es("BEGIN") || es("COMMIT") || es("SAVEPOINT") || es("RELEASE") || es("ROLLBACK")) {
        return Clase::Transaccion;
    }
    if (es("CREATE") || es("ALTER") || es("DROP")) {
        return Clase::Esquema;
    }
    return Clase::Otra;
}

// False when `sql` holds more than one statement. The PostgreSQL driver
// prepares through a plain query, which would run a second statement after a
// semicolon there and then; SQLite's own parser refuses it on its path.
bool unaSentencia(const QString& sql) {
    const qsizetype n = sql.size();
    for (qsizetype i = 0; i < n; ++i) {
        const QChar c = sql[i];
        if (c == u'\'' || c == u'"') {
            // Quotes end at the next one; a doubled quote reopens them.
            for (++i; i < n && sql[i] != c; ++i) {
            }
        } else if (c == u'-' && i + 1 < n && sql[i + 1] == u'-') {
            for (; i < n && sql[i] != u'\n'; ++i) {
            }
        } else if (c == u'/' && i + 1 < n && sql[i + 1] == u'*') {
            const qsizetype fin = sql.indexOf(QLatin1String("*/"), i + 2);
            i = fin < 0 ? n : fin + 1;
        } else if (c == u';') {
            return QStringView(sql).mid(i + 1).trimmed().isEmpty();
        }
    }
    return true;
}

} // namespace

QString MarcadoresSql(qsizetype n) {
    return QStringList(n, QStringLiteral("?")).join(QStringLiteral(", "));
}

Conexion::Conexion(QString nombreConexion, Dialecto dialecto)
    : nombre_(std::move(nombreConexion)), dialecto_(dialecto) {}

Conexion::~Conexion() {
    Cierra();
    QSqlDatabase::removeDatabase(nombre_);
}

Conexion::Preparada& Conexion::preparada(const QString& sql) {
    constexpr int kMaximo = 200;
    auto it = preparadas_.find(sql);
    if (it == preparadas_.end()) {
        if (preparadas_.size() >= kMaximo) {
            preparadas_.clear();
        }
        it = preparadas_.insert(sql, std::make_shared<Preparada>());
    }
    return **it;
}

sqlite3* Conexion::manejadorSqlite() {
    if (!sqliteBuscado_) {
        sqliteBuscado_ = true;
        const QSqlDatabase db = QSqlDatabase::database(nombre_, false);
        if (db.isOpen()) {
            sqlite_ = SentenciaSqlite::Manejador(db.driver()->handle());
        }
    }
    return sqlite_;
}

bool Conexion::EstaAbierta() const {
    const QSqlDatabase db = QSqlDatabase::database(nombre_, false);
    return db.isValid() && db.isOpen();
}

void Conexion::Cierra() {
    // Every statement of the engine's goes before its connection does.
    preparadas_.clear();
    sqlite_ = nullptr;
    sqliteBuscado_ = true;
    QSqlDatabase db = QSqlDatabase::database(nombre_, false);
    if (db.isOpen()) {
        db.close();
    }
}

Recordset Conexion::Execute(const QString& sql, const QVariantList& parametros) {
    std::vector<std::vector<QVariant>> filas;
    QStringList nombres =
        ejecuta(sql, parametros, [&filas](const QStringList&, std::vector<QVariant>&& f) {
            filas.push_back(std::move(f));
        });
    return Recordset(std::move(nombres), std::move(filas));
}

void Conexion::Recorre(const QString& sql, const QVariantList& parametros,
                       const std::function<void(const Recordset&)>& porFila) {
    ejecuta(sql, parametros, [&porFila](const QStringList& nombres, std::vector<QVariant>&& f) {
        std::vector<std::vector<QVariant>> una;
        una.push_back(std::move(f));
        porFila(Recordset(nombres, std::move(una)));
    });
}

QStringList Conexion::ejecuta(const QString& sql, const QVariantList& parametros,
                              const FilaLeida& porFila) {
    try {
        return ejecutaUna(sql, parametros, porFila);
    } catch (const ErrorBd& e) {
        // A full or failing disk may end the engine's whole transaction
        // (SQLite does): what fails after it inside the transaction is told
        // by this first cause, not by the savepoint or commit that no longer
        // has a transaction.
        if (nivel_ > 0 && e.Clase() == ClaseError::Almacenamiento && !perdida_) {
            perdida_ = e;
        }
        throw;
    }
}

QStringList Conexion::ejecutaUna(const QString& sql, const QVariantList& parametros,
                                 const FilaLeida& porFila) {
    ++sentencias_;
    // Statements the invoicing repeats are kept prepared, with parameters or
    // without; PostgreSQL prepares only data statements. A change of schema
    // drops them all: their result columns may have changed.
    const Clase clase = claseDe(sql);
    const bool reutilizable = !parametros.isEmpty() || clase == Clase::Datos ||
                              (clase == Clase::Transaccion && dialecto_.esSQLite());
    if (clase == Clase::Esquema) {
        preparadas_.clear();
    }
    if (reutilizable && dialecto_.esSQLite()) {
        if (sqlite3* bd = manejadorSqlite()) {
            return ejecutaSqlite(bd, sql, parametros, porFila);
        }
    }
    std::optional<QSqlQuery> directa;
    Preparada* preparada = nullptr;
    QSqlQuery* consulta = nullptr;
    bool ok = false;
    bool fallaPreparacion = false;
    if (!reutilizable) {
        directa.emplace(QSqlDatabase::database(nombre_, false));
        consulta = &*directa;
        consulta->setForwardOnly(true);
        consulta->setNumericalPrecisionPolicy(QSql::LowPrecisionDouble);
        ok = consulta->exec(sql);
    } else {
        preparada = &this->preparada(sql);
        const bool nueva = !preparada->consulta;
        if (nueva && !unaSentencia(sql)) {
            preparadas_.remove(sql);
            throw ErrorBd(mensajes::kBdRechazo,
                          mensajes::kUnaSentencia + QStringLiteral("\nSentencia: ") +
                              sql.simplified(),
                          ClaseError::General);
        }
        if (nueva) {
            preparada->consulta.emplace(QSqlDatabase::database(nombre_, false));
            preparada->consulta->setForwardOnly(true);
            preparada->consulta->setNumericalPrecisionPolicy(QSql::LowPrecisionDouble);
        }
        consulta = &*preparada->consulta;
        ok = !nueva || consulta->prepare(sql);
        fallaPreparacion = !ok;
        if (ok) {
            for (int i = 0; i < parametros.size(); ++i) {
                consulta->bindValue(i, parametros[i]);
            }
            ok = consulta->exec();
        }
    }
    QSqlQuery& q = *consulta;
    const auto falla = [&]() {
        ErrorBd error = errorDeSentencia(q.lastError(), dialecto_.esSQLite(), sql);
        q.finish();
        // A statement that failed to prepare is not kept; one that failed to
        // run stays prepared (freeing it now, inside a transaction the
        // failure aborted, would only fail again).
        if (fallaPreparacion) {
            preparadas_.remove(sql);
        }
        return error;
    };
    if (!ok) {
        throw falla();
    }
    if (!q.isSelect()) {
        filasAfectadas_ = q.numRowsAffected();
        q.finish();
        return {};
    }
    // The result's column names, once per prepared statement; not for a
    // "*", whose columns are the table's of the moment.
    QStringList nombres;
    if (preparada && preparada->conNombres) {
        nombres = preparada->nombres;
    } else {
        const QSqlRecord registro = q.record();
        nombres.reserve(registro.count());
        for (int i = 0; i < registro.count(); ++i) {
            nombres << registro.fieldName(i);
        }
        if (preparada && !sql.contains(QLatin1Char('*'))) {
            preparada->nombres = nombres;
            preparada->conNombres = true;
        }
    }
    while (q.next()) {
        std::vector<QVariant> fila;
        fila.reserve(nombres.size());
        for (int i = 0; i < nombres.size(); ++i) {
            fila.push_back(q.value(i));
        }
        porFila(nombres, std::move(fila));
    }
    if (q.lastError().isValid()) {
        throw falla();
    }
    // Releases the statement's read snapshot: the rows are ours now.
    q.finish();
    return nombres;
}

QStringList Conexion::ejecutaSqlite(sqlite3* bd, const QString& sql, const QVariantList& parametros,
                                    const FilaLeida& porFila) {
    Preparada& p = preparada(sql);
    SentenciaSqlite::Fallo fallo;
    if (!p.sqlite) {
        p.sqlite = SentenciaSqlite::Prepara(bd, sql, fallo);
        if (!p.sqlite) {
            preparadas_.remove(sql);
            throw errorDeSentencia(fallo, sql);
        }
    }
    SentenciaSqlite& st = *p.sqlite;
    // Whatever happens, the statement ends reset: no read snapshot held.
    struct Reinicio {
        SentenciaSqlite& st;
        ~Reinicio() { st.Reinicia(); }
    } reinicio{st};
    if (!st.Enlaza(parametros, fallo)) {
        throw errorDeSentencia(fallo, sql);
    }
    if (st.Columnas() == 0) {
        st.Avanza(fallo);
        if (fallo.codigo != 0) {
            throw errorDeSentencia(fallo, sql);
        }
        filasAfectadas_ = st.Cambios();
        return {};
    }
    if (!p.conNombres) {
        p.nombres = st.Nombres();
        p.conNombres = !sql.contains(QLatin1Char('*'));
    }
    const QStringList nombres = p.nombres;
    const int columnas = static_cast<int>(nombres.size());
    while (st.Avanza(fallo)) {
        std::vector<QVariant> fila;
        fila.reserve(static_cast<std::size_t>(columnas));
        for (int i = 0; i < columnas; ++i) {
            fila.push_back(st.Valor(i));
        }
        porFila(nombres, std::move(fila));
    }
    if (fallo.codigo != 0) {
        throw errorDeSentencia(fallo, sql);
    }
    return nombres;
}

int Conexion::BeginTrans() {
    if (nivel_ == 0) {
        perdida_.reset();
        Execute(dialecto_.inicioTransaccion());
    } else {
        Execute(QStringLiteral("SAVEPOINT vk_nivel_%1").arg(nivel_));
    }
    return ++nivel_;
}

void Conexion::CommitTrans() {
    if (nivel_ == 0) {
        throw ErrorBd(mensajes::kSinTransaccionQueConfirmar);
    }
    --nivel_;
    if (nivel_ == 0) {
        try {
            Execute(QStringLiteral("COMMIT"));
        } catch (const ErrorBd&) {
            // A commit that failed (a full disk) must not leave the work open
            // on the connection for the next statement to join.
            deshazTodo();
            lanzaCausa();
            throw;
        }
        perdida_.reset();
    } else {
        try {
            Execute(QStringLiteral("RELEASE SAVEPOINT vk_nivel_%1").arg(nivel_));
        } catch (const ErrorBd&) {
            lanzaCausa();
            throw;
        }
    }
}

void Conexion::lanzaCausa() const {
    if (perdida_) {
        throw *perdida_;
    }
}

void Conexion::deshazTodo() {
    try {
        Execute(QStringLiteral("ROLLBACK"));
    } catch (const ErrorBd&) {
        // The engine already ended it (SQLite does on a full disk) or the
        // connection is gone: either way nothing of it stands.
    }
}

void Conexion::RollbackTrans() {
    if (nivel_ == 0) {
        throw ErrorBd(mensajes::kSinTransaccionQueDeshacer);
    }
    --nivel_;
    if (nivel_ == 0) {
        deshazTodo();
        perdida_.reset();
    } else {
        try {
            Execute(QStringLiteral("ROLLBACK TO SAVEPOINT vk_nivel_%1").arg(nivel_));
            Execute(QStringLiteral("RELEASE SAVEPOINT vk_nivel_%1").arg(nivel_));
        } catch (const ErrorBd&) {
            lanzaCausa();
            throw;
        }
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
