// A statement prepared on the SQLite connection the Qt driver opened, and run
// through the engine's own interface. The invoicing runs a score of small
// statements per invoice; through the driver each one costs several times
// its work in the engine (the values copied into the driver's records, a
// name made for every bound value). Values go in and come out exactly as
// the driver binds and reads them, so nothing stored or read changes.
#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantList>
#include <memory>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace vk {

class SentenciaSqlite {
public:
    // What the engine said when it refused: its result code and text.
    struct Fallo {
        int codigo = 0;
        QString texto;
    };

    // The connection behind a Qt SQLite connection, when this program can
    // drive it: the driver must use the same SQLite library as this program.
    static sqlite3* Manejador(const QVariant& manejadorDriver);

    // Prepares `sql`; empty, with `fallo` filled, when the engine refuses it.
    static std::unique_ptr<SentenciaSqlite> Prepara(sqlite3* bd, const QString& sql, Fallo& fallo);
    ~SentenciaSqlite();
    SentenciaSqlite(const SentenciaSqlite&) = delete;
    SentenciaSqlite& operator=(const SentenciaSqlite&) = delete;

    // Binds the values in order; false, with `fallo` filled, when they do not
    // fit the statement. The values must outlive the run.
    bool Enlaza(const QVariantList& valores, Fallo& fallo);
    // One step: true with a row to read, false at the end; a failure fills
    // `fallo` and returns false.
    bool Avanza(Fallo& fallo);
    // Back to the start, bindings cleared: releases the read snapshot.
    void Reinicia();

    int Columnas() const;
    // The result's column names, as the driver gives them.
    QStringList Nombres() const;
    QVariant Valor(int columna) const;
    // Rows changed by the last statement run on the connection.
    int Cambios() const;

private:
    SentenciaSqlite(sqlite3* bd, sqlite3_stmt* st) : bd_(bd), st_(st) {}
    Fallo fallo(int codigo) const;

    sqlite3* bd_;
    sqlite3_stmt* st_;
    // Texts of values the driver turns into text, alive until the run ends.
    std::vector<QString> textos_;
};

} // namespace vk
