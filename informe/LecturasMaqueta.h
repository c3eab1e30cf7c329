// What a layout reads and measures once and then uses on every page and
// every invoice of the job: the pictures by path and the measures of texts.
// Owned by one layout, for one device; nothing here outlives it.
#pragma once

#include "Reporte.h"

#include <QFontMetricsF>
#include <QImage>
#include <QRectF>
#include <QString>
#include <map>
#include <tuple>

class QPaintDevice;

namespace vk::informe {

class LecturasMaqueta {
public:
    explicit LecturasMaqueta(const QPaintDevice& dispositivo) : dev_(dispositivo) {}

    // The picture of the file, decoded once: every page holds the same
    // QImage, which a PDF writer then embeds once. Nothing writes the files
    // while a layout is being made.
    const QImage& Imagen(const QString& ruta);

    // The box the text takes when laid in a column of that width (device
    // units) with Qt's alignment and wrapping flags, from its top left.
    QRectF Caja(const Fuente& fuente, double ancho, int banderas, const QString& texto);

    // One line of text cut at that width with an ellipsis, when it does not fit.
    QString Recorta(const Fuente& fuente, double ancho, const QString& linea);

private:
    const QFontMetricsF& metricas(const Fuente& fuente);

    const QPaintDevice& dev_;
    std::map<QString, QImage> imagenes_;
    std::map<Fuente, QFontMetricsF> metricas_;
    // The letterhead, the headings and the labels come back on every
    // invoice: each text is measured once per font, width and flags.
    std::map<std::tuple<Fuente, double, int, QString>, QRectF> cajas_;
    std::map<std::tuple<Fuente, double, QString>, QString> recortes_;
};

} // namespace vk::informe
