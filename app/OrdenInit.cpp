#include "OrdenInit.h"

#include "Argumentos.h"
#include "MensajesApp.h"
#include "OrdenFacturar.h"

#include <BdSesion.h>
#include <CreaEmpresa.h>
#include <EmpresaDemo.h>
#include <ErrorBd.h>
#include <Formato.h>
#include <InteraccionGuion.h>
#include <QDir>
#include <RegistroSuite.h>
#include <VKFACVENTAS.h>

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
    out << mensajes::kBaseDeDatos.arg(c.sesion->cadena().descripcion()) << Qt::endl;
    for (const QString& l : c.resumen.lineas) {
        out << QStringLiteral("  ") << l << Qt::endl;
    }
    if (c.demo) {
        if (c.demo->yaExistia) {
            out << mensajes::kDemoYaExistia << Qt::endl;
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

// One PDF per invoice, "F_" + number + ".pdf", in the data folder's pdf
// subfolder, through the issue dispatcher's PDF route.
QString escribePdfs(VKFACVENTAS& f, const QString& db) {
    const CadenaConexion cadena = CadenaConexion::Interpreta(db);
    const QDir carpeta(cadena.motor == Motor::SQLite
                           ? QDir(cadena.directorio).filePath(QStringLiteral("pdf"))
                           : QDir::current().filePath(QStringLiteral("pdf")));
    if (!carpeta.mkpath(QStringLiteral("."))) {
        throw ErrorDispositivo(mensajes::kCarpetaNoCreada.arg(carpeta.path()));
    }
    InteraccionGuion ui;
    const UsaInteraccion puerto(ui);
    f.Tipo_Emision = 2;
    f.RutaFicheroPdf = carpeta.absolutePath();
    Recordset rs = f.MyBd().cn().Execute(QStringLiteral("SELECT Fav_Id FROM Fav ORDER BY Fav_Id"));
    int escritos = 0;
    for (; !rs.Eof(); rs.MoveNext()) {
        if (!f.CreatePdf(static_cast<qint32>(rs.Fields(0).Entero())).isEmpty()) {
            ++escritos;
        }
    }
    if (!ui.Textos().isEmpty()) {
        throw ErrorDispositivo(ui.Textos().join(QLatin1Char('\n')));
    }
    return mensajes::kFicherosEnCarpeta.arg(escritos).arg(carpeta.path());
}

} // namespace

int OrdenInit(const QStringList& args, QTextStream& out) {
    Argumentos a(QStringLiteral("init"), QStringLiteral("[--db DB] [--demo]"),
                 QStringLiteral("Crea o actualiza los catálogos de la empresa y sus datos de "
                                "referencia.\nSe puede repetir: solo añade lo que falta."));
    a.declaraBandera(QStringLiteral("demo"),
                     QStringLiteral("añade los datos de una empresa de demostración"));
    a.analiza(args);
    const Creada c = creaEmpresa(a.baseDatos(), a.bandera(QStringLiteral("--demo")));
    imprimeResumen(c, out);
    return 0;
}

int OrdenDemo(const QStringList& args, QTextStream& out, QTextStream& err) {
    Argumentos a(QStringLiteral("demo"), QStringLiteral("[--db DIR]"),
                 QStringLiteral("Crea la empresa de demostración, factura sus albaranes "
                                "pendientes, escribe un PDF\npor factura en la carpeta pdf de "
                                "los datos y muestra un resumen."));
    a.analiza(args);
    const Creada c = creaEmpresa(a.baseDatos(), true);
    imprimeResumen(c, out);

    suite::RegistraComponentesSuite();
    VKFACVENTAS f;
    f.setMyBd(*c.sesion);
    OpcionesFacturar o;
    o.fecha = QDate::currentDate();
    out << mensajes::kFacturacionDemo.arg(Format(o.fecha, QStringLiteral("dd/mm/yyyy")))
        << Qt::endl;
    const ResultadoFacturar r = Factura(f, o, out, err);

    Conexion& cn = c.sesion->cn();
    Recordset fav = cn.Execute(
        QStringLiteral("SELECT COUNT(*) AS n, COALESCE(SUM(Fav_Total), 0) AS total FROM Fav"));
    Recordset rec = cn.Execute(QStringLiteral("SELECT COUNT(*) AS n, COALESCE(SUM(Rec_Importe), 0) "
                                              "AS total FROM Rec WHERE Rec_Tipo = 1"));
    out << Qt::endl << mensajes::kResumenDemo << Qt::endl;
    out << QStringLiteral("  Facturas              %1   %2")
               .arg(fav.Fields(0).Entero(), 6)
               .arg(FormatoMoneda(fav.Fields(1).Doble()), 16)
        << Qt::endl;
    out << QStringLiteral("  Recibos               %1   %2")
               .arg(rec.Fields(0).Entero(), 6)
               .arg(FormatoMoneda(rec.Fields(1).Doble()), 16)
        << Qt::endl;
    out << QStringLiteral("  Datos en              %1").arg(c.sesion->cadena().descripcion())
        << Qt::endl;
    out << QStringLiteral("  PDF de las facturas   %1").arg(escribePdfs(f, a.baseDatos()))
        << Qt::endl;
    return r.rechazado || r.incompleto || r.errorEmision ? 1 : 0;
}

} // namespace vk::app
