#include "VistaEdicionFacturas.h"

#include "CamposDireccion.h"
#include "Controles.h"

#include <ErrorBd.h>
#include <Formato.h>
#include <Interaccion.h>
#include <QAction>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>
#include <frmEdicionFacturas.h>
#include <optional>
#include <vector>

namespace vk::ui {

namespace {

using Boton = frmEdicionFacturas::Boton;

QRadioButton* nuevaOpcion(QWidget* padre, const QString& nombre, const QString& texto) {
    auto* r = new QRadioButton(texto, padre);
    r->setObjectName(nombre);
    return r;
}

QLabel* nuevaEtiqueta(QWidget* padre, const QString& nombre) {
    auto* l = new QLabel(padre);
    l->setObjectName(nombre);
    return l;
}

} // namespace

VistaEdicionFacturas::VistaEdicionFacturas(frmEdicionFacturas& modelo, QWidget* padre)
    : QDialog(padre), modelo_(modelo) {
    setObjectName(QStringLiteral("frmEdicionFacturas"));
    setWindowTitle(modelo.Caption);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    for (int i : {0, 1, 2, 4, 5, 6, 9, 10, 11, 12, 13, 20, 22, 24, 27, 40}) {
        Text1_[i] = NuevaCaja(this, NombreControl(QStringLiteral("Text1"), i));
    }

    // --- header: the invoice shown and the walk through its series ---
    Text1_[0]->setMaximumWidth(70);
    Text1_[1]->setMaximumWidth(90);
    Text1_[2]->setMaximumWidth(100);
    Text1_[2]->setPlaceholderText(QStringLiteral("dd/mm/aaaa"));
    const QString flechas[] = {QStringLiteral("|<"), QStringLiteral("<"), QStringLiteral(">"),
                               QStringLiteral(">|")};
    const QString ayudas[] = {QStringLiteral("Primera factura de la serie (Ctrl+Inicio)"),
                              QStringLiteral("Factura anterior (Re Pág)"),
                              QStringLiteral("Factura siguiente (Av Pág)"),
                              QStringLiteral("Última factura de la serie (Ctrl+Fin)")};
    const Boton botones[] = {Boton::Primera, Boton::Anterior, Boton::Siguiente, Boton::Ultima};
    auto* cabecera = new QHBoxLayout;
    cabecera->addWidget(NuevaEtiqueta(this, QStringLiteral("Serie"), Text1_[0]));
    cabecera->addWidget(Text1_[0]);
    cabecera->addWidget(NuevaEtiqueta(this, QStringLiteral("Número"), Text1_[1]));
    cabecera->addWidget(Text1_[1]);
    for (int i = 0; i < 4; ++i) {
        QPushButton* b = NuevoBoton(this, NombreControl(QStringLiteral("cmdNav"), i), flechas[i]);
        b->setToolTip(ayudas[i]);
        b->setMaximumWidth(36);
        // The walk never takes the focus from the box being typed in.
        b->setFocusPolicy(Qt::NoFocus);
        cabecera->addWidget(b);
        const Boton boton = botones[i];
        QObject::connect(b, &QPushButton::clicked, this,
                         [this, boton] { orden([this, boton] { modelo_.cmdNav(boton); }); });
    }
    cabecera->addSpacing(12);
    cabecera->addWidget(NuevaEtiqueta(this, QStringLiteral("Fecha"), Text1_[2]));
    cabecera->addWidget(Text1_[2]);
    cabecera->addSpacing(12);
    lblCliente_ = nuevaEtiqueta(this, QStringLiteral("lblCliente"));
    lblCliente_->setStyleSheet(QStringLiteral("font-weight: bold;"));
    lblCliente_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    cabecera->addWidget(lblCliente_, 1);
    cboSeries_ = NuevoCombo(this, QStringLiteral("cboSeries"));
    cboSeries_->setToolTip(QStringLiteral("Serie a la que pasa la factura al actualizarla"));
    cabecera->addWidget(NuevaEtiqueta(this, QStringLiteral("Cambiar a serie"), cboSeries_));
    cabecera->addWidget(cboSeries_);
    XPButton2_ = NuevoBoton(this, QStringLiteral("XPButton2"), QStringLiteral("Cambiar cliente"));
    cabecera->addWidget(XPButton2_);

    // --- the invoice's data ---
    Frame2_ = new QGroupBox(QStringLiteral("Datos de la factura"), this);
    Frame2_->setObjectName(QStringLiteral("Frame2"));
    auto* gDatos = new QGridLayout(Frame2_);
    direccion_ = std::make_unique<CamposDireccion>(Frame2_, Text1_);
    cboFpago_ = NuevoCombo(Frame2_, QStringLiteral("cboFpago"));
    for (int i : {20, 22}) {
        Text1_[i]->setMinimumWidth(60);
        Text1_[i]->setMaximumWidth(70);
    }
    for (int i : {20, 22}) {
        Text1_[i]->setAlignment(Qt::AlignRight);
    }
    QPushButton* cmdDir =
        NuevoBoton(Frame2_, QStringLiteral("cmdDir"), QStringLiteral("Otras direcciones"));
    txtRetencionNF_ = NuevaCaja(Frame2_, QStringLiteral("txtRetencionNF"));
    txtRetencionNF_->setMaximumWidth(70);
    txtRetencionNF_->setAlignment(Qt::AlignRight);
    Option1_[0] = nuevaOpcion(Frame2_, QStringLiteral("Option1_0"), QStringLiteral("Sobre Base "));
    Option1_[1] = nuevaOpcion(Frame2_, QStringLiteral("Option1_1"), QStringLiteral("Sobre Total"));
    // Its own group: the output options are radios of this dialog too.
    auto* grupoRetencion = new QButtonGroup(this);
    grupoRetencion->addButton(Option1_[0]);
    grupoRetencion->addButton(Option1_[1]);
    txtFavObs_ = new QPlainTextEdit(Frame2_);
    txtFavObs_->setObjectName(QStringLiteral("txtFavObs"));
    txtFavObs_->setTabChangesFocus(true);
    txtFavObs_->setFixedHeight(txtFavObs_->fontMetrics().lineSpacing() * 3 + 12);
    QPushButton* XPButton1 =
        NuevoBoton(Frame2_, QStringLiteral("XPButton1"),
                   QStringLiteral("Trasladar Observaciones de Facturación del Cliente"));
    lblCliObs_ = nuevaEtiqueta(Frame2_, QStringLiteral("lblCliObs"));
    lblCliObs_->setWordWrap(true);
    lblCliObs_->setStyleSheet(QStringLiteral("color: #8a1c1c;"));
    direccion_->Coloca(*gDatos, 0);
    gDatos->addWidget(NuevaEtiqueta(Frame2_, QStringLiteral("Forma de cobro"), cboFpago_), 4, 0);
    gDatos->addWidget(cboFpago_, 4, 1, 1, 4);
    gDatos->addWidget(cmdDir, 4, 5, 1, 3);
    gDatos->addWidget(NuevaEtiqueta(Frame2_, QStringLiteral("Dto1"), Text1_[20]), 5, 0);
    gDatos->addWidget(Text1_[20], 5, 1);
    gDatos->addWidget(NuevaEtiqueta(Frame2_, QStringLiteral("Dto2"), Text1_[22]), 5, 2);
    gDatos->addWidget(Text1_[22], 5, 3);
    gDatos->addWidget(NuevaEtiqueta(Frame2_, QStringLiteral("Cta. compensación"), Text1_[27]), 6,
                      0);
    gDatos->addWidget(Text1_[27], 6, 1, 1, 3);
    gDatos->addWidget(NuevaEtiqueta(Frame2_, QStringLiteral("A/A: "), Text1_[24]), 7, 0);
    gDatos->addWidget(Text1_[24], 7, 1, 1, 7);
    gDatos->addWidget(NuevaEtiqueta(Frame2_, QStringLiteral("Ret. no fiscal %"), txtRetencionNF_),
                      8, 0);
    gDatos->addWidget(txtRetencionNF_, 8, 1);
    gDatos->addWidget(Option1_[0], 8, 2, 1, 2);
    gDatos->addWidget(Option1_[1], 8, 4, 1, 2);
    gDatos->addWidget(NuevaEtiqueta(Frame2_, QStringLiteral("Observaciones"), txtFavObs_), 9, 0,
                      Qt::AlignTop);
    gDatos->addWidget(txtFavObs_, 9, 1, 1, 7);
    gDatos->addWidget(XPButton1, 10, 1, 1, 7, Qt::AlignLeft);
    gDatos->addWidget(lblCliObs_, 11, 0, 1, 8);
    gDatos->setRowStretch(12, 1);
    gDatos->setColumnStretch(3, 1);
    gDatos->setColumnStretch(5, 1);

    // --- the delivery notes it invoices ---
    auto* fraAlbaranes = new QGroupBox(QStringLiteral("Albaranes"), this);
    fraAlbaranes->setObjectName(QStringLiteral("fraAlbaranes"));
    auto* capaAlbaranes = new QVBoxLayout(fraAlbaranes);
    dbgAlbaranes_ = NuevaRejilla(fraAlbaranes, QStringLiteral("dbgAlbaranes"),
                                 {QStringLiteral("Albarán"), QStringLiteral("Fecha"),
                                  QStringLiteral("Descripción"), QStringLiteral("Cantidad"),
                                  QStringLiteral("Precio"), QStringLiteral("Importe")});
    // The description takes what the figures leave, so the amount stays in view.
    const int anchosAlbaranes[] = {70, 80, 0, 70, 75, 90};
    for (int c = 0; c < 6; ++c) {
        if (anchosAlbaranes[c] > 0) {
            dbgAlbaranes_->setColumnWidth(c, anchosAlbaranes[c]);
        }
    }
    dbgAlbaranes_->horizontalHeader()->setStretchLastSection(false);
    dbgAlbaranes_->horizontalHeader()->setSectionResizeMode(2, QHeaderView::Stretch);
    dbgAlbaranes_->setMinimumHeight(120);
    dbgAlbaranes_->setContextMenuPolicy(Qt::CustomContextMenu);
    Frame3_ = new QWidget(fraAlbaranes);
    Frame3_->setObjectName(QStringLiteral("Frame3"));
    auto* capaNota = new QHBoxLayout(Frame3_);
    capaNota->setContentsMargins(0, 0, 0, 0);
    Text1_[5]->setMinimumWidth(40);
    Text1_[5]->setMaximumWidth(50);
    Text1_[5]->setToolTip(QStringLiteral("Serie del albarán"));
    Text1_[6]->setMinimumWidth(60);
    Text1_[6]->setMaximumWidth(80);
    Text1_[6]->setToolTip(QStringLiteral("Número del albarán"));
    QPushButton* cmdAnadir =
        NuevoBoton(Frame3_, QStringLiteral("cmdAnadir"), QStringLiteral("Añadir Albaran"));
    QPushButton* cmdQuitar =
        NuevoBoton(Frame3_, QStringLiteral("cmdQuitar"), QStringLiteral("Eliminar albaran"));
    QPushButton* cmdBuscaAlbaranes = NuevoBoton(Frame3_, QStringLiteral("cmdBuscaAlbaranes"),
                                                QStringLiteral("Buscar Albaranes"));
    QPushButton* cmdEditar =
        NuevoBoton(Frame3_, QStringLiteral("cmdEditar"), QStringLiteral("Editar Albaran"));
    capaNota->addWidget(NuevaEtiqueta(Frame3_, QStringLiteral("Albarán"), Text1_[5]));
    capaNota->addWidget(Text1_[5]);
    capaNota->addWidget(Text1_[6]);
    capaNota->addWidget(cmdAnadir);
    capaNota->addWidget(cmdQuitar);
    capaNota->addWidget(cmdBuscaAlbaranes);
    capaNota->addWidget(cmdEditar);
    capaNota->addStretch();
    capaAlbaranes->addWidget(dbgAlbaranes_, 1);
    capaAlbaranes->addWidget(Frame3_);

    mnuTransporte_ = new QMenu(this);
    mnuTransporte_->setObjectName(QStringLiteral("mnuTransporte"));
    const struct {
        const char* nombre;
        QString texto;
        void (frmEdicionFacturas::*orden)();
    } entradas[] = {{"mnu01", QStringLiteral("Ver tramo"), &frmEdicionFacturas::mnu01},
                    {"mnu03", QStringLiteral("Viajes del cliente"), &frmEdicionFacturas::mnu03},
                    {"mnu04", QStringLiteral("Añadir tramo"), &frmEdicionFacturas::mnu04},
                    {"mnu05", QStringLiteral("Eliminar tramo"), &frmEdicionFacturas::mnu05}};
    for (const auto& e : entradas) {
        QAction* a = mnuTransporte_->addAction(e.texto);
        a->setObjectName(QString::fromLatin1(e.nombre));
        const auto metodo = e.orden;
        QObject::connect(a, &QAction::triggered, this,
                         [this, metodo] { orden([this, metodo] { (modelo_.*metodo)(); }); });
    }

    // --- its receipts ---
    auto* fraRecibos = new QGroupBox(QStringLiteral("Recibos"), this);
    fraRecibos->setObjectName(QStringLiteral("fraRecibos"));
    auto* capaRecibos = new QVBoxLayout(fraRecibos);
    dbgRecibos_ = NuevaRejilla(fraRecibos, QStringLiteral("dbgRecibos"),
                               {QStringLiteral("Fecha Vencimiento"),
                                QStringLiteral("Modalidad cobro"), QStringLiteral("Situacion"),
                                QStringLiteral("Importe"), QStringLiteral("Observaciones")});
    const int anchosRecibos[] = {115, 150, 90, 90};
    for (int c = 0; c < 4; ++c) {
        dbgRecibos_->setColumnWidth(c, anchosRecibos[c]);
    }
    dbgRecibos_->setMinimumHeight(80);
    capaRecibos->addWidget(dbgRecibos_);

    // --- totals ---
    Frame5_ = new QGroupBox(QStringLiteral("Totales"), this);
    Frame5_->setObjectName(QStringLiteral("Frame5"));
    auto* gTotales = new QGridLayout(Frame5_);
    lblRetencion_ = nuevaEtiqueta(Frame5_, QStringLiteral("lblRetencion"));
    const struct {
        int caja;
        QString texto;
    } totales[] = {{40, QStringLiteral("Bruto")},   {9, QStringLiteral("Descuentos")},
                   {10, QStringLiteral("Bases")},   {11, QStringLiteral("IVA")},
                   {12, QStringLiteral("Recargo")}, {13, QString()},
                   {4, QStringLiteral("Total")}};
    for (int c = 0; c < 7; ++c) {
        QLineEdit* caja = Text1_[totales[c].caja];
        caja->setReadOnly(true);
        caja->setFocusPolicy(Qt::NoFocus);
        caja->setAlignment(Qt::AlignRight);
        caja->setMinimumWidth(80);
        QLabel* l =
            totales[c].caja == 13 ? lblRetencion_ : NuevaEtiqueta(Frame5_, totales[c].texto, caja);
        l->setBuddy(caja);
        gTotales->addWidget(l, 0, c);
        gTotales->addWidget(caja, 1, c);
    }
    Text1_[4]->setStyleSheet(QStringLiteral("font-weight: bold;"));
    Check1_ = NuevaCasilla(Frame5_, QStringLiteral("Check1"), QStringLiteral("Total Manual"));
    Check2_ = NuevaCasilla(Frame5_, QStringLiteral("Check2"), QStringLiteral("Total RCA"));
    Check2_->setToolTip(
        QStringLiteral("Activar esta factura como Rectificativa para concurso de acreedores"));
    Check3_ = NuevaCasilla(Frame5_, QStringLiteral("Check3"),
                           QStringLiteral("Recibos domiciliados a cartera"));
    gTotales->addWidget(Check1_, 2, 0, 1, 2);
    gTotales->addWidget(Check2_, 2, 2, 1, 2);
    gTotales->addWidget(Check3_, 2, 4, 1, 3);

    auto* Frame8 = new QGroupBox(QStringLiteral("Totales a Cobrar"), this);
    Frame8->setObjectName(QStringLiteral("Frame8"));
    auto* gCobrar = new QGridLayout(Frame8);
    lblRetencionNF_ = nuevaEtiqueta(Frame8, QStringLiteral("lblRetencionNF"));
    lblLiquido_ = nuevaEtiqueta(Frame8, QStringLiteral("lblLiquido"));
    lblLiquido_->setStyleSheet(QStringLiteral("font-weight: bold;"));
    for (QLabel* l : {lblRetencionNF_, lblLiquido_}) {
        l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    gCobrar->addWidget(new QLabel(QStringLiteral("Retención no fiscal"), Frame8), 0, 0);
    gCobrar->addWidget(lblRetencionNF_, 0, 1);
    gCobrar->addWidget(new QLabel(QStringLiteral("Líquido"), Frame8), 1, 0);
    gCobrar->addWidget(lblLiquido_, 1, 1);
    gCobrar->setRowStretch(2, 1);

    // --- output ---
    auto* fraSalida = new QGroupBox(QStringLiteral("Salida"), this);
    fraSalida->setObjectName(QStringLiteral("fraSalida"));
    auto* gSalida = new QGridLayout(fraSalida);
    const QString salidas[] = {QStringLiteral("Pantalla"), QStringLiteral("Impresora"),
                               QStringLiteral("Archivo PDF a disco"),
                               QStringLiteral("Archivo PDF por Email")};
    auto* grupoSalida = new QButtonGroup(this);
    for (int i = 0; i < 4; ++i) {
        optSalida_[i] =
            nuevaOpcion(fraSalida, NombreControl(QStringLiteral("optSalida"), i), salidas[i]);
        grupoSalida->addButton(optSalida_[i]);
        gSalida->addWidget(optSalida_[i], i / 2, i % 2);
    }
    ChKCopia_ = NuevaCasilla(fraSalida, QStringLiteral("ChKCopia"), QStringLiteral("Copia"));
    QPushButton* cmdEmitir =
        NuevoBoton(fraSalida, QStringLiteral("cmdEmitir"), QStringLiteral("&Emitir Factura"));
    gSalida->addWidget(ChKCopia_, 2, 0);
    gSalida->addWidget(cmdEmitir, 2, 1);

    // --- commands on the whole invoice ---
    cmdActualiza_ = NuevoBoton(this, QStringLiteral("cmdActualiza"), QStringLiteral("&Actualizar"));
    cmdBorrar_ = NuevoBoton(this, QStringLiteral("cmdBorrar"), QStringLiteral("&Borrar Factura"));
    QPushButton* cmdCopiar =
        NuevoBoton(this, QStringLiteral("cmdCopiar"), QStringLiteral("Copiar Factura"));
    QPushButton* cmdSalir = NuevoBoton(this, QStringLiteral("cmdSalir"), QStringLiteral("&Salir"));
    auto* pie = new QHBoxLayout;
    pie->addWidget(cmdActualiza_);
    pie->addWidget(cmdBorrar_);
    pie->addWidget(cmdCopiar);
    pie->addStretch();
    pie->addWidget(cmdSalir);

    auto* derecha = new QVBoxLayout;
    derecha->addWidget(fraAlbaranes, 3);
    derecha->addWidget(fraRecibos, 2);
    auto* centro = new QHBoxLayout;
    centro->addWidget(Frame2_, 4);
    centro->addLayout(derecha, 6);
    auto* abajo = new QHBoxLayout;
    abajo->addWidget(Frame5_, 5);
    abajo->addWidget(Frame8, 2);
    abajo->addWidget(fraSalida, 3);
    auto* capa = new QVBoxLayout(this);
    capa->addLayout(cabecera);
    capa->addLayout(centro, 1);
    capa->addLayout(abajo);
    capa->addLayout(pie);

    refresca();
    // Small enough for a 1366x768 laptop with its panel and title bar.
    resize(1260, 680);

    // --- edits write their member ---
    for (std::size_t i = 0; i < Text1_.size(); ++i) {
        if (Text1_[i]) {
            QObject::connect(Text1_[i], &QLineEdit::textChanged, this, [this, i](const QString& t) {
                if (!copiando_) {
                    modelo_.Text1[i] = t;
                }
            });
        }
    }
    QObject::connect(txtFavObs_, &QPlainTextEdit::textChanged, this, [this] {
        if (!copiando_) {
            modelo_.txtFavObs = txtFavObs_->toPlainText();
        }
    });
    QObject::connect(txtRetencionNF_, &QLineEdit::textChanged, this, [this](const QString& t) {
        if (!copiando_) {
            modelo_.txtRetencionNF = t;
        }
    });
    for (int i = 0; i < 2; ++i) {
        QObject::connect(Option1_[i], &QRadioButton::toggled, this, [this, i](bool marcada) {
            if (!copiando_ && marcada) {
                modelo_.Option1 = i;
            }
        });
    }
    for (int i = 0; i < 4; ++i) {
        QObject::connect(optSalida_[i], &QRadioButton::toggled, this, [this, i](bool marcada) {
            if (!copiando_ && marcada) {
                modelo_.optSalida = i;
            }
        });
    }
    const struct {
        QComboBox* combo;
        int* indice;
    } combos[] = {{direccion_->cboTipoVia, &modelo_.direccion.cboTipoViaIndex},
                  {direccion_->cboPais, &modelo_.direccion.cboPaisIndex},
                  {direccion_->cboProvincias, &modelo_.direccion.cboProvinciasIndex},
                  {cboFpago_, &modelo_.cboFpagoIndex},
                  {cboSeries_, &modelo_.cboSeriesIndex}};
    for (const auto& c : combos) {
        int* const indice = c.indice;
        QObject::connect(c.combo, &QComboBox::currentIndexChanged, this, [this, indice](int i) {
            if (!copiando_) {
                *indice = i;
            }
        });
    }
    QObject::connect(Check3_, &QCheckBox::toggled, this, [this](bool marcada) {
        if (!copiando_) {
            modelo_.Check3 = marcada;
        }
    });
    QObject::connect(ChKCopia_, &QCheckBox::toggled, this, [this](bool marcada) {
        if (!copiando_) {
            modelo_.ChKCopia = marcada;
        }
    });
    QObject::connect(Check1_, &QCheckBox::toggled, this, [this](bool marcada) {
        if (!copiando_) {
            modelo_.Check1 = marcada;
            orden([this] { modelo_.Check1_Click(); });
        }
    });
    QObject::connect(Check2_, &QCheckBox::toggled, this, [this](bool marcada) {
        if (!copiando_) {
            modelo_.Check2 = marcada;
            orden([this] { modelo_.Check2_Click(); });
        }
    });
    // Only a typed change counts as leaving the box, as losing the focus did.
    QObject::connect(Text1_[1], &QLineEdit::editingFinished, this, [this] {
        if (!copiando_ && Text1_[1]->isModified()) {
            Text1_[1]->setModified(false);
            orden([this] { modelo_.Text1_1_LostFocus(); });
        }
    });
    QObject::connect(Text1_[4], &QLineEdit::editingFinished, this, [this] {
        if (!copiando_ && Text1_[4]->isModified()) {
            Text1_[4]->setModified(false);
            orden([this] { modelo_.Text1_4_LostFocus(); });
        }
    });

    // --- grids ---
    QObject::connect(dbgAlbaranes_, &QTableWidget::currentCellChanged, this, [this](int fila) {
        if (!copiando_) {
            modelo_.filaAlbaran = fila;
        }
    });
    QObject::connect(dbgAlbaranes_, &QTableWidget::cellDoubleClicked, this, [this](int fila) {
        orden([this, fila] { modelo_.dbgAlbaranes_DblClick(fila); });
    });
    QObject::connect(dbgRecibos_, &QTableWidget::cellDoubleClicked, this, [this](int fila) {
        orden([this, fila] { modelo_.dbgRecibos_DblClick(fila); });
    });
    QObject::connect(dbgAlbaranes_, &QWidget::customContextMenuRequested, this,
                     [this](const QPoint& donde) {
                         if (!modelo_.mnuTransporte_Visible) {
                             return;
                         }
                         // The entries work on the line under the pointer.
                         const int fila = dbgAlbaranes_->rowAt(donde.y());
                         if (fila >= 0) {
                             dbgAlbaranes_->setCurrentCell(fila, 0);
                         }
                         mnuTransporte_->exec(dbgAlbaranes_->viewport()->mapToGlobal(donde));
                     });

    // --- commands ---
    const struct {
        QPushButton* boton;
        void (frmEdicionFacturas::*orden)();
    } ordenes[] = {{cmdActualiza_, &frmEdicionFacturas::cmdActualiza},
                   {cmdBorrar_, &frmEdicionFacturas::cmdBorrar},
                   {cmdAnadir, &frmEdicionFacturas::cmdAñadir},
                   {cmdQuitar, &frmEdicionFacturas::cmdQuitar},
                   {cmdBuscaAlbaranes, &frmEdicionFacturas::cmdBuscaAlbaranes},
                   {cmdEditar, &frmEdicionFacturas::cmdEditar},
                   {XPButton1, &frmEdicionFacturas::XPButton1},
                   {XPButton2_, &frmEdicionFacturas::XPButton2},
                   {cmdDir, &frmEdicionFacturas::cmdDir},
                   {cmdEmitir, &frmEdicionFacturas::cmdEmitir},
                   {cmdCopiar, &frmEdicionFacturas::cmdCopiar}};
    for (const auto& o : ordenes) {
        const auto metodo = o.orden;
        QObject::connect(o.boton, &QPushButton::clicked, this,
                         [this, metodo] { orden([this, metodo] { (modelo_.*metodo)(); }); });
    }
    QObject::connect(cmdSalir, &QPushButton::clicked, this, [this] { reject(); });

    for (QWidget* w : findChildren<QWidget*>()) {
        // An open menu keeps its own keys.
        if (!qobject_cast<QMenu*>(w)) {
            w->installEventFilter(this);
        }
    }
}

VistaEdicionFacturas::~VistaEdicionFacturas() = default;

template <typename F> void VistaEdicionFacturas::orden(F&& f) {
    aModelo();
    try {
        f();
    } catch (const Error& e) {
        Ui().Mensaje(e.Mensaje(), Icono::Error, modelo_.Caption);
    }
    refresca();
}

void VistaEdicionFacturas::aModelo() {
    for (std::size_t i = 0; i < Text1_.size(); ++i) {
        if (Text1_[i]) {
            modelo_.Text1[i] = Text1_[i]->text();
        }
    }
    if (txtFavObs_->toPlainText() != obsMostradas_) {
        modelo_.txtFavObs = txtFavObs_->toPlainText();
    }
    modelo_.txtRetencionNF = txtRetencionNF_->text();
    modelo_.Option1 = Option1_[1]->isChecked() ? 1 : 0;
    direccion_->AModelo(modelo_.direccion);
    modelo_.cboFpagoIndex = cboFpago_->currentIndex();
    modelo_.cboSeriesIndex = cboSeries_->currentIndex();
    modelo_.Check1 = Check1_->isChecked();
    modelo_.Check2 = Check2_->isChecked();
    modelo_.Check3 = Check3_->isChecked();
    modelo_.ChKCopia = ChKCopia_->isChecked();
    for (int i = 0; i < 4; ++i) {
        if (optSalida_[i]->isChecked()) {
            modelo_.optSalida = i;
        }
    }
    modelo_.filaAlbaran = dbgAlbaranes_->currentRow();
}

void VistaEdicionFacturas::refresca() {
    copiando_ = true;
    std::vector<QSignalBlocker> bloqueos;
    for (QWidget* w : findChildren<QWidget*>()) {
        bloqueos.emplace_back(w);
    }
    setWindowTitle(modelo_.Caption);
    for (std::size_t i = 0; i < Text1_.size(); ++i) {
        if (Text1_[i]) {
            PonTexto(Text1_[i], modelo_.Text1[i]);
        }
    }
    if (txtFavObs_->toPlainText() != modelo_.txtFavObs) {
        txtFavObs_->setPlainText(modelo_.txtFavObs);
    }
    obsMostradas_ = txtFavObs_->toPlainText();
    PonTexto(txtRetencionNF_, modelo_.txtRetencionNF);
    Option1_[modelo_.Option1 == 1 ? 1 : 0]->setChecked(true);
    direccion_->Refresca(modelo_.direccion);
    RellenaCombo(cboFpago_, modelo_.cboFpago, modelo_.cboFpagoIndex);
    RellenaCombo(cboSeries_, modelo_.cboSeries, modelo_.cboSeriesIndex);
    Check1_->setChecked(modelo_.Check1);
    Check2_->setChecked(modelo_.Check2);
    Check3_->setChecked(modelo_.Check3);
    ChKCopia_->setChecked(modelo_.ChKCopia);
    if (modelo_.optSalida >= 0 && modelo_.optSalida < 4) {
        optSalida_[modelo_.optSalida]->setChecked(true);
    }
    lblCliente_->setText(modelo_.lblCliente);
    lblCliObs_->setText(modelo_.lblCliObs);
    lblRetencion_->setText(modelo_.lblRetencion);
    lblRetencionNF_->setText(modelo_.lblRetencionNF);
    lblLiquido_->setText(modelo_.lblLiquido);

    // The total is typed only while it is manual.
    Text1_[4]->setReadOnly(!modelo_.Text1_4_Enabled);
    Text1_[4]->setFocusPolicy(modelo_.Text1_4_Enabled ? Qt::StrongFocus : Qt::NoFocus);
    Frame2_->setEnabled(modelo_.Frame2_Enabled);
    Frame3_->setEnabled(modelo_.Frame3_Enabled);
    Frame5_->setEnabled(modelo_.Frame5_Enabled);
    cmdActualiza_->setEnabled(modelo_.cmdActualiza_Enabled);
    cmdBorrar_->setEnabled(modelo_.cmdBorrar_Enabled);
    XPButton2_->setEnabled(modelo_.XPButton2_Enabled);
    // The date and the new series are written only by "Actualizar".
    Text1_[2]->setEnabled(modelo_.cmdActualiza_Enabled);
    cboSeries_->setEnabled(modelo_.cmdActualiza_Enabled);
    for (const char* nombre : {"mnu04", "mnu05"}) {
        if (auto* a = mnuTransporte_->findChild<QAction*>(QString::fromLatin1(nombre))) {
            a->setEnabled(!modelo_.bSoloLectura);
        }
    }
    rellenaAlbaranes();
    rellenaRecibos();
    copiando_ = false;
}

void VistaEdicionFacturas::rellenaAlbaranes() {
    dbgAlbaranes_->setRowCount(static_cast<int>(modelo_.dbgAlbaranes.size()));
    int r = 0;
    for (const LineaAlbaranFactura& l : modelo_.dbgAlbaranes) {
        dbgAlbaranes_->setItem(r, 0, NuevaCelda(l.albaran));
        dbgAlbaranes_->setItem(r, 1, NuevaCelda(Format(l.Cav_Fecha, QStringLiteral("dd/mm/yyyy"))));
        dbgAlbaranes_->setItem(r, 2, NuevaCelda(l.Lav_Des.trimmed()));
        dbgAlbaranes_->setItem(r, 3,
                               NuevaCelda(Format(l.Lav_Cantidad, QStringLiteral("#0.00")), true));
        dbgAlbaranes_->setItem(r, 4,
                               NuevaCelda(Format(l.Lav_Precio, QStringLiteral("#,##0.00")), true));
        dbgAlbaranes_->setItem(r, 5, NuevaCelda(Format(l.Lav_Importe, kMascaraImporte), true));
        ++r;
    }
    const int fila = modelo_.filaAlbaran;
    if (fila >= 0 && fila < dbgAlbaranes_->rowCount()) {
        dbgAlbaranes_->setCurrentCell(fila, 0);
    } else {
        dbgAlbaranes_->setCurrentCell(-1, -1);
    }
}

void VistaEdicionFacturas::rellenaRecibos() {
    dbgRecibos_->setRowCount(static_cast<int>(modelo_.dbgRecibos.size()));
    int r = 0;
    for (const ReciboFactura& rec : modelo_.dbgRecibos) {
        dbgRecibos_->setItem(r, 0, NuevaCelda(Format(rec.Rec_Fvto, QStringLiteral("dd/mm/yyyy"))));
        QTableWidgetItem* modalidad = NuevaCelda(rec.Modalidad.trimmed());
        // The bank account would crowd the grid; it shows on hovering.
        modalidad->setToolTip(rec.ccc);
        dbgRecibos_->setItem(r, 1, modalidad);
        dbgRecibos_->setItem(r, 2, NuevaCelda(rec.Situacion.trimmed()));
        dbgRecibos_->setItem(r, 3, NuevaCelda(Format(rec.Rec_Importe, kMascaraImporte), true));
        dbgRecibos_->setItem(r, 4, NuevaCelda(rec.Rec_Obser.trimmed()));
        ++r;
    }
}

bool VistaEdicionFacturas::teclaNavegacion(const QKeyEvent& tecla) {
    const Qt::KeyboardModifiers mods =
        tecla.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier | Qt::AltModifier);
    std::optional<Boton> boton;
    if (mods == Qt::NoModifier && tecla.key() == Qt::Key_PageUp) {
        boton = Boton::Anterior;
    } else if (mods == Qt::NoModifier && tecla.key() == Qt::Key_PageDown) {
        boton = Boton::Siguiente;
    } else if (mods == Qt::ControlModifier && tecla.key() == Qt::Key_Home) {
        boton = Boton::Primera;
    } else if (mods == Qt::ControlModifier && tecla.key() == Qt::Key_End) {
        boton = Boton::Ultima;
    }
    if (!boton) {
        return false;
    }
    orden([this, b = *boton] { modelo_.cmdNav(b); });
    return true;
}

bool VistaEdicionFacturas::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() == QEvent::KeyPress && teclaNavegacion(*static_cast<QKeyEvent*>(evento))) {
        return true;
    }
    return QDialog::eventFilter(objeto, evento);
}

void VistaEdicionFacturas::keyPressEvent(QKeyEvent* evento) {
    if (!teclaNavegacion(*evento) && !TeclaFormulario(*this, *evento)) {
        QDialog::keyPressEvent(evento);
    }
}

} // namespace vk::ui
