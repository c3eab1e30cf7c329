#include "LecturasMaqueta.h"

#include "MaquetaInforme.h"

namespace vk::informe {

const QImage& LecturasMaqueta::Imagen(const QString& ruta) {
    auto it = imagenes_.find(ruta);
    if (it == imagenes_.end()) {
        it = imagenes_.emplace(ruta, QImage(ruta)).first;
    }
    return it->second;
}

const QFontMetricsF& LecturasMaqueta::metricas(const Fuente& fuente) {
    auto it = metricas_.find(fuente);
    if (it == metricas_.end()) {
        it = metricas_.emplace(fuente, QFontMetricsF(FuenteQt(fuente), &dev_)).first;
    }
    return it->second;
}

QRectF LecturasMaqueta::Caja(const Fuente& fuente, double ancho, int banderas,
                             const QString& texto) {
    auto clave = std::make_tuple(fuente, ancho, banderas, texto);
    auto it = cajas_.find(clave);
    if (it == cajas_.end()) {
        const QRectF caja =
            metricas(fuente).boundingRect(QRectF(0, 0, ancho, 1e7), banderas, texto);
        it = cajas_.emplace(std::move(clave), caja).first;
    }
    return it->second;
}

QString LecturasMaqueta::Recorta(const Fuente& fuente, double ancho, const QString& linea) {
    auto clave = std::make_tuple(fuente, ancho, linea);
    auto it = recortes_.find(clave);
    if (it == recortes_.end()) {
        QString cortada = metricas(fuente).elidedText(linea, Qt::ElideRight, ancho);
        it = recortes_.emplace(std::move(clave), std::move(cortada)).first;
    }
    return it->second;
}

} // namespace vk::informe
