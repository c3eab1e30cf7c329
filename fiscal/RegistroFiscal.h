// What an invoicing record says of an invoice, as the engine composes it from
// the invoice it saved: identity, type, recipient, breakdown per VAT slot and
// totals. The chain adds issuer, chaining, system block, timestamp and hash.
#pragma once

#include <QDate>
#include <QString>
#include <optional>
#include <vector>

namespace vk::fiscal {

// An invoice as the records name it.
struct IdFacturaFiscal {
    QString nif;      // the issuer's
    QString numSerie; // series/number
    QDate fecha;
};

// The recipient: a Spanish NIF, or another identification with its country.
struct DestinatarioFiscal {
    QString nombre;
    QString nif;        // a Spanish NIF; empty when idOtro is used
    QString codigoPais; // ISO 3166 alpha-2 of idOtro
    QString tipoIdOtro; // L7: "02" VAT number, "03" passport, "04" official id ...
    QString idOtro;
};

// One VAT slot with its equivalence surcharge.
struct DetalleIvaFiscal {
    double tipo = 0;
    double base = 0;
    double cuota = 0;
    double tipoRecargo = 0;
    double cuotaRecargo = 0;
};

struct FacturaFiscal {
    qint32 idFactura = 0;
    QString numSerie;
    QDate fecha;
    QString tipoFactura;       // F1, F2, R1 ... R5
    QString tipoRectificativa; // "I" for a rectifying invoice, empty otherwise
    std::vector<IdFacturaFiscal> rectificadas;
    QString descripcion;
    std::optional<DestinatarioFiscal> destinatario;
    std::vector<DetalleIvaFiscal> desglose;
    double cuotaTotal = 0;   // VAT and surcharge
    double importeTotal = 0; // bases, VAT and surcharge; no withholding
};

// A record that replaces an earlier one of the same invoice (Subsanacion),
// and whether the agency rejected the one it replaces (RechazoPrevio): "S"
// when the invoice is registered there all the same (a rejected correction),
// "X" when it is not (its first alta was rejected); empty otherwise.
struct OpcionesAlta {
    bool subsanacion = false;
    QString rechazoPrevio;
};

// The type of an invoice by what it is: a rectifying invoice when it names
// the invoice it corrects, is negative or is flagged for creditors'
// proceedings (R2); simplified (F2, R5) when the recipient has no
// identification. A negative invoice is never an F1.
QString fnTipoFactura(bool conDestinatario, double importeTotal, bool rectificaOtra,
                      bool concursoAcreedores);

} // namespace vk::fiscal
