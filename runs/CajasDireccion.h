// The address boxes the invoice screens share: street type, name, number,
// staircase, floor, door, postcode, town, province and country, as boxes of
// the screen's Text1 (23, 18, 16, 15, 14, 21, 19) and three combos.
#pragma once

#include <DireccionFactura.h>
#include <QString>
#include <QStringList>
#include <array>

namespace vk {

class BdSesion;

class CajasDireccion {
public:
    using Cajas = std::array<QString, 41>;
    // `text1` is the screen's own array of boxes, which outlives this.
    explicit CajasDireccion(Cajas& text1) : text1_(text1) {}
    CajasDireccion(const CajasDireccion&) = delete;
    CajasDireccion& operator=(const CajasDireccion&) = delete;

    // Items "code - name" of the reference tables.
    void CargaCombos(BdSesion& bd);

    // Fills the boxes and remembers the address as shown.
    void Muestra(const DireccionFactura& direccion);
    // The address the boxes hold: the one shown while nothing changed, else
    // the boxes by value (idDir -1), the stored codes kept where a combo
    // still names them.
    DireccionFactura Leida() const;
    bool Cambiada() const { return !(Leida() == mostrada_); }

    // cmdDir: the lookup of the customer's addresses; the one chosen fills
    // the boxes (the door takes the address's letter). False when none was
    // chosen.
    bool OtraDireccion(BdSesion& bd, qint32 idCliente, const QString& titulo);

    QStringList cboTipoVia, cboPais, cboProvincias;
    int cboTipoViaIndex = -1, cboPaisIndex = -1, cboProvinciasIndex = -1;

private:
    Cajas& text1_;
    DireccionFactura mostrada_;
};

} // namespace vk
