// The tax QR of printed invoices: every shipped design and every family of
// the dispatcher print, at the top of the invoice's first page, the code of
// its record in force, which a reader decodes from the PDF to the URL of that
// record; the legends stand on that page only, and an invoice without a
// record prints none.
#include "EmpresaPrueba.h"
#include "FacturacionDemo.h"
#include "PdfTexto.h"

#include <CadenaFiscal.h>
#include <DisenoInforme.h>
#include <EmisionInforme.h>
#include <MaquetaInforme.h>
#include <OpcionesInforme.h>
#include <QDir>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <QUrl>
#include <RegistroFiscalFactura.h>
#include <SqlFacturas.h>

namespace vk::prueba {
namespace {

using informe::ElementoInforme;

const QString kEncima = QStringLiteral("QR tributario:");
const QString kDebajo = QStringLiteral("VERI*FACTU");

double mm(double twips) {
    return twips * 25.4 / 1440.0;
}

// The URL as the record in force states it, field by field: what the paper
// must name is what was registered.
QString urlDelRegistro(BdSesion& bd, qint32 id) {
    const auto r = fiscal::fnRegistroVigente(bd, id);
    if (!r || !r->EsAlta()) {
        ADD_FAILURE() << "invoice " << id << " has no alta in force";
        return {};
    }
    const QString url = fiscal::fnUrlQrFactura(bd, id);
    const QUrl leida(url);
    const QString consulta = leida.query(QUrl::FullyDecoded);
    EXPECT_TRUE(consulta.contains(QStringLiteral("nif=") + r->nif)) << url.toStdString();
    EXPECT_TRUE(consulta.contains(QStringLiteral("numserie=") + r->numSerie)) << url.toStdString();
    EXPECT_TRUE(consulta.contains(QStringLiteral("fecha=") + r->fecha)) << url.toStdString();
    EXPECT_TRUE(consulta.contains(QStringLiteral("importe=") + r->importeTotal))
        << url.toStdString();
    return url;
}

// What a reader and pdftotext find on each page of the PDF of one invoice:
// its code and legends on page 1, nothing of them on the others.
void compruebaPdf(const QString& fichero, const QString& url) {
    EXPECT_EQ(QrDePaginaPdf(fichero, 1), QStringList{url});
    const QString primera = TextoPaginaPdf(fichero, 1);
    EXPECT_TRUE(EnOrden(primera, {kEncima, kDebajo})) << primera.toStdString();
    const int paginas = static_cast<int>(TextoPdf(fichero).split(u'\f', Qt::SkipEmptyParts).size());
    for (int p = 2; p <= paginas; ++p) {
        SCOPED_TRACE(p);
        EXPECT_TRUE(QrDePaginaPdf(fichero, p).isEmpty());
        const QString t = TextoPaginaPdf(fichero, p);
        EXPECT_FALSE(t.contains(kEncima));
        EXPECT_FALSE(t.contains(kDebajo));
    }
}

// The layout of the design over the invoice as the PDF route prepares it:
// the code on the first page only, 30 to 40 mm, centred, with its legends,
// and nothing of the design in its band.
void compruebaGeometria(BdSesion& bd, qint32 id, const QString& nombre,
                        const ContextoInforme& ctx) {
    std::unique_ptr<informe::Reporte> r = informe::CargaDiseno(nombre);
    PreparaInforme(*r, bd, CargaEmpresa(bd), nombre, ctx);
    r->Database.Tables.Item(1).SetDataSource(LeeFilasFacturas(bd, {id}), 3);
    ActivaQrTributario(*r);
    QTemporaryDir dir;
    QPdfWriter pdf(dir.filePath(QStringLiteral("medidas.pdf")));
    pdf.setResolution(600);
    const informe::InformeMaquetado m = informe::MaquetaInforme(*r, pdf);
    ASSERT_FALSE(m.paginas.empty());
    const ElementoInforme* qr = nullptr;
    for (size_t p = 0; p < m.paginas.size(); ++p) {
        for (const ElementoInforme& e : m.paginas[p].elementos) {
            if (e.clase == ElementoInforme::Clase::CodigoQr) {
                ASSERT_EQ(p, 0u) << "a code on page " << p + 1;
                ASSERT_EQ(qr, nullptr) << "two codes";
                qr = &e;
            }
        }
    }
    ASSERT_NE(qr, nullptr);
    EXPECT_EQ(qr->rect.width(), qr->rect.height());
    for (const double lado : {qr->rect.width(), qr->rect.width() + 2 * qr->margen}) {
        EXPECT_GE(mm(lado), 30.0);
        EXPECT_LE(mm(lado), 40.0);
    }
    EXPECT_GE(mm(qr->margen), 2.0);
    EXPECT_NEAR(qr->rect.left() - r->LeftMargin, m.anchoPapel - r->RightMargin - qr->rect.right(),
                1.0);
    // The band: from the top margin to the page's first section.
    const QRectF banda(0, r->TopMargin, m.anchoPapel,
                       informe::bandaqr::Alto(r->Qr.Font, qr->ladoModulos));
    EXPECT_LE(qr->rect.bottom() + qr->margen, banda.bottom());
    for (const informe::SeccionColocada& c : m.colocadas) {
        if (c.pagina == 0) {
            EXPECT_GE(c.top, banda.bottom()) << c.seccion.toStdString();
        }
    }
    int leyendas = 0;
    for (const ElementoInforme& e : m.paginas[0].elementos) {
        if (e.objeto.startsWith(QLatin1String("CodigoQr")) &&
            e.clase == ElementoInforme::Clase::Texto) {
            ++leyendas;
            EXPECT_TRUE(banda.contains(e.rect)) << e.texto.toStdString();
        } else if (e.clase != ElementoInforme::Clase::CodigoQr) {
            EXPECT_FALSE(e.rect.intersects(banda)) << e.objeto.toStdString();
        }
    }
    EXPECT_EQ(leyendas, 2);
}

class QrDemo : public EmpresaDemoPrueba {
protected:
    // Academia Llum's invoice: three notes, seven lines.
    qint32 facturaDemo() {
        FacturaPendientesDemo(f, ui);
        return static_cast<qint32>(
            s->cn()
                .Execute(QStringLiteral("SELECT Fav_Id FROM Fav WHERE Fav_CliCod = ?"), {4})
                .Fields(0)
                .Entero());
    }
    QString emite(const QVector<qint32>& ids, qint16 diseno, const QString& clave) {
        s->cn().Execute(
            QStringLiteral("UPDATE Parametros SET Par_DiseñoFactura = ?, PAR_PLANTILLA_FAC = ?"),
            {diseno, clave});
        s->RecargaParametros();
        f.Tipo_Emision = 2;
        f.ImprimeAlbaran = true;
        f.RutaFicheroPdf = QDir(datos.path()).filePath(QStringLiteral("pdf"));
        QDir().mkpath(f.RutaFicheroPdf);
        f.PdfOutFile.clear();
        ui.vistos.clear();
        f.EmisionMultiplesFacturas(0, true, ids);
        for (const MensajeVisto& m : ui.vistos) {
            if (m.tipo == MensajeVisto::Tipo::Mensaje) {
                ADD_FAILURE() << m.titulo.toStdString() << ": " << m.texto.toStdString();
            }
        }
        return f.PdfOutFile;
    }
};

TEST_P(QrDemo, EveryShippedDesignPrintsTheCodeOfTheRecordAtTheTopOfPageOne) {
    const qint32 id = facturaDemo();
    ASSERT_GT(id, 0);
    const QString url = urlDelRegistro(*s, id);
    ASSERT_FALSE(url.isEmpty());
    const QStringList disenos =
        QDir(QStringLiteral(":/disenos")).entryList({QStringLiteral("*.json")}, QDir::Files);
    ASSERT_GE(disenos.size(), 50);
    ContextoInforme ctx;
    ctx.tipoEmision = 2;
    ctx.textoLopd = f.sTextoLOPD;
    // The works and transport designs need their family's own data (its
    // subreports and formulas): they go through the dispatcher below.
    const QStringList familias = {QStringLiteral("crFObras"),
                                  QStringLiteral("crFObras2"),
                                  QStringLiteral("crFObrasRet"),
                                  QStringLiteral("crFObrasRetCod"),
                                  QStringLiteral("crFObrasRetVb"),
                                  QStringLiteral("crFPlt41"),
                                  QStringLiteral("crFPlt41Elec"),
                                  QStringLiteral("crFPlt41Viales"),
                                  QStringLiteral("crFPlt44"),
                                  QStringLiteral("CrFacturaTransporte1"),
                                  QStringLiteral("CrFacturaTransporte2"),
                                  QStringLiteral("CrFacturaPlt45Ge"),
                                  QStringLiteral("CrFacturaPlt45Tf"),
                                  QStringLiteral("CrFacturaPlt45Tr"),
                                  QStringLiteral("CrFacturaPlt46")};
    QTemporaryDir dir;
    qsizetype vistos = 0;
    for (const QString& json : disenos) {
        const QString nombre = json.chopped(5);
        if (familias.contains(nombre)) {
            continue;
        }
        ++vistos;
        SCOPED_TRACE(nombre.toStdString());
        const QString fichero = dir.filePath(nombre + QStringLiteral(".pdf"));
        ASSERT_EQ(RenderizaFacturasPdf(*s, {id}, nombre, fichero, ctx), fichero);
        compruebaPdf(fichero, url);
        compruebaGeometria(*s, id, nombre, ctx);
    }
    EXPECT_EQ(vistos + familias.size(), disenos.size());
}

TEST_P(QrDemo, EveryFamilyOfTheDispatcherPrintsIt) {
    const qint32 id = facturaDemo();
    const QString url = urlDelRegistro(*s, id);
    struct Caso {
        qint16 diseno;
        const char* clave;
    };
    // The general report, the works family (plain and with withholding and
    // its keys), the transport family by its keys.
    for (const Caso& c : {Caso{0, ""}, Caso{2, ""}, Caso{13, ""}, Caso{7, ""}, Caso{9, ""},
                          Caso{9, "PLT44"}, Caso{9, "PLT41"}, Caso{9, "PLT42"}, Caso{9, "PLT43"},
                          Caso{9, "PLT48"}, Caso{9, "RETENCION"}, Caso{11, ""}, Caso{18, "PLT06"},
                          Caso{18, "PLT46"}, Caso{18, "PLT45"}, Caso{18, ""}}) {
        SCOPED_TRACE(std::to_string(c.diseno) + " " + c.clave);
        const QString fichero = emite({id}, c.diseno, QString::fromLatin1(c.clave));
        ASSERT_TRUE(QFileInfo::exists(fichero));
        compruebaPdf(fichero, url);
    }
}

TEST_P(QrDemo, ARunOfSeveralInvoicesGivesEachItsOwnCodeOnItsFirstPage) {
    const std::vector<qint32> facturas = FacturaPendientesDemo(f, ui);
    ASSERT_GE(facturas.size(), 3u);
    const QVector<qint32> ids{facturas[0], facturas[1], facturas[2]};
    const QString fichero = emite(ids, 0, QString());
    const QStringList paginas = TextoPdf(fichero).split(u'\f', Qt::SkipEmptyParts);
    // The rows are grouped by invoice id: the codes come in that order, one
    // per invoice, each on a page that shows the legends.
    QVector<qint32> orden = ids;
    std::sort(orden.begin(), orden.end());
    QStringList esperadas;
    for (const qint32 id : orden) {
        esperadas << urlDelRegistro(*s, id);
    }
    QStringList leidas;
    for (int p = 0; p < paginas.size(); ++p) {
        const QStringList qr = QrDePaginaPdf(fichero, p + 1);
        EXPECT_EQ(paginas[p].contains(kEncima), !qr.isEmpty()) << p;
        leidas << qr;
    }
    EXPECT_EQ(leidas, esperadas);
}

class QrFacturas : public PruebaMotores {};

// A long invoice: the code on page 1 only; its other pages start at the top.
TEST_P(QrFacturas, OnlyTheFirstPageOfALongInvoiceHasTheCode) {
    EmpresaPrueba e(GetParam());
    e.parametro(QStringLiteral("Par_PrnEmp"), 1);
    const QDate dia(2026, 3, 10);
    const qint32 c = e.cliente();
    std::vector<LineaPrueba> lineas(120, LineaPrueba{2.5});
    const qint32 id = e.nuevaFactura(c, dia, {e.albaran(c, dia, 1, lineas)});
    e.factura().CalculoTotalesFactura();
    ASSERT_TRUE(e.factura().GrabaFactura());
    {
        // Its alta, as the batch run writes it in the invoice's transaction.
        Transaccion t(e.cn());
        msRegistraFacturaNueva(e.factura());
        t.Confirma();
    }
    const QString url = urlDelRegistro(e.bd(), id);
    QTemporaryDir dir;
    const QString fichero = dir.filePath(QStringLiteral("larga.pdf"));
    ContextoInforme ctx;
    ctx.tipoEmision = 2;
    ASSERT_EQ(RenderizaFacturasPdf(e.bd(), {id}, QStringLiteral("CrFacturasGeneral"), fichero, ctx),
              fichero);
    ASSERT_GE(TextoPdf(fichero).split(u'\f', Qt::SkipEmptyParts).size(), 2);
    compruebaPdf(fichero, url);
    compruebaGeometria(e.bd(), id, QStringLiteral("CrFacturasGeneral"), ctx);
}

// A company that keeps no records: its invoices have none in force, and
// print no code and no legend, laid out as before.
TEST_P(QrFacturas, AnInvoiceWithoutARecordInForcePrintsNoCode) {
    EmpresaPrueba e(GetParam());
    e.parametro(QStringLiteral("Par_VfActivo"), 0);
    const QDate dia(2026, 3, 10);
    const qint32 c = e.cliente();
    const qint32 id = e.nuevaFactura(c, dia, {e.albaran(c, dia, 1, {{100}})});
    e.factura().CalculoTotalesFactura();
    ASSERT_TRUE(e.factura().GrabaFactura());
    EXPECT_FALSE(fiscal::fnRegistroVigente(e.bd(), id).has_value());
    EXPECT_TRUE(fiscal::fnUrlQrFactura(e.bd(), id).isEmpty());
    QTemporaryDir dir;
    const QString fichero = dir.filePath(QStringLiteral("sin.pdf"));
    ContextoInforme ctx;
    ctx.tipoEmision = 2;
    ASSERT_EQ(RenderizaFacturasPdf(e.bd(), {id}, QStringLiteral("CrFacturasGeneral"), fichero, ctx),
              fichero);
    EXPECT_TRUE(QrDePaginaPdf(fichero, 1).isEmpty());
    const QString t = TextoPdf(fichero);
    EXPECT_FALSE(t.contains(kEncima));
    EXPECT_FALSE(t.contains(kDebajo));
}

VK_EN_AMBOS_MOTORES(QrDemo);
VK_EN_AMBOS_MOTORES(QrFacturas);

} // namespace
} // namespace vk::prueba
