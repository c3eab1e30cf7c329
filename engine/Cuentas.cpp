#include "Cuentas.h"

#include <BdSesion.h>
#include <TiposIva.h>

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

std::pair<QString, QString> fnCuentasIvaRec(BdSesion& bd, double nIva, int nReg,
                                            const QDate& fecha) {
    const std::optional<int> familia = FamiliaIva(bd, nIva, nReg, fecha);
    if (!familia) {
        return {};
    }
    // The rate's family picks the parameters.
    static const char* const kCuentas[3][2] = {{"Par_CtaVIva", "Par_CtaVRec1"},
                                               {"Par_CtaVIva2", "Par_CtaVRec2"},
                                               {"Par_CtaVIva3", "Par_CtaVRec3"}};
    if (*familia < 1 || *familia > 3) {
        return {};
    }
    const BdParametros& par = bd.Parametros();
    return {par.Item(QString::fromLatin1(kCuentas[*familia - 1][0])).Texto(),
            par.Item(QString::fromLatin1(kCuentas[*familia - 1][1])).Texto()};
}

QString fnCuentaIvaRec(BdSesion& bd, int nTipo, double nIva, int nReg, const QDate& fecha) {
    const auto [iva, recargo] = fnCuentasIvaRec(bd, nIva, nReg, fecha);
    return nTipo == 1 ? iva : recargo;
}

} // namespace vk
