#include "RetencionNF.h"

#include "MensajesMotor.h"

#include <ErrorBd.h>
#include <Redondeo.h>
#include <VKFACVENTAS.h>

namespace vk {

void msReescribeRetencionNF(VKFACVENTAS& f) {
    BdSesion& bd = f.MyBd();
    Conexion& cn = bd.cn();
    const QString condicion =
        QStringLiteral(" WHERE RetNF_Origen = 1 AND RetNF_Tipo = 'F' AND RetNF_IdFactura = ?");
    qint64 idRecibo = 0;
    Recordset viejo = cn.Execute(
        QStringLiteral("SELECT RetNF_IdRec, RetNF_ImpRet, RetNF_Fecha, RetNF_IdClPr, RetNF_ImpPag, "
                       "RetNF_Estado FROM RetNF") +
            condicion + QStringLiteral(" ORDER BY RetNF_Id"),
        {f.IdFactu});
    // What the row takes from the invoice, read once: to compare and to write.
    const Recordset fav =
        f.porcentajeretencionnf == 0
            ? Recordset()
            : cn.Execute(QStringLiteral(
                             "SELECT fav_idcli, Fav_Fecha, Fav_Iretnf FROM Fav WHERE Fav_Id = ?"),
                         {f.IdFactu});
    // A save that changes nothing of the retention leaves its row alone: an
    // invoice edited without changes keeps every row as it was.
    if (!fav.Eof() && viejo.RecordCount() == 1 &&
        viejo.Fields(QStringLiteral("RetNF_ImpRet")).Doble() ==
            Redondea(fav.Fields(QStringLiteral("Fav_Iretnf")).Doble(), 2) &&
        viejo.Fields(QStringLiteral("RetNF_Fecha")).Fecha() ==
            fav.Fields(QStringLiteral("Fav_Fecha")).Fecha() &&
        viejo.Fields(QStringLiteral("RetNF_IdClPr")).Entero() ==
            fav.Fields(QStringLiteral("fav_idcli")).Entero() &&
        viejo.Fields(QStringLiteral("RetNF_ImpPag")).Doble() == 0 &&
        viejo.Fields(QStringLiteral("RetNF_Estado")).Entero() == 0) {
        return;
    }
    QString mensaje;
    if (!viejo.Eof()) {
        idRecibo = viejo.Fields(QStringLiteral("RetNF_IdRec")).Entero();
        bd.Limpia(0);
        bd.Tabla(QStringLiteral("RetNF"));
        bd.Where(condicion, {f.IdFactu});
        if (!bd.Borra(mensaje)) {
            bd.LanzaErrorConstructor(mensajes::kRetencionNoGrabada.arg(mensaje));
        }
    }
    if (f.porcentajeretencionnf == 0) {
        return;
    }
    if (fav.Eof()) {
        throw ErrorRegla(mensajes::kFacturaNoExiste.arg(f.IdFactu), Error::kBuilder);
    }
    bd.Limpia(0);
    bd.Tabla(QStringLiteral("RetNF"));
    BdCampos& c = bd.xlsCampos();
    c.Add(QStringLiteral("RetNF_Origen"), TipoCampo::Numero, 1);
    c.Add(QStringLiteral("RetNF_IdClPr"), TipoCampo::Numero,
          fav.Fields(QStringLiteral("fav_idcli")).Value());
    c.Add(QStringLiteral("RetNF_IdFactura"), TipoCampo::Numero, f.IdFactu);
    c.Add(QStringLiteral("RetNF_Tipo"), TipoCampo::Texto, QStringLiteral("F"));
    c.Add(QStringLiteral("RetNF_Fecha "), TipoCampo::Fecha,
          fav.Fields(QStringLiteral("Fav_Fecha")).Fecha());
    c.Add(QStringLiteral("RetNF_ImpRet"), TipoCampo::Importe,
          fav.Fields(QStringLiteral("Fav_Iretnf")).Doble(), 2);
    c.Add(QStringLiteral("RetNF_ImpPag"), TipoCampo::Numero, 0);
    c.Add(QStringLiteral("RetNF_Obs"), TipoCampo::Expresion, QStringLiteral("Null"));
    c.Add(QStringLiteral("RetNF_Estado"), TipoCampo::Numero, 0);
    c.Add(QStringLiteral("RetNF_IdRetNf"), TipoCampo::Numero, 0);
    c.Add(QStringLiteral("RetNF_IdRec"), TipoCampo::Numero, idRecibo);
    bd.Where(QString());
    // A failed insert takes nothing else with it: the amounts of Fav and the
    // removal of the old row stand.
    Transaccion t(cn);
    if (!bd.Inserta(mensaje)) {
        t.Deshaz();
        bd.LanzaErrorConstructor(mensajes::kRetencionNoGrabada.arg(mensaje));
    }
    t.Confirma();
}

} // namespace vk
