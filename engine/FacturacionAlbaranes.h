// Invoicing a set of delivery notes: the one operation every path that turns
// notes into an invoice calls (the batch screen's two runs, the command line,
// and the runs still to come), so that each gets the same safeguards.
#pragma once

#include "DireccionFactura.h"

#include <QDate>
#include <QString>
#include <optional>
#include <vector>

namespace vk {

class BdSesion;
class VKFACVENTAS;

// The header of an invoice made from delivery notes, as a screen composed it.
struct CabeceraFactura {
    QString serie;
    qint32 numero = 0; // 0: the next of the series (the first asks for it)
    QDate fecha;
    qint32 idCliente = 0;
    qint32 idFco = 0;
    double dto1 = 0;
    double dto2 = 0;
    QString observaciones;
    QString atencion;
    double retencionNF = 0;
    qint16 modoRetencionNF = 0; // 0 on the sum of the bases, 1 on the total
    // The customer's address copied into the invoice; none: the first note's.
    std::optional<qint32> idDireccion;
    // An address given whole (a copy keeps its source's); before idDireccion.
    std::optional<DireccionFactura> direccion;
    // A credit note: the invoice it corrects.
    qint32 idRectificada = 0;
};

struct OpcionesFacturacion {
    qint16 nTipo = 0;
    // Totals, save and receipts after the links; without them the invoice
    // is left with its header and notes for the caller to calculate.
    bool calcula = true;
};

enum class EstadoFacturacion {
    Hecha,       // numbered, notes linked, amounts, retention and receipts saved
    SinTerminar, // numbered with its notes and the amounts the save wrote; a later step failed
    NoHecha,     // nothing written: the notes stay pending and no number was used
};

struct ResultadoFacturacion {
    EstadoFacturacion estado = EstadoFacturacion::NoHecha;
    qint32 idFactura = 0;
    QString factura; // "A/12" once numbered
    QString motivo;  // for a person; empty when done, or when the person gave up
    QString detalle; // the database's text, for a log or --detalle
    // Every following invoice would fail the same way (a busy or broken
    // database, a date before the series' last, a series out of numbers).
    bool detieneEjecucion = false;
    bool Creada() const { return estado != EstadoFacturacion::NoHecha; }
};

// In one transaction: the number under the series lock, the series' date
// order checked again under that lock, each note linked only while still
// pending, then totals, save and receipts. Fills the facade's invoice record
// (IdFactu, NumeroFactura, the amounts) as it goes.
ResultadoFacturacion FacturaAlbaranes(VKFACVENTAS& factura, const CabeceraFactura& cabecera,
                                      const std::vector<qint32>& albaranes,
                                      const OpcionesFacturacion& opciones = {});

// Notes that make one invoice, with the header the batch screen's group
// would give them.
struct GrupoAlbaranes {
    CabeceraFactura cabecera;      // serie and fecha left for the caller
    std::vector<qint32> albaranes; // in date order, as the batch links them
};

// The group of the notes given: their customer, payment terms, discounts and
// agent, the customer's retention, remarks and attention line, its first
// address (fiscal first). Throws ErrorRegla, saying why, when a note does not
// exist, is invoiced, or would be another group, or when the payment terms
// need a bank account the customer lacks.
GrupoAlbaranes fnGrupoDeAlbaranes(BdSesion& bd, const std::vector<qint32>& albaranes);

// A payment term collected by direct debit (an instalment of mode 2) needs
// the customer's bank account of at least 20 characters.
bool fnCuentaCobroValida(BdSesion& bd, qint32 idFco, const QString& cuentaCliente);

} // namespace vk
