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
    for (Recordset rs = bd.cn().Execute(QStringLiteral(
             "SELECT Vfr_Id, Vfr_Tipo, Vfr_IdFactura, Vfr_IdAnterior, Vfr_Nif, Vfr_NumSerie, "
             "Vfr_Fecha, Vfr_TipoFactura, Vfr_CuotaTotal, Vfr_ImporteTotal, Vfr_HuellaAnterior, "
             "Vfr_FechaHora, Vfr_Huella, Vfr_Xml FROM VfRegistro ORDER BY Vfr_Id"));
         !rs.Eof(); rs.MoveNext()) {
        RegistroGuardado r;
        r.id = static_cast<qint32>(rs.Fields(0).Entero());
        r.tipo = rs.Fields(1).Texto().trimmed();
        r.idFactura = static_cast<qint32>(rs.Fields(2).Entero());
        r.idAnterior = static_cast<qint32>(rs.Fields(3).Entero());
        r.nif = rs.Fields(4).Texto();
        r.numSerie = rs.Fields(5).Texto();
        r.fecha = rs.Fields(6).Texto();
        r.tipoFactura = rs.Fields(7).Texto();
        r.cuotaTotal = rs.Fields(8).Texto();
        r.importeTotal = rs.Fields(9).Texto();
        r.huellaAnterior = rs.Fields(10).Texto();
        r.fechaHora = rs.Fields(11).Texto();
        r.huella = rs.Fields(12).Texto();
        r.xml = rs.Fields(13).Texto();
        ++v.registros;
        if (v.idRoto != 0) {
            continue;
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
    }
    return v;
}

} // namespace vk::fiscal
