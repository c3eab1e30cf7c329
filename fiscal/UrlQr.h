// The QR of a printed invoice: the tax agency's checking service with the
// issuer, the invoice's series/number, its date and its total, each
// URL-encoded.
#pragma once

#include <QString>

namespace vk::fiscal {

enum class EntornoFiscal { Pruebas, Produccion };

QString fnUrlQr(EntornoFiscal entorno, const QString& nif, const QString& numSerie,
                const QString& fecha, const QString& importeTotal);

} // namespace vk::fiscal
