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

} // namespace vk::mensajes
