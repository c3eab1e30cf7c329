#include "VerificaCadena.h"

#include "CadenaFiscal.h"
#include "MensajesFiscal.h"

#include <BdSesion.h>

namespace vk::fiscal {

namespace {

QString tipoLegible(const RegistroGuardado& r) {
    return r.EsAlta() ? QStringLiteral("alta") : QStringLiteral("anulación");
}

// The XML says what the row says: its own hash and timestamp, and the hash of
// the record it chains to.
bool xmlCoincide(const RegistroGuardado& r) {
    const auto tiene = [&r](const char* elemento, const QString& valor) {
        const QString e = QString::fromLatin1(elemento);
        return r.xml.contains(QStringLiteral("<sf:%1>%2</sf:%1>").arg(e, valor));
    };
    return tiene("Huella", r.huella) && tiene("FechaHoraHusoGenRegistro", r.fechaHora) &&
           (r.huellaAnterior.isEmpty() ? r.xml.contains(QLatin1String("<sf:PrimerRegistro>S<"))
                                       : tiene("Huella", r.huellaAnterior));
}

} // namespace

ResultadoVerificacion fnVerificaCadena(BdSesion& bd) {
    ResultadoVerificacion v;
    qint32 idPrevio = 0;
    QString huellaPrevia;
    fnRecorreCadena(bd, [&](const RegistroGuardado& r) {
        ++v.registros;
        if (v.idRoto != 0) {
            return;
        }
        if (r.HuellaCalculada() != r.huella) {
            v.idRoto = r.id;
            v.descripcion = mensajes::kRegistroAlterado.arg(r.id).arg(tipoLegible(r), r.numSerie);
        } else if (r.idAnterior != idPrevio || r.huellaAnterior != huellaPrevia) {
            v.idRoto = r.id;
            v.descripcion =
                mensajes::kRegistroMalEncadenado.arg(r.id).arg(tipoLegible(r), r.numSerie);
        } else if (!xmlCoincide(r)) {
            v.idRoto = r.id;
            v.descripcion = mensajes::kXmlAlterado.arg(r.id).arg(tipoLegible(r), r.numSerie);
        }
        idPrevio = r.id;
        huellaPrevia = r.huella;
    });
    return v;
}

} // namespace vk::fiscal
