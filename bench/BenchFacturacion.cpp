// Throughput of the all-customers invoicing run on a generated company:
// customers, pending delivery notes with lines of mixed rates and regimes.
// Prints invoices per second, SQL statements per invoice and peak memory.
//
//   vk_bench_facturacion --db CADENA [--clientes 2000] [--albaranes 10000] [--lineas 5]
//                        [--grupo-por-cliente] [--sin-registros]
#include "LimiteMaquina.h"

#include <BdSesion.h>
#include <CreaEmpresa.h>
#include <ErrorBd.h>
#include <InteraccionGuion.h>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <Redondeo.h>
#include <RegistroSuite.h>
#include <VKFACVENTAS.h>
#include <algorithm>
#include <cstdio>
#include <frmFacturasVenta.h>
#include <frmIniFav.h>
#include <random>
#include <sys/resource.h>

namespace {

struct Opciones {
    QString db;
    int clientes = 2000;
    int albaranes = 10000;
    int lineas = 5;
    // Each customer's notes share terms and agent: one group, one invoice,
    // per customer, whatever the number of notes.
    bool grupoPorCliente = false;
    // The invoicing records (VERI*FACTU) off, to measure what they cost.
    bool sinRegistros = false;
};

// CPU time of this process (user and system), in seconds: the limit probe
// runs in a child and is not counted.
double segundosCpu() {
    rusage uso{};
    getrusage(RUSAGE_SELF, &uso);
    return static_cast<double>(uso.ru_utime.tv_sec + uso.ru_stime.tv_sec) +
           static_cast<double>(uso.ru_utime.tv_usec + uso.ru_stime.tv_usec) / 1e6;
}

double memoriaPicoMiB() {
    rusage uso{};
    getrusage(RUSAGE_SELF, &uso);
    return static_cast<double>(uso.ru_maxrss) / 1024.0;
}

// Tax rows of each regime and family in force today.
QHash<QPair<int, int>, qint64> tiposIva(vk::BdSesion& bd) {
    QHash<QPair<int, int>, qint64> tipos;
    vk::Recordset rs = bd.cn().Execute(QStringLiteral(
        "SELECT Tiva_Id, Tiva_Reg, Tiva_Art, Tiva_Fecha FROM vkcomun.TIVAS ORDER BY Tiva_Fecha"));
    for (; !rs.Eof(); rs.MoveNext()) {
        tipos.insert(
            {static_cast<int>(rs.Fields(1).Entero()), static_cast<int>(rs.Fields(2).Entero())},
            rs.Fields(0).Entero());
    }
    return tipos;
}

void genera(vk::BdSesion& bd, const Opciones& o) {
    vk::Conexion& cn = bd.cn();
    vk::Transaccion t(cn);
    cn.Execute(QStringLiteral("UPDATE Parametros SET Par_CtaVIva = '47700021', Par_CtaVIva2 = "
                              "'47700010', Par_CtaVIva3 = '47700004', Par_CtaVRec1 = '47710052', "
                              "Par_CtaVIrpf = '47300000', Par_CtaVIrpfAlq = '47300001'"));
    cn.Execute(QStringLiteral("UPDATE Parametros SET Par_Doc = ?, Par_VfActivo = ?"),
               {QStringLiteral("B12345674"), o.sinRegistros ? 0 : 1});
    QList<qint64> formas;
    const QList<QPair<QString, QList<QPair<int, double>>>> plazos = {
        {QStringLiteral("Contado"), {{0, 100}}},
        {QStringLiteral("30 días"), {{30, 100}}},
        {QStringLiteral("30-60 días"), {{30, 50}, {60, 50}}},
    };
    for (const auto& [nombre, lista] : plazos) {
        const qint64 id =
            cn.Execute(QStringLiteral("INSERT INTO Fco (Fco_Des) VALUES (?) RETURNING Fco_Id"),
                       {nombre})
                .Fields(0)
                .Entero();
        for (const auto& [dias, porcentaje] : lista) {
            cn.Execute(QStringLiteral("INSERT INTO Fcol (Fcol_id, Fcol_Dias, Fcol_Porcentaje, "
                                      "Fcol_Mod) VALUES (?, ?, ?, 3)"),
                       {id, dias, porcentaje});
        }
        formas << id;
    }
    const auto tipos = tiposIva(bd);
    std::mt19937 azar(20261122);
    // Most customers are general; some pay surcharge, withholding, are
    // exempt exporters or rent premises.
    const int regimenes[] = {1, 1, 1, 1, 1, 1, 2, 3, 5, 10};
    QList<QPair<qint64, int>> clientes;
    for (int i = 0; i < o.clientes; ++i) {
        const int regimen = regimenes[azar() % 10];
        const qint64 id =
            cn.Execute(QStringLiteral("INSERT INTO Cli (CLI_COD, cli_nom, cli_ape1, CLI_DOC, "
                                      "Cli_Reg, cli_fco, Cli_CtaCon) VALUES (?, ?, ?, ?, ?, ?, ?) "
                                      "RETURNING CLI_ID"),
                       {i + 1, QStringLiteral("Cliente"),
                        QStringLiteral("%1").arg(i + 1, 5, 10, QLatin1Char('0')),
                        QStringLiteral("%1X").arg(20000000 + i), regimen, formas[i % 3],
                        QStringLiteral("4300%1").arg(i + 1, 4, 10, QLatin1Char('0'))})
                .Fields(0)
                .Entero();
        clientes << qMakePair(id, regimen);
    }
    const QDate inicio(2026, 10, 1);
    for (int n = 0; n < o.albaranes; ++n) {
        const auto [cliente, regimen] = clientes[n % clientes.size()];
        const qint64 cav =
            cn.Execute(QStringLiteral("INSERT INTO Cav (Cav_Serie, Cav_Numero, Cav_Fecha, "
                                      "Cav_IdCli, Cav_Situa, Cav_IdTiva, Cav_IdFco, Cav_Agente) "
                                      "VALUES ('B', ?, ?, ?, 1, ?, ?, ?) RETURNING Cav_Id"),
                       {n + 1, bd.dialecto().valorFecha(inicio.addDays(n % 50)), cliente, regimen,
                        formas[o.grupoPorCliente ? cliente % 3 : n % 3],
                        o.grupoPorCliente ? 1 : static_cast<int>(azar() % 3)})
                .Fields(0)
                .Entero();
        for (int l = 0; l < o.lineas; ++l) {
            const int familia =
                regimen == 5 ? 4 : (regimen == 10 ? 1 : 1 + static_cast<int>(azar() % 3));
            const qint64 tiva = tipos.value({regimen, familia}, tipos.value({regimen, 1}));
            const double cantidad = 1 + azar() % 20;
            const double precio = (azar() % 10000) / 100.0;
            cn.Execute(QStringLiteral("INSERT INTO Lav (Lav_IdCav, Lav_Orden, Lav_Des, "
                                      "Lav_Cantidad, Lav_Precio, Lav_Importe, Lav_Tiva) VALUES "
                                      "(?, ?, ?, ?, ?, ?, ?)"),
                       {cav, l + 1, QStringLiteral("Artículo %1").arg(l + 1), cantidad, precio,
                        vk::Redondea(cantidad * precio, 2), tiva});
        }
    }
    t.Confirma();
}

int ejecuta(const Opciones& o) {
    vk::suite::RegistraComponentesSuite();
    auto bd = vk::BdSesion::Abre(o.db, vk::ModoApertura::Crea);
    vk::CreaEmpresa(*bd);
    QElapsedTimer reloj;
    reloj.start();
    genera(*bd, o);
    // On a live server the autovacuum has analyzed freshly loaded tables
    // within a minute. Only the loaded ones: the invoice tables are empty
    // now, and statistics saying so are what a company starting on the
    // server has too. (SQLite keeps no statistics unless asked.)
    if (!bd->dialecto().esSQLite()) {
        bd->cn().Execute(QStringLiteral("ANALYZE Cli, Cav, Lav, Fco, Fcol"));
    }
    bd->RecargaParametros();
    std::printf("Empresa generada: %d clientes, %d albaranes de %d líneas en %.1f s\n", o.clientes,
                o.albaranes, o.lineas, reloj.elapsed() / 1000.0);

    vk::InteraccionGuion ui;
    ui.ResponderSiSiempre(true);
    const vk::UsaInteraccion puerto(ui);
    vk::VKFACVENTAS f;
    f.setMyBd(*bd);
    vk::frmFacturasVenta pantalla(f);
    pantalla.Text1[3].clear();
    pantalla.Text1[6] = QStringLiteral("22/11/2026");
    pantalla.Text1[11] = QStringLiteral("0"); // without issue
    pantalla.Check4 = true;
    ui.dialogos.push_back(
        [](vk::DialogoModelo& d) { return dynamic_cast<vk::frmIniFav&>(d).cmdInforme(); });

    // The limit before and after the run, averaged: the machine's state
    // drifts over a run of some seconds.
    const vk::CadenaConexion& cadena = bd->cadena();
    const vk::bench::Limite antes = vk::bench::MideLimite(cadena);

    const qint64 sentenciasAntes = bd->cn().Sentencias();
    const double cpuAntes = segundosCpu();
    reloj.restart();
    pantalla.cmdBuscar();
    pantalla.cmdFacturar();
    const double segundos = reloj.nsecsElapsed() / 1e9;
    const double cpu = segundosCpu() - cpuAntes;
    const qint64 sentencias = bd->cn().Sentencias() - sentenciasAntes;
    const auto facturas = static_cast<qint64>(pantalla.facturasGeneradas.size());
    const qint64 pendientes =
        bd->cn()
            .Execute(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE Cav_Situa = 1"))
            .Fields(0)
            .Entero();
    const double memoria = memoriaPicoMiB();
    const vk::bench::Limite despues = vk::bench::MideLimite(cadena);
    const double limite = (antes.transaccionesPorSegundo + despues.transaccionesPorSegundo) / 2;
    const double porSegundo = facturas / segundos;
    std::printf(
        "Motor %s: %lld facturas en %.2f s = %.0f facturas/s; %.1f sentencias SQL por "
        "factura; %.3f ms de CPU por factura; memoria pico %.1f MiB; albaranes pendientes al "
        "final: %lld\n",
        qPrintable(bd->dialecto().nombreMotor()), static_cast<long long>(facturas), segundos,
        porSegundo, facturas ? static_cast<double>(sentencias) / facturas : 0.0,
        facturas ? cpu * 1000 / static_cast<double>(facturas) : 0.0, memoria,
        static_cast<long long>(pendientes));
    const QString forma = antes.idasYVueltas
                              ? QStringLiteral("%1 idas y vueltas").arg(antes.idasYVueltas)
                              : QStringLiteral("synchronous=FULL");
    std::printf("Límite de la máquina (17 lecturas y 17 escrituras por transacción, desde C, %s): "
                "%.0f [%.0f-%.0f] transacciones/s; razón %.2f\n",
                qPrintable(forma), limite,
                std::min(antes.transaccionesPorSegundo, despues.transaccionesPorSegundo),
                std::max(antes.transaccionesPorSegundo, despues.transaccionesPorSegundo),
                porSegundo / limite);
    return pendientes == 0 && facturas > 0 ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments();
    Opciones o;
    for (int i = 1; i < args.size(); ++i) {
        const QString& clave = args[i];
        if (clave == QLatin1String("--grupo-por-cliente")) {
            o.grupoPorCliente = true;
            continue;
        }
        if (clave == QLatin1String("--sin-registros")) {
            o.sinRegistros = true;
            continue;
        }
        if (i + 1 >= args.size()) {
            break;
        }
        const QString& valor = args[++i];
        if (clave == QLatin1String("--db")) {
            o.db = valor;
        } else if (clave == QLatin1String("--clientes")) {
            o.clientes = valor.toInt();
        } else if (clave == QLatin1String("--albaranes")) {
            o.albaranes = valor.toInt();
        } else if (clave == QLatin1String("--lineas")) {
            o.lineas = valor.toInt();
        }
    }
    if (o.db.isEmpty() || o.clientes < 1 || o.albaranes < 1 || o.lineas < 1) {
        std::fprintf(stderr, "uso: vk_bench_facturacion --db CADENA [--clientes N] [--albaranes N] "
                             "[--lineas N] [--grupo-por-cliente] [--sin-registros]\n");
        return 2;
    }
    try {
        return ejecuta(o);
    } catch (const vk::ErrorBd& e) {
        std::fprintf(stderr, "Error: %s\n", qPrintable(e.Mensaje()));
        return 1;
    } catch (const std::exception& e) {
        std::fprintf(stderr, "Error: %s\n", e.what());
        return 1;
    }
}
