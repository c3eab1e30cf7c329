// The treasury class of the suite, created by name: it turns a saved invoice
// into its receipts (Rec). The invoicing sets the properties, calls
// Calculo_Vtos_Factura and reads sCobro for the posting.
#pragma once

#include "Componentes.h"

#include <QDate>
#include <QString>
#include <optional>

namespace vk {

class BdSesion;

class VKTESORE : public Componente {
public:
    static constexpr const char* kProgId = "VKTESORERIA.VKTESORE";

    BdSesion* MyBd = nullptr;
    qint32 idfactura = 0;
    QString SerieFactura;
    qint32 NumeroFactura = 0;
    qint32 NumFactura = 0;
    QDate FechaFactura;
    // What the receipts add up to: the invoice's Liquido.
    double TotalFactura = 0;
    qint32 IdFormaCobro = 0;
    qint32 IdCliente = 0;
    // The customer's fixed payment days of the month (0: none) and month
    // without payment (1-12; 0: none).
    qint16 DiasPago1 = 0;
    qint16 DiasPago2 = 0;
    qint16 MesSinPago = 0;
    QString CtaCobroCliente;
    QString CtaBancoAsignado;
    QString sIban;
    QString sSwift;
    bool bCartera = false;
    std::optional<qint32> Idagente; // set only when a note has an agent
    bool bCobPag = false;

    // Writes the receipts of the invoice. With nCompensa 1 the invoice is
    // settled by offset.
    virtual void Calculo_Vtos_Factura(qint16 nCompensa = 0) = 0;
    // The collection for the posting: empty when the invoice is not collected
    // at once; pieces joined by the character of code 1 whose second piece is
    // the account of a card or bank; one character or less for cash.
    virtual QString sCobro() const = 0;
    // Opens the maintenance of one receipt.
    virtual void jManteRecibos(qint32 idRecibo) = 0;
};

} // namespace vk
