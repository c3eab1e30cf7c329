#include "FacturacionAlbaranes.h"

#include "DireccionFactura.h"
#include "GrabaFactura.h"
#include "MensajesMotor.h"
#include "NuevaFactura.h"
#include "RegistroFiscalFactura.h"
#include "ReglasFecha.h"

#include <BdSesion.h>
#include <ErrorBd.h>
#include <Formato.h>
#include <QSet>
#include <VKFACVENTAS.h>
#include <algorithm>

namespace vk {

namespace {

const QString kFormatoFecha = QStringLiteral("dd/mm/yyyy");

QString numeroAlbaran(BdSesion& bd, qint32 idCav) {
    Recordset rs = bd.cn().Execute(
        QStringLiteral("SELECT Cav_Serie, Cav_Numero FROM Cav WHERE Cav_Id = ?"), {idCav});
    if (rs.Eof()) {
        return QString::number(idCav);
    }
    return rs.Fields(0).Texto().trimmed() + QLatin1Char('/') +
           QString::number(rs.Fields(1).Entero());
}

// The first note of the list, in its order, that is no longer pending (or
// stands twice in it): the one another user took.
qint32 primeroNoPendiente(BdSesion& bd, const std::vector<qint32>& albaranes) {
    QSet<qint32> pendientes;
    Recordset rs = bd.cn().Execute(QStringLiteral("SELECT Cav_Id FROM Cav WHERE Cav_Id IN (%1) "
                                                  "AND +Cav_Situa = 1 AND +Cav_IdFactura IS NULL")
                                       .arg(MarcadoresSql(albaranes.size())),
                                   ValoresSql(albaranes));
    for (; !rs.Eof(); rs.MoveNext()) {
        pendientes.insert(static_cast<qint32>(rs.Fields(0).Entero()));
    }
    for (const qint32 idCav : albaranes) {
        if (!pendientes.remove(idCav)) {
            return idCav;
        }
    }
    return albaranes.front();
}

void rellenaCabecera(VKFACVENTAS& f, const CabeceraFactura& c, qint32 primerAlbaran) {
    f.SerieFactura = c.serie;
    f.NumeroFactura = c.numero;
    f.FechaFactura = c.fecha;
    f.IdCliente = c.idCliente;
    f.IdFco = c.idFco;
    f.PorcentajeDto1 = c.dto1;
    f.PorcentajeDto2 = c.dto2;
    f.Observaciones = c.observaciones;
    f.Aatencion = c.atencion;
    f.porcentajeretencionnf = c.retencionNF;
    f.nModoRetNF = c.modoRetencionNF;
    // A new invoice has no amounts yet: nothing of the previous one may
    // reach its row.
    f.ImpDtoPie1 = 0;
    // Nor what an invoice loaded before it (the edit screen loads into the
    // facade) kept of its own: a manual total, accounts of collection and
    // offset.
    f.IdLavManual = 0;
    f.ImpDifManual = 0;
    f.sCtaCobro.clear();
    f.sCtaCompensa.clear();
    f.idDir = -1; // the address is stored by value
    f.IdRectificada = c.idRectificada;
    if (c.direccion) {
        msPonDireccion(f, *c.direccion);
    } else if (c.idDireccion) {
        msDireccionDeDir(f, *c.idDireccion);
    } else if (primerAlbaran > 0) {
        msDireccionDeAlbaran(f, primerAlbaran);
    } else {
        msDireccionDeDir(f, 0);
    }
}

// The outcome of a failure, from the error that caused it; `detiene` when
// the failure would repeat for every following invoice whatever its error.
ResultadoFacturacion fallo(EstadoFacturacion estado, const QString& motivo, const Error* e,
                           bool detiene = false) {
    ResultadoFacturacion r;
    r.estado = estado;
    r.motivo = motivo;
    r.detieneEjecucion = detiene || (e && AfectaATodo(*e));
    if (e) {
        r.detalle = e->Detalle();
    }
    return r;
}

} // namespace

ResultadoFacturacion FacturaAlbaranes(VKFACVENTAS& f, const CabeceraFactura& c,
                                      const std::vector<qint32>& albaranes,
                                      const OpcionesFacturacion& o) {
    using E = EstadoFacturacion;
    if (c.serie.trimmed().isEmpty()) {
        return fallo(E::NoHecha, mensajes::kFaltaSerie, nullptr);
    }
    if (!fnFechaFacturaAdmisible(c.fecha)) {
        return fallo(E::NoHecha, mensajes::kFechaFueraDeRango.arg(Format(c.fecha, kFormatoFecha)),
                     nullptr, true);
    }
    BdSesion& bd = f.MyBd();
    Conexion& cn = bd.cn();
    ResultadoFacturacion r;
    try {
        // One transaction for the whole invoice: on SQLite it opens with the
        // database's write lock, which is also the series lock.
        Transaccion t(cn);
        rellenaCabecera(f, c, albaranes.empty() ? 0 : albaranes.front());
        bd.Limpia();
        CabeceraNueva nueva;
        try {
            nueva = CreaCabeceraFactura(f, o.nTipo);
        } catch (const Error& e) {
            // The series or the database refuses every invoice alike.
            return fallo(E::NoHecha, e.Mensaje(), &e, true);
        }
        const qint32 id = nueva.id;
        f.IdFactu = id;
        switch (nueva.motivo) {
        case CabeceraNueva::Motivo::Creada:
            break;
        case CabeceraNueva::Motivo::Abandonada:
            // The person gave up the series' first number: nothing to say
            // beyond what was shown.
            return fallo(E::NoHecha, QString(), nullptr);
        case CabeceraNueva::Motivo::SinCliente:
            return fallo(E::NoHecha, mensajes::kClienteNoExiste.arg(c.idCliente), nullptr);
        case CabeceraNueva::Motivo::Rechazada:
            return fallo(E::NoHecha,
                         mensajes::kFacturaNoCreada.arg(c.serie, nueva.error->Mensaje()),
                         &*nueva.error);
        }
        r.idFactura = id;
        r.factura = c.serie + QLatin1Char('/') + QString::number(f.NumeroFactura);

        // Dates run with the numbers. Checked here, under the series lock that
        // NuevaFactura holds, so that no invoice of another user can slip a
        // later date in between the check and this number. The new row's own
        // date cannot fail the check, so the series' plain maximum serves.
        if (const QDate ultima = fnUltimaFechaSerie(bd, c.serie);
            ultima.isValid() && c.fecha < ultima) {
            t.Deshaz();
            return fallo(E::NoHecha, mensajes::kFechaInferior + Format(ultima, kFormatoFecha),
                         nullptr, true);
        }

        // A note is linked only while it is still pending: another user's run
        // may have taken it since this one listed it. All of them in one
        // statement; when one is missing, the first taken is named. The
        // unary "+" keeps SQLite from reading the state's index, which holds
        // every pending note, instead of the keys.
        if (!albaranes.empty()) {
            cn.Execute(
                QStringLiteral("UPDATE Cav SET Cav_Situa = 2, Cav_IdFactura = ? WHERE "
                               "Cav_Id IN (%1) AND +Cav_Situa = 1 AND +Cav_IdFactura IS NULL")
                    .arg(MarcadoresSql(albaranes.size())),
                QVariantList{id} + ValoresSql(albaranes));
            if (cn.RecordsAffected() != static_cast<int>(albaranes.size())) {
                t.Deshaz();
                f.IdFactu = 0;
                return fallo(E::NoHecha,
                             mensajes::kAlbaranTomado.arg(
                                 numeroAlbaran(bd, primeroNoPendiente(bd, albaranes))),
                             nullptr);
            }
        }
        if (!o.calcula) {
            t.Confirma();
            r.estado = E::Hecha;
            return r;
        }

        try {
            f.CalculoTotalesFactura();
        } catch (const Error& e) {
            t.Deshaz();
            f.IdFactu = 0;
            return fallo(E::NoHecha, mensajes::kFacturaNoCalculada.arg(e.Mensaje()), &e);
        }
        bool importesEscritos = false;
        std::optional<Error> error;
        bool errorDetiene = false;
        bool grabada = false;
        try {
            grabada = fnGrabaFactura(f, true, false, importesEscritos);
        } catch (const Error& e) {
            error = e;
            errorDetiene = AfectaATodo(e);
        }
        if (!importesEscritos) {
            // Nothing of the save stands: the invoice is undone whole, its
            // notes stay pending and its number unused.
            t.Deshaz();
            f.IdFactu = 0;
            if (error) {
                return fallo(E::NoHecha, mensajes::kFacturaNoGrabada.arg(error->Mensaje()), &*error,
                             errorDetiene);
            }
            const std::optional<ErrorBd>& e = bd.ErrorConstructor();
            if (!e) {
                // The connection was found dead: no invoice after this one can
                // be saved either.
                return fallo(E::NoHecha, mensajes::kConexionPerdida, nullptr, true);
            }
            return fallo(E::NoHecha, mensajes::kFacturaNoGrabada.arg(e->Mensaje()), &*e);
        }
        // The invoice stands with its amounts: its record goes in the same
        // transaction, or neither stands.
        try {
            msRegistraFacturaNueva(f);
        } catch (const Error& e) {
            t.Deshaz();
            f.IdFactu = 0;
            return fallo(E::NoHecha, mensajes::kFacturaNoRegistrada.arg(e.Mensaje()), &e, true);
        }
        // What the save wrote before the failing step stays written.
        t.Confirma();
        if (!grabada || error) {
            ResultadoFacturacion n =
                fallo(E::SinTerminar,
                      mensajes::kFacturaSinTerminar.arg(error ? error->Mensaje()
                                                              : mensajes::kContabilizacionFallida),
                      error ? &*error : nullptr, errorDetiene);
            n.idFactura = r.idFactura;
            n.factura = r.factura;
            return n;
        }
        r.estado = E::Hecha;
        return r;
    } catch (const Error& e) {
        // The transaction itself failed (begin, link, commit): it is undone.
        f.IdFactu = 0;
        return fallo(E::NoHecha, e.Mensaje(), &e);
    }
}

GrupoAlbaranes fnGrupoDeAlbaranes(BdSesion& bd, const std::vector<qint32>& ids) {
    if (ids.empty()) {
        throw ErrorRegla(mensajes::kSinAlbaranes);
    }
    struct Nota {
        qint32 id;
        QString numero;
        QDate fecha;
        qint32 cliente;
        qint32 fco;
        double dto1, dto2;
        QVariant agente;
    };
    std::vector<Nota> notas;
    for (const qint32 id : ids) {
        Recordset rs = bd.cn().Execute(
            QStringLiteral("SELECT Cav_Serie, Cav_Numero, Cav_Fecha, Cav_IdCli, Cav_Situa, "
                           "Cav_IdFactura, Cav_IdFco, Cav_Dto1, Cav_Dto2, Cav_Agente FROM Cav "
                           "WHERE Cav_Id = ?"),
            {id});
        if (rs.Eof()) {
            throw ErrorRegla(mensajes::kAlbaranNoExiste.arg(id));
        }
        const QString numero = rs.Fields(QStringLiteral("Cav_Serie")).Texto().trimmed() +
                               QLatin1Char('/') +
                               QString::number(rs.Fields(QStringLiteral("Cav_Numero")).Entero());
        if (rs.Fields(QStringLiteral("Cav_Situa")).Entero() != 1 ||
            !rs.Fields(QStringLiteral("Cav_IdFactura")).IsNull()) {
            throw ErrorRegla(mensajes::kAlbaranFacturado.arg(numero));
        }
        notas.push_back({id, numero, rs.Fields(QStringLiteral("Cav_Fecha")).Fecha(),
                         static_cast<qint32>(rs.Fields(QStringLiteral("Cav_IdCli")).Entero()),
                         static_cast<qint32>(rs.Fields(QStringLiteral("Cav_IdFco")).Entero()),
                         rs.Fields(QStringLiteral("Cav_Dto1")).Doble(),
                         rs.Fields(QStringLiteral("Cav_Dto2")).Doble(),
                         rs.Fields(QStringLiteral("Cav_Agente")).Value()});
    }
    // What splits the batch screen's groups splits an invoice here too.
    const Nota& p = notas.front();
    for (const Nota& n : notas) {
        if (n.cliente != p.cliente) {
            throw ErrorRegla(mensajes::kAlbaranesVariosClientes);
        }
        const auto distinta = [&](const QString& que) {
            return ErrorRegla(mensajes::kAlbaranesOtroGrupo.arg(n.numero, p.numero, que));
        };
        if (n.fco != p.fco) {
            throw distinta(mensajes::kOtraFormaCobro);
        }
        if (n.dto1 != p.dto1 || n.dto2 != p.dto2) {
            throw distinta(mensajes::kOtraParejaDescuentos);
        }
        if (n.agente.isNull() != p.agente.isNull() ||
            (!n.agente.isNull() && n.agente.toLongLong() != p.agente.toLongLong())) {
            throw distinta(mensajes::kOtroAgente);
        }
    }
    std::stable_sort(notas.begin(), notas.end(), [](const Nota& a, const Nota& b) {
        return a.fecha != b.fecha ? a.fecha < b.fecha : a.id < b.id;
    });

    Recordset cli = bd.cn().Execute(
        QStringLiteral("SELECT CLI_CTA, CLI_RetNFiscal, CLI_ModoRetNF, cli_favobs, cli_fatencion "
                       "FROM Cli WHERE Cli_Id = ?"),
        {p.cliente});
    if (cli.Eof()) {
        throw ErrorRegla(mensajes::kClienteNoExiste.arg(p.cliente));
    }
    if (!fnCuentaCobroValida(bd, p.fco, cli.Fields(QStringLiteral("CLI_CTA")).Texto())) {
        throw ErrorRegla(mensajes::kCuentaCobroIncorrecta);
    }
    GrupoAlbaranes g;
    CabeceraFactura& c = g.cabecera;
    c.idCliente = p.cliente;
    c.idFco = p.fco;
    c.dto1 = p.dto1;
    c.dto2 = p.dto2;
    c.observaciones = cli.Fields(QStringLiteral("cli_favobs")).Texto();
    c.atencion = cli.Fields(QStringLiteral("cli_fatencion")).Texto();
    c.retencionNF = cli.Fields(QStringLiteral("CLI_RetNFiscal")).Doble();
    c.modoRetencionNF = static_cast<qint16>(cli.Fields(QStringLiteral("CLI_ModoRetNF")).Entero());
    const std::vector<DireccionCliente> direcciones = fnDireccionesCliente(bd, p.cliente);
    if (!direcciones.empty()) {
        c.idDireccion = direcciones.front().idDir;
    }
    for (const Nota& n : notas) {
        g.albaranes.push_back(n.id);
    }
    return g;
}

bool fnCuentaCobroValida(BdSesion& bd, qint32 idFco, const QString& cuentaCliente) {
    Recordset fcol = bd.cn().Execute(
        QStringLiteral("SELECT 1 FROM Fcol WHERE Fcol_id = ? AND Fcol_Mod = 2 LIMIT 1"), {idFco});
    return fcol.Eof() || cuentaCliente.size() >= 20;
}

} // namespace vk
