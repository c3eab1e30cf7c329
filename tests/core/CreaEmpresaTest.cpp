// Creation and upgrade of the catalogs, and the reference data they carry.
#include "BasePrueba.h"

#include <CreaEmpresa.h>
#include <ErrorBd.h>
#include <QDate>

namespace vk::prueba {
namespace {

class Creacion : public PruebaMotores {
protected:
    void SetUp() override { base = std::make_unique<BasePrueba>(GetParam()); }
    qint64 cuenta(BdSesion& s, const QString& sql) {
        return s.cn().Execute(sql).Fields(0).Entero();
    }
    std::unique_ptr<BasePrueba> base;
};

TEST_P(Creacion, SecondRunChangesNothing) {
    auto s = BdSesion::Abre(base->cadenaCatalogo(QStringLiteral("vkemp0001")), ModoApertura::Crea);
    const ResumenCreacion primera = CreaEmpresa(*s);
    EXPECT_EQ(primera.versionAnterior, 0);
    EXPECT_GT(primera.tablasCreadas, 60);
    EXPECT_EQ(primera.catalogoContable, QStringLiteral("CONVKEMP0001"));
    const ResumenCreacion segunda = CreaEmpresa(*s);
    EXPECT_EQ(segunda.versionAnterior, kVersionEsquema);
    EXPECT_EQ(segunda.tablasCreadas, 0);
    EXPECT_EQ(segunda.columnasAnadidas, 0);
    EXPECT_EQ(segunda.filasSemilla, 0);
    EXPECT_EQ(cuenta(*s, QStringLiteral("SELECT COUNT(*) FROM Parametros")), 1);
    EXPECT_EQ(cuenta(*s, QStringLiteral("SELECT COUNT(*) FROM vkcomun.Emp")), 1);
    EXPECT_EQ(cuenta(*s, QStringLiteral("SELECT COUNT(*) FROM vkcomun.TIVAS")), 47);

    // A second company shares vkcomun and gets its own accounting catalog.
    auto otra = base->CreaEmpresa(QStringLiteral("vkemp0002"));
    EXPECT_EQ(otra->CatalogoContable(), QStringLiteral("CONVKEMP0002"));
    EXPECT_EQ(cuenta(*otra, QStringLiteral("SELECT COUNT(*) FROM vkcomun.Emp")), 2);
    EXPECT_EQ(cuenta(*otra, QStringLiteral("SELECT COUNT(*) FROM vkcomun.TIVAS")), 47);
}

TEST_P(Creacion, ReferenceDataKeepsItsHistory) {
    auto s = base->CreaEmpresa();
    // The general rate in force on a date: the greatest Tiva_Fecha not after it.
    const QString sql = QStringLiteral(
        "SELECT Tiva_Iva, Tiva_Rec, Tiva_Ret FROM vkcomun.TIVAS WHERE Tiva_Reg = ? AND "
        "Tiva_Art = ? AND Tiva_Fecha <= ? ORDER BY Tiva_Fecha DESC LIMIT 1");
    const auto tipo = [&](int reg, int art, QDate d) {
        Recordset rs = s->cn().Execute(sql, {reg, art, s->dialecto().valorFecha(d)});
        return std::array<double, 3>{rs.Fields(0).Doble(), rs.Fields(1).Doble(),
                                     rs.Fields(2).Doble()};
    };
    EXPECT_EQ(tipo(1, 1, QDate(2010, 6, 30)), (std::array<double, 3>{16, 0, 0}));
    EXPECT_EQ(tipo(1, 1, QDate(2010, 7, 1)), (std::array<double, 3>{18, 0, 0}));
    EXPECT_EQ(tipo(1, 1, QDate(2026, 11, 1)), (std::array<double, 3>{21, 0, 0}));
    EXPECT_EQ(tipo(2, 1, QDate(2026, 11, 1)), (std::array<double, 3>{21, 5.2, 0}));
    EXPECT_EQ(tipo(3, 1, QDate(2015, 7, 11)), (std::array<double, 3>{21, 0, 19}));
    EXPECT_EQ(tipo(3, 1, QDate(2015, 7, 12)), (std::array<double, 3>{21, 0, 15}));
    EXPECT_EQ(tipo(10, 1, QDate(2026, 1, 1)), (std::array<double, 3>{21, 0, 19}));

    Recordset pais = s->cn().Execute(
        QStringLiteral("SELECT PAIS_NOM, Pais_AEAT FROM vkcomun.PAIS WHERE PAIS_COD = ?"),
        {QStringLiteral("011")});
    EXPECT_EQ(pais.Fields(0).Texto(), QStringLiteral("ESPAÑA"));
    EXPECT_EQ(pais.Fields(1).Texto(), QStringLiteral("ES"));
    Recordset prov = s->cn().Execute(
        QStringLiteral("SELECT PROV_Nom FROM vkcomun.PROV WHERE PROV_COD = ?"), {46});
    EXPECT_EQ(prov.Fields(0).Texto(), QStringLiteral("Valencia/València"));
    EXPECT_EQ(cuenta(*s, QStringLiteral("SELECT COUNT(*) FROM vkcomun.Situaciones WHERE "
                                        "Sit_Proceso = 4 AND Sit_Idioma = 0")),
              11);
    EXPECT_GE(cuenta(*s, QStringLiteral("SELECT COUNT(*) FROM vkcomun.TVI")), 15);
}

TEST_P(Creacion, UpgradeAddsWhatAnOlderCatalogLacks) {
    auto s = base->CreaEmpresa();
    // An older suite wrote Art with fewer columns and no schema version.
    s->cn().Execute(QStringLiteral("DROP TABLE Art"));
    s->cn().Execute(QStringLiteral("CREATE TABLE Art (Art_Id INTEGER PRIMARY KEY, Art_COD TEXT)"));
    s->cn().Execute(QStringLiteral("INSERT INTO Art (Art_Id, Art_COD) VALUES (1, 'X1')"));
    const ResumenCreacion r = CreaEmpresa(*s);
    EXPECT_GT(r.columnasAnadidas, 3);
    Recordset rs = s->cn().Execute(QStringLiteral("SELECT Art_COD, ART_DES, Art_Tiva, Art_CtaVen "
                                                  "FROM Art"));
    EXPECT_EQ(rs.Fields(0).Texto(), QStringLiteral("X1"));
    EXPECT_EQ(rs.Fields(QStringLiteral("ART_DES")).Texto(QStringLiteral("nulo")), QString());
    EXPECT_EQ(rs.Fields(QStringLiteral("Art_Tiva")).Entero(-1), 0);

    // A catalog from a newer program is refused rather than damaged.
    s->cn().Execute(QStringLiteral("UPDATE VersionEsquema SET Ver_Numero = ?"),
                    {kVersionEsquema + 1});
    EXPECT_THROW(CreaEmpresa(*s), ErrorBd);
}

// The legal mentions of the regimes are seeded by the step to the version
// that brought them, on a new catalog and on an older one, and from then on
// are the installation's: a changed text stays, a deleted row stays deleted.
TEST_P(Creacion, LegalMentionsAreSeededOnceAndThenBelongToTheInstallation) {
    auto s = base->CreaEmpresa();
    const auto menciones = [&] {
        QStringList r;
        for (Recordset rs = s->cn().Execute(QStringLiteral(
                 "SELECT MenIva_Reg, MenIva_Texto FROM vkcomun.MENIVA ORDER BY MenIva_Reg"));
             !rs.Eof(); rs.MoveNext()) {
            r << QString::number(rs.Fields(0).Entero()) + QLatin1Char(' ') + rs.Fields(1).Texto();
        }
        return r;
    };
    const QStringList sembradas{QStringLiteral("5 Exenta art. 21 Ley 37/1992"),
                                QStringLiteral("6 Exenta art. 25 Ley 37/1992"),
                                QStringLiteral("7 Inversión del sujeto pasivo")};
    EXPECT_EQ(menciones(), sembradas);
    // The regime is the key.
    EXPECT_THROW(s->cn().Execute(QStringLiteral("INSERT INTO vkcomun.MENIVA (MenIva_Reg, "
                                                "MenIva_Texto) VALUES (?, ?)"),
                                 {5, QStringLiteral("otra")}),
                 ErrorBd);

    s->cn().Execute(
        QStringLiteral("UPDATE vkcomun.MENIVA SET MenIva_Texto = ? WHERE MenIva_Reg = ?"),
        {QStringLiteral("Exportación exenta"), 5});
    s->cn().Execute(QStringLiteral("DELETE FROM vkcomun.MENIVA WHERE MenIva_Reg = 7"));
    EXPECT_EQ(CreaEmpresa(*s).filasSemilla, 0);
    EXPECT_EQ(menciones(), (QStringList{QStringLiteral("5 Exportación exenta"), sembradas[1]}));

    // A shared catalog of version 2 that an installation had already given
    // a text of its own: the step adds the regimes missing and keeps it.
    s->cn().Execute(QStringLiteral("DELETE FROM vkcomun.MENIVA WHERE MenIva_Reg = 6"));
    s->cn().Execute(QStringLiteral("UPDATE vkcomun.VersionEsquema SET Ver_Numero = 2"));
    ResumenCreacion r = CreaEmpresa(*s);
    EXPECT_EQ(r.filasSemilla, 2);
    EXPECT_EQ(menciones(),
              (QStringList{QStringLiteral("5 Exportación exenta"), sembradas[1], sembradas[2]}));

    // A shared catalog of version 2 without the table: created and seeded.
    s->cn().Execute(QStringLiteral("DROP TABLE vkcomun.MENIVA"));
    s->cn().Execute(QStringLiteral("UPDATE vkcomun.VersionEsquema SET Ver_Numero = 2"));
    r = CreaEmpresa(*s);
    EXPECT_EQ(r.tablasCreadas, 1);
    EXPECT_EQ(r.filasSemilla, 3);
    EXPECT_EQ(menciones(), sembradas);
    EXPECT_EQ(cuenta(*s, QStringLiteral("SELECT MAX(Ver_Numero) FROM vkcomun.VersionEsquema")),
              kVersionEsquema);
}

TEST_P(Creacion, RowsFromOtherProgramsGetDefaults) {
    auto s = base->CreaEmpresa();
    // Another program of the suite writes a note and a line with the columns it knows.
    s->cn().Execute(QStringLiteral("INSERT INTO Cav (Cav_Serie, Cav_Numero) VALUES ('A', 1)"));
    const qint64 idCav =
        s->cn().Execute(QStringLiteral("SELECT MAX(Cav_Id) FROM Cav")).Fields(0).Entero();
    s->cn().Execute(QStringLiteral("INSERT INTO Lav (Lav_IdCav, Lav_Des) VALUES (?, 'x')"),
                    {idCav});
    Recordset cav = s->cn().Execute(QStringLiteral("SELECT * FROM Cav"));
    EXPECT_EQ(cav.Fields(QStringLiteral("Cav_Situa")).Entero(), 1); // pending
    EXPECT_TRUE(cav.Fields(QStringLiteral("Cav_IdFactura")).IsNull());
    EXPECT_DOUBLE_EQ(cav.Fields(QStringLiteral("Cav_Dto1")).Doble(-1), 0.0);
    Recordset lav = s->cn().Execute(QStringLiteral("SELECT * FROM Lav"));
    EXPECT_EQ(lav.Fields(QStringLiteral("Lav_Imprimir")).Entero(), 1);
    EXPECT_DOUBLE_EQ(lav.Fields(QStringLiteral("Lav_Importe")).Doble(-1), 0.0);
    EXPECT_EQ(lav.Fields(QStringLiteral("Lav_CodArt")).Texto(QStringLiteral("nulo")), QString());
}

TEST_P(Creacion, AddressViewComposesTheText) {
    auto s = base->CreaEmpresa();
    s->cn().Execute(
        QStringLiteral("INSERT INTO Dir (Dir_sg, DIR_NOMBRE, Dir_Numero, Dir_Piso, "
                       "Dir_Puerta, DIR_CP, DIR_POBLACION) VALUES (?, ?, ?, ?, ?, ?, ?)"),
        {QStringLiteral("CL"), QStringLiteral("Mayor"), 12, QStringLiteral("3"),
         QStringLiteral("B"), QStringLiteral("46001"), QStringLiteral("Valencia")});
    s->cn().Execute(QStringLiteral("INSERT INTO Dir (DIR_NOMBRE) VALUES (?)"),
                    {QStringLiteral("Sin número")});
    Recordset rs = s->cn().Execute(
        QStringLiteral("SELECT dir_ID, direccion FROM qrydireccion ORDER BY dir_ID"));
    ASSERT_EQ(rs.RecordCount(), 2);
    const QString primera = rs.Fields(QStringLiteral("direccion")).Texto();
    EXPECT_TRUE(primera.contains(QStringLiteral("Mayor 12"))) << primera.toStdString();
    EXPECT_TRUE(primera.contains(QStringLiteral("46001"))) << primera.toStdString();
    rs.MoveNext();
    EXPECT_TRUE(
        rs.Fields(QStringLiteral("direccion")).Texto().contains(QStringLiteral("Sin número")));
}

VK_EN_AMBOS_MOTORES(Creacion);

} // namespace
} // namespace vk::prueba
