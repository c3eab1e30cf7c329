#include "Cuentas.h"

#include <BdSesion.h>

namespace vk {

qint16 fnRegimenCliente(BdSesion& bd, qint32 idCliente) {
    Recordset rs =
        bd.cn().Execute(QStringLiteral("SELECT CLI_REG FROM Cli WHERE CLI_ID = ?"), {idCliente});
    if (rs.Eof()) {
        return 0;
    }
    return static_cast<qint16>(rs.Fields(QStringLiteral("CLI_REG")).Entero(1));
}

QString fnCuentaOcho(BdSesion& bd, const QString& sCuenta) {
    if (bd.Parametros().Item(QStringLiteral("Par_CtaNum")).Entero() == 8 && sCuenta.size() == 10) {
        return sCuenta.left(4) + sCuenta.right(4);
    }
    return sCuenta;
}

QString fnCuentaIvaRec(BdSesion& bd, int nTipo, double nIva, int nReg, const QDate& fecha) {
    Recordset rs = bd.cn().Execute(
        QStringLiteral("SELECT Tiva_Art FROM vkcomun.TIVAS WHERE Tiva_Iva = ? AND Tiva_Reg = ? "
                       "AND Tiva_Fecha <= ? ORDER BY Tiva_Fecha DESC LIMIT 1"),
        {nIva, nReg, bd.dialecto().valorFecha(fecha)});
    if (rs.Eof()) {
        return {};
    }
    const bool iva = nTipo == 1;
    QString parametro;
    switch (rs.Fields(0).Entero()) {
    case 1:
        parametro = iva ? QStringLiteral("Par_CtaVIva") : QStringLiteral("Par_CtaVRec1");
        break;
    case 2:
        parametro = iva ? QStringLiteral("Par_CtaVIva2") : QStringLiteral("Par_CtaVRec2");
        break;
    case 3:
        parametro = iva ? QStringLiteral("Par_CtaVIva3") : QStringLiteral("Par_CtaVRec3");
        break;
    default:
        return {};
    }
    return bd.Parametros().Item(parametro).Texto();
}

} // namespace vk
