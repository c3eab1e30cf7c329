#include "VentanaPrincipal.h"

#include <ErrorBd.h>
#include <Interaccion.h>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QVBoxLayout>
#include <VKFACVENTAS.h>

namespace vk::escritorio {

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
