// The tax rows of vkcomun.TIVAS and the two questions every invoice asks of
// them: the row of a regime and family in force on a date, and the family of
// a rate. Within a run they are read once (see AmbitoEjecucion): the rows
// are reference data that change with the law, not during a run.
#pragma once

#include <QDate>
#include <QtGlobal>
#include <optional>
#include <vector>

namespace vk {

class BdSesion;

struct TipoIva {
    qint64 id = 0;
    int regimen = 0;
    int familia = 0;
    QDate fecha;
    std::optional<double> iva; // NULL leaves the caller's value
    std::optional<double> rec;
    std::optional<double> ret;
};

class TiposIva {
public:
    static TiposIva Lee(BdSesion& bd);

    // The latest row of the regime and family dated on or before `fecha`.
    std::optional<TipoIva> Vigente(int regimen, int familia, const QDate& fecha) const;
    // The family of the latest row of the regime with that rate dated on or
    // before `fecha`; among rows of one date, the lowest family.
    std::optional<int> FamiliaDe(double iva, int regimen, const QDate& fecha) const;

private:
    std::vector<TipoIva> filas_; // by date, newest first; then by family and id
};

// The session's rows while a run is open, otherwise read now: one answer
// for both, so that a run sees exactly what a single call would.
std::optional<TipoIva> TipoIvaVigente(BdSesion& bd, int regimen, int familia, const QDate& fecha);
std::optional<int> FamiliaIva(BdSesion& bd, double iva, int regimen, const QDate& fecha);

} // namespace vk
