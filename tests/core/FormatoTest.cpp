#include "Formato.h"

#include <QDate>
#include <QDateTime>
#include <gtest/gtest.h>
#include <string>

namespace {

// std::string so that a failure prints readable text.
std::string fmt(const QVariant& valor, const char* mascara) {
    return vk::Format(valor, QString::fromUtf8(mascara)).toStdString();
}

const QDate kCincoDeMarzo(2024, 3, 5); // a Tuesday

} // namespace

TEST(FormatoNumero, MascaraDeImportesConMiles) {
    EXPECT_EQ(fmt(1234.56, "#,###,##0.00"), "1.234,56");
    EXPECT_EQ(fmt(-1234.5, "#,###,##0.00"), "-1.234,50");
    EXPECT_EQ(fmt(0.0, "#,###,##0.00"), "0,00");
    EXPECT_EQ(fmt(0.5, "#,###,##0.00"), "0,50");
    EXPECT_EQ(fmt(1234567.891, "#,###,##0.00"), "1.234.567,89");
    EXPECT_EQ(fmt(12345678.9, "#,###,##0.00"), "12.345.678,90"); // wider than the mask
    EXPECT_EQ(fmt(999.995, "#,###,##0.00"), "1.000,00");
    EXPECT_EQ(fmt(1000, "#,##0.00"), "1.000,00");
    EXPECT_EQ(fmt(-1234567.891, "##,###,##0.00"), "-1.234.567,89");
    EXPECT_EQ(fmt(1234.5, "#,###,##0.00 "), "1.234,50 ");
}

TEST(FormatoNumero, RedondeaLejosDelCeroYSinMenosCero) {
    EXPECT_EQ(fmt(1.005, "#,##0.00"), "1,01");
    EXPECT_EQ(fmt(2.675, "0.00"), "2,68");
    EXPECT_EQ(fmt(-2.675, "0.00"), "-2,68");
    EXPECT_EQ(fmt(2.25, "#0.0"), "2,3");
    EXPECT_EQ(fmt(12.5, "#0"), "13");
    EXPECT_EQ(fmt(-999.5, "#,##0"), "-1.000");
    EXPECT_EQ(fmt(-0.004, "#,###,##0.00"), "0,00");
    EXPECT_EQ(fmt(-0.4, "#0"), "0");
}

TEST(FormatoNumero, SinMilesLosDigitosNoSeAgrupan) {
    EXPECT_EQ(fmt(5, "##0.00"), "5,00");
    EXPECT_EQ(fmt(-0.5, "##0.00"), "-0,50");
    EXPECT_EQ(fmt(0.0, "##0.00"), "0,00");
    EXPECT_EQ(fmt(1234567.891, "##0.00"), "1234567,89");
    EXPECT_EQ(fmt(3.14159, "0.00"), "3,14");
    EXPECT_EQ(fmt(1234567.891, "0.00"), "1234567,89");
    EXPECT_EQ(fmt(7.5, "###0.00"), "7,50");
    EXPECT_EQ(fmt(1.5, "0.000000"), "1,500000");
    EXPECT_EQ(fmt(1.234567, "##,##0.00000"), "1,23457");
    EXPECT_EQ(fmt(0.0, "##0"), "0");
    EXPECT_EQ(fmt(0.0, "#0"), "0");
}

TEST(FormatoNumero, CerosObligatoriosRellenan) {
    EXPECT_EQ(fmt(42, "00000"), "00042");
    EXPECT_EQ(fmt(0, "00000"), "00000");
    EXPECT_EQ(fmt(-42, "00000"), "-00042");
    EXPECT_EQ(fmt(42.5, "00000"), "00043");
    EXPECT_EQ(fmt(1234567.891, "00000"), "1234568");
    EXPECT_EQ(fmt(3, "00"), "03");
    EXPECT_EQ(fmt(7, "000"), "007");
    EXPECT_EQ(fmt(12345, "000000000000"), "000000012345");
    EXPECT_EQ(fmt(QString("42"), "00000"), "00042");
    EXPECT_EQ(fmt(4, "     00"), "     04");
    EXPECT_EQ(fmt(21, " #0"), " 21");
    EXPECT_EQ(fmt(1234567.891, "#,##0"), "1.234.568");
    EXPECT_EQ(fmt(QVariant(qlonglong(1234567)), "#,##0"), "1.234.567");
    EXPECT_EQ(fmt(12, "#,##0"), "12");
    EXPECT_EQ(fmt(0, "#,##0"), "0");
}

TEST(FormatoNumero, DecimalesOpcionalesYPuntoFinal) {
    // The decimal point is always shown, even with nothing after it.
    EXPECT_EQ(fmt(1234.5, "###,##0.##"), "1.234,5");
    EXPECT_EQ(fmt(1234.567, "###,##0.##"), "1.234,57");
    EXPECT_EQ(fmt(5, "###,##0.##"), "5,");
    EXPECT_EQ(fmt(1.5, "0.0#"), "1,5");
    EXPECT_EQ(fmt(1234.4, "#,###,##0."), "1.234,");
    EXPECT_EQ(fmt(0, "#"), "");
}

TEST(FormatoNumero, LiteralesPorcentajeYTextoNumerico) {
    EXPECT_EQ(fmt(0.21, "0%"), "21%");
    EXPECT_EQ(fmt(5, "0 \"uds\""), "5 uds");
    EXPECT_EQ(fmt(5, "\\#0"), "#5");
    EXPECT_EQ(fmt(QString("1.234,5"), "#,##0.00"), "1.234,50");
    EXPECT_EQ(fmt(QString("1234.5"), "#,##0.00"), "1.234,50");
    EXPECT_EQ(fmt(QString("A/12"), "00000"), "A/12"); // not a number: unchanged
    EXPECT_EQ(fmt(true, "0"), "-1");
}

TEST(FormatoTexto, ArrobasAlineanADerechaYSoloRellenan) {
    EXPECT_EQ(fmt(QString("42"), "@@@@@"), "   42");
    EXPECT_EQ(fmt(QString("ABCDEFG"), "@@@@@"), "ABCDEFG");
    EXPECT_EQ(fmt(QString(""), "@@@@@"), "     ");
    EXPECT_EQ(fmt(42, "@@@@@"), "   42");
    EXPECT_EQ(fmt(12.5, "@@@@@"), " 12,5");
    EXPECT_EQ(fmt(QString("A/123"), "@@@@@@@@@@"), "     A/123");
    EXPECT_EQ(fmt(QString("12345"), "@@-@@@"), "12-345");
    EXPECT_EQ(fmt(QString("123"), "@@-@@@"), "  -123");
    EXPECT_EQ(fmt(QString("12345"), "@@-@@"), "123-45"); // overflow stays on the left
    EXPECT_EQ(fmt(QString("AB"), "&&&&&"), "AB");
    EXPECT_EQ(fmt(QString("abc"), ">@@@@"), " ABC");
    // A number formatted first and then right-aligned in its column.
    EXPECT_EQ(fmt(QString::fromStdString(fmt(1234.5, "##,##0.00")), "@@@@@@@@@@"), "  1.234,50");
}

TEST(FormatoTexto, ExclamacionAlineaAIzquierda) {
    EXPECT_EQ(fmt(QString("AB"), "!@@@@"), "AB  ");
    EXPECT_EQ(fmt(QString("ABCDEFG"), "!@@@@"), "ABCDEFG");
    EXPECT_EQ(fmt(QString("A/123"), "!@@@@@@@@@"), "A/123    ");
    EXPECT_EQ(fmt(QString(""), "!@@@"), "   ");
    EXPECT_EQ(fmt(QString("12"), "!@@-@@@"), "12-   ");
    EXPECT_EQ(fmt(QString("12345"), "!@@-@@@"), "12-345");
    EXPECT_EQ(fmt(QString("12345"), "!@@-@@"), "12-345"); // overflow stays on the right
    EXPECT_EQ(fmt(QString("ABC"), "<!@@@@"), "abc ");
}

TEST(FormatoFecha, FechasConMascara) {
    EXPECT_EQ(fmt(kCincoDeMarzo, "dd/mm/yyyy"), "05/03/2024");
    EXPECT_EQ(fmt(kCincoDeMarzo, "DD/MM/YYYY"), "05/03/2024");
    EXPECT_EQ(fmt(kCincoDeMarzo, "DDMMYY"), "050324");
    EXPECT_EQ(fmt(kCincoDeMarzo, "DDMMYYYY"), "05032024");
    EXPECT_EQ(fmt(kCincoDeMarzo, "DD-MM-YY"), "05-03-24");
    EXPECT_EQ(fmt(kCincoDeMarzo, "dd/mm"), "05/03");
    EXPECT_EQ(fmt(kCincoDeMarzo, "d/m/yy"), "5/3/24");
    EXPECT_EQ(fmt(kCincoDeMarzo, "yyyy"), "2024");
    EXPECT_EQ(fmt(kCincoDeMarzo, "y"), "65");
    EXPECT_EQ(fmt(QDate(2009, 12, 31), "dd/mm/yy"), "31/12/09");
    EXPECT_EQ(fmt(kCincoDeMarzo, "d \"de\" mmmm \"de\" yyyy"), "5 de marzo de 2024");
}

TEST(FormatoFecha, NombresEnEspanolEnMinusculas) {
    EXPECT_EQ(fmt(kCincoDeMarzo, "mmmm"), "marzo");
    EXPECT_EQ(fmt(kCincoDeMarzo, "MMMM"), "marzo");
    EXPECT_EQ(fmt(kCincoDeMarzo, "mmm"), "mar");
    EXPECT_EQ(fmt(QDate(2024, 9, 1), "mmmm"), "septiembre");
    EXPECT_EQ(fmt(QDate(2024, 9, 1), "mmm"), "sep");
    EXPECT_EQ(fmt(QDate(2024, 1, 1), "mmmm"), "enero");
    EXPECT_EQ(fmt(QDate(2024, 12, 1), "mmmm"), "diciembre");
    EXPECT_EQ(fmt(kCincoDeMarzo, "dddd"), "martes");
    EXPECT_EQ(fmt(QDate(2024, 3, 6), "ddd"), "mié");
    EXPECT_EQ(fmt(QDate(2024, 3, 10), "dddd"), "domingo");
}

TEST(FormatoFecha, FechasDesdeOtrosTipos) {
    EXPECT_EQ(fmt(QDateTime(kCincoDeMarzo, QTime(23, 59)), "dd/mm/yyyy"), "05/03/2024");
    EXPECT_EQ(fmt(QString("05/03/2024"), "DDMMYY"), "050324");
    EXPECT_EQ(fmt(QString("5/3/2024"), "dd/mm/yyyy"), "05/03/2024");
    EXPECT_EQ(fmt(QString("2024-03-05"), "dd/mm/yyyy"), "05/03/2024");
    EXPECT_EQ(fmt(QString("2024-03-05 10:11:12"), "DDMMYYYY"), "05032024");
    EXPECT_EQ(fmt(QString("2024-03-05T10:11:12"), "mmmm"), "marzo");
    EXPECT_EQ(fmt(QString("hola"), "dd/mm/yyyy"), "hola");
    EXPECT_EQ(fmt(QDate(), "dd/mm/yyyy"), "");
}

TEST(FormatoGeneral, NuloYMascaraVacia) {
    EXPECT_EQ(fmt(QVariant(), "#,###,##0.00"), "");
    EXPECT_EQ(fmt(QVariant(QMetaType(QMetaType::Double)), "#,###,##0.00"), "");
    EXPECT_EQ(fmt(QVariant(), "@@@@@"), "");
    EXPECT_EQ(fmt(QVariant(), "dd/mm/yyyy"), "");
    EXPECT_EQ(fmt(1234.5, ""), "1234,5");
    EXPECT_EQ(fmt(1234567.891, ""), "1234567,891");
    EXPECT_EQ(fmt(-0.25, ""), "-0,25");
    EXPECT_EQ(fmt(0.0, ""), "0");
    EXPECT_EQ(fmt(42, ""), "42");
    EXPECT_EQ(fmt(QString("abc"), ""), "abc");
    EXPECT_EQ(fmt(kCincoDeMarzo, ""), "05/03/2024");
    EXPECT_EQ(fmt(QDateTime(kCincoDeMarzo, QTime(10, 11, 12)), ""), "05/03/2024 10:11:12");
}

TEST(FormatoMoneda, ImporteConMilesYEuro) {
    EXPECT_EQ(vk::FormatoMoneda(1234.56), QString::fromUtf8("1.234,56 €"));
    EXPECT_EQ(vk::FormatoMoneda(-0.5), QString::fromUtf8("-0,50 €"));
    EXPECT_EQ(vk::FormatoMoneda(0.0), QString::fromUtf8("0,00 €"));
    EXPECT_EQ(vk::FormatoMoneda(1.005), QString::fromUtf8("1,01 €"));
    EXPECT_EQ(vk::FormatoMoneda(1234567.891), QString::fromUtf8("1.234.567,89 €"));
}
