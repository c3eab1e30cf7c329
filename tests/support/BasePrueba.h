// Test fixtures shared by every suite: a fresh company on each backend.
// SQLite lives in a temporary folder; PostgreSQL in a database of its own on
// the throwaway cluster that CTest starts (VKFACTUVEN_PG_HOST).
#pragma once

#include <BdSesion.h>
#include <CreaEmpresa.h>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace vk::prueba {

class BasePrueba {
public:
    // A connection string to an empty place of the backend: a new folder or a
    // new database. The place is removed with the object.
    explicit BasePrueba(Motor motor);
    ~BasePrueba();
    BasePrueba(const BasePrueba&) = delete;
    BasePrueba& operator=(const BasePrueba&) = delete;

    const QString& cadena() const { return cadena_; }
    // The same place with another catalog.
    QString cadenaCatalogo(const QString& catalogo) const;

    // Opens the company, creating its catalogs and reference data.
    std::unique_ptr<BdSesion> CreaEmpresa(const QString& catalogo = QStringLiteral("vkemp0001"));

private:
    Motor motor_;
    QTemporaryDir dir_;
    QString baseDatos_;
    QString cadena_;
};

// Connection string of the cluster's maintenance database, for tests that
// need a server (throws when no cluster was started).
QString CadenaServidorPrueba(const QString& baseDatos);

// From now on the database refuses every row inserted into `tabla` (a
// trigger raising "rechazado"), so that a step fails for real on either
// backend. `tabla` is a name of the schema, never user text.
void RechazaInserciones(BdSesion& bd, const QString& tabla);

// Parameter of every database test: both backends.
class PruebaMotores : public ::testing::TestWithParam<Motor> {};

inline std::string NombreMotor(const ::testing::TestParamInfo<Motor>& info) {
    return info.param == Motor::SQLite ? "SQLite" : "PostgreSQL";
}

#define VK_EN_AMBOS_MOTORES(Suite)                                                                 \
    INSTANTIATE_TEST_SUITE_P(Motores, Suite,                                                       \
                             ::testing::Values(::vk::Motor::SQLite, ::vk::Motor::PostgreSQL),      \
                             ::vk::prueba::NombreMotor)

} // namespace vk::prueba
