// The issue dispatcher: every invoice that leaves the system leaves through
// here. It picks the layout by design and template key, binds the rows and
// delivers by the route the facade's Tipo_Emision names.
#include "DisenoInforme.h"
#include "EmisionInforme.h"
#include "Ficheros.h"
#include "MensajesEmision.h"
#include "RenderizadorInforme.h"
#include "SqlFacturas.h"
#include "TablaReportes.h"
#include "VKCRFACTURAS.h"
#include "frmEmisionFacturas.h"
#include "frmVisor.h"
#include "spool/LayoutsTexto.h"

#include <Ajustes.h>
#include <ErrorBd.h>
#include <Interaccion.h>
#include <QDir>
#include <QFile>
#include <QPrinter>
#include <VKFACVENTAS.h>

namespace vk {

namespace {

// Loads designs by name: the installation's own, then the built-in ones.
class CRFacturasIncorporado : public VKCRFACTURAS {
public:
    std::unique_ptr<informe::Reporte> Reporte() override {
        return informe::CargaDiseno(VKReportName);
    }
};

class EmisorIncorporado : public EmisorFacturas {
public:
    void EmisionMultiplesFacturas(VKFACVENTAS& f, qint16 nDiseno, bool bDiseno,
                                  const QVector<qint32>& vIds, bool bForce,
                                  qint16 nOrigen) override;

private:
    void ejecuta(VKFACVENTAS& f, qint16 nDiseno, const QVector<qint32>& vIds, bool bForce,
                 qint16 nOrigen, bool& retencionCambiada);
    void viaPantalla(VKFACVENTAS& f, std::unique_ptr<informe::Reporte> r, const Recordset& rs);
    void viaImpresora(VKFACVENTAS& f, informe::Reporte& r);
    void viaPdf(VKFACVENTAS& f, informe::Reporte& r, const Recordset& rs);
};

QString numeroDe(const Recordset& rs) {
    return QString::number(rs.Fields(QStringLiteral("Fav_Numero")).Entero());
}

void EmisorIncorporado::EmisionMultiplesFacturas(VKFACVENTAS& f, qint16 nDiseno, bool,
                                                 const QVector<qint32>& vIds, bool bForce,
                                                 qint16 nOrigen) {
    bool retencionCambiada = false;
    try {
        ejecuta(f, nDiseno, vIds, bForce, nOrigen, retencionCambiada);
    } catch (const ErrorBd& e) {
        // The failure exit does not undo the withholding mark: the next run
        // starts from it until the parameters are read again.
        Ui().PunteroEspera(false);
        Ui().Mensaje(mensajes::kErrorEmitiendo + QLatin1Char('\n') + e.Mensaje(), Icono::Error,
                     mensajes::kAccionCancelada);
        return;
    }
    // Closing.
    Ui().PunteroEspera(false);
    Ui().Cede();
    if (retencionCambiada) {
        f.MyBd().RecargaParametros(QStringLiteral("Select * from parametros"));
    }
}

void EmisorIncorporado::ejecuta(VKFACVENTAS& f, qint16 nDiseno, const QVector<qint32>& vIds,
                                bool bForce, qint16 nOrigen, bool& retencionCambiada) {
    BdSesion& bd = f.MyBd();
    BdParametros& par = bd.Parametros();
    const QString kDiseno = QStringLiteral("Par_DiseñoFactura");

    // Preamble.
    if (!bForce) {
        msRegistraDisenos();
        f.prnEmp = static_cast<qint16>(par.Item(QStringLiteral("Par_prnEmp")).Entero());
        if (par.Item(QStringLiteral("Par_PeDiFact")).Entero() == 1 && nOrigen == 0) {
            nDisenoEmision = -1;
            frmEmisionFacturas dialogo(f);
            Ui().MuestraDialogo(dialogo);
            if (nDisenoEmision <= -1) {
                bd.RecargaParametros(QStringLiteral("Select * from parametros"));
                return;
            }
            par.Item(kDiseno).setValue(nDisenoEmision);
        }
    }

    // Text route of design 6.
    if (par.Item(kDiseno).Entero() == 6 && nOrigen == 0) {
        if (f.Tipo_Emision == 1) {
            if (const auto layout =
                    fnLayoutTexto(par.Item(QStringLiteral("PAR_PLANTILLA_FAC")).Texto())) {
                EjecutaLayoutTexto(layout->nombre, f, vIds);
                // PLT15 goes on: its text and then the report of the route.
                if (layout->terminaRun) {
                    return;
                }
            }
        } else {
            nDiseno = 0;
        }
    }

    if (vIds.isEmpty()) {
        Ui().PunteroEspera(false);
        return;
    }

    // The families that bring their own data and run to their own end.
    if (nOrigen == 0) {
        switch (par.Item(kDiseno).Entero()) {
        case 5:
        case 7:
        case 9:
        case 11:
            throw ErrorBd(mensajes::kFamiliaNoDisponible.arg(QStringLiteral("obras")));
        case 18:
            throw ErrorBd(mensajes::kFamiliaNoDisponible.arg(QStringLiteral("transportes")));
        default:
            break;
        }
    }

    Ui().PunteroEspera(true);
    Ui().Cede();
    // A cursor of its own: the rows are read at once, whatever the gateway
    // does next.
    Recordset rs = LeeFilasFacturas(bd, vIds);

    // One invoice with a withholding turns the whole run into the
    // withholding report, for this run only.
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
        if (rs.Fields(QStringLiteral("Fav_Ret")).Doble() > 0) {
            par.Item(QStringLiteral("Par_RegFiscal")).setValue(3);
            retencionCambiada = true;
            break;
        }
    }
    if (rs.RecordCount() == 0) {
        return;
    }
    rs.MoveFirst();

    const EmpresaEmision empresa = CargaEmpresa(bd);
    if (nOrigen == 0) {
        nDiseno = static_cast<qint16>(par.Item(kDiseno).Entero());
        Ui().Cede();
    }
    EleccionReporte eleccion;
    eleccion.nDiseno = nDiseno;
    eleccion.plantilla = par.Item(QStringLiteral("PAR_PLANTILLA_FAC")).Texto();
    eleccion.nombreEmpresa = par.Item(QStringLiteral("PAR_NOMBRE")).Texto();
    eleccion.tipoEmision = f.Tipo_Emision;
    eleccion.regimenFiscal = par.Item(QStringLiteral("Par_RegFiscal")).Entero();
    auto cargador = CreaObjeto<VKCRFACTURAS>(QString::fromLatin1(VKCRFACTURAS::kProgId));
    cargador->VKReportName = fnNombreReporte(eleccion);
    std::unique_ptr<informe::Reporte> r = cargador->Reporte();

    // Options, copy mark (inside the options) and data.
    AplicaOpcionesFactura(*r, bd, empresa, {f.Copia, f.ImprimeAlbaran});
    if (r->HasSavedData()) {
        r->DiscardSavedData();
    }
    r->Database.Tables.Item(1).SetDataSource(rs, 3);

    switch (f.Tipo_Emision) {
    case 0:
        viaPantalla(f, std::move(r), rs);
        break;
    case 1:
        viaImpresora(f, *r);
        break;
    case 2:
        viaPdf(f, *r, rs);
        break;
    case 3:
        throw ErrorBd(mensajes::kCorreoNoDisponible);
    default:
        break; // a value above 3 delivers nothing
    }
}

void EmisorIncorporado::viaPantalla(VKFACVENTAS&, std::unique_ptr<informe::Reporte> r,
                                    const Recordset& rs) {
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

void EmisorIncorporado::viaImpresora(VKFACVENTAS& f, informe::Reporte& r) {
    const qint64 margen = f.MyBd().Parametros().Item(QStringLiteral("Par_TopMarg")).Entero();
    if (margen != 0) {
        r.TopMargin += static_cast<int>(margen);
    }
    const QString actual =
        LeeAjuste(QStringLiteral("ORVA"), QStringLiteral("Spool"), QStringLiteral("Printer"));
    const QString impresora = Ui().EligeImpresora(actual).value_or(actual);
    QPrinter printer(QPrinter::HighResolution);
    if (impresora.startsWith(QLatin1Char('/'))) {
        // A path instead of a queue: print to that file, as a print-to-file
        // printer does.
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(impresora);
    } else if (!impresora.isEmpty()) {
        printer.setPrinterName(impresora);
    }
    printer.setCopyCount(std::max<int>(1, f.NumCopias));
    if (!printer.isValid()) {
        throw ErrorBd(mensajes::kImpresoraNoValida.arg(impresora));
    }
    informe::RenderizaInforme(r, printer);
}

void EmisorIncorporado::viaPdf(VKFACVENTAS& f, informe::Reporte& r, const Recordset& rs) {
    Recordset primera = rs;
    primera.MoveFirst();
    const QString numero = numeroDe(primera);
    r.ReportTitle = QStringLiteral("Factura %1/%2")
                        .arg(primera.Fields(QStringLiteral("Fav_Serie")).Texto(), numero);
    const QString carpeta =
        f.RutaFicheroPdf.size() > 3 ? f.RutaFicheroPdf : fnCarpetaFdoc(f.MyBd().IdUsuario());
    QString ruta = QDir(carpeta).filePath(QStringLiteral("F_") + numero + QStringLiteral(".pdf"));
    f.PdfOutFile = ruta;
    QFile::remove(ruta);
    if (ruta.size() <= 3) {
        const std::optional<QString> elegido =
            Ui().PideTexto(mensajes::kFicheroPdf, r.ReportTitle, QString());
        if (!elegido || elegido->trimmed().isEmpty()) {
            return;
        }
        ruta = elegido->trimmed();
        f.PdfOutFile = ruta;
    }
    EscribePdf(r, ruta);
    // Signing arrives with the mail route: until then the file is the
    // unsigned one, and opening it is ours.
    if (f.VisualizarPDF) {
        fnAbreFichero(f.PdfOutFile);
    }
}

} // namespace

void RegistraEmision() {
    RegistraComponente(QString::fromLatin1(VKCRFACTURAS::kProgId),
                       [] { return std::make_unique<CRFacturasIncorporado>(); });
    RegistraComponente(QString::fromLatin1(EmisorFacturas::kProgId),
                       [] { return std::make_unique<EmisorIncorporado>(); });
}

} // namespace vk
