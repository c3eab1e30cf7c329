// Changing an invoice once made: its data, its notes, its series, a manual
// total, the rectifying flag, and deleting the last one of a series. Each
// operation is one transaction that rereads what it depends on under the
// lock of the invoice's series (and of the series it moves to), so that what a
// screen checked before asking still holds when it writes: a note still
// pending, the neighbours' dates, the last number of a series.
//
// The screens ask their questions first and then call these; a refusal found
// under the lock is an ErrorRegla with the screen's own text, and nothing of
// the operation stays written.
#pragma once

#include "DireccionFactura.h"

#include <QDate>
#include <QString>
#include <functional>
#include <optional>
#include <vector>

namespace vk {

class BdSesion;
class VKFACVENTAS;

// What a save of the edit screen changes. Fields left empty keep the stored
// value, so that what the screen does not show is never overwritten.
struct EdicionFactura {
    qint32 idFactura = 0;
    std::optional<QDate> fecha;
    std::optional<QString> serie; // another series: the next number there
    std::optional<QString> observaciones;
    std::optional<QString> atencion;
    std::optional<QString> ctaCompensa;
    std::optional<qint32> idFco;
    std::optional<double> dto1, dto2;
    std::optional<double> retencionNF;
    std::optional<qint16> modoRetencionNF;
    std::optional<DireccionFactura> direccion; // kept by value unless it names a Dir row
    std::optional<qint32> idClienteNuevo;      // its data, fiscal address and terms
    std::optional<qint32> albaranIncluido;
    std::optional<qint32> albaranQuitado;
    // A change of the invoice's lines made under the lock, before the totals
    // (a transport leg added or removed).
    std::function<void()> cambioLineas;

    enum class Recibos {
        SiCambian, // rebuilt when what they depend on changed, else untouched
        Regenera,  // every receipt deleted and made anew
        Conserva,  // receipts under way kept; the pending ones rebuilt for the rest
    };
    Recibos recibos = Recibos::SiCambian;
};

// Saves the edit in one transaction (the legacy msRecalculaFactura): links or
// unlinks the note, moves the invoice to the new customer or series, writes
// the header, recalculates the totals, saves the amounts, the retention and
// the receipts, and makes the notes follow the invoice's discounts. Leaves the
// facade's record holding the invoice as stored. Throws ErrorRegla (nothing
// written) when the edit is refused under the lock, Error when a step fails.
void msRecalculaFactura(VKFACVENTAS& factura, const EdicionFactura& edicion);

// The receipts of an invoice whose state is not pending (remitted, collected):
// the screen asks before a save deletes them.
bool fnHayRecibosNoPendientes(BdSesion& bd, qint32 idFactura);

// Whether `idFactura` holds the greatest number of its series.
bool fnEsUltimaDeSerie(BdSesion& bd, qint32 idFactura);

// Deletes the invoice, which must be the last of its series: its receipts and
// retention rows, the transport legs its lines invoiced (the legs are freed
// and those lines removed, and a note left without lines with them), and its
// notes pending again. Throws ErrorRegla when it is not the last.
void msBorraFactura(VKFACVENTAS& factura, qint32 idFactura);

// Deletes every invoice of `ids`, whatever its number, in one transaction: a
// failure leaves all of them as they were. Each goes as msBorraFactura's
// does; with `borrarAlbaranes` its notes and their lines go too instead of
// becoming pending again. Throws ErrorRegla when one no longer exists.
void msBorraFacturas(VKFACVENTAS& factura, const std::vector<qint32>& ids, bool borrarAlbaranes);

// A total typed by hand: the difference goes to the first line with units
// and to the first base, and the invoice remembers it to undo it. Receipts
// are left for the caller to rebuild (msGeneraRecibos).
void msAjustaTotalManual(VKFACVENTAS& factura, qint32 idFactura, double nuevoTotal);
// Undoes the manual total: the line back to what it was, the amounts
// recalculated from the lines and the receipts rebuilt. Nothing when the
// invoice has none.
void msDeshazTotalManual(VKFACVENTAS& factura, qint32 idFactura);

// The receipts made anew from the stored invoice (the legacy msGeneraRecibos):
// the pending ones deleted and made again; `todos` deletes every receipt first.
void msRegeneraRecibos(VKFACVENTAS& factura, qint32 idFactura, bool todos);

// Writes the rectifying flag (Fav_RCA) alone, at once.
void msMarcaRectificativa(VKFACVENTAS& factura, qint32 idFactura, bool rectificativa);

// The id of the invoice of that series and number; nothing when none.
std::optional<qint32> fnIdFactura(BdSesion& bd, const QString& serie, qint32 numero);

} // namespace vk
