#include "HojaXlsx.h"

#include "MensajesInforme.h"

#include <Error.h>
#include <Formato.h>
#include <QDateTime>
#include <QHash>
#include <QRegularExpression>
#include <algorithm>
#include <memory>
#include <xlsxwriter.h>

namespace vk::informe {

namespace {

// Rows of the sheet: the title, a blank row, the headings, the data.
constexpr int kFilaTitulo = 0;
constexpr int kFilaCabeceras = 2;
constexpr double kAnchoMinimo = 8;
constexpr double kAnchoMaximo = 60;

QString formatoDe(const ColumnaListado& c) {
    if (!c.formato.isEmpty()) {
        return c.formato;
    }
    switch (c.tipo) {
    case TipoCelda::Numero:
        return kFormatoImporte;
    case TipoCelda::Fecha:
        return kFormatoFecha;
    case TipoCelda::Texto:
        break;
    }
    return {};
}

QDateTime fechaDe(const QVariant& v) {
    if (v.typeId() == QMetaType::QDateTime) {
        return v.toDateTime();
    }
    const QDate d = v.toDate();
    return d.isValid() ? QDateTime(d, QTime(0, 0)) : QDateTime();
}

QString nombreHoja(const ListadoHoja& l) {
    return l.hoja.isEmpty() ? QStringLiteral("Listado") : l.hoja;
}

// Everything that can be wrong with a listing, found before a byte is
// written.
void compruebaListado(const ListadoHoja& l) {
    const int columnas = static_cast<int>(l.columnas.size());
    if (columnas == 0) {
        throw ErrorDiseno(mensajes::kListadoSinColumnas.arg(l.titulo));
    }
    static const QRegularExpression prohibidos(QStringLiteral("[\\[\\]:*?/\\\\]"));
    const QString hoja = nombreHoja(l);
    if (hoja.size() > 31 || hoja.contains(prohibidos) || hoja.startsWith(u'\'') ||
        hoja.endsWith(u'\'')) {
        throw ErrorDiseno(mensajes::kHojaNoValida.arg(hoja));
    }
    for (const ColumnaListado& c : l.columnas) {
        if (c.total && c.tipo != TipoCelda::Numero) {
            throw ErrorDiseno(mensajes::kTotalSinNumeros.arg(c.titulo));
        }
    }
    for (size_t f = 0; f < l.filas.size(); ++f) {
        const std::vector<QVariant>& fila = l.filas[f];
        if (static_cast<int>(fila.size()) != columnas) {
            throw ErrorDiseno(mensajes::kFilaIncompleta.arg(f + 1).arg(fila.size()).arg(columnas));
        }
        for (int c = 0; c < columnas; ++c) {
            const QVariant& v = fila[static_cast<size_t>(c)];
            const ColumnaListado& col = l.columnas[static_cast<size_t>(c)];
            if (v.isNull()) {
                continue;
            }
            if (col.tipo == TipoCelda::Numero && !EsNumero(v)) {
                throw ErrorDiseno(mensajes::kNoEsNumero.arg(v.toString(), col.titulo).arg(f + 1));
            }
            if (col.tipo == TipoCelda::Fecha && !fechaDe(v).isValid()) {
                throw ErrorDiseno(mensajes::kNoEsFecha.arg(v.toString(), col.titulo).arg(f + 1));
            }
        }
    }
    if (l.grafico) {
        const auto fuera = [&](int c) { return c < 0 || c >= columnas; };
        if (fuera(l.grafico->columnaEtiquetas) || fuera(l.grafico->columnaValores)) {
            throw ErrorDiseno(mensajes::kGraficoSinColumnas);
        }
        const ColumnaListado& valores = l.columnas[static_cast<size_t>(l.grafico->columnaValores)];
        if (valores.tipo != TipoCelda::Numero) {
            throw ErrorDiseno(mensajes::kGraficoSinNumeros.arg(valores.titulo));
        }
    }
}

// The width of a column fitted to its heading and to its values as the
// sheet shows them (roughly: a figure gains its thousands separators).
double anchoAjustado(const ListadoHoja& l, int c) {
    const ColumnaListado& col = l.columnas[static_cast<size_t>(c)];
    if (col.ancho > 0) {
        return col.ancho;
    }
    qsizetype largo = col.titulo.size();
    for (const std::vector<QVariant>& fila : l.filas) {
        const QVariant& v = fila[static_cast<size_t>(c)];
        switch (col.tipo) {
        case TipoCelda::Texto:
            largo = std::max(largo, v.toString().size());
            break;
        case TipoCelda::Numero: {
            const qsizetype cifras = QString::number(std::abs(v.toDouble()), 'f', 0).size();
            largo = std::max(largo, cifras + cifras / 3 + 5); // separators, decimals, sign, "€"
            break;
        }
        case TipoCelda::Fecha:
            largo = std::max<qsizetype>(largo, 10);
            break;
        }
    }
    return std::clamp(static_cast<double>(largo) + 2, kAnchoMinimo, kAnchoMaximo);
}

lxw_chart_type tipoGrafico(TipoGrafico t) {
    switch (t) {
    case TipoGrafico::Barras:
        return LXW_CHART_BAR;
    case TipoGrafico::Lineas:
        return LXW_CHART_LINE;
    case TipoGrafico::Circular:
        return LXW_CHART_PIE;
    case TipoGrafico::Columnas:
        break;
    }
    return LXW_CHART_COLUMN;
}

struct LiberaLibro {
    void operator()(lxw_workbook* w) const { lxw_workbook_free(w); }
};

// One workbook being written: its formats by use, and the checks of every
// call into the library.
class Libro {
public:
    Libro(const ListadoHoja& l, const QString& fichero) : l_(l), fichero_(fichero) {
        libro_.reset(workbook_new(fichero.toLocal8Bit().constData()));
        if (!libro_) {
            throw ErrorDispositivo(mensajes::kNoSeEscribeHoja.arg(fichero_));
        }
        hoja_ = workbook_add_worksheet(libro_.get(), nombreHoja(l).toUtf8().constData());
        if (hoja_ == nullptr) {
            throw ErrorDiseno(mensajes::kHojaNoValida.arg(nombreHoja(l)));
        }
    }

    void escribe();

private:
    void comprueba(lxw_error e) const {
        if (e != LXW_NO_ERROR) {
            throw ErrorDispositivo(mensajes::kNoSeEscribeHoja.arg(fichero_),
                                   QString::fromUtf8(lxw_strerror(e)));
        }
    }
    // The format of a kind of cell, made once: by number format, boldness
    // and border.
    lxw_format* formato(const QString& numero, bool negrita = false, bool borde = false);
    void escribeCelda(int fila, int c, const QVariant& v);
    void escribeTotales(int fila);
    void insertaGrafico(int primera, int ultima);

    const ListadoHoja& l_;
    QString fichero_;
    std::unique_ptr<lxw_workbook, LiberaLibro> libro_;
    lxw_worksheet* hoja_ = nullptr;
    QHash<QString, lxw_format*> formatos_;
};

lxw_format* Libro::formato(const QString& numero, bool negrita, bool borde) {
    const QString clave = QStringLiteral("%1|%2|%3").arg(numero).arg(negrita).arg(borde);
    if (lxw_format* f = formatos_.value(clave)) {
        return f;
    }
    lxw_format* f = workbook_add_format(libro_.get());
    if (!numero.isEmpty()) {
        format_set_num_format(f, numero.toUtf8().constData());
    }
    if (negrita) {
        format_set_bold(f);
    }
    if (borde) {
        format_set_top(f, LXW_BORDER_THIN);
    }
    formatos_.insert(clave, f);
    return f;
}

void Libro::escribeCelda(int fila, int c, const QVariant& v) {
    const ColumnaListado& col = l_.columnas[static_cast<size_t>(c)];
    lxw_format* f = formato(formatoDe(col));
    const auto r = static_cast<lxw_row_t>(fila);
    const auto k = static_cast<lxw_col_t>(c);
    if (v.isNull()) {
        return;
    }
    switch (col.tipo) {
    case TipoCelda::Texto:
        comprueba(worksheet_write_string(hoja_, r, k, v.toString().toUtf8().constData(), f));
        return;
    case TipoCelda::Numero:
        comprueba(worksheet_write_number(hoja_, r, k, v.toDouble(), f));
        return;
    case TipoCelda::Fecha: {
        const QDateTime d = fechaDe(v);
        lxw_datetime x{d.date().year(),   d.date().month(),
                       d.date().day(),    d.time().hour(),
                       d.time().minute(), d.time().second() + d.time().msec() / 1000.0};
        comprueba(worksheet_write_datetime(hoja_, r, k, &x, f));
        return;
    }
    }
}

// The sums as formulas, so that an edited figure updates them, each with its
// value worked out here for readers that do not calculate.
void Libro::escribeTotales(int fila) {
    const int primera = kFilaCabeceras + 1;
    const int ultima = fila - 1;
    if (!l_.columnas.front().total && !l_.rotuloTotal.isEmpty()) {
        comprueba(worksheet_write_string(hoja_, static_cast<lxw_row_t>(fila), 0,
                                         l_.rotuloTotal.toUtf8().constData(),
                                         formato({}, true, true)));
    }
    for (size_t c = 0; c < l_.columnas.size(); ++c) {
        const ColumnaListado& col = l_.columnas[c];
        if (!col.total) {
            continue;
        }
        const auto r = static_cast<lxw_row_t>(fila);
        const auto k = static_cast<lxw_col_t>(c);
        lxw_format* f = formato(formatoDe(col), true, true);
        if (l_.filas.empty()) {
            // A sum over no rows would be a range over the totals cell itself.
            comprueba(worksheet_write_number(hoja_, r, k, 0, f));
            continue;
        }
        double suma = 0;
        for (const std::vector<QVariant>& valores : l_.filas) {
            suma += valores[c].toDouble();
        }
        char desde[16];
        char hasta[16];
        lxw_rowcol_to_cell(desde, static_cast<lxw_row_t>(primera), k);
        lxw_rowcol_to_cell(hasta, static_cast<lxw_row_t>(ultima), k);
        const QByteArray formula = QStringLiteral("=SUM(%1:%2)")
                                       .arg(QLatin1String(desde), QLatin1String(hasta))
                                       .toLatin1();
        comprueba(worksheet_write_formula_num(hoja_, r, k, formula.constData(), f, suma));
    }
}

void Libro::insertaGrafico(int primera, int ultima) {
    const GraficoListado& g = *l_.grafico;
    const ColumnaListado& valores = l_.columnas[static_cast<size_t>(g.columnaValores)];
    lxw_chart* grafico = workbook_add_chart(libro_.get(), tipoGrafico(g.tipo));
    const QByteArray hoja = nombreHoja(l_).toUtf8();
    lxw_chart_series* serie = chart_add_series(grafico, nullptr, nullptr);
    chart_series_set_categories(serie, hoja.constData(), static_cast<lxw_row_t>(primera),
                                static_cast<lxw_col_t>(g.columnaEtiquetas),
                                static_cast<lxw_row_t>(ultima),
                                static_cast<lxw_col_t>(g.columnaEtiquetas));
    chart_series_set_values(serie, hoja.constData(), static_cast<lxw_row_t>(primera),
                            static_cast<lxw_col_t>(g.columnaValores),
                            static_cast<lxw_row_t>(ultima),
                            static_cast<lxw_col_t>(g.columnaValores));
    chart_series_set_name_range(serie, hoja.constData(), kFilaCabeceras,
                                static_cast<lxw_col_t>(g.columnaValores));
    chart_title_set_name(grafico,
                         (g.titulo.isEmpty() ? valores.titulo : g.titulo).toUtf8().constData());
    if (g.tipo != TipoGrafico::Circular) {
        // One series: its name is the title already. The value axis shows
        // the figures as the column does.
        chart_legend_set_position(grafico, LXW_CHART_LEGEND_NONE);
        lxw_chart_axis* eje = g.tipo == TipoGrafico::Barras ? grafico->x_axis : grafico->y_axis;
        chart_axis_set_num_format(eje, formatoDe(valores).toUtf8().constData());
    }
    comprueba(worksheet_insert_chart(hoja_, kFilaCabeceras,
                                     static_cast<lxw_col_t>(l_.columnas.size() + 1), grafico));
}

void Libro::escribe() {
    const int columnas = static_cast<int>(l_.columnas.size());
    const QByteArray titulo = l_.titulo.toUtf8();
    if (!l_.titulo.isEmpty()) {
        lxw_format* f = workbook_add_format(libro_.get());
        format_set_bold(f);
        format_set_font_size(f, 14);
        comprueba(worksheet_write_string(hoja_, kFilaTitulo, 0, titulo.constData(), f));
        lxw_doc_properties propiedades{};
        propiedades.title = const_cast<char*>(titulo.constData());
        comprueba(workbook_set_properties(libro_.get(), &propiedades));
    }
    lxw_format* cabecera = workbook_add_format(libro_.get());
    format_set_bold(cabecera);
    format_set_bottom(cabecera, LXW_BORDER_THIN);
    format_set_bg_color(cabecera, 0xD9D9D9);
    lxw_format* cabeceraNumero = workbook_add_format(libro_.get());
    format_set_bold(cabeceraNumero);
    format_set_bottom(cabeceraNumero, LXW_BORDER_THIN);
    format_set_bg_color(cabeceraNumero, 0xD9D9D9);
    format_set_align(cabeceraNumero, LXW_ALIGN_RIGHT);
    for (int c = 0; c < columnas; ++c) {
        const ColumnaListado& col = l_.columnas[static_cast<size_t>(c)];
        comprueba(worksheet_write_string(
            hoja_, kFilaCabeceras, static_cast<lxw_col_t>(c), col.titulo.toUtf8().constData(),
            col.tipo == TipoCelda::Numero ? cabeceraNumero : cabecera));
        comprueba(worksheet_set_column(hoja_, static_cast<lxw_col_t>(c), static_cast<lxw_col_t>(c),
                                       anchoAjustado(l_, c), nullptr));
    }
    worksheet_freeze_panes(hoja_, kFilaCabeceras + 1, 0);
    int fila = kFilaCabeceras + 1;
    for (const std::vector<QVariant>& valores : l_.filas) {
        for (int c = 0; c < columnas; ++c) {
            escribeCelda(fila, c, valores[static_cast<size_t>(c)]);
        }
        ++fila;
    }
    if (std::any_of(l_.columnas.begin(), l_.columnas.end(),
                    [](const ColumnaListado& c) { return c.total; })) {
        escribeTotales(fila);
    }
    if (l_.grafico && !l_.filas.empty()) {
        insertaGrafico(kFilaCabeceras + 1, fila - 1);
    }
    // Closing writes the file and frees the workbook whatever the outcome.
    const lxw_error e = workbook_close(libro_.release());
    comprueba(e);
}

} // namespace

void EscribeHojaXlsx(const ListadoHoja& listado, const QString& fichero) {
    compruebaListado(listado);
    Libro(listado, fichero).escribe();
}

} // namespace vk::informe
