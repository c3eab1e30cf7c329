// The chain of invoicing records as the invoicing, the edits, the credit
// notes and the deletions write it, on both backends: one record per
// invoice in its transaction, the types and corrections the agency expects,
// a chain that verifies and a database that refuses to change it.
#include "EmpresaPrueba.h"

#include <AlbaranesIncorporados.h>
#include <CadenaFiscal.h>
#include <CopiaFactura.h>
#include <EdicionFactura.h>
#include <FormatoFiscal.h>
#include <MensajesFiscal.h>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <TesoreriaIncorporada.h>
#include <VerificaCadena.h>
#include <frmIniFav.h>

namespace vk::prueba {
namespace {

const QDate kDia2(2026, 3, 2);
const QDate kDia5(2026, 3, 5);

class CadenaFiscal : public PruebaMotores {
protected:
    void SetUp() override {
        suite::RegistraTesoreria();
        suite::RegistraAlbaranes();
        e = std::make_unique<EmpresaPrueba>(GetParam());
        contado = e->formaPago(QStringLiteral("Contado"), {{0, 100, 1}});
        ClientePrueba c;
        c.regimen = 2; // with equivalence surcharge
        c.idFco = contado;
        cliente = e->cliente(c);
        for (int i = 0; i < 4; ++i) {
            e->ui().dialogos.push_back(
                [](DialogoModelo& d) { return dynamic_cast<frmIniFav&>(d).cmdInforme(); });
        }
    }

    // The header of an invoice of the customer in series A on `fecha`.
    CabeceraFactura cabecera(const QDate& fecha) const {
        CabeceraFactura h;
        h.serie = QStringLiteral("A");
        h.fecha = fecha;
        h.idCliente = cliente;
        h.idFco = contado;
        return h;
    }
    qint32 factura(const QDate& fecha, std::vector<LineaPrueba> lineas = {{100}, {40, 2, 2}}) {
        const qint32 nota = e->albaran(cliente, fecha, 2, lineas);
        const ResultadoFacturacion r = FacturaAlbaranes(e->factura(), cabecera(fecha), {nota});
        EXPECT_EQ(r.estado, EstadoFacturacion::Hecha) << r.motivo.toStdString();
        return r.idFactura;
    }
    qint64 cuenta(const QString& sql, const QVariantList& p = {}) { return e->cuenta(sql, p); }
    std::vector<fiscal::RegistroGuardado> registros(qint32 idFactura) {
        return fiscal::fnRegistrosFactura(e->bd(), idFactura);
    }
    // Every record, wrapped as a submission, checked by the agency's schema.
    void validaContraEsquema() {
        QString documento =
            QStringLiteral(
                "<sfLR:RegFactuSistemaFacturacion xmlns:sfLR=\"%1\" xmlns:sf=\"%2\"><sfLR:Cabecera>"
                "<sf:ObligadoEmision><sf:NombreRazon>Empresa</sf:NombreRazon><sf:NIF>B12345674</"
                "sf:NIF></sf:ObligadoEmision></sfLR:Cabecera>")
                .arg(fiscal::kNsSuministroLR, fiscal::kNsSuministroInformacion);
        for (Recordset rs =
                 e->cn().Execute(QStringLiteral("SELECT Vfr_Xml FROM VfRegistro ORDER BY Vfr_Id"));
             !rs.Eof(); rs.MoveNext()) {
            documento += QStringLiteral("<sfLR:RegistroFactura>") + rs.Fields(0).Texto() +
                         QStringLiteral("</sfLR:RegistroFactura>");
        }
        documento += QStringLiteral("</sfLR:RegFactuSistemaFacturacion>");
        QTemporaryDir dir;
        QFile f(dir.filePath(QStringLiteral("envio.xml")));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(documento.toUtf8());
        f.close();
        QProcess x;
        x.start(QStringLiteral("xmllint"),
                {QStringLiteral("--noout"), QStringLiteral("--schema"),
                 QStringLiteral(VK_ESQUEMAS "/SuministroLR.xsd"), f.fileName()});
        ASSERT_TRUE(x.waitForFinished(60000));
        EXPECT_EQ(x.exitCode(), 0) << x.readAllStandardError().toStdString();
    }

    std::unique_ptr<EmpresaPrueba> e;
    qint32 contado = 0, cliente = 0;
};

TEST_P(CadenaFiscal, EachInvoiceHasOneAltaChainedToTheOneBefore) {
    const qint32 a = factura(kDia2);
    const qint32 b = factura(kDia5);
    const auto ra = registros(a);
    const auto rb = registros(b);
    ASSERT_EQ(ra.size(), 1u);
    ASSERT_EQ(rb.size(), 1u);
    EXPECT_EQ(ra[0].tipo, QStringLiteral("A"));
    EXPECT_EQ(ra[0].tipoFactura, QStringLiteral("F1"));
    EXPECT_EQ(ra[0].numSerie, QStringLiteral("A/1"));
    EXPECT_EQ(ra[0].fecha, QStringLiteral("02-03-2026"));
    EXPECT_EQ(ra[0].nif, QStringLiteral("B12345674"));
    EXPECT_TRUE(ra[0].huellaAnterior.isEmpty());
    EXPECT_TRUE(ra[0].xml.contains(QLatin1String("<sf:PrimerRegistro>S</sf:PrimerRegistro>")));
    EXPECT_EQ(rb[0].huellaAnterior, ra[0].huella);
    EXPECT_EQ(rb[0].idAnterior, ra[0].id);
    EXPECT_EQ(rb[0].huella, rb[0].HuellaCalculada());
    // Totals without the withholding; the surcharge is in the quota.
    const Recordset fav = e->cn().Execute(
        QStringLiteral("SELECT Fav_Biva1 + Fav_Biva2 + Fav_Biva3, Fav_ImpIva1 + Fav_ImpIva2 + "
                       "Fav_ImpIva3 + Fav_ImpRec1 + Fav_ImpRec2 + Fav_ImpRec3 FROM Fav WHERE "
                       "Fav_Id = ?"),
        {a});
    EXPECT_EQ(ra[0].cuotaTotal, QString::number(fav.Fields(1).Doble(), 'f', 2));
    EXPECT_EQ(ra[0].importeTotal,
              QString::number(fav.Fields(0).Doble() + fav.Fields(1).Doble(), 'f', 2));
    EXPECT_TRUE(ra[0].xml.contains(QLatin1String("<sf:CuotaRecargoEquivalencia>")));
    EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM VfEnvio WHERE Vfe_Estado = 0")), 2);
    const fiscal::ResultadoVerificacion v = fiscal::fnVerificaCadena(e->bd());
    EXPECT_TRUE(v.Correcta()) << v.descripcion.toStdString();
    EXPECT_EQ(v.registros, 2);
    validaContraEsquema();
}

TEST_P(CadenaFiscal, AnInvoiceThatIsUndoneLeavesNoRecordAndNoneWhenRecordsAreOff) {
    // A failure after the save (the receipts' table refuses) undoes the
    // whole invoice: no record may stay behind.
    RechazaInserciones(e->bd(), QStringLiteral("VfEnvio"));
    const qint32 nota = e->albaran(cliente, kDia2, 2, {{100}});
    const ResultadoFacturacion r = FacturaAlbaranes(e->factura(), cabecera(kDia2), {nota});
    EXPECT_EQ(r.estado, EstadoFacturacion::NoHecha);
    EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav")), 0);
    EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM VfRegistro")), 0);
    EXPECT_EQ(cuenta(QStringLiteral("SELECT Cav_Situa FROM Cav WHERE Cav_Id = ?"), {nota}), 1);

    e->parametro(QStringLiteral("Par_VfActivo"), 0);
    const ResultadoFacturacion sin = FacturaAlbaranes(e->factura(), cabecera(kDia2), {nota});
    EXPECT_EQ(sin.estado, EstadoFacturacion::Hecha) << sin.motivo.toStdString();
    EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM VfRegistro")), 0);
}

TEST_P(CadenaFiscal, AWithoutNifCompanyIssuesNothing) {
    e->parametro(QStringLiteral("Par_Doc"), QString());
    const qint32 nota = e->albaran(cliente, kDia2, 2, {{100}});
    const ResultadoFacturacion r = FacturaAlbaranes(e->factura(), cabecera(kDia2), {nota});
    EXPECT_EQ(r.estado, EstadoFacturacion::NoHecha);
    EXPECT_TRUE(r.motivo.contains(mensajes::kSinNifEmisor)) << r.motivo.toStdString();
    EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav")), 0);
}

TEST_P(CadenaFiscal, ACreditNoteIsRectifyingAndNamesTheInvoiceItCorrects) {
    const qint32 origen = factura(kDia2);
    const ResultadoFacturacion r = msCopiaFactura(
        e->factura(), fnCopiaDe(e->bd(), origen, QStringLiteral("A"), kDia5, std::nullopt, true));
    ASSERT_EQ(r.estado, EstadoFacturacion::Hecha) << r.motivo.toStdString();
    const auto ra = registros(r.idFactura);
    ASSERT_EQ(ra.size(), 1u);
    EXPECT_EQ(ra[0].tipoFactura, QStringLiteral("R1"));
    EXPECT_TRUE(ra[0].importeTotal.startsWith(u'-'));
    EXPECT_TRUE(
        ra[0].xml.contains(QLatin1String("<sf:TipoRectificativa>I</sf:TipoRectificativa>")));
    EXPECT_TRUE(ra[0].xml.contains(QLatin1String(
        "<sf:FacturasRectificadas><sf:IDFacturaRectificada><sf:IDEmisorFactura>B12345674</"
        "sf:IDEmisorFactura><sf:NumSerieFactura>A/1</sf:NumSerieFactura><sf:FechaExpedicionFactura>"
        "02-03-2026</sf:FechaExpedicionFactura></sf:IDFacturaRectificada>")));
    // The source's record is untouched: still one, still in force.
    EXPECT_EQ(registros(origen).size(), 1u);

    // A negative invoice that names none is never an F1.
    const qint32 negativa = factura(kDia5, {{-50}});
    EXPECT_EQ(registros(negativa).at(0).tipoFactura, QStringLiteral("R4"));
    validaContraEsquema();
}

TEST_P(CadenaFiscal, AnEditCorrectsTheRecordAndADateChangeCancelsIt) {
    const qint32 id = factura(kDia2);
    // Remarks are not in the record: nothing new.
    EdicionFactura obs;
    obs.idFactura = id;
    obs.observaciones = QStringLiteral("Entregado en mano");
    msRecalculaFactura(e->factura(), obs);
    EXPECT_EQ(registros(id).size(), 1u);
    // A discount changes the amounts: a corrected alta of the same invoice.
    EdicionFactura dto;
    dto.idFactura = id;
    dto.dto1 = 10;
    msRecalculaFactura(e->factura(), dto);
    auto r = registros(id);
    ASSERT_EQ(r.size(), 2u);
    EXPECT_EQ(r[1].tipo, QStringLiteral("A"));
    EXPECT_EQ(r[1].subsanacion, QStringLiteral("S"));
    EXPECT_TRUE(r[1].xml.contains(QLatin1String("<sf:Subsanacion>S</sf:Subsanacion>")));
    EXPECT_NE(r[1].importeTotal, r[0].importeTotal);
    // Another date changes the invoice's identity: the old one cancelled,
    // the new one registered.
    EdicionFactura fecha;
    fecha.idFactura = id;
    fecha.fecha = kDia5;
    msRecalculaFactura(e->factura(), fecha);
    r = registros(id);
    ASSERT_EQ(r.size(), 4u);
    EXPECT_EQ(r[2].tipo, QStringLiteral("N"));
    EXPECT_EQ(r[2].fecha, QStringLiteral("02-03-2026"));
    EXPECT_TRUE(r[2].xml.contains(QLatin1String("<sf:RegistroAnulacion")));
    EXPECT_EQ(r[3].tipo, QStringLiteral("A"));
    EXPECT_EQ(r[3].fecha, QStringLiteral("05-03-2026"));
    EXPECT_TRUE(r[3].subsanacion.isEmpty());
    EXPECT_TRUE(fiscal::fnVerificaCadena(e->bd()).Correcta());
    validaContraEsquema();
}

TEST_P(CadenaFiscal, DeletingCancelsTheRecordAndTheRecordsOutliveTheInvoice) {
    const qint32 a = factura(kDia2);
    const qint32 b = factura(kDia2);
    const qint32 c = factura(kDia5);
    msBorraFactura(e->factura(), c);
    msBorraFacturas(e->factura(), {a, b}, false);
    EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav")), 0);
    EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM VfRegistro WHERE Vfr_Tipo = 'N'")), 3);
    for (const qint32 id : {a, b, c}) {
        const auto r = registros(id);
        ASSERT_EQ(r.size(), 2u);
        EXPECT_EQ(r[1].tipo, QStringLiteral("N"));
        EXPECT_EQ(r[1].numSerie, r[0].numSerie);
    }
    EXPECT_TRUE(fiscal::fnVerificaCadena(e->bd()).Correcta());
    validaContraEsquema();
}

TEST_P(CadenaFiscal, TheDatabaseRefusesToChangeARecordAndVerificationNamesAnAlteredOne) {
    factura(kDia2);
    const qint32 b = factura(kDia2);
    factura(kDia5);
    EXPECT_THROW(e->cn().Execute(QStringLiteral("UPDATE VfRegistro SET Vfr_ImporteTotal = "
                                                "'1.00' WHERE Vfr_IdFactura = ?"),
                                 {b}),
                 ErrorBd);
    EXPECT_THROW(e->cn().Execute(QStringLiteral("DELETE FROM VfRegistro")), ErrorBd);
    EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM VfRegistro")), 3);

    // Someone with the database's own tools drops the guard and alters one.
    if (e->bd().dialecto().esSQLite()) {
        e->cn().Execute(QStringLiteral("DROP TRIGGER vfregistro_sin_cambios"));
    } else {
        e->cn().Execute(QStringLiteral("DROP TRIGGER vfregistro_inalterable ON VfRegistro"));
    }
    e->cn().Execute(
        QStringLiteral("UPDATE VfRegistro SET Vfr_ImporteTotal = '1.00' WHERE Vfr_IdFactura = ?"),
        {b});
    const fiscal::ResultadoVerificacion v = fiscal::fnVerificaCadena(e->bd());
    EXPECT_FALSE(v.Correcta());
    EXPECT_EQ(v.idRoto, registros(b).at(0).id);
    EXPECT_TRUE(v.descripcion.contains(QLatin1String("A/2"))) << v.descripcion.toStdString();
    EXPECT_EQ(v.registros, 3);
    // And no invoice is chained to a broken record.
    const qint32 nota = e->albaran(cliente, kDia5, 2, {{100}});
    e->cn().Execute(
        QStringLiteral("UPDATE VfRegistro SET Vfr_Huella = 'X' WHERE Vfr_Id = (SELECT MAX(Vfr_Id) "
                       "FROM VfRegistro)"));
    const ResultadoFacturacion r = FacturaAlbaranes(e->factura(), cabecera(kDia5), {nota});
    EXPECT_EQ(r.estado, EstadoFacturacion::NoHecha);
    EXPECT_TRUE(r.motivo.contains(u"no está bien encadenado")) << r.motivo.toStdString();
}

TEST_P(CadenaFiscal, AClockMoreThanAMinuteBehindTheLastRecordStopsTheInvoicing) {
    factura(kDia2);
    // The last record says it was made an hour from now, as a machine whose
    // clock runs ahead would have written it.
    const auto u = fiscal::fnUltimoRegistro(e->bd());
    ASSERT_TRUE(u);
    fiscal::RegistroGuardado adelantado = *u;
    adelantado.huellaAnterior = u->huella;
    adelantado.fechaHora = fiscal::fnFechaHoraFiscal(QDateTime::currentDateTime().addSecs(3600));
    adelantado.huella = adelantado.HuellaCalculada();
    e->cn().Execute(
        QStringLiteral("INSERT INTO VfRegistro (Vfr_Tipo, Vfr_IdFactura, Vfr_IdAnterior, Vfr_Nif, "
                       "Vfr_NumSerie, Vfr_Fecha, Vfr_TipoFactura, Vfr_CuotaTotal, "
                       "Vfr_ImporteTotal, Vfr_HuellaAnterior, Vfr_FechaHora, Vfr_Huella) VALUES "
                       "(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
        {adelantado.tipo, adelantado.idFactura, u->id, adelantado.nif, adelantado.numSerie,
         adelantado.fecha, adelantado.tipoFactura, adelantado.cuotaTotal, adelantado.importeTotal,
         adelantado.huellaAnterior, adelantado.fechaHora, adelantado.huella});
    const qint32 nota = e->albaran(cliente, kDia5, 2, {{100}});
    const ResultadoFacturacion r = FacturaAlbaranes(e->factura(), cabecera(kDia5), {nota});
    EXPECT_EQ(r.estado, EstadoFacturacion::NoHecha);
    EXPECT_TRUE(r.motivo.contains(QLatin1String("Corrija el reloj"))) << r.motivo.toStdString();
    EXPECT_EQ(cuenta(QStringLiteral("SELECT Cav_Situa FROM Cav WHERE Cav_Id = ?"), {nota}), 1);
}

VK_EN_AMBOS_MOTORES(CadenaFiscal);

} // namespace
} // namespace vk::prueba
