#include "frmCopiaFacturas.h"

#include "Combos.h"
#include "MensajesRuns.h"

#include <BdSesion.h>
#include <CargaFactura.h>
#include <CopiaFactura.h>
#include <ErrorBd.h>
#include <Formato.h>
#include <ReglasFecha.h>
#include <VKFACVENTAS.h>

namespace vk {

frmCopiaFacturas::frmCopiaFacturas(VKFACVENTAS& factura, qint32 idOrigen)
    : factura_(factura), bd_(factura.MyBd()), idOrigen_(idOrigen) {
    Caption = mensajes::kTituloCopia;
    RegistroFactura origen;
    if (!fnCargaFactura(bd_.cn(), origen, idOrigen)) {
        throw ErrorRegla(mensajes::kFacturaInexistente);
    }
    Text1[0] = origen.SerieFactura.trimmed();
    Text1[1] = QString::number(origen.NumeroFactura);
    Text1[2] = Format(QDate::currentDate(), QStringLiteral("dd/mm/yyyy"));
    lblCliente = QString::number(origen.CliCod) + QStringLiteral(" - ") + origen.CliNom.trimmed();
    muestraCliente(origen.IdCliente);
    for (Recordset rs = bd_.cn().Execute(
             QStringLiteral("SELECT Cav_Serie, Cav_Numero, Cav_Fecha FROM Cav WHERE "
                            "Cav_IdFactura = ? ORDER BY Cav_Fecha, Cav_Id"),
             {idOrigen});
         !rs.Eof(); rs.MoveNext()) {
        dbgAlbaranes.push_back({rs.Fields(0).Texto().trimmed() + QLatin1Char('/') +
                                    QString::number(rs.Fields(1).Entero()),
                                rs.Fields(2).Fecha()});
    }
    for (Recordset rs = bd_.cn().Execute(
             QStringLiteral("SELECT DISTINCT Fav_Serie FROM Fav ORDER BY Fav_Serie"));
         !rs.Eof(); rs.MoveNext()) {
        cboSeries << rs.Fields(0).Texto().trimmed();
    }
    cboSeriesIndex = static_cast<int>(cboSeries.indexOf(Text1[0]));
}

void frmCopiaFacturas::XPButton2() {
    const std::optional<ClienteElegido> cliente = fnBuscaCliente(bd_, mensajes::kBuscarClientes);
    if (!cliente) {
        return;
    }
    idCliente_ = cliente->id;
    lblCliente = cliente->codigo.trimmed() + QStringLiteral(" - ") + cliente->nombre.trimmed();
    muestraCliente(*idCliente_);
}

void frmCopiaFacturas::muestraCliente(qint32 idCliente) {
    const Recordset cli =
        bd_.cn().Execute(QStringLiteral("SELECT CLI_OBSER FROM Cli WHERE Cli_Id = ?"), {idCliente});
    lblCliObs = cli.Eof() ? QString() : cli.Fields(0).Texto();
}

bool frmCopiaFacturas::cmdCopiar() {
    if (!Ui().Pregunta(Check1 ? mensajes::kConfirmaAbono : mensajes::kConfirmaCopia, Caption,
                       false)) {
        return false;
    }
    CopiaFactura c;
    try {
        c.fecha = fnLeeFecha(Text1[2]);
    } catch (const ErrorRegla& e) {
        Ui().Mensaje(e.Mensaje(), Icono::Aviso, Caption);
        return false;
    }
    c.idOrigen = idOrigen_;
    c.serie = Text1[0].trimmed();
    c.idCliente = idCliente_;
    c.abono = Check1;
    const ResultadoFacturacion r = msCopiaFactura(factura_, c);
    if (!r.Creada()) {
        // No reason: the person gave up in a question of the copy itself.
        if (!r.motivo.isEmpty()) {
            Ui().Mensaje(mensajes::kErrorCopia + r.motivo, Icono::Error, mensajes::kTituloCopia);
        }
        return false;
    }
    idNueva_ = r.idFactura;
    if (Check1) {
        Ui().Mensaje(mensajes::kAbonoFinalizado, Icono::Informacion, mensajes::kTituloAbonoHecho);
    } else {
        Ui().Mensaje(mensajes::kCopiaFinalizada, Icono::Informacion, mensajes::kTituloCopiaHecha);
    }
    return true;
}

} // namespace vk
