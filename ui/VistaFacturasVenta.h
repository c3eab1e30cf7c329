// The batch invoicing screen (frmFacturasVenta): filters, billable groups,
// their delivery notes with ticks, the note's lines, the invoice's settings
// and the output. Every command copies the widgets into the model, runs the
// model's command and copies the model back; nothing is decided here.
#pragma once

#include <QDialog>
#include <array>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QRadioButton;
class QTableView;
class QTableWidget;
class QTreeWidget;

namespace vk {
class frmFacturasVenta;
}

namespace vk::ui {

class ModeloGrupos;

class VistaFacturasVenta : public QDialog {
public:
    VistaFacturasVenta(frmFacturasVenta& modelo, QWidget* padre = nullptr);

    frmFacturasVenta& modelo() { return modelo_; }
    // Widgets -> model, and model -> widgets.
    void aModelo();
    void desdeModelo();

protected:
    void keyPressEvent(QKeyEvent* evento) override;

private:
    // Runs a model command between the two copies; errors reach the person
    // through the port.
    template <typename F> void orden(F&& f);
    void rellenaGrupos();
    void rellenaAlbaranes();
    void rellenaLineas();
    void facturar();

    frmFacturasVenta& modelo_;
    bool copiando_ = false; // signals fired by desdeModelo are not commands

    std::array<QLineEdit*, 15> Text1_{};
    QComboBox* cboFpago_ = nullptr;
    QComboBox* cboDir_ = nullptr;
    std::array<QCheckBox*, 6> Check_{}; // 1..5
    QCheckBox* chkGroupAgentes_ = nullptr;
    QGroupBox* Frame4_ = nullptr;
    std::array<QRadioButton*, 3> optSalida_{};
    QLabel* Label1_1_ = nullptr;
    QLabel* lblCliObs_ = nullptr;
    QLabel* lblLineas_ = nullptr;
    ModeloGrupos* grupos_ = nullptr;
    QTableView* dbgCli_ = nullptr;
    QTreeWidget* ListView1_ = nullptr;
    QTableWidget* dbgLineas_ = nullptr;
    QProgressBar* progreso_ = nullptr;
};

} // namespace vk::ui
