// Every member of the family of text layouts on one invoice that shows what
// sets it apart, byte for byte and on both backends.
#include "EmpresaSpool.h"

#include <LayoutsTexto.h>
#include <MensajesSpool.h>

namespace vk::prueba {
namespace {

const QDate kDia(2026, 3, 10);

class Miembros : public PruebaMotores {
protected:
    void SetUp() override {
        s = std::make_unique<EmpresaSpool>(GetParam());
        fco = s->formaPago(QStringLiteral("Transferencia a 30 días"), {{30, 100}});
        cliente = s->cliente(QStringLiteral("Talleres"), QStringLiteral("Ruzafa, S.A."),
                             QStringLiteral("A46987654"), fco);
    }
    qint64 inserta(const QString& sql, const QVariantList& params = {}) {
        return s->e().cn().Execute(sql, params).Fields(0).Entero();
    }
    void ejecuta(const QString& sql, const QVariantList& params = {}) {
        s->e().cn().Execute(sql, params);
    }
    // An invoice of one note with these lines.
    qint32 factura(const std::vector<LineaSpool>& lineas, qint32 idCliente = 0) {
        const qint32 c = idCliente ? idCliente : cliente;
        return s->factura(c, kDia, {s->albaran(c, kDia, lineas)});
    }
    // Lines enough to cross a page.
    static std::vector<LineaSpool> muchas(int n) {
        std::vector<LineaSpool> r;
        for (int i = 1; i <= n; ++i) {
            r.push_back({.des = QStringLiteral("Recambio %1").arg(i), .uni = 1, .precio = 10});
        }
        return r;
    }
    QByteArray imprime(bool (*layout)(VKFACVENTAS&, const QVector<qint32>&),
                       const QVector<qint32>& ids) {
        return s->imprime(layout, ids);
    }
    std::unique_ptr<EmpresaSpool> s;
    qint32 fco = 0;
    qint32 cliente = 0;
};

TEST_P(Miembros, Plt01CarriesTheSumOfTheLinesToTheNextPage) {
    const QByteArray bytes = imprime(msFacturaSpoolPlt01, {factura(muchas(30))});
    ComparaConEsperado(bytes, QStringLiteral("plt01"));
    EXPECT_TRUE(bytes.contains("Suma anterior"));
    EXPECT_TRUE(bytes.contains("Pagina: 02"));
}

TEST_P(Miembros, Plt02PrintsTheOrderUnderEachDeliveryNote) {
    const qint32 a =
        s->albaran(cliente, kDia,
                   {{.des = QStringLiteral("Palé de ladrillo"), .uni = 3, .precio = 95},
                    {.des = QStringLiteral("Arena lavada"), .uni = 2, .precio = 30}});
    const qint64 pedido = inserta(QStringLiteral("INSERT INTO PedCa (PedCa_Serie, PedCa_Numero) "
                                                 "VALUES ('P', 214) RETURNING PedCa_Id"));
    const qint64 lineaPedido =
        inserta(QStringLiteral("INSERT INTO PedLi (PedLi_IdPedCa) VALUES (?) RETURNING Pedli_Id"),
                {pedido});
    ejecuta(QStringLiteral("INSERT INTO PedSe (PedSe_IdLav, PedSe_IdPedLi) VALUES (?, ?)"),
            {s->lineas(a).first(), lineaPedido});
    const qint32 id = s->factura(cliente, kDia, {a});
    s->f().ImprimeAlbaran = true;
    const QByteArray bytes = imprime(msFacturaSpoolPlt02, {id});
    ComparaConEsperado(bytes, QStringLiteral("plt02"));
    EXPECT_TRUE(bytes.contains("Pedido n\xa7: P/214"));
}

TEST_P(Miembros, Plt03TextLinesAndTheFootOfBothDiscounts) {
    const qint32 id = s->factura(
        cliente, kDia,
        {s->albaran(cliente, kDia,
                    {{.des = QStringLiteral("Revisión de caldera"),
                      .uni = 1,
                      .precio = 80,
                      .codigo = QStringLiteral("SERV01")},
                     {.des = QStringLiteral("Incluye desplazamiento dentro del término municipal"),
                      .uni = 0,
                      .codigo = QStringLiteral("0")},
                     {.des = QStringLiteral("Termostato digital"),
                      .uni = 1,
                      .precio = 45,
                      .familia = 2,
                      .codigo = QStringLiteral("TER45")}})},
        5, 2);
    s->f().ImprimeAlbaran = true; // this stationery has no room for notes
    const QByteArray bytes = imprime(msFacturaSpoolPlt03, {id});
    ComparaConEsperado(bytes, QStringLiteral("plt03"));
    EXPECT_FALSE(bytes.contains("Albar"));
    EXPECT_TRUE(bytes.contains("A/00001"));
}

TEST_P(Miembros, Plt04AndGomasWholeQuantitiesOneLineAndTheirOrdering) {
    // Two invoices whose notes' dates interleave.
    const qint32 otro = s->cliente(QStringLiteral("Neumáticos"), QStringLiteral("Benimaclet"),
                                   QStringLiteral("B46555111"), fco);
    const qint32 a1 = s->albaran(cliente, kDia,
                                 {{.des = QStringLiteral("Cubierta 205/55 R16 con una descripción "
                                                         "que no cabe en una sola línea"),
                                   .uni = 4,
                                   .precio = 71.25}});
    const qint32 b1 = s->albaran(otro, kDia.addDays(1),
                                 {{.des = QStringLiteral("Válvula"), .uni = 4, .precio = 2.5}});
    const qint32 a2 = s->albaran(cliente, kDia.addDays(2),
                                 {{.des = QStringLiteral("Equilibrado"), .uni = 4, .precio = 6}});
    const qint32 a = s->factura(cliente, kDia.addDays(2), {a1, a2});
    const qint32 b = s->factura(otro, kDia.addDays(2), {b1});
    // PLT04 walks by note date: the group change breaks on each change of
    // invoice, so invoice 1 gets two heads and two feet.
    const QByteArray plt04 = imprime(msFacturaSpoolPlt04, {a, b});
    ComparaConEsperado(plt04, QStringLiteral("plt04"));
    EXPECT_EQ(plt04.count("---BRUTO---"), 3);
    EXPECT_TRUE(plt04.contains("\r\n       4 Cubierta"));
    const QByteArray gomas = imprime(msFacturaSpoolGomas, {a, b});
    ComparaConEsperado(gomas, QStringLiteral("gomas"));
    EXPECT_EQ(gomas.count("---BRUTO---"), 2);
}

TEST_P(Miembros, Plt05LineTaxesLotAndComposition) {
    const qint64 tornillo = inserta(QStringLiteral(
        "INSERT INTO Art (Art_Cod, Art_Des) VALUES ('TOR8', 'Tornillo M8') RETURNING Art_Id"));
    const qint64 tuerca = inserta(QStringLiteral(
        "INSERT INTO Art (Art_Cod, Art_Des) VALUES ('TUE8', 'Tuerca M8') RETURNING Art_Id"));
    const qint64 kit = inserta(
        QStringLiteral("INSERT INTO Art (Art_Cod, Art_Des, Art_Composicion) VALUES ('KIT8', "
                       "'Kit de anclaje M8', 1) RETURNING Art_Id"));
    const qint64 formula =
        inserta(QStringLiteral("INSERT INTO Fml (Fml_Des) VALUES ('Kit M8') RETURNING Fml_Id"));
    ejecuta(QStringLiteral("INSERT INTO ArtCom (ArtCom_IdArt, ArtCom_IdFml) VALUES (?, ?)"),
            {kit, formula});
    ejecuta(QStringLiteral("INSERT INTO Fmll (FMLL_IDFML, FMLL_IdArt, Fmll_Uni) VALUES (?, ?, 4), "
                           "(?, ?, 4.5)"),
            {formula, tuerca, formula, tornillo});
    const qint32 recargo = s->cliente(QStringLiteral("Droguería"), QStringLiteral("El Carmen"),
                                      QStringLiteral("21456789K"), fco);
    ejecuta(QStringLiteral("UPDATE Cli SET Cli_Reg = 2 WHERE CLI_ID = ?"), {recargo});
    const qint32 id = s->factura(recargo, kDia,
                                 {s->albaran(recargo, kDia,
                                             {{.des = QStringLiteral("Kit de anclaje M8"),
                                               .uni = 10,
                                               .precio = 3.456,
                                               .regimen = 2,
                                               .codigo = QStringLiteral("KIT8"),
                                               .bulto = 1},
                                              {.des = QStringLiteral("Silicona neutra"),
                                               .uni = 2.5,
                                               .precio = 4.1,
                                               .familia = 2,
                                               .regimen = 2,
                                               .codigo = QStringLiteral("SIL01"),
                                               .lote = QStringLiteral("L2026-031"),
                                               .bulto = 2}},
                                             2)});
    const QByteArray bytes = imprime(msFacturaSpoolPlt05, {id});
    ComparaConEsperado(bytes, QStringLiteral("plt05"));
    EXPECT_TRUE(bytes.contains("Lote: L2026-031"));
    EXPECT_TRUE(bytes.contains("Tornillo M8"));
}

TEST_P(Miembros, Plt06SumaYSigueSupplierCodeAndAccount) {
    ejecuta(QStringLiteral("UPDATE Cli SET Cli_CodExt = 'PRV-0042', Cli_Cta = "
                           "'ES91 2100 0418 4502 0005 1332' WHERE CLI_ID = ?"),
            {cliente});
    const QByteArray bytes = imprime(msFacturaSpoolPlt06, {factura(muchas(41))});
    ComparaConEsperado(bytes, QStringLiteral("plt06"));
    EXPECT_TRUE(bytes.contains("Suma y sigue ... "));
    EXPECT_TRUE(bytes.contains("Cod.Proveedor: PRV-0042"));
    // Its own form feed ends the page: the head adds none.
    EXPECT_EQ(bytes.count('\f'), 1);
}

TEST_P(Miembros, Plt07TradeNameAndVatOfEachLine) {
    const qint32 a = s->albaran(
        cliente, kDia,
        {{.des = QStringLiteral("Aceite 5W30 5 l"), .uni = 2, .precio = 32},
         {.des = QStringLiteral("Libro de mantenimiento"), .uni = 1, .precio = 9, .familia = 3}});
    ejecuta(QStringLiteral("UPDATE Cav SET Cav_NCom = 'Autos Ruzafa' WHERE Cav_Id = ?"), {a});
    const QByteArray bytes = imprime(msFacturaSpoolPlt07, {s->factura(cliente, kDia, {a})});
    ComparaConEsperado(bytes, QStringLiteral("plt07"));
    EXPECT_TRUE(bytes.contains("Autos Ruzafa"));
}

TEST_P(Miembros, Plt08CondensedWidePageAndTheCompanyFoot) {
    s->e().parametro(QStringLiteral("Par_Piefac1"),
                     QStringLiteral("Inscrita en el Registro Mercantil de Valencia"));
    const QByteArray bytes =
        imprime(msFacturaSpoolPlt08, {factura({{.des = QStringLiteral("Lámina de aluminio"),
                                                .uni = 12,
                                                .precio = 8.75,
                                                .dto1 = 5,
                                                .codigo = QStringLiteral("ALU-200"),
                                                .lote = QStringLiteral("A7"),
                                                .bulto = 3}})});
    ComparaConEsperado(bytes, QStringLiteral("plt08"));
    EXPECT_TRUE(bytes.contains("\x0f---Codigo---"));
    EXPECT_TRUE(bytes.contains(" Factura......: "));
}

TEST_P(Miembros, Plt09AndPlt10WorksDocumentsAndParts) {
    const qint64 obra = inserta(QStringLiteral(
        "INSERT INTO Obras (obras_cod, obras_des) VALUES (7, 'Reforma colegio Cervantes') "
        "RETURNING obras_id"));
    const qint64 doc = inserta(QStringLiteral(
        "INSERT INTO Doc (doc_text) VALUES ('Certificación de obra número 3 según presupuesto "
        "aceptado') RETURNING doc_id"));
    const qint64 parte =
        inserta(QStringLiteral("INSERT INTO Partes (partes_alta, partes_Cavn) VALUES (?, 5120) "
                               "RETURNING partes_id"),
                {s->e().bd().dialecto().valorFecha(QDate(2026, 3, 2))});
    const qint32 a = s->albaran(cliente, kDia,
                                {{.des = QStringLiteral("Mano de obra oficial"),
                                  .uni = 16,
                                  .precio = 28,
                                  .idObra = static_cast<qint32>(obra),
                                  .idParte = static_cast<qint32>(parte)},
                                 {.des = QStringLiteral("Documento"),
                                  .uni = 1,
                                  .precio = 1200,
                                  .idDoc = static_cast<qint32>(doc),
                                  .idObra = static_cast<qint32>(obra)}});
    const qint32 id = s->factura(cliente, kDia, {a});
    ejecuta(QStringLiteral("UPDATE Fav SET Fav_Fatencion = 'Sr. Director' WHERE Fav_Id = ?"), {id});
    s->f().ImprimeAlbaran = true;
    s->e().parametro(QStringLiteral("PAR_PLANTILLA_FAC"), QStringLiteral("plt09"));
    const QByteArray plt09 = imprime(msFacturaSpoolPlt10, {id});
    ComparaConEsperado(plt09, QStringLiteral("plt09"));
    EXPECT_TRUE(plt09.contains("Obra: Reforma colegio Cervantes"));
    EXPECT_TRUE(plt09.contains("Albaran n\xa7 5120 de fecha 02-03-26"));
    EXPECT_TRUE(plt09.contains("Certificaci\xa2n de obra"));
    EXPECT_FALSE(plt09.contains("Sr. Director"));
    s->e().parametro(QStringLiteral("PAR_PLANTILLA_FAC"), QStringLiteral("PLT10"));
    const QByteArray plt10 = imprime(msFacturaSpoolPlt10, {id});
    ComparaConEsperado(plt10, QStringLiteral("plt10"));
    EXPECT_TRUE(plt10.contains("Sr. Director"));
}

TEST_P(Miembros, Plt11QuantityWithOptionalDecimalsAndOnlyTheTotal) {
    const QByteArray bytes =
        imprime(msFacturaSpoolPlt11,
                {factura({{.des = QStringLiteral("Cable 2,5 mm"), .uni = 12.5, .precio = 0.8},
                          {.des = QStringLiteral("Regleta"), .uni = 3, .precio = 2.4}})});
    ComparaConEsperado(bytes, QStringLiteral("plt11"));
    EXPECT_TRUE(bytes.contains("    12,5 Cable"));
    EXPECT_FALSE(bytes.contains("---BASES---"));
}

TEST_P(Miembros, Plt12NonFiscalRetention) {
    const qint32 retenido = s->cliente(QStringLiteral("Construcciones"), QStringLiteral("Patraix"),
                                       QStringLiteral("B46000333"), fco);
    ejecuta(QStringLiteral("UPDATE Cli SET CLI_RetNFiscal = 5 WHERE CLI_ID = ?"), {retenido});
    const QByteArray bytes =
        imprime(msFacturaSpoolPlt12, {factura({{.des = QStringLiteral("Alquiler andamio"),
                                                .uni = 1,
                                                .precio = 400,
                                                .ampliades = QStringLiteral("semana 11")}},
                                              retenido)});
    ComparaConEsperado(bytes, QStringLiteral("plt12"));
    EXPECT_TRUE(bytes.contains("Retenci\xa2n 5,00%"));
    EXPECT_TRUE(bytes.contains("Alquiler andamio semana 11"));
}

TEST_P(Miembros, Plt13LeavesOutLinesNotToPrintAndFootInOneRow) {
    const qint32 profesional = s->cliente(QStringLiteral("Gestoría"), QStringLiteral("Russafa"),
                                          QStringLiteral("B46000444"), fco);
    ejecuta(QStringLiteral("UPDATE Cli SET Cli_Reg = 3 WHERE CLI_ID = ?"), {profesional});
    const qint32 id = s->factura(profesional, kDia,
                                 {s->albaran(profesional, kDia,
                                             {{.des = QStringLiteral("Asesoría fiscal marzo"),
                                               .uni = 1,
                                               .precio = 300,
                                               .regimen = 3},
                                              {.des = QStringLiteral("Línea interna"),
                                               .uni = 1,
                                               .precio = 0,
                                               .regimen = 3,
                                               .imprimir = false}},
                                             3)});
    const QByteArray bytes = imprime(msFacturaSpoolPlt13, {id});
    ComparaConEsperado(bytes, QStringLiteral("plt13"));
    EXPECT_FALSE(bytes.contains("interna"));
    EXPECT_TRUE(bytes.contains("-RETENCION--"));
}

TEST_P(Miembros, Plt14PreprintedFormWithTheDateInWords) {
    s->f().ImprimeAlbaran = true; // the form has no room for notes
    const QByteArray bytes = imprime(
        msFacturaSpoolPlt14, {factura({{.des = QStringLiteral("Mantenimiento anual de extintores"),
                                        .uni = 6,
                                        .precio = 18.5}})});
    ComparaConEsperado(bytes, QStringLiteral("plt14"));
    EXPECT_TRUE(bytes.contains("10 de marzo de 2026"));
    EXPECT_FALSE(bytes.contains("Albar"));
}

TEST_P(Miembros, Plt15FiveDecimalPricesAndTotalsDownTheRight) {
    const QByteArray bytes = imprime(
        msFacturaSpoolPlt15,
        {factura({{.des = QStringLiteral("Electricidad kWh"), .uni = 1250, .precio = 0.13457}})});
    ComparaConEsperado(bytes, QStringLiteral("plt15"));
    EXPECT_TRUE(bytes.contains("0,13457"));
    EXPECT_TRUE(bytes.contains("(Euros)..:"));
}

TEST_P(Miembros, Plt16CodesMeasuresAndTheTopMargin) {
    s->e().parametro(QStringLiteral("Par_TopMarg"), 3);
    const qint32 id = factura({{.des = QStringLiteral("Tablero contrachapado"),
                                .uni = 4,
                                .precio = 22,
                                .codigo = QStringLiteral("TAB18"),
                                .largo = 2.44,
                                .ancho = 1.22}});
    ejecuta(QStringLiteral("UPDATE Fav SET Fav_Obs = 'Recoge en almacén' WHERE Fav_Id = ?"), {id});
    const QByteArray bytes = imprime(msFacturaSpoolPlt16, {id});
    ComparaConEsperado(bytes, QStringLiteral("plt16"));
    EXPECT_TRUE(bytes.startsWith("\x12\r\n\r\n\r\n  "));
    EXPECT_TRUE(bytes.contains("Observaciones Recoge en almac\x82n"));
}

TEST_P(Miembros, Plt17VehicleAndATooLongDescription) {
    const qint64 veh = inserta(QStringLiteral(
        "INSERT INTO Veh (VEH_MAT, Veh_Mod, Veh_Cha) VALUES ('1234 KLM', 'Furgoneta', "
        "'VF1AB000123') RETURNING veh_id"));
    QString larga;
    for (int i = 1; i <= 30; ++i) {
        larga += QStringLiteral("Operación %1 hecha. ").arg(i);
    }
    const qint32 a = s->albaran(
        cliente, kDia,
        {{.des = QStringLiteral("Cambio de pastillas de freno"), .uni = 1, .precio = 120},
         {.des = QStringLiteral("Informe"), .uni = 1, .precio = 0, .ampliades = larga}});
    ejecuta(QStringLiteral("UPDATE Cav SET Cav_idveh = ?, Cav_Km = '84512' WHERE Cav_Id = ?"),
            {veh, a});
    const QByteArray bytes = imprime(msFacturaSpoolPlt17, {s->factura(cliente, kDia, {a})});
    ComparaConEsperado(bytes, QStringLiteral("plt17"));
    EXPECT_EQ(s->mensajes(), QStringList{mensajes::kSuperadoCaracteres});
    EXPECT_TRUE(bytes.contains("Km: 84512"));
    EXPECT_TRUE(bytes.contains("Furgoneta - Bastidor: VF1AB000123"));
}

VK_EN_AMBOS_MOTORES(Miembros);

} // namespace
} // namespace vk::prueba
