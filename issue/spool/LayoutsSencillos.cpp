// The members that keep the skeleton's body: the generic layout, those that
// differ only in figures, and those that add a line or move the head.
#include "LayoutSpool.h"
#include "LayoutsTexto.h"

#include <Formato.h>

namespace vk {

using namespace spool;

namespace {

const QString kOrdenSinFactura =
    QStringLiteral("Cav.Cav_Fecha, Cav.Cav_Serie, Cav.Cav_Numero, Lav.Lav_Orden");

// PLT04 and GOMAS: whole quantities and one line of description.
Figuras FigurasGomas(const char* clave, int nLimite, const QString& orden) {
    Figuras f;
    f.clave = QString::fromLatin1(clave);
    f.nLimite = nLimite;
    f.mascaraCantidad = QStringLiteral("###,##0");
    f.parteDescripcion = false;
    f.orden = orden;
    return f;
}

// PLT01: the customer's block and the number at column 43, the page at 69,
// and the sum of the lines carried over to the next page.
class Plt01 : public LayoutSpool {
public:
    Plt01() : LayoutSpool(figuras()) {}

private:
    static Figuras figuras() {
        Figuras f;
        f.clave = QStringLiteral("PLT01");
        f.nLimite = 28;
        f.nAncho = 43;
        f.estacionario = Estacionario{{"lineasAntesCabecera", 8},
                                      {"columnaBloque", 43},
                                      {"columnaPagina", 69},
                                      {"lineasAntesNumero", 1},
                                      {"lineasAntesCuerpo", 2}};
        return f;
    }
    void SaltoPagina() override { arrastre_ = true; }
    void NuevaFactura() override { arrastre_ = false; }
    void Cabecera() override {
        InicioCabecera();
        AntesCabecera(E("lineasAntesCabecera"));
        const QString sangria = Espacios(E("columnaBloque") - 1);
        const QStringList aDir = Direccion();
        Escribe(sangria + T("Cli_Nom"));
        for (const QString& l : aDir) {
            Escribe(sangria + l);
        }
        Escribe(sangria + T("Cli_Doc"));
        Blancos(E("lineasAntesNumero"));
        Escribe(sangria + QStringLiteral("Factura: ") + T("Fav_Serie") + QLatin1Char('/') +
                T("Fav_Numero"));
        Escribe(Izquierda(sangria + QStringLiteral("Fecha..: ") + Fecha("Fav_Fecha"),
                          E("columnaPagina") - 1) +
                QStringLiteral("Pagina: ") + Format(nPagina, QStringLiteral("00")));
        Blancos(E("lineasAntesCuerpo"));
        TituloColumnas();
        bCabecera = true;
        nLinea = 0;
        if (arrastre_) {
            arrastre_ = false;
            Escribe(Espacios(9) + Izquierda(QStringLiteral("Suma anterior"), nAncho) +
                    Espacios(21) + Cifra(dSuma, QStringLiteral("##,##0.00"), 12));
            ++nLinea;
        }
    }
    bool arrastre_ = false;
};

// PLT02: under each delivery note, the order it came from.
class Plt02 : public LayoutSpool {
public:
    Plt02() : LayoutSpool(figuras()) {}

private:
    static Figuras figuras() {
        Figuras f;
        f.clave = QStringLiteral("PLT02");
        f.nLimite = 36;
        f.nAncho = 37;
        f.mascaraIva = QStringLiteral("     00");
        f.estacionario = Estacionario{{"anchoIva", 7}};
        return f;
    }
    void Albaran() override {
        LayoutSpool::Albaran();
        Recordset pedidos = Bd().cn().Execute(
            QStringLiteral("SELECT PedCa.PedCa_Serie || '/' || CAST(PedCa.PedCa_Numero AS TEXT) "
                           "AS Pedido FROM PedSe INNER JOIN Lav ON Lav.Lav_Id = PedSe.PedSe_IdLav "
                           "INNER JOIN PedLi ON PedLi.Pedli_Id = PedSe.PedSe_IdPedLi "
                           "INNER JOIN PedCa ON PedCa.PedCa_Id = PedLi.PedLi_IdPedCa "
                           "WHERE PedSe.PedSe_IdLav = ?"),
            {N("Lav_Id")});
        for (; !pedidos.Eof(); pedidos.MoveNext()) {
            Escribe(Espacios(E("sangriaContinuacion")) + QStringLiteral("Pedido nº: ") +
                    Texto(pedidos.Fields(0)));
            ++nLinea;
        }
    }
};

// PLT11: number and date on the right of the customer; totals only the
// invoice's total.
class Plt11 : public LayoutSpool {
public:
    Plt11() : LayoutSpool(figuras()) {}

private:
    static Figuras figuras() {
        Figuras f;
        f.clave = QStringLiteral("PLT11");
        f.nLimite = 39;
        f.nAncho = 41;
        f.mascaraCantidad = QStringLiteral("###,##0.##");
        f.estacionario = Estacionario{{"anchoBloqueCliente", 50}, {"lineasHuecoIva", 4}};
        return f;
    }
    void Cabecera() override {
        InicioCabecera();
        AntesCabecera(E("lineasAntesCabecera"));
        const int ancho = E("anchoBloqueCliente");
        const QStringList aDir = Direccion();
        Escribe(Izquierda(T("Cli_Nom"), ancho) + QStringLiteral("Factura: ") + T("Fav_Serie") +
                QLatin1Char('/') + T("Fav_Numero"));
        Escribe(Izquierda(aDir[0], ancho) + QStringLiteral("Fecha..: ") + Fecha("Fav_Fecha"));
        Escribe(Izquierda(aDir[1], ancho) + QStringLiteral("Pagina.: ") +
                Format(nPagina, QStringLiteral("##0")));
        Escribe(aDir[2]);
        Escribe(Izquierda(T("Cli_Doc"), ancho) + QStringLiteral("Cliente: ") + T("Cli_Cod"));
        Escribe();
        TituloColumnas();
        bCabecera = true;
        nLinea = 0;
    }
    void Totales() override {
        Escribe(Espacios(E("sangriaIva")) + QStringLiteral("TOTAL FACTURA EUROS: ") +
                Cifra(D("Fav_Total"), QStringLiteral("##,###,##0.00"), 14));
        Hueco(E("lineasHuecoIva"));
        BloquePagos();
    }
};

// PLT12: the description joined with a blank, and the non-fiscal retention
// under the VAT rows.
class Plt12 : public LayoutSpool {
public:
    Plt12() : LayoutSpool(figuras()) {}

private:
    static Figuras figuras() {
        Figuras f;
        f.clave = QStringLiteral("PLT12");
        f.nLimite = 39;
        f.nAncho = 44;
        f.separadorDescripcion = QStringLiteral(" ");
        f.estacionario = Estacionario{{"lineasHuecoIva", 4}, {"separaLiquido", 29}};
        return f;
    }
    void Totales() override {
        int usadas = 0;
        TablaIva(usadas);
        if (D("Fav_IRetNf") != 0) {
            Escribe(QStringLiteral("Retención ") +
                    Format(D("Fav_PRetNf"), QStringLiteral("#0.00")) + QStringLiteral("% ") +
                    Cifra(D("Fav_IRetNf"), QStringLiteral("###,##0.00"), 10) +
                    Espacios(E("separaLiquido")) + QStringLiteral("Líquido: ") +
                    Cifra(D("Fav_Liquido"), QStringLiteral("##,###,##0.00"), 14));
            ++usadas;
        }
        Hueco(E("lineasHuecoIva") - usadas);
        BloquePagos();
    }
};

// PLT16: article code and measures; the top margin is the company's
// parameter, so paper alignment needs no new table.
class Plt16 : public LayoutSpool {
public:
    Plt16() : LayoutSpool(figuras()) {}

private:
    static Figuras figuras() {
        Figuras f;
        f.clave = QStringLiteral("PLT16");
        f.nLimite = 33;
        f.nAncho = 39;
        f.estacionario = Estacionario{{"sangriaContinuacion", 19}};
        return f;
    }
    void Cabecera() override {
        InicioCabecera();
        AntesCabecera(static_cast<int>(Parametro("Par_TopMarg")));
        BloqueCliente();
        Escribe();
        Escribe(QStringLiteral("--CANT-- -CODIGO-- ") +
                Centrado(QStringLiteral("CONCEPTO"), nAncho) +
                QStringLiteral(" --LARGO-- --ANCHO-- -PRECIO-- -DTOS- --IMPORTE--"));
        bCabecera = true;
        nLinea = 0;
    }
    void Linea() override {
        const QStringList aDes = Trozos(DescripcionLinea());
        const QString medida = QStringLiteral("#,##0.000");
        Escribe(
            Cifra(D("Lav_Uni"), sMascara, 8) + QLatin1Char(' ') + Izquierda(T("Lav_CodArt"), 9) +
            QLatin1Char(' ') + Izquierda(aDes.value(0).left(nAncho), nAncho) + QLatin1Char(' ') +
            CifraSi(D("Lav_Largo"), medida, 9) + QLatin1Char(' ') +
            CifraSi(D("Lav_Ancho"), medida, 9) + QLatin1Char(' ') +
            CifraSi(D("Lav_Precio"), fig_.mascaraPrecio, 10) + QLatin1Char(' ') + TextoDescuento() +
            QLatin1Char(' ') + CifraSi(D("Lav_Importe"), QStringLiteral("##,##0.00"), 12));
        ++nLinea;
        dSuma += D("Lav_Importe");
        Continuaciones(aDes);
    }
    QString Observaciones() const override {
        return QStringLiteral("Observaciones ") + T("Fav_Obs");
    }
};

} // namespace

bool msFacturaSpoolMatricial(VKFACVENTAS& f, const QVector<qint32>& vIds) {
    Figuras fig;
    fig.clave = QStringLiteral("MATRICIAL");
    return LayoutSpool(fig).Ejecuta(f, vIds);
}

// The ordering lacks Fav_Id: lines of two invoices may interleave and break
// the group change. Kept so, since the customer's run depends on it.
bool msFacturaSpoolPlt04(VKFACVENTAS& f, const QVector<qint32>& vIds) {
    return LayoutSpool(FigurasGomas("PLT04", 42, kOrdenSinFactura)).Ejecuta(f, vIds);
}

bool msFacturaSpoolGomas(VKFACVENTAS& f, const QVector<qint32>& vIds) {
    return LayoutSpool(FigurasGomas("GOMAS", 38, kOrdenFactura)).Ejecuta(f, vIds);
}

bool msFacturaSpoolPlt01(VKFACVENTAS& f, const QVector<qint32>& vIds) {
    return Plt01().Ejecuta(f, vIds);
}

bool msFacturaSpoolPlt02(VKFACVENTAS& f, const QVector<qint32>& vIds) {
    return Plt02().Ejecuta(f, vIds);
}

bool msFacturaSpoolPlt11(VKFACVENTAS& f, const QVector<qint32>& vIds) {
    return Plt11().Ejecuta(f, vIds);
}

bool msFacturaSpoolPlt12(VKFACVENTAS& f, const QVector<qint32>& vIds) {
    return Plt12().Ejecuta(f, vIds);
}

bool msFacturaSpoolPlt16(VKFACVENTAS& f, const QVector<qint32>& vIds) {
    return Plt16().Ejecuta(f, vIds);
}

} // namespace vk
