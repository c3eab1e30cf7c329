#include "frmTramo.h"

#include "MensajesSuite.h"

#include <BdSesion.h>
#include <Error.h>
#include <Formato.h>

namespace vk {

namespace {

const QString kFecha = QStringLiteral("dd/mm/yyyy");

QString serieNumero(const Recordset& rs, const char* serie, const char* numero) {
    const Campo n = rs.Fields(QString::fromLatin1(numero));
    if (n.IsNull()) {
        return {};
    }
    return rs.Fields(QString::fromLatin1(serie)).Texto().trimmed() + u'/' +
           QString::number(n.Entero());
}

} // namespace

frmTramo::frmTramo(BdSesion& bd, qint32 idTramo, qint32 idLav) {
    const Recordset rs = bd.cn().Execute(
        QStringLiteral("SELECT TrDes_IdLav, TrDes_FDescarga, TrDes_Poblacion, TrDes_NomEmp, "
                       "TrDes_Kilos, TrDes_Pais, TrCar_Fecha, TrCar_Poblacion, TrCar_NomEmp, "
                       "TrCar_Cantidad, TrCar_Unidad, TrCar_sAlbaran, TrVia_Id, TrVia_Serie, "
                       "TrVia_Numero FROM TrDes LEFT JOIN TrCar ON TrCar_Id = TrDes_IdCar LEFT "
                       "JOIN TrVia ON TrVia_Id = TrCar_IdVia WHERE TrDes_Id = ?"),
        {idTramo});
    if (rs.Eof()) {
        throw ErrorRegla(suite::mensajes::kTramoInexistente.arg(idTramo));
    }
    const auto t = [&rs](const char* c) {
        return rs.Fields(QString::fromLatin1(c)).Texto().trimmed();
    };
    const auto numero = [&rs](const char* c) {
        const Campo f = rs.Fields(QString::fromLatin1(c));
        // An empty mask: no grouping, decimals only when there are any.
        return f.IsNull() ? QString() : Format(f.Doble(), QString());
    };
    txtFechaDescarga = Format(rs.Fields(QStringLiteral("TrDes_FDescarga")).Fecha(), kFecha);
    txtPoblacionDescarga = t("TrDes_Poblacion");
    txtEmpresaDescarga = t("TrDes_NomEmp");
    txtKilos = numero("TrDes_Kilos");
    txtPaisDescarga = t("TrDes_Pais");
    txtFechaCarga = Format(rs.Fields(QStringLiteral("TrCar_Fecha")).Fecha(), kFecha);
    txtPoblacionCarga = t("TrCar_Poblacion");
    txtEmpresaCarga = t("TrCar_NomEmp");
    txtCantidad = numero("TrCar_Cantidad");
    txtUnidad = t("TrCar_Unidad");
    txtAlbaranCarga = t("TrCar_sAlbaran");
    txtViaje = serieNumero(rs, "TrVia_Serie", "TrVia_Numero");
    Caption = txtViaje.isEmpty()
                  ? QStringLiteral("Tramo %1").arg(idTramo)
                  : QStringLiteral("Tramo %1 del viaje %2").arg(idTramo).arg(txtViaje);

    if (const Campo via = rs.Fields(QStringLiteral("TrVia_Id")); !via.IsNull()) {
        for (Recordset v = bd.cn().Execute(
                 QStringLiteral("SELECT TrViaVeh_MatriTra, TrViaVeh_MatriRem FROM TrViaVeh WHERE "
                                "TrViaVeh_IdVia = ? ORDER BY TrViaVeh_Id"),
                 {via.Entero()});
             !v.Eof(); v.MoveNext()) {
            const QString remolque = v.Fields(1).Texto().trimmed();
            lstVehiculos << (remolque.isEmpty() ? v.Fields(0).Texto().trimmed()
                                                : v.Fields(0).Texto().trimmed() +
                                                      QStringLiteral(" / ") + remolque);
        }
    }

    const qint64 linea = idLav > 0 ? idLav : rs.Fields(QStringLiteral("TrDes_IdLav")).Entero();
    if (linea > 0) {
        const Recordset l = bd.cn().Execute(
            QStringLiteral("SELECT Lav_Des, Lav_Importe, Cav_Serie, Cav_Numero, Fav_Serie, "
                           "Fav_Numero FROM Lav INNER JOIN Cav ON Cav_Id = Lav_IdCav LEFT JOIN "
                           "Fav ON Fav_Id = Cav_IdFactura WHERE Lav_Id = ?"),
            {linea});
        if (!l.Eof()) {
            txtLinea = l.Fields(0).Texto().trimmed();
            txtImporteLinea = FormatoMoneda(l.Fields(1).Doble());
            txtAlbaranLinea = serieNumero(l, "Cav_Serie", "Cav_Numero");
            txtFacturaLinea = serieNumero(l, "Fav_Serie", "Fav_Numero");
        }
    }
}

} // namespace vk
