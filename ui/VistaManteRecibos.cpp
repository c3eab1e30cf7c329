#include "VistaManteRecibos.h"

#include "Controles.h"

#include <Formato.h>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <frmManteRecibos.h>

namespace vk::ui {

namespace {

QLabel* nuevaEtiqueta(QWidget* padre, const QString& nombre) {
    auto* l = new QLabel(padre);
    l->setObjectName(nombre);
    l->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return l;
}

} // namespace

VistaManteRecibos::VistaManteRecibos(suite::frmManteRecibos& modelo, QWidget* padre)
    : QDialog(padre), modelo_(modelo) {
    setObjectName(QStringLiteral("frmManteRecibos"));
    setWindowTitle(modelo.Caption);

    lblFactura_ = nuevaEtiqueta(this, QStringLiteral("lblFactura"));
    lblFactura_->setStyleSheet(QStringLiteral("font-weight: bold;"));
    lblFechaFactura_ = nuevaEtiqueta(this, QStringLiteral("lblFechaFactura"));
    lblCliente_ = nuevaEtiqueta(this, QStringLiteral("lblCliente"));
    lblModalidad_ = nuevaEtiqueta(this, QStringLiteral("lblModalidad"));
    lblCuenta_ = nuevaEtiqueta(this, QStringLiteral("lblCuenta"));
    txtFVto_ = NuevaCaja(this, QStringLiteral("txtFVto"));
    txtFVto_->setPlaceholderText(QStringLiteral("dd/mm/aaaa"));
    txtFVto_->setMaximumWidth(110);
    txtImporte_ = NuevaCaja(this, QStringLiteral("txtImporte"));
    txtImporte_->setAlignment(Qt::AlignRight);
    txtImporte_->setMaximumWidth(130);
    cboSituacion_ = new QComboBox(this);
    cboSituacion_->setObjectName(QStringLiteral("cboSituacion"));
    txtObser_ = NuevaCaja(this, QStringLiteral("txtObser"));
    dbgRecibos_ = NuevaRejilla(
        this, QStringLiteral("dbgRecibos"),
        {QStringLiteral("Vencimiento"), QStringLiteral("Situación"), QStringLiteral("Importe")});
    // Only looked at: the tab chain goes from the remarks to the buttons.
    dbgRecibos_->setFocusPolicy(Qt::NoFocus);
    dbgRecibos_->setColumnWidth(0, 110);
    dbgRecibos_->setColumnWidth(1, 150);

    auto* datos = new QGridLayout;
    int f = 0;
    datos->addWidget(NuevaEtiqueta(this, QStringLiteral("Factura")), f, 0);
    datos->addWidget(lblFactura_, f, 1);
    datos->addWidget(NuevaEtiqueta(this, QStringLiteral("Fecha")), f, 2);
    datos->addWidget(lblFechaFactura_, f++, 3);
    datos->addWidget(NuevaEtiqueta(this, QStringLiteral("Cliente")), f, 0);
    datos->addWidget(lblCliente_, f++, 1, 1, 3);
    datos->addWidget(NuevaEtiqueta(this, QStringLiteral("Modalidad")), f, 0);
    datos->addWidget(lblModalidad_, f++, 1, 1, 3);
    datos->addWidget(NuevaEtiqueta(this, QStringLiteral("Cuenta")), f, 0);
    datos->addWidget(lblCuenta_, f++, 1, 1, 3);
    datos->addWidget(NuevaEtiqueta(this, QStringLiteral("&Vencimiento"), txtFVto_), f, 0);
    datos->addWidget(txtFVto_, f++, 1);
    datos->addWidget(NuevaEtiqueta(this, QStringLiteral("&Importe"), txtImporte_), f, 0);
    datos->addWidget(txtImporte_, f++, 1);
    datos->addWidget(NuevaEtiqueta(this, QStringLiteral("&Situación"), cboSituacion_), f, 0);
    datos->addWidget(cboSituacion_, f++, 1);
    datos->addWidget(NuevaEtiqueta(this, QStringLiteral("&Observaciones"), txtObser_), f, 0);
    datos->addWidget(txtObser_, f++, 1, 1, 3);
    datos->setColumnStretch(3, 1);

    cmdAceptar_ = NuevoBoton(this, QStringLiteral("cmdAceptar"), QStringLiteral("&Aceptar"));
    QPushButton* cmdCancelar =
        NuevoBoton(this, QStringLiteral("cmdCancelar"), QStringLiteral("&Cancelar"));
    auto* botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(cmdAceptar_);
    botones->addWidget(cmdCancelar);

    auto* capa = new QVBoxLayout(this);
    capa->addLayout(datos);
    capa->addWidget(NuevaEtiqueta(this, QStringLiteral("Otros recibos de la factura")));
    capa->addWidget(dbgRecibos_, 1);
    capa->addLayout(botones);

    QObject::connect(cmdAceptar_, &QPushButton::clicked, this, [this] { acepta(); });
    QObject::connect(cmdCancelar, &QPushButton::clicked, this, [this] {
        modelo_.cmdCancelar();
        reject();
    });

    refresca();
    // Small enough for any laptop screen.
    resize(560, 440);
    if (txtFVto_->isEnabled()) {
        txtFVto_->setFocus();
        txtFVto_->selectAll();
    } else {
        cmdCancelar->setFocus();
    }
}

void VistaManteRecibos::aModelo() {
    modelo_.txtFVto = txtFVto_->text();
    modelo_.txtImporte = txtImporte_->text();
    modelo_.cboSituacionIndex = cboSituacion_->currentIndex();
    modelo_.txtObser = txtObser_->text();
}

void VistaManteRecibos::refresca() {
    setWindowTitle(modelo_.Caption);
    lblFactura_->setText(modelo_.lblFactura);
    lblFechaFactura_->setText(modelo_.lblFechaFactura);
    lblCliente_->setText(modelo_.lblCliente);
    lblModalidad_->setText(modelo_.lblModalidad);
    lblCuenta_->setText(modelo_.lblCuenta);
    PonTexto(txtFVto_, modelo_.txtFVto);
    PonTexto(txtImporte_, modelo_.txtImporte);
    PonTexto(txtObser_, modelo_.txtObser);
    if (cboSituacion_->count() != modelo_.cboSituacion.size()) {
        cboSituacion_->clear();
        cboSituacion_->addItems(modelo_.cboSituacion);
    }
    cboSituacion_->setCurrentIndex(modelo_.cboSituacionIndex);

    dbgRecibos_->setRowCount(static_cast<int>(modelo_.dbgRecibos.size()));
    int r = 0;
    for (const suite::OtroRecibo& o : modelo_.dbgRecibos) {
        dbgRecibos_->setItem(r, 0, NuevaCelda(Format(o.Rec_FVto, QStringLiteral("dd/mm/yyyy"))));
        dbgRecibos_->setItem(r, 1, NuevaCelda(o.Situacion));
        dbgRecibos_->setItem(r, 2, NuevaCelda(Format(o.Rec_Importe, kMascaraImporte), true));
        ++r;
    }

    const bool escribe = !modelo_.SoloLectura();
    for (QWidget* w : {static_cast<QWidget*>(txtFVto_), static_cast<QWidget*>(txtImporte_),
                       static_cast<QWidget*>(cboSituacion_), static_cast<QWidget*>(txtObser_),
                       static_cast<QWidget*>(cmdAceptar_)}) {
        w->setEnabled(escribe);
    }
}

void VistaManteRecibos::acepta() {
    aModelo();
    // The model says why when it refuses; the dialog stays open on the
    // receipt as the model now holds it.
    if (modelo_.cmdAceptar()) {
        accept();
        return;
    }
    refresca();
    if (txtFVto_->isEnabled()) {
        txtFVto_->setFocus();
    }
}

void VistaManteRecibos::keyPressEvent(QKeyEvent* evento) {
    if (!TeclaFormulario(*this, *evento)) {
        QDialog::keyPressEvent(evento);
    }
}

} // namespace vk::ui
