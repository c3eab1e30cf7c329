// The invoice edit screen (frmEdicionFacturas): one invoice of a series with
// its address, terms, remarks, delivery notes, receipts and totals, walked
// through the series and issued. Every widget writes its model member as it
// changes; a command runs the model's method and copies the whole model back.
#pragma once

#include <QDialog>
#include <array>
#include <memory>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QMenu;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QTableWidget;

namespace vk {
class frmEdicionFacturas;
}

namespace vk::ui {

class CamposDireccion;

class VistaEdicionFacturas : public QDialog {
public:
    VistaEdicionFacturas(frmEdicionFacturas& modelo, QWidget* padre = nullptr);
    ~VistaEdicionFacturas() override;

    frmEdicionFacturas& modelo() { return modelo_; }
    // Widgets -> model, and model -> widgets.
    void aModelo();
    void refresca();

protected:
    void keyPressEvent(QKeyEvent* evento) override;
    // The navigation keys walk the series wherever the focus is: grids, combos
    // and text boxes would otherwise keep them for themselves.
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    // Runs a model command between the two copies; errors reach the person
    // through the port.
    template <typename F> void orden(F&& f);
    bool teclaNavegacion(const QKeyEvent& tecla);
    void rellenaAlbaranes();
    void rellenaRecibos();

    frmEdicionFacturas& modelo_;
    bool copiando_ = false; // signals fired by refresca are not edits

    // Only the boxes the screen has; the other slots stay null.
    std::array<QLineEdit*, 41> Text1_{};
    QPlainTextEdit* txtFavObs_ = nullptr;
    // The remarks as the box shows them: the box may normalise line breaks,
    // and an untouched box must not count as a change.
    QString obsMostradas_;
    QLineEdit* txtRetencionNF_ = nullptr;
    std::array<QRadioButton*, 2> Option1_{};
    std::unique_ptr<CamposDireccion> direccion_;
    QComboBox* cboFpago_ = nullptr;
    QComboBox* cboSeries_ = nullptr;
    QCheckBox* Check1_ = nullptr;
    QCheckBox* Check2_ = nullptr;
    QCheckBox* Check3_ = nullptr;
    QCheckBox* ChKCopia_ = nullptr;
    std::array<QRadioButton*, 4> optSalida_{};
    QLabel* lblCliente_ = nullptr;
    QLabel* lblCliObs_ = nullptr;
    QLabel* lblRetencion_ = nullptr;
    QLabel* lblRetencionNF_ = nullptr;
    QLabel* lblLiquido_ = nullptr;
    QGroupBox* Frame2_ = nullptr;
    QWidget* Frame3_ = nullptr; // the boxes and buttons that change the notes
    QGroupBox* Frame5_ = nullptr;
    QTableWidget* dbgAlbaranes_ = nullptr;
    QTableWidget* dbgRecibos_ = nullptr;
    QPushButton* cmdActualiza_ = nullptr;
    QPushButton* cmdBorrar_ = nullptr;
    QPushButton* XPButton2_ = nullptr;
    QMenu* mnuTransporte_ = nullptr;
};

} // namespace vk::ui
