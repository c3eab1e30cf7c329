// Two processes invoicing one series at once: no number twice, no gap.
#include "EmpresaPrueba.h"

#include <QProcess>

namespace vk::prueba {
namespace {

class Numeracion : public PruebaMotores {};

TEST_P(Numeracion, TwoProcessesFourHundredInvoicesNoDuplicateNoGap) {
    EmpresaPrueba e(GetParam());
    const qint32 cliente = e.cliente();
    const QString cadena = e.base().cadenaCatalogo(QStringLiteral("vkemp0001"));
    constexpr int kPorProceso = 200;
    QProcess a;
    QProcess b;
    for (QProcess* p : {&a, &b}) {
        p->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        p->start(QStringLiteral(VK_PROCESO_NUMERACION),
                 {cadena, QString::number(cliente), QString::number(kPorProceso)});
    }
    for (QProcess* p : {&a, &b}) {
        ASSERT_TRUE(p->waitForFinished(240000));
        EXPECT_EQ(p->exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(p->exitCode(), 0);
    }
    Recordset rs = e.cn().Execute(QStringLiteral("SELECT COUNT(*), COUNT(DISTINCT Fav_Numero), "
                                                 "MIN(Fav_Numero), MAX(Fav_Numero), "
                                                 "COUNT(DISTINCT Fav_IdUsu) FROM Fav WHERE "
                                                 "Fav_Serie = 'C'"));
    EXPECT_EQ(rs.Fields(0).Entero(), 2 * kPorProceso);
    EXPECT_EQ(rs.Fields(1).Entero(), 2 * kPorProceso);
    EXPECT_EQ(rs.Fields(2).Entero(), 1);
    EXPECT_EQ(rs.Fields(3).Entero(), 2 * kPorProceso);
}

VK_EN_AMBOS_MOTORES(Numeracion);

} // namespace
} // namespace vk::prueba
