#include "frmEmisionFacturas.h"

#include <VKFACVENTAS.h>

namespace vk {

namespace {

const QString kVerOpciones = QStringLiteral("&Ver Opciones de Salida");
const QString kOcultarOpciones = QStringLiteral("&Ocultar Opciones de Salida");
constexpr int kAltoCorto = 1605;
constexpr int kAltoLargo = 4350;

struct OpcionPapel {
    const char* caption;
    const char* parametro;
    bool logico; // stored as true/false instead of 1/0
};

// Captions as the stationery options always read, trailing blanks included.
const std::array<OpcionPapel, 10> kOpciones{{
    {"Imprimir Logotipo en papel ", "Par_PrnLogo", false},
    {"Imprimir los datos de la empresa ", "Par_PrnEmp", false},
    {"Imprimir Linea 1ª  linea del pie ", "Par_PrnL1", false},
    {"Imprimir Linea 2ª  linea del pie", "Par_PrnL2", false},
    {"Imprimir Nombre del Comercial", "Par_NComer", false},
    {"Justificar Lineas Facturas", "Par_Justificar", false},
    {"Preguntar Diseño al Emitir Facturas", "Par_PeDiFact", false},
    {"Imprimir Condiciones de Pago", "Par_PrintFco", false},
    {"Suprimir Enmarcados de Factura", "PAR_SINCUADROS", false},
    {"Imprimir Texto Ley LOPD", "Par_Flopd", true},
}};

} // namespace

const QStringList& DisenosFactura() {
    static const QStringList disenos{
        QStringLiteral("General"),        QStringLiteral("Personalizado"),
        QStringLiteral("General Logo"),   QStringLiteral("General Logo 2"),
        QStringLiteral("Automoción"),     QStringLiteral("Plantilla"),
        QStringLiteral("Matricial"),      QStringLiteral("Plantilla Obras"),
        QStringLiteral("General Logo 3"), QStringLiteral("P.Obras Retención"),
        QStringLiteral("Medidas"),        QStringLiteral("Plantilla Obras sín códigos"),
        QStringLiteral("Servicios 1"),    QStringLiteral("Alimentacion 1"),
        QStringLiteral("General Logo 4"), QStringLiteral("General (Obs. Albaranes)"),
        QStringLiteral("Calzado"),        QStringLiteral("Retencion"),
        QStringLiteral("Transportes"),    QStringLiteral("General Izquierda"),
    };
    return disenos;
}

frmEmisionFacturas::frmEmisionFacturas(VKFACVENTAS& factura) : factura_(factura) {
    cmdVerCaption = kVerOpciones;
    Height = kAltoCorto;
    // What the company has saved, as another user may have just changed it.
    factura.MyBd().RecargaParametros(QStringLiteral("Select * from parametros"));
    cmbDiseno = DisenosFactura();
    cargaOpciones();
    const qint64 diseno =
        factura.MyBd().Parametros().Item(QStringLiteral("Par_DiseñoFactura")).Entero();
    cmbDisenoIndex = diseno >= 0 && diseno < cmbDiseno.size() ? static_cast<int>(diseno) : 0;
}

void frmEmisionFacturas::cargaOpciones() {
    BdParametros& par = factura_.MyBd().Parametros();
    for (std::size_t i = 0; i < kOpciones.size(); ++i) {
        const BdParametro& p = par.Item(QString::fromUtf8(kOpciones[i].parametro));
        lstOpcionesPapel[i].caption = QString::fromUtf8(kOpciones[i].caption);
        // Checked when it holds 1, or true for the one stored as a boolean.
        lstOpcionesPapel[i].marcada =
            !p.IsNull() && (kOpciones[i].logico ? p.Entero() != 0 : p.Entero() == 1);
    }
}

void frmEmisionFacturas::cmdVer() {
    if (Height == kAltoCorto) {
        Height = kAltoLargo;
        cmdVerCaption = kOcultarOpciones;
        cargaOpciones();
    } else {
        Height = kAltoCorto;
        cmdVerCaption = kVerOpciones;
    }
}

void frmEmisionFacturas::cmdEmitir() {
    nDisenoEmision = static_cast<qint16>(cmbDisenoIndex);
    Eleccion = {};
    Eleccion.Fija(QStringLiteral("Par_DiseñoFactura"), nDisenoEmision);
    for (std::size_t i = 0; i < kOpciones.size(); ++i) {
        const bool marcada = lstOpcionesPapel[i].marcada;
        Eleccion.Fija(QString::fromUtf8(kOpciones[i].parametro),
                      kOpciones[i].logico ? QVariant(marcada) : QVariant(marcada ? 1 : 0));
    }
}

void frmEmisionFacturas::cmdSalir() {
    nDisenoEmision = -1;
    Eleccion = {};
}

} // namespace vk
