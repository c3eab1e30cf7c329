// The suite's delivery note class, created by name: the invoicing asks it to
// find a customer's notes that can still be invoiced and to show a note.
#pragma once

#include "Componentes.h"

#include <QDate>
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
    // Inside the caller's transaction: a new note of the same series, with
    // the next number there, for the customer and date given, with the lines
    // of `idCavOrigen` and their tax rows; for a credit note every quantity
    // and amount negated, the prices kept. Linked to `idFactura` (Cav_Situa
    // 2), or left pending for the invoicing to link when it is 0. For another
    // customer the note takes its regime, and each line the tax row of the
    // same kind of goods in that regime. The source note is not touched.
    // Gives the new note's id.
    virtual qint32 msCopiaAlbaran(qint32 idCavOrigen, qint32 idFactura, const QDate& fecha,
                                  qint32 idCliente, bool abono) = 0;
};

} // namespace vk
