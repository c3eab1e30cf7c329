#include "MaquetaInforme.h"

#include "Formula.h"
#include "LecturasMaqueta.h"
#include "MensajesInforme.h"

#include <Error.h>
#include <Formato.h>
#include <QDate>
#include <QPaintDevice>
#include <QRegularExpression>
#include <cmath>
#include <map>
#include <qrencode.h>
#include <utility>

namespace vk::informe {

namespace {

bool mismo(const QString& a, const QString& b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

struct InfoPagina {
    int numero = 1;
    int total = 1;
};

// A QR code's modules: error correction M (what the tax QR asks), 8-bit data,
// case kept. Throws ErrorDiseno when the text does not fit a code.
struct MatrizQr {
    std::vector<bool> modulos;
    int lado = 0;
};
MatrizQr CodificaQr(const QString& texto) {
    const QByteArray datos = texto.toUtf8();
    QRcode* codigo = QRcode_encodeString(datos.constData(), 0, QR_ECLEVEL_M, QR_MODE_8, 1);
    if (!codigo) {
        throw ErrorDiseno(mensajes::kQrNoCodifica.arg(texto));
    }
    MatrizQr m;
    m.lado = codigo->width;
    m.modulos.reserve(static_cast<size_t>(m.lado) * static_cast<size_t>(m.lado));
    for (int i = 0; i < m.lado * m.lado; ++i) {
        m.modulos.push_back((codigo->data[i] & 1) != 0);
    }
    QRcode_free(codigo);
    return m;
}

// The values of one row for the formulas.
class Contexto : public FuenteValores {
public:
    Contexto(const DatosInforme& d, const ColeccionFormulas& f, int fila)
        : d_(d), f_(f), fila_(fila) {}
    bool Campo(const QString& nombre, QVariant& valor) const override {
        const int c = d_.indice(nombre);
        if (c < 0) {
            return false;
        }
        valor = fila_ >= 0 && fila_ < static_cast<int>(d_.filas.size())
                    ? d_.filas[static_cast<size_t>(fila_)][static_cast<size_t>(c)]
                    : QVariant();
        return true;
    }
    bool Formula(const QString& nombre, QString& texto) const override {
        const FormulaField* f = f_.Busca(nombre);
        if (!f) {
            return false;
        }
        texto = f->Text;
        return true;
    }

private:
    const DatosInforme& d_;
    const ColeccionFormulas& f_;
    int fila_;
};

class Maquetador {
public:
    Maquetador(Reporte& r, const QPaintDevice& dev, LecturasMaqueta& lecturas)
        : r_(r), d_(r.Datos()), dev_(dev), k_(UnidadesPorTwip(dev)), lecturas_(lecturas) {}

    InformeMaquetado Ejecuta();

private:
    // How far an object of a section instance moves down and grows: a text
    // that grows pushes down what stands below it in its own column, and a
    // box grows round what it holds, so a long address or remark never runs
    // under the next object.
    struct Ajuste {
        int baja = 0;
        int crece = 0;
    };
    struct Colocada {
        const Seccion* s;
        int fila;
        int top;
        int alto;
        std::vector<Ajuste> ajustes; // one per object of the section
    };
    struct Pagina {
        std::vector<Colocada> items;
        int instancia = 0;
        int filaPie = 0;
        MatrizQr qr; // the page's code, when it has one (lado > 0)
    };

    // --- values ---
    QVariant valor(const ObjetoInforme& o, int fila, const InfoPagina& p) const;
    // The value as the object shows it.
    static QString texto(const ObjetoInforme& o, const QVariant& v);
    // An object's value and text for a row, worked out once: a section is
    // measured and then placed, and both need them.
    struct Mostrado {
        QVariant valor;
        QString texto;
    };
    Mostrado mostrado(const ObjetoInforme& o, int fila, const InfoPagina& p) const;
    bool visible(const QString& condicion, int fila) const;
    bool visible(const Seccion& s, int fila) const {
        return !s.Suppress && visible(s.VisibleSi, fila);
    }
    bool visible(const ObjetoInforme& o, int fila) const {
        return !o.Suppress && visible(o.VisibleSi, fila);
    }
    static bool esTexto(const ObjetoInforme& o) {
        return o.Tipo == TipoObjeto::Campo || o.Tipo == TipoObjeto::Formula ||
               o.Tipo == TipoObjeto::Texto || o.Tipo == TipoObjeto::Especial;
    }
    int banderas(const ObjetoInforme& o, const QVariant& v) const;
    double relleno(const ObjetoInforme& o) const {
        return o.BackColor != kSinColor || o.BorderColor != kSinColor ? 45 : 0;
    }

    // --- layout ---
    // The section instance measured for the row, its top still to be set.
    Colocada mide(const Seccion& s, int fila) const;
    int crecimiento(const ObjetoInforme& o, int fila) const;
    std::vector<const Seccion*> deTipo(TipoSeccion t, int nivel = -1) const;
    int nivel(const Seccion& s) const;
    void nuevaPagina(int fila);
    // The QR code's band on the page just opened, when it is the first page
    // of an instance of the outermost group whose row has a code.
    void reservaQr(int fila);
    QString textoQr(int fila) const;
    void situaQr(const MatrizQr& qr, std::vector<ElementoInforme>& salida) const;
    void coloca(Colocada c);
    void emite(const Seccion& s, int fila);
    void cierraGrupos(int desde, int fila);
    int altoPie() const;

    // --- subreports ---
    // The subreport's rows that belong to the main row `fila` by its link.
    std::vector<int> filasEnlazadas(Reporte& sub, const ObjetoInforme& o, int fila) const;
    // Its sections in printing order: report header, a detail per row, report
    // footer; nothing when no row belongs to the main row.
    std::vector<Colocada> maquetaSubinforme(const ObjetoInforme& o, int fila) const;

    // --- items ---
    // The items of a section instance whose left edge is at x0, appended to
    // the page's.
    void situa(const Colocada& c, const InfoPagina& info, double x0,
               std::vector<ElementoInforme>& salida) const;
    void situaObjeto(const ObjetoInforme& o, int fila, double x0, double y0, const Ajuste& a,
                     const InfoPagina& info, std::vector<ElementoInforme>& salida) const;
    // What the text of an object that may not grow shows in its box.
    QString recortado(const ElementoInforme& e) const;

    Reporte& r_;
    const DatosInforme& d_;
    const QPaintDevice& dev_;
    double k_;
    LecturasMaqueta& lecturas_; // shared with the subreports' layouts
    std::vector<Pagina> paginas_;
    int y_ = 0;
    int limite_ = 0;
    bool soloCabecera_ = true;
    bool forzarPagina_ = false;
    int activos_ = 0;    // group levels whose header has been printed
    int instancia_ = 0;  // instance of the page-numbering group
    int columnaQr_ = -1; // the column of the QR code's text
    int exterior_ = 1;   // instance of the outermost group
    int conQr_ = 0;      // the last such instance whose first page was opened
    // What mostrado() and visible() worked out, by object or condition (of
    // the report, which does not change while it is laid out) and row.
    mutable std::map<std::pair<const ObjetoInforme*, int>, Mostrado> mostrados_;
    mutable std::map<std::pair<const QString*, int>, bool> visibles_;
};

bool Maquetador::visible(const QString& condicion, int fila) const {
    if (condicion.trimmed().isEmpty()) {
        return true;
    }
    const auto clave = std::make_pair(&condicion, fila);
    auto it = visibles_.find(clave);
    if (it == visibles_.end()) {
        const bool si = EsVerdadero(EvaluaFormula(condicion, Contexto(d_, r_.FormulaFields, fila)));
        it = visibles_.emplace(clave, si).first;
    }
    return it->second;
}

Maquetador::Mostrado Maquetador::mostrado(const ObjetoInforme& o, int fila,
                                          const InfoPagina& p) const {
    // A special field depends on the page as well.
    if (o.Tipo == TipoObjeto::Especial) {
        QVariant v = valor(o, fila, p);
        QString t = texto(o, v);
        return {std::move(v), std::move(t)};
    }
    const auto clave = std::make_pair(&o, fila);
    auto it = mostrados_.find(clave);
    if (it == mostrados_.end()) {
        QVariant v = valor(o, fila, p);
        QString t = texto(o, v);
        it = mostrados_.emplace(clave, Mostrado{std::move(v), std::move(t)}).first;
    }
    return it->second;
}

int Maquetador::nivel(const Seccion& s) const {
    for (size_t i = 0; i < r_.Grupos.size(); ++i) {
        if (mismo(r_.Grupos[i].Name, s.Grupo)) {
            return static_cast<int>(i) + 1;
        }
    }
    return 0;
}

std::vector<const Seccion*> Maquetador::deTipo(TipoSeccion t, int n) const {
    std::vector<const Seccion*> r;
    for (const Seccion& s : r_.Sections.todas()) {
        if (s.Tipo == t && (n < 0 || nivel(s) == n)) {
            r.push_back(&s);
        }
    }
    return r;
}

QVariant Maquetador::valor(const ObjetoInforme& o, int fila, const InfoPagina& p) const {
    const Contexto ctx(d_, r_.FormulaFields, fila);
    switch (o.Tipo) {
    case TipoObjeto::Texto:
        return o.Texto;
    case TipoObjeto::Campo: {
        QVariant v;
        if (!ctx.Campo(o.Texto.mid(o.Texto.lastIndexOf(u'.') + 1), v)) {
            throw ErrorDiseno(mensajes::kCampoFueraDeDatos.arg(o.Texto, o.Name));
        }
        return v;
    }
    case TipoObjeto::Formula:
        return EvaluaFormula(QStringLiteral("{@%1}").arg(o.Texto), ctx);
    case TipoObjeto::Imagen:
        return EvaluaFormula(o.Texto, ctx);
    case TipoObjeto::Especial:
        if (mismo(o.Texto, QStringLiteral("PageNumber"))) {
            return p.numero;
        }
        if (mismo(o.Texto, QStringLiteral("TotalPageCount"))) {
            return p.total;
        }
        if (mismo(o.Texto, QStringLiteral("PageNofM"))) {
            return QStringLiteral("Página %1 de %2").arg(p.numero).arg(p.total);
        }
        if (mismo(o.Texto, QStringLiteral("PrintDate"))) {
            return QDate::currentDate();
        }
        throw ErrorDiseno(mensajes::kCampoEspecialDesconocido.arg(o.Texto));
    default:
        return {};
    }
}

QString Maquetador::texto(const ObjetoInforme& o, const QVariant& v) {
    if (o.SuprimeSiCero && !EsVerdadero(v)) {
        return {};
    }
    QString t;
    if (o.Formato.compare(QLatin1String("moneda"), Qt::CaseInsensitive) == 0) {
        t = v.isNull() ? QString() : FormatoMoneda(v.toDouble());
    } else if (!o.Formato.isEmpty()) {
        t = Format(v, o.Formato);
    } else if (v.typeId() == QMetaType::QDate || v.typeId() == QMetaType::QDateTime) {
        t = Format(v, QStringLiteral("dd/mm/yyyy"));
    } else if (v.typeId() == QMetaType::Bool) {
        t = v.toBool() ? QStringLiteral("Sí") : QStringLiteral("No");
    } else if (EsNumero(v)) {
        const double x = v.toDouble();
        t = x == std::floor(x) && std::abs(x) < 1e15 ? QString::number(static_cast<qint64>(x))
                                                     : Format(v, QString());
    } else {
        t = v.toString();
    }
    t.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    if (o.CompactaBlancos) {
        static const QRegularExpression blancos(QStringLiteral("[ \\t]+"));
        static const QRegularExpression finales(QStringLiteral(" *\\n *"));
        t = t.replace(blancos, QStringLiteral(" "))
                .replace(finales, QStringLiteral("\n"))
                .trimmed();
    }
    return t;
}

int Maquetador::banderas(const ObjetoInforme& o, const QVariant& v) const {
    int f = 0;
    switch (o.HorAlignment) {
    case crLeftAlign:
        f = Qt::AlignLeft;
        break;
    case crHorCenterAlign:
        f = Qt::AlignHCenter;
        break;
    case crRightAlign:
        f = Qt::AlignRight;
        break;
    case crJustified:
        f = Qt::AlignJustify;
        break;
    default:
        f = EsNumero(v) ? Qt::AlignRight : Qt::AlignLeft;
    }
    f |= o.CanGrow ? (Qt::AlignTop | Qt::TextWordWrap) : Qt::AlignVCenter;
    return f;
}

int Maquetador::crecimiento(const ObjetoInforme& o, int fila) const {
    if (!visible(o, fila)) {
        return 0;
    }
    if (o.Tipo == TipoObjeto::Subinforme) {
        int h = 0;
        for (const Colocada& c : maquetaSubinforme(o, fila)) {
            h += c.alto;
        }
        return std::max(0, h - o.Height);
    }
    if (!o.CanGrow || !esTexto(o)) {
        return 0;
    }
    const auto [v, t] = mostrado(o, fila, InfoPagina());
    if (t.isEmpty()) {
        return 0;
    }
    const double ancho = (o.Width - 2 * relleno(o)) * k_;
    const QRectF caja = lecturas_.Caja(o.Font, ancho, banderas(o, v), t);
    return std::max(0, static_cast<int>(std::ceil(caja.height() / k_)) - o.Height);
}

Maquetador::Colocada Maquetador::mide(const Seccion& s, int fila) const {
    const std::vector<ObjetoInforme>& objetos = s.Objetos;
    const size_t n = objetos.size();
    std::vector<Ajuste> a(n);
    bool crece = false;
    for (size_t i = 0; i < n; ++i) {
        a[i].crece = crecimiento(objetos[i], fila);
        crece = crece || a[i].crece > 0;
    }
    if (crece) {
        // Top to bottom: what starts below the end of a grown object and
        // shares its column goes down by what that one grew and went down.
        std::vector<size_t> orden(n);
        for (size_t i = 0; i < n; ++i) {
            orden[i] = i;
        }
        std::stable_sort(orden.begin(), orden.end(),
                         [&](size_t x, size_t y) { return objetos[x].Top < objetos[y].Top; });
        const auto columna = [](const ObjetoInforme& x, const ObjetoInforme& y) {
            return x.Left < y.Left + y.Width && y.Left < x.Left + x.Width;
        };
        for (const size_t i : orden) {
            const ObjetoInforme& o = objetos[i];
            for (const size_t j : orden) {
                const ObjetoInforme& arriba = objetos[j];
                if (j != i && arriba.Top + arriba.Height <= o.Top && columna(o, arriba)) {
                    a[i].baja = std::max(a[i].baja, a[j].baja + a[j].crece);
                }
            }
        }
        // A box grows round the objects it holds.
        for (size_t i = 0; i < n; ++i) {
            const ObjetoInforme& caja = objetos[i];
            if (caja.Tipo != TipoObjeto::Caja) {
                continue;
            }
            for (size_t j = 0; j < n; ++j) {
                const ObjetoInforme& o = objetos[j];
                if (j != i && o.Top >= caja.Top && o.Top + o.Height <= caja.Top + caja.Height &&
                    o.Left >= caja.Left && o.Left + o.Width <= caja.Left + caja.Width) {
                    a[i].crece = std::max(a[i].crece, a[j].baja + a[j].crece - a[i].baja);
                }
            }
        }
    }
    int extra = 0;
    for (const Ajuste& x : a) {
        extra = std::max(extra, x.baja + x.crece);
    }
    return {&s, fila, 0, s.Height + extra, std::move(a)};
}

int Maquetador::altoPie() const {
    int h = 0;
    for (const Seccion* s : deTipo(TipoSeccion::PiePagina)) {
        if (!s->Suppress) {
            h += s->Height;
        }
    }
    return h;
}

void Maquetador::coloca(Colocada c) {
    c.top = y_;
    y_ += c.alto;
    paginas_.back().filaPie = c.fila;
    paginas_.back().items.push_back(std::move(c));
}

QString Maquetador::textoQr(int fila) const {
    if (columnaQr_ < 0 || fila < 0 || fila >= static_cast<int>(d_.filas.size())) {
        return {};
    }
    return d_.filas[static_cast<size_t>(fila)][static_cast<size_t>(columnaQr_)]
        .toString()
        .trimmed();
}

void Maquetador::reservaQr(int fila) {
    if (columnaQr_ < 0 || conQr_ == exterior_) {
        return;
    }
    conQr_ = exterior_;
    const QString texto = textoQr(fila);
    if (texto.isEmpty()) {
        return;
    }
    Pagina& p = paginas_.back();
    p.qr = CodificaQr(texto);
    y_ += bandaqr::Alto(r_.Qr.Font, p.qr.lado);
}

void Maquetador::situaQr(const MatrizQr& qr, std::vector<ElementoInforme>& salida) const {
    const int zona = bandaqr::ZonaSilencio(qr.lado);
    const int leyenda = bandaqr::AltoLeyenda(r_.Qr.Font);
    const double ancho = bandaqr::kLado + 2.0 * zona;
    const double x =
        r_.LeftMargin + (r_.AnchoPapel - r_.LeftMargin - r_.RightMargin - bandaqr::kLado) / 2.0;
    const double y = r_.TopMargin + leyenda + zona;
    auto rotulo = [&](const QString& nombre, const QString& texto, double top) {
        if (texto.isEmpty()) {
            return;
        }
        ElementoInforme e;
        e.clase = ElementoInforme::Clase::Texto;
        e.objeto = nombre;
        e.rect = QRectF(x - zona, top, ancho, leyenda);
        e.texto = texto;
        e.fuente = r_.Qr.Font;
        e.banderas = Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextSingleLine;
        salida.push_back(std::move(e));
    };
    rotulo(QStringLiteral("CodigoQrEncima"), r_.Qr.Encima, r_.TopMargin);
    ElementoInforme e;
    e.clase = ElementoInforme::Clase::CodigoQr;
    e.objeto = QStringLiteral("CodigoQr");
    e.origen = r_.Qr.Campo;
    e.rect = QRectF(x, y, bandaqr::kLado, bandaqr::kLado);
    e.modulos = qr.modulos;
    e.ladoModulos = qr.lado;
    e.margen = zona;
    salida.push_back(std::move(e));
    rotulo(QStringLiteral("CodigoQrDebajo"), r_.Qr.Debajo, y + bandaqr::kLado + zona);
}

void Maquetador::nuevaPagina(int fila) {
    paginas_.push_back({{}, instancia_, fila, {}});
    y_ = r_.TopMargin;
    reservaQr(fila);
    limite_ = r_.AltoPapel - r_.BottomMargin - altoPie();
    forzarPagina_ = false;
    for (const Seccion* s : deTipo(TipoSeccion::CabeceraPagina)) {
        if (visible(*s, fila)) {
            coloca(mide(*s, fila));
        }
    }
    // The open groups' headers marked to repeat: the reader of page 2 still
    // sees whose invoice it is and the column headings.
    for (int n = 1; n <= activos_; ++n) {
        for (const Seccion* s : deTipo(TipoSeccion::CabeceraGrupo, n)) {
            if (s->RepiteEnCadaPagina && visible(*s, fila)) {
                coloca(mide(*s, fila));
            }
        }
    }
    soloCabecera_ = true;
}

void Maquetador::emite(const Seccion& s, int fila) {
    if (!visible(s, fila)) {
        return;
    }
    Colocada c = mide(s, fila);
    if (paginas_.empty() || forzarPagina_ || (y_ + c.alto > limite_ && !soloCabecera_)) {
        nuevaPagina(fila);
    }
    coloca(std::move(c));
    soloCabecera_ = false;
}

// Prints the footers of the groups from the innermost down to level `desde`,
// with the last row of each group. Footers marked AlPie go together at the
// bottom of the page.
void Maquetador::cierraGrupos(int desde, int fila) {
    const int niveles = static_cast<int>(r_.Grupos.size());
    for (int n = niveles; n >= desde; --n) {
        std::vector<Colocada> alPie;
        int total = 0;
        for (const Seccion* s : deTipo(TipoSeccion::PieGrupo, n)) {
            if (!s->AlPie) {
                emite(*s, fila);
            } else if (visible(*s, fila)) {
                alPie.push_back(mide(*s, fila));
                total += alPie.back().alto;
            }
        }
        if (!alPie.empty()) {
            if (paginas_.empty() || forzarPagina_ || y_ + total > limite_) {
                nuevaPagina(fila);
            }
            y_ = std::max(y_, limite_ - total);
            for (Colocada& c : alPie) {
                coloca(std::move(c));
            }
            soloCabecera_ = false;
        }
        activos_ = n - 1;
        if (r_.Grupos[static_cast<size_t>(n - 1)].NuevaPaginaDespues) {
            forzarPagina_ = true;
        }
    }
}

InformeMaquetado Maquetador::Ejecuta() {
    const int filas = static_cast<int>(d_.filas.size());
    const int niveles = static_cast<int>(r_.Grupos.size());
    std::vector<int> columnas;
    int nivelPaginas = 0;
    for (int n = 0; n < niveles; ++n) {
        columnas.push_back(d_.indice(r_.Grupos[static_cast<size_t>(n)].Campo));
        if (nivelPaginas == 0 && r_.Grupos[static_cast<size_t>(n)].ReiniciaPaginas) {
            nivelPaginas = n + 1;
        }
    }
    if (!r_.Qr.Campo.trimmed().isEmpty()) {
        columnaQr_ = d_.indice(r_.Qr.Campo.trimmed());
        if (columnaQr_ < 0) {
            throw ErrorDiseno(mensajes::kQrFueraDeDatos.arg(r_.Name, r_.Qr.Campo));
        }
    }
    for (const Seccion* s : deTipo(TipoSeccion::CabeceraInforme)) {
        emite(*s, 0);
    }
    for (int i = 0; i < filas; ++i) {
        int cambio = niveles + 1; // the outermost group that starts at this row
        if (i == 0) {
            cambio = 1;
        } else {
            for (int n = 1; n <= niveles; ++n) {
                const size_t c = static_cast<size_t>(columnas[static_cast<size_t>(n - 1)]);
                if (d_.filas[static_cast<size_t>(i)][c] !=
                    d_.filas[static_cast<size_t>(i - 1)][c]) {
                    cambio = n;
                    break;
                }
            }
            if (cambio <= niveles) {
                cierraGrupos(cambio, i - 1);
            }
            if (cambio == 1 && niveles > 0) {
                ++exterior_;
                // Its code goes at the top of its first page.
                if (!textoQr(i).isEmpty()) {
                    forzarPagina_ = true;
                }
            }
        }
        if (nivelPaginas > 0 && cambio <= nivelPaginas) {
            ++instancia_;
            // The group's first page belongs to it even when opened before.
            if (!paginas_.empty() && soloCabecera_ && !forzarPagina_) {
                paginas_.back().instancia = instancia_;
            }
        }
        for (int n = cambio; n <= niveles; ++n) {
            for (const Seccion* s : deTipo(TipoSeccion::CabeceraGrupo, n)) {
                emite(*s, i);
            }
            activos_ = n;
        }
        for (const Seccion* s : deTipo(TipoSeccion::Detalle)) {
            emite(*s, i);
        }
    }
    if (filas > 0 && niveles > 0) {
        cierraGrupos(1, filas - 1);
    }
    forzarPagina_ = false;
    for (const Seccion* s : deTipo(TipoSeccion::PieInforme)) {
        emite(*s, std::max(0, filas - 1));
    }
    if (paginas_.empty()) {
        nuevaPagina(0);
    }

    InformeMaquetado res;
    res.nombre = r_.Name;
    res.anchoPapel = r_.AnchoPapel;
    res.altoPapel = r_.AltoPapel;
    for (size_t i = 0; i < paginas_.size(); ++i) {
        const Pagina& pag = paginas_[i];
        InfoPagina info;
        info.numero = 1;
        info.total = 0;
        for (size_t j = 0; j < paginas_.size(); ++j) {
            if (paginas_[j].instancia == pag.instancia) {
                ++info.total;
                if (j < i) {
                    ++info.numero;
                }
            }
        }
        std::vector<ElementoInforme>& elementos = res.paginas.emplace_back().elementos;
        if (pag.qr.lado > 0) {
            situaQr(pag.qr, elementos);
        }
        for (const Colocada& c : pag.items) {
            situa(c, info, r_.LeftMargin, elementos);
            res.colocadas.push_back({c.s->Name, c.fila, static_cast<int>(i), c.top, c.alto});
        }
        int y = r_.AltoPapel - r_.BottomMargin - altoPie();
        for (const Seccion* s : deTipo(TipoSeccion::PiePagina)) {
            if (!s->Suppress) {
                // The page's foot has the room it was given: nothing in it
                // grows or moves.
                const Colocada c{s, pag.filaPie, y, s->Height,
                                 std::vector<Ajuste>(s->Objetos.size())};
                situa(c, info, r_.LeftMargin, elementos);
                res.colocadas.push_back({s->Name, pag.filaPie, static_cast<int>(i), y, s->Height});
                y += s->Height;
            }
        }
    }
    return res;
}

std::vector<int> Maquetador::filasEnlazadas(Reporte& sub, const ObjetoInforme& o, int fila) const {
    std::vector<int> filas;
    if (!sub.HasSavedData() && !sub.Database.Tables.Item(1).origen()) {
        return filas; // a subreport without data prints nothing
    }
    const DatosInforme& ds = sub.Datos();
    const int n = static_cast<int>(ds.filas.size());
    if (o.Enlace.trimmed().isEmpty()) {
        for (int i = 0; i < n; ++i) {
            filas.push_back(i);
        }
        return filas;
    }
    const QString principal = o.Enlace.section(u'=', 0, 0).trimmed();
    const QString propia = o.Enlace.section(u'=', 1).trimmed();
    QVariant v;
    const int c = ds.indice(propia);
    if (c < 0 || !Contexto(d_, r_.FormulaFields, fila).Campo(principal, v)) {
        throw ErrorDiseno(mensajes::kEnlaceFueraDeDatos.arg(o.Enlace, o.Texto));
    }
    for (int i = 0; i < n; ++i) {
        const QVariant& w = ds.filas[static_cast<size_t>(i)][static_cast<size_t>(c)];
        const bool igual =
            EsNumero(v) && EsNumero(w)
                ? v.toDouble() == w.toDouble()
                : v.toString().trimmed().compare(w.toString().trimmed(), Qt::CaseInsensitive) == 0;
        if (!v.isNull() && !w.isNull() && igual) {
            filas.push_back(i);
        }
    }
    return filas;
}

std::vector<Maquetador::Colocada> Maquetador::maquetaSubinforme(const ObjetoInforme& o,
                                                                int fila) const {
    Reporte& sub = r_.OpenSubreport(o.Texto);
    const std::vector<int> filas = filasEnlazadas(sub, o, fila);
    std::vector<Colocada> r;
    if (filas.empty()) {
        return r;
    }
    const Maquetador m(sub, dev_, lecturas_);
    int y = 0;
    auto anade = [&](TipoSeccion t, int f) {
        for (const Seccion* s : m.deTipo(t)) {
            if (m.visible(*s, f)) {
                r.push_back(m.mide(*s, f));
                r.back().top = y;
                y += r.back().alto;
            }
        }
    };
    anade(TipoSeccion::CabeceraInforme, filas.front());
    for (int f : filas) {
        anade(TipoSeccion::Detalle, f);
    }
    anade(TipoSeccion::PieInforme, filas.back());
    return r;
}

void Maquetador::situa(const Colocada& c, const InfoPagina& info, double x0,
                       std::vector<ElementoInforme>& salida) const {
    const Seccion& s = *c.s;
    if (s.BackColor != kSinColor) {
        ElementoInforme e;
        e.clase = ElementoInforme::Clase::Fondo;
        e.rect = QRectF(x0, c.top, r_.AnchoPapel - r_.LeftMargin - r_.RightMargin, c.alto);
        e.relleno = s.BackColor;
        salida.push_back(std::move(e));
    }
    for (size_t i = 0; i < s.Objetos.size(); ++i) {
        const ObjetoInforme& o = s.Objetos[i];
        if (visible(o, c.fila)) {
            situaObjeto(o, c.fila, x0, c.top, c.ajustes[i], info, salida);
        }
    }
}

void Maquetador::situaObjeto(const ObjetoInforme& o, int fila, double x0, double y0,
                             const Ajuste& a, const InfoPagina& info,
                             std::vector<ElementoInforme>& salida) const {
    ElementoInforme e;
    e.objeto = o.Name;
    e.origen = o.Texto;
    e.rect = QRectF(x0 + o.Left, y0 + o.Top + a.baja, o.Width, o.Height + a.crece);
    e.grosor = o.LineWidth;
    switch (o.Tipo) {
    case TipoObjeto::Caja:
        e.clase = ElementoInforme::Clase::Caja;
        // A filled box without a border colour has no outline; an unfilled
        // one is outlined in black at least.
        e.color = o.BorderColor == kSinColor && o.BackColor != kSinColor ? kSinColor
                  : o.BorderColor == kSinColor                           ? 0
                                                                         : o.BorderColor;
        e.relleno = o.BackColor;
        e.redondeo = o.Redondeo;
        salida.push_back(std::move(e));
        return;
    case TipoObjeto::Linea:
        // A line keeps its own extent: growth moves it, never stretches it.
        e.clase = ElementoInforme::Clase::Linea;
        e.rect.setHeight(o.Height);
        e.color = o.BorderColor == kSinColor ? o.ForeColor : o.BorderColor;
        salida.push_back(std::move(e));
        return;
    case TipoObjeto::Subinforme: {
        const std::vector<Colocada> secciones = maquetaSubinforme(o, fila);
        if (secciones.empty()) {
            return;
        }
        const Maquetador m(r_.OpenSubreport(o.Texto), dev_, lecturas_);
        for (Colocada c : secciones) {
            c.top += static_cast<int>(y0) + o.Top + a.baja;
            m.situa(c, info, x0 + o.Left, salida);
        }
        return;
    }
    case TipoObjeto::Imagen:
        e.imagen = lecturas_.Imagen(valor(o, fila, info).toString());
        if (!e.imagen.isNull()) {
            e.clase = ElementoInforme::Clase::Imagen;
            salida.push_back(std::move(e));
        }
        return;
    default:
        break;
    }
    const auto [v, t] = mostrado(o, fila, info);
    if (o.BackColor != kSinColor) {
        ElementoInforme fondo = e;
        fondo.clase = ElementoInforme::Clase::Relleno;
        fondo.relleno = o.BackColor;
        salida.push_back(std::move(fondo));
    }
    if (o.BorderColor != kSinColor) {
        ElementoInforme marco = e;
        marco.clase = ElementoInforme::Clase::Marco;
        marco.color = o.BorderColor;
        salida.push_back(std::move(marco));
    }
    if (t.isEmpty()) {
        return;
    }
    e.clase = ElementoInforme::Clase::Texto;
    e.color = o.ForeColor;
    e.fuente = o.Font;
    e.banderas = banderas(o, v);
    e.margen = relleno(o);
    e.numero = EsNumero(v);
    e.texto = t;
    // A text that may not grow is cut where its box ends, with an ellipsis
    // that says so, rather than run over the next column or off the paper. A
    // figure is never cut: a shortened amount would be a wrong one.
    if (!o.CanGrow && !e.numero) {
        e.texto = recortado(e);
    }
    salida.push_back(std::move(e));
}

QString Maquetador::recortado(const ElementoInforme& e) const {
    const double ancho = CajaTexto(e, k_).width();
    QStringList lineas = e.texto.split(u'\n');
    for (QString& l : lineas) {
        l = lecturas_.Recorta(e.fuente, ancho, l);
    }
    return lineas.join(u'\n');
}

} // namespace

QFont FuenteQt(const Fuente& f) {
    QFont q(f.familia);
    q.setPointSizeF(f.puntos);
    q.setBold(f.negrita);
    q.setItalic(f.cursiva);
    return q;
}

QRectF EnDispositivo(const QRectF& twips, double k) {
    return QRectF(twips.x() * k, twips.y() * k, twips.width() * k, twips.height() * k);
}

QRectF CajaTexto(const ElementoInforme& e, double k) {
    const double margen = e.margen * k;
    return EnDispositivo(e.rect, k).adjusted(margen, 0, -margen, 0);
}

namespace bandaqr {

int ZonaSilencio(int ladoModulos) {
    return ladoModulos > 0 ? std::max(kZonaMinima, (4 * kLado + ladoModulos - 1) / ladoModulos)
                           : kZonaMinima;
}

int AltoLeyenda(const Fuente& f) {
    return static_cast<int>(std::ceil(f.puntos * 20 * 1.5));
}

int Alto(const Fuente& f, int ladoModulos) {
    return 2 * AltoLeyenda(f) + 2 * ZonaSilencio(ladoModulos) + kLado + kSeparacion;
}

} // namespace bandaqr

double UnidadesPorTwip(const QPaintDevice& dispositivo) {
    return dispositivo.logicalDpiY() / 1440.0;
}

InformeMaquetado MaquetaInforme(Reporte& reporte, const QPaintDevice& medidas) {
    LecturasMaqueta lecturas(medidas);
    Maquetador m(reporte, medidas, lecturas);
    return m.Ejecuta();
}

} // namespace vk::informe
