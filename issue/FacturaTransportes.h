// The transport invoices (design 18): the invoice rows and, in the
// subreport "Viajes", the voyage legs the invoice's lines charge for.
#pragma once

#include "ParametrosEmision.h"

#include <BdSesion.h>
#include <QString>
#include <QVector>
#include <Recordset.h>

namespace vk {

class VKFACVENTAS;

// The report of a transport run and its mode: 0 the plain layout, 1 the
// voyage layouts, 2 the fee layout with its billing period, -1 the general
// layout of PLT45.
struct ReporteTransportes {
    QString nombre;
    int modo = 1;
};

// By the template key (PAR_PLANTILLA_FAC, any case) and, for PLT45, the
// series of the run's first invoice.
ReporteTransportes fnReporteTransportes(const QString& plantilla, const QString& serie);

// What a transport run prints.
struct DatosTransportes {
    ReporteTransportes reporte;
    // The invoice rows of fnSqlFacturas; on PLT46 series "A" with one
    // invoice they go by voyage.
    Recordset filas;
    // The legs of the invoices' lines (Fav_Id, TrDes_Id, Viaje, plates,
    // TrCar_Fecha, Origen, Carga, Unidad, FechaDescarga, Destino, Descarga,
    // towns, country suffixes, Albaran, TexFac, Referencia); on PLT46 and
    // PLT45 with one invoice that has legs, also its lines without one, each
    // as a row whose Origen is the line's text.
    Recordset viajes;
    // Mode 2: the fee period of the invoice ("marzo 2026 - Agua -" and
    // "De 01/03/2026 A 31/03/2026"); nuevaGestion when it has one.
    bool nuevaGestion = false;
    QString cuotas, consumos;
};

DatosTransportes LeeDatosTransportes(BdSesion& bd, const QVector<qint32>& ids);

// The family: report, rows, voyages, options, letterhead, logo and the
// route of Tipo_Emision. Par_NCopFac above 1 sets the copies of the run. False
// when it failed, after telling the user.
bool msFacturaTransportes(VKFACVENTAS& f, const QVector<qint32>& vIds,
                          const ParametrosEmision& parametros = {});

} // namespace vk
