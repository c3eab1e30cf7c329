// The QR code of a report's first page per instance of its outermost group:
// its band, its size, and the code read back from the PDF by a real reader.
#include "PdfTexto.h"

#include <Error.h>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <RenderizadorInforme.h>

namespace vk::informe {
namespace {

using prueba::QrDePaginaPdf;
using prueba::TextoPaginaPdf;

const QString kUrl3 = QStringLiteral("https://prewww2.aeat.es/wlpl/TIKE-CONT/"
                                     "ValidarQR?nif=B12345674&numserie=A%2F3&fecha=10-03-2026&"
                                     "importe=121.00");
const QString kUrl7 = QStringLiteral("https://prewww2.aeat.es/wlpl/TIKE-CONT/"
                                     "ValidarQR?nif=B12345674&numserie=A%2F7&fecha=11-03-2026&"
                                     "importe=4840.55");

ObjetoInforme objeto(const QString& nombre, const QString& columna, int left, int width) {
    ObjetoInforme o;
    o.Name = nombre;
    o.Tipo = TipoObjeto::Campo;
    o.Texto = columna;
    o.Left = left;
    o.Width = width;
    o.Height = 250;
    return o;
}

// Invoice 3 (one line, with a code), invoice 7 (`lineas` lines, with a code)
// and invoice 9 (one line, without one), each on pages of its own, under a
// letterhead at the top of every page.
std::unique_ptr<Reporte> informe(int lineas) {
    auto r = std::make_unique<Reporte>();
    r->Name = QStringLiteral("PruebaQr");
    r->TopMargin = 500;
    r->Grupos.push_back({QStringLiteral("Factura"), QStringLiteral("fac"), true, true});
    Seccion cab;
    cab.Name = QStringLiteral("Membrete");
    cab.Tipo = TipoSeccion::CabeceraPagina;
    cab.Height = 400;
    cab.Objetos.push_back(objeto(QStringLiteral("Empresa"), QStringLiteral("empresa"), 0, 11000));
    r->Sections.todas().push_back(cab);
    Seccion d;
    d.Name = QStringLiteral("Detalle");
    d.Tipo = TipoSeccion::Detalle;
    d.Height = 250;
    d.Objetos.push_back(objeto(QStringLiteral("Des"), QStringLiteral("des"), 0, 6000));
    r->Sections.todas().push_back(d);
    r->Qr.Campo = QStringLiteral("qr");
    r->Qr.Encima = QStringLiteral("QR tributario:");
    r->Qr.Debajo = QStringLiteral("VERI*FACTU");

    const QString empresa = QStringLiteral("Suministros Albufera, S.L.");
    std::vector<std::vector<QVariant>> filas;
    filas.push_back({3, QStringLiteral("Única de la tres"), kUrl3, empresa});
    for (int i = 1; i <= lineas; ++i) {
        filas.push_back({7, QStringLiteral("Línea %1 de la siete").arg(i), kUrl7, empresa});
    }
    filas.push_back({9, QStringLiteral("Única de la nueve"), QString(), empresa});
    r->Database.Tables.Item(1).SetDataSource(
        Recordset({QStringLiteral("fac"), QStringLiteral("des"), QStringLiteral("qr"),
                   QStringLiteral("empresa")},
                  std::move(filas)));
    return r;
}

std::vector<const ElementoInforme*> codigos(const PaginaInforme& p) {
    std::vector<const ElementoInforme*> r;
    for (const ElementoInforme& e : p.elementos) {
        if (e.clase == ElementoInforme::Clase::CodigoQr) {
            r.push_back(&e);
        }
    }
    return r;
}

double mm(double twips) {
    return twips * 25.4 / 1440.0;
}

TEST(CodigoQr, FirstPageOfEachInstanceCarriesItsCodeInABandAboveTheSections) {
    QTemporaryDir dir;
    auto r = informe(150);
    const QString fichero = dir.filePath(QStringLiteral("qr.pdf"));
    QPdfWriter pdf(fichero);
    pdf.setResolution(600);
    const InformeMaquetado m = MaquetaInforme(*r, pdf);
    ASSERT_GE(m.paginas.size(), 4u); // 3, 7 on two pages at least, 9

    // Which page holds each invoice, by the rows of its detail.
    std::map<int, std::vector<int>> paginasDe;
    const DatosInforme& d = r->Datos();
    for (const SeccionColocada& c : m.colocadas) {
        if (c.seccion == QLatin1String("Detalle")) {
            const int fac = d.filas[static_cast<size_t>(c.fila)][0].toInt();
            if (paginasDe[fac].empty() || paginasDe[fac].back() != c.pagina) {
                paginasDe[fac].push_back(c.pagina);
            }
        }
    }
    ASSERT_EQ(paginasDe[3], std::vector<int>{0});
    ASSERT_GE(paginasDe[7].size(), 2u);
    ASSERT_EQ(paginasDe[9].size(), 1u);

    for (size_t i = 0; i < m.paginas.size(); ++i) {
        SCOPED_TRACE(i);
        const auto qr = codigos(m.paginas[i]);
        const bool primera =
            static_cast<int>(i) == paginasDe[3][0] || static_cast<int>(i) == paginasDe[7][0];
        ASSERT_EQ(qr.size(), primera ? 1u : 0u);
        // Where the page's first section starts: below the band on a page
        // with a code, at the top margin on the others.
        int arriba = m.altoPapel;
        for (const SeccionColocada& c : m.colocadas) {
            if (c.pagina == static_cast<int>(i)) {
                arriba = std::min(arriba, c.top);
            }
        }
        if (!primera) {
            EXPECT_EQ(arriba, r->TopMargin);
            continue;
        }
        const ElementoInforme& e = *qr[0];
        // 30 to 40 mm a side, with its quiet zone or without it, centred
        // between the margins, below its legend and above the sections.
        EXPECT_EQ(e.rect.width(), e.rect.height());
        EXPECT_GE(mm(e.rect.width()), 30.0);
        EXPECT_LE(mm(e.rect.width()), 40.0);
        EXPECT_GE(mm(e.rect.width() + 2 * e.margen), 30.0);
        EXPECT_LE(mm(e.rect.width() + 2 * e.margen), 40.0);
        EXPECT_GE(mm(e.margen), 2.0);
        EXPECT_GE(e.margen * e.ladoModulos, 4.0 * e.rect.width()); // four modules at least
        const double izquierda = e.rect.left() - r->LeftMargin;
        const double derecha = m.anchoPapel - r->RightMargin - e.rect.right();
        EXPECT_NEAR(izquierda, derecha, 1.0);
        EXPECT_EQ(arriba, r->TopMargin + bandaqr::Alto(r->Qr.Font, e.ladoModulos));
        EXPECT_LE(e.rect.bottom() + e.margen, arriba);
        for (const ElementoInforme& x : m.paginas[i].elementos) {
            if (x.objeto == QLatin1String("CodigoQrEncima")) {
                EXPECT_EQ(x.texto, QStringLiteral("QR tributario:"));
                EXPECT_LE(x.rect.bottom(), e.rect.top() - e.margen);
                EXPECT_GE(x.rect.top(), r->TopMargin);
            } else if (x.objeto == QLatin1String("CodigoQrDebajo")) {
                EXPECT_EQ(x.texto, QStringLiteral("VERI*FACTU"));
                EXPECT_GE(x.rect.top(), e.rect.bottom() + e.margen);
                EXPECT_LE(x.rect.bottom(), arriba);
            }
        }
    }
}

TEST(CodigoQr, ReaderFindsTheCodeOnEachFirstPageAndNowhereElse) {
    QTemporaryDir dir;
    auto r = informe(150);
    const QString fichero = dir.filePath(QStringLiteral("qr.pdf"));
    ResultadoRender res;
    {
        QPdfWriter pdf(fichero);
        pdf.setResolution(600);
        res = RenderizaInforme(*r, pdf);
    }
    ASSERT_GE(res.paginas, 4);
    EXPECT_EQ(QrDePaginaPdf(fichero, 1), QStringList{kUrl3});
    EXPECT_EQ(QrDePaginaPdf(fichero, 2), QStringList{kUrl7});
    const QString primera = TextoPaginaPdf(fichero, 1);
    EXPECT_TRUE(
        prueba::EnOrden(primera, {QStringLiteral("QR tributario:"), QStringLiteral("VERI*FACTU"),
                                  QStringLiteral("Suministros Albufera, S.L."),
                                  QStringLiteral("Única de la tres")}))
        << primera.toStdString();
    // Invoice 7's further pages and invoice 9 (no code) print none.
    for (int p = 3; p <= res.paginas; ++p) {
        SCOPED_TRACE(p);
        EXPECT_TRUE(QrDePaginaPdf(fichero, p).isEmpty());
        const QString t = TextoPaginaPdf(fichero, p);
        EXPECT_FALSE(t.contains(QStringLiteral("QR tributario:")));
        EXPECT_FALSE(t.contains(QStringLiteral("VERI*FACTU")));
        EXPECT_TRUE(t.contains(QStringLiteral("Suministros Albufera, S.L.")));
    }
    // The painted code and its quiet zone stand apart from every text.
    QRectF codigo;
    for (const Pintado& p : res.pintados) {
        if (p.pagina == 0 && p.objeto == QLatin1String("CodigoQr")) {
            codigo = p.rect;
        }
    }
    ASSERT_FALSE(codigo.isEmpty());
    for (const Pintado& p : res.pintados) {
        if (p.pagina == 0 && p.clase == Pintado::Clase::Texto) {
            EXPECT_FALSE(p.rect.intersects(codigo)) << p.texto.toStdString();
        }
    }
}

TEST(CodigoQr, WithoutCodesTheLayoutIsTheSame) {
    QTemporaryDir dir;
    QPdfWriter pdf(dir.filePath(QStringLiteral("a.pdf")));
    auto con = informe(3);
    auto sin = informe(3);
    sin->Qr = CodigoQr();
    const InformeMaquetado a = MaquetaInforme(*con, pdf);
    const InformeMaquetado b = MaquetaInforme(*sin, pdf);
    ASSERT_EQ(a.paginas.size(), b.paginas.size());
    // Invoice 9 has no code: its page is the same either way.
    const size_t ultima = a.paginas.size() - 1;
    ASSERT_EQ(a.paginas[ultima].elementos.size(), b.paginas[ultima].elementos.size());
    for (size_t i = 0; i < a.paginas[ultima].elementos.size(); ++i) {
        EXPECT_EQ(a.paginas[ultima].elementos[i].rect, b.paginas[ultima].elementos[i].rect);
    }
    EXPECT_TRUE(codigos(b.paginas[0]).empty());
}

TEST(CodigoQr, AColumnThatIsNotInTheDataIsADesignError) {
    QTemporaryDir dir;
    QPdfWriter pdf(dir.filePath(QStringLiteral("a.pdf")));
    auto r = informe(1);
    r->Qr.Campo = QStringLiteral("NoEsta");
    EXPECT_THROW(MaquetaInforme(*r, pdf), ErrorDiseno);
}

} // namespace
} // namespace vk::informe
