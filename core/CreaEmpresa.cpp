#include "CreaEmpresa.h"

#include "ErrorBd.h"
#include "Esquema.h"
#include "MensajesCore.h"
#include "Semilla.h"

#include <QRegularExpression>
#include <QSet>
#include <QUuid>

namespace vk {

using esquema::Catalogo;

namespace {

// The version that brought the legal mentions of the tax regimes. They are
// seeded only by the step up to it: after that they are the installation's,
// and a mention it deleted is not brought back by the next run.
constexpr int kVersionMencionesIva = 3;

// Table name as written in DDL, and the schema it lives in.
struct Destino {
    QString prefijo;   // "vkcomun." or ""
    QString esquemaPg; // schema for information_schema look-ups
    QString esquemaLite;
};

Destino destinoDe(const BdSesion& s, Catalogo catalogo) {
    if (catalogo == Catalogo::Comun) {
        return {QStringLiteral("vkcomun."), QStringLiteral("vkcomun"), QStringLiteral("vkcomun")};
    }
    return {QString(), s.cadena().catalogo, QStringLiteral("main")};
}

QSet<QString> columnasExistentes(BdSesion& s, const Destino& d, const QString& tabla) {
    QSet<QString> nombres;
    if (s.dialecto().esSQLite()) {
        Recordset rs = s.cn().Execute(QStringLiteral("SELECT name FROM pragma_table_info(?, ?)"),
                                      {tabla, d.esquemaLite});
        for (; !rs.Eof(); rs.MoveNext()) {
            nombres.insert(rs.Fields(0).Texto().toLower());
        }
    } else {
        Recordset rs = s.cn().Execute(
            QStringLiteral("SELECT column_name FROM information_schema.columns WHERE "
                           "table_schema = ? AND table_name = LOWER(?)"),
            {d.esquemaPg, tabla});
        for (; !rs.Eof(); rs.MoveNext()) {
            nombres.insert(rs.Fields(0).Texto().toLower());
        }
    }
    return nombres;
}

QString definicionColumna(const Dialecto& dia, const esquema::Columna& c) {
    return QString::fromUtf8(c.nombre) + QLatin1Char(' ') + dia.tipoColumna(c.tipo) +
           dia.defectoColumna(c);
}

// Creates the tables of one catalog that are missing and adds the columns
// that an older version did not have.
void creaTablas(BdSesion& s, Catalogo catalogo, ResumenCreacion& r) {
    const Dialecto& dia = s.dialecto();
    for (const esquema::Tabla& t : esquema::Tablas()) {
        if (t.catalogo != catalogo) {
            continue;
        }
        const Destino d = destinoDe(s, catalogo);
        const QString nombre = QString::fromUtf8(t.nombre);
        const QSet<QString> existentes = columnasExistentes(s, d, nombre);
        if (existentes.isEmpty()) {
            QStringList columnas;
            for (const esquema::Columna& c : t.columnas) {
                columnas << definicionColumna(dia, c);
            }
            s.cn().Execute(QStringLiteral("CREATE TABLE %1%2 (\n  %3\n)")
                               .arg(d.prefijo, nombre, columnas.join(QStringLiteral(",\n  "))));
            ++r.tablasCreadas;
            continue;
        }
        for (const esquema::Columna& c : t.columnas) {
            if (!existentes.contains(QString::fromUtf8(c.nombre).toLower())) {
                s.cn().Execute(QStringLiteral("ALTER TABLE %1%2 ADD COLUMN %3")
                                   .arg(d.prefijo, nombre, definicionColumna(dia, c)));
                ++r.columnasAnadidas;
            }
        }
    }
    for (const esquema::Indice& ix : esquema::Indices()) {
        const esquema::Tabla* t = esquema::BuscaTabla(QString::fromUtf8(ix.tabla));
        if (!t || t->catalogo != catalogo) {
            continue;
        }
        QStringList columnas;
        for (const char* c : ix.columnas) {
            columnas << QString::fromUtf8(c);
        }
        const QString unico = ix.unico ? QStringLiteral("UNIQUE ") : QString();
        const Destino d = destinoDe(s, catalogo);
        // SQLite names the schema on the index, PostgreSQL on the table.
        const QString sql =
            dia.esSQLite()
                ? QStringLiteral("CREATE %1INDEX IF NOT EXISTS %2%3 ON %4 (%5)")
                      .arg(unico, d.prefijo, QString::fromUtf8(ix.nombre),
                           QString::fromUtf8(ix.tabla), columnas.join(QStringLiteral(", ")))
                : QStringLiteral("CREATE %1INDEX IF NOT EXISTS %2 ON %3%4 (%5)")
                      .arg(unico, QString::fromUtf8(ix.nombre), d.prefijo,
                           QString::fromUtf8(ix.tabla), columnas.join(QStringLiteral(", ")));
        s.cn().Execute(sql);
    }
    for (const esquema::Vista& v : esquema::Vistas()) {
        if (v.catalogo != catalogo) {
            continue;
        }
        const Destino d = destinoDe(s, catalogo);
        s.cn().Execute(QStringLiteral("DROP VIEW IF EXISTS %1%2").arg(d.prefijo, v.nombre));
        s.cn().Execute(
            QStringLiteral("CREATE VIEW %1%2 AS %3")
                .arg(d.prefijo, QString::fromUtf8(v.nombre), QString::fromUtf8(v.select)));
    }
}

// Version recorded in a catalog; 0 when the catalog is new.
int versionDe(BdSesion& s, Catalogo catalogo) {
    const Destino d = destinoDe(s, catalogo);
    const QString tabla = QStringLiteral("VersionEsquema");
    if (columnasExistentes(s, d, tabla).isEmpty()) {
        s.cn().Execute(QStringLiteral("CREATE TABLE %1VersionEsquema (Ver_Numero INTEGER NOT NULL)")
                           .arg(d.prefijo));
        return 0;
    }
    Recordset rs = s.cn().Execute(
        QStringLiteral("SELECT MAX(Ver_Numero) AS v FROM %1VersionEsquema").arg(d.prefijo));
    return rs.Eof() ? 0 : static_cast<int>(rs.Fields(0).Entero());
}

void anotaVersion(BdSesion& s, Catalogo catalogo) {
    const Destino d = destinoDe(s, catalogo);
    s.cn().Execute(QStringLiteral("DELETE FROM %1VersionEsquema").arg(d.prefijo));
    s.cn().Execute(
        QStringLiteral("INSERT INTO %1VersionEsquema (Ver_Numero) VALUES (?)").arg(d.prefijo),
        {kVersionEsquema});
}

int versionYCreacion(BdSesion& s, Catalogo catalogo, ResumenCreacion& r) {
    const int anterior = versionDe(s, catalogo);
    if (anterior > kVersionEsquema) {
        throw ErrorBd(mensajes::kEsquemaMasModerno.arg(anterior).arg(kVersionEsquema));
    }
    creaTablas(s, catalogo, r);
    anotaVersion(s, catalogo);
    return anterior;
}

// The invoicing records are append-only: the database itself refuses to
// change or delete one, whatever program connects to it.
void protegeRegistrosFiscales(BdSesion& s) {
    Conexion& cn = s.cn();
    if (s.dialecto().esSQLite()) {
        cn.Execute(QStringLiteral(
            "CREATE TRIGGER IF NOT EXISTS vfregistro_sin_cambios BEFORE UPDATE ON VfRegistro "
            "BEGIN SELECT RAISE(ABORT, 'Los registros de facturación no se pueden modificar'); "
            "END"));
        cn.Execute(QStringLiteral(
            "CREATE TRIGGER IF NOT EXISTS vfregistro_sin_borrado BEFORE DELETE ON VfRegistro "
            "BEGIN SELECT RAISE(ABORT, 'Los registros de facturación no se pueden borrar'); END"));
        return;
    }
    cn.Execute(QStringLiteral(
        "CREATE OR REPLACE FUNCTION vfregistro_inalterable() RETURNS trigger LANGUAGE plpgsql "
        "AS $$ BEGIN RAISE EXCEPTION 'Los registros de facturación no se pueden modificar ni "
        "borrar'; END $$"));
    cn.Execute(QStringLiteral("DROP TRIGGER IF EXISTS vfregistro_inalterable ON VfRegistro"));
    cn.Execute(QStringLiteral("CREATE TRIGGER vfregistro_inalterable BEFORE UPDATE OR DELETE ON "
                              "VfRegistro FOR EACH ROW EXECUTE FUNCTION vfregistro_inalterable()"));
    cn.Execute(QStringLiteral("DROP TRIGGER IF EXISTS vfregistro_sin_vaciado ON VfRegistro"));
    cn.Execute(QStringLiteral("CREATE TRIGGER vfregistro_sin_vaciado BEFORE TRUNCATE ON VfRegistro "
                              "FOR EACH STATEMENT EXECUTE FUNCTION vfregistro_inalterable()"));
}

// The installation's number in the chain of records: made once, from a
// random UUID, so that no two installations (nor a reinstall) share it.
void numeraInstalacion(BdSesion& s) {
    s.cn().Execute(QStringLiteral("UPDATE Parametros SET Par_VfInstalacion = ? WHERE "
                                  "COALESCE(Par_VfInstalacion, '') = ''"),
                   {QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper()});
}

// The company's number: the digits of its catalog name (VKEMP0001 is 1), or
// the next free one.
qint64 registraEmpresa(BdSesion& s) {
    Recordset rs = s.cn().Execute(
        QStringLiteral("SELECT Emp_id FROM vkcomun.Emp WHERE UPPER(EMP_CATALOG) = ?"),
        {s.Catalogo()});
    if (!rs.Eof()) {
        return rs.Fields(0).Entero();
    }
    static const QRegularExpression digitos(QStringLiteral("(\\d+)$"));
    qint64 id = 0;
    const auto m = digitos.match(s.Catalogo());
    if (m.hasMatch()) {
        id = m.captured(1).toLongLong();
        if (!s.cn()
                 .Execute(QStringLiteral("SELECT 1 FROM vkcomun.Emp WHERE Emp_id = ?"), {id})
                 .Eof()) {
            id = 0;
        }
    }
    if (id <= 0) {
        id = s.cn()
                 .Execute(QStringLiteral("SELECT COALESCE(MAX(Emp_id), 0) + 1 FROM vkcomun.Emp"))
                 .Fields(0)
                 .Entero();
    }
    s.cn().Execute(
        QStringLiteral("INSERT INTO vkcomun.Emp (Emp_id, EMP_CATALOG, Emp_Conta) VALUES (?, ?, 1)"),
        {id, s.Catalogo()});
    s.AjustaIdentidad(QStringLiteral("vkcomun.Emp"), QStringLiteral("Emp_id"));
    return id;
}

} // namespace

void CreaCatalogoContable(BdSesion& contable, ResumenCreacion& r) {
    Transaccion t(contable.cn());
    const int anterior = versionYCreacion(contable, Catalogo::Contable, r);
    t.Confirma();
    r.lineas << (anterior == 0 ? mensajes::kContableCreado : mensajes::kContableAlDia)
                    .arg(contable.Catalogo())
                    .arg(kVersionEsquema);
}

ResumenCreacion CreaEmpresa(BdSesion& s) {
    ResumenCreacion r;
    if (!s.dialecto().esSQLite()) {
        s.cn().Execute(QStringLiteral("CREATE SCHEMA IF NOT EXISTS vkcomun"));
    }
    {
        Transaccion t(s.cn());
        const int anterior = versionYCreacion(s, Catalogo::Comun, r);
        r.filasSemilla += SiembraDatosComunes(s);
        if (anterior < kVersionMencionesIva) {
            r.filasSemilla += SiembraMencionesIva(s);
        }
        t.Confirma();
        r.lineas << (anterior == 0 ? mensajes::kComunCreado : mensajes::kComunAlDia);
    }
    {
        Transaccion t(s.cn());
        r.versionAnterior = versionYCreacion(s, Catalogo::Empresa, r);
        registraEmpresa(s);
        SiembraDatosEmpresa(s);
        protegeRegistrosFiscales(s);
        numeraInstalacion(s);
        t.Confirma();
        r.lineas << (r.versionAnterior == 0 ? mensajes::kEmpresaCreada : mensajes::kEmpresaAlDia)
                        .arg(s.Catalogo())
                        .arg(kVersionEsquema);
    }
    s.RecargaParametros();
    r.catalogoContable = s.CatalogoContable();
    std::unique_ptr<BdSesion> contable = s.AbreContable(ModoApertura::Crea);
    CreaCatalogoContable(*contable, r);
    if (r.tablasCreadas || r.columnasAnadidas || r.filasSemilla) {
        r.lineas << mensajes::kResumenCreacion.arg(r.tablasCreadas)
                        .arg(r.columnasAnadidas)
                        .arg(r.filasSemilla);
    }
    return r;
}

} // namespace vk
