// A new invoice made from another: a plain copy, or a credit note that
// corrects it. Spanish invoices are never changed once issued: a mistake is
// put right by a credit note, which names the invoice it corrects.
#pragma once

#include "FacturacionAlbaranes.h"

#include <QDate>
#include <QString>
#include <optional>

namespace vk {

class VKFACVENTAS;

struct CopiaFactura {
    qint32 idOrigen = 0;
    QString serie; // of the new invoice, which takes the next number there
    QDate fecha;
    // Another customer: its payment terms (unless it has none), attention
    // line, retention and fiscal address.
    std::optional<qint32> idCliente;
    bool abono = false;
};

// In one transaction: for each note of the source, a new note of the suite's
// delivery note class (VKALBARANES.VKAlbVentas, msCopiaAlbaran; negated for a
// credit note, with the source's tax rows), then the invoice of those notes
// exactly as the invoicing makes one (number and date under the series lock,
// totals, save, receipts). The source and its notes are never touched. Any
// failure leaves nothing written: the result is NoHecha with the reason.
ResultadoFacturacion msCopiaFactura(VKFACVENTAS& factura, const CopiaFactura& copia);

} // namespace vk
