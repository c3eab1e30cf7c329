// Writes the amounts the calculation left in the facade into the invoice's
// row, then brings its dependents up to date: the non-fiscal retention, the
// receipts and, where the company posts as it saves, the accounting.
#include "GrabaFactura.h"

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

// Runs one dependent step of the save in a savepoint (a transaction when the
// caller has none): a failure undoes that step alone, so what earlier steps
// wrote stands, and on PostgreSQL the caller's transaction stays usable.
template <typename Paso> auto enPaso(Conexion& cn, Paso paso) {
    Transaccion t(cn);
    auto r = paso();
    t.Confirma();
    return r;
}

} // namespace

bool fnGrabaFactura(VKFACVENTAS& f, bool bRecibos, bool bEdi, bool& importesEscritos) {
    importesEscritos = false;
    BdSesion& bd = f.MyBd();
    QString texto;
    if (!bd.ConexionActiva(bd.cn(), texto)) {
        Ui().Mensaje(mensajes::kConexionPerdida, Icono::Error, QString());
        return false;
    }

    bd.Tabla(QStringLiteral("Fav"));
    bd.Limpia(0);
    BdCampos& c = bd.xlsCampos();
    importe(c, QStringLiteral("Fav_Bruto"), f.Bruto);
    importe(c, QStringLiteral("Fav_Dto1"), f.PorcentajeDto1);
    importe(c, QStringLiteral("Fav_ImpDto1"), f.ImpDto1);
    importe(c, QStringLiteral("Fav_Bruto1"), f.Bruto1);
    importe(c, QStringLiteral("Fav_Dto2"), f.PorcentajeDto2);
    importe(c, QStringLiteral("Fav_ImpDto2"), f.ImpDto2);
    const std::array<double, 3> bases{f.BaseIva1, f.BaseIva2, f.BaseIva3};
    const std::array<double, 3> pIva{f.PorcentajeIva1, f.PorcentajeIva2, f.PorcentajeIva3};
    const std::array<double, 3> iIva{f.ImpIva1, f.ImpIva2, f.ImpIva3};
    const std::array<double, 3> pRec{f.PorcentajeRecargo1, f.PorcentajeRecargo2,
                                     f.PorcentajeRecargo3};
    const std::array<double, 3> iRec{f.ImpRecargo1, f.ImpRecargo2, f.ImpRecargo3};
    const std::array<QString, 3> cIva{f.CtaIva1, f.CtaIva2, f.CtaIva3};
    const std::array<QString, 3> cRec{f.CtaRec1, f.CtaRec2, f.CtaRec3};
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
    c.Add(QStringLiteral("Fav_Obs"), TipoCampo::Texto, f.Observaciones);
    importe(c, QStringLiteral("Fav_Ret"), f.PorcentajeRetencion);
    importe(c, QStringLiteral("Fav_ImpRet"), f.ImpRetencion);
    cuenta(c, QStringLiteral("Fav_CtaRet"), f.CtaRet, f.ImpRetencion);
    importe(c, QStringLiteral("Fav_Total"), f.TotalFactura);
    c.Add(QStringLiteral("Fav_IdLavManual"), TipoCampo::Numero, f.IdLavManual);
    importe(c, QStringLiteral("Fav_ImpDifManual"), f.ImpDifManual);
    importe(c, QStringLiteral("Fav_PRetNf"), f.porcentajeretencionnf);
    importe(c, QStringLiteral("Fav_IRetNf"), f.RetencionNF);
    importe(c, QStringLiteral("Fav_Liquido"), f.Liquido);
    c.Add(QStringLiteral("Fav_ModRet"), TipoCampo::Numero, f.nModoRetNF);
    c.Add(QStringLiteral("Fav_CtaCobro"), TipoCampo::Texto, f.sCtaCobro);
    c.Add(QStringLiteral("Fav_CtaCompensa"), TipoCampo::Texto, f.sCtaCompensa);
    // The invoice's own footer discount, as the totals found it: the printed
    // invoice and the posting read it from here.
    importe(c, QStringLiteral("Fav_ImpDtoPie1"), f.ImpDtoPie1);
    if (!f.Aatencion.trimmed().isEmpty()) {
        c.Add(QStringLiteral("Fav_Fatencion"), TipoCampo::Texto, f.Aatencion.trimmed());
    }
    bd.Where(QStringLiteral(" WHERE Fav_Id = ?"), {f.IdFactu});
    QString mensaje;
    if (!bd.Update(mensaje)) {
        return false;
    }
    importesEscritos = true;

    Conexion& cn = bd.cn();
    msReescribeRetencionNF(f);

    QString sCobro;
    const BdParametros& par = bd.Parametros();
    if (bRecibos && (par.Item(QStringLiteral("Par_RecAbonos")).Activo() || f.TotalFactura > 0)) {
        sCobro = enPaso(cn, [&f] { return msGeneraRecibosFactura(f); });
    }

    // Posting as the invoice is saved: linked company, the suite's own
    // accounting, sales linked, posting on save.
    Recordset emp = cn.Execute(
        QStringLiteral("SELECT Emp_id, Emp_Conta FROM vkcomun.Emp WHERE UPPER(EMP_CATALOG) = ?"),
        {par.Item(QStringLiteral("Par_Catalog")).Texto().trimmed().toUpper()});
    if (!emp.Eof() && emp.Fields(QStringLiteral("Emp_Conta")).Entero() == 1 &&
        par.Item(QStringLiteral("Par_GContable")).Texto().trimmed().toUpper() ==
            QLatin1String("ORVACON") &&
        par.Item(QStringLiteral("Par_Contav")).Entero() == 1 &&
        par.Item(QStringLiteral("Par_ModConCon")).Entero() == 1) {
        const auto nEmp = static_cast<qint16>(emp.Fields(QStringLiteral("Emp_id")).Entero());
        return enPaso(cn, [&] {
            return f.ConexionContableFacturaVentas(nEmp, QStringLiteral("WHERE Fav_Id = ?"),
                                                   {f.IdFactu}, bRecibos, false, bEdi, sCobro);
        });
    }
    return true;
}

bool VKFACVENTAS::GrabaFactura(bool bRecibos, bool bEdi) {
    bool importesEscritos = false;
    return fnGrabaFactura(*this, bRecibos, bEdi, importesEscritos);
}

} // namespace vk
