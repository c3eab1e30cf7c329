// Due dates: the split of the amount over the instalments and the moves of the
// dates to the customer's payment days, without a database.
#include "Vencimientos.h"

#include <QtGlobal>
#include <gtest/gtest.h>

namespace vk::suite {
namespace {

qint64 centimos(double x) {
    return qRound64(x * 100);
}

std::vector<qint64> importes(const std::vector<Vencimiento>& v) {
    std::vector<qint64> r;
    for (const Vencimiento& x : v) {
        r.push_back(centimos(x.importe));
    }
    return r;
}

qint64 suma(const std::vector<Vencimiento>& v) {
    qint64 s = 0;
    for (const Vencimiento& x : v) {
        s += centimos(x.importe);
    }
    return s;
}

const QDate kFactura(2026, 3, 10);
const std::vector<Plazo> kTercios = {{30, 33.33, 2}, {60, 33.33, 2}, {90, 33.34, 2}};

TEST(Reparto, UnCentimoSobreUnoYTresPlazos) {
    auto v = CalculaVencimientos(kFactura, 0.01, {{30, 100, 3}}, 0, 0, 0);
    EXPECT_EQ(importes(v), (std::vector<qint64>{1}));
    v = CalculaVencimientos(kFactura, 0.01, kTercios, 0, 0, 0);
    EXPECT_EQ(importes(v), (std::vector<qint64>{0, 0, 1}));
}

TEST(Reparto, ElUltimoPlazoSeLlevaLosCentimos) {
    auto v = CalculaVencimientos(kFactura, 100, kTercios, 0, 0, 0);
    EXPECT_EQ(importes(v), (std::vector<qint64>{3333, 3333, 3334}));
    v = CalculaVencimientos(kFactura, 100, {{30, 33.3333, 2}, {60, 33.3333, 2}, {90, 33.3333, 2}},
                            0, 0, 0);
    EXPECT_EQ(importes(v), (std::vector<qint64>{3333, 3333, 3334}));
    // Shares that do not reach 100: the last one still closes the total.
    v = CalculaVencimientos(kFactura, 100, {{30, 40, 2}, {60, 40, 2}}, 0, 0, 0);
    EXPECT_EQ(importes(v), (std::vector<qint64>{4000, 6000}));
    // Halves away from zero, as every amount of the system.
    v = CalculaVencimientos(kFactura, 100.01, {{30, 50, 2}, {60, 50, 2}}, 0, 0, 0);
    EXPECT_EQ(importes(v), (std::vector<qint64>{5001, 5000}));
}

TEST(Reparto, TotalesNegativos) {
    auto v = CalculaVencimientos(kFactura, -100, {{30, 33.33, 2}, {60, 66.67, 2}}, 0, 0, 0);
    EXPECT_EQ(importes(v), (std::vector<qint64>{-3333, -6667}));
    v = CalculaVencimientos(kFactura, -100.01, {{30, 50, 2}, {60, 50, 2}}, 0, 0, 0);
    EXPECT_EQ(importes(v), (std::vector<qint64>{-5001, -5000}));
    v = CalculaVencimientos(kFactura, -0.01, kTercios, 0, 0, 0);
    EXPECT_EQ(importes(v), (std::vector<qint64>{0, 0, -1}));
}

TEST(Reparto, LosImportesSumanSiempreElTotal) {
    const std::vector<std::vector<Plazo>> planes = {
        kTercios,
        {{30, 33.3333, 2}, {60, 33.3333, 2}, {90, 33.3333, 2}},
        {{0, 50, 1}, {30, 50, 2}},
        {{30, 25, 2}, {60, 25, 2}, {90, 25, 2}, {120, 25, 2}},
        {{30, 10, 2}, {60, 20, 2}, {90, 70, 2}},
        {{30, 14.2857, 2},
         {37, 14.2857, 2},
         {44, 14.2857, 2},
         {51, 14.2857, 2},
         {58, 14.2857, 2},
         {65, 14.2857, 2},
         {72, 14.2858, 2}},
    };
    const double totales[] = {0.01,    0.02,       0.05,  1,     99.99,  100,
                              1234.57, 1000000.01, -0.01, -0.05, -77.77, -1234.57};
    for (const auto& plan : planes) {
        for (const double total : totales) {
            const auto v = CalculaVencimientos(kFactura, total, plan, 5, 20, 8);
            ASSERT_EQ(v.size(), plan.size());
            EXPECT_EQ(suma(v), centimos(total)) << total << " en " << plan.size() << " plazos";
        }
    }
}

TEST(Reparto, SinPlazosUnSoloVencimientoAlContadoEnLaFecha) {
    // Payment days do not move it: nothing is deferred.
    const auto v = CalculaVencimientos(kFactura, 1234.56, {}, 5, 20, 3);
    ASSERT_EQ(v.size(), 1u);
    EXPECT_EQ(v[0].fecha, kFactura);
    EXPECT_EQ(centimos(v[0].importe), 123456);
    EXPECT_EQ(v[0].modo, 1);
}

TEST(Reparto, PlazosEnOrdenDeDiasConSuModo) {
    // Given out of order: the dates come out in order and each amount and mode
    // follow their instalment.
    const auto v = CalculaVencimientos(kFactura, 100, {{60, 70, 5}, {30, 30, 2}}, 0, 0, 0);
    ASSERT_EQ(v.size(), 2u);
    EXPECT_EQ(v[0].fecha, QDate(2026, 4, 9));
    EXPECT_EQ(centimos(v[0].importe), 3000);
    EXPECT_EQ(v[0].modo, 2);
    EXPECT_EQ(v[1].fecha, QDate(2026, 5, 9));
    EXPECT_EQ(centimos(v[1].importe), 7000);
    EXPECT_EQ(v[1].modo, 5);
}

TEST(DiasPago, AvanzaAlDiaFijoMasCercano) {
    EXPECT_EQ(AjustaDiasPago(QDate(2026, 1, 6), 5, 20), QDate(2026, 1, 20));
    EXPECT_EQ(AjustaDiasPago(QDate(2026, 1, 20), 5, 20), QDate(2026, 1, 20));
    EXPECT_EQ(AjustaDiasPago(QDate(2026, 1, 5), 20, 5), QDate(2026, 1, 5));
    EXPECT_EQ(AjustaDiasPago(QDate(2026, 1, 21), 5, 20), QDate(2026, 2, 5));
    EXPECT_EQ(AjustaDiasPago(QDate(2026, 1, 31), 5, 20), QDate(2026, 2, 5));
    EXPECT_EQ(AjustaDiasPago(QDate(2026, 1, 3), 0, 20), QDate(2026, 1, 20));
    EXPECT_EQ(AjustaDiasPago(QDate(2026, 1, 21), 20, 0), QDate(2026, 2, 20));
    // December goes to January of the next year.
    EXPECT_EQ(AjustaDiasPago(QDate(2026, 12, 21), 5, 20), QDate(2027, 1, 5));
    // No payment days, or days out of 1..31: the date stands.
    EXPECT_EQ(AjustaDiasPago(QDate(2026, 1, 21), 0, 0), QDate(2026, 1, 21));
    EXPECT_EQ(AjustaDiasPago(QDate(2026, 1, 21), 32, -1), QDate(2026, 1, 21));
}

TEST(DiasPago, UnDiaMasAllaDelMesEsSuUltimoDia) {
    EXPECT_EQ(AjustaDiasPago(QDate(2026, 2, 10), 31, 0), QDate(2026, 2, 28));
    EXPECT_EQ(AjustaDiasPago(QDate(2028, 2, 10), 31, 0), QDate(2028, 2, 29));
    EXPECT_EQ(AjustaDiasPago(QDate(2026, 2, 28), 31, 0), QDate(2026, 2, 28));
    EXPECT_EQ(AjustaDiasPago(QDate(2026, 3, 1), 31, 0), QDate(2026, 3, 31));
    EXPECT_EQ(AjustaDiasPago(QDate(2026, 4, 30), 31, 0), QDate(2026, 4, 30));
    EXPECT_EQ(AjustaDiasPago(QDate(2026, 2, 16), 30, 15), QDate(2026, 2, 28));
    // In a month that has the day, the day itself.
    EXPECT_EQ(AjustaDiasPago(QDate(2026, 3, 16), 30, 15), QDate(2026, 3, 30));
    // Past the last payment day of January: February's 30 is its last day.
    EXPECT_EQ(AjustaDiasPago(QDate(2026, 1, 31), 30, 0), QDate(2026, 2, 28));
    // Through the whole calculation: 15 January + 30 days is 14 February.
    auto v = CalculaVencimientos(QDate(2026, 1, 15), 10, {{30, 100, 2}}, 31, 0, 0);
    EXPECT_EQ(v[0].fecha, QDate(2026, 2, 28));
    v = CalculaVencimientos(QDate(2028, 1, 15), 10, {{30, 100, 2}}, 31, 0, 0);
    EXPECT_EQ(v[0].fecha, QDate(2028, 2, 29));
}

TEST(MesSinPago, PasaAlUnoDelMesSiguienteYVuelveALosDias) {
    EXPECT_EQ(AjustaFechaCobro(QDate(2026, 8, 10), 5, 20, 8), QDate(2026, 9, 5));
    EXPECT_EQ(AjustaFechaCobro(QDate(2026, 8, 10), 0, 0, 8), QDate(2026, 9, 1));
    EXPECT_EQ(AjustaFechaCobro(QDate(2026, 8, 1), 0, 0, 8), QDate(2026, 9, 1));
    // A payment day that lands in the free month moves on too.
    EXPECT_EQ(AjustaFechaCobro(QDate(2026, 7, 10), 5, 0, 8), QDate(2026, 9, 5));
    EXPECT_EQ(AjustaFechaCobro(QDate(2026, 8, 1), 31, 0, 8), QDate(2026, 9, 30));
    // Outside the free month nothing changes.
    EXPECT_EQ(AjustaFechaCobro(QDate(2026, 7, 31), 0, 0, 8), QDate(2026, 7, 31));
    EXPECT_EQ(AjustaFechaCobro(QDate(2026, 7, 31), 31, 0, 8), QDate(2026, 7, 31));
    EXPECT_EQ(AjustaFechaCobro(QDate(2026, 8, 10), 0, 0, 0), QDate(2026, 8, 10));
    EXPECT_EQ(AjustaFechaCobro(QDate(2026, 8, 10), 0, 0, 13), QDate(2026, 8, 10));
    // December free: into January of the next year.
    EXPECT_EQ(AjustaFechaCobro(QDate(2026, 12, 10), 0, 0, 12), QDate(2027, 1, 1));
    EXPECT_EQ(AjustaFechaCobro(QDate(2026, 12, 10), 20, 0, 12), QDate(2027, 1, 20));

    // Through the whole calculation, the order of the dates holds.
    const auto v = CalculaVencimientos(QDate(2026, 7, 11), 300,
                                       {{0, 33.33, 2}, {30, 33.33, 2}, {60, 33.34, 2}}, 5, 20, 8);
    ASSERT_EQ(v.size(), 3u);
    EXPECT_EQ(v[0].fecha, QDate(2026, 7, 20));
    EXPECT_EQ(v[1].fecha, QDate(2026, 9, 5)); // 10 Aug -> 20 Aug -> 1 Sep -> 5 Sep
    EXPECT_EQ(v[2].fecha, QDate(2026, 9, 20));
}

} // namespace
} // namespace vk::suite
