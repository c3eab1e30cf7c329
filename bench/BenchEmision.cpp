// Speed of issuing the demo company's invoices: pages per second of the
// report engine into one PDF job (the logo design), and invoices per second
// of the generic text layout into a file device. Peak memory at the end.
//
//   vk_bench_emision [--rondas 20]
#include <CreaEmpresa.h>
#include <EmisionInforme.h>
#include <EmpresaDemo.h>
#include <ErrorBd.h>
#include <InteraccionGuion.h>
#include <OpcionesInforme.h>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <RegistroSuite.h>
#include <SqlFacturas.h>
#include <VKFACVENTAS.h>
#include <cstdio>
#include <frmFacturasVenta.h>
#include <frmIniFav.h>
#include <spool/LayoutsTexto.h>
#include <sys/resource.h>

namespace {

double memoriaPicoMiB() {
    rusage uso{};
    getrusage(RUSAGE_SELF, &uso);
    return static_cast<double>(uso.ru_maxrss) / 1024.0;
}

int paginasPdf(const QString& fichero) {
    QFile f(fichero);
    if (!f.open(QIODevice::ReadOnly)) {
        return 0;
    }
    // Each page object of the writer says "/Type /Page" once.
    return static_cast<int>(f.readAll().count("/Type /Page\n"));
}

int ejecuta(int rondas) {
    vk::suite::RegistraComponentesSuite();
    QTemporaryDir dir;
    qputenv("VKFACTUVEN_DATOS", dir.filePath(QStringLiteral("datos")).toUtf8());
    auto bd = vk::BdSesion::Abre(dir.filePath(QStringLiteral("empresa")), vk::ModoApertura::Crea);
    vk::CreaEmpresa(*bd);
    vk::CreaDatosDemo(*bd);
    vk::InteraccionGuion ui;
    ui.ResponderSiSiempre(true);
    const vk::UsaInteraccion puerto(ui);
    vk::VKFACVENTAS f;
    f.setMyBd(*bd);
    vk::frmFacturasVenta pantalla(f);
    pantalla.Text1[6] = QStringLiteral("20/11/2026");
    pantalla.Text1[11] = QStringLiteral("0");
    pantalla.Check4 = true;
    ui.dialogos.push_back(
        [](vk::DialogoModelo& d) { return dynamic_cast<vk::frmIniFav&>(d).cmdInforme(); });
    pantalla.cmdBuscar();
    pantalla.cmdFacturar();
    const QVector<qint32> ids(pantalla.facturasGeneradas.begin(), pantalla.facturasGeneradas.end());

    // The report engine: every invoice in one job, as a printer run makes it.
    vk::ContextoInforme ctx;
    ctx.nDiseno = 2;
    ctx.tipoEmision = 2;
    ctx.idUsuario = bd->IdUsuario();
    const QString pdf = dir.filePath(QStringLiteral("todas.pdf"));
    QElapsedTimer reloj;
    reloj.start();
    for (int i = 0; i < rondas; ++i) {
        vk::RenderizaFacturasPdf(*bd, ids, QStringLiteral("CrFacturaGeneral2"), pdf, ctx);
    }
    const double sPdf = reloj.nsecsElapsed() / 1e9;
    const int paginas = paginasPdf(pdf);
    std::printf("Informe CrFacturaGeneral2: %d facturas, %d páginas por trabajo, %d trabajos en "
                "%.2f s = %.0f páginas/s (%.1f ms por factura)\n",
                static_cast<int>(ids.size()), paginas, rondas, sPdf, paginas * rondas / sPdf,
                1000.0 * sPdf / (rondas * ids.size()));

    // The generic text layout into a file device.
    const QString spool = dir.filePath(QStringLiteral("spool.txt"));
    ui.impresoras = {spool};
    reloj.restart();
    for (int i = 0; i < rondas; ++i) {
        vk::msFacturaSpoolMatricial(f, ids);
    }
    const double sTexto = reloj.nsecsElapsed() / 1e9;
    std::printf("Texto MATRICIAL: %d facturas x %d trabajos en %.2f s = %.0f facturas/s; %lld "
                "bytes por trabajo\n",
                static_cast<int>(ids.size()), rondas, sTexto, ids.size() * rondas / sTexto,
                static_cast<long long>(QFile(spool).size() / rondas));
    std::printf("Memoria pico %.1f MiB\n", memoriaPicoMiB());
    return paginas > 0 ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    int rondas = 20;
    const QStringList args = QCoreApplication::arguments();
    const qsizetype i = args.indexOf(QStringLiteral("--rondas"));
    if (i > 0 && i + 1 < args.size()) {
        rondas = std::max(1, args[i + 1].toInt());
    }
    try {
        return ejecuta(rondas);
    } catch (const vk::ErrorBd& e) {
        std::fprintf(stderr, "Error: %s\n", qPrintable(e.Mensaje()));
        return 1;
    }
}
