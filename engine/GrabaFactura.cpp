// Writes the amounts the calculation left in the facade into the invoice's
// row, then brings its dependents up to date: the non-fiscal retention, the
// receipts and, where the company posts as it saves, the accounting.
#include "GrabaFactura.h"

#include "MensajesMotor.h"
#include "Recibos.h"
#include "RetencionNF.h"

#include <ColumnasFav.h>
#include <ErrorBd.h>
#include <Interaccion.h>
#include <VKFACVENTAS.h>

namespace vk {

namespace {

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

std::optional<qint16> fnEmpresaContabiliza(BdSesion& bd) {
    // Posting as the invoice is saved: linked company, the suite's own
    // accounting, sales linked, posting on save.
    const BdParametros& par = bd.Parametros();
    Recordset emp = bd.Referencia(
        QStringLiteral("SELECT Emp_id, Emp_Conta FROM vkcomun.Emp WHERE UPPER(EMP_CATALOG) = ?"),
        {par.Item(QStringLiteral("Par_Catalog")).Texto().trimmed().toUpper()});
    if (!emp.Eof() && emp.Fields(QStringLiteral("Emp_Conta")).Entero() == 1 &&
        par.Item(QStringLiteral("Par_GContable")).Texto().trimmed().toUpper() ==
            QLatin1String("ORVACON") &&
        par.Item(QStringLiteral("Par_Contav")).Entero() == 1 &&
        par.Item(QStringLiteral("Par_ModConCon")).Entero() == 1) {
        return static_cast<qint16>(emp.Fields(QStringLiteral("Emp_id")).Entero());
    }
    return std::nullopt;
}

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
    // Every amount, and the invoice's own footer discount as the totals
    // found it: the printed invoice and the posting read them from here.
    EscribeColumnasFav(bd.xlsCampos(), f, OperacionFav::Grabacion);
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

    if (const std::optional<qint16> nEmp = fnEmpresaContabiliza(bd)) {
        return enPaso(cn, [&] {
            return f.ConexionContableFacturaVentas(*nEmp, QStringLiteral("WHERE Fav_Id = ?"),
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
