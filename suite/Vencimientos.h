// Due dates of an invoice: how an amount is split over the instalments of its
// payment terms and how the customer's payment days move each date. Pure
// logic, no database, so every rule is tested on its own.
#pragma once

#include <QDate>
#include <vector>

namespace vk::suite {

// One instalment of a payment term (a row of Fcol).
struct Plazo {
    int dias;          // days after the invoice date
    double porcentaje; // share of the total, in percent
    int modo;          // mode of payment (Situaciones process 2: 1 cash, 7 card ...)
};

// One receipt to write.
struct Vencimiento {
    QDate fecha;
    double importe;
    int modo;
};

// Mode of the single due date of terms without instalments.
inline constexpr int kModoContado = 1;

// The due dates of an invoice of `total` dated `fechaFactura`.
//
// - No instalments: one due date on the invoice date itself, for the whole
//   total, mode cash. Nothing is deferred, so the payment days do not apply.
// - Instalments are taken in order of their days (the given order breaks
//   ties), so the dates come out in order and the last one is the latest.
// - Each amount is Redondea(total * porcentaje / 100, 2); the last takes the
//   total less the sum of the others, whatever its own share, so the amounts
//   always add up to the total to the cent (negative totals too: 0,01 over
//   three thirds gives 0,00 0,00 0,01).
// - Date = invoice date + dias, then:
//   1. Fixed payment days (`diaPago1`, `diaPago2`; 1..31, anything else is
//      none): the date moves forward to the nearest date on or after it whose
//      day is one of them. A day beyond the length of a month stands for that
//      month's last day (31 is 28 or 29 February).
//   2. Month without payment (`mesSinPago` 1..12, anything else none): a date
//      in that month moves to the 1st of the next month, and step 1 applies
//      again (days 5 and 20 with August free: 10 Aug -> 20 Aug -> 1 Sep ->
//      5 Sep). Step 1 from a 1st never leaves that month, so one move is enough.
//   Both steps only move dates forward and never swap two dates, so the order
//   holds after them.
std::vector<Vencimiento> CalculaVencimientos(const QDate& fechaFactura, double total,
                                             const std::vector<Plazo>& plazos, int diaPago1,
                                             int diaPago2, int mesSinPago);

// Step 1 alone: the date moved to the customer's fixed payment days.
QDate AjustaDiasPago(const QDate& fecha, int diaPago1, int diaPago2);

// Steps 1 and 2: the due date the customer accepts for `fecha`.
QDate AjustaFechaCobro(const QDate& fecha, int diaPago1, int diaPago2, int mesSinPago);

} // namespace vk::suite
