#include "Ajustes.h"

#include <QSettings>

namespace vk {

namespace {
QString claveCompleta(const QString& seccion, const QString& clave) {
    return seccion + QLatin1Char('/') + clave;
}
} // namespace

QString LeeAjuste(const QString& aplicacion, const QString& seccion, const QString& clave,
                  const QString& defecto) {
    const QSettings s(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("vkfactuven"),
                      aplicacion);
    return s.value(claveCompleta(seccion, clave), defecto).toString();
}

void GuardaAjuste(const QString& aplicacion, const QString& seccion, const QString& clave,
                  const QString& valor) {
    QSettings s(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("vkfactuven"),
                aplicacion);
    s.setValue(claveCompleta(seccion, clave), valor);
}

} // namespace vk
