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

class BdSesion;
class RegistroFactura;

struct CopiaFactura {
    qint32 idOrigen = 0;
    // The new invoice's header: its series (where it takes the next number),
    // date, customer, address, payment terms, discounts and remarks.
    CabeceraFactura cabecera;
    bool abono = false;
};

// The header a copy takes unless a person changes it: the source's data or,
// for another customer, that customer's payment terms (unless it has none),
// attention line, retention and fiscal address. Series and date are left for
// the caller. Throws ErrorRegla when the customer does not exist.
CabeceraFactura fnCabeceraCopia(BdSesion& bd, const RegistroFactura& origen,
                                std::optional<qint32> idCliente = std::nullopt);
// The copy of invoice `idOrigen` with that header, in `serie` on `fecha`.
// Throws ErrorRegla when the source or the customer does not exist.
CopiaFactura fnCopiaDe(BdSesion& bd, qint32 idOrigen, const QString& serie, const QDate& fecha,
                       std::optional<qint32> idCliente, bool abono);

// In one transaction: for each note of the source, a new note of the suite's
// delivery note class (VKALBARANES.VKAlbVentas, msCopiaAlbaran; negated for a
// credit note, with the source's tax rows), then the invoice of those notes
// exactly as the invoicing makes one (number and date under the series lock,
// totals, save, receipts). The source and its notes are never touched. Any
// failure leaves nothing written: the result is NoHecha with the reason.
ResultadoFacturacion msCopiaFactura(VKFACVENTAS& factura, const CopiaFactura& copia);

} // namespace vk
