// The parameters for invoicing one delivery note (frmFactuAlbaran). Its
// entry is reserved, so the dialog only shows and keeps what it loaded.
#pragma once

#include <QDialog>

class QComboBox;
class QLineEdit;
class QPlainTextEdit;

namespace vk {
class frmFactuAlbaran;
}

namespace vk::ui {

class VistaFactuAlbaran : public QDialog {
public:
    VistaFactuAlbaran(frmFactuAlbaran& modelo, QWidget* padre = nullptr);

    void aModelo();

private:
    frmFactuAlbaran& modelo_;
    QLineEdit* serie_ = nullptr;
    QLineEdit* fecha_ = nullptr;
    QPlainTextEdit* observaciones_ = nullptr;
    QComboBox* cboFpago_ = nullptr;
    QComboBox* cboDir_ = nullptr;
};

} // namespace vk::ui
