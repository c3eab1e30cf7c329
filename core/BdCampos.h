// Column list of the statement builder: `xlsCampos` of the session.
#pragma once

#include <QString>
#include <QVariant>
#include <vector>

namespace vk {

// How the builder writes a value. The numbers are the ones the suite's code
// passes; 5 was never used.
enum class TipoCampo : qint16 {
    Numero = 1,   // whole number or flag
    Importe = 2,  // money or percentage, rounded to `decimales`
    Texto = 3,    // text, stored as it stands
    Fecha = 4,    // date
    Expresion = 6 // SQL expression written as it stands: "Null", "Getdate()"
};

struct BdCampo {
    QString nombre;
    TipoCampo tipo;
    QVariant valor;
    qint16 decimales;
};

class BdCampos {
public:
    // Names are trimmed; a column added twice keeps its first place and takes
    // the last value.
    void Add(const QString& nombre, TipoCampo tipo, const QVariant& valor, qint16 decimales = 0);

    void Limpia() { campos_.clear(); }
    bool Vacio() const { return campos_.empty(); }
    int Count() const { return static_cast<int>(campos_.size()); }
    const std::vector<BdCampo>& campos() const { return campos_; }

private:
    std::vector<BdCampo> campos_;
};

} // namespace vk
