#include "Componentes.h"

#include "Error.h"
#include "MensajesCore.h"

#include <QHash>

namespace vk {

namespace {
QHash<QString, FabricaComponente>& registro() {
    static QHash<QString, FabricaComponente> r;
    return r;
}
} // namespace

void RegistraComponente(const QString& progId, FabricaComponente fabrica) {
    registro().insert(progId.toUpper(), std::move(fabrica));
}

void OlvidaComponente(const QString& progId) {
    registro().remove(progId.toUpper());
}

bool ExisteComponente(const QString& progId) {
    return registro().contains(progId.toUpper());
}

std::unique_ptr<Componente> CreaObjeto(const QString& progId) {
    const auto it = registro().constFind(progId.toUpper());
    if (it == registro().constEnd()) {
        throw Error(mensajes::kComponenteNoInstalado.arg(progId));
    }
    std::unique_ptr<Componente> c = (*it)();
    if (!c) {
        throw Error(mensajes::kComponenteNoCreado.arg(progId));
    }
    return c;
}

void ErrorInterfazComponente(const QString& progId) {
    throw Error(mensajes::kComponenteSinInterfaz.arg(progId));
}

} // namespace vk
