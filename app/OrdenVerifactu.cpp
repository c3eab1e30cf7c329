#include "OrdenVerifactu.h"

#include "Argumentos.h"
#include "MensajesApp.h"

#include <BdSesion.h>
#include <CadenaFiscal.h>
#include <ErrorBd.h>
#include <MensajesFiscal.h>
#include <VerificaCadena.h>
#include <functional>
#include <map>

namespace vk::app {

namespace {

std::unique_ptr<BdSesion> abre(const Argumentos& a) {
    return BdSesion::Abre(CadenaConexion::Interpreta(a.baseDatos()));
}

// How many records, how many pending, accepted, accepted with errors and
// rejected, and why each rejected one was.
int estado(const QStringList& args, QTextStream& out, QTextStream&) {
    Argumentos a(QStringLiteral("verifactu estado"), QString(),
                 QStringLiteral("Muestra los registros de facturación (VERI*FACTU) de la empresa "
                                "y su estado de envío a la AEAT."));
    a.analiza(args);
    auto bd = abre(a);
    Conexion& cn = bd->cn();
    out << QStringLiteral("Registros de facturación: %1 (%2 altas, %3 anulaciones)")
               .arg(
                   cn.Execute(QStringLiteral("SELECT COUNT(*) FROM VfRegistro")).Fields(0).Entero())
               .arg(cn.Execute(QStringLiteral("SELECT COUNT(*) FROM VfRegistro WHERE Vfr_Tipo = "
                                              "'A'"))
                        .Fields(0)
                        .Entero())
               .arg(cn.Execute(QStringLiteral("SELECT COUNT(*) FROM VfRegistro WHERE Vfr_Tipo = "
                                              "'N'"))
                        .Fields(0)
                        .Entero())
        << Qt::endl;
    const QStringList estados{QStringLiteral("Pendientes de envío"), QStringLiteral("Aceptados"),
                              QStringLiteral("Aceptados con errores"),
                              QStringLiteral("Rechazados")};
    for (int i = 0; i < estados.size(); ++i) {
        out << QStringLiteral("  %1: %2")
                   .arg(estados[i])
                   .arg(cn.Execute(QStringLiteral("SELECT COUNT(*) FROM VfEnvio WHERE "
                                                  "Vfe_Estado = ?"),
                                   {i})
                            .Fields(0)
                            .Entero())
            << Qt::endl;
    }
    for (Recordset rs = cn.Execute(QStringLiteral(
             "SELECT Vfr_Id, Vfr_Tipo, Vfr_NumSerie, Vfr_Fecha, Vfe_Estado, Vfe_Codigo, "
             "Vfe_Descripcion FROM VfEnvio INNER JOIN VfRegistro ON Vfr_Id = Vfe_IdRegistro WHERE "
             "Vfe_Estado IN (2, 3) ORDER BY Vfr_Id"));
         !rs.Eof(); rs.MoveNext()) {
        out << QStringLiteral("  Registro %1 (%2 %3 de %4): %5 %6 %7")
                   .arg(rs.Fields(0).Entero())
                   .arg(rs.Fields(1).Texto() == QLatin1String("A") ? QStringLiteral("alta")
                                                                   : QStringLiteral("anulación"),
                        rs.Fields(2).Texto(), rs.Fields(3).Texto(),
                        rs.Fields(4).Entero() == 3 ? QStringLiteral("rechazado")
                                                   : QStringLiteral("aceptado con errores"))
                   .arg(rs.Fields(5).Entero())
                   .arg(rs.Fields(6).Texto())
            << Qt::endl;
    }
    return 0;
}

// The whole chain recomputed; the first break named, exit status 1.
int verificar(const QStringList& args, QTextStream& out, QTextStream& err) {
    Argumentos a(QStringLiteral("verifactu verificar"), QString(),
                 QStringLiteral("Recalcula la huella de cada registro de facturación y su "
                                "encadenamiento con el anterior,\ny señala el primero que no "
                                "corresponde."));
    a.analiza(args);
    auto bd = abre(a);
    const fiscal::ResultadoVerificacion v = fiscal::fnVerificaCadena(*bd);
    if (v.registros == 0) {
        out << mensajes::kCadenaVacia << Qt::endl;
        return 0;
    }
    if (!v.Correcta()) {
        err << v.descripcion << Qt::endl;
        return 1;
    }
    out << mensajes::kCadenaCorrecta.arg(v.registros) << Qt::endl;
    return 0;
}

using Suborden = std::function<int(const QStringList&, QTextStream&, QTextStream&)>;

const std::map<QString, Suborden>& subordenes() {
    static const std::map<QString, Suborden> s{
        {QStringLiteral("estado"), estado},
        {QStringLiteral("verificar"), verificar},
    };
    return s;
}

} // namespace

int OrdenVerifactu(const QStringList& args, QTextStream& out, QTextStream& err) {
    const QString sub = args.value(0);
    const auto o = subordenes().find(sub);
    if (o == subordenes().end()) {
        if (sub == QLatin1String("--help") || sub == QLatin1String("-h") ||
            sub == QLatin1String("--ayuda")) {
            throw AyudaPedida{mensajes::kAyudaVerifactu};
        }
        throw ErrorUso(mensajes::kSubordenVerifactu.arg(sub));
    }
    return o->second(args.mid(1), out, err);
}

} // namespace vk::app
