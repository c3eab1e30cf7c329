// The built-in treasury class: turns a saved invoice into its receipts (Rec)
// and tells the posting how the invoice was collected.
#pragma once

#include "Tesoreria.h"

#include <QDate>
#include <QString>

namespace vk {
class BdSesion;
}

namespace vk::suite {

// Modes of a receipt (Situaciones process 2) that decide the collection.
inline constexpr int kModoTarjeta = 7;
// Description of the card mode, the third piece of a card collection.
inline const QString kDescripcionTarjeta = QStringLiteral("Tarjeta");
// Screen of the maintenance of one receipt.
inline const QString kPantallaRecibos = QStringLiteral("frmManteRecibos");

// A new receipt of a sales invoice: the columns every receipt carries.
struct DatosRecibo {
    qint32 idFactura = 0;
    qint32 idCliente = 0;
    QString serie;
    qint32 numero = 0;
    QDate vencimiento;
    double importe = 0;
    QString cta;      // the customer's collection account
    QString ctaBanco; // the bank given for the collection
    QString iban;
    QString swift;
    qint32 modo = 0; // Situaciones process 2
    qint32 agente = 0;
    bool cartera = false;
    QString texto; // what the invoice prints as its way of payment
};

// "A/17", or the number alone for an invoice without series: how messages
// name an invoice.
QString NombreFactura(const QString& serie, qint32 numero);

// Writes `r` as a pending receipt of sales (Rec_Tipo 1, Rec_Sit 1, no
// remittance, no remarks) in the caller's transaction. Throws ErrorBd, naming
// the invoice, when it cannot be written.
void InsertaRecibo(BdSesion& bd, const DatosRecibo& r);

class TesoreriaIncorporada : public VKTESORE {
public:
    // Writes the receipts of invoice `idfactura` in the caller's transaction
    // (it opens none), from the instalments of `IdFormaCobro` (Vencimientos.h
    // tells how amounts and dates are made).
    //
    // - The invoice's pending receipts (Rec_Sit 1) are deleted first, so saving
    //   an invoice again replaces them instead of doubling them.
    // - Receipts already under way (any other Rec_Sit) are kept as they are;
    //   the new receipts cover TotalFactura less what those hold. When receipts
    //   are under way and nothing is left to cover, no receipt is written.
    // - Every receipt carries the same Rec_Texto, what the invoice prints as
    //   its way of payment: Fco_Des, then "dd/mm/yyyy  1.234,56 €" for each
    //   new due date, joined by "#".
    // - sCobro() is set from the terms, whether receipts were written or not.
    //
    // Throws Error without MyBd, ErrorRegla without an invoice id or date, and
    // ErrorBd when a receipt cannot be written (code kBuilder, with the
    // server's text).
    void Calculo_Vtos_Factura(qint16 nCompensa = 0) override;

    // The collection for the posting, after Calculo_Vtos_Factura:
    // - nCompensa 1: "", the invoice is settled by offset and the posting takes
    //   the invoice's offset account; this wins over the rules below.
    // - Every instalment due at once (0 days), all cash (mode 1): "1", one
    //   character being a cash collection.
    // - Every instalment due at once, all card (mode 7): when CtaBancoAsignado
    //   is all digits, "7" + Chr(1) + that account + Chr(1) + "Tarjeta", the
    //   account being the second piece the posting books; without such an
    //   account the card is collected as cash, "1".
    // - Anything else, including terms without instalments (a receipt is
    //   pending, nothing says the money was taken) and instalments at once of
    //   mixed modes: "", no collection is posted.
    QString sCobro() const override { return sCobro_; }

    // Opens the maintenance screen of receipt `idRecibo` through the host's
    // launcher, with the arguments "idRecibo" and "bCobPag". Throws Error
    // when the host registered no launcher.
    void jManteRecibos(qint32 idRecibo) override;

private:
    QString sCobro_;
};

// Registers TesoreriaIncorporada under VKTESORE::kProgId.
void RegistraTesoreria();

} // namespace vk::suite
