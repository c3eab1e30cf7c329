// The row source of the invoice reports and the PDF of the demo company's
// invoices, on both backends.
#include "EmpresaPrueba.h"
#include "FacturacionDemo.h"
#include "PdfTexto.h"

#include <EmisionInforme.h>
#include <EmpresaDemo.h>
#include <FacturaTransportes.h>
#include <Formato.h>
#include <OpcionesInforme.h>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <RegistroSuite.h>
#include <SqlFacturas.h>
#include <map>

namespace vk::prueba {
namespace {

const QDate kDia(2026, 3, 10);

class FilasFacturas : public PruebaMotores {};

TEST_P(FilasFacturas, OneRowPerLineWithAddressAndPaymentText) {
    EmpresaPrueba e(GetParam());
    const qint32 c = e.cliente();
    const qint32 a1 = e.albaran(c, kDia, 1, {{100}, {50}, {25}});
    const qint32 a2 = e.albaran(c, kDia.addDays(1), 1, {{10}});
    const qint32 otra = e.albaran(c, kDia, 1, {{999}});
    const qint32 id = e.nuevaFactura(c, kDia, {a1, a2});
    const qint32 id2 = e.nuevaFactura(c, kDia, {otra});
    e.cn().Execute(
        QStringLiteral("UPDATE Fav SET Fav_IdDir = 0, Fav_Sg = 'C', Fav_Nombre = 'Mayor  ', "
                       "Fav_Num = 12, Fav_Escalera = '2', Fav_Piso = '3', Fav_Puerta = 'B', "
                       "Fav_Cp = '46001', Fav_Poblacion = 'Valencia', Fav_Provincia = 46, "
                       "Fav_Pais = '011', Fav_CliDoc = 'B12345678' WHERE Fav_Id = ?"),
        {id});

    Recordset rs = LeeFilasFacturas(e.bd(), {id});
    ASSERT_EQ(rs.RecordCount(), 4);
    QList<double> importes;
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
        EXPECT_EQ(rs.Fields(QStringLiteral("Fav_Id")).Entero(), id);
        EXPECT_EQ(rs.Fields(QStringLiteral("Cli_Doc")).Texto(), QStringLiteral("B12345678"));
        EXPECT_EQ(rs.Fields(QStringLiteral("FormaPago")).Texto(), QString(11, u'#'));
        importes << rs.Fields(QStringLiteral("Lav_Importe")).Doble();
    }
    EXPECT_EQ(importes, (QList<double>{100, 50, 25, 10})); // note date, then line order
    rs.MoveFirst();
    EXPECT_TRUE(rs.Fields(QStringLiteral("NumeroAlbaran")).Texto().contains(u'/'));
    const QStringList lineas =
        rs.Fields(QStringLiteral("Direcion")).Texto().split(QStringLiteral("\r\n"));
    ASSERT_EQ(lineas.size(), 3);
    EXPECT_EQ(lineas[0].simplified(), QStringLiteral("C Mayor 12 2 3 B"));
    EXPECT_TRUE(lineas[0].startsWith(QStringLiteral("C Mayor 12    2"))) << lineas[0].toStdString();
    EXPECT_EQ(lineas[1], QStringLiteral("46001 - Valencia "));
    EXPECT_TRUE(lineas[2].endsWith(QStringLiteral("  -  ESPAÑA"))) << lineas[2].toStdString();
    EXPECT_GT(lineas[2].size(), QStringLiteral("  -  ESPAÑA").size());

    // A registered address: the view's text, then province and country.
    const qint64 dir = e.cn()
                           .Execute(QStringLiteral(
                               "INSERT INTO Dir (DIR_SG, DIR_NOMBRE, Dir_Numero, DIR_CP, "
                               "DIR_POBLACION, Dir_Provincia, Dir_Pais) VALUES ('PL', 'Reina', "
                               "NULL, '03001', 'Alicante', 99, '011') RETURNING DIR_ID"))
                           .Fields(0)
                           .Entero();
    e.cn().Execute(QStringLiteral("UPDATE Fav SET Fav_IdDir = ? WHERE Fav_Id = ?"), {dir, id});
    rs = LeeFilasFacturas(e.bd(), {id, id2});
    EXPECT_EQ(rs.RecordCount(), 5);
    ASSERT_TRUE(rs.Find(QStringLiteral("Fav_Id"), id));
    EXPECT_EQ(rs.Fields(QStringLiteral("Direcion")).Texto(),
              QStringLiteral("PL Reina\r\n03001 - Alicante\r\n  -  ESPAÑA"));

    // The first sales receipt's text once there are receipts.
    e.cn().Execute(QStringLiteral("INSERT INTO Rec (Rec_Tipo, Rec_IdFac, Rec_Texto) VALUES "
                                  "(2, ?, 'compra'), (1, ?, 'Contado#10/03/2026  10,00 €')"),
                   {id, id});
    rs = LeeFilasFacturas(e.bd(), {id});
    EXPECT_EQ(rs.Fields(QStringLiteral("FormaPago")).Texto(),
              QStringLiteral("Contado#10/03/2026  10,00 €"));

    // No ids, or an invoice without notes: no rows, no file.
    EXPECT_EQ(LeeFilasFacturas(e.bd(), {}).RecordCount(), 0);
    const qint32 vacia = e.nuevaFactura(c, kDia, {});
    QTemporaryDir tmp;
    EXPECT_EQ(RenderizaFacturasPdf(e.bd(), {vacia}, QStringLiteral("CrFacturasGeneral"),
                                   tmp.filePath(QStringLiteral("v.pdf")), {}),
              QString());
    EXPECT_FALSE(QFile::exists(tmp.filePath(QStringLiteral("v.pdf"))));
}

// MencionIva: the installation's mentions of the regimes of the invoice's
// lines, each once and in regime order, the same on every row of the
// invoice, also for the readers with an order of their own.
TEST_P(FilasFacturas, VatMentionFollowsTheRegimesOfTheLines) {
    EmpresaPrueba e(GetParam());
    const qint32 c = e.cliente();
    const qint32 normal = e.nuevaFactura(c, kDia, {e.albaran(c, kDia, 1, {{100}, {50, 1, 4}})});
    const qint32 exporta =
        e.nuevaFactura(c, kDia, {e.albaran(c, kDia, 5, {{100, 5, 4}, {40, 5, 4}})});
    // Regime 6 first and twice, regime 5 between, a general line last.
    const qint32 mixta = e.nuevaFactura(
        c, kDia, {e.albaran(c, kDia, 1, {{10, 6, 4}, {20, 5, 4}, {5, 6, 4}, {30, 1, 1}})});
    const auto menciones = [&] {
        std::map<qint64, QStringList> r;
        for (Recordset rs = LeeFilasFacturas(e.bd(), {normal, exporta, mixta}); !rs.Eof();
             rs.MoveNext()) {
            r[rs.Fields(QStringLiteral("Fav_Id")).Entero()]
                << rs.Fields(QStringLiteral("MencionIva")).Texto(QStringLiteral("nulo"));
        }
        return r;
    };
    const QString art21 = QStringLiteral("Exenta art. 21 Ley 37/1992");
    const QString art25 = QStringLiteral("Exenta art. 25 Ley 37/1992");
    auto m = menciones();
    EXPECT_EQ(m[normal], QStringList(2, QString()));
    EXPECT_EQ(m[exporta], QStringList(2, art21));
    EXPECT_EQ(m[mixta], QStringList(4, art21 + QStringLiteral(". ") + art25));

    // The installation's own text, and a regime it adds.
    e.cn().Execute(
        QStringLiteral("UPDATE vkcomun.MENIVA SET MenIva_Texto = ? WHERE MenIva_Reg = ?"),
        {QStringLiteral("Exportación exenta (art. 21 LIVA)"), 5});
    e.cn().Execute(
        QStringLiteral("INSERT INTO vkcomun.MENIVA (MenIva_Reg, MenIva_Texto) VALUES (?, ?)"),
        {1, QStringLiteral("Régimen general")});
    m = menciones();
    EXPECT_EQ(m[normal], QStringList(2, QStringLiteral("Régimen general")));
    EXPECT_EQ(m[exporta], QStringList(2, QStringLiteral("Exportación exenta (art. 21 LIVA)")));
    EXPECT_EQ(m[mixta], QStringList(4, QStringLiteral("Régimen general. Exportación exenta (art. "
                                                      "21 LIVA). ") +
                                           art25));

    // The works family reads these rows as they are; the transport family
    // with its own order gets the column too.
    e.cn().Execute(QStringLiteral("DELETE FROM vkcomun.MENIVA WHERE MenIva_Reg = 1"));
    const DatosTransportes t = LeeDatosTransportes(e.bd(), {mixta});
    ASSERT_EQ(t.filas.RecordCount(), 4);
    EXPECT_EQ(t.filas.Fields(QStringLiteral("MencionIva")).Texto(),
              QStringLiteral("Exportación exenta (art. 21 LIVA). ") + art25);
}

// The food design's subreports: every VAT rate, and the components of the
// composed articles the invoices' lines carry, named by the line of the
// formula or, without a name there, by the component article.
TEST_P(FilasFacturas, FoodSubreportsReadRatesAndComposition) {
    EmpresaPrueba e(GetParam());
    const qint32 c = e.cliente();
    const qint32 a = e.albaran(c, kDia, 1, {{100}, {50}});
    const qint32 otra = e.albaran(c, kDia, 1, {{10}});
    const qint32 id = e.nuevaFactura(c, kDia, {a});
    e.nuevaFactura(c, kDia, {otra});
    auto inserta = [&](const QString& sql, const QVariantList& v) {
        return e.cn().Execute(sql + QStringLiteral(" RETURNING 1 AS n"), v).Fields(0).Entero();
    };
    e.cn().Execute(QStringLiteral("INSERT INTO Art (Art_Cod, Art_Des) VALUES ('TURRON', 'Turrón "
                                  "duro'), ('ALM', 'Almendra marcona'), ('MIEL', 'Miel'), "
                                  "('OTRO', 'Sin componer')"));
    auto idArt = [&](const char* cod) {
        return e.cn()
            .Execute(QStringLiteral("SELECT Art_Id FROM Art WHERE Art_Cod = ?"),
                     {QString::fromLatin1(cod)})
            .Fields(0)
            .Entero();
    };
    const qint64 fml =
        e.cn()
            .Execute(QStringLiteral("INSERT INTO Fml (Fml_Des) VALUES ('Turrón') RETURNING Fml_Id"))
            .Fields(0)
            .Entero();
    inserta(QStringLiteral("INSERT INTO ArtCom (ArtCom_IdArt, ArtCom_IdFml) VALUES (?, ?)"),
            {idArt("TURRON"), fml});
    inserta(QStringLiteral("INSERT INTO Fmll (FMLL_IDFML, FMLL_IdArt, fmll_Des, FMLL_CANTIDAD, "
                           "Fmll_Uni) VALUES (?, ?, NULL, 0.6, 2), (?, ?, 'Miel de romero', "
                           "0.3, 1)"),
            {fml, idArt("ALM"), fml, idArt("MIEL")});
    e.cn().Execute(QStringLiteral("UPDATE Lav SET Lav_CodArt = 'TURRON' WHERE Lav_IdCav = ? AND "
                                  "Lav_Orden = 1"),
                   {a});
    e.cn().Execute(QStringLiteral("UPDATE Lav SET Lav_CodArt = 'OTRO' WHERE Lav_IdCav = ?"),
                   {otra});

    Recordset comp = LeeComposicionFacturas(e.bd(), {id});
    ASSERT_EQ(comp.RecordCount(), 2);
    QStringList articulos;
    for (; !comp.Eof(); comp.MoveNext()) {
        EXPECT_EQ(comp.Fields(QStringLiteral("Art_Cod")).Texto(), QStringLiteral("TURRON"));
        articulos << comp.Fields(QStringLiteral("Articulo")).Texto() + QLatin1Char(' ') +
                         Format(comp.Fields(QStringLiteral("FMLL_CANTIDAD")).Value(),
                                QStringLiteral("0.0")) +
                         QStringLiteral(" x") +
                         QString::number(comp.Fields(QStringLiteral("Fmll_Uni")).Entero());
    }
    articulos.sort();
    EXPECT_EQ(articulos, (QStringList{QStringLiteral("Almendra marcona 0,6 x2"),
                                      QStringLiteral("Miel de romero 0,3 x1")}));
    EXPECT_EQ(LeeComposicionFacturas(e.bd(), {}).RecordCount(), 0);

    Recordset tipos = LeeTiposIva(e.bd());
    EXPECT_GT(tipos.RecordCount(), 10);
    for (const char* col : {"Tiva_Id", "Tiva_Iva", "Tiva_Rec"}) {
        EXPECT_TRUE(tipos.TieneCampo(QString::fromLatin1(col))) << col;
    }
}

// A 200-line invoice through the general design: every line once, in order,
// the page header on each page, "Página n de m", and the totals on the last.
TEST_P(FilasFacturas, TwoHundredLinesBreakAcrossPagesOfTheGeneralDesign) {
    EmpresaPrueba e(GetParam());
    e.parametro(QStringLiteral("PAR_NOMBRE"), QStringLiteral("Ferretería Larga, S.L."));
    e.parametro(QStringLiteral("Par_PrnEmp"), 1);
    e.parametro(QStringLiteral("Par_PrintFco"), 1);
    const qint32 c = e.cliente();
    std::vector<LineaPrueba> lineas(200, LineaPrueba{1.5});
    const qint32 id = e.nuevaFactura(c, kDia, {e.albaran(c, kDia, 1, lineas)});
    e.factura().CalculoTotalesFactura();
    ASSERT_TRUE(e.factura().GrabaFactura());

    QTemporaryDir tmp;
    const QString pdf = tmp.filePath(QStringLiteral("larga.pdf"));
    ContextoInforme ctx;
    ctx.tipoEmision = 2;
    ASSERT_EQ(RenderizaFacturasPdf(e.bd(), {id}, QStringLiteral("CrFacturasGeneral"), pdf, ctx),
              pdf);
    const QString texto = TextoPdf(pdf);
    const QStringList paginas = texto.split(u'\f', Qt::SkipEmptyParts);
    ASSERT_GE(paginas.size(), 4);
    QStringList orden;
    for (int i = 1; i <= 200; ++i) {
        const QString linea = QStringLiteral("Línea %1 ").arg(i);
        EXPECT_EQ(texto.count(QRegularExpression(QStringLiteral("Línea %1\\b").arg(i))), 1) << i;
        orden << linea.trimmed();
    }
    EXPECT_TRUE(EnOrden(texto, orden));
    for (int p = 0; p < paginas.size(); ++p) {
        EXPECT_TRUE(paginas[p].contains(QStringLiteral("Ferretería Larga, S.L."))) << p;
        EXPECT_TRUE(
            paginas[p].contains(QStringLiteral("Página %1 de %2").arg(p + 1).arg(paginas.size())))
            << p;
    }
    // 200 x 1,50 = 300,00 + 21 % VAT.
    EXPECT_TRUE(paginas.last().contains(QStringLiteral("363,00")));
    EXPECT_FALSE(paginas.first().contains(QStringLiteral("363,00")));
}

class FacturasDemo : public PruebaMotores {};

TEST_P(FacturasDemo, PdfShowsTheInvoiceInReadingOrder) {
    BasePrueba base(GetParam());
    auto s = base.CreaEmpresa();
    CreaDatosDemo(*s);
    s->cn().Execute(QStringLiteral("UPDATE Parametros SET Par_PrnEmp = 1, Par_PrintFco = 1"));
    s->RecargaParametros();
    suite::RegistraComponentesSuite();
    VKFACVENTAS f;
    f.setMyBd(*s);
    InteraccionGuion ui;
    ui.ResponderSiSiempre(true);
    const UsaInteraccion puerto(ui);
    const std::vector<qint32> facturas = FacturaPendientesDemo(f, ui);
    ASSERT_GE(facturas.size(), 3u);
    const QVector<qint32> ids{facturas[0], facturas[1], facturas[2]};

    QTemporaryDir tmp;
    const QString fichero = tmp.filePath(QStringLiteral("facturas.pdf"));
    ContextoInforme rutaPdf;
    rutaPdf.tipoEmision = 2;
    rutaPdf.textoLopd = f.sTextoLOPD;
    ASSERT_EQ(RenderizaFacturasPdf(*s, ids, QStringLiteral("CrFacturasGeneral"), fichero, rutaPdf),
              fichero);
    // To look at the pages: VK_FACTURA_MUESTRA=/some/file.pdf
    if (!qEnvironmentVariableIsEmpty("VK_FACTURA_MUESTRA")) {
        QFile::remove(qEnvironmentVariable("VK_FACTURA_MUESTRA"));
        QFile::copy(fichero, qEnvironmentVariable("VK_FACTURA_MUESTRA"));
    }
    const QStringList paginas = TextoPdf(fichero).split(u'\f', Qt::SkipEmptyParts);
    ASSERT_GE(paginas.size(), 3);

    // Each invoice starts a page; read the first invoice's pages.
    Recordset fav = s->cn().Execute(
        QStringLiteral("SELECT Fav_Serie, Fav_Numero, Fav_Fecha, Fav_Clinom, Fav_CliDoc, "
                       "Fav_Total, Fav_BIva1, Fav_ImpIva1 FROM Fav WHERE Fav_Id = ?"),
        {ids[0]});
    const QString numero = fav.Fields(QStringLiteral("Fav_Serie")).Texto() + u'/' +
                           QString::number(fav.Fields(QStringLiteral("Fav_Numero")).Entero());
    QString primera;
    for (const QString& p : paginas) {
        if (p.contains(numero + QLatin1Char('\n')) || p.contains(numero + QLatin1Char(' '))) {
            primera += p;
        }
    }
    ASSERT_FALSE(primera.isEmpty()) << numero.toStdString();
    Recordset rec = s->cn().Execute(
        QStringLiteral(
            "SELECT Rec_FVto FROM Rec WHERE Rec_Tipo = 1 AND Rec_IdFac = ? ORDER BY Rec_Id"),
        {ids[0]});
    Recordset lav = s->cn().Execute(
        QStringLiteral("SELECT Lav_Des FROM Lav INNER JOIN Cav ON Cav_Id = Lav_IdCav WHERE "
                       "Cav_IdFactura = ? ORDER BY Cav_Fecha, Cav_Serie, Cav_Numero, Lav_Orden"),
        {ids[0]});
    ASSERT_FALSE(lav.Eof());
    ASSERT_FALSE(rec.Eof());
    const QString plano = primera.simplified();
    EXPECT_TRUE(EnOrden(
        plano,
        {QStringLiteral("Suministros y Servicios Turialev, S.L."), QStringLiteral("NIF: B96824172"),
         QStringLiteral("FACTURA"), numero,
         Format(fav.Fields(QStringLiteral("Fav_Fecha")).Value(), QStringLiteral("dd/mm/yyyy")),
         lav.Fields(QStringLiteral("Lav_Des")).Texto().simplified().left(20),
         QStringLiteral("Base imponible"),
         Format(fav.Fields(QStringLiteral("Fav_BIva1")).Doble(), QStringLiteral("#,##0.00")),
         Format(fav.Fields(QStringLiteral("Fav_ImpIva1")).Doble(), QStringLiteral("#,##0.00")),
         QStringLiteral("TOTAL FACTURA"),
         FormatoMoneda(fav.Fields(QStringLiteral("Fav_Total")).Doble()),
         QStringLiteral("Vencimientos"),
         Format(rec.Fields(QStringLiteral("Rec_FVto")).Value(), QStringLiteral("dd/mm/yyyy")),
         f.sTextoLOPD.simplified().left(30)}));
    EXPECT_TRUE(plano.contains(fav.Fields(QStringLiteral("Fav_Clinom")).Texto().simplified()));
    EXPECT_TRUE(plano.contains(QStringLiteral("NIF: ") +
                               fav.Fields(QStringLiteral("Fav_CliDoc")).Texto().trimmed()));
    for (lav.MoveFirst(); !lav.Eof(); lav.MoveNext()) {
        EXPECT_TRUE(
            plano.contains(lav.Fields(QStringLiteral("Lav_Des")).Texto().simplified().left(20)));
    }

    // The copy mark and the options of the company reach the page.
    const QString copia = tmp.filePath(QStringLiteral("copia.pdf"));
    ContextoInforme o;
    o.tipoEmision = 2;
    o.copia = true;
    o.imprimeAlbaran = false;
    s->cn().Execute(QStringLiteral("UPDATE Parametros SET PAR_FLOPD = 0, Par_PrintFco = 0"));
    s->RecargaParametros();
    RenderizaFacturasPdf(*s, {ids[0]}, QStringLiteral("CrFacturasGeneral"), copia, o);
    const QString t = TextoPdf(copia);
    EXPECT_TRUE(t.contains(QStringLiteral("* DUPLICADO DE FACTURA *")));
    EXPECT_FALSE(t.contains(QStringLiteral("Albarán ")));
    EXPECT_FALSE(t.contains(QStringLiteral("Vencimientos")));
    EXPECT_FALSE(t.simplified().contains(f.sTextoLOPD.simplified().left(30)));
}

// The demo's export customers (regime 5) get the export mention on their
// invoices; the others get none.
class MencionesDemo : public EmpresaDemoPrueba {};

TEST_P(MencionesDemo, ExportInvoicesCarryTheirLegalMention) {
    const std::vector<qint32> facturas = FacturaPendientesDemo(f, ui);
    ASSERT_FALSE(facturas.empty());
    int exportaciones = 0;
    for (Recordset rs = LeeFilasFacturas(*s, QVector<qint32>(facturas.begin(), facturas.end()));
         !rs.Eof(); rs.MoveNext()) {
        const qint64 regimen =
            s->cn()
                .Execute(QStringLiteral("SELECT Cli_Reg FROM Cli WHERE CLI_ID = ?"),
                         {rs.Fields(QStringLiteral("Fav_IdCli")).Value()})
                .Fields(0)
                .Entero();
        const QString mencion = rs.Fields(QStringLiteral("MencionIva")).Texto();
        if (regimen == 5) {
            ++exportaciones;
            EXPECT_EQ(mencion, QStringLiteral("Exenta art. 21 Ley 37/1992"));
        } else {
            EXPECT_EQ(mencion, QString()) << regimen;
        }
    }
    EXPECT_GT(exportaciones, 0);
}

VK_EN_AMBOS_MOTORES(FilasFacturas);
VK_EN_AMBOS_MOTORES(FacturasDemo);
VK_EN_AMBOS_MOTORES(MencionesDemo);

} // namespace
} // namespace vk::prueba
