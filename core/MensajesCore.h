// Messages of the session subsystem shown to people, each defined once.
#pragma once

#include <QString>

namespace vk::mensajes {

inline const QString kSinGestionContable = QStringLiteral(
    "Debe informar en parámetros de la gestión contable donde se va a realizar la conexión");
inline const QString kSinLanzador = QStringLiteral(
    "Esta aplicación no puede abrir pantallas: no ha registrado un lanzador de pantallas "
    "(pantalla %1).");
inline const QString kSinSesion =
    QStringLiteral("No hay sesión de base de datos: asigne MyBd antes de usar la facturación.");
inline const QString kSinEmisor = QStringLiteral(
    "La emisión de facturas no está disponible en esta instalación: no hay ningún emisor de "
    "facturas registrado.");

inline const QString kSinContabilizacion = QStringLiteral(
    "La contabilización automática no está disponible en esta instalación: desactive la "
    "contabilización al grabar (Par_ModConCon) o instale el enlace contable.");
inline const QString kCodigoPaginaNoDisponible =
    QStringLiteral("El código de página «%1» no está disponible en este sistema.");

// Failures of the database, by kind; the server's own text goes to the detail.
inline const QString kBdOcupada =
    QStringLiteral("La base de datos está ocupada por otro usuario; inténtelo de nuevo");
inline const QString kBdSinEspacio = QStringLiteral(
    "No queda espacio en el disco de la base de datos: libere espacio e inténtelo de nuevo.");
inline const QString kBdNoEscribible = QStringLiteral(
    "No se puede escribir en la base de datos (sin permiso, de solo lectura o con un error "
    "del disco).");
inline const QString kBdConexionPerdida =
    QStringLiteral("Se ha perdido la conexión con el servidor de la base de datos.");
inline const QString kBdRechazo = QStringLiteral("La base de datos ha rechazado la operación.");
inline const QString kUnaSentencia = QStringLiteral("Solo se admite una sentencia cada vez");

// The data gateway: connections, transactions, results and the statement
// builder.
inline const QString kSinTransaccionQueConfirmar =
    QStringLiteral("No hay ninguna transacción abierta que confirmar.");
inline const QString kSinTransaccionQueDeshacer =
    QStringLiteral("No hay ninguna transacción abierta que deshacer.");
inline const QString kConexionCerrada =
    QStringLiteral("La conexión con la base de datos está cerrada.");
inline const QString kCursorAlFinal =
    QStringLiteral("No hay más registros: el cursor está al final.");
inline const QString kCursorAlPrincipio =
    QStringLiteral("No hay registros anteriores: el cursor está al principio.");
inline const QString kCampoNoExiste = QStringLiteral("No existe el campo «%1» en el resultado.");
inline const QString kCampoNumeroNoExiste =
    QStringLiteral("No existe el campo número %1 en el resultado.");
inline const QString kCriterioNoValido = QStringLiteral("Criterio de búsqueda no válido: «%1».");
inline const QString kCampoValoresDistintos =
    QStringLiteral("El campo «%1» trae %2 valores para %3 registros.");
inline const QString kCampoRepetido = QStringLiteral("El campo «%1» ya existe en el resultado.");
inline const QString kSinRegistroActual = QStringLiteral(
    "No hay registro actual: el cursor está antes del principio o después del final.");
inline const QString kSentenciaIncompleta =
    QStringLiteral("Sentencia incompleta: falta la tabla o las columnas.");
inline const QString kColumnaNoValida = QStringLiteral("Nombre de columna no válido: «%1».");
inline const QString kValorNoNumerico =
    QStringLiteral("Valor no numérico para la columna %1: «%2».");
inline const QString kImporteNoValido =
    QStringLiteral("Importe no válido para la columna %1: «%2».");
inline const QString kFechaColumnaNoValida =
    QStringLiteral("Fecha no válida para la columna %1: «%2».");
inline const QString kSinClaveAutonumerica =
    QStringLiteral("La tabla %1 no tiene clave autonumérica.");
inline const QString kBorradoIncompleto = QStringLiteral("Borrado incompleto: falta la tabla.");
inline const QString kBusquedaSinConexion =
    QStringLiteral("La búsqueda no tiene conexión: falta llamar a Prepara.");
inline const QString kParametroNoExiste =
    QStringLiteral("No existe el parámetro «%1» en la tabla Parametros.");

// Opening a company.
inline const QString kCadenaNoValida =
    QStringLiteral("Cadena de conexión no válida: «%1». Use un directorio, "
                   "sqlite:DIRECTORIO?catalogo=NOMBRE o "
                   "postgresql://usuario@servidor:puerto/base?catalogo=nombre.");
inline const QString kCatalogoNoValido =
    QStringLiteral("Nombre de catálogo no válido: «%1». Use letras, dígitos y "
                   "guiones bajos, empezando por una letra.");
inline const QString kUsuarioConexionNoValido =
    QStringLiteral("El usuario de la conexión debe ser un número mayor que 0: «%1».");
inline const QString kEsperaNoValida =
    QStringLiteral("La espera «%1» de la conexión debe ser un número de segundos entre 0 y 3600.");
inline const QString kClaveEnCadena = QStringLiteral(
    "La cadena de conexión no debe llevar la contraseña: guárdela en el fichero de "
    "contraseñas de PostgreSQL (PGPASSFILE, por defecto ~/.pgpass) o en PGPASSWORD.");
inline const QString kOpcionSqliteDesconocida =
    QStringLiteral("Opción desconocida «%1» en la conexión SQLite.");
inline const QString kCadenaVacia = QStringLiteral("La cadena de conexión está vacía.");
inline const QString kEmpresaNoExiste =
    QStringLiteral("No existe la empresa «%1» en %2. Créela con «vkfactuven init».");
inline const QString kEmpresaSinFichero =
    QStringLiteral("No existe la empresa «%1» en %2 (falta el fichero %3). "
                   "Créela con «vkfactuven init --db %2».");
inline const QString kFaltaCatalogoComun =
    QStringLiteral("Falta el catálogo común vkcomun.sqlite en %1.");
inline const QString kCarpetaDatosNoCreada =
    QStringLiteral("No se puede crear la carpeta de datos %1.");
inline const QString kBdNoSeAbre = QStringLiteral("No se puede abrir la base de datos %1: %2");
inline const QString kSinControladorPostgres =
    QStringLiteral("Falta el controlador de PostgreSQL de Qt (libqt6sql6-psql).");
inline const QString kServidorNoConecta =
    QStringLiteral("No se puede conectar con el servidor PostgreSQL (%1): %2");
inline const QString kEmpresaFueraDeEmp =
    QStringLiteral("La empresa «%1» no figura en la tabla de empresas (Emp) del "
                   "catálogo común.");

// Creating or upgrading a company.
inline const QString kEsquemaMasModerno =
    QStringLiteral("El catálogo tiene la versión de esquema %1, más moderna que "
                   "la %2 de este programa. Actualice el programa.");
inline const QString kContableCreado =
    QStringLiteral("Catálogo contable %1 creado (esquema versión %2).");
inline const QString kContableAlDia =
    QStringLiteral("Catálogo contable %1 al día (esquema versión %2).");
inline const QString kComunCreado = QStringLiteral("Catálogo común vkcomun creado.");
inline const QString kComunAlDia = QStringLiteral("Catálogo común vkcomun al día.");
inline const QString kEmpresaCreada = QStringLiteral("Empresa %1 creada (esquema versión %2).");
inline const QString kEmpresaAlDia = QStringLiteral("Empresa %1 al día (esquema versión %2).");
inline const QString kResumenCreacion =
    QStringLiteral("Tablas creadas: %1; columnas añadidas: %2; filas de referencia "
                   "añadidas: %3.");
inline const QString kSemillaIlegible =
    QStringLiteral("No se pueden leer los datos de referencia %1.");
inline const QString kSemillaFilaMal = QStringLiteral("Fila mal formada en %1: «%2».");
inline const QString kDemoNoGrabada =
    QStringLiteral("No se han podido grabar los datos de demostración en %1: %2");
inline const QString kDemoSinTipoIva =
    QStringLiteral("La tabla de impuestos no tiene ningún tipo del régimen %1 en "
                   "vigor el %2.");
inline const QString kDemoSinParametros =
    QStringLiteral("La empresa no tiene fila de parámetros: créela antes de "
                   "añadir los datos de demostración.");
inline const QString kDemoArticuloDesconocido =
    QStringLiteral("Artículo de demostración desconocido: %1");

// The host's ports and the registered components.
inline const QString kSinInteraccion =
    QStringLiteral("Esta aplicación no ha registrado ninguna forma de comunicarse con el usuario.");
inline const QString kComponenteNoInstalado =
    QStringLiteral("No se puede crear el objeto «%1»: no hay ningún componente "
                   "instalado con ese nombre.");
inline const QString kComponenteNoCreado = QStringLiteral("No se puede crear el objeto «%1».");
inline const QString kComponenteSinInterfaz =
    QStringLiteral("El objeto «%1» no ofrece la interfaz que se esperaba.");

} // namespace vk::mensajes
