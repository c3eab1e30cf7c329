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
