#include "OpcionesInforme.h"

#include "Ficheros.h"
#include "MensajesEmision.h"

#include <ErrorBd.h>
#include <Formato.h>
#include <Formula.h>
#include <Interaccion.h>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <VKFACVENTAS.h>
#include <algorithm>

namespace vk {

using informe::Entrecomilla;
using informe::Reporte;

namespace {

const QString kVacio = QStringLiteral("''");

bool es(const QString& a, const char* b) {
    return a.compare(QLatin1String(b), Qt::CaseInsensitive) == 0;
}

bool enLista(const QString& valor, std::initializer_list<const char*> lista) {
    for (const char* v : lista) {
        if (es(valor, v)) {
            return true;
        }
    }
    return false;
}

void suprime(Reporte& r, const QString& nombre, bool valor) {
    if (informe::Seccion* s = r.Sections.Busca(nombre)) {
        s->Suppress = valor;
    } else if (informe::ObjetoInforme* o = r.BuscaObjeto(nombre)) {
        o->Suppress = valor;
    }
}

void izquierda(Reporte& r, const QString& nombre, int left, int width = -1) {
    if (informe::ObjetoInforme* o = r.BuscaObjeto(nombre)) {
        o->Left = left;
        if (width >= 0) {
            o->Width = width;
        }
    }
}

const QStringList kMembrete{
    QStringLiteral("cLiteralEmpresa"),   QStringLiteral("cLiteralActividad"),
    QStringLiteral("cLiteralDireccion"), QStringLiteral("cLiteralPoblacion"),
    QStringLiteral("cLiteralProvincia"), QStringLiteral("cLiteralTelefono"),
    QStringLiteral("cLiteralNif")};

// The six letterhead formulas (and the issuer's NIF with them) emptied: the
// stationery carries its own letterhead.
void membreteVacio(Reporte& r) {
    for (const QString& n : kMembrete) {
        r.FormulaFields.Asigna(n, kVacio);
    }
}

bool grupoVivero(const QString& clave) {
    return enLista(clave, {"PLT19", "PLT20", "PLT21", "PLT22"});
}

QString poblacion(const EmpresaEmision& e) {
    return e.codigoPostal + QLatin1Char(' ') + e.poblacion;
}

// The company's own letterhead lines, filled as the general designs print them.
void membreteEmpresa(Reporte& r, const EmpresaEmision& e, const QString& nombre,
                     const QString& telefono) {
    r.FormulaFields.Asigna(QStringLiteral("cLiteralEmpresa"), Entrecomilla(nombre));
    r.FormulaFields.Asigna(QStringLiteral("cLiteralActividad"), Entrecomilla(e.actividad));
    r.FormulaFields.Asigna(QStringLiteral("cLiteralDireccion"), Entrecomilla(e.direccion));
    r.FormulaFields.Asigna(QStringLiteral("cLiteralPoblacion"), Entrecomilla(poblacion(e)));
    r.FormulaFields.Asigna(QStringLiteral("cLiteralProvincia"), Entrecomilla(e.provincia));
    r.FormulaFields.Asigna(QStringLiteral("cLiteralTelefono"), Entrecomilla(telefono));
    r.FormulaFields.Asigna(QStringLiteral("cLiteralNif"),
                           e.nif.isEmpty() ? kVacio
                                           : Entrecomilla(QStringLiteral("NIF: ") + e.nif));
}

// "Email. ..." and "  -  Web: ...", each only when there is something to say.
QString lineaCorreo(const EmpresaEmision& e) {
    QString t;
    if (!e.correo.isEmpty()) {
        t = QStringLiteral("Email. ") + e.correo;
    }
    if (!e.web.isEmpty()) {
        t += QStringLiteral("  -  Web: ") + e.web;
    }
    return t;
}

// The nursery's own name and plant passport code, kept per installation in
// viveros.json of the data folder: {"PLT19": {"Nombre": "...", "Pasaporte":
// "ES-14-30-0001"}, ...}. Without an entry the company's name stands and the
// passport is empty.
struct DatosVivero {
    QString nombre, pasaporte;
};

DatosVivero datosVivero(const QString& clave, const EmpresaEmision& e) {
    DatosVivero d{e.nombre, QString()};
    QFile f(QDir(fnCarpetaDatos()).filePath(QStringLiteral("viveros.json")));
    if (f.open(QIODevice::ReadOnly)) {
        const QJsonObject o = QJsonDocument::fromJson(f.readAll()).object().value(clave).toObject();
        d.nombre = o.value(QStringLiteral("Nombre")).toString(d.nombre);
        d.pasaporte = o.value(QStringLiteral("Pasaporte")).toString();
    }
    return d;
}

// The arm of the report: which of the option rows it applies.
struct Brazo {
    bool lopd = true, formaPago = true, bultos = true, bultosPorClave = false, lotes = true,
         agente = true, desAmp = false;
};

Brazo brazoDe(const QString& nombre, const ContextoInforme& c) {
    Brazo b;
    if (c.nDiseno == 1 || c.nDiseno == 15) {
        return b;
    }
    if (enLista(nombre, {"CrFacturaPlt25", "CrFacturaPlt03", "CrFacturaPlt24", "crFacturaPlt26",
                         "CrFacturaPlt27", "CrFacturaNorval", "CrFacturaPlt37"}) ||
        (es(nombre, "CrFacturaGeneral2") && es(c.plantilla, "PLT25"))) {
        b.formaPago = false;
        b.bultosPorClave = true;
    } else if (enLista(nombre, {"CrFacturaPlt29", "CrFacturaPlt29F", "CrFacturaPlt31",
                                "CrFacturaPlt32", "CrFacturaPlt33", "CrFacturaPlt34",
                                "CrFacturaGeneralCi", "CrFacturaPlt36", "CrFacturaPlt04"})) {
        b.lopd = b.formaPago = false;
        b.bultosPorClave = true;
    } else if (enLista(nombre, {"CrFacturaGeneral2", "CrFacturaAutomocion"})) {
        b.desAmp = true;
    } else if (es(nombre, "CrFacturaGeneral4")) {
        b.bultosPorClave = true;
    } else if (es(nombre, "CrFacturasMedidasNLogo")) {
        b.bultos = b.lotes = false;
    }
    return b;
}

void reglaBultos(Reporte& r, BdSesion& bd, const ContextoInforme& c) {
    const bool bultos = c.Entero(bd, QStringLiteral("par_bultos")) != 0;
    suprime(r, QStringLiteral("CajasBultos"), !bultos);
    suprime(r, QStringLiteral("LavBulto1"), !bultos);
    if (informe::ObjetoInforme* d = r.BuscaObjeto(QStringLiteral("LiteralDescripcion1"))) {
        int sin = 7365;
        if (c.nDiseno == 4) {
            sin = 6400;
        } else if (c.nDiseno == 16 && !es(c.plantilla, "PLT39")) {
            sin = 7200;
        }
        d->Width = r.AnchoDescripcion(bultos ? 6800 : sin);
        d->HorAlignment = c.Entero(bd, QStringLiteral("Par_Justificar")) == 1
                              ? informe::crJustified
                              : informe::crLeftAlign;
    }
}

// Designs whose letterhead is the program's, group A.
bool grupoA(qint16 d) {
    return d == 0 || d == 2 || d == 3 || d == 4 || d == 8 || d == 10 || d == 12 || d == 13 ||
           d == 16 || d == 19;
}

// Designs 4 and 16 without logo: the letterhead takes its room.
void deslizaMembrete(Reporte& r, const ContextoInforme& c) {
    if ((c.nDiseno != 4 && c.nDiseno != 16) || c.tipoEmision != 0) {
        return; // the printer route leaves positions untouched
    }
    izquierda(r, QStringLiteral("cliteralEmpresa1"), 120, 10880);
    for (const char* n :
         {"cLiteralActividad1", "cLiteralDireccion1", "cliteralPoblacion1", "cLiteralTelefono1"}) {
        izquierda(r, QString::fromLatin1(n), 120);
    }
    izquierda(r, QStringLiteral("cLiteralProvincia1"), c.nDiseno == 16 ? 120 : 4420);
}

// The letterhead and foot lines by the printing flags, for paper that may
// carry its own.
void papelMembrete(Reporte& r, BdSesion& bd, const ContextoInforme& c) {
    if (c.prnEmp != 1) {
        membreteVacio(r);
    }
    PiesPorParametro(r, bd, c);
}

} // namespace

ContextoInforme ContextoDe(const VKFACVENTAS& f, qint16 nDiseno, ParametrosEmision parametros) {
    ContextoInforme c;
    c.nDiseno = nDiseno;
    c.parametros = std::move(parametros);
    BdSesion& bd = f.MyBd();
    c.plantilla = c.Texto(bd, QStringLiteral("PAR_PLANTILLA_FAC")).toUpper();
    c.tipoEmision = f.Tipo_Emision;
    c.copia = f.Copia;
    c.imprimeAlbaran = f.ImprimeAlbaran;
    c.prnEmp = f.prnEmp;
    c.idUsuario = bd.IdUsuario();
    c.textoLopd = f.sTextoLOPD;
    return c;
}

void OpcionProteccionDatos(Reporte& r, BdSesion& bd, const ContextoInforme& c) {
    const bool lopd = c.Entero(bd, QStringLiteral("PAR_FLOPD")) != 0;
    suprime(r, QStringLiteral("GroupLopd"), !lopd);
    if (lopd) {
        r.FormulaFields.Asigna(QStringLiteral("lopd"), Entrecomilla(c.textoLopd));
    }
}

void OpcionFormaPago(Reporte& r, BdSesion& bd, const ContextoInforme& c) {
    suprime(r, QStringLiteral("GroupCpago"), c.Entero(bd, QStringLiteral("Par_PrintFco")) == 0);
}

void OpcionBultos(Reporte& r, BdSesion& bd, const ContextoInforme& c) {
    if (enLista(c.plantilla, {"PLT29", "PLT30", "NORVAL", "PLT37", "PLT26", "PLT27", "PLT24"})) {
        return;
    }
    if (enLista(c.plantilla, {"PLT31", "PLT33", "PLT32", "PLT34"})) {
        suprime(r, QStringLiteral("CajasBultos"), false);
        suprime(r, QStringLiteral("LavBulto1"), true);
        if (informe::ObjetoInforme* d = r.BuscaObjeto(QStringLiteral("LiteralDescripcion1"))) {
            d->Width = r.AnchoDescripcion(6633);
        }
        return;
    }
    reglaBultos(r, bd, c);
}

void OpcionLotes(Reporte& r, BdSesion& bd, const ContextoInforme& c) {
    r.FormulaFields.Asigna(QStringLiteral("bControlLotes"),
                           c.Entero(bd, QStringLiteral("Par_Lotes")) == 0 ? QStringLiteral("False")
                                                                          : QStringLiteral("True"));
}

void OpcionAgente(Reporte& r, BdSesion& bd, const ContextoInforme& c) {
    if (c.Entero(bd, QStringLiteral("Par_NComer")) == 0) {
        r.FormulaFields.Asigna(QStringLiteral("cLiteralComer"), kVacio);
    }
}

void OpcionLotesAgente(Reporte& r, BdSesion& bd, const ContextoInforme& c) {
    OpcionLotes(r, bd, c);
    OpcionAgente(r, bd, c);
}

void OpcionDescripcionAmpliada(Reporte& r, BdSesion& bd, const ContextoInforme& c) {
    r.FormulaFields.Asigna(QStringLiteral("bControlDesAmp"),
                           c.Entero(bd, QStringLiteral("Par_FacDesAmp")) == 0
                               ? QStringLiteral("True")
                               : QStringLiteral("False"));
}

void AplicaOpcionesReporte(Reporte& r, BdSesion& bd, const EmpresaEmision& e,
                           const QString& nombreReporte, const ContextoInforme& c) {
    if (es(nombreReporte, "CrFacturaViveros") && grupoVivero(c.plantilla)) {
        // PLT22 prints the company's own name with the passport of PLT19.
        const DatosVivero v =
            datosVivero(es(c.plantilla, "PLT22") ? QStringLiteral("PLT19") : c.plantilla, e);
        if (es(c.plantilla, "PLT22")) {
            r.FormulaFields.Asigna(QStringLiteral("cLiteralEmpresa"), Entrecomilla(e.nombre));
            r.FormulaFields.Asigna(QStringLiteral("cLiteralActividad"),
                                   Entrecomilla(QStringLiteral("CIF: ") + e.nif +
                                                QStringLiteral("  -  ") + e.actividad));
        } else {
            r.FormulaFields.Asigna(QStringLiteral("cLiteralEmpresa"), Entrecomilla(v.nombre));
            r.FormulaFields.Asigna(QStringLiteral("cLiteralActividad"),
                                   Entrecomilla(e.nombreComercial + QStringLiteral("  -  NIF: ") +
                                                e.nif + QStringLiteral("  -  ") + e.actividad));
        }
        r.FormulaFields.Asigna(QStringLiteral("cPasaporte"), Entrecomilla(v.pasaporte));
    }

    const Brazo b = brazoDe(nombreReporte, c);
    if (b.lopd) {
        OpcionProteccionDatos(r, bd, c);
    }
    if (b.formaPago) {
        OpcionFormaPago(r, bd, c);
    }
    if (b.bultosPorClave) {
        OpcionBultos(r, bd, c);
    } else if (b.bultos) {
        reglaBultos(r, bd, c);
    }
    if (b.lotes) {
        OpcionLotes(r, bd, c);
    }
    if (b.agente) {
        OpcionAgente(r, bd, c);
    }
    if (b.desAmp) {
        OpcionDescripcionAmpliada(r, bd, c);
    }

    if (enLista(nombreReporte, {"CrFacturaGeneral2", "CrFacturaAutomocion"}) &&
        es(c.plantilla, "PLT38")) {
        izquierda(r, QStringLiteral("cliteralEmpresa1"), 3000, 10000);
        for (const char* n : {"cLiteralActividad1", "cLiteralDireccion1", "cliteralPoblacion1",
                              "cLiteralTelefono1"}) {
            izquierda(r, QString::fromLatin1(n), 3000);
        }
        izquierda(r, QStringLiteral("cLiteralProvincia1"), 7250);
    }
}

void AplicaCopia(Reporte& r, bool copia) {
    r.FormulaFields.Asigna(QStringLiteral("cCopiaFactura"),
                           copia ? QStringLiteral("'* DUPLICADO DE FACTURA *'") : kVacio);
}

void AplicaMarcos(Reporte& r, BdSesion& bd, const EmpresaEmision& e, const ContextoInforme& c) {
    if (c.Entero(bd, QStringLiteral("Par_Sincuadros")) != 0 &&
        !e.nombre.contains(QLatin1String("PLT18"), Qt::CaseInsensitive)) {
        suprime(r, QStringLiteral("Box1"), true);
        suprime(r, QStringLiteral("Box2"), true);
    }
}

void PiesPorParametro(Reporte& r, BdSesion& bd, const ContextoInforme& c) {
    for (int i = 1; i <= 2; ++i) {
        if (c.Entero(bd, QStringLiteral("Par_PrnL%1").arg(i)) == 0) {
            r.FormulaFields.Asigna(QStringLiteral("pLiteralLinea%1").arg(i), kVacio);
        }
    }
}

void LogoPorParametro(Reporte& r, BdSesion& bd, const ContextoInforme& c) {
    if (c.Entero(bd, QStringLiteral("Par_prnlogo")) == 1) {
        ColocaLogo(r, bd, c); // suppresses the logo when it fails
    } else {
        suprime(r, QStringLiteral("LogoEmpresa"), true);
    }
}

void PiesFactura(Reporte& r, const EmpresaEmision& e) {
    r.FormulaFields.Asigna(QStringLiteral("pLiteralLinea1"), Entrecomilla(e.pie1));
    r.FormulaFields.Asigna(QStringLiteral("pLiteralLinea2"), Entrecomilla(e.pie2));
}

void MembreteGrupoA(Reporte& r, BdSesion& bd, const EmpresaEmision& e, const ContextoInforme& c) {
    suprime(r, QStringLiteral("GroupHeaderSection3"), !c.imprimeAlbaran);
    const QString& k = c.plantilla;
    if (grupoVivero(k)) {
        r.FormulaFields.Asigna(QStringLiteral("cLiteralDireccion"), Entrecomilla(e.direccion));
        r.FormulaFields.Asigna(QStringLiteral("cLiteralPoblacion"), Entrecomilla(poblacion(e)));
        r.FormulaFields.Asigna(QStringLiteral("cLiteralProvincia"), Entrecomilla(e.provincia));
        QString tlf;
        if (!e.telefono.isEmpty()) {
            tlf = QStringLiteral("Tlf. y fax:") + e.telefono;
        }
        if (!tlf.isEmpty()) {
            tlf += QStringLiteral(" - ");
        }
        if (!e.movil.isEmpty()) {
            tlf += QStringLiteral("Móvil: ") + e.movil;
        }
        r.FormulaFields.Asigna(QStringLiteral("cLiteralTelefono"), Entrecomilla(tlf));
        r.FormulaFields.Asigna(QStringLiteral("cLiteralMail"), Entrecomilla(lineaCorreo(e)));
        if (!ColocaLogo(r, bd, c)) {
            suprime(r, QStringLiteral("LogoEmpresa"), true);
        }
    } else if (es(k, "PLT03") || k.contains(QLatin1String("PLT29")) ||
               k.contains(QLatin1String("PLT37"))) {
        membreteVacio(r);
        r.FormulaFields.Asigna(QStringLiteral("cLiteralTelefono"),
                               Entrecomilla(QStringLiteral("Tlf. ") + e.telefono +
                                            QStringLiteral(" - Fax.") + e.fax +
                                            QStringLiteral(" - Email.") + e.correo));
    } else if (c.Entero(bd, QStringLiteral("Par_PrnEmp")) == 1) {
        QString tlf;
        if (es(k, "PLT34")) {
            QStringList partes;
            if (!e.telefono.isEmpty()) {
                partes << QStringLiteral("Tlf: ") + e.telefono;
            }
            if (!e.fax.isEmpty()) {
                partes << QStringLiteral("Fax: ") + e.fax;
            }
            if (!e.correo.isEmpty()) {
                partes << QStringLiteral("Email: ") + e.correo;
            }
            tlf = partes.join(QStringLiteral(" - "));
        } else {
            tlf = QStringLiteral("Tlf. ") + e.telefono + QStringLiteral(" - Fax ") + e.fax +
                  QStringLiteral(" - Email.") + e.correo;
        }
        membreteEmpresa(r, e, es(k, "PLT40") ? e.nombreComercial : e.nombre, tlf);
        if (es(k, "PLT34")) {
            r.FormulaFields.Asigna(QStringLiteral("cLiteralMail"), Entrecomilla(lineaCorreo(e)));
        }
    } else {
        membreteVacio(r);
    }
    PiesFactura(r, e);
}

void AplicaMembrete(Reporte& r, BdSesion& bd, const EmpresaEmision& e, const ContextoInforme& c) {
    if (grupoA(c.nDiseno)) {
        if (c.nDiseno == 19) {
            OpcionDescripcionAmpliada(r, bd, c);
        }
        MembreteGrupoA(r, bd, e, c);
        if (c.nDiseno == 16) {
            const std::optional<QString> volumen =
                Ui().PideTexto(mensajes::kVolumen, QString(), QString());
            r.FormulaFields.Asigna(QStringLiteral("cVolumen"),
                                   volumen && !volumen->isEmpty()
                                       ? Entrecomilla(QStringLiteral("Volumen: ") + *volumen)
                                       : kVacio);
        }
    } else if (c.nDiseno == 1) {
        if (es(c.plantilla, "PLT23")) {
            membreteVacio(r);
        }
    } else {
        suprime(r, QStringLiteral("GroupHeaderSection3"), !c.imprimeAlbaran);
        membreteEmpresa(r, e, e.nombre,
                        QStringLiteral("Tlf. ") + e.telefono + QStringLiteral(" - Fax.") + e.fax +
                            QStringLiteral(" - Email.") + e.correo);
        PiesFactura(r, e);
    }

    if (c.Entero(bd, QStringLiteral("Par_PrintFco")) == 0) {
        for (const char* n : {"txtConPago", "txtVencimientos"}) {
            suprime(r, QString::fromLatin1(n), true);
        }
        for (int i = 1; i <= 4; ++i) {
            suprime(r, QStringLiteral("LiteralFco%1").arg(i * 10 + 1), true);
        }
        for (int i = 1; i <= 6; ++i) {
            suprime(r, QStringLiteral("LiteralVto%1").arg(i * 10 + 1), true);
        }
    }
    if (c.Entero(bd, QStringLiteral("Par_DiseñoFactura")) == 6) {
        // A tinted heading prints black on an impact printer.
        for (const char* n :
             {"txtColConcepto", "txtColCantidad", "txtColImporte", "txtColPrecio", "Text9"}) {
            if (informe::ObjetoInforme* o = r.BuscaObjeto(QString::fromLatin1(n))) {
                o->BackColor = informe::kSinColor;
            }
        }
    }
}

QString fnRutaLogo(qint32 idUsuario) {
    return QDir(fnCarpetaDatos())
        .filePath(Format(idUsuario, QStringLiteral("000")) + QStringLiteral("rlogo.bmp"));
}

bool fnExtraeLogo(BdSesion& bd, const QString& ruta) {
    try {
        const Recordset rs =
            bd.cn().Execute(QStringLiteral("select Par_ImagenLogo from Parametros"));
        if (QFile::exists(ruta) && !QFile::remove(ruta)) {
            return false;
        }
        if (rs.Eof()) {
            return true;
        }
        const QVariant v = rs.Fields(QStringLiteral("Par_ImagenLogo")).Value();
        if (v.isNull()) {
            return true;
        }
        QDir().mkpath(QFileInfo(ruta).absolutePath());
        QFile f(ruta);
        const QByteArray bytes = v.toByteArray();
        return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size();
    } catch (const ErrorBd&) {
        return false;
    }
}

bool ColocaLogo(Reporte& r, BdSesion& bd, const ContextoInforme& c) {
    const QString ruta = fnRutaLogo(c.idUsuario);
    if (!fnExtraeLogo(bd, ruta)) {
        suprime(r, QStringLiteral("LogoEmpresa"), true);
        return false;
    }
    suprime(r, QStringLiteral("LogoEmpresa"), false);
    r.FormulaFields.Asigna(QStringLiteral("rutaimagen"), Entrecomilla(ruta));
    if (informe::ObjetoInforme* logo = r.BuscaObjeto(QStringLiteral("LogoEmpresa"))) {
        // The stored X is the height and the Y the width. A company that
        // never placed its logo keeps the design's size, and no company's
        // size takes the logo out of the design's frame, where it would
        // cover the letterhead.
        const qint64 x = c.Entero(bd, QStringLiteral("Par_ImgPosX")),
                     y = c.Entero(bd, QStringLiteral("Par_ImgPosY"));
        if (x > 0 && y > 0) {
            logo->Height = static_cast<int>(std::min<qint64>(x, logo->Height));
            logo->Width = static_cast<int>(std::min<qint64>(y, logo->Width));
        }
    }
    return true;
}

void AplicaPapel(Reporte& r, BdSesion& bd, const ContextoInforme& c) {
    const QString& k = c.plantilla;
    const qint16 d = c.nDiseno;
    const bool logoSi = c.Entero(bd, QStringLiteral("Par_prnlogo")) == 1;
    if (c.tipoEmision == 0 || c.tipoEmision == 1) {
        if (d == 0 || d == 10 || d == 12 || d == 13 || d == 19) {
            papelMembrete(r, bd, c);
            if (es(k, "PLT23")) {
                LogoPorParametro(r, bd, c);
            }
        } else if (d == 1) {
            if (es(k, "PLT23")) {
                suprime(r, QStringLiteral("LogoEmpresa"), true);
            }
        } else if (d == 2 || d == 3 || d == 4 || d == 8 || d == 14 || d == 16) {
            if (logoSi) {
                suprime(r, QStringLiteral("LogoEmpresa"), false);
                if (enLista(k, {"PLT03", "PLT36", "PLT35", "NORVAL", "PLT37", "PLT26", "PLT27",
                                "PLT24"})) {
                    // the design places the logo itself
                } else if (enLista(k, {"PLT29", "PLT30", "PLT31", "PLT33", "PLT32", "PLT34",
                                       "PLT39"})) {
                    suprime(r, QStringLiteral("LogoEmpresa"), true);
                } else if (es(k, "PLT04")) {
                    suprime(r, QStringLiteral("LogoEmpresa"), true);
                    suprime(r, QStringLiteral("Picture1"), true);
                } else if (!ColocaLogo(r, bd, c)) {
                    deslizaMembrete(r, c);
                }
            } else {
                suprime(r, QStringLiteral("LogoEmpresa"), true);
                deslizaMembrete(r, c);
                if (es(k, "PLT03") || es(k, "PLT39")) {
                    suprime(r, QStringLiteral("Picture1"), true);
                } else if (es(k, "PLT04")) {
                    suprime(r, QStringLiteral("LogoEmpresa"), true);
                    suprime(r, QStringLiteral("Picture1"), true);
                    if (informe::Seccion* pie =
                            r.Sections.Busca(QStringLiteral("PageFooterSection1"))) {
                        pie->Height = 755;
                    }
                }
            }
            papelMembrete(r, bd, c);
        }
        return;
    }
    if (c.tipoEmision != 2 && c.tipoEmision != 3) {
        return;
    }
    // A file goes out without stationery: the logo follows the key alone.
    if (d == 1) {
        if (es(k, "PLT23")) {
            suprime(r, QStringLiteral("LogoEmpresa"), false);
        } else {
            suprime(r, QStringLiteral("Picture1"), false);
            suprime(r, QStringLiteral("txtMiNombre"), false);
        }
    } else if (d == 2 || d == 3 || d == 8 || d == 14 || d == 16) {
        suprime(r, QStringLiteral("LogoEmpresa"), false);
        if (enLista(k, {"PLT03", "PLT35", "PLT29", "PLT30", "PLT31", "PLT33", "PLT32", "PLT34",
                        "NORVAL", "PLT37", "PLT26", "PLT27", "PLT04", "PLT24"})) {
            // the design places the logo itself
        } else if (es(k, "PLT39")) {
            suprime(r, QStringLiteral("Picture1"), !logoSi);
        } else if (es(k, "PLT36")) {
            izquierda(r, QStringLiteral("text12"), 160, 10860);
            if (c.tipoEmision == 3) {
                suprime(r, QStringLiteral("LogoEmpresa"), false);
            }
        } else {
            ColocaLogo(r, bd, c);
        }
    }
}

void PreparaInforme(Reporte& r, BdSesion& bd, const EmpresaEmision& e, const QString& nombreReporte,
                    const ContextoInforme& c) {
    AplicaOpcionesReporte(r, bd, e, nombreReporte, c);
    AplicaCopia(r, c.copia);
    AplicaMarcos(r, bd, e, c);
    AplicaMembrete(r, bd, e, c);
    AplicaPapel(r, bd, c);
    if (r.ReportTitle.isEmpty()) {
        r.ReportTitle = QStringLiteral("Facturas");
    }
}

} // namespace vk
