// The copy screen (frmCopiaFacturas): a copy or credit note of the invoice
// the editor shows, with the customer, address, terms and date the person
// leaves.
#pragma once

#include <QDialog>
#include <array>
#include <memory>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QTableWidget;

namespace vk {
class frmCopiaFacturas;
}

namespace vk::ui {

class CamposDireccion;

class VistaCopiaFacturas : public QDialog {
public:
    VistaCopiaFacturas(frmCopiaFacturas& modelo, QWidget* padre = nullptr);
    ~VistaCopiaFacturas() override;

protected:
    void keyPressEvent(QKeyEvent* evento) override;

private:
    void aModelo();
    void refresca();
    // Runs a model command between the two copies; errors reach the person
    // through the port.
    template <typename F> void orden(F&& f);

    frmCopiaFacturas& modelo_;
    // Only the boxes the screen has; the other slots stay null.
    std::array<QLineEdit*, 41> Text1_{};
    std::unique_ptr<CamposDireccion> direccion_;
    QComboBox* cboSeries_ = nullptr;
    QComboBox* cboFpago_ = nullptr;
    QPlainTextEdit* txtFavObs_ = nullptr;
    QLabel* lblCliente_ = nullptr;
    QLabel* lblCliObs_ = nullptr;
    QTableWidget* dbgAlbaranes_ = nullptr;
    QCheckBox* Check1_ = nullptr;
    QCheckBox* Check2_ = nullptr;
};

} // namespace vk::ui
