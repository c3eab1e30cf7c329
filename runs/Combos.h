// Pieces the invoicing screens share: the default invoice series and the
// combo of payment terms.
#pragma once

#include <QString>
#include <QStringList>
#include <optional>

namespace vk {

class BdSesion;
class VKFACVENTAS;

// Par_SerFac, replaced by the user's own Pus_SerFac when that is not empty.
QString fnSerieFacturaPorDefecto(BdSesion& bd);

// Items "01 - Contado" of every payment term, as the combos show them.
QStringList msCargarFormasCobro(BdSesion& bd);

// Whether an issue prints the delivery note numbers: never, after asking
// (under `titulo`) or always, as Par_AlbPrn says.
void msOpcionImprimeAlbaranes(VKFACVENTAS& factura, const QString& titulo);

// A customer chosen in the lookup list.
struct ClienteElegido {
    qint32 id = 0;
    QString codigo;
    QString nombre;
};
// The lookup list of customers under `titulo`, by their name as the company
// orders it (PAR_ORCONTANOM) or by their trade name; nothing when none was
// chosen.
std::optional<ClienteElegido> fnBuscaCliente(BdSesion& bd, const QString& titulo,
                                             bool comercial = false);

// The code at the head of item `indice` ("CL - Calle" is "CL"); empty when
// the index is none.
QString fnCabezaCombo(const QStringList& elementos, int indice);
// The item whose head is `codigo`; -1 for none or a blank code.
int fnIndiceCombo(const QStringList& elementos, const QString& codigo);

// The id at the head of a combo item ("01 - Contado" is 1).
qint32 fnIdCombo(const QString& elemento, int caracteres = 3);

} // namespace vk
