// The whole chain recomputed: each record's hash from its own fields, each
// one chained to the record before it, each XML carrying what the row says.
#pragma once

#include <QString>
#include <optional>

namespace vk {
class BdSesion;
}

namespace vk::fiscal {

struct ResultadoVerificacion {
    int registros = 0;
    qint32 idRoto = 0;   // the first record that fails; 0 when none
    QString descripcion; // why, for a person
    bool Correcta() const { return idRoto == 0; }
};

ResultadoVerificacion fnVerificaCadena(BdSesion& bd);

} // namespace vk::fiscal
