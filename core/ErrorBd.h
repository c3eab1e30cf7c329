// The one exception type of the library. Facade operations let a failed query
// reach the caller as this error; screens catch it and show its Spanish text.
// The database's own text and the statement travel apart, in Detalle(), for
// a log or a `--detalle` run, never in the message a person reads.
#pragma once

#include <QString>
#include <stdexcept>

namespace vk {

// What kind of failure it was, for callers that react to the kind rather
// than to the text: a run stops at a busy or broken database, since every
// following invoice would fail the same way.
enum class ClaseError {
    General,        // a statement or a rule refused this one operation
    Ocupada,        // another user holds the database's lock past the wait
    Almacenamiento, // disk full, read-only, input/output error, connection lost
};

class ErrorBd : public std::runtime_error {
public:
    // Codes the callers test: 9999 is raised by a caller after a builder step
    // returned False; 999 means the user has been told already.
    static constexpr int kGeneral = 0;
    static constexpr int kBuilder = 9999;
    static constexpr int kYaAvisado = 999;

    explicit ErrorBd(const QString& mensaje, int codigo = kGeneral)
        : std::runtime_error(mensaje.toStdString()), mensaje_(mensaje), codigo_(codigo) {}
    // what() carries both, for logs and test reports; people read Mensaje().
    ErrorBd(const QString& mensaje, const QString& detalle, ClaseError clase)
        : std::runtime_error(
              (detalle.isEmpty() ? mensaje : mensaje + QLatin1Char('\n') + detalle).toStdString()),
          mensaje_(mensaje), detalle_(detalle), clase_(clase) {}

    const QString& Mensaje() const { return mensaje_; }
    // The technical detail (the server's text, the statement); may be empty.
    const QString& Detalle() const { return detalle_; }
    int Codigo() const { return codigo_; }
    ClaseError Clase() const { return clase_; }
    // The whole database is unusable for now, not just this operation.
    bool AfectaATodo() const { return clase_ != ClaseError::General; }

private:
    QString mensaje_;
    QString detalle_;
    int codigo_ = kGeneral;
    ClaseError clase_ = ClaseError::General;
};

} // namespace vk
