#include "VistaVisor.h"

#include "Controles.h"
#include "MensajesUi.h"

#include <ErrorBd.h>
#include <Interaccion.h>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>
#include <RenderizadorInforme.h>
#include <frmVisor.h>

namespace vk::ui {

VistaVisor::VistaVisor(frmVisor& modelo, QWidget* padre) : QDialog(padre), modelo_(modelo) {
    setObjectName(modelo.Nombre());
    setWindowTitle(modelo.Caption);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    impresora_ = new QPrinter(QPrinter::HighResolution);

    auto* capa = new QVBoxLayout(this);
    auto* barra = new QHBoxLayout;
    QPushButton* menos = NuevoBoton(this, QStringLiteral("cmdZoomMenos"), QStringLiteral("Alejar"));
    QPushButton* mas = NuevoBoton(this, QStringLiteral("cmdZoomMas"), QStringLiteral("Acercar"));
    QPushButton* ajustar =
        NuevoBoton(this, QStringLiteral("cmdAjustar"), QStringLiteral("Ajustar al ancho"));
    QPushButton* imprimir =
        NuevoBoton(this, QStringLiteral("cmdImprimir"), QStringLiteral("&Imprimir…"));
    QPushButton* pdf =
        NuevoBoton(this, QStringLiteral("cmdGuardarPdf"), QStringLiteral("Guardar como &PDF…"));
    QPushButton* cerrar = NuevoBoton(this, QStringLiteral("cmdCerrar"), QStringLiteral("&Cerrar"));
    lblPaginas_ = new QLabel(this);
    lblPaginas_->setObjectName(QStringLiteral("lblPaginas"));
    barra->addWidget(menos);
    barra->addWidget(mas);
    barra->addWidget(ajustar);
    barra->addSpacing(12);
    barra->addWidget(imprimir);
    barra->addWidget(pdf);
    barra->addStretch();
    barra->addWidget(lblPaginas_);
    barra->addSpacing(12);
    barra->addWidget(cerrar);

    auto* division = new QSplitter(this);
    lstFacturas_ = new QListWidget(division);
    lstFacturas_->setObjectName(QStringLiteral("lstFacturas"));
    lstFacturas_->addItems(modelo.lstFacturas);
    lstFacturas_->setVisible(modelo.VerListaGrupos());
    lstFacturas_->setMaximumWidth(160);
    vista_ = new QPrintPreviewWidget(impresora_, division);
    vista_->setObjectName(QStringLiteral("crvInforme"));
    division->addWidget(lstFacturas_);
    division->addWidget(vista_);
    division->setStretchFactor(1, 1);
    capa->addLayout(barra);
    capa->addWidget(division, 1);

    QObject::connect(vista_, &QPrintPreviewWidget::paintRequested, this,
                     [this](QPrinter* p) { Pinta(*p); });
    QObject::connect(menos, &QPushButton::clicked, vista_, [this] { vista_->zoomOut(); });
    QObject::connect(mas, &QPushButton::clicked, vista_, [this] { vista_->zoomIn(); });
    QObject::connect(ajustar, &QPushButton::clicked, vista_, [this] { vista_->fitToWidth(); });
    QObject::connect(imprimir, &QPushButton::clicked, this, [this] { imprime(); });
    QObject::connect(pdf, &QPushButton::clicked, this, [this] { guardaComo(); });
    QObject::connect(cerrar, &QPushButton::clicked, this, [this] { accept(); });
    QObject::connect(vista_, &QPrintPreviewWidget::previewChanged, this, [this] {
        lblPaginas_->setText(
            QStringLiteral("Página %1 de %2").arg(vista_->currentPage()).arg(vista_->pageCount()));
    });
    resize(900, 760);
}

VistaVisor::~VistaVisor() {
    delete vista_; // before the printer it paints on
    vista_ = nullptr;
    delete impresora_;
}

bool VistaVisor::Pinta(QPagedPaintDevice& dispositivo) {
    if (!modelo_.reporte) {
        return false;
    }
    try {
        informe::RenderizaInforme(*modelo_.reporte, dispositivo);
        return true;
    } catch (const Error& e) {
        Ui().Mensaje(e.Mensaje(), Icono::Error, modelo_.Caption);
        return false;
    }
}

bool VistaVisor::GuardaPdf(const QString& fichero) {
    QPdfWriter escritor(fichero);
    escritor.setCreator(mensajes::kTituloFacturacion);
    return Pinta(escritor);
}

void VistaVisor::imprime() {
    QPrinter impresora(QPrinter::HighResolution);
    QPrintDialog d(&impresora, this);
    d.setWindowTitle(QStringLiteral("Imprimir"));
    if (d.exec() == QDialog::Accepted) {
        Pinta(impresora);
    }
}

void VistaVisor::guardaComo() {
    QString fichero = QFileDialog::getSaveFileName(this, QStringLiteral("Guardar como PDF"),
                                                   QStringLiteral("factura.pdf"),
                                                   QStringLiteral("Documentos PDF (*.pdf)"));
    if (fichero.isEmpty()) {
        return;
    }
    if (!fichero.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive)) {
        fichero += QStringLiteral(".pdf");
    }
    if (GuardaPdf(fichero)) {
        Ui().Mensaje(mensajes::kDocumentoGuardado.arg(fichero), Icono::Informacion,
                     modelo_.Caption);
    }
}

} // namespace vk::ui
