#include "TiposIva.h"

#include "BdSesion.h"

#include <algorithm>

namespace vk {

namespace {

std::optional<double> porcentaje(const Campo& c) {
    return c.IsNull() ? std::nullopt : std::optional<double>(c.Doble());
}

} // namespace

TiposIva TiposIva::Lee(BdSesion& bd) {
    TiposIva t;
    Recordset rs = bd.cn().Execute(
        QStringLiteral("SELECT Tiva_Id, Tiva_Reg, Tiva_Art, Tiva_Fecha, Tiva_Iva, Tiva_Rec, "
                       "Tiva_Ret FROM vkcomun.TIVAS WHERE Tiva_Fecha IS NOT NULL"));
    for (; !rs.Eof(); rs.MoveNext()) {
        t.filas_.push_back({rs.Fields(0).Entero(), static_cast<int>(rs.Fields(1).Entero()),
                            static_cast<int>(rs.Fields(2).Entero()), rs.Fields(3).Fecha(),
                            porcentaje(rs.Fields(4)), porcentaje(rs.Fields(5)),
                            porcentaje(rs.Fields(6))});
    }
    std::sort(t.filas_.begin(), t.filas_.end(), [](const TipoIva& a, const TipoIva& b) {
        if (a.fecha != b.fecha) {
            return a.fecha > b.fecha;
        }
        return a.familia != b.familia ? a.familia < b.familia : a.id < b.id;
    });
    return t;
}

std::optional<TipoIva> TiposIva::Vigente(int regimen, int familia, const QDate& fecha) const {
    for (const TipoIva& t : filas_) {
        if (t.regimen == regimen && t.familia == familia && t.fecha <= fecha) {
            return t;
        }
    }
    return std::nullopt;
}

std::optional<int> TiposIva::FamiliaDe(double iva, int regimen, const QDate& fecha) const {
    for (const TipoIva& t : filas_) {
        if (t.regimen == regimen && t.iva && *t.iva == iva && t.fecha <= fecha) {
            return t.familia;
        }
    }
    return std::nullopt;
}

std::optional<TipoIva> TipoIvaVigente(BdSesion& bd, int regimen, int familia, const QDate& fecha) {
    if (const TiposIva* t = bd.TiposIvaDeEjecucion()) {
        return t->Vigente(regimen, familia, fecha);
    }
    Recordset rs = bd.cn().Execute(
        QStringLiteral("SELECT Tiva_Id, Tiva_Fecha, Tiva_Iva, Tiva_Rec, Tiva_Ret FROM "
                       "vkcomun.TIVAS WHERE Tiva_Reg = ? AND Tiva_Art = ? AND Tiva_Fecha <= ? "
                       "ORDER BY Tiva_Fecha DESC, Tiva_Id LIMIT 1"),
        {regimen, familia, bd.dialecto().valorFecha(fecha)});
    if (rs.Eof()) {
        return std::nullopt;
    }
    return TipoIva{rs.Fields(0).Entero(),
                   regimen,
                   familia,
                   rs.Fields(1).Fecha(),
                   porcentaje(rs.Fields(2)),
                   porcentaje(rs.Fields(3)),
                   porcentaje(rs.Fields(4))};
}

std::optional<int> FamiliaIva(BdSesion& bd, double iva, int regimen, const QDate& fecha) {
    if (const TiposIva* t = bd.TiposIvaDeEjecucion()) {
        return t->FamiliaDe(iva, regimen, fecha);
    }
    Recordset rs = bd.cn().Execute(
        QStringLiteral("SELECT Tiva_Art FROM vkcomun.TIVAS WHERE Tiva_Iva = ? AND Tiva_Reg = ? "
                       "AND Tiva_Fecha <= ? ORDER BY Tiva_Fecha DESC, Tiva_Art LIMIT 1"),
        {iva, regimen, bd.dialecto().valorFecha(fecha)});
    if (rs.Eof()) {
        return std::nullopt;
    }
    return static_cast<int>(rs.Fields(0).Entero());
}

} // namespace vk
