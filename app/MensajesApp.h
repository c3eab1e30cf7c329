// Messages of the command line shown to people, each defined once.
#pragma once

#include <QString>

namespace vk::mensajes {

// Options and their values.
inline const QString kOpcionSinValor = QStringLiteral("La opción %1 no lleva valor.");
inline const QString kFaltaValorOpcion = QStringLiteral("Falta el valor de la opción %1.");
inline const QString kOpcionDesconocida = QStringLiteral("Opción desconocida: %1");
inline const QString kArgumentosNoValidos = QStringLiteral("Los argumentos no son válidos.");
inline const QString kArgumentoInesperado =
    QStringLiteral("Argumento inesperado: «%1». Las opciones se escriben "
                   "--opcion valor o --opcion=valor.");
inline const QString kOpcionRepetida = QStringLiteral("La opción %1 está repetida.");
inline const QString kDbEnBlanco = QStringLiteral("La opción --db no puede estar en blanco.");
inline const QString kValorNoAdmitido = QStringLiteral("Valor no admitido en %1: «%2». Use %3.");
inline const QString kFechaOpcionNoValida =
    QStringLiteral("%1: «%2» no es una fecha válida; escríbala DD/MM/AAAA.");
inline const QString kFechaOpcionFueraDeRango =
    QStringLiteral("%1: la fecha %2 está fuera de las admitidas (de %3 a %4).");
inline const QString kOpcionNoEntera = QStringLiteral("%1 debe ser un número entero: «%2».");
inline const QString kOpcionFueraDeRango = QStringLiteral("%1 debe estar entre %2 y %3: «%4».");
inline const QString kListaSinNumero = QStringLiteral("%1: falta un número en la lista «%2».");
inline const QString kListaRepetido = QStringLiteral("%1: el %2 está repetido en la lista.");
inline const QString kOpcionEnBlanco = QStringLiteral("%1 no puede estar en blanco.");
inline const QString kSerieLarga = QStringLiteral("%1 admite como mucho %2 caracteres: «%3».");
inline const QString kSerieNoValida =
    QStringLiteral("%1 solo admite letras, cifras y guiones: «%2».");
inline const QString kUsuarioNoExiste = QStringLiteral("No existe el usuario %1.");
inline const QString kCodigoClienteNoExiste = QStringLiteral("No existe el cliente con código %1.");

// What each command needs.
inline const QString kIndiqueSerie = QStringLiteral("Indique la serie con --serie.");
inline const QString kIndiqueFechaFactura =
    QStringLiteral("Indique la fecha de la factura con --fecha DD/MM/AAAA.");
inline const QString kIndiqueAlbaranes =
    QStringLiteral("Indique los albaranes con --albaranes ID[,ID...].");
inline const QString kIndiqueFechaFacturas =
    QStringLiteral("Indique la fecha de las facturas con --fecha DD/MM/AAAA.");
inline const QString kIndiqueSerieYDesde =
    QStringLiteral("Indique la serie y el primer número: --serie S --desde N.");
inline const QString kHastaMenorQueDesde =
    QStringLiteral("--hasta (%1) no puede ser menor que --desde (%2).");
inline const QString kIndiqueCarpetaPdf =
    QStringLiteral("Indique la carpeta de los PDF: --pdf CARPETA.");
inline const QString kIndiqueSalida =
    QStringLiteral("Indique una salida: --pdf CARPETA, --impresora [COLA] o --pantalla.");
inline const QString kDesdePosteriorAHasta =
    QStringLiteral("--desde (%1) no puede ser posterior a --hasta (%2).");
inline const QString kSerieConFacturas =
    QStringLiteral("La serie %1 ya tiene facturas: su número es el siguiente "
                   "al último, sin --numero.");

// What the commands met.
inline const QString kFacturaNoHecha = QStringLiteral("No se ha hecho la factura.");
inline const QString kFacturaNoTerminada = QStringLiteral("Factura %1: %2");
inline const QString kSinFacturasEnRango =
    QStringLiteral("No hay facturas de la serie %1 entre los números %2 y %3.");
inline const QString kCarpetaNoCreada = QStringLiteral("No se puede crear la carpeta %1.");
inline const QString kCarpetaNoEscribible =
    QStringLiteral("No se puede escribir en la carpeta %1.");
inline const QString kFicheroNoEscrito = QStringLiteral("No se puede escribir el fichero %1: %2.");
inline const QString kVistaNoCreada =
    QStringLiteral("No se puede crear el fichero de la vista en %1.");
inline const QString kVisorNoDisponible =
    QStringLiteral("No se puede abrir el visor de PDF del escritorio; la vista "
                   "está en %1.");

// What the commands report.
inline const QString kPdfFacturaNoEscrito =
    QStringLiteral("No se ha escrito el PDF de la factura %1/%2.");
inline const QString kPdfsEscritos = QStringLiteral("Ficheros PDF escritos: %1.");
inline const QString kTrabajoEnviado =
    QStringLiteral("Trabajo de %1 facturas enviado a la impresora %2.");
inline const QString kImpresoraPorDefecto = QStringLiteral("por defecto");
inline const QString kFacturasMostradas = QStringLiteral("%1 facturas mostradas.");
inline const QString kFacturasEmitidas =
    QStringLiteral("Facturas emitidas: %1, por un total de %2.");
inline const QString kIncidenciaGrupo = QStringLiteral("Grupo de %1: %2");
inline const QString kIncidenciaFactura = QStringLiteral("Factura %1 (%2): %3");
inline const QString kPdfDeLasFacturas = QStringLiteral("PDF de las facturas: %1");
inline const QString kBaseDeDatos = QStringLiteral("Base de datos: %1");
inline const QString kDemoYaExistia =
    QStringLiteral("  Los datos de demostración ya existían: no se ha añadido nada.");
inline const QString kFicherosEnCarpeta = QStringLiteral("%1 ficheros en %2");
inline const QString kFacturacionDemo =
    QStringLiteral("Facturación de los albaranes pendientes a %1:");
inline const QString kResumenDemo = QStringLiteral("Resumen de la empresa de demostración");

// The program itself.
inline const QString kOpcionProgramaDesconocida =
    QStringLiteral("Opción desconocida: %1\nUse vkfactuven --help para ver las "
                   "órdenes y sus opciones.");
inline const QString kFaltaOrden = QStringLiteral("Falta la orden.\n\n");
inline const QString kOrdenDesconocida =
    QStringLiteral("Orden desconocida: %1\nLas órdenes son init, demo, factura, "
                   "facturar y emitir; use vkfactuven --help para ver sus opciones.");
inline const QString kDetalle = QStringLiteral("Detalle: ");
inline const QString kErrorInterno = QStringLiteral("Error interno: %1");
inline const QString kErrorInternoDesconocido =
    QStringLiteral("Error interno: excepción desconocida.");

// Looking at, changing and deleting one invoice.
inline const QString kIndiqueNumeroFactura = QStringLiteral("Indique el número con --numero.");
inline const QString kFacturaInexistenteOrden =
    QStringLiteral("Factura Inexistente: no hay factura %1/%2.");
inline const QString kAlbaranMalEscrito =
    QStringLiteral("%1 espera SERIE/NÚMERO de un albarán, no «%2».");
inline const QString kNumeroMalEscrito = QStringLiteral("%1 espera un número, no «%2».");
inline const QString kTotalManualYSin =
    QStringLiteral("--total-manual y --sin-total-manual no pueden ir juntas.");
inline const QString kDescuentoFueraDeRango = QStringLiteral("--%1 debe estar entre 0 y 100.");
inline const QString kFacturaSinCambios = QStringLiteral("La factura no se ha cambiado.");
inline const QString kFacturaBorrada = QStringLiteral("Factura %1 borrada.");
inline const QString kFacturasBorradas = QStringLiteral("Facturas borradas: %1.");
inline const QString kFacturaNoBorrada = QStringLiteral("La factura %1 no se ha borrado.");
inline const QString kCopiaNoHecha = QStringLiteral("Error en el proceso de copia de factura %1");
inline const QString kAbonoHecho = QStringLiteral("Factura de abono %1 de la factura %2.");
inline const QString kCopiaHecha = QStringLiteral("Factura %1, copia de la factura %2.");
inline const QString kAyudaVerifactu = QStringLiteral(
    "Uso: vkfactuven verifactu SUBORDEN [opciones]\n\n"
    "Registros de facturación (VERI*FACTU) de la empresa:\n"
    "  estado      registros, pendientes de envío, aceptados y rechazados con su motivo\n"
    "  verificar   recalcula la cadena entera y señala el primer registro roto\n"
    "  exportar --salida DIR [--pendientes] [--lote N]\n"
    "              escribe los registros (todos, o solo los pendientes) como envíos a la\n"
    "              AEAT validados: verifactu-0001.xml, ... de como mucho 1000 registros\n"
    "  enviar [--servidor URL] [--lote N] [--espera-maxima SEGUNDOS]\n"
    "              envía los pendientes a la AEAT y resume su respuesta; estado 1 si un\n"
    "              envío no obtuvo respuesta (sus registros siguen pendientes)\n"
    "  subsanar --registro N\n"
    "              registra de nuevo, como está ahora, la factura de un alta rechazada\n\n"
    "El certificado de la empresa y el resto de ajustes del envío se leen de la sección\n"
    "[verifactu] de vkfactuven.ini (certificado, clave_privada, clave, ca, servidor,\n"
    "tiempo_maximo, espera_maxima); la contraseña también de VKFACTUVEN_VF_CLAVE.\n");
inline const QString kFaltaSalida =
    QStringLiteral("Falta --salida DIR: la carpeta donde escribir los envíos.");
inline const QString kFaltaRegistro =
    QStringLiteral("Falta --registro N: el registro rechazado que se subsana.");
inline const QString kSinRegistrosExportar =
    QStringLiteral("No hay registros de facturación que exportar.");
inline const QString kFicheroExiste = QStringLiteral(
    "Ya existe %1: no se sobrescribe. Elija otra carpeta o retire los envíos anteriores.");
inline const QString kRemisionNoValida =
    QStringLiteral("El envío que empieza en el registro %1 no cumple el esquema de la AEAT:\n%2");
inline const QString kNoSeEscribe = QStringLiteral("No se pudo escribir %1.");
inline const QString kExportados = QStringLiteral("Exportados %1 registros en %2 ficheros en %3.");
inline const QString kSinPendientes = QStringLiteral("No hay registros pendientes de envío.");
inline const QString kResumenEnvio =
    QStringLiteral("Enviados %1 registros en %2 envíos a la AEAT.");
inline const QString kEnvioFallido =
    QStringLiteral("El envío no se completó: %1. Los registros no enviados siguen pendientes.");
inline const QString kRegistroNoExiste = QStringLiteral("No existe el registro %1.");
inline const QString kRegistroNoVigente = QStringLiteral(
    "El registro %1 ya no es el registro en vigor de su factura: no se puede subsanar.");
inline const QString kSubsanado =
    QStringLiteral("Registro %1: alta de subsanación de la factura %2 de %3, pendiente de envío.");
inline const QString kSubordenVerifactu =
    QStringLiteral("Suborden desconocida de verifactu: «%1». Use «vkfactuven verifactu --help».");
} // namespace vk::mensajes
