#include "XmlRegistro.h"

#include "FormatoFiscal.h"

#include <QXmlStreamWriter>

namespace vk::fiscal {

namespace {

class Escritor {
public:
    Escritor() : x_(&texto_) { x_.setAutoFormatting(false); }

    void abre(const char* nombre) { x_.writeStartElement(kNsSuministroInformacion, n(nombre)); }
    void cierra() { x_.writeEndElement(); }
    void campo(const char* nombre, const QString& valor) {
        x_.writeTextElement(kNsSuministroInformacion, n(nombre), valor.trimmed());
    }
    void raiz(const char* nombre) {
        x_.writeNamespace(kNsSuministroInformacion, QStringLiteral("sf"));
        abre(nombre);
    }
    QString fin() {
        x_.writeEndDocument();
        return texto_;
    }

    void encadenamiento(const std::optional<RegistroAnterior>& a) {
        abre("Encadenamiento");
        if (!a) {
            campo("PrimerRegistro", QStringLiteral("S"));
        } else {
            abre("RegistroAnterior");
            campo("IDEmisorFactura", a->nif);
            campo("NumSerieFactura", a->numSerie);
            campo("FechaExpedicionFactura", a->fecha);
            campo("Huella", a->huella);
            cierra();
        }
        cierra();
    }

    void sistema(const SistemaInformatico& s) {
        abre("SistemaInformatico");
        campo("NombreRazon", s.nombreRazon);
        campo("NIF", s.nif);
        campo("NombreSistemaInformatico", s.nombreSistema);
        campo("IdSistemaInformatico", s.idSistema);
        campo("Version", s.version);
        campo("NumeroInstalacion", s.numeroInstalacion);
        // Only VERI*FACTU, one taxpayer per installation's chain.
        campo("TipoUsoPosibleSoloVerifactu", QStringLiteral("S"));
        campo("TipoUsoPosibleMultiOT", QStringLiteral("N"));
        campo("IndicadorMultiplesOT", QStringLiteral("N"));
        cierra();
    }

    void cola(const DatosCadena& c) {
        encadenamiento(c.anterior);
        sistema(c.sistema);
        campo("FechaHoraHusoGenRegistro", c.fechaHora);
        campo("TipoHuella", QStringLiteral("01"));
        campo("Huella", c.huella);
    }

private:
    static QString n(const char* nombre) { return QString::fromLatin1(nombre); }
    QString texto_;
    QXmlStreamWriter x_;
};

// A text element's limit: the schema refuses a longer one.
QString hasta(const QString& texto, int maximo) {
    return texto.trimmed().left(maximo);
}

} // namespace

QString fnXmlAlta(const FacturaFiscal& f, const EmisorFiscal& emisor, const OpcionesAlta& o,
                  const DatosCadena& c) {
    Escritor x;
    x.raiz("RegistroAlta");
    x.campo("IDVersion", QStringLiteral("1.0"));
    x.abre("IDFactura");
    x.campo("IDEmisorFactura", emisor.nif);
    x.campo("NumSerieFactura", f.numSerie);
    x.campo("FechaExpedicionFactura", fnFechaFiscal(f.fecha));
    x.cierra();
    x.campo("NombreRazonEmisor", hasta(emisor.nombre, 120));
    if (o.subsanacion) {
        x.campo("Subsanacion", QStringLiteral("S"));
    }
    if (!o.rechazoPrevio.isEmpty()) {
        x.campo("RechazoPrevio", o.rechazoPrevio);
    }
    x.campo("TipoFactura", f.tipoFactura);
    if (!f.tipoRectificativa.isEmpty()) {
        x.campo("TipoRectificativa", f.tipoRectificativa);
    }
    if (!f.rectificadas.empty()) {
        x.abre("FacturasRectificadas");
        for (const IdFacturaFiscal& r : f.rectificadas) {
            x.abre("IDFacturaRectificada");
            x.campo("IDEmisorFactura", r.nif);
            x.campo("NumSerieFactura", r.numSerie);
            x.campo("FechaExpedicionFactura", fnFechaFiscal(r.fecha));
            x.cierra();
        }
        x.cierra();
    }
    x.campo("DescripcionOperacion", hasta(f.descripcion, 500));
    if (f.destinatario) {
        const DestinatarioFiscal& d = *f.destinatario;
        x.abre("Destinatarios");
        x.abre("IDDestinatario");
        x.campo("NombreRazon", hasta(d.nombre, 120));
        if (!d.nif.isEmpty()) {
            x.campo("NIF", d.nif);
        } else {
            x.abre("IDOtro");
            if (!d.codigoPais.isEmpty()) {
                x.campo("CodigoPais", d.codigoPais);
            }
            x.campo("IDType", d.tipoIdOtro);
            x.campo("ID", hasta(d.idOtro, 20));
            x.cierra();
        }
        x.cierra();
        x.cierra();
    }
    x.abre("Desglose");
    for (const DetalleIvaFiscal& d : f.desglose) {
        x.abre("DetalleDesglose");
        x.campo("Impuesto", QStringLiteral("01"));
        x.campo("ClaveRegimen", QStringLiteral("01"));
        x.campo("CalificacionOperacion", QStringLiteral("S1"));
        x.campo("TipoImpositivo", fnTipoFiscal(d.tipo));
        x.campo("BaseImponibleOimporteNoSujeto", fnImporteFiscal(d.base));
        x.campo("CuotaRepercutida", fnImporteFiscal(d.cuota));
        if (d.tipoRecargo != 0 || d.cuotaRecargo != 0) {
            x.campo("TipoRecargoEquivalencia", fnTipoFiscal(d.tipoRecargo));
            x.campo("CuotaRecargoEquivalencia", fnImporteFiscal(d.cuotaRecargo));
        }
        x.cierra();
    }
    x.cierra();
    x.campo("CuotaTotal", fnImporteFiscal(f.cuotaTotal));
    x.campo("ImporteTotal", fnImporteFiscal(f.importeTotal));
    x.cola(c);
    x.cierra();
    return x.fin();
}

QString fnXmlAnulacion(const IdFacturaFiscal& a, const DatosCadena& c) {
    Escritor x;
    x.raiz("RegistroAnulacion");
    x.campo("IDVersion", QStringLiteral("1.0"));
    x.abre("IDFactura");
    x.campo("IDEmisorFacturaAnulada", a.nif);
    x.campo("NumSerieFacturaAnulada", a.numSerie);
    x.campo("FechaExpedicionFacturaAnulada", fnFechaFiscal(a.fecha));
    x.cierra();
    x.cola(c);
    x.cierra();
    return x.fin();
}

} // namespace vk::fiscal
