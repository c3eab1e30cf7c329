#include "RegistroFiscalFactura.h"

#include <BdSesion.h>
#include <CadenaFiscal.h>
#include <QRegularExpression>
#include <RegistroFactura.h>
#include <VKFACVENTAS.h>

namespace vk {

namespace {

using namespace fiscal;

QString numSerie(const QString& serie, qint32 numero) {
    return serie.trimmed() + QLatin1Char('/') + QString::number(numero);
}

// A Spanish NIF, or another identification: a VAT number of another country
// by its prefix, any other document as such.
std::optional<DestinatarioFiscal> destinatario(const QString& documento, const QString& nombre) {
    const QString doc = fnNifFiscal(documento);
    if (doc.isEmpty()) {
        return std::nullopt;
    }
    DestinatarioFiscal d;
    d.nombre = nombre.trimmed();
    static const QRegularExpression nif(QStringLiteral("^[0-9A-Z][0-9]{7}[0-9A-Z]$"));
    static const QRegularExpression iva(QStringLiteral("^([A-Z]{2})([0-9A-Z]{2,18})$"));
    if (nif.match(doc).hasMatch()) {
        d.nif = doc;
    } else if (const auto m = iva.match(doc); m.hasMatch()) {
        d.codigoPais = m.captured(1);
        d.tipoIdOtro = QStringLiteral("02");
        d.idOtro = doc;
    } else {
        d.tipoIdOtro = QStringLiteral("06");
        d.idOtro = doc.left(20);
    }
    return d;
}

// The corrected invoice as the records named it, or as it is stored.
std::optional<IdFacturaFiscal> rectificada(BdSesion& bd, qint32 id, const QString& nif) {
    if (const auto r = fnRegistroVigente(bd, id); r && r->EsAlta()) {
        return IdFacturaFiscal{r->nif, r->numSerie, QDate::fromString(r->fecha, u"dd-MM-yyyy")};
    }
    const Recordset rs = bd.cn().Execute(
        QStringLiteral("SELECT Fav_Serie, Fav_Numero, Fav_Fecha FROM Fav WHERE Fav_Id = ?"), {id});
    if (rs.Eof()) {
        return std::nullopt;
    }
    return IdFacturaFiscal{
        nif, numSerie(rs.Fields(0).Texto(), static_cast<qint32>(rs.Fields(1).Entero())),
        rs.Fields(2).Fecha()};
}

} // namespace

FacturaFiscal fnFacturaFiscal(BdSesion& bd, const RegistroFactura& f) {
    FacturaFiscal r;
    r.idFactura = f.IdFactu;
    r.numSerie = numSerie(f.SerieFactura, f.NumeroFactura);
    r.fecha = f.FechaFactura;
    // The customer's identity and the flag as the save stored them.
    const Recordset fav = bd.cn().Execute(
        QStringLiteral("SELECT Fav_CliDoc, Fav_CliNom, Fav_RCA FROM Fav WHERE Fav_Id = ?"),
        {f.IdFactu});
    const bool concurso = !fav.Eof() && fav.Fields(2).Entero() != 0;
    if (!fav.Eof()) {
        r.destinatario = destinatario(fav.Fields(0).Texto(), fav.Fields(1).Texto());
    }
    for (const TramoIva& t : f.TramosIva) {
        if (t.Base == 0 && t.ImpIva == 0 && t.ImpRecargo == 0) {
            continue;
        }
        r.desglose.push_back(
            {t.PorcentajeIva, t.Base, t.ImpIva, t.PorcentajeRecargo, t.ImpRecargo});
        r.cuotaTotal += t.ImpIva + t.ImpRecargo;
        r.importeTotal += t.Base + t.ImpIva + t.ImpRecargo;
    }
    if (r.desglose.empty()) {
        // An invoice without lines still declares its (empty) operation.
        r.desglose.push_back({});
    }
    std::optional<IdFacturaFiscal> corregida;
    if (f.IdRectificada > 0) {
        corregida = rectificada(bd, f.IdRectificada, fnEmisor(bd).nif);
    }
    r.tipoFactura =
        fnTipoFactura(r.destinatario.has_value(), r.importeTotal, corregida.has_value(), concurso);
    if (r.tipoFactura.startsWith(u'R')) {
        // By differences: the rectifying invoice carries what changes.
        r.tipoRectificativa = QStringLiteral("I");
        if (corregida) {
            r.rectificadas.push_back(*corregida);
            r.descripcion = QStringLiteral("Rectificación de la factura ") + corregida->numSerie;
        } else {
            r.descripcion = QStringLiteral("Factura rectificativa");
        }
    } else {
        r.descripcion = QStringLiteral("Venta de bienes y prestación de servicios");
    }
    return r;
}

void msRegistraFacturaNueva(VKFACVENTAS& f) {
    BdSesion& bd = f.MyBd();
    if (fnRegistrosActivos(bd)) {
        msRegistraAlta(bd, fnFacturaFiscal(bd, f));
    }
}

void msRegistraFacturaCambiada(VKFACVENTAS& f) {
    BdSesion& bd = f.MyBd();
    if (!fnRegistrosActivos(bd)) {
        return;
    }
    msActualizaRegistro(bd, fnFacturaFiscal(bd, f));
}

void msRegistraBajaFactura(BdSesion& bd, qint32 idFactura) {
    if (fnRegistrosActivos(bd)) {
        msAnulaRegistro(bd, idFactura);
    }
}

bool fnFacturaRegistrada(BdSesion& bd, qint32 idFactura) {
    const auto r = fnRegistroVigente(bd, idFactura);
    return r && r->EsAlta();
}

} // namespace vk
