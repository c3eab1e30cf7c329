// The views on the demo company, offscreen, on both backends: what a person
// does with the widgets must reach the models and the database.
#include <BasePrueba.h>
#include <EmpresaDemo.h>
#include <InteraccionGuion.h>
#include <InteraccionQt.h>
#include <LanzadorQt.h>
#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPrintPreviewWidget>
#include <QTableView>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <RegistroSuite.h>
#include <VKFACVENTAS.h>
#include <VistaEmisionFacturas.h>
#include <VistaFacturasVenta.h>
#include <VistaIniFav.h>
#include <VistaVisor.h>
#include <frmEmisionFacturas.h>
#include <frmFacturasVenta.h>
#include <frmIniFav.h>
#include <frmVisor.h>

namespace vk::prueba {
namespace {

template <typename T> T* hijo(QWidget& w, const QString& nombre) {
    T* h = w.findChild<T*>(nombre);
    EXPECT_NE(h, nullptr) << nombre.toStdString();
    return h;
}

void pulsa(QWidget& w, const QString& nombre) {
    if (auto* b = hijo<QAbstractButton>(w, nombre)) {
        b->click();
    }
}

class Vistas : public PruebaMotores {
protected:
    void SetUp() override {
        suite::RegistraComponentesSuite();
        base = std::make_unique<BasePrueba>(GetParam());
        bd = base->CreaEmpresa();
        CreaDatosDemo(*bd);
        factura = std::make_unique<VKFACVENTAS>();
        factura->setMyBd(*bd);
        usa = std::make_unique<UsaInteraccion>(guion);
    }
    void TearDown() override {
        usa.reset();
        EstableceLanzador(nullptr);
    }
    qint64 cuenta(const QString& sql, const QVariantList& p = {}) {
        Recordset rs = bd->cn().Execute(sql, p);
        return rs.Fields(0).Entero();
    }
    // The delivery notes' search without a latest date: the demo's notes are
    // fixed in time, the clock is not.
    void busca(ui::VistaFacturasVenta& v) {
        hijo<QLineEdit>(v, QStringLiteral("Text1_3"))->clear();
        pulsa(v, QStringLiteral("cmdBuscar"));
    }

    std::unique_ptr<BasePrueba> base;
    std::unique_ptr<BdSesion> bd;
    std::unique_ptr<VKFACVENTAS> factura;
    InteraccionGuion guion;
    std::unique_ptr<UsaInteraccion> usa;
};

TEST_P(Vistas, SelectiveRunFromTheWidgetsInvoicesTheTickedNotesAndShowsTheViewer) {
    frmFacturasVenta modelo(*factura);
    ui::VistaFacturasVenta v(modelo);
    busca(v);
    auto* rejilla = hijo<QTableView>(v, QStringLiteral("dbgCli"));
    auto* grupos = rejilla->model();
    auto* notas = hijo<QTreeWidget>(v, QStringLiteral("ListView1"));
    ASSERT_GT(grupos->rowCount(), 1);
    EXPECT_EQ(grupos->rowCount(), modelo.NumeroGrupos());
    EXPECT_EQ(grupos->index(0, 0).data().toString(), modelo.Grupo(0).Cli_Nom.trimmed());

    // A group with at least two notes; moving the grid's row reloads them.
    int fila = -1;
    for (int r = 0; r < grupos->rowCount() && fila < 0; ++r) {
        rejilla->setCurrentIndex(grupos->index(r, 0));
        if (notas->topLevelItemCount() >= 2) {
            fila = r;
        }
    }
    ASSERT_GE(fila, 0);
    EXPECT_EQ(modelo.filaCli, fila);
    EXPECT_EQ(notas->topLevelItemCount(), static_cast<int>(modelo.ListView1.size()));
    EXPECT_EQ(hijo<QLabel>(v, QStringLiteral("Label1_1"))->text(), modelo.Label1_1);
    const qint32 facturada = notas->topLevelItem(0)->data(0, Qt::UserRole).toInt();
    const qint32 quitada = notas->topLevelItem(1)->data(0, Qt::UserRole).toInt();
    notas->topLevelItem(1)->setCheckState(0, Qt::Unchecked);
    EXPECT_FALSE(modelo.ListView1[1].marcado);
    // Clicking a note shows its lines.
    notas->setCurrentItem(notas->topLevelItem(1));
    EXPECT_EQ(hijo<QTableWidget>(v, QStringLiteral("dbgLineas"))->rowCount(),
              cuenta(QStringLiteral("SELECT COUNT(*) FROM Lav WHERE Lav_IdCav = ?"), {quitada}));

    hijo<QLineEdit>(v, QStringLiteral("Text1_6"))->setText(QStringLiteral("30/11/2026"));
    hijo<QLineEdit>(v, QStringLiteral("Text1_11"))->setText(QStringLiteral("1"));
    pulsa(v, QStringLiteral("optSalida_0"));
    guion.respuestas.push_back(true); // "Confirma la selección de albaranes..."
    guion.dialogos.push_back(
        [](DialogoModelo& d) { return dynamic_cast<frmIniFav&>(d).cmdInforme(); });
    int paginas = -1;
    bool pdf = false;
    guion.dialogos.push_back([&](DialogoModelo& d) {
        auto& visor = dynamic_cast<frmVisor&>(d);
        ui::VistaVisor vista(visor);
        vista.show();
        QApplication::processEvents();
        paginas = vista.vista()->pageCount();
        QTemporaryDir dir;
        const QString f = dir.filePath(QStringLiteral("f.pdf"));
        if (vista.GuardaPdf(f)) {
            QFile fichero(f);
            pdf = fichero.open(QIODevice::ReadOnly) && fichero.read(5) == "%PDF-";
        }
        return true;
    });
    pulsa(v, QStringLiteral("cmdFacturar"));

    EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav")), 1);
    const qint64 idFav = cuenta(QStringLiteral("SELECT Fav_Id FROM Fav"));
    EXPECT_EQ(cuenta(QStringLiteral("SELECT Cav_IdFactura FROM Cav WHERE Cav_Id = ?"), {facturada}),
              idFav);
    EXPECT_EQ(cuenta(QStringLiteral("SELECT Cav_Situa FROM Cav WHERE Cav_Id = ?"), {facturada}), 2);
    EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE Cav_Id = ? AND "
                                    "Cav_IdFactura IS NULL AND Cav_Situa = 1"),
                     {quitada}),
              1);
    EXPECT_TRUE(
        guion.Textos().contains(QStringLiteral("Proceso concluido, la factura generada es A/1")))
        << guion.Textos().join(QLatin1Char('|')).toStdString();
    EXPECT_GE(paginas, 1);
    EXPECT_TRUE(pdf);
    // The search ran again: the untouched note is still pending in the grid.
    EXPECT_EQ(grupos->rowCount(), modelo.NumeroGrupos());
}

TEST_P(Vistas, AllCustomersRunDisablesTheDiscountsAndLeavesNothingOfTheFirstGroup) {
    frmFacturasVenta modelo(*factura);
    ui::VistaFacturasVenta v(modelo);
    busca(v);
    const int antes = hijo<QTableView>(v, QStringLiteral("dbgCli"))->model()->rowCount();
    ASSERT_GT(antes, 0);
    auto* descuentos = hijo<QGroupBox>(v, QStringLiteral("Frame4"));
    pulsa(v, QStringLiteral("Check4"));
    EXPECT_TRUE(modelo.Check4);
    EXPECT_FALSE(descuentos->isEnabled());

    // A "No" stops before anything is written.
    hijo<QLineEdit>(v, QStringLiteral("Text1_6"))->setText(QStringLiteral("30/11/2026"));
    hijo<QLineEdit>(v, QStringLiteral("Text1_11"))->setText(QStringLiteral("0"));
    guion.respuestas.push_back(false);
    pulsa(v, QStringLiteral("cmdFacturar"));
    EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav")), 0);

    guion.respuestas.push_back(true);
    guion.dialogos.push_back(
        [](DialogoModelo& d) { return dynamic_cast<frmIniFav&>(d).cmdInforme(); });
    pulsa(v, QStringLiteral("cmdFacturar"));
    EXPECT_GT(cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav")), 0);
    EXPECT_LT(hijo<QTableView>(v, QStringLiteral("dbgCli"))->model()->rowCount(), antes);
    EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Cav WHERE Cav_Situa = 2 AND "
                                    "Cav_IdFactura NOT IN (SELECT Fav_Id FROM Fav)")),
              0);
    pulsa(v, QStringLiteral("Check4"));
    EXPECT_TRUE(descuentos->isEnabled());
}

TEST_P(Vistas, F1InTheCustomerBoxOpensTheLookupThroughTheQtPort) {
    ui::InteraccionQt qt;
    UsaInteraccion usaQt(qt);
    frmFacturasVenta modelo(*factura);
    ui::VistaFacturasVenta v(modelo);
    v.show();
    auto* codigo = hijo<QLineEdit>(v, QStringLiteral("Text1_0"));
    codigo->setFocus();
    QApplication::processEvents();
    bool abierto = false;
    // The lookup is modal: answer it once it is up.
    QTimer::singleShot(0, [&] {
        QWidget* d = QApplication::activeModalWidget();
        abierto = d && d->objectName() == QLatin1String("frmBusca");
        if (auto* caja = d ? d->findChild<QLineEdit*>(QStringLiteral("txtBusca")) : nullptr) {
            QTest::keyClicks(caja, QStringLiteral("Carmen"));
            QTest::keyClick(caja, Qt::Key_Return);
        } else if (d) {
            QTest::keyClick(d, Qt::Key_Escape);
        }
    });
    QTest::keyClick(codigo, Qt::Key_F1);
    EXPECT_TRUE(abierto);
    EXPECT_TRUE(
        hijo<QLineEdit>(v, QStringLiteral("Text1_1"))->text().contains(QStringLiteral("Carmen")));
    EXPECT_FALSE(codigo->text().isEmpty());
    // The filter holds: only that customer's groups are found.
    busca(v);
    for (int fila = 0; fila < modelo.NumeroGrupos(); ++fila) {
        const GrupoFacturable g = modelo.Grupo(fila);
        EXPECT_TRUE(g.Cli_Nom.contains(QStringLiteral("Carmen"))) << g.Cli_Nom.toStdString();
    }

    // Enter moves to the next field instead of pressing a button.
    codigo->setFocus();
    QTest::keyClick(codigo, Qt::Key_Return);
    EXPECT_NE(QApplication::focusWidget(), codigo);
    EXPECT_EQ(cuenta(QStringLiteral("SELECT COUNT(*) FROM Fav")), 0);
}

TEST_P(Vistas, FirstNumberDialogWritesTheFacadeOnlyWhenValid) {
    factura->SerieFactura = QStringLiteral("Z");
    factura->NumeroFactura = -1;
    frmIniFav modelo(*factura);
    ui::VistaIniFav v(modelo);
    EXPECT_EQ(hijo<QLabel>(v, QStringLiteral("lblSerie"))->text(), modelo.lblSerie);
    auto* caja = hijo<QLineEdit>(v, QStringLiteral("Text1"));
    caja->setText(QStringLiteral("abc"));
    pulsa(v, QStringLiteral("cmdInforme"));
    EXPECT_NE(v.result(), QDialog::Accepted);
    EXPECT_EQ(factura->NumeroFactura, -1);
    EXPECT_EQ(guion.vistos.size(), 1u); // told through the port, not a message box
    caja->setText(QStringLiteral("250"));
    pulsa(v, QStringLiteral("cmdInforme"));
    EXPECT_EQ(v.result(), QDialog::Accepted);
    EXPECT_EQ(factura->NumeroFactura, 250);
}

TEST_P(Vistas, IssueDialogWritesDesignAndPaperOptionsOrNoDesignOnEscape) {
    frmEmisionFacturas modelo(*factura);
    ui::VistaEmisionFacturas v(modelo);
    auto* opciones = hijo<QListWidget>(v, QStringLiteral("lstOpcionesPapel"));
    ASSERT_EQ(opciones->count(), 10);
    EXPECT_FALSE(opciones->isVisibleTo(&v)); // the short form
    pulsa(v, QStringLiteral("cmdVer"));
    EXPECT_TRUE(opciones->isVisibleTo(&v));
    EXPECT_EQ(hijo<QAbstractButton>(v, QStringLiteral("cmdVer"))->text(), modelo.cmdVerCaption);

    hijo<QComboBox>(v, QStringLiteral("cmbDiseno"))->setCurrentIndex(3);
    const bool logo = opciones->item(0)->checkState() == Qt::Checked;
    opciones->item(0)->setCheckState(logo ? Qt::Unchecked : Qt::Checked);
    opciones->item(9)->setCheckState(Qt::Unchecked);
    pulsa(v, QStringLiteral("cmdEmitir"));
    EXPECT_EQ(v.result(), QDialog::Accepted);
    EXPECT_EQ(modelo.nDisenoEmision, 3);
    EXPECT_EQ(modelo.Eleccion.Entero(bd->Parametros(), QStringLiteral("Par_PrnLogo")),
              logo ? 0 : 1);
    EXPECT_EQ(modelo.Eleccion.Entero(bd->Parametros(), QStringLiteral("Par_Flopd")), 0);

    frmEmisionFacturas otro(*factura);
    ui::VistaEmisionFacturas w(otro);
    w.show();
    QTest::keyClick(&w, Qt::Key_Escape);
    EXPECT_EQ(otro.nDisenoEmision, -1);
}

TEST_P(Vistas, LauncherTellsOfScreensNotYetAvailable) {
    ui::LanzadorQt lanzador(*factura);
    EstableceLanzador(&lanzador);
    factura->jFacturasContrataciones();
    EXPECT_EQ(guion.Textos(),
              QStringList{QStringLiteral(
                  "Esta pantalla todavía no está disponible: frmFacturaContrataciones")});
}

VK_EN_AMBOS_MOTORES(Vistas);

} // namespace
} // namespace vk::prueba
