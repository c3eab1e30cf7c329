// Formula texts as the issue code writes them and as the designs use them.
#include <Error.h>
#include <Formula.h>
#include <QHash>
#include <gtest/gtest.h>

namespace vk::informe {
namespace {

class Valores : public FuenteValores {
public:
    QHash<QString, QVariant> campos;
    QHash<QString, QString> formulas;
    bool Campo(const QString& n, QVariant& v) const override {
        for (auto it = campos.begin(); it != campos.end(); ++it) {
            if (it.key().compare(n, Qt::CaseInsensitive) == 0) {
                v = it.value();
                return true;
            }
        }
        return false;
    }
    bool Formula(const QString& n, QString& t) const override {
        if (!formulas.contains(n)) {
            return false;
        }
        t = formulas.value(n);
        return true;
    }
};

TEST(Formula, LiteralsQuotedAsTheIssueCodeQuotesThem) {
    const Valores v;
    EXPECT_EQ(EvaluaFormula(QStringLiteral("'O''Brien'"), v).toString(), QStringLiteral("O'Brien"));
    EXPECT_EQ(EvaluaFormula(Entrecomilla(QStringLiteral("L'Eliana ''x''")), v).toString(),
              QStringLiteral("L'Eliana ''x''"));
    EXPECT_EQ(Entrecomilla(QStringLiteral("O'Brien")), QStringLiteral("'O''Brien'"));
    EXPECT_EQ(EvaluaFormula(QStringLiteral("''"), v).toString(), QString());
    EXPECT_EQ(EvaluaFormula(QString(), v).toString(), QString());
    EXPECT_EQ(EvaluaFormula(QStringLiteral("\"dice \"\"sí\"\"\""), v).toString(),
              QStringLiteral("dice \"sí\""));
    EXPECT_EQ(EvaluaFormula(QStringLiteral("'* DUPLICADO DE FACTURA *'"), v).toString(),
              QStringLiteral("* DUPLICADO DE FACTURA *"));
}

TEST(Formula, FlagsNumbersAndTruth) {
    const Valores v;
    EXPECT_EQ(EvaluaFormula(QStringLiteral("True"), v), QVariant(true));
    EXPECT_EQ(EvaluaFormula(QStringLiteral(" false "), v), QVariant(false));
    EXPECT_FALSE(EsVerdadero(EvaluaFormula(QStringLiteral("False"), v)));
    EXPECT_FALSE(EsVerdadero(QStringLiteral("False")));
    EXPECT_FALSE(EsVerdadero(QVariant(0.0)));
    EXPECT_FALSE(EsVerdadero(QVariant()));
    EXPECT_FALSE(EsVerdadero(QStringLiteral("  ")));
    EXPECT_TRUE(EsVerdadero(QVariant(0.01)));
    EXPECT_DOUBLE_EQ(EvaluaFormula(QStringLiteral("12.5 + 1"), v).toDouble(), 13.5);
}

TEST(Formula, FieldsFormulasConcatenationAndPieces) {
    Valores v;
    v.campos[QStringLiteral("Fav_Serie")] = QStringLiteral("A");
    v.campos[QStringLiteral("Fav_Numero")] = 27;
    v.campos[QStringLiteral("Fav_ImpIva2")] = QVariant();
    v.campos[QStringLiteral("Fav_ImpIva1")] = 21.0;
    v.campos[QStringLiteral("FormaPago")] =
        QStringLiteral("Giro 30/60#20/12/2026  60,50 €#19/01/2027  60,50 €");
    v.formulas[QStringLiteral("numero")] =
        QStringLiteral("{Fav.Fav_Serie} + '/' + Formato({Fav_Numero}, '00000')");
    v.formulas[QStringLiteral("titulo")] = QStringLiteral("'Factura ' + {@numero}");
    v.formulas[QStringLiteral("bucle")] = QStringLiteral("{@bucle2}");
    v.formulas[QStringLiteral("bucle2")] = QStringLiteral("bucle");

    EXPECT_EQ(EvaluaFormula(QStringLiteral("{Fav.Fav_Serie}"), v).toString(), QStringLiteral("A"));
    EXPECT_EQ(EvaluaFormula(QStringLiteral("fav_serie"), v).toString(), QStringLiteral("A"));
    EXPECT_EQ(EvaluaFormula(QStringLiteral("titulo"), v).toString(),
              QStringLiteral("Factura A/00027"));
    // A NULL amount adds as nothing.
    EXPECT_DOUBLE_EQ(EvaluaFormula(QStringLiteral("{Fav_ImpIva1} + {Fav_ImpIva2}"), v).toDouble(),
                     21.0);
    EXPECT_EQ(EvaluaFormula(QStringLiteral("Trozo({FormaPago}, '#', 1)"), v).toString(),
              QStringLiteral("Giro 30/60"));
    EXPECT_EQ(EvaluaFormula(QStringLiteral("Trozo({FormaPago}, '#', 3)"), v).toString(),
              QStringLiteral("19/01/2027  60,50 €"));
    EXPECT_EQ(EvaluaFormula(QStringLiteral("Trozo({FormaPago}, '#', 4)"), v).toString(), QString());
    // Without receipts the text is eleven "#": every piece is empty.
    v.campos[QStringLiteral("FormaPago")] = QString(11, u'#');
    for (int i = 1; i <= 12; ++i) {
        EXPECT_EQ(EvaluaFormula(QStringLiteral("Trozo({FormaPago}, '#', %1)").arg(i), v).toString(),
                  QString());
    }

    // A line's chained discounts in one column.
    v.campos[QStringLiteral("Lav_Dto1")] = 10.0;
    v.campos[QStringLiteral("Lav_Dto2")] = 5.0;
    EXPECT_EQ(EvaluaFormula(QStringLiteral("Descuentos(Lav_Dto1, Lav_Dto2)"), v).toString(),
              QStringLiteral("10+5"));
    v.campos[QStringLiteral("Lav_Dto1")] = 12.5;
    v.campos[QStringLiteral("Lav_Dto2")] = 0.0;
    EXPECT_EQ(EvaluaFormula(QStringLiteral("Descuentos(Lav_Dto1, Lav_Dto2)"), v).toString(),
              QStringLiteral("12,5"));
    v.campos[QStringLiteral("Lav_Dto1")] = QVariant();
    EXPECT_EQ(EvaluaFormula(QStringLiteral("Descuentos(Lav_Dto1, Lav_Dto2)"), v).toString(),
              QString());

    for (const char* malo : {"'sin cerrar", "{Fav_Serie", "{NoExiste}", "NoExiste", "'a' 'b'",
                             "bucle", "Desconocida(1)"}) {
        EXPECT_THROW(EvaluaFormula(QString::fromUtf8(malo), v), ErrorDiseno) << malo;
    }
}

} // namespace
} // namespace vk::informe
