// One delivery note, read-only: its header, its state against the invoicing,
// its lines and its total. Opened from the invoice edit screen on a line of
// the note, which becomes the current line.
#pragma once

#include <QString>
#include <vector>

namespace vk {

class BdSesion;

// One line of the note, as the grid shows it.
struct LineaAlbaranVenta {
    qint32 Lav_Id = 0;
    QString orden;
    QString codigo;
    QString descripcion;
    QString cantidad;
    QString precio;
    QString dto1;
    QString dto2;
    QString importe;
    QString iva;   // the line's VAT rate
    QString tramo; // the transport leg the line invoices; empty for none
};

class frmAlbaranVenta {
public:
    // Loads note `idCav`, line `idLav` current (the first when 0 or not one
    // of the note's). Throws ErrorRegla when the note does not exist.
    frmAlbaranVenta(BdSesion& bd, qint32 idCav, qint32 idLav);

    QString Caption;
    QString txtAlbaran; // series/number
    QString txtFecha;
    QString txtCliCod;
    QString txtCliNom;
    QString txtSituacion; // "Pendiente" or "Facturado en A/12"
    QString txtFactura;   // the invoice's series/number; empty while pending
    QString txtFormaPago;
    QString txtDto1;
    QString txtDto2;
    QString txtAgente;
    QString txtTotal;
    std::vector<LineaAlbaranVenta> dbgLineas;
    int filaLinea = -1;
    bool Visible = true;

    void cmdSalir() { Visible = false; } // closes, as Escape does
};

} // namespace vk
