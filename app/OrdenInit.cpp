#include "OrdenInit.h"

#include "Argumentos.h"

#include <BdSesion.h>
#include <CreaEmpresa.h>
#include <EmpresaDemo.h>
#include <Formato.h>

namespace vk::app {

namespace {

struct Creada {
    std::unique_ptr<BdSesion> sesion;
    ResumenCreacion resumen;
    std::optional<ResumenDemo> demo;
};

Creada creaEmpresa(const QString& db, bool conDemo) {
    Creada c;
    c.sesion = BdSesion::Abre(db, ModoApertura::Crea);
    c.resumen = CreaEmpresa(*c.sesion);
    if (conDemo) {
        c.demo = CreaDatosDemo(*c.sesion);
        c.sesion->RecargaParametros();
    }
    return c;
}

void imprimeResumen(const Creada& c, QTextStream& out) {
    out << QStringLiteral("Base de datos: %1").arg(c.sesion->cadena().descripcion()) << Qt::endl;
    for (const QString& l : c.resumen.lineas) {
        out << QStringLiteral("  ") << l << Qt::endl;
    }
    if (c.demo) {
        if (c.demo->yaExistia) {
            out << QStringLiteral("  Los datos de demostración ya existían: no se ha añadido nada.")
                << Qt::endl;
        } else {
            out << QStringLiteral("  Datos de demostración:") << Qt::endl;
            const QList<QPair<QString, int>> filas = {
                {QStringLiteral("Clientes"), c.demo->clientes},
                {QStringLiteral("Artículos"), c.demo->articulos},
                {QStringLiteral("Albaranes pendientes"), c.demo->albaranes},
                {QStringLiteral("Líneas de albarán"), c.demo->lineas},
                {QStringLiteral("Contratos"), c.demo->contratos},
            };
            for (const auto& [nombre, n] : filas) {
                out << QStringLiteral("    %1 %2").arg(nombre, -22).arg(n, 6) << Qt::endl;
            }
        }
    }
}

} // namespace

int OrdenInit(const QStringList& args, QTextStream& out) {
    const Argumentos a(args, {QStringLiteral("--db")}, {QStringLiteral("--demo")});
    const Creada c = creaEmpresa(a.baseDatos(), a.bandera(QStringLiteral("--demo")));
    imprimeResumen(c, out);
    return 0;
}

int OrdenDemo(const QStringList& args, QTextStream& out) {
    const Argumentos a(args, {QStringLiteral("--db")}, {});
    const Creada c = creaEmpresa(a.baseDatos(), true);
    imprimeResumen(c, out);
    Conexion& cn = c.sesion->cn();
    Recordset rs = cn.Execute(
        QStringLiteral("SELECT COUNT(DISTINCT c.Cav_Id) AS n, COALESCE(SUM(l.Lav_Importe), 0) AS "
                       "importe FROM Cav c JOIN Lav l ON l.Lav_IdCav = c.Cav_Id WHERE "
                       "c.Cav_Situa = 1"));
    out << QStringLiteral("Albaranes pendientes de facturar: %1, por %2 sin impuestos.")
               .arg(rs.Fields(QStringLiteral("n")).Entero())
               .arg(FormatoMoneda(rs.Fields(QStringLiteral("importe")).Doble()))
        << Qt::endl;
    return 0;
}

} // namespace vk::app
