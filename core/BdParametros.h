// The record of the company's one `Parametros` row, as the session keeps it.
// It changes only when the row is read again: a run that wants other values
// for itself carries them (the ParametrosEmision), never writes here.
#pragma once

#include "Recordset.h"

#include <QHash>
#include <QString>
#include <QVariant>
#include <vector>

namespace vk {

class BdParametro {
public:
    BdParametro(QString nombre, QVariant valor)
        : nombre_(std::move(nombre)), valor_(std::move(valor)) {}

    const QString& Name() const { return nombre_; }
    // Names are compared as the database compares column names: without
    // case, and without the blanks around the one asked for.
    bool SeLlama(const QString& nombre) const {
        return nombre_.compare(nombre.trimmed(), Qt::CaseInsensitive) == 0;
    }
    const QVariant& Value() const { return valor_; }
    void setValue(const QVariant& valor) { valor_ = valor; }

    // Reads with the legacy default for NULL.
    bool IsNull() const { return valor_.isNull(); }
    qint64 Entero(qint64 siNulo = 0) const;
    double Doble(double siNulo = 0.0) const;
    QString Texto(const QString& siNulo = {}) const;
    // A flag is set when it is not NULL and not 0.
    bool Activo() const;

private:
    QString nombre_;
    QVariant valor_;
};

class BdParametros {
public:
    // Takes the first row of the recordset; with no row every column is NULL.
    void Carga(const Recordset& rs);

    // Case-insensitive; a name that is not a column of the row throws ErrorBd.
    BdParametro& Item(const QString& nombre);
    const BdParametro& Item(const QString& nombre) const;
    bool Existe(const QString& nombre) const { return buscar(nombre) >= 0; }
    // The value of a column, 0 or the trimmed empty text when it is NULL or
    // the row lacks it: for settings a company may not have.
    qint64 Entero(const QString& nombre) const {
        return Existe(nombre) ? Item(nombre).Entero() : 0;
    }
    QString Texto(const QString& nombre) const {
        return Existe(nombre) ? Item(nombre).Texto().trimmed() : QString();
    }
    int Count() const { return static_cast<int>(items_.size()); }
    bool TieneFila() const { return tieneFila_; }

private:
    int buscar(const QString& nombre) const;
    std::vector<BdParametro> items_;
    // Position of each name, case-folded: the engine asks for
    // several parameters per invoice out of some two hundred.
    QHash<QString, int> indice_;
    bool tieneFila_ = false;
};

} // namespace vk
