// The invoice edit screen ("Edición de facturas"): one invoice of a series
// loaded by number, its notes, receipts and totals; walking the series,
// changing its data, notes, customer or series, a manual total, the
// rectifying flag, deleting the last invoice of a series and issuing it.
// Toolkit-free like every screen model: the controls are typed members with
// their names, the commands are methods, people are reached through the
// interaction port. Every write goes through the engine's edit operations
// (engine/EdicionFactura.h), one transaction each.
//
// One class over three files: frmEdicionFacturas.cpp (load, navigation,
// grids), frmEdicionFacturasGrabacion.cpp (save, date, series, manual total,
// receipts, flag) and frmEdicionFacturasComandos.cpp (notes, deletion,
// customer, addresses, issue, transport legs).
#pragma once

#include "CajasDireccion.h"

#include <EdicionFactura.h>
#include <QDate>
#include <QString>
#include <QStringList>
#include <VKFACVENTAS.h>
#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vk {

class BdSesion;

// One line of the invoice's delivery notes (dbgAlbaranes).
struct LineaAlbaranFactura {
    qint32 Cav_Id = 0;
    qint32 Lav_Id = 0;
    QString albaran; // series/number of the note
    QDate Cav_Fecha;
    QString Lav_Des;
    double Lav_Cantidad = 0;
    double Lav_Precio = 0;
    double Lav_Importe = 0;
    qint32 Lav_IdViaje = 0; // the transport leg the line invoices; 0 none
};

// One receipt of the invoice (dbgRecibos).
struct ReciboFactura {
    qint32 Rec_Id = 0;
    QDate Rec_Fvto;
    QString Modalidad;
    QString ccc; // the account in groups of 4, 4, 2 and 10
    QString Situacion;
    double Rec_Importe = 0;
    QString Rec_Obser;
    qint32 Rec_Sit = 0;
};

class frmEdicionFacturas {
public:
    // jEditaFactura: loads invoice `nNumero` of `sSerie` (none when it does
    // not exist: the screen opens empty on that series).
    frmEdicionFacturas(VKFACVENTAS& factura, const QString& sSerie, qint32 nNumero,
                       bool bSoloLectura = false);

    QString Caption; // "Edición de facturas (Versión x.y.z)"

    // 0 series, 1 number, 2 date, 4 total, 5-6 series and number of a note
    // to add or remove, 9 discounts, 10 bases, 11 VAT, 12 surcharge, 13
    // withholding, 14 door, 15 floor, 16 staircase, 18 street number, 19
    // town, 20 and 22 discount percentages, 21 postcode, 23 street name, 24
    // attention line, 27 offset account, 40 gross.
    std::array<QString, 41> Text1;
    bool Text1_4_Enabled = false; // the total, with Check1
    QString txtFavObs;
    QString lblCliObs;
    QString lblCliente;                                 // code and name of the invoice's customer
    QString lblRetencion = QStringLiteral("Retención"); // "Franquicia" with Par_Automocion
    // The non-fiscal retention: its percentage and Option1 (0 on the bases,
    // 1 on the total), and the amounts to collect (Frame8).
    QString txtRetencionNF;
    int Option1 = 0;
    QString lblRetencionNF;
    QString lblLiquido;

    // The address boxes of Text1 and their combos.
    CajasDireccion direccion{Text1};
    // Combos: items "code - name" and the selected index (-1 none).
    QStringList cboFpago, cboSeries;
    int cboFpagoIndex = -1, cboSeriesIndex = -1;

    bool Check1 = false; // "Total Manual"
    bool Check2 = false; // "Total RCA": rectifying for creditors' proceedings
    bool Check3 = false; // receipts kept in the portfolio
    bool ChKCopia = false;
    int optSalida = 0; // 0 screen, 1 printer, 2 PDF file, 3 PDF by mail

    std::vector<LineaAlbaranFactura> dbgAlbaranes;
    std::vector<ReciboFactura> dbgRecibos;
    int filaAlbaran = -1; // the current row of dbgAlbaranes

    // Read-only: every command that writes is disabled.
    const bool bSoloLectura;
    bool cmdActualiza_Enabled = true, cmdBorrar_Enabled = true, XPButton2_Enabled = true;
    bool Frame2_Enabled = true, Frame3_Enabled = true, Frame5_Enabled = true;
    // The transport menu (design 4 or Par_ModTransportes 1).
    bool mnuTransporte_Visible = false;

    // The invoice shown; 0 when none.
    qint32 IdFactura() const { return idFactura_; }
    bool HayFactura() const { return idFactura_ > 0; }

    // --- loading and walking the series ---
    // Loads the invoice of Text1[0] and Text1[1]; false when none (the screen
    // is left as it was).
    bool msCargarFactura();
    void msCargarRecibos();
    enum class Boton { Primera, Anterior, Siguiente, Ultima };
    void cmdNav(Boton boton);
    // Leaving the number box: loads it, or "Factura Inexistente".
    void Text1_1_LostFocus();

    // --- saving (frmEdicionFacturasGrabacion.cpp) ---
    // Saves the date, series, data and address shown: the neighbours' dates,
    // the series change with its questions, the confirmation, the save.
    void cmdActualiza();
    // After the view toggled Check1.
    void Check1_Click();
    // Leaving the total with Check1 ticked: the manual total.
    void Text1_4_LostFocus();
    // After the view toggled Check2: the flag is written at once.
    void Check2_Click();
    // Rebuilds the receipts of the invoice from its amounts.
    void msGeneraRecibos();
    // A double click on a receipt: the pending ones open in the treasury.
    void dbgRecibos_DblClick(int fila);

    // --- commands (frmEdicionFacturasComandos.cpp) ---
    void cmdAñadir();
    void cmdQuitar();
    void cmdBuscaAlbaranes();
    void cmdEditar();
    void cmdBorrar();
    void XPButton2(); // change of customer
    void XPButton1(); // the customer's invoicing remarks
    void cmdDir();    // other addresses of the customer
    void cmdEmitir();
    void dbgAlbaranes_DblClick(int fila);
    void mnu01(); // the leg of the current line
    void mnu03(); // the customer's trips
    void mnu04(); // add a leg
    void mnu05(); // remove the leg of the current line
    // A copy or credit note of the invoice (frmCopiaFacturas); the new one
    // is loaded when made. Allowed read-only: the source is not written.
    void cmdCopiar();

    // How the last command ended: true when it was refused or failed (the
    // person has been told); hosts set their exit status from it.
    bool ultimaOrdenFallida = false;

private:
    void cargaPorId(qint32 idFactura);
    // Loads the invoice shown again after a command; when another user
    // deleted it meanwhile, says so and leaves the screen empty.
    void recarga();
    void msCargarAlbaranes();
    void muestraTotales();
    void muestraDireccion();
    // What the screen shows, as a save of the engine: only what differs
    // from the stored invoice is written.
    EdicionFactura edicionMostrada() const;
    // Saves through the engine, telling the person when it is refused; the
    // invoice is loaded again either way. False when nothing was saved.
    bool msRecalculaFactura(EdicionFactura edicion);
    // Before a save that changes what the invoice's record says: the person
    // is told it will be corrected (or cancelled and made again) and that a
    // credit note is the way to change amounts. False when they say no.
    bool avisaRegistro(const EdicionFactura& edicion);
    // The receipts' question of every save: nothing when the person keeps
    // the receipts under way.
    EdicionFactura::Recibos preguntaRecibos();
    // Runs a write of the engine: a refusal or failure is told and the
    // command marked failed.
    bool intenta(const std::function<void()>& paso);
    QDate fechaMostrada() const;
    // False, after saying "Factura Inexistente", when another user deleted
    // the invoice shown.
    bool sigueExistiendo();
    // The suite's transport class on this session.
    std::unique_ptr<class VKTrans> transportes() const;
    std::optional<qint32> albaranTecleado() const;

    VKFACVENTAS& factura_;
    BdSesion& bd_;
    qint32 idFactura_ = 0;
    // The invoice as stored at the last load, to tell what the screen changed.
    RegistroFactura cargada_;
    bool cargandoCheck_ = false;
};

} // namespace vk
