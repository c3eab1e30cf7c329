// Pieces the invoicing screens share: the default invoice series and the
// combo of payment terms.
#pragma once

#include <QString>
#include <QStringList>

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

// The id at the head of a combo item ("01 - Contado" is 1).
qint32 fnIdCombo(const QString& elemento, int caracteres = 3);

} // namespace vk
