// Small look-ups beside the invoice: the customer's tax regime and the
// accounts of the company's chart.
#pragma once

#include <QDate>
#include <QString>
#include <utility>

namespace vk {

class BdSesion;

// The customer's tax regime: NULL reads as 1 (general); no customer gives 0.
qint16 fnRegimenCliente(BdSesion& bd, qint32 idCliente);

// An account stored at ten digits, cut to the company's eight: first four and
// last four. Any other code comes back as it is.
QString fnCuentaOcho(BdSesion& bd, const QString& sCuenta);

// The VAT (nTipo 1) or surcharge (any other nTipo) account of a rate: the
// rate's family in the regime on that date picks the parameter. Empty when
// the family has no account or the rate is not in the table.
QString fnCuentaIvaRec(BdSesion& bd, int nTipo, double nIva, int nReg, const QDate& fecha);
// Both at once, VAT and surcharge, with one look-up of the family.
std::pair<QString, QString> fnCuentasIvaRec(BdSesion& bd, double nIva, int nReg,
                                            const QDate& fecha);

} // namespace vk
