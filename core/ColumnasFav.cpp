#include "ColumnasFav.h"

#include "Formato.h"
#include "Recordset.h"

#include <stdexcept>

namespace vk {

namespace {

template <class... F> struct Visita : F... { using F::operator()...; };

bool escribe(EscrituraFav e, OperacionFav op) {
    return (static_cast<quint8>(e) & static_cast<quint8>(op)) != 0;
}

QVariant valor(const CampoRegistro& campo) {
    return std::visit([](const auto* p) { return QVariant(*p); }, campo);
}

const QString& texto(const ColumnaFav& c) {
    return *std::get<QString*>(c.campo);
}

void nulo(BdCampos& c, const QString& columna) {
    c.Add(columna, TipoCampo::Expresion, QStringLiteral("Null"));
}

} // namespace

std::vector<ColumnaFav> ColumnasFav(RegistroFactura& r) {
    using E = EscrituraFav;
    using R = ReglaFav;
    using T = TipoCampo;
    std::vector<ColumnaFav> m{
        {QStringLiteral("Fav_Id"), T::Numero, E::Ninguna, &r.IdFactu},
        {QStringLiteral("Fav_Serie"), T::Texto, E::Alta, &r.SerieFactura},
        {QStringLiteral("Fav_Numero"), T::Numero, E::Alta, &r.NumeroFactura},
        {QStringLiteral("Fav_Fecha"), T::Fecha, E::Alta, &r.FechaFactura, R::HoySiNoEsFecha},
        {QStringLiteral("Fav_IdCli"), T::Numero, E::Alta, &r.IdCliente},
        {QStringLiteral("Fav_CliCod"), T::Numero, E::Alta, &r.CliCod},
        {QStringLiteral("Fav_CliNom"), T::Texto, E::Alta, &r.CliNom},
        {QStringLiteral("Fav_CliDoc"), T::Texto, E::Alta, &r.CliDoc},
        {QStringLiteral("Fav_IdFco"), T::Numero, E::Alta, &r.IdFco},
        {QStringLiteral("Fav_IdDir"), T::Numero, E::Alta, &r.idDir},
        {QStringLiteral("Fav_Sg"), T::Texto, E::Alta, &r.Sg},
        {QStringLiteral("Fav_Nombre"), T::Texto, E::Alta, &r.Nombre},
        {QStringLiteral("Fav_Num"), T::Numero, E::Alta, &r.Num, R::NuloSiNoPositivo},
        {QStringLiteral("Fav_Escalera"), T::Texto, E::Alta, &r.Escalera},
        {QStringLiteral("Fav_Piso"), T::Texto, E::Alta, &r.Piso},
        {QStringLiteral("Fav_Puerta"), T::Texto, E::Alta, &r.Puerta},
        {QStringLiteral("Fav_Cp"), T::Texto, E::Alta, &r.Cp},
        {QStringLiteral("Fav_Pais"), T::Texto, E::Alta, &r.Pais},
        {QStringLiteral("Fav_Provincia"), T::Numero, E::Alta, &r.Provincia},
        {QStringLiteral("Fav_Poblacion"), T::Texto, E::Alta, &r.Poblacion},
        {QStringLiteral("Fav_Obs"), T::Texto, E::Ambas, &r.Observaciones, R::NuloSiVacioAlta},
        {QStringLiteral("Fav_Fatencion"), T::Texto, E::Grabacion, &r.Aatencion, R::SoloSiHayTexto},
        {QStringLiteral("Fav_Bruto"), T::Importe, E::Grabacion, &r.Bruto},
        {QStringLiteral("Fav_Dto1"), T::Importe, E::Ambas, &r.PorcentajeDto1},
        {QStringLiteral("Fav_ImpDto1"), T::Importe, E::Grabacion, &r.ImpDto1},
        {QStringLiteral("Fav_Bruto1"), T::Importe, E::Grabacion, &r.Bruto1},
        {QStringLiteral("Fav_Dto2"), T::Importe, E::Ambas, &r.PorcentajeDto2},
        {QStringLiteral("Fav_ImpDto2"), T::Importe, E::Grabacion, &r.ImpDto2},
        {QStringLiteral("Fav_ImpDtoPie1"), T::Importe, E::Ambas, &r.ImpDtoPie1},
    };
    for (std::size_t i = 0; i < kTramosIva; ++i) {
        TramoIva& t = r.TramosIva[i];
        const QString n = QString::number(i + 1);
        m.push_back({QStringLiteral("Fav_Biva") + n, T::Importe, E::Grabacion, &t.Base});
        m.push_back({QStringLiteral("Fav_Iva") + n, T::Importe, E::Grabacion, &t.PorcentajeIva});
        m.push_back({QStringLiteral("Fav_ImpIva") + n, T::Importe, E::Grabacion, &t.ImpIva});
        m.push_back(
            {QStringLiteral("Fav_Rec") + n, T::Importe, E::Grabacion, &t.PorcentajeRecargo});
        m.push_back({QStringLiteral("Fav_ImpRec") + n, T::Importe, E::Grabacion, &t.ImpRecargo});
        m.push_back({QStringLiteral("Fav_CtaIva") + n, T::Texto, E::Grabacion, &t.CtaIva,
                     R::NuloSinImporte, &t.ImpIva});
        m.push_back({QStringLiteral("Fav_CtaRec") + n, T::Texto, E::Grabacion, &t.CtaRec,
                     R::NuloSinImporte, &t.ImpRecargo});
    }
    m.insert(m.end(),
             {
                 {QStringLiteral("Fav_Ret"), T::Importe, E::Grabacion, &r.PorcentajeRetencion},
                 {QStringLiteral("Fav_ImpRet"), T::Importe, E::Grabacion, &r.ImpRetencion},
                 {QStringLiteral("Fav_CtaRet"), T::Texto, E::Grabacion, &r.CtaRet,
                  R::NuloSinImporte, &r.ImpRetencion},
                 {QStringLiteral("Fav_Total"), T::Importe, E::Grabacion, &r.TotalFactura},
                 {QStringLiteral("Fav_PRetNf"), T::Importe, E::Ambas, &r.porcentajeretencionnf},
                 {QStringLiteral("Fav_ModRet"), T::Numero, E::Ambas, &r.nModoRetNF},
                 {QStringLiteral("Fav_IRetNf"), T::Importe, E::Grabacion, &r.RetencionNF},
                 {QStringLiteral("Fav_Liquido"), T::Importe, E::Grabacion, &r.Liquido},
                 {QStringLiteral("Fav_IdLavManual"), T::Numero, E::Grabacion, &r.IdLavManual},
                 {QStringLiteral("Fav_ImpDifManual"), T::Importe, E::Grabacion, &r.ImpDifManual},
                 {QStringLiteral("Fav_CtaCobro"), T::Texto, E::Ambas, &r.sCtaCobro},
                 {QStringLiteral("Fav_CtaCompensa"), T::Texto, E::Grabacion, &r.sCtaCompensa},
                 {QStringLiteral("Fav_IdRectificada"), T::Numero, E::Alta, &r.IdRectificada},
             });
    return m;
}

void EscribeColumnasFav(BdCampos& c, RegistroFactura& r, OperacionFav op) {
    for (const ColumnaFav& col : ColumnasFav(r)) {
        if (!escribe(col.escritura, op)) {
            continue;
        }
        const qint16 decimales = col.tipo == TipoCampo::Importe ? kDecimalesImporte : 0;
        switch (col.regla) {
        case ReglaFav::Valor:
            c.Add(col.columna, col.tipo, valor(col.campo), decimales);
            break;
        case ReglaFav::NuloSiVacioAlta:
            if (op == OperacionFav::Alta && texto(col).isEmpty()) {
                nulo(c, col.columna);
            } else {
                c.Add(col.columna, col.tipo, texto(col));
            }
            break;
        case ReglaFav::NuloSiNoPositivo:
            // Written as the number the text holds, as it always was.
            if (const double n = Val(texto(col)); n > 0) {
                c.Add(col.columna, col.tipo, n);
            } else {
                nulo(c, col.columna);
            }
            break;
        case ReglaFav::HoySiNoEsFecha:
            if (const QDate& d = *std::get<QDate*>(col.campo); d.isValid()) {
                c.Add(col.columna, col.tipo, d);
            } else {
                c.Add(col.columna, TipoCampo::Expresion, QStringLiteral("Getdate()"));
            }
            break;
        case ReglaFav::NuloSinImporte:
            if (*col.importe != 0) {
                c.Add(col.columna, col.tipo, texto(col));
            } else {
                nulo(c, col.columna);
            }
            break;
        case ReglaFav::SoloSiHayTexto:
            if (const QString t = texto(col).trimmed(); !t.isEmpty()) {
                c.Add(col.columna, col.tipo, t);
            }
            break;
        }
    }
}

QString ColumnaFavDe(RegistroFactura& r, const CampoRegistro& campo) {
    for (const ColumnaFav& col : ColumnasFav(r)) {
        if (col.campo == campo) {
            return col.columna;
        }
    }
    throw std::logic_error("ColumnaFavDe: a field the map does not hold");
}

QString ListaColumnasFav() {
    RegistroFactura vacio;
    QStringList nombres;
    for (const ColumnaFav& col : ColumnasFav(vacio)) {
        nombres << col.columna;
    }
    return nombres.join(QStringLiteral(", "));
}

void LeeColumnasFav(const Recordset& rs, RegistroFactura& r) {
    for (const ColumnaFav& col : ColumnasFav(r)) {
        const Campo campo = rs.Fields(col.columna);
        std::visit(Visita{
                       [&](QString* p) { *p = campo.Texto(); },
                       [&](QDate* p) { *p = campo.Fecha(); },
                       [&](double* p) { *p = campo.Doble(); },
                       [&](qint32* p) { *p = static_cast<qint32>(campo.Entero()); },
                       [&](qint16* p) { *p = static_cast<qint16>(campo.Entero()); },
                   },
                   col.campo);
    }
}

} // namespace vk
