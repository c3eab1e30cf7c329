// The built-in delivery note and transport classes, reached by name as the
// invoice edit screen reaches them: the search of a customer's pending notes,
// the note's read-only model, and a transport leg invoiced and removed
// through the screen's menu, with the invoice's totals and receipts following
// and a leg another invoice took refused.
#include "EmpresaPrueba.h"

#include <AlbaranesIncorporados.h>
#include <FacturacionAlbaranes.h>
#include <LanzadorPantallas.h>
#include <MensajesSuite.h>
#include <QtGlobal>
#include <TesoreriaIncorporada.h>
#include <TransportesIncorporados.h>
#include <frmAlbaranVenta.h>
#include <frmEdicionFacturas.h>
#include <frmIniFav.h>
#include <frmTramo.h>
#include <functional>

namespace vk::prueba {
namespace {

const QDate kDia1(2026, 3, 1);
const QDate kDia5(2026, 3, 5);
const QDate kDia10(2026, 3, 10);
const QDate kDia12(2026, 3, 12);

class LanzadorAnotado : public LanzadorPantallas {
public:
    void Muestra(const PeticionPantalla& p) override { vistas.push_back(p); }
    std::vector<PeticionPantalla> vistas;
};

// A script in which another user acts while the amount is being typed.
class GuionConOtroUsuario : public InteraccionGuion {
public:
    std::function<void()> mientrasTeclea;
    std::optional<QString> PideTexto(const QString& texto, const QString& titulo,
                                     const QString& defecto) override {
        if (mientrasTeclea) {
            mientrasTeclea();
        }
        return InteraccionGuion::PideTexto(texto, titulo, defecto);
    }
};

qint64 centimos(double x) {
    return qRound64(x * 100);
}

class AlbaranesTransportes : public PruebaMotores {
protected:
    void SetUp() override {
        suite::RegistraTesoreria();
        suite::RegistraAlbaranes();
        suite::RegistraTransportes();
        EstableceLanzador(&lanzador);
        e = std::make_unique<EmpresaPrueba>(GetParam());
        contado = e->formaPago(QStringLiteral("Contado"), {{0, 100, 1}});
        ClientePrueba c;
        c.idFco = contado;
        cliente = e->cliente(c);
        otro = e->cliente(c);
    }
    void TearDown() override {
        e.reset();
        EstableceLanzador(nullptr);
        OlvidaComponente(QString::fromLatin1(VKAlbVentas::kProgId));
        OlvidaComponente(QString::fromLatin1(VKTrans::kProgId));
        OlvidaComponente(QString::fromLatin1(VKTESORE::kProgId));
    }

    // A whole invoice, as the batch makes it: totals and receipts.
    qint32 factura(qint32 idCliente, const QDate& fecha, const std::vector<qint32>& notas) {
        CabeceraFactura c;
        c.serie = QStringLiteral("A");
        c.fecha = fecha;
        c.idCliente = idCliente;
        c.idFco = contado;
        e->ui().dialogos.push_back(
            [](DialogoModelo& d) { return dynamic_cast<frmIniFav&>(d).cmdInforme(); });
        const ResultadoFacturacion r = FacturaAlbaranes(e->factura(), c, notas);
        e->ui().dialogos.clear();
        EXPECT_EQ(r.estado, EstadoFacturacion::Hecha) << r.motivo.toStdString();
        return r.idFactura;
    }
    // 100 at 21 % and 50 at 10 %.
    qint32 albaran(qint32 idCliente, const QDate& fecha, qint32 agente = 0) {
        return e->albaran(idCliente, fecha, 1, {{100}, {50, 1, 2}}, agente);
    }
    qint32 inserta(const QString& sql, const QVariantList& valores) {
        return static_cast<qint32>(e->cn().Execute(sql, valores).Fields(0).Entero());
    }
    QVariant valor(const QString& sql, const QVariantList& valores) {
        Recordset rs = e->cn().Execute(sql, valores);
        return rs.Eof() ? QVariant() : rs.Fields(0).Value();
    }
    // A trip V/3 loading in Valencia on the 10th and a leg unloading in
    // `destino` on the 12th, not invoiced (written as a new leg is, 0).
    qint32 tramo(const QString& destino) {
        const QVariant fecha = e->bd().dialecto().valorFecha(kDia10);
        const qint32 via = inserta(QStringLiteral("INSERT INTO TrVia (TrVia_Serie, TrVia_Numero) "
                                                  "VALUES ('V', 3) RETURNING TrVia_Id"),
                                   {});
        inserta(QStringLiteral("INSERT INTO TrViaVeh (TrViaVeh_IdVia, TrViaVeh_MatriTra, "
                               "TrViaVeh_MatriRem) VALUES (?, '1234-BCD', 'R-0001-BBB') "
                               "RETURNING TrViaVeh_Id"),
                {via});
        const qint32 carga = inserta(
            QStringLiteral("INSERT INTO TrCar (TrCar_IdVia, TrCar_Fecha, TrCar_Poblacion, "
                           "TrCar_NomEmp, TrCar_Cantidad, TrCar_Unidad, TrCar_Pais, "
                           "TrCar_sAlbaran) VALUES (?, ?, 'Valencia', 'Cerámicas del Turia', "
                           "24, 'Tn', '011', 'AC-77') RETURNING TrCar_Id"),
            {via, fecha});
        return inserta(QStringLiteral("INSERT INTO TrDes (TrDes_IdCar, TrDes_FDescarga, "
                                      "TrDes_Poblacion, TrDes_NomEmp, TrDes_Kilos, TrDes_Pais) "
                                      "VALUES (?, ?, ?, 'Obras del Puerto', 24000, '011') "
                                      "RETURNING TrDes_Id"),
                       {carga, e->bd().dialecto().valorFecha(kDia12), destino});
    }
    std::unique_ptr<frmEdicionFacturas> pantalla(qint32 idFactura) {
        const qint32 numero = static_cast<qint32>(
            e->cuenta(QStringLiteral("SELECT Fav_Numero FROM Fav WHERE Fav_Id = ?"), {idFactura}));
        return std::make_unique<frmEdicionFacturas>(e->factura(), QStringLiteral("A"), numero);
    }
    qint64 totalFactura(qint32 id) {
        return centimos(
            valor(QStringLiteral("SELECT Fav_Total FROM Fav WHERE Fav_Id = ?"), {id}).toDouble());
    }
    qint64 recibos(qint32 id) {
        return centimos(valor(QStringLiteral("SELECT COALESCE(SUM(Rec_Importe), 0) FROM Rec "
                                             "WHERE Rec_Tipo = 1 AND Rec_IdFac = ?"),
                              {id})
                            .toDouble());
    }
    // Everything the invoice holds, as text: compared before and after.
    QString todo(qint32 id) {
        QStringList r;
        const QString consultas[] = {
            QStringLiteral("SELECT * FROM Fav WHERE Fav_Id = ?"),
            QStringLiteral("SELECT * FROM Rec WHERE Rec_IdFac = ? ORDER BY Rec_Id"),
            QStringLiteral("SELECT Lav.* FROM Lav INNER JOIN Cav ON Cav_Id = Lav_IdCav WHERE "
                           "Cav_IdFactura = ? ORDER BY Lav_Id")};
        for (const QString& sql : consultas) {
            for (Recordset rs = e->cn().Execute(sql, {id}); !rs.Eof(); rs.MoveNext()) {
                for (int i = 0; i < rs.FieldCount(); ++i) {
                    r << rs.Fields(i).Texto();
                }
            }
        }
        return r.join(u'|');
    }
    int filaDeTramo(const frmEdicionFacturas& p) {
        for (int i = 0; i < static_cast<int>(p.dbgAlbaranes.size()); ++i) {
            if (p.dbgAlbaranes[i].Lav_IdViaje > 0) {
                return i;
            }
        }
        return -1;
    }

    LanzadorAnotado lanzador;
    std::unique_ptr<EmpresaPrueba> e;
    qint32 contado = 0, cliente = 0, otro = 0;
};

TEST_P(AlbaranesTransportes, SearchListsOnlyTheCustomersPendingNotesNewestFirst) {
    const qint32 viejo = albaran(cliente, kDia1);
    const qint32 nuevo = albaran(cliente, kDia10);
    const qint32 medio = albaran(cliente, kDia5);
    factura(cliente, kDia5, {albaran(cliente, kDia1)}); // invoiced: not listed
    albaran(otro, kDia5);                               // another customer's
    const qint32 numeroMedio = static_cast<qint32>(
        e->cuenta(QStringLiteral("SELECT Cav_Numero FROM Cav WHERE Cav_Id = ?"), {medio}));

    auto albaranes = CreaObjeto<VKAlbVentas>(QString::fromLatin1(VKAlbVentas::kProgId));
    albaranes->MyBd = &e->bd();
    e->ui().busquedas = {1};
    const auto elegido = albaranes->BuscaAlbaranesCliente(cliente);
    ASSERT_EQ(e->ui().peticionesBusca.size(), 1u);
    const PeticionBusca& p = e->ui().peticionesBusca.back();
    EXPECT_EQ(p.titulo, QStringLiteral("Albaranes pendientes del cliente"));
    ASSERT_EQ(p.filas.size(), 3u);
    EXPECT_EQ(p.filas[0][0].toInt(), nuevo);
    EXPECT_EQ(p.filas[1][0].toInt(), medio);
    EXPECT_EQ(p.filas[2][0].toInt(), viejo);
    EXPECT_EQ(p.filas[0][1].toString(), QStringLiteral("A"));
    EXPECT_EQ(p.filas[0][3].toString(), QStringLiteral("10/03/2026"));
    EXPECT_EQ(p.filas[0][4].toString(), QStringLiteral("150,00 €"));
    ASSERT_TRUE(elegido);
    EXPECT_EQ(elegido->serie, QStringLiteral("A"));
    EXPECT_EQ(elegido->numero, numeroMedio);

    // Nothing chosen, nothing returned.
    EXPECT_FALSE(albaranes->BuscaAlbaranesCliente(cliente));
}

TEST_P(AlbaranesTransportes, TheNoteModelLoadsHeaderLinesStateAndCurrentLine) {
    const qint32 agente = inserta(
        QStringLiteral("INSERT INTO Age (AGE_NOM) VALUES ('Marta Ruiz') RETURNING AGE_ID"), {});
    const qint32 nota = albaran(cliente, kDia1, agente);
    e->cn().Execute(QStringLiteral("UPDATE Cav SET Cav_IdFco = ?, Cav_Dto1 = 5 WHERE Cav_Id = ?"),
                    {contado, nota});
    const qint32 pendiente = albaran(cliente, kDia5);
    const qint32 id = factura(cliente, kDia5, {nota});
    const QString numero =
        valor(QStringLiteral("SELECT Cav_Numero FROM Cav WHERE Cav_Id = ?"), {nota}).toString();
    const qint32 segunda =
        valor(QStringLiteral("SELECT Lav_Id FROM Lav WHERE Lav_IdCav = ? AND Lav_Orden = 2"),
              {nota})
            .toInt();

    frmAlbaranVenta m(e->bd(), nota, segunda);
    EXPECT_EQ(m.txtAlbaran, QStringLiteral("A/") + numero);
    EXPECT_EQ(m.txtFecha, QStringLiteral("01/03/2026"));
    EXPECT_EQ(
        m.txtCliCod,
        valor(QStringLiteral("SELECT Cli_Cod FROM Cli WHERE Cli_Id = ?"), {cliente}).toString());
    EXPECT_TRUE(m.txtCliNom.contains(QStringLiteral("Cliente"))) << m.txtCliNom.toStdString();
    EXPECT_EQ(m.txtFactura, QStringLiteral("A/1"));
    EXPECT_EQ(m.txtSituacion, QStringLiteral("Facturado en A/1"));
    EXPECT_EQ(m.txtFormaPago, QStringLiteral("Contado"));
    EXPECT_EQ(m.txtDto1, QStringLiteral("5,00"));
    EXPECT_EQ(m.txtAgente, QStringLiteral("Marta Ruiz"));
    ASSERT_EQ(m.dbgLineas.size(), 2u);
    EXPECT_EQ(m.dbgLineas[0].orden, QStringLiteral("1"));
    EXPECT_EQ(m.dbgLineas[0].descripcion, QStringLiteral("Línea 1"));
    EXPECT_EQ(m.dbgLineas[0].cantidad, QStringLiteral("1"));
    EXPECT_EQ(m.dbgLineas[0].precio, QStringLiteral("100,00"));
    EXPECT_EQ(m.dbgLineas[0].importe, QStringLiteral("100,00 €"));
    EXPECT_EQ(m.dbgLineas[0].iva, QStringLiteral("21,00"));
    EXPECT_EQ(m.dbgLineas[1].iva, QStringLiteral("10,00"));
    EXPECT_EQ(m.dbgLineas[1].Lav_Id, segunda);
    EXPECT_TRUE(m.dbgLineas[1].tramo.isEmpty());
    EXPECT_EQ(m.filaLinea, 1);
    EXPECT_EQ(m.txtTotal, QStringLiteral("150,00 €"));

    frmAlbaranVenta p(e->bd(), pendiente, 0);
    EXPECT_EQ(p.txtSituacion, QStringLiteral("Pendiente"));
    EXPECT_TRUE(p.txtFactura.isEmpty());
    EXPECT_EQ(p.filaLinea, 0);

    EXPECT_THROW(frmAlbaranVenta(e->bd(), 999999, 0), ErrorRegla);

    // The edit screen opens the note on its current line through the launcher.
    auto s = pantalla(id);
    ASSERT_EQ(s->dbgAlbaranes.size(), 2u);
    s->filaAlbaran = 1;
    s->cmdEditar();
    ASSERT_EQ(lanzador.vistas.size(), 1u);
    EXPECT_EQ(lanzador.vistas[0].pantalla, QStringLiteral("frmAlbaranVenta"));
    EXPECT_EQ(lanzador.vistas[0].argumentos.value(QStringLiteral("idCav")).toInt(), nota);
    EXPECT_EQ(lanzador.vistas[0].argumentos.value(QStringLiteral("idLav")).toInt(),
              s->dbgAlbaranes[1].Lav_Id);
}

TEST_P(AlbaranesTransportes, ALegIsInvoicedThroughTheEditScreenAndRemovedAgain) {
    const qint32 nota = albaran(cliente, kDia1);
    const qint32 id = factura(cliente, kDia5, {nota});
    ASSERT_EQ(totalFactura(id), 17600); // 100 + 21 + 50 + 5
    ASSERT_EQ(recibos(id), 17600);
    const qint32 libre = tramo(QStringLiteral("Sagunto"));
    // A leg some other line invoices is not offered.
    const qint32 ocupado = tramo(QStringLiteral("Castellón"));
    e->cn().Execute(QStringLiteral("UPDATE TrDes SET TrDes_IdLav = 999 WHERE TrDes_Id = ?"),
                    {ocupado});
    const QVariant tivaPrimera = valor(
        QStringLiteral("SELECT Lav_Tiva FROM Lav WHERE Lav_IdCav = ? AND Lav_Orden = 1"), {nota});

    auto p = pantalla(id);
    e->ui().ResponderSiSiempre(true);
    e->ui().busquedas = {0};
    e->ui().textos = {QStringLiteral("40,00")};
    p->mnu04();
    EXPECT_FALSE(p->ultimaOrdenFallida);
    ASSERT_FALSE(e->ui().peticionesBusca.empty());
    const PeticionBusca& lista = e->ui().peticionesBusca.back();
    EXPECT_EQ(lista.titulo, QStringLiteral("Tramos pendientes de facturar"));
    ASSERT_EQ(lista.filas.size(), 1u);
    EXPECT_EQ(lista.filas[0][0].toInt(), libre);
    EXPECT_EQ(lista.filas[0][1].toString(), QStringLiteral("V/3"));
    EXPECT_EQ(lista.filas[0][2].toString(), QStringLiteral("Porte Valencia - Sagunto 12/03/2026"));

    Recordset l = e->cn().Execute(
        QStringLiteral("SELECT Lav_Id, Lav_IdCav, Lav_Orden, Lav_Des, Lav_Cantidad, Lav_Uni, "
                       "Lav_Precio, Lav_Importe, Lav_Tiva FROM Lav WHERE Lav_IdViaje = ?"),
        {libre});
    ASSERT_EQ(l.RecordCount(), 1);
    const qint64 linea = l.Fields(0).Entero();
    EXPECT_EQ(l.Fields(1).Entero(), nota);
    EXPECT_EQ(l.Fields(2).Entero(), 3);
    EXPECT_EQ(l.Fields(3).Texto(), QStringLiteral("Porte Valencia - Sagunto 12/03/2026"));
    EXPECT_DOUBLE_EQ(l.Fields(4).Doble(), 1);
    EXPECT_DOUBLE_EQ(l.Fields(5).Doble(), 1);
    EXPECT_DOUBLE_EQ(l.Fields(6).Doble(), 40);
    EXPECT_DOUBLE_EQ(l.Fields(7).Doble(), 40);
    EXPECT_EQ(l.Fields(8).Value().toLongLong(), tivaPrimera.toLongLong());
    EXPECT_EQ(
        e->cuenta(QStringLiteral("SELECT TrDes_IdLav FROM TrDes WHERE TrDes_Id = ?"), {libre}),
        linea);
    // 40 more at the first line's 21 %.
    EXPECT_EQ(totalFactura(id), 17600 + 4840);
    EXPECT_EQ(recibos(id), 17600 + 4840);
    ASSERT_EQ(p->dbgAlbaranes.size(), 3u);
    const int fila = filaDeTramo(*p);
    ASSERT_GE(fila, 0);
    EXPECT_EQ(p->dbgAlbaranes[fila].Lav_IdViaje, libre);

    // The leg's model and the screens the menu opens.
    frmTramo t(e->bd(), libre, 0);
    EXPECT_EQ(t.txtViaje, QStringLiteral("V/3"));
    EXPECT_EQ(t.txtFechaDescarga, QStringLiteral("12/03/2026"));
    EXPECT_EQ(t.txtPoblacionDescarga, QStringLiteral("Sagunto"));
    EXPECT_EQ(t.txtEmpresaDescarga, QStringLiteral("Obras del Puerto"));
    EXPECT_EQ(t.txtKilos, QStringLiteral("24000"));
    EXPECT_EQ(t.txtPaisDescarga, QStringLiteral("011"));
    EXPECT_EQ(t.txtFechaCarga, QStringLiteral("10/03/2026"));
    EXPECT_EQ(t.txtPoblacionCarga, QStringLiteral("Valencia"));
    EXPECT_EQ(t.txtEmpresaCarga, QStringLiteral("Cerámicas del Turia"));
    EXPECT_EQ(t.txtCantidad, QStringLiteral("24"));
    EXPECT_EQ(t.txtUnidad, QStringLiteral("Tn"));
    EXPECT_EQ(t.txtAlbaranCarga, QStringLiteral("AC-77"));
    EXPECT_EQ(t.lstVehiculos, QStringList{QStringLiteral("1234-BCD / R-0001-BBB")});
    EXPECT_EQ(t.txtLinea, QStringLiteral("Porte Valencia - Sagunto 12/03/2026"));
    EXPECT_EQ(t.txtImporteLinea, QStringLiteral("40,00 €"));
    EXPECT_EQ(t.txtFacturaLinea, QStringLiteral("A/1"));
    p->filaAlbaran = fila;
    p->mnu01();
    ASSERT_EQ(lanzador.vistas.size(), 1u);
    EXPECT_EQ(lanzador.vistas[0].pantalla, QStringLiteral("frmTramo"));
    EXPECT_EQ(lanzador.vistas[0].argumentos.value(QStringLiteral("idTramo")).toInt(), libre);
    EXPECT_EQ(lanzador.vistas[0].argumentos.value(QStringLiteral("idLav")).toLongLong(), linea);
    p->mnu03();
    const PeticionBusca& viajes = e->ui().peticionesBusca.back();
    EXPECT_EQ(viajes.titulo, QStringLiteral("Tramos facturados al cliente"));
    ASSERT_EQ(viajes.filas.size(), 1u);
    EXPECT_EQ(viajes.filas[0][1].toString(), QStringLiteral("V/3"));
    EXPECT_EQ(viajes.filas[0][2].toString(), QStringLiteral("12/03/2026"));
    EXPECT_EQ(viajes.filas[0][3].toString(), QStringLiteral("Sagunto"));
    EXPECT_EQ(viajes.filas[0][4].toString(), QStringLiteral("40,00 €"));

    // Removing it frees the leg and takes the totals back.
    p->filaAlbaran = fila;
    p->mnu05();
    EXPECT_FALSE(p->ultimaOrdenFallida);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Lav WHERE Lav_Id = ?"), {linea}), 0);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM TrDes WHERE TrDes_Id = ? AND "
                                       "TrDes_IdLav IS NULL"),
                        {libre}),
              1);
    EXPECT_EQ(totalFactura(id), 17600);
    EXPECT_EQ(recibos(id), 17600);
    EXPECT_EQ(p->dbgAlbaranes.size(), 2u);
}

TEST_P(AlbaranesTransportes, ALegAnotherInvoiceTookMeanwhileIsRefusedAndNothingChanges) {
    const qint32 id = factura(cliente, kDia5, {albaran(cliente, kDia1)});
    const qint32 otra = factura(otro, kDia5, {albaran(otro, kDia1)});
    const qint32 t = tramo(QStringLiteral("Sagunto"));
    const QString antes = todo(id);

    GuionConOtroUsuario guion;
    UsaInteraccion usa(guion);
    guion.ResponderSiSiempre(true);
    guion.busquedas = {0};
    guion.textos = {QStringLiteral("40")};
    // While this person types the amount, another invoice takes the leg.
    guion.mientrasTeclea = [&] {
        suite::TransportesIncorporados otroUsuario;
        otroUsuario.MyBd = &e->bd();
        otroUsuario.FacturaTramo(otra, {t, 25, QStringLiteral("Porte")});
    };
    const qint64 deLaOtra = [&] {
        auto p = pantalla(id);
        p->mnu04();
        EXPECT_TRUE(p->ultimaOrdenFallida);
        return e->cuenta(QStringLiteral("SELECT TrDes_IdLav FROM TrDes WHERE TrDes_Id = ?"), {t});
    }();
    EXPECT_EQ(guion.Textos().value(guion.Textos().size() - 1),
              QStringLiteral("El tramo ya está facturado en otra factura."));
    EXPECT_EQ(todo(id), antes);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT COUNT(*) FROM Lav WHERE Lav_IdViaje = ?"), {t}), 1);
    EXPECT_EQ(e->cuenta(QStringLiteral("SELECT Lav_Id FROM Lav WHERE Lav_IdViaje = ?"), {t}),
              deLaOtra);
}

TEST_P(AlbaranesTransportes, AnAmountThatIsNotANumberIsToldAndGivesNothing) {
    tramo(QStringLiteral("Sagunto"));
    auto t = CreaObjeto<VKTrans>(QString::fromLatin1(VKTrans::kProgId));
    t->MyBd = &e->bd();
    e->ui().busquedas = {0};
    e->ui().textos = {QStringLiteral("cuarenta")};
    EXPECT_FALSE(t->EligeTramo(cliente));
    EXPECT_EQ(e->ui().Textos().value(0),
              QStringLiteral("«cuarenta» no es un importe válido: el tramo no se ha facturado."));
    // A note without lines gives the new line no VAT row: refused.
    const qint32 vacia = e->albaran(cliente, kDia1, 1, {});
    const qint32 id = e->nuevaFactura(cliente, kDia5, {vacia});
    ASSERT_GT(id, 0);
    try {
        t->FacturaTramo(id, {1, 10, QStringLiteral("Porte")});
        ADD_FAILURE() << "sin excepción";
    } catch (const ErrorRegla& error) {
        EXPECT_EQ(error.Mensaje(), suite::mensajes::kAlbaranSinLineas);
    }
}

VK_EN_AMBOS_MOTORES(AlbaranesTransportes);

} // namespace
} // namespace vk::prueba
