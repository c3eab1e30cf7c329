#include "AlbaranesIncorporados.h"

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

constexpr int kPendiente = 1;

} // namespace

std::optional<VKAlbVentas::AlbaranElegido>
AlbaranesIncorporados::BuscaAlbaranesCliente(qint32 idCliente) {
    if (!MyBd) {
        throw Error(vk::mensajes::kSinSesion);
    }
    // The amount is summed by the server and rounded here with the money
    // rounding, as the batch screen does with its groups.
    Recordset rs = MyBd->cn().Execute(
        QStringLiteral("SELECT Cav_Id, Cav_Serie, Cav_Numero, Cav_Fecha, (SELECT "
                       "COALESCE(SUM(Lav_Importe), 0) FROM Lav WHERE Lav_IdCav = Cav_Id) AS "
                       "Importe FROM Cav WHERE Cav_IdCli = ? AND Cav_Situa = ? AND Cav_IdFactura "
                       "IS NULL ORDER BY Cav_Fecha DESC, Cav_Id DESC"),
        {idCliente, kPendiente});
    PeticionBusca p;
    p.titulo = mensajes::kTituloAlbaranesPendientes;
    // The box filters on the series; the rows stay newest first.
    p.columna = QStringLiteral("Serie");
    p.ordenar = false;
    p.cabeceraCodigo = QStringLiteral("Serie");
    p.cabeceraNombre = QStringLiteral("Número");
    p.anchoCodigo = 1000;
    p.anchoNombre = 1500;
    p.columnas = {QStringLiteral("Cav_Id"), QStringLiteral("Serie"), QStringLiteral("Número"),
                  QStringLiteral("Fecha"), QStringLiteral("Importe")};
    for (; !rs.Eof(); rs.MoveNext()) {
        p.filas.push_back({rs.Fields(0).Entero(), rs.Fields(1).Texto().trimmed(),
                           rs.Fields(2).Entero(),
                           Format(rs.Fields(3).Fecha(), QStringLiteral("dd/mm/yyyy")),
                           FormatoMoneda(Redondea(rs.Fields(4).Doble(), 2))});
    }
    const std::optional<int> fila = Ui().Busca(p);
    if (!fila || *fila < 0 || *fila >= static_cast<int>(p.filas.size())) {
        return std::nullopt;
    }
    const std::vector<QVariant>& f = p.filas[*fila];
    return AlbaranElegido{f[1].toString(), f[2].toInt()};
}

void AlbaranesIncorporados::jMuestraAlbaran(qint32 idCav, qint32 idLav) {
    LanzadorPantallas* lanzador = LanzadorActual();
    if (!lanzador) {
        throw Error(vk::mensajes::kSinLanzador.arg(kPantallaAlbaran));
    }
    lanzador->Muestra(
        {kPantallaAlbaran, {{QStringLiteral("idCav"), idCav}, {QStringLiteral("idLav"), idLav}}});
}

void RegistraAlbaranes() {
    RegistraComponente(QString::fromLatin1(VKAlbVentas::kProgId),
                       [] { return std::make_unique<AlbaranesIncorporados>(); });
}

} // namespace vk::suite
