// The report object of the issue code, with the members the legacy report
// engine offered and the issue code relies on: named sections and objects
// with Suppress, Left, Top, Width, Height, HorAlignment, BackColor and a font;
// FormulaFields.GetItemByName(n).Text; Database.Tables.Item(1).SetDataSource;
// HasSavedData, DiscardSavedData, ReadRecords; TopMargin; ReportTitle.
// Positions and sizes are twips (1440 per inch). Toolkit-free: laying out
// and painting are MaquetaInforme's and the sinks' business.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <Recordset.h>
#include <memory>
#include <optional>
#include <tuple>
#include <vector>

namespace vk::informe {

// The engine's values of HorAlignment.
enum AlineacionHorizontal {
    crDefaultAlign = 0, // text left, numbers right
    crLeftAlign = 1,
    crHorCenterAlign = 2,
    crRightAlign = 3,
    crJustified = 4,
};

// Colours are 0xRRGGBB; -1 is no colour (transparent), as in the engine.
constexpr int kSinColor = -1;

struct Fuente {
    QString familia = QStringLiteral("DejaVu Sans");
    double puntos = 9;
    bool negrita = false;
    bool cursiva = false;

    // An order, so that what is worked out per font can be kept by font.
    friend bool operator<(const Fuente& a, const Fuente& b) {
        return std::tie(a.familia, a.puntos, a.negrita, a.cursiva) <
               std::tie(b.familia, b.puntos, b.negrita, b.cursiva);
    }
};

enum class TipoObjeto {
    Campo,    // a column of the row
    Formula,  // a formula field, by name
    Texto,    // literal text
    Especial, // PageNumber, TotalPageCount, PageNofM, PrintDate
    Caja,     // a frame, optionally filled
    Linea,    // a line from (Left, Top) to (Left + Width, Top + Height)
    Imagen,   // a picture; Texto is an expression giving the file path
    // A subreport, by its name in Texto: its detail rows (those whose column
    // matches the main row by Enlace) stacked in the object, which grows.
    Subinforme,
};

class ObjetoInforme {
public:
    QString Name;
    TipoObjeto Tipo = TipoObjeto::Texto;
    bool Suppress = false;
    int Left = 0, Top = 0, Width = 0, Height = 0;
    int HorAlignment = crDefaultAlign;
    int BackColor = kSinColor;
    int ForeColor = 0x000000;
    int BorderColor = kSinColor; // frames of text objects, the pen of boxes and lines
    int LineWidth = 10;          // twips
    int Redondeo = 0;            // corner radius of boxes, twips
    Fuente Font;
    // Texto: the text; Campo: the column; Formula: the formula's name;
    // Especial: the special field; Imagen: an expression of the path.
    QString Texto;
    // A mask of Format ("#,##0.00", "dd/mm/yyyy"), or "moneda" for "1.234,56 €".
    QString Formato;
    bool CanGrow = false;         // wraps and lets its section grow
    bool SuprimeSiCero = false;   // blank when the value is 0 or empty
    bool CompactaBlancos = false; // runs of blanks become one (composed addresses)
    // An expression; the object shows only when it is true (EsVerdadero).
    QString VisibleSi;
    // Subreport link "MainColumn=SubColumn": only the subreport's rows whose
    // SubColumn equals the main row's MainColumn. Empty: all its rows.
    QString Enlace;
};

enum class TipoSeccion {
    CabeceraInforme, // once, at the start
    CabeceraPagina,  // top of every page
    CabeceraGrupo,
    Detalle,
    PieGrupo,
    PiePagina, // bottom of every page
    PieInforme,
};

class Seccion {
public:
    QString Name;
    TipoSeccion Tipo = TipoSeccion::Detalle;
    QString Grupo; // the group of a group header or footer
    bool Suppress = false;
    int Height = 0;
    int BackColor = kSinColor;
    // A group header printed again on each page its group continues on.
    bool RepiteEnCadaPagina = false;
    // A group footer printed at the bottom of the page (totals of an invoice).
    bool AlPie = false;
    QString VisibleSi;
    std::vector<ObjetoInforme> Objetos;

    ObjetoInforme* Busca(const QString& nombre);
    ObjetoInforme& Objeto(const QString& nombre); // throws ErrorDiseno when absent
};

// A grouping of the rows by the value of a column, outermost first.
struct Grupo {
    QString Name;
    QString Campo;
    bool NuevaPaginaDespues = false; // each instance starts a page
    bool ReiniciaPaginas = false;    // page N of M counts within the instance
};

class FormulaField {
public:
    QString Name;
    QString Text;
};

class ColeccionFormulas {
public:
    // Throws ErrorDiseno when the design has no formula of that name, as the
    // engine failed on a misspelt name.
    FormulaField& GetItemByName(const QString& nombre);
    FormulaField* Busca(const QString& nombre);
    const FormulaField* Busca(const QString& nombre) const;
    void Agrega(const QString& nombre, const QString& texto);
    // Sets the text of the formula when the design has it: a design carries
    // only the formulas its layout shows.
    void Asigna(const QString& nombre, const QString& texto);
    int Count() const { return static_cast<int>(items_.size()); }

private:
    std::vector<FormulaField> items_;
};

class ColeccionSecciones {
public:
    Seccion& Item(const QString& nombre); // throws ErrorDiseno when absent
    Seccion& Item(int indice);            // 1-based
    Seccion* Busca(const QString& nombre);
    int Count() const { return static_cast<int>(items_.size()); }
    std::vector<Seccion>& todas() { return items_; }
    const std::vector<Seccion>& todas() const { return items_; }

private:
    std::vector<Seccion> items_;
};

// The rows a report holds: column names and values.
struct DatosInforme {
    QStringList columnas;
    std::vector<std::vector<QVariant>> filas;
    int indice(const QString& columna) const; // case-insensitive, -1 when absent
    // Builds the lookup that indice() uses once the columns are set: the
    // layout asks for columns by name for every object of every row.
    void IndexaColumnas();

private:
    QHash<QString, int> porNombre_; // case-folded name -> its first column
};

class TablaInforme {
public:
    // Binds the rows (the cursor of the issue code; the type is accepted for
    // the legacy call and has no other meaning here).
    void SetDataSource(const Recordset& rs, int tipo = 3);
    const std::optional<Recordset>& origen() const { return origen_; }

private:
    std::optional<Recordset> origen_;
};

class TablasInforme {
public:
    TablaInforme& Item(int indice); // 1-based; one table per report
    int Count() const { return 1; }

private:
    TablaInforme tabla_;
};

struct BaseDatosInforme {
    TablasInforme Tables;
};

// A QR code printed at the top of the first page of each instance of the
// outermost group (each invoice of a run; the whole report when it has no
// groups), in a band reserved above everything else on that page and centred
// between the margins: the page's sections start below the band, so the code
// never stands over a design's objects, whatever the design. Its text is the
// value of a column on the instance's first row; an instance whose value is
// empty prints no code and keeps its layout, and one with a code always
// starts a page.
struct CodigoQr {
    QString Campo;          // the column; empty: the report prints no code
    QString Encima, Debajo; // the legends above and below the code
    Fuente Font{QStringLiteral("DejaVu Sans"), 10, true, false};
};

class Reporte {
public:
    QString Name; // the report name of the design
    QString ReportTitle;
    // Paper and margins in twips (A4 by default).
    int AnchoPapel = 11906, AltoPapel = 16838;
    int TopMargin = 567, BottomMargin = 567, LeftMargin = 567, RightMargin = 567;
    // The issue code sets the width of LiteralDescripcion1 in the figures of
    // the legacy designs (7365 without packages, 6800 with them, 6633, 6400,
    // 7200, 5000). A design drawn at another scale states its own widths for
    // the first two; 0 means the legacy scale.
    int AnchoDescripcionConBultos = 0, AnchoDescripcionSinBultos = 0;
    // The width of a legacy figure on this design: its own figure for the
    // two it states, the others scaled as 7365 is to its width without
    // packages.
    int AnchoDescripcion(int figuraLegada) const;

    CodigoQr Qr;

    std::vector<Grupo> Grupos;
    ColeccionSecciones Sections;
    ColeccionFormulas FormulaFields;
    BaseDatosInforme Database;
    // The subreports in the order their data is bound, each with its own
    // Database.Tables.Item(1).
    std::vector<std::unique_ptr<Reporte>> Subreportes;
    Reporte& Subreport(int indice);                // 1-based; throws ErrorDiseno when absent
    Reporte& OpenSubreport(const QString& nombre); // throws ErrorDiseno when absent

    // The object of that name in any section; throws ErrorDiseno when absent.
    ObjetoInforme& Objeto(const QString& nombre);
    ObjetoInforme* BuscaObjeto(const QString& nombre);

    // The rows read from the data source are kept with the report (saved
    // data) and printed until discarded, even after a new data source is
    // bound: that is why the issue code discards before binding.
    bool HasSavedData() const { return guardados_.has_value(); }
    void DiscardSavedData() { guardados_.reset(); }
    // Reads the bound rows into the saved data, ordered by the groups (a
    // stable sort, so the rows keep their order within a group). Does nothing
    // when there is saved data already. Throws ErrorDiseno without a data source.
    void ReadRecords();
    const DatosInforme& Datos(); // reads the records when needed

private:
    std::optional<DatosInforme> guardados_;
};

} // namespace vk::informe
