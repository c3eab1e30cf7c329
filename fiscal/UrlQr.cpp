#include "UrlQr.h"

#include <QUrl>

namespace vk::fiscal {

namespace {

QString codifica(const QString& valor) {
    return QString::fromLatin1(QUrl::toPercentEncoding(valor.trimmed()));
}

} // namespace

QString fnUrlQr(EntornoFiscal entorno, const QString& nif, const QString& numSerie,
                const QString& fecha, const QString& importeTotal) {
    const QString base =
        entorno == EntornoFiscal::Produccion
            ? QStringLiteral("https://www2.agenciatributaria.gob.es/wlpl/TIKE-CONT/ValidarQR")
            : QStringLiteral("https://prewww2.aeat.es/wlpl/TIKE-CONT/ValidarQR");
    return base + QStringLiteral("?nif=") + codifica(nif) + QStringLiteral("&numserie=") +
           codifica(numSerie) + QStringLiteral("&fecha=") + codifica(fecha) +
           QStringLiteral("&importe=") + codifica(importeTotal);
}

} // namespace vk::fiscal
