#include "ImpresionFactura.h"

#include <Formato.h>
#include <RegistroFactura.h>
#include <frmEdicionFacturas.h>

namespace vk::app {

namespace {

// A rate for people: "21", "5,2".
QString tipo(double porcentaje) {
    QString t = Format(porcentaje, QStringLiteral("#,##0.##"));
    if (t.endsWith(QLatin1Char(','))) {
        t.chop(1);
    }
    return t;
}

QString fecha(const QDate& d) {
    return Format(d, QStringLiteral("dd/mm/yyyy"));
}

} // namespace

void ImprimeImportes(const RegistroFactura& f, QTextStream& out) {
    const auto fila = [&out](const QString& concepto, double importe) {
        out << QStringLiteral("  %1 %2").arg(concepto, -28).arg(FormatoMoneda(importe), 16)
            << Qt::endl;
    };
    fila(QStringLiteral("Bruto"), f.Bruto);
    if (f.ImpDto1 != 0) {
        fila(QStringLiteral("Descuento %1 %").arg(tipo(f.PorcentajeDto1)), -f.ImpDto1);
    }
    if (f.ImpDto2 != 0) {
        fila(QStringLiteral("Descuento %1 %").arg(tipo(f.PorcentajeDto2)), -f.ImpDto2);
    }
    if (f.ImpDtoPie1 != 0) {
        fila(QStringLiteral("Descuento por unidades"), -f.ImpDtoPie1);
    }
    for (const TramoIva& t : f.TramosIva) {
        if (t.Base == 0 && t.ImpIva == 0) {
            continue;
        }
        const QString tipoIva = tipo(t.PorcentajeIva);
        fila(QStringLiteral("Base al %1 %").arg(tipoIva), t.Base);
        fila(QStringLiteral("IVA %1 %").arg(tipoIva), t.ImpIva);
        if (t.ImpRecargo != 0) {
            fila(QStringLiteral("Recargo %1 %").arg(tipo(t.PorcentajeRecargo)), t.ImpRecargo);
        }
    }
    if (f.ImpRetencion != 0) {
        fila(QStringLiteral("Retención IRPF %1 %").arg(tipo(f.PorcentajeRetencion)),
             -f.ImpRetencion);
    }
    fila(QStringLiteral("Total factura"), f.TotalFactura);
    if (f.RetencionNF != 0) {
        fila(QStringLiteral("Retención no fiscal"), -f.RetencionNF);
        fila(QStringLiteral("Líquido"), f.Liquido);
    }
}

void ImprimeFacturaEditada(const frmEdicionFacturas& p, const RegistroFactura& f,
                           QTextStream& out) {
    out << QStringLiteral("Factura %1/%2 de %3")
               .arg(f.SerieFactura)
               .arg(f.NumeroFactura)
               .arg(fecha(f.FechaFactura))
        << Qt::endl;
    out << QStringLiteral("Cliente: %1 %2, NIF %3")
               .arg(f.CliCod)
               .arg(f.CliNom.trimmed(), f.CliDoc.trimmed())
        << Qt::endl;
    QStringList calle;
    if (const CajasDireccion& d = p.direccion;
        d.cboTipoViaIndex >= 0 && d.cboTipoViaIndex < d.cboTipoVia.size()) {
        calle << d.cboTipoVia[d.cboTipoViaIndex].section(QStringLiteral(" - "), 1).trimmed();
    }
    for (const QString& parte : {p.Text1[23], p.Text1[18], p.Text1[16], p.Text1[15], p.Text1[14]}) {
        if (!parte.trimmed().isEmpty()) {
            calle << parte.trimmed();
        }
    }
    QStringList direccion;
    for (const QString& parte :
         {calle.join(QLatin1Char(' ')),
          (p.Text1[21].trimmed() + QLatin1Char(' ') + p.Text1[19].trimmed()).trimmed()}) {
        if (!parte.isEmpty()) {
            direccion << parte;
        }
    }
    if (!direccion.isEmpty()) {
        out << QStringLiteral("Dirección: %1").arg(direccion.join(QStringLiteral(", ")))
            << Qt::endl;
    }
    if (!f.Observaciones.trimmed().isEmpty()) {
        out << QStringLiteral("Observaciones: %1").arg(f.Observaciones.trimmed()) << Qt::endl;
    }
    if (p.Check2) {
        out << QStringLiteral("Rectificativa para concurso de acreedores") << Qt::endl;
    }
    if (p.Check1) {
        out << QStringLiteral("Total manual: diferencia de %1").arg(FormatoMoneda(f.ImpDifManual))
            << Qt::endl;
    }
    out << QStringLiteral("Albaranes:") << Qt::endl;
    QString actual;
    for (const LineaAlbaranFactura& l : p.dbgAlbaranes) {
        if (l.albaran != actual) {
            actual = l.albaran;
            out << QStringLiteral("  %1 de %2").arg(l.albaran, fecha(l.Cav_Fecha)) << Qt::endl;
        }
        if (l.Lav_Id > 0) {
            out << QStringLiteral("    %1 %2 x %3 = %4")
                       .arg(l.Lav_Des.left(40), -40)
                       .arg(tipo(l.Lav_Cantidad), 8)
                       .arg(Format(l.Lav_Precio, QStringLiteral("#,##0.00####")), 12)
                       .arg(FormatoMoneda(l.Lav_Importe), 14)
                << Qt::endl;
        }
    }
    out << QStringLiteral("Importes:") << Qt::endl;
    ImprimeImportes(f, out);
    out << QStringLiteral("Recibos: %1").arg(p.dbgRecibos.size()) << Qt::endl;
    for (const ReciboFactura& r : p.dbgRecibos) {
        out << QStringLiteral("  %1 %2 %3 %4")
                   .arg(fecha(r.Rec_Fvto))
                   .arg(FormatoMoneda(r.Rec_Importe), 14)
                   .arg(r.Modalidad.trimmed(), -16)
                   .arg(r.Situacion.trimmed())
            << Qt::endl;
    }
}

} // namespace vk::app
