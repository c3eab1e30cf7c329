#include "frmManteRecibos.h"

#include "MensajesSuite.h"
#include "TesoreriaIncorporada.h"

#include <BdSesion.h>
#include <BloqueoSerie.h>
#include <Error.h>
#include <Formato.h>
#include <Interaccion.h>
#include <NombreCliente.h>
#include <QtGlobal>
#include <Redondeo.h>
#include <ReglasFecha.h>
#include <algorithm>

namespace vk::suite {

namespace {

constexpr int kTipoVenta = 1;
constexpr int kPendiente = 1;
// Situaciones: the processes of the receipt's state and mode, in Spanish.
constexpr int kProcesoSituacion = 1;
constexpr int kProcesoModo = 2;
constexpr int kIdiomaEspanol = 0;

const QString kMascaraFecha = QStringLiteral("dd/mm/yyyy");
const QString kMascaraImporte = QStringLiteral("#,##0.00");

// Money compared in whole cents: sums of doubles differ in the last bits.
qint64 centimos(double importe) {
    return qRound64(Redondea(importe, 2) * 100);
}

} // namespace

frmManteRecibos::frmManteRecibos(BdSesion& bd, qint32 idRecibo, bool bCobPag)
    : Caption(mensajes::kTituloManteRecibos), bd_(bd), idRecibo_(idRecibo), bCobPag_(bCobPag) {
    carga();
}

void frmManteRecibos::carga() {
    Conexion& cn = bd_.cn();
    const QString nombre = fnNombreCliente(
        static_cast<int>(bd_.Parametros().Item(QStringLiteral("PAR_ORCONTANOM")).Entero()));
    const Recordset rs = cn.Execute(
        QStringLiteral(
            "SELECT Rec_IdFac, Rec_FVto, Rec_Importe, Rec_Mod, COALESCE(Rec_Sit, 1) AS Sit, "
            "Rec_Cta, Rec_Obser, Fav_Serie, Fav_Numero, Fav_Fecha, CLI_COD, %1 AS CLI_NOM, "
            "(SELECT Sit_Des FROM vkcomun.Situaciones WHERE Sit_Proceso = ? AND Sit_Idioma = ? "
            "AND Sit_Cod = Rec_Mod) AS Modalidad FROM Rec LEFT JOIN Fav ON Fav_Id = Rec_IdFac "
            "LEFT JOIN Cli ON Cli_Id = Rec_IdClPr WHERE Rec_Id = ? AND Rec_Tipo = ?")
            .arg(nombre),
        {kProcesoModo, kIdiomaEspanol, idRecibo_, kTipoVenta});
    if (rs.Eof()) {
        throw ErrorRegla(mensajes::kReciboNoExiste.arg(idRecibo_));
    }
    idFactura_ = static_cast<qint32>(rs.Fields(QStringLiteral("Rec_IdFac")).Entero());
    lblFactura =
        NombreFactura(rs.Fields(QStringLiteral("Fav_Serie")).Texto(),
                      static_cast<qint32>(rs.Fields(QStringLiteral("Fav_Numero")).Entero()));
    lblFechaFactura = Format(rs.Fields(QStringLiteral("Fav_Fecha")).Fecha(), kMascaraFecha);
    lblCliente = rs.Fields(QStringLiteral("CLI_COD")).Texto() + QStringLiteral(" - ") +
                 rs.Fields(QStringLiteral("CLI_NOM")).Texto().trimmed();
    lblModalidad = rs.Fields(QStringLiteral("Rec_Mod")).Texto() + QStringLiteral(" - ") +
                   rs.Fields(QStringLiteral("Modalidad")).Texto().trimmed();
    lblCuenta = rs.Fields(QStringLiteral("Rec_Cta")).Texto().trimmed();
    txtFVto = Format(rs.Fields(QStringLiteral("Rec_FVto")).Fecha(), kMascaraFecha);
    importeCargado_ = rs.Fields(QStringLiteral("Rec_Importe")).Doble();
    txtImporte = Format(importeCargado_, kMascaraImporte);
    txtObser = rs.Fields(QStringLiteral("Rec_Obser")).Texto();
    const qint32 situacion = static_cast<qint32>(rs.Fields(QStringLiteral("Sit")).Entero());
    // A receipt under way belongs to the treasury's own runs (remittances,
    // collections): here it is only looked at.
    soloLectura_ = bCobPag_ || situacion != kPendiente;

    cboSituacion.clear();
    situaciones_.clear();
    for (Recordset s = cn.Execute(QStringLiteral("SELECT Sit_Cod, Sit_Des FROM vkcomun.Situaciones "
                                                 "WHERE Sit_Proceso = ? AND Sit_Idioma = ? ORDER "
                                                 "BY Sit_Cod"),
                                  {kProcesoSituacion, kIdiomaEspanol});
         !s.Eof(); s.MoveNext()) {
        situaciones_.push_back(static_cast<qint32>(s.Fields(0).Entero()));
        cboSituacion << s.Fields(1).Texto().trimmed();
    }
    const auto i = std::find(situaciones_.begin(), situaciones_.end(), situacion);
    cboSituacionIndex = i == situaciones_.end() ? -1 : static_cast<int>(i - situaciones_.begin());

    dbgRecibos.clear();
    for (Recordset o = cn.Execute(
             QStringLiteral("SELECT Rec_Id, Rec_FVto, Rec_Importe, (SELECT Sit_Des FROM "
                            "vkcomun.Situaciones WHERE Sit_Proceso = ? AND Sit_Idioma = ? AND "
                            "Sit_Cod = COALESCE(Rec_Sit, 1)) FROM Rec WHERE Rec_Tipo = ? AND "
                            "Rec_IdFac = ? AND Rec_Id <> ? ORDER BY Rec_FVto, Rec_Id"),
             {kProcesoSituacion, kIdiomaEspanol, kTipoVenta, idFactura_, idRecibo_});
         !o.Eof(); o.MoveNext()) {
        dbgRecibos.push_back({static_cast<qint32>(o.Fields(0).Entero()), o.Fields(1).Fecha(),
                              o.Fields(2).Doble(), o.Fields(3).Texto().trimmed()});
    }
}

frmManteRecibos::Cambio frmManteRecibos::leeCambio() const {
    Cambio c;
    c.vencimiento = fnLeeFecha(txtFVto);
    const std::optional<double> importe = LeeNumeroTecleado(txtImporte);
    if (!importe) {
        throw ErrorRegla(mensajes::kReciboImporteNoNumero.arg(txtImporte.trimmed()));
    }
    c.importe = Redondea(*importe, 2);
    if (cboSituacionIndex < 0 || cboSituacionIndex >= static_cast<int>(situaciones_.size())) {
        throw ErrorRegla(mensajes::kReciboSinSituacion);
    }
    c.situacion = situaciones_[static_cast<std::size_t>(cboSituacionIndex)];
    c.observaciones = txtObser;
    return c;
}

bool frmManteRecibos::cmdAceptar() {
    if (soloLectura_) {
        return false;
    }
    yaNoPendiente_ = false;
    try {
        const Cambio c = leeCambio();
        Transaccion t(bd_.cn());
        graba(c);
        t.Confirma();
        return true;
    } catch (const ErrorRegla& e) {
        Ui().Mensaje(e.Mensaje(), Icono::Aviso, Caption);
        if (yaNoPendiente_) {
            // The screen shows the receipt as it is now, for looking only.
            soloLectura_ = true;
            try {
                carga();
            } catch (const Error&) {
                // Gone meanwhile: what was shown stays, read-only.
            }
        }
    } catch (const Error& e) {
        Ui().Mensaje(e.Mensaje(), Icono::Error, Caption);
    }
    return false;
}

void frmManteRecibos::graba(const Cambio& c) {
    Conexion& cn = bd_.cn();
    // The invoice as stored now, under its series' lock: the edit of the
    // invoice rebuilds its pending receipts under the same lock, so the date
    // and amounts checked here still hold at the commit. Read again once the
    // lock is held: what was read before it may already be gone.
    const QString sql = QStringLiteral(
        "SELECT Fav_Serie, Fav_Numero, Fav_Fecha, Fav_Liquido FROM Fav WHERE Fav_Id = ?");
    Recordset fav = cn.Execute(sql, {idFactura_});
    if (!fav.Eof()) {
        msBloqueaSerie(bd_, fav.Fields(0).Texto());
        fav = cn.Execute(sql, {idFactura_});
    }
    if (fav.Eof()) {
        yaNoPendiente_ = true;
        throw ErrorRegla(mensajes::kReciboNoPendiente);
    }
    const QString serie = fav.Fields(0).Texto();
    // Moved to another series meanwhile: that one's lock too.
    msBloqueaSerie(bd_, serie);
    const QDate fechaFactura = fav.Fields(2).Fecha();
    if (fechaFactura.isValid() && c.vencimiento < fechaFactura) {
        throw ErrorRegla(
            mensajes::kReciboVencimientoAnterior.arg(Format(fechaFactura, kMascaraFecha)));
    }
    const double liquido = fav.Fields(3).Doble();
    const QString factura = NombreFactura(serie, static_cast<qint32>(fav.Fields(1).Entero()));

    // Only a changed amount is checked and written: a date may be moved on a
    // receipt whose amount the treasury's rules would not make today (zero,
    // or of a credit invoice).
    const bool cambiaImporte = centimos(c.importe) != centimos(importeCargado_);
    double resto = 0;
    if (cambiaImporte) {
        if (c.importe <= 0) {
            throw ErrorRegla(mensajes::kReciboImporteNoPositivo);
        }
        const double otros =
            cn.Execute(QStringLiteral("SELECT COALESCE(SUM(Rec_Importe), 0) FROM Rec WHERE "
                                      "Rec_Tipo = ? AND Rec_IdFac = ? AND Rec_Id <> ?"),
                       {kTipoVenta, idFactura_, idRecibo_})
                .Fields(0)
                .Doble();
        const double maximo = Redondea(liquido - otros, 2);
        if (centimos(c.importe) > centimos(maximo)) {
            throw ErrorRegla(mensajes::kReciboImporteExcesivo.arg(FormatoMoneda(maximo)));
        }
        resto = Redondea(maximo - c.importe, 2);
    }

    // The state is read again by the write itself: a receipt another user
    // remitted or collected since the load is not touched.
    QString actualiza = QStringLiteral("UPDATE Rec SET Rec_FVto = ?, Rec_Sit = ?, Rec_Obser = ?");
    QVariantList valores{bd_.dialecto().valorFecha(c.vencimiento), c.situacion, c.observaciones};
    if (cambiaImporte) {
        actualiza += QStringLiteral(", Rec_Importe = ?");
        valores << c.importe;
    }
    actualiza += QStringLiteral(" WHERE Rec_Id = ? AND Rec_Tipo = ? AND COALESCE(Rec_Sit, 1) = ?");
    valores << idRecibo_ << kTipoVenta << kPendiente;
    cn.Execute(actualiza, valores);
    if (cn.RecordsAffected() == 0) {
        yaNoPendiente_ = true;
        throw ErrorRegla(mensajes::kReciboNoPendiente);
    }
    if (!cambiaImporte) {
        return;
    }

    if (centimos(resto) != 0) {
        // The rest is collected on the same day by the same means.
        const Recordset o = cn.Execute(
            QStringLiteral("SELECT Rec_IdClPr, Rec_Serie, Rec_Numero, Rec_Cta, Rec_CtaBanco, "
                           "Rec_Iban, Rec_Swift, Rec_Mod, Rec_Age, Rec_Cartera, Rec_Texto FROM "
                           "Rec WHERE Rec_Id = ?"),
            {idRecibo_});
        DatosRecibo r;
        r.idFactura = idFactura_;
        r.idCliente = static_cast<qint32>(o.Fields(0).Entero());
        r.serie = o.Fields(1).Texto();
        r.numero = static_cast<qint32>(o.Fields(2).Entero());
        r.vencimiento = c.vencimiento;
        r.importe = resto;
        r.cta = o.Fields(3).Texto();
        r.ctaBanco = o.Fields(4).Texto();
        r.iban = o.Fields(5).Texto();
        r.swift = o.Fields(6).Texto();
        r.modo = static_cast<qint32>(o.Fields(7).Entero());
        r.agente = static_cast<qint32>(o.Fields(8).Entero());
        r.cartera = o.Fields(9).Entero() != 0;
        r.texto = o.Fields(10).Texto();
        InsertaRecibo(bd_, r);
    }
    // What the receipts hold now, this transaction's writes and every
    // other user's committed ones: they must still ask for the invoice's
    // Liquido.
    const double suma =
        cn.Execute(QStringLiteral("SELECT COALESCE(SUM(Rec_Importe), 0) FROM Rec WHERE Rec_Tipo "
                                  "= ? AND Rec_IdFac = ?"),
                   {kTipoVenta, idFactura_})
            .Fields(0)
            .Doble();
    if (centimos(suma) != centimos(liquido)) {
        throw ErrorRegla(mensajes::kReciboSumaDistinta.arg(factura, FormatoMoneda(suma),
                                                           FormatoMoneda(liquido)));
    }
}

} // namespace vk::suite
