#include "VistaIniFav.h"

#include "Controles.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <frmIniFav.h>

namespace vk::ui {

VistaIniFav::VistaIniFav(frmIniFav& modelo, QWidget* padre) : QDialog(padre), modelo_(modelo) {
    setObjectName(modelo.Nombre());
    setWindowTitle(modelo.Caption);
    auto* capa = new QVBoxLayout(this);
    lblSerie_ = new QLabel(modelo.lblSerie, this);
    lblSerie_->setObjectName(QStringLiteral("lblSerie"));
    auto* fila = new QHBoxLayout;
    auto* etiqueta = new QLabel(QStringLiteral("Primer número de factura:"), this);
    Text1_ = NuevaCaja(this, QStringLiteral("Text1"));
    Text1_->setText(modelo.Text1);
    Text1_->selectAll();
    etiqueta->setBuddy(Text1_);
    fila->addWidget(etiqueta);
    fila->addWidget(Text1_);
    auto* botones = new QHBoxLayout;
    QPushButton* aceptar =
        NuevoBoton(this, QStringLiteral("cmdInforme"), QStringLiteral("&Aceptar"));
    QPushButton* cancelar =
        NuevoBoton(this, QStringLiteral("XPButton1"), QStringLiteral("&Cancelar"));
    // A one-field dialog: Enter accepts, as the original dialog's default did.
    aceptar->setDefault(true);
    botones->addStretch();
    botones->addWidget(aceptar);
    botones->addWidget(cancelar);
    capa->addWidget(lblSerie_);
    capa->addLayout(fila);
    capa->addLayout(botones);

    QObject::connect(aceptar, &QPushButton::clicked, this, [this] { acepta(); });
    QObject::connect(cancelar, &QPushButton::clicked, this, [this] {
        modelo_.XPButton1();
        reject();
    });
    setMinimumWidth(340);
}

void VistaIniFav::acepta() {
    modelo_.Text1 = Text1_->text();
    // The model says why when the number is not valid; the dialog stays open.
    if (modelo_.cmdInforme()) {
        accept();
    } else {
        Text1_->setFocus();
        Text1_->selectAll();
    }
}

} // namespace vk::ui
