#include "LayoutSpool.h"

#include "MensajesSpool.h"

#include <ErrorBd.h>
#include <Formato.h>
#include <Interaccion.h>
#include <MensajesEmision.h>
#include <SqlFacturas.h>
#include <utility>

namespace vk::spool {

namespace {

// The skeleton's figures; a member's table adds its own or changes these.
Estacionario EstacionarioBase(const Figuras& f) {
    return Estacionario{
        {"lineasCuerpo", f.nLimite}, {"anchoConcepto", f.nAncho},
        {"lineasAntesCabecera", 6}, // places the head block on the form
        {"sangriaRaya", 40},         {"separaNombre", 17},
        {"separaFecha", 16},         {"separaPagina", 25},
        {"sangriaCliente", 41},      {"separaCodigo", 21},
        {"sangriaContinuacion", 9}, // further pieces and the delivery note line
        {"sangriaIva", 27},         // VAT rows of slots 2 and 3
        {"sangriaDto2", 12},         {"anchoIva", 4},
        {"lineasHuecoIva", 3}, // the payment block always starts on the same line
        {"anchoMencion", 80},  // lines of the VAT mention in the foot
    };
}

} // namespace

QStringList PartePalabras(const QString& texto, int ancho, int maxTrozos) {
    QStringList trozos;
    QString resto = texto;
    while (resto.size() > ancho && trozos.size() < maxTrozos) {
        // Only a true blank breaks (character 32).
        const qsizetype blanco = ancho > 0 ? resto.lastIndexOf(QLatin1Char(' '), ancho - 1) : -1;
        if (blanco < 0) {
            break;
        }
        trozos << resto.left(blanco);
        resto = resto.mid(blanco + 1);
    }
    if (trozos.size() < maxTrozos) {
        trozos << resto;
    }
    return trozos;
}

QString Centrado(const QString& titulo, int ancho) {
    const int faltan = std::max(0, ancho - static_cast<int>(titulo.size()));
    return QString(faltan / 2, QLatin1Char('-')) + titulo +
           QString(faltan - faltan / 2, QLatin1Char('-'));
}

QStringList LineasQr(const QString& url, int ancho) {
    const QString texto = url.trimmed();
    if (texto.isEmpty() || ancho <= 0) {
        return {};
    }
    QStringList lineas{mensajes::kQrEncima};
    for (qsizetype i = 0; i < texto.size(); i += ancho) {
        lineas << texto.mid(i, ancho);
    }
    lineas << mensajes::kQrDebajo;
    return lineas;
}

QStringList LineasMencionIva(const Recordset& rs, int ancho, const QString& codigoPagina) {
    const QString texto = TrimBlancos(
        AjustaCodigoPagina(rs.Fields(QStringLiteral("MencionIva")).Texto(), codigoPagina));
    if (texto.isEmpty()) {
        return {};
    }
    const int n = std::max(ancho, 1);
    QStringList lineas;
    for (const QString& trozo : PartePalabras(texto, n, static_cast<int>(texto.size()))) {
        for (qsizetype i = 0; i < trozo.size(); i += n) {
            lineas << trozo.mid(i, n);
        }
    }
    return lineas;
}

void HuecoConMencion(const std::function<void(const QString&)>& escribe, int n,
                     QStringList& mencion) {
    // A legal text is read whole: one that does not fit is not split across
    // the blocks of the foot.
    const QStringList aqui = mencion.size() <= n ? std::exchange(mencion, {}) : QStringList();
    for (int i = 0; i < n; ++i) {
        escribe(aqui.value(i));
    }
}

LayoutSpool::LayoutSpool(Figuras figuras) : fig_(std::move(figuras)) {
    Estacionario e = EstacionarioBase(fig_);
    for (const QString& nombre : fig_.estacionario.Nombres()) {
        e.Fija(nombre, fig_.estacionario(nombre.toLatin1().constData()));
    }
    fig_.estacionario = e;
}

LayoutSpool::~LayoutSpool() = default;

QString LayoutSpool::Donde(qsizetype nIds) const {
    return QStringLiteral(" WHERE Fav.Fav_Id IN (") + MarcadoresSql(nIds) +
           QStringLiteral(") ORDER BY ") + fig_.orden;
}

bool LayoutSpool::Ejecuta(VKFACVENTAS& f, const QVector<qint32>& vIds) {
    f_ = &f;
    if (vIds.isEmpty()) {
        Ui().PunteroEspera(false);
        return true;
    }
    try {
        est_ = fig_.estacionario;
        est_.Carga(fig_.clave);
        codigoPagina_ = CodigoPaginaImpresora();
        Ui().PunteroEspera(true);
        QVariantList ids;
        for (const qint32 id : vIds) {
            ids << id;
        }
        rs_ = LeeFilasFacturasDonde(Bd(), Donde(vIds.size()), ids);
        if (rs_.RecordCount() == 0) {
            Ui().PunteroEspera(false);
            return true;
        }
        spool_ = CreaObjeto<ClsSpool>(QString::fromLatin1(ClsSpool::kProgId));
        spool_->SelectPrinter();
        if (!spool_->OpenDevice()) {
            rs_ = Recordset();
            spool_.reset();
            Ui().PunteroEspera(false);
            Ui().Mensaje(mensajes::kErrorAccesoDispositivo, Icono::Error, QString());
            return false;
        }
        abierto_ = true;
        Recorre();
        abierto_ = false;
        spool_->CloseDevice();
        spool_.reset();
        rs_ = Recordset();
        Ui().PunteroEspera(false);
        return true;
    } catch (const Error& e) {
        // The job stays as far as it got.
        Ui().PunteroEspera(false);
        if (spool_ && abierto_) {
            abierto_ = false;
            try {
                spool_->CloseDevice();
            } catch (const Error&) {
                // The first failure is the one to tell.
            }
        }
        spool_.reset();
        rs_ = Recordset();
        Ui().Mensaje(mensajes::kErrorEmitiendo + QLatin1Char('\n') + e.Mensaje(), Icono::Error,
                     mensajes::kAccionCancelada);
        return false;
    }
}

void LayoutSpool::Recorre() {
    nLimite = E("lineasCuerpo");
    nAncho = E("anchoConcepto");
    sMascara = MascaraCantidad();
    nLinea = 0;
    nPagina = 0;
    bCabecera = false;
    nIdAnterior = 0;
    sAlbaran.clear();
    dResiduos = 0;
    dSuma = 0;
    bool impreso = false;
    for (rs_.MoveFirst(); !rs_.Eof(); rs_.MoveNext()) {
        const auto id = static_cast<qint32>(N("Fav_Id"));
        if (nIdAnterior == 0) {
            nIdAnterior = id;
        }
        if (nIdAnterior != id) {
            nIdAnterior = id;
            Pie();
            bCabecera = false;
            nLinea = 0;
            dResiduos = 0;
            dSuma = 0;
            Envia(kSaltoPagina);
            sAlbaran.clear();
            NuevaFactura();
        }
        if (!bCabecera || nLinea >= nLimite) {
            NuevaPagina();
        }
        if (Imprimible()) {
            Grupo();
            if (fig_.imprimeAlbaran && F().ImprimeAlbaran && T("NumeroAlbaran") != sAlbaran) {
                sAlbaran = T("NumeroAlbaran");
                Albaran();
            }
            Linea();
        }
        dResiduos += D("Lav_ImpResDes");
        impreso = true;
    }
    if (impreso) {
        Pie();
    }
}

void LayoutSpool::NuevaPagina() {
    if (bCabecera) {
        SaltoPagina();
    }
    Cabecera();
}

void LayoutSpool::Pie() {
    Relleno();
    // The cursor stands on the next invoice or at EOF: the foot reads the
    // invoice that ended from its last row.
    rs_.MovePrevious();
    mencion_ = LineasMencionIva(rs_, E("anchoMencion"), codigoPagina_);
    Totales();
    // A mention the gap had no room for: after the foot's last line, where
    // the form already takes a varying number of due dates.
    for (const QString& linea : std::as_const(mencion_)) {
        Escribe(linea);
    }
    mencion_.clear();
    rs_.MoveNext();
}

QString LayoutSpool::MascaraCantidad() const {
    if (!fig_.mascaraCantidad.isEmpty()) {
        return fig_.mascaraCantidad;
    }
    const qint64 decimales = Parametro("par_deccan");
    if (decimales > 6) {
        Ui().Mensaje(mensajes::kDecimalesCantidad, Icono::Aviso, mensajes::kTituloEmisionFacturas);
        return QStringLiteral("0.000000");
    }
    const QString m =
        QStringLiteral("0.") + QString(static_cast<int>(std::max<qint64>(0, decimales)), u'0');
    return QString(std::max(0, 8 - static_cast<int>(m.size())), u'#') + m;
}

// ---- head ----

void LayoutSpool::InicioCabecera() {
    ++nPagina;
    if (nPagina > 1 && !bSaltoHecho) {
        Envia(kSaltoPagina);
    }
    bSaltoHecho = false;
    Envia(kFinCondensado);
}

void LayoutSpool::BloqueCliente(const QString& prefijo) {
    const QStringList aDir = Direccion();
    const QString raya = Espacios(E("sangriaRaya")) + QString(40, u'-');
    Escribe(raya);
    Escribe(prefijo + QStringLiteral("Factura......: ") +
            Izquierda(T("Fav_Serie") + QLatin1Char('/') + T("Fav_Numero"), 9) +
            Espacios(E("separaNombre")) + T("Cli_Nom"));
    Escribe(prefijo + QStringLiteral("Fecha Factura: ") + Fecha("Fav_Fecha") +
            Espacios(E("separaFecha")) + aDir[0]);
    Escribe(prefijo + QStringLiteral("Pagina.......: ") + Format(nPagina, QStringLiteral("##0")) +
            Espacios(E("separaPagina")) + aDir[1]);
    Escribe(Espacios(E("sangriaCliente")) + aDir[2]);
    Escribe(Espacios(E("sangriaCliente")) + T("Cli_Doc") + Espacios(E("separaCodigo")) +
            T("Cli_Cod"));
    Escribe(raya);
}

void LayoutSpool::TituloColumnas() {
    Escribe(QStringLiteral("--CANT-- ") + Centrado(QStringLiteral("CONCEPTO"), nAncho) +
            QStringLiteral(" -PRECIO-- -DTOS- --IMPORTE--"));
}

void LayoutSpool::AntesCabecera(int n) {
    // bCabecera is still false while the head of an invoice's first page is
    // written: the legend goes on that page only, at its top.
    const QStringList qr =
        bCabecera ? QStringList() : LineasQr(T("UrlQr"), std::max(1, E("anchoMencion")));
    for (const QString& linea : qr) {
        Escribe(linea);
    }
    Blancos(n - static_cast<int>(qr.size()));
}

void LayoutSpool::Cabecera() {
    InicioCabecera();
    AntesCabecera(E("lineasAntesCabecera"));
    BloqueCliente();
    Escribe();
    TituloColumnas();
    bCabecera = true;
    nLinea = 0;
}

// ---- body ----

void LayoutSpool::Albaran() {
    Escribe(Espacios(E("sangriaContinuacion")) + QStringLiteral("Albarán nº: ") +
            T("NumeroAlbaran") + QStringLiteral(" de fecha: ") + Fecha("Cav_Fecha"));
    ++nLinea;
}

QString LayoutSpool::TextoDescuento() const {
    const double d1 = D("Lav_Dto1");
    const double d2 = D("Lav_Dto2");
    QString texto;
    if (d1 != 0 && d2 != 0) {
        texto =
            Format(d1, QStringLiteral("#0")) + QLatin1Char('+') + Format(d2, QStringLiteral("#0"));
    } else if (d1 != 0) {
        texto = Format(d1, QStringLiteral("###0.00"));
    } else if (d2 != 0) {
        texto = Format(d2, QStringLiteral("###0.00"));
    }
    return Derecha(texto, 7);
}

QString LayoutSpool::DescripcionLinea() const {
    const QString d = TrimBlancos(T("Lav_Des"));
    const QString a = TrimBlancos(T("Lav_Ampliades"));
    QString r = d + (a.isEmpty() || d.isEmpty() ? QString() : fig_.separadorDescripcion) + a;
    return r.isEmpty() ? QStringLiteral(" ") : r;
}

QStringList LayoutSpool::Trozos(const QString& texto) const {
    if (!fig_.parteDescripcion) {
        return {texto.left(nAncho)};
    }
    return PartePalabras(texto, nAncho, fig_.maxTrozos);
}

QString LayoutSpool::LineaGeneral(const QStringList& aDes) const {
    return Cifra(D("Lav_Uni"), sMascara, 8) + QLatin1Char(' ') +
           Izquierda(aDes.value(0).left(nAncho), nAncho) + QLatin1Char(' ') +
           CifraSi(D("Lav_Precio"), fig_.mascaraPrecio, 10) + QLatin1Char(' ') + TextoDescuento() +
           QLatin1Char(' ') + CifraSi(D("Lav_Importe"), QStringLiteral("##,##0.00"), 12);
}

void LayoutSpool::Linea() {
    const QStringList aDes = Trozos(DescripcionLinea());
    Escribe(LineaGeneral(aDes));
    ++nLinea;
    dSuma += D("Lav_Importe");
    Continuaciones(aDes);
}

void LayoutSpool::Continuacion(const QString& texto) {
    Escribe(texto);
    ++nLinea;
    if (nLinea >= nLimite) {
        NuevaPagina();
    }
}

void LayoutSpool::Continuaciones(const QStringList& aDes, int desde) {
    for (int i = desde; i < aDes.size(); ++i) {
        if (!aDes[i].isEmpty()) {
            Continuacion(Espacios(E("sangriaContinuacion")) + aDes[i]);
        }
    }
}

// ---- foot ----

void LayoutSpool::Relleno() {
    const int desde = dResiduos != 0 ? nLinea + 2 : nLinea;
    for (int i = desde; i <= nLimite + 3; ++i) {
        Envia(kFinLinea);
    }
    if (dResiduos != 0) {
        Escribe(QStringLiteral("** Eliminacion residuos O.M. 18/01/02 ") +
                Format(dResiduos, QStringLiteral("0.00")) + QStringLiteral(" **"));
        Escribe();
    }
}

QString LayoutSpool::FilaIva(int slot) const {
    const auto col = [slot](const char* nombre) {
        return QString::fromLatin1(nombre) + QString::number(slot);
    };
    const auto d = [this](const QString& nombre) { return rs_.Fields(nombre).Doble(); };
    const double iva = d(col("Fav_Iva"));
    const double rec = d(col("Fav_Rec"));
    return Cifra(d(col("Fav_BIva")), QStringLiteral("###,##0.00"), 12) +
           (iva != 0 ? Cifra(iva, fig_.mascaraIva, E("anchoIva")) : Espacios(E("anchoIva"))) +
           CifraSi(d(col("Fav_ImpIva")), QStringLiteral("##,##0.00"), 10) +
           (rec != 0 ? Derecha(Format(rec, QStringLiteral("#0.0")) + QLatin1Char('%'), 5)
                     : Espacios(5)) +
           CifraSi(d(col("Fav_ImpRec")), QStringLiteral("#,##0.00"), 8);
}

void LayoutSpool::TablaIva(int& usadas) {
    Escribe(QStringLiteral(
        "---BRUTO--- --DESCUENTOS--- ---BASES--- -----IVA----- --RECARGOS-- -TOT.FACTURA-"));
    const QString descuentos =
        D("Fav_Dto1") == 0 && D("Fav_Dto2") == 0
            ? Espacios(16)
            : Derecha(Format(D("Fav_Dto1"), QStringLiteral("#0.00")) + QLatin1Char('%'), 6) +
                  Cifra(D("Fav_ImpDto1"), QStringLiteral("##,##0.00"), 10);
    Escribe(Cifra(D("Fav_Bruto"), QStringLiteral("####,##0.00"), 11) + QLatin1Char(' ') +
            descuentos + FilaIva(1) + Cifra(D("Fav_Total"), QStringLiteral("##,###,##0.00"), 14));
    for (const int slot : {2, 3}) {
        if (D(slot == 2 ? "Fav_BIva2" : "Fav_BIva3") != 0) {
            Escribe(Espacios(E("sangriaIva")) + FilaIva(slot));
            ++usadas;
        }
    }
    if (D("Fav_Dto2") != 0) {
        Escribe(Espacios(E("sangriaDto2")) + Cifra(D("Fav_Dto2"), QStringLiteral("#0.00"), 6) +
                Cifra(D("Fav_ImpDto2"), QStringLiteral("#,##0.00"), 9));
        ++usadas;
    }
}

QString LayoutSpool::Observaciones() const {
    return T("Fav_Obs");
}

void LayoutSpool::BloquePagos() {
    Escribe(QStringLiteral(
        "---------------CONDICIONES DE PAGO------  ------------OBSERVACIONES-------------"));
    // The due dates lose their euro sign before it could become "EUR".
    const QStringList aPago = C("FormaPago").Texto().split(QLatin1Char('#'));
    Escribe(Izquierda(Texto(aPago.value(0)), 40) + QStringLiteral("  ") + Observaciones());
    for (qsizetype i = 1; i < aPago.size(); ++i) {
        if (!aPago[i].isEmpty()) {
            QString plazo = aPago[i];
            Escribe(Izquierda(Texto(plazo.replace(QStringLiteral("€"), QStringLiteral(" "))), 40));
        }
    }
}

void LayoutSpool::Hueco(int n) {
    HuecoConMencion([this](const QString& texto) { Escribe(texto); }, n, mencion_);
}

void LayoutSpool::Totales() {
    int usadas = 0;
    TablaIva(usadas);
    Hueco(E("lineasHuecoIva") - usadas);
    BloquePagos();
}

// ---- writing ----

void LayoutSpool::Envia(const QString& texto) {
    spool_->printline(texto);
}

void LayoutSpool::Escribe(const QString& texto) {
    Envia(texto + kFinLinea);
}

void LayoutSpool::Blancos(int n) {
    for (int i = 0; i < n; ++i) {
        Envia(kFinLinea);
    }
}

// ---- the row ----

Campo LayoutSpool::C(const char* nombre) const {
    return rs_.Fields(QString::fromLatin1(nombre));
}

QString LayoutSpool::T(const char* nombre) const {
    return Texto(C(nombre));
}

QString LayoutSpool::Texto(const Campo& campo) const {
    return Texto(campo.Texto());
}

QString LayoutSpool::Texto(const QString& texto) const {
    return AjustaCodigoPagina(texto, codigoPagina_);
}

double LayoutSpool::D(const char* nombre) const {
    return C(nombre).Doble();
}

qint64 LayoutSpool::N(const char* nombre) const {
    return C(nombre).Entero();
}

QString LayoutSpool::Fecha(const char* nombre, const QString& mascara) const {
    return Format(C(nombre).Value(), mascara);
}

QStringList LayoutSpool::Direccion() const {
    QStringList aDir = T("Direcion").split(QStringLiteral("\r\n"));
    while (aDir.size() < 3) {
        aDir << QString();
    }
    return aDir;
}

QStringList LayoutSpool::Pagos() const {
    return T("FormaPago").split(QLatin1Char('#'));
}

qint64 LayoutSpool::Parametro(const char* nombre) const {
    return Bd().Parametros().Item(QString::fromLatin1(nombre)).Entero();
}

BdSesion& LayoutSpool::Bd() const {
    return f_->MyBd();
}

} // namespace vk::spool
