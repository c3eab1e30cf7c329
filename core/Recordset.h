// A client-side recordset: the rows are read at once, so the record count is
// exact, the cursor moves both ways and several recordsets stay open on one
// connection on both backends. Field names match without regard to case,
// because PostgreSQL folds unquoted names and the legacy code spells the
// same column in several cases.
#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>
#include <vector>

namespace vk {

class Recordset;

// One column of the current row: the `Fields(name)` of the legacy code.
class Campo {
public:
    Campo(const Recordset& rs, int indice) : rs_(&rs), indice_(indice) {}

    const QString& Name() const;
    // The value with NULL as a null QVariant. Reading past EOF or before BOF
    // is an error, as it was for the legacy cursors.
    QVariant Value() const;

    bool IsNull() const { return Value().isNull(); }
    // The usual legacy read, IIf(IsNull(x), default, x), in one call each.
    double Doble(double siNulo = 0.0) const;
    qint64 Entero(qint64 siNulo = 0) const;
    QString Texto(const QString& siNulo = {}) const;
    QDate Fecha() const; // invalid when NULL

private:
    const Recordset* rs_;
    int indice_;
};

class Recordset {
public:
    Recordset() = default;
    Recordset(QStringList nombres, std::vector<std::vector<QVariant>> filas);

    // EOF and BOF are macros of the C library; the legacy names keep their
    // meaning under these spellings.
    bool Eof() const { return pos_ >= RecordCount() || RecordCount() == 0; }
    bool Bof() const { return pos_ < 0 || RecordCount() == 0; }
    int RecordCount() const { return static_cast<int>(filas_.size()); }
    int AbsolutePosition() const { return pos_; }

    void MoveFirst() { pos_ = 0; }
    void MoveLast() { pos_ = RecordCount() - 1; }
    void MoveNext();
    void MovePrevious();

    // Moves forward from the current row (included) to the first row whose
    // column equals the value; EOF when none. Numbers compare as numbers,
    // text without regard to case, as the legacy Find did.
    bool Find(const QString& columna, const QVariant& valor);
    // The legacy criterion form "Column = value" (value quoted or a number).
    bool Find(const QString& criterio);

    int FieldCount() const { return static_cast<int>(nombres_.size()); }
    Campo Fields(const QString& nombre) const;
    Campo Fields(int indice) const;
    bool TieneCampo(const QString& nombre) const { return indice(nombre) >= 0; }
    const QStringList& NombresCampos() const { return nombres_; }

    // Adds a column whose values the reader works out after the read, one per
    // row in the rows' order. Throws ErrorBd when the count differs or the
    // name is taken.
    void AnadeCampo(const QString& nombre, std::vector<QVariant> valores);

    void Close() {}

private:
    friend class Campo;
    int indice(const QString& nombre) const;
    const QVariant& valor(int columna) const;

    QStringList nombres_;
    std::vector<std::vector<QVariant>> filas_;
    int pos_ = 0;
};

} // namespace vk
