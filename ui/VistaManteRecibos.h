// The maintenance of one receipt (frmManteRecibos): its invoice, customer,
// mode and account shown, its due date, amount, state and remarks typed, the
// invoice's other receipts listed. Read-only receipts disable what writes.
#pragma once

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableWidget;

namespace vk::suite {
class frmManteRecibos;
}

namespace vk::ui {

class VistaManteRecibos : public QDialog {
public:
    VistaManteRecibos(suite::frmManteRecibos& modelo, QWidget* padre = nullptr);

protected:
    void keyPressEvent(QKeyEvent* evento) override;

private:
    // Widgets -> model, and model -> widgets.
    void aModelo();
    void refresca();
    void acepta();

    suite::frmManteRecibos& modelo_;
    QLabel* lblFactura_ = nullptr;
    QLabel* lblFechaFactura_ = nullptr;
    QLabel* lblCliente_ = nullptr;
    QLabel* lblModalidad_ = nullptr;
    QLabel* lblCuenta_ = nullptr;
    QLineEdit* txtFVto_ = nullptr;
    QLineEdit* txtImporte_ = nullptr;
    QComboBox* cboSituacion_ = nullptr;
    QLineEdit* txtObser_ = nullptr;
    QTableWidget* dbgRecibos_ = nullptr;
    QPushButton* cmdAceptar_ = nullptr;
};

} // namespace vk::ui
