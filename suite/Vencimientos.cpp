#include "Vencimientos.h"

#include "Redondeo.h"

#include <algorithm>
#include <optional>

namespace vk::suite {

namespace {

bool esDiaPago(int dia) {
    return dia >= 1 && dia <= 31;
}

// The first payment day of the month of `fecha` that falls on or after its
// day, with days beyond the month's length standing for its last day.
std::optional<int> diaPagoEnMes(const QDate& fecha, int desde, int diaPago1, int diaPago2) {
    std::optional<int> mejor;
    for (const int p : {diaPago1, diaPago2}) {
        if (!esDiaPago(p)) {
            continue;
        }
        const int dia = std::min(p, fecha.daysInMonth());
        if (dia >= desde && (!mejor || dia < *mejor)) {
            mejor = dia;
        }
    }
    return mejor;
}

} // namespace

QDate AjustaDiasPago(const QDate& fecha, int diaPago1, int diaPago2) {
    if (!fecha.isValid() || (!esDiaPago(diaPago1) && !esDiaPago(diaPago2))) {
        return fecha;
    }
    if (const auto dia = diaPagoEnMes(fecha, fecha.day(), diaPago1, diaPago2)) {
        return QDate(fecha.year(), fecha.month(), *dia);
    }
    // Every payment day of this month is past: the first one of the next.
    const QDate siguiente = QDate(fecha.year(), fecha.month(), 1).addMonths(1);
    return QDate(siguiente.year(), siguiente.month(),
                 *diaPagoEnMes(siguiente, 1, diaPago1, diaPago2));
}

QDate AjustaFechaCobro(const QDate& fecha, int diaPago1, int diaPago2, int mesSinPago) {
    QDate f = AjustaDiasPago(fecha, diaPago1, diaPago2);
    if (f.isValid() && mesSinPago >= 1 && mesSinPago <= 12 && f.month() == mesSinPago) {
        f = AjustaDiasPago(QDate(f.year(), f.month(), 1).addMonths(1), diaPago1, diaPago2);
    }
    return f;
}

std::vector<Vencimiento> CalculaVencimientos(const QDate& fechaFactura, double total,
                                             const std::vector<Plazo>& plazos, int diaPago1,
                                             int diaPago2, int mesSinPago) {
    if (plazos.empty()) {
        return {{fechaFactura, Redondea(total, 2), kModoContado}};
    }
    std::vector<Plazo> ordenados = plazos;
    std::stable_sort(ordenados.begin(), ordenados.end(),
                     [](const Plazo& a, const Plazo& b) { return a.dias < b.dias; });

    std::vector<Vencimiento> v;
    v.reserve(ordenados.size());
    double repartido = 0;
    for (std::size_t i = 0; i < ordenados.size(); ++i) {
        const Plazo& p = ordenados[i];
        double importe;
        if (i + 1 < ordenados.size()) {
            importe = Redondea(total * p.porcentaje / 100.0, 2);
            repartido = Redondea(repartido + importe, 2);
        } else {
            // The rest, so that no cent is lost or made up by the rounding.
            importe = Redondea(total - repartido, 2);
        }
        v.push_back({AjustaFechaCobro(fechaFactura.addDays(p.dias), diaPago1, diaPago2, mesSinPago),
                     importe, p.modo});
    }
    return v;
}

} // namespace vk::suite
