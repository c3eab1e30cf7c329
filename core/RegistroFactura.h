// The in-memory record of one invoice: the header the screens compose, the
// amounts the totals leave, and what is stored of it in its `Fav` row. The
// facade is this record and the entry point at once; a screen or a command
// may hold one of its own to read an invoice without touching the facade's.
#pragma once

#include <QDate>
#include <QString>
#include <array>
#include <cstddef>

namespace vk {

// One VAT slot: a base, its VAT and equivalence surcharge, and the accounts
// they are posted to.
struct TramoIva {
    double Base = 0;
    double PorcentajeIva = 0;
    double ImpIva = 0;
    double PorcentajeRecargo = 0;
    double ImpRecargo = 0;
    QString CtaIva;
    QString CtaRec;
};

inline constexpr std::size_t kTramosIva = 3;

class RegistroFactura {
public:
    RegistroFactura() = default;
    // The slots' legacy names are references into this object's slots: a
    // copy would keep them bound to the original, so there is none.
    RegistroFactura(const RegistroFactura&) = delete;
    RegistroFactura& operator=(const RegistroFactura&) = delete;

    // Sum of the three bases, first to last.
    double SumaBases() const;

    QString SerieFactura;
    qint32 NumeroFactura = 0; // 0 asks NuevaFactura for the next one
    qint32 IdCliente = 0;
    QString Observaciones;
    QDate FechaFactura; // not a date: the server's today
    qint32 IdFactu = 0;
    double TotalFactura = 0;
    double Bruto = 0;
    double PorcentajeDto1 = 0;
    double ImpDto1 = 0;
    double Bruto1 = 0;
    double PorcentajeDto2 = 0;
    double ImpDto2 = 0;
    double ImpDtoPie1 = 0;

    // The three VAT slots, the one storage of their fields. The legacy
    // names below read and write the same values.
    std::array<TramoIva, kTramosIva> TramosIva;
    double& BaseIva1 = TramosIva[0].Base;
    double& BaseIva2 = TramosIva[1].Base;
    double& BaseIva3 = TramosIva[2].Base;
    double& PorcentajeIva1 = TramosIva[0].PorcentajeIva;
    double& PorcentajeIva2 = TramosIva[1].PorcentajeIva;
    double& PorcentajeIva3 = TramosIva[2].PorcentajeIva;
    double& ImpIva1 = TramosIva[0].ImpIva;
    double& ImpIva2 = TramosIva[1].ImpIva;
    double& ImpIva3 = TramosIva[2].ImpIva;
    double& PorcentajeRecargo1 = TramosIva[0].PorcentajeRecargo;
    double& PorcentajeRecargo2 = TramosIva[1].PorcentajeRecargo;
    double& PorcentajeRecargo3 = TramosIva[2].PorcentajeRecargo;
    double& ImpRecargo1 = TramosIva[0].ImpRecargo;
    double& ImpRecargo2 = TramosIva[1].ImpRecargo;
    double& ImpRecargo3 = TramosIva[2].ImpRecargo;
    QString& CtaIva1 = TramosIva[0].CtaIva;
    QString& CtaIva2 = TramosIva[1].CtaIva;
    QString& CtaIva3 = TramosIva[2].CtaIva;
    QString& CtaRec1 = TramosIva[0].CtaRec;
    QString& CtaRec2 = TramosIva[1].CtaRec;
    QString& CtaRec3 = TramosIva[2].CtaRec;

    double PorcentajeRetencion = 0;
    double ImpRetencion = 0;
    QString CtaRet;
    double porcentajeretencionnf = 0;
    qint16 nModoRetNF = 0; // 0 on the sum of the bases, 1 on the total
    double RetencionNF = 0;
    double Liquido = 0;
    qint32 IdFco = 0;
    qint32 idDir = 0; // 0 or less: the invoice's own address columns
    QString Sg;
    QString Nombre;
    QString Num; // not a number above 0: stored as NULL
    QString Escalera, Piso, Puerta;
    QString Cp;
    QString Pais;
    qint16 Provincia = 0;
    QString Poblacion;
    qint32 CliCod = 0;
    QString CliNom, CliDoc;
    QString Aatencion;
    qint32 IdLavManual = 0;
    double ImpDifManual = 0;
    QString sCtaCobro;
    QString sCtaCompensa;
    qint32 IdRectificada = 0; // a credit note: the invoice it corrects
};

inline double RegistroFactura::SumaBases() const {
    double suma = 0;
    for (const TramoIva& t : TramosIva) {
        suma += t.Base;
    }
    return suma;
}

} // namespace vk
