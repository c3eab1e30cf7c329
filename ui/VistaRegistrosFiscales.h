// The invoicing records screen (frmRegistrosFiscales): their sending state,
// the latest records with each rejection's reason, the chain's check.
#pragma once

#include <QDialog>

class QCheckBox;
class QLabel;
class QTableWidget;

namespace vk {
class frmRegistrosFiscales;
}

namespace vk::ui {

class VistaRegistrosFiscales : public QDialog {
public:
    VistaRegistrosFiscales(frmRegistrosFiscales& modelo, QWidget* padre = nullptr);

protected:
    void keyPressEvent(QKeyEvent* evento) override;

private:
    void refresca();

    frmRegistrosFiscales& modelo_;
    QLabel* lblEstado_ = nullptr;
    QLabel* lblEntorno_ = nullptr;
    QLabel* lblCadena_ = nullptr;
    QCheckBox* chkSoloRechazados_ = nullptr;
    QTableWidget* dbgRegistros_ = nullptr;
};

} // namespace vk::ui
