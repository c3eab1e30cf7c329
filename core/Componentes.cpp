#include "Componentes.h"

#include "ErrorBd.h"

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
        throw ErrorBd(QStringLiteral("No se puede crear el objeto «%1»: no hay ningún componente "
                                     "instalado con ese nombre.")
                          .arg(progId));
    }
    std::unique_ptr<Componente> c = (*it)();
    if (!c) {
        throw ErrorBd(QStringLiteral("No se puede crear el objeto «%1».").arg(progId));
    }
    return c;
}

void ErrorInterfazComponente(const QString& progId) {
    throw ErrorBd(
        QStringLiteral("El objeto «%1» no ofrece la interfaz que se esperaba.").arg(progId));
}

} // namespace vk
