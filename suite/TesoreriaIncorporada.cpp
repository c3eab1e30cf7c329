#include "TesoreriaIncorporada.h"

#include "BdSesion.h"
#include "ErrorBd.h"
#include "Formato.h"
#include "LanzadorPantallas.h"
#include "MensajesCore.h"
#include "MensajesSuite.h"
#include "Redondeo.h"
#include "Vencimientos.h"

#include <QStringList>
#include <algorithm>
#include <memory>

namespace vk::suite {

namespace {

constexpr int kTipoVenta = 1;
constexpr int kPendiente = 1;

bool soloDigitos(const QString& texto) {
    return !texto.isEmpty() &&
           std::all_of(texto.begin(), texto.end(), [](QChar c) { return c.isDigit(); });
}

QString cobroDe(const std::vector<Plazo>& plazos, qint16 nCompensa, const QString& ctaBanco) {
    if (nCompensa == 1 || plazos.empty()) {
        return {};
    }
    const bool deUnaVez =
        std::all_of(plazos.begin(), plazos.end(), [](const Plazo& p) { return p.dias == 0; });
    if (!deUnaVez) {
        return {};
    }
    const auto todos = [&](int modo) {
        return std::all_of(plazos.begin(), plazos.end(),
                           [modo](const Plazo& p) { return p.modo == modo; });
    };
    const QString contado = QString::number(kModoContado);
    if (todos(kModoContado)) {
        return contado;
    }
    if (todos(kModoTarjeta)) {
        const QString cta = ctaBanco.trimmed();
        if (!soloDigitos(cta)) {
            return contado;
        }
        const QChar sep(1);
        return QString::number(kModoTarjeta) + sep + cta + sep + kDescripcionTarjeta;
    }
    return {};
}

} // namespace

QString NombreFactura(const QString& serie, qint32 numero) {
    return serie.trimmed().isEmpty() ? QString::number(numero)
                                     : serie.trimmed() + u'/' + QString::number(numero);
}

void InsertaRecibo(BdSesion& bd, const DatosRecibo& r) {
    bd.Limpia();
    bd.Tabla(QStringLiteral("Rec"));
    BdCampos& c = bd.xlsCampos();
    c.Add(QStringLiteral("Rec_Tipo"), TipoCampo::Numero, kTipoVenta);
    c.Add(QStringLiteral("Rec_IdFac"), TipoCampo::Numero, r.idFactura);
    c.Add(QStringLiteral("Rec_IdClPr"), TipoCampo::Numero, r.idCliente);
    c.Add(QStringLiteral("Rec_Serie"), TipoCampo::Texto, r.serie);
    c.Add(QStringLiteral("Rec_Numero"), TipoCampo::Numero, r.numero);
    c.Add(QStringLiteral("Rec_FVto"), TipoCampo::Fecha, r.vencimiento);
    c.Add(QStringLiteral("Rec_Importe"), TipoCampo::Importe, r.importe, 2);
    c.Add(QStringLiteral("Rec_Cta"), TipoCampo::Texto, r.cta);
    c.Add(QStringLiteral("Rec_CtaBanco"), TipoCampo::Texto, r.ctaBanco);
    c.Add(QStringLiteral("Rec_Iban"), TipoCampo::Texto, r.iban);
    c.Add(QStringLiteral("Rec_Swift"), TipoCampo::Texto, r.swift);
    c.Add(QStringLiteral("Rec_Mod"), TipoCampo::Numero, r.modo);
    c.Add(QStringLiteral("Rec_Sit"), TipoCampo::Numero, kPendiente);
    c.Add(QStringLiteral("Rec_Age"), TipoCampo::Numero, r.agente);
    c.Add(QStringLiteral("Rec_IdRem"), TipoCampo::Numero, 0);
    c.Add(QStringLiteral("Rec_Cartera"), TipoCampo::Numero, r.cartera);
    c.Add(QStringLiteral("Rec_Texto"), TipoCampo::Texto, r.texto);
    c.Add(QStringLiteral("Rec_Obser"), TipoCampo::Texto, QString());
    QString sMensaje;
    if (!bd.Inserta(sMensaje)) {
        const QString texto =
            mensajes::kTesoreriaErrorRecibo.arg(NombreFactura(r.serie, r.numero), sMensaje);
        if (const auto& e = bd.ErrorConstructor()) {
            throw ErrorBd(texto, e->Detalle(), e->Clase());
        }
        throw ErrorBd(texto, ErrorBd::kBuilder);
    }
}

void TesoreriaIncorporada::Calculo_Vtos_Factura(qint16 nCompensa) {
    sCobro_.clear();
    if (!MyBd) {
        throw Error(mensajes::kTesoreriaSinSesion);
    }
    if (idfactura <= 0) {
        throw ErrorRegla(mensajes::kTesoreriaSinFactura);
    }
    const qint32 numero = NumeroFactura != 0 ? NumeroFactura : NumFactura;
    const QString factura = NombreFactura(SerieFactura, numero);
    if (!FechaFactura.isValid()) {
        throw ErrorRegla(mensajes::kTesoreriaSinFecha.arg(factura));
    }
    Conexion& cn = MyBd->cn();

    // The terms and their instalments in one read; reference data, read
    // once per run like the tax rows.
    Recordset rs = MyBd->Referencia(
        QStringLiteral("SELECT Fco_Des, Fcol_Linea, Fcol_Dias, Fcol_Porcentaje, Fcol_Mod FROM Fco "
                       "LEFT JOIN Fcol ON Fcol_id = Fco_Id WHERE Fco_Id = ? ORDER BY Fcol_Dias, "
                       "Fcol_Linea"),
        {IdFormaCobro});
    const QString descripcion = rs.Eof() ? QString() : rs.Fields(QStringLiteral("Fco_Des")).Texto();
    std::vector<Plazo> plazos;
    for (; !rs.Eof(); rs.MoveNext()) {
        if (rs.Fields(QStringLiteral("Fcol_Linea")).IsNull()) {
            continue; // terms without instalments
        }
        plazos.push_back({static_cast<int>(rs.Fields(QStringLiteral("Fcol_Dias")).Entero()),
                          rs.Fields(QStringLiteral("Fcol_Porcentaje")).Doble(),
                          static_cast<int>(rs.Fields(QStringLiteral("Fcol_Mod")).Entero())});
    }
    sCobro_ = cobroDe(plazos, nCompensa, CtaBancoAsignado);

    // A NULL state is read as pending, the column's default.
    cn.Execute(QStringLiteral("DELETE FROM Rec WHERE Rec_Tipo = ? AND Rec_IdFac = ? AND "
                              "COALESCE(Rec_Sit, 1) = ?"),
               {kTipoVenta, idfactura, kPendiente});
    Recordset curso = cn.Execute(
        QStringLiteral("SELECT COUNT(*), COALESCE(SUM(Rec_Importe), 0) FROM Rec WHERE Rec_Tipo = "
                       "? AND Rec_IdFac = ? AND COALESCE(Rec_Sit, 1) <> ?"),
        {kTipoVenta, idfactura, kPendiente});
    const bool hayEnCurso = curso.Fields(0).Entero() > 0;
    // Receipts under way are the customer's money already on its way: the new
    // ones ask only for the rest, so the invoice is never collected twice.
    const double importe = Redondea(TotalFactura - curso.Fields(1).Doble(), 2);
    if (hayEnCurso && importe == 0) {
        return;
    }

    const std::vector<Vencimiento> vtos =
        CalculaVencimientos(FechaFactura, importe, plazos, DiasPago1, DiasPago2, MesSinPago);
    QStringList piezas{descripcion};
    for (const Vencimiento& v : vtos) {
        piezas << Format(v.fecha, QStringLiteral("dd/mm/yyyy")) + QStringLiteral("  ") +
                      FormatoMoneda(v.importe);
    }
    const QString texto = piezas.join(u'#');

    DatosRecibo r;
    r.idFactura = idfactura;
    r.idCliente = IdCliente;
    r.serie = SerieFactura;
    r.numero = numero;
    r.cta = CtaCobroCliente;
    r.ctaBanco = CtaBancoAsignado;
    r.iban = sIban;
    r.swift = sSwift;
    r.agente = Idagente.value_or(0);
    r.cartera = bCartera;
    r.texto = texto;
    for (const Vencimiento& v : vtos) {
        r.vencimiento = v.fecha;
        r.importe = v.importe;
        r.modo = v.modo;
        InsertaRecibo(*MyBd, r);
    }
}

void TesoreriaIncorporada::jManteRecibos(qint32 idRecibo) {
    LanzadorPantallas* lanzador = LanzadorActual();
    if (!lanzador) {
        throw Error(vk::mensajes::kSinLanzador.arg(kPantallaRecibos));
    }
    lanzador->Muestra(
        {kPantallaRecibos,
         {{QStringLiteral("idRecibo"), idRecibo}, {QStringLiteral("bCobPag"), bCobPag}}});
}

void RegistraTesoreria() {
    RegistraComponente(QString::fromLatin1(VKTESORE::kProgId),
                       [] { return std::make_unique<TesoreriaIncorporada>(); });
}

} // namespace vk::suite
