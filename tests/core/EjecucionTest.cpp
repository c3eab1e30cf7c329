// What a run keeps for itself on both backends: the tax rows read once give
// the same answers as the database, and a batch of units commits once while
// a failed unit is undone alone.
#include "BasePrueba.h"

#include <BdSesion.h>
#include <ErrorBd.h>
#include <QDate>
#include <TiposIva.h>
#include <TransaccionPorLotes.h>
#include <algorithm>

namespace vk::prueba {
namespace {

class Ejecucion : public PruebaMotores {
protected:
    void SetUp() override {
        base = std::make_unique<BasePrueba>(GetParam());
        s = base->CreaEmpresa();
    }
    qint64 agentes() {
        return s->cn().Execute(QStringLiteral("SELECT COUNT(*) FROM Age")).Fields(0).Entero();
    }
    std::unique_ptr<BasePrueba> base;
    std::unique_ptr<BdSesion> s;
};

TEST_P(Ejecucion, TaxRowsOfARunAnswerAsTheDatabaseDoes) {
    // Dates around the changes of rate in the seeded history, and before the
    // first row.
    const QList<QDate> fechas = {QDate(1985, 1, 1),  QDate(1992, 12, 31), QDate(1995, 1, 1),
                                 QDate(2010, 6, 30), QDate(2010, 7, 1),   QDate(2012, 9, 1),
                                 QDate(2023, 1, 1),  QDate(2026, 11, 23)};
    struct Respuesta {
        std::optional<TipoIva> vigente;
        std::optional<int> familia;
    };
    const auto pregunta = [&](int reg, int fam, const QDate& f) {
        Respuesta r{TipoIvaVigente(*s, reg, fam, f), std::nullopt};
        if (r.vigente && r.vigente->iva) {
            r.familia = FamiliaIva(*s, *r.vigente->iva, reg, f);
        }
        return r;
    };
    std::vector<Respuesta> fuera;
    for (int reg = 1; reg <= 10; ++reg) {
        for (int fam = 1; fam <= 4; ++fam) {
            for (const QDate& f : fechas) {
                fuera.push_back(pregunta(reg, fam, f));
            }
        }
    }
    // The seeded history answers most of them, with families found again.
    EXPECT_GT(std::count_if(fuera.begin(), fuera.end(),
                            [](const Respuesta& r) { return r.familia.has_value(); }),
              50);
    const qint64 antes = s->cn().Sentencias();
    {
        const AmbitoEjecucion ambito(*s);
        std::size_t k = 0;
        for (int reg = 1; reg <= 10; ++reg) {
            for (int fam = 1; fam <= 4; ++fam) {
                for (const QDate& f : fechas) {
                    const Respuesta r = pregunta(reg, fam, f);
                    const Respuesta& esperada = fuera[k++];
                    ASSERT_EQ(r.vigente.has_value(), esperada.vigente.has_value());
                    if (r.vigente) {
                        EXPECT_EQ(r.vigente->id, esperada.vigente->id);
                        EXPECT_EQ(r.vigente->iva, esperada.vigente->iva);
                        EXPECT_EQ(r.vigente->rec, esperada.vigente->rec);
                        EXPECT_EQ(r.vigente->ret, esperada.vigente->ret);
                    }
                    EXPECT_EQ(r.familia, esperada.familia) << reg << " " << fam;
                }
            }
        }
    }
    // One read of the table for the whole run.
    EXPECT_EQ(s->cn().Sentencias() - antes, 1);
    // Outside a run the database is asked again.
    TipoIvaVigente(*s, 1, 1, QDate(2026, 11, 23));
    EXPECT_EQ(s->cn().Sentencias() - antes, 2);
}

TEST_P(Ejecucion, ABatchCommitsOnceAndAFailedUnitIsUndoneAlone) {
    Conexion& cn = s->cn();
    TransaccionPorLotes lote(cn, 3, std::chrono::hours(1));
    const auto unidad = [&](const QString& nombre, bool falla) {
        lote.Empieza();
        Transaccion t(cn);
        cn.Execute(QStringLiteral("INSERT INTO Age (Age_Nom) VALUES (?)"), {nombre});
        if (falla) {
            // A statement the database refuses, as a failed invoice meets.
            EXPECT_THROW(cn.Execute(QStringLiteral("INSERT INTO Age (Age_Id, Age_Nom) VALUES "
                                                   "(?, ?)"),
                                    {QStringLiteral("x"), nombre}),
                         ErrorBd);
            t.Deshaz();
            return;
        }
        t.Confirma();
    };
    unidad(QStringLiteral("Ana"), false);
    unidad(QStringLiteral("Benito"), true);
    EXPECT_FALSE(lote.Toca());
    // Another session sees nothing before the commit.
    auto otra = BdSesion::Abre(base->cadenaCatalogo(QStringLiteral("vkemp0001")));
    EXPECT_EQ(otra->cn().Execute(QStringLiteral("SELECT COUNT(*) FROM Age")).Fields(0).Entero(), 0);
    unidad(QStringLiteral("Carmen"), false);
    EXPECT_TRUE(lote.Toca());
    lote.Confirma();
    EXPECT_FALSE(lote.Abierta());
    EXPECT_EQ(cn.NivelTransaccion(), 0);
    EXPECT_EQ(otra->cn()
                  .Execute(QStringLiteral("SELECT COUNT(*) FROM Age WHERE Age_Nom IN (?, ?)"),
                           {QStringLiteral("Ana"), QStringLiteral("Carmen")})
                  .Fields(0)
                  .Entero(),
              2);
    EXPECT_EQ(agentes(), 2);
}

VK_EN_AMBOS_MOTORES(Ejecucion);

} // namespace
} // namespace vk::prueba
