#include "VistaFactuAlbaran.h"

#include "Controles.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <frmFactuAlbaran.h>

namespace vk::ui {

VistaFactuAlbaran::VistaFactuAlbaran(frmFactuAlbaran& modelo, QWidget* padre)
    : QDialog(padre), modelo_(modelo) {
    setObjectName(QStringLiteral("frmFactuAlbaran"));
    setWindowTitle(modelo.Caption);
    auto* capa = new QVBoxLayout(this);
    auto* formulario = new QFormLayout;
    serie_ = NuevaCaja(this, NombreControl(QStringLiteral("Text1"), 5));
    fecha_ = NuevaCaja(this, NombreControl(QStringLiteral("Text1"), 6));
    serie_->setMaximumWidth(80);
    fecha_->setMaximumWidth(110);
    fecha_->setInputMask(QString());
    cboFpago_ = new QComboBox(this);
    cboFpago_->setObjectName(QStringLiteral("cboFpago"));
    cboDir_ = new QComboBox(this);
    cboDir_->setObjectName(QStringLiteral("cboDir"));
    observaciones_ = new QPlainTextEdit(this);
    observaciones_->setObjectName(QStringLiteral("txtObservaciones"));
    observaciones_->setMaximumHeight(90);
    formulario->addRow(QStringLiteral("Serie"), serie_);
    formulario->addRow(QStringLiteral("Fecha Factura"), fecha_);
    formulario->addRow(QStringLiteral("Forma de cobro"), cboFpago_);
    formulario->addRow(QStringLiteral("Dirección"), cboDir_);
    formulario->addRow(QStringLiteral("Observaciones"), observaciones_);
    auto* botones = new QHBoxLayout;
    QPushButton* facturar =
        NuevoBoton(this, QStringLiteral("cmdFacturar"), QStringLiteral("&Facturar"));
    facturar->setEnabled(false); // the dialog invoices nothing: its entry is reserved
    QPushButton* salir = NuevoBoton(this, QStringLiteral("XPButton1"), QStringLiteral("&Salir"));
    botones->addStretch();
    botones->addWidget(facturar);
    botones->addWidget(salir);
    capa->addLayout(formulario);
    capa->addLayout(botones);

    serie_->setText(modelo.Text1[5]);
    fecha_->setText(modelo.Text1[6]);
    observaciones_->setPlainText(modelo.txtObservaciones);
    cboFpago_->addItems(modelo.cboFpago);
    cboFpago_->setCurrentIndex(modelo.cboFpagoIndex);
    cboDir_->addItems(modelo.cboDir);
    cboDir_->setCurrentIndex(modelo.cboDirIndex);
    setMinimumWidth(420);

    QObject::connect(salir, &QPushButton::clicked, this, [this] {
        modelo_.XPButton1();
        reject();
    });
}

void VistaFactuAlbaran::aModelo() {
    modelo_.Text1[5] = serie_->text();
    modelo_.Text1[6] = fecha_->text();
    modelo_.txtObservaciones = observaciones_->toPlainText();
    modelo_.cboFpagoIndex = cboFpago_->currentIndex();
    modelo_.cboDirIndex = cboDir_->currentIndex();
}

} // namespace vk::ui
