#include "frmFacturasVenta.h"

#include "Combos.h"
#include "MensajesRuns.h"

#include <Ajustes.h>
#include <Descuentos.h>
#include <DireccionFactura.h>
#include <ErrorBd.h>
#include <FacturacionAlbaranes.h>
#include <Formato.h>
#include <Interaccion.h>
#include <MensajesMotor.h>
#include <NombreCliente.h>
#include <ReglasFecha.h>
#include <TransaccionPorLotes.h>
#include <VKFACVENTAS.h>
#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace vk {

namespace {

const QString kFormatoFecha = QStringLiteral("dd/mm/yyyy");

std::optional<QDate> fechaDe(const QString& texto) {
    try {
        return fnLeeFecha(texto);
    } catch (const Error&) {
        return std::nullopt;
    }
}

// The amount of a note or group after its two header discounts.
double importeConDescuentos(double suma, double dto1, double dto2) {
    return fnDescuentosEnCascada(suma, dto1, dto2).neto;
}

QString textoONada(const QVariant& v) {
    return v.isNull() ? QString() : v.toString();
}

} // namespace

frmFacturasVenta::frmFacturasVenta(VKFACVENTAS& factura)
    : factura_(factura), bd_(factura.MyBd()),
      nombreCliente_(fnNombreCliente(
          static_cast<int>(bd_.Parametros().Item(QStringLiteral("PAR_ORCONTANOM")).Entero()))),
      grupos_(bd_.cn(), nombreCliente_) {
    Caption = mensajes::kTituloMultifactura;
    const QString hoy = Format(QDate::currentDate(), kFormatoFecha);
    Text1[3] = hoy;
    Text1[5] = fnSerieFacturaPorDefecto(bd_);
    Text1[6] = hoy;
    Text1[10] =
        LeeAjuste(QStringLiteral("ORVA"), QStringLiteral("Spool"), QStringLiteral("Printer"));
    Text1[11] = QString::number(bd_.Parametros().Item(QStringLiteral("Par_NCopFac")).Entero());
    Check3 = bd_.Parametros().Item(QStringLiteral("Par_RecCar")).Entero() == 1;
    cboFpago = msCargarFormasCobro(bd_);
}

void frmFacturasVenta::msBuscarCliente(qint32 nCodigo) {
    if (nCodigo <= -1) {
        if (const std::optional<ClienteElegido> c =
                fnBuscaCliente(bd_, mensajes::kBuscarClientes)) {
            idClienteFiltro_ = c->id;
            Text1[0] = c->codigo;
            Text1[1] = c->nombre;
        } else {
            idClienteFiltro_ = 0;
            Text1[0].clear();
            Text1[1].clear();
        }
        return;
    }
    Recordset rs = bd_.cn().Execute(
        QStringLiteral("SELECT Cli_ID, Cli_COD, %1 AS Cli_NOM FROM Cli WHERE Cli_COD = ?")
            .arg(nombreCliente_),
        {nCodigo});
    if (rs.Eof()) {
        idClienteFiltro_ = 0;
        Text1[0].clear();
        Text1[1].clear();
        return;
    }
    idClienteFiltro_ = static_cast<qint32>(rs.Fields(QStringLiteral("Cli_ID")).Entero());
    Text1[1] = rs.Fields(QStringLiteral("Cli_NOM")).Texto();
}

void frmFacturasVenta::Text1_0_LostFocus() {
    if (Text1[0].trimmed().isEmpty()) {
        idClienteFiltro_ = 0;
        Text1[1].clear();
        return;
    }
    msBuscarCliente(static_cast<qint32>(Val(Text1[0])));
}

frmFacturasVenta::Filtro frmFacturasVenta::clausulaFechas() const {
    const std::optional<QDate> desde = desde_.De(Text1[2]);
    const std::optional<QDate> hasta = hasta_.De(Text1[3]);
    const Dialecto& d = bd_.dialecto();
    if (desde && hasta) {
        return {QStringLiteral(" WHERE Cav_Fecha BETWEEN ? AND ? "),
                {d.valorFecha(*desde), d.valorFecha(*hasta)}};
    }
    // A lone from-date acts as a latest date, as it always did.
    if (desde || hasta) {
        return {QStringLiteral(" WHERE Cav_Fecha <= ? "), {d.valorFecha(desde ? *desde : *hasta)}};
    }
    return {QStringLiteral(" WHERE Cav_id > 0 "), {}};
}

frmFacturasVenta::Filtro frmFacturasVenta::clausulaComun() const {
    Filtro f = clausulaFechas();
    if (idClienteFiltro_ != 0) {
        f.sql += QStringLiteral(" AND Cav_IdCli = ? ");
        f.parametros << idClienteFiltro_;
    }
    f.sql += QStringLiteral(" AND Cav_Situa = 1 AND Cav_IdFactura IS NULL ");
    if (!Text1[4].trimmed().isEmpty()) {
        f.sql += QStringLiteral(" AND Cav_Serie = ? ");
        f.parametros << Text1[4].trimmed();
    }
    return f;
}

void frmFacturasVenta::cmdBuscar() {
    ListView1.clear();
    dbgLineas = Recordset();
    grupos_.Vacia();
    ++busquedas_;
    filaCli = -1;
    const Filtro f = clausulaComun();
    const QString agente =
        chkGroupAgentes ? QStringLiteral(", 0 AS Cav_Agente") : QStringLiteral(", Cav_Agente");
    // Only each group's key and amount are kept; the name is selected for
    // the order alone (the list reads the customer's data with its page).
    const QString sql =
        QStringLiteral("SELECT Cav_Idcli, %1 AS Cli_Nom, cav_IdFco, cav_dto1, cav_dto2, "
                       "SUM(Lav_Importe) AS suma %2 FROM Cav INNER JOIN Cli ON Cli_Id = Cav_IdCli "
                       "INNER JOIN Lav ON Lav_IdCav = Cav_Id INNER JOIN Fco ON Fco_Id = Cav_IdFco "
                       "%3 %4 "
                       "GROUP BY Cav_Idcli, cli_nom, Fco_Des, cav_dto1, cav_dto2, Cli_DTo1, "
                       "Cli_Dto2, cli_impmin, cli_cta, cav_IdFco, Cli_di1, cli_di2 %5, "
                       "cli_favobs, CLI_TIPDOC, CLI_APE1, CLI_APE2, cli_comer, Cli_Fatencion, "
                       "CLI_RetNFiscal, CLI_ModoRetNF "
                       "ORDER BY Cli_Nom, Cav_Idcli, cav_IdFco, cav_dto1, cav_dto2 %5")
            .arg(nombreCliente_, agente, f.sql,
                 Check1 ? QString() : QStringLiteral(" AND Lav_Importe <> 0 "),
                 chkGroupAgentes ? QString() : QStringLiteral(", Cav_Agente"));
    bd_.cn().Recorre(sql, f.parametros, [this](const Recordset& rs) {
        ClaveGrupo k;
        k.Cav_Idcli = static_cast<qint32>(rs.Fields(QStringLiteral("Cav_Idcli")).Entero());
        k.cav_IdFco = static_cast<qint32>(rs.Fields(QStringLiteral("cav_IdFco")).Entero());
        k.cav_dto1 = rs.Fields(QStringLiteral("cav_dto1")).Doble();
        k.cav_dto2 = rs.Fields(QStringLiteral("cav_dto2")).Doble();
        k.tOTAL =
            importeConDescuentos(rs.Fields(QStringLiteral("suma")).Doble(), k.cav_dto1, k.cav_dto2);
        if (const Campo a = rs.Fields(QStringLiteral("Cav_Agente")); !a.IsNull()) {
            k.Cav_Agente = static_cast<qint32>(a.Entero());
        }
        grupos_.Anade(k);
    });
    grupos_.Termina();
    if (NumeroGrupos() == 0) {
        Text1_14_Enabled = false;
        Text1[14].clear();
        Ui().Mensaje(mensajes::kSinAlbaranesPendientes, Icono::Informacion, Caption);
        return;
    }
    // The attention line is typed for one invoice only.
    Text1_14_Enabled = NumeroGrupos() == 1;
    if (!Text1_14_Enabled) {
        Text1[14].clear();
    }
    SeleccionaGrupo(0);
}

void frmFacturasVenta::SeleccionaGrupo(int fila) {
    filaCli = fila;
    if (fila < 0 || fila >= NumeroGrupos()) {
        return;
    }
    const GrupoFacturable g = Grupo(fila);
    msCargarAlbaranes(g);
    if (!Check2) {
        Text1[7] = textoONada(g.cli_favobs);
    }
    Text1[14] = Text1_14_Enabled ? textoONada(g.Cli_Fatencion) : QString();
    if (facturandoTodos_) {
        return; // nothing repaints during the run: what is only shown waits
    }
    Recordset obs = bd_.cn().Execute(QStringLiteral("SELECT CLI_OBSER FROM Cli WHERE Cli_Id = ?"),
                                     {g.Cav_Idcli});
    lblCliObs = obs.Eof() ? QString() : obs.Fields(0).Texto();
}

void frmFacturasVenta::msCargarAlbaranes(const GrupoFacturable& g) {
    // Addresses, the fiscal one first.
    cboDir.clear();
    direcciones_.clear();
    for (const DireccionCliente& d : fnDireccionesCliente(bd_, g.Cav_Idcli)) {
        direcciones_.push_back(d.idDir);
        cboDir << QStringLiteral("%1 - %2 %3")
                      .arg(d.idDir)
                      .arg(d.poblacion, d.fiscal ? QStringLiteral("(Fiscal)") : QString());
    }
    cboDirIndex = cboDir.isEmpty() ? -1 : 0;
    cboFpagoIndex = -1;
    for (int i = 0; i < cboFpago.size(); ++i) {
        if (fnIdCombo(cboFpago[i], 2) == g.cav_IdFco) {
            cboFpagoIndex = i;
            break;
        }
    }
    Text1[8] = Format(Check4 ? g.cav_dto1 : g.Cli_Dto1, QStringLiteral("##0.00"));
    Text1[9] = Format(Check4 ? g.cav_dto2 : g.Cli_Dto2, QStringLiteral("##0.00"));
    Label1_1 = mensajes::kAlbaranesPendientesDe + g.Cli_Nom;

    // The notes of the group. The second discount is deliberately not a
    // condition: two groups that differ only in it list the notes of both.
    Filtro f = clausulaFechas();
    QString sql = QStringLiteral("SELECT Cav_Id, Cav_Serie, Cav_Numero, Cav_Fecha, Cav_Dto1, "
                                 "Cav_Dto2, SUM(Lav_Importe) AS suma, Cav_Agente FROM Cav INNER "
                                 "JOIN Lav ON Lav_IdCav = Cav_Id ") +
                  f.sql +
                  QStringLiteral(" AND Cav_IdCli = ? AND Cav_IdFco = ? AND Cav_Dto1 = ? AND "
                                 "Cav_Situa = 1 AND Cav_IdFactura IS NULL ");
    f.parametros << g.Cav_Idcli << g.cav_IdFco << g.cav_dto1;
    if (!Text1[4].trimmed().isEmpty()) {
        sql += QStringLiteral(" AND Cav_Serie = ? ");
        f.parametros << Text1[4].trimmed();
    }
    if (!chkGroupAgentes && !g.Cav_Agente.isNull()) {
        sql += QStringLiteral(" AND Cav_Agente = ? ");
        f.parametros << g.Cav_Agente;
    }
    if (!Check1) {
        sql += QStringLiteral(" AND Lav_Importe <> 0 ");
    }
    sql += QStringLiteral(" GROUP BY Cav_Id, Cav_Serie, Cav_Numero, Cav_Fecha, Cav_Dto1, Cav_Dto2, "
                          "Cav_Agente ORDER BY Cav_Fecha, Cav_Id");
    Recordset rs = bd_.cn().Execute(sql, f.parametros);
    ListView1.clear();
    for (; !rs.Eof(); rs.MoveNext()) {
        AlbaranFacturable a;
        a.Cav_Id = static_cast<qint32>(rs.Fields(QStringLiteral("Cav_Id")).Entero());
        a.NuAlbaran = rs.Fields(QStringLiteral("Cav_Serie")).Texto() + QLatin1Char('/') +
                      QString::number(rs.Fields(QStringLiteral("Cav_Numero")).Entero());
        a.Cav_Fecha = rs.Fields(QStringLiteral("Cav_Fecha")).Fecha();
        a.TAlbaran = importeConDescuentos(rs.Fields(QStringLiteral("suma")).Doble(),
                                          rs.Fields(QStringLiteral("Cav_Dto1")).Doble(),
                                          rs.Fields(QStringLiteral("Cav_Dto2")).Doble());
        a.Cav_Agente =
            chkGroupAgentes ? QVariant() : rs.Fields(QStringLiteral("Cav_Agente")).Value();
        ListView1.push_back(std::move(a));
    }
    if (!ListView1.empty() && !facturandoTodos_) {
        msLineasAlbaran(ListView1.front().Cav_Id);
    } else {
        dbgLineas = Recordset();
    }
}

void frmFacturasVenta::msLineasAlbaran(qint32 nIdCav) {
    dbgLineas = bd_.cn().Execute(
        QStringLiteral("SELECT Lav_Des, Lav_Uni, Lav_Precio, Lav_Dto1, Lav_Dto2, Lav_Importe, "
                       "(SELECT orden_num FROM Orden WHERE orden_id = ora_idorden LIMIT 1) AS "
                       "Orden, Lav_Id FROM Lav LEFT JOIN OrdAlb ON Lav_Id = ora_idLav WHERE "
                       "Lav_Idcav = ? ORDER BY Lav_Orden"),
        {nIdCav});
    for (const AlbaranFacturable& a : ListView1) {
        if (a.Cav_Id == nIdCav) {
            lblLineas = mensajes::kLineasDelAlbaran + a.NuAlbaran;
        }
    }
}

void frmFacturasVenta::cmdMarcar() {
    for (AlbaranFacturable& a : ListView1) {
        a.marcado = true;
    }
}

void frmFacturasVenta::Check4_Click() {
    Frame4_Enabled = !Check4;
}

void frmFacturasVenta::cmdImpresoras() {
    if (const std::optional<QString> impresora = Ui().EligeImpresora(Text1[10])) {
        Text1[10] = *impresora;
    }
}

bool frmFacturasVenta::compruebaFacturacion() {
    if (!fechaDe(Text1[6])) {
        Ui().Mensaje(mensajes::kFaltaFechaFactura, Icono::Aviso, Caption);
        return false;
    }
    if (!factura_.VerificarFechaFactura(Text1[5], Text1[6])) {
        return false;
    }
    // A domiciled payment needs the customer's bank account (the group
    // current at this moment, also in the all-customers run).
    if (cboFpagoIndex >= 0 && filaCli >= 0 && filaCli < NumeroGrupos() &&
        !fnCuentaCobroValida(bd_, fnIdCombo(cboFpago[cboFpagoIndex]),
                             textoONada(Grupo(filaCli).CLI_CTA))) {
        Ui().Mensaje(mensajes::kCuentaCobroIncorrecta, Icono::Aviso, Caption);
        return false;
    }
    return true;
}

void frmFacturasVenta::cmdFacturar() {
    facturasGeneradas.clear();
    incidencias.clear();
    ejecucionDetenida = false;
    ejecucionFallida = false;
    resultadoEmision = ResultadoEmision::Hecha;
    ultimaOrdenRechazada = true;
    try {
        if (!compruebaFacturacion()) {
            return;
        }
        factura_.NumCopias = static_cast<qint16>(Val(Text1[11]));
        if (Check4) {
            if (!Ui().Pregunta(mensajes::kConfirmaTodos, Caption, false)) {
                return;
            }
            ultimaOrdenRechazada = false;
            msFacturarTodos();
        } else {
            if (!Ui().Pregunta(mensajes::kConfirmaSeleccion + Text1[1], Caption, false)) {
                return;
            }
            ultimaOrdenRechazada = false;
            facturacionSelectiva();
        }
    } catch (const Error& e) {
        ejecucionFallida = true;
        Ui().Mensaje(e.Mensaje(), Icono::Error, Caption);
    }
    if (ultimaOrdenRechazada) {
        return;
    }
    // After a run the list shows what is still pending.
    try {
        cmdBuscar();
    } catch (const Error& e) {
        Ui().Mensaje(e.Mensaje(), Icono::Error, Caption);
    }
}

std::optional<QDate> frmFacturasVenta::FechaTecleada::De(const QString& t) {
    if (!leida || t != texto) {
        texto = t;
        fecha = t.trimmed().isEmpty() ? std::nullopt : fechaDe(t);
        leida = true;
    }
    return fecha;
}

QDate frmFacturasVenta::fechaFactura() const {
    return fechaFactura_.De(Text1[6]).value_or(QDate());
}

CabeceraFactura frmFacturasVenta::cabecera(const GrupoFacturable& g) const {
    CabeceraFactura c;
    c.serie = Text1[5];
    c.fecha = fechaFactura();
    c.idCliente = g.Cav_Idcli;
    // Each invoice takes its own customer's attention line and retention,
    // in both runs: never what the previous invoice left on the facade.
    c.atencion = Text1_14_Enabled ? Text1[14] : textoONada(g.Cli_Fatencion);
    c.retencionNF = g.CLI_RetNFiscal;
    c.modoRetencionNF = g.CLI_ModoRetNF;
    c.idFco = cboFpagoIndex >= 0 ? fnIdCombo(cboFpago[cboFpagoIndex]) : 0;
    c.observaciones = Text1[7];
    if (Check5) {
        c.dto1 = Val(QString(Text1[8]).replace(QLatin1Char(','), QLatin1Char('.')));
        c.dto2 = Val(QString(Text1[9]).replace(QLatin1Char(','), QLatin1Char('.')));
    } else {
        c.dto1 = g.cav_dto1;
        c.dto2 = g.cav_dto2;
    }
    if (!direcciones_.empty()) {
        c.idDireccion = cboDirIndex >= 0 ? direcciones_[cboDirIndex] : direcciones_.front();
    }
    return c;
}

ResultadoFacturacion frmFacturasVenta::facturaAlbaranes(const GrupoFacturable& g,
                                                        const std::vector<qint32>& albaranes) {
    ResultadoFacturacion r = FacturaAlbaranes(factura_, cabecera(g), albaranes);
    if (r.Creada()) {
        porConfirmar_.facturas.push_back({r.idFactura, r.factura, g.Cli_Nom.trimmed()});
    }
    if (r.estado != EstadoFacturacion::Hecha && !r.motivo.isEmpty()) {
        porConfirmar_.incidencias.push_back({r.factura, g.Cli_Nom.trimmed(), r.motivo});
    }
    return r;
}

void frmFacturasVenta::actualizaEstadisticas(std::size_t hechas, std::size_t& umbral) {
    // A run that makes ten times the invoices of the last refresh has
    // changed the tables' size: a company new on the server would otherwise
    // keep plans made for empty tables.
    const QString sql = bd_.dialecto().estadisticasFacturas();
    if (sql.isEmpty() || hechas < umbral * 10) {
        return;
    }
    umbral = hechas;
    try {
        bd_.cn().Execute(sql);
    } catch (const ErrorBd&) {
        // Only the plans' quality is at stake; the invoices are committed.
    }
}

void frmFacturasVenta::confirmaLote(TransaccionPorLotes& lote, QVector<qint32>& ids) {
    PorConfirmar hechas = std::exchange(porConfirmar_, {});
    try {
        lote.Confirma();
    } catch (const ErrorBd& e) {
        // Nothing of the batch stands: its notes are pending again.
        const auto deLote = [&hechas](const QString& factura) {
            return std::any_of(hechas.facturas.begin(), hechas.facturas.end(),
                               [&factura](const FacturaHecha& h) { return h.factura == factura; });
        };
        for (const FacturaHecha& h : hechas.facturas) {
            incidencias.push_back(
                {h.factura, h.cliente, mensajes::kLoteNoGuardado.arg(e.Mensaje())});
        }
        for (IncidenciaFacturacion& n : hechas.incidencias) {
            if (n.factura.isEmpty() || !deLote(n.factura)) {
                incidencias.push_back(std::move(n));
            }
        }
        ejecucionDetenida = true;
        return;
    }
    anota(std::move(hechas), ids);
}

void frmFacturasVenta::anota(PorConfirmar&& hechas, QVector<qint32>& ids) {
    for (const FacturaHecha& h : hechas.facturas) {
        facturasGeneradas.push_back(h.id);
    }
    std::move(hechas.incidencias.begin(), hechas.incidencias.end(),
              std::back_inserter(incidencias));
    ids += hechas.emitir;
}

void frmFacturasVenta::facturacionSelectiva() {
    if (filaCli < 0 || filaCli >= NumeroGrupos()) {
        Ui().Mensaje(mensajes::kDebeSeleccionar, Icono::Aviso, Caption);
        return;
    }
    const GrupoFacturable g = Grupo(filaCli);
    std::vector<qint32> marcados;
    for (const AlbaranFacturable& a : ListView1) {
        if (a.marcado) {
            marcados.push_back(a.Cav_Id);
        }
    }
    if (marcados.empty()) {
        Ui().Mensaje(mensajes::kDebeSeleccionar, Icono::Aviso, Caption);
        return;
    }
    const ResultadoFacturacion r = facturaAlbaranes(g, marcados);
    // The invoice committed on its own.
    QVector<qint32> sinEmision;
    anota(std::exchange(porConfirmar_, {}), sinEmision);
    if (!r.Creada()) {
        if (!r.motivo.isEmpty()) {
            Ui().Mensaje(r.motivo, Icono::Error, Caption);
        }
        return;
    }
    if (r.estado == EstadoFacturacion::SinTerminar) {
        Ui().Mensaje(mensajes::kFacturaIncompleta.arg(r.factura, r.motivo), Icono::Error, Caption);
    }
    emite(false, {factura_.IdFactu});
    Ui().Mensaje(mensajes::kProcesoConcluido + factura_.SerieFactura + QLatin1Char('/') +
                     QString::number(factura_.NumeroFactura),
                 Icono::Informacion, Caption);
}

void frmFacturasVenta::msFacturarTodos() {
    facturandoTodos_ = true;
    struct Fin {
        bool& bandera;
        ~Fin() { bandera = false; }
    } fin{facturandoTodos_};
    // Tax rows and the company's row are read once for the whole run.
    const AmbitoEjecucion ambito(factura_.MyBd());
    QVector<qint32> ids;
    porConfirmar_ = {};
    // Invoices are committed a few at a time, each in its own savepoint:
    // one disk synchronisation for several, and none reported before it.
    TransaccionPorLotes lote(bd_.cn());
    std::size_t analizadas = 10;
    const int total = NumeroGrupos();
    int i = 0;
    try {
        for (; i < total && !ejecucionDetenida; ++i) {
            lote.Empieza();
            SeleccionaGrupo(i);
            const GrupoFacturable g = Grupo(i);
            std::vector<qint32> albaranes;
            for (const AlbaranFacturable& a : ListView1) {
                albaranes.push_back(a.Cav_Id);
            }
            // Each group stands alone: one that fails leaves the others
            // going, unless every following one would fail the same way.
            if (!albaranes.empty()) {
                const ResultadoFacturacion r = facturaAlbaranes(g, albaranes);
                if (r.Creada() && Val(Text1[11]) != 0) {
                    porConfirmar_.emitir.push_back(r.idFactura);
                }
                ejecucionDetenida = r.detieneEjecucion;
            }
            if (lote.Toca() || ejecucionDetenida || i + 1 == total) {
                confirmaLote(lote, ids);
                actualizaEstadisticas(facturasGeneradas.size(), analizadas);
            }
            Ui().Progreso(i + 1, total, mensajes::kFacturandoGrupo.arg(g.Cli_Nom.trimmed()));
            Ui().Cede();
        }
    } catch (const Error&) {
        // A read of the groups failed: what the batch made so far is
        // committed and reported before the error is shown.
        confirmaLote(lote, ids);
        throw;
    }
    if (ejecucionDetenida && i < total) {
        incidencias.push_back({QString(), QString(), mensajes::kGruposSinIntentar.arg(total - i)});
    }
    if (!incidencias.empty() && muestraResumenIncidencias) {
        Ui().Mensaje(resumenIncidencias(), Icono::Error, Caption);
    }
    emite(true, ids);
}

QString frmFacturasVenta::resumenIncidencias() const {
    constexpr std::size_t kMostradas = 15;
    QStringList lineas;
    lineas << mensajes::kIncidenciasRun.arg(incidencias.size());
    for (std::size_t k = 0; k < incidencias.size() && k < kMostradas; ++k) {
        const IncidenciaFacturacion& n = incidencias[k];
        lineas << (n.factura.isEmpty()
                       ? n.cliente
                       : n.factura + QStringLiteral(" (") + n.cliente + QLatin1Char(')')) +
                      QStringLiteral(": ") + n.motivo;
    }
    if (incidencias.size() > kMostradas) {
        lineas << mensajes::kMasIncidencias.arg(incidencias.size() - kMostradas);
    }
    return lineas.join(QLatin1Char('\n'));
}

void frmFacturasVenta::emite(bool todos, const QVector<qint32>& ids) {
    if (factura_.NumCopias <= 0 || ids.isEmpty()) {
        return;
    }
    msOpcionImprimeAlbaranes(factura_, Caption);
    factura_.Tipo_Emision = static_cast<quint8>(optSalida);
    resultadoEmision =
        todos ? factura_.EmisionMultiplesFacturas(1, true, ids) : factura_.EmisionFacturas(1, true);
}

} // namespace vk
