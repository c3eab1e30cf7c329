// Creation and upgrade of a company's three catalogs (company, vkcomun and
// accounting) and the reference data they are born with. Safe to run again:
// what exists is kept, what is missing is added.
#pragma once

#include "BdSesion.h"

#include <QStringList>

namespace vk {

// Version of the schema this build writes. Each catalog records the version
// it was brought to, and each step above that version runs once.
inline constexpr int kVersionEsquema = 5;

struct ResumenCreacion {
    int versionAnterior = 0; // 0: the catalog was new
    int version = kVersionEsquema;
    int tablasCreadas = 0;
    int columnasAnadidas = 0;
    int filasSemilla = 0; // reference rows added
    QString catalogoContable;
    QStringList lineas; // what was done, in Spanish, for the host to print
};

// Brings the catalogs of the session's company to the current version and
// seeds the reference data. Throws ErrorBd; each catalog's work is one
// transaction, so a failure leaves it as it was.
ResumenCreacion CreaEmpresa(BdSesion& empresa);

// The accounting catalog alone (also used by CreaEmpresa).
void CreaCatalogoContable(BdSesion& contable, ResumenCreacion& resumen);

} // namespace vk
