// The screen launcher of the desktop host: the facade's entries open their
// views here, modally.
#pragma once

#include <LanzadorPantallas.h>

class QWidget;

namespace vk {
class VKFACVENTAS;
}

namespace vk::ui {

class LanzadorQt : public LanzadorPantallas {
public:
    // The screens work on `factura`, the facade the host opened.
    LanzadorQt(VKFACVENTAS& factura, QWidget* padre = nullptr) : factura_(factura), padre_(padre) {}
    void Muestra(const PeticionPantalla& peticion) override;

private:
    VKFACVENTAS& factura_;
    QWidget* padre_;
};

} // namespace vk::ui
