// Every difference between SQLite and PostgreSQL lives here. SQL is otherwise
// written once, in the subset both engines share.
#pragma once

#include "Esquema.h"

#include <QString>
#include <QVariant>

namespace vk {

enum class Motor { SQLite, PostgreSQL };

class Dialecto {
public:
    explicit Dialecto(Motor motor) : motor_(motor) {}

    Motor motor() const { return motor_; }
    bool esSQLite() const { return motor_ == Motor::SQLite; }
    QString nombreMotor() const;

    // DDL type and default clause of a column kind.
    QString tipoColumna(esquema::Tipo tipo) const;
    QString defectoColumna(const esquema::Columna& columna) const;

    // Expression of today's date, the meaning of the legacy "Getdate()".
    QString fechaActual() const;
    // Statement that opens a transaction meant to write: on SQLite the write
    // lock is taken at once, so two writers queue instead of failing later.
    QString inicioTransaccion() const;

    // After rows were written with explicit ids, the statement that moves the
    // identity past them (PostgreSQL sequences do not follow explicit ids;
    // SQLite's AUTOINCREMENT does). Empty when nothing is needed.
    QString ajusteIdentidad(const QString& tabla, const QString& columna) const;

    // Statement that locks one invoice series until the transaction ends,
    // bound with a text key; empty on SQLite, whose write transaction already
    // holds the database's one write lock.
    QString bloqueoSerie() const;
    // Refreshes the planner's statistics of the tables a run grows, so that
    // the plans of its prepared statements follow the company's size; empty
    // where the engine keeps none.
    QString estadisticasFacturas() const;

    // How a date is bound: ISO text on SQLite, a DATE on PostgreSQL.
    QVariant valorFecha(const QDate& fecha) const;

private:
    Motor motor_;
};

} // namespace vk
