// The open connection of a session: the `cn` of the legacy code. Reads return
// client-side recordsets; values always travel as bound parameters.
#pragma once

#include "Dialecto.h"
#include "ErrorBd.h"
#include "Recordset.h"
#include "SentenciaSqlite.h"

#include <QHash>
#include <QSqlQuery>
#include <QString>
#include <QVariant>
#include <QVariantList>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vk {

class Conexion {
public:
    Conexion(QString nombreConexion, Dialecto dialecto);
    ~Conexion();
    Conexion(const Conexion&) = delete;
    Conexion& operator=(const Conexion&) = delete;

    const Dialecto& dialecto() const { return dialecto_; }

    // Runs one statement with `?` placeholders bound in order. A SELECT (or a
    // statement with RETURNING) gives its rows; any other gives an empty
    // recordset. A failure throws ErrorBd with the server's text.
    Recordset Execute(const QString& sql, const QVariantList& parametros = {});
    template <typename... T>
    Recordset Execute(const QString& sql, const QVariant& primero, const T&... resto) {
        return Execute(sql, QVariantList{primero, QVariant::fromValue(resto)...});
    }
    // Runs a SELECT and hands each row, as a recordset of one row, to
    // `porFila` as it is read, keeping none: for long lists read once. The
    // callback must not run statements on this connection.
    void Recorre(const QString& sql, const QVariantList& parametros,
                 const std::function<void(const Recordset&)>& porFila);
    // Rows changed by the last statement that changed rows.
    int RecordsAffected() const { return filasAfectadas_; }

    // Transactions of the connection. A nested BeginTrans becomes a savepoint,
    // so an inner step can be undone without losing the outer work.
    int BeginTrans();
    void CommitTrans();
    void RollbackTrans();
    int NivelTransaccion() const { return nivel_; }

    bool EstaAbierta() const;
    // Closes the connection; every later statement fails.
    void Cierra();
    // Statements run on this connection, for the benchmarks.
    qint64 Sentencias() const { return sentencias_; }

private:
    // Prepared statements by their text: the invoicing runs the same few
    // statements for every invoice, and preparing each time would cost a
    // round trip on PostgreSQL and a parse on SQLite.
    // On SQLite they run on the engine directly, through the driver's own
    // connection; on PostgreSQL through the driver.
    struct Preparada {
        std::optional<QSqlQuery> consulta;
        std::unique_ptr<SentenciaSqlite> sqlite;
        QStringList nombres; // the result's columns, once known
        bool conNombres = false;
    };
    Preparada& preparada(const QString& sql);
    // Runs one statement, handing each row to `porFila`; the result's names.
    using FilaLeida = std::function<void(const QStringList&, std::vector<QVariant>&&)>;
    QStringList ejecuta(const QString& sql, const QVariantList& parametros,
                        const FilaLeida& porFila);
    QStringList ejecutaSqlite(sqlite3* bd, const QString& sql, const QVariantList& parametros,
                              const FilaLeida& porFila);
    // The SQLite connection under the driver's, when this program can use it.
    sqlite3* manejadorSqlite();
    QHash<QString, std::shared_ptr<Preparada>> preparadas_;
    sqlite3* sqlite_ = nullptr;
    bool sqliteBuscado_ = false;
    // Ends the outermost transaction, whether or not the engine still has it.
    void deshazTodo();
    QStringList ejecutaUna(const QString& sql, const QVariantList& parametros,
                           const FilaLeida& porFila);
    // The storage failure that ended the engine's transaction, if one did:
    // thrown in place of the failures of the steps that follow it.
    void lanzaCausa() const;
    std::optional<ErrorBd> perdida_;

    QString nombre_;
    Dialecto dialecto_;
    int nivel_ = 0;
    int filasAfectadas_ = 0;
    qint64 sentencias_ = 0;
};

// "?, ?, ?": the placeholders of a list bound value by value.
QString MarcadoresSql(qsizetype n);

// The values of a list, to bind to its placeholders.
template <typename Lista> QVariantList ValoresSql(const Lista& lista) {
    QVariantList valores;
    valores.reserve(static_cast<qsizetype>(lista.size()));
    for (const auto& v : lista) {
        valores << v;
    }
    return valores;
}

// Rolls back unless Confirma() was called: a failed step never leaves half an
// invoice behind.
class Transaccion {
public:
    explicit Transaccion(Conexion& cn) : cn_(cn) { cn_.BeginTrans(); }
    ~Transaccion();
    Transaccion(const Transaccion&) = delete;
    Transaccion& operator=(const Transaccion&) = delete;

    void Confirma();
    void Deshaz();
    bool Abierta() const { return abierta_; }

private:
    Conexion& cn_;
    bool abierta_ = true;
};

} // namespace vk
