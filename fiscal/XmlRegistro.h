// The record elements as the tax agency's schema names them (RegistroAlta,
// RegistroAnulacion of SuministroInformacion.xsd), each a standalone element
// that declares its namespace: the chain stores it as written, and a
// submission embeds it unchanged.
#pragma once

#include "RegistroFiscal.h"
#include "SistemaInformatico.h"

#include <QString>
#include <optional>

namespace vk::fiscal {

inline const QString kNsSuministroInformacion = QStringLiteral(
    "https://www2.agenciatributaria.gob.es/static_files/common/internet/dep/aplicaciones/es/"
    "aeat/tike/cont/ws/SuministroInformacion.xsd");
inline const QString kNsSuministroLR =
    QStringLiteral("https://www2.agenciatributaria.gob.es/static_files/common/internet/dep/"
                   "aplicaciones/es/aeat/tike/cont/ws/SuministroLR.xsd");

struct EmisorFiscal {
    QString nif;
    QString nombre;
};

// The record before this one in the chain, as the chaining names it: the
// invoice of that record (the cancelled one for an anulación) and its hash.
struct RegistroAnterior {
    QString nif, numSerie, fecha; // fecha as written: dd-mm-yyyy
    QString huella;
};

// What the chain adds to the invoice's data.
struct DatosCadena {
    std::optional<RegistroAnterior> anterior; // none: the first record
    SistemaInformatico sistema;
    QString fechaHora; // FechaHoraHusoGenRegistro
    QString huella;
};

QString fnXmlAlta(const FacturaFiscal& factura, const EmisorFiscal& emisor,
                  const OpcionesAlta& opciones, const DatosCadena& cadena);
QString fnXmlAnulacion(const IdFacturaFiscal& anulada, const DatosCadena& cadena);

} // namespace vk::fiscal
