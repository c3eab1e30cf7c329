#include "OrdenVerifactu.h"

#include "Argumentos.h"
#include "MensajesApp.h"

#include <BdSesion.h>
#include <CadenaFiscal.h>
#include <CargaFactura.h>
#include <EnvioFiscal.h>
#include <ErrorBd.h>
#include <MensajesFiscal.h>
#include <MensajesMotor.h>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <RegistroFactura.h>
#include <RegistroFiscalFactura.h>
#include <VerificaCadena.h>
#include <functional>
#include <limits>
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

void declaraLote(Argumentos& a) {
    a.declaraOpcion(QStringLiteral("lote"), QStringLiteral("N"),
                    QStringLiteral("registros por envío, de 1 a 1000 (1000 si no se indica)"));
}

int lote(const Argumentos& a) {
    return a.entero(QStringLiteral("lote"), 1, fiscal::kMaxRegistrosRemision)
        .value_or(fiscal::kMaxRegistrosRemision);
}

// The records as the files of their submissions, each checked against the
// agency's schemas; nothing is written when a file would be replaced or a
// document is not valid.
int exportar(const QStringList& args, QTextStream& out, QTextStream& err) {
    Argumentos a(QStringLiteral("verifactu exportar"), QStringLiteral("--salida DIR"),
                 QStringLiteral("Escribe los registros de facturación como envíos a la AEAT "
                                "(verifactu-0001.xml, ...),\nde como mucho 1000 registros cada "
                                "uno, validados con el esquema SuministroLR.xsd.\nLos enviados "
                                "más de 240 segundos después de su generación van aparte, con\n"
                                "Incidencia «S»."));
    a.declaraOpcion(QStringLiteral("salida"), QStringLiteral("DIR"),
                    QStringLiteral("carpeta donde se escriben los ficheros"));
    a.declaraBandera(QStringLiteral("pendientes"),
                     QStringLiteral("solo los registros pendientes de envío (si no, todos)"));
    declaraLote(a);
    a.analiza(args);
    const QDir dir(a.requerido(QStringLiteral("salida"), mensajes::kFaltaSalida));
    const int tam = lote(a);
    auto bd = abre(a);
    const std::vector<fiscal::Remision> remisiones = fiscal::fnAgrupaRemisiones(
        fiscal::fnRegistrosRemision(*bd, a.bandera(QStringLiteral("pendientes"))),
        QDateTime::currentDateTime(), tam);
    if (remisiones.empty()) {
        out << mensajes::kSinRegistrosExportar << Qt::endl;
        return 0;
    }
    const fiscal::EmisorFiscal emisor = fiscal::fnEmisor(*bd);
    std::vector<std::pair<QString, QByteArray>> ficheros;
    for (const fiscal::Remision& r : remisiones) {
        const QString nombre = dir.filePath(
            QStringLiteral("verifactu-%1.xml").arg(ficheros.size() + 1, 4, 10, QLatin1Char('0')));
        if (QFile::exists(nombre)) {
            err << mensajes::kFicheroExiste.arg(nombre) << Qt::endl;
            return 1;
        }
        QByteArray doc = fiscal::fnFicheroRemision(emisor, r);
        if (const QString e = fiscal::fnErroresEsquema(doc); !e.isEmpty()) {
            err << mensajes::kRemisionNoValida.arg(r.registros.front().id).arg(e) << Qt::endl;
            return 1;
        }
        ficheros.emplace_back(nombre, std::move(doc));
    }
    if (!QDir().mkpath(dir.absolutePath())) {
        err << mensajes::kNoSeEscribe.arg(dir.absolutePath()) << Qt::endl;
        return 1;
    }
    int registros = 0;
    for (size_t i = 0; i < ficheros.size(); ++i) {
        QSaveFile f(ficheros[i].first);
        if (!f.open(QIODevice::WriteOnly) || f.write(ficheros[i].second) < 0 || !f.commit()) {
            err << mensajes::kNoSeEscribe.arg(ficheros[i].first) << Qt::endl;
            return 1;
        }
        registros += static_cast<int>(remisiones[i].registros.size());
    }
    out << mensajes::kExportados.arg(registros).arg(ficheros.size()).arg(dir.absolutePath())
        << Qt::endl;
    return 0;
}

// Every pending record to the agency; the summary of its answers. Exit status
// 0 when it answered, 1 when a send failed (its records stay pending).
int enviar(const QStringList& args, QTextStream& out, QTextStream& err) {
    Argumentos a(QStringLiteral("verifactu enviar"), QString(),
                 QStringLiteral("Envía a la AEAT los registros de facturación pendientes y "
                                "muestra su respuesta."));
    a.declaraOpcion(QStringLiteral("servidor"), QStringLiteral("URL"),
                    QStringLiteral("dirección del servicio en lugar de la de la AEAT"));
    declaraLote(a);
    a.declaraOpcion(QStringLiteral("espera-maxima"), QStringLiteral("SEGUNDOS"),
                    QStringLiteral("como mucho esta espera entre envíos, aunque la AEAT pida "
                                   "más"));
    a.analiza(args);
    fiscal::OpcionesEnvio opciones;
    opciones.tamLote = lote(a);
    const std::optional<qint32> espera = a.entero(QStringLiteral("espera-maxima"), 0, 24 * 3600);
    auto bd = abre(a);
    fiscal::AjustesEnvio ajustes = fiscal::fnAjustesEnvio(fiscal::fnEntorno(*bd));
    if (const auto servidor = a.valor(QStringLiteral("servidor"))) {
        ajustes.url = *servidor;
    }
    if (espera) {
        ajustes.esperaMaxima = *espera;
    }
    const fiscal::ResumenEnvio r = fiscal::msEnviaPendientes(
        *bd, ajustes, opciones, [&out](const QString& aviso) { out << aviso << Qt::endl; });
    if (r.enviados == 0 && !r.Fallo()) {
        out << mensajes::kSinPendientes << Qt::endl;
        return 0;
    }
    if (r.enviados > 0) {
        out << mensajes::kResumenEnvio.arg(r.enviados).arg(r.remisiones) << Qt::endl;
        out << QStringLiteral("  Aceptados: %1").arg(r.correctos) << Qt::endl;
        out << QStringLiteral("  Aceptados con errores: %1").arg(r.conErrores) << Qt::endl;
        out << QStringLiteral("  Rechazados: %1").arg(r.rechazados) << Qt::endl;
        if (r.sinRespuesta > 0) {
            out << QStringLiteral("  Sin respuesta (siguen pendientes): %1").arg(r.sinRespuesta)
                << Qt::endl;
        }
        if (!r.csv.isEmpty()) {
            out << QStringLiteral("  CSV: %1").arg(r.csv.join(QStringLiteral(", "))) << Qt::endl;
        }
        for (const fiscal::IncidenciaEnvio& i : r.incidencias) {
            out << QStringLiteral("  Registro %1 (%2 %3 de %4) %5: código %6, %7")
                       .arg(i.idRegistro)
                       .arg(i.tipo == QLatin1String("A") ? QStringLiteral("alta")
                                                         : QStringLiteral("anulación"),
                            i.numSerie, i.fecha,
                            i.estado == 3 ? QStringLiteral("rechazado")
                                          : QStringLiteral("aceptado con errores"))
                       .arg(i.codigo)
                       .arg(i.descripcion)
                << Qt::endl;
        }
    }
    if (r.Fallo()) {
        err << mensajes::kEnvioFallido.arg(r.error) << Qt::endl;
        return 1;
    }
    return 0;
}

// The invoice of a rejected alta registered again as it is now.
int subsanar(const QStringList& args, QTextStream& out, QTextStream&) {
    Argumentos a(QStringLiteral("verifactu subsanar"), QStringLiteral("--registro N"),
                 QStringLiteral("Registra de nuevo, tal como está ahora, la factura de un alta "
                                "rechazada por la AEAT\n(después de corregir lo que motivó el "
                                "rechazo): un alta de subsanación pendiente de envío."));
    a.declaraOpcion(QStringLiteral("registro"), QStringLiteral("N"),
                    QStringLiteral("el registro rechazado (su número en «verifactu estado»)"));
    a.analiza(args);
    const qint32 id =
        a.entero(QStringLiteral("registro"), 1, std::numeric_limits<qint32>::max()).value_or(0);
    if (id == 0) {
        throw ErrorUso(mensajes::kFaltaRegistro);
    }
    auto bd = abre(a);
    const Recordset rs = bd->cn().Execute(
        QStringLiteral("SELECT Vfr_IdFactura FROM VfRegistro WHERE Vfr_Id = ?"), {id});
    if (rs.Eof()) {
        throw ErrorRegla(mensajes::kRegistroNoExiste.arg(id));
    }
    const qint32 idFactura = static_cast<qint32>(rs.Fields(0).Entero());
    const std::optional<fiscal::RegistroGuardado> vigente =
        fiscal::fnRegistroVigente(*bd, idFactura);
    if (!vigente || vigente->id != id) {
        throw ErrorRegla(mensajes::kRegistroNoVigente.arg(id));
    }
    if (!vigente->EsAlta() ||
        bd->cn().Execute(QStringLiteral("SELECT Vfe_Estado FROM VfEnvio WHERE Vfe_IdRegistro = ?"),
                         {id})
                .Fields(0)
                .Entero() != 3) {
        throw ErrorRegla(mensajes::kNoRechazado.arg(vigente->numSerie));
    }
    RegistroFactura f;
    if (!fnCargaFactura(bd->cn(), f, idFactura)) {
        throw ErrorRegla(mensajes::kFacturaNoExiste.arg(idFactura));
    }
    Transaccion t(bd->cn());
    const qint32 nuevo = fiscal::msSubsanaRechazado(*bd, fnFacturaFiscal(*bd, f));
    t.Confirma();
    out << mensajes::kSubsanado.arg(nuevo).arg(vigente->numSerie, vigente->fecha) << Qt::endl;
    return 0;
}

using Suborden = std::function<int(const QStringList&, QTextStream&, QTextStream&)>;

const std::map<QString, Suborden>& subordenes() {
    static const std::map<QString, Suborden> s{
        {QStringLiteral("enviar"), enviar},       {QStringLiteral("estado"), estado},
        {QStringLiteral("exportar"), exportar},   {QStringLiteral("subsanar"), subsanar},
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
