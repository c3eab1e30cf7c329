// The parameter dialog for invoicing one delivery note. It is kept ready for
// its entry, which is reserved: it fills itself and has no action of its own.
#pragma once

#include <QString>
#include <QStringList>
#include <array>

namespace vk {

class VKFACVENTAS;

class frmFactuAlbaran {
public:
    explicit frmFactuAlbaran(VKFACVENTAS& factura); // Form_Load

    const QString Caption = QStringLiteral("Facturación de un Albaran");
    std::array<QString, 7> Text1; // 5 series, 6 invoice date
    QString txtObservaciones;
    QStringList cboFpago;
    int cboFpagoIndex = -1;
    QStringList cboDir;
    int cboDirIndex = -1;
    bool Visible = true;

    void XPButton1() { Visible = false; } // closes, as Escape does
};

} // namespace vk
