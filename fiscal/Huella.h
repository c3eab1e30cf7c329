// The fingerprint (Huella) of an invoicing record as the tax agency computes
// it: SHA-256 over the UTF-8 bytes of "name=value" pairs joined by "&", each
// value trimmed and exactly as the XML writes it, as 64 upper-case hex digits.
#pragma once

#include <QString>

namespace vk::fiscal {

struct CamposHuellaAlta {
    QString idEmisorFactura, numSerieFactura, fechaExpedicionFactura, tipoFactura, cuotaTotal,
        importeTotal, huellaAnterior, fechaHoraHusoGenRegistro;
};

struct CamposHuellaAnulacion {
    QString idEmisorFacturaAnulada, numSerieFacturaAnulada, fechaExpedicionFacturaAnulada,
        huellaAnterior, fechaHoraHusoGenRegistro;
};

// The text the hash is computed over, and the hash.
QString fnCadenaHuella(const CamposHuellaAlta& c);
QString fnCadenaHuella(const CamposHuellaAnulacion& c);
QString fnHuella(const CamposHuellaAlta& c);
QString fnHuella(const CamposHuellaAnulacion& c);

} // namespace vk::fiscal
