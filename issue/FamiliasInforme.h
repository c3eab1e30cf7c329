// What the works and transport families share: the report by name, the
// parameters they read, the placeholders of a bound list and their own
// failure box.
#pragma once

#include "Reporte.h"

#include <BdSesion.h>
#include <QString>
#include <functional>
#include <memory>

namespace vk {

class VKFACVENTAS;

namespace familias {

// The report of that name through the suite's loader VKCRFAV.VKCRFACTURAS.
std::unique_ptr<informe::Reporte> ReportePorNombre(const QString& nombre);

// A parameter of the session's record; 0 or the empty text when the
// record lacks it.
qint64 Entero(BdSesion& bd, const QString& nombre);
QString Texto(BdSesion& bd, const QString& nombre);

// "?, ?, ?": the placeholders of a list bound value by value.
QString Marcadores(qsizetype n);

// Binds the rows to the subreport `indice` (1-based) when the design has it:
// a template of an installation may carry fewer than the family fills.
void EnlazaSubinforme(informe::Reporte& r, int indice, const Recordset& rs);

// The logo by Par_prnlogo: extracted and shown, or suppressed.
void LogoPorParametro(informe::Reporte& r, BdSesion& bd);

// The foot lines that Par_PrnL1 and Par_PrnL2 leave off become empty.
void PiesPorParametro(informe::Reporte& r, BdSesion& bd);

// Runs a family with its failure box: `texto`, a line break and the cause
// under `titulo`. The wait pointer is back to normal at the end either way.
void Ejecuta(const QString& titulo, const QString& texto, const std::function<void()>& familia);

} // namespace familias
} // namespace vk
