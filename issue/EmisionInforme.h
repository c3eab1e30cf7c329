// Invoices through the report engine: the company data of the letterhead,
// the options of the report, and the PDF route.
#pragma once

#include <BdSesion.h>
#include <QString>
#include <QVector>
#include <Reporte.h>

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

// Paints the bound report into a PDF file; throws ErrorDispositivo when it
// cannot be written.
void EscribePdf(informe::Reporte& reporte, const QString& ficheroPdf);

// Every invoice report prints the tax QR of each invoice (the rows' UrlQr)
// at the top of its first page, with its legends; an invoice without a
// record in force prints none. Called where the rows of LeeFilasFacturas are
// bound, on every route.
void ActivaQrTributario(informe::Reporte& reporte);

struct ContextoInforme;

// The invoices of `ids` through the design `nombreReporte` into the PDF file,
// prepared as a run of the PDF route with that context prepares it.
// Returns the file written, or an empty text when the ids find no rows (an
// empty list, or invoices without notes), when nothing is written. Throws
// ErrorBd, ErrorDiseno or ErrorDispositivo on a database, design or file
// error.
QString RenderizaFacturasPdf(BdSesion& bd, const QVector<qint32>& ids, const QString& nombreReporte,
                             const QString& ficheroPdf, const ContextoInforme& contexto);

} // namespace vk
