// The copy screen ("Copia de facturas"), opened from the invoice editor: a
// new invoice with the same notes as the one shown, or a credit note that
// corrects it, in the series and on the date chosen, optionally for another
// customer. Toolkit-free: the source is never written; the engine's copy
// makes the new invoice in one transaction.
#pragma once

#include <Interaccion.h>
#include <QDate>
#include <QString>
#include <QStringList>
#include <array>
#include <optional>
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
    // 0 series of the new invoice, 1 the source's number (shown only), 2
    // date of the new invoice.
    std::array<QString, 3> Text1;
    QString lblCliente; // code and name of the customer of the new invoice
    QString lblCliObs;
    std::vector<AlbaranCopia> dbgAlbaranes;
    QStringList cboSeries;
    int cboSeriesIndex = -1;
    bool Check1 = false; // "Factura Rectificativa/Abono"
    bool Check2 = false; // "Factura a Origen"

    // Change of customer through the lookup list.
    void XPButton2();
    // Makes the copy after asking; true when a new invoice was made.
    bool cmdCopiar();
    // Closes without copying.
    void cmdSalir() {}

    // The invoice made by cmdCopiar; 0 when none.
    qint32 IdNueva() const { return idNueva_; }
    qint32 IdOrigen() const { return idOrigen_; }

private:
    void muestraCliente(qint32 idCliente);

    VKFACVENTAS& factura_;
    BdSesion& bd_;
    const qint32 idOrigen_;
    qint32 idNueva_ = 0;
    // The customer chosen with XPButton2; none keeps the source's.
    std::optional<qint32> idCliente_;
};

} // namespace vk
