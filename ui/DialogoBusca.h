// The lookup list of the interaction port's Busca: code and name columns, a
// search box that filters as one types over the searched column, Enter picks
// the current row, Escape picks nothing.
#pragma once

#include <Interaccion.h>
#include <QDialog>
#include <optional>

class QLineEdit;
class QTableWidget;

namespace vk::ui {

class DialogoBusca : public QDialog {
public:
    explicit DialogoBusca(const PeticionBusca& peticion, QWidget* padre = nullptr);

    // The index into peticion.filas of the row chosen, once accepted.
    std::optional<int> Elegida() const { return elegida_; }
    QLineEdit* cajaBusca() const { return busca_; }
    QTableWidget* lista() const { return lista_; }

protected:
    void keyPressEvent(QKeyEvent* evento) override;
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void filtra(const QString& texto);
    void elige();

    const PeticionBusca& peticion_;
    int columnaBusca_ = 1; // 0 code, 1 name of the visible columns
    QLineEdit* busca_ = nullptr;
    QTableWidget* lista_ = nullptr;
    std::optional<int> elegida_;
};

} // namespace vk::ui
