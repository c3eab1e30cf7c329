// One transport leg, read-only (frmTramo): the unload, its load, the trip
// with its vehicles and the invoice line. Escape closes it.
#pragma once

#include <QDialog>

namespace vk {
class frmTramo;
}

namespace vk::ui {

class VistaTramo : public QDialog {
public:
    VistaTramo(frmTramo& modelo, QWidget* padre = nullptr);

protected:
    void keyPressEvent(QKeyEvent* evento) override;

private:
    frmTramo& modelo_;
};

} // namespace vk::ui
