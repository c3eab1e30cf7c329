#include "TablaReportes.h"

#include <QHash>

namespace vk {

std::optional<LayoutTexto> fnLayoutTexto(const QString& plantilla) {
    struct Fila {
        const char* clave;
        const char* layout;
    };
    // In order: the first key that matches runs.
    static const Fila kTabla[] = {
        {"PLT01", "msFacturaSpoolPlt01"}, {"PLT02", "msFacturaSpoolPlt02"},
        {"PLT03", "msFacturaSpoolPlt03"}, {"MATRICIAL", "msFacturaSpoolMatricial"},
        {"PLT04", "msFacturaSpoolPlt04"}, {"PLT05", "msFacturaSpoolPlt05"},
        {"PLT06", "msFacturaSpoolPlt06"}, {"PLT07", "msFacturaSpoolPlt07"},
        {"PLT08", "msFacturaSpoolPlt08"}, {"PLT09", "msFacturaSpoolPlt10"},
        {"PLT10", "msFacturaSpoolPlt10"}, {"PLT11", "msFacturaSpoolPlt11"},
        {"PLT12", "msFacturaSpoolPlt12"}, {"PLT13", "msFacturaSpoolPlt13"},
        {"GOMAS", "msFacturaSpoolGomas"}, {"PLT14", "msFacturaSpoolPlt14"},
        {"PLT15", "msFacturaSpoolPlt15"}, {"PLT16", "msFacturaSpoolPlt16"},
        {"PLT17", "msFacturaSpoolPlt17"},
    };
    const QString clave = plantilla.toUpper();
    for (const Fila& f : kTabla) {
        if (clave == QLatin1String(f.clave)) {
            return LayoutTexto{QString::fromLatin1(f.layout), clave != QLatin1String("PLT15")};
        }
    }
    return std::nullopt;
}

QString fnNombreReporte(const EleccionReporte& e) {
    const QString clave = e.plantilla.toUpper();
    const auto es = [&clave](const char* k) { return clave == QLatin1String(k); };
    const qint16 d = e.nDiseno;

    if (d == 1 || d == 15) {
        if (e.nombreEmpresa.contains(QLatin1String("PLT18"), Qt::CaseInsensitive)) {
            return QStringLiteral("CRFacturasPlt18");
        }
        if (d == 15) {
            return QStringLiteral("CrFacturaGeneral5");
        }
        if (es("PLT19") || es("PLT20") || es("PLT21") || es("PLT22")) {
            return QStringLiteral("CrFacturaViveros");
        }
        if (es("PLT02")) {
            return QStringLiteral("CrFacturaPlt02");
        }
        if (es("PLT23")) {
            return QStringLiteral("CrFacturaPlt23");
        }
        if (es("PLT24")) {
            return QStringLiteral("CrFacturaPlt24");
        }
        return QStringLiteral("CrFacturasGeneral");
    }
    if (d == 2 || d == 4 || d == 8) {
        if (es("PLT25")) {
            return e.tipoEmision == 2 || e.tipoEmision == 3 ? QStringLiteral("CrFacturaPlt25")
                                                            : QStringLiteral("CrFacturaGeneral2");
        }
        static const QHash<QString, QString> kPorClave{
            {QStringLiteral("PLT03"), QStringLiteral("CrFacturaPlt03")},
            {QStringLiteral("PLT24"), QStringLiteral("CrFacturaPlt24")},
            {QStringLiteral("PLT26"), QStringLiteral("crFacturaPlt26")},
            {QStringLiteral("PLT27"), QStringLiteral("CrFacturaPlt27")},
            {QStringLiteral("NORVAL"), QStringLiteral("CrFacturaNorval")},
            {QStringLiteral("PLT29"), QStringLiteral("CrFacturaPlt29")},
            {QStringLiteral("PLT30"), QStringLiteral("CrFacturaPlt29F")},
            {QStringLiteral("PLT31"), QStringLiteral("CrFacturaPlt31")},
            {QStringLiteral("PLT32"), QStringLiteral("CrFacturaPlt32")},
            {QStringLiteral("PLT33"), QStringLiteral("CrFacturaPlt33")},
            {QStringLiteral("PLT34"), QStringLiteral("CrFacturaPlt34")},
            {QStringLiteral("PLT35"), QStringLiteral("CrFacturaGeneralCi")},
            {QStringLiteral("PLT36"), QStringLiteral("CrFacturaPlt36")},
            {QStringLiteral("PLT37"), QStringLiteral("CrFacturaPlt37")},
            {QStringLiteral("PLT04"), QStringLiteral("CrFacturaPlt04")},
        };
        if (const auto it = kPorClave.constFind(clave); it != kPorClave.constEnd()) {
            return *it;
        }
        return d == 2 ? QStringLiteral("CrFacturaGeneral2")
                      : (d == 4 ? QStringLiteral("CrFacturaAutomocion")
                                : QStringLiteral("CrFacturaGeneral4"));
    }
    if (d == 3) {
        return QStringLiteral("CrFacturaGeneral3");
    }
    if (d == 10) {
        return QStringLiteral("CrFacturasMedidasNLogo");
    }
    // The withholding row, before every design that follows it.
    if (e.regimenFiscal == 3 && d != 12) {
        return QStringLiteral("CrFacturaIrpf");
    }
    switch (d) {
    case 0:
        return es("ENVASES") ? QStringLiteral("CrFacturaEnvases")
                             : QStringLiteral("CrFacturasGeneral");
    case 12:
        return QStringLiteral("CrFacturaServicios1");
    case 13:
        return QStringLiteral("CrFacturaAlimentacion1");
    case 14:
        return QStringLiteral("CrFacturaGeneralLogo4");
    case 16:
        return es("PLT39") ? QStringLiteral("CrFacturaCalzado1")
                           : QStringLiteral("CrFacturaCalzado");
    case 19:
        return QStringLiteral("CrFacturaGeneralLEFT");
    default:
        return QStringLiteral("CrFacturasGeneral");
    }
}

} // namespace vk
