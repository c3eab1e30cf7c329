// vkfactuven: the command-line host of the sales invoicing library.
#include "Argumentos.h"
#include "MensajesApp.h"
#include "OrdenEdicion.h"
#include "OrdenEmitir.h"
#include "OrdenFactura.h"
#include "OrdenFacturar.h"
#include "OrdenInit.h"
#include "OrdenVerifactu.h"

#include <ErrorBd.h>
#include <QGuiApplication>
#include <QTextStream>
#include <cerrno>
#include <cstring>
#include <exception>
#include <functional>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const char* const kAyuda = R"(Uso: vkfactuven ORDEN [opciones]
     vkfactuven ORDEN --help      ayuda de una orden
     vkfactuven --version         versión del programa

Órdenes:
  init  [--db DB] [--demo]   crea o actualiza los catálogos de la empresa y sus datos
                             de referencia; con --demo añade una empresa de demostración
  demo  [--db DIR]           empresa de demostración en SQLite y resumen de lo pendiente
  factura --serie S --fecha DD/MM/AAAA --albaranes ID[,ID...] [--numero N] [--usuario N] [--db DB]
                             factura los albaranes indicados de un cliente
  facturar --fecha DD/MM/AAAA [--serie S] [--desde F] [--hasta F] [--cliente COD]
           [--serie-albaran S] [--incluir-cero] [--no-agrupar-agentes]
           [--salida ninguna|pdf|impresora|pantalla] [--copias N] [--usuario N] [--db DB]
                             factura todos los albaranes pendientes, una factura por grupo
  emitir --serie S --desde N [--hasta N] (--pdf CARPETA | --impresora [COLA] | --pantalla)
         [--copia] [--albaranes] [--diseno N] [--usuario N] [--db DB]
                             emite esas facturas por el diseño de la empresa (o el indicado)
  ver --serie S --numero N   muestra una factura: albaranes, importes por tipo y recibos
  editar --serie S --numero N [--fecha F] [--serie-nueva S2] [--incluir-albaran SERIE/NUM]
         [--quitar-albaran SERIE/NUM] [--total-manual IMPORTE | --sin-total-manual]
         [--rca si|no] [--cliente COD] [--observaciones TEXTO] [--dto1 X] [--dto2 Y]
         [--regenerar-recibos] [--no]
                             cambia una factura como la pantalla de edición de facturas
  abonar --serie S --numero N [--serie-destino S2] [--fecha DD/MM/AAAA]
                             factura de abono (rectificativa) de una factura
  copiar --serie S --numero N [--serie-destino S2] [--fecha DD/MM/AAAA] [--cliente COD]
                             factura nueva con los datos y líneas de otra
  borrar --serie S --numero N [--no]
                             borra la última factura de una serie; sus albaranes vuelven
                             a estar pendientes
  borrar-lote --serie S [--desde-numero N] [--hasta-numero M] [--desde DD/MM/AAAA]
              [--hasta DD/MM/AAAA] [--borrar-albaranes] [--usuario N] [--db DB]
                             borra de una vez las facturas de una serie entre dos números
                             y dos fechas (solo administradores)
  verifactu estado|verificar [--db DB]
                             registros de facturación (VERI*FACTU): su estado de envío
                             y la comprobación de la cadena entera
  verifactu exportar --salida DIR [--pendientes] [--lote N] [--db DB]
                             los registros como envíos a la AEAT validados (ficheros XML)
  verifactu enviar [--servidor URL] [--lote N] [--espera-maxima SEGUNDOS] [--db DB]
                             envía los registros pendientes a la AEAT y resume su respuesta
  verifactu subsanar --registro N [--db DB]
                             registra de nuevo la factura de un alta rechazada

Las opciones se escriben --opcion valor o --opcion=valor. Todas las órdenes
admiten --detalle: en los errores de la base de datos muestra también el texto
del servidor y la sentencia, y los avisos técnicos de Qt.

DB es un directorio (SQLite), sqlite:DIR?catalogo=NOMBRE o
postgresql://usuario@servidor:puerto/base?catalogo=nombre.
Sin --db se usa VKFACTUVEN_DB y, si no está, ./datos.

Estado de salida: 0 si todo fue bien, 1 si algo falló, 2 si la orden está mal escrita.
)";

using Ejecuta = std::function<int(const QStringList&, QTextStream&, QTextStream&)>;

std::optional<Ejecuta> buscaOrden(const QString& orden) {
    if (orden == QLatin1String("init")) {
        return [](const QStringList& a, QTextStream& out, QTextStream&) {
            return vk::app::OrdenInit(a, out);
        };
    }
    if (orden == QLatin1String("demo")) {
        return vk::app::OrdenDemo;
    }
    if (orden == QLatin1String("factura")) {
        return vk::app::OrdenFactura;
    }
    if (orden == QLatin1String("facturar")) {
        return vk::app::OrdenFacturar;
    }
    if (orden == QLatin1String("emitir")) {
        return vk::app::OrdenEmitir;
    }
    if (orden == QLatin1String("ver")) {
        return vk::app::OrdenVer;
    }
    if (orden == QLatin1String("editar")) {
        return vk::app::OrdenEditar;
    }
    if (orden == QLatin1String("borrar")) {
        return vk::app::OrdenBorrar;
    }
    if (orden == QLatin1String("borrar-lote")) {
        return vk::app::OrdenBorrarLote;
    }
    if (orden == QLatin1String("abonar")) {
        return vk::app::OrdenAbonar;
    }
    if (orden == QLatin1String("copiar")) {
        return vk::app::OrdenCopiar;
    }
    if (orden == QLatin1String("verifactu")) {
        return vk::app::OrdenVerifactu;
    }
    return std::nullopt;
}

// Outside a desktop session the program makes its own private runtime
// folder, as a session has. Its name in /tmp is known to everyone, so whoever
// made it first may have left a link or a folder of theirs: only our own
// folder is used, and only for its owner. Gives the reason when it cannot be.
std::optional<QString> preparaCarpetaEjecucion() {
    const QByteArray carpeta = "/tmp/vkfactuven-runtime-" + QByteArray::number(getuid());
    const QString nombre = QString::fromLocal8Bit(carpeta);
    if (mkdir(carpeta.constData(), 0700) != 0 && errno != EEXIST) {
        return QStringLiteral("No se puede crear la carpeta %1: %2.")
            .arg(nombre, QString::fromLocal8Bit(std::strerror(errno)));
    }
    struct stat st {};
    if (lstat(carpeta.constData(), &st) != 0) {
        return QStringLiteral("No se puede leer la carpeta %1: %2.")
            .arg(nombre, QString::fromLocal8Bit(std::strerror(errno)));
    }
    if (S_ISLNK(st.st_mode)) {
        return QStringLiteral("%1 es un enlace simbólico, no una carpeta: bórrelo o defina "
                              "XDG_RUNTIME_DIR.")
            .arg(nombre);
    }
    if (!S_ISDIR(st.st_mode)) {
        return QStringLiteral("%1 no es una carpeta: bórrelo o defina XDG_RUNTIME_DIR.")
            .arg(nombre);
    }
    if (st.st_uid != getuid()) {
        return QStringLiteral("La carpeta %1 es de otro usuario: defina XDG_RUNTIME_DIR.")
            .arg(nombre);
    }
    if ((st.st_mode & 0077) != 0 && chmod(carpeta.constData(), 0700) != 0) {
        return QStringLiteral("No se pueden cambiar los permisos de la carpeta %1: %2.")
            .arg(nombre, QString::fromLocal8Bit(std::strerror(errno)));
    }
    qputenv("XDG_RUNTIME_DIR", carpeta);
    return std::nullopt;
}

// Qt's own warnings are English and technical (a platform without a PDF
// viewer, a missing font): shown with --detalle, like a database's text.
QtMessageHandler manejadorQt = nullptr;

void avisoQt(QtMsgType tipo, const QMessageLogContext& contexto, const QString& texto) {
    if (tipo == QtCriticalMsg || tipo == QtFatalMsg || vk::app::DetalleDeErrores()) {
        manejadorQt(tipo, contexto, texto);
    }
}

// Runs one command. Every way it can end becomes an exit status and a
// message: no exception leaves main.
int ejecuta(const Ejecuta& orden, const QStringList& args, QTextStream& out, QTextStream& err) {
    try {
        return orden(args, out, err);
    } catch (const vk::app::AyudaPedida& a) {
        out << a.texto;
        out.flush();
        return 0;
    } catch (const vk::app::ErrorUso& e) {
        err << e.mensaje << Qt::endl;
        return 2;
    } catch (const vk::Error& e) {
        err << e.Mensaje() << Qt::endl;
        if (vk::app::DetalleDeErrores() && !e.Detalle().isEmpty()) {
            err << vk::mensajes::kDetalle << e.Detalle() << Qt::endl;
        }
        return 1;
    } catch (const std::exception& e) {
        err << vk::mensajes::kErrorInterno.arg(QString::fromLocal8Bit(e.what())) << Qt::endl;
        return 1;
    } catch (...) {
        err << vk::mensajes::kErrorInternoDesconocido << Qt::endl;
        return 1;
    }
}

} // namespace

int main(int argc, char** argv) {
    // Databases, invoices and exported files are the company's: readable by
    // their owner only, whatever the shell's mask.
    umask(077);
    QTextStream out(stdout);
    QTextStream err(stderr);
    // Invoices are painted into PDF files with the fonts of the machine; the
    // command line opens no window, so it needs no display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        if (const std::optional<QString> error = preparaCarpetaEjecucion()) {
            err << *error << Qt::endl;
            return 1;
        }
    }
    manejadorQt = qInstallMessageHandler(avisoQt);
    QGuiApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vkfactuven"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VK_VERSION));
    QStringList args = QCoreApplication::arguments().mid(1);
    if (args.isEmpty()) {
        err << QString::fromUtf8(kAyuda);
        return 2;
    }
    // Options of the program itself come before the command's name.
    while (!args.isEmpty() && args.first().startsWith(QLatin1Char('-'))) {
        const QString opcion = args.takeFirst();
        if (opcion == QLatin1String("--help") || opcion == QLatin1String("-h") ||
            opcion == QLatin1String("--ayuda") || opcion == QLatin1String("-help") ||
            opcion == QLatin1String("-ayuda")) {
            out << QString::fromUtf8(kAyuda);
            return 0;
        }
        if (opcion == QLatin1String("--version") || opcion == QLatin1String("-v") ||
            opcion == QLatin1String("-version")) {
            out << QStringLiteral("vkfactuven %1").arg(QCoreApplication::applicationVersion())
                << Qt::endl;
            return 0;
        }
        if (opcion == QLatin1String("--detalle") || opcion == QLatin1String("-detalle")) {
            vk::app::EstableceDetalleDeErrores(true);
            continue;
        }
        err << vk::mensajes::kOpcionProgramaDesconocida.arg(opcion) << Qt::endl;
        return 2;
    }
    if (args.isEmpty()) {
        err << vk::mensajes::kFaltaOrden << QString::fromUtf8(kAyuda);
        return 2;
    }
    const QString nombre = args.takeFirst();
    if (nombre == QLatin1String("ayuda") || nombre == QLatin1String("help")) {
        out << QString::fromUtf8(kAyuda);
        return 0;
    }
    const std::optional<Ejecuta> orden = buscaOrden(nombre);
    if (!orden) {
        err << vk::mensajes::kOrdenDesconocida.arg(nombre) << Qt::endl;
        return 2;
    }
    return ejecuta(*orden, args, out, err);
}
