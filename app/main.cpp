// vkfactuven: the command-line host of the sales invoicing library.
#include "Argumentos.h"
#include "OrdenEmitir.h"
#include "OrdenFactura.h"
#include "OrdenFacturar.h"
#include "OrdenInit.h"

#include <ErrorBd.h>
#include <QGuiApplication>
#include <QTextStream>
#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const char* const kAyuda = R"(Uso: vkfactuven ORDEN [opciones]

Órdenes:
  init  [--db DB] [--demo]   crea o actualiza los catálogos de la empresa y sus datos
                             de referencia; con --demo añade una empresa de demostración
  demo  [--db DIR]           empresa de demostración en SQLite y resumen de lo pendiente
  factura --serie S --fecha DD/MM/AAAA --albaranes ID[,ID...] [--numero N] [--usuario N] [--db DB]
                             factura los albaranes indicados de un cliente
  facturar --fecha DD/MM/AAAA [--serie S] [--desde F] [--hasta F] [--cliente COD]
           [--serie-albaran S] [--incluir-cero] [--no-agrupar-agentes]
           [--salida ninguna|pdf|impresora|pantalla] [--copias N] [--db DB]
                             factura todos los albaranes pendientes, una factura por grupo
  emitir --serie S --desde N [--hasta N] (--pdf CARPETA | --impresora [COLA] | --pantalla)
         [--copia] [--albaranes] [--diseno N] [--db DB]
                             emite esas facturas por el diseño de la empresa (o el indicado)

DB es un directorio (SQLite), sqlite:DIR?catalogo=NOMBRE o
postgresql://usuario@servidor:puerto/base?catalogo=nombre.
Sin --db se usa VKFACTUVEN_DB y, si no está, ./datos.
)";

} // namespace

int main(int argc, char** argv) {
    // Invoices are painted into PDF files with the fonts of the machine; the
    // command line opens no window, so it needs no display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        // Outside a desktop session: a private runtime folder, as a session has.
        const QByteArray carpeta = "/tmp/vkfactuven-runtime-" + QByteArray::number(getuid());
        mkdir(carpeta.constData(), 0700);
        qputenv("XDG_RUNTIME_DIR", carpeta);
    }
    QGuiApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vkfactuven"));
    QTextStream out(stdout);
    QTextStream err(stderr);
    QStringList args = QCoreApplication::arguments().mid(1);
    if (args.isEmpty() || args.first() == QLatin1String("--help") ||
        args.first() == QLatin1String("-h") || args.first() == QLatin1String("ayuda")) {
        out << QString::fromUtf8(kAyuda);
        return args.isEmpty() ? 2 : 0;
    }
    const QString orden = args.takeFirst();
    try {
        if (orden == QLatin1String("init")) {
            return vk::app::OrdenInit(args, out);
        }
        if (orden == QLatin1String("factura")) {
            return vk::app::OrdenFactura(args, out);
        }
        if (orden == QLatin1String("facturar")) {
            return vk::app::OrdenFacturar(args, out);
        }
        if (orden == QLatin1String("emitir")) {
            return vk::app::OrdenEmitir(args, out);
        }
        if (orden == QLatin1String("demo")) {
            return vk::app::OrdenDemo(args, out);
        }
        err << QStringLiteral("Orden desconocida: %1\n\n").arg(orden) << QString::fromUtf8(kAyuda);
        return 2;
    } catch (const vk::app::ErrorUso& e) {
        err << e.mensaje << Qt::endl;
        return 2;
    } catch (const vk::ErrorBd& e) {
        err << QStringLiteral("Error: ") << e.Mensaje() << Qt::endl;
        return 1;
    }
}
