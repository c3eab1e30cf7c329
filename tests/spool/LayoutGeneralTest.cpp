// The generic layout ("MATRICIAL") byte for byte on a fixed company: one
// page, a description in pieces, an invoice across pages, two invoices in
// one run, zero lines with residues and no receipts, the delivery notes.
#include "EmpresaSpool.h"

#include <LayoutsTexto.h>
#include <MensajesSpool.h>
#include <QFile>

namespace vk::prueba {
namespace {

const QDate kDia(2026, 3, 10);

class LayoutGeneral : public PruebaMotores {
protected:
    void SetUp() override {
        s = std::make_unique<EmpresaSpool>(GetParam());
        const qint32 fco =
            s->formaPago(QStringLiteral("Giro a 30 y 60 días"), {{30, 50}, {60, 50}});
        cliente = s->cliente(QStringLiteral("Ferretería"), QStringLiteral("Sánchez, S.L."),
                             QStringLiteral("B46123456"), fco);
    }
    QByteArray imprime(const QVector<qint32>& ids) {
        return s->imprime(msFacturaSpoolMatricial, ids);
    }
    std::unique_ptr<EmpresaSpool> s;
    qint32 cliente = 0;
};

TEST_P(LayoutGeneral, OnePageInvoiceWithDiscountsAndTwoVatSlots) {
    const qint32 a = s->albaran(
        cliente, kDia,
        {{.des = QStringLiteral("Tornillo hexagonal 8x40"), .uni = 250, .precio = 0.12},
         {.des = QStringLiteral("Taladro percutor 750 W"),
          .uni = 2,
          .precio = 89.9,
          .dto1 = 10,
          .dto2 = 5},
         {.des = QStringLiteral("Guantes de nitrilo"), .uni = 12, .precio = 3.25, .dto1 = 15},
         {.des = QStringLiteral("Manual de uso"),
          .uni = 1,
          .precio = 12,
          .dto2 = 2.5,
          .familia = 3}});
    const qint32 id = s->factura(cliente, kDia, {a}, 3, 2);
    s->e().cn().Execute(QStringLiteral("UPDATE Fav SET Fav_Obs = 'Entregar por la mañana' WHERE "
                                       "Fav_Id = ?"),
                        {id});
    ComparaConEsperado(imprime({id}), QStringLiteral("matricial-una-pagina"));
    EXPECT_TRUE(s->mensajes().isEmpty());
}

TEST_P(LayoutGeneral, DescriptionInPiecesLongWordAndExcessBeyondElevenPieces) {
    // Twenty-two sentences need more than eleven pieces of 42.
    QString larga;
    for (int i = 1; i <= 22; ++i) {
        larga += QStringLiteral("Frase %1 del texto largo. ").arg(i);
    }
    larga += QStringLiteral("FINAL QUE SE PIERDE");
    const qint32 a = s->albaran(
        cliente, kDia,
        {// Lav_Des and the extension join with no blank between them.
         {.des = QStringLiteral("Juego de brocas para metal y madera "),
          .uni = 3,
          .precio = 24.5,
          .ampliades = QStringLiteral(" con estuche de aluminio reforzado, ideal para taller y "
                                      "obra")},
         // A word wider than the column stays whole: cut on the first line
         // only by the column itself.
         {.des =
              QStringLiteral("Referencia ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789ABCDEFGHIJKLMNOP fin"),
          .uni = 1,
          .precio = 5},
         {.des = QStringLiteral("X"), .uni = 1, .precio = 1, .ampliades = larga}});
    const qint32 id = s->factura(cliente, kDia, {a});
    const QByteArray bytes = imprime({id});
    ComparaConEsperado(bytes, QStringLiteral("matricial-trozos"));
    EXPECT_FALSE(bytes.contains("FINAL"));
    EXPECT_TRUE(bytes.contains("Frase 17 del\r\n"));
    EXPECT_FALSE(bytes.contains("Frase 18"));
    EXPECT_TRUE(bytes.contains("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789ABCDEFGHIJKLMNOP"));
}

TEST_P(LayoutGeneral, InvoiceAcrossPagesCarriesNoTotalsOnTheFirstPage) {
    std::vector<LineaSpool> lineas;
    for (int i = 1; i <= 45; ++i) {
        lineas.push_back(
            {.des = QStringLiteral("Artículo de catálogo %1").arg(i, 2, 10, QLatin1Char('0')),
             .uni = static_cast<double>(i),
             .precio = 1.5});
    }
    const qint32 id = s->factura(cliente, kDia, {s->albaran(cliente, kDia, lineas)});
    const QByteArray bytes = imprime({id});
    ComparaConEsperado(bytes, QStringLiteral("matricial-varias-paginas"));
    EXPECT_EQ(bytes.count("---BRUTO---"), 1);
    EXPECT_EQ(bytes.count("Pagina.......: "), 2);
}

TEST_P(LayoutGeneral, PiecesThatFillThePageBringTheHeadBeforeTheFoot) {
    std::vector<LineaSpool> lineas;
    for (int i = 1; i <= 39; ++i) {
        lineas.push_back({.des = QStringLiteral("Línea %1").arg(i), .uni = 1, .precio = 2});
    }
    // Its main line is the 40th; its two further pieces reach 42.
    lineas.push_back({.des = QStringLiteral("Última línea con una descripción que ocupa tres "
                                            "piezas del ancho de la columna de concepto"),
                      .uni = 1,
                      .precio = 2});
    const qint32 id = s->factura(cliente, kDia, {s->albaran(cliente, kDia, lineas)});
    const QByteArray bytes = imprime({id});
    ComparaConEsperado(bytes, QStringLiteral("matricial-pagina-llena"));
    // The second page holds the head and then the foot.
    const QByteArray segunda = bytes.mid(bytes.indexOf('\f'));
    EXPECT_TRUE(segunda.contains("Pagina.......: 2"));
    EXPECT_TRUE(segunda.contains("---BRUTO---"));
    EXPECT_FALSE(segunda.contains("  1,00 "));
}

TEST_P(LayoutGeneral, TwoInvoicesInOneRunGoOnWithThePageNumber) {
    const qint32 a = s->factura(
        cliente, kDia,
        {s->albaran(cliente, kDia,
                    {{.des = QStringLiteral("Cemento cola"), .uni = 10, .precio = 7.4}})});
    const qint32 b = s->factura(
        cliente, kDia.addDays(1),
        {s->albaran(cliente, kDia.addDays(1),
                    {{.des = QStringLiteral("Llana dentada"), .uni = 2, .precio = 6.15}})});
    const QByteArray bytes = imprime({b, a});
    ComparaConEsperado(bytes, QStringLiteral("matricial-dos-facturas"));
    EXPECT_TRUE(bytes.contains("Pagina.......: 2"));
    // The group change sends its form feed and the head of page 2 its own.
    EXPECT_TRUE(bytes.contains("\f\f\x12"));
}

TEST_P(LayoutGeneral, ZeroLinesResiduesAndNoReceipts) {
    const qint32 a = s->albaran(
        cliente, kDia,
        {{.des = QStringLiteral("Batería 12 V 60 Ah"), .uni = 2, .precio = 65, .resDes = 1.5},
         {.des = QStringLiteral("Portes incluidos"), .uni = 0, .precio = 0},
         {.des = QStringLiteral(""), .uni = 1, .precio = 3}});
    const qint32 id = s->factura(cliente, kDia, {a});
    s->e().cn().Execute(QStringLiteral("DELETE FROM Rec WHERE Rec_IdFac = ?"), {id});
    const QByteArray bytes = imprime({id});
    ComparaConEsperado(bytes, QStringLiteral("matricial-ceros-residuos-sin-recibos"));
    EXPECT_TRUE(bytes.contains("** Eliminacion residuos O.M. 18/01/02 1,50 **"));
}

TEST_P(LayoutGeneral, DeliveryNotesPrintOnlyWhenAsked) {
    const qint32 a = s->albaran(
        cliente, kDia,
        {{.des = QStringLiteral("Pintura plástica blanca 15 l"), .uni = 2, .precio = 48.9},
         {.des = QStringLiteral("Rodillo antigota"), .uni = 2, .precio = 4.2}});
    const qint32 b =
        s->albaran(cliente, kDia.addDays(2),
                   {{.des = QStringLiteral("Cinta de carrocero"), .uni = 6, .precio = 1.1}});
    const qint32 id = s->factura(cliente, kDia.addDays(2), {a, b});
    s->f().ImprimeAlbaran = true;
    const QByteArray con = imprime({id});
    ComparaConEsperado(con, QStringLiteral("matricial-con-albaranes"));
    EXPECT_EQ(con.count("Albar\xa0n n\xa7: "), 2);
    s->f().ImprimeAlbaran = false;
    const QByteArray sin = imprime({id});
    ComparaConEsperado(sin, QStringLiteral("matricial-sin-albaranes"));
    EXPECT_FALSE(sin.contains("Albar"));
}

TEST_P(LayoutGeneral, TooManyQuantityDecimalsWarnAndPrintSix) {
    s->e().parametro(QStringLiteral("par_deccan"), 7);
    const qint32 id = s->factura(
        cliente, kDia,
        {s->albaran(cliente, kDia, {{.des = QStringLiteral("Cable"), .uni = 1.5, .precio = 2}})});
    const QByteArray bytes = imprime({id});
    EXPECT_EQ(s->mensajes(), QStringList{mensajes::kDecimalesCantidad});
    EXPECT_TRUE(bytes.contains("\r\n1,500000 Cable")) << Legible(bytes).toStdString();
    s->e().parametro(QStringLiteral("par_deccan"), 0);
    EXPECT_TRUE(imprime({id}).contains("\r\n      2, Cable"));
    EXPECT_TRUE(s->mensajes().isEmpty());
}

TEST_P(LayoutGeneral, CharactersTheCodePageLacksKeepTheColumns) {
    // "€" becomes "EUR", "œ" "oe" and "…" "..." before the description is
    // padded and cut, so the price and the amount stay in their columns.
    const qint32 a =
        s->albaran(cliente, kDia,
                   {{.des = QStringLiteral("Tasa 5 €"), .uni = 1, .precio = 5},
                    {.des = QStringLiteral("Tasa 5 EUR"), .uni = 1, .precio = 5},
                    {.des = QStringLiteral("Manœuvre… del lote Nº 7 € con recargo fijo"),
                     .uni = 2,
                     .precio = 3},
                    {.des = QStringLiteral("Tornillo"), .uni = 2, .precio = 3}});
    const qint32 id = s->factura(cliente, kDia, {a});
    const QByteArray bytes = imprime({id});
    QList<QByteArray> cuerpo;
    for (const QByteArray& l : bytes.split('\n')) {
        if (l.contains("Tasa 5") || l.contains("Man") || l.contains("Tornillo")) {
            cuerpo << l;
        }
    }
    ASSERT_EQ(cuerpo.size(), 4) << Legible(bytes).toStdString();
    EXPECT_EQ(cuerpo[0], cuerpo[1]);
    EXPECT_TRUE(cuerpo[2].contains("Manoeuvre... del lote N\xa7 7 EUR con "))
        << Legible(bytes).toStdString();
    EXPECT_EQ(cuerpo[2].size(), cuerpo[3].size()) << Legible(bytes).toStdString();
    EXPECT_EQ(cuerpo[2].right(35), cuerpo[3].right(35));
    EXPECT_FALSE(bytes.contains('?'));
}

VK_EN_AMBOS_MOTORES(LayoutGeneral);

} // namespace
} // namespace vk::prueba
