#include "VistaCopiaFacturas.h"

#include "Controles.h"

#include <ErrorBd.h>
#include <Formato.h>
#include <Interaccion.h>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <frmCopiaFacturas.h>

namespace vk::ui {

VistaCopiaFacturas::VistaCopiaFacturas(frmCopiaFacturas& modelo, QWidget* padre)
    : QDialog(padre), modelo_(modelo) {
    setObjectName(modelo.Nombre());
    setWindowTitle(modelo.Caption);

    Text1_0_ = NuevaCaja(this, NombreControl(QStringLiteral("Text1"), 0));
    Text1_0_->setMaxLength(2);
    cboSeries_ = new QComboBox(this);
    cboSeries_->setObjectName(QStringLiteral("cboSeries"));
    Text1_2_ = NuevaCaja(this, NombreControl(QStringLiteral("Text1"), 2));
    lblCliente_ = new QLabel(this);
    lblCliente_->setObjectName(QStringLiteral("lblCliente"));
    QPushButton* XPButton2 =
        NuevoBoton(this, QStringLiteral("XPButton2"), QStringLiteral("Cambiar &Cliente"));
    lblCliObs_ = new QLabel(this);
    lblCliObs_->setObjectName(QStringLiteral("lblCliObs"));
    lblCliObs_->setWordWrap(true);
    dbgAlbaranes_ = NuevaRejilla(this, QStringLiteral("dbgAlbaranes"),
                                 {QStringLiteral("Albaran"), QStringLiteral("Fecha")});
    Check1_ =
        NuevaCasilla(this, QStringLiteral("Check1"), QStringLiteral("Factura Rectificativa/Abono"));
    Check2_ = NuevaCasilla(this, QStringLiteral("Check2"), QStringLiteral("Factura a Origen"));
    QPushButton* cmdCopiar =
        NuevoBoton(this, QStringLiteral("cmdCopiar"), QStringLiteral("Grabar Nueva Factura"));
    QPushButton* cmdSalir =
        NuevoBoton(this, QStringLiteral("cmdSalir"), QStringLiteral("Cancelar Copia"));

    auto* datos = new QGridLayout;
    datos->addWidget(NuevaEtiqueta(this, QStringLiteral("&Serie"), Text1_0_), 0, 0);
    datos->addWidget(Text1_0_, 0, 1);
    datos->addWidget(cboSeries_, 0, 2);
    datos->addWidget(NuevaEtiqueta(this, QStringLiteral("&Fecha"), Text1_2_), 1, 0);
    datos->addWidget(Text1_2_, 1, 1);
    datos->addWidget(NuevaEtiqueta(this, QStringLiteral("Cliente")), 2, 0);
    datos->addWidget(lblCliente_, 2, 1, 1, 2);
    datos->addWidget(XPButton2, 2, 3);
    datos->addWidget(lblCliObs_, 3, 1, 1, 3);
    auto* casillas = new QHBoxLayout;
    casillas->addWidget(Check1_);
    casillas->addWidget(Check2_);
    casillas->addStretch();
    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(cmdCopiar);
    botones->addWidget(cmdSalir);
    auto* capa = new QVBoxLayout(this);
    capa->addLayout(datos);
    capa->addWidget(dbgAlbaranes_, 1);
    capa->addLayout(casillas);
    capa->addLayout(botones);

    refresca();
    resize(520, 420);

    // Choosing a series from the list writes it in the box, which is what
    // the copy takes.
    QObject::connect(cboSeries_, &QComboBox::activated, this,
                     [this](int i) { Text1_0_->setText(cboSeries_->itemText(i)); });
    QObject::connect(XPButton2, &QPushButton::clicked, this, [this] {
        aModelo();
        try {
            modelo_.XPButton2();
        } catch (const Error& e) {
            Ui().Mensaje(e.Mensaje(), Icono::Error, modelo_.Caption);
        }
        refresca();
    });
    QObject::connect(cmdCopiar, &QPushButton::clicked, this, [this] {
        aModelo();
        bool hecha = false;
        try {
            hecha = modelo_.cmdCopiar();
        } catch (const Error& e) {
            Ui().Mensaje(e.Mensaje(), Icono::Error, modelo_.Caption);
        }
        if (hecha) {
            accept();
        }
    });
    QObject::connect(cmdSalir, &QPushButton::clicked, this, [this] {
        modelo_.cmdSalir();
        reject();
    });
}

void VistaCopiaFacturas::aModelo() {
    modelo_.Text1[0] = Text1_0_->text();
    modelo_.Text1[2] = Text1_2_->text();
    modelo_.cboSeriesIndex = cboSeries_->currentIndex();
    modelo_.Check1 = Check1_->isChecked();
    modelo_.Check2 = Check2_->isChecked();
}

void VistaCopiaFacturas::refresca() {
    PonTexto(Text1_0_, modelo_.Text1[0]);
    PonTexto(Text1_2_, modelo_.Text1[2]);
    if (cboSeries_->count() != modelo_.cboSeries.size()) {
        cboSeries_->clear();
        cboSeries_->addItems(modelo_.cboSeries);
    }
    cboSeries_->setCurrentIndex(modelo_.cboSeriesIndex);
    lblCliente_->setText(modelo_.lblCliente);
    lblCliObs_->setText(modelo_.lblCliObs);
    Check1_->setChecked(modelo_.Check1);
    Check2_->setChecked(modelo_.Check2);
    dbgAlbaranes_->setRowCount(static_cast<int>(modelo_.dbgAlbaranes.size()));
    for (int i = 0; i < dbgAlbaranes_->rowCount(); ++i) {
        const AlbaranCopia& a = modelo_.dbgAlbaranes[static_cast<std::size_t>(i)];
        dbgAlbaranes_->setItem(i, 0, NuevaCelda(a.albaran));
        dbgAlbaranes_->setItem(i, 1, NuevaCelda(Format(a.fecha, QStringLiteral("dd/mm/yyyy"))));
    }
}

void VistaCopiaFacturas::keyPressEvent(QKeyEvent* evento) {
    if (!TeclaFormulario(*this, *evento)) {
        QDialog::keyPressEvent(evento);
    }
}

} // namespace vk::ui
