#include "EdicionFactura.h"

#include "BloqueoSerie.h"
#include "CargaFactura.h"
#include "DireccionFactura.h"
#include "GrabaFactura.h"
#include "MensajesMotor.h"
#include "Recibos.h"
#include "RegistroFiscalFactura.h"
#include "ReglasFecha.h"

#include <BdSesion.h>
#include <ColumnasFav.h>
#include <ErrorBd.h>
#include <NombreCliente.h>
#include <Redondeo.h>
#include <VKFACVENTAS.h>
#include <limits>
#include <set>

namespace vk {

namespace {

constexpr int kDecimalesPrecio = 6;

// Opens the invoice under its series' lock and loads it into the facade as
// stored now: what another user changed before the lock is what the edit
// starts from.
void cargaBloqueada(VKFACVENTAS& f, qint32 idFactura) {
    BdSesion& bd = f.MyBd();
    const Recordset rs =
        bd.cn().Execute(QStringLiteral("SELECT Fav_Serie FROM Fav WHERE Fav_Id = ?"), {idFactura});
    if (rs.Eof()) {
        throw ErrorRegla(mensajes::kFacturaNoExiste.arg(idFactura));
    }
    QString serie = rs.Fields(0).Texto();
    msBloqueaSerie(bd, serie);
    // Another user may have moved it to another series before the lock.
    while (true) {
        if (!f.CargaFactura(idFactura)) {
            throw ErrorRegla(mensajes::kFacturaNoExiste.arg(idFactura));
        }
        if (f.SerieFactura == serie) {
            return;
        }
        serie = f.SerieFactura;
        msBloqueaSerie(bd, serie);
    }
}

// The save's own builder calls report failures by value: one that failed
// throws the gateway's error, so the transaction goes back whole.
void exige(BdSesion& bd, bool hecho, const QString& mensaje) {
    if (!hecho) {
        bd.LanzaErrorConstructor(mensaje);
    }
}

void escribeCabecera(VKFACVENTAS& f) {
    BdSesion& bd = f.MyBd();
    bd.Tabla(QStringLiteral("Fav"));
    bd.Limpia(0);
    EscribeColumnasFav(bd.xlsCampos(), f, OperacionFav::Alta);
    bd.Where(QStringLiteral(" WHERE Fav_Id = ?"), {f.IdFactu});
    QString mensaje;
    exige(bd, bd.Update(mensaje), mensaje);
}

// The pending receipts go whenever receipts are rebuilt, even when the new
// amount makes none (an invoice left without notes): they would collect what
// is no longer owed.
void borraRecibosPendientes(BdSesion& bd, qint32 idFactura) {
    bd.cn().Execute(QStringLiteral("DELETE FROM Rec WHERE Rec_Tipo = 1 AND Rec_IdFac = ? AND "
                                   "COALESCE(Rec_Sit, 1) = 1"),
                    {idFactura});
}

void borraRecibos(BdSesion& bd, qint32 idFactura) {
    bd.cn().Execute(QStringLiteral("DELETE FROM Rec WHERE Rec_Tipo = 1 AND Rec_IdFac = ?"),
                    {idFactura});
}

// The save of the amounts, the retention, the receipts when
// asked, and the posting; any failure undoes the caller's transaction.
void grabaImportes(VKFACVENTAS& f, bool recibos) {
    if (recibos) {
        borraRecibosPendientes(f.MyBd(), f.IdFactu);
    }
    bool escritos = false;
    if (!fnGrabaFactura(f, recibos, true, escritos)) {
        const std::optional<ErrorBd>& e = f.MyBd().ErrorConstructor();
        throw Error(
            mensajes::kFacturaNoGrabada.arg(e ? e->Mensaje() : mensajes::kContabilizacionFallida),
            e ? e->Detalle() : QString());
    }
}

// The new customer's identity, terms, attention line, offset account and
// retention, with its fiscal address copied into the invoice.
void tomaCliente(VKFACVENTAS& f, qint32 idCliente) {
    BdSesion& bd = f.MyBd();
    const QString nombre = fnNombreCliente(
        static_cast<int>(bd.Parametros().Item(QStringLiteral("PAR_ORCONTANOM")).Entero()));
    const Recordset cli = bd.cn().Execute(
        QStringLiteral(
            "SELECT CLI_COD, CLI_DOC, CLI_FCO, %1 AS CLI_NOM, Cli_Fatencion, "
            "Cli_CtaConCompensa, CLI_RetNFiscal, CLI_ModoRetNF FROM Cli WHERE Cli_Id = ?")
            .arg(nombre),
        {idCliente});
    if (cli.Eof()) {
        throw ErrorRegla(mensajes::kClienteNoExiste.arg(idCliente));
    }
    f.IdCliente = idCliente;
    f.CliCod = static_cast<qint32>(cli.Fields(QStringLiteral("CLI_COD")).Entero());
    f.CliNom = cli.Fields(QStringLiteral("CLI_NOM")).Texto();
    f.CliDoc = cli.Fields(QStringLiteral("CLI_DOC")).Texto();
    f.Aatencion = cli.Fields(QStringLiteral("Cli_Fatencion")).Texto();
    f.sCtaCompensa = cli.Fields(QStringLiteral("Cli_CtaConCompensa")).Texto();
    f.porcentajeretencionnf = cli.Fields(QStringLiteral("CLI_RetNFiscal")).Doble();
    f.nModoRetNF = static_cast<qint16>(cli.Fields(QStringLiteral("CLI_ModoRetNF")).Entero());
    if (const qint32 fco = static_cast<qint32>(cli.Fields(QStringLiteral("CLI_FCO")).Entero());
        fco > 0) {
        f.IdFco = fco;
    }
    // The invoice keeps the address as it was issued to, by value.
    const std::vector<DireccionCliente> direcciones = fnDireccionesCliente(bd, idCliente);
    msDireccionDeDir(f, direcciones.empty() ? 0 : direcciones.front().idDir);
    f.idDir = -1;
    bd.cn().Execute(QStringLiteral("UPDATE Cav SET Cav_IdCli = ? WHERE Cav_IdFactura = ?"),
                    {idCliente, f.IdFactu});
}

// Moves the invoice, the last of its series, to the next number of another,
// whose lock it takes: the date may not be earlier than that series' last.
void cambiaSerie(VKFACVENTAS& f, const QString& serie, const QDate& fecha) {
    BdSesion& bd = f.MyBd();
    if (!fnEsUltimaDeSerie(bd, f.IdFactu)) {
        throw ErrorRegla(mensajes::kSoloUltimoNumero);
    }
    msBloqueaSerie(bd, serie);
    const Recordset rs = bd.cn().Execute(
        QStringLiteral("SELECT COALESCE(MAX(Fav_Numero), 0), MAX(Fav_Fecha) FROM Fav WHERE "
                       "Fav_Serie = ?"),
        {serie});
    const qint64 ultimo = rs.Fields(0).Entero();
    if (ultimo >= std::numeric_limits<qint32>::max()) {
        throw ErrorRegla(mensajes::kSerieAgotada.arg(serie));
    }
    if (const QDate ultima = rs.Fields(1).Fecha(); ultima.isValid() && fecha < ultima) {
        throw ErrorRegla(mensajes::kCambioSerieImposible);
    }
    f.SerieFactura = serie;
    f.NumeroFactura = static_cast<qint32>(ultimo + 1);
    // The receipts carry the invoice's series and number.
    bd.cn().Execute(
        QStringLiteral("UPDATE Rec SET Rec_Serie = ?, Rec_Numero = ? WHERE Rec_Tipo = 1 AND "
                       "Rec_IdFac = ?"),
        {f.SerieFactura, f.NumeroFactura, f.IdFactu});
}

void incluyeAlbaran(VKFACVENTAS& f, qint32 idCav) {
    // Only while it is still pending and the customer's: another user may
    // have invoiced it since the screen checked.
    Conexion& cn = f.MyBd().cn();
    cn.Execute(QStringLiteral("UPDATE Cav SET Cav_Situa = 2, Cav_IdFactura = ? WHERE Cav_Id = ? "
                              "AND Cav_Situa = 1 AND Cav_IdFactura IS NULL AND Cav_IdCli = ?"),
               {f.IdFactu, idCav, f.IdCliente});
    if (cn.RecordsAffected() != 1) {
        throw ErrorRegla(mensajes::kAlbaranNoFacturable);
    }
}

void quitaAlbaran(VKFACVENTAS& f, qint32 idCav) {
    Conexion& cn = f.MyBd().cn();
    cn.Execute(QStringLiteral("UPDATE Cav SET Cav_Situa = 1, Cav_IdFactura = NULL WHERE Cav_Id = ? "
                              "AND Cav_IdFactura = ?"),
               {idCav, f.IdFactu});
    if (cn.RecordsAffected() != 1) {
        throw ErrorRegla(mensajes::kAlbaranNoDisponible);
    }
}

// What the receipts depend on, to tell whether a save must rebuild them.
struct BaseRecibos {
    double liquido;
    QDate fecha;
    qint32 fco, cliente, numero;
    QString serie, compensa;
    bool operator==(const BaseRecibos&) const = default;
};

BaseRecibos baseRecibos(const RegistroFactura& f) {
    return {Redondea(f.Liquido, 2), f.FechaFactura,          f.IdFco, f.IdCliente, f.NumeroFactura,
            f.SerieFactura,         f.sCtaCompensa.trimmed()};
}

// The non-fiscal retention on the bases or the total as they stand.
void retencionNF(RegistroFactura& f) {
    if (f.porcentajeretencionnf != 0) {
        f.RetencionNF = f.nModoRetNF == 1
                            ? Redondea((f.porcentajeretencionnf / 100) * f.TotalFactura, 2)
                            : Redondea(f.SumaBases() * (f.porcentajeretencionnf / 100), 2);
    }
    f.Liquido = f.TotalFactura - f.RetencionNF;
}

double ajustePrecio(double diferencia, double unidades) {
    return Redondea(diferencia / unidades, kDecimalesPrecio);
}

} // namespace

std::optional<qint32> fnIdFactura(BdSesion& bd, const QString& serie, qint32 numero) {
    const Recordset rs = bd.cn().Execute(
        QStringLiteral("SELECT Fav_Id FROM Fav WHERE Fav_Serie = ? AND Fav_Numero = ?"),
        {serie, numero});
    if (rs.Eof()) {
        return std::nullopt;
    }
    return static_cast<qint32>(rs.Fields(0).Entero());
}

bool fnHayRecibosNoPendientes(BdSesion& bd, qint32 idFactura) {
    return !bd.cn()
                .Execute(QStringLiteral("SELECT 1 FROM Rec WHERE Rec_Tipo = 1 AND Rec_IdFac = ? "
                                        "AND COALESCE(Rec_Sit, 1) <> 1 LIMIT 1"),
                         {idFactura})
                .Eof();
}

bool fnEsUltimaDeSerie(BdSesion& bd, qint32 idFactura) {
    const Recordset rs = bd.cn().Execute(
        QStringLiteral("SELECT f.Fav_Numero, (SELECT MAX(u.Fav_Numero) FROM Fav u WHERE "
                       "u.Fav_Serie = f.Fav_Serie) FROM Fav f WHERE f.Fav_Id = ?"),
        {idFactura});
    return !rs.Eof() && rs.Fields(0).Entero() == rs.Fields(1).Entero();
}

void msRecalculaFactura(VKFACVENTAS& f, const EdicionFactura& e) {
    BdSesion& bd = f.MyBd();
    Transaccion t(bd.cn());
    cargaBloqueada(f, e.idFactura);
    const BaseRecibos antes = baseRecibos(f);
    const QDate fecha = e.fecha.value_or(f.FechaFactura);
    if (!fnFechaFacturaAdmisible(fecha)) {
        throw ErrorRegla(mensajes::kFechaFueraDeRango.arg(fecha.toString(u"dd/MM/yyyy")));
    }

    if (e.serie && e.serie->trimmed() != f.SerieFactura.trimmed()) {
        cambiaSerie(f, e.serie->trimmed(), fecha);
    } else if (fecha != f.FechaFactura) {
        // Dates run with the numbers: checked again under the lock.
        if (const auto motivo = fnMotivoFechaVecinas(bd, f.SerieFactura, f.NumeroFactura, fecha)) {
            throw ErrorRegla(*motivo);
        }
    }
    f.FechaFactura = fecha;
    if (e.albaranIncluido) {
        incluyeAlbaran(f, *e.albaranIncluido);
    }
    if (e.albaranQuitado) {
        quitaAlbaran(f, *e.albaranQuitado);
    }
    if (e.cambioLineas) {
        e.cambioLineas();
    }
    if (e.idClienteNuevo && *e.idClienteNuevo != f.IdCliente) {
        tomaCliente(f, *e.idClienteNuevo);
    }
    if (e.direccion) {
        msPonDireccion(f, *e.direccion);
    }
    f.Observaciones = e.observaciones.value_or(f.Observaciones);
    f.Aatencion = e.atencion.value_or(f.Aatencion);
    f.sCtaCompensa = e.ctaCompensa.value_or(f.sCtaCompensa);
    f.IdFco = e.idFco.value_or(f.IdFco);
    f.PorcentajeDto1 = e.dto1.value_or(f.PorcentajeDto1);
    f.PorcentajeDto2 = e.dto2.value_or(f.PorcentajeDto2);
    f.porcentajeretencionnf = e.retencionNF.value_or(f.porcentajeretencionnf);
    f.nModoRetNF = e.modoRetencionNF.value_or(f.nModoRetNF);
    // The totals read the discounts and the retention from the row.
    escribeCabecera(f);
    f.CalculoTotalesFactura();

    using R = EdicionFactura::Recibos;
    const bool cambian =
        e.albaranIncluido || e.albaranQuitado || e.cambioLineas || !(baseRecibos(f) == antes);
    if (e.recibos == R::Regenera) {
        borraRecibos(bd, f.IdFactu);
    }
    grabaImportes(f, e.recibos != R::SiCambian || cambian);
    // The notes follow the invoice's discounts.
    bd.cn().Execute(
        QStringLiteral("UPDATE Cav SET Cav_Dto1 = ?, Cav_Dto2 = ? WHERE Cav_IdFactura = ? AND "
                       "(Cav_Dto1 IS NULL OR Cav_Dto1 <> ? OR Cav_Dto2 IS NULL OR Cav_Dto2 <> ?)"),
        {f.PorcentajeDto1, f.PorcentajeDto2, f.IdFactu, f.PorcentajeDto1, f.PorcentajeDto2});
    msRegistraFacturaCambiada(f);
    t.Confirma();
    f.CargaFactura(e.idFactura);
}

namespace {

// One invoice gone, under its series' lock inside the caller's transaction:
// its posting undone, its receipts and retention rows, the transport legs its
// lines invoiced freed (those lines removed, and a note left without lines
// with them), and its notes pending again or, with `borrarAlbaranes`, deleted
// with their lines.
void borraFacturaBloqueada(VKFACVENTAS& f, qint32 idFactura, bool borrarAlbaranes) {
    BdSesion& bd = f.MyBd();
    Conexion& cn = bd.cn();
    if (const std::optional<qint16> nEmp = fnEmpresaContabiliza(bd)) {
        if (!f.ConexionContableFacturaVentas(*nEmp, QStringLiteral("WHERE Fav_Id = ?"), {idFactura},
                                             false, true, false)) {
            throw Error(mensajes::kContabilizacionFallida);
        }
    }
    borraRecibos(bd, idFactura);
    cn.Execute(QStringLiteral("DELETE FROM RetNF WHERE RetNF_Origen = 1 AND RetNF_Tipo = 'F' AND "
                              "RetNF_IdFactura = ?"),
               {idFactura});
    // The lines that invoiced a transport leg go, and the leg is free to be
    // invoiced again; a note left without lines goes with them.
    Recordset tramos = cn.Execute(
        QStringLiteral("SELECT Lav_Id, Lav_IdViaje, Lav_IdCav FROM Lav INNER JOIN Cav ON Cav_Id = "
                       "Lav_IdCav WHERE Cav_IdFactura = ? AND Lav_IdViaje > 0"),
        {idFactura});
    std::set<qint64> notas;
    for (; !tramos.Eof(); tramos.MoveNext()) {
        cn.Execute(QStringLiteral("UPDATE TrDes SET TrDes_IdLav = NULL WHERE TrDes_Id = ?"),
                   {tramos.Fields(1).Value()});
        cn.Execute(QStringLiteral("DELETE FROM Lav WHERE Lav_Id = ?"), {tramos.Fields(0).Value()});
        notas.insert(tramos.Fields(2).Entero());
    }
    for (const qint64 idCav : notas) {
        if (cn.Execute(QStringLiteral("SELECT 1 FROM Lav WHERE Lav_IdCav = ? LIMIT 1"), {idCav})
                .Eof()) {
            cn.Execute(QStringLiteral("DELETE FROM Cav WHERE Cav_Id = ?"), {idCav});
        }
    }
    if (borrarAlbaranes) {
        cn.Execute(QStringLiteral("DELETE FROM Lav WHERE Lav_IdCav IN (SELECT Cav_Id FROM Cav "
                                  "WHERE Cav_IdFactura = ?)"),
                   {idFactura});
        cn.Execute(QStringLiteral("DELETE FROM Cav WHERE Cav_IdFactura = ?"), {idFactura});
    } else {
        cn.Execute(QStringLiteral("UPDATE Cav SET Cav_Situa = 1, Cav_IdFactura = NULL WHERE "
                                  "Cav_IdFactura = ?"),
                   {idFactura});
    }
    cn.Execute(QStringLiteral("DELETE FROM Fav WHERE Fav_Id = ?"), {idFactura});
}

} // namespace

void msBorraFactura(VKFACVENTAS& f, qint32 idFactura) {
    BdSesion& bd = f.MyBd();
    Transaccion t(bd.cn());
    cargaBloqueada(f, idFactura);
    if (!fnEsUltimaDeSerie(bd, idFactura)) {
        throw ErrorRegla(mensajes::kSoloUltimoNumero);
    }
    borraFacturaBloqueada(f, idFactura, false);
    msRegistraBajaFactura(bd, idFactura);
    t.Confirma();
    f.IdFactu = 0;
}

void msBorraFacturas(VKFACVENTAS& f, const std::vector<qint32>& ids, bool borrarAlbaranes) {
    Transaccion t(f.MyBd().cn());
    for (const qint32 id : ids) {
        cargaBloqueada(f, id);
        borraFacturaBloqueada(f, id, borrarAlbaranes);
    }
    // The anulaciones after every series' lock: the chain's lock comes last
    // on every path, so that no two processes wait on each other.
    for (const qint32 id : ids) {
        msRegistraBajaFactura(f.MyBd(), id);
    }
    t.Confirma();
    f.IdFactu = 0;
}

void msAjustaTotalManual(VKFACVENTAS& f, qint32 idFactura, double nuevoTotal) {
    BdSesion& bd = f.MyBd();
    Conexion& cn = bd.cn();
    Transaccion t(cn);
    cargaBloqueada(f, idFactura);
    if (f.ImpDto1 + f.ImpDto2 + f.ImpDtoPie1 != 0) {
        throw ErrorRegla(mensajes::kTotalConDescuentos);
    }
    const double d = Redondea(nuevoTotal - f.TotalFactura, 2);
    if (d == 0) {
        return;
    }
    // A second adjustment goes to the line of the first, so one undo
    // takes back both.
    const Recordset lav =
        f.IdLavManual > 0
            ? cn.Execute(QStringLiteral("SELECT Lav_Id, Lav_Uni, Lav_Precio, Lav_Importe FROM Lav "
                                        "WHERE Lav_Id = ?"),
                         {f.IdLavManual})
            : cn.Execute(
                  QStringLiteral("SELECT Lav_Id, Lav_Uni, Lav_Precio, Lav_Importe FROM Lav INNER "
                                 "JOIN Cav ON Cav_Id = Lav_IdCav WHERE Cav_IdFactura = ? AND "
                                 "Lav_Uni > 0 ORDER BY Cav_Fecha, Cav_Id, Lav_Orden, Lav_Id "
                                 "LIMIT 1"),
                  {idFactura});
    if (lav.Eof() || lav.Fields(1).Doble() <= 0) {
        throw ErrorRegla(mensajes::kSinLineaAjuste);
    }
    const qint32 idLav = static_cast<qint32>(lav.Fields(0).Entero());
    cn.Execute(QStringLiteral("UPDATE Lav SET Lav_Precio = ?, Lav_Importe = ? WHERE Lav_Id = ?"),
               {lav.Fields(2).Doble() + ajustePrecio(d, lav.Fields(1).Doble()),
                Redondea(lav.Fields(3).Doble() + d, 2), idLav});
    f.TotalFactura = Redondea(f.TotalFactura + d, 2);
    f.Bruto = Redondea(f.Bruto + d, 2);
    f.Bruto1 = Redondea(f.Bruto1 + d, 2);
    f.BaseIva1 = Redondea(f.BaseIva1 + d, 2);
    f.IdLavManual = idLav;
    f.ImpDifManual = Redondea(f.ImpDifManual + d, 2);
    retencionNF(f);
    grabaImportes(f, false);
    msRegistraFacturaCambiada(f);
    t.Confirma();
}

void msDeshazTotalManual(VKFACVENTAS& f, qint32 idFactura) {
    BdSesion& bd = f.MyBd();
    Conexion& cn = bd.cn();
    Transaccion t(cn);
    cargaBloqueada(f, idFactura);
    if (f.IdLavManual <= 0) {
        return;
    }
    const Recordset lav = cn.Execute(
        QStringLiteral("SELECT Lav_Uni, Lav_Precio, Lav_Importe FROM Lav WHERE Lav_Id = ?"),
        {f.IdLavManual});
    if (!lav.Eof()) {
        const double unidades = lav.Fields(0).Doble();
        const double precio = unidades > 0 ? ajustePrecio(f.ImpDifManual, unidades) : 0;
        cn.Execute(
            QStringLiteral("UPDATE Lav SET Lav_Precio = ?, Lav_Importe = ? WHERE Lav_Id = ?"),
            {lav.Fields(1).Doble() - precio, Redondea(lav.Fields(2).Doble() - f.ImpDifManual, 2),
             f.IdLavManual});
    }
    f.IdLavManual = 0;
    f.ImpDifManual = 0;
    f.CalculoTotalesFactura();
    grabaImportes(f, true);
    msRegistraFacturaCambiada(f);
    t.Confirma();
}

void msRegeneraRecibos(VKFACVENTAS& f, qint32 idFactura, bool todos) {
    BdSesion& bd = f.MyBd();
    Transaccion t(bd.cn());
    cargaBloqueada(f, idFactura);
    if (todos) {
        borraRecibos(bd, idFactura);
    }
    borraRecibosPendientes(bd, idFactura);
    if (bd.Parametros().Item(QStringLiteral("Par_RecAbonos")).Activo() || f.TotalFactura > 0) {
        msGeneraRecibosFactura(f);
    }
    t.Confirma();
}

void msMarcaRectificativa(VKFACVENTAS& f, qint32 idFactura, bool rectificativa) {
    Conexion& cn = f.MyBd().cn();
    Transaccion t(cn);
    cargaBloqueada(f, idFactura);
    cn.Execute(QStringLiteral("UPDATE Fav SET Fav_RCA = ? WHERE Fav_Id = ?"),
               {rectificativa ? 1 : 0, idFactura});
    // The flag is the invoice's type in its record (R2).
    msRegistraFacturaCambiada(f);
    t.Confirma();
}

} // namespace vk
