// The address boxes of an invoice screen, bound to its model's
// CajasDireccion: street type, name, number, staircase, floor, door,
// postcode, town, province and country in four rows of eight grid columns.
#pragma once

#include <array>

class QComboBox;
class QGridLayout;
class QLineEdit;
class QWidget;

namespace vk {
class CajasDireccion;
}

namespace vk::ui {

class CamposDireccion {
public:
    // Makes the boxes into the view's Text1 slots (which the view copies
    // with the rest of its boxes) and the three combos.
    CamposDireccion(QWidget* padre, std::array<QLineEdit*, 41>& text1);

    // Rows `fila` to `fila` + 3, columns 0 to 7.
    void Coloca(QGridLayout& rejilla, int fila) const;
    // The combos' items and indexes; the boxes go with the view's Text1.
    void AModelo(CajasDireccion& cajas) const;
    void Refresca(const CajasDireccion& cajas) const;

    QComboBox* cboTipoVia = nullptr;
    QComboBox* cboPais = nullptr;
    QComboBox* cboProvincias = nullptr;

private:
    std::array<QLineEdit*, 41>& text1_;
    QWidget* padre_;
};

} // namespace vk::ui
