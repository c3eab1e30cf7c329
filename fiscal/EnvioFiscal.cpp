#include "EnvioFiscal.h"

#include "CadenaFiscal.h"

#include <BdSesion.h>
#include <QThread>
#include <algorithm>

namespace vk::fiscal {

namespace {

int estadoDe(const QString& estado) {
    if (estado == QLatin1String("Correcto")) {
        return 1;
    }
    if (estado == QLatin1String("AceptadoConErrores")) {
        return 2;
    }
    return estado == QLatin1String("Incorrecto") ? 3 : 0;
}

bool nombraA(const LineaRespuesta& l, const RegistroRemision& r) {
    const QString operacion = r.EsAlta() ? QStringLiteral("Alta") : QStringLiteral("Anulacion");
    return l.nif == r.nif && l.numSerie == r.numSerie.trimmed() && l.fecha == r.fecha &&
           (l.operacion.isEmpty() || l.operacion == operacion);
}

QString ahoraTexto() {
    return QDateTime::currentDateTime().toString(Qt::ISODate);
}

// A submission the agency did not answer: its records stay pending.
void anotaFallo(BdSesion& bd, const Remision& rem, const QString& motivo) {
    Transaccion t(bd.cn());
    for (const RegistroRemision& r : rem.registros) {
        bd.cn().Execute(QStringLiteral("UPDATE VfEnvio SET Vfe_Intentos = Vfe_Intentos + 1, "
                                       "Vfe_Descripcion = ?, Vfe_FechaEnvio = ? WHERE "
                                       "Vfe_IdRegistro = ? AND Vfe_Estado = 0"),
                        {motivo.left(500), ahoraTexto(), r.id});
    }
    t.Confirma();
}

void anotaRespuesta(BdSesion& bd, const Remision& rem, const RespuestaAeat& resp,
                    ResumenEnvio& resumen) {
    std::vector<bool> usada(resp.lineas.size(), false);
    const QString fecha = ahoraTexto();
    Transaccion t(bd.cn());
    for (const RegistroRemision& r : rem.registros) {
        // Each line names one record; two records of one invoice and
        // operation in a submission take the lines in order.
        const LineaRespuesta* linea = nullptr;
        for (size_t i = 0; i < resp.lineas.size(); ++i) {
            if (!usada[i] && nombraA(resp.lineas[i], r)) {
                usada[i] = true;
                linea = &resp.lineas[i];
                break;
            }
        }
        const int estado = linea ? estadoDe(linea->estado) : 0;
        if (estado == 0) {
            ++resumen.sinRespuesta;
            bd.cn().Execute(
                QStringLiteral("UPDATE VfEnvio SET Vfe_Intentos = Vfe_Intentos + 1, "
                               "Vfe_FechaEnvio = ?, Vfe_Descripcion = ? WHERE "
                               "Vfe_IdRegistro = ?"),
                {fecha, QStringLiteral("La respuesta de la AEAT no nombra este registro."), r.id});
            continue;
        }
        // A rejected record's CSV is none: the agency did not register it.
        bd.cn().Execute(
            QStringLiteral("UPDATE VfEnvio SET Vfe_Estado = ?, Vfe_Codigo = ?, Vfe_Descripcion = "
                           "?, Vfe_Csv = ?, Vfe_FechaEnvio = ?, Vfe_Intentos = Vfe_Intentos + 1 "
                           "WHERE Vfe_IdRegistro = ?"),
            {estado, linea->codigo, linea->descripcion.left(500),
             estado == 3 ? QString() : resp.csv, fecha, r.id});
        if (estado == 1) {
            ++resumen.correctos;
        } else {
            if (estado == 2) {
                ++resumen.conErrores;
            } else {
                ++resumen.rechazados;
            }
            resumen.incidencias.push_back(
                {r.id, r.tipo, r.numSerie, r.fecha, estado, linea->codigo, linea->descripcion});
        }
    }
    t.Confirma();
}

} // namespace

ResumenEnvio msEnviaPendientes(BdSesion& bd, const AjustesEnvio& ajustes,
                               const OpcionesEnvio& opciones,
                               const std::function<void(const QString&)>& aviso) {
    ResumenEnvio resumen;
    const std::vector<RegistroRemision> pendientes = fnRegistrosRemision(bd, true);
    if (pendientes.empty()) {
        return resumen;
    }
    const EmisorFiscal emisor = fnEmisor(bd);
    const std::vector<Remision> remisiones = fnAgrupaRemisiones(
        pendientes, opciones.ahora.value_or(QDateTime::currentDateTime()), opciones.tamLote);
    int espera = -1;
    for (const Remision& rem : remisiones) {
        if (espera > 0) {
            // The agency's flow control: its wait between two sends.
            if (aviso) {
                aviso(QStringLiteral("Esperando %1 segundos antes del siguiente envío, como "
                                     "pide la AEAT…")
                          .arg(espera));
            }
            QThread::sleep(static_cast<unsigned long>(espera));
        }
        const QString documento = fnXmlRemision(emisor, rem);
        if (const QString errores = fnErroresEsquema(documento.toUtf8()); !errores.isEmpty()) {
            resumen.error =
                QStringLiteral("el envío no cumple el esquema de la AEAT: %1").arg(errores);
            anotaFallo(bd, rem, resumen.error);
            return resumen;
        }
        const RespuestaAeat resp = fnEnviaRemision(ajustes, documento);
        if (!resp.respondida) {
            resumen.error = resp.error;
            anotaFallo(bd, rem, resp.error);
            return resumen;
        }
        ++resumen.remisiones;
        resumen.enviados += static_cast<int>(rem.registros.size());
        if (!resp.csv.isEmpty()) {
            resumen.csv.append(resp.csv);
        }
        anotaRespuesta(bd, rem, resp, resumen);
        espera = ajustes.esperaMaxima >= 0 ? std::min(resp.tiempoEspera, ajustes.esperaMaxima)
                                           : resp.tiempoEspera;
    }
    return resumen;
}

} // namespace vk::fiscal
