#include "EmpresaPrueba.h"

#include <ErrorBd.h>
#include <FacturacionAlbaranes.h>
#include <frmIniFav.h>

namespace vk::prueba {

EmpresaPrueba::EmpresaPrueba(Motor motor) : base_(motor) {
    sesion_ = base_.CreaEmpresa();
    EstableceInteraccion(&ui_);
    factura_ = std::make_unique<VKFACVENTAS>();
    factura_->setMyBd(*sesion_);
    parametro(QStringLiteral("Par_CtaVIva"), QStringLiteral("47700021"));
    parametro(QStringLiteral("Par_CtaVIva2"), QStringLiteral("47700010"));
    parametro(QStringLiteral("Par_CtaVIva3"), QStringLiteral("47700004"));
    parametro(QStringLiteral("Par_CtaVRec1"), QStringLiteral("47710052"));
    parametro(QStringLiteral("Par_CtaVRec2"), QStringLiteral("47710014"));
    parametro(QStringLiteral("Par_CtaVRec3"), QStringLiteral("47710005"));
    parametro(QStringLiteral("Par_CtaVIrpf"), QStringLiteral("47300000"));
    parametro(QStringLiteral("Par_CtaVIrpfAlq"), QStringLiteral("47300001"));
}

EmpresaPrueba::~EmpresaPrueba() {
    factura_.reset();
    EstableceInteraccion(nullptr);
}

void EmpresaPrueba::parametro(const QString& nombre, const QVariant& valor) {
    // The name is one of the schema's columns, never user text.
    cn().Execute(QStringLiteral("UPDATE Parametros SET %1 = ?").arg(nombre), {valor});
    sesion_->Parametros().Item(nombre).setValue(valor);
}

qint32 EmpresaPrueba::cliente(const ClientePrueba& c) {
    const int codigo = siguienteCodigo_++;
    Recordset rs = cn().Execute(
        QStringLiteral(
            "INSERT INTO Cli (CLI_COD, cli_nom, cli_ape1, CLI_DOC, Cli_Reg, cli_fco, "
            "CLI_RetNFiscal, CLI_ModoRetNF, Cli_Di1, CLI_DI2, Cli_msp, CLI_IdAge, "
            "Cli_CtaCon) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?) RETURNING CLI_ID"),
        {codigo, QStringLiteral("Cliente"), QStringLiteral("Número %1").arg(codigo),
         QStringLiteral("%1A").arg(10000000 + codigo), c.regimen, c.idFco, c.retNf, c.modoRetNf,
         c.diaPago1, c.diaPago2, c.mesSinPago, c.agente,
         QStringLiteral("4300%1").arg(codigo, 4, 10, QLatin1Char('0'))});
    return static_cast<qint32>(rs.Fields(0).Entero());
}

qint32 EmpresaPrueba::formaPago(const QString& descripcion,
                                const std::vector<std::tuple<int, double, int>>& plazos) {
    const qint32 id = static_cast<qint32>(
        cn().Execute(QStringLiteral("INSERT INTO Fco (Fco_Des) VALUES (?) RETURNING Fco_Id"),
                     {descripcion})
            .Fields(0)
            .Entero());
    for (const auto& [dias, porcentaje, modo] : plazos) {
        cn().Execute(QStringLiteral("INSERT INTO Fcol (Fcol_id, Fcol_Dias, Fcol_Porcentaje, "
                                    "Fcol_Mod) VALUES (?, ?, ?, ?)"),
                     {id, dias, porcentaje, modo});
    }
    return id;
}

qint32 EmpresaPrueba::tipoIva(int regimen, int familia, const QDate& fecha) {
    Recordset rs = cn().Execute(
        QStringLiteral("SELECT Tiva_Id FROM vkcomun.TIVAS WHERE Tiva_Reg = ? AND Tiva_Art = ? AND "
                       "Tiva_Fecha <= ? ORDER BY Tiva_Fecha DESC LIMIT 1"),
        {regimen, familia, bd().dialecto().valorFecha(fecha)});
    if (rs.Eof()) {
        throw ErrorBd(QStringLiteral("Sin tipo %1/%2").arg(regimen).arg(familia));
    }
    return static_cast<qint32>(rs.Fields(0).Entero());
}

qint32 EmpresaPrueba::albaran(qint32 idCliente, const QDate& fecha, int regimenNota,
                              const std::vector<LineaPrueba>& lineas, qint32 agente) {
    const qint32 id = static_cast<qint32>(
        cn().Execute(QStringLiteral("INSERT INTO Cav (Cav_Serie, Cav_Numero, Cav_Fecha, Cav_IdCli, "
                                    "Cav_Situa, Cav_IdTiva, Cav_Agente) VALUES (?, ?, ?, ?, 1, ?, "
                                    "?) RETURNING Cav_Id"),
                     {QStringLiteral("A"), siguienteAlbaran_++, bd().dialecto().valorFecha(fecha),
                      idCliente, regimenNota, agente})
            .Fields(0)
            .Entero());
    int orden = 1;
    for (const LineaPrueba& l : lineas) {
        cn().Execute(QStringLiteral("INSERT INTO Lav (Lav_IdCav, Lav_Orden, Lav_Des, Lav_Cantidad, "
                                    "Lav_Precio, Lav_Importe, Lav_ImpResDes, Lav_ImpDtoUnidad, "
                                    "Lav_Tiva) VALUES (?, ?, ?, 1, ?, ?, ?, ?, ?)"),
                     {id, orden, QStringLiteral("Línea %1").arg(orden), l.importe, l.importe,
                      l.resDes, l.dtoUnidad, tipoIva(l.regimen, l.familia, l.fechaTipo)});
        ++orden;
    }
    return id;
}

qint32 EmpresaPrueba::nuevaFactura(qint32 idCliente, const QDate& fecha,
                                   const std::vector<qint32>& albaranes, double dto1, double dto2,
                                   const QString& serie) {
    VKFACVENTAS& f = factura();
    Recordset cli = cn().Execute(
        QStringLiteral("SELECT cli_fco, CLI_RetNFiscal, CLI_ModoRetNF FROM Cli WHERE CLI_ID = ?"),
        {idCliente});
    CabeceraFactura c;
    c.serie = serie;
    c.fecha = fecha;
    c.idCliente = idCliente;
    c.idFco = static_cast<qint32>(cli.Fields(QStringLiteral("cli_fco")).Entero());
    c.dto1 = dto1;
    c.dto2 = dto2;
    c.retencionNF = cli.Fields(QStringLiteral("CLI_RetNFiscal")).Doble();
    c.modoRetencionNF = static_cast<qint16>(cli.Fields(QStringLiteral("CLI_ModoRetNF")).Entero());
    // A new series asks for its first number: the tests take the default.
    ui_.dialogos.push_back([](DialogoModelo& d) {
        auto* dialogo = dynamic_cast<frmIniFav*>(&d);
        return dialogo && dialogo->cmdInforme();
    });
    OpcionesFacturacion o;
    o.nTipo = 1;
    o.calcula = false;
    const ResultadoFacturacion r = FacturaAlbaranes(f, c, albaranes, o);
    ui_.dialogos.clear();
    return r.Creada() ? r.idFactura : 0;
}

qint64 EmpresaPrueba::cuenta(const QString& sql, const QVariantList& params) {
    return cn().Execute(sql, params).Fields(0).Entero();
}

} // namespace vk::prueba
