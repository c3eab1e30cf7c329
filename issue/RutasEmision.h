// The routes a bound report leaves by, shared by the dispatcher and the
// families that bring their own data: the viewer, the printer and the PDF
// file. Mail is not built yet and ends in a failure.
#pragma once

#include <Recordset.h>
#include <Reporte.h>
#include <memory>

namespace vk {

class VKFACVENTAS;

struct OpcionesRuta {
    // The viewer and printer routes add Par_TopMarg to the top margin; the
    // families add it for every route themselves and say false here.
    bool sumaMargen = true;
    // The run already wrote its text layout (PLT15): on the printer route a
    // file holding that text is not replaced, the report goes to the same
    // name with ".pdf" added.
    bool trasTexto = false;
};

// The file the printer route writes the report to for a chosen path: the
// path itself, or after a text layout, when the file is there and is not a
// PDF (it holds the text), the same name with ".pdf" added.
QString FicheroInformeImpresora(const QString& ruta, bool trasTexto);

// Delivers the report by f.Tipo_Emision: 0 the viewer model frmVisor, 1 the
// chosen printer (NumCopias copies, one job), 2 the PDF "F_<number>.pdf" of
// the first row (PdfOutFile), 3 mail (throws ErrorDispositivo: not yet available), and
// nothing above 3. `filas` are the invoice rows the report was bound to: the
// first names the document, all of them fill the viewer's list. Throws
// ErrorDispositivo on a printer or file failure. The report prints the tax QR
// of each invoice (ActivaQrTributario).
void EntregaInforme(VKFACVENTAS& f, std::unique_ptr<informe::Reporte> reporte,
                    const Recordset& filas, const OpcionesRuta& opciones = {});

} // namespace vk
