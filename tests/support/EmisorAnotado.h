// Stands in for the issue dispatcher, which is registered by name: records
// the invoices each call would issue.
#pragma once

#include <Componentes.h>
#include <VKFACVENTAS.h>

#include <vector>

namespace vk::prueba {

class EmisorAnotado : public EmisorFacturas {
public:
    static inline std::vector<QVector<qint32>> llamadas;

    ResultadoEmision EmisionMultiplesFacturas(VKFACVENTAS&, qint16, bool,
                                              const QVector<qint32>& ids, bool, qint16) override {
        llamadas.push_back(ids);
        return ResultadoEmision::Hecha;
    }

    static void Registra() {
        llamadas.clear();
        RegistraComponente(QString::fromLatin1(kProgId),
                           [] { return std::make_unique<EmisorAnotado>(); });
    }
    static void Olvida() { OlvidaComponente(QString::fromLatin1(kProgId)); }
};

} // namespace vk::prueba
