#include "VentanaPrincipal.h"

#include <ErrorBd.h>
#include <Interaccion.h>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QVBoxLayout>
#include <VKFACVENTAS.h>

namespace vk::escritorio {

namespace {

// The producer's responsible declaration, as the law on invoicing systems
// asks it to be shown by the system itself.
const QString kDeclaracionResponsable = QStringLiteral(
    "<p><b>Declaración responsable del sistema informático de facturación</b></p>"
    "<p>El productor de este programa declara que el sistema informático de facturación "
    "«vkfactuven» (identificador VK), en la versión indicada, cumple lo dispuesto en el "
    "artículo 29.2.j) de la Ley 58/2003, General Tributaria, en el Real Decreto 1007/2023 y en "
    "la Orden HAC/1177/2024: garantiza la integridad, conservación, accesibilidad, legibilidad, "
    "trazabilidad e inalterabilidad de los registros de facturación, los encadena por su huella "
    "SHA-256, los remite a la Agencia Tributaria (solo funciona como sistema VERI*FACTU) e "
    "imprime en cada factura su código QR.</p>"
    "<p>Productor: Equipo de Facturación de Ventas VK, NIF 89890001K. Suscrita en València, "
    "el 24 de noviembre de 2026.</p>");

} // namespace

VentanaPrincipal::VentanaPrincipal(VKFACVENTAS& factura, const QString& empresa)
    : factura_(factura) {
    setObjectName(QStringLiteral("frmPrincipal"));
    setWindowTitle(QStringLiteral("Facturación de ventas"));
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&Facturación"));
    QAction* albaranes = menu->addAction(QStringLiteral("Facturación de &albaranes…"));
    albaranes->setObjectName(QStringLiteral("mnuFacturasVenta"));
    // The facade's issue entry opens the edit screen, on the invoice in hand
    // or on the last one of the default series.
    QAction* edicion = menu->addAction(QStringLiteral("&Edición de facturas…"));
    edicion->setObjectName(QStringLiteral("mnuEdicionFacturas"));
    edicion->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_E));
    QAction* borrado = menu->addAction(QStringLiteral("&Borrado de facturas…"));
    borrado->setObjectName(QStringLiteral("mnuBorradoFacturas"));
    borrado->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Delete));
    menu->addSeparator();
    QAction* salir = menu->addAction(QStringLiteral("&Salir"));
    salir->setObjectName(QStringLiteral("mnuSalir"));
    salir->setShortcut(QKeySequence::Quit);

    QMenu* verifactu = menuBar()->addMenu(QStringLiteral("&VERI*FACTU"));
    QAction* registros = verifactu->addAction(QStringLiteral("&Registros de facturación…"));
    registros->setObjectName(QStringLiteral("mnuRegistrosFiscales"));
    registros->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_R));
    QMenu* ayuda = menuBar()->addMenu(QStringLiteral("A&yuda"));
    QAction* acerca = ayuda->addAction(QStringLiteral("&Acerca de…"));
    acerca->setObjectName(QStringLiteral("mnuAcercaDe"));

    auto* centro = new QLabel(this);
    centro->setAlignment(Qt::AlignCenter);
    centro->setText(QStringLiteral("<h2>Facturación de ventas</h2><p>Empresa: %1</p>"
                                   "<p>Elija una opción del menú «Facturación».</p>")
                        .arg(empresa.toHtmlEscaped()));
    setCentralWidget(centro);
    statusBar()->showMessage(empresa);
    resize(760, 480);

    QObject::connect(albaranes, &QAction::triggered, this,
                     [this] { entrada([this] { factura_.jFacturasVenta(); }); });
    QObject::connect(edicion, &QAction::triggered, this,
                     [this] { entrada([this] { factura_.jEmisionFacturas(); }); });
    QObject::connect(borrado, &QAction::triggered, this,
                     [this] { entrada([this] { factura_.jBorradoFacturas(); }); });
    QObject::connect(registros, &QAction::triggered, this,
                     [this] { entrada([this] { factura_.jRegistrosFiscales(); }); });
    QObject::connect(acerca, &QAction::triggered, this, [this] {
        QMessageBox::about(
            this, QStringLiteral("Acerca de Facturación de ventas"),
            QStringLiteral("<h3>Facturación de ventas %1</h3>").arg(QStringLiteral(VK_VERSION)) +
                kDeclaracionResponsable);
    });
    QObject::connect(salir, &QAction::triggered, this, [this] { close(); });
}

template <typename F> void VentanaPrincipal::entrada(F&& f) {
    try {
        f();
    } catch (const Error& e) {
        Ui().Mensaje(e.Mensaje(), Icono::Error, windowTitle());
    }
}

} // namespace vk::escritorio
