// Per-user settings of an application, by section and key, as the suite's
// programs keep them (the printer of the spool, window positions...). Stored
// in an INI file under the user's configuration folder (XDG_CONFIG_HOME).
#pragma once

#include <QString>

namespace vk {

QString LeeAjuste(const QString& aplicacion, const QString& seccion, const QString& clave,
                  const QString& defecto = {});
void GuardaAjuste(const QString& aplicacion, const QString& seccion, const QString& clave,
                  const QString& valor);

} // namespace vk
