#include "Recibos.h"

#include "MensajesMotor.h"

#include <Tesoreria.h>
#include <VKFACVENTAS.h>

namespace vk {

qint32 fnAgenteFactura(VKFACVENTAS& f) {
    Recordset rs = f.MyBd().cn().Execute(
        QStringLiteral("SELECT COALESCE(cav_agente, 0) AS agente FROM Cav WHERE cav_idfactura = ? "
                       "ORDER BY Cav_Id"),
        {f.IdFactu});
    qint32 agente = 0;
    for (; !rs.Eof(); rs.MoveNext()) {
        const qint32 a = static_cast<qint32>(rs.Fields(0).Entero());
        if (a > 0) {
            agente = a;
        }
    }
    return agente;
}

QString msGeneraRecibosFactura(VKFACVENTAS& f) {
    BdSesion& bd = f.MyBd();
    std::unique_ptr<VKTESORE> t = CreaObjeto<VKTESORE>(QString::fromLatin1(VKTESORE::kProgId));
    t->MyBd = &bd;
    t->idfactura = f.IdFactu;
    t->SerieFactura = f.SerieFactura;
    t->NumeroFactura = f.NumeroFactura;
    t->NumFactura = f.NumeroFactura;
    t->FechaFactura = f.FechaFactura;
    if (!t->FechaFactura.isValid()) {
        // The row took the server's date.
        t->FechaFactura =
            bd.cn()
                .Execute(QStringLiteral("SELECT Fav_Fecha FROM Fav WHERE Fav_Id = ?"), {f.IdFactu})
                .Fields(0)
                .Fecha();
    }
    // The receipts add up to what the customer really pays.
    t->TotalFactura = f.Liquido;
    t->IdFormaCobro = f.IdFco;
    t->IdCliente = f.IdCliente;

    Recordset cli = bd.cn().Execute(
        QStringLiteral("SELECT Cli_Di1, Cli_Di2, Cli_Cta, Ban_ccc, Ban_Iban, Ban_Swift, Cli_msp "
                       "FROM Cli LEFT JOIN BANCOS ON Ban_Id = Cli_ban WHERE Cli_Id = ?"),
        {f.IdCliente});
    if (!cli.Eof()) {
        t->DiasPago1 = static_cast<qint16>(cli.Fields(QStringLiteral("Cli_Di1")).Entero());
        t->DiasPago2 = static_cast<qint16>(cli.Fields(QStringLiteral("Cli_Di2")).Entero());
        t->MesSinPago = static_cast<qint16>(cli.Fields(QStringLiteral("Cli_msp")).Entero());
        t->CtaCobroCliente = cli.Fields(QStringLiteral("Cli_Cta")).Texto();
        t->CtaBancoAsignado = cli.Fields(QStringLiteral("Ban_ccc")).Texto();
        t->sIban = cli.Fields(QStringLiteral("Ban_Iban")).Texto().trimmed();
        t->sSwift = cli.Fields(QStringLiteral("Ban_Swift")).Texto().trimmed();
    }
    t->bCartera = bd.Parametros().Item(QStringLiteral("Par_RecCar")).Entero() == 1;
    const qint32 agente = fnAgenteFactura(f);
    if (agente > 0) {
        t->Idagente = agente;
    }
    t->Calculo_Vtos_Factura(f.sCtaCompensa.trimmed().isEmpty() ? 0 : 1);
    return t->sCobro();
}

void msActualizaAgenteRecibos(VKFACVENTAS& f) {
    const qint32 agente = fnAgenteFactura(f);
    if (agente <= 0) {
        return;
    }
    BdSesion& bd = f.MyBd();
    bd.Tabla(QStringLiteral("Rec"));
    bd.Limpia(0);
    bd.xlsCampos().Add(QStringLiteral("Rec_Age"), TipoCampo::Numero, agente);
    bd.Where(QStringLiteral(" WHERE Rec_Tipo = 1 AND Rec_IdFac = ?"), {f.IdFactu});
    QString mensaje;
    if (!bd.Update(mensaje)) {
        bd.LanzaErrorConstructor(mensajes::kAgenteRecibosNoGrabado.arg(mensaje));
    }
}

} // namespace vk
