#include "Huella.h"

#include <QCryptographicHash>
#include <QStringList>
#include <initializer_list>
#include <utility>

namespace vk::fiscal {

namespace {

QString une(std::initializer_list<std::pair<const char*, const QString&>> pares) {
    QStringList partes;
    for (const auto& [nombre, valor] : pares) {
        partes << QString::fromLatin1(nombre) + QLatin1Char('=') + valor.trimmed();
    }
    return partes.join(QLatin1Char('&'));
}

QString sha256(const QString& texto) {
    return QString::fromLatin1(
        QCryptographicHash::hash(texto.toUtf8(), QCryptographicHash::Sha256).toHex().toUpper());
}

} // namespace

QString fnCadenaHuella(const CamposHuellaAlta& c) {
    return une({{"IDEmisorFactura", c.idEmisorFactura},
                {"NumSerieFactura", c.numSerieFactura},
                {"FechaExpedicionFactura", c.fechaExpedicionFactura},
                {"TipoFactura", c.tipoFactura},
                {"CuotaTotal", c.cuotaTotal},
                {"ImporteTotal", c.importeTotal},
                {"Huella", c.huellaAnterior},
                {"FechaHoraHusoGenRegistro", c.fechaHoraHusoGenRegistro}});
}

QString fnCadenaHuella(const CamposHuellaAnulacion& c) {
    return une({{"IDEmisorFacturaAnulada", c.idEmisorFacturaAnulada},
                {"NumSerieFacturaAnulada", c.numSerieFacturaAnulada},
                {"FechaExpedicionFacturaAnulada", c.fechaExpedicionFacturaAnulada},
                {"Huella", c.huellaAnterior},
                {"FechaHoraHusoGenRegistro", c.fechaHoraHusoGenRegistro}});
}

QString fnHuella(const CamposHuellaAlta& c) {
    return sha256(fnCadenaHuella(c));
}

QString fnHuella(const CamposHuellaAnulacion& c) {
    return sha256(fnCadenaHuella(c));
}

} // namespace vk::fiscal
