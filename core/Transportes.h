// The suite's transport class, created by name: the legs of its trips (the
// unloads, TrDes) are invoiced one line each, the line pointing at its leg
// (Lav_IdViaje) and the leg at its line (TrDes_IdLav).
#pragma once

#include "Componentes.h"

#include <QString>
#include <optional>

namespace vk {

class BdSesion;

class VKTrans : public Componente {
public:
    static constexpr const char* kProgId = "VKTRANSPORTES.VKTrans";

    BdSesion* MyBd = nullptr;

    struct TramoElegido {
        qint32 idTramo = 0;
        double importe = 0;
        QString descripcion;
    };
    // Shows a leg with its load and trip.
    virtual void jMuestraTramo(qint32 idTramo, qint32 idLav) = 0;
    // Lists the customer's trips.
    virtual void jViajesCliente(qint32 idCliente) = 0;
    // Asks the person for a leg not yet invoiced and its amount; writes
    // nothing. Nothing when none was chosen.
    virtual std::optional<TramoElegido> EligeTramo(qint32 idCliente) = 0;
    // Inside the caller's transaction: a line on the invoice's first note
    // invoices the leg, only while the leg is still free (ErrorRegla
    // otherwise).
    virtual void FacturaTramo(qint32 idFactura, const TramoElegido& tramo) = 0;
    // Inside the caller's transaction: removes the line that invoices a leg
    // and frees the leg.
    virtual void QuitaTramo(qint32 idLav) = 0;
};

} // namespace vk
