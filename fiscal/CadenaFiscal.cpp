#include "CadenaFiscal.h"

#include "FormatoFiscal.h"
#include "Huella.h"
#include "MensajesFiscal.h"

#include <BdSesion.h>
#include <ErrorBd.h>
#include <QDateTime>
#include <QRegularExpression>

namespace vk::fiscal {

namespace {

const QString kColumnas = QStringLiteral(
    "r.Vfr_Id, r.Vfr_Tipo, r.Vfr_IdFactura, r.Vfr_IdAnterior, r.Vfr_Nif, r.Vfr_NumSerie, "
    "r.Vfr_Fecha, r.Vfr_TipoFactura, r.Vfr_CuotaTotal, r.Vfr_ImporteTotal, "
    "r.Vfr_HuellaAnterior, r.Vfr_FechaHora, r.Vfr_Huella, r.Vfr_Subsanacion, "
    "r.Vfr_RechazoPrevio, r.Vfr_Xml");

RegistroGuardado leeRegistro(const Recordset& rs) {
    RegistroGuardado r;
    r.id = static_cast<qint32>(rs.Fields(0).Entero());
    r.tipo = rs.Fields(1).Texto().trimmed();
    r.idFactura = static_cast<qint32>(rs.Fields(2).Entero());
    r.idAnterior = static_cast<qint32>(rs.Fields(3).Entero());
    r.nif = rs.Fields(4).Texto();
    r.numSerie = rs.Fields(5).Texto();
    r.fecha = rs.Fields(6).Texto();
    r.tipoFactura = rs.Fields(7).Texto();
    r.cuotaTotal = rs.Fields(8).Texto();
    r.importeTotal = rs.Fields(9).Texto();
    r.huellaAnterior = rs.Fields(10).Texto();
    r.fechaHora = rs.Fields(11).Texto();
    r.huella = rs.Fields(12).Texto();
    r.subsanacion = rs.Fields(13).Texto();
    r.rechazoPrevio = rs.Fields(14).Texto();
    r.xml = rs.Fields(15).Texto();
    return r;
}

// The tail of the chain with the hash of the record it names as previous,
// read under the lock; its checks before anything is appended to it.
struct Cola {
    std::optional<RegistroGuardado> ultimo;
    QDateTime momento;
};

Cola compruebaCola(BdSesion& bd, const QDateTime& ahora) {
    Cola c;
    const Recordset rs = bd.cn().Execute(
        QStringLiteral("SELECT %1, p.Vfr_Huella FROM VfRegistro r LEFT JOIN VfRegistro p ON "
                       "p.Vfr_Id = r.Vfr_IdAnterior ORDER BY r.Vfr_Id DESC LIMIT 1")
            .arg(kColumnas));
    c.momento = ahora;
    if (rs.Eof()) {
        return c;
    }
    c.ultimo = leeRegistro(rs);
    const RegistroGuardado& u = *c.ultimo;
    const QString huellaPrevia = rs.Fields(16).Texto();
    if (u.HuellaCalculada() != u.huella || (u.idAnterior > 0 && huellaPrevia != u.huellaAnterior) ||
        (u.idAnterior <= 0 && !u.huellaAnterior.isEmpty())) {
        throw ErrorRegla(mensajes::kCadenaRota.arg(u.id).arg(u.numSerie));
    }
    const QDateTime anterior = fnLeeFechaHoraFiscal(u.fechaHora);
    if (anterior.isValid() && ahora < anterior.addSecs(-60)) {
        throw ErrorRegla(mensajes::kRelojAtrasado.arg(fnFechaHoraFiscal(ahora), u.fechaHora));
    }
    return c;
}

std::optional<RegistroAnterior> anteriorDe(const std::optional<RegistroGuardado>& u) {
    if (!u) {
        return std::nullopt;
    }
    return RegistroAnterior{u->nif, u->numSerie, u->fecha, u->huella};
}

qint32 inserta(BdSesion& bd, const RegistroGuardado& r) {
    Conexion& cn = bd.cn();
    const qint32 id = static_cast<qint32>(
        cn.Execute(QStringLiteral(
                       "INSERT INTO VfRegistro (Vfr_Tipo, Vfr_IdFactura, Vfr_IdAnterior, Vfr_Nif, "
                       "Vfr_NumSerie, Vfr_Fecha, Vfr_TipoFactura, Vfr_CuotaTotal, "
                       "Vfr_ImporteTotal, Vfr_HuellaAnterior, Vfr_FechaHora, Vfr_Huella, "
                       "Vfr_Subsanacion, Vfr_RechazoPrevio, Vfr_Xml) VALUES (?, ?, ?, ?, ?, ?, ?, "
                       "?, ?, ?, ?, ?, ?, ?, ?) RETURNING Vfr_Id"),
                   {r.tipo, r.idFactura, r.idAnterior, r.nif, r.numSerie, r.fecha, r.tipoFactura,
                    r.cuotaTotal, r.importeTotal, r.huellaAnterior, r.fechaHora, r.huella,
                    r.subsanacion, r.rechazoPrevio, r.xml})
            .Fields(0)
            .Entero());
    // Into the queue of what the agency has not accepted yet.
    cn.Execute(QStringLiteral("INSERT INTO VfEnvio (Vfe_IdRegistro, Vfe_Estado, Vfe_Intentos) "
                              "VALUES (?, 0, 0)"),
               {id});
    return id;
}

QString instalacion(BdSesion& bd) {
    return bd.Parametros().Texto(QStringLiteral("Par_VfInstalacion"));
}

} // namespace

QString RegistroGuardado::HuellaCalculada() const {
    if (EsAlta()) {
        return fnHuella(CamposHuellaAlta{nif, numSerie, fecha, tipoFactura, cuotaTotal,
                                         importeTotal, huellaAnterior, fechaHora});
    }
    return fnHuella(CamposHuellaAnulacion{nif, numSerie, fecha, huellaAnterior, fechaHora});
}

bool fnRegistrosActivos(BdSesion& bd) {
    const BdParametros& p = bd.Parametros();
    return p.Existe(QStringLiteral("Par_VfActivo")) &&
           p.Item(QStringLiteral("Par_VfActivo")).Activo();
}

QString fnNifFiscal(const QString& documento) {
    static const QRegularExpression sobra(QStringLiteral("[\\s.\\-/]"));
    QString nif = documento.toUpper().remove(sobra);
    if (nif.startsWith(QLatin1String("ES")) && nif.size() == 11) {
        nif = nif.mid(2);
    }
    return nif;
}

EmisorFiscal fnEmisor(BdSesion& bd) {
    const BdParametros& p = bd.Parametros();
    EmisorFiscal e{fnNifFiscal(p.Texto(QStringLiteral("Par_Doc"))),
                   p.Texto(QStringLiteral("Par_Nombre"))};
    if (e.nif.isEmpty()) {
        throw ErrorRegla(mensajes::kSinNifEmisor);
    }
    return e;
}

EntornoFiscal fnEntorno(BdSesion& bd) {
    return bd.Parametros().Entero(QStringLiteral("Par_VfEntorno")) == 1 ? EntornoFiscal::Produccion
                                                                        : EntornoFiscal::Pruebas;
}

void msBloqueaCadena(BdSesion& bd) {
    const QString bloqueo = bd.dialecto().bloqueoSerie();
    if (!bloqueo.isEmpty()) {
        bd.cn().Execute(bloqueo, {bd.Catalogo() + QStringLiteral("/VfRegistro")});
    }
}

qint32 msRegistraAlta(BdSesion& bd, const FacturaFiscal& f, const OpcionesAlta& o) {
    const EmisorFiscal emisor = fnEmisor(bd);
    msBloqueaCadena(bd);
    const Cola cola = compruebaCola(bd, QDateTime::currentDateTime());
    RegistroGuardado r;
    r.tipo = QStringLiteral("A");
    r.idFactura = f.idFactura;
    r.idAnterior = cola.ultimo ? cola.ultimo->id : 0;
    r.nif = emisor.nif;
    r.numSerie = f.numSerie.trimmed();
    r.fecha = fnFechaFiscal(f.fecha);
    r.tipoFactura = f.tipoFactura;
    r.cuotaTotal = fnImporteFiscal(f.cuotaTotal);
    r.importeTotal = fnImporteFiscal(f.importeTotal);
    r.huellaAnterior = cola.ultimo ? cola.ultimo->huella : QString();
    r.fechaHora = fnFechaHoraFiscal(cola.momento);
    r.subsanacion = o.subsanacion ? QStringLiteral("S") : QString();
    r.rechazoPrevio = o.rechazoPrevio;
    r.huella = r.HuellaCalculada();
    r.xml = fnXmlAlta(f, emisor, o,
                      DatosCadena{anteriorDe(cola.ultimo), fnSistemaInformatico(instalacion(bd)),
                                  r.fechaHora, r.huella});
    return inserta(bd, r);
}

qint32 msRegistraAnulacion(BdSesion& bd, qint32 idFactura, const IdFacturaFiscal& a) {
    msBloqueaCadena(bd);
    const Cola cola = compruebaCola(bd, QDateTime::currentDateTime());
    RegistroGuardado r;
    r.tipo = QStringLiteral("N");
    r.idFactura = idFactura;
    r.idAnterior = cola.ultimo ? cola.ultimo->id : 0;
    r.nif = a.nif;
    r.numSerie = a.numSerie.trimmed();
    r.fecha = fnFechaFiscal(a.fecha);
    r.huellaAnterior = cola.ultimo ? cola.ultimo->huella : QString();
    r.fechaHora = fnFechaHoraFiscal(cola.momento);
    r.huella = r.HuellaCalculada();
    r.xml = fnXmlAnulacion(a, DatosCadena{anteriorDe(cola.ultimo),
                                          fnSistemaInformatico(instalacion(bd)), r.fechaHora,
                                          r.huella});
    return inserta(bd, r);
}

namespace {

// What a record says of its invoice, chain and identity aside: from its type
// to its totals.
QString contenido(const QString& xml) {
    const qsizetype desde = xml.indexOf(QLatin1String("<sf:TipoFactura>"));
    const qsizetype hasta = xml.indexOf(QLatin1String("<sf:Encadenamiento>"));
    return desde < 0 || hasta < desde ? xml : xml.mid(desde, hasta - desde);
}

// The agency's state of a record: 0 not answered yet, 1 accepted, 2 accepted
// with errors, 3 rejected.
int estadoEnvio(BdSesion& bd, qint32 idRegistro) {
    const Recordset rs = bd.cn().Execute(
        QStringLiteral("SELECT Vfe_Estado FROM VfEnvio WHERE Vfe_IdRegistro = ?"), {idRegistro});
    return rs.Eof() ? 0 : static_cast<int>(rs.Fields(0).Entero());
}

// The RechazoPrevio a new alta of the invoice carries after its record in
// force was rejected: "S" when an earlier alta of the same invoice was taken
// by the agency (the rejected one was a correction of it), "X" when none was
// (the invoice does not exist there yet). Empty when nothing was rejected.
QString rechazoPrevio(BdSesion& bd, const RegistroGuardado& vigente) {
    if (estadoEnvio(bd, vigente.id) != 3) {
        return {};
    }
    const Recordset rs = bd.cn().Execute(
        QStringLiteral("SELECT COUNT(*) FROM VfRegistro INNER JOIN VfEnvio ON Vfe_IdRegistro = "
                       "Vfr_Id WHERE Vfr_Tipo = 'A' AND Vfr_Nif = ? AND Vfr_NumSerie = ? AND "
                       "Vfr_Fecha = ? AND Vfe_Estado IN (1, 2)"),
        {vigente.nif, vigente.numSerie, vigente.fecha});
    return rs.Fields(0).Entero() > 0 ? QStringLiteral("S") : QStringLiteral("X");
}

} // namespace

CambioRegistro msActualizaRegistro(BdSesion& bd, const FacturaFiscal& f) {
    const EmisorFiscal emisor = fnEmisor(bd);
    msBloqueaCadena(bd);
    const std::optional<RegistroGuardado> vigente = fnRegistroVigente(bd, f.idFactura);
    if (!vigente || !vigente->EsAlta()) {
        msRegistraAlta(bd, f);
        return CambioRegistro::Alta;
    }
    if (vigente->nif != emisor.nif || vigente->numSerie != f.numSerie.trimmed() ||
        vigente->fecha != fnFechaFiscal(f.fecha)) {
        msRegistraAnulacion(bd, f.idFactura,
                            IdFacturaFiscal{vigente->nif, vigente->numSerie,
                                            QDate::fromString(vigente->fecha, u"dd-MM-yyyy")});
        msRegistraAlta(bd, f);
        return CambioRegistro::AnulacionYAlta;
    }
    const QString nuevo = fnXmlAlta(f, emisor, {}, DatosCadena{});
    if (contenido(nuevo) == contenido(vigente->xml)) {
        return CambioRegistro::Ninguno;
    }
    msRegistraAlta(bd, f, OpcionesAlta{true, rechazoPrevio(bd, *vigente)});
    return CambioRegistro::Subsanacion;
}

qint32 msSubsanaRechazado(BdSesion& bd, const FacturaFiscal& f) {
    const EmisorFiscal emisor = fnEmisor(bd);
    msBloqueaCadena(bd);
    const std::optional<RegistroGuardado> vigente = fnRegistroVigente(bd, f.idFactura);
    if (!vigente || !vigente->EsAlta() || estadoEnvio(bd, vigente->id) != 3) {
        throw ErrorRegla(mensajes::kNoRechazado.arg(f.numSerie.trimmed()));
    }
    if (vigente->nif != emisor.nif || vigente->numSerie != f.numSerie.trimmed() ||
        vigente->fecha != fnFechaFiscal(f.fecha)) {
        // Another identity is another invoice for the agency: not a correction.
        throw ErrorRegla(mensajes::kSubsanacionOtraFactura.arg(vigente->numSerie, vigente->fecha));
    }
    return msRegistraAlta(bd, f, OpcionesAlta{true, rechazoPrevio(bd, *vigente)});
}

bool msAnulaRegistro(BdSesion& bd, qint32 idFactura) {
    msBloqueaCadena(bd);
    const std::optional<RegistroGuardado> vigente = fnRegistroVigente(bd, idFactura);
    if (!vigente || !vigente->EsAlta()) {
        return false;
    }
    msRegistraAnulacion(bd, idFactura,
                        IdFacturaFiscal{vigente->nif, vigente->numSerie,
                                        QDate::fromString(vigente->fecha, u"dd-MM-yyyy")});
    return true;
}

std::optional<RegistroGuardado> fnUltimoRegistro(BdSesion& bd) {
    const Recordset rs =
        bd.cn().Execute(QStringLiteral("SELECT %1 FROM VfRegistro r ORDER BY r.Vfr_Id DESC LIMIT 1")
                            .arg(kColumnas));
    return rs.Eof() ? std::nullopt : std::optional(leeRegistro(rs));
}

std::optional<RegistroGuardado> fnRegistroVigente(BdSesion& bd, qint32 idFactura) {
    const Recordset rs =
        bd.cn().Execute(QStringLiteral("SELECT %1 FROM VfRegistro r WHERE r.Vfr_IdFactura = ? "
                                       "ORDER BY r.Vfr_Id DESC LIMIT 1")
                            .arg(kColumnas),
                        {idFactura});
    return rs.Eof() ? std::nullopt : std::optional(leeRegistro(rs));
}

QString fnUrlQrFactura(BdSesion& bd, qint32 idFactura) {
    const std::optional<RegistroGuardado> r = fnRegistroVigente(bd, idFactura);
    if (!r || !r->EsAlta()) {
        return {};
    }
    return fnUrlQr(fnEntorno(bd), r->nif, r->numSerie, r->fecha, r->importeTotal);
}

} // namespace vk::fiscal

namespace vk::fiscal {

void fnRecorreCadena(BdSesion& bd,
                     const std::function<void(const RegistroGuardado&)>& porRegistro) {
    bd.cn().Recorre(QStringLiteral("SELECT %1 FROM VfRegistro r ORDER BY r.Vfr_Id").arg(kColumnas),
                    {}, [&porRegistro](const Recordset& rs) { porRegistro(leeRegistro(rs)); });
}

std::vector<RegistroGuardado> fnRegistrosFactura(BdSesion& bd, qint32 idFactura) {
    std::vector<RegistroGuardado> r;
    for (Recordset rs = bd.cn().Execute(
             QStringLiteral("SELECT %1 FROM VfRegistro r WHERE r.Vfr_IdFactura = ? ORDER BY "
                            "r.Vfr_Id")
                 .arg(kColumnas),
             {idFactura});
         !rs.Eof(); rs.MoveNext()) {
        r.push_back(leeRegistro(rs));
    }
    return r;
}

} // namespace vk::fiscal
