// Writes the amounts the calculation left in the facade into the invoice's
// row, then brings its dependents up to date: the non-fiscal retention, the
// receipts and, where the company posts as it saves, the accounting.
#include "MensajesMotor.h"
#include "Recibos.h"
#include "RetencionNF.h"

#include <ErrorBd.h>
#include <Interaccion.h>
#include <VKFACVENTAS.h>
#include <array>

namespace vk {

namespace {

void importe(BdCampos& c, const QString& columna, double valor) {
    c.Add(columna, TipoCampo::Importe, valor, 2);
}

// An account is stored only when its amount is not 0.
void cuenta(BdCampos& c, const QString& columna, const QString& valor, double importeAsociado) {
    if (importeAsociado != 0) {
        c.Add(columna, TipoCampo::Texto, valor);
    } else {
        c.Add(columna, TipoCampo::Expresion, QStringLiteral("Null"));
    }
}

} // namespace

bool VKFACVENTAS::GrabaFactura(bool bRecibos, bool bEdi) {
    BdSesion& bd = MyBd();
    QString texto;
    if (!bd.ConexionActiva(bd.cn(), texto)) {
        Ui().Mensaje(mensajes::kConexionPerdida, Icono::Error, QString());
        return false;
    }

    bd.Tabla(QStringLiteral("Fav"));
    bd.Limpia(0);
    BdCampos& c = bd.xlsCampos();
    importe(c, QStringLiteral("Fav_Bruto"), Bruto);
    importe(c, QStringLiteral("Fav_Dto1"), PorcentajeDto1);
    importe(c, QStringLiteral("Fav_ImpDto1"), ImpDto1);
    importe(c, QStringLiteral("Fav_Bruto1"), Bruto1);
    importe(c, QStringLiteral("Fav_Dto2"), PorcentajeDto2);
    importe(c, QStringLiteral("Fav_ImpDto2"), ImpDto2);
    const std::array<double, 3> bases{BaseIva1, BaseIva2, BaseIva3};
    const std::array<double, 3> pIva{PorcentajeIva1, PorcentajeIva2, PorcentajeIva3};
    const std::array<double, 3> iIva{ImpIva1, ImpIva2, ImpIva3};
    const std::array<double, 3> pRec{PorcentajeRecargo1, PorcentajeRecargo2, PorcentajeRecargo3};
    const std::array<double, 3> iRec{ImpRecargo1, ImpRecargo2, ImpRecargo3};
    const std::array<QString, 3> cIva{CtaIva1, CtaIva2, CtaIva3};
    const std::array<QString, 3> cRec{CtaRec1, CtaRec2, CtaRec3};
    for (int i = 0; i < 3; ++i) {
        const QString n = QString::number(i + 1);
        importe(c, QStringLiteral("Fav_Biva") + n, bases[i]);
        importe(c, QStringLiteral("Fav_Iva") + n, pIva[i]);
        importe(c, QStringLiteral("Fav_ImpIva") + n, iIva[i]);
        importe(c, QStringLiteral("Fav_Rec") + n, pRec[i]);
        importe(c, QStringLiteral("Fav_ImpRec") + n, iRec[i]);
        cuenta(c, QStringLiteral("Fav_CtaIva") + n, cIva[i], iIva[i]);
        cuenta(c, QStringLiteral("Fav_CtaRec") + n, cRec[i], iRec[i]);
    }
    c.Add(QStringLiteral("Fav_Obs"), TipoCampo::Texto, Observaciones);
    importe(c, QStringLiteral("Fav_Ret"), PorcentajeRetencion);
    importe(c, QStringLiteral("Fav_ImpRet"), ImpRetencion);
    cuenta(c, QStringLiteral("Fav_CtaRet"), CtaRet, ImpRetencion);
    importe(c, QStringLiteral("Fav_Total"), TotalFactura);
    c.Add(QStringLiteral("Fav_IdLavManual"), TipoCampo::Numero, IdLavManual);
    importe(c, QStringLiteral("Fav_ImpDifManual"), ImpDifManual);
    importe(c, QStringLiteral("Fav_PRetNf"), porcentajeretencionnf);
    importe(c, QStringLiteral("Fav_IRetNf"), RetencionNF);
    importe(c, QStringLiteral("Fav_Liquido"), Liquido);
    c.Add(QStringLiteral("Fav_ModRet"), TipoCampo::Numero, nModoRetNF);
    c.Add(QStringLiteral("Fav_CtaCobro"), TipoCampo::Texto, sCtaCobro);
    c.Add(QStringLiteral("Fav_CtaCompensa"), TipoCampo::Texto, sCtaCompensa);
    if (!Aatencion.trimmed().isEmpty()) {
        c.Add(QStringLiteral("Fav_Fatencion"), TipoCampo::Texto, Aatencion.trimmed());
    }
    bd.Where(QStringLiteral(" WHERE Fav_Id = ?"), {IdFactu});
    QString mensaje;
    if (!bd.Update(mensaje)) {
        return false;
    }

    msReescribeRetencionNF(*this);

    QString sCobro;
    const BdParametros& par = bd.Parametros();
    if (bRecibos && (par.Item(QStringLiteral("Par_RecAbonos")).Activo() || TotalFactura > 0)) {
        sCobro = msGeneraRecibosFactura(*this);
    }

    // Posting as the invoice is saved: linked company, the suite's own
    // accounting, sales linked, posting on save.
    Recordset emp = bd.cn().Execute(
        QStringLiteral("SELECT Emp_id, Emp_Conta FROM vkcomun.Emp WHERE UPPER(EMP_CATALOG) = ?"),
        {par.Item(QStringLiteral("Par_Catalog")).Texto().trimmed().toUpper()});
    if (!emp.Eof() && emp.Fields(QStringLiteral("Emp_Conta")).Entero() == 1 &&
        par.Item(QStringLiteral("Par_GContable")).Texto().trimmed().toUpper() ==
            QLatin1String("ORVACON") &&
        par.Item(QStringLiteral("Par_Contav")).Entero() == 1 &&
        par.Item(QStringLiteral("Par_ModConCon")).Entero() == 1) {
        return ConexionContableFacturaVentas(
            static_cast<qint16>(emp.Fields(QStringLiteral("Emp_id")).Entero()),
            QStringLiteral("WHERE Fav_Id = %1").arg(IdFactu), bRecibos, false, bEdi, sCobro);
    }
    return true;
}

} // namespace vk
