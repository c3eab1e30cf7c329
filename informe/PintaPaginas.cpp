#include "PintaPaginas.h"

#include "MensajesInforme.h"

#include <Error.h>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPainterPath>
#include <map>
#include <optional>
#include <tuple>

namespace vk::informe {

namespace {

QColor qcolor(int c) {
    return QColor((c >> 16) & 0xff, (c >> 8) & 0xff, c & 0xff);
}

bool mismaFuente(const Fuente& a, const Fuente& b) {
    return !(a < b) && !(b < a);
}

class Pintor {
public:
    Pintor(QPainter& p, const QPaintDevice& dev, std::vector<Pintado>& pintados)
        : p_(p), k_(UnidadesPorTwip(dev)), pintados_(pintados) {}

    void pinta(const ElementoInforme& e, int pagina);

private:
    void pintaQr(const ElementoInforme& e, const QRectF& r, int pagina);
    QPen pluma(const ElementoInforme& e) const {
        return QPen(qcolor(e.color), std::max(1.0, e.grosor * k_));
    }
    void anota(Pintado::Clase clase, const ElementoInforme& e, const QString& t,
               const QRectF& dispositivo, int pagina) {
        pintados_.push_back({clase, e.objeto, e.origen, t, pagina,
                             QRectF(dispositivo.left() / k_, dispositivo.top() / k_,
                                    dispositivo.width() / k_, dispositivo.height() / k_)});
    }

    // The picture fitted to the size, scaled once per picture and size: the
    // logo of every page is then one QImage, which a PDF writer embeds once.
    const QImage& escalada(const QImage& imagen, const QSize& tamano) {
        const auto clave = std::make_tuple(imagen.cacheKey(), tamano.width(), tamano.height());
        auto it = escaladas_.find(clave);
        if (it == escaladas_.end()) {
            it = escaladas_
                     .emplace(clave,
                              imagen.scaled(tamano, Qt::KeepAspectRatio, Qt::SmoothTransformation))
                     .first;
        }
        return it->second;
    }

    // One QFont per design font, built once for the job.
    const QFont& fuente(const Fuente& f) {
        auto it = fuentes_.find(f);
        if (it == fuentes_.end()) {
            it = fuentes_.emplace(f, FuenteQt(f)).first;
        }
        return it->second;
    }

    QPainter& p_;
    double k_;
    std::vector<Pintado>& pintados_;
    std::map<std::tuple<qint64, int, int>, QImage> escaladas_;
    std::map<Fuente, QFont> fuentes_;
    std::optional<Fuente> fuenteActual_; // the painter's font
};

void Pintor::pinta(const ElementoInforme& e, int pagina) {
    const QRectF r = EnDispositivo(e.rect, k_);
    switch (e.clase) {
    case ElementoInforme::Clase::Fondo:
        p_.fillRect(r, qcolor(e.relleno));
        return;
    case ElementoInforme::Clase::Relleno:
        p_.fillRect(r, qcolor(e.relleno));
        anota(Pintado::Clase::Relleno, e, {}, r, pagina);
        return;
    case ElementoInforme::Clase::Marco:
        p_.setPen(pluma(e));
        p_.setBrush(Qt::NoBrush);
        p_.drawRect(r);
        return;
    case ElementoInforme::Clase::Caja:
        p_.setPen(e.color == kSinColor ? QPen(Qt::NoPen) : pluma(e));
        p_.setBrush(e.relleno == kSinColor ? QBrush(Qt::NoBrush) : QBrush(qcolor(e.relleno)));
        if (e.redondeo > 0) {
            p_.drawRoundedRect(r, e.redondeo * k_, e.redondeo * k_);
        } else {
            p_.drawRect(r);
        }
        if (e.relleno != kSinColor) {
            anota(Pintado::Clase::Relleno, e, {}, r, pagina);
        }
        return;
    case ElementoInforme::Clase::Linea:
        p_.setPen(pluma(e));
        p_.drawLine(r.topLeft(),
                    QPointF(r.left() + e.rect.width() * k_, r.top() + e.rect.height() * k_));
        return;
    case ElementoInforme::Clase::Imagen: {
        const QImage& imagen = escalada(e.imagen, r.size().toSize());
        p_.drawImage(QPointF(r.left(), r.top()), imagen);
        anota(Pintado::Clase::Imagen, e, {}, QRectF(r.topLeft(), imagen.size()), pagina);
        return;
    }
    case ElementoInforme::Clase::CodigoQr:
        pintaQr(e, r, pagina);
        return;
    case ElementoInforme::Clase::Texto: {
        // A font set again would cost a new lookup of its font engine.
        if (!fuenteActual_ || !mismaFuente(*fuenteActual_, e.fuente)) {
            p_.setFont(fuente(e.fuente));
            fuenteActual_ = e.fuente;
        }
        p_.setPen(qcolor(e.color));
        QRectF ocupado;
        p_.drawText(CajaTexto(e, k_), e.banderas, e.texto, &ocupado);
        anota(Pintado::Clase::Texto, e, e.texto, ocupado, pagina);
        return;
    }
    }
}

// The dark modules as one filled path of rectangles, a run of a row each:
// vectors in a PDF, sharp at any zoom, with no seam between neighbours that a
// rasteriser could show and a reader trip on. Its quiet zone is noted with it,
// so that the checks of overlaps keep it free.
void Pintor::pintaQr(const ElementoInforme& e, const QRectF& r, int pagina) {
    const int n = e.ladoModulos;
    if (n <= 0) {
        return;
    }
    const double m = r.width() / n;
    QPainterPath camino;
    camino.setFillRule(Qt::WindingFill);
    for (int fila = 0; fila < n; ++fila) {
        for (int col = 0; col < n;) {
            if (!e.modulos[static_cast<size_t>(fila * n + col)]) {
                ++col;
                continue;
            }
            const int desde = col;
            while (col < n && e.modulos[static_cast<size_t>(fila * n + col)]) {
                ++col;
            }
            camino.addRect(QRectF(r.left() + desde * m, r.top() + fila * m, (col - desde) * m, m));
        }
    }
    p_.save();
    p_.setRenderHint(QPainter::Antialiasing, false);
    p_.fillPath(camino, Qt::black);
    p_.restore();
    const double zona = e.margen * k_;
    anota(Pintado::Clase::Imagen, e, {}, r.adjusted(-zona, -zona, zona, zona), pagina);
}

} // namespace

std::vector<Pintado> PintaInforme(const InformeMaquetado& informe, QPagedPaintDevice& dispositivo) {
    QPainter p;
    if (!p.begin(&dispositivo)) {
        throw ErrorDispositivo(mensajes::kNoSeDibuja.arg(informe.nombre));
    }
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    std::vector<Pintado> pintados;
    Pintor pintor(p, dispositivo, pintados);
    for (size_t i = 0; i < informe.paginas.size(); ++i) {
        if (i > 0) {
            dispositivo.newPage();
        }
        for (const ElementoInforme& e : informe.paginas[i].elementos) {
            pintor.pinta(e, static_cast<int>(i));
        }
    }
    p.end();
    return pintados;
}

} // namespace vk::informe
