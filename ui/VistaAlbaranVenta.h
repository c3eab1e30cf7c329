// One delivery note, read-only (frmAlbaranVenta): its header and state, its
// lines with the current one selected, and its total. Escape closes it.
#pragma once

#include <QDialog>

namespace vk {
class frmAlbaranVenta;
}

namespace vk::ui {

class VistaAlbaranVenta : public QDialog {
public:
    VistaAlbaranVenta(frmAlbaranVenta& modelo, QWidget* padre = nullptr);

protected:
    void keyPressEvent(QKeyEvent* evento) override;

private:
    frmAlbaranVenta& modelo_;
};

} // namespace vk::ui
