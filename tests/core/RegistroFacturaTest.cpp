// The invoice record's VAT slots: one storage, seen as TramoIva and under
// the legacy names hosts and tests use.
#include <RegistroFactura.h>
#include <gtest/gtest.h>

namespace vk {
namespace {

// The legacy fields of slot `i` with the slot member each one names.
struct NombresTramo {
    double *base, *pIva, *iIva, *pRec, *iRec;
    QString *cIva, *cRec;
};

NombresTramo nombres(RegistroFactura& r, int i) {
    switch (i) {
    case 0:
        return {&r.BaseIva1,    &r.PorcentajeIva1, &r.ImpIva1, &r.PorcentajeRecargo1,
                &r.ImpRecargo1, &r.CtaIva1,        &r.CtaRec1};
    case 1:
        return {&r.BaseIva2,    &r.PorcentajeIva2, &r.ImpIva2, &r.PorcentajeRecargo2,
                &r.ImpRecargo2, &r.CtaIva2,        &r.CtaRec2};
    default:
        return {&r.BaseIva3,    &r.PorcentajeIva3, &r.ImpIva3, &r.PorcentajeRecargo3,
                &r.ImpRecargo3, &r.CtaIva3,        &r.CtaRec3};
    }
}

TEST(RegistroFactura, LegacySlotNamesAreTheSlots) {
    RegistroFactura r;
    for (int i = 0; i < 3; ++i) {
        TramoIva& t = r.TramosIva[static_cast<std::size_t>(i)];
        const NombresTramo n = nombres(r, i);
        EXPECT_EQ(n.base, &t.Base) << i;
        EXPECT_EQ(n.pIva, &t.PorcentajeIva) << i;
        EXPECT_EQ(n.iIva, &t.ImpIva) << i;
        EXPECT_EQ(n.pRec, &t.PorcentajeRecargo) << i;
        EXPECT_EQ(n.iRec, &t.ImpRecargo) << i;
        EXPECT_EQ(n.cIva, &t.CtaIva) << i;
        EXPECT_EQ(n.cRec, &t.CtaRec) << i;
    }
}

TEST(RegistroFactura, SlotsWrittenEitherWayReadTheSame) {
    RegistroFactura r;
    r.BaseIva2 = 50;
    r.TramosIva[1].ImpIva = 10.5;
    r.CtaRec3 = QStringLiteral("47710052");
    EXPECT_DOUBLE_EQ(r.TramosIva[1].Base, 50);
    EXPECT_DOUBLE_EQ(r.ImpIva2, 10.5);
    EXPECT_EQ(r.TramosIva[2].CtaRec, QStringLiteral("47710052"));
    r.TramosIva[0] = {
        100, 21, 21, 5.2, 5.2, QStringLiteral("47700021"), QStringLiteral("47710052")};
    EXPECT_DOUBLE_EQ(r.ImpRecargo1, 5.2);
    EXPECT_EQ(r.CtaIva1, QStringLiteral("47700021"));
    EXPECT_DOUBLE_EQ(r.SumaBases(), 150);

    // Clearing the slots clears every legacy name.
    r.TramosIva.fill(TramoIva{});
    EXPECT_DOUBLE_EQ(r.BaseIva1, 0);
    EXPECT_DOUBLE_EQ(r.ImpIva2, 0);
    EXPECT_TRUE(r.CtaRec3.isEmpty());
    EXPECT_DOUBLE_EQ(r.SumaBases(), 0);
}

} // namespace
} // namespace vk
