// The works invoices (designs 5, 7, 9 and 11): the invoice rows grouped
// under their work, with the works, faults, work reports and article
// measures of the selection in four subreports, bound in that order.
#pragma once

#include "ParametrosEmision.h"

#include <BdSesion.h>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVector>
#include <Recordset.h>

namespace vk {

class VKFACVENTAS;

// The report of a works run: a design by name, or a file of the data
// folder opened directly (an installation's own template).
struct ReporteObras {
    QString nombre;
    QString fichero; // full path; set instead of nombre
};

// By design and template keys: design 7 takes crFObras or the file named
// by PAR_PLANTILLA_FOBRAS; design 9 a report by that key upper-cased; any
// other works design crFObras2; design 5 (not bObras) the file named by
// PAR_PLANTILLA_FAC. `carpetaDatos` is where those files live.
ReporteObras fnReporteObras(qint16 nDiseno, bool bObras, const QString& plantillaObras,
                            const QString& plantillaFactura, const QString& carpetaDatos);

// What the rows refer to, one entry per row that refers to it (repeats are
// kept, as they do no harm in an IN list): works, work reports and article
// codes; and the faults behind the reports that come from one (origin 2).
struct ListasObras {
    QList<qint64> obras, partes, averias;
    QStringList articulos;
};
ListasObras RecogeListasObras(BdSesion& bd, const Recordset& filas);

// The subreports' rows. An empty list reads a key that matches nothing, so
// each subreport still has its columns; a faults list written in fewer than
// three characters counts as empty.
struct CursoresObras {
    Recordset obras, averias, partes, articulos;
};
CursoresObras LeeCursoresObras(BdSesion& bd, const ListasObras& listas);

// The family: report, rows, subreports, options, letterhead, logo and the
// route of Tipo_Emision. Failures end in the family's own box; a template
// file that is missing or cannot be read ends it with its own message. False
// when it failed, after telling the user.
bool msFacturaObras(VKFACVENTAS& f, const QVector<qint32>& vIds, bool bObras,
                    const ParametrosEmision& parametros = {});

} // namespace vk
