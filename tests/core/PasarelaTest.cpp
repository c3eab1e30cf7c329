// The data gateway on both backends: recordsets, the statement builder,
// transactions and the parameter record.
#include "BasePrueba.h"

#include <BdSesion.h>
#include <ErrorBd.h>
#include <QDate>

namespace vk::prueba {
namespace {

class Pasarela : public PruebaMotores {
protected:
    void SetUp() override {
        base = std::make_unique<BasePrueba>(GetParam());
        s = base->CreaEmpresa();
    }
    // Inserts a row in Age (agents) and returns its id.
    qint64 agente(const QString& nombre) {
        QString msg;
        qint64 id = 0;
        s->Tabla(QStringLiteral("Age"));
        s->Limpia(0);
        s->xlsCampos().Add(QStringLiteral("Age_Nom"), TipoCampo::Texto, nombre);
        EXPECT_TRUE(s->Inserta(msg, &id)) << msg.toStdString();
        return id;
    }
    std::unique_ptr<BasePrueba> base;
    std::unique_ptr<BdSesion> s;
};

TEST_P(Pasarela, RecordsetIsClientSideAndWalksBothWays) {
    for (const char* n : {"Ana", "Benito", "Carmen"}) {
        agente(QString::fromLatin1(n));
    }
    Recordset rs = s->cn().Execute(
        QStringLiteral("SELECT AGE_ID, Age_Nom FROM Age WHERE AGE_ID > ? ORDER BY Age_Nom"), {0});
    ASSERT_EQ(rs.RecordCount(), 3);
    EXPECT_FALSE(rs.Eof());
    EXPECT_FALSE(rs.Bof());
    // Case-insensitive field names, whatever the backend folds them to.
    EXPECT_EQ(rs.Fields(QStringLiteral("age_nom")).Texto(), QStringLiteral("Ana"));
    EXPECT_EQ(rs.Fields(QStringLiteral("AGE_NOM")).Value().toString(), QStringLiteral("Ana"));
    rs.MoveLast();
    EXPECT_EQ(rs.Fields(QStringLiteral("Age_Nom")).Texto(), QStringLiteral("Carmen"));
    rs.MoveNext();
    EXPECT_TRUE(rs.Eof());
    EXPECT_THROW(rs.Fields(QStringLiteral("Age_Nom")).Value(), ErrorBd);
    EXPECT_THROW(rs.MoveNext(), ErrorBd);
    rs.MoveFirst();
    rs.MovePrevious();
    EXPECT_TRUE(rs.Bof());
    rs.MoveFirst();
    EXPECT_TRUE(rs.Find(QStringLiteral("Age_Nom = 'benito'")));
    EXPECT_EQ(rs.AbsolutePosition(), 1);
    EXPECT_FALSE(rs.Find(QStringLiteral("Age_Nom"), QStringLiteral("Ana"))); // only forward
    EXPECT_TRUE(rs.Eof());
    EXPECT_THROW(rs.Fields(QStringLiteral("NoExiste")), ErrorBd);

    // A second recordset open on the same connection, and an empty one.
    rs.MoveFirst();
    Recordset otro = s->cn().Execute(QStringLiteral("SELECT COUNT(*) AS n FROM Age"));
    EXPECT_EQ(otro.Fields(QStringLiteral("n")).Entero(), 3);
    EXPECT_EQ(rs.Fields(QStringLiteral("Age_Nom")).Texto(), QStringLiteral("Ana"));
    Recordset vacio = s->cn().Execute(QStringLiteral("SELECT * FROM Age WHERE Age_Nom = ?"),
                                      {QStringLiteral("X")});
    EXPECT_TRUE(vacio.Eof() && vacio.Bof());
    EXPECT_EQ(vacio.RecordCount(), 0);

    // Statements that change rows.
    s->cn().Execute(QStringLiteral("UPDATE Age SET Age_Nom = Age_Nom || ? WHERE Age_Nom <> ?"),
                    {QStringLiteral("!"), QStringLiteral("Ana")});
    EXPECT_EQ(s->cn().RecordsAffected(), 2);
    EXPECT_THROW(s->cn().Execute(QStringLiteral("SELECT * FROM TablaQueNoExiste")), ErrorBd);
}

TEST_P(Pasarela, BoundValuesComeBackAsTheyWentAndFailuresAreTold) {
    Conexion& cn = s->cn();
    const auto nombre = [&](const QVariant& v) {
        const qint64 id =
            cn.Execute(QStringLiteral("INSERT INTO Age (Age_Nom) VALUES (?) RETURNING Age_Id"), {v})
                .Fields(0)
                .Entero();
        return cn.Execute(QStringLiteral("SELECT Age_Nom, CASE WHEN Age_Nom IS NULL THEN 1 ELSE 0 "
                                         "END AS nulo FROM Age WHERE Age_Id = ?"),
                          {id});
    };
    // Text keeps every character; an empty text is not NULL, a null one is.
    const QString raro = QStringLiteral("Mompó Ñandú 1.234,56 € 'x' \"y\"");
    Recordset rs = nombre(raro);
    EXPECT_EQ(rs.Fields(0).Texto(), raro);
    rs = nombre(QStringLiteral(""));
    EXPECT_EQ(rs.Fields(1).Entero(), 0);
    EXPECT_TRUE(rs.Fields(0).Value().toString().isEmpty());
    for (const QVariant& nulo : {QVariant(QString()), QVariant()}) {
        rs = nombre(nulo);
        EXPECT_EQ(rs.Fields(1).Entero(), 1);
        EXPECT_TRUE(rs.Fields(0).IsNull());
    }

    // Numbers of each width and a date.
    const qint64 fav =
        cn.Execute(QStringLiteral("INSERT INTO Fav (Fav_Serie, Fav_Numero, Fav_Bruto, Fav_Fecha) "
                                  "VALUES (?, ?, ?, ?) RETURNING Fav_Id"),
                   {QStringLiteral("T"), qlonglong(2147483647), 1234.56, QDate(2026, 3, 5)})
            .Fields(0)
            .Entero();
    rs = cn.Execute(QStringLiteral("SELECT Fav_Numero, Fav_Bruto, Fav_Fecha FROM Fav WHERE Fav_Id "
                                   "= ? AND Fav_Fecha = ?"),
                    {fav, QDate(2026, 3, 5)});
    ASSERT_FALSE(rs.Eof());
    EXPECT_EQ(rs.Fields(0).Entero(), 2147483647);
    EXPECT_DOUBLE_EQ(rs.Fields(1).Doble(), 1234.56);
    EXPECT_EQ(rs.Fields(2).Fecha(), QDate(2026, 3, 5));

    // A statement the engine cannot prepare, one given too few values and a
    // refused row all fail with the engine's words; the connection goes on.
    const QString malo = QStringLiteral("SELECT NoExiste FROM Age WHERE Age_Id = ?");
    for (int vez = 0; vez < 2; ++vez) {
        EXPECT_THROW(cn.Execute(malo, {1}), ErrorBd);
    }
    EXPECT_THROW(cn.Execute(QStringLiteral("SELECT Age_Nom FROM Age WHERE Age_Id = ?")), ErrorBd);
    // A second statement after a semicolon is refused, never run.
    EXPECT_THROW(cn.Execute(QStringLiteral("SELECT Age_Nom FROM Age WHERE Age_Id = ?; DELETE "
                                           "FROM Age"),
                            {1}),
                 ErrorBd);
    EXPECT_EQ(cn.Execute(QStringLiteral("SELECT COUNT(*) FROM Age")).Fields(0).Entero(), 4);
    try {
        cn.Execute(QStringLiteral("INSERT INTO Fav (Fav_Serie, Fav_Numero) VALUES (?, ?)"),
                   {QStringLiteral("T"), qlonglong(2147483647)});
        ADD_FAILURE() << "a repeated number was stored";
    } catch (const ErrorBd& e) {
        EXPECT_EQ(e.Clase(), ClaseError::General);
        EXPECT_TRUE(e.Detalle().contains(QStringLiteral("Sentencia: INSERT INTO Fav")))
            << e.Detalle().toStdString();
    }

    // A walk left half way starts again from the first row.
    const QString todos = QStringLiteral("SELECT Age_Id FROM Age WHERE Age_Id > ? ORDER BY Age_Id");
    int vistos = 0;
    EXPECT_THROW(cn.Recorre(todos, {0},
                            [&](const Recordset&) {
                                ++vistos;
                                throw ErrorBd(QStringLiteral("basta"));
                            }),
                 ErrorBd);
    EXPECT_EQ(vistos, 1);
    cn.Recorre(todos, {0}, [&](const Recordset&) { ++vistos; });
    EXPECT_EQ(vistos, 5);
}

TEST_P(Pasarela, BuilderWritesEachKindOfValue) {
    QString msg;
    qint64 id = 0;
    s->Tabla(QStringLiteral("Fav"));
    s->Limpia(0);
    s->xlsCampos().Add(QStringLiteral(" Fav_Serie "), TipoCampo::Texto, QStringLiteral("O'Brien"));
    s->xlsCampos().Add(QStringLiteral("Fav_Numero"), TipoCampo::Numero, 7);
    s->xlsCampos().Add(QStringLiteral("Fav_Bruto"), TipoCampo::Importe, 10.005, 2);
    s->xlsCampos().Add(QStringLiteral("Fav_Fecha"), TipoCampo::Fecha, QStringLiteral("05/03/2026"));
    s->xlsCampos().Add(QStringLiteral("Fav_Obs"), TipoCampo::Expresion, QStringLiteral("Null"));
    s->xlsCampos().Add(QStringLiteral("Fav_CliNom"), TipoCampo::Texto, QStringLiteral("Null"));
    ASSERT_TRUE(s->Inserta(msg, &id)) << msg.toStdString();
    EXPECT_GT(id, 0);

    Recordset rs = s->cn().Execute(QStringLiteral("SELECT * FROM Fav WHERE Fav_Id = ?"), {id});
    ASSERT_FALSE(rs.Eof());
    EXPECT_EQ(rs.Fields(QStringLiteral("Fav_Serie")).Texto(), QStringLiteral("O'Brien"));
    EXPECT_EQ(rs.Fields(QStringLiteral("Fav_Numero")).Entero(), 7);
    EXPECT_DOUBLE_EQ(rs.Fields(QStringLiteral("Fav_Bruto")).Doble(), 10.01);
    EXPECT_EQ(rs.Fields(QStringLiteral("Fav_Fecha")).Fecha(), QDate(2026, 3, 5));
    // "Null" as an expression is NULL; as text it is four letters.
    EXPECT_TRUE(rs.Fields(QStringLiteral("Fav_Obs")).IsNull());
    EXPECT_EQ(rs.Fields(QStringLiteral("Fav_CliNom")).Texto(), QStringLiteral("Null"));
    // Columns nobody named take their defaults.
    EXPECT_DOUBLE_EQ(rs.Fields(QStringLiteral("Fav_Total")).Doble(-1), 0.0);
    EXPECT_TRUE(rs.Fields(QStringLiteral("Fav_CtaIva1")).IsNull());
    EXPECT_EQ(rs.Fields(QStringLiteral("Fav_Fatencion")).Texto(QStringLiteral("x")), QString());

    // "Getdate()" is today's date of the server.
    s->Tabla(QStringLiteral("Fav"));
    s->Limpia(0);
    s->xlsCampos().Add(QStringLiteral("Fav_Fecha"), TipoCampo::Expresion,
                       QStringLiteral("Getdate()"));
    s->Where(QStringLiteral(" WHERE Fav_Id = ?"), {id});
    ASSERT_TRUE(s->Update(msg)) << msg.toStdString();
    rs = s->cn().Execute(QStringLiteral("SELECT Fav_Fecha FROM Fav WHERE Fav_Id = ?"), {id});
    EXPECT_EQ(rs.Fields(0).Fecha(), QDate::currentDate());
}

TEST_P(Pasarela, BuilderStateFollowsTheLegacyContract) {
    const qint64 a = agente(QStringLiteral("A"));
    const qint64 b = agente(QStringLiteral("B"));
    QString msg;

    // Tabla set twice without Limpia keeps the columns added in between.
    s->Limpia(0);
    s->Tabla(QStringLiteral("Age"));
    s->xlsCampos().Add(QStringLiteral("Age_Nom"), TipoCampo::Texto, QStringLiteral("Z"));
    s->Tabla(QStringLiteral("Age"));
    EXPECT_EQ(s->xlsCampos().Count(), 1);
    // An empty Where updates every row.
    s->Where(QString());
    ASSERT_TRUE(s->Update(msg)) << msg.toStdString();
    Recordset rs = s->cn().Execute(
        QStringLiteral("SELECT COUNT(*) FROM Age WHERE Age_Nom = ? AND AGE_ID IN (?, ?)"),
        {QStringLiteral("Z"), a, b});
    EXPECT_EQ(rs.Fields(0).Entero(), 2);

    // Each run empties the builder: a delete now has no condition left over.
    s->Where(QStringLiteral(" WHERE AGE_ID = ?"), {a});
    ASSERT_TRUE(s->Borra(msg));
    EXPECT_EQ(s->cn().Execute(QStringLiteral("SELECT COUNT(*) FROM Age")).Fields(0).Entero(), 1);

    // Failures come back as False with a message, never as an exception.
    s->Tabla(QStringLiteral("Age"));
    s->xlsCampos().Add(QStringLiteral("ColumnaInexistente"), TipoCampo::Numero, 1);
    EXPECT_FALSE(s->Inserta(msg));
    EXPECT_FALSE(msg.isEmpty());
    s->Tabla(QStringLiteral("Fav"));
    s->xlsCampos().Add(QStringLiteral("Fav_Fecha"), TipoCampo::Fecha, QStringLiteral("31/02/2026"));
    EXPECT_FALSE(s->Inserta(msg));
    EXPECT_TRUE(msg.contains(QStringLiteral("Fecha no válida"))) << msg.toStdString();
    s->Tabla(QStringLiteral("Fav"));
    s->xlsCampos().Add(QStringLiteral("Fav_Numero"), TipoCampo::Numero, QStringLiteral("siete"));
    EXPECT_FALSE(s->Inserta(msg));
    s->Tabla(QStringLiteral("Age; DROP TABLE Age"));
    s->xlsCampos().Add(QStringLiteral("Age_Nom"), TipoCampo::Texto, QStringLiteral("x"));
    EXPECT_FALSE(s->Inserta(msg));
    // Names are checked before any SQL is written: a digit first, a space,
    // a quote or a dash never reach the engine.
    for (const char* nombre : {"1Age_Nom", "Age Nom", "Age_Nom\"", "Age-Nom", ""}) {
        s->Tabla(QStringLiteral("Age"));
        s->xlsCampos().Add(QString::fromUtf8(nombre), TipoCampo::Texto, QStringLiteral("x"));
        EXPECT_FALSE(s->Inserta(msg)) << nombre;
        EXPECT_TRUE(msg.startsWith(QStringLiteral("Nombre de columna no válido")) ||
                    std::string(nombre).empty())
            << msg.toStdString();
    }
    EXPECT_EQ(s->cn().Execute(QStringLiteral("SELECT COUNT(*) FROM Age")).Fields(0).Entero(), 1);
}

TEST_P(Pasarela, UniqueSeriesAndNumber) {
    QString msg;
    for (int i = 0; i < 2; ++i) {
        s->Tabla(QStringLiteral("Fav"));
        s->Limpia(0);
        s->xlsCampos().Add(QStringLiteral("Fav_Serie"), TipoCampo::Texto, QStringLiteral("A"));
        s->xlsCampos().Add(QStringLiteral("Fav_Numero"), TipoCampo::Numero, 1);
        EXPECT_EQ(s->Inserta(msg), i == 0) << msg.toStdString();
    }
}

TEST_P(Pasarela, TransactionsRollBackUnlessCommitted) {
    {
        Transaccion t(s->cn());
        agente(QStringLiteral("perdido"));
    }
    EXPECT_EQ(s->cn().NivelTransaccion(), 0);
    {
        Transaccion t(s->cn());
        agente(QStringLiteral("guardado"));
        {
            // An inner step undone keeps the outer work.
            Transaccion interior(s->cn());
            agente(QStringLiteral("interior"));
        }
        t.Confirma();
    }
    Recordset rs = s->cn().Execute(QStringLiteral("SELECT Age_Nom FROM Age ORDER BY Age_Nom"));
    ASSERT_EQ(rs.RecordCount(), 1);
    EXPECT_EQ(rs.Fields(0).Texto(), QStringLiteral("guardado"));

    // The legacy calls on the connection.
    s->cn().BeginTrans();
    agente(QStringLiteral("deshecho"));
    s->cn().RollbackTrans();
    EXPECT_EQ(s->cn().Execute(QStringLiteral("SELECT COUNT(*) FROM Age")).Fields(0).Entero(), 1);
    EXPECT_THROW(s->cn().CommitTrans(), ErrorBd);
}

TEST_P(Pasarela, ParametersLiveInMemoryUntilReloaded) {
    BdParametros& p = s->Parametros();
    EXPECT_TRUE(p.TieneFila());
    EXPECT_EQ(p.Item(QStringLiteral("par_serfac")).Texto(), QStringLiteral("A"));
    EXPECT_EQ(p.Item(QStringLiteral("PAR_SERFAC")).Texto(), QStringLiteral("A"));
    EXPECT_EQ(p.Item(QStringLiteral("Par_DiseñoFactura")).Entero(), 0);
    EXPECT_THROW(p.Item(QStringLiteral("Par_NoExiste")), ErrorBd);
    EXPECT_TRUE(p.Item(QStringLiteral("Par_GContable")).IsNull());

    p.Item(QStringLiteral("Par_PrnL1")).setValue(1);
    EXPECT_TRUE(p.Item(QStringLiteral("par_prnl1")).Activo());
    Recordset rs = s->cn().Execute(QStringLiteral("SELECT Par_PrnL1 FROM Parametros"));
    EXPECT_EQ(rs.Fields(0).Entero(), 0); // the table never saw it
    s->RecargaParametros(QStringLiteral("Select * from parametros"));
    EXPECT_FALSE(s->Parametros().Item(QStringLiteral("Par_PrnL1")).Activo());
}

TEST_P(Pasarela, SessionFacts) {
    EXPECT_EQ(s->IdUsuario(), 1);
    EXPECT_TRUE(s->EsAdministrador());
    QString texto;
    EXPECT_TRUE(s->ConexionActiva(s->cn(), texto));
    EXPECT_EQ(s->Catalogo(), QStringLiteral("VKEMP0001"));

    // A user who is not an administrator.
    s->cn().Execute(QStringLiteral("INSERT INTO vkcomun.Usu (Usu_Id, Usu_Nom, Usu_Admin) VALUES "
                                   "(?, ?, ?)"),
                    {7, QStringLiteral("OFICINA"), 0});
    auto otro = BdSesion::Abre(base->cadenaCatalogo(QStringLiteral("vkemp0001")) +
                               QStringLiteral("&usuario=7"));
    EXPECT_EQ(otro->IdUsuario(), 7);
    EXPECT_FALSE(otro->EsAdministrador());

    // The accounting catalog is reachable as a second session.
    EXPECT_EQ(s->CatalogoContable(), QStringLiteral("CONVKEMP0001"));
    auto contable = s->AbreContable();
    Recordset rs = contable->cn().Execute(QStringLiteral("SELECT COUNT(*) FROM Asi"));
    EXPECT_EQ(rs.Fields(0).Entero(), 0);

    // A company that does not exist is a clear error, not an empty file.
    try {
        BdSesion::Abre(base->cadenaCatalogo(QStringLiteral("vkemp0099")));
        FAIL() << "se esperaba un error";
    } catch (const ErrorBd& e) {
        EXPECT_TRUE(e.Mensaje().contains(QStringLiteral("No existe la empresa «VKEMP0099»")))
            << e.Mensaje().toStdString();
    }
}

VK_EN_AMBOS_MOTORES(Pasarela);

} // namespace
} // namespace vk::prueba
