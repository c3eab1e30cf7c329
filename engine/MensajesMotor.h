// Messages of the invoice engine shown to people, each defined once.
#pragma once

#include <QString>

namespace vk::mensajes {

inline const QString kNumeroInicialNoValido =
    QStringLiteral("Escriba un número de factura entero mayor que 0.");
inline const QString kConexionPerdida =
    QStringLiteral("La conexión con la Base de Datos se perdió");
inline const QString kTituloFecha = QStringLiteral("Verificación de la fecha factura");
inline const QString kFechaInferior =
    QStringLiteral("La Fecha de Factura no puede ser inferior a ");
inline const QString kFechaNoValida = QStringLiteral("La fecha «%1» no es una fecha válida.");
inline const QString kUltimaFechaSerie =
    QStringLiteral("La Fecha de la última factura de la serie %1 es %2\nDese cambiar la factura "
                   "a este fecha");
inline const QString kCambioSerieImposible =
    QStringLiteral("No es posible realizar el cambio de serie con la fecha de factura");
inline const QString kFechaPosterior =
    QStringLiteral("La fecha no puede ser posterior a %1. Cambio de fecha cancelado");
inline const QString kFechaAnterior =
    QStringLiteral("La fecha no puede ser anterior a %1. Cambio de fecha cancelado");
inline const QString kLineaSinIva = QStringLiteral(
    "La factura %1 tiene líneas de albarán sin un tipo de IVA válido (Lav_Tiva): corrija los "
    "albaranes antes de calcularla.");
inline const QString kSinTipoEnVigor =
    QStringLiteral("No hay ningún tipo de IVA del régimen %1, clase %2, en vigor el %3.");

inline const QString kSerieAgotada =
    QStringLiteral("La serie %1 ha llegado a su último número de factura: use otra serie.");
inline const QString kFechaFueraDeRango =
    QStringLiteral("La fecha de la factura (%1) debe estar entre el 01/01/2000 y el 31/12/2099.");
inline const QString kFaltaSerie = QStringLiteral("Falta la serie de la factura.");
inline const QString kAlbaranTomado = QStringLiteral(
    "El albarán %1 ya no está pendiente: lo ha facturado otro usuario mientras tanto. La "
    "factura no se ha hecho.");
inline const QString kAlbaranNoExiste = QStringLiteral("No existe el albarán %1.");
inline const QString kAlbaranFacturado = QStringLiteral("El albarán %1 ya está facturado.");
inline const QString kFacturaNoCreada =
    QStringLiteral("No se pudo crear la factura de la serie %1: %2");
inline const QString kFacturaNoCalculada =
    QStringLiteral("No se pudo calcular la factura, que no se ha hecho: %1");
inline const QString kFacturaNoGrabada = QStringLiteral("No se pudieron grabar los importes: %1");
inline const QString kFacturaNoRegistrada =
    QStringLiteral("No se pudo hacer el registro de facturación (VERI*FACTU): %1");
inline const QString kFacturaSinTerminar =
    QStringLiteral("La factura se ha grabado con sus importes, pero no se terminó: %1");
inline const QString kContabilizacionFallida =
    QStringLiteral("la contabilización de la factura no se completó.");
inline const QString kAlbaranesVariosClientes = QStringLiteral(
    "Los albaranes son de varios clientes: una factura solo puede llevar albaranes de un "
    "cliente.");
inline const QString kAlbaranesOtroGrupo =
    QStringLiteral("El albarán %1 no puede ir en la misma factura que el %2: tiene otra %3.");
inline const QString kClienteNoExiste =
    QStringLiteral("No existe el cliente %1: la factura no se ha hecho.");
inline const QString kSinAlbaranes = QStringLiteral("Indique al menos un albarán que facturar.");
inline const QString kCuentaCobroIncorrecta =
    QStringLiteral("La cuenta de cobro del cliente no es correcta. No puede facturar este cliente");

inline const QString kFacturaNoExiste = QStringLiteral("No existe la factura %1.");
inline const QString kRetencionNoGrabada =
    QStringLiteral("No se pudo grabar la retención de la factura: %1");
// What two delivery notes of one invoice must share, for kAlbaranesOtroGrupo.
inline const QString kOtraFormaCobro = QStringLiteral("forma de cobro");
inline const QString kOtraParejaDescuentos = QStringLiteral("pareja de descuentos");
inline const QString kOtroAgente = QStringLiteral("agente");

inline const QString kAgenteRecibosNoGrabado =
    QStringLiteral("No se pudo grabar el agente en los recibos de la factura: %1");

// Editing an invoice.
inline const QString kSoloUltimoNumero =
    QStringLiteral("Sólo se admite eliminar el último número de una serie");
inline const QString kAlbaranNoFacturable =
    QStringLiteral("El albaran esta en situación no facturable. Proceso cancelado");
inline const QString kAlbaranNoDisponible =
    QStringLiteral("Albaran no dispobible para esta factura");
inline const QString kAlbaranOtroCliente = QStringLiteral(
    "El albaran tecleado no pertenece al cliente de la factura. Proceso cancelado");
inline const QString kAlbaranPosterior =
    QStringLiteral("Albaran con fecha %1 es posterior a la fecha factura. Proceso cancelado");
inline const QString kTotalConDescuentos =
    QStringLiteral("No está permitido modificar una factura con descuentos");
inline const QString kSinLineaAjuste = QStringLiteral(
    "La factura no tiene ninguna línea con unidades en la que ajustar el total.");
} // namespace vk::mensajes
