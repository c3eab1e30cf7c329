// The choice of layout of an issue run.
#include <TablaReportes.h>
#include <gtest/gtest.h>

namespace vk {
namespace {

QString reporte(qint16 diseno, const char* clave = "", qint64 regimen = 1, quint8 tipo = 0,
                const char* empresa = "Comercial Ejemplo, S.L.") {
    return fnNombreReporte(
        {diseno, QString::fromLatin1(clave), QString::fromLatin1(empresa), tipo, regimen});
}

TEST(TablaReportes, TextLayoutsByKeyInOrder) {
    EXPECT_EQ(fnLayoutTexto(QStringLiteral("plt09"))->nombre,
              QStringLiteral("msFacturaSpoolPlt10"));
    EXPECT_EQ(fnLayoutTexto(QStringLiteral("Matricial"))->nombre,
              QStringLiteral("msFacturaSpoolMatricial"));
    EXPECT_TRUE(fnLayoutTexto(QStringLiteral("GOMAS"))->terminaRun);
    EXPECT_FALSE(fnLayoutTexto(QStringLiteral("PLT15"))->terminaRun);
    EXPECT_FALSE(fnLayoutTexto(QStringLiteral("PLT18")).has_value());
    EXPECT_FALSE(fnLayoutTexto(QString()).has_value());
}

TEST(TablaReportes, FirstTestThatHoldsWinsWithinADesign) {
    EXPECT_EQ(reporte(1), QStringLiteral("CrFacturasGeneral"));
    EXPECT_EQ(reporte(1, "plt21"), QStringLiteral("CrFacturaViveros"));
    EXPECT_EQ(reporte(15, "PLT21"), QStringLiteral("CrFacturaGeneral5"));
    // The company name, in any case, comes before anything else.
    EXPECT_EQ(reporte(15, "PLT21", 1, 0, "Viveros plt18 S.L."), QStringLiteral("CRFacturasPlt18"));
    EXPECT_EQ(reporte(0, "", 1, 0, "Viveros PLT18 S.L."), QStringLiteral("CrFacturasGeneral"));
    EXPECT_EQ(reporte(2, "PLT25", 1, 2), QStringLiteral("CrFacturaPlt25"));
    EXPECT_EQ(reporte(2, "PLT25", 1, 3), QStringLiteral("CrFacturaPlt25"));
    EXPECT_EQ(reporte(4, "PLT25", 1, 1), QStringLiteral("CrFacturaGeneral2"));
    EXPECT_EQ(reporte(8, "PLT30"), QStringLiteral("CrFacturaPlt29F"));
    EXPECT_EQ(reporte(4), QStringLiteral("CrFacturaAutomocion"));
    EXPECT_EQ(reporte(8), QStringLiteral("CrFacturaGeneral4"));
    EXPECT_EQ(reporte(0, "envases"), QStringLiteral("CrFacturaEnvases"));
    EXPECT_EQ(reporte(16, "PLT39"), QStringLiteral("CrFacturaCalzado1"));
    EXPECT_EQ(reporte(19), QStringLiteral("CrFacturaGeneralLEFT"));
    EXPECT_EQ(reporte(6, "PLT99"), QStringLiteral("CrFacturasGeneral"));
    EXPECT_EQ(reporte(25), QStringLiteral("CrFacturasGeneral"));
}

TEST(TablaReportes, EveryRowAndKeyOfTheTable) {
    struct Caso {
        qint16 diseno;
        const char* clave;
        const char* reporte;
    };
    const Caso casos[] = {
        {1, "plt19", "CrFacturaViveros"},
        {1, "PLT20", "CrFacturaViveros"},
        {1, "PLT22", "CrFacturaViveros"},
        {1, "plt02", "CrFacturaPlt02"},
        {1, "PLT23", "CrFacturaPlt23"},
        {1, "PLT24", "CrFacturaPlt24"},
        {1, "PLT03", "CrFacturasGeneral"},
        {15, "", "CrFacturaGeneral5"},
        {15, "PLT02", "CrFacturaGeneral5"},
        {2, "PLT03", "CrFacturaPlt03"},
        {4, "plt24", "CrFacturaPlt24"},
        {8, "PLT26", "crFacturaPlt26"},
        {2, "PLT27", "CrFacturaPlt27"},
        {2, "norval", "CrFacturaNorval"},
        {4, "PLT29", "CrFacturaPlt29"},
        {8, "PLT30", "CrFacturaPlt29F"},
        {2, "PLT31", "CrFacturaPlt31"},
        {2, "PLT32", "CrFacturaPlt32"},
        {4, "PLT33", "CrFacturaPlt33"},
        {8, "PLT34", "CrFacturaPlt34"},
        {2, "PLT35", "CrFacturaGeneralCi"},
        {2, "PLT36", "CrFacturaPlt36"},
        {4, "PLT37", "CrFacturaPlt37"},
        {8, "plt04", "CrFacturaPlt04"},
        {2, "PLT02", "CrFacturaGeneral2"},
        {4, "", "CrFacturaAutomocion"},
        {8, "", "CrFacturaGeneral4"},
        {3, "PLT25", "CrFacturaGeneral3"},
        {10, "PLT03", "CrFacturasMedidasNLogo"},
        {0, "", "CrFacturasGeneral"},
        {0, "Envases", "CrFacturaEnvases"},
        {12, "", "CrFacturaServicios1"},
        {13, "", "CrFacturaAlimentacion1"},
        {14, "", "CrFacturaGeneralLogo4"},
        {16, "", "CrFacturaCalzado"},
        {16, "plt39", "CrFacturaCalzado1"},
        {19, "", "CrFacturaGeneralLEFT"},
        {5, "", "CrFacturasGeneral"},
        {6, "", "CrFacturasGeneral"},
        {7, "", "CrFacturasGeneral"},
        {9, "", "CrFacturasGeneral"},
        {11, "", "CrFacturasGeneral"},
        {17, "", "CrFacturasGeneral"},
        {18, "", "CrFacturasGeneral"},
    };
    for (const Caso& c : casos) {
        EXPECT_EQ(reporte(c.diseno, c.clave), QString::fromLatin1(c.reporte))
            << c.diseno << " " << c.clave;
    }
    for (const char* clave :
         {"PLT01", "PLT02", "PLT03", "MATRICIAL", "PLT04", "PLT05", "PLT06", "PLT07", "PLT08",
          "PLT11", "PLT12", "PLT13", "PLT14", "PLT16", "PLT17"}) {
        const auto layout = fnLayoutTexto(QString::fromLatin1(clave).toLower());
        ASSERT_TRUE(layout.has_value()) << clave;
        EXPECT_TRUE(layout->terminaRun);
        EXPECT_TRUE(layout->nombre.endsWith(QString::fromLatin1(clave).mid(3), Qt::CaseInsensitive))
            << clave;
    }
}

TEST(TablaReportes, WithholdingRowStandsBeforeTheDesignsThatFollowIt) {
    for (const qint16 d : {0, 5, 6, 13, 14, 16, 19}) {
        EXPECT_EQ(reporte(d, "ENVASES", 3), QStringLiteral("CrFacturaIrpf")) << d;
    }
    // Spared: design 12, and those whose rows come first.
    EXPECT_EQ(reporte(12, "", 3), QStringLiteral("CrFacturaServicios1"));
    for (const qint16 d : {1, 2, 3, 4, 8, 10, 15}) {
        EXPECT_NE(reporte(d, "", 3), QStringLiteral("CrFacturaIrpf")) << d;
    }
}

} // namespace
} // namespace vk
