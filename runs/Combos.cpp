#include "Combos.h"

#include "MensajesRuns.h"

#include <BdSesion.h>
#include <BdUtil.h>
#include <Formato.h>
#include <Interaccion.h>
#include <NombreCliente.h>
#include <VKFACVENTAS.h>

namespace vk {

QString fnSerieFacturaPorDefecto(BdSesion& bd) {
    QString serie;
    Recordset par =
        bd.cn().Execute(QStringLiteral("SELECT par_SerFac, Par_SerAlb FROM Parametros"));
    if (!par.Eof()) {
        serie = par.Fields(QStringLiteral("par_SerFac")).Texto();
    }
    Recordset pus = bd.cn().Execute(QStringLiteral("SELECT Pus_SerAlb, Pus_SerFac FROM vkcomun.Pus "
                                                   "WHERE Pus_IdUsu = ? AND Pus_IdEmp = ?"),
                                    {bd.IdUsuario(), bd.IdEmpresa()});
    if (!pus.Eof() && !pus.Fields(QStringLiteral("Pus_SerFac")).Texto().isEmpty()) {
        serie = pus.Fields(QStringLiteral("Pus_SerFac")).Texto();
    }
    return serie;
}

QStringList msCargarFormasCobro(BdSesion& bd) {
    QStringList elementos;
    Recordset rs =
        bd.cn().Execute(QStringLiteral("SELECT Fco_Id, Fco_Des FROM Fco ORDER BY Fco_Id"));
    for (; !rs.Eof(); rs.MoveNext()) {
        elementos << Format(rs.Fields(0).Entero(), QStringLiteral("00")) + QStringLiteral(" - ") +
                         rs.Fields(1).Texto();
    }
    return elementos;
}

void msOpcionImprimeAlbaranes(VKFACVENTAS& f, const QString& titulo) {
    switch (f.MyBd().Parametros().Item(QStringLiteral("Par_AlbPrn")).Entero()) {
    case 0:
        f.ImprimeAlbaran = false;
        break;
    case 1:
        f.ImprimeAlbaran = Ui().Pregunta(mensajes::kImprimirAlbaranes, titulo, true);
        break;
    case 2:
        f.ImprimeAlbaran = true;
        break;
    default:
        break;
    }
}

std::optional<ClienteElegido> fnBuscaCliente(BdSesion& bd, const QString& titulo, bool comercial) {
    const QString nombre =
        comercial ? QStringLiteral("CLI_COMER")
                  : fnNombreCliente(static_cast<int>(
                        bd.Parametros().Item(QStringLiteral("PAR_ORCONTANOM")).Entero()));
    BdUtil util;
    util.Prepara(bd.cn());
    const QString r =
        util.Busca(QStringLiteral("SELECT CLI_ID, CLI_COD, %1 AS Cli_Nom FROM Cli ORDER BY CLI_COD")
                       .arg(nombre),
                   QStringLiteral("Cli_Nom"), QStringLiteral("Codigo"), QStringLiteral("Nombre"),
                   titulo, 1300, 6000);
    // Two characters or fewer: nothing was chosen.
    if (r.size() <= 2) {
        return std::nullopt;
    }
    const QStringList partes = r.split(BdUtil::kSeparador);
    return ClienteElegido{partes.value(0).toInt(), partes.value(1), partes.value(2)};
}

QString fnCabezaCombo(const QStringList& elementos, int indice) {
    return indice >= 0 && indice < elementos.size()
               ? elementos[indice].section(QStringLiteral(" - "), 0, 0).trimmed()
               : QString();
}

int fnIndiceCombo(const QStringList& elementos, const QString& codigo) {
    const QString c = codigo.trimmed();
    if (c.isEmpty()) {
        return -1;
    }
    for (int i = 0; i < elementos.size(); ++i) {
        if (fnCabezaCombo(elementos, i) == c) {
            return i;
        }
    }
    return -1;
}

qint32 fnIdCombo(const QString& elemento, int caracteres) {
    return static_cast<qint32>(Val(elemento.left(caracteres)));
}

} // namespace vk
