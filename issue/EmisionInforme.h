// Invoices through the report engine: the company data of the letterhead,
// the options of the report, and the PDF route.
#pragma once

#include "Reporte.h"

#include <BdSesion.h>
#include <QString>
#include <QVector>

namespace vk {

// The company data the issue loads before each run (msCargaEmpresa).
struct EmpresaEmision {
    QString nombre, nombreComercial, nif, actividad;
    QString direccion, codigoPostal, poblacion, provincia;
    QString telefono, fax, correo, web, movil;
    QString pie1, pie2;
};

// Reads Parametros and the province's name. Without a row every text is empty.
EmpresaEmision CargaEmpresa(BdSesion& bd);

// What the caller of an issue decides (the facade's Copia and ImprimeAlbaran).
struct OpcionesInforme {
    bool copia = false;
    bool imprimeAlbaran = true;
};

// Applies the report options of the company to a general invoice design:
// data protection, payment terms, packages and description width, lots,
// agent, the copy mark, frames, letterhead and foot lines. Names the design
// lacks are skipped, as a design carries only those its layout needs.
void AplicaOpcionesFactura(informe::Reporte& reporte, BdSesion& bd, const EmpresaEmision& empresa,
                           const OpcionesInforme& opciones);

// Paints the bound report into a PDF file; throws ErrorBd when it cannot be
// written.
void EscribePdf(informe::Reporte& reporte, const QString& ficheroPdf);

// The invoices of `ids` through the design `nombreReporte` into the PDF file.
// Returns the file written, or an empty text when the ids find no rows (an
// empty list, or invoices without notes), when nothing is written. Throws
// ErrorBd on a database, design or file error.
QString RenderizaFacturasPdf(BdSesion& bd, const QVector<qint32>& ids, const QString& nombreReporte,
                             const QString& ficheroPdf, const OpcionesInforme& opciones = {});

} // namespace vk
