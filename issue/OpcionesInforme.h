// What the issue does to a report between loading its design and binding its
// rows: the company's options by report arm, the copy mark, the frames, the
// letterhead by design group, the logo, and the paper options of the route.
// Each rule skips the names a design lacks, as a design carries only those its
// layout needs.
#pragma once

#include "EmisionInforme.h"
#include "ParametrosEmision.h"

#include <BdSesion.h>
#include <QString>
#include <Reporte.h>

namespace vk {

class VKFACVENTAS;

// What the arms need to know besides the company: the run's design, key,
// route and flags, and its choices over the company's parameters.
struct ContextoInforme {
    qint16 nDiseno = 0;
    QString plantilla; // PAR_PLANTILLA_FAC, upper-cased
    quint8 tipoEmision = 0;
    bool copia = false;
    bool imprimeAlbaran = true;
    qint16 prnEmp = 0; // the facade's prnEmp: the program prints the letterhead
    qint32 idUsuario = 0;
    QString textoLopd; // the facade's data protection clause
    ParametrosEmision parametros;

    // A parameter as this run sees it.
    qint64 Entero(BdSesion& bd, const QString& nombre) const {
        return parametros.Entero(bd.Parametros(), nombre);
    }
    QString Texto(BdSesion& bd, const QString& nombre) const {
        return parametros.Texto(bd.Parametros(), nombre);
    }
};

// The context of a run of the facade: design, key, route and flags, and the
// run's parameters.
ContextoInforme ContextoDe(const VKFACVENTAS& f, qint16 nDiseno, ParametrosEmision parametros = {});

// --- one printing option each, by the company's parameters ---
void OpcionProteccionDatos(informe::Reporte& r, BdSesion& bd, const ContextoInforme& c);
// GroupCpago, and the payment terms and due date fields, by Par_PrintFco.
void OpcionFormaPago(informe::Reporte& r, BdSesion& bd, const ContextoInforme& c);
// The packages columns and the description's width and justification.
void OpcionBultos(informe::Reporte& r, BdSesion& bd, const ContextoInforme& c);
void OpcionLotes(informe::Reporte& r, BdSesion& bd, const ContextoInforme& c);
void OpcionAgente(informe::Reporte& r, BdSesion& bd, const ContextoInforme& c);
void OpcionLotesAgente(informe::Reporte& r, BdSesion& bd, const ContextoInforme& c);
void OpcionDescripcionAmpliada(informe::Reporte& r, BdSesion& bd, const ContextoInforme& c);

// The printing options each report applies, by its name, with the nursery
// formulas and the positions of key PLT38.
void AplicaOpcionesReporte(informe::Reporte& r, BdSesion& bd, const EmpresaEmision& e,
                           const QString& nombreReporte, const ContextoInforme& c);

// The copy mark "'* DUPLICADO DE FACTURA *'" or the empty text.
void AplicaCopia(informe::Reporte& r, bool copia);
// Par_Sincuadros suppresses the frames, unless the company name holds PLT18.
void AplicaMarcos(informe::Reporte& r, BdSesion& bd, const EmpresaEmision& e,
                  const ContextoInforme& c);

// The letterhead formulas of design group A (0, 2, 3, 4, 8, 10, 12, 13, 16,
// 19): the address, town, province, telephone and mail lines; the volume
// prompt of design 16 is AplicaMembrete's.
void MembreteGrupoA(informe::Reporte& r, BdSesion& bd, const EmpresaEmision& e,
                    const ContextoInforme& c);
// The foot lines that Par_PrnL1 and Par_PrnL2 leave off become empty.
void PiesPorParametro(informe::Reporte& r, BdSesion& bd, const ContextoInforme& c);
// The logo by Par_prnlogo: extracted and shown, or suppressed.
void LogoPorParametro(informe::Reporte& r, BdSesion& bd, const ContextoInforme& c);
// pLiteralLinea1 and pLiteralLinea2: the company's foot lines.
void PiesFactura(informe::Reporte& r, const EmpresaEmision& e);
// The letterhead by design group A, B or C, then the payment terms fields and
// the design 6 colours, for every design.
void AplicaMembrete(informe::Reporte& r, BdSesion& bd, const EmpresaEmision& e,
                    const ContextoInforme& c);

// The per-user logo file in the data folder ("001rlogo.bmp").
QString fnRutaLogo(qint32 idUsuario);
// Writes the company's logo (Par_ImagenLogo) to `ruta`, deleting what was
// there; a company without logo leaves no file. False on any error.
bool fnExtraeLogo(BdSesion& bd, const QString& ruta);
// Extracts the logo and shows it through rutaimagen; its height is
// Par_ImgPosX and its width Par_ImgPosY, the inversion the stored values of
// existing companies carry. False (and LogoEmpresa suppressed) on failure.
bool ColocaLogo(informe::Reporte& r, BdSesion& bd, const ContextoInforme& c);

// The paper options of the route (Tipo_Emision): letterhead and foot lines by
// the printing flags, the logo, the left slide of designs 4 and 16, the top
// margin of the viewer and printer routes.
void AplicaPapel(informe::Reporte& r, BdSesion& bd, const ContextoInforme& c);

// All of the above in the order of a run, before the rows are bound.
void PreparaInforme(informe::Reporte& r, BdSesion& bd, const EmpresaEmision& e,
                    const QString& nombreReporte, const ContextoInforme& c);

} // namespace vk
