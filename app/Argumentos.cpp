#include "Argumentos.h"

namespace vk::app {

Argumentos::Argumentos(const QStringList& args, const QStringList& conValor,
                       const QStringList& banderas) {
    for (int i = 0; i < args.size(); ++i) {
        const QString& a = args[i];
        if (conValor.contains(a)) {
            if (i + 1 >= args.size()) {
                throw ErrorUso(QStringLiteral("Falta el valor de la opción %1.").arg(a));
            }
            valores_.append({a, args[++i]});
        } else if (banderas.contains(a)) {
            banderas_ << a;
        } else {
            throw ErrorUso(QStringLiteral("Opción desconocida: %1").arg(a));
        }
    }
}

std::optional<QString> Argumentos::valor(const QString& nombre) const {
    for (const auto& [n, v] : valores_) {
        if (n == nombre) {
            return v;
        }
    }
    return std::nullopt;
}

QString Argumentos::baseDatos() const {
    if (const auto db = valor(QStringLiteral("--db"))) {
        return *db;
    }
    const QString entorno = qEnvironmentVariable("VKFACTUVEN_DB");
    return entorno.isEmpty() ? QStringLiteral("./datos") : entorno;
}

} // namespace vk::app
