// What the issue does to a report before binding its rows, per design
// family, template key, route and company parameter: which sections and
// objects are suppressed, where they stand, and what each formula holds.
#include "EmpresaPrueba.h"

#include <DisenoInforme.h>
#include <EmisionInforme.h>
#include <Formula.h>
#include <MensajesEmision.h>
#include <OpcionesInforme.h>
#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <VKFACVENTAS.h>

namespace vk::prueba {
namespace {

using informe::Reporte;

// A report that carries every name the issue code sets, with the design's
// own values where the code leaves them alone.
std::unique_ptr<Reporte> reporteCompleto() {
    auto r = std::make_unique<Reporte>();
    r->Name = QStringLiteral("Prueba");
    for (const char* f :
         {"cLiteralEmpresa", "cLiteralActividad", "cLiteralDireccion", "cLiteralPoblacion",
          "cLiteralProvincia", "cLiteralTelefono", "cLiteralMail", "cLiteralNif", "pLiteralLinea1",
          "pLiteralLinea2", "cLiteralComer", "cCopiaFactura", "cPasaporte", "cVolumen", "lopd",
          "rutaimagen", "bControlLotes", "bControlDesAmp"}) {
        r->FormulaFields.Agrega(QString::fromLatin1(f), QStringLiteral("'diseño'"));
    }
    informe::Seccion s;
    s.Name = QStringLiteral("PageHeaderSection1");
    for (const char* o : {"Box1",
                          "Box2",
                          "CajasBultos",
                          "LavBulto1",
                          "LiteralDescripcion1",
                          "txtConPago",
                          "txtVencimientos",
                          "LiteralFco11",
                          "LiteralFco41",
                          "LiteralVto11",
                          "LiteralVto61",
                          "txtColConcepto",
                          "txtColCantidad",
                          "txtColImporte",
                          "txtColPrecio",
                          "Text9",
                          "LogoEmpresa",
                          "Picture1",
                          "txtMiNombre",
                          "text12",
                          "cliteralEmpresa1",
                          "cLiteralActividad1",
                          "cLiteralDireccion1",
                          "cliteralPoblacion1",
                          "cLiteralTelefono1",
                          "cLiteralProvincia1"}) {
        informe::ObjetoInforme obj;
        obj.Name = QString::fromLatin1(o);
        obj.Left = 1000;
        obj.Width = 5000;
        obj.Height = 900;
        obj.BackColor = 0xDDDDDD;
        s.Objetos.push_back(obj);
    }
    r->Sections.todas().push_back(s);
    for (const char* n : {"GroupLopd", "GroupCpago", "GroupHeaderSection3", "PageFooterSection1"}) {
        informe::Seccion g;
        g.Name = QString::fromLatin1(n);
        g.Height = 400;
        r->Sections.todas().push_back(g);
    }
    return r;
}

class Opciones : public PruebaMotores {
protected:
    void SetUp() override {
        qputenv("VKFACTUVEN_DATOS", datos.path().toUtf8());
        e = std::make_unique<EmpresaPrueba>(GetParam());
        e->parametro(QStringLiteral("PAR_NOMBRE"), QStringLiteral("Turrones O'Neill, S.L."));
        e->parametro(QStringLiteral("Par_NComercial"), QStringLiteral("Casa O'Neill"));
        e->parametro(QStringLiteral("Par_Doc"), QStringLiteral("B12345678"));
        e->parametro(QStringLiteral("Par_Actividad"), QStringLiteral("Confitería"));
        e->parametro(QStringLiteral("Par_Telefono"), QStringLiteral("965 000 111"));
        e->parametro(QStringLiteral("Par_Fax"), QStringLiteral("965 000 112"));
        e->parametro(QStringLiteral("Par_Correo"), QStringLiteral("info@oneill.es"));
        e->parametro(QStringLiteral("Par_Web"), QStringLiteral("www.oneill.es"));
        e->parametro(QStringLiteral("Par_TfMovil"), QStringLiteral("600 000 000"));
        e->parametro(QStringLiteral("Par_Cp"), QStringLiteral("03100"));
        e->parametro(QStringLiteral("Par_Poblacion"), QStringLiteral("Jijona"));
        e->parametro(QStringLiteral("Par_Piefac1"),
                     QStringLiteral("Inscrita en el R.M. d'Alacant"));
        e->parametro(QStringLiteral("Par_PieFac2"), QString());
        e->parametro(QStringLiteral("Par_PrnEmp"), 1);
        e->parametro(QStringLiteral("Par_prnl1"), 1);
        e->parametro(QStringLiteral("Par_prnl2"), 1);
        e->parametro(QStringLiteral("Par_PrintFco"), 1);
        e->parametro(QStringLiteral("PAR_FLOPD"), 1);
    }
    void TearDown() override { qunsetenv("VKFACTUVEN_DATOS"); }

    // The report after a run's preparation, by report name and context.
    std::unique_ptr<Reporte> prepara(const QString& nombre, ContextoInforme c) {
        auto r = reporteCompleto();
        c.idUsuario = 7;
        c.textoLopd = e->factura().sTextoLOPD;
        PreparaInforme(*r, e->bd(), CargaEmpresa(e->bd()), nombre, c);
        return r;
    }
    static ContextoInforme ctx(qint16 diseno, const QString& clave = {}, quint8 ruta = 2) {
        ContextoInforme c;
        c.nDiseno = diseno;
        c.plantilla = clave;
        c.tipoEmision = ruta;
        c.prnEmp = 1;
        return c;
    }
    static QString f(Reporte& r, const char* n) {
        return r.FormulaFields.GetItemByName(QString::fromLatin1(n)).Text;
    }
    static bool oculto(Reporte& r, const char* n) {
        if (informe::Seccion* s = r.Sections.Busca(QString::fromLatin1(n))) {
            return s->Suppress;
        }
        return r.Objeto(QString::fromLatin1(n)).Suppress;
    }
    static informe::ObjetoInforme& o(Reporte& r, const char* n) {
        return r.Objeto(QString::fromLatin1(n));
    }

    QTemporaryDir datos;
    std::unique_ptr<EmpresaPrueba> e;
};

TEST_P(Opciones, OptionRowsFollowTheParameters) {
    auto r = prepara(QStringLiteral("CrFacturasGeneral"), ctx(0));
    EXPECT_FALSE(oculto(*r, "GroupLopd"));
    EXPECT_EQ(f(*r, "lopd"), informe::Entrecomilla(e->factura().sTextoLOPD));
    EXPECT_FALSE(oculto(*r, "GroupCpago"));
    EXPECT_TRUE(oculto(*r, "CajasBultos"));
    EXPECT_TRUE(oculto(*r, "LavBulto1"));
    EXPECT_EQ(o(*r, "LiteralDescripcion1").Width, 7365);
    EXPECT_EQ(o(*r, "LiteralDescripcion1").HorAlignment, informe::crLeftAlign);
    EXPECT_EQ(f(*r, "bControlLotes"), QStringLiteral("False"));
    EXPECT_EQ(f(*r, "cLiteralComer"), QStringLiteral("''"));
    EXPECT_EQ(f(*r, "bControlDesAmp"), QStringLiteral("'diseño'")); // not this arm's
    EXPECT_EQ(f(*r, "cCopiaFactura"), QStringLiteral("''"));

    e->parametro(QStringLiteral("PAR_FLOPD"), 0);
    e->parametro(QStringLiteral("Par_PrintFco"), 0);
    e->parametro(QStringLiteral("par_bultos"), 1);
    e->parametro(QStringLiteral("Par_Justificar"), 1);
    e->parametro(QStringLiteral("Par_Lotes"), 1);
    e->parametro(QStringLiteral("Par_NComer"), 1);
    ContextoInforme c = ctx(0);
    c.copia = true;
    r = prepara(QStringLiteral("CrFacturasGeneral"), c);
    EXPECT_TRUE(oculto(*r, "GroupLopd"));
    EXPECT_EQ(f(*r, "lopd"), QStringLiteral("'diseño'"));
    EXPECT_TRUE(oculto(*r, "GroupCpago"));
    for (const char* n : {"txtConPago", "txtVencimientos", "LiteralFco11", "LiteralFco41",
                          "LiteralVto11", "LiteralVto61"}) {
        EXPECT_TRUE(oculto(*r, n)) << n;
    }
    EXPECT_FALSE(oculto(*r, "CajasBultos"));
    EXPECT_EQ(o(*r, "LiteralDescripcion1").Width, 6800);
    EXPECT_EQ(o(*r, "LiteralDescripcion1").HorAlignment, informe::crJustified);
    EXPECT_EQ(f(*r, "bControlLotes"), QStringLiteral("True"));
    EXPECT_EQ(f(*r, "cLiteralComer"), QStringLiteral("'diseño'"));
    EXPECT_EQ(f(*r, "cCopiaFactura"), QStringLiteral("'* DUPLICADO DE FACTURA *'"));

    // The description's width without packages depends on the design.
    e->parametro(QStringLiteral("par_bultos"), 0);
    EXPECT_EQ(
        o(*prepara(QStringLiteral("CrFacturaAutomocion"), ctx(4)), "LiteralDescripcion1").Width,
        6400);
    EXPECT_EQ(o(*prepara(QStringLiteral("CrFacturaCalzado"), ctx(16)), "LiteralDescripcion1").Width,
              7200);
    EXPECT_EQ(o(*prepara(QStringLiteral("CrFacturaCalzado1"), ctx(16, QStringLiteral("PLT39"))),
                "LiteralDescripcion1")
                  .Width,
              7365);
}

// A design drawn at its own scale gets the legacy widths translated to it.
TEST_P(Opciones, DescriptionWidthsFollowTheDesignsScale) {
    auto general = informe::CargaDiseno(QStringLiteral("CrFacturasGeneral"));
    const EmpresaEmision empresa = CargaEmpresa(e->bd());
    PreparaInforme(*general, e->bd(), empresa, QStringLiteral("CrFacturasGeneral"), ctx(0));
    EXPECT_EQ(o(*general, "LiteralDescripcion1").Width, general->AnchoDescripcionSinBultos);
    e->parametro(QStringLiteral("par_bultos"), 1);
    PreparaInforme(*general, e->bd(), empresa, QStringLiteral("CrFacturasGeneral"), ctx(0));
    EXPECT_EQ(o(*general, "LiteralDescripcion1").Width, general->AnchoDescripcionConBultos);
    const informe::ObjetoInforme& bultos = o(*general, "LavBulto1");
    EXPECT_LE(o(*general, "LiteralDescripcion1").Left + o(*general, "LiteralDescripcion1").Width,
              bultos.Left);
    // Other figures scale as 7365 does: the general page is drawn at the
    // legacy scale; 6633 on the food design, 4600 wide.
    EXPECT_EQ(general->AnchoDescripcion(6633), 6633);
    EXPECT_EQ(
        informe::CargaDiseno(QStringLiteral("CrFacturaAlimentacion1"))->AnchoDescripcion(6633),
        4143);
    EXPECT_EQ(reporteCompleto()->AnchoDescripcion(6633), 6633);
}

TEST_P(Opciones, EachArmAppliesItsOwnRows) {
    e->parametro(QStringLiteral("PAR_FLOPD"), 0);
    e->parametro(QStringLiteral("Par_PrintFco"), 0);
    // Keys whose designs place packages themselves are left alone.
    auto r = prepara(QStringLiteral("CrFacturaPlt29"), ctx(2, QStringLiteral("PLT29")));
    EXPECT_FALSE(oculto(*r, "GroupLopd")); // no data protection row on this arm
    EXPECT_FALSE(oculto(*r, "GroupCpago"));
    EXPECT_FALSE(oculto(*r, "CajasBultos"));
    EXPECT_EQ(o(*r, "LiteralDescripcion1").Width, 5000);
    EXPECT_EQ(f(*r, "bControlLotes"), QStringLiteral("False"));

    r = prepara(QStringLiteral("CrFacturaPlt31"), ctx(2, QStringLiteral("PLT31")));
    EXPECT_FALSE(oculto(*r, "CajasBultos"));
    EXPECT_TRUE(oculto(*r, "LavBulto1"));
    EXPECT_EQ(o(*r, "LiteralDescripcion1").Width, 6633);

    r = prepara(QStringLiteral("CrFacturaPlt25"), ctx(2, QStringLiteral("PLT25")));
    EXPECT_TRUE(oculto(*r, "GroupLopd"));
    EXPECT_FALSE(oculto(*r, "GroupCpago")); // no payment terms row here

    // The measures design: data protection, payment terms, and only the agent.
    r = prepara(QStringLiteral("CrFacturasMedidasNLogo"), ctx(10));
    EXPECT_TRUE(oculto(*r, "GroupLopd"));
    EXPECT_TRUE(oculto(*r, "GroupCpago"));
    EXPECT_FALSE(oculto(*r, "CajasBultos"));
    EXPECT_EQ(f(*r, "bControlLotes"), QStringLiteral("'diseño'"));
    EXPECT_EQ(f(*r, "cLiteralComer"), QStringLiteral("''"));

    // The extended description on the logo and automotive designs.
    r = prepara(QStringLiteral("CrFacturaGeneral2"), ctx(2));
    EXPECT_EQ(f(*r, "bControlDesAmp"), QStringLiteral("True"));
    e->parametro(QStringLiteral("Par_FacDesAmp"), 1);
    r = prepara(QStringLiteral("CrFacturaAutomocion"), ctx(4, QStringLiteral("PLT38")));
    EXPECT_EQ(f(*r, "bControlDesAmp"), QStringLiteral("False"));
    EXPECT_EQ(o(*r, "cliteralEmpresa1").Left, 3000);
    EXPECT_EQ(o(*r, "cliteralEmpresa1").Width, 10000);
    EXPECT_EQ(o(*r, "cLiteralTelefono1").Left, 3000);
    EXPECT_EQ(o(*r, "cLiteralProvincia1").Left, 7250);
}

TEST_P(Opciones, LetterheadByDesignGroupWithApostrophesDoubled) {
    // Group A with the program printing the letterhead.
    auto r = prepara(QStringLiteral("CrFacturasGeneral"), ctx(0));
    EXPECT_EQ(f(*r, "cLiteralEmpresa"), QStringLiteral("'Turrones O''Neill, S.L.'"));
    EXPECT_EQ(f(*r, "cLiteralActividad"), QStringLiteral("'Confitería'"));
    EXPECT_EQ(f(*r, "cLiteralPoblacion"), QStringLiteral("'03100 Jijona'"));
    EXPECT_EQ(f(*r, "cLiteralTelefono"),
              QStringLiteral("'Tlf. 965 000 111 - Fax 965 000 112 - Email.info@oneill.es'"));
    EXPECT_EQ(f(*r, "cLiteralNif"), QStringLiteral("'NIF: B12345678'"));
    EXPECT_EQ(f(*r, "pLiteralLinea1"), QStringLiteral("'Inscrita en el R.M. d''Alacant'"));
    EXPECT_EQ(f(*r, "pLiteralLinea2"), QStringLiteral("''"));
    EXPECT_FALSE(oculto(*r, "GroupHeaderSection3"));

    EXPECT_EQ(f(*prepara(QStringLiteral("CrFacturasGeneral"), ctx(0, QStringLiteral("PLT40"))),
                "cLiteralEmpresa"),
              QStringLiteral("'Casa O''Neill'"));
    r = prepara(QStringLiteral("CrFacturaPlt34"), ctx(2, QStringLiteral("PLT34")));
    EXPECT_EQ(f(*r, "cLiteralTelefono"),
              QStringLiteral("'Tlf: 965 000 111 - Fax: 965 000 112 - Email: info@oneill.es'"));
    EXPECT_EQ(f(*r, "cLiteralMail"),
              QStringLiteral("'Email. info@oneill.es  -  Web: www.oneill.es'"));
    r = prepara(QStringLiteral("CrFacturaPlt03"), ctx(2, QStringLiteral("PLT03")));
    EXPECT_EQ(f(*r, "cLiteralEmpresa"), QStringLiteral("''"));
    EXPECT_EQ(f(*r, "cLiteralTelefono"),
              QStringLiteral("'Tlf. 965 000 111 - Fax.965 000 112 - Email.info@oneill.es'"));

    // Stationery with its own letterhead.
    e->parametro(QStringLiteral("Par_PrnEmp"), 0);
    r = prepara(QStringLiteral("CrFacturasGeneral"), ctx(0));
    for (const char* n : {"cLiteralEmpresa", "cLiteralActividad", "cLiteralDireccion",
                          "cLiteralPoblacion", "cLiteralProvincia", "cLiteralTelefono"}) {
        EXPECT_EQ(f(*r, n), QStringLiteral("''")) << n;
    }
    // Group B: the design's own letterhead, emptied on PLT23 only.
    EXPECT_EQ(f(*prepara(QStringLiteral("CrFacturasGeneral"), ctx(1)), "cLiteralEmpresa"),
              QStringLiteral("'diseño'"));
    EXPECT_EQ(f(*prepara(QStringLiteral("CrFacturaPlt23"), ctx(1, QStringLiteral("PLT23"))),
                "cLiteralEmpresa"),
              QStringLiteral("''"));
    // Group C prints the company whatever Par_PrnEmp says, and " - Fax.".
    ContextoInforme c = ctx(15);
    c.imprimeAlbaran = false;
    r = prepara(QStringLiteral("CrFacturaGeneral5"), c);
    EXPECT_EQ(f(*r, "cLiteralEmpresa"), QStringLiteral("'Turrones O''Neill, S.L.'"));
    EXPECT_EQ(f(*r, "cLiteralTelefono"),
              QStringLiteral("'Tlf. 965 000 111 - Fax.965 000 112 - Email.info@oneill.es'"));
    EXPECT_TRUE(oculto(*r, "GroupHeaderSection3"));
}

TEST_P(Opciones, NurseryVolumeFramesAndImpactColours) {
    QFile viveros(datos.filePath(QStringLiteral("viveros.json")));
    ASSERT_TRUE(viveros.open(QIODevice::WriteOnly));
    viveros.write(R"({"PLT19": {"Nombre": "Viveros del Sur", "Pasaporte": "ES-14-30-0042"},
                      "PLT20": {"Nombre": "Planta Viva", "Pasaporte": "ES-14-30-0077"}})");
    viveros.close();
    auto r = prepara(QStringLiteral("CrFacturaViveros"), ctx(1, QStringLiteral("PLT20")));
    EXPECT_EQ(f(*r, "cLiteralEmpresa"), QStringLiteral("'Planta Viva'"));
    EXPECT_EQ(f(*r, "cPasaporte"), QStringLiteral("'ES-14-30-0077'"));
    EXPECT_EQ(f(*r, "cLiteralActividad"),
              QStringLiteral("'Casa O''Neill  -  NIF: B12345678  -  Confitería'"));
    r = prepara(QStringLiteral("CrFacturaViveros"), ctx(1, QStringLiteral("PLT22")));
    EXPECT_EQ(f(*r, "cLiteralEmpresa"), QStringLiteral("'Turrones O''Neill, S.L.'"));
    EXPECT_EQ(f(*r, "cPasaporte"), QStringLiteral("'ES-14-30-0042'"));
    EXPECT_EQ(f(*r, "cLiteralActividad"), QStringLiteral("'CIF: B12345678  -  Confitería'"));
    // A nursery key on a group A design: its own telephone and mail lines.
    r = prepara(QStringLiteral("CrFacturasGeneral"), ctx(0, QStringLiteral("PLT19")));
    EXPECT_EQ(f(*r, "cLiteralTelefono"),
              QStringLiteral("'Tlf. y fax:965 000 111 - Móvil: 600 000 000'"));
    EXPECT_EQ(f(*r, "cLiteralMail"),
              QStringLiteral("'Email. info@oneill.es  -  Web: www.oneill.es'"));

    // The footwear design asks for the volume on every route.
    for (quint8 ruta : {0, 2, 3}) {
        e->ui().textos.push_back(QStringLiteral("12 m3"));
        EXPECT_EQ(f(*prepara(QStringLiteral("CrFacturaCalzado"), ctx(16, {}, ruta)), "cVolumen"),
                  QStringLiteral("'Volumen: 12 m3'"));
    }
    e->ui().textos.push_back(QString());
    EXPECT_EQ(f(*prepara(QStringLiteral("CrFacturaCalzado"), ctx(16)), "cVolumen"),
              QStringLiteral("''"));
    ASSERT_FALSE(e->ui().vistos.empty());
    EXPECT_EQ(e->ui().vistos.back().texto, mensajes::kVolumen);

    // Frames go with Par_Sincuadros, unless the company is PLT18's.
    e->parametro(QStringLiteral("Par_Sincuadros"), 1);
    r = prepara(QStringLiteral("CrFacturasGeneral"), ctx(0));
    EXPECT_TRUE(oculto(*r, "Box1"));
    EXPECT_TRUE(oculto(*r, "Box2"));
    e->parametro(QStringLiteral("PAR_NOMBRE"), QStringLiteral("Turrones plt18"));
    r = prepara(QStringLiteral("CRFacturasPlt18"), ctx(1));
    EXPECT_FALSE(oculto(*r, "Box1"));

    // Headings lose their tint when the company prints on an impact printer.
    EXPECT_EQ(o(*r, "txtColConcepto").BackColor, 0xDDDDDD);
    e->parametro(QStringLiteral("Par_DiseñoFactura"), 6);
    r = prepara(QStringLiteral("CrFacturasGeneral"), ctx(0));
    for (const char* n :
         {"txtColConcepto", "txtColCantidad", "txtColImporte", "txtColPrecio", "Text9"}) {
        EXPECT_EQ(o(*r, n).BackColor, informe::kSinColor) << n;
    }
}

TEST_P(Opciones, LogoIsExtractedPerUserWithItsSizesInverted) {
    e->parametro(QStringLiteral("Par_prnlogo"), 1);
    const QString ruta = fnRutaLogo(7);
    EXPECT_EQ(ruta, datos.filePath(QStringLiteral("007rlogo.bmp")));

    // No image stored: no logo file, no message, the report goes on.
    QFile::remove(ruta);
    QFile viejo(ruta);
    ASSERT_TRUE(viejo.open(QIODevice::WriteOnly));
    viejo.write("de otra empresa");
    viejo.close();
    auto r = prepara(QStringLiteral("CrFacturaGeneral2"), ctx(2, {}, 0));
    EXPECT_FALSE(QFile::exists(ruta)); // the old file does not stand in for it
    EXPECT_FALSE(oculto(*r, "LogoEmpresa"));
    EXPECT_EQ(f(*r, "rutaimagen"), informe::Entrecomilla(ruta));
    EXPECT_TRUE(e->ui().vistos.empty());

    // A stored image is written, shown, and sized X as height, Y as width.
    QImage img(40, 20, QImage::Format_RGB32);
    img.fill(Qt::darkBlue);
    QByteArray png;
    QBuffer b(&png);
    b.open(QIODevice::WriteOnly);
    img.save(&b, "PNG");
    e->parametro(QStringLiteral("Par_ImagenLogo"), png);
    const int alto = o(*r, "LogoEmpresa").Height, ancho = o(*r, "LogoEmpresa").Width;
    e->parametro(QStringLiteral("Par_ImgPosX"), alto - 200);
    e->parametro(QStringLiteral("Par_ImgPosY"), ancho - 300);
    r = prepara(QStringLiteral("CrFacturaGeneral2"), ctx(2, {}, 2));
    QFile escrito(ruta);
    ASSERT_TRUE(escrito.open(QIODevice::ReadOnly));
    EXPECT_EQ(escrito.readAll(), png);
    EXPECT_EQ(o(*r, "LogoEmpresa").Height, alto - 200);
    EXPECT_EQ(o(*r, "LogoEmpresa").Width, ancho - 300);
    EXPECT_FALSE(QImage(ruta).isNull());
    // A size beyond the design's frame stops at the frame.
    e->parametro(QStringLiteral("Par_ImgPosX"), alto + 2000);
    e->parametro(QStringLiteral("Par_ImgPosY"), 120);
    r = prepara(QStringLiteral("CrFacturaGeneral2"), ctx(2, {}, 2));
    EXPECT_EQ(o(*r, "LogoEmpresa").Height, alto);
    EXPECT_EQ(o(*r, "LogoEmpresa").Width, 120);
}

TEST_P(Opciones, PaperOptionsOfEachRoute) {
    // Viewer and printer: the printing flags decide letterhead and feet.
    e->parametro(QStringLiteral("Par_prnl1"), 0);
    ContextoInforme c = ctx(0, {}, 0);
    c.prnEmp = 0;
    auto r = prepara(QStringLiteral("CrFacturasGeneral"), c);
    EXPECT_EQ(f(*r, "cLiteralEmpresa"), QStringLiteral("''"));
    EXPECT_EQ(f(*r, "pLiteralLinea1"), QStringLiteral("''"));
    // The PDF goes without stationery: letterhead and feet stay.
    c.tipoEmision = 2;
    r = prepara(QStringLiteral("CrFacturasGeneral"), c);
    EXPECT_EQ(f(*r, "cLiteralEmpresa"), QStringLiteral("'Turrones O''Neill, S.L.'"));
    EXPECT_EQ(f(*r, "pLiteralLinea1"), QStringLiteral("'Inscrita en el R.M. d''Alacant'"));

    // Without logo the automotive letterhead slides left on the viewer only.
    e->parametro(QStringLiteral("Par_prnlogo"), 0);
    r = prepara(QStringLiteral("CrFacturaAutomocion"), ctx(4, {}, 0));
    EXPECT_TRUE(oculto(*r, "LogoEmpresa"));
    EXPECT_EQ(o(*r, "cliteralEmpresa1").Left, 120);
    EXPECT_EQ(o(*r, "cliteralEmpresa1").Width, 10880);
    EXPECT_EQ(o(*r, "cLiteralProvincia1").Left, 4420);
    r = prepara(QStringLiteral("CrFacturaAutomocion"), ctx(4, {}, 1));
    EXPECT_EQ(o(*r, "cliteralEmpresa1").Left, 1000);
    r = prepara(QStringLiteral("CrFacturaCalzado"), ctx(16, {}, 0));
    EXPECT_EQ(o(*r, "cLiteralProvincia1").Left, 120);
    r = prepara(QStringLiteral("CrFacturaPlt04"), ctx(2, QStringLiteral("PLT04"), 0));
    EXPECT_TRUE(oculto(*r, "Picture1"));
    EXPECT_EQ(r->Sections.Item(QStringLiteral("PageFooterSection1")).Height, 755);

    // PDF and mail: the key alone decides.
    r = prepara(QStringLiteral("CrFacturasGeneral"), ctx(1, {}, 2));
    o(*r, "Picture1");
    EXPECT_FALSE(oculto(*r, "Picture1"));
    EXPECT_FALSE(oculto(*r, "txtMiNombre"));
    r = prepara(QStringLiteral("CrFacturaPlt36"), ctx(2, QStringLiteral("PLT36"), 3));
    EXPECT_EQ(o(*r, "text12").Left, 160);
    EXPECT_EQ(o(*r, "text12").Width, 10860);
    EXPECT_FALSE(oculto(*r, "LogoEmpresa"));
    EXPECT_EQ(f(*r, "rutaimagen"), QStringLiteral("'diseño'")); // no extraction on PLT36
    r = prepara(QStringLiteral("CrFacturaPlt29"), ctx(2, QStringLiteral("PLT39"), 2));
    EXPECT_TRUE(oculto(*r, "Picture1")); // follows Par_prnlogo
}

VK_EN_AMBOS_MOTORES(Opciones);

} // namespace
} // namespace vk::prueba
