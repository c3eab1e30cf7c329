// Report designs: JSON files by report name (docs/disenos.md). The built-in
// designs are compiled in by the subsystem that owns them (issue/disenos for
// the invoices) under the resource folder ":/disenos"; a file of the same name in the
// installation's designs folder replaces the built-in one, and a design may extend another and
// state only what differs.
#pragma once

#include "Reporte.h"

#include <QJsonObject>
#include <QString>
#include <memory>

namespace vk::informe {

// $VKFACTUVEN_DATOS/disenos, or ~/.local/share/vkfactuven/disenos.
QString CarpetaDisenos();

// The design of that report name (without ".json", any case), with its
// extensions merged in. Throws ErrorDiseno when there is no such design, a file is
// not valid JSON, or designs extend each other in a loop.
QJsonObject LeeDiseno(const QString& nombreReporte);

// Builds the report from a merged design. Throws ErrorDiseno on unknown kinds.
std::unique_ptr<Reporte> ConstruyeReporte(const QJsonObject& diseno);

// LeeDiseno and ConstruyeReporte: what callers use.
std::unique_ptr<Reporte> CargaDiseno(const QString& nombreReporte);

// A design file opened directly by its path (an installation's own invoice
// template), named after the file; it may extend designs by name. Throws
// ErrorDiseno when the file is missing, unreadable or not a valid design.
std::unique_ptr<Reporte> CargaDisenoFichero(const QString& ruta);

// Merges a derived design onto its base: top-level values replace; the lists
// Grupos, FormulaFields, Sections and a section's Objetos merge item by item by
// Name (case-insensitive): a named item changes only the keys it gives, an
// item with "Eliminar": true goes, a new item is appended (or placed after
// the section named by "Despues").
QJsonObject FusionaDisenos(const QJsonObject& base, const QJsonObject& derivado);

} // namespace vk::informe
