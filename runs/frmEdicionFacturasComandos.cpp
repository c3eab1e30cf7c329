// The edit screen's commands on what an invoice holds: its notes, its
// customer and address, its existence, its issue and its transport legs.
#include "Combos.h"
#include "MensajesRuns.h"
#include "frmCopiaFacturas.h"
#include "frmEdicionFacturas.h"

#include <AlbaranesVentas.h>
#include <BdSesion.h>
#include <ErrorBd.h>
#include <Formato.h>
#include <Interaccion.h>
#include <MensajesMotor.h>
#include <Transportes.h>
#include <algorithm>
#include <memory>
#include <set>

namespace vk {

std::optional<qint32> frmEdicionFacturas::albaranTecleado() const {
    const Recordset rs = bd_.cn().Execute(
        QStringLiteral("SELECT Cav_Id FROM Cav WHERE Cav_Serie = ? AND Cav_Numero = ?"),
        {Text1[5].trimmed(), static_cast<qint32>(Val(Text1[6]))});
    if (rs.Eof()) {
        return std::nullopt;
    }
    return static_cast<qint32>(rs.Fields(0).Entero());
}

void frmEdicionFacturas::cmdAñadir() {
    ultimaOrdenFallida = false;
    if (!HayFactura() || bSoloLectura) {
        return;
    }
    const auto rechaza = [this](const QString& texto) {
        ultimaOrdenFallida = true;
        Ui().Mensaje(texto, Icono::Aviso, Caption);
    };
    if (Text1[6].trimmed().isEmpty()) {
        rechaza(mensajes::kDebeNumeroAlbaran);
        return;
    }
    const Recordset rs = bd_.cn().Execute(
        QStringLiteral("SELECT Cav_Id, Cav_IdCli, Cav_Fecha, Cav_Situa, Cav_IdFactura FROM Cav "
                       "WHERE Cav_Serie = ? AND Cav_Numero = ?"),
        {Text1[5].trimmed(), static_cast<qint32>(Val(Text1[6]))});
    if (rs.Eof()) {
        rechaza(mensajes::kAlbaranNoExisteEdicion);
        return;
    }
    if (rs.Fields(1).Entero() != cargada_.IdCliente) {
        rechaza(mensajes::kAlbaranOtroCliente);
        return;
    }
    if (const QDate fecha = rs.Fields(2).Fecha(); fecha > cargada_.FechaFactura) {
        rechaza(mensajes::kAlbaranPosterior.arg(Format(fecha, QStringLiteral("dd/mm/yyyy"))));
        return;
    }
    if (rs.Fields(3).Entero() != 1 || rs.Fields(4).Entero() > 0) {
        rechaza(mensajes::kAlbaranNoFacturable);
        return;
    }
    if (!Ui().Pregunta(mensajes::kConfirmaIncorporacion, Caption, true)) {
        return;
    }
    EdicionFactura e;
    if (!intenta([&] { e = edicionMostrada(); })) {
        return;
    }
    e.albaranIncluido = static_cast<qint32>(rs.Fields(0).Entero());
    e.recibos = preguntaRecibos();
    if (msRecalculaFactura(std::move(e))) {
        Text1[5].clear();
        Text1[6].clear();
    }
}

void frmEdicionFacturas::cmdQuitar() {
    ultimaOrdenFallida = false;
    if (!HayFactura() || bSoloLectura) {
        return;
    }
    // The note typed in the boxes, or the one of the current line.
    std::optional<qint32> idCav;
    if (!Text1[6].trimmed().isEmpty()) {
        idCav = albaranTecleado();
    } else if (filaAlbaran >= 0 && filaAlbaran < static_cast<int>(dbgAlbaranes.size())) {
        idCav = dbgAlbaranes[filaAlbaran].Cav_Id;
    }
    std::set<qint32> notas;
    QString numero;
    for (const LineaAlbaranFactura& l : dbgAlbaranes) {
        notas.insert(l.Cav_Id);
        if (idCav && l.Cav_Id == *idCav) {
            numero = l.albaran;
        }
    }
    if (!idCav || !notas.count(*idCav)) {
        ultimaOrdenFallida = true;
        Ui().Mensaje(mensajes::kAlbaranNoDisponible, Icono::Aviso, Caption);
        return;
    }
    const QString aviso = notas.size() == 1 ? mensajes::kFacturaSinContenido
                                            : mensajes::kSeguroQuitarAlbaran + numero;
    if (!Ui().Pregunta(aviso, Caption, false) ||
        !Ui().Pregunta(mensajes::kConfirmaQuitarAlbaran, Caption, false)) {
        return;
    }
    EdicionFactura e;
    if (!intenta([&] { e = edicionMostrada(); })) {
        return;
    }
    e.albaranQuitado = *idCav;
    e.recibos = preguntaRecibos();
    if (msRecalculaFactura(std::move(e))) {
        Text1[5].clear();
        Text1[6].clear();
    }
}

void frmEdicionFacturas::cmdBuscaAlbaranes() {
    if (!HayFactura() || bSoloLectura) {
        return;
    }
    intenta([&] {
        auto albaranes = CreaObjeto<VKAlbVentas>(QString::fromLatin1(VKAlbVentas::kProgId));
        albaranes->MyBd = &bd_;
        if (const auto elegido = albaranes->BuscaAlbaranesCliente(cargada_.IdCliente)) {
            Text1[5] = elegido->serie;
            Text1[6] = QString::number(elegido->numero);
        }
    });
}

void frmEdicionFacturas::cmdEditar() {
    if (filaAlbaran < 0 || filaAlbaran >= static_cast<int>(dbgAlbaranes.size())) {
        return;
    }
    const LineaAlbaranFactura& l = dbgAlbaranes[filaAlbaran];
    intenta([&] {
        auto albaranes = CreaObjeto<VKAlbVentas>(QString::fromLatin1(VKAlbVentas::kProgId));
        albaranes->MyBd = &bd_;
        albaranes->jMuestraAlbaran(l.Cav_Id, l.Lav_Id);
    });
    recarga();
}

void frmEdicionFacturas::cmdBorrar() {
    ultimaOrdenFallida = false;
    if (!HayFactura() || bSoloLectura) {
        return;
    }
    // Refused before any question: only the last number of a series goes.
    if (!sigueExistiendo()) {
        return;
    }
    if (!fnEsUltimaDeSerie(bd_, idFactura_)) {
        ultimaOrdenFallida = true;
        Ui().Mensaje(mensajes::kSoloUltimoNumero, Icono::Aviso, Caption);
        return;
    }
    if (!Ui().Pregunta(mensajes::kConfirmaBorrar, Caption, false) ||
        !Ui().Pregunta(mensajes::kSeguroBorrar, Caption, false)) {
        return;
    }
    if (!intenta([&] { msBorraFactura(factura_, idFactura_); })) {
        recarga();
        return;
    }
    // The screen moves to the new last invoice of the series, or empties.
    idFactura_ = 0;
    dbgAlbaranes.clear();
    dbgRecibos.clear();
    Text1[1].clear();
    cmdNav(Boton::Ultima);
}

void frmEdicionFacturas::XPButton2() {
    ultimaOrdenFallida = false;
    if (!HayFactura() || bSoloLectura) {
        return;
    }
    if (!Ui().Pregunta(mensajes::kCambioCliente, mensajes::kTituloCambioCliente, false)) {
        return;
    }
    const bool fiscal =
        Ui().Pregunta(mensajes::kBuscarPorFiscal, mensajes::kTituloCambioCliente, true);
    const std::optional<ClienteElegido> cliente = fnBuscaCliente(
        bd_, fiscal ? mensajes::kBuscarClientesFiscal : mensajes::kBuscarClientesComercial,
        !fiscal);
    if (!cliente) {
        return;
    }
    EdicionFactura e;
    if (!intenta([&] { e = edicionMostrada(); })) {
        return;
    }
    // The new customer's own terms, attention line, retention and fiscal
    // address replace what the screen shows.
    e.idClienteNuevo = cliente->id;
    e.direccion.reset();
    e.atencion.reset();
    e.ctaCompensa.reset();
    e.idFco.reset();
    e.retencionNF.reset();
    e.modoRetencionNF.reset();
    e.recibos = preguntaRecibos();
    msRecalculaFactura(std::move(e));
}

void frmEdicionFacturas::XPButton1() {
    if (!HayFactura()) {
        return;
    }
    const Recordset rs = bd_.cn().Execute(
        QStringLiteral("SELECT CLI_FAVOBS FROM Cli WHERE Cli_Id = ?"), {cargada_.IdCliente});
    txtFavObs = rs.Eof() ? QString() : rs.Fields(0).Texto();
}

void frmEdicionFacturas::cmdDir() {
    if (!HayFactura() || bSoloLectura) {
        return;
    }
    // A lookup that fails is told, like any command.
    intenta([&] { direccion.OtraDireccion(bd_, cargada_.IdCliente, mensajes::kOtrasDirecciones); });
}

void frmEdicionFacturas::cmdEmitir() {
    ultimaOrdenFallida = false;
    if (!HayFactura()) {
        return;
    }
    factura_.CargaFactura(idFactura_);
    factura_.Tipo_Emision = static_cast<quint8>(optSalida);
    if (optSalida >= 2) {
        factura_.VisualizarPDF =
            Ui().Pregunta(mensajes::kVisualizarDocumento, mensajes::kTituloOpciones, true);
    }
    msOpcionImprimeAlbaranes(factura_, Caption);
    factura_.Copia = ChKCopia;
    factura_.NumCopias = 1;
    ultimaOrdenFallida = factura_.EmisionFacturas(1, true) == ResultadoEmision::Fallida;
}

void frmEdicionFacturas::dbgAlbaranes_DblClick(int fila) {
    if (fila < 0 || fila >= static_cast<int>(dbgAlbaranes.size())) {
        return;
    }
    filaAlbaran = fila;
    if (dbgAlbaranes[fila].Lav_IdViaje > 0) {
        mnu01();
        return;
    }
    cmdEditar();
}

std::unique_ptr<VKTrans> frmEdicionFacturas::transportes() const {
    auto t = CreaObjeto<VKTrans>(QString::fromLatin1(VKTrans::kProgId));
    t->MyBd = &bd_;
    return t;
}

void frmEdicionFacturas::mnu01() {
    if (filaAlbaran < 0 || filaAlbaran >= static_cast<int>(dbgAlbaranes.size()) ||
        dbgAlbaranes[filaAlbaran].Lav_IdViaje <= 0) {
        return;
    }
    const LineaAlbaranFactura& l = dbgAlbaranes[filaAlbaran];
    intenta([&] { transportes()->jMuestraTramo(l.Lav_IdViaje, l.Lav_Id); });
}

void frmEdicionFacturas::mnu03() {
    if (HayFactura()) {
        intenta([&] { transportes()->jViajesCliente(cargada_.IdCliente); });
    }
}

void frmEdicionFacturas::mnu04() {
    ultimaOrdenFallida = false;
    if (!HayFactura() || bSoloLectura) {
        return;
    }
    const bool deTransporte =
        std::any_of(dbgAlbaranes.begin(), dbgAlbaranes.end(),
                    [](const LineaAlbaranFactura& l) { return l.Lav_IdViaje > 0; });
    if (!deTransporte &&
        bd_.Parametros().Item(QStringLiteral("Par_ModTransportes")).Entero() == 1 &&
        !Ui().Pregunta(mensajes::kNoEsDeTransporte, Caption, false)) {
        return;
    }
    std::shared_ptr<VKTrans> t;
    std::optional<VKTrans::TramoElegido> tramo;
    EdicionFactura e;
    if (!intenta([&] {
            t = transportes();
            tramo = t->EligeTramo(cargada_.IdCliente);
            e = edicionMostrada();
        }) ||
        !tramo) {
        return;
    }
    e.cambioLineas = [&] { t->FacturaTramo(idFactura_, *tramo); };
    e.recibos = preguntaRecibos();
    msRecalculaFactura(std::move(e));
}

void frmEdicionFacturas::mnu05() {
    ultimaOrdenFallida = false;
    if (!HayFactura() || bSoloLectura || filaAlbaran < 0 ||
        filaAlbaran >= static_cast<int>(dbgAlbaranes.size()) ||
        dbgAlbaranes[filaAlbaran].Lav_IdViaje <= 0) {
        return;
    }
    if (!Ui().Pregunta(mensajes::kConfirmaQuitarTramo, Caption, false)) {
        return;
    }
    const qint32 idLav = dbgAlbaranes[filaAlbaran].Lav_Id;
    std::shared_ptr<VKTrans> t;
    EdicionFactura e;
    if (!intenta([&] {
            t = transportes();
            e = edicionMostrada();
        })) {
        return;
    }
    e.cambioLineas = [&] { t->QuitaTramo(idLav); };
    e.recibos = preguntaRecibos();
    msRecalculaFactura(std::move(e));
}

void frmEdicionFacturas::cmdCopiar() {
    ultimaOrdenFallida = false;
    if (!HayFactura() || !sigueExistiendo()) {
        return;
    }
    std::unique_ptr<frmCopiaFacturas> copia;
    if (!intenta([&] { copia = std::make_unique<frmCopiaFacturas>(factura_, idFactura_); })) {
        return;
    }
    Ui().MuestraDialogo(*copia);
    if (copia->IdNueva() <= 0) {
        return;
    }
    const Recordset rs =
        bd_.cn().Execute(QStringLiteral("SELECT Fav_Serie, Fav_Numero FROM Fav WHERE Fav_Id = ?"),
                         {copia->IdNueva()});
    if (rs.Eof()) {
        return;
    }
    Text1[0] = rs.Fields(0).Texto().trimmed();
    Text1[1] = QString::number(rs.Fields(1).Entero());
    msCargarFactura();
}

} // namespace vk
