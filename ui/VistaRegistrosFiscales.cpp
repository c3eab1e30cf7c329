#include "VistaRegistrosFiscales.h"

#include "Controles.h"

#include <ErrorBd.h>
#include <Interaccion.h>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <frmRegistrosFiscales.h>

namespace vk::ui {

VistaRegistrosFiscales::VistaRegistrosFiscales(frmRegistrosFiscales& modelo, QWidget* padre)
    : QDialog(padre), modelo_(modelo) {
    setObjectName(QStringLiteral("frmRegistrosFiscales"));
    setWindowTitle(modelo.Caption);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    lblEntorno_ = new QLabel(this);
    lblEstado_ = new QLabel(this);
    lblEstado_->setObjectName(QStringLiteral("lblEstado"));
    lblEstado_->setTextFormat(Qt::RichText);
    lblCadena_ = new QLabel(this);
    lblCadena_->setObjectName(QStringLiteral("lblCadena"));
    lblCadena_->setWordWrap(true);
    chkSoloRechazados_ = NuevaCasilla(this, QStringLiteral("chkSoloRechazados"),
                                      QStringLiteral("Solo los &rechazados"));
    dbgRegistros_ =
        NuevaRejilla(this, QStringLiteral("dbgRegistros"),
                     {QStringLiteral("Registro"), QStringLiteral("Tipo"), QStringLiteral("Factura"),
                      QStringLiteral("Fecha"), QStringLiteral("Clase"), QStringLiteral("Importe"),
                      QStringLiteral("Estado"), QStringLiteral("Motivo del rechazo"),
                      QStringLiteral("Generado")});
    dbgRegistros_->horizontalHeader()->setSectionResizeMode(7, QHeaderView::Stretch);
    QPushButton* cmdActualizar =
        NuevoBoton(this, QStringLiteral("cmdActualizar"), QStringLiteral("&Actualizar"));
    QPushButton* cmdVerificar =
        NuevoBoton(this, QStringLiteral("cmdVerificar"), QStringLiteral("&Verificar la cadena"));
    QPushButton* cmdSalir = NuevoBoton(this, QStringLiteral("cmdSalir"), QStringLiteral("&Salir"));

    auto* botones = new QHBoxLayout;
    botones->addWidget(chkSoloRechazados_);
    botones->addStretch();
    botones->addWidget(cmdActualizar);
    botones->addWidget(cmdVerificar);
    botones->addWidget(cmdSalir);
    auto* capa = new QVBoxLayout(this);
    capa->addWidget(lblEntorno_);
    capa->addWidget(lblEstado_);
    capa->addWidget(dbgRegistros_, 1);
    capa->addWidget(lblCadena_);
    capa->addLayout(botones);
    resize(980, 560);
    refresca();

    const auto orden = [this](auto&& f) {
        try {
            f();
        } catch (const Error& e) {
            Ui().Mensaje(e.Mensaje(), Icono::Error, modelo_.Caption);
        }
        refresca();
    };
    QObject::connect(cmdActualizar, &QPushButton::clicked, this,
                     [this, orden] { orden([this] { modelo_.cmdActualizar(); }); });
    QObject::connect(chkSoloRechazados_, &QCheckBox::toggled, this, [this, orden](bool marcada) {
        modelo_.chkSoloRechazados = marcada;
        orden([this] { modelo_.cmdActualizar(); });
    });
    QObject::connect(cmdVerificar, &QPushButton::clicked, this,
                     [this, orden] { orden([this] { modelo_.cmdVerificar(); }); });
    QObject::connect(cmdSalir, &QPushButton::clicked, this, [this] { reject(); });
}

void VistaRegistrosFiscales::refresca() {
    lblEntorno_->setText(modelo_.lblEntorno);
    lblEstado_->setText(QStringLiteral("<b>%1</b> registros: %2 pendientes de envío, %3 "
                                       "aceptados, %4 aceptados con errores, <b>%5 rechazados</b>")
                            .arg(modelo_.total)
                            .arg(modelo_.porEstado[0])
                            .arg(modelo_.porEstado[1])
                            .arg(modelo_.porEstado[2])
                            .arg(modelo_.porEstado[3]));
    lblCadena_->setText(modelo_.lblCadena);
    dbgRegistros_->setRowCount(static_cast<int>(modelo_.dbgRegistros.size()));
    int r = 0;
    for (const FilaRegistroFiscal& f : modelo_.dbgRegistros) {
        dbgRegistros_->setItem(r, 0, NuevaCelda(QString::number(f.id), true));
        dbgRegistros_->setItem(r, 1, NuevaCelda(f.tipo));
        dbgRegistros_->setItem(r, 2, NuevaCelda(f.factura));
        dbgRegistros_->setItem(r, 3, NuevaCelda(f.fecha));
        dbgRegistros_->setItem(r, 4, NuevaCelda(f.tipoFactura));
        dbgRegistros_->setItem(r, 5, NuevaCelda(f.importe, true));
        dbgRegistros_->setItem(r, 6, NuevaCelda(f.estado));
        dbgRegistros_->setItem(r, 7, NuevaCelda(f.motivo));
        dbgRegistros_->setItem(r, 8, NuevaCelda(f.fechaHora));
        ++r;
    }
    dbgRegistros_->resizeColumnsToContents();
}

void VistaRegistrosFiscales::keyPressEvent(QKeyEvent* evento) {
    if (!TeclaFormulario(*this, *evento)) {
        QDialog::keyPressEvent(evento);
    }
}

} // namespace vk::ui
