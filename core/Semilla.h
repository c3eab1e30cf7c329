// Reference data every company is born with: the Spanish tax rows with their
// history, provinces, countries, street types and coded situations, the legal
// mentions of the exempt regimes, plus the first user and the company's
// parameter row.
#pragma once

#include "BdSesion.h"

namespace vk {

// Adds the rows of the shared catalog that are missing (matched by their
// natural key, so a second run adds nothing). Returns the rows added.
int SiembraDatosComunes(BdSesion& s);

// The legal mentions of the tax regimes (vkcomun.MENIVA) whose regime has no
// row yet; a row that exists keeps its text. Returns the rows added.
int SiembraMencionesIva(BdSesion& s);

// The company's one Parametros row, when it has none.
void SiembraDatosEmpresa(BdSesion& s);

// A file compiled in with the reference data (":/semilla/tivas.csv").
QByteArray LeeRecursoSemilla(const QString& recurso);

} // namespace vk
