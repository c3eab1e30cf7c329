#include "FacturaTransportes.h"

#include "EmisionInforme.h"
#include "FamiliasInforme.h"
#include "MensajesEmision.h"
#include "OpcionesInforme.h"
#include "RutasEmision.h"
#include "SqlFacturas.h"
#include "VKCRFACTURAS.h"

#include <Formato.h>
#include <Formula.h>
#include <Interaccion.h>
#include <VKFACVENTAS.h>
#include <map>

namespace vk {

namespace {

// The suffix of a country that is not the home one ('011'): "-" and its
// tax agency code.
QString sufijoPais(const QString& columna) {
    return QStringLiteral("COALESCE(CASE %1 WHEN '011' THEN '' ELSE '-' || (SELECT Pais_AEAT "
                          "FROM vkcomun.PAIS WHERE PAIS_COD = %1) END, '')")
        .arg(columna);
}

// The legs charged by the lines of the invoices, whose ids are bound at
// each %1 in turn.
QString sqlViajes() {
    return QStringLiteral(
               "SELECT (SELECT Cav_IdFactura FROM Lav INNER JOIN Cav ON Cav_Id = Lav_IdCav "
               "WHERE Lav_IdViaje = TrDes_Id AND Cav_IdFactura IN (%1) ORDER BY Cav_IdFactura "
               "LIMIT 1) AS Fav_Id, TrDes_Id, "
               "TrVia_Serie || '/' || CAST(TrVia_Numero AS TEXT) AS Viaje, "
               "(SELECT TrViaVeh_MatriTra FROM TrViaVeh WHERE TrViaVeh_IdVia = TrVia_Id "
               "ORDER BY TrViaVeh_Id LIMIT 1) AS TrVia_MatriTra, "
               "(SELECT TrViaVeh_MatriRem FROM TrViaVeh WHERE TrViaVeh_IdVia = TrVia_Id "
               "ORDER BY TrViaVeh_Id LIMIT 1) AS TrVia_MatriRem, "
               "TrCar_Fecha, COALESCE(TrCar_Poblacion, '') || ' - ' || COALESCE(TrCar_NomEmp, '') "
               "AS Origen, TrCar_Cantidad AS Carga, COALESCE(TrCar_Unidad, '') AS Unidad, "
               "TrDes_FDescarga AS FechaDescarga, "
               "COALESCE(TrDes_Poblacion, '') || ' - ' || COALESCE(TrDes_NomEmp, '') AS Destino, "
               "TrDes_Kilos AS Descarga, TrCar_Poblacion AS PoblaCarga, "
               "TrDes_Poblacion AS PoblaDesCarga, %2 AS PaisCargaCod, %3 AS PaisDesCargaCod, "
               "COALESCE(TrCar_sAlbaran, '') AS Albaran, COALESCE(TrCar_TexFac, '') AS TexFac, "
               "(SELECT TrPet_SRef FROM TrPet WHERE TrPet_Id = TrCar_IdPet) AS Referencia "
               "FROM TrDes LEFT JOIN TrCar ON TrCar_Id = TrDes_IdCar "
               "LEFT JOIN TrVia ON TrVia_Id = TrCar_IdVia "
               "WHERE TrDes_Id IN (SELECT Lav_IdViaje FROM Lav INNER JOIN Cav ON Cav_Id = "
               "Lav_IdCav WHERE Lav_IdViaje <> 0 AND Cav_IdFactura IN (%1))")
        .arg(QStringLiteral("%1"), sufijoPais(QStringLiteral("TrCar_Pais")),
             sufijoPais(QStringLiteral("TrDes_Pais")));
}

// The lines of one invoice without a leg, shaped as legs. A date column
// takes NULL where a leg has none: PostgreSQL reads '' as a date and fails.
QString sqlLineasSinViaje() {
    return QStringLiteral(
        "SELECT Cav_IdFactura AS Fav_Id, 0 AS TrDes_Id, '' AS Viaje, '' AS TrVia_MatriTra, "
        "'' AS TrVia_MatriRem, Cav_Fecha AS TrCar_Fecha, Lav_Des AS Origen, 0 AS Carga, "
        "'' AS Unidad, NULL AS FechaDescarga, '' AS Destino, 0 AS Descarga, '' AS PoblaCarga, "
        "'' AS PoblaDesCarga, '' AS PaisCargaCod, '' AS PaisDesCargaCod, '' AS Albaran, "
        "'' AS TexFac, '' AS Referencia FROM Lav INNER JOIN Cav ON Cav_Id = Lav_IdCav "
        "WHERE Lav_IdViaje = 0 AND Cav_IdFactura = ?");
}

// Month names as the billing periods print them; the engines name months
// each in their own way, or not at all.
QString nombreMes(int mes) {
    static const QStringList meses{
        QStringLiteral("enero"),   QStringLiteral("febrero"),   QStringLiteral("marzo"),
        QStringLiteral("abril"),   QStringLiteral("mayo"),      QStringLiteral("junio"),
        QStringLiteral("julio"),   QStringLiteral("agosto"),    QStringLiteral("septiembre"),
        QStringLiteral("octubre"), QStringLiteral("noviembre"), QStringLiteral("diciembre")};
    return mes >= 1 && mes <= 12 ? meses[mes - 1] : QString();
}

void leePeriodoCuota(BdSesion& bd, qint32 idFactura, DatosTransportes& d) {
    const Recordset rs = bd.cn().Execute(
        QStringLiteral("SELECT TfFac_Fecha, TfFac_FIni, TfFac_FFin, (SELECT TfPro_Des FROM TfPro "
                       "WHERE TfPro_Id = TfFac_IdTfPro) AS TfPro_Des FROM TfFac WHERE TfFac_Id = "
                       "(SELECT TfDia_IdTfFac FROM TfDia WHERE TfDia_IdFav = ? "
                       "ORDER BY TfDia_IdTfFac LIMIT 1)"),
        {idFactura});
    d.nuevaGestion = !rs.Eof();
    if (!d.nuevaGestion) {
        return;
    }
    const QDate fecha = rs.Fields(QStringLiteral("TfFac_Fecha")).Fecha();
    d.cuotas = nombreMes(fecha.month()) + QLatin1Char(' ') + QString::number(fecha.year()) +
               QStringLiteral(" - ") + rs.Fields(QStringLiteral("TfPro_Des")).Texto() +
               QStringLiteral(" -");
    const QString mascara = QStringLiteral("dd/mm/yyyy");
    d.consumos =
        QStringLiteral("De ") + Format(rs.Fields(QStringLiteral("TfFac_FIni")).Value(), mascara) +
        QStringLiteral(" A ") + Format(rs.Fields(QStringLiteral("TfFac_FFin")).Value(), mascara);
}

// The options, copy mark, frames, letterhead of group A with the mobile
// phone in the telephone line, foot lines and logo.
void aplicaOpciones(VKFACVENTAS& f, informe::Reporte& r, const ContextoInforme& c) {
    BdSesion& bd = f.MyBd();
    const EmpresaEmision e = CargaEmpresa(bd);
    OpcionProteccionDatos(r, bd, c);
    OpcionFormaPago(r, bd, c);
    OpcionLotesAgente(r, bd, c);
    AplicaCopia(r, f.Copia);
    AplicaMarcos(r, bd, e, c);
    MembreteGrupoA(r, bd, e, c);
    if (c.Entero(bd, QStringLiteral("Par_PrnEmp")) == 1) {
        QStringList partes;
        if (!e.telefono.isEmpty()) {
            partes << QStringLiteral("Tlf. ") + e.telefono;
        }
        if (!e.fax.isEmpty()) {
            partes << QStringLiteral("Fax. ") + e.fax;
        }
        if (!e.movil.isEmpty()) {
            partes << QStringLiteral("Movil: ") + e.movil;
        }
        r.FormulaFields.Asigna(QStringLiteral("cLiteralTelefono"),
                               informe::Entrecomilla(partes.join(QStringLiteral(" - "))));
        QString correo = e.correo.isEmpty() ? QString() : QStringLiteral("Email. ") + e.correo;
        if (!e.web.isEmpty()) {
            correo += (correo.isEmpty() ? QString() : QStringLiteral("  -  ")) +
                      QStringLiteral("Web: ") + e.web;
        }
        r.FormulaFields.Asigna(QStringLiteral("cLiteralMail"), informe::Entrecomilla(correo));
    }
    LogoPorParametro(r, bd, c);
}

} // namespace

ReporteTransportes fnReporteTransportes(const QString& plantilla, const QString& serie) {
    const QString clave = plantilla.trimmed().toUpper();
    if (clave == QLatin1String("PLT06") || clave == QLatin1String("PLT47")) {
        return {QStringLiteral("CrFacturaTransporte1"), 0};
    }
    if (clave == QLatin1String("PLT46")) {
        return {QStringLiteral("CrFacturaPlt46"), 1};
    }
    if (clave == QLatin1String("PLT45")) {
        const QString s = serie.trimmed().toUpper();
        if (s == QLatin1String("E") || s == QLatin1String("M")) {
            return {QStringLiteral("CrFacturaPlt45Tr"), 1};
        }
        if (s == QLatin1String("Z")) {
            return {QStringLiteral("CrFacturaPlt45Tf"), 2};
        }
        return {QStringLiteral("CrFacturaPlt45Ge"), -1};
    }
    return {QStringLiteral("CrFacturaTransporte2"), 1};
}

DatosTransportes LeeDatosTransportes(BdSesion& bd, const QVector<qint32>& ids) {
    DatosTransportes d;
    if (ids.isEmpty()) {
        return d;
    }
    Conexion& cn = bd.cn();
    const QVariantList p = ValoresSql(ids);
    const QString marcas = MarcadoresSql(ids.size());
    const QString clave = bd.Parametros().Texto(QStringLiteral("PAR_PLANTILLA_FAC")).toUpper();
    QString serie;
    if (clave == QLatin1String("PLT45")) {
        const Recordset s = cn.Execute(
            QStringLiteral("SELECT Fav_Serie FROM Fav WHERE Fav_Id IN (%1) ORDER BY Fav_Id LIMIT 1")
                .arg(marcas),
            p);
        serie = s.Eof() ? QString() : s.Fields(QStringLiteral("Fav_Serie")).Texto();
    }
    d.reporte = fnReporteTransportes(clave, serie);

    QString orden = QStringLiteral(" ORDER BY TrCar_Fecha");
    QString ordenFilas =
        QStringLiteral(" ORDER BY Cav.Cav_Fecha, Cav.Cav_Serie, Cav.Cav_Numero, Lav.Lav_Orden");
    bool conLineasSinViaje = false;
    if ((clave == QLatin1String("PLT46") || clave == QLatin1String("PLT45")) && ids.size() == 1) {
        const Recordset v = cn.Execute(
            QStringLiteral("SELECT Fav_Serie, (SELECT COUNT(Lav_Id) FROM Lav INNER JOIN Cav ON "
                           "Cav_Id = Lav_IdCav WHERE Lav_IdViaje > 0 AND Cav_IdFactura = Fav_Id) "
                           "AS Viajes FROM Fav WHERE Fav_Id = ?"),
            {ids.first()});
        if (!v.Eof()) {
            conLineasSinViaje = v.Fields(QStringLiteral("Viajes")).Entero() > 0;
            // Series A of PLT46 reads by voyage.
            if (clave == QLatin1String("PLT46") &&
                v.Fields(QStringLiteral("Fav_Serie")).Texto().trimmed().startsWith(u'A')) {
                orden = QStringLiteral(" ORDER BY Viaje, TrCar_Fecha");
                ordenFilas = QStringLiteral(" ORDER BY Lav.Lav_IdViaje, Lav.Lav_Orden");
            }
        }
    }
    d.filas = LeeFilasFacturasDonde(
        bd, QStringLiteral(" WHERE Fav.Fav_Id IN (%1)").arg(marcas) + ordenFilas, p);

    QString sql = sqlViajes().arg(marcas);
    QVariantList pv = p + p;
    if (conLineasSinViaje) {
        sql += QStringLiteral(" UNION ALL ") + sqlLineasSinViaje();
        pv << ids.first();
    }
    d.viajes = cn.Execute(sql + orden, pv);
    // How many legs each invoice has: without any, the trips' heading stays
    // off the page.
    std::map<qint64, qint64> porFactura;
    for (d.viajes.MoveFirst(); !d.viajes.Eof(); d.viajes.MoveNext()) {
        ++porFactura[d.viajes.Fields(QStringLiteral("Fav_Id")).Entero()];
    }
    std::vector<QVariant> numViajes;
    for (d.filas.MoveFirst(); !d.filas.Eof(); d.filas.MoveNext()) {
        numViajes.emplace_back(porFactura[d.filas.Fields(QStringLiteral("Fav_Id")).Entero()]);
    }
    d.filas.AnadeCampo(QStringLiteral("NumViajes"), std::move(numViajes));
    d.viajes.MoveFirst();
    d.filas.MoveFirst();
    if (d.reporte.modo == 2) {
        leePeriodoCuota(bd, ids.first(), d);
    }
    return d;
}

bool msFacturaTransportes(VKFACVENTAS& f, const QVector<qint32>& vIds,
                          const ParametrosEmision& parametros) {
    return familias::Ejecuta(mensajes::kAccionCancelada, mensajes::kErrorEmitiendo, [&] {
        BdSesion& bd = f.MyBd();
        const ContextoInforme contexto = ContextoDe(f, 18, parametros);
        const qint64 copias = contexto.Entero(bd, QStringLiteral("Par_NCopFac"));
        if (copias > 1) {
            f.NumCopias = static_cast<qint16>(copias);
        }
        Ui().PunteroEspera(true);
        Ui().Cede();
        const DatosTransportes d = LeeDatosTransportes(bd, vIds);
        if (d.filas.RecordCount() == 0) {
            return true;
        }
        std::unique_ptr<informe::Reporte> r = CargaReporte(d.reporte.nombre);
        // The margin of the company's stationery, on every route.
        r->TopMargin += static_cast<int>(contexto.Entero(bd, QStringLiteral("Par_TopMarg")));
        aplicaOpciones(f, *r, contexto);
        r->FormulaFields.Asigna(QStringLiteral("bControlNuevaGestion"),
                                d.nuevaGestion ? QStringLiteral("True") : QStringLiteral("False"));
        r->FormulaFields.Asigna(QStringLiteral("cCuotas"), informe::Entrecomilla(d.cuotas));
        r->FormulaFields.Asigna(QStringLiteral("cConsumos"), informe::Entrecomilla(d.consumos));
        if (r->HasSavedData()) {
            r->DiscardSavedData();
        }
        r->Database.Tables.Item(1).SetDataSource(d.filas, 3);
        familias::EnlazaSubinforme(*r, 1, d.viajes);
        EntregaInforme(f, std::move(r), d.filas, {.sumaMargen = false});
        return true;
    });
}

} // namespace vk
