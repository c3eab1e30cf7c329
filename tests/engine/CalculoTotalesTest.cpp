// Invoices computed by hand, to the cent, against the engine.
#include "EmpresaPrueba.h"

#include <Error.h>
#include <Redondeo.h>

namespace vk::prueba {
namespace {

const QDate kHoy(2026, 3, 10);

class Totales : public PruebaMotores {
protected:
    void SetUp() override { e = std::make_unique<EmpresaPrueba>(GetParam()); }
    // Makes an invoice of one customer with the given notes and calculates it.
    VKFACVENTAS& calcula(qint32 cliente, const std::vector<qint32>& albaranes, double dto1 = 0,
                         double dto2 = 0, QDate fecha = kHoy) {
        EXPECT_GT(e->nuevaFactura(cliente, fecha, albaranes, dto1, dto2), 0);
        e->factura().CalculoTotalesFactura();
        return e->factura();
    }
    std::unique_ptr<EmpresaPrueba> e;
};

TEST_P(Totales, ThreeSlotsWithHeaderDiscountsThatLeaveCents) {
    const qint32 c = e->cliente();
    const qint32 a = e->albaran(c, kHoy, 1, {{100.05, 1, 1}, {10.05, 1, 2}, {10.05, 1, 3}});
    VKFACVENTAS& f = calcula(c, {a}, 5, 2);
    EXPECT_DOUBLE_EQ(f.Bruto, 120.15);
    EXPECT_DOUBLE_EQ(f.PorcentajeDto1, 5);
    EXPECT_DOUBLE_EQ(f.ImpDto1, 6.01); // on the sum; the groups' own add up to 6.00
    EXPECT_DOUBLE_EQ(f.Bruto1, 114.14);
    EXPECT_DOUBLE_EQ(f.ImpDto2, 2.28);
    // The cent of difference lands on the first base, and its VAT stays.
    EXPECT_DOUBLE_EQ(f.BaseIva1, 93.14);
    EXPECT_DOUBLE_EQ(f.PorcentajeIva1, 21);
    EXPECT_DOUBLE_EQ(f.ImpIva1, 19.56);
    EXPECT_DOUBLE_EQ(f.BaseIva2, 9.36);
    EXPECT_DOUBLE_EQ(f.PorcentajeIva2, 10);
    EXPECT_DOUBLE_EQ(f.ImpIva2, 0.94);
    EXPECT_DOUBLE_EQ(f.BaseIva3, 9.36);
    EXPECT_DOUBLE_EQ(f.PorcentajeIva3, 4);
    EXPECT_DOUBLE_EQ(f.ImpIva3, 0.37);
    EXPECT_DOUBLE_EQ(f.TotalFactura, 132.73);
    EXPECT_DOUBLE_EQ(f.Liquido, 132.73);
    EXPECT_EQ(f.CtaIva1, QStringLiteral("47700021"));
    EXPECT_EQ(f.CtaIva2, QStringLiteral("47700010"));
    EXPECT_EQ(f.CtaIva3, QStringLiteral("47700004"));
    EXPECT_EQ(f.CtaRec2, QStringLiteral("47710014"));

    // A second run adds nothing up twice.
    f.CalculoTotalesFactura();
    EXPECT_DOUBLE_EQ(f.Bruto, 120.15);
    EXPECT_DOUBLE_EQ(f.BaseIva1, 93.14);
    EXPECT_DOUBLE_EQ(f.TotalFactura, 132.73);
}

TEST_P(Totales, PerUnitDiscountsAndAddedAmounts) {
    const qint32 c = e->cliente();
    LineaPrueba l1{200.00};
    l1.resDes = 10.00;
    l1.dtoUnidad = 5.555;
    LineaPrueba l2{50.00};
    l2.dtoUnidad = 1.11;
    VKFACVENTAS& f = calcula(c, {e->albaran(c, kHoy, 1, {l1, l2})});
    EXPECT_DOUBLE_EQ(f.Bruto, 260.00); // the added amount counts, the unit discount not
    // The lines' 6.665 is the footer discount in cents, and the base is what
    // the gross less that printed figure leaves: the paper adds up.
    EXPECT_DOUBLE_EQ(f.ImpDtoPie1, 6.67);
    EXPECT_DOUBLE_EQ(f.ImpIva1, 53.20); // on the group's base 253.33
    EXPECT_DOUBLE_EQ(f.BaseIva1, 253.33);
    EXPECT_DOUBLE_EQ(f.Bruto - f.ImpDtoPie1, f.BaseIva1);
    EXPECT_DOUBLE_EQ(f.TotalFactura, 306.53);
}

TEST_P(Totales, ExemptGroupAndTwoRegimesAtOneRate) {
    const qint32 c = e->cliente();
    VKFACVENTAS& f = calcula(c, {e->albaran(c, kHoy, 1, {{100, 1, 1}, {50, 1, 4}})});
    EXPECT_DOUBLE_EQ(f.PorcentajeIva1, 21);
    EXPECT_DOUBLE_EQ(f.BaseIva2, 50);
    EXPECT_DOUBLE_EQ(f.PorcentajeIva2, 0);
    EXPECT_DOUBLE_EQ(f.ImpIva2, 0);
    EXPECT_EQ(f.CtaIva2, QString());
    EXPECT_DOUBLE_EQ(f.TotalFactura, 171);

    // A note of the surcharge regime beside a general one: same rate, two slots.
    const qint32 tienda = e->cliente({.regimen = 2});
    const qint32 general = e->albaran(tienda, kHoy, 1, {{100, 1, 1}});
    const qint32 recargo = e->albaran(tienda, kHoy, 2, {{100, 2, 1}});
    calcula(tienda, {general, recargo});
    EXPECT_DOUBLE_EQ(f.PorcentajeIva1, 21);
    EXPECT_DOUBLE_EQ(f.PorcentajeRecargo1, 0);
    EXPECT_DOUBLE_EQ(f.PorcentajeIva2, 21);
    EXPECT_DOUBLE_EQ(f.PorcentajeRecargo2, 5.2);
    EXPECT_DOUBLE_EQ(f.ImpRecargo2, 5.20);
    EXPECT_EQ(f.CtaRec2, QStringLiteral("47710052"));
    EXPECT_DOUBLE_EQ(f.BaseIva3, 0);
    EXPECT_DOUBLE_EQ(f.TotalFactura, 247.20);
}

TEST_P(Totales, FourthGroupOnlyAddsToTheGrossAndTheFirstBase) {
    const qint32 c = e->cliente();
    VKFACVENTAS& f =
        calcula(c, {e->albaran(c, kHoy, 1, {{100, 1, 1}, {100, 1, 2}, {100, 1, 3}, {100, 1, 4}})});
    EXPECT_DOUBLE_EQ(f.Bruto, 400);
    EXPECT_DOUBLE_EQ(f.BaseIva1, 200);
    EXPECT_DOUBLE_EQ(f.ImpIva1, 21);
    EXPECT_DOUBLE_EQ(f.BaseIva3, 100);
    EXPECT_DOUBLE_EQ(f.PorcentajeIva3, 4);
    EXPECT_DOUBLE_EQ(f.TotalFactura, 435);
}

TEST_P(Totales, CreditNoteKeepsTheOldRateAndNewInvoicesTakeTheNewOne) {
    const qint32 c = e->cliente();
    const QDate tipo2011(2011, 1, 1); // the 18 % row of 2010
    VKFACVENTAS& f = calcula(c, {e->albaran(c, kHoy, 1, {{-100, 1, 1, tipo2011}})});
    EXPECT_DOUBLE_EQ(f.PorcentajeIva1, 18);
    EXPECT_DOUBLE_EQ(f.TotalFactura, -118);
    calcula(c, {e->albaran(c, kHoy, 1, {{100, 1, 1, tipo2011}})});
    EXPECT_DOUBLE_EQ(f.PorcentajeIva1, 21);
    EXPECT_DOUBLE_EQ(f.TotalFactura, 121);

    // With the rates of the lines (accrual by line) the old rate stays.
    e->parametro(QStringLiteral("Par_CritDevengo"), 1);
    calcula(c, {e->albaran(c, kHoy, 1, {{100, 1, 1, tipo2011}})});
    EXPECT_DOUBLE_EQ(f.PorcentajeIva1, 18);
}

TEST_P(Totales, WithholdingOfProfessionalsAndRental) {
    const qint32 abogado = e->cliente({.regimen = 3});
    VKFACVENTAS& f = calcula(abogado, {e->albaran(abogado, kHoy, 3, {{500, 3, 1, kHoy}})});
    EXPECT_DOUBLE_EQ(f.PorcentajeRetencion, 15);
    EXPECT_DOUBLE_EQ(f.ImpRetencion, 75);
    EXPECT_EQ(f.CtaRet, QStringLiteral("47300000"));
    EXPECT_DOUBLE_EQ(f.TotalFactura, 530);

    // Rental: the withholding bears on base plus VAT.
    const qint32 inquilino = e->cliente({.regimen = 10});
    calcula(inquilino, {e->albaran(inquilino, kHoy, 10, {{1000, 10, 1, kHoy}})});
    EXPECT_DOUBLE_EQ(f.PorcentajeRetencion, 19);
    EXPECT_DOUBLE_EQ(f.ImpRetencion, 229.90);
    EXPECT_EQ(f.CtaRet, QStringLiteral("47300001"));
    EXPECT_DOUBLE_EQ(f.TotalFactura, 980.10);
}

TEST_P(Totales, CompanyInWithholdingRegimeMovesOtherRegimes) {
    e->parametro(QStringLiteral("Par_RegFiscal"), 3);
    const qint32 tienda = e->cliente({.regimen = 2});
    VKFACVENTAS& f = calcula(tienda, {e->albaran(tienda, kHoy, 2, {{100, 2, 1}})});
    EXPECT_DOUBLE_EQ(f.PorcentajeRecargo1, 0);
    EXPECT_DOUBLE_EQ(f.PorcentajeRetencion, 15);
    EXPECT_DOUBLE_EQ(f.TotalFactura, 106);
    // The general regime is not moved.
    const qint32 c = e->cliente();
    calcula(c, {e->albaran(c, kHoy, 1, {{100, 1, 1}})});
    EXPECT_DOUBLE_EQ(f.PorcentajeRetencion, 0);
    EXPECT_DOUBLE_EQ(f.TotalFactura, 121);
}

TEST_P(Totales, NonFiscalRetentionByMode) {
    const qint32 bases = e->cliente({.retNf = 5, .modoRetNf = 0});
    VKFACVENTAS& f = calcula(bases, {e->albaran(bases, kHoy, 1, {{1000, 1, 1}})});
    EXPECT_DOUBLE_EQ(f.RetencionNF, 50);
    EXPECT_DOUBLE_EQ(f.Liquido, 1160);
    const qint32 total = e->cliente({.retNf = 3, .modoRetNf = 1});
    calcula(total, {e->albaran(total, kHoy, 1, {{1000, 1, 1}})});
    EXPECT_DOUBLE_EQ(f.RetencionNF, 36.30);
    EXPECT_DOUBLE_EQ(f.Liquido, 1173.70);

    // A retention typed by hand survives only in the vehicle repair trade.
    const qint32 c = e->cliente();
    e->nuevaFactura(c, kHoy, {e->albaran(c, kHoy, 1, {{100, 1, 1}})});
    f.RetencionNF = 12.34;
    f.CalculoTotalesFactura();
    EXPECT_DOUBLE_EQ(f.RetencionNF, 0);
    e->parametro(QStringLiteral("Par_Automocion"), 1);
    f.RetencionNF = 12.34;
    f.CalculoTotalesFactura();
    EXPECT_DOUBLE_EQ(f.RetencionNF, 12.34);
    EXPECT_DOUBLE_EQ(f.Liquido, 121 - 12.34);
}

TEST_P(Totales, InvoiceWithoutLines) {
    const qint32 c = e->cliente();
    ASSERT_GT(e->nuevaFactura(c, kHoy, {}, 10, 5), 0);
    VKFACVENTAS& f = e->factura();
    f.Bruto = 99;
    f.BaseIva2 = 7;
    f.RetencionNF = 3;
    f.CalculoTotalesFactura();
    EXPECT_DOUBLE_EQ(f.Bruto, 0);
    EXPECT_DOUBLE_EQ(f.BaseIva2, 0);
    EXPECT_DOUBLE_EQ(f.PorcentajeDto1, 0); // not read from the row without lines
    EXPECT_DOUBLE_EQ(f.TotalFactura, 0);
    EXPECT_DOUBLE_EQ(f.RetencionNF, 0);
    EXPECT_DOUBLE_EQ(f.Liquido, 0);
}

TEST_P(Totales, LineWithoutTaxRowIsAClearError) {
    const qint32 c = e->cliente();
    const qint32 a = e->albaran(c, kHoy, 1, {{100, 1, 1}});
    e->cn().Execute(QStringLiteral("UPDATE Lav SET Lav_Tiva = 0 WHERE Lav_IdCav = ?"), {a});
    e->nuevaFactura(c, kHoy, {a});
    EXPECT_THROW(e->factura().CalculoTotalesFactura(), ErrorRegla);
}

// Each slot is filled whole through its type: one tax group, its VAT and
// surcharge on its own base, its accounts; the total is the slots' sum.
TEST_P(Totales, EachSlotIsOneTaxGroupFilledThroughItsType) {
    const qint32 tienda = e->cliente({.regimen = 2});
    const qint32 general = e->albaran(tienda, kHoy, 1, {{100, 1, 1}, {40, 1, 3}});
    const qint32 recargo = e->albaran(tienda, kHoy, 2, {{100, 2, 1}});
    VKFACVENTAS& f = calcula(tienda, {general, recargo});
    double total = 0;
    for (std::size_t i = 0; i < kTramosIva; ++i) {
        const TramoIva& t = f.TramosIva[i];
        EXPECT_NE(t.Base, 0) << i;
        EXPECT_DOUBLE_EQ(t.ImpIva, Redondea(t.Base * t.PorcentajeIva / 100, 2)) << i;
        EXPECT_DOUBLE_EQ(t.ImpRecargo, Redondea(t.Base * t.PorcentajeRecargo / 100, 2)) << i;
        EXPECT_FALSE(t.CtaIva.isEmpty()) << i;
        if (i > 0) {
            EXPECT_GE(f.TramosIva[i - 1].PorcentajeIva, t.PorcentajeIva) << i;
        }
        total += t.Base + t.ImpIva + t.ImpRecargo;
    }
    EXPECT_DOUBLE_EQ(f.TramosIva[1].ImpRecargo, 5.20); // the surcharge regime's own slot
    EXPECT_DOUBLE_EQ(f.SumaBases(), 240);
    EXPECT_DOUBLE_EQ(f.TotalFactura, Redondea(total, 2));
}

VK_EN_AMBOS_MOTORES(Totales);

} // namespace
} // namespace vk::prueba
