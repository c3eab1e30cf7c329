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

} // namespace vk::mensajes
