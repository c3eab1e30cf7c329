#include "FormatoFiscal.h"

#include <Redondeo.h>
#include <cmath>

namespace vk::fiscal {

QString fnImporteFiscal(double importe) {
    const double r = Redondea(importe, 2);
    // No "-0.00": a zero amount is written as the agency writes it.
    return QString::number(r == 0 ? 0.0 : r, 'f', 2);
}

QString fnTipoFiscal(double porcentaje) {
    const double r = Redondea(porcentaje, 2);
    return QString::number(r == 0 ? 0.0 : r, 'f', 2);
}

QString fnFechaFiscal(const QDate& fecha) {
    return fecha.toString(QStringLiteral("dd-MM-yyyy"));
}

QString fnFechaHoraFiscal(const QDateTime& momento) {
    const QDateTime local = momento.toLocalTime();
    const int desfase = local.offsetFromUtc();
    const int minutos = std::abs(desfase) / 60;
    return local.toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss")) +
           (desfase < 0 ? QLatin1Char('-') : QLatin1Char('+')) +
           QStringLiteral("%1:%2")
               .arg(minutos / 60, 2, 10, QLatin1Char('0'))
               .arg(minutos % 60, 2, 10, QLatin1Char('0'));
}

QDateTime fnLeeFechaHoraFiscal(const QString& texto) {
    return QDateTime::fromString(texto, Qt::ISODate);
}

} // namespace vk::fiscal
