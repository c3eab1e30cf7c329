// Messages of the invoicing runs shown to people, each defined once.
#pragma once

#include <QString>

namespace vk::mensajes {

inline const QString kTituloMultifactura = QStringLiteral("Facturación a Clientes (Multifactura)");
inline const QString kSinAlbaranesPendientes =
    QStringLiteral("No existen albaranes pendientes de facturar entre los datos seleccionados");
inline const QString kFaltaFechaFactura = QStringLiteral("Falta Fecha Factura");
inline const QString kConfirmaTodos = QStringLiteral(
    "Ha seleccionado facturar todos los clientes informados en la lista de clientes con "
    "albaranes facturables\r\nConfirma que desea realizar esta acción");
inline const QString kConfirmaSeleccion =
    QStringLiteral("Confirma la selección de albaranes para el cliente ");
inline const QString kDebeSeleccionar = QStringLiteral("Debe seleccionar albaranes para facturar");
inline const QString kProcesoConcluido =
    QStringLiteral("Proceso concluido, la factura generada es ");
inline const QString kImprimirAlbaranes = QStringLiteral("Desea imprimir los numeros de albaran");
inline const QString kAlbaranesPendientesDe = QStringLiteral("Albaranes pendientes de ");
inline const QString kLineasDelAlbaran = QStringLiteral("Lineas del albaran ");
inline const QString kFacturandoGrupo = QStringLiteral("Facturando %1");
inline const QString kFacturaIncompleta = QStringLiteral("Factura %1: %2");
inline const QString kIncidenciasRun =
    QStringLiteral("%1 facturas o grupos no se terminaron; revíselos y vuelva a facturar:");
inline const QString kMasIncidencias = QStringLiteral("… y %1 más.");
inline const QString kGruposSinIntentar = QStringLiteral(
    "La facturación se ha detenido: quedan %1 grupos sin facturar, con sus albaranes pendientes.");
inline const QString kLoteNoGuardado =
    QStringLiteral("No se ha guardado: %1 Sus albaranes siguen pendientes.");

} // namespace vk::mensajes
