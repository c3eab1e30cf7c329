// The suite's delivery note class, created by name: the invoicing asks it to
// find a customer's notes that can still be invoiced and to show a note.
#pragma once

#include "Componentes.h"

#include <QString>
#include <optional>

namespace vk {

class BdSesion;

class VKAlbVentas : public Componente {
public:
    static constexpr const char* kProgId = "VKALBARANES.VKAlbVentas";

    BdSesion* MyBd = nullptr;

    struct AlbaranElegido {
        QString serie;
        qint32 numero = 0;
    };
    // The search of the customer's pending notes; nothing when the person
    // chose none.
    virtual std::optional<AlbaranElegido> BuscaAlbaranesCliente(qint32 idCliente) = 0;
    // Shows a note with its lines, the line `idLav` current (0: the first).
    virtual void jMuestraAlbaran(qint32 idCav, qint32 idLav) = 0;
};

} // namespace vk
