#include "VistaEmisionFacturas.h"

#include "Controles.h"

#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <frmEmisionFacturas.h>

namespace vk::ui {

namespace {
// The form's two heights were in twips; only their order matters here.
constexpr int kAltoCorto = 1605;
} // namespace

VistaEmisionFacturas::VistaEmisionFacturas(frmEmisionFacturas& modelo, QWidget* padre)
    : QDialog(padre), modelo_(modelo) {
    setObjectName(modelo.Nombre());
    setWindowTitle(modelo.Caption);
    auto* capa = new QVBoxLayout(this);
    auto* etiqueta = new QLabel(QStringLiteral("Tipo de diseño de factura"), this);
    cmbDiseno_ = new QComboBox(this);
    cmbDiseno_->setObjectName(QStringLiteral("cmbDiseno"));
    etiqueta->setBuddy(cmbDiseno_);
    Frame1_ = new QGroupBox(QStringLiteral("Opciones de Salida"), this);
    Frame1_->setObjectName(QStringLiteral("Frame1"));
    auto* capaOpciones = new QVBoxLayout(Frame1_);
    lstOpcionesPapel_ = new QListWidget(Frame1_);
    lstOpcionesPapel_->setObjectName(QStringLiteral("lstOpcionesPapel"));
    capaOpciones->addWidget(lstOpcionesPapel_);
    auto* botones = new QHBoxLayout;
    cmdVer_ = NuevoBoton(this, QStringLiteral("cmdVer"), modelo.cmdVerCaption);
    QPushButton* emitir = NuevoBoton(this, QStringLiteral("cmdEmitir"), QStringLiteral("&Aceptar"));
    QPushButton* salir = NuevoBoton(this, QStringLiteral("cmdSalir"), QStringLiteral("&Cancelar"));
    emitir->setDefault(true);
    botones->addWidget(cmdVer_);
    botones->addStretch();
    botones->addWidget(emitir);
    botones->addWidget(salir);
    capa->addWidget(etiqueta);
    capa->addWidget(cmbDiseno_);
    capa->addWidget(Frame1_);
    capa->addLayout(botones);
    capa->setSizeConstraint(QLayout::SetFixedSize);

    cmbDiseno_->addItems(modelo.cmbDiseno);
    for (const auto& o : modelo.lstOpcionesPapel) {
        auto* item = new QListWidgetItem(o.caption.trimmed(), lstOpcionesPapel_);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
    }
    lstOpcionesPapel_->setMinimumSize(360, 190);
    desdeModelo();

    QObject::connect(cmdVer_, &QPushButton::clicked, this, [this] {
        aModelo();
        modelo_.cmdVer();
        desdeModelo();
    });
    QObject::connect(emitir, &QPushButton::clicked, this, [this] {
        aModelo();
        modelo_.cmdEmitir();
        accept();
    });
    QObject::connect(salir, &QPushButton::clicked, this, [this] { reject(); });
}

void VistaEmisionFacturas::reject() {
    modelo_.cmdSalir();
    QDialog::reject();
}

void VistaEmisionFacturas::desdeModelo() {
    cmbDiseno_->setCurrentIndex(modelo_.cmbDisenoIndex);
    for (int i = 0; i < lstOpcionesPapel_->count(); ++i) {
        lstOpcionesPapel_->item(i)->setCheckState(
            modelo_.lstOpcionesPapel[static_cast<std::size_t>(i)].marcada ? Qt::Checked
                                                                          : Qt::Unchecked);
    }
    cmdVer_->setText(modelo_.cmdVerCaption);
    // The short form hides the options, as the model's height says.
    Frame1_->setVisible(modelo_.Height > kAltoCorto);
}

void VistaEmisionFacturas::aModelo() {
    modelo_.cmbDisenoIndex = cmbDiseno_->currentIndex();
    for (int i = 0; i < lstOpcionesPapel_->count(); ++i) {
        modelo_.lstOpcionesPapel[static_cast<std::size_t>(i)].marcada =
            lstOpcionesPapel_->item(i)->checkState() == Qt::Checked;
    }
}

} // namespace vk::ui
