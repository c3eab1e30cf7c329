#include "ReglasFecha.h"

#include "MensajesMotor.h"

#include <BdSesion.h>
#include <ErrorBd.h>
#include <Interaccion.h>
#include <VKFACVENTAS.h>

namespace vk {

namespace {

QString ddmmyyyy(const QDate& d) {
    return d.toString(QStringLiteral("dd/MM/yyyy"));
}

// The neighbour of an invoice by number, before or after it.
std::optional<QDate> fechaVecina(BdSesion& bd, const QString& serie, qint32 numero,
                                 bool siguiente) {
    const QString sql = siguiente
                            ? QStringLiteral("SELECT Fav_Fecha FROM Fav WHERE Fav_Serie = ? AND "
                                             "Fav_Numero > ? ORDER BY Fav_Numero LIMIT 1")
                            : QStringLiteral("SELECT Fav_Fecha FROM Fav WHERE Fav_Serie = ? AND "
                                             "Fav_Numero < ? ORDER BY Fav_Numero DESC LIMIT 1");
    Recordset rs = bd.cn().Execute(sql, {serie, numero});
    if (rs.Eof() || rs.Fields(0).IsNull()) {
        return std::nullopt;
    }
    return rs.Fields(0).Fecha();
}

} // namespace

QDate fnFechaServidor(BdSesion& bd) {
    Conexion& cn = bd.cn();
    const QDate hoy =
        cn.Execute(QStringLiteral("SELECT ") + cn.dialecto().fechaActual()).Fields(0).Fecha();
    // A server that gives no date leaves this machine's.
    return hoy.isValid() ? hoy : QDate::currentDate();
}

QDate fnLeeFecha(const QString& texto) {
    const QString t = texto.trimmed();
    for (const char* forma : {"dd/MM/yyyy", "d/M/yyyy", "yyyy-MM-dd"}) {
        const QDate d = QDate::fromString(t, QString::fromLatin1(forma));
        if (d.isValid()) {
            return d;
        }
    }
    // Two-digit years are of this century, as people type them.
    const QDate corta = QDate::fromString(t, QStringLiteral("d/M/yy"));
    if (corta.isValid()) {
        return corta.addYears(100);
    }
    throw ErrorRegla(mensajes::kFechaNoValida.arg(texto));
}

QDate fnUltimaFechaSerie(BdSesion& bd, const QString& serie) {
    Recordset rs = bd.cn().Execute(
        QStringLiteral("SELECT MAX(Fav_Fecha) FROM Fav WHERE Fav_Serie = ?"), {serie});
    return rs.Eof() ? QDate() : rs.Fields(0).Fecha();
}

bool VKFACVENTAS::VerificarFechaFactura(const QString& sSerie, const QString& sFecha) {
    const QDate fecha = fnLeeFecha(sFecha);
    const QDate ultima = fnUltimaFechaSerie(MyBd(), sSerie);
    if (ultima.isValid() && fecha < ultima) {
        Ui().Mensaje(mensajes::kFechaInferior + ddmmyyyy(ultima), Icono::Error,
                     mensajes::kTituloFecha);
        return false;
    }
    return true;
}

std::optional<QDate> fnFechaCambioSerie(BdSesion& bd, const QString& nuevaSerie,
                                        const QDate& fecha) {
    const QDate ultima = fnUltimaFechaSerie(bd, nuevaSerie);
    if (!ultima.isValid() || fecha >= ultima) {
        return fecha;
    }
    if (Ui().Pregunta(mensajes::kUltimaFechaSerie.arg(nuevaSerie, ddmmyyyy(ultima)), QString(),
                      true)) {
        return ultima;
    }
    Ui().Mensaje(mensajes::kCambioSerieImposible, Icono::Aviso, QString());
    return std::nullopt;
}

std::optional<QString> fnMotivoFechaVecinas(BdSesion& bd, const QString& serie, qint32 numero,
                                            const QDate& nueva) {
    if (const auto siguiente = fechaVecina(bd, serie, numero, true);
        siguiente && nueva > *siguiente) {
        return mensajes::kFechaPosterior.arg(ddmmyyyy(*siguiente));
    }
    if (const auto anterior = fechaVecina(bd, serie, numero, false);
        anterior && nueva < *anterior) {
        return mensajes::kFechaAnterior.arg(ddmmyyyy(*anterior));
    }
    return std::nullopt;
}

bool fnFechaEntreVecinas(BdSesion& bd, const QString& serie, qint32 numero, const QDate& nueva) {
    if (const auto motivo = fnMotivoFechaVecinas(bd, serie, numero, nueva)) {
        Ui().Mensaje(*motivo, Icono::Aviso, QString());
        return false;
    }
    return true;
}

} // namespace vk
