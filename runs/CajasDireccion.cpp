#include "CajasDireccion.h"

#include "Combos.h"

#include <BdSesion.h>
#include <BdUtil.h>

namespace vk {

namespace {

// Items "code - name" of a reference table.
QStringList elementos(BdSesion& bd, const QString& sql) {
    QStringList r;
    for (Recordset rs = bd.cn().Execute(sql); !rs.Eof(); rs.MoveNext()) {
        r << rs.Fields(0).Texto().trimmed() + QStringLiteral(" - ") +
                 rs.Fields(1).Texto().trimmed();
    }
    return r;
}

// The code a combo shows; the stored one, blanks and all, while it still
// names the same item, so that an untouched address compares equal.
QString codigo(const QStringList& combo, int indice, const QString& almacenado) {
    if (indice < 0) {
        return almacenado;
    }
    const QString c = fnCabezaCombo(combo, indice);
    return c == almacenado.trimmed() ? almacenado : c;
}

} // namespace

void CajasDireccion::CargaCombos(BdSesion& bd) {
    cboTipoVia =
        elementos(bd, QStringLiteral("SELECT TVI_COD, TVI_NOM FROM vkcomun.TVI ORDER BY TVI_COD"));
    cboPais = elementos(
        bd, QStringLiteral("SELECT PAIS_COD, PAIS_NOM FROM vkcomun.PAIS ORDER BY PAIS_NOM"));
    cboProvincias = elementos(
        bd, QStringLiteral("SELECT PROV_COD, PROV_NOM FROM vkcomun.PROV ORDER BY PROV_COD"));
}

void CajasDireccion::Muestra(const DireccionFactura& d) {
    mostrada_ = d;
    text1_[23] = d.nombre;
    text1_[18] = d.numero;
    text1_[16] = d.escalera;
    text1_[15] = d.piso;
    text1_[14] = d.puerta;
    text1_[21] = d.cp;
    text1_[19] = d.poblacion;
    cboTipoViaIndex = fnIndiceCombo(cboTipoVia, d.sg);
    cboPaisIndex = fnIndiceCombo(cboPais, d.pais);
    cboProvinciasIndex =
        d.provincia > 0 ? fnIndiceCombo(cboProvincias, QString::number(d.provincia)) : -1;
}

DireccionFactura CajasDireccion::Leida() const {
    DireccionFactura d;
    d.idDir = -1;
    d.nombre = text1_[23];
    d.numero = text1_[18];
    d.escalera = text1_[16];
    d.piso = text1_[15];
    d.puerta = text1_[14];
    d.cp = text1_[21];
    d.poblacion = text1_[19];
    d.sg = codigo(cboTipoVia, cboTipoViaIndex, mostrada_.sg);
    d.pais = codigo(cboPais, cboPaisIndex, mostrada_.pais);
    d.provincia =
        cboProvinciasIndex >= 0
            ? static_cast<qint16>(fnCabezaCombo(cboProvincias, cboProvinciasIndex).toInt())
            : mostrada_.provincia;
    DireccionFactura igual = d;
    igual.idDir = mostrada_.idDir;
    // Unchanged, it is still the address shown, an address row included.
    return igual == mostrada_ ? mostrada_ : d;
}

bool CajasDireccion::OtraDireccion(BdSesion& bd, qint32 idCliente, const QString& titulo) {
    BdUtil util;
    util.Prepara(bd.cn());
    const QString r = util.Busca(
        QStringLiteral(
            "SELECT DIR_ID, DIR_POBLACION, COALESCE(DIR_NOMBRE, '') || ' ' || "
            "COALESCE(CAST(DIR_NUMERO AS TEXT), '') AS Direccion FROM CliDir INNER JOIN Dir ON "
            "DIR_ID = CLIDIR_DIR WHERE CLIDIR_CLI = ? ORDER BY DIR_FISCAL DESC, DIR_ID"),
        {idCliente}, QStringLiteral("Direccion"), QStringLiteral("Población"),
        QStringLiteral("Dirección"), titulo, 2500, 5000);
    // Two characters or fewer: nothing was chosen.
    if (r.size() <= 2) {
        return false;
    }
    const Recordset rs = bd.cn().Execute(
        QStringLiteral("SELECT DIR_SG, DIR_NOMBRE, DIR_NUMERO, DIR_LETRA, DIR_ESCALERA, DIR_PISO, "
                       "DIR_CP, DIR_PAIS, DIR_PROVINCIA, DIR_POBLACION FROM Dir WHERE Dir_Id = ?"),
        {r.section(BdUtil::kSeparador, 0, 0).toInt()});
    if (rs.Eof()) {
        return false;
    }
    const auto t = [&rs](const char* c) { return rs.Fields(QString::fromLatin1(c)).Texto(); };
    text1_[23] = t("DIR_NOMBRE");
    text1_[18] = t("DIR_NUMERO");
    text1_[16] = t("DIR_ESCALERA");
    text1_[15] = t("DIR_PISO");
    // Here the door takes the address's letter.
    text1_[14] = t("DIR_LETRA");
    text1_[21] = t("DIR_CP");
    text1_[19] = t("DIR_POBLACION");
    cboTipoViaIndex = fnIndiceCombo(cboTipoVia, t("DIR_SG"));
    cboPaisIndex = fnIndiceCombo(cboPais, t("DIR_PAIS"));
    cboProvinciasIndex = fnIndiceCombo(cboProvincias, t("DIR_PROVINCIA"));
    return true;
}

} // namespace vk
