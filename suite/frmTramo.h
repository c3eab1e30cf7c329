// One transport leg, read-only: the unload, the load it comes from, its trip
// with the trip's vehicles, and the invoice line that invoices it.
#pragma once

#include <QString>
#include <QStringList>

namespace vk {

class BdSesion;

class frmTramo {
public:
    // Loads leg `idTramo`; the line shown is `idLav`, or the leg's own when
    // 0. Throws ErrorRegla when the leg does not exist.
    frmTramo(BdSesion& bd, qint32 idTramo, qint32 idLav);

    QString Caption;
    // The unload (TrDes).
    QString txtFechaDescarga;
    QString txtPoblacionDescarga;
    QString txtEmpresaDescarga;
    QString txtKilos;
    QString txtPaisDescarga;
    // The load (TrCar).
    QString txtFechaCarga;
    QString txtPoblacionCarga;
    QString txtEmpresaCarga;
    QString txtCantidad;
    QString txtUnidad;
    QString txtAlbaranCarga;
    // The trip (TrVia) and its vehicles, "tractor / trailer" each.
    QString txtViaje;
    QStringList lstVehiculos;
    // The invoice line; all empty while the leg is not invoiced.
    QString txtLinea;
    QString txtImporteLinea;
    QString txtAlbaranLinea;
    QString txtFacturaLinea;
    bool Visible = true;

    void cmdSalir() { Visible = false; } // closes, as Escape does
};

} // namespace vk
