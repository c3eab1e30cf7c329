#include "Recordset.h"

#include "ErrorBd.h"
#include "Formato.h"
#include "MensajesCore.h"

#include <QDate>
#include <QRegularExpression>

namespace vk {

namespace {

bool iguales(const QVariant& a, const QVariant& b) {
    if (a.isNull() || b.isNull()) {
        return a.isNull() && b.isNull();
    }
    const auto numerico = [](const QVariant& v) {
        return EsNumero(v) || v.typeId() == QMetaType::Bool;
    };
    if (numerico(a) || numerico(b)) {
        bool okA = false;
        bool okB = false;
        const double x = a.toDouble(&okA);
        const double y = b.toDouble(&okB);
        if (okA && okB) {
            return x == y;
        }
    }
    return a.toString().compare(b.toString(), Qt::CaseInsensitive) == 0;
}

} // namespace

const QString& Campo::Name() const {
    return rs_->nombres_.at(indice_);
}

QVariant Campo::Value() const {
    return rs_->valor(indice_);
}

double Campo::Doble(double siNulo) const {
    const QVariant v = Value();
    return v.isNull() ? siNulo : v.toDouble();
}

qint64 Campo::Entero(qint64 siNulo) const {
    const QVariant v = Value();
    if (v.isNull()) {
        return siNulo;
    }
    // A numeric column may come back as a double (PostgreSQL NUMERIC).
    return v.typeId() == QMetaType::Double ? static_cast<qint64>(v.toDouble()) : v.toLongLong();
}

QString Campo::Texto(const QString& siNulo) const {
    const QVariant v = Value();
    return v.isNull() ? siNulo : v.toString();
}

QDate Campo::Fecha() const {
    const QVariant v = Value();
    if (v.isNull()) {
        return {};
    }
    if (v.typeId() == QMetaType::QDate) {
        return v.toDate();
    }
    if (v.typeId() == QMetaType::QDateTime) {
        return v.toDateTime().date();
    }
    // SQLite keeps dates as ISO text.
    return QDate::fromString(v.toString().left(10), Qt::ISODate);
}

Recordset::Recordset(QStringList nombres, std::vector<std::vector<QVariant>> filas)
    : nombres_(std::move(nombres)), filas_(std::move(filas)) {}

void Recordset::MoveNext() {
    if (Eof()) {
        throw ErrorBd(mensajes::kCursorAlFinal);
    }
    ++pos_;
}

void Recordset::MovePrevious() {
    if (Bof()) {
        throw ErrorBd(mensajes::kCursorAlPrincipio);
    }
    --pos_;
}

bool Recordset::Find(const QString& columna, const QVariant& valor) {
    const int c = indice(columna);
    if (c < 0) {
        throw ErrorBd(mensajes::kCampoNoExiste.arg(columna));
    }
    if (pos_ < 0) {
        pos_ = 0;
    }
    for (; pos_ < RecordCount(); ++pos_) {
        if (iguales(filas_[pos_][c], valor)) {
            return true;
        }
    }
    return false;
}

bool Recordset::Find(const QString& criterio) {
    static const QRegularExpression forma(
        QStringLiteral(R"(^\s*([A-Za-z_][\w]*)\s*=\s*(?:'((?:[^']|'')*)'|(-?[\d.]+))\s*$)"));
    const auto m = forma.match(criterio);
    if (!m.hasMatch()) {
        throw ErrorBd(mensajes::kCriterioNoValido.arg(criterio));
    }
    if (m.capturedStart(2) >= 0) {
        return Find(m.captured(1), m.captured(2).replace(QLatin1String("''"), QLatin1String("'")));
    }
    return Find(m.captured(1), m.captured(3).toDouble());
}

Campo Recordset::Fields(const QString& nombre) const {
    const int c = indice(nombre);
    if (c < 0) {
        throw ErrorBd(mensajes::kCampoNoExiste.arg(nombre));
    }
    return Campo(*this, c);
}

Campo Recordset::Fields(int i) const {
    if (i < 0 || i >= FieldCount()) {
        throw ErrorBd(mensajes::kCampoNumeroNoExiste.arg(i));
    }
    return Campo(*this, i);
}

void Recordset::AnadeCampo(const QString& nombre, std::vector<QVariant> valores) {
    if (valores.size() != filas_.size()) {
        throw ErrorBd(
            mensajes::kCampoValoresDistintos.arg(nombre).arg(valores.size()).arg(filas_.size()));
    }
    if (indice(nombre) >= 0) {
        throw ErrorBd(mensajes::kCampoRepetido.arg(nombre));
    }
    nombres_ << nombre;
    for (std::size_t i = 0; i < filas_.size(); ++i) {
        filas_[i].push_back(std::move(valores[i]));
    }
}

int Recordset::indice(const QString& nombre) const {
    const QString buscado = nombre.trimmed();
    for (int i = 0; i < nombres_.size(); ++i) {
        if (nombres_[i].compare(buscado, Qt::CaseInsensitive) == 0) {
            return i;
        }
    }
    return -1;
}

const QVariant& Recordset::valor(int columna) const {
    if (Eof() || Bof()) {
        throw ErrorBd(mensajes::kSinRegistroActual);
    }
    return filas_[pos_][columna];
}

} // namespace vk
