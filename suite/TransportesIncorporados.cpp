#include "TransportesIncorporados.h"

#include "BdSesion.h"
#include "Error.h"
#include "Formato.h"
#include "Interaccion.h"
#include "LanzadorPantallas.h"
#include "MensajesCore.h"
#include "MensajesSuite.h"
#include "Redondeo.h"

#include <memory>

namespace vk::suite {

namespace {

const QString kFecha = QStringLiteral("dd/mm/yyyy");

BdSesion& sesion(BdSesion* bd) {
    if (!bd) {
        throw Error(vk::mensajes::kSinSesion);
    }
    return *bd;
}

// "V/3", the trip as people name it; empty for a leg without one.
QString viaje(const Recordset& rs) {
    if (rs.Fields(QStringLiteral("TrVia_Numero")).IsNull()) {
        return {};
    }
    return rs.Fields(QStringLiteral("TrVia_Serie")).Texto().trimmed() + u'/' +
           QString::number(rs.Fields(QStringLiteral("TrVia_Numero")).Entero());
}

// The lookup list's shape shared by both lists: the trip is searched on, and
// the stable sort on it keeps the statement's order within each trip.
PeticionBusca peticion(const QString& titulo, const QString& cabeceraNombre) {
    PeticionBusca p;
    p.titulo = titulo;
    p.columna = QStringLiteral("Viaje");
    p.cabeceraCodigo = QStringLiteral("Viaje");
    p.cabeceraNombre = cabeceraNombre;
    p.anchoCodigo = 1200;
    p.anchoNombre = 5000;
    return p;
}

// Free means no line: NULL once freed, 0 as a new leg is written.
const QString kLibre = QStringLiteral("COALESCE(TrDes_IdLav, 0) = 0");

} // namespace

void TransportesIncorporados::jMuestraTramo(qint32 idTramo, qint32 idLav) {
    LanzadorPantallas* lanzador = LanzadorActual();
    if (!lanzador) {
        throw Error(vk::mensajes::kSinLanzador.arg(kPantallaTramo));
    }
    lanzador->Muestra(
        {kPantallaTramo, {{QStringLiteral("idTramo"), idTramo}, {QStringLiteral("idLav"), idLav}}});
}

void TransportesIncorporados::jViajesCliente(qint32 idCliente) {
    Recordset rs = sesion(MyBd).cn().Execute(
        QStringLiteral("SELECT TrDes_Id, TrVia_Serie, TrVia_Numero, TrDes_FDescarga, "
                       "TrDes_Poblacion, Lav_Importe FROM TrDes INNER JOIN Lav ON Lav_Id = "
                       "TrDes_IdLav INNER JOIN Cav ON Cav_Id = Lav_IdCav LEFT JOIN TrCar ON "
                       "TrCar_Id = TrDes_IdCar LEFT JOIN TrVia ON TrVia_Id = TrCar_IdVia WHERE "
                       "Cav_IdCli = ? ORDER BY TrDes_FDescarga DESC, TrDes_Id DESC"),
        {idCliente});
    PeticionBusca p = peticion(mensajes::kTituloViajesCliente, QStringLiteral("Descarga"));
    p.columnas = {QStringLiteral("TrDes_Id"), QStringLiteral("Viaje"), QStringLiteral("Descarga"),
                  QStringLiteral("Población"), QStringLiteral("Importe")};
    for (; !rs.Eof(); rs.MoveNext()) {
        p.filas.push_back({rs.Fields(QStringLiteral("TrDes_Id")).Entero(), viaje(rs),
                           Format(rs.Fields(QStringLiteral("TrDes_FDescarga")).Fecha(), kFecha),
                           rs.Fields(QStringLiteral("TrDes_Poblacion")).Texto().trimmed(),
                           FormatoMoneda(rs.Fields(QStringLiteral("Lav_Importe")).Doble())});
    }
    // Only a list to look at: the row chosen, if any, changes nothing.
    Ui().Busca(p);
}

std::optional<VKTrans::TramoElegido> TransportesIncorporados::EligeTramo(qint32 idCliente) {
    (void)idCliente; // legs carry no customer before their line does
    Recordset rs = sesion(MyBd).cn().Execute(
        QStringLiteral("SELECT TrDes_Id, TrVia_Serie, TrVia_Numero, TrCar_Poblacion, "
                       "TrDes_Poblacion, COALESCE(TrDes_FDescarga, TrCar_Fecha) AS Fecha FROM "
                       "TrDes LEFT JOIN TrCar ON TrCar_Id = TrDes_IdCar LEFT JOIN TrVia ON "
                       "TrVia_Id = TrCar_IdVia WHERE %1 ORDER BY Fecha, TrDes_Id")
            .arg(kLibre));
    PeticionBusca p = peticion(mensajes::kTituloTramosLibres, QStringLiteral("Tramo"));
    p.columnas = {QStringLiteral("TrDes_Id"), QStringLiteral("Viaje"), QStringLiteral("Tramo")};
    for (; !rs.Eof(); rs.MoveNext()) {
        p.filas.push_back({rs.Fields(QStringLiteral("TrDes_Id")).Entero(), viaje(rs),
                           mensajes::kDescripcionTramo.arg(
                               rs.Fields(QStringLiteral("TrCar_Poblacion")).Texto().trimmed(),
                               rs.Fields(QStringLiteral("TrDes_Poblacion")).Texto().trimmed(),
                               Format(rs.Fields(QStringLiteral("Fecha")).Fecha(), kFecha))});
    }
    const std::optional<int> fila = Ui().Busca(p);
    if (!fila || *fila < 0 || *fila >= static_cast<int>(p.filas.size())) {
        return std::nullopt;
    }
    const std::optional<QString> texto =
        Ui().PideTexto(mensajes::kImporteTramo, mensajes::kTituloTransporte, QString());
    if (!texto) {
        return std::nullopt;
    }
    const std::optional<double> importe = LeeNumeroTecleado(*texto);
    if (!importe) {
        Ui().Mensaje(mensajes::kImporteNoNumerico.arg(texto->trimmed()), Icono::Aviso,
                     mensajes::kTituloTransporte);
        return std::nullopt;
    }
    const std::vector<QVariant>& f = p.filas[*fila];
    return TramoElegido{f[0].toInt(), Redondea(*importe, 2), f[2].toString()};
}

void TransportesIncorporados::FacturaTramo(qint32 idFactura, const TramoElegido& tramo) {
    Conexion& cn = sesion(MyBd).cn();
    const Recordset nota = cn.Execute(
        QStringLiteral("SELECT Cav_Id FROM Cav WHERE Cav_IdFactura = ? ORDER BY Cav_Fecha, Cav_Id "
                       "LIMIT 1"),
        {idFactura});
    if (nota.Eof()) {
        throw ErrorRegla(mensajes::kFacturaSinAlbaran);
    }
    const qint64 idCav = nota.Fields(0).Entero();
    // The leg takes the VAT row the note's goods have: a note is of one
    // regime, and its first line stands for it.
    const Recordset lineas = cn.Execute(
        QStringLiteral("SELECT Lav_Tiva, (SELECT MAX(Lav_Orden) FROM Lav WHERE Lav_IdCav = ?) "
                       "FROM Lav WHERE Lav_IdCav = ? ORDER BY Lav_Orden, Lav_Id LIMIT 1"),
        {idCav, idCav});
    if (lineas.Eof()) {
        throw ErrorRegla(mensajes::kAlbaranSinLineas);
    }
    const qint64 idLav =
        cn.Execute(QStringLiteral("INSERT INTO Lav (Lav_IdCav, Lav_Orden, Lav_Des, Lav_Cantidad, "
                                  "Lav_Uni, Lav_Precio, Lav_Importe, Lav_Tiva, Lav_IdViaje) "
                                  "VALUES (?, ?, ?, 1, 1, ?, ?, ?, ?) RETURNING Lav_Id"),
                   {idCav, lineas.Fields(1).Entero() + 1, tramo.descripcion, tramo.importe,
                    Redondea(tramo.importe, 2), lineas.Fields(0).Entero(), tramo.idTramo})
            .Fields(0)
            .Entero();
    // Checked again here, under the caller's lock: another invoice may have
    // taken the leg since it was listed.
    cn.Execute(
        QStringLiteral("UPDATE TrDes SET TrDes_IdLav = ? WHERE TrDes_Id = ? AND %1").arg(kLibre),
        {idLav, tramo.idTramo});
    if (cn.RecordsAffected() == 0) {
        throw ErrorRegla(mensajes::kTramoYaFacturado);
    }
}

void TransportesIncorporados::QuitaTramo(qint32 idLav) {
    Conexion& cn = sesion(MyBd).cn();
    cn.Execute(QStringLiteral("UPDATE TrDes SET TrDes_IdLav = NULL WHERE TrDes_IdLav = ?"),
               {idLav});
    cn.Execute(QStringLiteral("DELETE FROM Lav WHERE Lav_Id = ?"), {idLav});
}

void RegistraTransportes() {
    RegistraComponente(QString::fromLatin1(VKTrans::kProgId),
                       [] { return std::make_unique<TransportesIncorporados>(); });
}

} // namespace vk::suite
