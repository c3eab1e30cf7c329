// The session on one company: the `MyBd` the host hands to the facade. It
// owns the connection, the cached parameter record and the statement builder.
#pragma once

#include "BdCampos.h"
#include "BdParametros.h"
#include "CadenaConexion.h"
#include "Conexion.h"
#include "ErrorBd.h"
#include "TiposIva.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <memory>
#include <optional>

namespace vk {

enum class ModoApertura {
    Existente, // the company must exist
    Crea       // files or schemas are made if missing (init)
};

class BdSesion {
public:
    // Opens the company named by the connection string. Throws ErrorBd with a
    // Spanish message when the string is bad, the server cannot be reached or
    // the company does not exist; ErrorDispositivo when the data folder cannot
    // be created.
    static std::unique_ptr<BdSesion> Abre(const QString& cadena,
                                          ModoApertura modo = ModoApertura::Existente);
    static std::unique_ptr<BdSesion> Abre(const CadenaConexion& cadena,
                                          ModoApertura modo = ModoApertura::Existente);

    // A second session on the same server for the company's accounting
    // catalog, "CONVKEMP" + the company id as 0000. It reuses this session's
    // credentials.
    std::unique_ptr<BdSesion> AbreContable(ModoApertura modo = ModoApertura::Existente) const;
    // Name of that catalog, from the company's row in vkcomun.Emp.
    QString CatalogoContable() const;
    // The company's Emp_id in vkcomun.Emp; throws ErrorBd when it has no row.
    qint64 IdEmpresa() const;

    ~BdSesion();
    BdSesion(const BdSesion&) = delete;
    BdSesion& operator=(const BdSesion&) = delete;

    // --- the members the library relies on ---
    bool EsAdministrador();
    BdParametros& Parametros() { return parametros_; }
    int IdUsuario() const { return cadena_.idUsuario; }
    void RecargaParametros(const QString& sSql = QStringLiteral("SELECT * FROM Parametros"));
    bool ConexionActiva(Conexion& cn, QString& sTexto);

    void Limpia(int = 0);
    void Where(const QString& condicion, const QVariantList& parametros = {});
    BdCampos& xlsCampos() { return campos_; }
    void Tabla(const QString& tabla) { tabla_ = tabla.trimmed(); }
    Conexion& cn() { return *cn_; }

    // The builder never throws: a failed statement gives false and its text.
    [[nodiscard]] bool Borra(QString& sMensaje);
    [[nodiscard]] bool Update(QString& sMensaje);
    // With `nuevoId`, the identity of the new row comes back from the insert
    // itself (RETURNING), never from a later max().
    [[nodiscard]] bool Inserta(QString& sMensaje, qint64* nuevoId = nullptr);
    // The database's error behind the last builder statement that returned
    // false, with its kind and detail; empty when it succeeded or the builder
    // refused it before reaching the database.
    const std::optional<ErrorBd>& ErrorConstructor() const { return errorConstructor_; }
    // For a caller whose builder step returned false: rethrows the database's
    // error when it leaves the whole database unusable, so that a run stops;
    // otherwise throws `mensaje` with code kBuilder.
    [[noreturn]] void LanzaErrorConstructor(const QString& mensaje) const;

    // --- of this implementation ---
    const CadenaConexion& cadena() const { return cadena_; }
    const Dialecto& dialecto() const { return cn_->dialecto(); }
    // The company catalog as the suite writes it in EMP_CATALOG (upper case).
    QString Catalogo() const { return cadena_.catalogo.toUpper(); }
    bool ExisteTabla(const QString& tabla, const QString& catalogo = {});
    // Moves a table's identity past ids that were written explicitly.
    void AjustaIdentidad(const QString& tabla, const QString& columna);

    // Reference data a run reads for every invoice (the company's row, the
    // tax rows): while an AmbitoEjecucion is open they are read once, else
    // every time. Only for data that nothing in a run writes.
    Recordset Referencia(const QString& sql, const QVariantList& parametros = {});
    // The tax rows of the open run; null outside a run.
    const TiposIva* TiposIvaDeEjecucion();

private:
    friend class AmbitoEjecucion;
    struct DatosEjecucion {
        std::optional<TiposIva> tipos;
        QHash<QString, Recordset> consultas;
    };

    BdSesion(CadenaConexion cadena, std::unique_ptr<Conexion> cn);
    static QString abreSqlite(const CadenaConexion& c, ModoApertura modo);
    static QString abrePostgres(const CadenaConexion& c, ModoApertura modo);

    // The SQL text of each column value ("?" or an expression), binding the
    // values in order; false with a message when a value does not fit.
    bool valores(QStringList& textos, QVariantList& params, QString& sMensaje) const;
    bool ejecutaConstruida(const QString& sql, const QVariantList& params, QString& sMensaje,
                           qint64* nuevoId = nullptr);
    // Empties the builder and gives false with the text, as every failure does.
    bool rechaza(QString& sMensaje, const QString& texto);

    CadenaConexion cadena_;
    std::unique_ptr<Conexion> cn_;
    BdParametros parametros_;

    QString tabla_;
    BdCampos campos_;
    std::optional<ErrorBd> errorConstructor_;
    QString where_;
    QVariantList whereParametros_;
    int ambitos_ = 0;
    std::unique_ptr<DatosEjecucion> ejecucion_;
};

// Marks a run (a batch of invoices) on a session for its lifetime: reference
// data are read once for the run and forgotten at its end. Runs may nest.
class AmbitoEjecucion {
public:
    explicit AmbitoEjecucion(BdSesion& bd);
    ~AmbitoEjecucion();
    AmbitoEjecucion(const AmbitoEjecucion&) = delete;
    AmbitoEjecucion& operator=(const AmbitoEjecucion&) = delete;

private:
    BdSesion& bd_;
};

} // namespace vk
