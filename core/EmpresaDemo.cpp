#include "EmpresaDemo.h"

#include "ErrorBd.h"
#include "MensajesCore.h"
#include "Redondeo.h"
#include "Semilla.h"

#include <QDate>
#include <QHash>
#include <QStringList>
#include <algorithm>
#include <vector>

namespace vk {

namespace {

// ----------------------------------------------------------------------------
// The data. Tables of plain structs, so that the company reads as a list and
// the code below stays a handful of loops.

struct Direccion {
    const char* sg = "";
    const char* via = nullptr; // nullptr: the customer has no such address
    int numero = 0;            // 0: no number, stored as NULL
    const char* piso = "";
    const char* puerta = "";
    const char* cp = "";
    const char* poblacion = "";
    int provincia = 46;
    const char* pais = "011";
};

// An address in the province of Valencia.
constexpr Direccion dv(const char* sg, const char* via, int numero, const char* cp,
                       const char* poblacion, const char* piso = "", const char* puerta = "") {
    return {sg, via, numero, piso, puerta, cp, poblacion, 46, "011"};
}

// An address abroad: no province (99), street type left out.
constexpr Direccion dx(const char* via, int numero, const char* cp, const char* poblacion,
                       const char* pais) {
    return {"", via, numero, "", "", cp, poblacion, 99, pais};
}

struct ClienteDemo {
    int cod = 0;
    const char* nom = "";
    const char* ape1 = "";
    const char* ape2 = "";
    const char* comer = "";
    const char* doc = "";
    int tipdoc = 1; // 1 Spanish tax number, 2 foreign one
    int reg = 1;    // tax regime (Tiva_Reg)
    int fco = 2;    // position in formasCobro(), from 1
    int agente = 0; // position in kAgentes, from 1; 0 none
    double dto1 = 0, dto2 = 0;
    int di1 = 0, di2 = 0, msp = 0;
    double impmin = 0;
    double retNF = 0;
    int modoRetNF = 0;
    int emi = 1;             // 0 never by mail, 1 paper, 2 mail
    const char* correo = ""; // mail contact for emi 2
    const char* iban = "";   // collection account of domiciled receipts
    int banco = 0;           // company bank of the remittances, from 1
    const char* tlf = "";
    const char* atencion = "";
    const char* obsFactura = ""; // default invoice remark
    const char* obser = "";      // internal remark
    const char* catalogo = "";   // codes of the articles the customer buys
    int albaranes = 0;           // pending delivery notes to create
    Direccion fiscal{};
    Direccion entrega{}; // delivery address, if any
};

struct ArticuloDemo {
    const char* cod;
    const char* des;
    int fam;  // position in kFamilias, from 1
    int tiva; // rate family: 1 general, 2 reduced, 3 super-reduced
    const char* medida;
    double precio, coste;
    const char* ctaVen;
    const char* ctaVenAb;
    int maxCant; // a line takes 1..maxCant units (hours go by halves)
    bool horas;
};

struct Plazo {
    int dias;
    double porcentaje;
    int modo; // Situaciones process 2: 1 cash, 2 domiciled, 3 transfer
};

struct FormaCobroDemo {
    const char* des;
    std::vector<Plazo> plazos;
};

// A delivery note of a customer that departs from the customer's defaults, so
// that the batch run splits the customer's notes into several invoices.
struct Excepcion {
    int cod, ordinal;            // customer code and the note's place among its notes
    int fco = 0;                 // 0: the customer's
    double dto1 = -1;            // below 0: the customer's
    int agente = 0;              // 0: the customer's
    const char* fecha = nullptr; // ISO date; nullptr: the note's place in the stretch
};

struct ContratoDemo {
    int cod;
    const char* art;
    double cantidad, precio, dto;
    int per; // Situaciones process 4: 4 monthly, 6 quarterly
    const char *finstala, *ultvto, *fvto, *ffactura;
    bool vencido; // billed in arrears
    const char* amplia;
};

const char* const kFamilias[] = {
    "Material de oficina",    "Limpieza e higiene", "Alimentación y bebidas",
    "Libros y publicaciones", "Servicios",          "Arrendamientos"};

const char* const kAgentes[] = {"Amparo Ferrer Soler", "Joaquín Navarro Gil", "Rosa Peiró Sanchis"};

// Company banks: CCC, IBAN, BIC.
const char* const kBancos[][3] = {
    {"31590042622741605918", "ES0331590042622741605918", "TLVAESVVXXX"},
    {"20858271910330187452", "ES9620858271910330187452", "MDTRESMMXXX"},
};

// Sales accounts: goods, returns of goods, services, rentals.
constexpr const char* kV = "70000000";
constexpr const char* kVA = "70800000";
constexpr const char* kS = "70500000";
constexpr const char* kA = "75200000";

// The tables read as rows, so the formatter leaves them alone.
// clang-format off
const ArticuloDemo kArticulos[] = {
    {"OF001", "Papel A4 80 g, caja de 5 paquetes", 1, 1, "CAJA", 18.50, 12.40, kV, kVA, 10, false},
    {"OF002", "Tóner láser negro compatible", 1, 1, "UD", 54.00, 31.00, kV, kVA, 4, false},
    {"OF003", "Archivador de palanca A4", 1, 1, "UD", 3.20, 1.75, kV, kVA, 24, false},
    {"LI001", "Detergente industrial 5 l", 2, 1, "GARRAFA", 9.75, 5.60, kV, kVA, 12, false},
    {"LI002", "Papel higiénico industrial, 12 rollos", 2, 1, "PAQ", 15.40, 9.80, kV, kVA, 10,
     false},
    {"AL001", "Agua mineral 1,5 l, pack de 6", 3, 2, "PACK", 2.95, 1.80, kV, kVA, 30, false},
    {"AL002", "Café molido natural 1 kg", 3, 2, "KG", 13.80, 8.90, kV, kVA, 10, false},
    {"AL003", "Pan de molde integral 700 g", 3, 3, "UD", 2.10, 1.30, kV, kVA, 20, false},
    {"AL004", "Leche entera 1 l, pack de 6", 3, 3, "PACK", 6.30, 4.20, kV, kVA, 20, false},
    {"LB001", "Manual de prevención de riesgos laborales", 4, 3, "UD", 24.00, 15.00, kV, kVA, 5,
     false},
    {"SV001", "Mantenimiento de equipos informáticos (hora)", 5, 1, "H", 38.00, 0, kS, kS, 8, true},
    {"SV002", "Servicio de limpieza de oficinas (hora)", 5, 1, "H", 16.50, 0, kS, kS, 16, true},
    {"SV003", "Asesoramiento técnico (hora)", 5, 1, "H", 55.00, 0, kS, kS, 6, true},
    {"SV004", "Cuota mensual de mantenimiento informático", 5, 1, "MES", 120.00, 0, kS, kS, 1,
     false},
    {"SV005", "Cuota mensual de limpieza de instalaciones", 5, 1, "MES", 420.00, 0, kS, kS, 1,
     false},
    {"SV006", "Mantenimiento trimestral de instalaciones", 5, 1, "TRIM", 360.00, 0, kS, kS, 1,
     false},
    {"AQ001", "Alquiler mensual de local comercial", 6, 1, "MES", 850.00, 0, kA, kA, 1, false},
    {"AQ002", "Alquiler mensual de plaza de garaje", 6, 1, "MES", 75.00, 0, kA, kA, 1, false},
    {"TR001", "Portes y entrega a domicilio", 5, 1, "UD", 12.00, 0, kS, kS, 1, false},
};

// clang-format on

const std::vector<FormaCobroDemo>& formasCobro() {
    static const std::vector<FormaCobroDemo> f = {
        {"Contado", {{0, 100, 1}}},
        {"Transferencia a 30 días", {{30, 100, 3}}},
        {"Transferencia a 30-60 días", {{30, 50, 3}, {60, 50, 3}}},
        {"Recibo domiciliado 30-60-90 días", {{30, 33.33, 2}, {60, 33.33, 2}, {90, 33.34, 2}}},
        {"Recibo domiciliado a 30 días", {{30, 100, 2}}},
    };
    return f;
}

// clang-format off
// What kinds of customer buy.
constexpr const char* kHosteleria = "AL001 AL002 AL003 AL004 LI001 LI002 TR001";
constexpr const char* kProfesional = "OF001 OF002 OF003 LB001 SV001 SV003";
constexpr const char* kObra = "LI001 OF001 SV003 TR001";
constexpr const char* kExporta = "AL002 AL001 OF001 OF003";

// Mail contacts use the reserved .example domain: a demo run must never reach
// a real mailbox.
const ClienteDemo kClientes[] = {
    {.cod = 1, .nom = "Comercial Hortolana, S.L.", .comer = "Hortolana", .doc = "B96145230",
     .fco = 4, .agente = 1, .iban = "ES9000810613810001843276", .banco = 1, .tlf = "963 84 21 50",
     .atencion = "Dpto. de Administración", .catalogo = "OF001 OF002 OF003 LI001 LI002 SV001 TR001",
     .albaranes = 5, .fiscal = dv("CL", "Sant Vicent Màrtir", 145, "46007", "Valencia"),
     .entrega = dv("PG", "Vara de Quart, calle dels Traginers", 14, "46014", "Valencia")},
    {.cod = 2, .nom = "Distribuciones Albufera, S.A.", .comer = "Distribuciones Albufera",
     .doc = "A97311864", .fco = 3, .agente = 1, .dto1 = 5, .emi = 2,
     .correo = "facturas@albufera.example", .tlf = "961 62 03 17", .catalogo = kHosteleria,
     .albaranes = 4, .fiscal = dv("AV", "del Port", 87, "46023", "Valencia")},
    {.cod = 3, .nom = "Hostelería Marina Real, S.L.", .comer = "Restaurante Marina Real",
     .doc = "B98557028", .agente = 2, .di1 = 5, .di2 = 20, .tlf = "963 56 11 48",
     .obser = "Descarga por la puerta trasera antes de las 11:00.", .catalogo = kHosteleria,
     .albaranes = 5, .fiscal = dv("PS", "de Neptú", 32, "46011", "Valencia")},
    {.cod = 4, .nom = "Academia Llum de Formació, S.L.", .comer = "Academia Llum",
     .doc = "B98203748", .agente = 3, .msp = 8, .emi = 2,
     .correo = "secretaria@llumformacio.example", .tlf = "963 51 77 02",
     .catalogo = "OF001 OF002 OF003 LB001 AL001", .albaranes = 3,
     .fiscal = dv("CL", "Xàtiva", 19, "46002", "Valencia", "2º", "B")},
    {.cod = 5, .nom = "Clínica Dental Ruzafa, S.L.P.", .comer = "Clínica Dental Ruzafa",
     .doc = "B97884316", .fco = 5, .impmin = 100, .iban = "ES6730582215542720049183",
     .banco = 1, .tlf = "963 74 90 26", .catalogo = "OF001 OF002 LI001 LI002 SV001",
     .albaranes = 2, .fiscal = dv("CL", "Sueca", 41, "46006", "Valencia")},
    {.cod = 6, .nom = "Construcciones Benimaclet, S.A.", .comer = "Construcciones Benimaclet",
     .doc = "A96039581", .fco = 3, .agente = 2, .retNF = 5, .modoRetNF = 0,
     .tlf = "963 62 40 85",
     .obsFactura = "Retención de garantía del 5 % sobre la base imponible según contrato de obra.",
     .catalogo = kObra, .albaranes = 3, .fiscal = dv("AV", "de Valladolid", 8, "46020", "Valencia")},
    {.cod = 7, .nom = "Reformas Patraix, S.L.", .comer = "Reformas Patraix", .doc = "B98772650",
     .retNF = 3, .modoRetNF = 1, .emi = 0, .tlf = "963 79 15 63",
     .obsFactura = "Retención del 3 % sobre el total hasta la recepción de la obra.",
     .catalogo = kObra, .albaranes = 3,
     .fiscal = dv("CL", "de les Tres Forques", 56, "46018", "Valencia")},
    {.cod = 8, .nom = "María Pilar", .ape1 = "Castelló", .ape2 = "Roig",
     .comer = "Ultramarinos Pilar", .doc = "20914731A", .reg = 2, .fco = 1, .agente = 2,
     .tlf = "963 41 06 29", .catalogo = "AL001 AL002 AL003 AL004 LI001 LI002", .albaranes = 4,
     .fiscal = dv("CL", "de Cuba", 23, "46006", "Valencia")},
    {.cod = 9, .nom = "Josep", .ape1 = "Sanchis", .ape2 = "Ibáñez",
     .comer = "Droguería La Estrella", .doc = "22561848K", .reg = 2, .fco = 1, .agente = 3,
     .tlf = "961 51 22 84", .catalogo = "LI001 LI002 OF003", .albaranes = 3,
     .fiscal = dv("CL", "Major", 12, "46970", "Alaquàs")},
    {.cod = 10, .nom = "Lucía", .ape1 = "Mompó", .ape2 = "Gisbert", .comer = "Papelería Mompó",
     .doc = "19487203Q", .reg = 2, .tlf = "963 80 45 12", .catalogo = "OF001 OF002 OF003 LB001",
     .albaranes = 3, .fiscal = dv("CL", "del Doctor Sumsi", 30, "46005", "Valencia")},
    {.cod = 11, .nom = "Elena", .ape1 = "Beltrán", .ape2 = "Cuesta", .comer = "Beltrán Abogados",
     .doc = "24853160G", .reg = 3, .agente = 1, .emi = 2,
     .correo = "despacho@beltranabogados.example", .tlf = "963 52 68 40",
     .catalogo = kProfesional, .albaranes = 2,
     .fiscal = dv("CL", "de Colón", 60, "46004", "Valencia", "4º", "7")},
    {.cod = 12, .nom = "Andrés", .ape1 = "Vidal", .ape2 = "Esteve",
     .comer = "Estudio de Arquitectura Vidal", .doc = "29183475V", .reg = 3, .fco = 5,
     .iban = "ES0501826035400201589467", .banco = 2, .tlf = "963 94 13 57",
     .catalogo = kProfesional, .albaranes = 2,
     .fiscal = dv("CL", "de Cirilo Amorós", 45, "46004", "Valencia", "1º")},
    {.cod = 13, .nom = "Fisioterapia Campanar, S.L.", .comer = "Fisioterapia Campanar",
     .doc = "B98705122", .reg = 10, .fco = 5, .iban = "ES3521004417712200138265", .banco = 1,
     .tlf = "963 46 72 91", .obser = "Arrendatario del local y la plaza de garaje de Campanar.",
     .catalogo = "AQ001 AQ002", .albaranes = 2,
     .fiscal = dv("AV", "del Mestre Rodrigo", 50, "46015", "Valencia")},
    {.cod = 14, .nom = "Maghreb Distribution SARL", .comer = "Maghreb Distribution",
     .doc = "MA001847293", .tipdoc = 2, .reg = 5, .emi = 2,
     .correo = "achats@maghreb-distribution.example", .tlf = "+212 522 47 18 30",
     .catalogo = kExporta, .albaranes = 2,
     .fiscal = dx("Boulevard Zerktouni", 145, "20250", "Casablanca", "204")},
    {.cod = 15, .nom = "Fjordhandel AS", .comer = "Fjordhandel", .doc = "NO912345674MVA",
     .tipdoc = 2, .reg = 5, .tlf = "+47 55 31 40 22", .catalogo = kExporta, .albaranes = 2,
     .fiscal = dx("Strandgaten", 18, "5013", "Bergen", "028")},
    {.cod = 16, .nom = "Carmen", .ape1 = "Roca", .ape2 = "Miralles", .comer = "Farmacia Roca",
     .doc = "21675094D", .fco = 4, .agente = 3, .dto1 = 3, .dto2 = 2,
     .iban = "ES1401289412980500071836", .banco = 1, .tlf = "963 60 28 14",
     .catalogo = "LI001 LI002 AL001 OF001 LB001", .albaranes = 3,
     .fiscal = dv("AV", "de Blasco Ibáñez", 102, "46022", "Valencia")},
    {.cod = 17, .nom = "Talleres Mecánicos Quart, S.L.", .comer = "Talleres Quart",
     .doc = "B96918438", .agente = 3, .tlf = "961 53 09 66",
     .catalogo = "LI001 LI002 OF001 OF002 TR001", .albaranes = 3,
     .fiscal = dv("CM", "Reial", 9, "46930", "Quart de Poblet")},
    {.cod = 18, .nom = "Residencia Jardines del Turia, S.L.", .comer = "Residencia Jardines del Turia",
     .doc = "B98443062", .fco = 4, .agente = 1, .dto1 = 2, .iban = "ES3731590078562617340592",
     .banco = 1, .tlf = "963 47 35 80", .atencion = "Gerencia",
     .catalogo = "AL001 AL002 AL003 AL004 LI001 LI002 SV002 TR001", .albaranes = 6,
     .fiscal = dv("AV", "de Campanar", 110, "46015", "Valencia"),
     .entrega = dv("CL", "dels Tarongers", 5, "46022", "Valencia")},
    {.cod = 19, .nom = "Cooperativa Agrícola Sant Isidre, Coop. V.", .comer = "Coop. Sant Isidre",
     .doc = "F96274196", .fco = 3, .di1 = 15, .msp = 8, .tlf = "963 63 12 05",
     .catalogo = "OF001 LI001 LI002 AL001 TR001", .albaranes = 3,
     .fiscal = dv("CR", "de Llíria", 4, "46100", "Burjassot")},
    {.cod = 20, .nom = "Gimnasio Activa Sport, S.L.", .comer = "Activa Sport", .doc = "B98187602",
     .fco = 5, .iban = "ES3300495612812395810476", .banco = 2, .tlf = "963 89 44 70",
     .catalogo = "LI001 LI002 AL001 SV002", .albaranes = 2,
     .fiscal = dv("AV", "de Peset Aleixandre", 75, "46009", "Valencia")},
    {.cod = 21, .nom = "Hotel Balcón del Puerto, S.L.", .comer = "Hotel Balcón del Puerto",
     .doc = "B96520879", .fco = 3, .agente = 2, .tlf = "963 67 25 19",
     .catalogo = kHosteleria, .albaranes = 2,
     .fiscal = dv("CL", "d'Eugènia Viñes", 150, "46011", "Valencia")},
};

const Excepcion kExcepciones[] = {
    {.cod = 1, .ordinal = 2, .fco = 1},    // paid cash on delivery
    {.cod = 2, .ordinal = 1, .agente = 3}, // taken by another agent
    {.cod = 16, .ordinal = 1, .fco = 2},   // paid by transfer this time
    {.cod = 18, .ordinal = 3, .dto1 = 5},  // autumn promotion
    // The rent is charged on the first working day of each month.
    {.cod = 13, .ordinal = 0, .fecha = "2026-10-01"},
    {.cod = 13, .ordinal = 1, .fecha = "2026-11-02"},
};

const ContratoDemo kContratos[] = {
    {20, "SV005", 1, 420.00, 0, 4, "2024-02-01", "2026-11-01", "2026-11-30", "2026-11-01", false,
     "Instalaciones de la avenida de Peset Aleixandre"},
    {5, "SV004", 1, 120.00, 0, 4, "2025-05-01", "2026-11-01", "2026-11-30", "2026-11-30", true, ""},
    {18, "SV006", 1, 360.00, 0, 6, "2025-01-01", "2026-10-01", "2026-12-31", "2026-10-01", false,
     "Revisión de climatización y fontanería"},
    {11, "SV004", 1, 120.00, 10, 4, "2025-09-01", "2026-11-01", "2026-11-30", "2026-11-01", false,
     ""},
    {1, "SV006", 2, 360.00, 0, 6, "2024-07-01", "2026-10-01", "2026-12-31", "2026-12-31", true,
     "Almacén de Vara de Quart"},
};

// clang-format on

// Company settings: text columns, then numbers.
// clang-format off
const char* const kParTextos[][2] = {
    {"PAR_NOMBRE", "Suministros y Servicios Turialev, S.L."}, {"par_NComercial", "Turialev"},
    {"Par_DOC", "B96824172"}, {"par_Sg", "AV"}, {"par_NombreVia", "del Port"},
    {"Par_Cp", "46023"}, {"Par_Poblacion", "Valencia"}, {"Par_Pais", "011"},
    {"Par_Actividad", "Comercio al por mayor de suministros y servicios a empresas"},
    {"Par_Telefono", "963 41 27 80"}, {"Par_Fax", "963 41 27 81"}, {"Par_Correo", "administracion@turialev.es"},
    {"Par_Web", "www.turialev.es"},
    {"Par_Piefac1", "Inscrita en el Registro Mercantil de Valencia, tomo 10.482, libro 7.764, "
                    "folio 112, hoja V-183.447, inscripción 1.ª"},
    {"Par_PieFac2", "Suministros y Servicios Turialev, S.L. · CIF B96824172"},
    {"par_SerFac", "A"}, {"Par_SerAlb", "A"}, {"PAR_PLANTILLA_FAC", ""},
    {"Par_GContable", "TELMARO"},
    {"Par_CtaVentas", "70000000"}, {"Par_CtaCompras", "60000000"},
    {"Par_CtaVIva", "47700000"}, {"Par_CtaVIva2", "47700001"}, {"Par_CtaVIva3", "47700002"},
    {"Par_CtaVRec1", "47710000"}, {"Par_CtaVRec2", "47710001"}, {"Par_CtaVRec3", "47710002"},
    {"Par_CtaVIrpf", "47300000"}, {"Par_CtaVIrpfAlq", "47300001"},
    {"Par_CtaCIva", "47200000"}, {"Par_CtaCRec1", "47210000"}, {"Par_CtaCIrpf", "47510000"},
    {"Par_CtaRecDomCartera", "43100000"}, {"Par_CtaRecNDomCartera", "43100001"},
    {"Par_PagosCtaRecDomCartera", "40100000"}, {"Par_ConCtaCaja", "57000000"},
};

struct ParNumero {
    const char* columna;
    int valor;
};

const ParNumero kParNumeros[] = {
    // Design 2, the general invoice with the company's logo.
    {"par_numero", 212}, {"Par_Provincia", 46}, {"Par_DiseñoFactura", 2}, {"Par_AlbPrn", 2},
    {"Par_CtaNum", 8}, {"Par_CtaTipo", 0}, {"Par_NCopFac", 1}, {"PAR_FLOPD", 1},
    {"par_decpre", 2}, {"par_decdesc", 2}, {"par_deccan", 2}, {"PAR_ORCONTANOM", 0},
    // Rates of the invoice's date, general regime, receipts out of the
    // portfolio, no link to accounting: the demo company posts nothing by itself.
    {"Par_CritDevengo", 0}, {"Par_RegFiscal", 1}, {"Par_RecCar", 0}, {"Par_RecAbonos", 0},
    {"Par_Contav", 0}, {"Par_ModConCon", 0}, {"Par_CliCon", 0},
    // The invoice prints the company's letterhead, both foot lines and the
    // payment terms.
    {"Par_PrnEmp", 1}, {"Par_PrnL1", 1}, {"Par_PrnL2", 1}, {"Par_PrintFco", 1},
    // Its logo, 1,8 cm square (the stored X is the height, the Y the width).
    {"Par_prnlogo", 1}, {"Par_ImgPosX", 1020}, {"Par_ImgPosY", 1020},
};
// clang-format on

// The notes fall on the working days of this stretch.
const QDate kPrimerDia(2026, 10, 1);
const QDate kUltimoDia(2026, 11, 20);
const QDate kFestivos[] = {QDate(2026, 10, 9), QDate(2026, 10, 12)};

// ----------------------------------------------------------------------------
// Helpers.

QString u(const char* texto) {
    return QString::fromUtf8(texto);
}

// A fixed linear congruential sequence: the same notes on every machine,
// which std::uniform_int_distribution does not promise.
struct Azar {
    quint32 estado;
    int entre(int n) {
        estado = estado * 1664525u + 1013904223u;
        return static_cast<int>((estado >> 16) % static_cast<quint32>(n));
    }
};

// One row through the session's builder; a refused statement becomes ErrorBd
// with the builder's own message.
class Fila {
public:
    Fila(BdSesion& s, const char* tabla) : s_(s), tabla_(u(tabla)) {
        s_.Tabla(tabla_);
        s_.Limpia();
    }
    Fila& num(const char* c, qint64 v) { return pon(c, TipoCampo::Numero, v, 0); }
    Fila& importe(const char* c, double v, int dec = 2) {
        return pon(c, TipoCampo::Importe, v, dec);
    }
    Fila& texto(const char* c, const QString& v) { return pon(c, TipoCampo::Texto, v, 0); }
    Fila& texto(const char* c, const char* v) { return texto(c, u(v)); }
    Fila& fecha(const char* c, const QDate& v) { return pon(c, TipoCampo::Fecha, v, 0); }
    Fila& nulo(const char* c) { return pon(c, TipoCampo::Expresion, QStringLiteral("Null"), 0); }

    // The new identity; tables without one pass conId = false.
    qint64 inserta(bool conId = true) {
        QString msg;
        qint64 id = 0;
        if (!s_.Inserta(msg, conId ? &id : nullptr)) {
            falla(msg);
        }
        return id;
    }
    void actualiza() {
        QString msg;
        if (!s_.Update(msg)) {
            falla(msg);
        }
    }

private:
    Fila& pon(const char* c, TipoCampo tipo, const QVariant& v, int dec) {
        s_.xlsCampos().Add(u(c), tipo, v, static_cast<qint16>(dec));
        return *this;
    }
    [[noreturn]] void falla(const QString& msg) const {
        throw ErrorBd(mensajes::kDemoNoGrabada.arg(tabla_, msg), ErrorBd::kBuilder);
    }

    BdSesion& s_;
    QString tabla_;
};

// The name of a country or province code, as the notes keep it beside the code.
QString nombreDe(BdSesion& s, const char* sql, const QVariant& cod) {
    Recordset rs = s.cn().Execute(u(sql), QVariantList{cod});
    return rs.Eof() ? QString() : rs.Fields(0).Texto().trimmed();
}

// The tax row of a regime and rate family in force on a date. A regime
// without rows for the family (exempt exports, rentals) falls back to its
// zero-rate family and then to its general one.
qint64 tivaVigente(BdSesion& s, int reg, int familia, const QDate& fecha) {
    for (int f : {familia, 4, 1}) {
        Recordset rs = s.cn().Execute(
            QStringLiteral("SELECT Tiva_Id FROM vkcomun.TIVAS WHERE Tiva_Reg = ? AND Tiva_Art = ? "
                           "AND Tiva_Fecha <= ? ORDER BY Tiva_Fecha DESC LIMIT 1"),
            QVariantList{reg, f, s.dialecto().valorFecha(fecha)});
        if (!rs.Eof()) {
            return rs.Fields(0).Entero();
        }
    }
    throw ErrorRegla(
        mensajes::kDemoSinTipoIva.arg(reg).arg(fecha.toString(QStringLiteral("dd/MM/yyyy"))));
}

QString nombreFiscal(const ClienteDemo& c) {
    QStringList partes;
    for (const char* p : {c.nom, c.ape1, c.ape2}) {
        if (*p != '\0') {
            partes << u(p);
        }
    }
    return partes.join(QLatin1Char(' '));
}

// ----------------------------------------------------------------------------
// The steps.

void actualizaParametros(BdSesion& s) {
    if (s.cn().Execute(QStringLiteral("SELECT 1 FROM Parametros")).Eof()) {
        throw ErrorRegla(mensajes::kDemoSinParametros);
    }
    // Without a condition the builder updates every row: the table has one.
    Fila f(s, "Parametros");
    for (const auto& t : kParTextos) {
        f.texto(t[0], t[1]);
    }
    for (const ParNumero& n : kParNumeros) {
        f.num(n.columna, n.valor);
    }
    f.texto("Par_Catalog", s.Catalogo()).actualiza();
    s.cn().Execute(QStringLiteral("UPDATE Parametros SET Par_ImagenLogo = ?"),
                   {LeeRecursoSemilla(QStringLiteral(":/semilla/logo-demo.png"))});

    // PAR_FLOPD prints this clause on every invoice.
    if (s.cn().Execute(QStringLiteral("SELECT 1 FROM ParamTextos WHERE PTex_Tipo = 0")).Eof()) {
        Fila(s, "ParamTextos")
            .num("PTex_Tipo", 0)
            .texto("PTex_Texto",
                   "Responsable: Suministros y Servicios Turialev, S.L. Finalidad: gestión de la "
                   "relación comercial y facturación. Puede ejercer sus derechos de acceso, "
                   "rectificación, supresión y oposición en administracion@turialev.es.")
            .inserta(false);
    }
}

// vkcomun.* names hold a dot, which the builder refuses as a table name, so
// the shared rows go through bound statements.
void creaUsuarios(BdSesion& s) {
    Conexion& cn = s.cn();
    const qint64 idEmp = s.IdEmpresa();
    if (cn.Execute(QStringLiteral("SELECT 1 FROM vkcomun.Usu WHERE Usu_Id = 2")).Eof()) {
        cn.Execute(QStringLiteral("INSERT INTO vkcomun.Usu (Usu_Id, Usu_Nom, Usu_Admin) "
                                  "VALUES (?, ?, ?)"),
                   QVariantList{2, QStringLiteral("OFICINA"), 0});
        s.AjustaIdentidad(QStringLiteral("vkcomun.Usu"), QStringLiteral("Usu_Id"));
    }
    for (int usuario : {1, 2}) {
        cn.Execute(QStringLiteral("DELETE FROM vkcomun.Pus WHERE Pus_IdUsu = ? AND Pus_IdEmp = ?"),
                   QVariantList{usuario, idEmp});
        cn.Execute(QStringLiteral("INSERT INTO vkcomun.Pus (Pus_IdUsu, Pus_IdEmp, Pus_SerFac, "
                                  "Pus_SerAlb) VALUES (?, ?, ?, ?)"),
                   QVariantList{usuario, idEmp, QStringLiteral("A"), QStringLiteral("A")});
    }
}

struct Maestros {
    std::vector<qint64> familias, agentes, bancos, formasCobro;
    QHash<QString, qint64> articulos; // by code
};

Maestros creaMaestros(BdSesion& s) {
    Maestros m;
    for (const char* f : kFamilias) {
        m.familias.push_back(Fila(s, "Fam").texto("FAM_DES", f).inserta());
    }
    for (const char* a : kAgentes) {
        m.agentes.push_back(Fila(s, "Age").texto("AGE_NOM", a).inserta());
    }
    for (const auto& b : kBancos) {
        m.bancos.push_back(Fila(s, "BANCOS")
                               .texto("Ban_ccc", b[0])
                               .texto("Ban_Iban", b[1])
                               .texto("Ban_Swift", b[2])
                               .inserta());
    }
    for (const FormaCobroDemo& f : formasCobro()) {
        const qint64 id = Fila(s, "Fco").texto("Fco_Des", f.des).importe("fco_dto", 0).inserta();
        m.formasCobro.push_back(id);
        for (const Plazo& p : f.plazos) {
            Fila(s, "Fcol")
                .num("Fcol_id", id)
                .num("Fcol_Mod", p.modo)
                .num("Fcol_Dias", p.dias)
                .importe("Fcol_Porcentaje", p.porcentaje)
                .inserta();
        }
    }
    for (const ArticuloDemo& a : kArticulos) {
        Fila f(s, "Art");
        f.texto("Art_Cod", a.cod)
            .texto("Art_Des", a.des)
            .num("art_fam", m.familias[a.fam - 1])
            .num("Art_Tiva", a.tiva)
            .texto("Art_Medida", a.medida)
            .num("Art_Composicion", 0)
            .texto("Art_CtaVen", a.ctaVen)
            .texto("Art_CtaVenAb", a.ctaVenAb);
        if (a.coste > 0) { // goods are bought; services and rentals are not
            f.texto("Art_CtaCom", "60000000").texto("Art_CtaComAb", "60800000");
        }
        m.articulos.insert(u(a.cod), f.inserta());
    }
    return m;
}

qint64 creaCliente(BdSesion& s, const ClienteDemo& c, const Maestros& m) {
    Fila f(s, "Cli");
    f.num("Cli_Cod", c.cod)
        .texto("Cli_Nom", c.nom)
        .texto("cli_ape1", c.ape1)
        .texto("cli_ape2", c.ape2)
        .texto("CLI_COMER", c.comer)
        .texto("CLI_DOC", c.doc)
        .num("CLI_TIPDOC", c.tipdoc)
        .num("Cli_Tipo", 0)
        .num("Cli_Reg", c.reg)
        .texto("Cli_Cta", c.iban)
        .texto("CLI_CTACON", QStringLiteral("430000%1").arg(c.cod, 2, 10, QLatin1Char('0')))
        .num("Cli_ban", c.banco > 0 ? m.bancos[c.banco - 1] : 0)
        .num("cli_Fco", m.formasCobro[c.fco - 1])
        .num("Cli_Di1", c.di1)
        .num("Cli_Di2", c.di2)
        .num("Cli_msp", c.msp)
        .importe("Cli_Dto1", c.dto1)
        .importe("Cli_Dto2", c.dto2)
        .num("CLI_IdAge", c.agente > 0 ? m.agentes[c.agente - 1] : 0)
        .num("Cli_AGCom", c.agente > 0 ? m.agentes[c.agente - 1] : 0)
        .num("CLI_EMI", c.emi)
        .importe("cli_impmin", c.impmin)
        .importe("CLI_RetNFiscal", c.retNF)
        .num("CLI_ModoRetNF", c.modoRetNF)
        .texto("Cli_Fatencion", c.atencion)
        .texto("Cli_favobs", c.obsFactura)
        .texto("CLI_OBSER", c.obser)
        .num("Cli_Agrupacontrat2", 1);
    const qint64 id = f.inserta();

    for (const Direccion* d : {&c.fiscal, &c.entrega}) {
        if (d->via == nullptr) {
            continue;
        }
        Fila dir(s, "Dir");
        dir.texto("DIR_COMER", c.comer)
            .texto("DIR_SG", d->sg)
            .texto("DIR_NOMBRE", d->via)
            .texto("Dir_Piso", d->piso)
            .texto("Dir_Puerta", d->puerta)
            .texto("DIR_CP", d->cp)
            .texto("DIR_POBLACION", d->poblacion)
            .num("Dir_Provincia", d->provincia)
            .texto("Dir_Pais", d->pais)
            .texto("dir_fiscal", d == &c.fiscal ? "1" : "0");
        if (d->numero > 0) {
            dir.num("Dir_Numero", d->numero);
        }
        const qint64 idDir = dir.inserta();
        Fila(s, "CliDir").num("CLIDIR_CLI", id).num("Clidir_Dir", idDir).inserta(false);
    }
    if (c.emi == 2 && *c.correo != '\0') { // modo 4, tipo 1: where invoices are mailed
        Fila(s, "Contac")
            .num("contac_idclipro", id)
            .num("contac_tipo", 1)
            .num("contac_modo", 4)
            .texto("contac_descri", c.correo)
            .inserta();
    }
    return id;
}

std::vector<QDate> diasLaborables() {
    std::vector<QDate> dias;
    for (QDate d = kPrimerDia; d <= kUltimoDia; d = d.addDays(1)) {
        if (d.dayOfWeek() < 6 &&
            std::find(std::begin(kFestivos), std::end(kFestivos), d) == std::end(kFestivos)) {
            dias.push_back(d);
        }
    }
    return dias;
}

const ArticuloDemo& articulo(const QString& cod) {
    for (const ArticuloDemo& a : kArticulos) {
        if (cod == u(a.cod)) {
            return a;
        }
    }
    throw ErrorRegla(mensajes::kDemoArticuloDesconocido.arg(cod));
}

// The pending delivery notes: each customer's count, spread in a fixed
// shuffled order over the working days of the stretch.
void creaAlbaranes(BdSesion& s, const Maestros& m, const std::vector<qint64>& idsCli,
                   ResumenDemo& r) {
    std::vector<int> orden;
    for (int i = 0; i < static_cast<int>(std::size(kClientes)); ++i) {
        orden.insert(orden.end(), kClientes[i].albaranes, i);
    }
    Azar azar{20261001u};
    for (int i = static_cast<int>(orden.size()) - 1; i > 0; --i) {
        std::swap(orden[i], orden[azar.entre(i + 1)]);
    }
    // Each note's customer, place among the customer's notes and date; then
    // numbered in date order.
    struct Nota {
        int cliente, ordinal;
        QDate fecha;
    };
    const std::vector<QDate> dias = diasLaborables();
    const size_t n = orden.size();
    std::vector<int> hechos(std::size(kClientes), 0);
    std::vector<Nota> notas;
    for (size_t i = 0; i < n; ++i) {
        Nota nota{orden[i], hechos[orden[i]]++, dias[i * dias.size() / n]};
        for (const Excepcion& e : kExcepciones) {
            if (e.fecha != nullptr && e.cod == kClientes[nota.cliente].cod &&
                e.ordinal == nota.ordinal) {
                nota.fecha = QDate::fromString(u(e.fecha), Qt::ISODate);
            }
        }
        notas.push_back(nota);
    }
    std::stable_sort(notas.begin(), notas.end(),
                     [](const Nota& a, const Nota& b) { return a.fecha < b.fecha; });
    int lineasBienes = 0;

    for (size_t i = 0; i < n; ++i) {
        const ClienteDemo& c = kClientes[notas[i].cliente];
        const int ordinal = notas[i].ordinal;
        const QDate fecha = notas[i].fecha;
        int fco = c.fco, agente = c.agente;
        double dto1 = c.dto1;
        for (const Excepcion& e : kExcepciones) {
            if (e.cod == c.cod && e.ordinal == ordinal) {
                fco = e.fco > 0 ? e.fco : fco;
                agente = e.agente > 0 ? e.agente : agente;
                dto1 = e.dto1 >= 0 ? e.dto1 : dto1;
            }
        }
        // Customers with a delivery address get every other note there.
        const Direccion& d = (c.entrega.via != nullptr && ordinal % 2 == 1) ? c.entrega : c.fiscal;

        Fila cav(s, "Cav");
        cav.texto("Cav_Serie", "A")
            .num("Cav_Numero", static_cast<qint64>(i) + 1)
            .fecha("Cav_Fecha", fecha)
            .num("Cav_IdCli", idsCli[notas[i].cliente])
            .nulo("Cav_IdFactura")
            .num("Cav_Situa", 1)
            .num("Cav_IdFco", m.formasCobro[fco - 1])
            .num("Cav_IdTiva", c.reg)
            .importe("Cav_Dto1", dto1)
            .importe("Cav_Dto2", c.dto2)
            .num("Cav_Agente", agente > 0 ? m.agentes[agente - 1] : 0)
            .texto("Cav_NFiscal", nombreFiscal(c))
            .texto("Cav_CliDoc", c.doc)
            .texto("Cav_NCom", c.comer)
            .texto("Cav_SG", d.sg)
            .texto("Cav_Nombre", d.via)
            .texto("Cav_Piso", d.piso)
            .texto("Cav_Puerta", d.puerta)
            .texto("Cav_CP", d.cp)
            .texto("Cav_Pais", d.pais)
            .texto("Cav_SPais",
                   nombreDe(s, "SELECT PAIS_NOM FROM vkcomun.PAIS WHERE PAIS_COD = ?", u(d.pais)))
            .num("Cav_PROVINCIA", d.provincia)
            .texto("Cav_SProv",
                   nombreDe(s, "SELECT PROV_NOM FROM vkcomun.PROV WHERE PROV_COD = ?", d.provincia))
            .texto("Cav_Poblacion", d.poblacion)
            .texto("Cav_Tlf", c.tlf);
        if (d.numero > 0) {
            cav.num("Cav_Num", d.numero);
        }
        const qint64 idCav = cav.inserta();
        ++r.albaranes;

        // Distinct articles of the customer's range, in a shuffled order.
        QStringList gama = u(c.catalogo).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        for (int k = static_cast<int>(gama.size()) - 1; k > 0; --k) {
            gama.swapItemsAt(k, azar.entre(k + 1));
        }
        const int nLineas = 1 + azar.entre(std::min(6, static_cast<int>(gama.size())));
        for (int l = 0; l < nLineas; ++l) {
            const ArticuloDemo& a = articulo(gama[l]);
            const bool bienes = a.coste > 0;
            const double cantidad =
                a.horas ? 0.5 * (1 + azar.entre(2 * a.maxCant)) : 1 + azar.entre(a.maxCant);
            // Goods now and then carry a promotion, a few a discount per unit.
            double ldto1 = 0, ldto2 = 0, dtoUnidad = 0;
            if (bienes) {
                ldto1 = azar.entre(6) == 0 ? 10 : 0;
                ldto2 = (ldto1 > 0 && azar.entre(2) == 0) ? 5 : 0;
                if (++lineasBienes % 11 == 0) {
                    dtoUnidad = Redondea(0.20 * cantidad, 2);
                }
            }
            const double importe =
                Redondea(cantidad * a.precio * (1 - ldto1 / 100) * (1 - ldto2 / 100), 2);
            Fila(s, "Lav")
                .num("Lav_IdCav", idCav)
                .num("Lav_Orden", l + 1)
                .num("Lav_IdArt", m.articulos.value(u(a.cod)))
                .texto("Lav_CodArt", a.cod)
                .texto("Lav_Des", a.des)
                .importe("Lav_Cantidad", cantidad, 4)
                .importe("Lav_Uni", cantidad, 4)
                .texto("Lav_Medida", a.medida)
                .num("Lav_Decm", a.horas ? 2 : 0)
                .importe("Lav_Precio", a.precio, 6)
                .importe("Lav_Dto1", ldto1)
                .importe("Lav_Dto2", ldto2)
                .importe("Lav_Importe", importe)
                .importe("Lav_ImpDtoUnidad", dtoUnidad)
                .num("Lav_Tiva", tivaVigente(s, c.reg, a.tiva, fecha))
                .texto("Lav_CtaCon", a.ctaVen)
                .importe("Lav_PCompra", a.coste, 6)
                .num("Lav_Imprimir", 1)
                .inserta();
            ++r.lineas;
        }
    }
}

void creaContratos(BdSesion& s, const Maestros& m, ResumenDemo& r) {
    auto dia = [](const char* iso) { return QDate::fromString(u(iso), Qt::ISODate); };
    for (const ContratoDemo& c : kContratos) {
        Fila(s, "Contrataciones")
            .num("Cont_Codcli", c.cod)
            .num("Cont_IdArt", m.articulos.value(u(c.art)))
            .importe("Cont_Cantidad", c.cantidad, 4)
            .importe("Cont_Precio", c.precio, 6)
            .importe("cont_dto", c.dto)
            .texto("Cont_AmpliaDes", c.amplia)
            .num("Cont_Per", c.per)
            .num("Cont_PerEnFac", 1)
            .fecha("Cont_FInstala", dia(c.finstala))
            .fecha("CONT_ULTVTo", dia(c.ultvto))
            .fecha("Cont_Fvto", dia(c.fvto))
            .fecha("Cont_FFactura", dia(c.ffactura))
            .fecha("Cont_FvtoCont", QDate(2027, 12, 31))
            .num("Cont_Vencido", c.vencido ? 1 : 0)
            .inserta(); // the other flags stay 0: whole periods, prices without VAT
        ++r.contratos;
    }
}

} // namespace

ResumenDemo CreaDatosDemo(BdSesion& s) {
    ResumenDemo r;
    Transaccion t(s.cn());
    // Checked inside the transaction: on SQLite the write lock is already
    // held, so two runs at once cannot both find the company empty.
    if (!s.cn().Execute(QStringLiteral("SELECT 1 FROM Cli LIMIT 1")).Eof()) {
        r.yaExistia = true;
        return r;
    }
    actualizaParametros(s);
    creaUsuarios(s);
    const Maestros m = creaMaestros(s);
    r.articulos = static_cast<int>(std::size(kArticulos));

    std::vector<qint64> idsCli;
    for (const ClienteDemo& c : kClientes) {
        idsCli.push_back(creaCliente(s, c, m));
        ++r.clientes;
    }
    creaAlbaranes(s, m, idsCli, r);
    creaContratos(s, m, r);
    t.Confirma();
    return r;
}

} // namespace vk
