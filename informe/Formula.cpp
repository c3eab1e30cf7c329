#include "Formula.h"

#include "MensajesInforme.h"

#include <Error.h>
#include <Formato.h>
#include <QVariantList>

namespace vk::informe {

namespace {

// Deeper than any honest chain of formulas: beyond it the formulas loop.
constexpr int kProfundidadMaxima = 32;

class Analizador {
public:
    Analizador(const QString& texto, const FuenteValores& fuente, int profundidad)
        : t_(texto), f_(fuente), prof_(profundidad) {}

    QVariant Evalua() {
        saltaBlancos();
        if (p_ >= t_.size()) {
            return QString();
        }
        QVariant v = suma();
        saltaBlancos();
        if (p_ < t_.size()) {
            falla(mensajes::kFormulaSobra.arg(t_.mid(p_)));
        }
        return v;
    }

private:
    [[noreturn]] void falla(const QString& motivo) const {
        throw ErrorDiseno(mensajes::kErrorFormula.arg(t_, motivo));
    }
    void saltaBlancos() {
        while (p_ < t_.size() && t_[p_].isSpace()) {
            ++p_;
        }
    }
    bool toma(QChar c) {
        saltaBlancos();
        if (p_ < t_.size() && t_[p_] == c) {
            ++p_;
            return true;
        }
        return false;
    }

    QVariant suma() {
        QVariant v = termino();
        while (toma(u'+')) {
            const QVariant w = termino();
            // A NULL amount adds as 0, as a text it joins as nothing.
            const auto numero = [](const QVariant& x) {
                return x.typeId() != QMetaType::QString && x.typeId() != QMetaType::Bool &&
                       x.canConvert<double>();
            };
            const bool numeros =
                (numero(v) || numero(w)) && (numero(v) || v.isNull()) && (numero(w) || w.isNull());
            if (numeros) {
                v = v.toDouble() + w.toDouble();
            } else {
                v = texto(v) + texto(w);
            }
        }
        return v;
    }

    static QString texto(const QVariant& v) {
        if (v.typeId() == QMetaType::Bool) {
            return v.toBool() ? QStringLiteral("True") : QStringLiteral("False");
        }
        return v.toString();
    }

    QVariant termino() {
        saltaBlancos();
        if (p_ >= t_.size()) {
            falla(mensajes::kFormulaFaltaValor);
        }
        const QChar c = t_[p_];
        if (c == u'\'' || c == u'"') {
            return literal(c);
        }
        if (c == u'{') {
            const qsizetype fin = t_.indexOf(u'}', p_);
            if (fin < 0) {
                falla(mensajes::kFormulaFaltaLlave);
            }
            QString nombre = t_.mid(p_ + 1, fin - p_ - 1).trimmed();
            p_ = fin + 1;
            if (nombre.startsWith(u'@')) {
                return formula(nombre.mid(1).trimmed());
            }
            // The table part names the one data source; only the column counts.
            nombre = nombre.mid(nombre.lastIndexOf(u'.') + 1);
            QVariant v;
            if (!f_.Campo(nombre, v)) {
                falla(mensajes::kFormulaSinCampo.arg(nombre));
            }
            return v;
        }
        if (c == u'(') {
            ++p_;
            QVariant v = suma();
            if (!toma(u')')) {
                falla(mensajes::kFormulaFaltaParentesis);
            }
            return v;
        }
        if (c.isDigit() || c == u'-' || c == u'.') {
            const qsizetype inicio = p_++;
            while (p_ < t_.size() && (t_[p_].isDigit() || t_[p_] == u'.')) {
                ++p_;
            }
            bool ok = false;
            const double n = t_.mid(inicio, p_ - inicio).toDouble(&ok);
            if (!ok) {
                falla(mensajes::kFormulaNumeroMal);
            }
            return n;
        }
        if (c.isLetter() || c == u'_') {
            const qsizetype inicio = p_;
            while (p_ < t_.size() && (t_[p_].isLetterOrNumber() || t_[p_] == u'_')) {
                ++p_;
            }
            const QString nombre = t_.mid(inicio, p_ - inicio);
            if (toma(u'(')) {
                return funcion(nombre);
            }
            if (nombre.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0) {
                return true;
            }
            if (nombre.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0) {
                return false;
            }
            QVariant v;
            if (f_.Campo(nombre, v)) {
                return v;
            }
            return formula(nombre);
        }
        falla(mensajes::kFormulaInesperado.arg(c));
    }

    QVariant literal(QChar comilla) {
        QString v;
        ++p_;
        while (true) {
            if (p_ >= t_.size()) {
                falla(mensajes::kFormulaTextoAbierto);
            }
            if (t_[p_] == comilla) {
                if (p_ + 1 < t_.size() && t_[p_ + 1] == comilla) {
                    v += comilla;
                    p_ += 2;
                    continue;
                }
                ++p_;
                return v;
            }
            v += t_[p_++];
        }
    }

    QVariant formula(const QString& nombre) {
        QString texto;
        if (!f_.Formula(nombre, texto)) {
            falla(mensajes::kFormulaSinCampoNiFormula.arg(nombre));
        }
        if (prof_ >= kProfundidadMaxima) {
            falla(mensajes::kFormulaEnCiclo);
        }
        return Analizador(texto, f_, prof_ + 1).Evalua();
    }

    QVariant funcion(const QString& nombre) {
        QVariantList args;
        if (!toma(u')')) {
            do {
                args << suma();
            } while (toma(u','));
            if (!toma(u')')) {
                falla(mensajes::kFormulaFaltaParentesis);
            }
        }
        if (nombre.compare(QLatin1String("Trozo"), Qt::CaseInsensitive) == 0 && args.size() == 3) {
            const QStringList piezas = texto(args[0]).split(args[1].toString());
            const int n = args[2].toInt();
            return n >= 1 && n <= piezas.size() ? piezas[n - 1].trimmed() : QString();
        }
        if (nombre.compare(QLatin1String("Formato"), Qt::CaseInsensitive) == 0 &&
            args.size() == 2) {
            return Format(args[0], args[1].toString());
        }
        if (nombre.compare(QLatin1String("Descuentos"), Qt::CaseInsensitive) == 0 &&
            !args.isEmpty()) {
            return descuentos(args);
        }
        falla(mensajes::kFormulaFuncionDesconocida.arg(nombre));
    }

    // A line's chained discounts as one short text, "10+5", the figures
    // without trailing zeros; the ones at 0 left out.
    static QString descuentos(const QVariantList& args) {
        QStringList r;
        for (const QVariant& a : args) {
            const double v = a.toDouble();
            if (v != 0) {
                QString t = Format(v, QStringLiteral("#0.00"));
                while (t.endsWith(u'0')) {
                    t.chop(1);
                }
                if (t.endsWith(u',')) {
                    t.chop(1);
                }
                r << t;
            }
        }
        return r.join(u'+');
    }

    const QString& t_;
    const FuenteValores& f_;
    int prof_;
    qsizetype p_ = 0;
};

} // namespace

QVariant EvaluaFormula(const QString& texto, const FuenteValores& fuente) {
    return Analizador(texto, fuente, 0).Evalua();
}

QString Entrecomilla(const QString& valor) {
    QString v = valor;
    v.replace(QLatin1String("'"), QLatin1String("''"));
    return QLatin1Char('\'') + v + QLatin1Char('\'');
}

bool EsVerdadero(const QVariant& valor) {
    if (valor.isNull() || !valor.isValid()) {
        return false;
    }
    switch (valor.typeId()) {
    case QMetaType::Bool:
        return valor.toBool();
    case QMetaType::QString: {
        const QString t = valor.toString().trimmed();
        return !t.isEmpty() && t.compare(QLatin1String("False"), Qt::CaseInsensitive) != 0;
    }
    case QMetaType::QDate:
        return valor.toDate().isValid();
    default:
        return valor.canConvert<double>() ? valor.toDouble() != 0 : true;
    }
}

} // namespace vk::informe
