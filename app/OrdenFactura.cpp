#include "OrdenFactura.h"

#include "Argumentos.h"

#include <BdSesion.h>
#include <ErrorBd.h>
#include <FacturacionAlbaranes.h>
#include <Formato.h>
#include <InteraccionGuion.h>
#include <RegistroSuite.h>
#include <ReglasFecha.h>
#include <VKFACVENTAS.h>
#include <algorithm>
#include <frmIniFav.h>

namespace vk::app {

namespace {

std::vector<qint32> leeAlbaranes(const QString& lista) {
    std::vector<qint32> ids;
    for (const QString& parte : lista.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        bool ok = false;
        const qint32 id = parte.trimmed().toInt(&ok);
        if (!ok || id <= 0) {
            throw ErrorUso(QStringLiteral("Identificador de albarán no válido: «%1».").arg(parte));
        }
        if (std::find(ids.begin(), ids.end(), id) == ids.end()) {
            ids.push_back(id);
        }
    }
    if (ids.empty()) {
        throw ErrorUso(QStringLiteral("Indique los albaranes con --albaranes ID[,ID...]."));
    }
    return ids;
}

// A rate for people: "21", "5,2".
QString tipo(double porcentaje) {
    QString t = Format(porcentaje, QStringLiteral("#,##0.##"));
    if (t.endsWith(QLatin1Char(','))) {
        t.chop(1);
    }
    return t;
}

void imprimeFactura(const VKFACVENTAS& f, BdSesion& bd, QTextStream& out) {
    Recordset fav =
        bd.cn().Execute(QStringLiteral("SELECT Fav_CliNom FROM Fav WHERE Fav_Id = ?"), {f.IdFactu});
    const qint64 recibos = bd.cn()
                               .Execute(QStringLiteral("SELECT COUNT(*) FROM Rec WHERE Rec_Tipo = "
                                                       "1 AND Rec_IdFac = ?"),
                                        {f.IdFactu})
                               .Fields(0)
                               .Entero();
    const auto fila = [&out](const QString& concepto, double importe) {
        out << QStringLiteral("  %1 %2").arg(concepto, -28).arg(FormatoMoneda(importe), 16)
            << Qt::endl;
    };
    out << QStringLiteral("Factura %1/%2 de %3, %4")
               .arg(f.SerieFactura)
               .arg(f.NumeroFactura)
               .arg(Format(f.FechaFactura, QStringLiteral("dd/mm/yyyy")),
                    fav.Fields(0).Texto().trimmed())
        << Qt::endl;
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
    const double bases[] = {f.BaseIva1, f.BaseIva2, f.BaseIva3};
    const double pIva[] = {f.PorcentajeIva1, f.PorcentajeIva2, f.PorcentajeIva3};
    const double iIva[] = {f.ImpIva1, f.ImpIva2, f.ImpIva3};
    const double pRec[] = {f.PorcentajeRecargo1, f.PorcentajeRecargo2, f.PorcentajeRecargo3};
    const double iRec[] = {f.ImpRecargo1, f.ImpRecargo2, f.ImpRecargo3};
    for (int i = 0; i < 3; ++i) {
        if (bases[i] == 0 && iIva[i] == 0) {
            continue;
        }
        const QString tipoIva = tipo(pIva[i]);
        fila(QStringLiteral("Base al %1 %").arg(tipoIva), bases[i]);
        fila(QStringLiteral("IVA %1 %").arg(tipoIva), iIva[i]);
        if (iRec[i] != 0) {
            fila(QStringLiteral("Recargo %1 %").arg(tipo(pRec[i])), iRec[i]);
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
    out << QStringLiteral("  Recibos: %1").arg(recibos) << Qt::endl;
}

} // namespace

int OrdenFactura(const QStringList& args, QTextStream& out) {
    const Argumentos a(args,
                       {QStringLiteral("--db"), QStringLiteral("--serie"),
                        QStringLiteral("--fecha"), QStringLiteral("--albaranes"),
                        QStringLiteral("--numero"), QStringLiteral("--usuario")},
                       {});
    const QString serie = a.valor(QStringLiteral("--serie")).value_or(QString()).trimmed();
    if (serie.isEmpty()) {
        throw ErrorUso(QStringLiteral("Indique la serie con --serie."));
    }
    const std::optional<QString> textoFecha = a.valor(QStringLiteral("--fecha"));
    if (!textoFecha) {
        throw ErrorUso(QStringLiteral("Indique la fecha de la factura con --fecha DD/MM/AAAA."));
    }
    const QDate fecha = fnLeeFecha(*textoFecha);
    const std::vector<qint32> albaranes =
        leeAlbaranes(a.valor(QStringLiteral("--albaranes")).value_or(QString()));
    qint32 numero = 0;
    if (const auto n = a.valor(QStringLiteral("--numero"))) {
        bool ok = false;
        numero = n->toInt(&ok);
        if (!ok || numero < 1) {
            throw ErrorUso(QStringLiteral("El número de factura debe ser un entero mayor que 0."));
        }
    }
    CadenaConexion cadena = CadenaConexion::Interpreta(a.baseDatos());
    if (const auto u = a.valor(QStringLiteral("--usuario"))) {
        bool ok = false;
        cadena.idUsuario = u->toInt(&ok);
        if (!ok || cadena.idUsuario < 1) {
            throw ErrorUso(QStringLiteral("El usuario debe ser un número mayor que 0."));
        }
    }

    suite::RegistraComponentesSuite();
    auto bd = BdSesion::Abre(cadena);
    InteraccionGuion ui;
    ui.EstableceEco(&out);
    const UsaInteraccion puerto(ui);
    VKFACVENTAS f;
    f.setMyBd(*bd);

    // The notes as the batch screen would group them; refused, with the
    // reason, when they would make more than one invoice.
    GrupoAlbaranes grupo = fnGrupoDeAlbaranes(*bd, albaranes);
    grupo.cabecera.serie = serie;
    grupo.cabecera.fecha = fecha;
    // A number is only taken for a series without invoices: anywhere else
    // it would leave a gap or collide.
    if (numero > 0 &&
        !bd->cn()
             .Execute(QStringLiteral("SELECT 1 FROM Fav WHERE Fav_Serie = ? LIMIT 1"), {serie})
             .Eof()) {
        throw ErrorUso(QStringLiteral("La serie %1 ya tiene facturas: su número es el siguiente "
                                      "al último, sin --numero.")
                           .arg(serie));
    }
    ui.dialogos.push_back([numero](DialogoModelo& d) {
        auto* dialogo = dynamic_cast<frmIniFav*>(&d);
        if (!dialogo) {
            return false;
        }
        dialogo->Text1 = numero > 0 ? QString::number(numero) : QString();
        return dialogo->cmdInforme();
    });

    const ResultadoFacturacion r = FacturaAlbaranes(f, grupo.cabecera, grupo.albaranes);
    if (!r.Creada()) {
        throw ErrorBd(r.motivo.isEmpty() ? QStringLiteral("No se ha hecho la factura.") : r.motivo,
                      r.detalle, ClaseError::General);
    }
    imprimeFactura(f, *bd, out);
    if (r.estado == EstadoFacturacion::SinTerminar) {
        throw ErrorBd(QStringLiteral("Factura %1: %2").arg(r.factura, r.motivo), r.detalle,
                      ClaseError::General);
    }
    return 0;
}

} // namespace vk::app
