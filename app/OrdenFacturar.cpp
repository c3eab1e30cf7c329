#include "OrdenFacturar.h"

#include "Argumentos.h"

#include <BdSesion.h>
#include <ErrorBd.h>
#include <Formato.h>
#include <InteraccionGuion.h>
#include <MensajesCore.h>
#include <RegistroSuite.h>
#include <VKFACVENTAS.h>
#include <frmFacturasVenta.h>
#include <frmIniFav.h>

namespace vk::app {

namespace {

int indiceSalida(const QString& salida) {
    const QStringList salidas{QStringLiteral("pantalla"), QStringLiteral("impresora"),
                              QStringLiteral("pdf")};
    return static_cast<int>(salidas.indexOf(salida));
}

void imprimeFacturas(BdSesion& bd, const std::vector<qint32>& ids, QTextStream& out) {
    double total = 0;
    for (const qint32 id : ids) {
        Recordset rs = bd.cn().Execute(
            QStringLiteral("SELECT Fav_Serie, Fav_Numero, Fav_CliNom, Fav_Total FROM Fav WHERE "
                           "Fav_Id = ?"),
            {id});
        if (rs.Eof()) {
            continue;
        }
        const double importe = rs.Fields(QStringLiteral("Fav_Total")).Doble();
        total += importe;
        out << QStringLiteral("  %1  %2 %3")
                   .arg(rs.Fields(QStringLiteral("Fav_Serie")).Texto() + QLatin1Char('/') +
                            QString::number(rs.Fields(QStringLiteral("Fav_Numero")).Entero()),
                        -10)
                   .arg(rs.Fields(QStringLiteral("Fav_CliNom")).Texto().trimmed().left(40), -40)
                   .arg(FormatoMoneda(importe), 16)
            << Qt::endl;
    }
    out << QStringLiteral("Facturas emitidas: %1, por un total de %2.")
               .arg(ids.size())
               .arg(FormatoMoneda(total))
        << Qt::endl;
}

} // namespace

ResultadoFacturar Factura(VKFACVENTAS& f, const OpcionesFacturar& o, QTextStream& out) {
    const int salida = indiceSalida(o.salida);
    if (salida < 0 && o.salida != QLatin1String("ninguna")) {
        throw ErrorUso(QStringLiteral("Salida desconocida «%1»: use ninguna, pdf, impresora o "
                                      "pantalla.")
                           .arg(o.salida));
    }
    if (salida >= 0 && !ExisteComponente(QString::fromLatin1(EmisorFacturas::kProgId))) {
        throw ErrorBd(mensajes::kSinEmisor);
    }
    InteraccionGuion ui;
    ui.EstableceEco(&out);
    ui.ResponderSiSiempre(true);
    const UsaInteraccion puerto(ui);

    frmFacturasVenta pantalla(f);
    pantalla.Text1[6] = o.fecha;
    if (!o.serie.isEmpty()) {
        pantalla.Text1[5] = o.serie;
    }
    pantalla.Text1[2] = o.desde;
    if (!o.hasta.isEmpty()) {
        pantalla.Text1[3] = o.hasta;
    }
    if (!o.cliente.isEmpty()) {
        pantalla.Text1[0] = o.cliente;
        pantalla.Text1_0_LostFocus();
        if (pantalla.Text1[1].isEmpty()) {
            throw ErrorBd(QStringLiteral("No existe el cliente con código %1.").arg(o.cliente));
        }
    }
    pantalla.Text1[4] = o.serieAlbaran;
    pantalla.Check1 = o.incluirCero;
    pantalla.chkGroupAgentes = o.noAgruparAgentes;
    pantalla.Check4 = true;
    pantalla.Check4_Click();
    pantalla.optSalida = salida < 0 ? 0 : salida;
    pantalla.Text1[11] =
        salida < 0 ? QStringLiteral("0") : (o.copias.isEmpty() ? pantalla.Text1[11] : o.copias);
    // A series without invoices starts at the dialog's default.
    ui.dialogos.push_back(
        [](DialogoModelo& d) { return dynamic_cast<frmIniFav&>(d).cmdInforme(); });

    pantalla.cmdBuscar();
    ResultadoFacturar r;
    if (pantalla.dbgCli.empty()) {
        imprimeFacturas(f.MyBd(), {}, out);
        return r;
    }
    pantalla.cmdFacturar();
    r.rechazado = pantalla.ultimaOrdenRechazada;
    r.facturas = pantalla.facturasGeneradas;
    if (!r.rechazado) {
        imprimeFacturas(f.MyBd(), r.facturas, out);
    }
    return r;
}

int OrdenFacturar(const QStringList& args, QTextStream& out) {
    const Argumentos a(
        args,
        {QStringLiteral("--db"), QStringLiteral("--fecha"), QStringLiteral("--serie"),
         QStringLiteral("--desde"), QStringLiteral("--hasta"), QStringLiteral("--cliente"),
         QStringLiteral("--serie-albaran"), QStringLiteral("--salida"), QStringLiteral("--copias")},
        {QStringLiteral("--incluir-cero"), QStringLiteral("--no-agrupar-agentes")});
    OpcionesFacturar o;
    o.fecha = a.valor(QStringLiteral("--fecha")).value_or(QString());
    o.serie = a.valor(QStringLiteral("--serie")).value_or(QString());
    o.desde = a.valor(QStringLiteral("--desde")).value_or(QString());
    o.hasta = a.valor(QStringLiteral("--hasta")).value_or(QString());
    o.cliente = a.valor(QStringLiteral("--cliente")).value_or(QString());
    o.serieAlbaran = a.valor(QStringLiteral("--serie-albaran")).value_or(QString());
    o.incluirCero = a.bandera(QStringLiteral("--incluir-cero"));
    o.noAgruparAgentes = a.bandera(QStringLiteral("--no-agrupar-agentes"));
    o.salida = a.valor(QStringLiteral("--salida")).value_or(QStringLiteral("ninguna"));
    o.copias = a.valor(QStringLiteral("--copias")).value_or(QString());

    suite::RegistraComponentesSuite();
    auto bd = BdSesion::Abre(a.baseDatos());
    VKFACVENTAS f;
    f.setMyBd(*bd);
    const ResultadoFacturar r = Factura(f, o, out);
    return r.rechazado ? 1 : 0;
}

} // namespace vk::app
