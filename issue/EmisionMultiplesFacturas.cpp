// The issue dispatcher: every invoice that leaves the system leaves through
// here. It picks the layout by design and template key, binds the rows and
// delivers by the route the facade's Tipo_Emision names.
#include "EmisionInforme.h"
#include "FacturaObras.h"
#include "FacturaTransportes.h"
#include "Ficheros.h"
#include "MensajesEmision.h"
#include "OpcionesInforme.h"
#include "RutasEmision.h"
#include "SqlFacturas.h"
#include "TablaReportes.h"
#include "VKCRFACTURAS.h"
#include "frmEmisionFacturas.h"
#include "spool/LayoutsTexto.h"

#include <DisenoInforme.h>
#include <ErrorBd.h>
#include <Interaccion.h>
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
    ResultadoEmision EmisionMultiplesFacturas(VKFACVENTAS& f, qint16 nDiseno, bool bDiseno,
                                              const QVector<qint32>& vIds, bool bForce,
                                              qint16 nOrigen) override;

private:
    ResultadoEmision ejecuta(VKFACVENTAS& f, qint16 nDiseno, const QVector<qint32>& vIds,
                             bool bForce, qint16 nOrigen);
};

ResultadoEmision EmisorIncorporado::EmisionMultiplesFacturas(VKFACVENTAS& f, qint16 nDiseno, bool,
                                                             const QVector<qint32>& vIds,
                                                             bool bForce, qint16 nOrigen) {
    ResultadoEmision resultado = ResultadoEmision::Fallida;
    try {
        resultado = ejecuta(f, nDiseno, vIds, bForce, nOrigen);
    } catch (const Error& e) {
        Ui().PunteroEspera(false);
        Ui().Mensaje(mensajes::kErrorEmitiendo + QLatin1Char('\n') + e.Mensaje(), Icono::Error,
                     mensajes::kAccionCancelada);
        return ResultadoEmision::Fallida;
    }
    // Closing.
    Ui().PunteroEspera(false);
    Ui().Cede();
    return resultado;
}

// What a branch that tells the user of its own failure returns.
ResultadoEmision segun(bool hecha) {
    return hecha ? ResultadoEmision::Hecha : ResultadoEmision::Fallida;
}

ResultadoEmision EmisorIncorporado::ejecuta(VKFACVENTAS& f, qint16 nDiseno,
                                            const QVector<qint32>& vIds, bool bForce,
                                            qint16 nOrigen) {
    BdSesion& bd = f.MyBd();
    const BdParametros& par = bd.Parametros();
    const QString kDiseno = QStringLiteral("Par_DiseñoFactura");
    // This run's choices over the company's parameters.
    ParametrosEmision run;

    // Preamble.
    if (!bForce) {
        msRegistraDisenos();
        f.prnEmp = static_cast<qint16>(par.Item(QStringLiteral("Par_prnEmp")).Entero());
        if (par.Item(QStringLiteral("Par_PeDiFact")).Entero() == 1 && nOrigen == 0) {
            frmEmisionFacturas dialogo(f);
            Ui().MuestraDialogo(dialogo);
            if (dialogo.nDisenoEmision <= -1) {
                return ResultadoEmision::Cancelada;
            }
            run = dialogo.Eleccion;
        }
    }

    // Text route of design 6.
    bool trasTexto = false;
    if (run.Entero(par, kDiseno) == 6 && nOrigen == 0) {
        if (f.Tipo_Emision == 1) {
            if (const auto layout =
                    fnLayoutTexto(par.Item(QStringLiteral("PAR_PLANTILLA_FAC")).Texto())) {
                const bool impreso = EjecutaLayoutTexto(layout->nombre, f, vIds);
                // PLT15 goes on: its text and then the report of the route.
                if (layout->terminaRun || !impreso) {
                    return segun(impreso);
                }
                trasTexto = true;
            }
        } else {
            nDiseno = 0;
        }
    }

    if (vIds.isEmpty()) {
        Ui().PunteroEspera(false);
        return ResultadoEmision::Hecha;
    }

    // The families that bring their own data and run to their own end.
    if (nOrigen == 0) {
        switch (run.Entero(par, kDiseno)) {
        case 5:
            return segun(msFacturaObras(f, vIds, false, run));
        case 7:
        case 9:
        case 11:
            return segun(msFacturaObras(f, vIds, true, run));
        case 18:
            return segun(msFacturaTransportes(f, vIds, run));
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
            run.Fija(QStringLiteral("Par_RegFiscal"), 3);
            break;
        }
    }
    if (rs.RecordCount() == 0) {
        return ResultadoEmision::Hecha;
    }
    rs.MoveFirst();

    const EmpresaEmision empresa = CargaEmpresa(bd);
    if (nOrigen == 0) {
        nDiseno = static_cast<qint16>(run.Entero(par, kDiseno));
        Ui().Cede();
    }
    EleccionReporte eleccion;
    eleccion.nDiseno = nDiseno;
    eleccion.plantilla = par.Item(QStringLiteral("PAR_PLANTILLA_FAC")).Texto();
    eleccion.nombreEmpresa = par.Item(QStringLiteral("PAR_NOMBRE")).Texto();
    eleccion.tipoEmision = f.Tipo_Emision;
    eleccion.regimenFiscal = run.Entero(par, QStringLiteral("Par_RegFiscal"));
    const QString nombreReporte = fnNombreReporte(eleccion);
    std::unique_ptr<informe::Reporte> r = CargaReporte(nombreReporte);

    // Options, copy mark, frames, letterhead and paper, then the data.
    PreparaInforme(*r, bd, empresa, nombreReporte, ContextoDe(f, nDiseno, run));
    if (r->HasSavedData()) {
        r->DiscardSavedData();
    }
    r->Database.Tables.Item(1).SetDataSource(rs, 3);
    if (nDiseno == 13) {
        // The food design's subreports, the VAT rates and the articles'
        // composition, bound by name: the withholding report that stands in
        // for the design when an invoice bears a withholding has neither.
        for (const auto& sub : r->Subreportes) {
            if (sub->Name.compare(QLatin1String("TiposIva"), Qt::CaseInsensitive) == 0) {
                sub->Database.Tables.Item(1).SetDataSource(LeeTiposIva(bd), 3);
            } else if (sub->Name.compare(QLatin1String("Composicion"), Qt::CaseInsensitive) == 0) {
                sub->Database.Tables.Item(1).SetDataSource(LeeComposicionFacturas(bd, vIds), 3);
            }
        }
    }

    EntregaInforme(f, std::move(r), rs, {.trasTexto = trasTexto});
    return ResultadoEmision::Hecha;
}

} // namespace

std::unique_ptr<informe::Reporte> CargaReporte(const QString& nombre) {
    auto cargador = CreaObjeto<VKCRFACTURAS>(QString::fromLatin1(VKCRFACTURAS::kProgId));
    cargador->VKReportName = nombre;
    return cargador->Reporte();
}

void RegistraEmision() {
    RegistraComponente(QString::fromLatin1(VKCRFACTURAS::kProgId),
                       [] { return std::make_unique<CRFacturasIncorporado>(); });
    RegistraComponente(QString::fromLatin1(EmisorFacturas::kProgId),
                       [] { return std::make_unique<EmisorIncorporado>(); });
}

} // namespace vk
