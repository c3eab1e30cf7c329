// The one exception type of the library. Facade operations let a failed query
// reach the caller as this error; screens catch it and show its Spanish text.
#pragma once

#include <QString>
#include <stdexcept>

namespace vk {

class ErrorBd : public std::runtime_error {
public:
    // Codes the callers test: 9999 is raised by a caller after a builder step
    // returned False; 999 means the user has been told already.
    static constexpr int kGeneral = 0;
    static constexpr int kBuilder = 9999;
    static constexpr int kYaAvisado = 999;

    explicit ErrorBd(const QString& mensaje, int codigo = kGeneral)
        : std::runtime_error(mensaje.toStdString()), mensaje_(mensaje), codigo_(codigo) {}

    const QString& Mensaje() const { return mensaje_; }
    int Codigo() const { return codigo_; }

private:
    QString mensaje_;
    int codigo_;
};

} // namespace vk
