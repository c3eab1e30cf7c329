// The pieces the layouts are built from: fixed-width columns through the
// text masks, fnAlinea, the word break and the stationery table with the
// installation's file over it.
#include <Columnas.h>
#include <ErrorBd.h>
#include <Estacionario.h>
#include <Ficheros.h>
#include <LayoutSpool.h>
#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace vk::spool {
namespace {

TEST(Columnas, TextIsInTheCodePageBeforeItIsMeasured) {
    const QString cp = QStringLiteral("CP850");
    // What CP850 has stays; what it lacks becomes its transliteration.
    EXPECT_EQ(AjustaCodigoPagina(QStringLiteral("Ñandú nº 3"), cp), QStringLiteral("Ñandú nº 3"));
    EXPECT_EQ(AjustaCodigoPagina(QStringLiteral("12,50 €"), cp), QStringLiteral("12,50 EUR"));
    EXPECT_EQ(AjustaCodigoPagina(QStringLiteral("œuvre…"), cp), QStringLiteral("oeuvre..."));
    // One character is one byte on the paper.
    const QString texto = AjustaCodigoPagina(QStringLiteral("Café € œ … 漢"), cp);
    EXPECT_EQ(ConvierteCodigoPagina(texto, cp).size(), texto.size());
    EXPECT_EQ(ConvierteCodigoPagina(fnAlinea(texto, 20, 0), cp).size(), 20);
    EXPECT_THROW(AjustaCodigoPagina(QStringLiteral("€"), QStringLiteral("NO-EXISTE-850")), ErrorBd);
}

TEST(Columnas, MasksPadToTheWidthAndNeverCut) {
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
    EXPECT_EQ(Centrado(QStringLiteral("CONCEPTO"), 42),
              QStringLiteral("-----------------CONCEPTO-----------------"));
    EXPECT_EQ(Centrado(QStringLiteral("CONCEPTO"), 43).size(), 43);
}

TEST(Columnas, AlineaCutsPadsAndLosesAnOddBlank) {
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

TEST(Columnas, WordBreakAtTheLastBlankWithinTheColumn) {
    EXPECT_EQ(
        PartePalabras(QStringLiteral("uno dos tres cuatro"), 9, 11),
        (QStringList{QStringLiteral("uno dos"), QStringLiteral("tres"), QStringLiteral("cuatro")}));
    // A blank exactly at the column's last place breaks there.
    EXPECT_EQ(PartePalabras(QStringLiteral("abcd efgh"), 5, 11),
              (QStringList{QStringLiteral("abcd"), QStringLiteral("efgh")}));
    // A word wider than the column finds no blank and stays whole.
    EXPECT_EQ(PartePalabras(QStringLiteral("a larguisimapalabra fin"), 6, 11),
              (QStringList{QStringLiteral("a"), QStringLiteral("larguisimapalabra fin")}));
    // Only character 32 breaks.
    EXPECT_EQ(PartePalabras(QStringLiteral("uno\tdos\ttres"), 5, 11),
              QStringList{QStringLiteral("uno\tdos\ttres")});
    // What does not fit in the pieces allowed is lost.
    EXPECT_EQ(PartePalabras(QStringLiteral("aa bb cc dd"), 3, 3),
              (QStringList{QStringLiteral("aa"), QStringLiteral("bb"), QStringLiteral("cc")}));
    EXPECT_EQ(PartePalabras(QString(), 5, 11), QStringList{QString()});
}

class Medidas : public ::testing::Test {
protected:
    void SetUp() override {
        QDir().mkpath(QDir(fnCarpetaDatos()).filePath(QStringLiteral("spool")));
        ruta = RutaEstacionario(QStringLiteral("plt99"));
    }
    void TearDown() override { QFile::remove(ruta); }
    void escribe(const QByteArray& json) {
        QFile f(ruta);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(json);
    }
    QString error(Estacionario& e) {
        try {
            e.Carga(QStringLiteral("plt99"));
        } catch (const ErrorBd& x) {
            return x.Mensaje();
        }
        return {};
    }
    QString ruta;
};

TEST_F(Medidas, TheInstallationsFileOverridesTheFiguresItNames) {
    EXPECT_TRUE(ruta.endsWith(QStringLiteral("/spool/PLT99.json")));
    Estacionario e{{"lineasAntesCabecera", 6}, {"sangriaRaya", 40}};
    e.Carga(QStringLiteral("plt99")); // no file: the built-in figures
    EXPECT_EQ(e("lineasAntesCabecera"), 6);
    escribe(R"({"lineasAntesCabecera": 2})");
    e.Carga(QStringLiteral("plt99"));
    EXPECT_EQ(e("lineasAntesCabecera"), 2);
    EXPECT_EQ(e("sangriaRaya"), 40);
    EXPECT_THROW(e("noExiste"), ErrorBd);
}

TEST_F(Medidas, ABadFileSaysWhyAndChangesNothing) {
    Estacionario e{{"lineasAntesCabecera", 6}, {"sangriaRaya", 40}};
    escribe(R"({"sangriaRaya": 1, "margen": 3})");
    QString m = error(e);
    EXPECT_TRUE(m.contains(QStringLiteral("«margen»"))) << m.toStdString();
    EXPECT_TRUE(m.contains(QStringLiteral("lineasAntesCabecera, sangriaRaya")));
    EXPECT_EQ(e("sangriaRaya"), 40);
    escribe(R"({"sangriaRaya": 2.5})");
    EXPECT_TRUE(error(e).contains(QStringLiteral("número entero entre 0 y 999")));
    escribe(R"({"sangriaRaya": "40"})");
    EXPECT_TRUE(error(e).contains(QStringLiteral("número entero")));
    escribe(R"({"sangriaRaya": -1})");
    EXPECT_TRUE(error(e).contains(QStringLiteral("número entero")));
    escribe("[1, 2]");
    EXPECT_TRUE(error(e).contains(QStringLiteral("no es un objeto JSON válido")));
    escribe("{sangriaRaya: 4");
    m = error(e);
    EXPECT_TRUE(m.contains(ruta)) << m.toStdString();
    EXPECT_EQ(e("sangriaRaya"), 40);
}

} // namespace
} // namespace vk::spool
