// The built-in delivery note class: the search of a customer's notes that can
// still be invoiced, and the screen that shows one note.
#pragma once

#include "AlbaranesVentas.h"

#include <QString>

namespace vk::suite {

// Screen that shows one note, read-only (frmAlbaranVenta).
inline const QString kPantallaAlbaran = QStringLiteral("frmAlbaranVenta");

class AlbaranesIncorporados : public VKAlbVentas {
public:
    // The customer's notes pending invoicing (Cav_Situa 1, no invoice),
    // newest first, with their date and amount; the chosen one's series and
    // number. Throws Error without MyBd.
    std::optional<AlbaranElegido> BuscaAlbaranesCliente(qint32 idCliente) override;
    // Opens frmAlbaranVenta through the host's launcher with the arguments
    // "idCav" and "idLav". Throws Error when the host registered no launcher.
    void jMuestraAlbaran(qint32 idCav, qint32 idLav) override;
    qint32 msCopiaAlbaran(qint32 idCavOrigen, qint32 idFactura, const QDate& fecha,
                          qint32 idCliente, bool abono) override;
};

// Registers AlbaranesIncorporados under VKAlbVentas::kProgId.
void RegistraAlbaranes();

} // namespace vk::suite
