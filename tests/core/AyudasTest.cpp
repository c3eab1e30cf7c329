// Shared helpers that run against a database: the customer name fragment and
// the lookup list.
#include "BasePrueba.h"

#include <BdUtil.h>
#include <InteraccionGuion.h>
#include <NombreCliente.h>

namespace vk::prueba {
namespace {

class Ayudas : public PruebaMotores {
protected:
    void SetUp() override {
        base = std::make_unique<BasePrueba>(GetParam());
        s = base->CreaEmpresa();
        const QVariantList clientes[] = {
            {1, 10, QStringLiteral("Ana"), QStringLiteral("Pons"), QStringLiteral("Mas")},
            {2, 20, QStringLiteral("Luis"), QStringLiteral("Roig"), QVariant()},
            {3, 30, QStringLiteral("Talleres Norte, S.A."), QString(), QString()},
        };
        for (const QVariantList& c : clientes) {
            s->cn().Execute(QStringLiteral("INSERT INTO Cli (CLI_ID, CLI_COD, cli_nom, cli_ape1, "
                                           "CLI_APE2) VALUES (?, ?, ?, ?, ?)"),
                            c);
        }
        EstableceInteraccion(&ui);
    }
    void TearDown() override { EstableceInteraccion(nullptr); }
    QStringList nombres(int orden) {
        Recordset rs = s->cn().Execute(QStringLiteral("SELECT %1 AS RSNOM FROM Cli ORDER BY CLI_ID")
                                           .arg(fnNombreCliente(orden)));
        QStringList r;
        for (; !rs.Eof(); rs.MoveNext()) {
            r << rs.Fields(QStringLiteral("rsnom")).Texto();
        }
        return r;
    }
    std::unique_ptr<BasePrueba> base;
    std::unique_ptr<BdSesion> s;
    InteraccionGuion ui;
};

TEST_P(Ayudas, CustomerNameFollowsTheOrderSetting) {
    // Empty or NULL parts leave no double blank; each part keeps its blank.
    EXPECT_EQ(nombres(0),
              (QStringList{QStringLiteral("Ana Pons Mas "), QStringLiteral("Luis Roig "),
                           QStringLiteral("Talleres Norte, S.A. ")}));
    EXPECT_EQ(nombres(1),
              (QStringList{QStringLiteral("Pons Mas Ana "), QStringLiteral("Roig Luis "),
                           QStringLiteral("Talleres Norte, S.A. ")}));
    EXPECT_TRUE(fnNombreCliente(0, QStringLiteral("c.")).contains(QStringLiteral("c.cli_ape2")));
}

TEST_P(Ayudas, LookupListReturnsTheChosenRow) {
    BdUtil util;
    util.Prepara(s->cn());
    const QString sql = QStringLiteral("SELECT Cli_ID, Cli_COD, %1 AS RSNOM FROM Cli ORDER BY 3")
                            .arg(fnNombreCliente(0));
    ui.busquedas.push_back(1);
    const QString elegido =
        util.Busca(sql, QStringLiteral("RSNOM"), QStringLiteral("Codigo"), QStringLiteral("Nombre"),
                   QStringLiteral("Buscar Clientes"), 1300, 6000, 0);
    EXPECT_EQ(elegido, QStringLiteral("2") + BdUtil::kSeparador + QStringLiteral("20") +
                           BdUtil::kSeparador + QStringLiteral("Luis Roig "));
    ASSERT_EQ(ui.peticionesBusca.size(), 1u);
    EXPECT_EQ(ui.peticionesBusca[0].titulo, QStringLiteral("Buscar Clientes"));
    EXPECT_EQ(ui.peticionesBusca[0].filas.size(), 3u);
    EXPECT_EQ(ui.peticionesBusca[0].anchoCodigo, 1300);

    // Escape: nothing chosen is a text of two characters or fewer.
    EXPECT_LE(util.Busca(sql, QStringLiteral("RSNOM"), QStringLiteral("Codigo"),
                         QStringLiteral("Nombre"), QStringLiteral("Buscar Clientes"), 1300, 6000)
                  .size(),
              2);
    EXPECT_DOUBLE_EQ(util.Redondea(2.675, 2), 2.68);
    EXPECT_DOUBLE_EQ(util.Redondea(-2.675, 2), -2.68);
}

VK_EN_AMBOS_MOTORES(Ayudas);

} // namespace
} // namespace vk::prueba
