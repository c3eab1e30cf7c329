// The choices of one issue run over the company's stored parameters: the
// design and paper options picked in the design dialog, and the fiscal regime
// of a run that holds an invoice with a withholding. They live with the run
// and end with it; the session's parameters change only when the user saves
// them.
#pragma once

#include <BdParametros.h>
#include <QString>
#include <QVariant>
#include <vector>

namespace vk {

class ParametrosEmision {
public:
    // Sets a parameter for this run only; names are case-insensitive, as the
    // company's are.
    void Fija(const QString& nombre, const QVariant& valor);
    // The run's value, or else the company's, with the company's readings:
    // 0 or the trimmed empty text when NULL or missing.
    qint64 Entero(const BdParametros& empresa, const QString& nombre) const;
    QString Texto(const BdParametros& empresa, const QString& nombre) const;
    bool Vacio() const { return propios_.empty(); }

private:
    BdParametro* propio(const QString& nombre);
    const BdParametro* propio(const QString& nombre) const;
    std::vector<BdParametro> propios_;
};

} // namespace vk
