// The errors of the library, by what failed. Each carries the Spanish text a
// person reads and, apart, the technical detail (the server's text, the
// statement, the file, the formula) for a log or a `--detalle` run, never in
// the message. Screens and hosts catch `Error` and show Mensaje(); callers
// that react to the kind catch the kind.
#pragma once

#include <QString>
#include <stdexcept>

namespace vk {

class Error : public std::runtime_error {
public:
    // Codes the callers test: 9999 is raised by a caller after a builder step
    // returned False; 999 means the user has been told already.
    static constexpr int kGeneral = 0;
    static constexpr int kBuilder = 9999;
    static constexpr int kYaAvisado = 999;

    explicit Error(const QString& mensaje, int codigo = kGeneral)
        : std::runtime_error(mensaje.toStdString()), mensaje_(mensaje), codigo_(codigo) {}
    // what() carries both, for logs and test reports; people read Mensaje().
    Error(const QString& mensaje, const QString& detalle, int codigo = kGeneral)
        : std::runtime_error(
              (detalle.isEmpty() ? mensaje : mensaje + QLatin1Char('\n') + detalle).toStdString()),
          mensaje_(mensaje), detalle_(detalle), codigo_(codigo) {}

    const QString& Mensaje() const { return mensaje_; }
    // The technical detail; may be empty.
    const QString& Detalle() const { return detalle_; }
    int Codigo() const { return codigo_; }

private:
    QString mensaje_;
    QString detalle_;
    int codigo_ = kGeneral;
};

// Data refused by a business rule: a date before the series' last invoice, a
// note already invoiced, a customer without a payment method. Nothing was
// written; the user can correct the data and try again.
class ErrorRegla : public Error {
public:
    using Error::Error;
};

// A device that would not take the output: a printer or its queue, a file or
// folder that cannot be written, a code page the system lacks.
class ErrorDispositivo : public Error {
public:
    using Error::Error;
};

// A report design, a formula or a stationery file that cannot be used.
class ErrorDiseno : public Error {
public:
    using Error::Error;
};

} // namespace vk
