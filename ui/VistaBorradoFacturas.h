// The batch deletion of sales invoices (frmBorradoFacturas).
#pragma once

#include <QDialog>
#include <array>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace vk {
class frmBorradoFacturas;
}

namespace vk::ui {

class VistaBorradoFacturas : public QDialog {
public:
    VistaBorradoFacturas(frmBorradoFacturas& modelo, QWidget* padre = nullptr);

private:
    void desdeModelo();
    void aModelo();

    frmBorradoFacturas& modelo_;
    // The boxes the model numbers 0, 1, 2, 3 and 5.
    std::array<QLineEdit*, 6> Text1_{};
    QCheckBox* Check1_ = nullptr;
    QLabel* Label2_ = nullptr;
    QTableWidget* dbgFacturas_ = nullptr;
    QPushButton* cmdBorrar_ = nullptr;
};

} // namespace vk::ui
