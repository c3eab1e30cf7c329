#include "Capturas.h"

#include <DialogoBusca.h>
#include <ErrorBd.h>
#include <InteraccionQt.h>
#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QPrintPreviewWidget>
#include <QTableView>
#include <QTextStream>
#include <QTreeWidget>
#include <VKFACVENTAS.h>
#include <VistaEdicionFacturas.h>
#include <VistaEmisionFacturas.h>
#include <VistaFactuAlbaran.h>
#include <VistaFacturasVenta.h>
#include <VistaIniFav.h>
#include <VistaVisor.h>
#include <frmEdicionFacturas.h>
#include <frmEmisionFacturas.h>
#include <frmFactuAlbaran.h>
#include <frmFacturasVenta.h>
#include <frmIniFav.h>
#include <frmVisor.h>

namespace vk::escritorio {

namespace {

QTextStream& err() {
    static QTextStream s(stderr);
    return s;
}

bool guarda(QWidget& w, const QString& fichero) {
    w.show();
    for (int i = 0; i < 5; ++i) {
        QApplication::processEvents();
    }
    const bool ok = w.grab().save(fichero);
    err() << (ok ? QStringLiteral("  captura: ") : QStringLiteral("  ERROR al guardar: "))
          << fichero << Qt::endl;
    return ok;
}

// Answers like a person who says Yes, and photographs every dialog shown.
class InteraccionCapturas : public ui::InteraccionQt {
public:
    explicit InteraccionCapturas(QString carpeta) : carpeta_(std::move(carpeta)) {}
    void Mensaje(const QString& texto, Icono, const QString&) override {
        err() << QStringLiteral("  mensaje: ") << texto << Qt::endl;
    }
    bool Pregunta(const QString&, const QString&, bool) override { return true; }
    std::optional<int> Busca(const PeticionBusca& peticion) override {
        ui::DialogoBusca d(peticion);
        guarda(d, fichero(QStringLiteral("busca-clientes")));
        return std::nullopt;
    }
    bool MuestraDialogo(DialogoModelo& dialogo) override {
        if (auto* m = dynamic_cast<frmIniFav*>(&dialogo)) {
            ui::VistaIniFav v(*m);
            guarda(v, fichero(QStringLiteral("ini-fav")));
            return m->cmdInforme();
        }
        if (auto* m = dynamic_cast<frmVisor*>(&dialogo)) {
            ui::VistaVisor v(*m);
            v.show();
            QApplication::processEvents();
            v.vista()->fitToWidth();
            guarda(v, fichero(QStringLiteral("visor")));
            return true;
        }
        return false;
    }
    QString fichero(const QString& nombre) const {
        return carpeta_ + QLatin1Char('/') + nombre + QStringLiteral(".png");
    }

private:
    QString carpeta_;
};

} // namespace

int HazCapturas(VKFACVENTAS& factura, const QString& carpeta) {
    QDir().mkpath(carpeta);
    InteraccionCapturas ui(carpeta);
    UsaInteraccion usa(ui);
    try {
        {
            frmFacturasVenta modelo(factura);
            ui::VistaFacturasVenta vista(modelo);
            vista.findChild<QAbstractButton*>(QStringLiteral("cmdBuscar"))->click();
            auto* grupos = vista.findChild<QTableView*>(QStringLiteral("dbgCli"));
            if (grupos->model()->rowCount() > 1) {
                grupos->setCurrentIndex(grupos->model()->index(1, 0));
            }
            guarda(vista, ui.fichero(QStringLiteral("facturas-venta")));
            modelo.msBuscarCliente(-1);
        }
        {
            frmFactuAlbaran modelo(factura);
            ui::VistaFactuAlbaran vista(modelo);
            guarda(vista, ui.fichero(QStringLiteral("factu-albaran")));
        }
        {
            frmEmisionFacturas modelo(factura);
            modelo.cmdVer();
            ui::VistaEmisionFacturas vista(modelo);
            guarda(vista, ui.fichero(QStringLiteral("emision-facturas")));
        }
        {
            // One invoice to the screen: the first number dialog and the viewer.
            frmFacturasVenta modelo(factura);
            ui::VistaFacturasVenta vista(modelo);
            vista.findChild<QAbstractButton*>(QStringLiteral("cmdBuscar"))->click();
            vista.findChild<QAbstractButton*>(QStringLiteral("optSalida_0"))->click();
            modelo.Text1[11] = QStringLiteral("1");
            vista.desdeModelo();
            vista.findChild<QAbstractButton*>(QStringLiteral("cmdFacturar"))->click();
        }
        {
            // The invoice just made, in the edit screen.
            frmEdicionFacturas modelo(factura, factura.SerieFactura, factura.NumeroFactura);
            ui::VistaEdicionFacturas vista(modelo);
            guarda(vista, ui.fichero(QStringLiteral("edicion-facturas")));
        }
    } catch (const Error& e) {
        err() << e.Mensaje() << Qt::endl;
        return 1;
    }
    return 0;
}

} // namespace vk::escritorio
