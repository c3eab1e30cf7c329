#include "Combos.h"

#include "MensajesRuns.h"

#include <BdSesion.h>
#include <Formato.h>
#include <Interaccion.h>
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

qint32 fnIdCombo(const QString& elemento, int caracteres) {
    return static_cast<qint32>(Val(elemento.left(caracteres)));
}

} // namespace vk
