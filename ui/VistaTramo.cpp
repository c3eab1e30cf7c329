#include "VistaTramo.h"

#include "Controles.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <frmTramo.h>

namespace vk::ui {

namespace {

// A frame of read-only boxes, each named as the model's member.
QGroupBox* marco(QWidget* padre, const QString& titulo,
                 std::initializer_list<std::tuple<const char*, QString, QString>> campos) {
    auto* g = new QGroupBox(titulo, padre);
    auto* f = new QFormLayout(g);
    for (const auto& [nombre, etiqueta, texto] : campos) {
        QLineEdit* c = NuevaCaja(g, QString::fromLatin1(nombre));
        c->setReadOnly(true);
        c->setText(texto);
        c->setCursorPosition(0);
        f->addRow(etiqueta, c);
    }
    return g;
}

} // namespace

VistaTramo::VistaTramo(frmTramo& modelo, QWidget* padre) : QDialog(padre), modelo_(modelo) {
    setObjectName(QStringLiteral("frmTramo"));
    setWindowTitle(modelo.Caption);
    auto* capa = new QVBoxLayout(this);
    auto* arriba = new QHBoxLayout;
    arriba->addWidget(
        marco(this, QStringLiteral("Carga"),
              {{"txtFechaCarga", QStringLiteral("Fecha"), modelo.txtFechaCarga},
               {"txtPoblacionCarga", QStringLiteral("Población"), modelo.txtPoblacionCarga},
               {"txtEmpresaCarga", QStringLiteral("Empresa"), modelo.txtEmpresaCarga},
               {"txtCantidad", QStringLiteral("Cantidad"), modelo.txtCantidad},
               {"txtUnidad", QStringLiteral("Unidad"), modelo.txtUnidad},
               {"txtAlbaranCarga", QStringLiteral("Albarán"), modelo.txtAlbaranCarga}}));
    arriba->addWidget(
        marco(this, QStringLiteral("Descarga"),
              {{"txtFechaDescarga", QStringLiteral("Fecha"), modelo.txtFechaDescarga},
               {"txtPoblacionDescarga", QStringLiteral("Población"), modelo.txtPoblacionDescarga},
               {"txtEmpresaDescarga", QStringLiteral("Empresa"), modelo.txtEmpresaDescarga},
               {"txtKilos", QStringLiteral("Kilos"), modelo.txtKilos},
               {"txtPaisDescarga", QStringLiteral("País"), modelo.txtPaisDescarga}}));
    capa->addLayout(arriba);

    auto* abajo = new QHBoxLayout;
    QGroupBox* viaje = marco(this, QStringLiteral("Viaje"),
                             {{"txtViaje", QStringLiteral("Viaje"), modelo.txtViaje}});
    auto* vehiculos = new QListWidget(viaje);
    vehiculos->setObjectName(QStringLiteral("lstVehiculos"));
    vehiculos->addItems(modelo.lstVehiculos);
    vehiculos->setMaximumHeight(90);
    static_cast<QFormLayout*>(viaje->layout())->addRow(QStringLiteral("Vehículos"), vehiculos);
    abajo->addWidget(viaje);
    abajo->addWidget(
        marco(this, QStringLiteral("Línea de factura"),
              {{"txtLinea", QStringLiteral("Descripción"), modelo.txtLinea},
               {"txtImporteLinea", QStringLiteral("Importe"), modelo.txtImporteLinea},
               {"txtAlbaranLinea", QStringLiteral("Albarán"), modelo.txtAlbaranLinea},
               {"txtFacturaLinea", QStringLiteral("Factura"), modelo.txtFacturaLinea}}));
    capa->addLayout(abajo);

    auto* pie = new QHBoxLayout;
    QPushButton* salir = NuevoBoton(this, QStringLiteral("cmdSalir"), QStringLiteral("&Salir"));
    pie->addStretch();
    pie->addWidget(salir);
    capa->addLayout(pie);
    resize(820, 480);
    salir->setFocus();
    QObject::connect(salir, &QPushButton::clicked, this, [this] {
        modelo_.cmdSalir();
        reject();
    });
}

void VistaTramo::keyPressEvent(QKeyEvent* evento) {
    if (evento->key() == Qt::Key_Escape) {
        modelo_.cmdSalir();
    }
    if (!TeclaFormulario(*this, *evento)) {
        QDialog::keyPressEvent(evento);
    }
}

} // namespace vk::ui
