// The hash exactly as the tax agency computes it: its three worked examples
// byte for byte, and the strings the XML and the hash share.
#include <FormatoFiscal.h>
#include <Huella.h>
#include <QTimeZone>
#include <UrlQr.h>
#include <gtest/gtest.h>

namespace vk::fiscal {
namespace {

TEST(Huella, TheAgencysThreeExamplesAreReproduced) {
    const CamposHuellaAlta primera{QStringLiteral("89890001K"),
                                   QStringLiteral("12345678/G33"),
                                   QStringLiteral("01-01-2024"),
                                   QStringLiteral("F1"),
                                   QStringLiteral("12.35"),
                                   QStringLiteral("123.45"),
                                   QString(),
                                   QStringLiteral("2024-01-01T19:20:30+01:00")};
    EXPECT_EQ(fnCadenaHuella(primera),
              QStringLiteral("IDEmisorFactura=89890001K&NumSerieFactura=12345678/"
                             "G33&FechaExpedicionFactura=01-01-2024&TipoFactura=F1&CuotaTotal=12."
                             "35&ImporteTotal=123.45&Huella=&FechaHoraHusoGenRegistro=2024-01-"
                             "01T19:20:30+01:00"));
    EXPECT_EQ(fnHuella(primera),
              QStringLiteral("3C464DAF61ACB827C65FDA19F352A4E3BDC2C640E9E9FC4CC058073F38F12F60"));

    const CamposHuellaAlta segunda{QStringLiteral("89890001K"),
                                   QStringLiteral("12345679/G34"),
                                   QStringLiteral("01-01-2024"),
                                   QStringLiteral("F1"),
                                   QStringLiteral("12.35"),
                                   QStringLiteral("123.45"),
                                   fnHuella(primera),
                                   QStringLiteral("2024-01-01T19:20:35+01:00")};
    EXPECT_EQ(fnHuella(segunda),
              QStringLiteral("F7B94CFD8924EDFF273501B01EE5153E4CE8F259766F88CF6ACB8935802A2B97"));

    const CamposHuellaAnulacion tercera{QStringLiteral("89890001K"), QStringLiteral("12345679/G34"),
                                        QStringLiteral("01-01-2024"), fnHuella(segunda),
                                        QStringLiteral("2024-01-01T19:20:40+01:00")};
    EXPECT_EQ(fnHuella(tercera),
              QStringLiteral("177547C0D57AC74748561D054A9CEC14B4C4EA23D1BEFD6F2E69E3A388F90C68"));
}

TEST(Huella, ValuesAreTrimmedAndAMissingOneIsWrittenEmpty) {
    CamposHuellaAlta c{QStringLiteral(" 89890001K "),
                       QStringLiteral("12345678/G33"),
                       QStringLiteral("01-01-2024"),
                       QStringLiteral("F1"),
                       QStringLiteral("12.35"),
                       QStringLiteral("123.45 "),
                       QString(),
                       QStringLiteral("2024-01-01T19:20:30+01:00")};
    EXPECT_EQ(fnHuella(c),
              QStringLiteral("3C464DAF61ACB827C65FDA19F352A4E3BDC2C640E9E9FC4CC058073F38F12F60"));
    c.tipoFactura.clear();
    EXPECT_TRUE(fnCadenaHuella(c).contains(QLatin1String("&TipoFactura=&")));
}

TEST(FormatoFiscal, AmountsRatesDatesAndTimestampsAsTheXmlWritesThem) {
    EXPECT_EQ(fnImporteFiscal(1234.5), QStringLiteral("1234.50"));
    EXPECT_EQ(fnImporteFiscal(-12.345), QStringLiteral("-12.35"));
    EXPECT_EQ(fnImporteFiscal(-0.001), QStringLiteral("0.00"));
    EXPECT_EQ(fnImporteFiscal(1e9 + 0.1), QStringLiteral("1000000000.10"));
    EXPECT_EQ(fnTipoFiscal(5.2), QStringLiteral("5.20"));
    EXPECT_EQ(fnFechaFiscal(QDate(2024, 1, 1)), QStringLiteral("01-01-2024"));
    const QDateTime invierno(QDate(2024, 1, 1), QTime(19, 20, 30),
                             QTimeZone(QByteArrayLiteral("Europe/Madrid")));
    const QDateTime verano(QDate(2024, 7, 1), QTime(9, 5, 0),
                           QTimeZone(QByteArrayLiteral("Europe/Madrid")));
    // Whatever this machine's zone, the offset written is the moment's own.
    const QString i = fnFechaHoraFiscal(invierno);
    EXPECT_EQ(fnLeeFechaHoraFiscal(i), invierno);
    EXPECT_EQ(fnLeeFechaHoraFiscal(fnFechaHoraFiscal(verano)), verano);
    EXPECT_EQ(i.size(), 25);
    EXPECT_TRUE(i.at(19) == u'+' || i.at(19) == u'-');
}

TEST(UrlQr, TheFourFieldsUrlEncodedOnTheEndpointOfTheEnvironment) {
    EXPECT_EQ(fnUrlQr(EntornoFiscal::Pruebas, QStringLiteral("89890001K"),
                      QStringLiteral("12345678&G33"), QStringLiteral("01-01-2024"),
                      QStringLiteral("241.4")),
              QStringLiteral("https://prewww2.aeat.es/wlpl/TIKE-CONT/"
                             "ValidarQR?nif=89890001K&numserie=12345678%26G33&fecha=01-01-2024&"
                             "importe=241.4"));
    EXPECT_TRUE(
        fnUrlQr(EntornoFiscal::Produccion, QStringLiteral("B96824172"), QStringLiteral("A/7"),
                QStringLiteral("02-03-2026"), QStringLiteral("-12.10"))
            .startsWith(QStringLiteral("https://www2.agenciatributaria.gob.es/wlpl/"
                                       "TIKE-CONT/ValidarQR?nif=B96824172&numserie=A%2F7&")));
}

} // namespace
} // namespace vk::fiscal
