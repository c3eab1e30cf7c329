#include "OrdenFactura.h"

#include "Argumentos.h"
#include "InteraccionConsola.h"
#include "ImpresionFactura.h"
#include "MensajesApp.h"

#include <BdSesion.h>
#include <CargaFactura.h>
#include <ErrorBd.h>
#include <FacturacionAlbaranes.h>
#include <Formato.h>
#include <MensajesMotor.h>
#include <RegistroFactura.h>
#include <RegistroSuite.h>
#include <ReglasFecha.h>
#include <VKFACVENTAS.h>
#include <limits>

namespace vk::app {

namespace {

// The invoice as it was stored, read back through the record's map.
void imprimeFactura(qint32 idFactura, BdSesion& bd, QTextStream& out) {
    RegistroFactura f;
    if (!fnCargaFactura(bd.cn(), f, idFactura)) {
        throw ErrorRegla(mensajes::kFacturaNoExiste.arg(idFactura));
    }
    const qint64 recibos = bd.cn()
                               .Execute(QStringLiteral("SELECT COUNT(*) FROM Rec WHERE Rec_Tipo = "
                                                       "1 AND Rec_IdFac = ?"),
                                        {idFactura})
                               .Fields(0)
                               .Entero();
    out << QStringLiteral("Factura %1/%2 de %3, %4")
               .arg(f.SerieFactura)
               .arg(f.NumeroFactura)
               .arg(Format(f.FechaFactura, QStringLiteral("dd/mm/yyyy")), f.CliNom.trimmed())
        << Qt::endl;
    ImprimeImportes(f, out);
    out << QStringLiteral("  Recibos: %1").arg(recibos) << Qt::endl;
}

} // namespace

int OrdenFactura(const QStringList& args, QTextStream& out, QTextStream& err) {
    constexpr qint32 kMaximo = std::numeric_limits<qint32>::max();
    Argumentos a(QStringLiteral("factura"),
                 QStringLiteral("--serie S --fecha DD/MM/AAAA --albaranes ID[,ID...] [opciones]"),
                 QStringLiteral("Factura los albaranes indicados, que han de ser de un cliente y "
                                "formar un grupo de la\nfacturación de albaranes (forma de cobro, "
                                "descuentos y agente), con sus recibos."));
    a.declaraOpcion(QStringLiteral("serie"), QStringLiteral("S"),
                    QStringLiteral("serie de la factura"));
    a.declaraOpcion(QStringLiteral("fecha"), QStringLiteral("DD/MM/AAAA"),
                    QStringLiteral("fecha de la factura"));
    a.declaraOpcion(QStringLiteral("albaranes"), QStringLiteral("ID[,ID...]"),
                    QStringLiteral("identificadores de los albaranes (Cav_Id)"));
    a.declaraOpcion(QStringLiteral("numero"), QStringLiteral("N"),
                    QStringLiteral("primer número de una serie sin facturas (por omisión, 1)"));
    a.declaraOpcion(QStringLiteral("usuario"), QStringLiteral("N"),
                    QStringLiteral("usuario de la sesión (por omisión, el de la conexión)"));
    a.analiza(args);

    const QString serie = LeeSerieOpcion(
        QStringLiteral("--serie"), a.requerido(QStringLiteral("serie"), mensajes::kIndiqueSerie));
    const QDate fecha =
        LeeFechaOpcion(QStringLiteral("--fecha"),
                       a.requerido(QStringLiteral("fecha"), mensajes::kIndiqueFechaFactura));
    std::vector<qint32> albaranes;
    for (const qint32 id : LeeListaEnterosOpcion(
             QStringLiteral("--albaranes"),
             a.requerido(QStringLiteral("albaranes"), mensajes::kIndiqueAlbaranes), 1, kMaximo)) {
        albaranes.push_back(id);
    }
    const qint32 numero = a.entero(QStringLiteral("numero"), 1, kMaximo).value_or(0);
    const std::optional<qint32> usuario = a.entero(QStringLiteral("usuario"), 1, kMaximo);
    CadenaConexion cadena = CadenaConexion::Interpreta(a.baseDatos());
    if (usuario) {
        cadena.idUsuario = *usuario;
    }

    suite::RegistraComponentesSuite();
    auto bd = BdSesion::Abre(cadena);
    if (usuario) {
        CompruebaUsuario(*bd, *usuario);
    }
    InteraccionConsola ui(out, err);
    ui.primerNumero = numero;
    const UsaInteraccion puerto(ui);
    VKFACVENTAS f;
    f.setMyBd(*bd);

    // The notes as the batch screen would group them; refused, with the
    // reason, when they would make more than one invoice.
    GrupoAlbaranes grupo = fnGrupoDeAlbaranes(*bd, albaranes);
    grupo.cabecera.serie = serie;
    grupo.cabecera.fecha = fecha;
    // A number is only taken for a series without invoices: anywhere else
    // it would leave a gap or collide.
    if (numero > 0 &&
        !bd->cn()
             .Execute(QStringLiteral("SELECT 1 FROM Fav WHERE Fav_Serie = ? LIMIT 1"), {serie})
             .Eof()) {
        throw ErrorUso(mensajes::kSerieConFacturas.arg(serie));
    }

    const ResultadoFacturacion r = FacturaAlbaranes(f, grupo.cabecera, grupo.albaranes);
    if (!r.Creada()) {
        throw Error(r.motivo.isEmpty() ? mensajes::kFacturaNoHecha : r.motivo, r.detalle);
    }
    imprimeFactura(r.idFactura, *bd, out);
    if (r.estado == EstadoFacturacion::SinTerminar) {
        throw Error(mensajes::kFacturaNoTerminada.arg(r.factura, r.motivo), r.detalle);
    }
    return 0;
}

} // namespace vk::app
