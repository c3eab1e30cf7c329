// The members made for pre-printed forms: fields placed by fnAlinea, heads
// of their own, and the lines that only their customers print (carried sums,
// works, documents, vehicles).
#include "LayoutSpool.h"
#include "LayoutsTexto.h"
#include "MensajesSpool.h"
#include "PieFacturaIva.h"

#include <Formato.h>
#include <Interaccion.h>

namespace vk {

using namespace spool;

namespace {

// PLT03: no delivery note lines; a line whose article code is "0" is a text
// line; the foot is msPieFacturaIva.
class Plt03 : public LayoutSpool {
public:
    Plt03() : LayoutSpool(figuras()) {}

private:
    static Figuras figuras() {
        Figuras f;
        f.clave = QStringLiteral("PLT03");
        f.nLimite = 29;
        f.nAncho = 40;
        f.imprimeAlbaran = false;
        f.estacionario = Estacionario{{"lineasAntesCabecera", 7},
                                      {"columnaCliente", 41},
                                      {"lineasAntesNumero", 2},
                                      {"sangriaContinuacion", 10}};
        return f;
    }
    void Cabecera() override {
        InicioCabecera();
        AntesCabecera(E("lineasAntesCabecera"));
        const QString sangria = Espacios(E("columnaCliente") - 1);
        Escribe(sangria + fnAlinea(T("Cli_Nom"), 40, 0));
        for (const QString& l : Direccion()) {
            Escribe(sangria + fnAlinea(l, 40, 0));
        }
        Escribe(sangria + fnAlinea(T("Cli_Doc"), 20, 0) + fnAlinea(T("Cli_Cod"), 20, 1));
        Blancos(E("lineasAntesNumero"));
        Escribe(fnAlinea(T("Fav_Serie") + QLatin1Char('/') +
                             Format(N("Fav_Numero"), QStringLiteral("00000")),
                         15, 2) +
                fnAlinea(Fecha("Fav_Fecha"), 15, 2) + fnAlinea(T("Cli_Cod"), 15, 2) +
                QStringLiteral("Pg: ") + Format(nPagina, QStringLiteral("##0")));
        Escribe();
        Escribe(QStringLiteral("-CODIGO-- ") + Centrado(QStringLiteral("CONCEPTO"), nAncho) +
                QStringLiteral(" -CANTIDAD- -PRECIO--- -DTOS-- --IMPORTE---"));
        bCabecera = true;
        nLinea = 0;
    }
    void Linea() override {
        const QStringList aDes = Trozos(DescripcionLinea());
        if (T("Lav_CodArt") == QLatin1String("0")) {
            Escribe(Espacios(E("sangriaContinuacion")) + aDes.value(0));
            ++nLinea;
        } else {
            const auto cifra = [](double v, const QString& mascara, int ancho) {
                return v != 0 ? fnAlinea(Format(v, mascara), ancho, 1) : Espacios(ancho);
            };
            Escribe(fnAlinea(T("Lav_CodArt"), 9, 0) + QLatin1Char(' ') +
                    fnAlinea(aDes.value(0), nAncho, 0) + QLatin1Char(' ') +
                    fnAlinea(Format(D("Lav_Uni"), sMascara), 10, 1) + QLatin1Char(' ') +
                    cifra(D("Lav_Precio"), fig_.mascaraPrecio, 10) + QLatin1Char(' ') +
                    fnAlinea(TextoDescuento(), 7, 1) + QLatin1Char(' ') +
                    cifra(D("Lav_Importe"), QStringLiteral("##,##0.00"), 12));
            ++nLinea;
            dSuma += D("Lav_Importe");
        }
        Continuaciones(aDes);
    }
    void Relleno() override {} // msPieFacturaIva fills the page itself
    void Totales() override {
        msPieFacturaIva([this](const QString& t) { Envia(t); }, rs_, nLinea, nLimite, codigoPagina_,
                        mencion_);
    }
};

// PLT06: the date of each line, the supplier code the customer gave the
// company, "Suma y sigue" at a page break inside an invoice, and the bank
// account and due dates under the foot.
class Plt06 : public LayoutSpool {
public:
    Plt06() : LayoutSpool(figuras()) {}

private:
    static Figuras figuras() {
        Figuras f;
        f.clave = QStringLiteral("PLT06");
        f.nLimite = 39;
        f.nAncho = 44;
        f.estacionario = Estacionario{{"sangriaContinuacion", 15}, {"sangriaSuma", 52}};
        return f;
    }
    QStringList cliente() const {
        Recordset c = Bd().cn().Execute(
            QStringLiteral("SELECT Cli_CodExt, Cli_Cta FROM Cli WHERE Cli_Cod = ?"),
            {N("Cli_Cod")});
        return c.Eof() ? QStringList{QString(), QString()}
                       : QStringList{Texto(c.Fields(0)), Texto(c.Fields(1))};
    }
    void Cabecera() override {
        InicioCabecera();
        AntesCabecera(E("lineasAntesCabecera"));
        BloqueCliente();
        Escribe(Espacios(E("sangriaCliente")) + QStringLiteral("Cod.Proveedor: ") + cliente()[0]);
        Escribe();
        Escribe(QStringLiteral("FECHA --CANT-- ") + Centrado(QStringLiteral("CONCEPTO"), nAncho) +
                QStringLiteral(" -PRECIO-- -DTOS- --IMPORTE--"));
        bCabecera = true;
        nLinea = 0;
    }
    void Linea() override {
        const QStringList aDes = Trozos(DescripcionLinea());
        Escribe(Fecha("Cav_Fecha", QStringLiteral("dd/mm")) + QLatin1Char(' ') +
                LineaGeneral(aDes));
        ++nLinea;
        dSuma += D("Lav_Importe");
        Continuaciones(aDes);
    }
    void SaltoPagina() override {
        Escribe(Espacios(E("sangriaSuma")) + QStringLiteral("Suma y sigue ... ") +
                Cifra(dSuma, QStringLiteral("##,##0.00"), 10));
        Envia(kSaltoPagina);
        bSaltoHecho = true;
    }
    void Totales() override {
        LayoutSpool::Totales();
        QStringList vencimientos;
        const QStringList aPago = Pagos();
        for (qsizetype i = 1; i < aPago.size(); ++i) {
            if (!aPago[i].isEmpty()) {
                vencimientos << aPago[i].left(10);
            }
        }
        Escribe(QStringLiteral("Cuenta: ") + cliente()[1]);
        Escribe(QStringLiteral("Vto: ") + vencimientos.join(QStringLiteral("  ")));
    }
};

// PLT09 and PLT10: lines grouped under their works, document lines with
// the document's text, the work parts, "Alb. " notes. PLT10's head adds the
// person the invoice is for.
class Plt10 : public LayoutSpool {
public:
    explicit Plt10(const QString& clave) : LayoutSpool(figuras(clave)) {}

private:
    static Figuras figuras(const QString& clave) {
        Figuras f;
        f.clave = clave;
        f.nLimite = 52;
        f.nAncho = 46;
        f.estacionario =
            Estacionario{{"lineasAntesCabecera", 5}, {"columnaCliente", 35}, {"sangriaObra", 2}};
        return f;
    }
    void NuevaFactura() override {
        obra_ = 0;
        parte_ = 0;
    }
    void Cabecera() override {
        InicioCabecera();
        AntesCabecera(E("lineasAntesCabecera"));
        const QString sangria = Espacios(E("columnaCliente") - 1);
        Escribe(sangria + fnAlinea(T("Cli_Nom"), nAncho, 0));
        for (const QString& l : Direccion()) {
            Escribe(sangria + fnAlinea(l, nAncho, 0));
        }
        Escribe(sangria + QStringLiteral("NIF: ") + T("Cli_Doc"));
        if (fig_.clave == QLatin1String("PLT10")) {
            Escribe(sangria + QStringLiteral("Atención: ") + T("Fav_Fatencion"));
        }
        Escribe();
        Escribe(QStringLiteral("Factura: ") +
                fnAlinea(T("Fav_Serie") + QLatin1Char('/') + T("Fav_Numero"), 12, 0) +
                QStringLiteral("Fecha: ") + Fecha("Fav_Fecha", QStringLiteral("DD/MM/YYYY")) +
                Espacios(4) + QStringLiteral("Cliente: ") + fnAlinea(T("Cli_Cod"), 8, 0) +
                QStringLiteral("Pag. ") + Format(nPagina, QStringLiteral("##0")));
        Escribe();
        TituloColumnas();
        bCabecera = true;
        nLinea = 0;
        // A new page repeats the work in hand.
        obra_ = 0;
    }
    void Grupo() override {
        const qint64 obra = N("Lav_IdObra");
        if (obra != 0 && obra != obra_) {
            obra_ = obra;
            Recordset o = Bd().cn().Execute(
                QStringLiteral("select obras_des, obras_id from Obras where obras_id = ?"), {obra});
            Escribe(Espacios(E("sangriaObra")) + QStringLiteral("Obra: ") +
                    (o.Eof() ? QString() : Texto(o.Fields(0))));
            ++nLinea;
        }
    }
    void Albaran() override {
        Escribe(Espacios(E("sangriaContinuacion")) + QStringLiteral("Alb. ") + T("NumeroAlbaran") +
                QLatin1Char(' ') + Fecha("Cav_Fecha", QStringLiteral("DD/MM/YYYY")));
        ++nLinea;
    }
    void Linea() override {
        const qint64 parte = N("Lav_IdParte");
        if (parte != 0 && parte != parte_) {
            parte_ = parte;
            Escribe(Espacios(E("sangriaContinuacion")) + QStringLiteral("Albaran nº ") +
                    T("ALBParte") + QStringLiteral(" de fecha ") +
                    Fecha("FParte", QStringLiteral("DD-MM-YY")));
            ++nLinea;
        }
        QString texto = DescripcionLinea();
        if (const qint64 doc = N("IdDoc"); doc != 0) {
            Recordset d = Bd().cn().Execute(
                QStringLiteral("select doc_text from Doc where doc_id = ?"), {doc});
            texto = d.Eof() ? QString() : TrimBlancos(Texto(d.Fields(0)));
        }
        const QStringList aDes = Trozos(texto.isEmpty() ? QStringLiteral(" ") : texto);
        const auto cifra = [](double v, const QString& mascara, int ancho) {
            return v != 0 ? fnAlinea(Format(v, mascara), ancho, 1) : Espacios(ancho);
        };
        Escribe(fnAlinea(Format(D("Lav_Uni"), sMascara), 8, 1) + QLatin1Char(' ') +
                fnAlinea(aDes.value(0), nAncho, 0) + QLatin1Char(' ') +
                cifra(D("Lav_Precio"), fig_.mascaraPrecio, 10) + QLatin1Char(' ') +
                TextoDescuento() + QLatin1Char(' ') +
                cifra(D("Lav_Importe"), QStringLiteral("##,##0.00"), 12));
        ++nLinea;
        dSuma += D("Lav_Importe");
        Continuaciones(aDes);
    }
    qint64 obra_ = 0;
    qint64 parte_ = 0;
};

// PLT14: a pre-printed form whose head holds the payment terms, the
// number, the customer's code and the date in words; one VAT slot.
class Plt14 : public LayoutSpool {
public:
    Plt14() : LayoutSpool(figuras()) {}

private:
    static Figuras figuras() {
        Figuras f;
        f.clave = QStringLiteral("PLT14");
        f.nLimite = 17;
        f.nAncho = 64;
        f.imprimeAlbaran = false;
        f.estacionario = Estacionario{{"lineasAntesCabecera", 4},
                                      {"columnaCliente", 41},
                                      {"lineasAntesDatos", 2},
                                      {"lineasAntesCuerpo", 2},
                                      {"lineasHuecoIva", 1}};
        return f;
    }
    void Cabecera() override {
        InicioCabecera();
        AntesCabecera(E("lineasAntesCabecera"));
        const QString sangria = Espacios(E("columnaCliente") - 1);
        Escribe(sangria + T("Cli_Nom"));
        for (const QString& l : Direccion()) {
            Escribe(sangria + l);
        }
        Escribe(sangria + T("Cli_Doc"));
        Blancos(E("lineasAntesDatos"));
        Escribe(Izquierda(Pagos().value(0), 30) + QLatin1Char(' ') +
                Izquierda(T("Fav_Serie") + QLatin1Char('/') + T("Fav_Numero"), 12) +
                Izquierda(T("Cli_Cod"), 10) + Fecha("Fav_Fecha", QStringLiteral("dd")) +
                QStringLiteral(" de ") + Fecha("Fav_Fecha", QStringLiteral("mmmm")) +
                QStringLiteral(" de ") + Fecha("Fav_Fecha", QStringLiteral("yyyy")));
        Blancos(E("lineasAntesCuerpo"));
        bCabecera = true;
        nLinea = 0;
    }
    void Linea() override {
        const QStringList aDes = Trozos(DescripcionLinea());
        Escribe(Cifra(D("Lav_Uni"), sMascara, 8) + QLatin1Char(' ') +
                Izquierda(aDes.value(0).left(nAncho), nAncho) + QLatin1Char(' ') +
                CifraSi(D("Lav_Precio"), fig_.mascaraPrecio, 10) + QLatin1Char(' ') +
                CifraSi(D("Lav_Importe"), QStringLiteral("##,##0.00"), 12));
        ++nLinea;
        dSuma += D("Lav_Importe");
        Continuaciones(aDes);
    }
    void Totales() override {
        Escribe(Cifra(D("Fav_Bruto"), QStringLiteral("####,##0.00"), 11) + Espacios(6) +
                FilaIva(1) + Cifra(D("Fav_Total"), QStringLiteral("##,###,##0.00"), 14));
        Hueco(E("lineasHuecoIva"));
        Escribe(T("Fav_Obs"));
    }
};

// PLT17: the vehicle in the head, a narrow description of up to 20 pieces
// and one VAT rate, marked "XX" on the lines.
class Plt17 : public LayoutSpool {
public:
    Plt17() : LayoutSpool(figuras()) {}

private:
    static constexpr int kMaxTrozos = 20;
    static Figuras figuras() {
        Figuras f;
        f.clave = QStringLiteral("PLT17");
        f.nLimite = 19;
        f.nAncho = 26;
        f.maxTrozos = kMaxTrozos + 1; // one more tells that the description did not fit
        return f;
    }
    void Cabecera() override {
        InicioCabecera();
        AntesCabecera(E("lineasAntesCabecera"));
        BloqueCliente();
        Escribe(QStringLiteral("Matrícula: ") + T("Veh_Mat") + Espacios(4) +
                QStringLiteral("Km: ") + T("Cav_Km"));
        Escribe(QStringLiteral("Vehículo.: ") + T("Veh_Mod"));
        Escribe();
        Escribe(QStringLiteral("--CANT-- ") + Centrado(QStringLiteral("CONCEPTO"), nAncho) +
                QStringLiteral(" -PRECIO-- -DTOS- IVA--- --IMPORTE--"));
        bCabecera = true;
        nLinea = 0;
    }
    void Linea() override {
        QStringList aDes = Trozos(DescripcionLinea());
        if (aDes.size() > kMaxTrozos) {
            Ui().Mensaje(mensajes::kSuperadoCaracteres, Icono::Aviso,
                         mensajes::kTituloEmisionFacturas);
            aDes = aDes.mid(0, kMaxTrozos);
        }
        Escribe(Cifra(D("Lav_Uni"), sMascara, 8) + QLatin1Char(' ') +
                Izquierda(aDes.value(0).left(nAncho), nAncho) + QLatin1Char(' ') +
                CifraSi(D("Lav_Precio"), fig_.mascaraPrecio, 10) + QLatin1Char(' ') +
                TextoDescuento() + QLatin1Char(' ') + QStringLiteral("XX    ") +
                CifraSi(D("Lav_Importe"), QStringLiteral("##,##0.00"), 12));
        ++nLinea;
        dSuma += D("Lav_Importe");
        Continuaciones(aDes);
    }
    void Totales() override {
        Escribe(QStringLiteral(
            "---BRUTO--- --DESCUENTOS--- ---BASES--- -----IVA----- --RECARGOS-- -TOT.FACTURA-"));
        const QString descuentos =
            D("Fav_Dto1") == 0
                ? Espacios(16)
                : Derecha(Format(D("Fav_Dto1"), QStringLiteral("#0.00")) + QLatin1Char('%'), 6) +
                      Cifra(D("Fav_ImpDto1"), QStringLiteral("##,##0.00"), 10);
        Escribe(Cifra(D("Fav_Bruto"), QStringLiteral("####,##0.00"), 11) + QLatin1Char(' ') +
                descuentos + FilaIva(1) +
                Cifra(D("Fav_Total"), QStringLiteral("##,###,##0.00"), 14));
        Escribe(QStringLiteral("XX    ") + QStringLiteral("= IVA ") +
                Format(D("Fav_Iva1"), QStringLiteral("#0")) + QStringLiteral("%"));
        Hueco(E("lineasHuecoIva") - 1);
        BloquePagos();
    }
};

} // namespace

bool msFacturaSpoolPlt03(VKFACVENTAS& f, const QVector<qint32>& vIds) {
    return Plt03().Ejecuta(f, vIds);
}

bool msFacturaSpoolPlt06(VKFACVENTAS& f, const QVector<qint32>& vIds) {
    return Plt06().Ejecuta(f, vIds);
}

bool msFacturaSpoolPlt10(VKFACVENTAS& f, const QVector<qint32>& vIds) {
    // One layout for both keys; the head tells them apart.
    const QString clave =
        f.MyBd().Parametros().Item(QStringLiteral("PAR_PLANTILLA_FAC")).Texto().toUpper();
    return Plt10(clave == QLatin1String("PLT10") ? clave : QStringLiteral("PLT09"))
        .Ejecuta(f, vIds);
}

bool msFacturaSpoolPlt14(VKFACVENTAS& f, const QVector<qint32>& vIds) {
    return Plt14().Ejecuta(f, vIds);
}

bool msFacturaSpoolPlt17(VKFACVENTAS& f, const QVector<qint32>& vIds) {
    return Plt17().Ejecuta(f, vIds);
}

} // namespace vk
