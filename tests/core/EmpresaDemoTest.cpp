// The demo company: the same data on both backends, built once.
#include "BasePrueba.h"

#include <EmpresaDemo.h>

namespace vk::prueba {
namespace {

class Demo : public PruebaMotores {};

TEST_P(Demo, IsDeterministicCompleteAndBuiltOnce) {
    BasePrueba base(GetParam());
    auto s = base.CreaEmpresa();
    const ResumenDemo r = CreaDatosDemo(*s);
    EXPECT_FALSE(r.yaExistia);
    EXPECT_GE(r.clientes, 20);
    EXPECT_GE(r.albaranes, 60);
    EXPECT_GT(r.contratos, 0);

    Conexion& cn = s->cn();
    // The same lines and cents on every backend and every run.
    Recordset lineas = cn.Execute(QStringLiteral("SELECT COUNT(*), SUM(Lav_Importe) FROM Lav"));
    EXPECT_EQ(lineas.Fields(0).Entero(), r.lineas);
    EXPECT_NEAR(lineas.Fields(1).Doble(), 16532.61, 0.001);
    // Every line has a tax row, and every note is pending.
    EXPECT_EQ(cn.Execute(QStringLiteral("SELECT COUNT(*) FROM Lav LEFT JOIN vkcomun.TIVAS ON "
                                        "Tiva_Id = Lav_Tiva WHERE Tiva_Id IS NULL"))
                  .Fields(0)
                  .Entero(),
              0);
    EXPECT_EQ(cn.Execute(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE Cav_Situa = 1 AND "
                                        "Cav_IdFactura IS NULL"))
                  .Fields(0)
                  .Entero(),
              r.albaranes);
    // The regimes the invoicing must meet: general, surcharge, withholding,
    // exempt export and rental.
    Recordset reg = cn.Execute(QStringLiteral("SELECT DISTINCT Cli_Reg FROM Cli ORDER BY Cli_Reg"));
    QList<qint64> regimenes;
    for (; !reg.Eof(); reg.MoveNext()) {
        regimenes << reg.Fields(0).Entero();
    }
    EXPECT_EQ(regimenes, (QList<qint64>{1, 2, 3, 5, 10}));
    // Instalments of each payment term add up to 100 %.
    Recordset fcol = cn.Execute(QStringLiteral("SELECT Fcol_id, SUM(Fcol_Porcentaje) FROM Fcol "
                                               "GROUP BY Fcol_id"));
    for (; !fcol.Eof(); fcol.MoveNext()) {
        EXPECT_NEAR(fcol.Fields(1).Doble(), 100.0, 1e-9);
    }
    s->RecargaParametros();
    EXPECT_FALSE(s->Parametros().Item(QStringLiteral("PAR_NOMBRE")).Texto().isEmpty());
    EXPECT_EQ(s->Parametros().Item(QStringLiteral("Par_ModConCon")).Entero(), 0);

    const ResumenDemo otra = CreaDatosDemo(*s);
    EXPECT_TRUE(otra.yaExistia);
    EXPECT_EQ(cn.Execute(QStringLiteral("SELECT COUNT(*) FROM Cli")).Fields(0).Entero(),
              r.clientes);
}

VK_EN_AMBOS_MOTORES(Demo);

} // namespace
} // namespace vk::prueba
