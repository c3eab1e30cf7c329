#include "AlbaranesIncorporados.h"

#include "BdSesion.h"
#include "Error.h"
#include "Formato.h"
#include "Interaccion.h"
#include "LanzadorPantallas.h"
#include "MensajesCore.h"
#include "MensajesSuite.h"
#include "Redondeo.h"

#include <BloqueoSerie.h>
#include <ErrorBd.h>
#include <MensajesMotor.h>
#include <NombreCliente.h>
#include <QHash>
#include <memory>
#include <optional>

namespace vk::suite {

namespace {

constexpr int kPendiente = 1;
constexpr int kFacturado = 2;

// What a credit note negates of each line: its quantities and every amount
// that comes from them, so that each is the exact negative of the source's.
const QStringList kNegadasAbono = {
    QStringLiteral("Lav_Cantidad"),     QStringLiteral("Lav_Uni"),
    QStringLiteral("Lav_Importe"),      QStringLiteral("Lav_ImpResDes"),
    QStringLiteral("Lav_ImpDtoUnidad"), QStringLiteral("Lav_ImpHidNac"),
    QStringLiteral("Lav_ImpHidAut"),
};

// Inserts the current row of `rs` into `tabla` with `cambios` over it, the
// key left out: every column the row has is copied, whatever the table
// holds. The names come from the database, never from a person.
qint64 copiaFila(Conexion& cn, const QString& tabla, const QString& clave, const Recordset& rs,
                 const QHash<QString, QVariant>& cambios) {
    QStringList columnas;
    QVariantList valores;
    for (const QString& columna : rs.NombresCampos()) {
        if (columna.compare(clave, Qt::CaseInsensitive) == 0) {
            continue;
        }
        columnas << columna;
        const auto c = cambios.constFind(columna.toLower());
        valores << (c != cambios.constEnd() ? *c : rs.Fields(columna).Value());
    }
    return cn
        .Execute(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3) RETURNING %4")
                     .arg(tabla, columnas.join(QStringLiteral(", ")),
                          MarcadoresSql(columnas.size()), clave),
                 valores)
        .Fields(0)
        .Entero();
}

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

qint32 AlbaranesIncorporados::msCopiaAlbaran(qint32 idCavOrigen, qint32 idFactura,
                                             const QDate& fecha, qint32 idCliente, bool abono) {
    if (!MyBd) {
        throw Error(vk::mensajes::kSinSesion);
    }
    BdSesion& bd = *MyBd;
    Conexion& cn = bd.cn();
    const Recordset nota =
        cn.Execute(QStringLiteral("SELECT * FROM Cav WHERE Cav_Id = ?"), {idCavOrigen});
    if (nota.Eof()) {
        throw ErrorRegla(vk::mensajes::kAlbaranNoExiste.arg(idCavOrigen));
    }
    const QString serie = nota.Fields(QStringLiteral("Cav_Serie")).Texto();
    msBloqueaSerieAlbaranes(bd, serie);
    const qint64 numero =
        cn.Execute(QStringLiteral("SELECT COALESCE(MAX(Cav_Numero), 0) + 1 FROM Cav WHERE "
                                  "Cav_Serie = ?"),
                   {serie})
            .Fields(0)
            .Entero();
    QHash<QString, QVariant> cambios{
        {QStringLiteral("cav_numero"), numero},
        {QStringLiteral("cav_fecha"), bd.dialecto().valorFecha(fecha)},
        {QStringLiteral("cav_idcli"), idCliente},
        {QStringLiteral("cav_situa"), idFactura > 0 ? kFacturado : kPendiente},
        {QStringLiteral("cav_idfactura"),
         idFactura > 0 ? QVariant(idFactura) : QVariant(QMetaType(QMetaType::Int))},
    };
    std::optional<qint64> regimenNuevo;
    if (idCliente != nota.Fields(QStringLiteral("Cav_IdCli")).Entero()) {
        // Another customer: its regime and identity go with the note.
        const QString nombre = fnNombreCliente(
            static_cast<int>(bd.Parametros().Item(QStringLiteral("PAR_ORCONTANOM")).Entero()));
        const Recordset cli = cn.Execute(
            QStringLiteral("SELECT Cli_Reg, CLI_DOC, %1 AS Nombre FROM Cli WHERE Cli_Id = ?")
                .arg(nombre),
            {idCliente});
        if (cli.Eof()) {
            throw ErrorRegla(vk::mensajes::kClienteNoExiste.arg(idCliente));
        }
        cambios.insert(QStringLiteral("cav_idtiva"), cli.Fields(0).Value());
        regimenNuevo = cli.Fields(0).Entero();
        cambios.insert(QStringLiteral("cav_clidoc"), cli.Fields(1).Value());
        cambios.insert(QStringLiteral("cav_nfiscal"), cli.Fields(2).Value());
    }
    const qint64 nueva =
        copiaFila(cn, QStringLiteral("Cav"), QStringLiteral("Cav_Id"), nota, cambios);

    Recordset lineas = cn.Execute(
        QStringLiteral("SELECT * FROM Lav WHERE Lav_IdCav = ? ORDER BY Lav_Orden, Lav_Id"),
        {idCavOrigen});
    for (; !lineas.Eof(); lineas.MoveNext()) {
        // A transport leg is invoiced once: the copy's line does not point at it.
        QHash<QString, QVariant> c{{QStringLiteral("lav_idcav"), nueva},
                                   {QStringLiteral("lav_idviaje"), 0}};
        if (regimenNuevo) {
            // The same kind of goods in the new customer's regime, as in force
            // on the new date: a customer without surcharge pays none.
            const Recordset tipo = cn.Execute(
                QStringLiteral("SELECT t.Tiva_Id FROM vkcomun.TIVAS o INNER JOIN vkcomun.TIVAS t "
                               "ON t.Tiva_Art = o.Tiva_Art WHERE o.Tiva_Id = ? AND t.Tiva_Reg = ? "
                               "AND t.Tiva_Fecha <= ? ORDER BY t.Tiva_Fecha DESC LIMIT 1"),
                {lineas.Fields(QStringLiteral("Lav_Tiva")).Value(), *regimenNuevo,
                 bd.dialecto().valorFecha(fecha)});
            if (!tipo.Eof()) {
                c.insert(QStringLiteral("lav_tiva"), tipo.Fields(0).Value());
            }
        }
        if (abono) {
            for (const QString& columna : kNegadasAbono) {
                const Campo campo = lineas.Fields(columna);
                if (!campo.IsNull()) {
                    c.insert(columna.toLower(), -campo.Doble());
                }
            }
        }
        copiaFila(cn, QStringLiteral("Lav"), QStringLiteral("Lav_Id"), lineas, c);
    }
    return static_cast<qint32>(nueva);
}

void RegistraAlbaranes() {
    RegistraComponente(QString::fromLatin1(VKAlbVentas::kProgId),
                       [] { return std::make_unique<AlbaranesIncorporados>(); });
}

} // namespace vk::suite
