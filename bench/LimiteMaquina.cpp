#include "LimiteMaquina.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QString>
#include <cstdio>
#include <libpq-fe.h>
#include <memory>
#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace vk::bench {

namespace {

constexpr int kLecturas = 17;
constexpr int kEscrituras = 17;
constexpr int kFilasPrevias = 20000;

[[noreturn]] void falla(const std::string& que) {
    throw std::runtime_error("sonda de límite: " + que);
}

// --- SQLite, as the product opens it: WAL, synchronous=FULL ---

void exige(sqlite3* db, int rc, const char* paso) {
    if (rc != SQLITE_OK && rc != SQLITE_DONE && rc != SQLITE_ROW) {
        falla(std::string(paso) + ": " + sqlite3_errmsg(db));
    }
}

void ejecuta(sqlite3* db, const char* sql) {
    exige(db, sqlite3_exec(db, sql, nullptr, nullptr, nullptr), sql);
}

Limite limiteSqlite(const CadenaConexion& c, double segundos) {
    const QString fichero =
        QDir(c.directorio).filePath(QStringLiteral("limite-%1.sqlite").arg(getpid()));
    const std::string ruta = QFile::encodeName(fichero).toStdString();
    sqlite3* crudo = nullptr;
    if (sqlite3_open(ruta.c_str(), &crudo) != SQLITE_OK) {
        falla("no se abre " + ruta);
    }
    const auto cierra = [&ruta](sqlite3* db) {
        sqlite3_close_v2(db);
        for (const char* sufijo : {"", "-wal", "-shm"}) {
            ::unlink((ruta + sufijo).c_str());
        }
    };
    std::unique_ptr<sqlite3, decltype(cierra)> db(crudo, cierra);
    ejecuta(db.get(), "PRAGMA journal_mode=WAL");
    ejecuta(db.get(), "PRAGMA synchronous=FULL");
    ejecuta(db.get(), "CREATE TABLE limite (id INTEGER PRIMARY KEY, clave INTEGER NOT NULL, "
                      "texto TEXT, importe REAL)");
    ejecuta(db.get(), "CREATE INDEX limite_clave ON limite (clave)");
    ejecuta(db.get(), "BEGIN");
    sqlite3_stmt* inserta = nullptr;
    exige(db.get(),
          sqlite3_prepare_v2(db.get(),
                             "INSERT INTO limite (clave, texto, importe) VALUES (?, ?, ?)", -1,
                             &inserta, nullptr),
          "prepare insert");
    sqlite3_stmt* lee = nullptr;
    exige(db.get(),
          sqlite3_prepare_v2(db.get(), "SELECT id, texto, importe FROM limite WHERE clave = ?", -1,
                             &lee, nullptr),
          "prepare select");
    sqlite3_stmt* empieza = nullptr;
    sqlite3_stmt* confirma = nullptr;
    exige(db.get(), sqlite3_prepare_v2(db.get(), "BEGIN IMMEDIATE", -1, &empieza, nullptr),
          "prepare begin");
    exige(db.get(), sqlite3_prepare_v2(db.get(), "COMMIT", -1, &confirma, nullptr),
          "prepare commit");
    const auto escribe = [&](int clave) {
        sqlite3_bind_int(inserta, 1, clave);
        sqlite3_bind_text(inserta, 2, "Cliente de la factura", -1, SQLITE_STATIC);
        sqlite3_bind_double(inserta, 3, clave * 1.21);
        exige(db.get(), sqlite3_step(inserta), "insert");
        sqlite3_reset(inserta);
    };
    for (int i = 0; i < kFilasPrevias; ++i) {
        escribe(i);
    }
    ejecuta(db.get(), "COMMIT");

    QElapsedTimer reloj;
    reloj.start();
    long transacciones = 0;
    int clave = kFilasPrevias;
    while (reloj.nsecsElapsed() < static_cast<qint64>(segundos * 1e9)) {
        exige(db.get(), sqlite3_step(empieza), "begin");
        sqlite3_reset(empieza);
        for (int i = 0; i < kLecturas; ++i) {
            sqlite3_bind_int(lee, 1, (clave * 7 + i) % kFilasPrevias);
            while (sqlite3_step(lee) == SQLITE_ROW) {
                (void)sqlite3_column_double(lee, 2);
            }
            sqlite3_reset(lee);
        }
        for (int i = 0; i < kEscrituras; ++i) {
            escribe(++clave);
        }
        exige(db.get(), sqlite3_step(confirma), "commit");
        sqlite3_reset(confirma);
        ++transacciones;
    }
    const double s = reloj.nsecsElapsed() / 1e9;
    for (sqlite3_stmt* st : {inserta, lee, empieza, confirma}) {
        sqlite3_finalize(st);
    }
    return {transacciones / s, 0};
}

// --- PostgreSQL through libpq, one round trip per statement ---

std::string valor(const QString& v) {
    QString e = v;
    e.replace(QLatin1Char('\\'), QStringLiteral("\\\\"))
        .replace(QLatin1Char('\''), QStringLiteral("\\'"));
    return "'" + e.toStdString() + "'";
}

std::string cadenaLibpq(const CadenaConexion& c) {
    std::string s = "host=" + valor(c.servidor) + " port=" + std::to_string(c.puerto) +
                    " dbname=" + valor(c.baseDatos);
    if (!c.usuario.isEmpty()) {
        s += " user=" + valor(c.usuario);
    }
    for (const QString& o : c.opciones.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
        s += " " + o.trimmed().toStdString();
    }
    return s;
}

void ordena(PGconn* cn, const std::string& sql) {
    std::unique_ptr<PGresult, decltype(&PQclear)> r(PQexec(cn, sql.c_str()), &PQclear);
    const ExecStatusType e = PQresultStatus(r.get());
    if (e != PGRES_COMMAND_OK && e != PGRES_TUPLES_OK) {
        falla(sql + ": " + PQerrorMessage(cn));
    }
}

void preparada(PGconn* cn, const char* nombre, const std::vector<std::string>& valores) {
    std::vector<const char*> punteros;
    for (const std::string& v : valores) {
        punteros.push_back(v.c_str());
    }
    std::unique_ptr<PGresult, decltype(&PQclear)> r(
        PQexecPrepared(cn, nombre, static_cast<int>(punteros.size()), punteros.data(), nullptr,
                       nullptr, 0),
        &PQclear);
    const ExecStatusType e = PQresultStatus(r.get());
    if (e != PGRES_COMMAND_OK && e != PGRES_TUPLES_OK) {
        falla(std::string(nombre) + ": " + PQerrorMessage(cn));
    }
}

void prepara(PGconn* cn, const char* nombre, const std::string& sql) {
    std::unique_ptr<PGresult, decltype(&PQclear)> r(PQprepare(cn, nombre, sql.c_str(), 0, nullptr),
                                                    &PQclear);
    if (PQresultStatus(r.get()) != PGRES_COMMAND_OK) {
        falla(sql + ": " + PQerrorMessage(cn));
    }
}

Limite limitePostgres(const CadenaConexion& c, double segundos) {
    std::unique_ptr<PGconn, decltype(&PQfinish)> cn(PQconnectdb(cadenaLibpq(c).c_str()), &PQfinish);
    if (PQstatus(cn.get()) != CONNECTION_OK) {
        falla(std::string("conexión: ") + PQerrorMessage(cn.get()));
    }
    const std::string tabla = "vk_limite_" + std::to_string(getpid());
    ordena(cn.get(), "SET client_min_messages TO warning");
    ordena(cn.get(), "DROP TABLE IF EXISTS public." + tabla);
    ordena(cn.get(), "CREATE TABLE public." + tabla +
                         " (id SERIAL PRIMARY KEY, clave INTEGER NOT NULL, texto TEXT, importe "
                         "DOUBLE PRECISION)");
    struct Borra {
        PGconn* cn;
        std::string tabla;
        ~Borra() { PQclear(PQexec(cn, ("DROP TABLE IF EXISTS public." + tabla).c_str())); }
    } borra{cn.get(), tabla};
    ordena(cn.get(), "CREATE INDEX ON public." + tabla + " (clave)");
    ordena(cn.get(), "INSERT INTO public." + tabla +
                         " (clave, texto, importe) SELECT g, 'Cliente de la factura', g * 1.21 "
                         "FROM generate_series(0, " +
                         std::to_string(kFilasPrevias - 1) + ") g");
    ordena(cn.get(), "ANALYZE public." + tabla);
    prepara(cn.get(), "lee",
            "SELECT id, texto, importe FROM public." + tabla + " WHERE clave = $1");
    prepara(cn.get(), "escribe",
            "INSERT INTO public." + tabla + " (clave, texto, importe) VALUES ($1, $2, $3)");

    QElapsedTimer reloj;
    reloj.start();
    long transacciones = 0;
    int clave = kFilasPrevias;
    while (reloj.nsecsElapsed() < static_cast<qint64>(segundos * 1e9)) {
        ordena(cn.get(), "BEGIN");
        for (int i = 0; i < kLecturas; ++i) {
            preparada(cn.get(), "lee", {std::to_string((clave * 7 + i) % kFilasPrevias)});
        }
        for (int i = 0; i < kEscrituras; ++i) {
            ++clave;
            preparada(
                cn.get(), "escribe",
                {std::to_string(clave), "Cliente de la factura", std::to_string(clave * 1.21)});
        }
        ordena(cn.get(), "COMMIT");
        ++transacciones;
    }
    return {transacciones / (reloj.nsecsElapsed() / 1e9), kLecturas + kEscrituras + 2};
}

} // namespace

Limite MideLimite(const CadenaConexion& cadena, double segundos) {
    // In a child process, so that the probe's memory never shows in the
    // benchmark's own peak.
    int tubo[2];
    if (pipe(tubo) != 0) {
        falla("pipe");
    }
    const pid_t hijo = fork();
    if (hijo < 0) {
        falla("fork");
    }
    if (hijo == 0) {
        ::close(tubo[0]);
        Limite l;
        try {
            l = cadena.motor == Motor::SQLite ? limiteSqlite(cadena, segundos)
                                              : limitePostgres(cadena, segundos);
        } catch (const std::exception& e) {
            std::fprintf(stderr, "%s\n", e.what());
        }
        const ssize_t escrito = ::write(tubo[1], &l, sizeof l);
        ::_exit(escrito == sizeof l ? 0 : 1);
    }
    ::close(tubo[1]);
    Limite l;
    const ssize_t leido = ::read(tubo[0], &l, sizeof l);
    ::close(tubo[0]);
    int estado = 0;
    ::waitpid(hijo, &estado, 0);
    if (leido != sizeof l || l.transaccionesPorSegundo <= 0) {
        falla("la sonda no ha dado resultado");
    }
    return l;
}

} // namespace vk::bench
