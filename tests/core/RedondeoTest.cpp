#include "Redondeo.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace vk;

namespace {

bool esCeroPositivo(double x) {
    return x == 0.0 && !std::signbit(x);
}

} // namespace

TEST(RedondeoNormal, RescataLasMitadesBinariasYEsSimetrico) {
    EXPECT_EQ(fnRedondeoNormal(1.005, 2), 1.01); // held as 1.00499999...
    EXPECT_EQ(fnRedondeoNormal(1.0049, 2), 1.0);
    EXPECT_EQ(fnRedondeoNormal(-1.005, 2), -1.01);
    EXPECT_EQ(fnRedondeoNormal(-1.0049, 2), -1.0);
    EXPECT_EQ(fnRedondeoNormal(2.675, 2), 2.68);
    EXPECT_EQ(fnRedondeoNormal(2.5, 0), 3.0);
    EXPECT_EQ(fnRedondeoNormal(-2.5, 0), -3.0);
    EXPECT_EQ(fnRedondeoNormal(1234567.891, 2), 1234567.89);
    EXPECT_DOUBLE_EQ(fnRedondeoNormal(1.23456, 4), 1.2346);
}

TEST(RedondeoNormal, ElSesgoSubeDesde0_4998999DelUltimoLugar) {
    // 100.4999 + 0.5001001 = 101.0000001: rounds away although below the half.
    EXPECT_EQ(fnRedondeoNormal(1.004999, 2), 1.01);
    EXPECT_EQ(fnRedondeoNormal(-1.004999, 2), -1.01);
    // 100.49989 + 0.5001001 = 100.9999901: stays.
    EXPECT_EQ(fnRedondeoNormal(1.0049989, 2), 1.0);
    EXPECT_EQ(fnRedondeoNormal(2.4999, 0), 3.0);
    EXPECT_EQ(fnRedondeoNormal(2.4998, 0), 2.0);
}

TEST(RedondeoNormal, CeroSigueSiendoCeroSinSigno) {
    EXPECT_TRUE(esCeroPositivo(fnRedondeoNormal(0.0, 2)));
    EXPECT_TRUE(esCeroPositivo(fnRedondeoNormal(-0.0, 2)));
    EXPECT_TRUE(esCeroPositivo(fnRedondeoNormal(-0.004, 2)));
    EXPECT_TRUE(esCeroPositivo(fnRedondeoNormal(0.004, 2)));
}

TEST(Redondea, MitadesExactasSeAlejanDelCero) {
    EXPECT_EQ(Redondea(1.005, 2), 1.01);
    EXPECT_EQ(Redondea(2.675, 2), 2.68);
    EXPECT_EQ(Redondea(1.015, 2), 1.02);
    EXPECT_EQ(Redondea(0.285, 2), 0.29);
    EXPECT_EQ(Redondea(0.125, 2), 0.13);
    EXPECT_EQ(Redondea(0.145, 2), 0.15);
    EXPECT_EQ(Redondea(-1.005, 2), -1.01);
    EXPECT_EQ(Redondea(-0.005, 2), -0.01);
    EXPECT_EQ(Redondea(2.5, 0), 3.0);
    EXPECT_EQ(Redondea(-2.5, 0), -3.0);
    EXPECT_EQ(Redondea(1250.0, -2), 1300.0);
}

TEST(Redondea, PorDebajoDeLaMitadBajaSinSesgo) {
    // Unlike fnRedondeoNormal, nothing below the exact half goes up.
    EXPECT_EQ(Redondea(1.004999, 2), 1.0);
    EXPECT_EQ(Redondea(1.0049, 2), 1.0);
    EXPECT_EQ(Redondea(2.4999, 0), 2.0);
    EXPECT_EQ(Redondea(-1.0049, 2), -1.0);
    EXPECT_EQ(Redondea(1234567.891, 2), 1234567.89);
    EXPECT_EQ(Redondea(123456789012.345, 2), 123456789012.35);
    // Arithmetic noise does not count: 1.1 * 3 is 3.3000000000000003.
    EXPECT_EQ(Redondea(1.1 * 3, 1), 3.3);
    EXPECT_EQ(Redondea(5.0, 2), 5.0);
    EXPECT_TRUE(esCeroPositivo(Redondea(-0.004, 2)));
    EXPECT_TRUE(esCeroPositivo(Redondea(-0.0, 2)));
    EXPECT_TRUE(esCeroPositivo(Redondea(0.0000001, 2)));
}

TEST(RedondeoMoney, CuatroDecimalesPrimeroYLuegoDos) {
    EXPECT_EQ(fnRedondeoMoney(1.00499999), 1.01); // cast gives 1.0050
    EXPECT_EQ(Redondea(1.00499999, 2), 1.0);      // the direct rounding does not
    EXPECT_EQ(fnRedondeoMoney(1.00494), 1.0);     // cast gives 1.0049
    EXPECT_EQ(fnRedondeoMoney(1.00495), 1.01);
    EXPECT_EQ(fnRedondeoMoney(-1.00499999), -1.01);
    EXPECT_EQ(fnRedondeoMoney(2.675), 2.68);
    EXPECT_EQ(fnRedondeoMoney(1234567.891), 1234567.89);
    EXPECT_EQ(fnRedondeoMoney(12.0), 12.0);
    EXPECT_TRUE(esCeroPositivo(fnRedondeoMoney(-0.00004)));
    EXPECT_TRUE(esCeroPositivo(fnRedondeoMoney(0.0)));
}
