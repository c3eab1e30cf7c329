#include "frmAlbaranVenta.h"

#include "MensajesSuite.h"

#include <BdSesion.h>
#include <Error.h>
#include <Formato.h>
#include <NombreCliente.h>
#include <Redondeo.h>

namespace vk {

namespace {

const QString kMascaraPorcentaje = QStringLiteral("##0.00");
const QString kMascaraPrecio = QStringLiteral("#,###,##0.00####");

// "A/12", the way people name a note or an invoice.
QString serieNumero(const QString& serie, qint64 numero) {
    return serie.trimmed() + u'/' + QString::number(numero);
}

} // namespace

frmAlbaranVenta::frmAlbaranVenta(BdSesion& bd, qint32 idCav, qint32 idLav) {
    const QString nombre = fnNombreCliente(
        static_cast<int>(bd.Parametros().Item(QStringLiteral("PAR_ORCONTANOM")).Entero()));
    const Recordset c = bd.cn().Execute(
        QStringLiteral("SELECT Cav_Serie, Cav_Numero, Cav_Fecha, Cav_Situa, Cav_IdFactura, "
                       "Cav_Dto1, Cav_Dto2, Cli_Cod, %1 AS Nombre, Fco_Des, AGE_NOM, Fav_Serie, "
                       "Fav_Numero FROM Cav LEFT JOIN Cli ON Cli_Id = Cav_IdCli LEFT JOIN Fco ON "
                       "Fco_Id = Cav_IdFco LEFT JOIN Age ON AGE_ID = Cav_Agente LEFT JOIN Fav ON "
                       "Fav_Id = Cav_IdFactura WHERE Cav_Id = ?")
            .arg(nombre),
        {idCav});
    if (c.Eof()) {
        throw ErrorRegla(suite::mensajes::kAlbaranInexistente.arg(idCav));
    }
    const auto t = [&c](const char* col) { return c.Fields(QString::fromLatin1(col)).Texto(); };
    txtAlbaran = serieNumero(t("Cav_Serie"), c.Fields(QStringLiteral("Cav_Numero")).Entero());
    Caption = QStringLiteral("Albarán %1").arg(txtAlbaran);
    txtFecha = Format(c.Fields(QStringLiteral("Cav_Fecha")).Fecha(), QStringLiteral("dd/mm/yyyy"));
    txtCliCod = t("Cli_Cod");
    txtCliNom = t("Nombre").trimmed();
    if (!c.Fields(QStringLiteral("Fav_Numero")).IsNull()) {
        txtFactura = serieNumero(t("Fav_Serie"), c.Fields(QStringLiteral("Fav_Numero")).Entero());
    }
    const bool pendiente = c.Fields(QStringLiteral("Cav_Situa")).Entero() == 1 &&
                           c.Fields(QStringLiteral("Cav_IdFactura")).IsNull();
    txtSituacion = pendiente              ? suite::mensajes::kAlbaranPendiente
                   : txtFactura.isEmpty() ? suite::mensajes::kAlbaranFacturado
                                          : suite::mensajes::kAlbaranFacturadoEn.arg(txtFactura);
    txtFormaPago = t("Fco_Des").trimmed();
    txtDto1 = Format(c.Fields(QStringLiteral("Cav_Dto1")).Doble(), kMascaraPorcentaje);
    txtDto2 = Format(c.Fields(QStringLiteral("Cav_Dto2")).Doble(), kMascaraPorcentaje);
    txtAgente = t("AGE_NOM").trimmed();

    double total = 0;
    for (Recordset l = bd.cn().Execute(
             QStringLiteral("SELECT Lav_Id, Lav_Orden, Lav_CodArt, Lav_Des, Lav_Cantidad, "
                            "Lav_Precio, Lav_Dto1, Lav_Dto2, Lav_Importe, Tiva_Iva, Lav_IdViaje "
                            "FROM Lav LEFT JOIN vkcomun.TIVAS ON Tiva_Id = Lav_Tiva WHERE "
                            "Lav_IdCav = ? ORDER BY Lav_Orden, Lav_Id"),
             {idCav});
         !l.Eof(); l.MoveNext()) {
        const auto n = [&l](const char* col) { return l.Fields(QString::fromLatin1(col)); };
        LineaAlbaranVenta linea;
        linea.Lav_Id = static_cast<qint32>(n("Lav_Id").Entero());
        linea.orden = QString::number(n("Lav_Orden").Entero());
        linea.codigo = n("Lav_CodArt").Texto().trimmed();
        linea.descripcion = n("Lav_Des").Texto().trimmed();
        // An empty mask: no grouping, decimals only when there are any.
        linea.cantidad = Format(n("Lav_Cantidad").Doble(), QString());
        linea.precio = Format(n("Lav_Precio").Doble(), kMascaraPrecio);
        linea.dto1 = Format(n("Lav_Dto1").Doble(), kMascaraPorcentaje);
        linea.dto2 = Format(n("Lav_Dto2").Doble(), kMascaraPorcentaje);
        linea.importe = FormatoMoneda(n("Lav_Importe").Doble());
        linea.iva =
            n("Tiva_Iva").IsNull() ? QString() : Format(n("Tiva_Iva").Doble(), kMascaraPorcentaje);
        if (const qint64 tramo = n("Lav_IdViaje").Entero(); tramo > 0) {
            linea.tramo = QString::number(tramo);
        }
        total += n("Lav_Importe").Doble();
        if (linea.Lav_Id == idLav) {
            filaLinea = static_cast<int>(dbgLineas.size());
        }
        dbgLineas.push_back(std::move(linea));
    }
    if (filaLinea < 0 && !dbgLineas.empty()) {
        filaLinea = 0;
    }
    txtTotal = FormatoMoneda(Redondea(total, 2));
}

} // namespace vk
