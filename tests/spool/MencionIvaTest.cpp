// The legal mention of an exempt or reverse-charge invoice in the foot of
// every text layout: on a line the foot leaves blank, so that nothing else
// moves, in the printer's code page and within the stationery's width.
#include "EmpresaSpool.h"

#include <Ficheros.h>
#include <LayoutsTexto.h>
#include <QDir>
#include <QFile>

namespace vk::prueba {
namespace {

const QDate kDia(2026, 3, 10);

using Layout = bool (*)(VKFACVENTAS&, const QVector<qint32>&);

struct LayoutNombrado {
    const char* nombre;
    Layout layout;
};

const LayoutNombrado kLayouts[] = {
    {"MATRICIAL", msFacturaSpoolMatricial}, {"PLT01", msFacturaSpoolPlt01},
    {"PLT02", msFacturaSpoolPlt02},         {"PLT03", msFacturaSpoolPlt03},
    {"PLT04", msFacturaSpoolPlt04},         {"PLT05", msFacturaSpoolPlt05},
    {"PLT06", msFacturaSpoolPlt06},         {"PLT07", msFacturaSpoolPlt07},
    {"PLT08", msFacturaSpoolPlt08},         {"PLT09", msFacturaSpoolPlt10},
    {"PLT11", msFacturaSpoolPlt11},         {"PLT12", msFacturaSpoolPlt12},
    {"PLT13", msFacturaSpoolPlt13},         {"GOMAS", msFacturaSpoolGomas},
    {"PLT14", msFacturaSpoolPlt14},         {"PLT15", msFacturaSpoolPlt15},
    {"PLT16", msFacturaSpoolPlt16},         {"PLT17", msFacturaSpoolPlt17},
};

QList<QByteArray> lineas(const QByteArray& bytes) {
    return bytes.split('\n');
}

class MencionIva : public PruebaMotores {
protected:
    void SetUp() override {
        s = std::make_unique<EmpresaSpool>(GetParam());
        const qint32 fco = s->formaPago(QStringLiteral("Transferencia a 30 días"), {{30, 100}});
        cliente = s->cliente(QStringLiteral("Fjordhandel"), QStringLiteral("AS"),
                             QStringLiteral("NO912345674MVA"), fco);
        // Zero-rate lines of the general regime: the same amounts an export
        // has, and no mention.
        albaran = s->albaran(cliente, kDia,
                             {{.des = QStringLiteral("Naranjas de Valencia, caja 15 kg"),
                               .uni = 40,
                               .precio = 18.5,
                               .familia = 4},
                              {.des = QStringLiteral("Mandarinas, caja 10 kg"),
                               .uni = 25,
                               .precio = 14.2,
                               .familia = 4}});
        id = s->factura(cliente, kDia, {albaran});
    }
    // Every line of the invoice on the tax row of that regime.
    void regimen(int reg) {
        s->e().cn().Execute(QStringLiteral("UPDATE Lav SET Lav_Tiva = ? WHERE Lav_IdCav = ?"),
                            {s->e().tipoIva(reg, 4, kDia), albaran});
    }
    void texto(int reg, const QString& mencion) {
        s->e().cn().Execute(
            QStringLiteral("UPDATE vkcomun.MENIVA SET MenIva_Texto = ? WHERE MenIva_Reg = ?"),
            {mencion, reg});
    }
    QByteArray imprime(Layout layout = msFacturaSpoolMatricial) { return s->imprime(layout, {id}); }
    void estacionario(const char* clave, const QByteArray& json) {
        ruta = QDir(fnCarpetaDatos()).filePath(QStringLiteral("spool/%1.json").arg(clave));
        QDir().mkpath(QDir(fnCarpetaDatos()).filePath(QStringLiteral("spool")));
        QFile f(ruta);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(json);
    }
    void TearDown() override {
        if (!ruta.isEmpty()) {
            QFile::remove(ruta);
        }
    }
    std::unique_ptr<EmpresaSpool> s;
    qint32 cliente = 0;
    qint32 albaran = 0;
    qint32 id = 0;
    QString ruta;
};

TEST_P(MencionIva, EveryLayoutPrintsTheExportMentionOnALineItsFootLeftBlank) {
    for (const LayoutNombrado& l : kLayouts) {
        SCOPED_TRACE(l.nombre);
        regimen(1);
        const QList<QByteArray> sin = lineas(imprime(l.layout));
        regimen(5);
        const QByteArray bytes = imprime(l.layout);
        const QList<QByteArray> con = lineas(bytes);
        EXPECT_TRUE(s->mensajes().isEmpty());
        // The same lines but one, blank without the mention.
        ASSERT_EQ(con.size(), sin.size()) << Legible(bytes).toStdString();
        int distintas = 0;
        for (qsizetype i = 0; i < con.size(); ++i) {
            if (con[i] != sin[i]) {
                ++distintas;
                EXPECT_EQ(sin[i], "\r");
                EXPECT_EQ(con[i], "Exenta art. 21 Ley 37/1992\r");
            }
        }
        EXPECT_EQ(distintas, 1) << Legible(bytes).toStdString();
    }
}

TEST_P(MencionIva, TheInstallationsTextIsTheOnePrintedInTheCodePage) {
    regimen(1);
    EXPECT_FALSE(imprime().contains("Exenta"));
    regimen(7);
    EXPECT_TRUE(imprime().contains("\r\nInversi\xa2n del sujeto pasivo\r\n"));
    regimen(5);
    texto(5, QStringLiteral("Operación exenta por exportación (art. 21 LIVA) €"));
    const QByteArray bytes = imprime(msFacturaSpoolPlt03);
    EXPECT_TRUE(bytes.contains("\r\nOperaci\xa2n exenta por exportaci\xa2n (art. 21 LIVA) EUR\r\n"))
        << Legible(bytes).toStdString();
    EXPECT_FALSE(bytes.contains("Ley 37/1992"));
}

TEST_P(MencionIva, AnInvoiceOfTwoRegimesPrintsBothMentions) {
    regimen(5);
    s->e().cn().Execute(
        QStringLiteral("UPDATE Lav SET Lav_Tiva = ? WHERE Lav_IdCav = ? AND Lav_Orden = 1"),
        {s->e().tipoIva(6, 4, kDia), albaran});
    const QByteArray bytes = imprime();
    EXPECT_TRUE(bytes.contains("\r\nExenta art. 21 Ley 37/1992. Exenta art. 25 Ley 37/1992\r\n"))
        << Legible(bytes).toStdString();
}

TEST_P(MencionIva, WhatTheGapHasNoRoomForFollowsTheFootWithinTheWidth) {
    estacionario("MATRICIAL", R"({"lineasHuecoIva": 1, "anchoMencion": 30})");
    regimen(1);
    const QList<QByteArray> sin = lineas(imprime());
    regimen(5);
    texto(5, QStringLiteral("Exportación exenta según el artículo 21.1 de la Ley 37/1992, del "
                            "Impuesto sobre el Valor Añadido"));
    const QByteArray bytes = imprime();
    const QList<QByteArray> con = lineas(bytes);
    // One free line under the VAT row has no room for it: the foot prints
    // as without it, and the whole mention follows.
    ASSERT_GT(con.size(), sin.size()) << Legible(bytes).toStdString();
    EXPECT_EQ(con.mid(0, sin.size() - 1), sin.mid(0, sin.size() - 1))
        << Legible(bytes).toStdString();
    QStringList trozos;
    for (qsizetype i = sin.size() - 1; i < con.size() - 1; ++i) {
        ASSERT_TRUE(con[i].endsWith('\r'));
        const QByteArray linea = con[i].chopped(1);
        EXPECT_LE(linea.size(), 30) << linea.toStdString();
        trozos << Legible(linea);
    }
    EXPECT_TRUE(con.last().isEmpty());
    EXPECT_EQ(trozos.join(u' '),
              QStringLiteral("Exportación exenta según el artículo 21.1 de la Ley 37/1992, del "
                             "Impuesto sobre el Valor Añadido"));
    ASSERT_EQ(trozos.size(), 4);

    // A gap with room for all its lines takes them.
    estacionario("MATRICIAL", R"({"lineasHuecoIva": 5, "anchoMencion": 30})");
    regimen(1);
    const QList<QByteArray> hueco = lineas(imprime());
    regimen(5);
    const QByteArray cabe = imprime();
    ASSERT_EQ(lineas(cabe).size(), hueco.size()) << Legible(cabe).toStdString();
    EXPECT_TRUE(cabe.contains("\r\n" + con[sin.size() - 1] + "\n" + con[sin.size()] + "\n" +
                              con[sin.size() + 1] + "\n" + con[sin.size() + 2] + "\n\r\n" +
                              "---------------CONDICIONES DE PAGO"))
        << Legible(cabe).toStdString();
}

VK_EN_AMBOS_MOTORES(MencionIva);

} // namespace
} // namespace vk::prueba
