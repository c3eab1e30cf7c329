// The works and transport families: the statements behind their
// subreports, the report each template key chooses, the template files of
// an installation, and one PDF of each through the dispatcher.
#include "EmpresaPrueba.h"
#include "PdfTexto.h"

#include <DisenoInforme.h>
#include <FacturaObras.h>
#include <FacturaTransportes.h>
#include <MensajesEmision.h>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <RegistroSuite.h>
#include <SqlFacturas.h>

namespace vk::prueba {
namespace {

const QDate kHoy(2026, 3, 10);

QString columna(const Recordset& rs, const char* nombre) {
    return rs.Fields(QString::fromLatin1(nombre)).Texto();
}

// The values of one column, row by row.
QStringList valores(Recordset rs, const char* nombre) {
    QStringList r;
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
        r << columna(rs, nombre);
    }
    return r;
}

bool qpdfAcepta(const QString& fichero) {
    QProcess p;
    p.start(QStringLiteral("qpdf"), {QStringLiteral("--check"), fichero});
    return p.waitForFinished(60000) && p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0;
}

class Familias : public PruebaMotores {
protected:
    void SetUp() override {
        suite::RegistraComponentesSuite();
        // Templates, the per-user folder and the logo live in the data folder.
        qputenv("VKFACTUVEN_DATOS", datos().toUtf8());
        QDir().mkpath(datos());
        e = std::make_unique<EmpresaPrueba>(GetParam());
        e->parametro(QStringLiteral("PAR_NOMBRE"), QStringLiteral("Construcciones Turia, S.L."));
        e->parametro(QStringLiteral("Par_PrnEmp"), 1);
        e->factura().Tipo_Emision = 2;
        e->factura().RutaFicheroPdf = dir.path();
    }
    void TearDown() override { qunsetenv("VKFACTUVEN_DATOS"); }

    QString datos() const { return dir.filePath(QStringLiteral("datos")); }

    // An invoice of one note with `lineas` lines, calculated and saved.
    qint32 factura(int lineas, const QString& serie = QStringLiteral("A")) {
        const qint32 c = e->cliente();
        std::vector<LineaPrueba> l(static_cast<size_t>(lineas), LineaPrueba{100});
        const qint32 id = e->nuevaFactura(c, kHoy, {e->albaran(c, kHoy, 1, l)}, 0, 0, serie);
        e->factura().CalculoTotalesFactura();
        EXPECT_TRUE(e->factura().GrabaFactura());
        e->ui().vistos.clear();
        return id;
    }
    std::vector<qint64> lineasDe(qint32 idFactura) {
        std::vector<qint64> r;
        Recordset rs = e->cn().Execute(
            QStringLiteral("SELECT Lav_Id FROM Lav INNER JOIN Cav ON Cav_Id = Lav_IdCav WHERE "
                           "Cav_IdFactura = ? ORDER BY Lav_Orden"),
            {idFactura});
        for (; !rs.Eof(); rs.MoveNext()) {
            r.push_back(rs.Fields(0).Entero());
        }
        return r;
    }
    qint64 inserta(const QString& sql, const QVariantList& p) {
        return e->cn().Execute(sql, p).Fields(0).Entero();
    }
    QVariant fecha(int mes, int dia) {
        return e->bd().dialecto().valorFecha(QDate(2026, mes, dia));
    }
    QStringList mensajes() {
        QStringList r;
        for (const auto& m : e->ui().vistos) {
            r << m.titulo + QStringLiteral(": ") + m.texto;
        }
        return r;
    }

    QTemporaryDir dir;
    std::unique_ptr<EmpresaPrueba> e;
};

// ---------------------------------------------------------------- works

class FamiliaObras : public Familias {
protected:
    // Two works, a fault, two work reports (the first made from the fault),
    // an article with its measure, and an invoice of three lines: two on
    // the first work and report, one on the second.
    void SetUp() override {
        Familias::SetUp();
        obra1 = inserta(QStringLiteral("INSERT INTO Obras (obras_cod, obras_des, obras_situacion, "
                                       "obras_zona) VALUES (101, ?, 1, 3) RETURNING obras_id"),
                        {QStringLiteral("Reforma de la nave de Paterna")});
        obra2 = inserta(QStringLiteral("INSERT INTO Obras (obras_cod, obras_des, obras_situacion, "
                                       "obras_zona) VALUES (102, ?, 1, 3) RETURNING obras_id"),
                        {QStringLiteral("Urbanización Camí Reial")});
        inserta(QStringLiteral("INSERT INTO Obras (obras_cod, obras_des) VALUES (103, ?) "
                               "RETURNING obras_id"),
                {QStringLiteral("Obra de otra factura")});
        averia = inserta(QStringLiteral("INSERT INTO Averias (averias_cod, averias_des, "
                                        "averias_situacion) VALUES (7, ?, 2) RETURNING averias_id"),
                         {QStringLiteral("Fuga en la red de riego")});
        parte1 = inserta(QStringLiteral("INSERT INTO Partes (partes_alta, partes_Cavn, "
                                        "partes_IdOrigen, partes_Torigen) VALUES (?, 1, ?, 2) "
                                        "RETURNING partes_id"),
                         {fecha(3, 2), averia});
        parte2 = inserta(QStringLiteral("INSERT INTO Partes (partes_alta, partes_Cavn, "
                                        "partes_IdOrigen, partes_Torigen) VALUES (?, 1, ?, 1) "
                                        "RETURNING partes_id"),
                         {fecha(3, 4), obra2});
        inserta(QStringLiteral("INSERT INTO Art (Art_Cod, Art_Des, Art_Medida) VALUES "
                               "('HORM25', ?, 'm3') RETURNING Art_Id"),
                {QStringLiteral("Hormigón HM-25")});
        id = factura(3);
        const auto l = lineasDe(id);
        linea(l[0], obra1, parte1, QStringLiteral("HORM25"), QStringLiteral("Hormigón HM-25"));
        linea(l[1], obra1, parte1, QStringLiteral("HORM25"),
              QStringLiteral("Hormigón de limpieza"));
        linea(l[2], obra2, parte2, QString(), QStringLiteral("Mano de obra especialista"));
    }
    void linea(qint64 lav, qint64 obra, qint64 parte, const QString& codigo, const QString& des) {
        e->cn().Execute(QStringLiteral("UPDATE Lav SET Lav_IdObra = ?, lav_idparte = ?, "
                                       "Lav_CodArt = ?, Lav_Des = ? WHERE Lav_Id = ?"),
                        {obra, parte, codigo, des, lav});
    }
    qint64 obra1 = 0, obra2 = 0, averia = 0, parte1 = 0, parte2 = 0;
    qint32 id = 0;
};

TEST_P(FamiliaObras, SideCursorsHoldWhatTheLinesReferTo) {
    const Recordset filas = LeeFilasFacturas(e->bd(), {id});
    const ListasObras l = RecogeListasObras(e->bd(), filas);
    // One entry per line, repeats kept; the fault comes through its report.
    EXPECT_EQ(l.obras, (QList<qint64>{obra1, obra1, obra2}));
    EXPECT_EQ(l.partes, (QList<qint64>{parte1, parte1, parte2}));
    EXPECT_EQ(l.articulos, (QStringList{QStringLiteral("HORM25"), QStringLiteral("HORM25")}));
    EXPECT_EQ(l.averias, (QList<qint64>{averia, averia}));

    const CursoresObras c = LeeCursoresObras(e->bd(), l);
    EXPECT_EQ(valores(c.obras, "obras_des"),
              (QStringList{QStringLiteral("Reforma de la nave de Paterna"),
                           QStringLiteral("Urbanización Camí Reial")}));
    EXPECT_EQ(valores(c.averias, "averias_des"),
              QStringList{QStringLiteral("Fuga en la red de riego")});
    EXPECT_EQ(valores(c.partes, "partes_Torigen"), (QStringList{"2", "1"}));
    EXPECT_EQ(valores(c.articulos, "Art_Medida"), QStringList{QStringLiteral("m3")});

    // A fault list written in fewer than three characters counts as empty.
    ListasObras una;
    una.averias = {averia};
    ASSERT_LT(QString::number(averia).size(), 3);
    EXPECT_EQ(LeeCursoresObras(e->bd(), una).averias.RecordCount(), 0);
    una.averias = {averia, averia};
    EXPECT_EQ(LeeCursoresObras(e->bd(), una).averias.RecordCount(), 1);

    // Empty lists read the keys that match nothing, with the columns there.
    const CursoresObras vacios = LeeCursoresObras(e->bd(), {});
    for (const auto& [rs, col] :
         {std::pair{&vacios.obras, "obras_des"}, std::pair{&vacios.averias, "averias_des"},
          std::pair{&vacios.partes, "partes_alta"}, std::pair{&vacios.articulos, "Art_Medida"}}) {
        EXPECT_EQ(rs->RecordCount(), 0) << col;
        EXPECT_TRUE(rs->TieneCampo(QString::fromLatin1(col))) << col;
    }
    // An article code with an apostrophe is bound, not pasted.
    ListasObras raro;
    raro.articulos = {QStringLiteral("O'BRIEN")};
    EXPECT_EQ(LeeCursoresObras(e->bd(), raro).articulos.RecordCount(), 0);
}

TEST_P(FamiliaObras, DesignSevenPrintsTheLinesUnderTheirWork) {
    VKFACVENTAS& f = e->factura();
    e->parametro(QStringLiteral("Par_DiseñoFactura"), 7);
    f.ImprimeAlbaran = true;
    f.EmisionMultiplesFacturas(0, true, {id});
    EXPECT_TRUE(mensajes().isEmpty()) << mensajes().join(QLatin1Char('\n')).toStdString();
    ASSERT_TRUE(QFileInfo::exists(f.PdfOutFile));
    EXPECT_TRUE(qpdfAcepta(f.PdfOutFile));
    const QString t = TextoPdf(f.PdfOutFile);
    // Work, its report and lines; then the second work; the fault below.
    EXPECT_TRUE(EnOrden(t, {QStringLiteral("Construcciones Turia, S.L."), QStringLiteral("FACTURA"),
                            QStringLiteral("Reforma de la nave de Paterna"),
                            QStringLiteral("Parte de trabajo nº"), QStringLiteral("Hormigón HM-25"),
                            QStringLiteral("m3"), QStringLiteral("Hormigón de limpieza"),
                            QStringLiteral("Urbanización Camí Reial"),
                            QStringLiteral("Mano de obra especialista"),
                            QStringLiteral("Fuga en la red de riego"), QStringLiteral("363,00")}))
        << t.toStdString();
    EXPECT_FALSE(t.contains(QStringLiteral("Obra de otra factura")));
}

TEST_P(FamiliaObras, TemplateFilesOfTheInstallation) {
    VKFACVENTAS& f = e->factura();
    const auto escribe = [&](const QString& nombre, const QByteArray& contenido) {
        QFile fichero(QDir(datos()).filePath(nombre));
        ASSERT_TRUE(fichero.open(QIODevice::WriteOnly));
        fichero.write(contenido);
    };
    // Design 7 with its own template: a file extending the built-in design.
    escribe(QStringLiteral("obras-propia.json"),
            R"({ "Extiende": "crFObras", "Sections": [ { "Name": "CabeceraFactura",
                 "Objetos": [ { "Name": "txtFactura", "Texto": "OBRA PROPIA" } ] } ] })");
    e->parametro(QStringLiteral("Par_DiseñoFactura"), 7);
    e->parametro(QStringLiteral("PAR_PLANTILLA_FOBRAS"), QStringLiteral("obras-propia.json"));
    f.EmisionMultiplesFacturas(0, true, {id});
    EXPECT_TRUE(mensajes().isEmpty()) << mensajes().join(QLatin1Char('\n')).toStdString();
    EXPECT_TRUE(TextoPdf(f.PdfOutFile).contains(QStringLiteral("OBRA PROPIA")));

    // A template that is not a design, or is missing, ends the family with
    // the box of the template and writes nothing.
    const QString esperado =
        mensajes::kAccionCancelada + QStringLiteral(": ") + mensajes::kErrorAperturandoPlantilla;
    escribe(QStringLiteral("rota.json"), "{ esto no es un diseño");
    for (const QString& plantilla : {QStringLiteral("rota.json"), QStringLiteral("falta.json")}) {
        e->ui().vistos.clear();
        f.PdfOutFile.clear();
        e->parametro(QStringLiteral("PAR_PLANTILLA_FOBRAS"), plantilla);
        f.EmisionMultiplesFacturas(0, true, {id});
        ASSERT_EQ(mensajes().size(), 1) << plantilla.toStdString();
        EXPECT_TRUE(mensajes()[0].startsWith(esperado + QLatin1Char('\n')))
            << mensajes()[0].toStdString();
        EXPECT_TRUE(mensajes()[0].contains(plantilla)) << mensajes()[0].toStdString();
        EXPECT_TRUE(f.PdfOutFile.isEmpty());
    }

    // Design 5: the personal template of PAR_PLANTILLA_FAC.
    e->parametro(QStringLiteral("Par_DiseñoFactura"), 5);
    e->parametro(QStringLiteral("PAR_PLANTILLA_FAC"), QStringLiteral("personal.json"));
    e->ui().vistos.clear();
    f.EmisionMultiplesFacturas(0, true, {id});
    EXPECT_EQ(mensajes(), QStringList{mensajes::kAccionCancelada + QStringLiteral(": ") +
                                      mensajes::kPlantillaPersonalNoPresente});
    escribe(QStringLiteral("personal.json"), R"({ "Extiende": "crFObras2" })");
    e->ui().vistos.clear();
    f.EmisionMultiplesFacturas(0, true, {id});
    EXPECT_TRUE(mensajes().isEmpty()) << mensajes().join(QLatin1Char('\n')).toStdString();
    EXPECT_TRUE(TextoPdf(f.PdfOutFile).contains(QStringLiteral("Reforma de la nave de Paterna")));
}

VK_EN_AMBOS_MOTORES(FamiliaObras);

TEST(ReporteObras, ByDesignAndKey) {
    const QString d = QStringLiteral("/datos");
    const auto nombre = [&](qint16 diseno, const char* clave) {
        return fnReporteObras(diseno, true, QString::fromLatin1(clave), QString(), d).nombre;
    };
    EXPECT_EQ(nombre(7, ""), QStringLiteral("crFObras"));
    EXPECT_EQ(fnReporteObras(7, true, QStringLiteral("Mia.json"), QString(), d).fichero,
              QStringLiteral("/datos/Mia.json"));
    EXPECT_EQ(nombre(9, "plt44"), QStringLiteral("crFPlt44"));
    EXPECT_EQ(nombre(9, "PLT41"), QStringLiteral("crFPlt41"));
    EXPECT_EQ(nombre(9, "PLT42"), QStringLiteral("crFPlt41Elec"));
    EXPECT_EQ(nombre(9, "PLT43"), QStringLiteral("crFPlt41Viales"));
    EXPECT_EQ(nombre(9, "PLT48"), QStringLiteral("crFObrasRetVb"));
    EXPECT_EQ(nombre(9, "Retencion"), QStringLiteral("crFObrasRetCod"));
    EXPECT_EQ(nombre(9, "PLT99"), QStringLiteral("crFObrasRet"));
    EXPECT_EQ(nombre(9, ""), QStringLiteral("crFObrasRet"));
    EXPECT_EQ(nombre(11, "PLT44"), QStringLiteral("crFObras2"));
    const ReporteObras personal =
        fnReporteObras(5, false, QStringLiteral("x.json"), QStringLiteral("propia.json"), d);
    EXPECT_TRUE(personal.nombre.isEmpty());
    EXPECT_EQ(personal.fichero, QStringLiteral("/datos/propia.json"));
}

// Every design of the families loads, carries the names the options set,
// and has its subreports in the order the family binds them.
TEST(DisenosFamilias, CarryTheNamesTheFamiliesFill) {
    const QStringList obras{"crFObras",       "crFObras2",      "crFObrasRet",
                            "crFObrasRetCod", "crFObrasRetVb",  "crFPlt41",
                            "crFPlt41Elec",   "crFPlt41Viales", "crFPlt44"};
    const QStringList transportes{"CrFacturaTransporte1", "CrFacturaTransporte2",
                                  "CrFacturaPlt46",       "CrFacturaPlt45Tr",
                                  "CrFacturaPlt45Tf",     "CrFacturaPlt45Ge"};
    for (const QString& n : obras + transportes) {
        SCOPED_TRACE(n.toStdString());
        const auto r = informe::CargaDiseno(n);
        for (const char* s : {"GroupLopd", "GroupCpago", "PageHeaderSection1"}) {
            EXPECT_NE(r->Sections.Busca(QString::fromLatin1(s)), nullptr) << s;
        }
        for (const char* o : {"Box1", "Box2", "LogoEmpresa", "LiteralDescripcion1", "txtConPago"}) {
            EXPECT_NE(r->BuscaObjeto(QString::fromLatin1(o)), nullptr) << o;
        }
        for (const char* f : {"cLiteralEmpresa", "cLiteralTelefono", "pLiteralLinea1",
                              "cCopiaFactura", "lopd", "rutaimagen"}) {
            EXPECT_NE(r->FormulaFields.Busca(QString::fromLatin1(f)), nullptr) << f;
        }
        QStringList subinformes;
        for (const auto& s : r->Subreportes) {
            subinformes << s->Name;
        }
        const QStringList esperados = obras.contains(n)
                                          ? QStringList{"Obras", "Averias", "Partes", "Articulos"}
                                          : QStringList{"Viajes"};
        EXPECT_EQ(subinformes, esperados);
        if (obras.contains(n)) {
            EXPECT_NE(r->Sections.Busca(QStringLiteral("GroupHeaderSection1")), nullptr);
        } else {
            EXPECT_NE(r->FormulaFields.Busca(QStringLiteral("bControlNuevaGestion")), nullptr);
        }
    }
}

// ------------------------------------------------------------ transport

class FamiliaTransportes : public Familias {
protected:
    // Two legs of two voyages: V/7 loaded on 2 March in Valencia for Lyon,
    // V/3 loaded on 5 March; an invoice of three lines: one per leg and a
    // stoppage without a leg.
    void SetUp() override {
        Familias::SetUp();
        e->parametro(QStringLiteral("Par_DiseñoFactura"), 18);
        tramo7 = tramo(7, fecha(3, 2), QStringLiteral("Valencia"), QStringLiteral("001"),
                       QStringLiteral("1234-BCD"));
        tramo3 = tramo(3, fecha(3, 5), QStringLiteral("Sagunto"), QStringLiteral("011"),
                       QStringLiteral("5678-FGH"));
    }
    qint64 tramo(int numero, const QVariant& carga, const QString& destino, const QString& pais,
                 const QString& matricula) {
        const qint64 via =
            inserta(QStringLiteral("INSERT INTO TrVia (TrVia_Serie, TrVia_Numero) VALUES ('V', ?) "
                                   "RETURNING TrVia_Id"),
                    {numero});
        inserta(QStringLiteral("INSERT INTO TrViaVeh (TrViaVeh_IdVia, TrViaVeh_MatriTra, "
                               "TrViaVeh_MatriRem) VALUES (?, ?, 'R-0001-BBB') RETURNING "
                               "TrViaVeh_Id"),
                {via, matricula});
        const qint64 pet =
            inserta(QStringLiteral("INSERT INTO TrPet (TrPet_SRef) VALUES (?) RETURNING TrPet_Id"),
                    {QStringLiteral("PED-%1").arg(numero)});
        const qint64 car = inserta(
            QStringLiteral("INSERT INTO TrCar (TrCar_IdVia, TrCar_IdPet, TrCar_Fecha, "
                           "TrCar_Poblacion, TrCar_NomEmp, TrCar_Cantidad, TrCar_Unidad, "
                           "TrCar_Pais, TrCar_sAlbaran, TrCar_TexFac) VALUES (?, ?, ?, 'Valencia', "
                           "?, 24, 'Tn', '011', ?, 'Palets de azulejo') RETURNING TrCar_Id"),
            {via, pet, carga, QStringLiteral("Cerámicas Turia"),
             QStringLiteral("ALB-%1").arg(numero)});
        return inserta(QStringLiteral("INSERT INTO TrDes (TrDes_IdCar, TrDes_FDescarga, "
                                      "TrDes_Poblacion, TrDes_NomEmp, TrDes_Kilos, TrDes_Pais) "
                                      "VALUES (?, ?, ?, 'Destinatario', 24000, ?) RETURNING "
                                      "TrDes_Id"),
                       {car, carga, destino, pais});
    }
    // An invoice whose lines charge the two legs and a stoppage.
    qint32 facturaViajes(const QString& serie = QStringLiteral("A")) {
        const qint32 f = factura(3, serie);
        const auto l = lineasDe(f);
        const QStringList des{QStringLiteral("Porte Valencia - Lyon"),
                              QStringLiteral("Porte Valencia - Sagunto"),
                              QStringLiteral("Paralización del camión")};
        const QList<qint64> viajes{tramo7, tramo3, 0};
        for (int i = 0; i < 3; ++i) {
            e->cn().Execute(
                QStringLiteral("UPDATE Lav SET Lav_IdViaje = ?, Lav_Des = ? WHERE Lav_Id = ?"),
                {viajes[i], des[i], l[static_cast<size_t>(i)]});
        }
        return f;
    }
    qint64 tramo7 = 0, tramo3 = 0;
};

TEST_P(FamiliaTransportes, RowsOfTheLegsOfTheInvoice) {
    const qint32 id = facturaViajes(QStringLiteral("B"));
    DatosTransportes d = LeeDatosTransportes(e->bd(), {id});
    EXPECT_EQ(d.reporte.nombre, QStringLiteral("CrFacturaTransporte2"));
    EXPECT_EQ(d.filas.RecordCount(), 3);
    // By load date; the home country carries no suffix.
    EXPECT_EQ(valores(d.viajes, "Viaje"), (QStringList{"V/7", "V/3"}));
    d.viajes.MoveFirst();
    EXPECT_EQ(columna(d.viajes, "Fav_Id"), QString::number(id));
    EXPECT_EQ(columna(d.viajes, "TrVia_MatriTra"), QStringLiteral("1234-BCD"));
    EXPECT_EQ(columna(d.viajes, "TrVia_MatriRem"), QStringLiteral("R-0001-BBB"));
    EXPECT_EQ(columna(d.viajes, "Origen"), QStringLiteral("Valencia - Cerámicas Turia"));
    EXPECT_EQ(columna(d.viajes, "Destino"), QStringLiteral("Valencia - Destinatario"));
    EXPECT_EQ(columna(d.viajes, "PaisCargaCod"), QString());
    EXPECT_EQ(columna(d.viajes, "PaisDesCargaCod"), QStringLiteral("-FR"));
    EXPECT_EQ(d.viajes.Fields(QStringLiteral("Descarga")).Doble(), 24000);
    EXPECT_EQ(columna(d.viajes, "Referencia"), QStringLiteral("PED-7"));
    EXPECT_EQ(columna(d.viajes, "Albaran"), QStringLiteral("ALB-7"));
    EXPECT_EQ(d.viajes.Fields(QStringLiteral("TrCar_Fecha")).Fecha(), QDate(2026, 3, 2));
    d.viajes.MoveNext();
    EXPECT_EQ(columna(d.viajes, "PaisDesCargaCod"), QString());

    // PLT46 with one invoice adds its lines without a leg; series A goes by
    // voyage, legs and rows alike.
    e->parametro(QStringLiteral("PAR_PLANTILLA_FAC"), QStringLiteral("plt46"));
    d = LeeDatosTransportes(e->bd(), {id});
    EXPECT_EQ(d.reporte.nombre, QStringLiteral("CrFacturaPlt46"));
    EXPECT_EQ(valores(d.viajes, "Viaje"), (QStringList{"V/7", "V/3", ""}));
    EXPECT_EQ(valores(d.viajes, "Origen").last(), QStringLiteral("Paralización del camión"));
    EXPECT_EQ(valores(d.viajes, "TrDes_Id").last(), QStringLiteral("0"));
    const qint32 serieA = facturaViajes(QStringLiteral("A"));
    d = LeeDatosTransportes(e->bd(), {serieA});
    EXPECT_EQ(valores(d.viajes, "Viaje"), (QStringList{"", "V/3", "V/7"}));
    EXPECT_EQ(valores(d.filas, "Lav_Des").first(), QStringLiteral("Paralización del camión"));
    // Two invoices: their legs only, each once, without the stoppages.
    d = LeeDatosTransportes(e->bd(), {id, serieA});
    EXPECT_EQ(valores(d.viajes, "Viaje"), (QStringList{"V/7", "V/3"}));
}

TEST_P(FamiliaTransportes, FeePeriodOfSeriesZAndTheCopies) {
    const qint32 id = facturaViajes(QStringLiteral("Z"));
    e->parametro(QStringLiteral("PAR_PLANTILLA_FAC"), QStringLiteral("PLT45"));
    DatosTransportes d = LeeDatosTransportes(e->bd(), {id});
    EXPECT_EQ(d.reporte.nombre, QStringLiteral("CrFacturaPlt45Tf"));
    EXPECT_EQ(d.reporte.modo, 2);
    EXPECT_FALSE(d.nuevaGestion);
    EXPECT_EQ(d.viajes.RecordCount(), 3); // PLT45 with one invoice: the stoppage too

    const qint64 pro =
        inserta(QStringLiteral("INSERT INTO TfPro (TfPro_Des) VALUES (?) RETURNING TfPro_Id"),
                {QStringLiteral("Suministro de agua")});
    const qint64 periodo = inserta(
        QStringLiteral("INSERT INTO TfFac (TfFac_IdTfPro, TfFac_Fecha, TfFac_FIni, TfFac_FFin) "
                       "VALUES (?, ?, ?, ?) RETURNING TfFac_Id"),
        {pro, fecha(3, 1), fecha(2, 1), fecha(2, 28)});
    e->cn().Execute(QStringLiteral("INSERT INTO TfDia (TfDia_IdTfFac, TfDia_IdFav) VALUES (?, ?)"),
                    {periodo, id});
    d = LeeDatosTransportes(e->bd(), {id});
    EXPECT_TRUE(d.nuevaGestion);
    EXPECT_EQ(d.cuotas, QStringLiteral("marzo 2026 - Suministro de agua -"));
    EXPECT_EQ(d.consumos, QStringLiteral("De 01/02/2026 A 28/02/2026"));

    // The period reaches the report; Par_NCopFac above 1 sets the copies.
    VKFACVENTAS& f = e->factura();
    f.NumCopias = 1;
    e->parametro(QStringLiteral("Par_NCopFac"), 3);
    f.EmisionMultiplesFacturas(0, true, {id});
    EXPECT_TRUE(mensajes().isEmpty()) << mensajes().join(QLatin1Char('\n')).toStdString();
    EXPECT_EQ(f.NumCopias, 3);
    EXPECT_TRUE(
        EnOrden(TextoPdf(f.PdfOutFile), {QStringLiteral("marzo 2026 - Suministro de agua -"),
                                         QStringLiteral("De 01/02/2026 A 28/02/2026")}));
    e->parametro(QStringLiteral("Par_NCopFac"), 1);
    f.NumCopias = 2;
    f.EmisionMultiplesFacturas(0, true, {id});
    EXPECT_EQ(f.NumCopias, 2);
}

TEST_P(FamiliaTransportes, DesignEighteenPrintsTheVoyages) {
    const qint32 id = facturaViajes();
    VKFACVENTAS& f = e->factura();
    f.EmisionMultiplesFacturas(0, true, {id});
    EXPECT_TRUE(mensajes().isEmpty()) << mensajes().join(QLatin1Char('\n')).toStdString();
    ASSERT_TRUE(QFileInfo::exists(f.PdfOutFile));
    EXPECT_TRUE(qpdfAcepta(f.PdfOutFile));
    const QString t = TextoPdf(f.PdfOutFile);
    EXPECT_TRUE(EnOrden(
        t, {QStringLiteral("Porte Valencia - Lyon"), QStringLiteral("Paralización del camión"),
            QStringLiteral("Detalle de los viajes"), QStringLiteral("V/7"),
            QStringLiteral("Valencia - Cerámicas Turia"), QStringLiteral("ALB-7"),
            QStringLiteral("1234-BCD / R-0001-BBB"), QStringLiteral("Valencia - Destinatario-FR"),
            QStringLiteral("V/3"), QStringLiteral("Sagunto - Destinatario")}))
        << t.toStdString();
}

VK_EN_AMBOS_MOTORES(FamiliaTransportes);

TEST(ReporteTransportes, ByKeyAndSeries) {
    const auto r = [](const char* clave, const char* serie) {
        const ReporteTransportes t =
            fnReporteTransportes(QString::fromLatin1(clave), QString::fromLatin1(serie));
        return t.nombre + QLatin1Char(':') + QString::number(t.modo);
    };
    EXPECT_EQ(r("plt06", ""), QStringLiteral("CrFacturaTransporte1:0"));
    EXPECT_EQ(r("PLT47", ""), QStringLiteral("CrFacturaTransporte1:0"));
    EXPECT_EQ(r("PLT46", "A"), QStringLiteral("CrFacturaPlt46:1"));
    EXPECT_EQ(r("PLT45", "e"), QStringLiteral("CrFacturaPlt45Tr:1"));
    EXPECT_EQ(r("PLT45", "M"), QStringLiteral("CrFacturaPlt45Tr:1"));
    EXPECT_EQ(r("PLT45", "Z"), QStringLiteral("CrFacturaPlt45Tf:2"));
    EXPECT_EQ(r("PLT45", "A"), QStringLiteral("CrFacturaPlt45Ge:-1"));
    EXPECT_EQ(r("", "Z"), QStringLiteral("CrFacturaTransporte2:1"));
}

} // namespace
} // namespace vk::prueba
