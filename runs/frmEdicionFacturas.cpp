// The edit screen's load: the invoice, its address, totals, combos, notes and
// receipts, and walking the series by number.
#include "frmEdicionFacturas.h"

#include "Combos.h"
#include "MensajesRuns.h"

#include <BdSesion.h>
#include <CargaFactura.h>
#include <DireccionFactura.h>
#include <ErrorBd.h>
#include <Formato.h>
#include <Interaccion.h>
#include <Redondeo.h>
#include <ReglasFecha.h>

namespace vk {

namespace {

const QString kMascaraImporte = QStringLiteral("#,###,##0.00");
const QString kMascaraPorcentaje = QStringLiteral("##0.00");

QString importe(double valor) {
    return Format(valor, kMascaraImporte);
}

} // namespace

frmEdicionFacturas::frmEdicionFacturas(VKFACVENTAS& factura, const QString& sSerie, qint32 nNumero,
                                       bool soloLectura)
    : bSoloLectura(soloLectura), factura_(factura), bd_(factura.MyBd()) {
    Caption = mensajes::kTituloEdicion + mensajes::kVersionPantalla.arg(QStringLiteral(VK_VERSION));
    const BdParametros& par = bd_.Parametros();
    if (par.Item(QStringLiteral("Par_Automocion")).Activo()) {
        lblRetencion = mensajes::kFranquicia;
    }
    mnuTransporte_Visible = par.Item(QStringLiteral("Par_DiseñoFactura")).Entero() == 4 ||
                            par.Item(QStringLiteral("Par_ModTransportes")).Entero() == 1;
    direccion.CargaCombos(bd_);
    cboFpago = QStringList{mensajes::kSinAsignar} + msCargarFormasCobro(bd_);
    if (bSoloLectura) {
        cmdActualiza_Enabled = cmdBorrar_Enabled = XPButton2_Enabled = false;
        Frame2_Enabled = Frame3_Enabled = Frame5_Enabled = false;
    }
    Text1[0] = sSerie.trimmed();
    Text1[1] = nNumero > 0 ? QString::number(nNumero) : QString();
    if (nNumero > 0) {
        msCargarFactura();
    }
}

bool frmEdicionFacturas::msCargarFactura() {
    const qint32 numero = static_cast<qint32>(Val(Text1[1]));
    if (Text1[0].trimmed().isEmpty() || numero <= 0) {
        return false;
    }
    const std::optional<qint32> id = fnIdFactura(bd_, Text1[0].trimmed(), numero);
    if (!id) {
        return false;
    }
    cargaPorId(*id);
    return true;
}

void frmEdicionFacturas::cargaPorId(qint32 idFactura) {
    if (!fnCargaFactura(bd_.cn(), cargada_, idFactura)) {
        throw ErrorRegla(mensajes::kFacturaInexistente);
    }
    // The facade holds the invoice in hand, as every screen leaves it.
    factura_.CargaFactura(idFactura);
    idFactura_ = idFactura;
    const RegistroFactura& f = cargada_;
    Text1[0] = f.SerieFactura;
    Text1[1] = QString::number(f.NumeroFactura);
    Text1[2] = Format(f.FechaFactura, QStringLiteral("dd/mm/yyyy"));
    lblCliente = QString::number(f.CliCod) + QStringLiteral(" - ") + f.CliNom.trimmed();
    const Recordset cli = bd_.cn().Execute(
        QStringLiteral("SELECT CLI_OBSER FROM Cli WHERE Cli_Id = ?"), {f.IdCliente});
    lblCliObs = cli.Eof() ? QString() : cli.Fields(0).Texto();
    const Recordset extra =
        bd_.cn().Execute(QStringLiteral("SELECT Fav_RCA FROM Fav WHERE Fav_Id = ?"), {idFactura});
    cargandoCheck_ = true;
    Check2 = !extra.Eof() && extra.Fields(0).Entero() != 0;
    Check1 = f.IdLavManual > 0;
    cargandoCheck_ = false;
    Text1_4_Enabled = Check1 && !bSoloLectura;

    muestraDireccion();
    Text1[20] = Format(f.PorcentajeDto1, kMascaraPorcentaje);
    Text1[22] = Format(f.PorcentajeDto2, kMascaraPorcentaje);
    Text1[24] = f.Aatencion;
    Text1[27] = f.sCtaCompensa;
    txtFavObs = f.Observaciones;
    txtRetencionNF = Format(f.porcentajeretencionnf, kMascaraPorcentaje);
    Option1 = f.nModoRetNF == 1 ? 1 : 0;
    cboFpagoIndex =
        f.IdFco > 0 ? fnIndiceCombo(cboFpago, Format(f.IdFco, QStringLiteral("00"))) : 0;
    if (cboFpagoIndex < 0) {
        cboFpagoIndex = 0;
    }
    cboSeries.clear();
    for (Recordset rs = bd_.cn().Execute(QStringLiteral("SELECT DISTINCT Fav_Serie FROM Fav WHERE "
                                                        "Fav_Serie <> ? ORDER BY Fav_Serie"),
                                         {f.SerieFactura});
         !rs.Eof(); rs.MoveNext()) {
        cboSeries << rs.Fields(0).Texto().trimmed();
    }
    cboSeriesIndex = -1;
    muestraTotales();
    msCargarAlbaranes();
    msCargarRecibos();
}

void frmEdicionFacturas::recarga() {
    try {
        cargaPorId(idFactura_);
    } catch (const ErrorRegla&) {
        idFactura_ = 0;
        dbgAlbaranes.clear();
        dbgRecibos.clear();
        filaAlbaran = -1;
        Ui().Mensaje(mensajes::kFacturaInexistente, Icono::Aviso, mensajes::kAccionCancelada);
    }
}

void frmEdicionFacturas::muestraDireccion() {
    const RegistroFactura& f = cargada_;
    // An invoice that points at an address shows it as it is now.
    direccion.Muestra(f.idDir > 0 ? fnDireccionDir(bd_, f.idDir) : fnDireccionDeRegistro(f));
}

void frmEdicionFacturas::muestraTotales() {
    const RegistroFactura& f = cargada_;
    double iva = 0;
    double recargo = 0;
    for (const TramoIva& t : f.TramosIva) {
        iva += t.ImpIva;
        recargo += t.ImpRecargo;
    }
    Text1[40] = importe(f.Bruto);
    Text1[9] = importe(f.ImpDto1 + f.ImpDto2 + f.ImpDtoPie1);
    Text1[10] = importe(f.SumaBases());
    Text1[11] = importe(iva);
    Text1[12] = importe(recargo);
    Text1[13] = importe(f.ImpRetencion);
    Text1[4] = importe(f.TotalFactura);
    lblRetencionNF = importe(f.RetencionNF);
    lblLiquido = importe(f.Liquido);
}

void frmEdicionFacturas::msCargarAlbaranes() {
    dbgAlbaranes.clear();
    Recordset rs = bd_.cn().Execute(
        QStringLiteral("SELECT Cav_Id, Lav_Id, Cav_Serie, Cav_Numero, Cav_Fecha, Lav_Des, "
                       "Lav_Cantidad, Lav_Precio, Lav_Importe, Lav_IdViaje FROM Cav LEFT JOIN Lav "
                       "ON Lav_IdCav = Cav_Id WHERE Cav_IdFactura = ? ORDER BY Cav_Fecha, Cav_Id, "
                       "Lav_Orden, Lav_Id"),
        {idFactura_});
    for (; !rs.Eof(); rs.MoveNext()) {
        LineaAlbaranFactura l;
        l.Cav_Id = static_cast<qint32>(rs.Fields(0).Entero());
        l.Lav_Id = static_cast<qint32>(rs.Fields(1).Entero());
        l.albaran = rs.Fields(2).Texto().trimmed() + QLatin1Char('/') +
                    QString::number(rs.Fields(3).Entero());
        l.Cav_Fecha = rs.Fields(4).Fecha();
        l.Lav_Des = rs.Fields(5).Texto();
        l.Lav_Cantidad = rs.Fields(6).Doble();
        l.Lav_Precio = rs.Fields(7).Doble();
        l.Lav_Importe = rs.Fields(8).Doble();
        l.Lav_IdViaje = static_cast<qint32>(rs.Fields(9).Entero());
        dbgAlbaranes.push_back(std::move(l));
    }
    filaAlbaran = dbgAlbaranes.empty() ? -1 : 0;
}

void frmEdicionFacturas::msCargarRecibos() {
    dbgRecibos.clear();
    // The account in its four parts: entity, office, check digits, number.
    Recordset rs = bd_.cn().Execute(
        QStringLiteral(
            "SELECT Rec_Id, Rec_Fvto, (SELECT Sit_Des FROM vkcomun.Situaciones WHERE Sit_Proceso "
            "= 2 AND Sit_Idioma = 0 AND Sit_Cod = Rec_Mod) AS Modalidad, (SUBSTR(Rec_Cta, 1, 4) "
            "|| ' ' || SUBSTR(Rec_Cta, 5, 4) || ' ' || SUBSTR(Rec_Cta, 9, 2) || ' ' || "
            "SUBSTR(Rec_Cta, 11, 10)) AS ccc, (SELECT Sit_Des FROM vkcomun.Situaciones WHERE "
            "Sit_Proceso = 1 AND Sit_Idioma = 0 AND Sit_Cod = Rec_Sit) AS Situacion, "
            "Rec_Importe, Rec_Obser, Rec_Sit FROM Rec WHERE Rec_Tipo = 1 AND Rec_IdFac = ? "
            "ORDER BY Rec_Fvto, Rec_Id"),
        {idFactura_});
    for (; !rs.Eof(); rs.MoveNext()) {
        ReciboFactura r;
        r.Rec_Id = static_cast<qint32>(rs.Fields(0).Entero());
        r.Rec_Fvto = rs.Fields(1).Fecha();
        r.Modalidad = rs.Fields(2).Texto();
        r.ccc = rs.Fields(3).Texto().trimmed();
        r.Situacion = rs.Fields(4).Texto();
        r.Rec_Importe = rs.Fields(5).Doble();
        r.Rec_Obser = rs.Fields(6).Texto();
        r.Rec_Sit = static_cast<qint32>(rs.Fields(7).Entero());
        dbgRecibos.push_back(std::move(r));
    }
}

void frmEdicionFacturas::cmdNav(Boton boton) {
    const QString serie = Text1[0].trimmed();
    const qint32 numero = static_cast<qint32>(Val(Text1[1]));
    Recordset rs;
    switch (boton) {
    case Boton::Primera:
        rs = bd_.cn().Execute(
            QStringLiteral("SELECT COALESCE(MIN(Fav_Numero), 0) FROM Fav WHERE Fav_Serie = ?"),
            {serie});
        break;
    case Boton::Anterior:
        rs = bd_.cn().Execute(QStringLiteral("SELECT Fav_Numero FROM Fav WHERE Fav_Serie = ? AND "
                                             "Fav_Numero < ? ORDER BY Fav_Numero DESC LIMIT 1"),
                              {serie, numero});
        break;
    case Boton::Siguiente:
        rs = bd_.cn().Execute(QStringLiteral("SELECT Fav_Numero FROM Fav WHERE Fav_Serie = ? AND "
                                             "Fav_Numero > ? ORDER BY Fav_Numero LIMIT 1"),
                              {serie, numero});
        break;
    case Boton::Ultima:
        rs = bd_.cn().Execute(
            QStringLiteral("SELECT COALESCE(MAX(Fav_Numero), 0) FROM Fav WHERE Fav_Serie = ?"),
            {serie});
        break;
    }
    const qint64 encontrado = rs.Eof() ? 0 : rs.Fields(0).Entero();
    if (encontrado <= 0) {
        return; // past either end the invoice stays in place
    }
    Text1[1] = QString::number(encontrado);
    msCargarFactura();
}

void frmEdicionFacturas::Text1_1_LostFocus() {
    ultimaOrdenFallida = false;
    if (HayFactura() && Text1[0].trimmed() == cargada_.SerieFactura.trimmed() &&
        static_cast<qint32>(Val(Text1[1])) == cargada_.NumeroFactura) {
        return;
    }
    if (!msCargarFactura()) {
        ultimaOrdenFallida = true;
        Ui().Mensaje(mensajes::kFacturaInexistente, Icono::Aviso, mensajes::kAccionCancelada);
    }
}

bool frmEdicionFacturas::sigueExistiendo() {
    if (!bd_.cn()
             .Execute(QStringLiteral("SELECT 1 FROM Fav WHERE Fav_Id = ?"), {idFactura_})
             .Eof()) {
        return true;
    }
    ultimaOrdenFallida = true;
    Ui().Mensaje(mensajes::kFacturaInexistente, Icono::Aviso, mensajes::kAccionCancelada);
    return false;
}

QDate frmEdicionFacturas::fechaMostrada() const {
    return fnLeeFecha(Text1[2]);
}

} // namespace vk
