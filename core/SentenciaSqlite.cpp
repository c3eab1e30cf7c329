#include "SentenciaSqlite.h"

#include "MensajesCore.h"

#include <QDateTime>
#include <QTime>
#include <cstring>
#include <sqlite3.h>

namespace vk {

sqlite3* SentenciaSqlite::Manejador(const QVariant& manejadorDriver) {
    if (!manejadorDriver.isValid() || std::strcmp(manejadorDriver.typeName(), "sqlite3*") != 0) {
        return nullptr;
    }
    sqlite3* bd = *static_cast<sqlite3* const*>(manejadorDriver.constData());
    if (bd == nullptr) {
        return nullptr;
    }
    // A driver built with its own copy of the engine hands out a handle this
    // program's copy must not touch; the same version is the best sign
    // available that both are one library.
    sqlite3_stmt* st = nullptr;
    if (sqlite3_prepare_v2(bd, "SELECT sqlite_version()", -1, &st, nullptr) != SQLITE_OK) {
        return nullptr;
    }
    const bool misma = sqlite3_step(st) == SQLITE_ROW &&
                       std::strcmp(reinterpret_cast<const char*>(sqlite3_column_text(st, 0)),
                                   sqlite3_libversion()) == 0;
    sqlite3_finalize(st);
    return misma ? bd : nullptr;
}

std::unique_ptr<SentenciaSqlite> SentenciaSqlite::Prepara(sqlite3* bd, const QString& sql,
                                                          Fallo& fallo) {
    sqlite3_stmt* st = nullptr;
    const void* resto = nullptr;
    const int rc =
        sqlite3_prepare16_v3(bd, sql.utf16(), static_cast<int>(sql.size() * sizeof(char16_t)),
                             SQLITE_PREPARE_PERSISTENT, &st, &resto);
    if (rc != SQLITE_OK) {
        sqlite3_finalize(st);
        fallo = {rc, QString::fromUtf16(static_cast<const char16_t*>(sqlite3_errmsg16(bd)))};
        return nullptr;
    }
    // One statement per call, as the driver requires: a second one after a
    // semicolon is refused, never run unseen.
    const auto leido =
        static_cast<const char16_t*>(resto) - reinterpret_cast<const char16_t*>(sql.utf16());
    const bool vacia = st == nullptr;
    if (vacia || !QStringView(sql).mid(leido).trimmed().isEmpty()) {
        sqlite3_finalize(st);
        fallo = {SQLITE_ERROR, vacia ? QStringLiteral("No hay ninguna sentencia que ejecutar")
                                     : mensajes::kUnaSentencia};
        return nullptr;
    }
    return std::unique_ptr<SentenciaSqlite>(new SentenciaSqlite(bd, st));
}

SentenciaSqlite::~SentenciaSqlite() {
    sqlite3_finalize(st_);
}

SentenciaSqlite::Fallo SentenciaSqlite::fallo(int codigo) const {
    return {codigo, QString::fromUtf16(static_cast<const char16_t*>(sqlite3_errmsg16(bd_)))};
}

namespace {

// NULL as the driver reads a value: a null variant, or a null text, date or
// blob, or an invalid date-time or time.
bool esNulo(const QVariant& v) {
    if (v.isNull()) {
        return true;
    }
    switch (v.typeId()) {
    case QMetaType::QString:
        return static_cast<const QString*>(v.constData())->isNull();
    case QMetaType::QByteArray:
        return static_cast<const QByteArray*>(v.constData())->isNull();
    case QMetaType::QDateTime:
        return !static_cast<const QDateTime*>(v.constData())->isValid();
    case QMetaType::QDate:
        return static_cast<const QDate*>(v.constData())->isNull();
    case QMetaType::QTime:
        return !static_cast<const QTime*>(v.constData())->isValid();
    default:
        return false;
    }
}

} // namespace

bool SentenciaSqlite::Enlaza(const QVariantList& valores, Fallo& f) {
    if (sqlite3_bind_parameter_count(st_) != valores.size()) {
        f = {SQLITE_RANGE, QStringLiteral("Parameter count mismatch")};
        return false;
    }
    textos_.clear();
    const auto texto = [this](int i, QString t) {
        textos_.push_back(std::move(t));
        const QString& guardado = textos_.back();
        return sqlite3_bind_text16(st_, i, guardado.utf16(),
                                   static_cast<int>(guardado.size() * sizeof(char16_t)),
                                   SQLITE_TRANSIENT);
    };
    for (int k = 0; k < valores.size(); ++k) {
        const QVariant& v = valores[k];
        const int i = k + 1;
        int rc = SQLITE_OK;
        if (esNulo(v)) {
            rc = sqlite3_bind_null(st_, i);
        } else {
            // The driver's choices, type by type: what is not a number, a
            // text, a blob or a moment is bound as its text.
            switch (v.typeId()) {
            case QMetaType::QByteArray: {
                const auto* b = static_cast<const QByteArray*>(v.constData());
                rc = sqlite3_bind_blob(st_, i, b->constData(), static_cast<int>(b->size()),
                                       SQLITE_STATIC);
                break;
            }
            case QMetaType::Int:
            case QMetaType::Bool:
                rc = sqlite3_bind_int(st_, i, v.toInt());
                break;
            case QMetaType::Double:
                rc = sqlite3_bind_double(st_, i, v.toDouble());
                break;
            case QMetaType::UInt:
            case QMetaType::LongLong:
                rc = sqlite3_bind_int64(st_, i, v.toLongLong());
                break;
            case QMetaType::QDateTime:
                rc = texto(i, v.toDateTime().toString(Qt::ISODateWithMs));
                break;
            case QMetaType::QTime:
                rc = texto(i, v.toTime().toString(QStringLiteral("hh:mm:ss.zzz")));
                break;
            case QMetaType::QString: {
                const auto* s = static_cast<const QString*>(v.constData());
                rc = sqlite3_bind_text16(st_, i, s->utf16(),
                                         static_cast<int>(s->size() * sizeof(char16_t)),
                                         SQLITE_STATIC);
                break;
            }
            default:
                rc = texto(i, v.toString());
                break;
            }
        }
        if (rc != SQLITE_OK) {
            f = fallo(rc);
            return false;
        }
    }
    return true;
}

bool SentenciaSqlite::Avanza(Fallo& f) {
    const int rc = sqlite3_step(st_);
    if (rc == SQLITE_ROW) {
        return true;
    }
    if (rc != SQLITE_DONE) {
        f = fallo(rc);
    }
    return false;
}

void SentenciaSqlite::Reinicia() {
    sqlite3_reset(st_);
    sqlite3_clear_bindings(st_);
    textos_.clear();
}

int SentenciaSqlite::Columnas() const {
    return sqlite3_column_count(st_);
}

QStringList SentenciaSqlite::Nombres() const {
    QStringList nombres;
    const int n = Columnas();
    nombres.reserve(n);
    for (int i = 0; i < n; ++i) {
        nombres << QString::fromUtf16(static_cast<const char16_t*>(sqlite3_column_name16(st_, i)))
                       .remove(QLatin1Char('"'));
    }
    return nombres;
}

QVariant SentenciaSqlite::Valor(int i) const {
    switch (sqlite3_column_type(st_, i)) {
    case SQLITE_BLOB:
        return QByteArray(static_cast<const char*>(sqlite3_column_blob(st_, i)),
                          sqlite3_column_bytes(st_, i));
    case SQLITE_INTEGER:
        return QVariant(static_cast<qlonglong>(sqlite3_column_int64(st_, i)));
    case SQLITE_FLOAT:
        return QVariant(sqlite3_column_double(st_, i));
    case SQLITE_NULL:
        return QVariant(QMetaType::fromType<QString>());
    default:
        return QString(static_cast<const QChar*>(sqlite3_column_text16(st_, i)),
                       sqlite3_column_bytes16(st_, i) / static_cast<int>(sizeof(QChar)));
    }
}

int SentenciaSqlite::Cambios() const {
    return sqlite3_changes(bd_);
}

} // namespace vk
