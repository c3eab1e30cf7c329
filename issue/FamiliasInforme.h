// What the works and transport families share: binding their side cursors
// and their own failure box.
#pragma once

#include <BdSesion.h>
#include <QString>
#include <Reporte.h>
#include <functional>
#include <memory>

namespace vk {

class VKFACVENTAS;

namespace familias {

// Binds the rows to the subreport `indice` (1-based) when the design has it:
// a template of an installation may carry fewer than the family fills.
void EnlazaSubinforme(informe::Reporte& r, int indice, const Recordset& rs);

// Runs a family with its failure box: `texto`, a line break and the cause
// under `titulo`. The wait pointer is back to normal at the end either way.
// False when the family failed: it threw, or returned false after telling
// the user itself.
bool Ejecuta(const QString& titulo, const QString& texto, const std::function<bool()>& familia);

} // namespace familias
} // namespace vk
