// The header row of a new invoice: its number, the customer's frozen identity
// and the data the caller composed.
#include "NuevaFactura.h"

#include "BloqueoSerie.h"
#include "Cuentas.h"
#include "MensajesMotor.h"
#include "frmIniFav.h"

#include <ColumnasFav.h>
#include <ErrorBd.h>
#include <Interaccion.h>
#include <NombreCliente.h>
#include <VKFACVENTAS.h>
#include <limits>
#include <optional>

namespace vk {

namespace {

// Next number of the series, asking for the first one when the series is
// empty. 0 when the person gave up. Runs under the series lock.
qint32 siguienteNumero(VKFACVENTAS& f, Conexion& cn) {
    Recordset rs = cn.Execute(
        QStringLiteral("SELECT COALESCE(MAX(Fav_Numero), 0) FROM Fav WHERE Fav_Serie = ?"),
        {f.SerieFactura});
    const qint64 ultimo = rs.Fields(0).Entero();
    if (ultimo >= std::numeric_limits<qint32>::max()) {
        throw ErrorRegla(mensajes::kSerieAgotada.arg(f.SerieFactura));
    }
    if (ultimo > 0) {
        return static_cast<qint32>(ultimo + 1);
    }
    f.NumeroFactura = -1;
    frmIniFav dialogo(f);
    Ui().MuestraDialogo(dialogo);
    return f.NumeroFactura == -1 ? 0 : f.NumeroFactura;
}

} // namespace

CabeceraNueva CreaCabeceraFactura(VKFACVENTAS& f, qint16 nTipo) {
    using M = CabeceraNueva::Motivo;
    BdSesion& bd = f.MyBd();
    Conexion& cn = bd.cn();
    const QString nombre = fnNombreCliente(
        static_cast<int>(bd.Parametros().Item(QStringLiteral("PAR_ORCONTANOM")).Entero()));

    // "max + 1 in the series" is only safe with the series locked from the
    // read to the insert: inside the caller's transaction, or in one of its
    // own. The unique index stands behind it.
    std::optional<Transaccion> propia;
    if (cn.NivelTransaccion() == 0) {
        propia.emplace(cn);
    }
    msBloqueaSerie(bd, f.SerieFactura);
    if (f.NumeroFactura == 0) {
        f.NumeroFactura = siguienteNumero(f, cn);
        if (f.NumeroFactura == 0) {
            return {0, M::Abandonada, {}};
        }
    }

    Recordset cli = cn.Execute(
        QStringLiteral("SELECT cli_cod, cli_doc, %1 AS RSOC FROM Cli WHERE Cli_id = ?").arg(nombre),
        {f.IdCliente});
    if (cli.Eof()) {
        return {0, M::SinCliente, {}};
    }
    // The counter customer takes the identity the caller typed; any other
    // customer the one of its record.
    const qint64 clienteContado = bd.Parametros().Item(QStringLiteral("Par_CliCon")).Entero();
    const bool esContado = clienteContado > 0 && clienteContado == f.CliCod;

    bd.Tabla(QStringLiteral("Fav"));
    BdCampos& c = bd.xlsCampos();
    EscribeColumnasFav(c, f, OperacionFav::Alta);
    // Any customer but the counter one is frozen on the invoice as its
    // record stands; the facade's identity fields are left as the caller set
    // them.
    if (!esContado) {
        c.Add(ColumnaFavDe(f, &f.CliCod), TipoCampo::Numero,
              cli.Fields(QStringLiteral("cli_cod")).Value());
        c.Add(ColumnaFavDe(f, &f.CliNom), TipoCampo::Texto,
              cli.Fields(QStringLiteral("rsoc")).Texto());
        c.Add(ColumnaFavDe(f, &f.CliDoc), TipoCampo::Texto,
              cli.Fields(QStringLiteral("cli_doc")).Texto());
    }
    c.Add(QStringLiteral("Fav_IdUsu"), TipoCampo::Numero, bd.IdUsuario());
    c.Add(QStringLiteral("Fav_Tipo"), TipoCampo::Numero, nTipo);
    QString mensaje;
    qint64 id = 0;
    if (!bd.Inserta(mensaje, &id)) {
        // The number is simply not used.
        return {0, M::Rechazada, bd.ErrorConstructor() ? bd.ErrorConstructor() : ErrorBd(mensaje)};
    }
    if (propia) {
        propia->Confirma();
    }
    return {static_cast<qint32>(id), M::Creada, {}};
}

qint32 VKFACVENTAS::NuevaFactura(qint16 nTipo) {
    return CreaCabeceraFactura(*this, nTipo).id;
}

QString VKFACVENTAS::getSeriesFactura() {
    BdSesion& bd = MyBd();
    Conexion& cn = bd.cn();
    QString serieFactura;
    QString serieAlbaran;
    Recordset par = cn.Execute(QStringLiteral("SELECT par_SerFac, Par_SerAlb FROM Parametros"));
    if (!par.Eof()) {
        serieFactura = par.Fields(QStringLiteral("par_SerFac")).Texto();
        serieAlbaran = par.Fields(QStringLiteral("Par_SerAlb")).Texto();
    }
    Recordset pus = cn.Execute(QStringLiteral("SELECT Pus_SerAlb, Pus_SerFac FROM vkcomun.Pus "
                                              "WHERE Pus_IdUsu = ? AND Pus_IdEmp = ?"),
                               {bd.IdUsuario(), bd.IdEmpresa()});
    if (!pus.Eof()) {
        if (!pus.Fields(QStringLiteral("Pus_SerFac")).Texto().isEmpty()) {
            serieFactura = pus.Fields(QStringLiteral("Pus_SerFac")).Texto();
        }
        if (!pus.Fields(QStringLiteral("Pus_SerAlb")).Texto().isEmpty()) {
            serieAlbaran = pus.Fields(QStringLiteral("Pus_SerAlb")).Texto();
        }
    }
    // The work centre's series, where the company has work centres at all.
    if (bd.ExisteTabla(QStringLiteral("centra")) && bd.ExisteTabla(QStringLiteral("cenusu"))) {
        Recordset centro = cn.Execute(
            QStringLiteral("SELECT centra_sfav FROM centra INNER JOIN cenusu ON centra_id = "
                           "cenusu_idcen WHERE cenusu_idusu = ?"),
            {bd.IdUsuario()});
        if (!centro.Eof() && !centro.Fields(0).Texto().isEmpty()) {
            serieFactura = centro.Fields(0).Texto();
        }
    }
    sSerieAlbaran = serieAlbaran;
    return serieFactura;
}

} // namespace vk
