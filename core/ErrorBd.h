// A failure of the database: a statement refused, a busy or broken database.
// Facade operations let it reach the caller; screens catch `Error` and show
// its Spanish text.
#pragma once

#include "Error.h"

namespace vk {

// What kind of failure it was, for callers that react to the kind rather
// than to the text: a run stops at a busy or broken database, since every
// following invoice would fail the same way.
enum class ClaseError {
    General,        // a statement or a rule refused this one operation
    Ocupada,        // another user holds the database's lock past the wait
    Almacenamiento, // disk full, read-only, input/output error, connection lost
};

class ErrorBd : public Error {
public:
    explicit ErrorBd(const QString& mensaje, int codigo = kGeneral) : Error(mensaje, codigo) {}
    ErrorBd(const QString& mensaje, const QString& detalle, ClaseError clase)
        : Error(mensaje, detalle), clase_(clase) {}

    ClaseError Clase() const { return clase_; }
    // The whole database is unusable for now, not just this operation.
    bool AfectaATodo() const { return clase_ != ClaseError::General; }

private:
    ClaseError clase_ = ClaseError::General;
};

// Whether an error of any kind leaves the whole database unusable for now.
inline bool AfectaATodo(const Error& e) {
    const auto* bd = dynamic_cast<const ErrorBd*>(&e);
    return bd && bd->AfectaATodo();
}

} // namespace vk
