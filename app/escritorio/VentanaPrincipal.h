// The host's main window: the menu of the library's screens over one open
// company.
#pragma once

#include <QMainWindow>

class QLabel;

namespace vk {
class VKFACVENTAS;
}

namespace vk::escritorio {

class VentanaPrincipal : public QMainWindow {
public:
    VentanaPrincipal(VKFACVENTAS& factura, const QString& empresa);

private:
    // Runs a facade entry; its errors are told, never fatal to the host.
    template <typename F>
    void entrada(F&& f);

    VKFACVENTAS& factura_;
};

} // namespace vk::escritorio
