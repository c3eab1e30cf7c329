// The built-in treasury class, reached by name as the invoicing reaches it:
// the receipts it writes, how a second run treats them, the collection text
// for the posting and its errors.
#include "BasePrueba.h"

#include <Error.h>
#include <LanzadorPantallas.h>
#include <MensajesCore.h>
#include <MensajesSuite.h>
#include <QtGlobal>
#include <TesoreriaIncorporada.h>
#include <Vencimientos.h>
#include <vector>

namespace vk::prueba {
namespace {

using suite::Plazo;

class LanzadorAnotado : public LanzadorPantallas {
public:
    void Muestra(const PeticionPantalla& p) override { vistas.push_back(p); }
    std::vector<PeticionPantalla> vistas;
};

qint64 centimos(double x) {
    return qRound64(x * 100);
}

class Tesoreria : public PruebaMotores {
protected:
    void SetUp() override {
        base = std::make_unique<BasePrueba>(GetParam());
        s = base->CreaEmpresa();
        suite::RegistraTesoreria();
    }
    void TearDown() override {
        OlvidaComponente(QString::fromLatin1(VKTESORE::kProgId));
        EstableceLanzador(nullptr);
    }

    qint32 inserta(const QString& sql, const QVariantList& valores) {
        return static_cast<qint32>(s->cn().Execute(sql, valores).Fields(0).Entero());
    }

    qint32 formaCobro(const QString& des, const std::vector<Plazo>& plazos) {
        const qint32 id =
            inserta(QStringLiteral("INSERT INTO Fco (Fco_Des) VALUES (?) RETURNING Fco_Id"), {des});
        for (const Plazo& p : plazos) {
            s->cn().Execute(QStringLiteral("INSERT INTO Fcol (Fcol_id, Fcol_Dias, "
                                           "Fcol_Porcentaje, Fcol_Mod) VALUES (?, ?, ?, ?)"),
                            {id, p.dias, p.porcentaje, p.modo});
        }
        return id;
    }

    qint32 cliente(qint32 fco) {
        return inserta(QStringLiteral("INSERT INTO Cli (Cli_Cod, Cli_Nom, Cli_Cta, cli_Fco) "
                                      "VALUES (?, ?, ?, ?) RETURNING Cli_Id"),
                       {430001, QStringLiteral("Comercial Hortolana, S.L."),
                        QStringLiteral("20810613810001843276"), fco});
    }

    qint32 factura(qint32 numero, const QDate& fecha, qint32 idCli, qint32 fco, double total) {
        return inserta(QStringLiteral("INSERT INTO Fav (Fav_Serie, Fav_Numero, Fav_Fecha, "
                                      "fav_idcli, Fav_IdFco, Fav_Total, Fav_Liquido) VALUES "
                                      "(?, ?, ?, ?, ?, ?, ?) RETURNING Fav_Id"),
                       {QStringLiteral("A"), numero, s->dialecto().valorFecha(fecha), idCli, fco,
                        total, total});
    }

    // The class as the invoicing prepares it.
    std::unique_ptr<VKTESORE> tesoreria(qint32 idFav, qint32 numero, const QDate& fecha,
                                        double total, qint32 idCli, qint32 fco) {
        auto t = CreaObjeto<VKTESORE>(QString::fromLatin1(VKTESORE::kProgId));
        t->MyBd = s.get();
        t->idfactura = idFav;
        t->SerieFactura = QStringLiteral("A");
        t->NumeroFactura = numero;
        t->NumFactura = numero;
        t->FechaFactura = fecha;
        t->TotalFactura = total;
        t->IdFormaCobro = fco;
        t->IdCliente = idCli;
        t->CtaCobroCliente = QStringLiteral("20810613810001843276");
        return t;
    }

    Recordset recibos(qint32 idFav) {
        return s->cn().Execute(QStringLiteral("SELECT * FROM Rec WHERE Rec_Tipo = 1 AND "
                                              "Rec_IdFac = ? ORDER BY Rec_FVto, Rec_Id"),
                               {idFav});
    }

    qint64 sumaCentimos(qint32 idFav) {
        qint64 suma = 0;
        for (Recordset rs = recibos(idFav); !rs.Eof(); rs.MoveNext()) {
            suma += centimos(rs.Fields(QStringLiteral("Rec_Importe")).Doble());
        }
        return suma;
    }

    std::unique_ptr<BasePrueba> base;
    std::unique_ptr<BdSesion> s;
};

TEST_P(Tesoreria, UnReciboPorVencimientoConLosDatosDeLaFactura) {
    const qint32 fco = formaCobro(QStringLiteral("30-60 días"), {{60, 50, 2}, {30, 50, 2}});
    const qint32 cli = cliente(fco);
    const QDate fecha(2026, 11, 15);
    const qint32 fav = factura(17, fecha, cli, fco, 1210);

    auto t = tesoreria(fav, 17, fecha, 1210, cli, fco);
    t->CtaBancoAsignado = QStringLiteral("00810613810001843276");
    t->sIban = QStringLiteral("ES9000810613810001843276");
    t->sSwift = QStringLiteral("BSABESBBXXX");
    t->bCartera = true;
    t->Idagente = 7;
    t->Calculo_Vtos_Factura(0);
    EXPECT_EQ(t->sCobro(), QString());

    Recordset rs = recibos(fav);
    ASSERT_EQ(rs.RecordCount(), 2);
    const QDate vtos[] = {QDate(2026, 12, 15), QDate(2027, 1, 14)};
    for (int i = 0; i < 2; ++i, rs.MoveNext()) {
        const auto f = [&](const char* c) { return rs.Fields(QString::fromLatin1(c)); };
        EXPECT_EQ(f("Rec_FVto").Fecha(), vtos[i]);
        EXPECT_EQ(centimos(f("Rec_Importe").Doble()), 60500);
        EXPECT_EQ(f("Rec_IdClPr").Entero(), cli);
        EXPECT_EQ(f("Rec_Serie").Texto(), QStringLiteral("A"));
        EXPECT_EQ(f("Rec_Numero").Entero(), 17);
        EXPECT_EQ(f("Rec_Cta").Texto(), QStringLiteral("20810613810001843276"));
        EXPECT_EQ(f("Rec_CtaBanco").Texto(), QStringLiteral("00810613810001843276"));
        EXPECT_EQ(f("Rec_Iban").Texto(), QStringLiteral("ES9000810613810001843276"));
        EXPECT_EQ(f("Rec_Swift").Texto(), QStringLiteral("BSABESBBXXX"));
        EXPECT_EQ(f("Rec_Mod").Entero(), 2);
        EXPECT_EQ(f("Rec_Sit").Entero(), 1);
        EXPECT_EQ(f("Rec_Age").Entero(), 7);
        EXPECT_EQ(f("Rec_IdRem").Entero(), 0);
        EXPECT_EQ(f("Rec_Cartera").Entero(), 1);
        EXPECT_EQ(f("Rec_Obser").Texto(), QString());
        // Every receipt carries the way of payment the invoice prints.
        EXPECT_EQ(f("Rec_Texto").Texto(),
                  QStringLiteral("30-60 días#15/12/2026  605,00 €#14/01/2027  605,00 €"));
    }
    // The print query's first row.
    rs = s->cn().Execute(QStringLiteral("SELECT Rec_Texto FROM Rec WHERE Rec_Tipo = 1 AND "
                                        "Rec_IdFac = ? LIMIT 1"),
                         {fav});
    EXPECT_TRUE(rs.Fields(0).Texto().startsWith(QStringLiteral("30-60 días#15/12/2026")));
}

TEST_P(Tesoreria, DiasDePagoMesSinPagoYCentimosDelUltimo) {
    const qint32 fco = formaCobro(QStringLiteral("Recibo 30-60-90"),
                                  {{30, 33.33, 2}, {60, 33.33, 2}, {90, 33.34, 2}});
    const qint32 cli = cliente(fco);
    const QDate fecha(2026, 7, 11);
    const qint32 fav = factura(18, fecha, cli, fco, 1000.01);

    auto t = tesoreria(fav, 18, fecha, 1000.01, cli, fco);
    t->DiasPago1 = 20;
    t->DiasPago2 = 5;
    t->MesSinPago = 8;
    t->Calculo_Vtos_Factura(0);

    Recordset rs = recibos(fav);
    ASSERT_EQ(rs.RecordCount(), 3);
    // 10 Aug -> 20 Aug -> 1 Sep -> 5 Sep; 9 Sep -> 20 Sep; 9 Oct -> 20 Oct.
    const QDate vtos[] = {QDate(2026, 9, 5), QDate(2026, 9, 20), QDate(2026, 10, 20)};
    const qint64 importes[] = {33330, 33330, 33341};
    for (int i = 0; i < 3; ++i, rs.MoveNext()) {
        EXPECT_EQ(rs.Fields(QStringLiteral("Rec_FVto")).Fecha(), vtos[i]);
        EXPECT_EQ(centimos(rs.Fields(QStringLiteral("Rec_Importe")).Doble()), importes[i]);
        // Without an agent or portfolio, and with no bank data given.
        EXPECT_EQ(rs.Fields(QStringLiteral("Rec_Age")).Entero(), 0);
        EXPECT_EQ(rs.Fields(QStringLiteral("Rec_Cartera")).Entero(), 0);
        EXPECT_EQ(rs.Fields(QStringLiteral("Rec_CtaBanco")).Texto(), QString());
    }
    EXPECT_EQ(sumaCentimos(fav), 100001);

    // A credit note: the receipts add up to its negative total as well.
    const qint32 abono = factura(19, fecha, cli, fco, -100.01);
    tesoreria(abono, 19, fecha, -100.01, cli, fco)->Calculo_Vtos_Factura(0);
    EXPECT_EQ(recibos(abono).RecordCount(), 3);
    EXPECT_EQ(sumaCentimos(abono), -10001);
}

TEST_P(Tesoreria, OtroCalculoReemplazaLosPendientesYRespetaLosEnCurso) {
    const qint32 fco = formaCobro(QStringLiteral("30-60 días"), {{30, 50, 2}, {60, 50, 2}});
    const qint32 cli = cliente(fco);
    const QDate fecha(2026, 11, 15);
    const qint32 fav = factura(20, fecha, cli, fco, 1210);
    const qint32 otra = factura(21, fecha, cli, fco, 50);
    tesoreria(otra, 21, fecha, 50, cli, fco)->Calculo_Vtos_Factura(0);
    // A purchase receipt that happens to share the id is not the invoice's.
    s->cn().Execute(QStringLiteral("INSERT INTO Rec (Rec_Tipo, Rec_IdFac, Rec_Importe, Rec_Sit) "
                                   "VALUES (2, ?, 99, 1)"),
                    {fav});

    auto t = tesoreria(fav, 20, fecha, 1210, cli, fco);
    t->Calculo_Vtos_Factura(0);
    t->Calculo_Vtos_Factura(0);
    EXPECT_EQ(recibos(fav).RecordCount(), 2);
    EXPECT_EQ(sumaCentimos(fav), 121000);

    // The first receipt goes to a remittance: a new calculation keeps it and
    // splits only the rest.
    const qint64 enCurso = recibos(fav).Fields(QStringLiteral("Rec_Id")).Entero();
    s->cn().Execute(QStringLiteral("UPDATE Rec SET Rec_Sit = 2 WHERE Rec_Id = ?"), {enCurso});
    t->Calculo_Vtos_Factura(0);
    Recordset rs = recibos(fav);
    ASSERT_EQ(rs.RecordCount(), 3);
    EXPECT_EQ(rs.Fields(QStringLiteral("Rec_Id")).Entero(), enCurso);
    EXPECT_EQ(rs.Fields(QStringLiteral("Rec_Sit")).Entero(), 2);
    EXPECT_EQ(centimos(rs.Fields(QStringLiteral("Rec_Importe")).Doble()), 60500);
    for (rs.MoveNext(); !rs.Eof(); rs.MoveNext()) {
        EXPECT_EQ(rs.Fields(QStringLiteral("Rec_Sit")).Entero(), 1);
        EXPECT_EQ(centimos(rs.Fields(QStringLiteral("Rec_Importe")).Doble()), 30250);
        EXPECT_EQ(rs.Fields(QStringLiteral("Rec_Texto")).Texto(),
                  QStringLiteral("30-60 días#15/12/2026  302,50 €#14/01/2027  302,50 €"));
    }
    EXPECT_EQ(sumaCentimos(fav), 121000);

    // Everything under way: nothing is left to collect, nothing is written.
    s->cn().Execute(QStringLiteral("UPDATE Rec SET Rec_Sit = 3 WHERE Rec_Tipo = 1 AND "
                                   "Rec_IdFac = ?"),
                    {fav});
    t->Calculo_Vtos_Factura(0);
    EXPECT_EQ(recibos(fav).RecordCount(), 3);
    EXPECT_EQ(sumaCentimos(fav), 121000);

    // Other invoices and purchases were never touched.
    EXPECT_EQ(recibos(otra).RecordCount(), 2);
    EXPECT_EQ(s->cn()
                  .Execute(QStringLiteral("SELECT COUNT(*) FROM Rec WHERE Rec_Tipo = 2"))
                  .Fields(0)
                  .Entero(),
              1);
}

TEST_P(Tesoreria, TrabajaDentroDeLaTransaccionDelLlamador) {
    const qint32 fco = formaCobro(QStringLiteral("A 30 días"), {{30, 100, 3}});
    const qint32 cli = cliente(fco);
    const QDate fecha(2026, 5, 4);
    const qint32 fav = factura(22, fecha, cli, fco, 80);
    auto t = tesoreria(fav, 22, fecha, 80, cli, fco);
    t->Calculo_Vtos_Factura(0);
    const qint64 id = recibos(fav).Fields(QStringLiteral("Rec_Id")).Entero();

    s->cn().BeginTrans();
    t->TotalFactura = 90;
    t->Calculo_Vtos_Factura(0);
    EXPECT_EQ(sumaCentimos(fav), 9000);
    s->cn().RollbackTrans();
    Recordset rs = recibos(fav);
    ASSERT_EQ(rs.RecordCount(), 1);
    EXPECT_EQ(rs.Fields(QStringLiteral("Rec_Id")).Entero(), id);
    EXPECT_EQ(centimos(rs.Fields(QStringLiteral("Rec_Importe")).Doble()), 8000);
}

TEST_P(Tesoreria, TextoDelCobroParaElAsiento) {
    const QDate fecha(2026, 3, 10);
    const qint32 contado = formaCobro(QStringLiteral("Contado"), {{0, 100, 1}});
    const qint32 tarjeta = formaCobro(QStringLiteral("Tarjeta"), {{0, 100, 7}});
    const qint32 aplazado = formaCobro(QStringLiteral("A 30 días"), {{30, 100, 3}});
    const qint32 mixto = formaCobro(QStringLiteral("Mitad y mitad"), {{0, 50, 1}, {0, 50, 7}});
    const qint32 cli = cliente(contado);
    const qint32 fav = factura(30, fecha, cli, contado, 50);
    const QString cuenta = QStringLiteral("57200001");

    auto t = tesoreria(fav, 30, fecha, 50, cli, contado);
    const auto cobroCon = [&](qint32 fco, qint16 compensa, const QString& cta) {
        t->IdFormaCobro = fco;
        t->CtaBancoAsignado = cta;
        t->Calculo_Vtos_Factura(compensa);
        return t->sCobro();
    };
    const auto cobro = [&](qint32 fco, qint16 compensa = 0) {
        return cobroCon(fco, compensa, cuenta);
    };
    EXPECT_EQ(cobro(contado), QStringLiteral("1"));
    Recordset rs = recibos(fav);
    ASSERT_EQ(rs.RecordCount(), 1);
    EXPECT_EQ(rs.Fields(QStringLiteral("Rec_FVto")).Fecha(), fecha);
    EXPECT_EQ(rs.Fields(QStringLiteral("Rec_Mod")).Entero(), 1);

    // The posting books the second piece as the account of the card.
    const QString conTarjeta = cobro(tarjeta);
    EXPECT_EQ(conTarjeta,
              QStringLiteral("7") + QChar(1) + cuenta + QChar(1) + QStringLiteral("Tarjeta"));
    EXPECT_EQ(conTarjeta.split(QChar(1)).value(1), cuenta);
    // A card without an account of digits is collected as cash.
    EXPECT_EQ(cobroCon(tarjeta, 0, QString()), QStringLiteral("1"));
    EXPECT_EQ(cobroCon(tarjeta, 0, QStringLiteral("ES12 3456")), QStringLiteral("1"));

    // Deferred, offset, mixed modes or terms without instalments: no
    // collection, also right after a call that gave one.
    EXPECT_EQ(cobro(aplazado), QString());
    EXPECT_EQ(cobro(contado, 1), QString());
    EXPECT_EQ(cobro(tarjeta, 1), QString());
    EXPECT_EQ(cobro(mixto), QString());
    EXPECT_EQ(cobro(9999), QString());
    // Unknown terms still leave one receipt on the invoice date.
    rs = recibos(fav);
    ASSERT_EQ(rs.RecordCount(), 1);
    EXPECT_EQ(rs.Fields(QStringLiteral("Rec_FVto")).Fecha(), fecha);
    EXPECT_EQ(rs.Fields(QStringLiteral("Rec_Texto")).Texto(),
              QStringLiteral("#10/03/2026  50,00 €"));
}

TEST_P(Tesoreria, ErroresYPantallaDeRecibos) {
    auto t = CreaObjeto<VKTESORE>(QString::fromLatin1(VKTESORE::kProgId));
    t->idfactura = 1;
    t->FechaFactura = QDate(2026, 3, 10);
    try {
        t->Calculo_Vtos_Factura(0);
        FAIL() << "sin sesión";
    } catch (const Error& e) {
        EXPECT_EQ(e.Mensaje(), suite::mensajes::kTesoreriaSinSesion);
    }
    t->MyBd = s.get();
    t->idfactura = 0;
    EXPECT_THROW(t->Calculo_Vtos_Factura(0), ErrorRegla);
    t->idfactura = 1;
    t->FechaFactura = QDate();
    EXPECT_THROW(t->Calculo_Vtos_Factura(0), ErrorRegla);
    EXPECT_EQ(s->cn().Execute(QStringLiteral("SELECT COUNT(*) FROM Rec")).Fields(0).Entero(), 0);

    try {
        t->jManteRecibos(42);
        FAIL() << "sin lanzador";
    } catch (const Error& e) {
        EXPECT_EQ(e.Mensaje(), mensajes::kSinLanzador.arg(QStringLiteral("frmManteRecibos")));
    }
    LanzadorAnotado lanzador;
    EstableceLanzador(&lanzador);
    t->bCobPag = true;
    t->jManteRecibos(42);
    ASSERT_EQ(lanzador.vistas.size(), 1u);
    EXPECT_EQ(lanzador.vistas[0].pantalla, QStringLiteral("frmManteRecibos"));
    EXPECT_EQ(lanzador.vistas[0].argumentos.value(QStringLiteral("idRecibo")).toInt(), 42);
    EXPECT_TRUE(lanzador.vistas[0].argumentos.value(QStringLiteral("bCobPag")).toBool());
}

VK_EN_AMBOS_MOTORES(Tesoreria);

} // namespace
} // namespace vk::prueba
