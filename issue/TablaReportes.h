// Which layout prints an issue run: the text layouts of design 6 by template
// key, and the report by design number, template key and company.
#pragma once

#include <QString>
#include <optional>

namespace vk {

struct LayoutTexto {
    QString nombre;  // the layout's procedure, e.g. "msFacturaSpoolPlt10"
    bool terminaRun; // false only for PLT15, which goes on to the report
};

// The text layout of a template key on design 6 and the printer; nothing
// when the key has none.
std::optional<LayoutTexto> fnLayoutTexto(const QString& plantilla);

struct EleccionReporte {
    qint16 nDiseno = 0;
    QString plantilla;     // PAR_PLANTILLA_FAC
    QString nombreEmpresa; // searched for "PLT18"
    quint8 tipoEmision = 0;
    qint64 regimenFiscal = 1; // the cached Par_RegFiscal, 3 after a withholding
};

// The report name by the table of reports by design: within a design's row
// the first test that holds wins; the withholding row stands before the
// designs that follow it.
QString fnNombreReporte(const EleccionReporte& e);

} // namespace vk
