#include "OrdenFactura.h"

#include "Argumentos.h"

#include <BdSesion.h>
#include <DireccionFactura.h>
#include <ErrorBd.h>
#include <Formato.h>
#include <InteraccionGuion.h>
#include <RegistroSuite.h>
#include <ReglasFecha.h>
#include <VKFACVENTAS.h>
#include <frmIniFav.h>

namespace vk::app {

namespace {

QList<qint32> leeAlbaranes(const QString& lista) {
    QList<qint32> ids;
    for (const QString& parte : lista.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        bool ok = false;
        const qint32 id = parte.trimmed().toInt(&ok);
        if (!ok || id <= 0) {
            throw ErrorUso(QStringLiteral("Identificador de albarán no válido: «%1».").arg(parte));
        }
        if (!ids.contains(id)) {
            ids << id;
        }
    }
    if (ids.isEmpty()) {
        throw ErrorUso(QStringLiteral("Indique los albaranes con --albaranes ID[,ID...]."));
    }
    return ids;
}

// The notes must exist, be pending and belong to one customer. Returns it.
qint32 compruebaAlbaranes(BdSesion& bd, const QList<qint32>& ids) {
    qint32 cliente = 0;
    for (const qint32 id : ids) {
        Recordset rs = bd.cn().Execute(
            QStringLiteral("SELECT Cav_IdCli, Cav_Situa, Cav_IdFactura FROM Cav WHERE Cav_Id = ?"),
            {id});
        if (rs.Eof()) {
            throw ErrorBd(QStringLiteral("No existe el albarán %1.").arg(id));
        }
        if (rs.Fields(QStringLiteral("Cav_Situa")).Entero() != 1 ||
            !rs.Fields(QStringLiteral("Cav_IdFactura")).IsNull()) {
            throw ErrorBd(QStringLiteral("El albarán %1 ya está facturado.").arg(id));
        }
        const qint32 c = static_cast<qint32>(rs.Fields(QStringLiteral("Cav_IdCli")).Entero());
        if (cliente != 0 && c != cliente) {
            throw ErrorBd(QStringLiteral("Los albaranes son de varios clientes: una factura "
                                         "solo puede llevar albaranes de un cliente."));
        }
        cliente = c;
    }
    return cliente;
}

// The header as the invoicing screens compose it: the customer's terms,
// discounts and retention, and the first note's address.
void componeCabecera(VKFACVENTAS& f, BdSesion& bd, qint32 cliente, qint32 primerAlbaran) {
    Recordset cli = bd.cn().Execute(
        QStringLiteral("SELECT cli_fco, Cli_DTo1, CLI_Dto2, CLI_RetNFiscal, CLI_ModoRetNF, "
                       "Cli_favobs, cli_fatencion FROM Cli WHERE CLI_ID = ?"),
        {cliente});
    f.IdCliente = cliente;
    f.IdFco = static_cast<qint32>(cli.Fields(QStringLiteral("cli_fco")).Entero());
    f.PorcentajeDto1 = cli.Fields(QStringLiteral("Cli_DTo1")).Doble();
    f.PorcentajeDto2 = cli.Fields(QStringLiteral("CLI_Dto2")).Doble();
    f.porcentajeretencionnf = cli.Fields(QStringLiteral("CLI_RetNFiscal")).Doble();
    f.nModoRetNF = static_cast<qint16>(cli.Fields(QStringLiteral("CLI_ModoRetNF")).Entero());
    f.Observaciones = cli.Fields(QStringLiteral("Cli_favobs")).Texto();
    f.Aatencion = cli.Fields(QStringLiteral("cli_fatencion")).Texto();
    f.idDir = 0;
    msDireccionDeAlbaran(f, primerAlbaran);
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
    const QList<qint32> albaranes =
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

    const qint32 cliente = compruebaAlbaranes(*bd, albaranes);
    if (!f.VerificarFechaFactura(serie, fecha.toString(QStringLiteral("dd/MM/yyyy")))) {
        return 1;
    }
    componeCabecera(f, *bd, cliente, albaranes.first());
    f.SerieFactura = serie;
    f.FechaFactura = fecha;
    // A series without invoices asks for its first number: --numero answers,
    // and without it the dialog's own default stands. For a series that has
    // invoices the next number is taken.
    const bool serieVacia =
        bd->cn()
            .Execute(QStringLiteral("SELECT COUNT(*) FROM Fav WHERE Fav_Serie = ?"), {serie})
            .Fields(0)
            .Entero() == 0;
    f.NumeroFactura = serieVacia ? 0 : numero;
    ui.dialogos.push_back([numero](DialogoModelo& d) {
        auto& dialogo = dynamic_cast<frmIniFav&>(d);
        dialogo.Text1 = numero > 0 ? QString::number(numero) : QString();
        return dialogo.cmdInforme();
    });

    // All or nothing: the header, the notes, the amounts and the receipts.
    Transaccion t(bd->cn());
    const qint32 id = f.NuevaFactura(1);
    if (id == 0) {
        throw ErrorBd(QStringLiteral("No se pudo crear la factura %1/%2: ese número ya existe o el "
                                     "cliente no está.")
                          .arg(serie)
                          .arg(f.NumeroFactura));
    }
    f.IdFactu = id;
    for (const qint32 albaran : albaranes) {
        bd->cn().Execute(QStringLiteral("UPDATE Cav SET Cav_Situa = 2, Cav_IdFactura = ? WHERE "
                                        "Cav_Id = ? AND Cav_Situa = 1"),
                         {id, albaran});
        if (bd->cn().RecordsAffected() != 1) {
            throw ErrorBd(QStringLiteral("El albarán %1 ya está facturado.").arg(albaran));
        }
    }
    f.CalculoTotalesFactura();
    if (!f.GrabaFactura(true, false)) {
        throw ErrorBd(
            QStringLiteral("No se pudo grabar la factura %1/%2.").arg(serie).arg(f.NumeroFactura));
    }
    t.Confirma();
    imprimeFactura(f, *bd, out);
    return 0;
}

} // namespace vk::app
