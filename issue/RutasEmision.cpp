#include "RutasEmision.h"

#include "EmisionInforme.h"
#include "Ficheros.h"
#include "MensajesEmision.h"
#include "frmVisor.h"

#include <Ajustes.h>
#include <ErrorBd.h>
#include <Interaccion.h>
#include <QDir>
#include <QFile>
#include <QPrinter>
#include <RenderizadorInforme.h>
#include <VKFACVENTAS.h>

namespace vk {

namespace {

QString numeroDe(const Recordset& rs) {
    return QString::number(rs.Fields(QStringLiteral("Fav_Numero")).Entero());
}

void viaPantalla(std::unique_ptr<informe::Reporte> r, const Recordset& rs) {
    QStringList facturas;
    Recordset filas = rs;
    for (filas.MoveFirst(); !filas.Eof(); filas.MoveNext()) {
        const QString f =
            filas.Fields(QStringLiteral("Fav_Serie")).Texto() + QLatin1Char('/') + numeroDe(filas);
        if (!facturas.contains(f)) {
            facturas << f;
        }
    }
    frmVisor visor(std::shared_ptr<informe::Reporte>(std::move(r)), facturas);
    Ui().MuestraDialogo(visor);
}

// Paper in the printer may need its top margin moved: Par_TopMarg, on the
// routes that end on paper.
void sumaMargen(VKFACVENTAS& f, informe::Reporte& r) {
    r.TopMargin += static_cast<int>(f.MyBd().Parametros().Entero(QStringLiteral("Par_TopMarg")));
}

void viaImpresora(VKFACVENTAS& f, informe::Reporte& r, bool trasTexto) {
    const QString actual =
        LeeAjuste(QStringLiteral("ORVA"), QStringLiteral("Spool"), QStringLiteral("Printer"));
    const QString impresora = Ui().EligeImpresora(actual).value_or(actual);
    QPrinter printer(QPrinter::HighResolution);
    if (impresora.startsWith(QLatin1Char('/'))) {
        // A path instead of a queue: print to that file, as a print-to-file
        // printer does.
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(FicheroInformeImpresora(impresora, trasTexto));
    } else if (!impresora.isEmpty()) {
        printer.setPrinterName(impresora);
    }
    printer.setCopyCount(std::max<int>(1, f.NumCopias));
    if (!printer.isValid()) {
        throw ErrorDispositivo(mensajes::kImpresoraNoValida.arg(impresora));
    }
    informe::RenderizaInforme(r, printer);
}

void viaPdf(VKFACVENTAS& f, informe::Reporte& r, const Recordset& rs) {
    Recordset primera = rs;
    primera.MoveFirst();
    const QString numero = numeroDe(primera);
    r.ReportTitle = QStringLiteral("Factura %1/%2")
                        .arg(primera.Fields(QStringLiteral("Fav_Serie")).Texto(), numero);
    const QString carpeta =
        f.RutaFicheroPdf.size() > 3 ? f.RutaFicheroPdf : fnCarpetaFdoc(f.MyBd().IdUsuario());
    const QString ruta =
        QDir(carpeta).filePath(QStringLiteral("F_") + numero + QStringLiteral(".pdf"));
    f.PdfOutFile = ruta;
    QFile::remove(ruta);
    EscribePdf(r, ruta);
    // Signing arrives with the mail route: until then the file is the
    // unsigned one, and opening it is ours.
    if (f.VisualizarPDF) {
        fnAbreFichero(f.PdfOutFile);
    }
}

} // namespace

QString FicheroInformeImpresora(const QString& ruta, bool trasTexto) {
    if (!trasTexto) {
        return ruta;
    }
    QFile fichero(ruta);
    if (!fichero.exists() || !fichero.open(QIODevice::ReadOnly) || fichero.peek(4) == "%PDF") {
        return ruta;
    }
    return ruta + QStringLiteral(".pdf");
}

void EntregaInforme(VKFACVENTAS& f, std::unique_ptr<informe::Reporte> r, const Recordset& filas,
                    const OpcionesRuta& opciones) {
    ActivaQrTributario(*r);
    if (opciones.sumaMargen && (f.Tipo_Emision == 0 || f.Tipo_Emision == 1)) {
        sumaMargen(f, *r);
    }
    switch (f.Tipo_Emision) {
    case 0:
        r->ReadRecords();
        viaPantalla(std::move(r), filas);
        break;
    case 1:
        viaImpresora(f, *r, opciones.trasTexto);
        break;
    case 2:
        viaPdf(f, *r, filas);
        break;
    case 3:
        throw ErrorDispositivo(mensajes::kCorreoNoDisponible);
    default:
        break; // a value above 3 delivers nothing
    }
}

} // namespace vk
