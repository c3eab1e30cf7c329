#include "RegistroFiscal.h"

namespace vk::fiscal {

QString fnTipoFactura(bool conDestinatario, double importeTotal, bool rectificaOtra,
                      bool concursoAcreedores) {
    if (concursoAcreedores) {
        return QStringLiteral("R2");
    }
    if (rectificaOtra || importeTotal < 0) {
        if (!conDestinatario) {
            return QStringLiteral("R5");
        }
        // A correction of an invoice it names: returns, discounts and errors
        // (art. 80 uno, dos and seis); a negative one that names none is the rest.
        return rectificaOtra ? QStringLiteral("R1") : QStringLiteral("R4");
    }
    return conDestinatario ? QStringLiteral("F1") : QStringLiteral("F2");
}

} // namespace vk::fiscal
