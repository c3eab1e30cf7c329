// The maintenance of one receipt of a sales invoice ("Mantenimiento de
// recibos"), opened by the treasury's jManteRecibos: its invoice, customer,
// mode and account shown, its due date, amount, state and remarks changed.
// Toolkit-free like every screen model: the controls are typed members with
// their names, the commands are methods, people are reached through the
// interaction port.
#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <vector>

namespace vk {
class BdSesion;
}

namespace vk::suite {

// Another receipt of the same invoice (dbgRecibos).
struct OtroRecibo {
    qint32 Rec_Id = 0;
    QDate Rec_FVto;
    double Rec_Importe = 0;
    QString Situacion;
};

class frmManteRecibos {
public:
    // Loads receipt `idRecibo` of sales. With `bCobPag`, or when the receipt
    // is no longer pending, the screen is read-only. Throws ErrorRegla when
    // the receipt does not exist.
    frmManteRecibos(BdSesion& bd, qint32 idRecibo, bool bCobPag = false);

    QString Caption;

    // Shown only.
    QString lblFactura;      // "A/17"
    QString lblFechaFactura; // dd/mm/yyyy
    QString lblCliente;      // code and name
    QString lblModalidad;    // mode code and description
    QString lblCuenta;       // the collection account
    std::vector<OtroRecibo> dbgRecibos;

    // Written by cmdAceptar.
    QString txtFVto; // dd/mm/yyyy
    QString txtImporte;
    QString txtObser;
    QStringList cboSituacion; // descriptions of the states, in code order
    int cboSituacionIndex = -1;

    // Read-only: the boxes, the combo and cmdAceptar are disabled.
    bool SoloLectura() const { return soloLectura_; }
    qint32 IdRecibo() const { return idRecibo_; }

    // Saves the due date, amount, state and remarks in one transaction; a
    // lowered amount leaves the rest in a new pending receipt of the same
    // invoice and due date. A refusal is told through the port and nothing is
    // written. True when saved: the screen closes.
    bool cmdAceptar();
    // Leaves without writing.
    void cmdCancelar() {}

private:
    // Reads the receipt, its invoice and customer, and the other receipts.
    void carga();
    // What the boxes hold, checked against the invoice as read in `bd_`'s
    // current state; throws ErrorRegla with the person's message.
    struct Cambio {
        QDate vencimiento;
        double importe = 0;
        qint32 situacion = 0;
        QString observaciones;
    };
    Cambio leeCambio() const;
    // The checks and the writes, inside the transaction.
    void graba(const Cambio& c);

    BdSesion& bd_;
    const qint32 idRecibo_;
    const bool bCobPag_;
    bool soloLectura_ = true;
    bool yaNoPendiente_ = false; // the last save found it under way or gone
    qint32 idFactura_ = 0;
    double importeCargado_ = 0;
    std::vector<qint32> situaciones_; // the codes of cboSituacion's items
};

} // namespace vk::suite
