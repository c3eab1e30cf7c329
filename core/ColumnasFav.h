// The one map between the invoice record and the columns of its `Fav` row:
// for each field, its column, how the statement builder binds it, which
// statements write it and when it is stored as NULL. The new invoice's
// insert, the save's update and the load of an invoice all go through it.
#pragma once

#include "BdCampos.h"
#include "RegistroFactura.h"

#include <QString>
#include <variant>
#include <vector>

namespace vk {

class Recordset;

// The statements that write the row: the insert of a new invoice
// (NuevaFactura) and the update of its amounts (GrabaFactura).
enum class OperacionFav : quint8 { Alta = 1, Grabacion = 2 };

// Which of them write a column; none for the key, which is only read.
enum class EscrituraFav : quint8 { Ninguna = 0, Alta = 1, Grabacion = 2, Ambas = 3 };

// How a field's value is written.
enum class ReglaFav : quint8 {
    Valor,            // as it stands
    NuloSiVacioAlta,  // the insert writes NULL for empty text; the save, the text
    NuloSiNoPositivo, // a number above 0, otherwise NULL
    HoySiNoEsFecha,   // a date, or the server's today
    NuloSinImporte,   // an account: NULL while its amount is 0
    SoloSiHayTexto,   // trimmed, and left alone when blank
};

using CampoRegistro = std::variant<QString*, QDate*, double*, qint32*, qint16*>;

struct ColumnaFav {
    QString columna;
    TipoCampo tipo; // Importe is written with two decimals
    EscrituraFav escritura;
    CampoRegistro campo;
    ReglaFav regla = ReglaFav::Valor;
    const double* importe = nullptr; // NuloSinImporte: the amount that decides
};

inline constexpr qint16 kDecimalesImporte = 2;

// The record's fields with their columns, bound to `r`.
std::vector<ColumnaFav> ColumnasFav(RegistroFactura& r);

// Adds to `c` the columns that `op` writes, with the values of `r`.
void EscribeColumnasFav(BdCampos& c, RegistroFactura& r, OperacionFav op);

// The column of one field of `r`, given by its address (`&r.CliNom`).
QString ColumnaFavDe(RegistroFactura& r, const CampoRegistro& campo);

// Every mapped column, comma-separated, for the SELECT that loads a row.
QString ListaColumnasFav();

// The current row of `rs`, which holds every mapped column, into `r`.
// NULL reads as 0, empty text or no date.
void LeeColumnasFav(const Recordset& rs, RegistroFactura& r);

} // namespace vk
