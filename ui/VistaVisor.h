// The report viewer (frmVisor): the rendered report in a print preview, with
// zoom, print and save as PDF, and the list of invoices when there are
// several.
#pragma once

#include <QDialog>

class QLabel;
class QPagedPaintDevice;
class QListWidget;
class QPrintPreviewWidget;
class QPrinter;

namespace vk {
class frmVisor;
}

namespace vk::ui {

class VistaVisor : public QDialog {
public:
    VistaVisor(frmVisor& modelo, QWidget* padre = nullptr);
    ~VistaVisor() override;

    QPrintPreviewWidget* vista() const { return vista_; }
    // Paints the report into any paged device; false with a message shown
    // through the port when it fails.
    bool Pinta(QPagedPaintDevice& dispositivo);
    // Writes the report as a PDF file; false when it failed.
    bool GuardaPdf(const QString& fichero);

private:
    void imprime();
    void guardaComo();

    frmVisor& modelo_;
    QPrinter* impresora_ = nullptr;
    QPrintPreviewWidget* vista_ = nullptr;
    QListWidget* lstFacturas_ = nullptr;
    QLabel* lblPaginas_ = nullptr;
};

} // namespace vk::ui
