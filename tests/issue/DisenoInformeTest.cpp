// Designs by report name: the built-in one, an installation's file that
// replaces it, and designs that extend another.
#include <DisenoInforme.h>
#include <Error.h>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace vk::informe {
namespace {

class Disenos : public ::testing::Test {
protected:
    void SetUp() override {
        anterior_ = qgetenv("VKFACTUVEN_DATOS");
        qputenv("VKFACTUVEN_DATOS", datos_.path().toUtf8());
        QDir(datos_.path()).mkpath(QStringLiteral("disenos"));
    }
    void TearDown() override { qputenv("VKFACTUVEN_DATOS", anterior_); }
    void escribe(const QString& nombre, const QByteArray& json) {
        QFile f(QDir(datos_.path()).filePath(QStringLiteral("disenos/") + nombre));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(json);
    }
    QTemporaryDir datos_;
    QByteArray anterior_;
};

TEST_F(Disenos, BuiltInGeneralInvoiceCarriesTheNamesTheIssueCodeSets) {
    auto r = CargaDiseno(QStringLiteral("crfacturasgeneral")); // any case
    EXPECT_EQ(r->Name, QStringLiteral("CrFacturasGeneral"));
    ASSERT_EQ(r->Grupos.size(), 2u);
    EXPECT_EQ(r->Grupos[0].Campo, QStringLiteral("Fav_Id"));
    EXPECT_TRUE(r->Grupos[0].NuevaPaginaDespues);
    for (const char* s : {"GroupHeaderSection3", "GroupLopd", "GroupCpago"}) {
        EXPECT_NE(r->Sections.Busca(QString::fromLatin1(s)), nullptr) << s;
    }
    for (const char* f : {"cLiteralEmpresa", "cLiteralActividad", "cLiteralDireccion",
                          "cLiteralPoblacion", "cLiteralProvincia", "cLiteralTelefono",
                          "cLiteralMail", "pLiteralLinea1", "pLiteralLinea2", "cCopiaFactura",
                          "lopd", "rutaimagen", "bControlLotes", "bControlDesAmp"}) {
        EXPECT_NE(r->FormulaFields.Busca(QString::fromLatin1(f)), nullptr) << f;
    }
    for (const char* o : {"CajasBultos", "LavBulto1", "LiteralDescripcion1", "LogoEmpresa", "Box1",
                          "Box2", "txtConPago", "txtVencimientos", "LiteralFco11", "LiteralVto61",
                          "txtColConcepto", "Text9"}) {
        EXPECT_NE(r->BuscaObjeto(QString::fromLatin1(o)), nullptr) << o;
    }
    EXPECT_EQ(r->FormulaFields.GetItemByName(QStringLiteral("cCopiaFactura")).Text,
              QStringLiteral("''"));
    EXPECT_THROW(r->FormulaFields.GetItemByName(QStringLiteral("NoExiste")), ErrorDiseno);
    EXPECT_THROW(r->Sections.Item(QStringLiteral("NoExiste")), ErrorDiseno);
    EXPECT_THROW(CargaDiseno(QStringLiteral("CrNoExiste")), ErrorDiseno);
}

TEST_F(Disenos, InstallationFileReplacesOrExtendsTheBuiltIn) {
    // A whole design of the same name replaces the built-in one.
    escribe(
        QStringLiteral("CrFacturasGeneral.json"),
        R"({"Name":"CrFacturasGeneral","TopMargin":1000,"Sections":[{"Name":"D","Tipo":"detalle","Height":200}]})");
    auto propio = CargaDiseno(QStringLiteral("CrFacturasGeneral"));
    EXPECT_EQ(propio->TopMargin, 1000);
    EXPECT_EQ(propio->Sections.Count(), 1);

    // Extending its own name builds on the built-in: only what differs.
    escribe(QStringLiteral("CrFacturasGeneral.json"), R"({
        "Extiende": "CrFacturasGeneral",
        "TopMargin": 900,
        "FormulaFields": [{"Name": "cLiteralComer", "Text": "'Comercial'"},
                          {"Name": "cNueva", "Text": "'x'"}],
        "Sections": [
          {"Name": "GroupHeaderSection3", "Suppress": true},
          {"Name": "DetailSection1", "Objetos": [
              {"Name": "LiteralDescripcion1", "Left": 1300, "Font": {"negrita": true}},
              {"Name": "CodArt1", "Eliminar": true},
              {"Name": "Nuevo1", "Tipo": "texto", "Texto": "*", "Left": 10, "Width": 50, "Height": 50}]},
          {"Name": "DetailSection3", "Tipo": "detalle", "Height": 100, "Despues": "DetailSection1"}
        ]})");
    auto r = CargaDiseno(QStringLiteral("CrFacturasGeneral"));
    EXPECT_EQ(r->TopMargin, 900);
    EXPECT_TRUE(r->Sections.Item(QStringLiteral("GroupHeaderSection3")).Suppress);
    EXPECT_EQ(r->Sections.Item(QStringLiteral("GroupHeaderSection3")).Height, 330); // kept
    ObjetoInforme& d = r->Objeto(QStringLiteral("LiteralDescripcion1"));
    EXPECT_EQ(d.Left, 1300);
    EXPECT_EQ(d.Width, 7365); // kept
    EXPECT_TRUE(d.CanGrow);   // kept
    EXPECT_TRUE(d.Font.negrita);
    EXPECT_DOUBLE_EQ(d.Font.puntos, 8.5); // kept inside the font
    EXPECT_EQ(r->BuscaObjeto(QStringLiteral("CodArt1")), nullptr);
    EXPECT_NE(r->BuscaObjeto(QStringLiteral("Nuevo1")), nullptr);
    EXPECT_EQ(r->FormulaFields.GetItemByName(QStringLiteral("cLiteralComer")).Text,
              QStringLiteral("'Comercial'"));
    EXPECT_EQ(r->FormulaFields.GetItemByName(QStringLiteral("cNueva")).Text, QStringLiteral("'x'"));
    EXPECT_EQ(r->FormulaFields.GetItemByName(QStringLiteral("cLiteralEmpresa")).Text,
              QStringLiteral("''"));
    // The new section sits right after the one it names.
    int i1 = -1, i3 = -1;
    for (int i = 1; i <= r->Sections.Count(); ++i) {
        if (r->Sections.Item(i).Name == QLatin1String("DetailSection1"))
            i1 = i;
        if (r->Sections.Item(i).Name == QLatin1String("DetailSection3"))
            i3 = i;
    }
    EXPECT_EQ(i3, i1 + 1);

    // Another name extending the general design.
    escribe(QStringLiteral("CrFacturaCliente.json"),
            R"({"Extiende":"CrFacturasGeneral","ReportTitle":"Factura cliente"})");
    auto otra = CargaDiseno(QStringLiteral("CrFacturaCliente"));
    EXPECT_EQ(otra->Name, QStringLiteral("CrFacturaCliente"));
    EXPECT_EQ(otra->ReportTitle, QStringLiteral("Factura cliente"));
    EXPECT_EQ(otra->TopMargin, 900); // through the installation's general design
}

TEST_F(Disenos, BadDesignsAreRefusedWithAClearMessage) {
    escribe(QStringLiteral("CrA.json"), R"({"Extiende":"CrB"})");
    escribe(QStringLiteral("CrB.json"), R"({"Extiende":"CrA"})");
    EXPECT_THROW(CargaDiseno(QStringLiteral("CrA")), ErrorDiseno);
    escribe(QStringLiteral("CrRoto.json"), "{ no es json");
    try {
        CargaDiseno(QStringLiteral("CrRoto"));
        FAIL();
    } catch (const ErrorDiseno& e) {
        EXPECT_TRUE(e.Mensaje().contains(QStringLiteral("no es válido"))) << e.what();
    }
    escribe(QStringLiteral("CrGrupo.json"),
            R"({"Sections":[{"Name":"G","Tipo":"pieGrupo","Grupo":"Nada"}]})");
    EXPECT_THROW(CargaDiseno(QStringLiteral("CrGrupo")), ErrorDiseno);
    escribe(QStringLiteral("CrTipo.json"), R"({"Sections":[{"Name":"G","Tipo":"rara"}]})");
    EXPECT_THROW(CargaDiseno(QStringLiteral("CrTipo")), ErrorDiseno);
}

} // namespace
} // namespace vk::informe
