#include "ServicioAeat.h"

#include <Ajustes.h>
#include <QXmlStreamReader>
#include <algorithm>
#include <curl/curl.h>
#include <memory>
#include <mutex>

namespace vk::fiscal {

namespace {

const QString kAplicacion = QStringLiteral("vkfactuven");
const QString kSeccion = QStringLiteral("verifactu");

QString ajuste(const char* clave, const QString& defecto = {}) {
    return LeeAjuste(kAplicacion, kSeccion, QString::fromLatin1(clave), defecto).trimmed();
}

size_t recibe(char* datos, size_t tam, size_t n, void* destino) {
    static_cast<QByteArray*>(destino)->append(datos, static_cast<qsizetype>(tam * n));
    return tam * n;
}

// The text of the element the reader stands on, trimmed.
QString texto(QXmlStreamReader& x) {
    return x.readElementText(QXmlStreamReader::IncludeChildElements).trimmed();
}

} // namespace

QString fnUrlServicio(EntornoFiscal entorno) {
    // The service addresses of the agency's WSDL (SistemaFacturacion.wsdl).
    return entorno == EntornoFiscal::Produccion
               ? QStringLiteral("https://www1.agenciatributaria.gob.es/wlpl/TIKE-CONT/ws/"
                                "SistemaFacturacion/VerifactuSOAP")
               : QStringLiteral(
                     "https://prewww1.aeat.es/wlpl/TIKE-CONT/ws/SistemaFacturacion/VerifactuSOAP");
}

AjustesEnvio fnAjustesEnvio(EntornoFiscal entorno) {
    AjustesEnvio a;
    a.url = ajuste("servidor", fnUrlServicio(entorno));
    a.certificado = ajuste("certificado");
    a.clavePrivada = ajuste("clave_privada");
    const QByteArray delEntorno = qgetenv("VKFACTUVEN_VF_CLAVE");
    a.claveCertificado = delEntorno.isEmpty()
                             ? LeeAjuste(kAplicacion, kSeccion, QStringLiteral("clave"))
                             : QString::fromUtf8(delEntorno);
    a.ca = ajuste("ca");
    bool ok = false;
    if (const int t = ajuste("tiempo_maximo").toInt(&ok); ok && t > 0) {
        a.tiempoMaximo = t;
    }
    if (const int e = ajuste("espera_maxima").toInt(&ok); ok && e >= 0) {
        a.esperaMaxima = e;
    }
    return a;
}

RespuestaAeat fnLeeRespuesta(const QByteArray& cuerpo) {
    RespuestaAeat r;
    QString faultcode, faultstring;
    bool fault = false;
    QXmlStreamReader x(cuerpo);
    LineaRespuesta* linea = nullptr;
    while (!x.atEnd()) {
        if (x.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        const QStringView n = x.name();
        if (n == u"Fault") {
            fault = true;
        } else if (fault && n == u"faultcode") {
            faultcode = texto(x);
        } else if (fault && n == u"faultstring") {
            faultstring = texto(x).simplified();
        } else if (n == u"RespuestaRegFactuSistemaFacturacion") {
            r.respondida = true;
        } else if (n == u"RespuestaLinea") {
            r.lineas.emplace_back();
            linea = &r.lineas.back();
        } else if (n == u"RegistroDuplicado") {
            // The state of the record the agency already had: not this line's.
            x.skipCurrentElement();
        } else if (linea == nullptr) {
            if (n == u"CSV") {
                r.csv = texto(x);
            } else if (n == u"TiempoEsperaEnvio") {
                bool ok = false;
                const int t = texto(x).toInt(&ok);
                r.tiempoEspera = ok && t >= 0 ? t : r.tiempoEspera;
            } else if (n == u"EstadoEnvio") {
                r.estadoEnvio = texto(x);
            }
        } else if (n == u"IDEmisorFactura" || n == u"IDEmisorFacturaAnulada") {
            linea->nif = texto(x);
        } else if (n == u"NumSerieFactura" || n == u"NumSerieFacturaAnulada") {
            linea->numSerie = texto(x);
        } else if (n == u"FechaExpedicionFactura" || n == u"FechaExpedicionFacturaAnulada") {
            linea->fecha = texto(x);
        } else if (n == u"TipoOperacion") {
            linea->operacion = texto(x);
        } else if (n == u"EstadoRegistro") {
            linea->estado = texto(x);
        } else if (n == u"CodigoErrorRegistro") {
            linea->codigo = texto(x).toInt();
        } else if (n == u"DescripcionErrorRegistro") {
            linea->descripcion = texto(x).simplified();
        }
    }
    if (fault) {
        r.respondida = false;
        r.error =
            QStringLiteral("la AEAT rechazó el envío entero (%1): %2")
                .arg(faultcode, faultstring.isEmpty() ? QStringLiteral("sin motivo") : faultstring);
    } else if (x.hasError() || !r.respondida) {
        r.respondida = false;
        r.error = QStringLiteral("la respuesta del servidor no es la de la AEAT");
    }
    return r;
}

RespuestaAeat fnEnviaRemision(const AjustesEnvio& a, const QString& documento) {
    static std::once_flag iniciado;
    std::call_once(iniciado, [] { curl_global_init(CURL_GLOBAL_DEFAULT); });
    RespuestaAeat r;
    const QByteArray sobre =
        QByteArrayLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
                          "<soapenv:Envelope "
                          "xmlns:soapenv=\"http://schemas.xmlsoap.org/soap/envelope/\">"
                          "<soapenv:Header/><soapenv:Body>") +
        documento.toUtf8() + QByteArrayLiteral("</soapenv:Body></soapenv:Envelope>");
    std::unique_ptr<CURL, decltype(&curl_easy_cleanup)> c(curl_easy_init(), curl_easy_cleanup);
    if (!c) {
        r.error = QStringLiteral("no se pudo iniciar la conexión");
        return r;
    }
    curl_slist* cabeceras = nullptr;
    cabeceras = curl_slist_append(cabeceras, "Content-Type: text/xml; charset=utf-8");
    cabeceras = curl_slist_append(cabeceras, "SOAPAction: \"\"");
    const std::unique_ptr<curl_slist, decltype(&curl_slist_free_all)> liberaCabeceras(
        cabeceras, curl_slist_free_all);
    const QByteArray url = a.url.toUtf8();
    const QByteArray cert = a.certificado.toLocal8Bit();
    const QByteArray clave = a.clavePrivada.toLocal8Bit();
    const QByteArray pass = a.claveCertificado.toUtf8();
    const QByteArray ca = a.ca.toLocal8Bit();
    QByteArray cuerpo;
    char detalle[CURL_ERROR_SIZE] = {};
    CURL* h = c.get();
    curl_easy_setopt(h, CURLOPT_URL, url.constData());
    curl_easy_setopt(h, CURLOPT_POST, 1L);
    curl_easy_setopt(h, CURLOPT_POSTFIELDS, sobre.constData());
    curl_easy_setopt(h, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(sobre.size()));
    curl_easy_setopt(h, CURLOPT_HTTPHEADER, cabeceras);
    curl_easy_setopt(h, CURLOPT_WRITEFUNCTION, recibe);
    curl_easy_setopt(h, CURLOPT_WRITEDATA, &cuerpo);
    curl_easy_setopt(h, CURLOPT_ERRORBUFFER, detalle);
    curl_easy_setopt(h, CURLOPT_TIMEOUT, static_cast<long>(a.tiempoMaximo));
    curl_easy_setopt(h, CURLOPT_CONNECTTIMEOUT, static_cast<long>(std::min(a.tiempoMaximo, 30)));
    curl_easy_setopt(h, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(h, CURLOPT_PROTOCOLS_STR, "https");
    if (!cert.isEmpty()) {
        const bool p12 = a.certificado.endsWith(QLatin1String(".p12"), Qt::CaseInsensitive) ||
                         a.certificado.endsWith(QLatin1String(".pfx"), Qt::CaseInsensitive);
        curl_easy_setopt(h, CURLOPT_SSLCERT, cert.constData());
        curl_easy_setopt(h, CURLOPT_SSLCERTTYPE, p12 ? "P12" : "PEM");
        if (!clave.isEmpty()) {
            curl_easy_setopt(h, CURLOPT_SSLKEY, clave.constData());
        }
        if (!pass.isEmpty()) {
            curl_easy_setopt(h, CURLOPT_KEYPASSWD, pass.constData());
        }
    }
    if (!ca.isEmpty()) {
        curl_easy_setopt(h, CURLOPT_CAINFO, ca.constData());
    }
    const CURLcode res = curl_easy_perform(h);
    if (res != CURLE_OK) {
        const QString por = detalle[0] != '\0' ? QString::fromUtf8(detalle)
                                               : QString::fromUtf8(curl_easy_strerror(res));
        r.error = res == CURLE_OPERATION_TIMEDOUT
                      ? QStringLiteral("la AEAT no respondió en %1 segundos (%2)")
                            .arg(a.tiempoMaximo)
                            .arg(por)
                      : QStringLiteral("no se pudo conectar con %1: %2").arg(a.url, por);
        return r;
    }
    long estado = 0;
    curl_easy_getinfo(h, CURLINFO_RESPONSE_CODE, &estado);
    r = fnLeeRespuesta(cuerpo);
    if (!r.respondida && r.error.startsWith(QLatin1String("la respuesta")) && estado != 200) {
        r.error = QStringLiteral("el servidor respondió con el estado HTTP %1").arg(estado);
    }
    return r;
}

} // namespace vk::fiscal
