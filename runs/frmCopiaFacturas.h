// The copy screen ("Copia de facturas"), opened from the invoice editor: a
// new invoice with the same notes as the one shown, or a credit note that
// corrects it, in the series and on the date chosen, optionally for another
// customer, with its address, payment terms, discounts and remarks as the
// person leaves them. Toolkit-free: the source is never written; the
// engine's copy makes the new invoice in one transaction.
#pragma once

#include "CajasDireccion.h"

#include <FacturacionAlbaranes.h>
#include <Interaccion.h>
#include <QDate>
#include <QString>
#include <QStringList>
#include <RegistroFactura.h>
#include <array>
#include <vector>

namespace vk {

class BdSesion;
class VKFACVENTAS;

// One delivery note of the source invoice (dbgAlbaranes).
struct AlbaranCopia {
    QString albaran; // series/number
    QDate fecha;
};

class frmCopiaFacturas : public DialogoModelo {
public:
    // Loads the source invoice `idOrigen`; throws ErrorRegla when it does not
    // exist.
    frmCopiaFacturas(VKFACVENTAS& factura, qint32 idOrigen);

    QString Nombre() const override { return QStringLiteral("frmCopiaFacturas"); }

    QString Caption = QStringLiteral("Copia de facturas");
    // The editor's boxes: 0 series of the new invoice, 1 the source's number
    // (shown only), 2 date of the new invoice (the server's today), the
    // address (see CajasDireccion), 20 and 22 discount percentages, 24
    // attention line.
    std::array<QString, 41> Text1;
    CajasDireccion direccion{Text1};
    QStringList cboFpago;
    int cboFpagoIndex = -1;
    QString txtFavObs;
    QString lblCliente; // code and name of the customer of the new invoice
    QString lblCliObs;
    std::vector<AlbaranCopia> dbgAlbaranes;
    QStringList cboSeries;
    int cboSeriesIndex = -1;
    bool Check1 = false; // "Factura Rectificativa/Abono"
    bool Check2 = false; // "Factura a Origen"

    // Change of customer through the lookup list: its terms, attention line
    // and fiscal address replace what the boxes show.
    void XPButton2();
    // Other addresses of the customer of the new invoice.
    void cmdDir();
    // Makes the copy after asking; true when a new invoice was made.
    bool cmdCopiar();
    // Closes without copying.
    void cmdSalir() {}

    // The invoice made by cmdCopiar; 0 when none.
    qint32 IdNueva() const { return idNueva_; }
    qint32 IdOrigen() const { return idOrigen_; }

private:
    // Fills the boxes from a header the engine composed.
    void muestra(const CabeceraFactura& cabecera);
    // The header the boxes hold; throws ErrorRegla for a date that is none.
    CabeceraFactura cabeceraMostrada() const;

    VKFACVENTAS& factura_;
    BdSesion& bd_;
    const qint32 idOrigen_;
    RegistroFactura origen_;
    qint32 idNueva_ = 0;
    // As composed at the last load or change of customer: what a box that
    // holds no number falls back to, and what the boxes do not show.
    CabeceraFactura cabecera_;
};

} // namespace vk
