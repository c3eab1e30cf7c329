#include "VistaAlbaranVenta.h"

#include "Controles.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <frmAlbaranVenta.h>

namespace vk::ui {

namespace {

QLineEdit* caja(QWidget* padre, const QString& nombre, const QString& texto) {
    QLineEdit* c = NuevaCaja(padre, nombre);
    c->setReadOnly(true);
    c->setText(texto);
    c->setCursorPosition(0);
    return c;
}

} // namespace

VistaAlbaranVenta::VistaAlbaranVenta(frmAlbaranVenta& modelo, QWidget* padre)
    : QDialog(padre), modelo_(modelo) {
    setObjectName(QStringLiteral("frmAlbaranVenta"));
    setWindowTitle(modelo.Caption);
    auto* capa = new QVBoxLayout(this);

    auto* cabecera = new QGridLayout;
    const auto fila = [&](int f, int c, const QString& etiqueta, QLineEdit* campo) {
        auto* e = new QLabel(etiqueta, this);
        e->setBuddy(campo);
        cabecera->addWidget(e, f, c * 2);
        cabecera->addWidget(campo, f, c * 2 + 1);
    };
    fila(0, 0, QStringLiteral("Albarán"),
         caja(this, QStringLiteral("txtAlbaran"), modelo.txtAlbaran));
    fila(0, 1, QStringLiteral("Fecha"), caja(this, QStringLiteral("txtFecha"), modelo.txtFecha));
    fila(0, 2, QStringLiteral("Situación"),
         caja(this, QStringLiteral("txtSituacion"), modelo.txtSituacion));
    fila(1, 0, QStringLiteral("Cliente"),
         caja(this, QStringLiteral("txtCliCod"), modelo.txtCliCod));
    auto* nombre = caja(this, QStringLiteral("txtCliNom"), modelo.txtCliNom);
    cabecera->addWidget(nombre, 1, 2, 1, 3);
    fila(1, 3, QStringLiteral("Factura"),
         caja(this, QStringLiteral("txtFactura"), modelo.txtFactura));
    fila(2, 0, QStringLiteral("Forma de cobro"),
         caja(this, QStringLiteral("txtFormaPago"), modelo.txtFormaPago));
    fila(2, 1, QStringLiteral("Dto. 1"), caja(this, QStringLiteral("txtDto1"), modelo.txtDto1));
    fila(2, 2, QStringLiteral("Dto. 2"), caja(this, QStringLiteral("txtDto2"), modelo.txtDto2));
    fila(2, 3, QStringLiteral("Agente"), caja(this, QStringLiteral("txtAgente"), modelo.txtAgente));
    capa->addLayout(cabecera);

    QTableWidget* lineas =
        NuevaRejilla(this, QStringLiteral("dbgLineas"),
                     {QStringLiteral("Orden"), QStringLiteral("Artículo"),
                      QStringLiteral("Descripción"), QStringLiteral("Cantidad"),
                      QStringLiteral("Precio"), QStringLiteral("Dto. 1"), QStringLiteral("Dto. 2"),
                      QStringLiteral("Importe"), QStringLiteral("IVA %"), QStringLiteral("Tramo")});
    lineas->setRowCount(static_cast<int>(modelo.dbgLineas.size()));
    for (int r = 0; r < static_cast<int>(modelo.dbgLineas.size()); ++r) {
        const LineaAlbaranVenta& l = modelo.dbgLineas[r];
        const QString celdas[] = {l.orden, l.codigo, l.descripcion, l.cantidad, l.precio,
                                  l.dto1,  l.dto2,   l.importe,     l.iva,      l.tramo};
        for (int c = 0; c < 10; ++c) {
            auto* item = new QTableWidgetItem(celdas[c]);
            if (c != 1 && c != 2) {
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            }
            lineas->setItem(r, c, item);
        }
    }
    lineas->horizontalHeader()->setStretchLastSection(false);
    lineas->horizontalHeader()->setSectionResizeMode(2, QHeaderView::Stretch);
    if (modelo.filaLinea >= 0) {
        lineas->setCurrentCell(modelo.filaLinea, 0);
    }
    capa->addWidget(lineas, 1);

    auto* pie = new QHBoxLayout;
    auto* etiquetaTotal = new QLabel(QStringLiteral("Total"), this);
    QLineEdit* total = caja(this, QStringLiteral("txtTotal"), modelo.txtTotal);
    total->setAlignment(Qt::AlignRight);
    total->setMaximumWidth(160);
    etiquetaTotal->setBuddy(total);
    QPushButton* salir = NuevoBoton(this, QStringLiteral("cmdSalir"), QStringLiteral("&Salir"));
    pie->addWidget(etiquetaTotal);
    pie->addWidget(total);
    pie->addStretch();
    pie->addWidget(salir);
    capa->addLayout(pie);

    resize(1000, 520);
    lineas->setFocus();
    QObject::connect(salir, &QPushButton::clicked, this, [this] {
        modelo_.cmdSalir();
        reject();
    });
}

void VistaAlbaranVenta::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Escape) {
        modelo_.cmdSalir();
    }
    if (!TeclaFormulario(*this, *evento)) {
        QDialog::keyPressEvent(evento);
    }
}

} // namespace vk::ui
