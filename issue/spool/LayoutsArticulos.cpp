// The members that print the article's own data on each line: code, lots,
// packages, the tax of the line and the price with taxes.
#include "LayoutSpool.h"
#include "LayoutsTexto.h"

#include <Formato.h>
#include <Redondeo.h>

namespace vk {

using namespace spool;

namespace {

// The tax rates of a line's tax row. The rows carry them already (joined on
// Lav_Tiva; 0 when the row has none).
struct TipoLinea {
    double iva = 0;
    double rec = 0;
};

double PrecioConImpuestos(double precio, const TipoLinea& t) {
    return fnRedondeoNormal(precio + precio * t.iva / 100 + precio * t.rec / 100, 2);
}

// PLT05: code, packages, three-decimal quantity and price, the line's VAT
// and surcharge with the price they make, its lot, and the components of an
// article of composition.
class Plt05 : public LayoutSpool {
public:
    Plt05() : LayoutSpool(figuras()) {}

private:
    static Figuras figuras() {
        Figuras f;
        f.clave = QStringLiteral("PLT05");
        f.nLimite = 38;
        f.nAncho = 44;
        f.mascaraCantidad = QStringLiteral("###,##0.000");
        f.mascaraPrecio = QStringLiteral("##,##0.000");
        f.estacionario = Estacionario{{"sangriaContinuacion", 10}};
        return f;
    }
    void Cabecera() override {
        InicioCabecera();
        AntesCabecera(E("lineasAntesCabecera"));
        BloqueCliente();
        Escribe();
        Escribe(QStringLiteral("-CODIGO-- ") + Centrado(QStringLiteral("CONCEPTO"), nAncho) +
                QStringLiteral(" BULT ---CANTIDAD -PRECIO-- IVA -REC -P.V.P.-- --IMPORTE--"));
        bCabecera = true;
        nLinea = 0;
    }
    void Linea() override {
        const QStringList aDes = Trozos(DescripcionLinea());
        const TipoLinea tipo{D("Tiva_Iva"), D("Tiva_Rec")};
        const double precio = D("Lav_Precio");
        Escribe(Izquierda(T("Lav_CodArt"), 9) + QLatin1Char(' ') +
                Izquierda(aDes.value(0).left(nAncho), nAncho) + QLatin1Char(' ') +
                CifraSi(D("Lav_Bulto"), QStringLiteral("###0"), 4) + QLatin1Char(' ') +
                Cifra(D("Lav_Uni"), sMascara, 11) + QLatin1Char(' ') +
                CifraSi(precio, fig_.mascaraPrecio, 10) + QLatin1Char(' ') +
                Cifra(tipo.iva, QStringLiteral("#0"), 3) + QLatin1Char(' ') +
                CifraSi(tipo.rec, QStringLiteral("#0.0"), 4) + QLatin1Char(' ') +
                CifraSi(PrecioConImpuestos(precio, tipo), QStringLiteral("##,##0.00"), 10) +
                QLatin1Char(' ') + CifraSi(D("Lav_Importe"), QStringLiteral("##,##0.00"), 12));
        ++nLinea;
        dSuma += D("Lav_Importe");
        Continuaciones(aDes);
        if (!TrimBlancos(T("Lav_Lote")).isEmpty()) {
            Continuacion(Espacios(E("sangriaContinuacion")) + QStringLiteral("Lote: ") +
                         TrimBlancos(T("Lav_Lote")));
        }
        Componentes();
    }
    void Componentes() {
        const QString codigo = C("Lav_CodArt").Texto(); // a key: looked up as stored
        if (TrimBlancos(codigo).isEmpty()) {
            return;
        }
        Recordset c = Bd().cn().Execute(
            QStringLiteral("SELECT (SELECT Art_Des FROM Art WHERE Art_Id = Fmll.FMLL_IdArt) AS "
                           "Articulo, Fmll.Fmll_Uni FROM ArtCom INNER JOIN Fml ON Fml.Fml_Id = "
                           "ArtCom.ArtCom_IdFml INNER JOIN Fmll ON Fmll.FMLL_IDFML = Fml.Fml_Id "
                           "WHERE ArtCom.ArtCom_IdArt = (SELECT Art_Id FROM Art WHERE Art_Cod = ? "
                           "AND Art_Composicion <> 0 LIMIT 1) ORDER BY Articulo"),
            {codigo});
        for (; !c.Eof(); c.MoveNext()) {
            Continuacion(Espacios(E("sangriaContinuacion")) +
                         Izquierda(QStringLiteral("  ") + Texto(c.Fields(0)), nAncho) +
                         Espacios(6) +
                         Cifra(c.Fields(1).Doble(), QStringLiteral("###,##0.000"), 11));
        }
    }
};

// PLT07: the trade name under the customer's name and the VAT of each line.
class Plt07 : public LayoutSpool {
public:
    Plt07() : LayoutSpool(figuras()) {}

private:
    static Figuras figuras() {
        Figuras f;
        f.clave = QStringLiteral("PLT07");
        f.nLimite = 39;
        f.nAncho = 44;
        return f;
    }
    void Cabecera() override {
        InicioCabecera();
        AntesCabecera(E("lineasAntesCabecera"));
        const QStringList aDir = Direccion();
        const QString raya = Espacios(E("sangriaRaya")) + QString(40, u'-');
        const QString sangria = Espacios(E("sangriaCliente"));
        Escribe(raya);
        Escribe(QStringLiteral("Factura......: ") +
                Izquierda(T("Fav_Serie") + QLatin1Char('/') + T("Fav_Numero"), 9) +
                Espacios(E("separaNombre")) + T("Cli_Nom"));
        Escribe(sangria + T("CliNComer"));
        Escribe(QStringLiteral("Fecha Factura: ") + Fecha("Fav_Fecha") +
                Espacios(E("separaFecha")) + aDir[0]);
        Escribe(QStringLiteral("Pagina.......: ") + Format(nPagina, QStringLiteral("##0")) +
                Espacios(E("separaPagina")) + aDir[1]);
        Escribe(sangria + aDir[2]);
        Escribe(sangria + T("Cli_Doc") + Espacios(E("separaCodigo")) + T("Cli_Cod"));
        Escribe(raya);
        Escribe();
        Escribe(QStringLiteral("--CANT-- ") + Centrado(QStringLiteral("CONCEPTO"), nAncho) +
                QStringLiteral(" -PRECIO-- -DTOS- IVA --IMPORTE--"));
        bCabecera = true;
        nLinea = 0;
    }
    void Linea() override {
        const QStringList aDes = Trozos(DescripcionLinea());
        Escribe(Cifra(D("Lav_Uni"), sMascara, 8) + QLatin1Char(' ') +
                Izquierda(aDes.value(0).left(nAncho), nAncho) + QLatin1Char(' ') +
                CifraSi(D("Lav_Precio"), fig_.mascaraPrecio, 10) + QLatin1Char(' ') +
                TextoDescuento() + QLatin1Char(' ') +
                Cifra(D("Tiva_Iva"), QStringLiteral("#0"), 3) + QLatin1Char(' ') +
                CifraSi(D("Lav_Importe"), QStringLiteral("##,##0.00"), 12));
        ++nLinea;
        dSuma += D("Lav_Importe");
        Continuaciones(aDes);
    }
};

// PLT08: a wide page in condensed mode, with code, lot, packages and the
// price with taxes; the company's foot line under the totals.
class Plt08 : public LayoutSpool {
public:
    Plt08() : LayoutSpool(figuras()) {}

private:
    static Figuras figuras() {
        Figuras f;
        f.clave = QStringLiteral("PLT08");
        f.nLimite = 36;
        f.nAncho = 30;
        f.estacionario = Estacionario{{"sangriaContinuacion", 13}, {"sangriaCliente", 42}};
        return f;
    }
    void Cabecera() override {
        InicioCabecera();
        AntesCabecera(E("lineasAntesCabecera"));
        BloqueCliente(QStringLiteral(" "));
        Escribe();
        Envia(kCondensado);
        const QString titulos = QStringLiteral(
            "---Codigo--- -----------Concepto----------- ---Lote--- Cajas -Cantidad- ---Precio--- "
            "-IVA- -Rec- -Precio+Imp- --Dtos-- ---Importe---");
        Escribe(titulos);
        Escribe(QString(titulos.size(), u'='));
        bCabecera = true;
        nLinea = 0;
    }
    void Linea() override {
        const QStringList aDes = Trozos(DescripcionLinea());
        const TipoLinea tipo{D("Tiva_Iva"), D("Tiva_Rec")};
        const double precio = D("Lav_Precio");
        Escribe(Izquierda(T("Lav_CodArt"), 12) + QLatin1Char(' ') +
                Izquierda(aDes.value(0).left(nAncho), nAncho) + QLatin1Char(' ') +
                Izquierda(T("Lav_Lote"), 10) + QLatin1Char(' ') +
                CifraSi(D("Lav_Bulto"), QStringLiteral("####0"), 5) + QLatin1Char(' ') +
                Cifra(D("Lav_Uni"), sMascara, 10) + QLatin1Char(' ') +
                CifraSi(precio, fig_.mascaraPrecio, 12) + QLatin1Char(' ') +
                Cifra(tipo.iva, QStringLiteral("#0.00"), 5) + QLatin1Char(' ') +
                CifraSi(tipo.rec, QStringLiteral("#0.00"), 5) + QLatin1Char(' ') +
                CifraSi(PrecioConImpuestos(precio, tipo), QStringLiteral("##,##0.00"), 12) +
                QLatin1Char(' ') + Derecha(TextoDescuento(), 8) + QLatin1Char(' ') +
                CifraSi(D("Lav_Importe"), QStringLiteral("##,##0.00"), 13));
        ++nLinea;
        dSuma += D("Lav_Importe");
        Continuaciones(aDes);
    }
    void Totales() override {
        LayoutSpool::Totales();
        Escribe(Bd().Parametros().Item(QStringLiteral("Par_Piefac1")).Texto());
    }
};

// PLT13: lines marked not to print are left out; the foot is one row of
// amounts under their percentages.
class Plt13 : public LayoutSpool {
public:
    Plt13() : LayoutSpool(figuras()) {}

private:
    static Figuras figuras() {
        Figuras f;
        f.clave = QStringLiteral("PLT13");
        f.nLimite = 24;
        f.nAncho = 49;
        return f;
    }
    bool Imprimible() const override { return N("Lav_Imprimir") != 0; }
    void Totales() override {
        const auto porcentaje = [](double p) {
            return p != 0 ? Derecha(Format(p, QStringLiteral("#0.00")) + QLatin1Char('%'), 12)
                          : Espacios(12);
        };
        const double bases = D("Fav_BIva1") + D("Fav_BIva2") + D("Fav_BIva3");
        const double impuestos = D("Fav_ImpIva1") + D("Fav_ImpIva2") + D("Fav_ImpIva3") +
                                 D("Fav_ImpRec1") + D("Fav_ImpRec2") + D("Fav_ImpRec3");
        Escribe(QStringLiteral("---BRUTO---- -DESCUENTOS- ---BASES---- ----IVA----- -RETENCION-- "
                               "-TOTAL FACTURA"));
        Escribe(Espacios(13) + porcentaje(D("Fav_Dto1")) + Espacios(14) +
                porcentaje(D("Fav_Iva1")) + QLatin1Char(' ') + porcentaje(D("Fav_Ret")));
        Escribe(Cifra(D("Fav_Bruto"), QStringLiteral("####,##0.00"), 12) + QLatin1Char(' ') +
                CifraSi(D("Fav_ImpDto1") + D("Fav_ImpDto2"), QStringLiteral("##,##0.00"), 12) +
                QLatin1Char(' ') + Cifra(bases, QStringLiteral("###,##0.00"), 12) +
                QLatin1Char(' ') + Cifra(impuestos, QStringLiteral("###,##0.00"), 12) +
                QLatin1Char(' ') + CifraSi(D("Fav_ImpRet"), QStringLiteral("###,##0.00"), 12) +
                QLatin1Char(' ') + Cifra(D("Fav_Total"), QStringLiteral("##,###,##0.00"), 14));
        Hueco(E("lineasHuecoIva") - 1);
        BloquePagos();
    }
};

// PLT15: five-decimal prices and the totals in a column down the right,
// the VAT rows after them.
class Plt15 : public LayoutSpool {
public:
    Plt15() : LayoutSpool(figuras()) {}

private:
    static Figuras figuras() {
        Figuras f;
        f.clave = QStringLiteral("PLT15");
        f.nLimite = 25;
        f.nAncho = 40;
        f.mascaraPrecio = QStringLiteral("##,##0.00000");
        f.estacionario = Estacionario{{"columnaTotales", 52}, {"lineasHuecoIva", 2}};
        return f;
    }
    void Totales() override {
        const QString sangria = Espacios(E("columnaTotales") - 1);
        const QString mascara = QStringLiteral("##,###,##0.00");
        const double impuestos = D("Fav_ImpIva1") + D("Fav_ImpIva2") + D("Fav_ImpIva3") +
                                 D("Fav_ImpRec1") + D("Fav_ImpRec2") + D("Fav_ImpRec3");
        Escribe(sangria + Izquierda(QStringLiteral("Bruto.....: "), 12) +
                Cifra(D("Fav_Bruto"), mascara, 14));
        Escribe(sangria + Izquierda(QStringLiteral("Descuentos: "), 12) +
                Cifra(D("Fav_ImpDto1") + D("Fav_ImpDto2"), mascara, 14));
        Escribe(sangria + Izquierda(QStringLiteral("Impuestos.: "), 12) +
                Cifra(impuestos, mascara, 14));
        Escribe(sangria + Izquierda(QStringLiteral("Retencion: "), 12) +
                Cifra(D("Fav_ImpRet"), mascara, 14));
        Escribe(sangria + Izquierda(QStringLiteral("(Euros)..:"), 12) +
                Cifra(D("Fav_Total"), mascara, 14));
        Escribe();
        Escribe(QStringLiteral("---BASES--- -----IVA----- --RECARGOS--"));
        int usadas = 0;
        for (const int slot : {1, 2, 3}) {
            if (slot == 1 || D(slot == 2 ? "Fav_BIva2" : "Fav_BIva3") != 0) {
                Escribe(FilaIva(slot));
                usadas += slot > 1 ? 1 : 0;
            }
        }
        Hueco(E("lineasHuecoIva") - usadas);
        BloquePagos();
    }
};

} // namespace

bool msFacturaSpoolPlt05(VKFACVENTAS& f, const QVector<qint32>& vIds) {
    return Plt05().Ejecuta(f, vIds);
}

bool msFacturaSpoolPlt07(VKFACVENTAS& f, const QVector<qint32>& vIds) {
    return Plt07().Ejecuta(f, vIds);
}

bool msFacturaSpoolPlt08(VKFACVENTAS& f, const QVector<qint32>& vIds) {
    return Plt08().Ejecuta(f, vIds);
}

bool msFacturaSpoolPlt13(VKFACVENTAS& f, const QVector<qint32>& vIds) {
    return Plt13().Ejecuta(f, vIds);
}

bool msFacturaSpoolPlt15(VKFACVENTAS& f, const QVector<qint32>& vIds) {
    return Plt15().Ejecuta(f, vIds);
}

} // namespace vk
