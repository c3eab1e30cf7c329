// Command line options of the host programs, and the checks of their values.
// Every command declares its options, parses them ("--name value" or
// "--name=value") and reads typed values that have been checked before
// anything is written. A mistake is an ErrorUso with a Spanish message.
#pragma once

#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>
#include <stdexcept>
#include <vector>

namespace vk {
class BdSesion;
}

namespace vk::app {

// A mistake in how the program was called: exit status 2, nothing done.
class ErrorUso : public std::runtime_error {
public:
    explicit ErrorUso(const QString& m) : std::runtime_error(m.toStdString()), mensaje(m) {}
    QString mensaje;
};

// --help of a command: its text goes to standard output and the program ends
// with status 0. Not an error, so it is not a std::exception either.
struct AyudaPedida {
    QString texto;
};

class Argumentos {
public:
    // A command named `orden` ("facturar"); `uso` is the line after the
    // command's name in the help and `descripcion` says what it does.
    // Every command takes --db, --detalle and --help.
    Argumentos(const QString& orden, const QString& uso, const QString& descripcion);

    // Names are written with or without their leading dashes.
    void declaraOpcion(const QString& nombre, const QString& nombreValor, const QString& ayuda);
    // An option whose value may be left out: "--impresora" or "--impresora COLA".
    void declaraOpcionOpcional(const QString& nombre, const QString& nombreValor,
                               const QString& ayuda);
    void declaraBandera(const QString& nombre, const QString& ayuda);

    // Throws ErrorUso for an unknown option, a missing value, an option given
    // twice or a stray word, and AyudaPedida for --help, -h or --ayuda.
    void analiza(const QStringList& args);

    bool presente(const QString& nombre) const;
    std::optional<QString> valor(const QString& nombre) const;
    bool bandera(const QString& nombre) const { return presente(nombre); }
    // --db, else VKFACTUVEN_DB, else ./datos.
    QString baseDatos() const;
    bool detalle() const { return presente(QStringLiteral("detalle")); }

    // Checked values; nothing when the option was not given.
    std::optional<QDate> fecha(const QString& nombre) const;
    std::optional<qint32> entero(const QString& nombre, qint32 minimo, qint32 maximo) const;
    std::optional<QString> serie(const QString& nombre) const;
    // One of `admitidos`, as written there.
    std::optional<QString> eleccion(const QString& nombre, const QStringList& admitidos) const;
    // The value, or an ErrorUso with `mensaje` when the option is missing.
    QString requerido(const QString& nombre, const QString& mensaje) const;

    QString ayuda() const;

private:
    struct Declarada {
        QString nombre;
        QString nombreValor; // empty for a flag
        QString ayuda;
        bool valorOpcional = false;
    };
    const Declarada* busca(const QString& nombre) const;
    void declara(Declarada d);

    QString orden_;
    QString uso_;
    QString descripcion_;
    std::vector<Declarada> declaradas_;
    QStringList presentes_;
    QList<QPair<QString, QString>> valores_;
};

// Whether the command asked for the technical detail of database errors
// (--detalle); the program's error handler reads it.
bool DetalleDeErrores();
// Options before the command's name (`vkfactuven --detalle facturar ...`).
void EstableceDetalleDeErrores(bool detalle);

// --- checks of one value, for the commands' own options ---
// `opcion` names the option in the message ("--fecha").

// A date as people type it (DD/MM/AAAA), between 01/01/2000 and 31/12/2099.
QDate LeeFechaOpcion(const QString& opcion, const QString& texto);
// A whole number, nothing after it, between `minimo` and `maximo`.
qint32 LeeEnteroOpcion(const QString& opcion, const QString& texto, qint32 minimo, qint32 maximo);
// Whole numbers separated by commas ("11,18"), each in range, without repeats.
QList<qint32> LeeListaEnterosOpcion(const QString& opcion, const QString& texto, qint32 minimo,
                                    qint32 maximo);
// An invoice series: not blank, up to 10 letters, digits or hyphens.
QString LeeSerieOpcion(const QString& opcion, const QString& texto);
// The series as part of a file name: what is not a letter, a digit or a
// hyphen becomes '_'.
QString SerieEnNombreFichero(const QString& serie);

// --- checks against the company, after opening it and before writing ---

// The user must exist in vkcomun.Usu; ErrorUso otherwise.
void CompruebaUsuario(BdSesion& bd, qint32 idUsuario);
// The customer code must exist in Cli; gives the customer's id (Cli_Id).
qint32 CompruebaCliente(BdSesion& bd, qint32 codigo);

} // namespace vk::app
