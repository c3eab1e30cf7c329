// An invoice read back from its row through the map that wrote it: the
// insert of NuevaFactura, the update of GrabaFactura and the load meet on
// every column, on both databases.
#include "EmpresaPrueba.h"

#include <BdCampos.h>
#include <CargaFactura.h>
#include <ColumnasFav.h>
#include <Redondeo.h>
#include <TesoreriaIncorporada.h>
#include <map>
#include <string>

namespace vk::prueba {
namespace {

const QDate kHoy(2026, 3, 10);

using Escrito = std::map<std::string, std::string>;

// What a statement would write of a record, column by column: how it is
// bound and its value, amounts in cents as the builder stores them.
Escrito escrito(RegistroFactura& r, OperacionFav op) {
    BdCampos c;
    EscribeColumnasFav(c, r, op);
    Escrito m;
    for (const BdCampo& campo : c.campos()) {
        const QString valor =
            campo.tipo == TipoCampo::Importe
                ? QString::number(Redondea(campo.valor.toDouble(), campo.decimales), 'f', 2)
                : campo.valor.toString();
        m[campo.nombre.toStdString()] =
            QStringLiteral("%1 %2").arg(static_cast<int>(campo.tipo)).arg(valor).toStdString();
    }
    return m;
}

// The row as text, every column.
QStringList fila(Conexion& cn, qint32 id) {
    Recordset r = cn.Execute(QStringLiteral("SELECT * FROM Fav WHERE Fav_Id = ?"), {id});
    QStringList t;
    for (int i = 0; !r.Eof() && i < r.FieldCount(); ++i) {
        t << r.Fields(i).Name() + QLatin1Char('=') + r.Fields(i).Texto(QStringLiteral("NULL"));
    }
    return t;
}

class Carga : public PruebaMotores {
protected:
    void SetUp() override {
        suite::RegistraTesoreria();
        e = std::make_unique<EmpresaPrueba>(GetParam());
    }

    // A shop under the surcharge regime with a non-fiscal retention on the
    // total: three slots, one with surcharge, header discounts, an address
    // with a number, remarks and an attention line. Calculated and saved.
    qint32 facturaCompleta(const QDate& fecha = kHoy) {
        const qint32 cli = e->cliente({.regimen = 2, .retNf = 5, .modoRetNf = 1});
        const qint32 general = e->albaran(cli, fecha, 1, {{100.05, 1, 1}, {10.05, 1, 2}});
        const qint32 recargo = e->albaran(cli, fecha, 2, {{40, 2, 1}});
        e->cn().Execute(QStringLiteral("UPDATE Cav SET Cav_Sg = ?, Cav_Nombre = ?, Cav_Num = ?, "
                                       "Cav_Piso = ?, Cav_Cp = ?, Cav_Poblacion = ?, "
                                       "Cav_Provincia = ? WHERE Cav_Id = ?"),
                        {QStringLiteral("C/"), QStringLiteral("Mayor"), 12, QStringLiteral("2º"),
                         QStringLiteral("28013"), QStringLiteral("Madrid"), 28, general});
        const qint32 id = e->nuevaFactura(cli, fecha, {general, recargo}, 5, 2);
        VKFACVENTAS& f = e->factura();
        f.CalculoTotalesFactura();
        f.Observaciones = QStringLiteral("Entrega en el muelle 3");
        f.Aatencion = QStringLiteral("Sra. Gómez");
        f.sCtaCompensa = QStringLiteral("43800001");
        EXPECT_TRUE(f.GrabaFactura(true, false));
        return id;
    }

    std::unique_ptr<EmpresaPrueba> e;
};

TEST_P(Carga, ASavedInvoiceLoadsBackWithEveryMappedField) {
    // The counter customer keeps the identity typed on the record, so every
    // column the insert writes comes from the record.
    VKFACVENTAS& f = e->factura();
    f.CliCod = 1;
    f.CliNom = QStringLiteral("Comprador ocasional");
    f.CliDoc = QStringLiteral("00000000T");
    e->parametro(QStringLiteral("Par_CliCon"), 1);
    const qint32 id = facturaCompleta();
    ASSERT_GT(id, 0);
    ASSERT_NE(f.ImpRecargo2, 0); // the surcharge slot, with its account
    ASSERT_NE(f.BaseIva3, 0);
    ASSERT_EQ(f.Num, QStringLiteral("12"));

    RegistroFactura leido;
    ASSERT_TRUE(fnCargaFactura(e->cn(), leido, id));
    EXPECT_EQ(leido.IdFactu, id);
    EXPECT_EQ(escrito(leido, OperacionFav::Alta), escrito(f, OperacionFav::Alta));
    EXPECT_EQ(escrito(leido, OperacionFav::Grabacion), escrito(f, OperacionFav::Grabacion));
    // The slots come back whole, through their type.
    for (std::size_t i = 0; i < kTramosIva; ++i) {
        EXPECT_DOUBLE_EQ(leido.TramosIva[i].Base, f.TramosIva[i].Base) << i;
        EXPECT_DOUBLE_EQ(leido.TramosIva[i].PorcentajeRecargo, f.TramosIva[i].PorcentajeRecargo)
            << i;
        EXPECT_EQ(leido.TramosIva[i].CtaIva, f.TramosIva[i].CtaIva) << i;
    }
    EXPECT_EQ(leido.CtaRec2, f.CtaRec2);
    EXPECT_EQ(leido.FechaFactura, kHoy);
}

TEST_P(Carga, SavingALoadedInvoiceRewritesItsRowUnchanged) {
    const qint32 primera = facturaCompleta();
    const QStringList antes = fila(e->cn(), primera);
    // A second invoice of other figures leaves the facade holding its own.
    const qint32 cli = e->cliente();
    const qint32 segunda =
        e->nuevaFactura(cli, kHoy.addDays(1), {e->albaran(cli, kHoy, 1, {{333.33, 1, 3}})});
    VKFACVENTAS& f = e->factura();
    f.CalculoTotalesFactura();
    ASSERT_TRUE(f.GrabaFactura(false, false));
    ASSERT_EQ(f.IdFactu, segunda);

    // Loaded into the facade, nothing of the second invoice is left to leak
    // into the first one's update.
    ASSERT_TRUE(f.CargaFactura(primera));
    EXPECT_EQ(f.IdFactu, primera);
    ASSERT_TRUE(f.GrabaFactura(false, false));
    EXPECT_EQ(fila(e->cn(), primera), antes);
}

TEST_P(Carga, NoSuchInvoiceLeavesTheRecordAlone) {
    RegistroFactura r;
    r.SerieFactura = QStringLiteral("B");
    r.BaseIva2 = 7;
    const qint64 sentencias = e->cn().Sentencias();
    EXPECT_FALSE(fnCargaFactura(e->cn(), r, 4242));
    EXPECT_EQ(e->cn().Sentencias() - sentencias, 1); // one SELECT, whatever it finds
    EXPECT_EQ(r.SerieFactura, QStringLiteral("B"));
    EXPECT_DOUBLE_EQ(r.TramosIva[1].Base, 7);
}

VK_EN_AMBOS_MOTORES(Carga);

} // namespace
} // namespace vk::prueba
