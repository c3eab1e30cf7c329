// Declarative description of every table the library reads or writes, in the
// three catalogs. One source for both backends: the dialect turns each column
// kind into its DDL type (see Dialecto.h), and the creation step adds what is
// missing, so the same description serves creation and upgrade.
#pragma once

#include <QString>
#include <optional>
#include <vector>

namespace vk::esquema {

// Column kinds by use. The DDL type of each kind depends on the backend.
enum class Tipo {
    Clave,      // identity primary key (INTEGER PRIMARY KEY AUTOINCREMENT / IDENTITY)
    Codigo,     // primary key whose values the rows are written with (a fixed code)
    Id,         // reference to another table's key (32-bit)
    Entero,     // whole number, codes, counters
    Booleano,   // 0, 1 or -1 as the suite writes it; read as "not 0"
    Texto,      // text of any length
    Fecha,      // calendar date
    Dinero,     // money, two decimals in practice
    Porcentaje, // percentage as a plain number (21 for 21%)
    Precio,     // unit prices, six decimals
    Doble,      // quantities, measures, weights
    Binario     // pictures (the logo)
};

// What a row gets when the program that inserts it does not name the column.
enum class Defecto {
    PorTipo, // 0 for numbers, '' for text, NULL for dates and binaries
    Cero,
    Vacio,
    Nulo,
    Uno // flags that are on unless said otherwise, states that start at 1
};

enum class Catalogo {
    Empresa, // one per company (VKEMP0001 ...)
    Comun,   // shared by all companies: vkcomun
    Contable // accounting catalog of a company: CONVKEMP + id as 0000
};

struct Columna {
    const char* nombre;
    Tipo tipo;
    Defecto defecto = Defecto::PorTipo;
};

struct Tabla {
    const char* nombre;
    Catalogo catalogo;
    std::vector<Columna> columnas;
};

struct Indice {
    const char* nombre;
    const char* tabla;
    std::vector<const char*> columnas;
    bool unico = false;
};

// A view, written in the portable SQL subset both engines share.
struct Vista {
    const char* nombre;
    Catalogo catalogo;
    const char* select;
};

const std::vector<Tabla>& Tablas();
const std::vector<Indice>& Indices();
const std::vector<Vista>& Vistas();

// The table of that name (case-insensitive), or nullptr.
const Tabla* BuscaTabla(const QString& nombre);
// The identity key column of a table, if it has one.
std::optional<QString> ColumnaClave(const QString& tabla);

} // namespace vk::esquema
