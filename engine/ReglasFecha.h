// Invoices of one series run in order of date with their numbers. These are
// the checks the screens make, each with its message through the port.
#pragma once

#include <QDate>
#include <QString>
#include <optional>

namespace vk {

class BdSesion;

// The date of the last invoice of a series (the greatest date, not the date of
// the greatest number); invalid when the series is empty.
QDate fnUltimaFechaSerie(BdSesion& bd, const QString& serie);

// Moving an invoice dated `fecha` to another series: when the series' last
// date is later, asks whether to take that date. Gives the date the invoice
// must have, or nothing when the change is cancelled (after saying so).
std::optional<QDate> fnFechaCambioSerie(BdSesion& bd, const QString& nuevaSerie,
                                        const QDate& fecha);

// A new date for invoice `numero` of `serie` must lie between the dates of
// its neighbours by number. False, after the message, when it does not.
bool fnFechaEntreVecinas(BdSesion& bd, const QString& serie, qint32 numero, const QDate& nueva);
// The same rule without a person: why the date is refused, or nothing. The
// saves check it again under the series lock.
std::optional<QString> fnMotivoFechaVecinas(BdSesion& bd, const QString& serie, qint32 numero,
                                            const QDate& nueva);

// Invoice dates this system takes: a year typed wrong (9999) would close the
// series to every later invoice, since none may be dated before it.
inline const QDate kPrimeraFechaFactura{2000, 1, 1};
inline const QDate kUltimaFechaFactura{2099, 12, 31};
inline bool fnFechaFacturaAdmisible(const QDate& fecha) {
    return fecha.isValid() && fecha >= kPrimeraFechaFactura && fecha <= kUltimaFechaFactura;
}

// Today on the database server: every user of a company dates alike, whatever
// their own machine's clock says.
QDate fnFechaServidor(BdSesion& bd);

// Reads a date typed by a person (dd/mm/yyyy, d/m/yy or yyyy-mm-dd); throws
// ErrorRegla when the text is not a date.
QDate fnLeeFecha(const QString& texto);

} // namespace vk
