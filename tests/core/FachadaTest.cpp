// The facade: the record's defaults, the data protection clause, the screen
// entries and the simple issue's look-up.
#include "BasePrueba.h"
#include "EmisorAnotado.h"

#include <Error.h>
#include <InteraccionGuion.h>
#include <LanzadorPantallas.h>
#include <MensajesCore.h>
#include <VKFACVENTAS.h>

namespace vk::prueba {
namespace {

class LanzadorAnotado : public LanzadorPantallas {
public:
    void Muestra(const PeticionPantalla& p) override { vistas.push_back(p); }
    std::vector<PeticionPantalla> vistas;
};

class Fachada : public PruebaMotores {
protected:
    void SetUp() override {
        base = std::make_unique<BasePrueba>(GetParam());
        s = base->CreaEmpresa();
        s->cn().Execute(QStringLiteral("UPDATE Parametros SET PAR_NOMBRE = ?"),
                        {QStringLiteral("Ferretería López, S.L.")});
        s->RecargaParametros();
        EstableceLanzador(&lanzador);
        EstableceInteraccion(&ui);
    }
    void TearDown() override {
        EstableceLanzador(nullptr);
        EstableceInteraccion(nullptr);
        EmisorAnotado::Olvida();
    }
    std::unique_ptr<BasePrueba> base;
    std::unique_ptr<BdSesion> s;
    LanzadorAnotado lanzador;
    InteraccionGuion ui;
};

TEST_P(Fachada, ClauseOfTheCompany) {
    VKFACVENTAS f;
    EXPECT_EQ(f.NumCopias, 1);
    EXPECT_TRUE(f.sTextoLOPD.startsWith(QStringLiteral("En cumplimiento del artículo 5 de la Ley "
                                                       "Orgánica 15/1999")));
    EXPECT_TRUE(f.sTextoLOPD.endsWith(QStringLiteral("El Responsable del Fichero es: ")));

    f.setMyBd(*s);
    EXPECT_EQ(f.sTextoLOPD, TextoLOPDBase() + QStringLiteral("Ferretería López, S.L."));
    // The setter does not restore the built-in text: a second setting appends
    // the name again.
    f.setMyBd(*s);
    EXPECT_EQ(f.sTextoLOPD,
              TextoLOPDBase() + QStringLiteral("Ferretería López, S.L.Ferretería López, S.L."));

    // The company's own text wins, without its line breaks.
    s->cn().Execute(QStringLiteral("INSERT INTO ParamTextos (PTex_Tipo, PTex_Texto) VALUES (?, ?)"),
                    {0, QStringLiteral("Sus datos son nuestros.\r\nEscríbanos para ejercer sus "
                                       "derechos.\r\n")});
    VKFACVENTAS g;
    g.setMyBd(*s);
    EXPECT_EQ(g.sTextoLOPD,
              QStringLiteral("Sus datos son nuestros.Escríbanos para ejercer sus derechos."));
}

TEST_P(Fachada, ScreenEntriesGoThroughTheLauncher) {
    VKFACVENTAS f;
    f.setMyBd(*s);
    f.jEditaFactura(QString(), 5);
    f.jEditaFactura(QStringLiteral("A"), 0);
    EXPECT_TRUE(lanzador.vistas.empty());
    f.jEditaFactura(QStringLiteral("A"), 5, true);
    ASSERT_EQ(lanzador.vistas.size(), 1u);
    EXPECT_EQ(lanzador.vistas[0].pantalla, QStringLiteral("frmEdicionFacturas"));
    EXPECT_EQ(lanzador.vistas[0].argumentos.value(QStringLiteral("numero")).toInt(), 5);
    EXPECT_TRUE(lanzador.vistas[0].argumentos.value(QStringLiteral("soloLectura")).toBool());

    f.jFacturasVenta();
    f.jFacturasContrataciones();
    f.jRetencionesNoFiscales();
    f.jFacturaAlbaran();
    ASSERT_EQ(lanzador.vistas.size(), 3u);
    EXPECT_EQ(lanzador.vistas[1].pantalla, QStringLiteral("frmFacturasVenta"));
    EXPECT_EQ(lanzador.vistas[2].pantalla, QStringLiteral("frmFacturaContrataciones"));

    // With no invoice in hand the edit screen opens in its search state.
    f.jEmisionFacturas();
    EXPECT_TRUE(lanzador.vistas.back().argumentos.value(QStringLiteral("buscar")).toBool());

    EstableceLanzador(nullptr);
    try {
        f.jFacturasVenta();
        FAIL();
    } catch (const Error& e) {
        EXPECT_EQ(e.Mensaje(), mensajes::kSinLanzador.arg(QStringLiteral("frmFacturasVenta")));
    }
}

TEST_P(Fachada, AccountingLinkScreenFollowsTheSetting) {
    VKFACVENTAS f;
    f.setMyBd(*s);
    BdParametro& g = s->Parametros().Item(QStringLiteral("Par_GContable"));
    const auto pantalla = [&](const QVariant& valor, qint16 origen = 0) {
        g.setValue(valor);
        lanzador.vistas.clear();
        f.jConexionContable(origen, QStringLiteral("X"));
        return lanzador.vistas.empty() ? QString() : lanzador.vistas[0].pantalla;
    };
    EXPECT_EQ(pantalla(QVariant()), QStringLiteral("frmConexTelmaro"));
    EXPECT_EQ(pantalla(QStringLiteral("telmaro")), QStringLiteral("frmConexTelmaro"));
    EXPECT_EQ(pantalla(QStringLiteral("Orvacon")), QStringLiteral("frmConexOrvacon"));
    EXPECT_EQ(pantalla(QStringLiteral("ncs")), QStringLiteral("frmConexContable"));
    EXPECT_TRUE(ui.vistos.empty());
    EXPECT_EQ(pantalla(QStringLiteral("OTRO")), QString());
    EXPECT_EQ(ui.Textos(), QStringList{mensajes::kSinGestionContable});
    // Origin 1 ignores the setting.
    EXPECT_EQ(pantalla(QStringLiteral("NCS"), 1), QStringLiteral("frmConexOrvacon"));
    EXPECT_EQ(lanzador.vistas[0].argumentos.value(QStringLiteral("sConexion")).toString(),
              QStringLiteral("X"));
}

TEST_P(Fachada, SimpleIssueFindsTheInvoice) {
    s->cn().Execute(QStringLiteral("INSERT INTO Fav (Fav_Serie, Fav_Numero, Fav_IdCli) VALUES "
                                   "(?, ?, ?)"),
                    {QStringLiteral("B'1"), 33, 44});
    const qint32 id = static_cast<qint32>(
        s->cn().Execute(QStringLiteral("SELECT Fav_Id FROM Fav")).Fields(0).Entero());
    VKFACVENTAS f;
    f.setMyBd(*s);
    // Without a dispatcher the issue is a clear error.
    EXPECT_THROW(f.EmisionSimple(QStringLiteral("B'1"), 33), Error);

    EmisorAnotado::Registra();
    f.IdFactu = 0;
    f.EmisionSimple(QStringLiteral("B'1"), 34); // no such invoice: silent
    EXPECT_TRUE(EmisorAnotado::llamadas.empty());
    EXPECT_EQ(f.IdFactu, 0);
    f.EmisionSimple(QStringLiteral("B'1"), 33);
    ASSERT_EQ(EmisorAnotado::llamadas.size(), 1u);
    EXPECT_EQ(EmisorAnotado::llamadas[0], QVector<qint32>{id});
    EXPECT_EQ(f.IdFactu, id);
    EXPECT_EQ(f.IdCliente, 44);

    // The edit screen for printing loads the invoice in hand.
    f.jEmisionFacturas();
    EXPECT_EQ(lanzador.vistas.back().argumentos.value(QStringLiteral("serie")).toString(),
              QStringLiteral("B'1"));
    EXPECT_EQ(lanzador.vistas.back().argumentos.value(QStringLiteral("numero")).toInt(), 33);
}

TEST(FachadaSinSesion, UsingItBeforeMyBdIsAClearError) {
    VKFACVENTAS f;
    EXPECT_FALSE(f.TieneSesion());
    EXPECT_THROW(f.MyBd(), Error);
    EXPECT_THROW(CreaObjeto(QStringLiteral("VKNADA.NoExiste")), Error);
}

VK_EN_AMBOS_MOTORES(Fachada);

} // namespace
} // namespace vk::prueba
