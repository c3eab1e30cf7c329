#include "EmisionInforme.h"

#include "MensajesEmision.h"
#include "OpcionesInforme.h"
#include "SqlFacturas.h"

#include <DisenoInforme.h>
#include <Error.h>
#include <QFileInfo>
#include <QPdfWriter>
#include <RenderizadorInforme.h>
#include <VKFACVENTAS.h>

namespace vk {

namespace {

QString texto(const Recordset& rs, const char* columna) {
    return rs.TieneCampo(QString::fromLatin1(columna))
               ? rs.Fields(QString::fromLatin1(columna)).Texto().trimmed()
               : QString();
}

} // namespace

EmpresaEmision CargaEmpresa(BdSesion& bd) {
    EmpresaEmision e;
    const Recordset rs = bd.cn().Execute(QStringLiteral(
        "SELECT Parametros.*, p.PROV_NOM AS ProvNombre, "
        "(SELECT PAIS_NOM FROM vkcomun.PAIS WHERE PAIS_COD = Parametros.Par_Pais) AS PaisNombre "
        "FROM Parametros LEFT JOIN vkcomun.PROV p ON Parametros.Par_Provincia = p.PROV_COD"));
    if (rs.Eof()) {
        return e;
    }
    e.nombre = texto(rs, "par_Nombre");
    e.nombreComercial = texto(rs, "par_NComercial");
    e.nif = texto(rs, "Par_Doc");
    e.actividad = texto(rs, "Par_Actividad");
    e.direccion = texto(rs, "par_Sg") + QLatin1Char(' ') + texto(rs, "par_NombreVia");
    const QString numero = rs.Fields(QStringLiteral("par_numero")).Entero() > 0
                               ? QString::number(rs.Fields(QStringLiteral("par_numero")).Entero())
                               : QString();
    for (const QString& parte :
         {numero, texto(rs, "Par_Esc"), texto(rs, "Par_Piso"), texto(rs, "Par_Puerta")}) {
        if (!parte.isEmpty()) {
            e.direccion += QLatin1Char(' ') + parte;
        }
    }
    e.direccion = e.direccion.trimmed();
    e.codigoPostal = texto(rs, "Par_Cp");
    e.poblacion = texto(rs, "Par_Poblacion");
    e.provincia = texto(rs, "ProvNombre");
    // The country is stored as its code; the name reads better on paper.
    const QString pais =
        texto(rs, "PaisNombre").isEmpty() ? texto(rs, "Par_Pais") : texto(rs, "PaisNombre");
    if (!pais.isEmpty()) {
        e.provincia += QStringLiteral(" - ") + pais;
    }
    e.telefono = texto(rs, "Par_Telefono");
    e.fax = texto(rs, "Par_Fax");
    e.correo = texto(rs, "Par_Correo");
    e.web = texto(rs, "Par_Web");
    e.movil = texto(rs, "Par_TfMovil");
    e.pie1 = texto(rs, "Par_Piefac1");
    e.pie2 = texto(rs, "Par_PieFac2");
    return e;
}

QString RenderizaFacturasPdf(BdSesion& bd, const QVector<qint32>& ids, const QString& nombreReporte,
                             const QString& ficheroPdf, const ContextoInforme& contexto) {
    const Recordset rs = LeeFilasFacturas(bd, ids);
    if (rs.RecordCount() == 0) {
        return {};
    }
    std::unique_ptr<informe::Reporte> r = informe::CargaDiseno(nombreReporte);
    PreparaInforme(*r, bd, CargaEmpresa(bd), nombreReporte, contexto);
    if (r->HasSavedData()) {
        r->DiscardSavedData();
    }
    r->Database.Tables.Item(1).SetDataSource(rs, 3);
    ActivaQrTributario(*r);
    EscribePdf(*r, ficheroPdf);
    return ficheroPdf;
}

void ActivaQrTributario(informe::Reporte& reporte) {
    reporte.Qr.Campo = kColumnaUrlQr;
    reporte.Qr.Encima = mensajes::kQrEncima;
    reporte.Qr.Debajo = mensajes::kQrDebajo;
}

void EscribePdf(informe::Reporte& reporte, const QString& ficheroPdf) {
    {
        QPdfWriter pdf(ficheroPdf);
        pdf.setResolution(600);
        pdf.setTitle(reporte.ReportTitle);
        pdf.setCreator(QStringLiteral("vkfactuven"));
        informe::RenderizaInforme(reporte, pdf);
    }
    if (!QFileInfo(ficheroPdf).exists()) {
        throw ErrorDispositivo(mensajes::kPdfNoEscrito.arg(ficheroPdf));
    }
}

} // namespace vk
