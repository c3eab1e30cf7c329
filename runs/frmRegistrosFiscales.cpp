#include "frmRegistrosFiscales.h"

#include <BdSesion.h>
#include <CadenaFiscal.h>
#include <Interaccion.h>
#include <MensajesFiscal.h>
#include <VKFACVENTAS.h>
#include <VerificaCadena.h>

namespace vk {

namespace {

const std::array<QString, 4> kEstados{QStringLiteral("Pendiente"), QStringLiteral("Aceptado"),
                                      QStringLiteral("Aceptado con errores"),
                                      QStringLiteral("Rechazado")};

} // namespace

frmRegistrosFiscales::frmRegistrosFiscales(VKFACVENTAS& factura) : bd_(factura.MyBd()) {
    lblEntorno = fiscal::fnEntorno(bd_) == fiscal::EntornoFiscal::Produccion
                     ? QStringLiteral("Envío a la AEAT: entorno de producción")
                     : QStringLiteral("Envío a la AEAT: entorno de pruebas");
    if (!fiscal::fnRegistrosActivos(bd_)) {
        lblEntorno = QStringLiteral("La empresa no tiene activados los registros de facturación");
    }
    cmdActualizar();
}

void frmRegistrosFiscales::cmdActualizar() {
    Conexion& cn = bd_.cn();
    porEstado.fill(0);
    total = 0;
    for (Recordset rs = cn.Execute(
             QStringLiteral("SELECT Vfe_Estado, COUNT(*) FROM VfEnvio GROUP BY Vfe_Estado"));
         !rs.Eof(); rs.MoveNext()) {
        const qint64 e = rs.Fields(0).Entero();
        if (e >= 0 && e < 4) {
            porEstado[static_cast<std::size_t>(e)] = rs.Fields(1).Entero();
        }
    }
    total = cn.Execute(QStringLiteral("SELECT COUNT(*) FROM VfRegistro")).Fields(0).Entero();
    dbgRegistros.clear();
    const QString filtro = chkSoloRechazados ? QStringLiteral(" WHERE Vfe_Estado = 3") : QString();
    for (Recordset rs = cn.Execute(
             QStringLiteral("SELECT Vfr_Id, Vfr_Tipo, Vfr_NumSerie, Vfr_Fecha, Vfr_TipoFactura, "
                            "Vfr_ImporteTotal, COALESCE(Vfe_Estado, 0), Vfe_Codigo, "
                            "Vfe_Descripcion, Vfr_FechaHora FROM VfRegistro LEFT JOIN VfEnvio ON "
                            "Vfe_IdRegistro = Vfr_Id%1 ORDER BY Vfr_Id DESC LIMIT ?")
                 .arg(filtro),
             {kFilas});
         !rs.Eof(); rs.MoveNext()) {
        FilaRegistroFiscal f;
        f.id = static_cast<qint32>(rs.Fields(0).Entero());
        const bool alta = rs.Fields(1).Texto().trimmed() == QLatin1String("A");
        f.tipo = alta ? QStringLiteral("Alta") : QStringLiteral("Anulación");
        f.factura = rs.Fields(2).Texto();
        f.fecha = rs.Fields(3).Texto();
        f.tipoFactura = rs.Fields(4).Texto();
        f.importe = alta ? rs.Fields(5).Texto() : QString();
        const qint64 e = rs.Fields(6).Entero();
        f.estado = e >= 0 && e < 4 ? kEstados[static_cast<std::size_t>(e)] : QString();
        if (e >= 2) {
            f.motivo = QString::number(rs.Fields(7).Entero()) + QStringLiteral(" - ") +
                       rs.Fields(8).Texto().trimmed();
        }
        f.fechaHora = rs.Fields(9).Texto();
        dbgRegistros.push_back(std::move(f));
    }
}

void frmRegistrosFiscales::cmdVerificar() {
    const fiscal::ResultadoVerificacion v = fiscal::fnVerificaCadena(bd_);
    if (v.registros == 0) {
        lblCadena = mensajes::kCadenaVacia;
    } else if (v.Correcta()) {
        lblCadena = mensajes::kCadenaCorrecta.arg(v.registros);
    } else {
        lblCadena = v.descripcion;
    }
    Ui().Mensaje(lblCadena, v.Correcta() ? Icono::Informacion : Icono::Error, Caption);
}

} // namespace vk
