// Invoices of a series run in order of date: the checks and their messages.
#include "EmpresaPrueba.h"

#include <Error.h>
#include <MensajesMotor.h>
#include <ReglasFecha.h>

namespace vk::prueba {
namespace {

class Fechas : public PruebaMotores {
protected:
    void SetUp() override {
        e = std::make_unique<EmpresaPrueba>(GetParam());
        const qint32 c = e->cliente();
        // Number 2 has the greatest date, not number 3.
        for (const auto& [numero, fecha] :
             {std::pair{1, QDate(2026, 3, 1)}, std::pair{2, QDate(2026, 3, 20)},
              std::pair{3, QDate(2026, 3, 10)}}) {
            e->cn().Execute(QStringLiteral("INSERT INTO Fav (Fav_Serie, Fav_Numero, Fav_Fecha, "
                                           "Fav_IdCli) VALUES ('A', ?, ?, ?)"),
                            {numero, e->bd().dialecto().valorFecha(fecha), c});
        }
    }
    std::unique_ptr<EmpresaPrueba> e;
};

TEST_P(Fechas, NewInvoiceDateNotBeforeTheSeriesLast) {
    VKFACVENTAS& f = e->factura();
    EXPECT_TRUE(f.VerificarFechaFactura(QStringLiteral("A"), QStringLiteral("20/03/2026")));
    EXPECT_TRUE(f.VerificarFechaFactura(QStringLiteral("A"), QStringLiteral("21/03/2026")));
    EXPECT_TRUE(f.VerificarFechaFactura(QStringLiteral("B"), QStringLiteral("01/01/2000")));
    EXPECT_TRUE(e->ui().vistos.empty());
    EXPECT_FALSE(f.VerificarFechaFactura(QStringLiteral("A"), QStringLiteral("19/03/2026")));
    ASSERT_EQ(e->ui().vistos.size(), 1u);
    EXPECT_EQ(e->ui().vistos[0].texto,
              QStringLiteral("La Fecha de Factura no puede ser inferior a 20/03/2026"));
    EXPECT_EQ(e->ui().vistos[0].titulo, QStringLiteral("Verificación de la fecha factura"));
    EXPECT_EQ(e->ui().vistos[0].icono, Icono::Error);
    EXPECT_THROW(f.VerificarFechaFactura(QStringLiteral("A"), QStringLiteral("31/02/2026")),
                 ErrorRegla);
}

TEST_P(Fechas, EditedDateStaysBetweenItsNeighboursByNumber) {
    BdSesion& bd = e->bd();
    // Number 2 between 01/03 (number 1) and 10/03 (number 3).
    EXPECT_TRUE(fnFechaEntreVecinas(bd, QStringLiteral("A"), 2, QDate(2026, 3, 5)));
    EXPECT_FALSE(fnFechaEntreVecinas(bd, QStringLiteral("A"), 2, QDate(2026, 3, 11)));
    EXPECT_FALSE(fnFechaEntreVecinas(bd, QStringLiteral("A"), 2, QDate(2026, 2, 28)));
    EXPECT_EQ(e->ui().Textos(),
              (QStringList{QStringLiteral("La fecha no puede ser posterior a 10/03/2026. Cambio "
                                          "de fecha cancelado"),
                           QStringLiteral("La fecha no puede ser anterior a 01/03/2026. Cambio "
                                          "de fecha cancelado")}));
    // The last number has no neighbour after it.
    EXPECT_TRUE(fnFechaEntreVecinas(bd, QStringLiteral("A"), 3, QDate(2027, 1, 1)));
}

TEST_P(Fechas, ChangeOfSeriesAsksToTakeTheLastDate) {
    BdSesion& bd = e->bd();
    EXPECT_EQ(fnFechaCambioSerie(bd, QStringLiteral("A"), QDate(2026, 4, 1)), QDate(2026, 4, 1));
    EXPECT_EQ(fnFechaCambioSerie(bd, QStringLiteral("Z"), QDate(2020, 4, 1)), QDate(2020, 4, 1));
    e->ui().respuestas.push_back(true);
    EXPECT_EQ(fnFechaCambioSerie(bd, QStringLiteral("A"), QDate(2026, 3, 15)), QDate(2026, 3, 20));
    EXPECT_EQ(e->ui().vistos.back().texto,
              QStringLiteral("La Fecha de la última factura de la serie A es 20/03/2026\nDese "
                             "cambiar la factura a este fecha"));
    e->ui().respuestas.push_back(false);
    EXPECT_EQ(fnFechaCambioSerie(bd, QStringLiteral("A"), QDate(2026, 3, 15)), std::nullopt);
    EXPECT_EQ(e->ui().Textos().back(), mensajes::kCambioSerieImposible);
}

VK_EN_AMBOS_MOTORES(Fechas);

TEST(LecturaFecha, PeopleTypeDatesSeveralWays) {
    EXPECT_EQ(fnLeeFecha(QStringLiteral("05/03/2026")), QDate(2026, 3, 5));
    EXPECT_EQ(fnLeeFecha(QStringLiteral("5/3/2026")), QDate(2026, 3, 5));
    EXPECT_EQ(fnLeeFecha(QStringLiteral("5/3/26")), QDate(2026, 3, 5));
    EXPECT_EQ(fnLeeFecha(QStringLiteral("2026-03-05")), QDate(2026, 3, 5));
    EXPECT_THROW(fnLeeFecha(QStringLiteral("ayer")), ErrorRegla);
}

} // namespace
} // namespace vk::prueba
