#include "SqlFacturas.h"

#include <CadenaFiscal.h>
#include <QStringList>
#include <map>
#include <vector>

namespace vk {

namespace {

// A text column with its trailing blanks cut, never NULL, so that one missing
// part does not blank the whole composed address.
QString rtrim(const QString& columna) {
    return QStringLiteral("RTRIM(COALESCE(%1, ''))").arg(columna);
}

// The invoice's own address: street line, "CP - town" line, and "province  -
// country" line (province 99 means none), joined by CR LF as the text layouts
// split it. The number is padded to five characters as the legacy CHAR(5)
// cast did.
QString direccionPropia() {
    return QStringLiteral(
               "COALESCE(Fav.Fav_Sg, '') || ' ' || %1 || ' ' || "
               "COALESCE(SUBSTR(CAST(Fav.Fav_Num AS TEXT) || '     ', 1, 5), '') || ' ' || "
               "%2 || ' ' || %3 || ' ' || %4 || CHAR_CRLF || "
               "COALESCE(Fav.Fav_Cp, '') || ' - ' || COALESCE(Fav.Fav_Poblacion, '') || ' ' || "
               "CHAR_CRLF || "
               "COALESCE((SELECT COALESCE(PROV_NOM, '') FROM vkcomun.PROV "
               "WHERE PROV_COD <> 99 AND PROV_COD = Fav.Fav_Provincia), '') || '  -  ' || "
               "COALESCE((SELECT PAIS_NOM FROM vkcomun.PAIS WHERE PAIS_COD = Fav.Fav_Pais), '')")
        .arg(rtrim(QStringLiteral("Fav.Fav_Nombre")), rtrim(QStringLiteral("Fav.Fav_Escalera")),
             rtrim(QStringLiteral("Fav.Fav_Piso")), rtrim(QStringLiteral("Fav.Fav_Puerta")));
}

// A registered address: the view's two lines, and the province and country
// line that the view leaves to its reader (the shared catalog is out of a
// company view's reach on SQLite).
QString direccionRegistrada() {
    return QStringLiteral(
        "(SELECT q.direccion || CHAR_CRLF || "
        "COALESCE((SELECT PROV_NOM FROM vkcomun.PROV WHERE PROV_COD <> 99 AND "
        "PROV_COD = d.Dir_Provincia), '') || '  -  ' || "
        "COALESCE((SELECT PAIS_NOM FROM vkcomun.PAIS WHERE PAIS_COD = d.Dir_Pais), '') "
        "FROM qrydireccion q INNER JOIN Dir d ON d.DIR_ID = q.dir_ID "
        "WHERE q.dir_ID = Fav.Fav_IdDir LIMIT 1)");
}

} // namespace

QString fnSqlFacturas(BdSesion& bd) {
    const bool pesoDelAlbaran = bd.Parametros().Existe(QStringLiteral("PAR_MALBPESO")) &&
                                bd.Parametros().Item(QStringLiteral("PAR_MALBPESO")).Entero() != 0;
    QStringList c;
    c << QStringLiteral("Fav.Fav_Id, Fav.Fav_IdDir, Fav.Fav_Serie, Fav.Fav_Numero, Fav.Fav_Fecha, "
                        "Fav.fav_idcli AS Fav_IdCli, Fav.Fav_Total, Fav.Fav_Bruto, Fav.Fav_Dto1, "
                        "Fav.Fav_ImpDto1, Fav.Fav_Bruto1, Fav.Fav_Dto2, Fav.Fav_ImpDto2, "
                        "Fav.Fav_ImpDtoPie1");
    for (int i = 1; i <= 3; ++i) {
        c << QStringLiteral("Fav.Fav_BIva%1, Fav.Fav_Iva%1, Fav.Fav_ImpIva%1, Fav.Fav_Rec%1, "
                            "Fav.Fav_ImpRec%1")
                 .arg(i);
    }
    c << QStringLiteral("Fav.Fav_Ret, Fav.Fav_ImpRet, Fav.Fav_Obs, Fav.fav_clicod AS Cli_Cod, "
                        "Fav.Fav_Clinom AS Cli_Nom, Fav.Fav_CliDoc AS Cli_Doc")
      << QStringLiteral("(CASE WHEN Fav.Fav_IdDir <= 0 THEN %1 ELSE %2 END) AS Direcion")
             .arg(direccionPropia(), direccionRegistrada())
      << QStringLiteral("(Cav.Cav_Serie || '/' || CAST(Cav.Cav_Numero AS TEXT)) AS NumeroAlbaran, "
                        "Cav.Cav_Fecha, Cav.Cav_Numero, Cav.Cav_Serie")
      << QStringLiteral("Lav.Lav_Sped, Lav.Lav_Sref, Lav.Lav_CodArt, Lav.Lav_Des, "
                        "Lav.Lav_Ampliades, Lav.Lav_Uni, Lav.Lav_Precio, Lav.Lav_Dto1, "
                        "Lav.Lav_Dto2, Lav.Lav_Importe")
      << QStringLiteral("COALESCE((SELECT Rec.Rec_Texto FROM Rec WHERE Rec.Rec_Tipo = 1 AND "
                        "Rec.Rec_IdFac = Fav.Fav_Id ORDER BY Rec.Rec_Id LIMIT 1), "
                        "'###########') AS FormaPago")
      << QStringLiteral("COALESCE(Lav.lav_iddoc, 0) AS IdDoc, Lav.Lav_SerArt, Lav.Lav_Decm, "
                        "Lav.Lav_Bulto, Lav.Lav_Orden, Lav.Lav_Lote, Lav.Lav_Largo, "
                        "Lav.Lav_ancho, Lav.Lav_Espesor, Lav.Lav_externo, Lav.Lav_interno, "
                        "Lav.Lav_formula")
      << QStringLiteral("COALESCE((SELECT AGE_NOM FROM Age WHERE AGE_ID = Cav.Cav_Agente), '') "
                        "AS Comercial, COALESCE(Cav.Cav_Km, '') AS Cav_Km, "
                        "COALESCE(Veh.VEH_MAT, '') AS Veh_Mat, "
                        "COALESCE(Veh.Veh_Mod, '') || COALESCE(' - Bastidor: ' || Veh.Veh_Cha, '') "
                        "AS Veh_Mod")
      << QStringLiteral("Lav.Lav_Tiva, COALESCE(Cav.Cav_NCom, '') AS CliNComer, Lav.Lav_IdObra, "
                        "Lav.lav_idparte AS Lav_IdParte, Fav.Fav_Fatencion, t.Tiva_Iva, "
                        "t.Tiva_Rec, (Lav.Lav_Precio + (Lav.Lav_Precio * t.Tiva_Iva / 100) + "
                        "(Lav.Lav_Precio * t.Tiva_Rec / 100)) AS PVP, t.Tiva_Reg, "
                        "mi.MenIva_Texto")
      << QStringLiteral("Fav.Fav_PRetNf, Fav.Fav_IRetNf, Fav.Fav_Liquido, Lav.Lav_Cantidad, "
                        "Lav.Lav_Medida, Lav.Lav_Imprimir")
      << QStringLiteral("(SELECT partes_alta FROM Partes WHERE partes_id = Lav.lav_idparte) "
                        "AS FParte, COALESCE((SELECT CAST(partes_Cavn AS TEXT) FROM Partes "
                        "WHERE partes_id = Lav.lav_idparte), '') AS ALBParte, Lav.Lav_Id, "
                        "Lav.Lav_IdViaje")
      << (pesoDelAlbaran
              ? QStringLiteral("Cav.cav_PesoNeto AS PesoNeto")
              : QStringLiteral("(SELECT SUM(l2.lav_peso) FROM Lav l2 WHERE l2.Lav_IdCav = "
                               "Cav.Cav_Id) AS PesoNeto"))
      << QStringLiteral("Lav.Lav_PResDes, Lav.Lav_ImpResDes, Cav.Cav_Obs, "
                        "COALESCE((SELECT doc_text FROM Doc WHERE doc_id = Lav.lav_iddoc), '') "
                        "AS Doc_text, Cav.Cav_Id, "
                        "COALESCE((SELECT cli_textf FROM Cli WHERE Cli_Id = Fav.fav_idcli), "
                        "'% de retención a subcontratistas') AS TextF, "
                        "(SELECT Cli_CodExt FROM Cli WHERE Cli_Id = Fav.fav_idcli) AS CliCodExt, "
                        "Cav.Cav_Tlf");
    QString sql = QStringLiteral("SELECT ") + c.join(QStringLiteral(", ")) +
                  QStringLiteral(" FROM Fav INNER JOIN Cav ON Fav.Fav_Id = Cav.Cav_IdFactura"
                                 " INNER JOIN Lav ON Cav.Cav_Id = Lav.Lav_IdCav"
                                 " LEFT JOIN Veh ON Cav.Cav_idveh = Veh.veh_id"
                                 " LEFT JOIN vkcomun.TIVAS t ON t.Tiva_Id = Lav.Lav_Tiva"
                                 " LEFT JOIN vkcomun.MENIVA mi ON mi.MenIva_Reg = t.Tiva_Reg ");
    // CR LF as literal characters of the statement: both engines take them
    // inside a string literal, and neither shares a CHAR() function.
    sql.replace(QStringLiteral("CHAR_CRLF"), QStringLiteral("'\r\n'"));
    return sql;
}

namespace {

// MencionIva: the mentions of the regimes of an invoice's lines, each text
// once, in regime order, joined by ". "; the same on every row of the
// invoice. Worked out from the line's own mention after the read: in the
// statement it would be a correlated aggregate run again for every line of
// the invoice, and the two engines share no ordered string aggregate.
void anadeMencionIva(Recordset& rs) {
    std::map<qint64, std::map<qint64, QString>> porFactura; // invoice -> regime -> text
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
        const QString texto = rs.Fields(QStringLiteral("MenIva_Texto")).Texto().trimmed();
        if (!texto.isEmpty()) {
            porFactura[rs.Fields(QStringLiteral("Fav_Id")).Entero()]
                      [rs.Fields(QStringLiteral("Tiva_Reg")).Entero()] = texto;
        }
    }
    std::map<qint64, QString> mencion;
    for (const auto& [factura, regimenes] : porFactura) {
        QStringList textos;
        for (const auto& [regimen, texto] : regimenes) {
            if (!textos.contains(texto)) {
                textos << texto;
            }
        }
        mencion[factura] = textos.join(QStringLiteral(". "));
    }
    std::vector<QVariant> valores;
    valores.reserve(static_cast<std::size_t>(rs.RecordCount()));
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
        const auto m = mencion.find(rs.Fields(QStringLiteral("Fav_Id")).Entero());
        valores.emplace_back(m == mencion.end() ? QStringLiteral("") : m->second);
    }
    rs.AnadeCampo(QStringLiteral("MencionIva"), std::move(valores));
    rs.MoveFirst();
}

// UrlQr: the URL of the invoice's record in force, read once per invoice,
// the same on every row of the invoice.
void anadeUrlQr(BdSesion& bd, Recordset& rs) {
    std::map<qint64, QString> urls;
    std::vector<QVariant> valores;
    valores.reserve(static_cast<std::size_t>(rs.RecordCount()));
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
        const qint64 id = rs.Fields(QStringLiteral("Fav_Id")).Entero();
        auto it = urls.find(id);
        if (it == urls.end()) {
            it = urls.emplace(id, fiscal::fnUrlQrFactura(bd, static_cast<qint32>(id))).first;
        }
        valores.emplace_back(it->second);
    }
    rs.AnadeCampo(kColumnaUrlQr, std::move(valores));
    rs.MoveFirst();
}

// "?, ?, ?" and the ids to bind to it.
QString marcadores(const QVector<qint32>& ids, QVariantList& params) {
    params << ValoresSql(ids);
    return MarcadoresSql(ids.size());
}

} // namespace

Recordset LeeFilasFacturas(BdSesion& bd, const QVector<qint32>& ids) {
    if (ids.isEmpty()) {
        return {};
    }
    QVariantList params;
    const QString resto = QStringLiteral(" WHERE Fav.Fav_Id IN (%1) ORDER BY Cav.Cav_Fecha, "
                                         "Cav.Cav_Serie, Cav.Cav_Numero, Lav.Lav_Orden")
                              .arg(marcadores(ids, params));
    return LeeFilasFacturasDonde(bd, resto, params);
}

Recordset LeeFilasFacturasDonde(BdSesion& bd, const QString& resto, const QVariantList& params) {
    Recordset rs = bd.cn().Execute(fnSqlFacturas(bd) + resto, params);
    anadeMencionIva(rs);
    anadeUrlQr(bd, rs);
    return rs;
}

Recordset LeeTiposIva(BdSesion& bd) {
    return bd.cn().Execute(QStringLiteral("SELECT Tiva_Id, Tiva_Iva, Tiva_Rec FROM vkcomun.TIVAS"));
}

Recordset LeeComposicionFacturas(BdSesion& bd, const QVector<qint32>& ids) {
    QVariantList params;
    const QString lista = ids.isEmpty() ? QStringLiteral("NULL") : marcadores(ids, params);
    return bd.cn().Execute(
        QStringLiteral(
            "SELECT Art_Cod, (CASE WHEN fmll_Des IS NULL THEN (SELECT a.Art_Des FROM Art a "
            "WHERE a.Art_Id = FMLL_IdArt) ELSE fmll_des END) AS Articulo, FMLL_CANTIDAD, "
            "FMLL_LARGO, FMLL_ANCHO, FMLL_ESPESOR, FMLL_DINT, FMLL_DEXT, Fmll_Uni "
            "FROM Art INNER JOIN ArtCom ON ArtCom_IdArt = Art.Art_Id "
            "INNER JOIN Fml ON Fml_Id = ArtCom_IdFml INNER JOIN Fmll ON FMLL_IDFML = Fml_Id "
            "WHERE Art.Art_Cod IN (SELECT Lav_CodArt FROM Fav INNER JOIN Cav ON "
            "Cav_IdFactura = Fav_Id INNER JOIN Lav ON Lav_IdCav = Cav_Id WHERE Fav_Id IN (%1))")
            .arg(lista),
        params);
}

} // namespace vk
