// The spreadsheet sink: a listing written as an .xlsx workbook with
// libxlsxwriter. A listing is what a report screen or the account list
// exports: a title, column headings, typed rows, a totals row and, where
// asked, a chart of one numeric column by a label column. Toolkit-free: the
// caller describes the listing with plain values.
#pragma once

#include <QString>
#include <QVariant>
#include <optional>
#include <vector>

namespace vk::informe {

// What a column's cells hold. A null value is a blank cell in any column.
enum class TipoCelda {
    Texto,  // written as text, whatever the value
    Numero, // a value held as a number (EsNumero)
    Fecha,  // a QDate or QDateTime, or a text QVariant converts to one
};

// Number formats in the workbook's own notation: ',' groups thousands and '.'
// marks decimals, and the reader's locale shows them its own way (1.234,56 in
// Spain).
inline const QString kFormatoEntero = QStringLiteral("#,##0");
inline const QString kFormatoImporte = QStringLiteral("#,##0.00");
inline const QString kFormatoEuros = QStringLiteral("#,##0.00 \"€\"");
inline const QString kFormatoFecha = QStringLiteral("dd/mm/yyyy");

struct ColumnaListado {
    QString titulo;
    TipoCelda tipo = TipoCelda::Texto;
    // Empty: kFormatoImporte for numbers, kFormatoFecha for dates, none for texts.
    QString formato;
    double ancho = 0;   // characters; 0 fits the heading and the values
    bool total = false; // summed in the totals row (numeric columns only)
};

enum class TipoGrafico {
    Columnas, // vertical bars
    Barras,   // horizontal bars
    Lineas,
    Circular,
};

// A chart of one numeric column by the labels of another, beside the table.
struct GraficoListado {
    TipoGrafico tipo = TipoGrafico::Columnas;
    int columnaEtiquetas = 0; // 0-based, into ListadoHoja::columnas
    int columnaValores = 1;
    QString titulo; // empty: the values column's heading
};

struct ListadoHoja {
    QString titulo; // in bold on the first row; the headings are on the third
    QString hoja;   // the worksheet's name; empty: "Listado"
    std::vector<ColumnaListado> columnas;
    std::vector<std::vector<QVariant>> filas; // one value per column
    // The label of the totals row, in the first column when that one is not
    // summed. The row is there when some column asks for a total.
    QString rotuloTotal = QStringLiteral("Total");
    std::optional<GraficoListado> grafico; // left out when there are no rows
};

// Writes the listing to the file, replacing it. Checks the whole listing
// first, so nothing is written for a listing that does not hold together.
// Throws ErrorDiseno with a Spanish message when a value does not fit its
// column or the chart names columns the listing lacks, ErrorDispositivo when
// the file cannot be written (the library's own text in Detalle()).
void EscribeHojaXlsx(const ListadoHoja& listado, const QString& fichero);

} // namespace vk::informe
