// The sending of the pending records to the agency: in submissions of at
// most 1,000 (late ones apart), each checked against the schemas, waiting the
// time the agency asks between two sends, and each record's answer written to
// its row of VfEnvio. A record the agency did not answer stays pending.
#pragma once

#include "RemisionFiscal.h"
#include "ServicioAeat.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <vector>

namespace vk {
class BdSesion;
}

namespace vk::fiscal {

struct OpcionesEnvio {
    int tamLote = kMaxRegistrosRemision;
    // The moment the lateness of each record is measured at; now when none.
    std::optional<QDateTime> ahora;
};

// A record the agency rejected or accepted with errors, for the summary.
struct IncidenciaEnvio {
    qint32 idRegistro = 0;
    QString tipo, numSerie, fecha;
    int estado = 0; // 2 accepted with errors, 3 rejected
    int codigo = 0;
    QString descripcion;
};

struct ResumenEnvio {
    int remisiones = 0; // submissions the agency answered
    int enviados = 0;   // records in them
    int correctos = 0, conErrores = 0, rechazados = 0;
    int sinRespuesta = 0; // in an answered submission but not named by it
    QStringList csv;
    std::vector<IncidenciaEnvio> incidencias;
    QString error; // the fault, timeout or connection failure that stopped it
    bool Fallo() const { return !error.isEmpty(); }
};

// Sends every pending record. Stops at the first submission the agency did
// not answer (its records stay pending, their attempt counted, the reason
// kept in Vfe_Descripcion). `aviso` hears of each wait between sends.
ResumenEnvio msEnviaPendientes(BdSesion& bd, const AjustesEnvio& ajustes,
                               const OpcionesEnvio& opciones = {},
                               const std::function<void(const QString&)>& aviso = {});

} // namespace vk::fiscal
