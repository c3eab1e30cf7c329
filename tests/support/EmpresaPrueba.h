// A company for business scenarios: customers, tax rows, delivery notes with
// the lines a test needs, and invoices made through the facade as the
// invoicing screens make them.
#pragma once

#include "BasePrueba.h"

#include <InteraccionGuion.h>
#include <QDate>
#include <VKFACVENTAS.h>
#include <vector>

namespace vk::prueba {

struct LineaPrueba {
    double importe;
    int regimen = 1; // tax row: regime, family and the date it is in force on
    int familia = 1;
    QDate fechaTipo = QDate(2026, 1, 1);
    double resDes = 0;    // Lav_ImpResDes
    double dtoUnidad = 0; // Lav_ImpDtoUnidad
};

struct ClientePrueba {
    int regimen = 1;
    qint32 idFco = 0;
    double retNf = 0;
    int modoRetNf = 0;
    int diaPago1 = 0, diaPago2 = 0, mesSinPago = 0;
    qint32 agente = 0;
};

class EmpresaPrueba {
public:
    explicit EmpresaPrueba(Motor motor);
    ~EmpresaPrueba();

    BdSesion& bd() { return *sesion_; }
    Conexion& cn() { return sesion_->cn(); }
    InteraccionGuion& ui() { return ui_; }
    VKFACVENTAS& factura() { return *factura_; }
    BasePrueba& base() { return base_; }

    // Sets a column of Parametros in the table and in the session's record.
    void parametro(const QString& nombre, const QVariant& valor);

    qint32 cliente(const ClientePrueba& c = {});
    // Payment terms with instalments of (days, share, mode).
    qint32 formaPago(const QString& descripcion,
                     const std::vector<std::tuple<int, double, int>>& plazos);
    // The Tiva_Id of the row of that regime and family in force on the date.
    qint32 tipoIva(int regimen, int familia, const QDate& fecha);
    qint32 albaran(qint32 idCliente, const QDate& fecha, int regimenNota,
                   const std::vector<LineaPrueba>& lineas, qint32 agente = 0);

    // The header the screens compose, NuevaFactura, the notes linked, and the
    // invoice id in IdFactu. Nothing is calculated yet.
    qint32 nuevaFactura(qint32 idCliente, const QDate& fecha, const std::vector<qint32>& albaranes,
                        double dto1 = 0, double dto2 = 0,
                        const QString& serie = QStringLiteral("A"));

    qint64 cuenta(const QString& sql, const QVariantList& params = {});

private:
    BasePrueba base_;
    std::unique_ptr<BdSesion> sesion_;
    InteraccionGuion ui_;
    std::unique_ptr<VKFACVENTAS> factura_;
    int siguienteCodigo_ = 1;
    int siguienteAlbaran_ = 1;
};

} // namespace vk::prueba
