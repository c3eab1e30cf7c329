// Pagination and painting of a report built in code, read back from the PDF.
#include "PdfTexto.h"

#include <Error.h>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <RenderizadorInforme.h>
#include <map>
#include <set>
#include <tuple>

namespace vk::informe {
namespace {

using prueba::EnOrden;
using prueba::TextoPdf;

ObjetoInforme texto(const QString& nombre, TipoObjeto tipo, const QString& t, int left, int top,
                    int width, int height = 250) {
    ObjetoInforme o;
    o.Name = nombre;
    o.Tipo = tipo;
    o.Texto = t;
    o.Left = left;
    o.Top = top;
    o.Width = width;
    o.Height = height;
    return o;
}

Seccion seccion(const QString& nombre, TipoSeccion tipo, int alto, const QString& grupo = {}) {
    Seccion s;
    s.Name = nombre;
    s.Tipo = tipo;
    s.Height = alto;
    s.Grupo = grupo;
    return s;
}

// Invoice 7 with `lineas` lines listed after invoice 3's two, to see that
// the rows are grouped.
std::unique_ptr<Reporte> informe(int lineas) {
    auto r = std::make_unique<Reporte>();
    r->Name = QStringLiteral("Prueba");
    r->Grupos.push_back({QStringLiteral("Factura"), QStringLiteral("fac"), true, true});
    r->FormulaFields.Agrega(QStringLiteral("titulo"), QStringLiteral("'Factura nº ' + {fac}"));
    Seccion cab = seccion(QStringLiteral("Cabecera"), TipoSeccion::CabeceraPagina, 400);
    cab.Objetos.push_back(
        texto(QStringLiteral("Izq"), TipoObjeto::Texto, QStringLiteral("IZQUIERDA"), 0, 0, 3000));
    cab.Objetos.push_back(
        texto(QStringLiteral("Der"), TipoObjeto::Texto, QStringLiteral("DERECHA"), 6000, 0, 3000));
    cab.Objetos.push_back(texto(QStringLiteral("Oculto"), TipoObjeto::Texto,
                                QStringLiteral("OCULTO"), 3000, 0, 3000));
    cab.Objetos.back().Suppress = true;
    r->Sections.todas().push_back(cab);
    Seccion g = seccion(QStringLiteral("CabFactura"), TipoSeccion::CabeceraGrupo, 300,
                        QStringLiteral("Factura"));
    g.RepiteEnCadaPagina = true;
    g.Objetos.push_back(
        texto(QStringLiteral("Titulo"), TipoObjeto::Formula, QStringLiteral("titulo"), 0, 0, 5000));
    r->Sections.todas().push_back(g);
    Seccion d = seccion(QStringLiteral("Detalle"), TipoSeccion::Detalle, 250);
    d.Objetos.push_back(
        texto(QStringLiteral("Des"), TipoObjeto::Campo, QStringLiteral("des"), 0, 0, 4000));
    d.Objetos.back().CanGrow = true;
    d.Objetos.push_back(
        texto(QStringLiteral("Imp"), TipoObjeto::Campo, QStringLiteral("imp"), 6000, 0, 2000));
    d.Objetos.back().Formato = QStringLiteral("#,##0.00");
    r->Sections.todas().push_back(d);
    Seccion nada = seccion(QStringLiteral("Suprimida"), TipoSeccion::Detalle, 250);
    nada.Suppress = true;
    nada.Objetos.push_back(
        texto(QStringLiteral("X"), TipoObjeto::Texto, QStringLiteral("NUNCA"), 0, 0, 2000));
    r->Sections.todas().push_back(nada);
    Seccion tot =
        seccion(QStringLiteral("Totales"), TipoSeccion::PieGrupo, 400, QStringLiteral("Factura"));
    tot.AlPie = true;
    tot.Objetos.push_back(
        texto(QStringLiteral("T"), TipoObjeto::Texto, QStringLiteral("TOTALES"), 0, 0, 3000));
    r->Sections.todas().push_back(tot);
    Seccion pie = seccion(QStringLiteral("Pie"), TipoSeccion::PiePagina, 300);
    pie.Objetos.push_back(
        texto(QStringLiteral("Pag"), TipoObjeto::Especial, QStringLiteral("PageNofM"), 0, 0, 3000));
    r->Sections.todas().push_back(pie);

    std::vector<std::vector<QVariant>> filas;
    for (int i = 1; i <= lineas; ++i) {
        filas.push_back(
            {7, QStringLiteral("Línea %1").arg(i, 3, 10, QLatin1Char('0')), 1234.5 * i});
    }
    filas.insert(filas.begin() + lineas / 2, {3, QStringLiteral("Primera de la tres"), 1.0});
    filas.push_back({3,
                     QStringLiteral("Una descripción muy larga que no cabe en una sola línea del "
                                    "detalle y tiene que partirse en varias líneas sin perder "
                                    "ninguna palabra por el camino"),
                     2.0});
    r->Database.Tables.Item(1).SetDataSource(Recordset(
        {QStringLiteral("fac"), QStringLiteral("des"), QStringLiteral("imp")}, std::move(filas)));
    return r;
}

ResultadoRender renderiza(Reporte& r, const QString& fichero) {
    QPdfWriter pdf(fichero);
    return RenderizaInforme(r, pdf);
}

TEST(Renderizador, LongInvoiceBreaksAcrossPagesWithEveryLineOnce) {
    QTemporaryDir dir;
    auto r = informe(200);
    const QString fichero = dir.filePath(QStringLiteral("largo.pdf"));
    const ResultadoRender res = renderiza(*r, fichero);
    ASSERT_GE(res.paginas, 5);

    // Each row's detail exactly once; the pages of each invoice are its own.
    std::map<int, int> veces;
    std::map<int, std::set<int>> paginasDeFactura;
    const DatosInforme& d = r->Datos();
    for (const SeccionColocada& c : res.colocadas) {
        if (c.seccion == QLatin1String("Detalle")) {
            ++veces[c.fila];
            paginasDeFactura[d.filas[static_cast<size_t>(c.fila)][0].toInt()].insert(c.pagina);
        }
        EXPECT_NE(c.seccion, QLatin1String("Suprimida"));
        EXPECT_LE(c.top + c.alto, r->AltoPapel - r->BottomMargin) << c.seccion.toStdString();
    }
    EXPECT_EQ(veces.size(), 202u);
    for (const auto& [fila, n] : veces) {
        EXPECT_EQ(n, 1) << fila;
    }
    ASSERT_EQ(paginasDeFactura.size(), 2u);
    EXPECT_EQ(paginasDeFactura[3], std::set<int>{0}); // grouped ahead, one page
    EXPECT_EQ(*paginasDeFactura[7].begin(), 1);       // starts a page of its own

    const QString t = TextoPdf(fichero);
    const QStringList paginas = t.split(u'\f', Qt::SkipEmptyParts);
    ASSERT_EQ(paginas.size(), res.paginas);
    for (int i = 1; i <= 200; ++i) {
        EXPECT_EQ(t.count(QStringLiteral("Línea %1").arg(i, 3, 10, QLatin1Char('0'))), 1) << i;
    }
    EXPECT_EQ(t.count(QStringLiteral("TOTALES")), 2);
    EXPECT_FALSE(t.contains(QStringLiteral("NUNCA")));
    EXPECT_FALSE(t.contains(QStringLiteral("OCULTO")));
    // Numbers per invoice, the invoice's header on each of its pages.
    EXPECT_TRUE(paginas[0].contains(QStringLiteral("Página 1 de 1")));
    const int deLa7 = res.paginas - 1;
    EXPECT_TRUE(paginas[1].contains(QStringLiteral("Página 1 de %1").arg(deLa7)));
    EXPECT_TRUE(paginas.last().contains(QStringLiteral("Página %1 de %1").arg(deLa7)));
    for (int i = 1; i < paginas.size(); ++i) {
        EXPECT_TRUE(paginas[i].contains(QStringLiteral("Factura nº 7"))) << i;
        EXPECT_TRUE(EnOrden(paginas[i], {QStringLiteral("IZQUIERDA"), QStringLiteral("DERECHA")}));
    }
    EXPECT_TRUE(paginas.last().contains(QStringLiteral("TOTALES")));
    EXPECT_TRUE(t.contains(QStringLiteral("246.900,00"))); // 1234.5 * 200 through the mask
    // The wrapped description keeps every word.
    EXPECT_TRUE(paginas[0].simplified().contains(QStringLiteral("ninguna palabra por el camino")));
    for (const SeccionColocada& c : res.colocadas) {
        if (c.seccion == QLatin1String("Detalle") && c.pagina == 0 &&
            d.filas[static_cast<size_t>(c.fila)][1].toString().startsWith(QStringLiteral("Una"))) {
            EXPECT_GT(c.alto, 250);
        }
    }
}

TEST(Renderizador, PositionsAndSuppressAreHonoured) {
    QTemporaryDir dir;
    auto r = informe(3);
    ObjetoInforme& izq = r->Objeto(QStringLiteral("Izq"));
    ObjetoInforme& der = r->Objeto(QStringLiteral("Der"));
    std::swap(izq.Left, der.Left);
    r->Objeto(QStringLiteral("Oculto")).Suppress = false;
    r->Sections.Item(QStringLiteral("Totales")).Suppress = true;
    const QString fichero = dir.filePath(QStringLiteral("pos.pdf"));
    renderiza(*r, fichero);
    const QString t = TextoPdf(fichero);
    EXPECT_TRUE(EnOrden(
        t, {QStringLiteral("DERECHA"), QStringLiteral("OCULTO"), QStringLiteral("IZQUIERDA")}));
    EXPECT_FALSE(t.contains(QStringLiteral("TOTALES")));

    // Saved data stays until discarded, even with a new source bound.
    EXPECT_TRUE(r->HasSavedData());
    r->Database.Tables.Item(1).SetDataSource(
        Recordset({QStringLiteral("fac"), QStringLiteral("des"), QStringLiteral("imp")},
                  {{1, QStringLiteral("Nueva"), 1.0}}));
    EXPECT_EQ(r->Datos().filas.size(), 5u);
    r->DiscardSavedData();
    EXPECT_FALSE(r->HasSavedData());
    EXPECT_EQ(r->Datos().filas.size(), 1u);

    // A group on a column the rows lack, or a report without rows bound.
    Reporte sinDatos;
    EXPECT_THROW(sinDatos.ReadRecords(), ErrorDiseno);
    r->Grupos[0].Campo = QStringLiteral("noexiste");
    r->DiscardSavedData();
    EXPECT_THROW(r->ReadRecords(), ErrorDiseno);
}

// A subreport lists the rows linked to each line below it; the line's section
// grows with them and nothing else moves over them.
TEST(Renderizador, SubreportRowsFollowTheirLineByTheLink) {
    QTemporaryDir dir;
    auto r = informe(3);
    auto sub = std::make_unique<Reporte>();
    sub->Name = QStringLiteral("Composicion");
    Seccion cab = seccion(QStringLiteral("CabSub"), TipoSeccion::CabeceraInforme, 250);
    cab.Objetos.push_back(texto(QStringLiteral("TitSub"), TipoObjeto::Texto,
                                QStringLiteral("Componentes:"), 0, 0, 2000));
    sub->Sections.todas().push_back(cab);
    Seccion det = seccion(QStringLiteral("DetSub"), TipoSeccion::Detalle, 250);
    det.Objetos.push_back(
        texto(QStringLiteral("Comp"), TipoObjeto::Campo, QStringLiteral("articulo"), 0, 0, 3000));
    sub->Sections.todas().push_back(det);
    sub->Database.Tables.Item(1).SetDataSource(
        Recordset({QStringLiteral("des"), QStringLiteral("articulo")},
                  {{QStringLiteral("Línea 002"), QStringLiteral("Tornillo M4")},
                   {QStringLiteral("Línea 001"), QStringLiteral("Arandela")},
                   {QStringLiteral("Línea 002"), QStringLiteral("Tuerca M4")}}));
    r->Subreportes.push_back(std::move(sub));
    EXPECT_EQ(&r->Subreport(1), &r->OpenSubreport(QStringLiteral("composicion")));
    EXPECT_THROW(r->Subreport(2), ErrorDiseno);

    ObjetoInforme o = texto(QStringLiteral("Sub1"), TipoObjeto::Subinforme,
                            QStringLiteral("Composicion"), 500, 250, 5000, 0);
    o.Enlace = QStringLiteral("des=des");
    r->Sections.Item(QStringLiteral("Detalle")).Objetos.push_back(o);
    const QString fichero = dir.filePath(QStringLiteral("sub.pdf"));
    const ResultadoRender res = renderiza(*r, fichero);
    const QString t = TextoPdf(fichero);
    EXPECT_TRUE(EnOrden(t, {QStringLiteral("Línea 001"), QStringLiteral("Componentes:"),
                            QStringLiteral("Arandela"), QStringLiteral("Línea 002"),
                            QStringLiteral("Componentes:"), QStringLiteral("Tornillo M4"),
                            QStringLiteral("Tuerca M4"), QStringLiteral("Línea 003")}));
    EXPECT_EQ(t.count(QStringLiteral("Componentes:")), 2); // none under line 3
    const DatosInforme& d = r->Datos();
    for (const SeccionColocada& c : res.colocadas) {
        const QString des = d.filas[static_cast<size_t>(c.fila)][1].toString();
        if (c.seccion == QLatin1String("Detalle") && des.startsWith(QStringLiteral("Línea"))) {
            const int esperado = des == QStringLiteral("Línea 002")   ? 250 + 750
                                 : des == QStringLiteral("Línea 001") ? 250 + 500
                                                                      : 250;
            EXPECT_EQ(c.alto, esperado) << des.toStdString();
        }
    }

    // A link to a column the rows lack is an error of the design.
    r->OpenSubreport(QStringLiteral("Composicion"));
    r->Objeto(QStringLiteral("Sub1")).Enlace = QStringLiteral("des=noexiste");
    EXPECT_THROW(renderiza(*r, dir.filePath(QStringLiteral("mal.pdf"))), ErrorDiseno);
}

// The layout is a value of its own: made twice for a device it is the same,
// and the pages paint exactly its texts, page by page and in its order. A
// section's background is drawn and reported by no object.
TEST(Renderizador, LayoutIsStableAndIsWhatThePagesPaint) {
    QTemporaryDir dir;
    auto r = informe(60);
    r->Sections.Item(QStringLiteral("Totales")).BackColor = 0xEEEEEE;
    const QString fichero = dir.filePath(QStringLiteral("maqueta.pdf"));
    QPdfWriter pdf(fichero);
    const InformeMaquetado a = MaquetaInforme(*r, pdf);
    const InformeMaquetado b = MaquetaInforme(*r, pdf);
    ASSERT_EQ(a.paginas.size(), b.paginas.size());
    for (size_t p = 0; p < a.paginas.size(); ++p) {
        const std::vector<ElementoInforme>& x = a.paginas[p].elementos;
        const std::vector<ElementoInforme>& y = b.paginas[p].elementos;
        ASSERT_EQ(x.size(), y.size()) << p;
        for (size_t i = 0; i < x.size(); ++i) {
            EXPECT_EQ(x[i].clase, y[i].clase);
            EXPECT_EQ(x[i].rect, y[i].rect);
            EXPECT_EQ(x[i].texto, y[i].texto);
        }
    }
    EXPECT_EQ(a.colocadas.size(), b.colocadas.size());

    const ResultadoRender res = RenderizaInforme(*r, pdf);
    ASSERT_EQ(res.paginas, static_cast<int>(a.paginas.size()));
    std::vector<std::tuple<int, QString, QString>> maquetados, pintados;
    int fondos = 0;
    for (size_t p = 0; p < a.paginas.size(); ++p) {
        for (const ElementoInforme& e : a.paginas[p].elementos) {
            if (e.clase == ElementoInforme::Clase::Texto) {
                maquetados.emplace_back(static_cast<int>(p), e.objeto, e.texto);
            }
            if (e.clase == ElementoInforme::Clase::Fondo) {
                ++fondos;
                EXPECT_TRUE(e.objeto.isEmpty());
                EXPECT_EQ(e.relleno, 0xEEEEEE);
            }
        }
    }
    for (const Pintado& p : res.pintados) {
        EXPECT_NE(p.clase, Pintado::Clase::Relleno); // no object here is filled
        if (p.clase == Pintado::Clase::Texto) {
            pintados.emplace_back(p.pagina, p.objeto, p.texto);
        }
    }
    EXPECT_EQ(fondos, 2); // one totals band per invoice
    EXPECT_EQ(maquetados, pintados);
    ASSERT_EQ(res.colocadas.size(), a.colocadas.size());
    for (size_t i = 0; i < a.colocadas.size(); ++i) {
        EXPECT_EQ(res.colocadas[i].seccion, a.colocadas[i].seccion);
        EXPECT_EQ(res.colocadas[i].top, a.colocadas[i].top);
    }
}

} // namespace
} // namespace vk::informe
