// The first number of a new invoice series (frmIniFav).
#pragma once

#include <QDialog>

class QLineEdit;
class QLabel;

namespace vk {
class frmIniFav;
}

namespace vk::ui {

class VistaIniFav : public QDialog {
public:
    VistaIniFav(frmIniFav& modelo, QWidget* padre = nullptr);

private:
    void acepta();

    frmIniFav& modelo_;
    QLabel* lblSerie_ = nullptr;
    QLineEdit* Text1_ = nullptr;
};

} // namespace vk::ui
