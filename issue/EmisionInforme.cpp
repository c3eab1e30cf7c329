#include "EmisionInforme.h"

#include "DisenoInforme.h"
#include "Formula.h"
#include "RenderizadorInforme.h"
#include "SqlFacturas.h"

#include <ErrorBd.h>
#include <QFileInfo>
#include <QPdfWriter>
#include <VKFACVENTAS.h>

namespace vk {

using informe::Entrecomilla;

namespace {

QString texto(const Recordset& rs, const char* columna) {
    return rs.TieneCampo(QString::fromLatin1(columna))
               ? rs.Fields(QString::fromLatin1(columna)).Texto().trimmed()
               : QString();
}

qint64 entero(BdSesion& bd, const char* nombre) {
    const QString n = QString::fromUtf8(nombre);
    return bd.Parametros().Existe(n) ? bd.Parametros().Item(n).Entero() : 0;
}

void formula(informe::Reporte& r, const QString& nombre, const QString& texto) {
    if (informe::FormulaField* f = r.FormulaFields.Busca(nombre)) {
        f->Text = texto;
    }
}

void suprime(informe::Reporte& r, const QString& nombre, bool valor) {
    if (informe::Seccion* s = r.Sections.Busca(nombre)) {
        s->Suppress = valor;
    } else if (informe::ObjetoInforme* o = r.BuscaObjeto(nombre)) {
        o->Suppress = valor;
    }
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

void AplicaOpcionesFactura(informe::Reporte& r, BdSesion& bd, const EmpresaEmision& e,
                           const OpcionesInforme& opciones) {
    // Data protection, payment terms.
    const bool lopd = entero(bd, "PAR_FLOPD") != 0;
    suprime(r, QStringLiteral("GroupLopd"), !lopd);
    if (lopd) {
        formula(r, QStringLiteral("lopd"), Entrecomilla(sTextoLOPD));
    }
    const bool cpago = entero(bd, "Par_PrintFco") != 0;
    suprime(r, QStringLiteral("GroupCpago"), !cpago);
    if (!cpago) {
        for (const QString& n : {QStringLiteral("txtConPago"), QStringLiteral("txtVencimientos")}) {
            suprime(r, n, true);
        }
        for (int i = 1; i <= 4; ++i) {
            suprime(r, QStringLiteral("LiteralFco%11").arg(i), true);
        }
        for (int i = 1; i <= 6; ++i) {
            suprime(r, QStringLiteral("LiteralVto%11").arg(i), true);
        }
    }
    // Packages: a narrower description leaves room for their column.
    const bool bultos = entero(bd, "par_bultos") != 0;
    suprime(r, QStringLiteral("CajasBultos"), !bultos);
    suprime(r, QStringLiteral("LavBulto1"), !bultos);
    if (informe::ObjetoInforme* d = r.BuscaObjeto(QStringLiteral("LiteralDescripcion1"))) {
        d->Width = bultos ? r.AnchoDescripcionConBultos : r.AnchoDescripcionSinBultos;
        d->HorAlignment =
            entero(bd, "Par_Justificar") == 1 ? informe::crJustified : informe::crLeftAlign;
    }
    formula(r, QStringLiteral("bControlLotes"),
            entero(bd, "Par_Lotes") == 0 ? QStringLiteral("False") : QStringLiteral("True"));
    if (entero(bd, "Par_NComer") == 0) {
        formula(r, QStringLiteral("cLiteralComer"), QStringLiteral("''"));
    }
    formula(r, QStringLiteral("cCopiaFactura"),
            opciones.copia ? QStringLiteral("'* DUPLICADO DE FACTURA *'") : QStringLiteral("''"));
    const QString empresa = e.nombre.toUpper();
    if (entero(bd, "Par_Sincuadros") != 0 && !empresa.contains(QStringLiteral("PLT18"))) {
        suprime(r, QStringLiteral("Box1"), true);
        suprime(r, QStringLiteral("Box2"), true);
    }
    suprime(r, QStringLiteral("GroupHeaderSection3"), !opciones.imprimeAlbaran);

    // Letterhead, when the program prints it (Par_PrnEmp = 1).
    const bool membrete = entero(bd, "Par_PrnEmp") == 1;
    const QString vacio = QStringLiteral("''");
    QString telefono = QStringLiteral("Tlf. ") + e.telefono;
    if (!e.fax.isEmpty()) {
        telefono += QStringLiteral(" - Fax ") + e.fax;
    }
    if (!e.correo.isEmpty()) {
        telefono += QStringLiteral(" - Email. ") + e.correo;
    }
    QString correo;
    if (!e.web.isEmpty()) {
        correo = QStringLiteral("Web: ") + e.web;
    }
    formula(r, QStringLiteral("cLiteralEmpresa"), membrete ? Entrecomilla(e.nombre) : vacio);
    formula(r, QStringLiteral("cLiteralActividad"), membrete ? Entrecomilla(e.actividad) : vacio);
    formula(r, QStringLiteral("cLiteralDireccion"), membrete ? Entrecomilla(e.direccion) : vacio);
    formula(r, QStringLiteral("cLiteralPoblacion"),
            membrete ? Entrecomilla(e.codigoPostal + QLatin1Char(' ') + e.poblacion) : vacio);
    formula(r, QStringLiteral("cLiteralProvincia"), membrete ? Entrecomilla(e.provincia) : vacio);
    formula(r, QStringLiteral("cLiteralTelefono"), membrete ? Entrecomilla(telefono) : vacio);
    formula(r, QStringLiteral("cLiteralMail"), membrete ? Entrecomilla(correo) : vacio);
    formula(r, QStringLiteral("cLiteralNif"),
            membrete && !e.nif.isEmpty() ? Entrecomilla(QStringLiteral("NIF: ") + e.nif) : vacio);
    formula(r, QStringLiteral("pLiteralLinea1"), Entrecomilla(e.pie1));
    formula(r, QStringLiteral("pLiteralLinea2"), Entrecomilla(e.pie2));
    r.ReportTitle = r.ReportTitle.isEmpty() ? QStringLiteral("Facturas") : r.ReportTitle;
}

QString RenderizaFacturasPdf(BdSesion& bd, const QVector<qint32>& ids, const QString& nombreReporte,
                             const QString& ficheroPdf, const OpcionesInforme& opciones) {
    const Recordset rs = LeeFilasFacturas(bd, ids);
    if (rs.RecordCount() == 0) {
        return {};
    }
    std::unique_ptr<informe::Reporte> r = informe::CargaDiseno(nombreReporte);
    AplicaOpcionesFactura(*r, bd, CargaEmpresa(bd), opciones);
    if (r->HasSavedData()) {
        r->DiscardSavedData();
    }
    r->Database.Tables.Item(1).SetDataSource(rs, 3);
    EscribePdf(*r, ficheroPdf);
    return ficheroPdf;
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
        throw ErrorBd(QStringLiteral("No se ha podido escribir el fichero %1.").arg(ficheroPdf));
    }
}

} // namespace vk
