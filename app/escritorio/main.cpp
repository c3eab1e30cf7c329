// vkfactuven-escritorio: the desktop host. It asks where the company is (or
// takes --db), registers the suite's classes, the Qt interaction port and the
// screen launcher, and shows the main window.
#include "Capturas.h"
#include "DialogoConexion.h"
#include "VentanaPrincipal.h"

#include <BdSesion.h>
#include <ErrorBd.h>
#include <InteraccionQt.h>
#include <LanzadorQt.h>
#include <QApplication>
#include <QStatusBar>
#include <QTextStream>
#include <RegistroSuite.h>
#include <VKFACVENTAS.h>
#include <sys/stat.h>

namespace {

const char* const kAyuda = R"(Uso: vkfactuven-escritorio [--db CADENA] [--capturas CARPETA]
  --db CADENA         empresa a abrir sin pasar por el diálogo de conexión
                      (una carpeta de SQLite o postgresql://...)
  --capturas CARPETA  guarda una imagen de cada pantalla en CARPETA y termina
                      (modifica la empresa: úsese con una de demostración)
)";

} // namespace

int main(int argc, char** argv) {
    // Databases, invoices and exported files are the company's: readable by
    // their owner only, whatever the desktop's mask.
    umask(077);
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("vkfactuven-escritorio"));
    QApplication::setApplicationDisplayName(QStringLiteral("Facturación de ventas"));
    QTextStream err(stderr);

    QString cadena;
    QString capturas;
    const QStringList args = QApplication::arguments().mid(1);
    for (int i = 0; i < args.size(); ++i) {
        const QString& a = args[i];
        if ((a == QLatin1String("--db") || a == QLatin1String("--capturas")) &&
            i + 1 < args.size()) {
            (a == QLatin1String("--db") ? cadena : capturas) = args[++i];
        } else if (a == QLatin1String("--ayuda") || a == QLatin1String("-h") ||
                   a == QLatin1String("--help")) {
            QTextStream(stdout) << QString::fromUtf8(kAyuda);
            return 0;
        } else {
            err << QStringLiteral("Argumento no reconocido: %1").arg(a) << Qt::endl
                << QString::fromUtf8(kAyuda);
            return 2;
        }
    }

    vk::suite::RegistraComponentesSuite();
    vk::ui::InteraccionQt interaccion;
    vk::UsaInteraccion usa(interaccion);

    std::unique_ptr<vk::BdSesion> bd;
    if (!cadena.isEmpty()) {
        try {
            bd = vk::BdSesion::Abre(cadena);
        } catch (const vk::Error& e) {
            err << e.Mensaje() << Qt::endl;
            if (capturas.isEmpty()) {
                interaccion.Mensaje(e.Mensaje(), vk::Icono::Error,
                                    QStringLiteral("Conexión con la empresa"));
            }
            return 1;
        }
    } else {
        // Asked until the company opens or the person gives up.
        vk::escritorio::DialogoConexion dialogo;
        while (!bd) {
            if (dialogo.exec() != QDialog::Accepted) {
                return 0;
            }
            try {
                cadena = dialogo.Cadena();
                bd = vk::BdSesion::Abre(cadena);
                dialogo.Recuerda();
            } catch (const vk::Error& e) {
                interaccion.Mensaje(e.Mensaje(), vk::Icono::Error,
                                    QStringLiteral("Conexión con la empresa"));
            }
        }
    }

    vk::VKFACVENTAS factura;
    factura.setMyBd(*bd);
    if (!capturas.isEmpty()) {
        return vk::escritorio::HazCapturas(factura, capturas);
    }

    vk::escritorio::VentanaPrincipal ventana(factura, bd->cadena().descripcion());
    vk::ui::LanzadorQt lanzador(factura, &ventana);
    vk::EstableceLanzador(&lanzador);
    interaccion.EstablecePadre(&ventana);
    interaccion.EstableceAvance([&ventana](int hechos, int total, const QString& texto) {
        ventana.statusBar()->showMessage(
            QStringLiteral("%1 (%2 de %3)").arg(texto).arg(hechos).arg(total));
    });
    ventana.show();
    const int r = QApplication::exec();
    vk::EstableceLanzador(nullptr);
    return r;
}
