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

// The invoice edit screen.
inline const QString kTituloEdicion = QStringLiteral("Edición de facturas");
inline const QString kVersionPantalla = QStringLiteral(" (Versión %1)");
inline const QString kSinAsignar = QStringLiteral("00 - Sin asignar");
inline const QString kRetencion = QStringLiteral("Retención");
inline const QString kFranquicia = QStringLiteral("Franquicia");
inline const QString kFacturaInexistente = QStringLiteral("Factura Inexistente");
inline const QString kAccionCancelada = QStringLiteral("Acción Cancelada");
inline const QString kAvisoSubsanacion = QStringLiteral(
    "Esta factura ya consta en el registro de facturación (VERI*FACTU): el cambio se "
    "registrará como subsanación de su registro.\nSi cambian los importes de una factura ya "
    "entregada al cliente, lo correcto es emitir una factura rectificativa (botón Copiar, "
    "«Factura Rectificativa/Abono»).\n¿Desea guardar el cambio?");
inline const QString kAvisoAnulacion = QStringLiteral(
    "Esta factura ya consta en el registro de facturación (VERI*FACTU): al cambiar su serie o "
    "su fecha se anulará su registro y se registrará de nuevo.\n¿Desea guardar el cambio?");
inline const QString kConfirmaCambios = QStringLiteral("Confirma los cambios de la factura");
inline const QString kRecibosNoPendientes =
    QStringLiteral("Los recibos de esta factura no están pendientes. Desea generarlos como nuevos");
inline const QString kConfirmaDiferencia =
    QStringLiteral("El importe de la factura no coincide con la suma de bases + iva - irpf. "
                   "Confirma esta diferencia");
inline const QString kRecibosNuevoImporte =
    QStringLiteral("Desea generar los recibos con el nuevo importe");
inline const QString kDebeNumeroAlbaran = QStringLiteral("Debe introducir un número de albaran");
inline const QString kAlbaranNoExisteEdicion = QStringLiteral("Albaran no existe");
inline const QString kConfirmaIncorporacion =
    QStringLiteral("Confirma la incorporación del albaran en la factura");
inline const QString kFacturaSinContenido =
    QStringLiteral("ATENCION: Si elimina el albaran dejará la factura sin contenido.");
inline const QString kSeguroQuitarAlbaran =
    QStringLiteral("Esta seguro de eliminar de la factura el albaran ");
inline const QString kConfirmaQuitarAlbaran = QStringLiteral("Confirma la eliminación del albaran");
inline const QString kConfirmaBorrar = QStringLiteral("Confirma que desea borrar la factura");
inline const QString kSeguroBorrar = QStringLiteral("Esta seguro de que desea borrar la factura");
inline const QString kConfirmaCambioSerie =
    QStringLiteral("Confirma que desea cambiar la serie de la factura \nDe serie: %1\nA serie: %2");
inline const QString kTituloAtencion = QStringLiteral("Atención");
inline const QString kActivarRectificativa = QStringLiteral(
    "Realmente desea activar esta factura como rectificativa para concurso de acreedores");
inline const QString kDesactivarRectificativa = QStringLiteral(
    "Realmente desea desactivar esta factura como rectificativa para concurso de acreedores");
inline const QString kErrorProceso = QStringLiteral("Error en el proceso");
inline const QString kTituloCambioCliente = QStringLiteral("Cambio de Cliente");
inline const QString kCambioCliente = QStringLiteral(
    "Atención, este proceso cambiará el cliente en la factura y en todos los albaranes de la "
    "misma.\nTambien serán regenerados todos los efectos de esta factura, utilizando la forma de "
    "pago del nuevo cliente.\nEsta seguro que desea proseguir con este proceso ?\nSiempre serán "
    "utilizadas las direcciones fiscales");
inline const QString kBuscarPorFiscal = QStringLiteral(
    "Desea Buscar por el nombre Fiscal ?.\nSi contesta NO, la busqueda será por Nombre Comercial");
inline const QString kBuscarClientesFiscal = QStringLiteral("Buscar clientes por nombre FISCAL");
inline const QString kBuscarClientesComercial =
    QStringLiteral("Buscar clientes por nombre COMERCIAL");
inline const QString kVisualizarDocumento = QStringLiteral("Desea visualizar el documento");
inline const QString kTituloOpciones = QStringLiteral("Opciones");
inline const QString kNoEsDeTransporte = QStringLiteral(
    "La factura no es inicialmente de transporte. Confirma que desea añadir viajes a la factura");
inline const QString kConfirmaQuitarTramo =
    QStringLiteral("Confirma que desea eliminar el tramo indicado de la factura");
inline const QString kOtrasDirecciones = QStringLiteral("Otras direcciones");

// The copy screen.
inline const QString kTituloCopia = QStringLiteral("Copia de facturas");
inline const QString kBuscarClientes = QStringLiteral("Buscar Clientes");
inline const QString kConfirmaAbono =
    QStringLiteral("Confirma la creación de una factura de Abono sobre la factura actual");
inline const QString kConfirmaCopia =
    QStringLiteral("Confirma que desea crear una nueva factura con los mismos datos que la actual");
inline const QString kErrorCopia = QStringLiteral("Error en el proceso de copia de factura ");
inline const QString kTituloAbonoHecho = QStringLiteral("Factura de Abono");
inline const QString kAbonoFinalizado = QStringLiteral("Proceso de Abono de facturas finalizado");
inline const QString kTituloCopiaHecha = QStringLiteral("Copia de Factura");
inline const QString kCopiaFinalizada = QStringLiteral("Proceso de copia de facturas finalizado");
// Batch deletion of invoices.
inline const QString kTituloBorradoFacturas = QStringLiteral("Borrado de Facturas de venta");
inline const QString kSoloAdministradores =
    QStringLiteral("Opción solo disponible para administradores - Acción cancelada -");
inline const QString kBorradoIncompleto =
    QStringLiteral("Proceso incompleto para eliminar albaranes con almancen y de viajes");
inline const QString kFaltaSerieBorrado =
    QStringLiteral("Es obligatorio indicar la serie de facturas");
inline const QString kSeguroBorrarSeleccion =
    QStringLiteral("Esta seguro de que desea borrar la selección de facturas");
inline const QString kConfirmaBorrarVisibles =
    QStringLiteral("Confirma la eliminación de las facturas que se están visualizando actualmente");
inline const QString kBorradoFinalizado =
    QStringLiteral("Proceso de borrado de facturas de venta finalizado");
inline const QString kErrorBorrado = QStringLiteral("Error en el borrado de facturas de ventas. ");

} // namespace vk::mensajes
