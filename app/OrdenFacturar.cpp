#include "OrdenFacturar.h"

#include "Argumentos.h"
#include "InteraccionConsola.h"
#include "MensajesApp.h"

#include <BdSesion.h>
#include <ErrorBd.h>
#include <Formato.h>
#include <MensajesCore.h>
#include <RegistroSuite.h>
#include <VKFACVENTAS.h>
#include <frmFacturasVenta.h>
#include <limits>

namespace vk::app {

namespace {

const QStringList kSalidas{QStringLiteral("ninguna"), QStringLiteral("pdf"),
                           QStringLiteral("impresora"), QStringLiteral("pantalla")};

// The screen's option buttons: 0 screen, 1 printer, 2 PDF file.
int botonSalida(const QString& salida) {
    if (salida == QLatin1String("pantalla")) {
        return 0;
    }
    if (salida == QLatin1String("impresora")) {
        return 1;
    }
    return salida == QLatin1String("pdf") ? 2 : -1;
}

QString ddmmyyyy(const QDate& d) {
    return d.toString(QStringLiteral("dd/MM/yyyy"));
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
    out << mensajes::kFacturasEmitidas.arg(ids.size()).arg(FormatoMoneda(total)) << Qt::endl;
}

void imprimeIncidencias(const frmFacturasVenta& pantalla, QTextStream& err) {
    for (const IncidenciaFacturacion& i : pantalla.incidencias) {
        if (i.factura.isEmpty() && i.cliente.trimmed().isEmpty()) {
            err << i.motivo; // the run as a whole: groups left undone
        } else if (i.factura.isEmpty()) {
            err << mensajes::kIncidenciaGrupo.arg(i.cliente.trimmed(), i.motivo);
        } else {
            err << mensajes::kIncidenciaFactura.arg(i.factura, i.cliente.trimmed(), i.motivo);
        }
        err << Qt::endl;
    }
}

} // namespace

ResultadoFacturar Factura(VKFACVENTAS& f, const OpcionesFacturar& o, QTextStream& out,
                          QTextStream& err) {
    const int salida = botonSalida(o.salida);
    if (salida >= 0 && !ExisteComponente(QString::fromLatin1(EmisorFacturas::kProgId))) {
        throw Error(mensajes::kSinEmisor);
    }
    InteraccionConsola ui(out, err);
    ui.idUsuario = f.MyBd().IdUsuario();
    const UsaInteraccion puerto(ui);

    frmFacturasVenta pantalla(f);
    pantalla.Text1[6] = ddmmyyyy(o.fecha);
    if (!o.serie.isEmpty()) {
        pantalla.Text1[5] = o.serie;
    }
    pantalla.Text1[2] = o.desde ? ddmmyyyy(*o.desde) : QString();
    if (o.hasta) {
        pantalla.Text1[3] = ddmmyyyy(*o.hasta);
    }
    if (o.cliente) {
        pantalla.Text1[0] = QString::number(*o.cliente);
        pantalla.Text1_0_LostFocus();
    }
    pantalla.Text1[4] = o.serieAlbaran;
    pantalla.Check1 = o.incluirCero;
    pantalla.chkGroupAgentes = o.noAgruparAgentes;
    pantalla.Check4 = true;
    pantalla.Check4_Click();
    pantalla.optSalida = salida < 0 ? 0 : salida;
    if (salida < 0) {
        pantalla.Text1[11] = QStringLiteral("0");
    } else if (o.copias) {
        pantalla.Text1[11] = QString::number(*o.copias);
    }

    pantalla.muestraResumenIncidencias = false; // listed one by one below
    pantalla.cmdBuscar();
    ResultadoFacturar r;
    if (pantalla.NumeroGrupos() == 0) {
        imprimeFacturas(f.MyBd(), {}, out);
        return r;
    }
    f.PdfOutFile.clear();
    pantalla.cmdFacturar();
    r.rechazado = pantalla.ultimaOrdenRechazada;
    r.facturas = pantalla.facturasGeneradas;
    r.incompleto =
        !pantalla.incidencias.empty() || pantalla.ejecucionDetenida || pantalla.ejecucionFallida;
    r.errorEmision = pantalla.resultadoEmision == ResultadoEmision::Fallida;
    if (r.rechazado) {
        return r;
    }
    imprimeFacturas(f.MyBd(), r.facturas, out);
    imprimeIncidencias(pantalla, err);
    if (salida == 2 && !f.PdfOutFile.isEmpty()) {
        out << mensajes::kPdfDeLasFacturas.arg(f.PdfOutFile) << Qt::endl;
    }
    return r;
}

int OrdenFacturar(const QStringList& args, QTextStream& out, QTextStream& err) {
    Argumentos a(QStringLiteral("facturar"), QStringLiteral("--fecha DD/MM/AAAA [opciones]"),
                 QStringLiteral("Factura todos los albaranes pendientes, una factura por grupo "
                                "(cliente, forma de\npago, descuentos y agente), como la pantalla "
                                "de facturación de albaranes\ncon «todos los clientes»."));
    a.declaraOpcion(QStringLiteral("fecha"), QStringLiteral("DD/MM/AAAA"),
                    QStringLiteral("fecha de las facturas"));
    a.declaraOpcion(QStringLiteral("serie"), QStringLiteral("S"),
                    QStringLiteral("serie de las facturas (por omisión, la del usuario)"));
    a.declaraOpcion(QStringLiteral("desde"), QStringLiteral("DD/MM/AAAA"),
                    QStringLiteral("albaranes desde esa fecha (sola, hasta esa fecha)"));
    a.declaraOpcion(QStringLiteral("hasta"), QStringLiteral("DD/MM/AAAA"),
                    QStringLiteral("albaranes hasta esa fecha"));
    a.declaraOpcion(QStringLiteral("cliente"), QStringLiteral("COD"),
                    QStringLiteral("solo los albaranes del cliente con ese código"));
    a.declaraOpcion(QStringLiteral("serie-albaran"), QStringLiteral("S"),
                    QStringLiteral("solo los albaranes de esa serie"));
    a.declaraBandera(QStringLiteral("incluir-cero"),
                     QStringLiteral("incluye los albaranes de importe cero"));
    a.declaraBandera(QStringLiteral("no-agrupar-agentes"),
                     QStringLiteral("el agente no separa las facturas de un cliente"));
    a.declaraOpcion(QStringLiteral("salida"), QStringLiteral("SALIDA"),
                    QStringLiteral("ninguna (por omisión), pdf, impresora o pantalla"));
    a.declaraOpcion(QStringLiteral("copias"), QStringLiteral("N"),
                    QStringLiteral("copias de cada factura, de 0 a 99 (por omisión, las de la "
                                   "empresa)"));
    a.declaraOpcion(QStringLiteral("usuario"), QStringLiteral("N"),
                    QStringLiteral("usuario de la sesión (por omisión, el de la conexión)"));
    a.analiza(args);

    OpcionesFacturar o;
    o.fecha = LeeFechaOpcion(QStringLiteral("--fecha"),
                             a.requerido(QStringLiteral("fecha"), mensajes::kIndiqueFechaFacturas));
    o.serie = a.serie(QStringLiteral("serie")).value_or(QString());
    o.desde = a.fecha(QStringLiteral("desde"));
    o.hasta = a.fecha(QStringLiteral("hasta"));
    if (o.desde && o.hasta && *o.desde > *o.hasta) {
        throw ErrorUso(mensajes::kDesdePosteriorAHasta.arg(ddmmyyyy(*o.desde), ddmmyyyy(*o.hasta)));
    }
    constexpr qint32 kMaximo = std::numeric_limits<qint32>::max();
    o.cliente = a.entero(QStringLiteral("cliente"), 1, kMaximo);
    o.serieAlbaran = a.serie(QStringLiteral("serie-albaran")).value_or(QString());
    o.incluirCero = a.bandera(QStringLiteral("incluir-cero"));
    o.noAgruparAgentes = a.bandera(QStringLiteral("no-agrupar-agentes"));
    o.salida = a.eleccion(QStringLiteral("salida"), kSalidas).value_or(QStringLiteral("ninguna"));
    o.copias = a.entero(QStringLiteral("copias"), 0, 99);
    const std::optional<qint32> usuario = a.entero(QStringLiteral("usuario"), 1, kMaximo);

    CadenaConexion cadena = CadenaConexion::Interpreta(a.baseDatos());
    if (usuario) {
        cadena.idUsuario = *usuario;
    }
    suite::RegistraComponentesSuite();
    auto bd = BdSesion::Abre(cadena);
    // What needs the company is checked before the run writes anything.
    if (usuario) {
        CompruebaUsuario(*bd, *usuario);
    }
    if (o.cliente) {
        CompruebaCliente(*bd, *o.cliente);
    }
    VKFACVENTAS f;
    f.setMyBd(*bd);
    const ResultadoFacturar r = Factura(f, o, out, err);
    return r.rechazado || r.incompleto || r.errorEmision ? 1 : 0;
}

} // namespace vk::app
