// Every amount of an invoice from the lines of its delivery notes. SQL sums
// by tax group; the program rounds, each rounding in its place: the groups'
// money columns as the server's ROUND(CAST(x AS money), 2), the slots' taxes
// and the header discounts with Redondea, the difference with
// fnRedondeoNormal. Two programs that round elsewhere make other invoices.
#include "Cuentas.h"
#include "Descuentos.h"
#include "MensajesMotor.h"

#include <ErrorBd.h>
#include <Redondeo.h>
#include <VKFACVENTAS.h>
#include <tuple>

namespace vk {

namespace {

// One tax group of the invoice, as the grouped query and the money
// roundings leave it.
struct Grupo {
    QVariant tivaId;
    double iva, rec, ret;
    int regimenAlbaran;
    int regimenTipo; // Tiva_Reg and Tiva_Art of the lines' tax row
    int familia;
    double bruto, base, dtoPie;
};

Grupo leeGrupo(const Recordset& rs) {
    const double suma = rs.Fields(QStringLiteral("suma")).Doble();
    const double dto1 = rs.Fields(QStringLiteral("Fav_Dto1")).Doble();
    const double dto2 = rs.Fields(QStringLiteral("Fav_Dto2")).Doble();
    const double dtoUnidad = rs.Fields(QStringLiteral("DtoPie1")).Doble();
    Grupo g;
    g.tivaId = rs.Fields(QStringLiteral("Tiva_Id")).Value();
    g.iva = rs.Fields(QStringLiteral("Tiva_Iva")).Doble();
    g.rec = rs.Fields(QStringLiteral("Tiva_Rec")).Doble();
    g.ret = rs.Fields(QStringLiteral("Tiva_Ret")).Doble();
    g.regimenAlbaran = static_cast<int>(rs.Fields(QStringLiteral("Cav_IdTiva")).Entero());
    g.regimenTipo = static_cast<int>(rs.Fields(QStringLiteral("Tiva_Reg")).Entero());
    g.familia = static_cast<int>(rs.Fields(QStringLiteral("Tiva_Art")).Entero());
    const ImportesDescontados d = fnDescuentosEnCascada(suma, dto1, dto2, dtoUnidad);
    g.bruto = d.bruto;
    g.base = d.neto;
    g.dtoPie = dtoUnidad;
    return g;
}

} // namespace

void VKFACVENTAS::CalculoTotalesFactura() {
    BdSesion& bd = MyBd();
    Conexion& cn = bd.cn();
    BdParametros& par = bd.Parametros();
    const bool devengoPorFecha = par.Item(QStringLiteral("Par_CritDevengo")).Entero() == 0;
    const qint64 regimenFiscal = par.Item(QStringLiteral("Par_RegFiscal")).Entero();

    Recordset rs = cn.Execute(
        QStringLiteral(
            "SELECT Tiva_Iva, Tiva_Rec, Tiva_Ret, Fav_Dto1, Fav_Dto2, Fav_PRetNf, Fav_ModRet, "
            "Cav_IdTiva, SUM(Lav_Importe + Lav_ImpResDes) AS suma, SUM(Lav_ImpDtoUnidad) AS "
            "DtoPie1, Tiva_Id, Tiva_Reg, Tiva_Art, Fav_Fecha "
            "FROM Cav INNER JOIN Lav ON Cav_Id = Lav_IdCav "
            "INNER JOIN Fav ON Fav_Id = Cav_IdFactura "
            "LEFT JOIN vkcomun.TIVAS ON Tiva_Id = Lav_Tiva "
            "WHERE Cav_IdFactura = ? "
            "GROUP BY Tiva_Iva, Tiva_Rec, Tiva_Ret, Fav_Dto1, Fav_Dto2, Fav_PRetNf, Fav_ModRet, "
            "Cav_IdTiva, Tiva_Id, Tiva_Reg, Tiva_Art, Fav_Fecha "
            "ORDER BY Tiva_Iva DESC NULLS LAST, Cav_IdTiva, Tiva_Id"),
        {IdFactu});

    // Everything that is added up starts again, so a second run gives the
    // same invoice. The non-fiscal retention's settings are not cleared.
    Bruto = PorcentajeDto1 = PorcentajeDto2 = ImpDto1 = Bruto1 = ImpDto2 = ImpDtoPie1 = 0;
    PorcentajeRetencion = ImpRetencion = 0;
    TramosIva.fill(TramoIva{});
    CtaRet.clear();

    // A negative sum of the bases is a credit note: it keeps the lines' rates.
    double nTotalBase = 0;
    std::vector<Grupo> grupos;
    for (; !rs.Eof(); rs.MoveNext()) {
        grupos.push_back(leeGrupo(rs));
        nTotalBase += grupos.back().base;
    }

    rs.MoveFirst();
    for (int nSlot = 0; nSlot < static_cast<int>(grupos.size()); ++nSlot, rs.MoveNext()) {
        const Grupo& g = grupos[nSlot];
        Bruto += g.bruto;
        ImpDtoPie1 += g.dtoPie;
        const QDate fecha = rs.Fields(QStringLiteral("Fav_Fecha")).Fecha();
        if (g.tivaId.isNull()) {
            throw ErrorRegla(mensajes::kLineaSinIva.arg(IdFactu));
        }
        double nIva = g.iva;
        double nRec = g.rec;
        double nRet = g.ret;
        // The regime and family of the lines' tax row come with the group:
        // they depend on Tiva_Id alone, so grouping by them splits nothing.
        int nReg = g.regimenTipo;
        if (devengoPorFecha && nTotalBase >= 0) {
            // A normal invoice takes the rate of its own date, through the
            // rate's family, which stays steady across changes of rate.
            if (nReg != 5 && nReg != 1 && regimenFiscal == 3) {
                nReg = 3;
            }
            nIva = g.tivaId.toDouble(); // replaced below unless the rate is NULL
            const int familia = g.familia;
            const std::optional<TipoIva> vigente = TipoIvaVigente(bd, nReg, familia, fecha);
            if (!vigente) {
                throw ErrorRegla(mensajes::kSinTipoEnVigor.arg(nReg).arg(familia).arg(
                    fecha.toString(QStringLiteral("dd/MM/yyyy"))));
            }
            nIva = vigente->iva.value_or(nIva);
            nRec = vigente->rec.value_or(nRec);
            nRet = vigente->ret.value_or(nRet);
        }
        if (nSlot >= static_cast<int>(kTramosIva)) {
            continue; // a fourth group only adds to Bruto and ImpDtoPie1
        }
        if (nSlot == 0) {
            PorcentajeDto1 = rs.Fields(QStringLiteral("Fav_Dto1")).Doble();
            PorcentajeDto2 = rs.Fields(QStringLiteral("Fav_Dto2")).Doble();
            porcentajeretencionnf = rs.Fields(QStringLiteral("Fav_PRetNf")).Doble();
            nModoRetNF = static_cast<qint16>(rs.Fields(QStringLiteral("Fav_ModRet")).Entero());
        }
        TramoIva& tramo = TramosIva[static_cast<std::size_t>(nSlot)];
        tramo.Base = g.base;
        tramo.PorcentajeIva = nIva;
        tramo.ImpIva = Redondea(g.base * (nIva / 100), 2);
        tramo.PorcentajeRecargo = nRec;
        tramo.ImpRecargo = Redondea(g.base * (nRec / 100), 2);
        if (nSlot == 0) {
            // Withholding from the first group alone; on rental it also
            // bears on the VAT.
            const bool alquiler = g.regimenAlbaran == 10;
            PorcentajeRetencion = nRet;
            ImpRetencion =
                Redondea((alquiler ? g.base + ImpIva1 : g.base) * (PorcentajeRetencion / 100), 2);
            CtaRet = par.Item(alquiler ? QStringLiteral("Par_CtaVIrpfAlq")
                                       : QStringLiteral("Par_CtaVIrpf"))
                         .Texto();
        }
        std::tie(tramo.CtaIva, tramo.CtaRec) = fnCuentasIvaRec(bd, nIva, nReg, fecha);
    }

    // The footer discount is stored and printed in cents, so the bases are
    // squared with that figure: gross less the printed discounts is the sum
    // of the printed bases, even when the lines' per-unit discounts carry a
    // third decimal.
    ImpDtoPie1 = Redondea(ImpDtoPie1, 2);
    // Header discounts on the sums; the cents they differ from the groups'
    // discounts go to the first base, with no new VAT.
    ImpDto1 = Redondea((PorcentajeDto1 / 100) * Bruto, 2);
    Bruto1 = Bruto - ImpDto1;
    ImpDto2 = Redondea((PorcentajeDto2 / 100) * Bruto1, 2);
    const double nDif = fnRedondeoNormal(Bruto - SumaBases() - (ImpDto2 + ImpDto1) - ImpDtoPie1, 2);
    if (nDif != 0) {
        TramosIva[0].Base += nDif;
    }

    // Added one figure at a time, first slot to last, so the cents come out
    // as they always have.
    double sumaTramos = 0;
    for (const TramoIva& t : TramosIva) {
        sumaTramos += t.Base;
        sumaTramos += t.ImpIva;
        sumaTramos += t.ImpRecargo;
    }
    TotalFactura = Redondea(sumaTramos - ImpRetencion, 2);

    if (porcentajeretencionnf != 0) {
        if (nModoRetNF == 0) {
            RetencionNF = Redondea(SumaBases() * (porcentajeretencionnf / 100), 2);
        } else if (nModoRetNF == 1) {
            RetencionNF = Redondea((porcentajeretencionnf / 100) * TotalFactura, 2);
        }
    } else if (!par.Item(QStringLiteral("Par_Automocion")).Activo()) {
        RetencionNF = 0;
    }
    Liquido = TotalFactura - RetencionNF;
}

} // namespace vk
