// The facade's screen entries open screens through this interface, which the
// desktop host registers. The library's code never includes a widget.
#pragma once

#include <QString>
#include <QVariantMap>

namespace vk {

struct PeticionPantalla {
    QString pantalla;       // "frmFacturasVenta", "frmEdicionFacturas" ...
    QVariantMap argumentos; // what the entry hands the screen before showing it
};

class LanzadorPantallas {
public:
    virtual ~LanzadorPantallas() = default;
    // Shows the screen modally and returns when it closes.
    virtual void Muestra(const PeticionPantalla& peticion) = 0;
};

LanzadorPantallas* LanzadorActual();
void EstableceLanzador(LanzadorPantallas* lanzador);

} // namespace vk
