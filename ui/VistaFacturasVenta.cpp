#include "VistaFacturasVenta.h"

#include "Controles.h"
#include "InteraccionQt.h"
#include "ModeloGrupos.h"

#include <ErrorBd.h>
#include <Formato.h>
#include <Interaccion.h>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTableWidget>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <frmFacturasVenta.h>

namespace vk::ui {

VistaFacturasVenta::VistaFacturasVenta(frmFacturasVenta& modelo, QWidget* padre)
    : QDialog(padre), modelo_(modelo) {
    setObjectName(QStringLiteral("frmFacturasVenta"));
    setWindowTitle(modelo.Caption);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    for (int i = 0; i < static_cast<int>(Text1_.size()); ++i) {
        // Text1(12) and Text1(13) never existed on the form; they stay hidden.
        Text1_[i] = NuevaCaja(this, NombreControl(QStringLiteral("Text1"), i));
        if (i == 12 || i == 13) {
            Text1_[i]->hide();
        }
    }
    for (int i = 1; i <= 5; ++i) {
        Check_[i] = NuevaCasilla(this, QStringLiteral("Check%1").arg(i), QString());
    }
    Check_[1]->setText(QStringLiteral("Incluir Albaranes a Cero"));
    Check_[2]->setText(
        QStringLiteral("Observaciones en la factura.  Marcada permanece entre facturas"));
    Check_[3]->setText(QStringLiteral("Recibos domiciliados a cartera"));
    Check_[3]->setEnabled(false); // shown only: the run never reads it back
    Check_[4]->setText(QStringLiteral("Facturar todos los clientes"));
    Check_[5]->setText(QStringLiteral("Aplicar estos dtos"));
    chkGroupAgentes_ = NuevaCasilla(this, QStringLiteral("chkGroupAgentes"),
                                    QStringLiteral("NO Agupar por Agentes"));

    // --- selection of the notes ---
    auto* marcoFiltro = new QGroupBox(QStringLiteral("Selección de albaranes"), this);
    marcoFiltro->setObjectName(QStringLiteral("Frame1"));
    auto* gFiltro = new QGridLayout(marcoFiltro);
    Text1_[0]->setMaximumWidth(90);
    Text1_[0]->setToolTip(QStringLiteral("Código de cliente; F1 abre la búsqueda"));
    Text1_[1]->setReadOnly(true);
    Text1_[1]->setFocusPolicy(Qt::NoFocus);
    for (int i : {2, 3}) {
        Text1_[i]->setMaximumWidth(100);
        Text1_[i]->setPlaceholderText(QStringLiteral("dd/mm/aaaa"));
    }
    Text1_[4]->setMaximumWidth(60);
    QPushButton* cmdBuscar = NuevoBoton(marcoFiltro, QStringLiteral("cmdBuscar"),
                                        QStringLiteral("&Buscar Albaranes facturables"));
    gFiltro->addWidget(NuevaEtiqueta(marcoFiltro, QStringLiteral("Cliente"), Text1_[0]), 0, 0);
    gFiltro->addWidget(Text1_[0], 0, 1);
    gFiltro->addWidget(Text1_[1], 0, 2, 1, 5);
    gFiltro->addWidget(NuevaEtiqueta(marcoFiltro, QStringLiteral("Desde Fecha"), Text1_[2]), 1, 0);
    gFiltro->addWidget(Text1_[2], 1, 1);
    gFiltro->addWidget(NuevaEtiqueta(marcoFiltro, QStringLiteral("Hasta Fecha"), Text1_[3]), 1, 2);
    gFiltro->addWidget(Text1_[3], 1, 3);
    gFiltro->addWidget(NuevaEtiqueta(marcoFiltro, QStringLiteral("Serie Alb."), Text1_[4]), 1, 4);
    gFiltro->addWidget(Text1_[4], 1, 5);
    gFiltro->addWidget(Check_[1], 2, 0, 1, 3);
    gFiltro->addWidget(chkGroupAgentes_, 2, 3, 1, 3);
    gFiltro->addWidget(cmdBuscar, 0, 7, 3, 1);
    gFiltro->setColumnStretch(6, 1);

    // --- the groups ---
    grupos_ = new ModeloGrupos(modelo_, this);
    dbgCli_ = NuevaRejilla(this, QStringLiteral("dbgCli"), grupos_);
    const int anchos[] = {220, 170, 58, 58, 128, 122, 58, 120};
    for (int c = 0; c < 8; ++c) {
        dbgCli_->setColumnWidth(c, anchos[c]);
    }
    dbgCli_->setMinimumHeight(140);

    // --- the notes of the current group and their lines ---
    Label1_1_ = new QLabel(this);
    Label1_1_->setObjectName(QStringLiteral("Label1_1"));
    ListView1_ = new QTreeWidget(this);
    ListView1_->setObjectName(QStringLiteral("ListView1"));
    ListView1_->setRootIsDecorated(false);
    ListView1_->setHeaderLabels({QStringLiteral("Albarán"), QStringLiteral("Fecha"),
                                 QStringLiteral("Importe"), QStringLiteral("Agente")});
    ListView1_->setColumnWidth(0, 110);
    ListView1_->setColumnWidth(1, 90);
    ListView1_->setColumnWidth(2, 90);
    QPushButton* cmdMarcar = NuevoBoton(this, QStringLiteral("cmdMarcar"),
                                        QStringLiteral("&Seleccionar todos los albaranes"));
    lblLineas_ = new QLabel(this);
    lblLineas_->setObjectName(QStringLiteral("lblLineas"));
    dbgLineas_ =
        NuevaRejilla(this, QStringLiteral("dbgLineas"),
                     {QStringLiteral("Descripcion"), QStringLiteral("Cantidad"),
                      QStringLiteral("Precio"), QStringLiteral("Dto1"), QStringLiteral("Dto2"),
                      QStringLiteral("Importe"), QStringLiteral("Orden")});
    dbgLineas_->setColumnWidth(0, 200);
    for (int c = 1; c < 7; ++c) {
        dbgLineas_->setColumnWidth(c, c == 5 ? 90 : 62);
    }
    auto* izquierda = new QVBoxLayout;
    izquierda->addWidget(Label1_1_);
    izquierda->addWidget(ListView1_, 1);
    izquierda->addWidget(cmdMarcar);
    auto* derecha = new QVBoxLayout;
    derecha->addWidget(lblLineas_);
    derecha->addWidget(dbgLineas_, 1);
    auto* detalle = new QHBoxLayout;
    detalle->addLayout(izquierda, 2);
    detalle->addLayout(derecha, 3);

    // --- the invoice ---
    auto* marcoFactura = new QGroupBox(QStringLiteral("Datos de la factura"), this);
    marcoFactura->setObjectName(QStringLiteral("Frame2"));
    auto* gFactura = new QGridLayout(marcoFactura);
    Text1_[5]->setMaximumWidth(60);
    Text1_[6]->setMaximumWidth(100);
    cboFpago_ = new QComboBox(marcoFactura);
    cboFpago_->setObjectName(QStringLiteral("cboFpago"));
    cboDir_ = new QComboBox(marcoFactura);
    cboDir_->setObjectName(QStringLiteral("cboDir"));
    gFactura->addWidget(NuevaEtiqueta(marcoFactura, QStringLiteral("Serie"), Text1_[5]), 0, 0);
    gFactura->addWidget(Text1_[5], 0, 1);
    gFactura->addWidget(NuevaEtiqueta(marcoFactura, QStringLiteral("Fecha Factura"), Text1_[6]), 0,
                        2);
    gFactura->addWidget(Text1_[6], 0, 3);
    gFactura->addWidget(NuevaEtiqueta(marcoFactura, QStringLiteral("Forma de cobro"), cboFpago_), 1,
                        0);
    gFactura->addWidget(cboFpago_, 1, 1, 1, 3);
    gFactura->addWidget(NuevaEtiqueta(marcoFactura, QStringLiteral("Direccion"), cboDir_), 2, 0);
    gFactura->addWidget(cboDir_, 2, 1, 1, 3);
    gFactura->addWidget(NuevaEtiqueta(marcoFactura, QStringLiteral("A/A: "), Text1_[14]), 3, 0);
    gFactura->addWidget(Text1_[14], 3, 1, 1, 3);
    gFactura->addWidget(NuevaEtiqueta(marcoFactura, QStringLiteral("Observaciones"), Text1_[7]), 4,
                        0);
    gFactura->addWidget(Text1_[7], 4, 1, 1, 3);
    gFactura->addWidget(Check_[2], 5, 0, 1, 4);
    lblCliObs_ = new QLabel(marcoFactura);
    lblCliObs_->setObjectName(QStringLiteral("lblCliObs"));
    lblCliObs_->setWordWrap(true);
    lblCliObs_->setStyleSheet(QStringLiteral("color: #8a1c1c;"));
    gFactura->addWidget(lblCliObs_, 6, 0, 1, 4);

    Frame4_ = new QGroupBox(QStringLiteral("Descuentos de la factura"), this);
    Frame4_->setObjectName(QStringLiteral("Frame4"));
    auto* gDtos = new QGridLayout(Frame4_);
    Text1_[8]->setMaximumWidth(70);
    Text1_[9]->setMaximumWidth(70);
    gDtos->addWidget(NuevaEtiqueta(Frame4_, QStringLiteral("Dto1"), Text1_[8]), 0, 0);
    gDtos->addWidget(Text1_[8], 0, 1);
    gDtos->addWidget(NuevaEtiqueta(Frame4_, QStringLiteral("Dto2"), Text1_[9]), 1, 0);
    gDtos->addWidget(Text1_[9], 1, 1);
    gDtos->addWidget(Check_[5], 2, 0, 1, 2);

    auto* marcoSalida = new QGroupBox(QStringLiteral("Salida"), this);
    marcoSalida->setObjectName(QStringLiteral("Frame3"));
    auto* gSalida = new QGridLayout(marcoSalida);
    const QString salidas[] = {QStringLiteral("Pantalla"), QStringLiteral("Impresora"),
                               QStringLiteral("Archivo PDF")};
    for (int i = 0; i < 3; ++i) {
        optSalida_[i] = new QRadioButton(salidas[i], marcoSalida);
        optSalida_[i]->setObjectName(NombreControl(QStringLiteral("optSalida"), i));
        gSalida->addWidget(optSalida_[i], 0, i);
    }
    Text1_[10]->setReadOnly(true);
    Text1_[11]->setMaximumWidth(50);
    QPushButton* cmdImpresoras = NuevoBoton(marcoSalida, QStringLiteral("cmdImpresoras"),
                                            QStringLiteral("Cambiar Impresora"));
    gSalida->addWidget(
        NuevaEtiqueta(marcoSalida, QStringLiteral("Impresora por defecto"), Text1_[10]), 1, 0);
    gSalida->addWidget(Text1_[10], 1, 1, 1, 2);
    gSalida->addWidget(cmdImpresoras, 2, 1, 1, 2);
    gSalida->addWidget(NuevaEtiqueta(marcoSalida, QStringLiteral("Nº Copias"), Text1_[11]), 3, 0);
    gSalida->addWidget(Text1_[11], 3, 1);
    gSalida->addWidget(Check_[3], 4, 0, 1, 3);

    auto* pie = new QHBoxLayout;
    pie->addWidget(marcoFactura, 3);
    auto* columnaDtos = new QVBoxLayout;
    columnaDtos->addWidget(Frame4_);
    columnaDtos->addWidget(Check_[4]);
    columnaDtos->addStretch();
    pie->addLayout(columnaDtos, 1);
    pie->addWidget(marcoSalida, 2);

    progreso_ = new QProgressBar(this);
    progreso_->setObjectName(QStringLiteral("prgFacturacion"));
    progreso_->setTextVisible(true);
    progreso_->setValue(0);
    progreso_->setFormat(QString());
    QPushButton* cmdFacturar =
        NuevoBoton(this, QStringLiteral("cmdFacturar"), QStringLiteral("Facturar Selección"));
    QPushButton* cmdSalir = NuevoBoton(this, QStringLiteral("cmdSalir"), QStringLiteral("&Salir"));
    auto* botones = new QHBoxLayout;
    botones->addWidget(progreso_, 1);
    botones->addWidget(cmdFacturar);
    botones->addWidget(cmdSalir);

    auto* capa = new QVBoxLayout(this);
    capa->addWidget(marcoFiltro);
    capa->addWidget(dbgCli_, 2);
    capa->addLayout(detalle, 3);
    capa->addLayout(pie);
    capa->addLayout(botones);

    desdeModelo();
    resize(1060, 800);

    // --- commands ---
    QObject::connect(cmdBuscar, &QPushButton::clicked, this,
                     [this] { orden([this] { modelo_.cmdBuscar(); }); });
    QObject::connect(cmdMarcar, &QPushButton::clicked, this,
                     [this] { orden([this] { modelo_.cmdMarcar(); }); });
    QObject::connect(cmdImpresoras, &QPushButton::clicked, this,
                     [this] { orden([this] { modelo_.cmdImpresoras(); }); });
    QObject::connect(cmdFacturar, &QPushButton::clicked, this, [this] { facturar(); });
    QObject::connect(cmdSalir, &QPushButton::clicked, this, [this] { reject(); });
    QObject::connect(Check_[4], &QCheckBox::toggled, this, [this] {
        if (!copiando_) {
            orden([this] { modelo_.Check4_Click(); });
        }
    });
    QObject::connect(Text1_[0], &QLineEdit::editingFinished, this, [this] {
        // Only a typed change looks the customer up, as leaving the box did.
        if (!copiando_ && Text1_[0]->isModified()) {
            Text1_[0]->setModified(false);
            orden([this] { modelo_.Text1_0_LostFocus(); });
        }
    });
    QObject::connect(dbgCli_->selectionModel(), &QItemSelectionModel::currentChanged, this,
                     [this](const QModelIndex& actual) {
                         const int fila = actual.row();
                         if (!copiando_ && fila >= 0 && fila != modelo_.filaCli) {
                             orden([this, fila] { modelo_.SeleccionaGrupo(fila); });
                         }
                     });
    QObject::connect(ListView1_, &QTreeWidget::itemChanged, this,
                     [this](QTreeWidgetItem* item, int columna) {
                         if (copiando_ || columna != 0) {
                             return;
                         }
                         const int i = ListView1_->indexOfTopLevelItem(item);
                         if (i >= 0 && i < static_cast<int>(modelo_.ListView1.size())) {
                             modelo_.ListView1[static_cast<std::size_t>(i)].marcado =
                                 item->checkState(0) == Qt::Checked;
                         }
                     });
    QObject::connect(ListView1_, &QTreeWidget::currentItemChanged, this,
                     [this](QTreeWidgetItem* item) {
                         if (copiando_ || !item) {
                             return;
                         }
                         const qint32 id = item->data(0, Qt::UserRole).toInt();
                         orden([this, id] { modelo_.msLineasAlbaran(id); });
                     });
}

template <typename F> void VistaFacturasVenta::orden(F&& f) {
    aModelo();
    try {
        f();
    } catch (const Error& e) {
        Ui().Mensaje(e.Mensaje(), Icono::Error, modelo_.Caption);
    }
    desdeModelo();
}

void VistaFacturasVenta::facturar() {
    // The run reports each group through the port: feed the bar meanwhile.
    auto* qt = dynamic_cast<InteraccionQt*>(InteraccionActual());
    InteraccionQt::Avance anterior;
    if (qt) {
        anterior = qt->EstableceAvance([this](int hechos, int total, const QString& texto) {
            progreso_->setMaximum(total);
            progreso_->setValue(hechos);
            progreso_->setFormat(texto + QStringLiteral("  %p%"));
        });
    }
    if (InteraccionActual()) {
        Ui().PunteroEspera(true);
    }
    orden([this] { modelo_.cmdFacturar(); });
    if (InteraccionActual()) {
        Ui().PunteroEspera(false);
    }
    if (qt) {
        qt->EstableceAvance(std::move(anterior));
    }
    progreso_->setValue(0);
    progreso_->setFormat(QString());
}

void VistaFacturasVenta::aModelo() {
    for (std::size_t i = 0; i < Text1_.size(); ++i) {
        modelo_.Text1[i] = Text1_[i]->text();
    }
    modelo_.cboFpagoIndex = cboFpago_->currentIndex();
    modelo_.cboDirIndex = cboDir_->currentIndex();
    modelo_.Check1 = Check_[1]->isChecked();
    modelo_.Check2 = Check_[2]->isChecked();
    modelo_.Check3 = Check_[3]->isChecked();
    modelo_.Check4 = Check_[4]->isChecked();
    modelo_.Check5 = Check_[5]->isChecked();
    modelo_.chkGroupAgentes = chkGroupAgentes_->isChecked();
    for (int i = 0; i < 3; ++i) {
        if (optSalida_[i]->isChecked()) {
            modelo_.optSalida = i;
        }
    }
    for (int i = 0;
         i < ListView1_->topLevelItemCount() && i < static_cast<int>(modelo_.ListView1.size());
         ++i) {
        modelo_.ListView1[static_cast<std::size_t>(i)].marcado =
            ListView1_->topLevelItem(i)->checkState(0) == Qt::Checked;
    }
}

void VistaFacturasVenta::desdeModelo() {
    copiando_ = true;
    setWindowTitle(modelo_.Caption);
    for (std::size_t i = 0; i < Text1_.size(); ++i) {
        PonTexto(Text1_[i], modelo_.Text1[i]);
    }
    Text1_[14]->setEnabled(modelo_.Text1_14_Enabled);
    if (cboFpago_->count() != modelo_.cboFpago.size() ||
        (cboFpago_->count() > 0 && cboFpago_->itemText(0) != modelo_.cboFpago.front())) {
        cboFpago_->clear();
        cboFpago_->addItems(modelo_.cboFpago);
    }
    cboFpago_->setCurrentIndex(modelo_.cboFpagoIndex);
    cboDir_->clear();
    cboDir_->addItems(modelo_.cboDir);
    cboDir_->setCurrentIndex(modelo_.cboDirIndex);
    Check_[1]->setChecked(modelo_.Check1);
    Check_[2]->setChecked(modelo_.Check2);
    Check_[3]->setChecked(modelo_.Check3);
    Check_[4]->setChecked(modelo_.Check4);
    Check_[5]->setChecked(modelo_.Check5);
    chkGroupAgentes_->setChecked(modelo_.chkGroupAgentes);
    Frame4_->setEnabled(modelo_.Frame4_Enabled);
    if (modelo_.optSalida >= 0 && modelo_.optSalida < 3) {
        optSalida_[modelo_.optSalida]->setChecked(true);
    }
    Label1_1_->setText(modelo_.Label1_1);
    lblCliObs_->setText(modelo_.lblCliObs);
    lblLineas_->setText(modelo_.lblLineas);
    rellenaGrupos();
    rellenaAlbaranes();
    rellenaLineas();
    copiando_ = false;
}

void VistaFacturasVenta::rellenaGrupos() {
    // The rows themselves are asked of the model as the grid shows them.
    grupos_->Actualiza();
    const int fila = modelo_.filaCli;
    dbgCli_->setCurrentIndex(fila >= 0 && fila < grupos_->rowCount() ? grupos_->index(fila, 0)
                                                                     : QModelIndex());
}

void VistaFacturasVenta::rellenaAlbaranes() {
    ListView1_->clear();
    ListView1_->setColumnHidden(3, modelo_.chkGroupAgentes);
    for (const AlbaranFacturable& a : modelo_.ListView1) {
        auto* item = new QTreeWidgetItem(ListView1_);
        item->setText(0, a.NuAlbaran);
        item->setText(1, Format(a.Cav_Fecha, QStringLiteral("dd/mm/yyyy")));
        item->setText(2, Format(a.TAlbaran, kMascaraImporte));
        item->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
        item->setText(3, TextoCelda(a.Cav_Agente));
        item->setData(0, Qt::UserRole, a.Cav_Id);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(0, a.marcado ? Qt::Checked : Qt::Unchecked);
    }
}

void VistaFacturasVenta::rellenaLineas() {
    const Recordset& rs = modelo_.dbgLineas;
    dbgLineas_->setRowCount(rs.RecordCount());
    const struct {
        const char* campo;
        const char* mascara; // null: plain text
    } columnas[] = {{"Lav_Des", nullptr},  {"Lav_Uni", "#0.00"},  {"Lav_Precio", "#,##0.00"},
                    {"Lav_Dto1", "#0.00"}, {"Lav_Dto2", "#0.00"}, {"Lav_Importe", "#,###,##0.00"},
                    {"Orden", nullptr}};
    Recordset filas = rs;
    int r = 0;
    for (filas.MoveFirst(); !filas.Eof(); filas.MoveNext(), ++r) {
        for (int c = 0; c < 7; ++c) {
            const QString nombre = QString::fromLatin1(columnas[c].campo);
            if (!filas.TieneCampo(nombre)) {
                continue;
            }
            const QVariant v = filas.Fields(nombre).Value();
            const bool numero = columnas[c].mascara != nullptr;
            dbgLineas_->setItem(r, c,
                                NuevaCelda(numero && !v.isNull()
                                               ? Format(v, QString::fromLatin1(columnas[c].mascara))
                                               : TextoCelda(v),
                                           numero));
        }
    }
}

void VistaFacturasVenta::keyPressEvent(QKeyEvent* evento) {
    switch (evento->key()) {
    case Qt::Key_F1:
        if (focusWidget() == Text1_[0]) {
            orden([this] { modelo_.msBuscarCliente(-1); });
            return;
        }
        break;
    default:
        break;
    }
    if (!TeclaFormulario(*this, *evento)) {
        QDialog::keyPressEvent(evento);
    }
}

} // namespace vk::ui
