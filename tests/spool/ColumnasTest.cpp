// The pieces the layouts are built from besides core's fixed-width columns:
// the centred heading, the word break and the stationery table with the
// installation's file over it.
#include <Error.h>
#include <Estacionario.h>
#include <Ficheros.h>
#include <LayoutSpool.h>
#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace vk::spool {
namespace {

TEST(Columnas, CentradoFillsTheWidthWithDashes) {
    EXPECT_EQ(Centrado(QStringLiteral("CONCEPTO"), 42),
              QStringLiteral("-----------------CONCEPTO-----------------"));
    EXPECT_EQ(Centrado(QStringLiteral("CONCEPTO"), 43).size(), 43);
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
        } catch (const ErrorDiseno& x) {
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
    EXPECT_THROW(e("noExiste"), ErrorDiseno);
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
