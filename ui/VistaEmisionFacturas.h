// The design and paper options of an issue run (frmEmisionFacturas).
#pragma once

#include <QDialog>

class QComboBox;
class QGroupBox;
class QListWidget;
class QPushButton;

namespace vk {
class frmEmisionFacturas;
}

namespace vk::ui {

class VistaEmisionFacturas : public QDialog {
public:
    VistaEmisionFacturas(frmEmisionFacturas& modelo, QWidget* padre = nullptr);

    // Escape and "&Cancelar" both leave without a design.
    void reject() override;

private:
    void desdeModelo();
    void aModelo();

    frmEmisionFacturas& modelo_;
    QComboBox* cmbDiseno_ = nullptr;
    QGroupBox* Frame1_ = nullptr;
    QListWidget* lstOpcionesPapel_ = nullptr;
    QPushButton* cmdVer_ = nullptr;
};

} // namespace vk::ui
