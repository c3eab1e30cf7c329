#include "VistaCopiaFacturas.h"

#include "CamposDireccion.h"
#include "Controles.h"

#include <ErrorBd.h>
#include <Formato.h>
#include <Interaccion.h>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <frmCopiaFacturas.h>

namespace vk::ui {

VistaCopiaFacturas::VistaCopiaFacturas(frmCopiaFacturas& modelo, QWidget* padre)
    : QDialog(padre), modelo_(modelo) {
    setObjectName(modelo.Nombre());
    setWindowTitle(modelo.Caption);
    for (int i : {0, 2, 20, 22, 24}) {
        Text1_[i] = NuevaCaja(this, NombreControl(QStringLiteral("Text1"), i));
    }
    Text1_[0]->setMaxLength(2);
    Text1_[0]->setMaximumWidth(50);
    Text1_[2]->setMaximumWidth(100);
    Text1_[2]->setPlaceholderText(QStringLiteral("dd/mm/aaaa"));
    cboSeries_ = NuevoCombo(this, QStringLiteral("cboSeries"));
    lblCliente_ = new QLabel(this);
    lblCliente_->setObjectName(QStringLiteral("lblCliente"));
    lblCliente_->setStyleSheet(QStringLiteral("font-weight: bold;"));
    QPushButton* XPButton2 =
        NuevoBoton(this, QStringLiteral("XPButton2"), QStringLiteral("Cambiar &Cliente"));

    // --- the new invoice's data ---
    auto* Frame2 = new QGroupBox(QStringLiteral("Datos de la factura"), this);
    Frame2->setObjectName(QStringLiteral("Frame2"));
    direccion_ = std::make_unique<CamposDireccion>(Frame2, Text1_);
    cboFpago_ = NuevoCombo(Frame2, QStringLiteral("cboFpago"));
    QPushButton* cmdDir =
        NuevoBoton(Frame2, QStringLiteral("cmdDir"), QStringLiteral("Otras &direcciones"));
    for (int i : {20, 22}) {
        Text1_[i]->setMaximumWidth(70);
        Text1_[i]->setAlignment(Qt::AlignRight);
    }
    txtFavObs_ = new QPlainTextEdit(Frame2);
    txtFavObs_->setObjectName(QStringLiteral("txtFavObs"));
    txtFavObs_->setTabChangesFocus(true);
    txtFavObs_->setFixedHeight(txtFavObs_->fontMetrics().lineSpacing() * 3 + 12);
    lblCliObs_ = new QLabel(Frame2);
    lblCliObs_->setObjectName(QStringLiteral("lblCliObs"));
    lblCliObs_->setWordWrap(true);
    lblCliObs_->setStyleSheet(QStringLiteral("color: #8a1c1c;"));
    lblCliObs_->setToolTip(QStringLiteral("Observaciones del Cliente"));
    auto* gDatos = new QGridLayout(Frame2);
    direccion_->Coloca(*gDatos, 0);
    gDatos->addWidget(NuevaEtiqueta(Frame2, QStringLiteral("Forma de cobro"), cboFpago_), 4, 0);
    gDatos->addWidget(cboFpago_, 4, 1, 1, 4);
    gDatos->addWidget(cmdDir, 4, 5, 1, 3);
    gDatos->addWidget(NuevaEtiqueta(Frame2, QStringLiteral("Dto1"), Text1_[20]), 5, 0);
    gDatos->addWidget(Text1_[20], 5, 1);
    gDatos->addWidget(NuevaEtiqueta(Frame2, QStringLiteral("Dto2"), Text1_[22]), 5, 2);
    gDatos->addWidget(Text1_[22], 5, 3);
    gDatos->addWidget(NuevaEtiqueta(Frame2, QStringLiteral("A/A: "), Text1_[24]), 6, 0);
    gDatos->addWidget(Text1_[24], 6, 1, 1, 7);
    gDatos->addWidget(NuevaEtiqueta(Frame2, QStringLiteral("Observaciones"), txtFavObs_), 7, 0,
                      Qt::AlignTop);
    gDatos->addWidget(txtFavObs_, 7, 1, 1, 7);
    gDatos->addWidget(lblCliObs_, 8, 0, 1, 8);
    gDatos->setColumnStretch(3, 1);
    gDatos->setColumnStretch(5, 1);

    auto* fraAlbaranes = new QGroupBox(QStringLiteral("ALBARANES DE LA FACTURA"), this);
    auto* capaAlbaranes = new QVBoxLayout(fraAlbaranes);
    dbgAlbaranes_ = NuevaRejilla(fraAlbaranes, QStringLiteral("dbgAlbaranes"),
                                 {QStringLiteral("Albaran"), QStringLiteral("Fecha")});
    capaAlbaranes->addWidget(dbgAlbaranes_);
    Check1_ =
        NuevaCasilla(this, QStringLiteral("Check1"), QStringLiteral("Factura Rectificativa/Abono"));
    Check2_ = NuevaCasilla(this, QStringLiteral("Check2"), QStringLiteral("Factura a Origen"));
    QPushButton* cmdCopiar =
        NuevoBoton(this, QStringLiteral("cmdCopiar"), QStringLiteral("Grabar Nueva Factura"));
    QPushButton* cmdSalir =
        NuevoBoton(this, QStringLiteral("cmdSalir"), QStringLiteral("Cancelar Copia"));

    auto* cabecera = new QHBoxLayout;
    cabecera->addWidget(NuevaEtiqueta(this, QStringLiteral("&Serie"), Text1_[0]));
    cabecera->addWidget(Text1_[0]);
    cabecera->addWidget(cboSeries_);
    cabecera->addSpacing(12);
    cabecera->addWidget(NuevaEtiqueta(this, QStringLiteral("&Fecha"), Text1_[2]));
    cabecera->addWidget(Text1_[2]);
    cabecera->addStretch();
    auto* cliente = new QHBoxLayout;
    cliente->addWidget(NuevaEtiqueta(this, QStringLiteral("Cliente")));
    cliente->addWidget(lblCliente_, 1);
    cliente->addWidget(XPButton2);
    auto* casillas = new QHBoxLayout;
    casillas->addWidget(Check1_);
    casillas->addWidget(Check2_);
    casillas->addStretch();
    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(cmdCopiar);
    botones->addWidget(cmdSalir);
    auto* capa = new QVBoxLayout(this);
    capa->addLayout(cabecera);
    capa->addLayout(cliente);
    capa->addWidget(Frame2);
    capa->addWidget(fraAlbaranes, 1);
    capa->addLayout(casillas);
    capa->addLayout(botones);

    refresca();
    resize(640, 640);

    // Choosing a series from the list writes it in the box, which is what
    // the copy takes.
    QObject::connect(cboSeries_, &QComboBox::activated, this,
                     [this](int i) { Text1_[0]->setText(cboSeries_->itemText(i)); });
    QObject::connect(XPButton2, &QPushButton::clicked, this,
                     [this] { orden([this] { modelo_.XPButton2(); }); });
    QObject::connect(cmdDir, &QPushButton::clicked, this,
                     [this] { orden([this] { modelo_.cmdDir(); }); });
    QObject::connect(cmdCopiar, &QPushButton::clicked, this, [this] {
        bool hecha = false;
        orden([this, &hecha] { hecha = modelo_.cmdCopiar(); });
        if (hecha) {
            accept();
        }
    });
    QObject::connect(cmdSalir, &QPushButton::clicked, this, [this] {
        modelo_.cmdSalir();
        reject();
    });
}

VistaCopiaFacturas::~VistaCopiaFacturas() = default;

template <typename F> void VistaCopiaFacturas::orden(F&& f) {
    aModelo();
    try {
        f();
    } catch (const Error& e) {
        Ui().Mensaje(e.Mensaje(), Icono::Error, modelo_.Caption);
    }
    refresca();
}

void VistaCopiaFacturas::aModelo() {
    for (std::size_t i = 0; i < Text1_.size(); ++i) {
        if (Text1_[i]) {
            modelo_.Text1[i] = Text1_[i]->text();
        }
    }
    direccion_->AModelo(modelo_.direccion);
    modelo_.cboFpagoIndex = cboFpago_->currentIndex();
    modelo_.cboSeriesIndex = cboSeries_->currentIndex();
    modelo_.txtFavObs = txtFavObs_->toPlainText();
    modelo_.Check1 = Check1_->isChecked();
    modelo_.Check2 = Check2_->isChecked();
}

void VistaCopiaFacturas::refresca() {
    for (std::size_t i = 0; i < Text1_.size(); ++i) {
        if (Text1_[i]) {
            PonTexto(Text1_[i], modelo_.Text1[i]);
        }
    }
    direccion_->Refresca(modelo_.direccion);
    RellenaCombo(cboFpago_, modelo_.cboFpago, modelo_.cboFpagoIndex);
    RellenaCombo(cboSeries_, modelo_.cboSeries, modelo_.cboSeriesIndex);
    if (txtFavObs_->toPlainText() != modelo_.txtFavObs) {
        txtFavObs_->setPlainText(modelo_.txtFavObs);
    }
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
