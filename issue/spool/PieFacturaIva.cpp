#include "PieFacturaIva.h"

#include "ControlImpresora.h"
#include "LayoutSpool.h"

#include <Formato.h>
#include <QStringList>

namespace vk::spool {

void msPieFacturaIva(const std::function<void(const QString&)>& printline, const Recordset& rs,
                     int nLinea, int nLimite, const QString& codigoPagina, QStringList& mencion) {
    const auto escribe = [&printline](const QString& texto) { printline(texto + kFinLinea); };
    const auto d = [&rs](const QString& nombre) { return rs.Fields(nombre).Doble(); };
    const auto importe = [](double v, int ancho) {
        return fnAlinea(Format(v, QStringLiteral("###,##0.00")), ancho, 1);
    };
    const auto descuento = [&](int n) {
        const double p = d(QStringLiteral("Fav_Dto%1").arg(n));
        if (p == 0) {
            return Espacios(15);
        }
        return fnAlinea(
            Format(p, QStringLiteral("##0.00")) + QStringLiteral("% - ") +
                Format(d(QStringLiteral("Fav_ImpDto%1").arg(n)), QStringLiteral("###,##0.00")),
            15, 1);
    };
    const auto iva = [&](int slot) {
        const auto col = [slot](const char* c) {
            return QString::fromLatin1(c) + QString::number(slot);
        };
        const double rec = d(col("Fav_ImpRec"));
        return importe(d(col("Fav_BIva")), 11) + QLatin1Char(' ') +
               fnAlinea(Format(d(col("Fav_Iva")), QStringLiteral("##0.00")), 5, 1) +
               QLatin1Char(' ') + importe(d(col("Fav_ImpIva")), 12) + QLatin1Char(' ') +
               (rec != 0 ? importe(rec, 10) : Espacios(10));
    };

    for (int i = nLinea; i <= nLimite + 3; ++i) {
        printline(kFinLinea);
    }
    escribe(QStringLiteral("---BRUTO--- ---DESCUENTOS--- ---BASES--- %IVA -IMPORTE IVA- "
                           "-RECARGOS- -TOTAL FACTURA-"));
    escribe(
        importe(d(QStringLiteral("Fav_Bruto")), 11) + QLatin1Char(' ') + descuento(1) +
        QLatin1Char(' ') + iva(1) + QLatin1Char(' ') +
        fnAlinea(Format(d(QStringLiteral("Fav_Total")), QStringLiteral("##,###,##0.00")), 15, 1));
    // The second discount and slots 2 and 3 share the rows below; the block
    // after them always starts on the same line.
    int usadas = 0;
    for (const int fila : {2, 3}) {
        const bool conIva = d(QStringLiteral("Fav_BIva%1").arg(fila)) != 0;
        const bool conDto = fila == 2 && d(QStringLiteral("Fav_Dto2")) != 0;
        if (conIva || conDto) {
            escribe(Espacios(12) + (conDto ? descuento(2) : Espacios(15)) +
                    (conIva ? QLatin1Char(' ') + iva(fila) : QString()));
            ++usadas;
        }
    }
    HuecoConMencion(escribe, 2 - usadas, mencion);

    escribe(QStringLiteral("---------------CONDICIONES DE PAGO---------------  "
                           "--------------VENCIMIENTOS--------------"));
    const QStringList aPago =
        rs.Fields(QStringLiteral("FormaPago")).Texto().split(QLatin1Char('#'));
    QStringList vencimientos;
    for (qsizetype i = 1; i < aPago.size(); ++i) {
        if (!aPago[i].isEmpty()) {
            vencimientos << AjustaCodigoPagina(
                QString(aPago[i]).replace(QStringLiteral("€"), QStringLiteral(" ")), codigoPagina);
        }
    }
    escribe(fnAlinea(AjustaCodigoPagina(aPago.value(0), codigoPagina), 49, 0) +
            QStringLiteral("  ") + vencimientos.value(0));
    for (qsizetype i = 1; i < vencimientos.size(); ++i) {
        escribe(Espacios(51) + vencimientos[i]);
    }
    const QString obs =
        AjustaCodigoPagina(rs.Fields(QStringLiteral("Fav_Obs")).Texto(), codigoPagina);
    for (qsizetype i = 0; i < obs.size(); i += 40) {
        escribe(obs.mid(i, 40));
    }
}

} // namespace vk::spool
