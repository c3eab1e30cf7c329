// The computer system block every record carries: who produces this program,
// its name, id and version, and that it works only in VERI*FACTU mode (it
// sends every record to the tax agency; it has no non-sending mode).
#pragma once

#include <QString>

namespace vk::fiscal {

struct SistemaInformatico {
    QString nombreRazon;   // the producer
    QString nif;           // the producer's
    QString nombreSistema; // at most 30 characters
    QString idSistema;     // two characters
    QString version;
    QString numeroInstalacion;
};

// The producer's data of this build, with the installation given.
SistemaInformatico fnSistemaInformatico(const QString& numeroInstalacion);

} // namespace vk::fiscal
