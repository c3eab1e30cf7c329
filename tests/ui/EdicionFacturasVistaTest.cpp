// The invoice edit view on the demo company's invoices, offscreen: what the
// widgets show is the invoice, the keys walk the series, and a command typed
// through the widgets reaches the database. The view holds no SQL, so SQLite
// alone is enough.
#include <BasePrueba.h>
#include <FacturacionDemo.h>
#include <Formato.h>
#include <InteraccionGuion.h>
#include <LanzadorQt.h>
#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSet>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <VistaCopiaFacturas.h>
#include <VistaEdicionFacturas.h>
#include <frmCopiaFacturas.h>
#include <frmEdicionFacturas.h>

namespace vk::prueba {
namespace {

template <typename T> T* hijo(QWidget& w, const QString& nombre) {
    T* h = w.findChild<T*>(nombre);
    EXPECT_NE(h, nullptr) << nombre.toStdString();
    return h;
}

QString texto(QWidget& w, const QString& caja) {
    auto* c = hijo<QLineEdit>(w, caja);
    return c ? c->text() : QString();
}

class EdicionFacturasVista : public DemoFacturadaPrueba {
protected:
    qint64 cuenta(const QString& sql, const QVariantList& p = {}) {
        Recordset rs = bd->cn().Execute(sql, p);
        return rs.Fields(0).Entero();
    }
    QString textoBd(const QString& sql, const QVariantList& p = {}) {
        Recordset rs = bd->cn().Execute(sql, p);
        return rs.Eof() ? QString() : rs.Fields(0).Texto();
    }
    qint32 idFactura(qint32 numero) {
        return static_cast<qint32>(cuenta(
            QStringLiteral("SELECT Fav_Id FROM Fav WHERE Fav_Serie = 'A' AND Fav_Numero = ?"),
            {numero}));
    }
};

TEST_P(EdicionFacturasVista, LoadedInvoiceShowsItsHeaderTotalAndNotes) {
    ASSERT_GE(facturas.size(), 3u);
    frmEdicionFacturas modelo(*factura, QStringLiteral("A"), 1);
    ui::VistaEdicionFacturas v(modelo);
    const qint32 id = idFactura(1);
    ASSERT_GT(id, 0);
    EXPECT_EQ(v.windowTitle(), modelo.Caption);
    EXPECT_TRUE(v.windowTitle().startsWith(QStringLiteral("Edición de facturas")));
    EXPECT_EQ(texto(v, QStringLiteral("Text1_0")), QStringLiteral("A"));
    EXPECT_EQ(texto(v, QStringLiteral("Text1_1")), QStringLiteral("1"));
    EXPECT_EQ(texto(v, QStringLiteral("Text1_2")), QStringLiteral("20/11/2026"));
    Recordset fav = bd->cn().Execute(
        QStringLiteral("SELECT Fav_Total, Fav_CliNom FROM Fav WHERE Fav_Id = ?"), {id});
    ASSERT_FALSE(fav.Eof());
    EXPECT_EQ(texto(v, QStringLiteral("Text1_4")),
              Format(fav.Fields(0).Doble(), QStringLiteral("#,###,##0.00")));
    EXPECT_TRUE(hijo<QLineEdit>(v, QStringLiteral("Text1_4"))->isReadOnly()); // not manual
    EXPECT_TRUE(hijo<QLabel>(v, QStringLiteral("lblCliente"))
                    ->text()
                    .contains(fav.Fields(1).Texto().trimmed()));

    // One row per line of every note the invoice bills, named by its note.
    auto* notas = hijo<QTableWidget>(v, QStringLiteral("dbgAlbaranes"));
    ASSERT_NE(notas, nullptr);
    EXPECT_GT(notas->rowCount(), 0);
    EXPECT_EQ(notas->rowCount(),
              cuenta(QStringLiteral("SELECT COUNT(*) FROM Cav LEFT JOIN Lav ON Lav_IdCav = Cav_Id "
                                    "WHERE Cav_IdFactura = ?"),
                     {id}));
    QSet<QString> esperados;
    for (Recordset rs = bd->cn().Execute(
             QStringLiteral("SELECT Cav_Serie, Cav_Numero FROM Cav WHERE Cav_IdFactura = ?"), {id});
         !rs.Eof(); rs.MoveNext()) {
        esperados.insert(rs.Fields(0).Texto().trimmed() + QLatin1Char('/') +
                         QString::number(rs.Fields(1).Entero()));
    }
    QSet<QString> vistos;
    for (int r = 0; r < notas->rowCount(); ++r) {
        vistos.insert(notas->item(r, 0)->text());
    }
    EXPECT_EQ(vistos, esperados);
    EXPECT_EQ(hijo<QTableWidget>(v, QStringLiteral("dbgRecibos"))->rowCount(),
              cuenta(QStringLiteral("SELECT COUNT(*) FROM Rec WHERE Rec_Tipo = 1 AND "
                                    "Rec_IdFac = ?"),
                     {id}));
    // Picking a line is the model's current line.
    if (notas->rowCount() > 1) {
        notas->setCurrentCell(1, 0);
        EXPECT_EQ(modelo.filaAlbaran, 1);
    }
    EXPECT_TRUE(hijo<QAbstractButton>(v, QStringLiteral("cmdCopiar"))->isEnabled());
}

TEST_P(EdicionFacturasVista, KeysWalkTheSeriesAndEnterMovesOn) {
    ASSERT_GE(facturas.size(), 3u);
    frmEdicionFacturas modelo(*factura, QStringLiteral("A"), 1);
    ui::VistaEdicionFacturas v(modelo);
    v.show();
    auto* numero = hijo<QLineEdit>(v, QStringLiteral("Text1_1"));
    numero->setFocus();
    QApplication::processEvents();

    QTest::keyClick(numero, Qt::Key_PageDown);
    EXPECT_EQ(numero->text(), QStringLiteral("2"));
    EXPECT_EQ(modelo.IdFactura(), idFactura(2));
    const qint64 ultima =
        cuenta(QStringLiteral("SELECT MAX(Fav_Numero) FROM Fav WHERE Fav_Serie = 'A'"));
    QTest::keyClick(numero, Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(numero->text(), QString::number(ultima));
    // The grid does not keep the keys for its own scrolling.
    auto* notas = hijo<QTableWidget>(v, QStringLiteral("dbgAlbaranes"));
    QTest::keyClick(notas, Qt::Key_PageUp);
    EXPECT_EQ(numero->text(), QString::number(ultima - 1));
    EXPECT_EQ(notas->rowCount(), static_cast<int>(modelo.dbgAlbaranes.size()));
    QTest::keyClick(notas, Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(numero->text(), QStringLiteral("1"));

    // A number typed and left loads that invoice.
    numero->setFocus();
    numero->selectAll();
    QTest::keyClicks(numero, QStringLiteral("3"));
    QTest::keyClick(numero, Qt::Key_Return);
    EXPECT_EQ(modelo.IdFactura(), idFactura(3));
    EXPECT_EQ(texto(v, QStringLiteral("Text1_0")), QStringLiteral("A"));
    EXPECT_NE(QApplication::focusWidget(), numero); // Enter moved on
    EXPECT_TRUE(guion.vistos.empty());
}

TEST_P(EdicionFacturasVista, RemarkTypedAndUpdatedIsSaved) {
    ASSERT_GE(facturas.size(), 2u);
    frmEdicionFacturas modelo(*factura, QStringLiteral("A"), 2);
    ui::VistaEdicionFacturas v(modelo);
    auto* obs = hijo<QPlainTextEdit>(v, QStringLiteral("txtFavObs"));
    ASSERT_NE(obs, nullptr);
    obs->setFocus();
    obs->selectAll();
    QTest::keyClicks(obs, QStringLiteral("Entregar por la tarde"));
    EXPECT_EQ(modelo.txtFavObs, QStringLiteral("Entregar por la tarde"));
    hijo<QAbstractButton>(v, QStringLiteral("cmdActualiza"))->click();
    EXPECT_FALSE(modelo.ultimaOrdenFallida);
    EXPECT_EQ(textoBd(QStringLiteral("SELECT Fav_Obs FROM Fav WHERE Fav_Id = ?"), {idFactura(2)}),
              QStringLiteral("Entregar por la tarde"));
    // The question was asked, and the box shows the invoice as saved.
    bool confirmada = false;
    for (const MensajeVisto& m : guion.vistos) {
        confirmada = confirmada || m.tipo == MensajeVisto::Tipo::Pregunta;
    }
    EXPECT_TRUE(confirmada);
    EXPECT_EQ(obs->toPlainText(), QStringLiteral("Entregar por la tarde"));

    // The rectifying flag is written as soon as it is ticked.
    hijo<QCheckBox>(v, QStringLiteral("Check2"))->click();
    EXPECT_EQ(cuenta(QStringLiteral("SELECT Fav_RCA FROM Fav WHERE Fav_Id = ?"), {idFactura(2)}),
              1);
}

TEST_P(EdicionFacturasVista, CopyDialogShowsTheSourceAndItsButtonMakesTheCopy) {
    ASSERT_GE(facturas.size(), 1u);
    frmCopiaFacturas modelo(*factura, idFactura(1));
    ui::VistaCopiaFacturas v(modelo);
    EXPECT_EQ(v.objectName(), QStringLiteral("frmCopiaFacturas"));
    EXPECT_EQ(texto(v, QStringLiteral("Text1_0")), QStringLiteral("A"));
    EXPECT_EQ(texto(v, QStringLiteral("Text1_2")), modelo.Text1[2]);
    auto* notas = hijo<QTableWidget>(v, QStringLiteral("dbgAlbaranes"));
    ASSERT_NE(notas, nullptr);
    ASSERT_GT(notas->rowCount(), 0);
    EXPECT_EQ(notas->item(0, 0)->text(), modelo.dbgAlbaranes[0].albaran);
    EXPECT_FALSE(hijo<QCheckBox>(v, QStringLiteral("Check1"))->isChecked());
    EXPECT_EQ(hijo<QAbstractButton>(v, QStringLiteral("cmdSalir"))->text(),
              QStringLiteral("Cancelar Copia"));
    // The address boxes show the source's, and the dialog fits a laptop.
    EXPECT_EQ(texto(v, QStringLiteral("Text1_23")), modelo.Text1[23]);
    EXPECT_NE(hijo<QComboBox>(v, QStringLiteral("cboFpago")), nullptr);
    v.show();
    EXPECT_LE(v.frameGeometry().height(), 768 - 40);
    auto* copiar = hijo<QAbstractButton>(v, QStringLiteral("cmdCopiar"));
    EXPECT_EQ(copiar->text(), QStringLiteral("Grabar Nueva Factura"));
    const qint64 antes = cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav"));
    copiar->click();
    EXPECT_EQ(v.result(), QDialog::Accepted);
    EXPECT_GT(modelo.IdNueva(), 0);
    EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav")), antes + 1);
}

TEST_P(EdicionFacturasVista, LauncherOpensTheGivenInvoiceOrTheLastOfTheDefaultSeries) {
    ASSERT_GE(facturas.size(), 2u);
    ui::LanzadorQt lanzador(*factura);
    EstableceLanzador(&lanzador);
    QString nombre, numero;
    bool actualizar = true;
    // The screen is modal: read it once it is up, then close it with Escape.
    const auto lee = [&] {
        QWidget* d = QApplication::activeModalWidget();
        nombre = d ? d->objectName() : QString();
        if (auto* caja = d ? d->findChild<QLineEdit*>(QStringLiteral("Text1_1")) : nullptr) {
            numero = caja->text();
        }
        if (auto* b =
                d ? d->findChild<QAbstractButton*>(QStringLiteral("cmdActualiza")) : nullptr) {
            actualizar = b->isEnabled();
        }
        if (d) {
            QTest::keyClick(d, Qt::Key_Escape);
        }
    };
    QTimer::singleShot(0, lee);
    factura->jEditaFactura(QStringLiteral("A"), 2, true);
    EXPECT_EQ(nombre, QStringLiteral("frmEdicionFacturas"));
    EXPECT_EQ(numero, QStringLiteral("2"));
    EXPECT_FALSE(actualizar); // read-only

    factura->IdFactu = 0;
    nombre.clear();
    QTimer::singleShot(0, lee);
    factura->jEmisionFacturas();
    EXPECT_EQ(nombre, QStringLiteral("frmEdicionFacturas"));
    EXPECT_EQ(numero, QString::number(cuenta(QStringLiteral(
                          "SELECT MAX(Fav_Numero) FROM Fav WHERE Fav_Serie = 'A'"))));
    EXPECT_TRUE(actualizar);
    EXPECT_TRUE(guion.vistos.empty());
}

INSTANTIATE_TEST_SUITE_P(Motores, EdicionFacturasVista, ::testing::Values(Motor::SQLite),
                         NombreMotor);

} // namespace
} // namespace vk::prueba
