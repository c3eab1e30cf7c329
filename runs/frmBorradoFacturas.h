// The batch deletion of sales invoices, for administrators: the invoices of a
// series between two numbers and two dates are listed, and those listed go at
// once, with their receipts, retention rows and posting. Toolkit-free: the
// controls are typed members with their names, the commands are methods.
#pragma once

#include <QDate>
#include <QString>
#include <array>
#include <vector>

namespace vk {

class BdSesion;
class VKFACVENTAS;

// One row of dbgFacturas.
struct FacturaBorrable {
    qint32 Fav_Id = 0;
    QString Factura; // series/number
    QDate Fecha;
    double Total = 0;
    double Descuentos = 0;
    double Bases = 0;
    double Iva = 0;
    double Recargo = 0;
    double Retencion = 0;
    QString Cliente; // "name  (code)"
    QString Documento;
    QString EstadoContable;
};

class frmBorradoFacturas {
public:
    explicit frmBorradoFacturas(VKFACVENTAS& factura); // Form_Load

    QString Caption;
    // Set when the screen refused to open: the host closes it.
    bool Cerrada = false;
    // 0-1 from/to number, 2-3 from/to date, 5 series.
    std::array<QString, 6> Text1;
    bool Check1 = false; // delete the notes too
    // The notes of the transport and warehouse modules are not all undone.
    bool Label2_Visible = false;
    QString Label2;
    std::vector<FacturaBorrable> dbgFacturas;
    bool cmdBorrar_Enabled = false;

    void cmdBuscar();
    void cmdBorrar();

    // What the last deletion removed, for hosts that report it.
    int facturasBorradas = 0;
    bool ultimaOrdenFallida = false;

private:
    VKFACVENTAS& factura_;
    BdSesion& bd_;
};

} // namespace vk
