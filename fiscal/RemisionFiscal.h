// The submission documents of the agency's sending service
// (RegFactuSistemaFacturacion of SuministroLR.xsd): a header naming the
// issuer, then up to 1,000 records, each the element the chain stored,
// embedded byte for byte (its hash is over those very values). Every document
// is checked against the agency's schemas before it is sent or exported.
#pragma once

#include "XmlRegistro.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <vector>

namespace vk {
class BdSesion;
}

namespace vk::fiscal {

// The most records one submission may carry.
inline constexpr int kMaxRegistrosRemision = 1000;
// A record sent later than this after its timestamp goes in a submission
// flagged as sent after an incident (Incidencia "S").
inline constexpr qint64 kSegundosIncidencia = 240;

// A record as a submission carries it, with the identity the answer names.
struct RegistroRemision {
    qint32 id = 0;
    QString tipo; // "A" alta, "N" anulación
    QString nif, numSerie, fecha;
    QString fechaHora; // FechaHoraHusoGenRegistro
    QString xml;       // the stored element
    bool EsAlta() const { return tipo == QLatin1String("A"); }
};

struct Remision {
    bool incidencia = false;
    std::vector<RegistroRemision> registros;
};

// The records of the company in the chain's order: every one, or only those
// the agency has not answered yet (VfEnvio state 0).
std::vector<RegistroRemision> fnRegistrosRemision(BdSesion& bd, bool soloPendientes);

// The records in submissions of at most `tamLote` (1..1,000), the late ones
// (more than 240 s old at `ahora`) apart from those on time, each group in
// the chain's order, the late ones first.
std::vector<Remision> fnAgrupaRemisiones(const std::vector<RegistroRemision>& registros,
                                         const QDateTime& ahora,
                                         int tamLote = kMaxRegistrosRemision);

// The document of a submission, without XML declaration (the SOAP body takes
// it as it is; a file adds the declaration).
QString fnXmlRemision(const EmisorFiscal& emisor, const Remision& remision);
// As a file: UTF-8 with its declaration.
QByteArray fnFicheroRemision(const EmisorFiscal& emisor, const Remision& remision);

// What the agency's schemas find wrong in a document; empty when it is valid.
// The schemas travel inside the program (a Qt resource) and are written to a
// private temporary folder the first time, where libxml2 reads them.
QString fnErroresEsquema(const QByteArray& documento);

} // namespace vk::fiscal
