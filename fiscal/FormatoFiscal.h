// The strings of the invoicing records, formatted once: the XML carries them
// and the hash is computed over the very same text.
#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>

namespace vk::fiscal {

// "1234.50", "-12.35": a dot, two decimals, no thousands separator.
QString fnImporteFiscal(double importe);
// "21.00", "5.20": a rate as Tipo2.2Type takes it.
QString fnTipoFiscal(double porcentaje);
// "01-01-2024".
QString fnFechaFiscal(const QDate& fecha);
// "2024-01-01T19:20:30+01:00": local time with its offset, to the second.
QString fnFechaHoraFiscal(const QDateTime& momento);
// The moment a timestamp of that form names; invalid when it is none.
QDateTime fnLeeFechaHoraFiscal(const QString& texto);

} // namespace vk::fiscal
