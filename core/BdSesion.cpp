#include "BdSesion.h"

#include "ErrorBd.h"
#include "Esquema.h"
#include "MensajesCore.h"
#include "Redondeo.h"

#include <QAtomicInteger>
#include <QDate>
#include <QDir>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>

namespace vk {

namespace {

QString nuevoNombreConexion() {
    static QAtomicInteger<int> contador = 0;
    return QStringLiteral("vk_sesion_%1").arg(contador.fetchAndAddRelaxed(1) + 1);
}

// A table or column name: a letter or underscore, then letters, digits,
// underscores or ñ. Checked for every column of every statement built.
bool esIdentificador(const QString& nombre) {
    if (nombre.isEmpty()) {
        return false;
    }
    const auto letra = [](char16_t c) {
        return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || c == u'_';
    };
    for (qsizetype i = 0; i < nombre.size(); ++i) {
        const char16_t c = nombre[i].unicode();
        if (!letra(c) && (i == 0 || !((c >= u'0' && c <= u'9') || c == u'ñ' || c == u'Ñ'))) {
            return false;
        }
    }
    return true;
}

QString errorApertura(const QSqlError& e) {
    QString t = e.driverText().trimmed();
    const QString db = e.databaseText().trimmed();
    if (!db.isEmpty()) {
        t += QStringLiteral(": ") + db;
    }
    return t;
}

std::optional<QDate> fechaDe(const QVariant& v) {
    if (v.typeId() == QMetaType::QDate) {
        return v.toDate();
    }
    if (v.typeId() == QMetaType::QDateTime) {
        return v.toDateTime().date();
    }
    const QString t = v.toString().trimmed();
    for (const char* forma : {"dd/MM/yyyy", "d/M/yyyy", "yyyy-MM-dd"}) {
        const QDate d = QDate::fromString(t, QString::fromLatin1(forma));
        if (d.isValid()) {
            return d;
        }
    }
    return std::nullopt;
}

} // namespace

BdSesion::BdSesion(CadenaConexion cadena, std::unique_ptr<Conexion> cn)
    : cadena_(std::move(cadena)), cn_(std::move(cn)) {}

BdSesion::~BdSesion() = default;

std::unique_ptr<BdSesion> BdSesion::Abre(const QString& cadena, ModoApertura modo) {
    return Abre(CadenaConexion::Interpreta(cadena), modo);
}

std::unique_ptr<BdSesion> BdSesion::Abre(const CadenaConexion& c, ModoApertura modo) {
    const QString nombre = c.motor == Motor::SQLite ? abreSqlite(c, modo) : abrePostgres(c, modo);
    std::unique_ptr<BdSesion> s(
        new BdSesion(c, std::make_unique<Conexion>(nombre, Dialecto(c.motor))));
    if (c.motor == Motor::SQLite) {
        // Several processes write to one company: wait for the lock
        // instead of failing, and let readers go on while one writes.
        s->cn().Execute(QStringLiteral("PRAGMA journal_mode=WAL"));
        s->cn().Execute(QStringLiteral("ATTACH DATABASE ? AS vkcomun"),
                        {QDir(c.directorio).filePath(QStringLiteral("vkcomun.sqlite"))});
        s->cn().Execute(QStringLiteral("PRAGMA vkcomun.journal_mode=WAL"));
    } else {
        const bool existe = !s->cn()
                                 .Execute(QStringLiteral("SELECT 1 FROM pg_namespace WHERE "
                                                         "nspname = ?"),
                                          {c.catalogo})
                                 .Eof();
        if (!existe) {
            if (modo == ModoApertura::Existente) {
                throw ErrorBd(
                    mensajes::kEmpresaNoExiste.arg(c.catalogo.toUpper(), c.descripcion()));
            }
            s->cn().Execute(QStringLiteral("CREATE SCHEMA IF NOT EXISTS %1").arg(c.catalogo));
        }
        // "already exists, skipping" and the like are not for people.
        s->cn().Execute(QStringLiteral("SET client_min_messages TO warning"));
        // The catalog name is a checked identifier, never user text.
        s->cn().Execute(QStringLiteral("SET search_path TO %1").arg(c.catalogo));
        // A write waits for another user's lock as long as on SQLite, then
        // fails as "ocupada" instead of hanging.
        s->cn().Execute(QStringLiteral("SELECT set_config('lock_timeout', ?, false)"),
                        {QString::number(c.esperaSegundos * 1000)});
    }
    if (s->ExisteTabla(QStringLiteral("Parametros"))) {
        s->RecargaParametros();
    }
    return s;
}

QString BdSesion::abreSqlite(const CadenaConexion& c, ModoApertura modo) {
    QDir dir(c.directorio);
    const QString fichero = dir.filePath(c.catalogo + QStringLiteral(".sqlite"));
    if (modo == ModoApertura::Existente) {
        if (!QFileInfo::exists(fichero)) {
            throw ErrorBd(
                mensajes::kEmpresaSinFichero.arg(c.catalogo.toUpper(), c.directorio, fichero));
        }
        if (!QFileInfo::exists(dir.filePath(QStringLiteral("vkcomun.sqlite")))) {
            throw ErrorBd(mensajes::kFaltaCatalogoComun.arg(c.directorio));
        }
    } else if (!dir.mkpath(QStringLiteral("."))) {
        throw ErrorDispositivo(mensajes::kCarpetaDatosNoCreada.arg(c.directorio));
    }
    const QString nombre = nuevoNombreConexion();
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), nombre);
    db.setDatabaseName(fichero);
    db.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(c.esperaSegundos * 1000));
    if (!db.open()) {
        const QString error = errorApertura(db.lastError());
        db = QSqlDatabase();
        QSqlDatabase::removeDatabase(nombre);
        throw ErrorBd(mensajes::kBdNoSeAbre.arg(fichero, error));
    }
    return nombre;
}

QString BdSesion::abrePostgres(const CadenaConexion& c, ModoApertura) {
    if (!QSqlDatabase::isDriverAvailable(QStringLiteral("QPSQL"))) {
        throw ErrorBd(mensajes::kSinControladorPostgres);
    }
    const QString nombre = nuevoNombreConexion();
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), nombre);
    db.setHostName(c.servidor);
    db.setPort(c.puerto);
    db.setDatabaseName(c.baseDatos);
    if (!c.usuario.isEmpty()) {
        db.setUserName(c.usuario);
    }
    QString opciones = c.opciones;
    if (!opciones.contains(QLatin1String("connect_timeout"))) {
        opciones += (opciones.isEmpty() ? QString() : QStringLiteral(";")) +
                    QStringLiteral("connect_timeout=10");
    }
    db.setConnectOptions(opciones);
    if (!db.open()) {
        const QString error = errorApertura(db.lastError());
        db = QSqlDatabase();
        QSqlDatabase::removeDatabase(nombre);
        throw ErrorBd(mensajes::kServidorNoConecta.arg(c.descripcion(), error));
    }
    return nombre;
}

qint64 BdSesion::IdEmpresa() const {
    Recordset rs =
        cn_->Execute(QStringLiteral("SELECT Emp_id FROM vkcomun.Emp WHERE UPPER(EMP_CATALOG) = ?"),
                     {Catalogo()});
    if (rs.Eof()) {
        throw ErrorBd(mensajes::kEmpresaFueraDeEmp.arg(Catalogo()));
    }
    return rs.Fields(QStringLiteral("Emp_id")).Entero();
}

QString BdSesion::CatalogoContable() const {
    return QStringLiteral("CONVKEMP%1").arg(IdEmpresa(), 4, 10, QLatin1Char('0'));
}

std::unique_ptr<BdSesion> BdSesion::AbreContable(ModoApertura modo) const {
    return Abre(cadena_.conCatalogo(CatalogoContable()), modo);
}

bool BdSesion::EsAdministrador() {
    Recordset rs = cn_->Execute(
        QStringLiteral("SELECT Usu_Admin FROM vkcomun.Usu WHERE Usu_Id = ?"), {IdUsuario()});
    return !rs.Eof() && rs.Fields(QStringLiteral("Usu_Admin")).Entero() != 0;
}

void BdSesion::RecargaParametros(const QString& sSql) {
    parametros_.Carga(cn_->Execute(sSql));
}

Recordset BdSesion::Referencia(const QString& sql, const QVariantList& parametros) {
    if (!ejecucion_) {
        return cn_->Execute(sql, parametros);
    }
    QString clave = sql;
    for (const QVariant& p : parametros) {
        clave += QChar(0x1f) + (p.isNull() ? QStringLiteral("\x1e") : p.toString());
    }
    const auto it = ejecucion_->consultas.constFind(clave);
    if (it != ejecucion_->consultas.constEnd()) {
        return *it;
    }
    Recordset rs = cn_->Execute(sql, parametros);
    ejecucion_->consultas.insert(clave, rs);
    return rs;
}

const TiposIva* BdSesion::TiposIvaDeEjecucion() {
    if (!ejecucion_) {
        return nullptr;
    }
    if (!ejecucion_->tipos) {
        ejecucion_->tipos = TiposIva::Lee(*this);
    }
    return &*ejecucion_->tipos;
}

AmbitoEjecucion::AmbitoEjecucion(BdSesion& bd) : bd_(bd) {
    if (bd_.ambitos_++ == 0) {
        bd_.ejecucion_ = std::make_unique<BdSesion::DatosEjecucion>();
    }
}

AmbitoEjecucion::~AmbitoEjecucion() {
    if (--bd_.ambitos_ == 0) {
        bd_.ejecucion_.reset();
    }
}

bool BdSesion::ConexionActiva(Conexion& cn, QString& sTexto) {
    // No round trip: a connection the server has dropped fails its next
    // statement as "conexión perdida", which stops a run just the same.
    if (!cn.EstaAbierta()) {
        sTexto = mensajes::kConexionCerrada;
        return false;
    }
    return true;
}

bool BdSesion::ExisteTabla(const QString& tabla, const QString& catalogo) {
    Recordset rs;
    if (dialecto().esSQLite()) {
        const QString esquema = catalogo.isEmpty() ? QStringLiteral("main") : catalogo.toLower();
        if (!esIdentificador(esquema)) {
            return false;
        }
        rs = cn_->Execute(QStringLiteral("SELECT 1 FROM %1.sqlite_master WHERE type IN "
                                         "('table','view') AND LOWER(name) = LOWER(?)")
                              .arg(esquema),
                          {tabla});
    } else {
        rs = cn_->Execute(QStringLiteral("SELECT 1 FROM information_schema.tables WHERE "
                                         "table_schema = ? AND table_name = LOWER(?)"),
                          {catalogo.isEmpty() ? cadena_.catalogo : catalogo.toLower(), tabla});
    }
    return !rs.Eof();
}

void BdSesion::AjustaIdentidad(const QString& tabla, const QString& columna) {
    const QString sql = dialecto().ajusteIdentidad(tabla, columna);
    if (!sql.isEmpty()) {
        cn_->Execute(sql);
    }
}

void BdSesion::Limpia(int) {
    campos_.Limpia();
    errorConstructor_.reset();
    where_.clear();
    whereParametros_.clear();
}

void BdSesion::Where(const QString& condicion, const QVariantList& parametros) {
    where_ = condicion;
    whereParametros_ = parametros;
}

bool BdSesion::valores(QStringList& textos, QVariantList& params, QString& sMensaje) const {
    if (!esIdentificador(tabla_) || campos_.Vacio()) {
        sMensaje = mensajes::kSentenciaIncompleta;
        return false;
    }
    for (const BdCampo& c : campos_.campos()) {
        if (!esIdentificador(c.nombre)) {
            sMensaje = mensajes::kColumnaNoValida.arg(c.nombre);
            return false;
        }
        if (c.tipo == TipoCampo::Expresion) {
            const QString e = c.valor.toString().trimmed();
            if (e.compare(QLatin1String("Null"), Qt::CaseInsensitive) == 0) {
                textos << QStringLiteral("NULL");
            } else if (e.compare(QLatin1String("Getdate()"), Qt::CaseInsensitive) == 0) {
                textos << dialecto().fechaActual();
            } else {
                textos << e;
            }
            continue;
        }
        textos << QStringLiteral("?");
        if (c.valor.isNull()) {
            params << QVariant();
            continue;
        }
        switch (c.tipo) {
        case TipoCampo::Numero: {
            if (c.valor.typeId() == QMetaType::Bool) {
                params << QVariant(c.valor.toBool() ? 1 : 0);
                break;
            }
            bool ok = false;
            const double n = c.valor.toDouble(&ok);
            if (!ok) {
                sMensaje = mensajes::kValorNoNumerico.arg(c.nombre, c.valor.toString());
                return false;
            }
            params << QVariant(static_cast<qint64>(n));
            break;
        }
        case TipoCampo::Importe: {
            bool ok = false;
            const double n = c.valor.toDouble(&ok);
            if (!ok) {
                sMensaje = mensajes::kImporteNoValido.arg(c.nombre, c.valor.toString());
                return false;
            }
            params << QVariant(Redondea(n, c.decimales));
            break;
        }
        case TipoCampo::Texto:
            params << QVariant(c.valor.toString());
            break;
        case TipoCampo::Fecha: {
            const std::optional<QDate> f = fechaDe(c.valor);
            if (!f || !f->isValid()) {
                sMensaje = mensajes::kFechaColumnaNoValida.arg(c.nombre, c.valor.toString());
                return false;
            }
            params << dialecto().valorFecha(*f);
            break;
        }
        case TipoCampo::Expresion:
            break;
        }
    }
    return true;
}

bool BdSesion::ejecutaConstruida(const QString& sql, const QVariantList& params, QString& sMensaje,
                                 qint64* nuevoId) {
    try {
        Recordset rs = cn_->Execute(sql, params);
        if (nuevoId) {
            *nuevoId = rs.Eof() ? 0 : rs.Fields(0).Entero();
        }
        sMensaje.clear();
        Limpia();
        return true;
    } catch (const ErrorBd& e) {
        rechaza(sMensaje, e.Mensaje());
        errorConstructor_ = e;
        return false;
    }
}

void BdSesion::LanzaErrorConstructor(const QString& mensaje) const {
    if (errorConstructor_ && errorConstructor_->AfectaATodo()) {
        throw *errorConstructor_;
    }
    throw ErrorBd(mensaje, ErrorBd::kBuilder);
}

bool BdSesion::rechaza(QString& sMensaje, const QString& texto) {
    sMensaje = texto;
    Limpia();
    return false;
}

bool BdSesion::Inserta(QString& sMensaje, qint64* nuevoId) {
    QStringList textos;
    QVariantList params;
    if (!valores(textos, params, sMensaje)) {
        return rechaza(sMensaje, sMensaje);
    }
    QStringList nombres;
    for (const BdCampo& c : campos_.campos()) {
        nombres << c.nombre;
    }
    QString sql =
        QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
            .arg(tabla_, nombres.join(QStringLiteral(", ")), textos.join(QStringLiteral(", ")));
    if (nuevoId) {
        const std::optional<QString> clave = esquema::ColumnaClave(tabla_);
        if (!clave) {
            return rechaza(sMensaje, mensajes::kSinClaveAutonumerica.arg(tabla_));
        }
        sql += QStringLiteral(" RETURNING ") + *clave;
    }
    return ejecutaConstruida(sql, params, sMensaje, nuevoId);
}

bool BdSesion::Update(QString& sMensaje) {
    QStringList textos;
    QVariantList params;
    if (!valores(textos, params, sMensaje)) {
        return rechaza(sMensaje, sMensaje);
    }
    QStringList asignaciones;
    for (int i = 0; i < campos_.Count(); ++i) {
        asignaciones << campos_.campos()[i].nombre + QStringLiteral(" = ") + textos[i];
    }
    // An empty condition updates every row: the builder adds no guard.
    const QString sql = QStringLiteral("UPDATE %1 SET %2 %3")
                            .arg(tabla_, asignaciones.join(QStringLiteral(", ")), where_);
    return ejecutaConstruida(sql.trimmed(), params + whereParametros_, sMensaje);
}

bool BdSesion::Borra(QString& sMensaje) {
    if (!esIdentificador(tabla_)) {
        return rechaza(sMensaje, mensajes::kBorradoIncompleto);
    }
    const QString sql = QStringLiteral("DELETE FROM %1 %2").arg(tabla_, where_);
    return ejecutaConstruida(sql.trimmed(), whereParametros_, sMensaje);
}

} // namespace vk
