// The figures of one customer's stationery: lines of body and width of the
// description, the blank lines that place each block on the form and the
// column offsets. Each layout carries its built-in table; an installation
// adjusts it without a new build in <data folder>/spool/<KEY>.json, a JSON
// object of name -> whole number that overrides the names it gives.
#pragma once

#include <QList>
#include <QPair>
#include <QString>
#include <initializer_list>

namespace vk::spool {

class Estacionario {
public:
    Estacionario() = default;
    Estacionario(std::initializer_list<std::pair<const char*, int>> defectos);

    // The figure by name. A name the table lacks is a slip of the layout's
    // own code and throws ErrorDiseno.
    int operator()(const char* nombre) const;
    bool Tiene(const QString& nombre) const;
    // Adds a figure or changes one (a member adds to the skeleton's table).
    void Fija(const QString& nombre, int valor);
    QStringList Nombres() const;

    // Overrides the figures with the installation's file of the key, when
    // there is one. A file that cannot be read, is not a JSON object, names a
    // figure the layout does not have or gives anything but a whole number
    // from 0 to 999 throws ErrorDiseno with a Spanish message naming the file:
    // nothing is printed with half a table.
    void Carga(const QString& clave);

private:
    QList<QPair<QString, int>> valores_;
};

// <data folder>/spool/<KEY>.json
QString RutaEstacionario(const QString& clave);

} // namespace vk::spool
