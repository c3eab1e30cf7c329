#include "VKFACVENTAS.h"

#include "ErrorBd.h"
#include "Interaccion.h"
#include "LanzadorPantallas.h"
#include "MensajesCore.h"

namespace vk {

namespace {

void muestra(const QString& pantalla, const QVariantMap& argumentos = {}) {
    LanzadorPantallas* l = LanzadorActual();
    if (!l) {
        throw Error(mensajes::kSinLanzador.arg(pantalla));
    }
    l->Muestra({pantalla, argumentos});
}

} // namespace

QString TextoLOPDBase() {
    return QStringLiteral(
               "En cumplimiento del artículo 5 de la Ley Orgánica 15/1999, de Protección de Datos "
               "de Carácter Personal, por el que se regula el derecho a la información en la "
               "recogida de datos, ") +
           QStringLiteral(
               "le informamos que sus datos forman parte de nuestro Fichero Automatizado de "
               "Clientes, inscrito en el Registro General de la Agencia Española de Protección de "
               "Datos. La recogida y tratamiento automatizado de los datos personales tiene como "
               "finalidad el ofrecerle nuestros servicios así como para la gestión interna. ") +
           QStringLiteral(
               "El titular de los datos se compromete a comunicar a esta empresa cualquier "
               "modificación que se produzca en sus datos de carácter personal. Asimismo, le "
               "informamos que usted puede en cualquier momento ejercer el derecho de acceso, "
               "rectificación, cancelación y oposición en los términos establecidos en la Ley "
               "15/1999. El Responsable del Fichero es: ");
}

VKFACVENTAS::VKFACVENTAS() : sTextoLOPD(TextoLOPDBase()) {}

VKFACVENTAS::~VKFACVENTAS() = default;

BdSesion& VKFACVENTAS::MyBd() const {
    if (!bd_) {
        throw Error(mensajes::kSinSesion);
    }
    return *bd_;
}

void VKFACVENTAS::setMyBd(BdSesion& sesion) {
    bd_ = &sesion;
    Recordset rs =
        sesion.cn().Execute(QStringLiteral("SELECT * FROM ParamTextos WHERE PTex_Tipo = 0"));
    if (rs.Eof()) {
        // The clause is not restored first: a second setting appends the
        // company's name once more, as the setter always did.
        sTextoLOPD += sesion.Parametros().Item(QStringLiteral("PAR_NOMBRE")).Texto();
    } else {
        sTextoLOPD = rs.Fields(QStringLiteral("PTex_Texto")).Texto();
        sTextoLOPD.remove(QStringLiteral("\r\n"));
    }
}

void VKFACVENTAS::jEditaFactura(const QString& sSerie, qint32 nNumero, bool bSoloLectura) {
    if (nNumero < 1 || sSerie.isEmpty()) {
        return;
    }
    muestra(QStringLiteral("frmEdicionFacturas"), {{QStringLiteral("serie"), sSerie},
                                                   {QStringLiteral("numero"), nNumero},
                                                   {QStringLiteral("cargar"), true},
                                                   {QStringLiteral("soloLectura"), bSoloLectura}});
}

void VKFACVENTAS::jFacturasVenta() {
    muestra(QStringLiteral("frmFacturasVenta"));
}

void VKFACVENTAS::jBorradoFacturas() {
    muestra(QStringLiteral("frmBorradoFacturas"));
}

void VKFACVENTAS::jRegistrosFiscales() {
    muestra(QStringLiteral("frmRegistrosFiscales"));
}

void VKFACVENTAS::jFacturasContrataciones() {
    muestra(QStringLiteral("frmFacturaContrataciones"));
}

void VKFACVENTAS::jInformeFacturasVenta() {
    muestra(QStringLiteral("frmInformeFacturas"));
}

void VKFACVENTAS::jComparaVentas() {
    muestra(QStringLiteral("frmCompara"));
}

void VKFACVENTAS::jInformeFacturasVenta2() {
    muestra(QStringLiteral("frmInformeFacturas2"));
}

void VKFACVENTAS::jConexionContable(qint16 nOrigen, const QString& sConexion) {
    if (nOrigen == 1) {
        muestra(QStringLiteral("frmConexOrvacon"),
                {{QStringLiteral("nOrigen"), 1}, {QStringLiteral("sConexion"), sConexion}});
        return;
    }
    const BdParametro& p = MyBd().Parametros().Item(QStringLiteral("Par_GContable"));
    const QString sistema = p.IsNull() ? QStringLiteral("TELMARO") : p.Texto().trimmed().toUpper();
    if (sistema == QLatin1String("TELMARO")) {
        muestra(QStringLiteral("frmConexTelmaro"));
    } else if (sistema == QLatin1String("ORVACON")) {
        muestra(QStringLiteral("frmConexOrvacon"));
    } else if (sistema == QLatin1String("NCS")) {
        muestra(QStringLiteral("frmConexContable"));
    } else {
        Ui().Mensaje(mensajes::kSinGestionContable, Icono::Informacion, QString());
    }
}

void VKFACVENTAS::jEmisionFacturas() {
    if (IdFactu > 0) {
        Recordset rs = MyBd().cn().Execute(
            QStringLiteral("SELECT fav_serie, fav_numero FROM Fav WHERE fav_id = ?"), {IdFactu});
        if (!rs.Eof()) {
            muestra(QStringLiteral("frmEdicionFacturas"),
                    {{QStringLiteral("serie"), rs.Fields(QStringLiteral("fav_serie")).Texto()},
                     {QStringLiteral("numero"), rs.Fields(QStringLiteral("fav_numero")).Entero()},
                     {QStringLiteral("cargar"), true}});
            return;
        }
    }
    // The edit screen starts in its search state.
    muestra(QStringLiteral("frmEdicionFacturas"), {{QStringLiteral("buscar"), true}});
}

ResultadoEmision VKFACVENTAS::EmisionFacturas(qint16 nDiseno, bool bDiseno) {
    return EmisionMultiplesFacturas(nDiseno, bDiseno, {IdFactu});
}

ResultadoEmision VKFACVENTAS::EmisionSimple(const QString& Serie, qint32 Numero) {
    Recordset rs = MyBd().cn().Execute(
        QStringLiteral("SELECT Fav_id, fav_IdCli FROM Fav WHERE fav_Serie = ? AND Fav_numero = ?"),
        {Serie, Numero});
    if (rs.Eof()) {
        return ResultadoEmision::Hecha; // an invoice that does not exist is not an error here
    }
    IdFactu = static_cast<qint32>(rs.Fields(QStringLiteral("Fav_id")).Entero());
    IdCliente = static_cast<qint32>(rs.Fields(QStringLiteral("fav_IdCli")).Entero());
    return EmisionFacturas(1, true);
}

ResultadoEmision VKFACVENTAS::EmisionMultiplesFacturas(qint16 nDiseno, bool bDiseno,
                                                       const QVector<qint32>& vIds, bool bForce,
                                                       qint16 nOrigen) {
    if (!ExisteComponente(QString::fromLatin1(EmisorFacturas::kProgId))) {
        throw Error(mensajes::kSinEmisor);
    }
    return CreaObjeto<EmisorFacturas>(QString::fromLatin1(EmisorFacturas::kProgId))
        ->EmisionMultiplesFacturas(*this, nDiseno, bDiseno, vIds, bForce, nOrigen);
}

QString VKFACVENTAS::CreatePdf(qint32 nIdFactura) {
    PdfOutFile.clear();
    EmisionMultiplesFacturas(1, true, {nIdFactura}, true, 0);
    return PdfOutFile;
}

bool VKFACVENTAS::ConexionContableFacturaVentas(qint16 nEmp, const QString& sWhere,
                                                const QVariantList& vWhere, bool bCobros,
                                                bool bBorra, bool bEdicion,
                                                const QString& sAsientoCobro) {
    if (!ExisteComponente(QString::fromLatin1(ContabilizadorVentas::kProgId))) {
        throw Error(mensajes::kSinContabilizacion);
    }
    return CreaObjeto<ContabilizadorVentas>(QString::fromLatin1(ContabilizadorVentas::kProgId))
        ->ConexionContableFacturaVentas(*this, nEmp, sWhere, vWhere, bCobros, bBorra, bEdicion,
                                        sAsientoCobro);
}

} // namespace vk
