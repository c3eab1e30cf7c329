// The interaction port: the only way the library talks to a person. Screens
// and the engine ask through it; the desktop host answers with message boxes,
// the command line with its terminal, the tests from a script.
#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <optional>
#include <vector>

namespace vk {

enum class Icono { Ninguno, Informacion, Aviso, Error, Pregunta };

// A modal child dialog's model (first number of a series, issue options ...).
class DialogoModelo {
public:
    virtual ~DialogoModelo() = default;
    // The screen's name, as the view and the scripts know it ("frmIniFav").
    virtual QString Nombre() const = 0;
};

// What the lookup list shows: rows of id, code and name, and any further
// columns after them.
struct PeticionBusca {
    QString titulo;
    QString columna; // column searched and sorted on
    QString cabeceraCodigo;
    QString cabeceraNombre;
    int anchoCodigo = 0; // twips
    int anchoNombre = 0;
    QStringList columnas;
    std::vector<std::vector<QVariant>> filas;
    // False keeps the rows in the order given (newest first, say) instead of
    // sorting them on the searched column.
    bool ordenar = true;
};

class Interaccion {
public:
    virtual ~Interaccion() = default;

    // MsgBox with an OK button.
    virtual void Mensaje(const QString& texto, Icono icono, const QString& titulo) = 0;
    // Yes/No question; `siPorDefecto` is the button that Enter presses.
    virtual bool Pregunta(const QString& texto, const QString& titulo, bool siPorDefecto) = 0;
    // InputBox: nothing when cancelled.
    virtual std::optional<QString> PideTexto(const QString& texto, const QString& titulo,
                                             const QString& defecto) = 0;
    // Lookup list: the index of the chosen row, nothing when none was chosen.
    virtual std::optional<int> Busca(const PeticionBusca& peticion) = 0;
    // Shows a child dialog modally; true when it was accepted.
    virtual bool MuestraDialogo(DialogoModelo& dialogo) = 0;

    // The printer dialog: the chosen printer (a CUPS queue), nothing when
    // cancelled. Hosts without one keep the current printer.
    virtual std::optional<QString> EligeImpresora(const QString& actual) {
        (void)actual;
        return std::nullopt;
    }

    // Long runs: wait pointer, a chance to repaint, and how far they are.
    virtual void PunteroEspera(bool) {}
    virtual void Cede() {}
    virtual void Progreso(int hechos, int total, const QString& texto) {
        (void)hechos;
        (void)total;
        (void)texto;
    }
};

// The port the host registered for this process, or nullptr.
Interaccion* InteraccionActual();
void EstableceInteraccion(Interaccion* interaccion);
// The registered port; throws Error when there is none.
Interaccion& Ui();

// Registers a port for a scope and puts the previous one back after it.
class UsaInteraccion {
public:
    explicit UsaInteraccion(Interaccion& interaccion) : anterior_(InteraccionActual()) {
        EstableceInteraccion(&interaccion);
    }
    ~UsaInteraccion() { EstableceInteraccion(anterior_); }
    UsaInteraccion(const UsaInteraccion&) = delete;
    UsaInteraccion& operator=(const UsaInteraccion&) = delete;

private:
    Interaccion* anterior_;
};

} // namespace vk
