// The copy screen (frmCopiaFacturas): a copy or credit note of the invoice
// the editor shows.
#pragma once

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QTableWidget;

namespace vk {
class frmCopiaFacturas;
}

namespace vk::ui {

class VistaCopiaFacturas : public QDialog {
public:
    VistaCopiaFacturas(frmCopiaFacturas& modelo, QWidget* padre = nullptr);

protected:
    void keyPressEvent(QKeyEvent* evento) override;

private:
    void aModelo();
    void refresca();

    frmCopiaFacturas& modelo_;
    QLineEdit* Text1_0_ = nullptr;
    QLineEdit* Text1_2_ = nullptr;
    QComboBox* cboSeries_ = nullptr;
    QLabel* lblCliente_ = nullptr;
    QLabel* lblCliObs_ = nullptr;
    QTableWidget* dbgAlbaranes_ = nullptr;
    QCheckBox* Check1_ = nullptr;
    QCheckBox* Check2_ = nullptr;
};

} // namespace vk::ui
