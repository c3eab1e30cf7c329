// The agency's SOAP 1.1 sending service over HTTPS (libcurl): the
// installation's certificate, the endpoint of the company's environment, the
// submission in the envelope's body, and the answer read: the CSV, the wait
// before the next send, the overall state and one line per record.
#pragma once

#include "UrlQr.h"

#include <QByteArray>
#include <QString>
#include <vector>

namespace vk::fiscal {

// The endpoints of the service (voluntary sending), test and production.
QString fnUrlServicio(EntornoFiscal entorno);

// How to reach the service. From the settings of the installation
// (fnAjustesEnvio), or composed by whoever calls.
struct AjustesEnvio {
    QString url;
    QString certificado;      // PKCS#12 (.p12, .pfx) or PEM file of the company
    QString clavePrivada;     // PEM key, when not inside the certificate file
    QString claveCertificado; // the password of either
    QString ca;               // CA file to trust the server with; empty: the system's
    int tiempoMaximo = 60;    // seconds a send may take
    int esperaMaxima = -1;    // cap on the agency's wait between sends; < 0 none
};

// Settings of application "vkfactuven", section "verifactu": certificado,
// clave_privada, clave (or the environment variable VKFACTUVEN_VF_CLAVE,
// which wins), ca, servidor (instead of the environment's endpoint),
// tiempo_maximo and espera_maxima.
AjustesEnvio fnAjustesEnvio(EntornoFiscal entorno);

// The agency's word on one record of a submission.
struct LineaRespuesta {
    QString nif, numSerie, fecha; // the invoice as the record names it
    QString operacion;            // "Alta" or "Anulacion"
    QString estado;               // Correcto, AceptadoConErrores, Incorrecto
    int codigo = 0;
    QString descripcion;
};

struct RespuestaAeat {
    bool respondida = false; // the agency answered with its message (not a fault)
    QString error;           // why not, for a person
    QString csv;
    QString estadoEnvio; // Correcto, ParcialmenteCorrecto, Incorrecto
    int tiempoEspera = 60;
    std::vector<LineaRespuesta> lineas;
};

// The answer's body read; a SOAP fault or anything else is an error.
RespuestaAeat fnLeeRespuesta(const QByteArray& cuerpo);
// One submission sent and its answer read. Never throws: a connection failure,
// a timeout or a fault come back in `error`.
RespuestaAeat fnEnviaRemision(const AjustesEnvio& ajustes, const QString& documento);

} // namespace vk::fiscal
