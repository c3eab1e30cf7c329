// Fixed-width columns and code pages, shared by the printer layouts and the
// exchange files: a column keeps its width in bytes whatever the value.
#include <CodigoPagina.h>
#include <Error.h>
#include <TextoFijo.h>
#include <gtest/gtest.h>

namespace vk {
namespace {

TEST(TextoFijo, TextIsInTheCodePageBeforeItIsMeasured) {
    const QString cp = QStringLiteral("CP850");
    // What CP850 has stays; what it lacks becomes its transliteration.
    EXPECT_EQ(AjustaCodigoPagina(QStringLiteral("Ñandú nº 3"), cp), QStringLiteral("Ñandú nº 3"));
    EXPECT_EQ(AjustaCodigoPagina(QStringLiteral("12,50 €"), cp), QStringLiteral("12,50 EUR"));
    EXPECT_EQ(AjustaCodigoPagina(QStringLiteral("œuvre…"), cp), QStringLiteral("oeuvre..."));
    // One character is one byte on the paper.
    const QString texto = AjustaCodigoPagina(QStringLiteral("Café € œ … 漢"), cp);
    EXPECT_EQ(ConvierteCodigoPagina(texto, cp).size(), texto.size());
    EXPECT_EQ(ConvierteCodigoPagina(fnAlinea(texto, 20, 0), cp).size(), 20);
    // An exchange file in CP1252 keeps the euro sign in its one byte.
    EXPECT_EQ(ConvierteCodigoPagina(QStringLiteral("€ñ"), QStringLiteral("CP1252")),
              QByteArray("\x80\xf1"));
    EXPECT_THROW(AjustaCodigoPagina(QStringLiteral("€"), QStringLiteral("NO-EXISTE-850")),
                 ErrorDispositivo);
}

TEST(TextoFijo, MasksPadToTheWidthAndNeverCut) {
    EXPECT_EQ(Derecha(QStringLiteral("12,50"), 8), QStringLiteral("   12,50"));
    EXPECT_EQ(Izquierda(QStringLiteral("A/7"), 9), QStringLiteral("A/7      "));
    // A value wider than its column pushes the rest of the line.
    EXPECT_EQ(Derecha(QStringLiteral("1.234.567,89"), 10), QStringLiteral("1.234.567,89"));
    EXPECT_EQ(Izquierda(QStringLiteral("Descripción larga"), 5),
              QStringLiteral("Descripción larga"));
    EXPECT_EQ(Cifra(1234.5, QStringLiteral("##,##0.00"), 10), QStringLiteral("  1.234,50"));
    EXPECT_EQ(CifraSi(0, QStringLiteral("##,##0.00"), 10), QString(10, u' '));
    EXPECT_EQ(Cifra(-3.456, QStringLiteral("###,##0.000"), 11), QStringLiteral("     -3,456"));
    EXPECT_EQ(Espacios(-2), QString());
    EXPECT_EQ(TrimBlancos(QStringLiteral("  a b\t ")), QStringLiteral("a b\t"));
}

TEST(TextoFijo, AlineaCutsPadsAndLosesAnOddBlank) {
    EXPECT_EQ(fnAlinea(QStringLiteral("abc"), 3, 0), QStringLiteral("abc"));
    EXPECT_EQ(fnAlinea(QStringLiteral("abcdef"), 4, 1), QStringLiteral("abcd"));
    EXPECT_EQ(fnAlinea(QStringLiteral("ab"), 5, 0), QStringLiteral("ab   "));
    EXPECT_EQ(fnAlinea(QStringLiteral("ab"), 5, 1), QStringLiteral("   ab"));
    EXPECT_EQ(fnAlinea(QStringLiteral("ab"), 6, 2), QStringLiteral("  ab  "));
    // Half the missing blanks on each side: an odd remainder leaves it one
    // short, a remainder of 1 leaves the text as it came.
    EXPECT_EQ(fnAlinea(QStringLiteral("ab"), 7, 2), QStringLiteral("  ab  "));
    EXPECT_EQ(fnAlinea(QStringLiteral("ab"), 3, 9), QStringLiteral("ab"));
}

} // namespace
} // namespace vk
