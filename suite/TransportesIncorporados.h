// The built-in transport class: the legs of the trips (TrDes) are invoiced one
// line each on the invoice's first note, the line pointing at its leg
// (Lav_IdViaje) and the leg at its line (TrDes_IdLav).
#pragma once

#include "Transportes.h"

#include <QString>

namespace vk::suite {

// Screen that shows one leg, read-only (frmTramo).
inline const QString kPantallaTramo = QStringLiteral("frmTramo");

class TransportesIncorporados : public VKTrans {
public:
    // Opens frmTramo through the host's launcher with the arguments
    // "idTramo" and "idLav". Throws Error when the host registered no
    // launcher.
    void jMuestraTramo(qint32 idTramo, qint32 idLav) override;
    // Lists the legs invoiced on the customer's notes (trip, unload date,
    // town, amount of the line), newest first. Nothing is chosen for.
    void jViajesCliente(qint32 idCliente) override;
    // Lists the legs no line invoices yet and asks the amount of the chosen
    // one. A leg belongs to no customer until it is invoiced, so every free
    // leg is offered. Nothing when none was chosen, the amount was cancelled
    // or was not a number (which is told).
    std::optional<TramoElegido> EligeTramo(qint32 idCliente) override;
    // Adds the line (one unit at the amount, the VAT row of the note's first
    // line) after the last one of the invoice's first note, by date then id,
    // and then takes the leg only if it is still free. ErrorRegla when the
    // invoice has no note, the note has no line, or another invoice took the
    // leg; the caller's transaction then undoes the line.
    void FacturaTramo(qint32 idFactura, const TramoElegido& tramo) override;
    // Frees the leg the line invoices and deletes the line.
    void QuitaTramo(qint32 idLav) override;
};

// Registers TransportesIncorporados under VKTrans::kProgId.
void RegistraTransportes();

} // namespace vk::suite
