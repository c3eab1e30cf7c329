// The tax QR on the text layouts of impact printers: no code can be drawn, so
// the invoice's first page carries its legend, the URL the code would hold
// and "VERI*FACTU", on the blank lines above the head, so that the head
// stays on its line of the form.
#include "EmpresaSpool.h"

#include <CadenaFiscal.h>
#include <LayoutSpool.h>
#include <LayoutsTexto.h>
#include <RegistroFiscalFactura.h>

namespace vk::prueba {
namespace {

const QDate kDia(2026, 3, 10);

using Layout = bool (*)(VKFACVENTAS&, const QVector<qint32>&);

struct LayoutNombrado {
    const char* nombre;
    Layout layout;
};

const LayoutNombrado kLayouts[] = {
    {"MATRICIAL", msFacturaSpoolMatricial}, {"PLT01", msFacturaSpoolPlt01},
    {"PLT02", msFacturaSpoolPlt02},         {"PLT03", msFacturaSpoolPlt03},
    {"PLT04", msFacturaSpoolPlt04},         {"PLT05", msFacturaSpoolPlt05},
    {"PLT06", msFacturaSpoolPlt06},         {"PLT07", msFacturaSpoolPlt07},
    {"PLT08", msFacturaSpoolPlt08},         {"PLT09", msFacturaSpoolPlt10},
    {"PLT11", msFacturaSpoolPlt11},         {"PLT12", msFacturaSpoolPlt12},
    {"PLT13", msFacturaSpoolPlt13},         {"GOMAS", msFacturaSpoolGomas},
    {"PLT14", msFacturaSpoolPlt14},         {"PLT15", msFacturaSpoolPlt15},
    {"PLT16", msFacturaSpoolPlt16},         {"PLT17", msFacturaSpoolPlt17},
};

// A line without its CR and the printer's control characters before it.
QByteArray limpia(QByteArray l) {
    if (l.endsWith('\r')) {
        l.chop(1);
    }
    qsizetype i = 0;
    while (i < l.size() && static_cast<unsigned char>(l[i]) < 0x20) {
        ++i;
    }
    return l.mid(i);
}

QList<QByteArray> lineas(const QByteArray& bytes) {
    QList<QByteArray> r;
    for (const QByteArray& l : bytes.split('\n')) {
        r << limpia(l);
    }
    return r;
}

// The legend's lines as the layouts print them: 80 characters of URL a line.
QList<QByteArray> leyenda(const QString& url) {
    QList<QByteArray> r{"QR tributario:"};
    for (qsizetype i = 0; i < url.size(); i += 80) {
        r << url.mid(i, 80).toLatin1();
    }
    r << "VERI*FACTU";
    return r;
}

class QrTexto : public PruebaMotores {
protected:
    void SetUp() override {
        s = std::make_unique<EmpresaSpool>(GetParam());
        cliente = s->cliente(QStringLiteral("Ferretería"), QStringLiteral("Sánchez, S.L."),
                             QStringLiteral("B46123456"), 0);
    }
    qint32 factura(int lineasNota) {
        std::vector<LineaSpool> l;
        for (int i = 1; i <= lineasNota; ++i) {
            l.push_back(
                {.des = QStringLiteral("Tornillo hexagonal %1").arg(i), .uni = 2, .precio = 0.5});
        }
        const qint32 id = s->factura(cliente, kDia, {s->albaran(cliente, kDia, l)});
        // Its alta, as the batch run writes it in the invoice's transaction;
        // none when the company keeps no records.
        EXPECT_EQ(s->f().IdFactu, id);
        Transaccion t(s->e().cn());
        msRegistraFacturaNueva(s->f());
        t.Confirma();
        return id;
    }
    std::unique_ptr<EmpresaSpool> s;
    qint32 cliente = 0;
};

TEST(LineasQr, TheUrlIsCutIntoLinesOfTheWidthBetweenTheLegends) {
    using spool::LineasQr;
    EXPECT_TRUE(LineasQr(QString(), 80).isEmpty());
    EXPECT_TRUE(LineasQr(QStringLiteral("   "), 80).isEmpty());
    EXPECT_EQ(LineasQr(QStringLiteral("https://a.es/q?x=1234"), 8),
              (QStringList{QStringLiteral("QR tributario:"), QStringLiteral("https://"),
                           QStringLiteral("a.es/q?x"), QStringLiteral("=1234"),
                           QStringLiteral("VERI*FACTU")}));
}

TEST_P(QrTexto, EveryLayoutPrintsTheLegendOnTheBlankLinesAboveTheHead) {
    const qint32 con = factura(3);
    const QString url = fiscal::fnUrlQrFactura(s->e().bd(), con);
    ASSERT_TRUE(url.startsWith(QStringLiteral("https://"))) << url.toStdString();
    // The same invoice in a company that keeps no records: no legend.
    s->e().parametro(QStringLiteral("Par_VfActivo"), 0);
    const qint32 sin = factura(3);
    ASSERT_TRUE(fiscal::fnUrlQrFactura(s->e().bd(), sin).isEmpty());
    const QList<QByteArray> esperada = leyenda(url);
    for (const LayoutNombrado& l : kLayouts) {
        SCOPED_TRACE(l.nombre);
        const QByteArray bytes = s->imprime(l.layout, {con});
        const QList<QByteArray> a = lineas(bytes);
        const QList<QByteArray> b = lineas(s->imprime(l.layout, {sin}));
        EXPECT_TRUE(s->mensajes().isEmpty());
        EXPECT_TRUE(s->imprime(l.layout, {sin}).indexOf("QR tributario") < 0);
        const qsizetype i = a.indexOf("QR tributario:");
        ASSERT_GE(i, 0) << Legible(bytes).toStdString();
        EXPECT_EQ(a.mid(i, esperada.size()), esperada) << Legible(bytes).toStdString();
        EXPECT_EQ(bytes.count("QR tributario:"), 1);
        // Nothing of the invoice's own before it: the top of its page.
        for (qsizetype j = 0; j < i; ++j) {
            EXPECT_TRUE(a[j].trimmed().isEmpty()) << a[j].toStdString();
        }
        if (QLatin1String(l.nombre) == QLatin1String("PLT16")) {
            // Its head has no blank lines of its own above it (Par_TopMarg 0):
            // the legend comes down on top of it.
            EXPECT_EQ(a.size(), b.size() + esperada.size());
            continue;
        }
        // The legend took blank lines: every other line stands where it did.
        ASSERT_EQ(a.size(), b.size()) << Legible(bytes).toStdString();
        for (qsizetype j = i; j < i + esperada.size(); ++j) {
            EXPECT_TRUE(b[j].trimmed().isEmpty()) << b[j].toStdString();
        }
    }
}

TEST_P(QrTexto, OnlyTheFirstPageOfEachInvoiceCarriesIt) {
    const qint32 larga = factura(60); // two pages of the generic layout
    const qint32 corta = factura(2);
    const QByteArray bytes = s->imprime(msFacturaSpoolMatricial, {larga, corta});
    EXPECT_TRUE(s->mensajes().isEmpty());
    const QList<QByteArray> l = lineas(bytes);
    const QList<QByteArray> primera = leyenda(fiscal::fnUrlQrFactura(s->e().bd(), larga));
    const QList<QByteArray> segunda = leyenda(fiscal::fnUrlQrFactura(s->e().bd(), corta));
    ASSERT_NE(primera, segunda);
    EXPECT_EQ(bytes.count("QR tributario:"), 2) << Legible(bytes).toStdString();
    EXPECT_EQ(bytes.count("Pagina.......: "), 3) << Legible(bytes).toStdString();
    const qsizetype a = l.indexOf("QR tributario:");
    const qsizetype b = l.indexOf("QR tributario:", a + 1);
    EXPECT_EQ(l.mid(a, primera.size()), primera);
    EXPECT_EQ(l.mid(b, segunda.size()), segunda);
    // The long invoice's second page comes between them, with no legend.
    qsizetype pagina2 = -1;
    for (qsizetype i = 0; i < l.size() && pagina2 < 0; ++i) {
        if (l[i].startsWith("Pagina.......: 2 ")) {
            pagina2 = i;
        }
    }
    EXPECT_LT(a, pagina2);
    EXPECT_LT(pagina2, b);
}

VK_EN_AMBOS_MOTORES(QrTexto);

} // namespace
} // namespace vk::prueba
