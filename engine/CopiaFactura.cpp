#include "CopiaFactura.h"

#include "CargaFactura.h"
#include "DireccionFactura.h"
#include "MensajesMotor.h"

#include <AlbaranesVentas.h>
#include <BdSesion.h>
#include <ErrorBd.h>
#include <VKFACVENTAS.h>
#include <vector>

namespace vk {

namespace {

ResultadoFacturacion noHecha(const QString& motivo, const QString& detalle = {}) {
    ResultadoFacturacion r;
    r.motivo = motivo;
    r.detalle = detalle;
    return r;
}

} // namespace

CabeceraFactura fnCabeceraCopia(BdSesion& bd, const RegistroFactura& o,
                                std::optional<qint32> idCliente) {
    CabeceraFactura h;
    h.idCliente = o.IdCliente;
    h.idFco = o.IdFco;
    h.dto1 = o.PorcentajeDto1;
    h.dto2 = o.PorcentajeDto2;
    h.observaciones = o.Observaciones;
    h.atencion = o.Aatencion;
    h.retencionNF = o.porcentajeretencionnf;
    h.modoRetencionNF = o.nModoRetNF;
    h.direccion = o.idDir > 0 ? fnDireccionDir(bd, o.idDir) : fnDireccionDeRegistro(o);
    if (!idCliente || *idCliente == o.IdCliente) {
        return h;
    }
    const Recordset cli = bd.cn().Execute(
        QStringLiteral("SELECT CLI_FCO, Cli_Fatencion, CLI_RetNFiscal, CLI_ModoRetNF FROM Cli "
                       "WHERE Cli_Id = ?"),
        {*idCliente});
    if (cli.Eof()) {
        throw ErrorRegla(mensajes::kClienteNoExiste.arg(*idCliente));
    }
    h.idCliente = *idCliente;
    if (const auto fco = static_cast<qint32>(cli.Fields(0).Entero()); fco > 0) {
        h.idFco = fco;
    }
    h.atencion = cli.Fields(1).Texto();
    h.retencionNF = cli.Fields(2).Doble();
    h.modoRetencionNF = static_cast<qint16>(cli.Fields(3).Entero());
    const std::vector<DireccionCliente> direcciones = fnDireccionesCliente(bd, *idCliente);
    h.direccion =
        direcciones.empty() ? DireccionFactura{} : fnDireccionDir(bd, direcciones.front().idDir);
    return h;
}

CopiaFactura fnCopiaDe(BdSesion& bd, qint32 idOrigen, const QString& serie, const QDate& fecha,
                       std::optional<qint32> idCliente, bool abono) {
    RegistroFactura origen;
    if (!fnCargaFactura(bd.cn(), origen, idOrigen)) {
        throw ErrorRegla(mensajes::kFacturaNoExiste.arg(idOrigen));
    }
    CopiaFactura c;
    c.idOrigen = idOrigen;
    c.abono = abono;
    c.cabecera = fnCabeceraCopia(bd, origen, idCliente);
    c.cabecera.serie = serie.trimmed();
    c.cabecera.fecha = fecha;
    return c;
}

ResultadoFacturacion msCopiaFactura(VKFACVENTAS& f, const CopiaFactura& c) {
    BdSesion& bd = f.MyBd();
    Conexion& cn = bd.cn();
    try {
        Transaccion t(cn);
        // The source read again under this transaction: another user may
        // have deleted it since the header was composed.
        if (cn.Execute(QStringLiteral("SELECT 1 FROM Fav WHERE Fav_Id = ?"), {c.idOrigen}).Eof()) {
            return noHecha(mensajes::kFacturaNoExiste.arg(c.idOrigen));
        }
        CabeceraFactura h = c.cabecera;
        h.serie = h.serie.trimmed();
        h.numero = 0;
        h.idRectificada = c.abono ? c.idOrigen : 0;
        auto albaranes = CreaObjeto<VKAlbVentas>(QString::fromLatin1(VKAlbVentas::kProgId));
        albaranes->MyBd = &bd;
        std::vector<qint32> nuevas;
        for (Recordset rs = cn.Execute(QStringLiteral("SELECT Cav_Id FROM Cav WHERE "
                                                      "Cav_IdFactura = ? ORDER BY Cav_Id"),
                                       {c.idOrigen});
             !rs.Eof(); rs.MoveNext()) {
            // Left pending inside this transaction: the invoicing links them.
            nuevas.push_back(albaranes->msCopiaAlbaran(static_cast<qint32>(rs.Fields(0).Entero()),
                                                       0, h.fecha, h.idCliente, c.abono));
        }
        ResultadoFacturacion r = FacturaAlbaranes(f, h, nuevas);
        if (r.estado != EstadoFacturacion::Hecha) {
            // Half a copy is no copy: its notes, number and amounts go back.
            t.Deshaz();
            f.IdFactu = 0;
            r.estado = EstadoFacturacion::NoHecha;
            r.idFactura = 0;
            r.factura.clear();
            return r;
        }
        t.Confirma();
        return r;
    } catch (const Error& e) {
        f.IdFactu = 0;
        return noHecha(e.Mensaje(), e.Detalle());
    }
}

} // namespace vk
