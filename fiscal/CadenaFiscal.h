// The chain of invoicing records of a company installation (issuer NIF,
// system id and installation number): each record is appended under the
// chain's lock, in the transaction of the invoice it registers, chained by
// its hash to the one before. No code path changes or deletes a record.
#pragma once

#include "RegistroFiscal.h"
#include "UrlQr.h"
#include "XmlRegistro.h"

#include <QString>
#include <functional>
#include <optional>
#include <vector>

namespace vk {
class BdSesion;
}

namespace vk::fiscal {

// A record as stored.
struct RegistroGuardado {
    qint32 id = 0;
    QString tipo; // "A" alta, "N" anulación
    qint32 idFactura = 0;
    qint32 idAnterior = 0;
    QString nif, numSerie, fecha, tipoFactura, cuotaTotal, importeTotal;
    QString huellaAnterior, fechaHora, huella, subsanacion, rechazoPrevio, xml;
    bool EsAlta() const { return tipo == QLatin1String("A"); }
    // The hash its own fields give.
    QString HuellaCalculada() const;
};

// Whether the company keeps records (Par_VfActivo), its issuer data and
// endpoint.
bool fnRegistrosActivos(BdSesion& bd);
EmisorFiscal fnEmisor(BdSesion& bd); // throws ErrorRegla without a NIF
EntornoFiscal fnEntorno(BdSesion& bd);
// A NIF as the records write it: upper case, no blanks, dots, hyphens nor
// "ES" country prefix.
QString fnNifFiscal(const QString& documento);

// The chain's lock, held to the end of the transaction. Taken after the
// series' lock by every path, so that two processes never fork the chain.
void msBloqueaCadena(BdSesion& bd);

// Append a record in the open transaction, after checking the last one (its
// hash and chaining) and the clock; return its id. Throws ErrorRegla when the
// chain cannot take it.
qint32 msRegistraAlta(BdSesion& bd, const FacturaFiscal& factura,
                      const OpcionesAlta& opciones = {});
qint32 msRegistraAnulacion(BdSesion& bd, qint32 idFactura, const IdFacturaFiscal& anulada);

// How an invoice's record followed a change of the invoice.
enum class CambioRegistro {
    Ninguno,        // what the records say of it did not change
    Alta,           // it had no record in force
    Subsanacion,    // the same invoice with other data: a new alta that replaces it
    AnulacionYAlta, // its series, number or date changed: the old one cancelled
};
// After a change of an invoice, in its transaction and under its series'
// lock: the record that makes the chain say what the invoice now says.
CambioRegistro msActualizaRegistro(BdSesion& bd, const FacturaFiscal& factura);
// The invoice of a rejected alta registered again as it stands now (after
// the user corrected what the agency refused): a Subsanacion with its
// RechazoPrevio. Throws ErrorRegla when the invoice's record in force is not a
// rejected alta, or when its series, number or date changed since.
qint32 msSubsanaRechazado(BdSesion& bd, const FacturaFiscal& factura);
// Before an invoice goes: the anulación of its record in force, if any.
// False when it had none.
bool msAnulaRegistro(BdSesion& bd, qint32 idFactura);

// The last record of the chain, and the last one of an invoice.
std::optional<RegistroGuardado> fnUltimoRegistro(BdSesion& bd);
std::optional<RegistroGuardado> fnRegistroVigente(BdSesion& bd, qint32 idFactura);
// Every record of the chain in its order, one at a time: `porRegistro` must
// not run statements on the session.
void fnRecorreCadena(BdSesion& bd, const std::function<void(const RegistroGuardado&)>& porRegistro);
// Every record of an invoice, oldest first.
std::vector<RegistroGuardado> fnRegistrosFactura(BdSesion& bd, qint32 idFactura);

// The QR of a printed invoice: the URL of its record in force, with the
// issuer, series/number, date and total exactly as registered, so that the
// paper names what the tax agency holds. Empty when the invoice has no alta
// in force (never registered, or cancelled): such an invoice prints no QR.
QString fnUrlQrFactura(BdSesion& bd, qint32 idFactura);

} // namespace vk::fiscal
