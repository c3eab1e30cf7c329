#include "DireccionFactura.h"

#include <VKFACVENTAS.h>

namespace vk {

namespace {

// Both sources hold the same ten columns under their own prefix.
DireccionFactura lee(const Recordset& rs, const QString& prefijo) {
    const auto texto = [&](const char* columna) {
        return rs.Eof() ? QString() : rs.Fields(prefijo + QString::fromLatin1(columna)).Texto();
    };
    DireccionFactura d;
    d.sg = texto("sg");
    d.nombre = texto("Nombre");
    d.numero = texto("Numero");
    d.escalera = texto("Escalera");
    d.piso = texto("Piso");
    d.puerta = texto("Puerta");
    d.cp = texto("Cp");
    d.pais = texto("Pais");
    d.poblacion = texto("Poblacion");
    d.provincia = static_cast<qint16>(texto("Provincia").toInt());
    return d;
}

// The address columns alone: how the invoice points at it is the caller's.
void copia(RegistroFactura& f, const DireccionFactura& d) {
    f.Sg = d.sg;
    f.Nombre = d.nombre;
    f.Num = d.numero;
    f.Escalera = d.escalera;
    f.Piso = d.piso;
    f.Puerta = d.puerta;
    f.Cp = d.cp;
    f.Pais = d.pais;
    f.Poblacion = d.poblacion;
    f.Provincia = d.provincia;
}

} // namespace

void msDireccionDeAlbaran(VKFACVENTAS& f, qint32 idCav) {
    // The note calls its number Cav_Num; the alias keeps one set of names.
    copia(f, lee(f.MyBd().cn().Execute(
                     QStringLiteral("SELECT Cav_Sg, Cav_Nombre, Cav_Num AS Cav_Numero, "
                                    "Cav_Escalera, Cav_Piso, Cav_Puerta, Cav_Pais, Cav_Cp, "
                                    "Cav_Poblacion, Cav_Provincia FROM Cav WHERE Cav_Id = ?"),
                     {idCav}),
                 QStringLiteral("Cav_")));
}

std::vector<DireccionCliente> fnDireccionesCliente(BdSesion& bd, qint32 idCliente) {
    std::vector<DireccionCliente> r;
    Recordset rs = bd.cn().Execute(
        QStringLiteral("SELECT Dir_Id, RTRIM(Dir_Poblacion) AS Pobla, (CASE WHEN dir_fiscal = '1' "
                       "THEN 1 ELSE 0 END) AS Fiscal FROM Dir LEFT JOIN Clidir ON Clidir_Dir = "
                       "DIR_ID WHERE Clidir_cli = ? ORDER BY dir_Fiscal DESC, Dir_Id"),
        {idCliente});
    for (; !rs.Eof(); rs.MoveNext()) {
        r.push_back({static_cast<qint32>(rs.Fields(0).Entero()),
                     rs.Fields(QStringLiteral("Pobla")).Texto(),
                     rs.Fields(QStringLiteral("Fiscal")).Entero() != 0});
    }
    return r;
}

void msDireccionDeDir(VKFACVENTAS& f, qint32 idDir) {
    copia(f, fnDireccionDir(f.MyBd(), idDir));
}

DireccionFactura fnDireccionDir(BdSesion& bd, qint32 idDir) {
    DireccionFactura d =
        lee(bd.cn().Execute(QStringLiteral("SELECT Dir_sg, Dir_Nombre, Dir_Numero, Dir_Escalera, "
                                           "Dir_Piso, Dir_Puerta, Dir_Pais, Dir_Cp, Dir_Poblacion, "
                                           "Dir_Provincia FROM Dir WHERE Dir_Id = ?"),
                            {idDir}),
            QStringLiteral("Dir_"));
    d.idDir = idDir;
    return d;
}

DireccionFactura fnDireccionDeRegistro(const RegistroFactura& f) {
    return {f.idDir,  f.Sg, f.Nombre, f.Num,       f.Escalera, f.Piso,
            f.Puerta, f.Cp, f.Pais,   f.Poblacion, f.Provincia};
}

void msPonDireccion(RegistroFactura& f, const DireccionFactura& d) {
    copia(f, d);
    f.idDir = d.idDir > 0 ? d.idDir : -1;
}

} // namespace vk
