// The invoice edit screen driven as a person would: loading and walking a
// series, the refusals and their texts, the manual total and its undo,
// deleting the last invoice, dates between neighbours, a change of series
// and of customer, read-only mode; on both backends.
#include "EmisorAnotado.h"
#include "EmpresaPrueba.h"

#include <EdicionFactura.h>
#include <ErrorBd.h>
#include <FacturacionAlbaranes.h>
#include <MensajesMotor.h>
#include <MensajesRuns.h>
#include <RegistroSuite.h>
#include <frmEdicionFacturas.h>
#include <frmIniFav.h>
#include <map>

namespace vk::prueba {
namespace {

const QDate kDia1(2026, 3, 1);
const QDate kDia5(2026, 3, 5);
const QDate kDia10(2026, 3, 10);
const QDate kDia20(2026, 3, 20);

class EdicionFacturas : public PruebaMotores {
protected:
    void SetUp() override {
        suite::RegistraComponentesSuite();
        e = std::make_unique<EmpresaPrueba>(GetParam());
        contado = e->formaPago(QStringLiteral("Contado"), {{0, 100, 1}});
        plazos = e->formaPago(QStringLiteral("30-60"), {{30, 50, 1}, {60, 50, 1}});
        ClientePrueba c;
        c.idFco = contado;
        c.retNf = 2;
        cliente = e->cliente(c);
        c.idFco = plazos;
        c.retNf = 0;
        otro = e->cliente(c);
    }

    // A whole invoice, as the batch makes it: totals, receipts, retention.
    qint32 factura(qint32 idCliente, const QDate& fecha, const std::vector<qint32>& notas,
                   const QString& serie = QStringLiteral("A")) {
        CabeceraFactura c;
        c.serie = serie;
        c.fecha = fecha;
        c.idCliente = idCliente;
        c.idFco = idCliente == cliente ? contado : plazos;
        c.retencionNF = idCliente == cliente ? 2 : 0;
        e->ui().dialogos.push_back(
            [](DialogoModelo& d) { return dynamic_cast<frmIniFav&>(d).cmdInforme(); });
        const ResultadoFacturacion r = FacturaAlbaranes(e->factura(), c, notas);
        e->ui().dialogos.clear();
        EXPECT_EQ(r.estado, EstadoFacturacion::Hecha) << r.motivo.toStdString();
        return r.idFactura;
    }
    qint32 albaran(qint32 idCliente, const QDate& fecha, double importe) {
        return e->albaran(idCliente, fecha, 1, {{importe}, {importe / 2, 1, 2}});
    }
    // Every column of the rows the statement selects, as text: what a
    // person would compare before and after.
    QString filas(const QString& sql, const QVariantList& params = {}) {
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
    QString todo(qint32 id) {
        return filas(QStringLiteral("SELECT * FROM Fav WHERE Fav_Id = ?"), {id}) + u'\n' +
               filas(QStringLiteral("SELECT * FROM Rec WHERE Rec_IdFac = ? ORDER BY Rec_Id"),
                     {id}) +
               u'\n' +
               filas(QStringLiteral("SELECT * FROM RetNF WHERE RetNF_IdFactura = ? ORDER BY "
                                    "RetNF_Id"),
                     {id}) +
               u'\n' +
               filas(QStringLiteral("SELECT * FROM Cav WHERE Cav_IdFactura = ? ORDER BY Cav_Id"),
                     {id}) +
               u'\n' +
               filas(QStringLiteral("SELECT Lav.* FROM Lav INNER JOIN Cav ON Cav_Id = Lav_IdCav "
                                    "WHERE Cav_IdFactura = ? ORDER BY Lav_Id"),
                     {id});
    }
    std::unique_ptr<frmEdicionFacturas> pantalla(qint32 numero, bool soloLectura = false,
                                                 const QString& serie = QStringLiteral("A")) {
        return std::make_unique<frmEdicionFacturas>(e->factura(), serie, numero, soloLectura);
    }
    QStringList preguntas() const {
        QStringList r;
        for (const MensajeVisto& m : e->ui().vistos) {
            if (m.tipo == MensajeVisto::Tipo::Pregunta) {
                r << m.texto;
            }
        }
        return r;
    }
    double fav(const QString& columna, qint32 id) {
        // The column is one of the schema's, never user text.
        return e->cn()
            .Execute(QStringLiteral("SELECT %1 FROM Fav WHERE Fav_Id = ?").arg(columna), {id})
            .Fields(0)
            .Doble();
    }

    std::unique_ptr<EmpresaPrueba> e;
    qint32 contado = 0, plazos = 0, cliente = 0, otro = 0;
};

TEST_P(EdicionFacturas, LoadsWalksTheSeriesAndSaysWhenThereIsNoInvoice) {
    const qint32 a1 = factura(cliente, kDia1, {albaran(cliente, kDia1, 100)});
    factura(otro, kDia5, {albaran(otro, kDia5, 50)});
    factura(cliente, kDia10, {albaran(cliente, kDia10, 80)});
    auto p = pantalla(1);
    ASSERT_TRUE(p->HayFactura());
    EXPECT_EQ(p->IdFactura(), a1);
    EXPECT_EQ(p->Caption.left(19), QStringLiteral("Edición de facturas"));
    EXPECT_EQ(p->Text1[2], QStringLiteral("01/03/2026"));
    // 100 at 21 % and 50 at 10 %, less the retention of 2 % on the bases.
    EXPECT_EQ(p->Text1[10], QStringLiteral("150,00"));
    EXPECT_EQ(p->Text1[11], QStringLiteral("26,00"));
    EXPECT_EQ(p->Text1[4], QStringLiteral("176,00"));
    EXPECT_EQ(p->lblRetencionNF, QStringLiteral("3,00"));
    EXPECT_EQ(p->lblLiquido, QStringLiteral("173,00"));
    EXPECT_EQ(p->dbgAlbaranes.size(), 2u);
    ASSERT_EQ(p->dbgRecibos.size(), 1u);
    EXPECT_DOUBLE_EQ(p->dbgRecibos[0].Rec_Importe, 173);
    EXPECT_EQ(p->cboFpago.value(p->cboFpagoIndex).left(2),
              QStringLiteral("%1").arg(contado, 2, 10, QLatin1Char('0')));

    p->cmdNav(frmEdicionFacturas::Boton::Anterior); // before the first: stays
    EXPECT_EQ(p->Text1[1], QStringLiteral("1"));
    p->cmdNav(frmEdicionFacturas::Boton::Ultima);
    EXPECT_EQ(p->Text1[1], QStringLiteral("3"));
    p->cmdNav(frmEdicionFacturas::Boton::Siguiente); // past the last: stays
    EXPECT_EQ(p->Text1[1], QStringLiteral("3"));
    p->cmdNav(frmEdicionFacturas::Boton::Anterior);
    EXPECT_EQ(p->Text1[1], QStringLiteral("2"));
    EXPECT_EQ(p->cboFpago.value(p->cboFpagoIndex).left(2),
              QStringLiteral("%1").arg(plazos, 2, 10, QLatin1Char('0')));
    EXPECT_EQ(p->dbgRecibos.size(), 2u);

    p->Text1[1] = QStringLiteral("9");
    p->Text1_1_LostFocus();
    EXPECT_TRUE(p->ultimaOrdenFallida);
    ASSERT_FALSE(e->ui().vistos.empty());
    EXPECT_EQ(e->ui().vistos.back().texto, QStringLiteral("Factura Inexistente"));
    EXPECT_EQ(e->ui().vistos.back().titulo, QStringLiteral("Acción Cancelada"));
}

TEST_P(EdicionFacturas, AnAddressOfDirIsShownAsItIsNowAndAnOwnAddressAsStored) {
    const qint32 id = factura(cliente, kDia1, {albaran(cliente, kDia1, 100)});
    e->cn().Execute(QStringLiteral("UPDATE Fav SET Fav_IdDir = 0, Fav_Nombre = ?, Fav_Poblacion = "
                                   "? WHERE Fav_Id = ?"),
                    {QStringLiteral("Calle Mayor"), QStringLiteral("Xàtiva"), id});
    EXPECT_EQ(pantalla(1)->Text1[19], QStringLiteral("Xàtiva"));
    const qint64 dir = e->cn()
                           .Execute(QStringLiteral("INSERT INTO Dir (DIR_NOMBRE, DIR_POBLACION) "
                                                   "VALUES (?, ?) RETURNING DIR_ID"),
                                    {QStringLiteral("Plaza Nueva"), QStringLiteral("Alzira")})
                           .Fields(0)
                           .Entero();
    e->cn().Execute(QStringLiteral("UPDATE Fav SET Fav_IdDir = ? WHERE Fav_Id = ?"), {dir, id});
    auto p = pantalla(1);
    EXPECT_EQ(p->Text1[23], QStringLiteral("Plaza Nueva"));
    EXPECT_EQ(p->Text1[19], QStringLiteral("Alzira"));
}

TEST_P(EdicionFacturas, SavingWithoutChangesLeavesEveryRowAsItWas) {
    const qint32 id = factura(cliente, kDia1, {albaran(cliente, kDia1, 100)});
    const QString antes = todo(id);
    auto p = pantalla(1);
    p->cmdActualiza();
    EXPECT_FALSE(p->ultimaOrdenFallida);
    EXPECT_EQ(preguntas(), QStringList{mensajes::kConfirmaCambios});
    EXPECT_EQ(todo(id), antes);
}

TEST_P(EdicionFacturas, ReadOnlyWritesNothing) {
    const qint32 id = factura(cliente, kDia1, {albaran(cliente, kDia1, 100)});
    const qint32 suelto = albaran(cliente, kDia1, 10);
    const QString antes = todo(id);
    e->ui().ResponderSiSiempre(true);
    auto p = pantalla(1, true);
    EXPECT_FALSE(p->cmdActualiza_Enabled);
    EXPECT_FALSE(p->cmdBorrar_Enabled);
    p->txtFavObs = QStringLiteral("Cambiada");
    p->cmdActualiza();
    p->Text1[6] = QStringLiteral("2");
    p->Text1[5] = QStringLiteral("A");
    p->cmdAñadir();
    p->cmdBorrar();
    p->Check2 = true;
    p->Check2_Click();
    p->Check1 = true;
    p->Check1_Click();
    p->Text1[4] = QStringLiteral("500");
    p->Text1_4_LostFocus();
    p->XPButton2();
    p->msGeneraRecibos();
    EXPECT_EQ(todo(id), antes);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT Cav_Situa FROM Cav WHERE Cav_Id = ?"), {suelto}), 1);
    EXPECT_TRUE(preguntas().isEmpty());
}

TEST_P(EdicionFacturas, AddingANoteIsRefusedWithTheScreensTextsInOrder) {
    const qint32 mia = albaran(cliente, kDia1, 100);
    factura(cliente, kDia10, {mia});
    const qint32 ajena = albaran(otro, kDia1, 10);         // A/2
    const qint32 posterior = albaran(cliente, kDia20, 10); // A/3
    const qint32 facturada = albaran(cliente, kDia1, 10);  // A/4
    factura(cliente, kDia10, {facturada});
    const qint32 buena = albaran(cliente, kDia5, 40); // A/5
    (void)ajena;
    (void)posterior;
    (void)buena;
    auto p = pantalla(1);
    const auto intenta = [&](const QString& numero) {
        p->Text1[5] = QStringLiteral("A");
        p->Text1[6] = numero;
        p->cmdAñadir();
        return e->ui().vistos.back().texto;
    };
    EXPECT_EQ(intenta(QString()), QStringLiteral("Debe introducir un número de albaran"));
    EXPECT_EQ(intenta(QStringLiteral("99")), QStringLiteral("Albaran no existe"));
    EXPECT_EQ(intenta(QStringLiteral("2")),
              QStringLiteral("El albaran tecleado no pertenece al cliente de la factura. Proceso "
                             "cancelado"));
    EXPECT_EQ(intenta(QStringLiteral("3")),
              QStringLiteral("Albaran con fecha 20/03/2026 es posterior a la fecha factura. "
                             "Proceso cancelado"));
    EXPECT_EQ(intenta(QStringLiteral("4")),
              QStringLiteral("El albaran esta en situación no facturable. Proceso cancelado"));
    EXPECT_TRUE(p->ultimaOrdenFallida);
    EXPECT_TRUE(preguntas().isEmpty());

    // Accepted: the note is linked, the totals and the receipts follow.
    e->ui().ResponderSiSiempre(true);
    intenta(QStringLiteral("5"));
    EXPECT_FALSE(p->ultimaOrdenFallida);
    EXPECT_EQ(preguntas().front(), QStringLiteral("Confirma la incorporación del albaran en la "
                                                  "factura"));
    EXPECT_EQ(p->dbgAlbaranes.size(), 4u);
    EXPECT_EQ(p->Text1[10], QStringLiteral("210,00"));
    EXPECT_DOUBLE_EQ(p->dbgRecibos.at(0).Rec_Importe,
                     fav(QStringLiteral("Fav_Liquido"), p->IdFactura()));

    // Removing a note that is not on the invoice names it so.
    p->Text1[5] = QStringLiteral("A");
    p->Text1[6] = QStringLiteral("4");
    p->cmdQuitar();
    EXPECT_EQ(e->ui().vistos.back().texto,
              QStringLiteral("Albaran no dispobible para esta factura"));
}

TEST_P(EdicionFacturas, RemovingTheOnlyNoteWarnsFirstAndLeavesTheInvoiceEmpty) {
    const qint32 nota = albaran(cliente, kDia1, 100);
    const qint32 id = factura(cliente, kDia1, {nota});
    auto p = pantalla(1);
    p->filaAlbaran = 0;
    e->ui().respuestas = {false};
    p->cmdQuitar();
    EXPECT_EQ(preguntas(),
              QStringList{QStringLiteral(
                  "ATENCION: Si elimina el albaran dejará la factura sin contenido.")});
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT Cav_Situa FROM Cav WHERE Cav_Id = ?"), {nota}), 2);

    e->ui().respuestas = {true, true};
    p->cmdQuitar();
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT Cav_Situa FROM Cav WHERE Cav_Id = ?"), {nota}), 1);
    EXPECT_EQ(fav(QStringLiteral("Fav_Total"), id), 0);
    EXPECT_TRUE(p->dbgAlbaranes.empty());
}

TEST_P(EdicionFacturas, DeletesOnlyTheLastOfASeriesAndReopensItsNotes) {
    const qint32 n1 = albaran(cliente, kDia1, 100);
    const qint32 n2 = albaran(cliente, kDia1, 60);
    factura(cliente, kDia1, {n1});
    const qint32 ultima = factura(cliente, kDia5, {n2});
    // A transport leg invoiced by a line of its own on the last invoice's note.
    const qint64 tramo = e->cn()
                             .Execute(QStringLiteral("INSERT INTO TrDes (TrDes_Poblacion) VALUES "
                                                     "(?) RETURNING TrDes_Id"),
                                      {QStringLiteral("Sagunto")})
                             .Fields(0)
                             .Entero();
    const qint32 viaje = e->albaran(cliente, kDia1, 1, {{30}});
    const qint64 linea =
        e->cn()
            .Execute(QStringLiteral("SELECT Lav_Id FROM Lav WHERE Lav_IdCav = ?"), {viaje})
            .Fields(0)
            .Entero();
    e->cn().Execute(QStringLiteral("UPDATE Lav SET Lav_IdViaje = ? WHERE Lav_Id = ?"),
                    {tramo, linea});
    e->cn().Execute(QStringLiteral("UPDATE TrDes SET TrDes_IdLav = ? WHERE TrDes_Id = ?"),
                    {linea, tramo});
    e->cn().Execute(QStringLiteral("UPDATE Cav SET Cav_Situa = 2, Cav_IdFactura = ? WHERE Cav_Id "
                                   "= ?"),
                    {ultima, viaje});

    auto p = pantalla(1);
    e->ui().ResponderSiSiempre(true);
    p->cmdBorrar();
    EXPECT_TRUE(p->ultimaOrdenFallida);
    EXPECT_EQ(e->ui().vistos.back().texto,
              QStringLiteral("Sólo se admite eliminar el último número de una serie"));
    EXPECT_TRUE(preguntas().isEmpty()); // refused before any confirmation

    p->cmdNav(frmEdicionFacturas::Boton::Ultima);
    ASSERT_EQ(p->IdFactura(), ultima);
    ASSERT_GT(
        e->cuenta(QStringLiteral("SELECT COUNT(*) FROM RetNF WHERE RetNF_IdFactura = ?"), {ultima}),
        0);
    p->cmdBorrar();
    EXPECT_FALSE(p->ultimaOrdenFallida);
    EXPECT_EQ(preguntas(),
              (QStringList{QStringLiteral("Confirma que desea borrar la factura"),
                           QStringLiteral("Esta seguro de que desea borrar la factura")}));
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav WHERE Fav_Id = ?"), {ultima}), 0);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Rec WHERE Rec_IdFac = ?"), {ultima}),
              0);
    EXPECT_EQ(
        e->cuenta(QStringLiteral("SELECT COUNT(*) FROM RetNF WHERE RetNF_IdFactura = ?"), {ultima}),
        0);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT Cav_Situa FROM Cav WHERE Cav_Id = ? AND "
                                       "Cav_IdFactura IS NULL"),
                        {n2}),
              1);
    // The leg is free again, its line and the note it left empty are gone.
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM TrDes WHERE TrDes_Id = ? AND "
                                       "TrDes_IdLav IS NULL"),
                        {tramo}),
              1);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE Cav_Id = ?"), {viaje}), 0);
    // The screen moves to the new last invoice.
    EXPECT_EQ(p->Text1[1], QStringLiteral("1"));
}

TEST_P(EdicionFacturas, TheDateStaysBetweenItsNeighbours) {
    factura(cliente, kDia1, {albaran(cliente, kDia1, 10)});
    const qint32 medio = factura(cliente, kDia10, {albaran(cliente, kDia1, 20)});
    factura(cliente, kDia20, {albaran(cliente, kDia1, 30)});
    auto p = pantalla(2);
    e->ui().ResponderSiSiempre(true);
    p->Text1[2] = QStringLiteral("21/03/2026");
    p->cmdActualiza();
    EXPECT_EQ(e->ui().vistos.back().texto,
              QStringLiteral("La fecha no puede ser posterior a 20/03/2026. Cambio de fecha "
                             "cancelado"));
    p->Text1[2] = QStringLiteral("28/02/2026");
    p->cmdActualiza();
    EXPECT_EQ(e->ui().vistos.back().texto,
              QStringLiteral("La fecha no puede ser anterior a 01/03/2026. Cambio de fecha "
                             "cancelado"));
    EXPECT_EQ(e->cn()
                  .Execute(QStringLiteral("SELECT Fav_Fecha FROM Fav WHERE Fav_Id = ?"), {medio})
                  .Fields(0)
                  .Fecha(),
              kDia10);
    // At either end the neighbour's own date is allowed; the receipts follow.
    p->Text1[2] = QStringLiteral("20/03/2026");
    p->cmdActualiza();
    EXPECT_FALSE(p->ultimaOrdenFallida);
    EXPECT_EQ(p->Text1[2], QStringLiteral("20/03/2026"));
    EXPECT_EQ(p->dbgRecibos.at(0).Rec_Fvto, kDia20);
}

TEST_P(EdicionFacturas, ASeriesChangeTakesTheNextNumberThereAndAsksForALaterDate) {
    factura(cliente, kDia20, {albaran(cliente, kDia1, 10)}, QStringLiteral("B"));
    factura(cliente, kDia1, {albaran(cliente, kDia1, 20)});
    const qint32 mover = factura(cliente, kDia5, {albaran(cliente, kDia1, 30)});
    auto p = pantalla(2);
    p->cboSeriesIndex = static_cast<int>(p->cboSeries.indexOf(QStringLiteral("B")));
    ASSERT_GE(p->cboSeriesIndex, 0);
    // Yes to the change, no to the later date: refused, nothing moves.
    e->ui().respuestas = {true, false};
    p->cmdActualiza();
    EXPECT_EQ(preguntas().last(), QStringLiteral("La Fecha de la última factura de la serie B es "
                                                 "20/03/2026\nDese cambiar la factura a este "
                                                 "fecha"));
    EXPECT_EQ(e->ui().vistos.back().texto,
              QStringLiteral("No es posible realizar el cambio de serie con la fecha de factura"));
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT Fav_Numero FROM Fav WHERE Fav_Id = ?"), {mover}), 2);

    e->ui().respuestas.clear();
    e->ui().ResponderSiSiempre(true);
    p->cboSeriesIndex = static_cast<int>(p->cboSeries.indexOf(QStringLiteral("B")));
    p->cmdActualiza();
    EXPECT_FALSE(p->ultimaOrdenFallida);
    EXPECT_EQ(p->Text1[0], QStringLiteral("B"));
    EXPECT_EQ(p->Text1[1], QStringLiteral("2"));
    EXPECT_EQ(p->Text1[2], QStringLiteral("20/03/2026"));
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Rec WHERE Rec_IdFac = ? AND "
                                       "Rec_Serie = 'B' AND Rec_Numero = 2"),
                        {mover}),
              1);

    // Only the last invoice of a series may move.
    factura(cliente, kDia20, {albaran(cliente, kDia1, 5)});
    auto q = pantalla(1);
    q->cboSeriesIndex = static_cast<int>(q->cboSeries.indexOf(QStringLiteral("B")));
    q->cmdActualiza();
    EXPECT_EQ(e->ui().vistos.back().texto,
              QStringLiteral("Sólo se admite eliminar el último número de una serie"));
}

TEST_P(EdicionFacturas, TheManualTotalGoesToTheFirstLineAndItsUndoRestoresEverything) {
    const qint32 id = factura(cliente, kDia1, {albaran(cliente, kDia1, 100)});
    e->cn().Execute(QStringLiteral("UPDATE Lav SET Lav_Uni = 4"));
    std::map<std::string, double> importeAntes;
    for (const char* columna : {"Fav_Bruto", "Fav_Biva1", "Fav_Biva2", "Fav_ImpIva1", "Fav_ImpIva2",
                                "Fav_Total", "Fav_IRetNf", "Fav_Liquido"}) {
        importeAntes[columna] = fav(QString::fromLatin1(columna), id);
    }
    auto p = pantalla(1);
    e->ui().ResponderSiSiempre(true);
    p->Check1 = true;
    p->Check1_Click();
    EXPECT_TRUE(p->Text1_4_Enabled);
    p->Text1[4] = QStringLiteral("177,00"); // one euro more than 176,00
    p->Text1_4_LostFocus();
    EXPECT_EQ(preguntas(),
              (QStringList{mensajes::kConfirmaDiferencia, mensajes::kRecibosNuevoImporte}));
    EXPECT_DOUBLE_EQ(fav(QStringLiteral("Fav_Total"), id), 177);
    EXPECT_DOUBLE_EQ(fav(QStringLiteral("Fav_Biva1"), id), 101);
    EXPECT_DOUBLE_EQ(fav(QStringLiteral("Fav_ImpDifManual"), id), 1);
    // The retention on the new bases, and the receipt on what is left.
    EXPECT_DOUBLE_EQ(fav(QStringLiteral("Fav_IRetNf"), id), 3.02);
    EXPECT_DOUBLE_EQ(p->dbgRecibos.at(0).Rec_Importe, 173.98);
    const Recordset lav =
        e->cn().Execute(QStringLiteral("SELECT Lav_Precio, Lav_Importe FROM Lav WHERE Lav_Id = ?"),
                        {static_cast<qint32>(fav(QStringLiteral("Fav_IdLavManual"), id))});
    EXPECT_DOUBLE_EQ(lav.Fields(0).Doble(), 100.25);
    EXPECT_DOUBLE_EQ(lav.Fields(1).Doble(), 101);
    EXPECT_TRUE(p->Check1);

    p->Check1 = false;
    p->Check1_Click();
    EXPECT_EQ(fav(QStringLiteral("Fav_IdLavManual"), id), 0);
    EXPECT_EQ(fav(QStringLiteral("Fav_ImpDifManual"), id), 0);
    for (const char* columna : {"Fav_Bruto", "Fav_Biva1", "Fav_Biva2", "Fav_ImpIva1", "Fav_ImpIva2",
                                "Fav_Total", "Fav_IRetNf", "Fav_Liquido"}) {
        EXPECT_DOUBLE_EQ(fav(QString::fromLatin1(columna), id), importeAntes[columna]) << columna;
    }
    Recordset lineas =
        e->cn().Execute(QStringLiteral("SELECT Lav_Precio, Lav_Importe FROM Lav ORDER BY Lav_Id"));
    EXPECT_DOUBLE_EQ(lineas.Fields(0).Doble(), 100);
    EXPECT_DOUBLE_EQ(lineas.Fields(1).Doble(), 100);
    lineas.MoveNext();
    EXPECT_DOUBLE_EQ(lineas.Fields(0).Doble(), 50);
    EXPECT_DOUBLE_EQ(lineas.Fields(1).Doble(), 50);
    EXPECT_DOUBLE_EQ(p->dbgRecibos.at(0).Rec_Importe, 173);

    // Unticking an invoice without a manual total changes nothing.
    const QString sinTotal = todo(id);
    p->Check1 = true;
    p->Check1_Click();
    p->Check1 = false;
    p->Check1_Click();
    EXPECT_EQ(todo(id), sinTotal);
}

TEST_P(EdicionFacturas, NoManualTotalOnAnInvoiceWithDiscounts) {
    factura(cliente, kDia1, {albaran(cliente, kDia1, 100)});
    auto p = pantalla(1);
    p->Text1[20] = QStringLiteral("10");
    e->ui().ResponderSiSiempre(true);
    p->cmdActualiza();
    EXPECT_EQ(p->Text1[20], QStringLiteral("10,00"));
    EXPECT_EQ(p->Text1[9], QStringLiteral("15,00"));
    p->Check1 = true;
    p->Check1_Click();
    EXPECT_FALSE(p->Check1);
    EXPECT_EQ(e->ui().vistos.back().texto,
              QStringLiteral("No está permitido modificar una factura con descuentos"));
}

TEST_P(EdicionFacturas, TheRectifyingFlagIsWrittenAtOnceOnlyWhenConfirmed) {
    const qint32 id = factura(cliente, kDia1, {albaran(cliente, kDia1, 100)});
    auto p = pantalla(1);
    e->ui().respuestas = {false};
    p->Check2 = true;
    p->Check2_Click();
    EXPECT_FALSE(p->Check2);
    EXPECT_EQ(e->ui().vistos.back().titulo, QStringLiteral("Atención"));
    EXPECT_EQ(fav(QStringLiteral("Fav_RCA"), id), 0);
    e->ui().respuestas = {true};
    p->Check2 = true;
    p->Check2_Click();
    EXPECT_TRUE(p->Check2);
    EXPECT_EQ(fav(QStringLiteral("Fav_RCA"), id), 1);
    EXPECT_EQ(preguntas().last(), QStringLiteral("Realmente desea activar esta factura como "
                                                 "rectificativa para concurso de acreedores"));
}

TEST_P(EdicionFacturas, AChangeOfCustomerRewritesNotesAndReceipts) {
    const qint32 id =
        factura(cliente, kDia1, {albaran(cliente, kDia1, 100), albaran(cliente, kDia1, 10)});
    auto p = pantalla(1);
    e->ui().ResponderSiSiempre(true);
    // The lookup lists every customer; the second row is the other one.
    e->ui().busquedas = {1};
    p->XPButton2();
    EXPECT_FALSE(p->ultimaOrdenFallida);
    EXPECT_EQ(preguntas().first(), mensajes::kCambioCliente);
    EXPECT_EQ(e->ui().peticionesBusca.back().titulo,
              QStringLiteral("Buscar clientes por nombre FISCAL"));
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT Fav_IdCli FROM Fav WHERE Fav_Id = ?"), {id}), otro);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE Cav_IdFactura = ? AND "
                                       "Cav_IdCli = ?"),
                        {id, otro}),
              2);
    // Its terms (two instalments) and no retention.
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Rec WHERE Rec_IdFac = ? AND "
                                       "Rec_IdClPr = ?"),
                        {id, otro}),
              2);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Rec WHERE Rec_IdFac = ? AND "
                                       "Rec_IdClPr <> ?"),
                        {id, otro}),
              0);
    EXPECT_EQ(fav(QStringLiteral("Fav_IRetNf"), id), 0);
    EXPECT_EQ(p->dbgRecibos.size(), 2u);
}

TEST_P(EdicionFacturas, WhatAnotherUserDidSinceTheScreenLookedIsCheckedAgainUnderTheLock) {
    factura(cliente, kDia1, {albaran(cliente, kDia1, 10)});
    const qint32 segunda = factura(cliente, kDia5, {albaran(cliente, kDia1, 20)});
    const QString antes = todo(segunda);
    // Another user, on a session of its own, invoices a note into the series.
    const qint32 nota = albaran(cliente, kDia1, 30);
    {
        auto otraSesion = BdSesion::Abre(e->base().cadenaCatalogo(QStringLiteral("vkemp0001")));
        VKFACVENTAS otraFactura;
        otraFactura.setMyBd(*otraSesion);
        CabeceraFactura c;
        c.serie = QStringLiteral("A");
        c.fecha = kDia10;
        c.idCliente = cliente;
        c.idFco = contado;
        ASSERT_EQ(FacturaAlbaranes(otraFactura, c, {nota}).estado, EstadoFacturacion::Hecha);
    }
    // What the screen would have allowed a moment ago is refused now, and
    // nothing of the edit is written.
    EXPECT_THROW(msBorraFactura(e->factura(), segunda), ErrorRegla);
    EdicionFactura ed;
    ed.idFactura = segunda;
    ed.fecha = kDia20;
    ed.observaciones = QStringLiteral("No se guarda");
    try {
        msRecalculaFactura(e->factura(), ed);
        ADD_FAILURE() << "a date after the next invoice's was saved";
    } catch (const ErrorRegla& error) {
        EXPECT_EQ(error.Mensaje(), QStringLiteral("La fecha no puede ser posterior a 10/03/2026. "
                                                  "Cambio de fecha cancelado"));
    }
    ed.fecha.reset();
    ed.albaranIncluido = nota;
    EXPECT_THROW(msRecalculaFactura(e->factura(), ed), ErrorRegla);
    ed.albaranIncluido.reset();
    ed.serie = QStringLiteral("B");
    EXPECT_THROW(msRecalculaFactura(e->factura(), ed), ErrorRegla);
    EXPECT_EQ(todo(segunda), antes);
}

TEST_P(EdicionFacturas, RemarksAndAnotherAddressOfTheCustomerAreSavedByValue) {
    const qint32 id = factura(cliente, kDia1, {albaran(cliente, kDia1, 100)});
    e->cn().Execute(QStringLiteral("UPDATE Cli SET Cli_favobs = ? WHERE Cli_Id = ?"),
                    {QStringLiteral("Entregar por la puerta de atrás"), cliente});
    const qint64 dir =
        e->cn()
            .Execute(QStringLiteral("INSERT INTO Dir (DIR_NOMBRE, DIR_NUMERO, DIR_LETRA, DIR_CP, "
                                    "DIR_POBLACION, dir_fiscal) VALUES (?, ?, ?, ?, ?, '0') "
                                    "RETURNING DIR_ID"),
                     {QStringLiteral("Calle de la Paz"), QStringLiteral("7"), QStringLiteral("C"),
                      QStringLiteral("46003"), QStringLiteral("Valencia")})
            .Fields(0)
            .Entero();
    e->cn().Execute(QStringLiteral("INSERT INTO CliDir (CLIDIR_CLI, CLIDIR_DIR) VALUES (?, ?)"),
                    {cliente, dir});
    auto p = pantalla(1);
    p->XPButton1();
    EXPECT_EQ(p->txtFavObs, QStringLiteral("Entregar por la puerta de atrás"));
    e->ui().busquedas = {0};
    p->cmdDir();
    EXPECT_EQ(e->ui().peticionesBusca.back().titulo, QStringLiteral("Otras direcciones"));
    EXPECT_EQ(p->Text1[23], QStringLiteral("Calle de la Paz"));
    EXPECT_EQ(p->Text1[14], QStringLiteral("C")); // the door takes the letter
    e->ui().ResponderSiSiempre(true);
    p->cmdActualiza();
    EXPECT_FALSE(p->ultimaOrdenFallida);
    const Recordset rs = e->cn().Execute(
        QStringLiteral("SELECT Fav_Obs, Fav_Nombre, Fav_Puerta, Fav_Cp, Fav_IdDir FROM Fav WHERE "
                       "Fav_Id = ?"),
        {id});
    EXPECT_EQ(rs.Fields(0).Texto(), QStringLiteral("Entregar por la puerta de atrás"));
    EXPECT_EQ(rs.Fields(1).Texto(), QStringLiteral("Calle de la Paz"));
    EXPECT_EQ(rs.Fields(2).Texto(), QStringLiteral("C"));
    EXPECT_EQ(rs.Fields(3).Texto(), QStringLiteral("46003"));
    EXPECT_LE(rs.Fields(4).Entero(), 0);
}

TEST_P(EdicionFacturas, IssueGoesOutWithTheChosenOutputAndCopyMark) {
    factura(cliente, kDia1, {albaran(cliente, kDia1, 100)});
    const qint32 segunda = factura(cliente, kDia5, {albaran(cliente, kDia1, 20)});
    EmisorAnotado::Registra();
    auto p = pantalla(2);
    p->optSalida = 2;
    p->ChKCopia = true;
    e->ui().respuestas = {false};
    p->cmdEmitir();
    EmisorAnotado::Olvida();
    EXPECT_FALSE(p->ultimaOrdenFallida);
    ASSERT_EQ(EmisorAnotado::llamadas.size(), 1u);
    EXPECT_EQ(EmisorAnotado::llamadas[0], QVector<qint32>{segunda});
    EXPECT_EQ(e->factura().Tipo_Emision, 2);
    EXPECT_TRUE(e->factura().Copia);
    EXPECT_FALSE(e->factura().VisualizarPDF);
    EXPECT_EQ(preguntas().value(0), QStringLiteral("Desea visualizar el documento"));
}

VK_EN_AMBOS_MOTORES(EdicionFacturas);

} // namespace
} // namespace vk::prueba
