#include "RegistroVistas.h"

#include "VistaEmisionFacturas.h"
#include "VistaFacturasVenta.h"
#include "VistaIniFav.h"
#include "VistaVisor.h"

#include <ErrorBd.h>
#include <Interaccion.h>
#include <frmEmisionFacturas.h>
#include <frmFacturasVenta.h>
#include <frmIniFav.h>
#include <frmVisor.h>
#include <map>
#include <typeindex>

namespace vk::ui {

namespace {

// A dialog view that accepts or rejects like a QDialog.
template <class Modelo, class Vista> std::pair<std::type_index, VistaDialogo> dialogo() {
    return {typeid(Modelo), [](DialogoModelo& m, QWidget* padre) {
                Vista v(static_cast<Modelo&>(m), padre);
                return v.exec() == QDialog::Accepted;
            }};
}

// A screen whose model is built on the facade; the model's load reads the
// database, so a failure there is told and the screen does not open.
template <class Modelo, class Vista>
std::pair<QString, VistaPantalla> pantalla(const char* nombre) {
    return {QString::fromLatin1(nombre),
            [](VKFACVENTAS& f, const PeticionPantalla&, QWidget* padre) {
                std::unique_ptr<Modelo> modelo;
                try {
                    modelo = std::make_unique<Modelo>(f);
                } catch (const Error& e) {
                    Ui().Mensaje(e.Mensaje(), Icono::Error, mensajes::kTituloFacturacion);
                    return;
                }
                Vista vista(*modelo, padre);
                vista.exec();
            }};
}

} // namespace

const VistaDialogo* BuscaVistaDialogo(const DialogoModelo& modelo) {
    static const std::map<std::type_index, VistaDialogo> vistas = {
        dialogo<frmIniFav, VistaIniFav>(),
        dialogo<frmEmisionFacturas, VistaEmisionFacturas>(),
        // The viewer has nothing to accept: closing it is the end.
        {typeid(frmVisor),
         [](DialogoModelo& m, QWidget* padre) {
             VistaVisor v(static_cast<frmVisor&>(m), padre);
             v.exec();
             return true;
         }},
    };
    const auto v = vistas.find(typeid(modelo));
    return v == vistas.end() ? nullptr : &v->second;
}

const VistaPantalla* BuscaVistaPantalla(const QString& nombre) {
    static const std::map<QString, VistaPantalla> vistas = {
        pantalla<frmFacturasVenta, VistaFacturasVenta>("frmFacturasVenta"),
    };
    const auto v = vistas.find(nombre);
    return v == vistas.end() ? nullptr : &v->second;
}

} // namespace vk::ui
