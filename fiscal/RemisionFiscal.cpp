#include "RemisionFiscal.h"

#include "FormatoFiscal.h"

#include <BdSesion.h>
#include <QDir>
#include <QFile>
#include <QMutex>
#include <QTemporaryDir>
#include <QXmlStreamWriter>
#include <algorithm>
#include <libxml/parser.h>
#include <libxml/xmlschemas.h>
#include <memory>

// Q_INIT_RESOURCE names a function of the global namespace.
static void iniciaEsquemas() {
    Q_INIT_RESOURCE(esquemas);
}

namespace vk::fiscal {

namespace {

// The stored text as it is (the newline the writer ends it with included),
// without the declaration a writer may have put first.
QString elemento(const QString& xml) {
    if (xml.trimmed().startsWith(QLatin1String("<?xml"))) {
        return xml.mid(xml.indexOf(QLatin1String("?>")) + 2);
    }
    return xml;
}

#if LIBXML_VERSION >= 21200
void anotaError(void* datos, const xmlError* e) {
#else
void anotaError(void* datos, xmlErrorPtr e) {
#endif
    auto* errores = static_cast<QStringList*>(datos);
    if (e != nullptr && e->message != nullptr) {
        errores->append(QStringLiteral("línea %1: %2")
                            .arg(e->line)
                            .arg(QString::fromUtf8(e->message).trimmed()));
    }
}

// The agency's schemas, compiled once per process from the copies this
// program carries.
class Esquema {
public:
    static Esquema& instancia() {
        static Esquema e;
        return e;
    }
    ~Esquema() {
        if (esquema_ != nullptr) {
            xmlSchemaFree(esquema_);
        }
    }
    xmlSchemaPtr esquema() const { return esquema_; }
    const QString& error() const { return error_; }
    QMutex& cerrojo() { return cerrojo_; }

private:
    Esquema() {
        iniciaEsquemas();
        // libxml2 resolves the imports by file name: the three files side by
        // side in a folder of this process.
        for (const char* nombre :
             {"SuministroLR.xsd", "SuministroInformacion.xsd", "xmldsig-core-schema.xsd"}) {
            const QString n = QString::fromLatin1(nombre);
            QFile::remove(dir_.filePath(n));
            if (!dir_.isValid() ||
                !QFile::copy(QStringLiteral(":/vk/esquemas/") + n, dir_.filePath(n))) {
                error_ = QStringLiteral("no se pudo preparar el esquema %1").arg(n);
                return;
            }
        }
        QStringList errores;
        const QByteArray ruta =
            QFile::encodeName(dir_.filePath(QStringLiteral("SuministroLR.xsd")));
        xmlSchemaParserCtxtPtr ctx = xmlSchemaNewParserCtxt(ruta.constData());
        xmlSchemaSetParserStructuredErrors(ctx, anotaError, &errores);
        esquema_ = xmlSchemaParse(ctx);
        xmlSchemaFreeParserCtxt(ctx);
        if (esquema_ == nullptr) {
            error_ = QStringLiteral("el esquema no se pudo cargar: ") +
                     errores.join(QStringLiteral("; "));
        }
    }
    QTemporaryDir dir_;
    xmlSchemaPtr esquema_ = nullptr;
    QString error_;
    QMutex cerrojo_;
};

} // namespace

std::vector<RegistroRemision> fnRegistrosRemision(BdSesion& bd, bool soloPendientes) {
    std::vector<RegistroRemision> r;
    const QString sql = QStringLiteral(
        "SELECT Vfr_Id, Vfr_Tipo, Vfr_Nif, Vfr_NumSerie, Vfr_Fecha, Vfr_FechaHora, Vfr_Xml FROM "
        "VfRegistro INNER JOIN VfEnvio ON Vfe_IdRegistro = Vfr_Id %1 ORDER BY Vfr_Id");
    for (Recordset rs = bd.cn().Execute(
             sql.arg(soloPendientes ? QStringLiteral("WHERE Vfe_Estado = 0") : QString()));
         !rs.Eof(); rs.MoveNext()) {
        r.push_back({static_cast<qint32>(rs.Fields(0).Entero()), rs.Fields(1).Texto().trimmed(),
                     rs.Fields(2).Texto(), rs.Fields(3).Texto(), rs.Fields(4).Texto(),
                     rs.Fields(5).Texto(), rs.Fields(6).Texto()});
    }
    return r;
}

std::vector<Remision> fnAgrupaRemisiones(const std::vector<RegistroRemision>& registros,
                                         const QDateTime& ahora, int tamLote) {
    tamLote = std::clamp(tamLote, 1, kMaxRegistrosRemision);
    std::vector<RegistroRemision> tarde, aTiempo;
    for (const RegistroRemision& r : registros) {
        const QDateTime momento = fnLeeFechaHoraFiscal(r.fechaHora);
        // A timestamp that cannot be read is treated as late: the flag only
        // tells the agency the record did not go at once.
        (!momento.isValid() || momento.secsTo(ahora) > kSegundosIncidencia ? tarde : aTiempo)
            .push_back(r);
    }
    std::vector<Remision> remisiones;
    for (const auto* grupo : {&tarde, &aTiempo}) {
        for (size_t i = 0; i < grupo->size(); i += static_cast<size_t>(tamLote)) {
            Remision rem;
            rem.incidencia = grupo == &tarde;
            const size_t fin = std::min(grupo->size(), i + static_cast<size_t>(tamLote));
            rem.registros.assign(grupo->begin() + static_cast<std::ptrdiff_t>(i),
                                 grupo->begin() + static_cast<std::ptrdiff_t>(fin));
            remisiones.push_back(std::move(rem));
        }
    }
    return remisiones;
}

QString fnXmlRemision(const EmisorFiscal& emisor, const Remision& remision) {
    // The header through a writer (the name may need escaping); the records
    // pasted as stored, never parsed and written again.
    QString cabecera;
    QXmlStreamWriter x(&cabecera);
    x.writeNamespace(kNsSuministroLR, QStringLiteral("sfLR"));
    x.writeNamespace(kNsSuministroInformacion, QStringLiteral("sf"));
    x.writeStartElement(kNsSuministroLR, QStringLiteral("RegFactuSistemaFacturacion"));
    x.writeStartElement(kNsSuministroLR, QStringLiteral("Cabecera"));
    x.writeStartElement(kNsSuministroInformacion, QStringLiteral("ObligadoEmision"));
    x.writeTextElement(kNsSuministroInformacion, QStringLiteral("NombreRazon"),
                       emisor.nombre.trimmed().left(120));
    x.writeTextElement(kNsSuministroInformacion, QStringLiteral("NIF"), emisor.nif);
    x.writeEndElement();
    if (remision.incidencia) {
        x.writeStartElement(kNsSuministroInformacion, QStringLiteral("RemisionVoluntaria"));
        x.writeTextElement(kNsSuministroInformacion, QStringLiteral("Incidencia"),
                           QStringLiteral("S"));
        x.writeEndElement();
    }
    x.writeEndElement();
    // Closes the header's start tag; the root stays open.
    x.writeCharacters(QString());
    QString texto = cabecera;
    for (const RegistroRemision& r : remision.registros) {
        texto += QStringLiteral("<sfLR:RegistroFactura>") + elemento(r.xml) +
                 QStringLiteral("</sfLR:RegistroFactura>");
    }
    texto += QStringLiteral("</sfLR:RegFactuSistemaFacturacion>");
    return texto;
}

QByteArray fnFicheroRemision(const EmisorFiscal& emisor, const Remision& remision) {
    return QByteArrayLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n") +
           fnXmlRemision(emisor, remision).toUtf8() + '\n';
}

QString fnErroresEsquema(const QByteArray& documento) {
    Esquema& e = Esquema::instancia();
    if (e.esquema() == nullptr) {
        return e.error();
    }
    QStringList errores;
    xmlDocPtr doc = xmlReadMemory(documento.constData(), static_cast<int>(documento.size()),
                                  "remision.xml", "UTF-8", XML_PARSE_NONET);
    if (doc == nullptr) {
        return QStringLiteral("el documento no es XML bien formado");
    }
    const QMutexLocker bloqueo(&e.cerrojo());
    xmlSchemaValidCtxtPtr v = xmlSchemaNewValidCtxt(e.esquema());
    xmlSchemaSetValidStructuredErrors(v, anotaError, &errores);
    const int resultado = xmlSchemaValidateDoc(v, doc);
    xmlSchemaFreeValidCtxt(v);
    xmlFreeDoc(doc);
    if (resultado == 0) {
        return {};
    }
    return errores.isEmpty() ? QStringLiteral("no cumple el esquema")
                             : errores.join(QLatin1Char('\n'));
}

} // namespace vk::fiscal
