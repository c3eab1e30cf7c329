// Credit notes and copies of an invoice: new notes from the source's through
// the built-in delivery note class, then the invoice of them as the invoicing
// makes one; on both backends.
#include "EmpresaPrueba.h"

#include <AlbaranesIncorporados.h>
#include <CopiaFactura.h>
#include <EdicionFactura.h>
#include <MensajesMotor.h>
#include <TesoreriaIncorporada.h>
#include <frmIniFav.h>

namespace vk::prueba {
namespace {

// Before and after the change of rates of 1 September 2012.
const QDate kAgosto2012(2012, 8, 20);
const QDate kTipos2012(2012, 8, 1);
const QDate kMarzo2026(2026, 3, 2);

class CopiaFacturas : public PruebaMotores {
protected:
    void SetUp() override {
        suite::RegistraTesoreria();
        suite::RegistraAlbaranes();
        e = std::make_unique<EmpresaPrueba>(GetParam());
        contado = e->formaPago(QStringLiteral("Contado"), {{0, 100, 1}});
        // Equivalence surcharge and a non-fiscal retention of 2 %.
        ClientePrueba c;
        c.regimen = 2;
        c.idFco = contado;
        c.retNf = 2;
        cliente = e->cliente(c);
        ClientePrueba otro;
        otro.idFco = contado;
        general = e->cliente(otro);
        // A series' first number is the dialog's default, whenever asked.
        for (int i = 0; i < 4; ++i) {
            e->ui().dialogos.push_back(
                [](DialogoModelo& d) { return dynamic_cast<frmIniFav&>(d).cmdInforme(); });
        }
    }

    // An invoice of August 2012 at 18 % (and 4 % surcharge), with both
    // header discounts, a residue and a per-unit discount on its lines.
    qint32 facturaDe2012() {
        const qint32 nota =
            e->albaran(cliente, kAgosto2012, 2,
                       {{100.10, 2, 1, kTipos2012, 3.3, 1.25}, {33.33, 2, 1, kTipos2012}});
        CabeceraFactura c;
        c.serie = QStringLiteral("A");
        c.fecha = kAgosto2012;
        c.idCliente = cliente;
        c.idFco = contado;
        c.dto1 = 10;
        c.dto2 = 5;
        c.retencionNF = 2;
        const ResultadoFacturacion r = FacturaAlbaranes(e->factura(), c, {nota});
        EXPECT_EQ(r.estado, EstadoFacturacion::Hecha) << r.motivo.toStdString();
        return r.idFactura;
    }
    ResultadoFacturacion copia(qint32 origen, bool abono, const QString& serie,
                               const QDate& fecha = kMarzo2026) {
        return msCopiaFactura(e->factura(),
                              fnCopiaDe(e->bd(), origen, serie, fecha, std::nullopt, abono));
    }
    QVariant fav(const char* columna, qint32 id) {
        // The column is one of the schema's, never user text.
        return e->cn()
            .Execute(QStringLiteral("SELECT %1 FROM Fav WHERE Fav_Id = ?")
                         .arg(QString::fromLatin1(columna)),
                     {id})
            .Fields(0)
            .Value();
    }
    QString filas(const QString& sql, const QVariantList& params) {
        QStringList r;
        for (Recordset rs = e->cn().Execute(sql, params); !rs.Eof(); rs.MoveNext()) {
            QStringList c;
            for (int i = 0; i < rs.FieldCount(); ++i) {
                c << rs.Fields(i).Texto();
            }
            r << c.join(u'|');
        }
        return r.join(u'\n');
    }
    // The source invoice, its notes and lines, receipts and retention.
    QString fuente(qint32 id) {
        return filas(QStringLiteral("SELECT * FROM Fav WHERE Fav_Id = ?"), {id}) +
               filas(QStringLiteral("SELECT * FROM Cav WHERE Cav_IdFactura = ? ORDER BY Cav_Id"),
                     {id}) +
               filas(QStringLiteral("SELECT Lav.* FROM Lav INNER JOIN Cav ON Cav_Id = Lav_IdCav "
                                    "WHERE Cav_IdFactura = ? ORDER BY Lav_Id"),
                     {id}) +
               filas(QStringLiteral("SELECT * FROM Rec WHERE Rec_IdFac = ? ORDER BY Rec_Id"),
                     {id}) +
               filas(QStringLiteral("SELECT * FROM RetNF WHERE RetNF_IdFactura = ?"), {id});
    }

    std::unique_ptr<EmpresaPrueba> e;
    qint32 contado = 0, cliente = 0, general = 0;
};

TEST_P(CopiaFacturas, ACreditNoteKeepsTheRatesOfTheInvoiceItCorrectsAndIsItsExactNegative) {
    const qint32 origen = facturaDe2012();
    ASSERT_EQ(fav("Fav_Iva1", origen).toDouble(), 18);
    const QString antes = fuente(origen);

    const ResultadoFacturacion r = copia(origen, true, QStringLiteral("R"));
    ASSERT_EQ(r.estado, EstadoFacturacion::Hecha) << r.motivo.toStdString();
    EXPECT_EQ(r.factura, QStringLiteral("R/1"));
    const qint32 abono = r.idFactura;
    EXPECT_EQ(fav("Fav_IdRectificada", abono).toLongLong(), origen);
    EXPECT_EQ(fav("Fav_Iva1", abono).toDouble(), 18);
    EXPECT_EQ(fav("Fav_Rec1", abono).toDouble(), 4);
    for (const char* columna :
         {"Fav_Bruto", "Fav_ImpDto1", "Fav_Bruto1", "Fav_ImpDto2", "Fav_ImpDtoPie1", "Fav_Biva1",
          "Fav_ImpIva1", "Fav_ImpRec1", "Fav_ImpRet", "Fav_Total", "Fav_IRetNf", "Fav_Liquido"}) {
        // To the cent, compared as cents.
        EXPECT_EQ(qRound64(fav(columna, abono).toDouble() * 100),
                  -qRound64(fav(columna, origen).toDouble() * 100))
            << columna;
    }
    EXPECT_NE(fav("Fav_Total", origen).toDouble(), 0);
    // Every line the exact negative, the prices and tax rows kept.
    EXPECT_EQ(filas(QStringLiteral("SELECT -Lav_Cantidad, Lav_Precio, -Lav_Importe, "
                                   "-Lav_ImpResDes, -Lav_ImpDtoUnidad, Lav_Tiva FROM Lav INNER "
                                   "JOIN Cav ON Cav_Id = Lav_IdCav WHERE Cav_IdFactura = ? ORDER "
                                   "BY Lav_Orden"),
                    {abono}),
              filas(QStringLiteral("SELECT Lav_Cantidad, Lav_Precio, Lav_Importe, Lav_ImpResDes, "
                                   "Lav_ImpDtoUnidad, Lav_Tiva FROM Lav INNER JOIN Cav ON Cav_Id = "
                                   "Lav_IdCav WHERE Cav_IdFactura = ? ORDER BY Lav_Orden"),
                    {origen}));
    // No receipts for a credit note unless the company asks for them.
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Rec WHERE Rec_IdFac = ?"), {abono}),
              0);
    EXPECT_EQ(fuente(origen), antes);

    e->parametro(QStringLiteral("Par_RecAbonos"), 1);
    const ResultadoFacturacion otro = copia(origen, true, QStringLiteral("R"));
    ASSERT_EQ(otro.estado, EstadoFacturacion::Hecha);
    EXPECT_EQ(otro.factura, QStringLiteral("R/2"));
    EXPECT_DOUBLE_EQ(
        e->cn()
            .Execute(QStringLiteral("SELECT SUM(Rec_Importe) FROM Rec WHERE Rec_IdFac = ?"),
                     {otro.idFactura})
            .Fields(0)
            .Doble(),
        fav("Fav_Liquido", otro.idFactura).toDouble());
    EXPECT_EQ(fuente(origen), antes);
}

TEST_P(CopiaFacturas, ACopyDatedTodayTakesTodaysRatesAndAnotherCustomersData) {
    const qint32 origen = facturaDe2012();
    const ResultadoFacturacion r = copia(origen, false, QStringLiteral("A"));
    ASSERT_EQ(r.estado, EstadoFacturacion::Hecha) << r.motivo.toStdString();
    EXPECT_EQ(r.factura, QStringLiteral("A/2"));
    EXPECT_EQ(fav("Fav_Iva1", r.idFactura).toDouble(), 21);
    EXPECT_EQ(fav("Fav_Rec1", r.idFactura).toDouble(), 5.2);
    EXPECT_EQ(fav("Fav_IdRectificada", r.idFactura).toLongLong(), 0);
    EXPECT_EQ(fav("Fav_Bruto", r.idFactura).toDouble(), fav("Fav_Bruto", origen).toDouble());
    EXPECT_GT(
        e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Rec WHERE Rec_IdFac = ?"), {r.idFactura}),
        0);

    // To another customer: the notes and the invoice are its.
    const ResultadoFacturacion suya = msCopiaFactura(
        e->factura(), fnCopiaDe(e->bd(), origen, QStringLiteral("A"), kMarzo2026, general, false));
    ASSERT_EQ(suya.estado, EstadoFacturacion::Hecha) << suya.motivo.toStdString();
    EXPECT_EQ(fav("Fav_IdCli", suya.idFactura).toLongLong(), general);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE Cav_IdFactura = ? AND "
                                       "Cav_IdCli = ? AND Cav_IdTiva = 1"),
                        {suya.idFactura, general}),
              1);
    // Its own regime: no surcharge, and its own retention (none).
    EXPECT_EQ(fav("Fav_ImpRec1", suya.idFactura).toDouble(), 0);
    EXPECT_EQ(fav("Fav_IRetNf", suya.idFactura).toDouble(), 0);
}

TEST_P(CopiaFacturas, AnInvoiceWithoutNotesGivesOneWithoutLinesAndAFailureLeavesNothing) {
    const qint32 origen = facturaDe2012();
    const qint64 notas = e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Cav"));
    // A later invoice in series B: a copy dated before it is refused whole.
    const qint32 nota = e->albaran(general, kMarzo2026, 1, {{10}});
    CabeceraFactura b;
    b.serie = QStringLiteral("B");
    b.fecha = QDate(2026, 4, 1);
    b.idCliente = general;
    b.idFco = contado;
    ASSERT_EQ(FacturaAlbaranes(e->factura(), b, {nota}).estado, EstadoFacturacion::Hecha);
    const qint64 facturas = e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav"));
    const ResultadoFacturacion r = copia(origen, true, QStringLiteral("B"));
    EXPECT_EQ(r.estado, EstadoFacturacion::NoHecha);
    EXPECT_TRUE(r.motivo.startsWith(mensajes::kFechaInferior)) << r.motivo.toStdString();
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav")), facturas);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Cav")), notas + 1);

    // The source's note taken off: its copy has no lines and no amounts.
    EdicionFactura quita;
    quita.idFactura = origen;
    quita.albaranQuitado = static_cast<qint32>(
        e->cuenta(QStringLiteral("SELECT Cav_Id FROM Cav WHERE Cav_IdFactura = ?"), {origen}));
    msRecalculaFactura(e->factura(), quita);
    const ResultadoFacturacion vacia = copia(origen, false, QStringLiteral("A"));
    ASSERT_EQ(vacia.estado, EstadoFacturacion::Hecha) << vacia.motivo.toStdString();
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE Cav_IdFactura = ?"),
                        {vacia.idFactura}),
              0);
    EXPECT_EQ(fav("Fav_Total", vacia.idFactura).toDouble(), 0);
}

VK_EN_AMBOS_MOTORES(CopiaFacturas);

} // namespace
} // namespace vk::prueba
