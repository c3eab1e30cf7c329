// The edit screen's commands on what an invoice holds: its notes, its
// customer and address, its existence, its issue and its transport legs.
#include "Combos.h"
#include "MensajesRuns.h"
#include "frmEdicionFacturas.h"

#include <BdSesion.h>
#include <BdUtil.h>
#include <ErrorBd.h>
#include <Formato.h>
#include <Interaccion.h>
#include <MensajesMotor.h>
#include <NombreCliente.h>
#include <set>

namespace vk {

namespace {

// The row of a lookup list the person chose: id, code, name.
std::optional<QStringList> elegido(const QString& resultado) {
    if (resultado.size() <= 2) {
        return std::nullopt;
    }
    return resultado.split(BdUtil::kSeparador);
}

} // namespace

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
    if (!HayFactura()) {
        return;
    }
    // The customer's notes that can still be invoiced, newest first.
    Recordset rs = bd_.cn().Execute(
        QStringLiteral("SELECT Cav_Id, Cav_Serie, Cav_Numero, Cav_Fecha, "
                       "(SELECT SUM(Lav_Importe) FROM Lav WHERE Lav_IdCav = Cav_Id) AS Importe "
                       "FROM Cav WHERE Cav_IdCli = ? AND Cav_Situa = 1 AND Cav_IdFactura IS NULL "
                       "ORDER BY Cav_Fecha DESC, Cav_Id DESC"),
        {cargada_.IdCliente});
    PeticionBusca p;
    p.titulo = mensajes::kAlbaranesDelCliente;
    p.columna = QStringLiteral("Cav_Numero");
    p.cabeceraCodigo = QStringLiteral("Serie");
    p.cabeceraNombre = QStringLiteral("Número");
    p.anchoCodigo = 900;
    p.anchoNombre = 1200;
    p.columnas = {QStringLiteral("Cav_Id"), QStringLiteral("Serie"), QStringLiteral("Número"),
                  QStringLiteral("Fecha"), QStringLiteral("Importe")};
    for (; !rs.Eof(); rs.MoveNext()) {
        p.filas.push_back({rs.Fields(0).Value(), rs.Fields(1).Texto().trimmed(),
                           rs.Fields(2).Entero(),
                           Format(rs.Fields(3).Fecha(), QStringLiteral("dd/mm/yyyy")),
                           FormatoMoneda(rs.Fields(4).Doble())});
    }
    if (const std::optional<int> fila = Ui().Busca(p);
        fila && *fila >= 0 && *fila < static_cast<int>(p.filas.size())) {
        Text1[5] = p.filas[*fila][1].toString();
        Text1[6] = p.filas[*fila][2].toString();
    }
}

void frmEdicionFacturas::cmdEditar() {
    Ui().Mensaje(mensajes::kComponenteNoDisponible.arg(QStringLiteral("VKALBARANES.VKAlbVentas")),
                 Icono::Informacion, Caption);
}

void frmEdicionFacturas::cmdBorrar() {
    ultimaOrdenFallida = false;
    if (!HayFactura() || bSoloLectura) {
        return;
    }
    // Refused before any question: only the last number of a series goes.
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
        cargaPorId(idFactura_);
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
    BdUtil util;
    util.Prepara(bd_.cn());
    const QString nombre = fnNombreCliente(
        static_cast<int>(bd_.Parametros().Item(QStringLiteral("PAR_ORCONTANOM")).Entero()));
    const std::optional<QStringList> cliente = elegido(
        fiscal ? util.Busca(QStringLiteral(
                                "SELECT CLI_ID, CLI_COD, %1 AS Cli_Nom FROM Cli ORDER BY CLI_COD")
                                .arg(nombre),
                            QStringLiteral("Cli_Nom"), QStringLiteral("Codigo"),
                            QStringLiteral("Nombre"), mensajes::kBuscarClientesFiscal, 1300, 6000)
               : util.Busca(
                     QStringLiteral("SELECT CLI_ID, CLI_COD, CLI_COMER FROM Cli ORDER BY CLI_COD"),
                     QStringLiteral("CLI_COMER"), QStringLiteral("Codigo"),
                     QStringLiteral("Nombre"), mensajes::kBuscarClientesComercial, 1300, 6000));
    if (!cliente) {
        return;
    }
    EdicionFactura e;
    if (!intenta([&] { e = edicionMostrada(); })) {
        return;
    }
    // The new customer's own terms, attention line, retention and fiscal
    // address replace what the screen shows.
    e.idClienteNuevo = cliente->value(0).toInt();
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
    BdUtil util;
    util.Prepara(bd_.cn());
    const std::optional<QStringList> dir = elegido(util.Busca(
        QStringLiteral("SELECT DIR_ID, DIR_POBLACION, COALESCE(DIR_NOMBRE, '') || ' ' || "
                       "COALESCE(DIR_NUMERO, '') AS Direccion FROM CliDir INNER JOIN Dir ON "
                       "DIR_ID = CLIDIR_DIR WHERE CLIDIR_CLI = ? ORDER BY DIR_FISCAL DESC, DIR_ID"),
        {cargada_.IdCliente}, QStringLiteral("Direccion"), QStringLiteral("Población"),
        QStringLiteral("Dirección"), mensajes::kOtrasDirecciones, 2500, 5000));
    if (!dir) {
        return;
    }
    const Recordset rs = bd_.cn().Execute(
        QStringLiteral("SELECT DIR_SG, DIR_NOMBRE, DIR_NUMERO, DIR_LETRA, DIR_ESCALERA, DIR_PISO, "
                       "DIR_CP, DIR_PAIS, DIR_PROVINCIA, DIR_POBLACION FROM Dir WHERE Dir_Id = ?"),
        {dir->value(0).toInt()});
    if (rs.Eof()) {
        return;
    }
    const auto t = [&rs](const char* c) { return rs.Fields(QString::fromLatin1(c)).Texto(); };
    Text1[23] = t("DIR_NOMBRE");
    Text1[18] = t("DIR_NUMERO");
    Text1[16] = t("DIR_ESCALERA");
    Text1[15] = t("DIR_PISO");
    // Here the door takes the address's letter.
    Text1[14] = t("DIR_LETRA");
    Text1[21] = t("DIR_CP");
    Text1[19] = t("DIR_POBLACION");
    const auto indice = [](const QStringList& items, const QString& codigo) {
        for (int i = 0; i < items.size(); ++i) {
            if (items[i].section(QStringLiteral(" - "), 0, 0).trimmed() == codigo.trimmed()) {
                return i;
            }
        }
        return -1;
    };
    cboTipoViaIndex = indice(cboTipoVia, t("DIR_SG"));
    cboPaisIndex = indice(cboPais, t("DIR_PAIS"));
    cboProvinciasIndex = indice(cboProvincias, t("DIR_PROVINCIA"));
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

// Transport legs are kept by the suite's transport class, which this
// installation does not have yet.
void frmEdicionFacturas::mnu01() {
    Ui().Mensaje(mensajes::kComponenteNoDisponible.arg(QStringLiteral("VKTRANSPORTES.VKTrans")),
                 Icono::Informacion, Caption);
}

void frmEdicionFacturas::mnu03() {
    mnu01();
}

void frmEdicionFacturas::mnu04() {
    mnu01();
}

void frmEdicionFacturas::mnu05() {
    mnu01();
}

} // namespace vk
