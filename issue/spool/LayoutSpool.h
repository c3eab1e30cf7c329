// The skeleton of the text layouts of impact printers: one pass over the
// invoice rows, a head at the start of every page, the lines of the delivery
// notes and a foot per invoice, written line by line to the suite's spool
// class. The generic layout ("MATRICIAL") is this class as it stands; a
// member that differs in figures passes other Figuras, one that differs in
// behaviour overrides the hooks.
#pragma once

#include "ControlImpresora.h"
#include "Estacionario.h"

#include <ClsSpool.h>
#include <QStringList>
#include <QVector>
#include <Recordset.h>
#include <VKFACVENTAS.h>
#include <functional>
#include <memory>

namespace vk::spool {

inline const QString kOrdenFactura =
    QStringLiteral("Fav.Fav_Id, Cav.Cav_Fecha, Cav.Cav_Serie, Cav.Cav_Numero, Lav.Lav_Orden");

struct Figuras {
    QString clave; // the template key: names the stationery file
    // Lines of body per page and width of the description; the table may
    // change them for an installation's paper.
    int nLimite = 42;
    int nAncho = 42;
    QString orden = kOrdenFactura; // the group change needs Fav_Id first
    bool imprimeAlbaran = true;    // honours the facade's ImprimeAlbaran
    bool parteDescripcion = true;  // word break; else one line cut to the width
    int maxTrozos = 11;            // pieces of a description; the excess is lost
    QString mascaraCantidad;       // empty: "0." and par_deccan zeros, in 8
    QString mascaraPrecio = QStringLiteral("##,##0.00");
    QString mascaraIva = QStringLiteral(" #0");
    QString separadorDescripcion; // between Lav_Des and Lav_Ampliades
    // The member's own blank lines and offsets, over the skeleton's.
    Estacionario estacionario;
};

class LayoutSpool {
public:
    explicit LayoutSpool(Figuras figuras);
    virtual ~LayoutSpool();
    LayoutSpool(const LayoutSpool&) = delete;
    LayoutSpool& operator=(const LayoutSpool&) = delete;

    // Prints the invoices of vIds. Never throws: a failure ends in a message
    // box, with the spool closed when it was open, and returns false.
    bool Ejecuta(VKFACVENTAS& f, const QVector<qint32>& vIds);

protected:
    // ---- hooks: the generic layout ----
    virtual void Cabecera();
    virtual void Grupo() {}        // before the delivery note of a row (works headings)
    virtual void Albaran();        // the delivery note line
    virtual void Linea();          // the row's line and its further pieces
    virtual void Relleno();        // foot: fill the page, residues
    virtual void Totales();        // foot on the row of the ended invoice
    virtual void SaltoPagina() {}  // a page ends inside an invoice
    virtual void NuevaFactura() {} // group change: a member's invoice state
    virtual bool Imprimible() const { return true; }
    virtual QString MascaraCantidad() const;
    virtual QString Observaciones() const;

    // ---- pieces of the generic blocks, for members ----
    void InicioCabecera(); // page number, form feed, leaves condensed mode
    // The n blank lines that place the head on the form. On an invoice's
    // first page its tax QR legend (LineasQr) takes the first of them, or
    // all of them and as many more as it needs.
    void AntesCabecera(int n);
    void BloqueCliente(const QString& prefijo = {});
    void TituloColumnas();
    QString LineaGeneral(const QStringList& aDes) const;
    void TablaIva(int& usadas); // rows of slots 1 to 3 and the second discount
    QString FilaIva(int slot) const;
    void BloquePagos();
    // The n blank lines of a gap of the foot that keeps the next block on its
    // line; the first of them carry the invoice's VAT mention.
    void Hueco(int n);

    // ---- writing ----
    void Envia(const QString& texto);        // printline as it stands
    void Escribe(const QString& texto = {}); // the text and "\r\n"
    void Blancos(int n);
    void NuevaPagina(); // a page break inside an invoice, then the head
    // One further line of the row: nLinea goes up and the head comes at once
    // when the page is full.
    void Continuacion(const QString& texto);
    void Continuaciones(const QStringList& aDes, int desde = 1);

    // ---- the row ----
    Campo C(const char* nombre) const;
    // Text of the row as the printer prints it (AjustaCodigoPagina): columns
    // are measured on what reaches the paper.
    QString T(const char* nombre) const;
    QString Texto(const Campo& campo) const;
    QString Texto(const QString& texto) const;
    double D(const char* nombre) const;
    qint64 N(const char* nombre) const;
    QString Fecha(const char* nombre, const QString& mascara = QStringLiteral("dd/mm/yyyy")) const;
    QString DescripcionLinea() const;
    QStringList Trozos(const QString& texto) const;
    QString TextoDescuento() const;
    QStringList Direccion() const; // three lines
    QStringList Pagos() const;     // FormaPago split on "#"
    int E(const char* nombre) const { return est_(nombre); }
    qint64 Parametro(const char* nombre) const;
    BdSesion& Bd() const;
    VKFACVENTAS& F() const { return *f_; }

    Figuras fig_;
    Estacionario est_;
    Recordset rs_;
    int nLimite = 0;
    int nAncho = 0;
    int nLinea = 0;
    int nPagina = 0;
    bool bCabecera = false;
    qint32 nIdAnterior = 0;
    QString sAlbaran;
    double dResiduos = 0;
    double dSuma = 0; // Lav_importe of the invoice printed so far
    QString sMascara;
    bool bSaltoHecho = false; // the page already ended with its form feed
    QString codigoPagina_;    // the printer's, read when the run starts
    // Lines of the ended invoice's VAT mention not printed yet: a gap of the
    // foot with room for them all takes them, or they follow the foot.
    QStringList mencion_;

private:
    QString Donde(qsizetype nIds) const; // WHERE and ORDER BY of the rows
    void Recorre();
    void Pie();

    VKFACVENTAS* f_ = nullptr;
    std::unique_ptr<ClsSpool> spool_;
    bool abierto_ = false;
};

// The word break: while the piece in work is wider than the column and
// fewer than maxTrozos pieces exist, it is cut at the last blank within the
// column. A word wider than the column finds none and stays whole; what is
// left when maxTrozos pieces exist is lost.
QStringList PartePalabras(const QString& texto, int ancho, int maxTrozos);

// A title centred in a run of dashes of that width ("---CONCEPTO---").
QString Centrado(const QString& titulo, int ancho);

// The invoice's legal VAT mention (MencionIva of the row) in the code page,
// broken at blanks into lines of at most `ancho` (a longer word is cut into
// lines of that width); none when the invoice has no mention.
QStringList LineasMencionIva(const Recordset& rs, int ancho, const QString& codigoPagina);

// The tax QR of an invoice as text: an impact printer's text layout draws no
// code, so it prints what the code holds. "QR tributario:", the URL cut into
// lines of at most `ancho` characters (it has no blanks to break at), and
// "VERI*FACTU"; none when the URL is empty (no record in force).
QStringList LineasQr(const QString& url, int ancho);

// The n blank lines of a gap of the foot (none for n <= 0), so that what
// follows the gap stays on its line. When the lines of the mention fit in
// the gap they take its first lines and leave the list; otherwise they stay
// for the caller to print after the foot. `escribe` sends a text and its
// line end.
void HuecoConMencion(const std::function<void(const QString&)>& escribe, int n,
                     QStringList& mencion);

} // namespace vk::spool
