// Command line options of the host programs: "--name value" pairs and flags.
#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <stdexcept>

namespace vk::app {

class ErrorUso : public std::runtime_error {
public:
    explicit ErrorUso(const QString& m) : std::runtime_error(m.toStdString()), mensaje(m) {}
    QString mensaje;
};

class Argumentos {
public:
    // `conValor` are the options that take a value; `banderas` those that do not.
    Argumentos(const QStringList& args, const QStringList& conValor, const QStringList& banderas);

    std::optional<QString> valor(const QString& nombre) const;
    bool bandera(const QString& nombre) const { return banderas_.contains(nombre); }

    // --db, else VKFACTUVEN_DB, else ./datos.
    QString baseDatos() const;

private:
    QStringList banderas_;
    QList<QPair<QString, QString>> valores_;
};

} // namespace vk::app
