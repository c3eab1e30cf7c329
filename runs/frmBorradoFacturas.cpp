#include "frmBorradoFacturas.h"

#include "MensajesRuns.h"

#include <BdSesion.h>
#include <EdicionFactura.h>
#include <Error.h>
#include <Formato.h>
#include <Interaccion.h>
#include <ReglasFecha.h>
#include <VKFACVENTAS.h>

namespace vk {

frmBorradoFacturas::frmBorradoFacturas(VKFACVENTAS& factura)
    : factura_(factura), bd_(factura.MyBd()) {
    Caption = mensajes::kTituloBorradoFacturas;
    Label2 = mensajes::kBorradoIncompleto;
    Label2_Visible = bd_.Parametros().Item(QStringLiteral("Par_ModTransportes")).Entero() == 1;
    if (!bd_.EsAdministrador()) {
        Ui().Mensaje(mensajes::kSoloAdministradores, Icono::Aviso, Caption);
        Cerrada = true;
    }
}

void frmBorradoFacturas::cmdBuscar() {
    ultimaOrdenFallida = false;
    if (Cerrada) {
        return;
    }
    const QString serie = Text1[5].trimmed();
    if (serie.isEmpty()) {
        ultimaOrdenFallida = true;
        Ui().Mensaje(mensajes::kFaltaSerieBorrado, Icono::Aviso, Caption);
        return;
    }
    QString sql = QStringLiteral(
        "SELECT Fav_Id, Fav_Serie, Fav_Numero, Fav_Fecha, Fav_Total, Fav_ImpDto1, Fav_ImpDto2, "
        "Fav_Biva1, Fav_Biva2, Fav_Biva3, Fav_ImpIva1, Fav_ImpIva2, Fav_ImpIva3, Fav_ImpRec1, "
        "Fav_ImpRec2, Fav_ImpRec3, Fav_ImpRet, Fav_Clinom, fav_CLICOD, Fav_CliDoc, Fav_Conex, "
        "Fav_DocCont FROM Fav WHERE Fav_Serie = ?");
    QVariantList parametros{serie};
    const auto numero = [&](const QString& texto, const QString& condicion) {
        if (!texto.trimmed().isEmpty()) {
            sql += condicion;
            parametros << static_cast<qint32>(Val(texto));
        }
    };
    numero(Text1[0], QStringLiteral(" AND Fav_Numero >= ?"));
    numero(Text1[1], QStringLiteral(" AND Fav_Numero <= ?"));
    try {
        const auto fecha = [&](const QString& texto, const QString& condicion) {
            if (!texto.trimmed().isEmpty()) {
                sql += condicion;
                parametros << bd_.dialecto().valorFecha(fnLeeFecha(texto));
            }
        };
        fecha(Text1[2], QStringLiteral(" AND Fav_Fecha >= ?"));
        fecha(Text1[3], QStringLiteral(" AND Fav_Fecha <= ?"));
    } catch (const ErrorRegla& e) {
        ultimaOrdenFallida = true;
        Ui().Mensaje(e.Mensaje(), Icono::Aviso, Caption);
        return;
    }
    sql += QStringLiteral(" ORDER BY Fav_Fecha, Fav_Serie, Fav_Numero");

    dbgFacturas.clear();
    for (Recordset rs = bd_.cn().Execute(sql, parametros); !rs.Eof(); rs.MoveNext()) {
        const auto d = [&](const char* columna) {
            return rs.Fields(QString::fromLatin1(columna)).Doble();
        };
        const auto t = [&](const char* columna) {
            return rs.Fields(QString::fromLatin1(columna)).Texto();
        };
        FacturaBorrable f;
        f.Fav_Id = static_cast<qint32>(rs.Fields(QStringLiteral("Fav_Id")).Entero());
        f.Factura = t("Fav_Serie").trimmed() + u'/' + t("Fav_Numero");
        f.Fecha = rs.Fields(QStringLiteral("Fav_Fecha")).Fecha();
        f.Total = d("Fav_Total");
        f.Descuentos = d("Fav_ImpDto1") + d("Fav_ImpDto2");
        f.Bases = d("Fav_Biva1") + d("Fav_Biva2") + d("Fav_Biva3");
        f.Iva = d("Fav_ImpIva1") + d("Fav_ImpIva2") + d("Fav_ImpIva3");
        f.Recargo = d("Fav_ImpRec1") + d("Fav_ImpRec2") + d("Fav_ImpRec3");
        f.Retencion = d("Fav_ImpRet");
        f.Cliente = t("Fav_Clinom").trimmed() + QStringLiteral("  (") + t("fav_CLICOD") + u')';
        f.Documento = t("Fav_CliDoc");
        f.EstadoContable = rs.Fields(QStringLiteral("Fav_Conex")).Entero() != 0
                               ? QStringLiteral("Contabilizada ") + t("Fav_DocCont")
                               : QStringLiteral("No Contabilizada");
        dbgFacturas.push_back(std::move(f));
    }
    cmdBorrar_Enabled = !dbgFacturas.empty();
}

void frmBorradoFacturas::cmdBorrar() {
    ultimaOrdenFallida = false;
    facturasBorradas = 0;
    if (Cerrada || dbgFacturas.empty()) {
        return;
    }
    if (!Ui().Pregunta(mensajes::kSeguroBorrarSeleccion, Caption, false) ||
        !Ui().Pregunta(mensajes::kConfirmaBorrarVisibles, Caption, false)) {
        return;
    }
    std::vector<qint32> ids;
    ids.reserve(dbgFacturas.size());
    for (const FacturaBorrable& f : dbgFacturas) {
        ids.push_back(f.Fav_Id);
    }
    Ui().PunteroEspera(true);
    try {
        msBorraFacturas(factura_, ids, Check1);
        Ui().PunteroEspera(false);
        facturasBorradas = static_cast<int>(ids.size());
        Ui().Mensaje(mensajes::kBorradoFinalizado, Icono::Informacion, Caption);
    } catch (const Error& e) {
        Ui().PunteroEspera(false);
        ultimaOrdenFallida = true;
        Ui().Mensaje(mensajes::kErrorBorrado + e.Mensaje(), Icono::Error, Caption);
    }
    // The list shows what stands now; the flag tells the deletion's outcome.
    const bool fallida = ultimaOrdenFallida;
    cmdBuscar();
    ultimaOrdenFallida = fallida;
}

} // namespace vk
