// The issue dispatcher as the invoicing screens call it: the preamble, the
// withholding scan, the choice of report, the PDF route and the failure exit.
#include "EmpresaPrueba.h"
#include "PdfTexto.h"

#include <EmpresaDemo.h>
#include <MensajesEmision.h>
#include <QDir>
#include <QTemporaryDir>
#include <RegistroSuite.h>
#include <frmEmisionFacturas.h>

namespace vk::prueba {
namespace {

const QDate kHoy(2026, 3, 10);

class Emision : public PruebaMotores {
protected:
    void SetUp() override {
        suite::RegistraComponentesSuite();
        e = std::make_unique<EmpresaPrueba>(GetParam());
        e->parametro(QStringLiteral("PAR_NOMBRE"), QStringLiteral("Suministros Albufera, S.L."));
        e->parametro(QStringLiteral("Par_PrnEmp"), 1);
        e->factura().Tipo_Emision = 2;
        e->factura().RutaFicheroPdf = dir.path();
    }
    // An invoice of one note, calculated and saved; withholding when regime 3.
    qint32 factura(int regimen) {
        const qint32 c = e->cliente({.regimen = regimen});
        const qint32 id =
            e->nuevaFactura(c, kHoy, {e->albaran(c, kHoy, regimen, {{100, regimen, 1}})});
        e->factura().CalculoTotalesFactura();
        EXPECT_TRUE(e->factura().GrabaFactura());
        e->ui().vistos.clear(); // the first number's dialog is not the issue's
        return id;
    }
    QStringList errores() {
        QStringList r;
        for (const auto& m : e->ui().vistos) {
            if (m.titulo == mensajes::kAccionCancelada) {
                r << m.texto;
            }
        }
        return r;
    }
    QTemporaryDir dir;
    std::unique_ptr<EmpresaPrueba> e;
};

TEST_P(Emision, PdfRouteWritesTheFileOfTheFirstNumber) {
    const qint32 a = factura(1);
    const qint32 b = factura(1);
    VKFACVENTAS& f = e->factura();
    const QString fichero = f.CreatePdf(a);
    EXPECT_EQ(fichero, QDir(dir.path()).filePath(QStringLiteral("F_1.pdf")));
    ASSERT_TRUE(QFileInfo::exists(fichero));
    const QString texto = TextoPdf(fichero);
    EXPECT_TRUE(texto.contains(QStringLiteral("Suministros Albufera, S.L.")));
    EXPECT_TRUE(texto.contains(QStringLiteral("121,00"))) << texto.toStdString();
    // Several ids in one run: one document under the number of its first row.
    f.PdfOutFile.clear();
    f.EmisionMultiplesFacturas(0, true, {b, a}, true);
    EXPECT_EQ(QFileInfo(f.PdfOutFile).fileName(), QStringLiteral("F_1.pdf"));
    EXPECT_TRUE(errores().isEmpty()) << errores().join(QLatin1Char('\n')).toStdString();
    // Without a folder of its own, the user's working folder.
    f.RutaFicheroPdf = QStringLiteral("C:");
    qputenv("VKFACTUVEN_DATOS", dir.filePath(QStringLiteral("datos")).toUtf8());
    EXPECT_EQ(f.CreatePdf(a), dir.filePath(QStringLiteral("datos/FDOC1/F_1.pdf")));
    qunsetenv("VKFACTUVEN_DATOS");
}

TEST_P(Emision, OneWithholdingTurnsTheRunIntoTheWithholdingReportForThisRunOnly) {
    const qint32 normal = factura(1);
    const qint32 conRetencion = factura(3);
    VKFACVENTAS& f = e->factura();
    f.EmisionMultiplesFacturas(0, true, {normal, conRetencion});
    EXPECT_TRUE(errores().isEmpty()) << errores().join(QLatin1Char('\n')).toStdString();
    const QString texto = TextoPdf(f.PdfOutFile);
    EXPECT_TRUE(texto.contains(QStringLiteral("Retención"))) << texto.toStdString();
    // Back to the stored value after the run.
    EXPECT_EQ(e->bd().Parametros().Item(QStringLiteral("Par_RegFiscal")).Entero(), 1);
}

TEST_P(Emision, TheFoodDesignIssuesInvoicesWithAWithholdingThroughTheWithholdingReport) {
    // Design 13 binds two subreports that the withholding report lacks: the
    // invoice with a withholding issues all the same, with its withholding;
    // so does every invoice of a company whose fiscal regime is 3.
    e->parametro(QStringLiteral("Par_DiseñoFactura"), 13);
    const qint32 conRetencion = factura(3);
    VKFACVENTAS& f = e->factura();
    f.EmisionMultiplesFacturas(13, true, {conRetencion}, true, 1);
    EXPECT_TRUE(errores().isEmpty()) << errores().join(QLatin1Char('\n')).toStdString();
    EXPECT_TRUE(TextoPdf(f.PdfOutFile).contains(QStringLiteral("Retención IRPF")));
    e->parametro(QStringLiteral("Par_RegFiscal"), 3);
    f.PdfOutFile.clear();
    f.EmisionMultiplesFacturas(13, true, {factura(1)}, true, 1);
    EXPECT_TRUE(errores().isEmpty()) << errores().join(QLatin1Char('\n')).toStdString();
    EXPECT_FALSE(f.PdfOutFile.isEmpty());
}

TEST_P(Emision, TheFooterDiscountAndTheWithholdingPrintAndReconcile) {
    // 200 gross, 2,20 of per-unit discounts, 197,80 of base at 15 % of
    // withholding: every figure on the paper, so that they add up there.
    const qint32 c = e->cliente({.regimen = 3});
    e->nuevaFactura(c, kHoy, {e->albaran(c, kHoy, 3, {{200, 3, 1, QDate(2026, 1, 1), 0, 2.2}})});
    VKFACVENTAS& f = e->factura();
    f.CalculoTotalesFactura();
    ASSERT_TRUE(f.GrabaFactura());
    e->ui().vistos.clear();
    const QString texto = TextoPdf(f.CreatePdf(f.IdFactu)).simplified();
    for (const char* cifra :
         {"Suma 200,00", "Descuento por unidades 2,20", "197,80", "Retención IRPF 15,00 % 29,67"}) {
        EXPECT_TRUE(texto.contains(QString::fromUtf8(cifra))) << cifra << "\n"
                                                              << texto.toStdString();
    }
}

TEST_P(Emision, PreambleAsksForTheDesignUnlessForced) {
    const qint32 id = factura(1);
    VKFACVENTAS& f = e->factura();
    e->parametro(QStringLiteral("Par_PeDiFact"), 1);
    // Forced: no dialog.
    EXPECT_FALSE(f.CreatePdf(id).isEmpty());
    EXPECT_TRUE(e->ui().vistos.empty());
    // Not forced: the dialog, which shows what the company has saved; closing
    // it ends the run.
    e->bd().Parametros().Item(QStringLiteral("Par_TopMarg")).setValue(99);
    f.PdfOutFile.clear();
    EXPECT_EQ(f.EmisionMultiplesFacturas(0, true, {id}), ResultadoEmision::Cancelada);
    ASSERT_EQ(e->ui().vistos.size(), 1u);
    EXPECT_EQ(e->ui().vistos[0].texto, QStringLiteral("frmEmisionFacturas"));
    EXPECT_TRUE(f.PdfOutFile.isEmpty());
    EXPECT_EQ(e->bd().Parametros().Item(QStringLiteral("Par_TopMarg")).Entero(), 0);
    // Accepted with a design: this run takes it (design 5, the works family
    // on a personal template missing here), the session keeps its own.
    e->ui().dialogos.push_back([](DialogoModelo& d) {
        auto& dialogo = dynamic_cast<frmEmisionFacturas&>(d);
        dialogo.cmbDisenoIndex = 5;
        dialogo.cmdEmitir();
        return true;
    });
    qputenv("VKFACTUVEN_DATOS", dir.filePath(QStringLiteral("datos")).toUtf8());
    // The failure is told to the person and reported to the caller.
    EXPECT_EQ(f.EmisionMultiplesFacturas(0, true, {id}), ResultadoEmision::Fallida);
    qunsetenv("VKFACTUVEN_DATOS");
    ASSERT_EQ(errores().size(), 1);
    EXPECT_EQ(errores()[0], mensajes::kPlantillaPersonalNoPresente);
    EXPECT_EQ(e->bd().Parametros().Item(QStringLiteral("Par_DiseñoFactura")).Entero(), 0);
    // The next run starts from the company's design again.
    e->ui().vistos.clear();
    EXPECT_FALSE(f.CreatePdf(id).isEmpty());
    f.Tipo_Emision = 3; // the mail route is not there yet: a failure
    EXPECT_EQ(f.EmisionMultiplesFacturas(0, true, {id}, true), ResultadoEmision::Fallida);
    EXPECT_EQ(errores().size(), 1);
}

TEST_P(Emision, OriginOtherThanZeroSkipsTheFamiliesAndTheTextRoute) {
    const qint32 id = factura(1);
    VKFACVENTAS& f = e->factura();
    // Design 5 is the works family on a template of the installation's
    // own, missing here.
    e->parametro(QStringLiteral("Par_DiseñoFactura"), 5);
    qputenv("VKFACTUVEN_DATOS", dir.filePath(QStringLiteral("datos")).toUtf8());
    f.CreatePdf(id);
    qunsetenv("VKFACTUVEN_DATOS");
    ASSERT_EQ(errores().size(), 1);
    EXPECT_EQ(errores()[0], mensajes::kPlantillaPersonalNoPresente);
    EXPECT_TRUE(f.PdfOutFile.isEmpty());
    e->ui().vistos.clear();
    f.PdfOutFile.clear();
    f.EmisionMultiplesFacturas(0, true, {id}, true, 1);
    EXPECT_TRUE(errores().isEmpty());
    EXPECT_TRUE(QFileInfo::exists(f.PdfOutFile));
    // Design 6 with a text key (the text route is tested in tests/spool):
    // origin 1 chooses its own design and never reaches the text route.
    e->parametro(QStringLiteral("Par_DiseñoFactura"), 6);
    e->parametro(QStringLiteral("PAR_PLANTILLA_FAC"), QStringLiteral("plt10"));
    e->ui().vistos.clear();
    f.Tipo_Emision = 2;
    f.PdfOutFile.clear();
    f.EmisionMultiplesFacturas(0, true, {id}, true, 1);
    EXPECT_TRUE(errores().isEmpty());
    EXPECT_TRUE(QFileInfo::exists(f.PdfOutFile));
    // Design 6 to a PDF file: the general report.
    e->parametro(QStringLiteral("PAR_PLANTILLA_FAC"), QStringLiteral("PLT99"));
    f.PdfOutFile.clear();
    f.EmisionMultiplesFacturas(0, true, {id}, true, 0);
    EXPECT_TRUE(QFileInfo::exists(f.PdfOutFile));
}

TEST_P(Emision, EmptyOrUnknownIdsEndSilentlyAndMailIsRefused) {
    VKFACVENTAS& f = e->factura();
    f.EmisionMultiplesFacturas(0, true, {});
    f.EmisionMultiplesFacturas(0, true, {999});
    EXPECT_TRUE(e->ui().vistos.empty());
    EXPECT_TRUE(f.PdfOutFile.isEmpty());
    const qint32 id = factura(1);
    f.Tipo_Emision = 3;
    f.CreatePdf(id);
    ASSERT_EQ(errores().size(), 1);
    EXPECT_EQ(errores()[0],
              mensajes::kErrorEmitiendo + QLatin1Char('\n') + mensajes::kCorreoNoDisponible);
    // A route above 3 delivers nothing.
    e->ui().vistos.clear();
    f.Tipo_Emision = 4;
    EXPECT_TRUE(f.CreatePdf(id).isEmpty());
    EXPECT_TRUE(e->ui().vistos.empty());
}

TEST_P(Emision, PrinterRouteSendsOneJobToTheChosenPrinter) {
    const qint32 a = factura(1);
    const qint32 b = factura(1);
    // The printer dialog names a file: a print-to-file printer.
    InteraccionGuion ui;
    const QString destino = dir.filePath(QStringLiteral("impreso.pdf"));
    ui.impresoras = {destino};
    const UsaInteraccion puerto(ui);
    VKFACVENTAS& f = e->factura();
    f.Tipo_Emision = 1;
    f.NumCopias = 2;
    f.EmisionMultiplesFacturas(0, true, {a, b}, true);
    EXPECT_TRUE(ui.vistos.empty()) << (ui.vistos.empty() ? "" : ui.vistos[0].texto.toStdString());
    ASSERT_TRUE(QFileInfo::exists(destino));
    const QString texto = TextoPdf(destino);
    EXPECT_TRUE(texto.contains(QStringLiteral("A/1")) && texto.contains(QStringLiteral("A/2")))
        << texto.toStdString();
    // A printer that is not there ends in the failure exit.
    ui.impresoras = {QStringLiteral("cola-que-no-existe")};
    f.EmisionMultiplesFacturas(0, true, {a}, true);
    ASSERT_EQ(ui.vistos.size(), 1u);
    EXPECT_EQ(ui.vistos[0].titulo, mensajes::kAccionCancelada);
}

VK_EN_AMBOS_MOTORES(Emision);

} // namespace
} // namespace vk::prueba
