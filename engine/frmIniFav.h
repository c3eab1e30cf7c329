// The small dialog that asks for the first number of a series that has no
// invoices yet. It writes the answer into the facade's NumeroFactura; when it
// is closed without accepting, NumeroFactura keeps the -1 that the caller
// left there.
#pragma once

#include <Interaccion.h>
#include <QString>

namespace vk {

class VKFACVENTAS;

class frmIniFav : public DialogoModelo {
public:
    explicit frmIniFav(VKFACVENTAS& factura); // Form_Load
    QString Nombre() const override { return QStringLiteral("frmIniFav"); }

    const QString Caption = QStringLiteral("Inicialización de Series de facturación");
    QString lblSerie; // "Serie: " + the series
    QString Text1;    // the first number; empty means 1

    // "&Aceptar": takes the number (1 when empty). False, with a message,
    // when the text is not a whole number above 0: the dialog stays open.
    bool cmdInforme();
    // Closes without change.
    void XPButton1() {}

private:
    VKFACVENTAS& factura_;
};

} // namespace vk
