#include "VistaBorradoFacturas.h"

#include "Controles.h"

#include <Formato.h>
#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <frmBorradoFacturas.h>

namespace vk::ui {

VistaBorradoFacturas::VistaBorradoFacturas(frmBorradoFacturas& modelo, QWidget* padre)
    : QDialog(padre), modelo_(modelo) {
    setObjectName(QStringLiteral("frmBorradoFacturas"));
    setWindowTitle(modelo.Caption);
    auto* capa = new QVBoxLayout(this);
    auto* filtros = new QGridLayout;
    for (const int i : {0, 1, 2, 3, 5}) {
        Text1_[static_cast<std::size_t>(i)] =
            NuevaCaja(this, NombreControl(QStringLiteral("Text1"), i));
    }
    filtros->addWidget(NuevaEtiqueta(this, QStringLiteral("&Serie"), Text1_[5]), 0, 0);
    filtros->addWidget(Text1_[5], 0, 1);
    filtros->addWidget(NuevaEtiqueta(this, QStringLiteral("Desde &número"), Text1_[0]), 1, 0);
    filtros->addWidget(Text1_[0], 1, 1);
    filtros->addWidget(NuevaEtiqueta(this, QStringLiteral("&Hasta número"), Text1_[1]), 1, 2);
    filtros->addWidget(Text1_[1], 1, 3);
    filtros->addWidget(NuevaEtiqueta(this, QStringLiteral("Desde &fecha"), Text1_[2]), 2, 0);
    filtros->addWidget(Text1_[2], 2, 1);
    filtros->addWidget(NuevaEtiqueta(this, QStringLiteral("Hasta f&echa"), Text1_[3]), 2, 2);
    filtros->addWidget(Text1_[3], 2, 3);
    Check1_ = NuevaCasilla(this, QStringLiteral("Check1"), QStringLiteral("Borrar Albaranes"));
    filtros->addWidget(Check1_, 3, 0, 1, 2);
    Label2_ = new QLabel(modelo.Label2, this);
    Label2_->setObjectName(QStringLiteral("Label2"));
    filtros->addWidget(Label2_, 3, 2, 1, 2);
    capa->addLayout(filtros);

    dbgFacturas_ =
        NuevaRejilla(this, QStringLiteral("dbgFacturas"),
                     {QStringLiteral("Factura"), QStringLiteral("Fecha"), QStringLiteral("Total"),
                      QStringLiteral("Descuentos"), QStringLiteral("Bases"), QStringLiteral("IVA"),
                      QStringLiteral("Recargo"), QStringLiteral("Retención"),
                      QStringLiteral("Cliente  (Código)"), QStringLiteral("Documento"),
                      QStringLiteral("Estado Contable")});
    dbgFacturas_->setMinimumSize(900, 320);
    capa->addWidget(dbgFacturas_);

    auto* botones = new QHBoxLayout;
    QPushButton* buscar = NuevoBoton(this, QStringLiteral("cmdBuscar"), QStringLiteral("&Buscar"));
    cmdBorrar_ = NuevoBoton(this, QStringLiteral("cmdBorrar"), QStringLiteral("B&orrar"));
    QPushButton* salir = NuevoBoton(this, QStringLiteral("cmdSalir"), QStringLiteral("&Salir"));
    buscar->setDefault(true);
    botones->addWidget(buscar);
    botones->addWidget(cmdBorrar_);
    botones->addStretch();
    botones->addWidget(salir);
    capa->addLayout(botones);
    desdeModelo();

    QObject::connect(buscar, &QPushButton::clicked, this, [this] {
        aModelo();
        modelo_.cmdBuscar();
        desdeModelo();
    });
    QObject::connect(cmdBorrar_, &QPushButton::clicked, this, [this] {
        aModelo();
        modelo_.cmdBorrar();
        desdeModelo();
    });
    QObject::connect(salir, &QPushButton::clicked, this, [this] { reject(); });
}

void VistaBorradoFacturas::desdeModelo() {
    for (const int i : {0, 1, 2, 3, 5}) {
        PonTexto(Text1_[static_cast<std::size_t>(i)], modelo_.Text1[static_cast<std::size_t>(i)]);
    }
    Check1_->setChecked(modelo_.Check1);
    Label2_->setVisible(modelo_.Label2_Visible);
    cmdBorrar_->setEnabled(modelo_.cmdBorrar_Enabled);
    dbgFacturas_->setRowCount(static_cast<int>(modelo_.dbgFacturas.size()));
    int fila = 0;
    for (const FacturaBorrable& f : modelo_.dbgFacturas) {
        const auto importe = [](double v) { return NuevaCelda(FormatoMoneda(v), true); };
        dbgFacturas_->setItem(fila, 0, NuevaCelda(f.Factura));
        dbgFacturas_->setItem(fila, 1, NuevaCelda(f.Fecha.toString(u"dd/MM/yyyy")));
        dbgFacturas_->setItem(fila, 2, importe(f.Total));
        dbgFacturas_->setItem(fila, 3, importe(f.Descuentos));
        dbgFacturas_->setItem(fila, 4, importe(f.Bases));
        dbgFacturas_->setItem(fila, 5, importe(f.Iva));
        dbgFacturas_->setItem(fila, 6, importe(f.Recargo));
        dbgFacturas_->setItem(fila, 7, importe(f.Retencion));
        dbgFacturas_->setItem(fila, 8, NuevaCelda(f.Cliente));
        dbgFacturas_->setItem(fila, 9, NuevaCelda(f.Documento));
        dbgFacturas_->setItem(fila, 10, NuevaCelda(f.EstadoContable));
        ++fila;
    }
}

void VistaBorradoFacturas::aModelo() {
    for (const int i : {0, 1, 2, 3, 5}) {
        modelo_.Text1[static_cast<std::size_t>(i)] = Text1_[static_cast<std::size_t>(i)]->text();
    }
    modelo_.Check1 = Check1_->isChecked();
}

} // namespace vk::ui
