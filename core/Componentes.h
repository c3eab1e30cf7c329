// The suite's classes are created by name, as they always were
// (CreaObjeto("VKTESORERIA.VKTESORE")). suite/ registers the built-in
// implementations; a host may register its own under the same name.
#pragma once

#include <QString>
#include <functional>
#include <memory>

namespace vk {

class Componente {
public:
    virtual ~Componente() = default;
};

using FabricaComponente = std::function<std::unique_ptr<Componente>()>;

// Registers (or replaces) the factory of a program id. Names match without
// regard to case.
void RegistraComponente(const QString& progId, FabricaComponente fabrica);
void OlvidaComponente(const QString& progId);
bool ExisteComponente(const QString& progId);

// Throws Error when nothing is registered under the name.
std::unique_ptr<Componente> CreaObjeto(const QString& progId);

// Creates it and checks it offers the interface the caller needs.
template <typename T> std::unique_ptr<T> CreaObjeto(const QString& progId);

[[noreturn]] void ErrorInterfazComponente(const QString& progId);

template <typename T> std::unique_ptr<T> CreaObjeto(const QString& progId) {
    std::unique_ptr<Componente> c = CreaObjeto(progId);
    T* t = dynamic_cast<T*>(c.get());
    if (!t) {
        ErrorInterfazComponente(progId);
    }
    c.release();
    return std::unique_ptr<T>(t);
}

} // namespace vk
