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

namespace {

const QString kMascaraPorcentaje = QStringLiteral("##0.00");

} // namespace

frmCopiaFacturas::frmCopiaFacturas(VKFACVENTAS& factura, qint32 idOrigen)
    : factura_(factura), bd_(factura.MyBd()), idOrigen_(idOrigen) {
    Caption = mensajes::kTituloCopia;
    if (!fnCargaFactura(bd_.cn(), origen_, idOrigen)) {
        throw ErrorRegla(mensajes::kFacturaInexistente);
    }
    direccion.CargaCombos(bd_);
    cboFpago = QStringList{mensajes::kSinAsignar} + msCargarFormasCobro(bd_);
    Text1[0] = origen_.SerieFactura.trimmed();
    Text1[1] = QString::number(origen_.NumeroFactura);
    Text1[2] = Format(fnFechaServidor(bd_), QStringLiteral("dd/mm/yyyy"));
    lblCliente = QString::number(origen_.CliCod) + QStringLiteral(" - ") + origen_.CliNom.trimmed();
    muestra(fnCabeceraCopia(bd_, origen_));
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

void frmCopiaFacturas::muestra(const CabeceraFactura& h) {
    cabecera_ = h;
    direccion.Muestra(h.direccion.value_or(DireccionFactura{}));
    Text1[20] = Format(h.dto1, kMascaraPorcentaje);
    Text1[22] = Format(h.dto2, kMascaraPorcentaje);
    Text1[24] = h.atencion;
    txtFavObs = h.observaciones;
    cboFpagoIndex =
        h.idFco > 0 ? fnIndiceCombo(cboFpago, Format(h.idFco, QStringLiteral("00"))) : 0;
    if (cboFpagoIndex < 0) {
        cboFpagoIndex = 0;
    }
    const Recordset cli = bd_.cn().Execute(
        QStringLiteral("SELECT CLI_OBSER FROM Cli WHERE Cli_Id = ?"), {h.idCliente});
    lblCliObs = cli.Eof() ? QString() : cli.Fields(0).Texto();
}

CabeceraFactura frmCopiaFacturas::cabeceraMostrada() const {
    CabeceraFactura h = cabecera_;
    h.serie = Text1[0].trimmed();
    h.fecha = fnLeeFecha(Text1[2]);
    h.direccion = direccion.Leida();
    h.dto1 = LeeNumeroTecleado(Text1[20]).value_or(cabecera_.dto1);
    h.dto2 = LeeNumeroTecleado(Text1[22]).value_or(cabecera_.dto2);
    h.atencion = Text1[24];
    h.observaciones = txtFavObs;
    if (cboFpagoIndex >= 0 && cboFpagoIndex < cboFpago.size()) {
        h.idFco = fnIdCombo(cboFpago[cboFpagoIndex]);
    }
    return h;
}

void frmCopiaFacturas::XPButton2() {
    const std::optional<ClienteElegido> cliente = fnBuscaCliente(bd_, mensajes::kBuscarClientes);
    if (!cliente) {
        return;
    }
    muestra(fnCabeceraCopia(bd_, origen_, cliente->id));
    lblCliente = cliente->codigo.trimmed() + QStringLiteral(" - ") + cliente->nombre.trimmed();
}

void frmCopiaFacturas::cmdDir() {
    direccion.OtraDireccion(bd_, cabecera_.idCliente, mensajes::kOtrasDirecciones);
}

bool frmCopiaFacturas::cmdCopiar() {
    if (!Ui().Pregunta(Check1 ? mensajes::kConfirmaAbono : mensajes::kConfirmaCopia, Caption,
                       false)) {
        return false;
    }
    CopiaFactura c;
    try {
        c.cabecera = cabeceraMostrada();
    } catch (const ErrorRegla& e) {
        Ui().Mensaje(e.Mensaje(), Icono::Aviso, Caption);
        return false;
    }
    c.idOrigen = idOrigen_;
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
