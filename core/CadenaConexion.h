// Parsing of the connection strings that name a company:
//   DIR                                   SQLite in that folder, default catalog
//   sqlite:DIR?catalogo=NAME              SQLite, DIR/<name>.sqlite
//   postgresql://user@host:port/db?catalogo=name[&host=/socket/dir][&libpq options]
// A password never stands in the string (it would end up in shell histories
// and process lists): PostgreSQL takes it from PGPASSFILE or the environment.
#pragma once

#include "Dialecto.h"

#include <QString>

namespace vk {

struct CadenaConexion {
    Motor motor = Motor::SQLite;
    QString catalogo;  // lower case: file name on SQLite, schema on PostgreSQL
    int idUsuario = 1; // user of the session (usuario=N)

    // SQLite
    QString directorio;
    // Seconds a write waits for another program's lock before it fails with
    // "ocupada" (espera=N).
    int esperaSegundos = 30;

    // PostgreSQL
    QString servidor; // host name or Unix socket folder
    int puerto = 5432;
    QString baseDatos;
    QString usuario;
    QString opciones; // libpq options, "k=v;k=v" as QtSql takes them

    static constexpr const char* kCatalogoPorDefecto = "vkemp0001";

    // Throws ErrorBd with a Spanish message when the text is not usable.
    static CadenaConexion Interpreta(const QString& texto);

    // The same connection on another catalog (the accounting one).
    CadenaConexion conCatalogo(const QString& otro) const;

    // Human description without credentials, for messages.
    QString descripcion() const;
};

// Catalog names become file and schema names, so only plain identifiers pass.
bool EsNombreCatalogoValido(const QString& nombre);

} // namespace vk
