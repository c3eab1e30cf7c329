#include "RegistroVistas.h"

#include "VistaAlbaranVenta.h"
#include "VistaBorradoFacturas.h"
#include "VistaCopiaFacturas.h"
#include "VistaEdicionFacturas.h"
#include "VistaEmisionFacturas.h"
#include "VistaFacturasVenta.h"
#include "VistaIniFav.h"
#include "VistaManteRecibos.h"
#include "VistaRegistrosFiscales.h"
#include "VistaTramo.h"
#include "VistaVisor.h"

#include <Combos.h>
#include <ErrorBd.h>
#include <Interaccion.h>
#include <frmAlbaranVenta.h>
#include <frmBorradoFacturas.h>
#include <frmCopiaFacturas.h>
#include <frmEdicionFacturas.h>
#include <frmEmisionFacturas.h>
#include <frmFacturasVenta.h>
#include <frmIniFav.h>
#include <frmManteRecibos.h>
#include <frmRegistrosFiscales.h>
#include <frmTramo.h>
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

// A screen whose model is built from the facade and the request's arguments;
// the model's load reads the database, so a failure there is told and the
// screen does not open.
template <class Modelo, class Vista>
std::pair<QString, VistaPantalla>
pantallaCon(const char* nombre,
            std::unique_ptr<Modelo> (*crea)(VKFACVENTAS& f, const QVariantMap& argumentos)) {
    return {QString::fromLatin1(nombre),
            [crea](VKFACVENTAS& f, const PeticionPantalla& peticion, QWidget* padre) {
                std::unique_ptr<Modelo> modelo;
                try {
                    modelo = crea(f, peticion.argumentos);
                } catch (const Error& e) {
                    Ui().Mensaje(e.Mensaje(), Icono::Error, mensajes::kTituloFacturacion);
                    return;
                }
                Vista vista(*modelo, padre);
                vista.exec();
            }};
}

// A screen whose model needs only the facade.
template <class Modelo, class Vista>
std::pair<QString, VistaPantalla> pantalla(const char* nombre) {
    return pantallaCon<Modelo, Vista>(
        nombre, [](VKFACVENTAS& f, const QVariantMap&) { return std::make_unique<Modelo>(f); });
}

// The edit screen opens the invoice it is given; asked to search, on the
// last invoice of the user's default series, where editing usually starts.
std::unique_ptr<frmEdicionFacturas> creaEdicionFacturas(VKFACVENTAS& f, const QVariantMap& a) {
    if (a.value(QStringLiteral("buscar")).toBool() || !a.contains(QStringLiteral("numero"))) {
        auto modelo =
            std::make_unique<frmEdicionFacturas>(f, fnSerieFacturaPorDefecto(f.MyBd()), 0);
        modelo->cmdNav(frmEdicionFacturas::Boton::Ultima);
        return modelo;
    }
    return std::make_unique<frmEdicionFacturas>(f, a.value(QStringLiteral("serie")).toString(),
                                                a.value(QStringLiteral("numero")).toInt(),
                                                a.value(QStringLiteral("soloLectura")).toBool());
}

// A note or a leg, read-only, from the ids the suite's classes hand over.
std::unique_ptr<frmAlbaranVenta> creaAlbaranVenta(VKFACVENTAS& f, const QVariantMap& a) {
    return std::make_unique<frmAlbaranVenta>(f.MyBd(), a.value(QStringLiteral("idCav")).toInt(),
                                             a.value(QStringLiteral("idLav")).toInt());
}
std::unique_ptr<frmTramo> creaTramo(VKFACVENTAS& f, const QVariantMap& a) {
    return std::make_unique<frmTramo>(f.MyBd(), a.value(QStringLiteral("idTramo")).toInt(),
                                      a.value(QStringLiteral("idLav")).toInt());
}
// The treasury's receipt maintenance: the receipt and whether it is opened
// from a collection, as jManteRecibos asks.
std::unique_ptr<suite::frmManteRecibos> creaManteRecibos(VKFACVENTAS& f, const QVariantMap& a) {
    return std::make_unique<suite::frmManteRecibos>(f.MyBd(),
                                                    a.value(QStringLiteral("idRecibo")).toInt(),
                                                    a.value(QStringLiteral("bCobPag")).toBool());
}

} // namespace

const VistaDialogo* BuscaVistaDialogo(const DialogoModelo& modelo) {
    static const std::map<std::type_index, VistaDialogo> vistas = {
        dialogo<frmIniFav, VistaIniFav>(),
        dialogo<frmCopiaFacturas, VistaCopiaFacturas>(),
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
        pantalla<frmRegistrosFiscales, VistaRegistrosFiscales>("frmRegistrosFiscales"),
        pantallaCon<frmEdicionFacturas, VistaEdicionFacturas>("frmEdicionFacturas",
                                                              creaEdicionFacturas),
        pantallaCon<frmAlbaranVenta, VistaAlbaranVenta>("frmAlbaranVenta", creaAlbaranVenta),
        pantallaCon<frmTramo, VistaTramo>("frmTramo", creaTramo),
        pantallaCon<suite::frmManteRecibos, VistaManteRecibos>("frmManteRecibos", creaManteRecibos),
        // Refused to anyone but an administrator: the model said why, and
        // the screen does not open.
        {QStringLiteral("frmBorradoFacturas"),
         [](VKFACVENTAS& f, const PeticionPantalla&, QWidget* padre) {
             std::unique_ptr<frmBorradoFacturas> modelo;
             try {
                 modelo = std::make_unique<frmBorradoFacturas>(f);
             } catch (const Error& e) {
                 Ui().Mensaje(e.Mensaje(), Icono::Error, mensajes::kTituloFacturacion);
                 return;
             }
             if (modelo->Cerrada) {
                 return;
             }
             VistaBorradoFacturas vista(*modelo, padre);
             vista.exec();
         }},
    };
    const auto v = vistas.find(nombre);
    return v == vistas.end() ? nullptr : &v->second;
}

} // namespace vk::ui
