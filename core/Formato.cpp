#include "Formato.h"

#include "Redondeo.h"

#include <QDate>
#include <QDateTime>
#include <QList>
#include <QStringList>
#include <algorithm>
#include <cmath>

namespace vk {
namespace {

const QChar kMiles = u'.';
const QChar kComaDecimal = u',';

// Stable names, independent of the CLDR data the Qt build carries.
const char* const kMeses[] = {"enero",      "febrero", "marzo",     "abril",
                              "mayo",       "junio",   "julio",     "agosto",
                              "septiembre", "octubre", "noviembre", "diciembre"};
const char* const kDias[] = {"lunes",   "martes", "miércoles", "jueves",
                             "viernes", "sábado", "domingo"};

// One piece of a mask: a placeholder ('0', '#', '@', '&') or literal text.
struct Pieza {
    QChar hueco;
    QString literal;
};
using Piezas = QList<Pieza>;

void anadeLiteral(Piezas& piezas, const QString& texto) {
    if (!piezas.isEmpty() && piezas.last().hueco.isNull()) {
        piezas.last().literal += texto;
    } else {
        piezas.append(Pieza{QChar(), texto});
    }
}

// Reads a quoted literal ("..." or \x) starting at i into literal and returns
// the index of its last character, or -1 when none starts at i.
qsizetype leeEntrecomillado(const QString& mascara, qsizetype i, QString& literal) {
    if (mascara[i] == u'\\' && i + 1 < mascara.size()) {
        literal = mascara[i + 1];
        return i + 1;
    }
    if (mascara[i] == u'"') {
        const qsizetype fin = mascara.indexOf(u'"', i + 1);
        const qsizetype ultimo = fin < 0 ? mascara.size() - 1 : fin;
        literal = mascara.mid(i + 1, ultimo - i - (fin < 0 ? 0 : 1));
        return ultimo;
    }
    return -1;
}

// The mask with its quoted literals removed, to tell its kind.
QString sinEntrecomillados(const QString& mascara) {
    QString resto;
    for (qsizetype i = 0; i < mascara.size(); ++i) {
        QString literal;
        const qsizetype fin = leeEntrecomillado(mascara, i, literal);
        if (fin >= 0) {
            i = fin;
        } else {
            resto += mascara[i];
        }
    }
    return resto;
}

QString huecos(const Piezas& piezas) {
    QString h;
    for (const Pieza& p : piezas) {
        if (!p.hueco.isNull()) {
            h += p.hueco;
        }
    }
    return h;
}

// Lays the units into the placeholders, one each, starting from the right (or
// the left); the outermost placeholder takes whatever is left over, so a value
// wider than its mask is never cut.
QString compone(const Piezas& piezas, const QStringList& unidades, bool desdeIzquierda) {
    const qsizetype total = huecos(piezas).size();
    const qsizetype n = unidades.size();
    QStringList reparto(total);
    for (qsizetype i = 0; i < n && total > 0; ++i) {
        const qsizetype destino =
            desdeIzquierda ? std::min(i, total - 1) : std::max(total - n + i, qsizetype(0));
        reparto[destino] += unidades[i];
    }
    QString resultado;
    qsizetype j = 0;
    for (const Pieza& p : piezas) {
        if (p.hueco.isNull()) {
            resultado += p.literal;
        } else {
            const QString& parte = reparto[j++];
            resultado += parte.isEmpty() && p.hueco == u'@' ? QStringLiteral(" ") : parte;
        }
    }
    return resultado;
}

QStringList caracteres(const QString& texto) {
    QStringList unidades;
    for (const QChar c : texto) {
        unidades.append(QString(c));
    }
    return unidades;
}

// ---- numbers ----

struct MascaraNumero {
    Piezas entera;
    Piezas decimal;
    bool conDecimal = false;
    bool miles = false;
    bool porcentaje = false;
};

MascaraNumero leeMascaraNumero(const QString& mascara) {
    MascaraNumero m;
    Piezas* actual = &m.entera;
    for (qsizetype i = 0; i < mascara.size(); ++i) {
        const QChar c = mascara[i];
        QString literal;
        if (const qsizetype fin = leeEntrecomillado(mascara, i, literal); fin >= 0) {
            anadeLiteral(*actual, literal);
            i = fin;
        } else if (c == u'0' || c == u'#') {
            actual->append(Pieza{c, {}});
        } else if (c == u'.' && !m.conDecimal) {
            m.conDecimal = true;
            actual = &m.decimal;
        } else if (c == u',') {
            m.miles = m.miles || !m.conDecimal;
        } else {
            m.porcentaje = m.porcentaje || c == u'%';
            anadeLiteral(*actual, QString(c));
        }
    }
    // The integer digits must land somewhere even in masks such as ".00".
    if (huecos(m.entera).isEmpty()) {
        m.entera.append(Pieza{QChar(u'#'), {}});
    }
    return m;
}

QString formateaNumero(double valor, const QString& mascara) {
    const MascaraNumero m = leeMascaraNumero(mascara);
    if (m.porcentaje) {
        valor *= 100.0;
    }
    const QString huecosEnteros = huecos(m.entera);
    const QString huecosDecimales = huecos(m.decimal);
    const int decimales = int(huecosDecimales.size());

    const double redondeado = Redondea(std::fabs(valor), decimales);
    const QString digitos = QString::number(redondeado, 'f', decimales);
    const qsizetype punto = digitos.indexOf(u'.');
    QString entera = punto < 0 ? digitos : digitos.left(punto);
    QString fraccion = punto < 0 ? QString() : digitos.mid(punto + 1);

    // A zero integer part shows only through "0" placeholders.
    if (entera == u"0") {
        entera.clear();
    }
    const qsizetype primerCero = huecosEnteros.indexOf(u'0');
    if (primerCero >= 0) {
        entera = entera.rightJustified(huecosEnteros.size() - primerCero, u'0');
    }
    QStringList unidades;
    for (qsizetype i = 0; i < entera.size(); ++i) {
        const qsizetype aLaDerecha = entera.size() - 1 - i;
        unidades.append(m.miles && aLaDerecha > 0 && aLaDerecha % 3 == 0
                            ? QString(entera[i]) + kMiles
                            : QString(entera[i]));
    }
    // Trailing zeros give way only where the mask says "#".
    while (!fraccion.isEmpty() && fraccion.endsWith(u'0') &&
           huecosDecimales[fraccion.size() - 1] == u'#') {
        fraccion.chop(1);
    }

    QString resultado = valor < 0 && redondeado != 0.0 ? QStringLiteral("-") : QString();
    resultado += compone(m.entera, unidades, false);
    if (m.conDecimal) {
        resultado += kComaDecimal + compone(m.decimal, caracteres(fraccion), true);
    }
    return resultado;
}

QString numeroPlano(double valor) {
    if (valor == 0.0) {
        return QStringLiteral("0");
    }
    QString texto = QString::number(valor, 'g', 15);
    texto.replace(u'.', kComaDecimal);
    texto.replace(u'e', u'E');
    return texto;
}

bool aNumero(const QVariant& valor, double& numero) {
    if (EsNumero(valor)) {
        numero = valor.toDouble();
        return std::isfinite(numero);
    }
    switch (valor.typeId()) {
    case QMetaType::Bool:
        numero = valor.toBool() ? -1.0 : 0.0; // a true Boolean is -1 in the legacy data
        return true;
    case QMetaType::QString: {
        // Text from the code ("1234.56") or typed by a user ("1.234,56").
        const QString texto = valor.toString().trimmed();
        bool ok = false;
        numero = texto.toDouble(&ok);
        if (!ok) {
            QString espanol = texto;
            espanol.remove(kMiles).replace(kComaDecimal, u'.');
            numero = espanol.toDouble(&ok);
        }
        return ok && std::isfinite(numero);
    }
    default:
        return false;
    }
}

// ---- dates ----

QDate aFecha(const QVariant& valor) {
    switch (valor.typeId()) {
    case QMetaType::QDate:
        return valor.toDate();
    case QMetaType::QDateTime:
        return valor.toDateTime().date();
    case QMetaType::QString: {
        // Only the date part counts: "2024-03-05 10:00:00" and "2024-03-05T10:00" too.
        const QString texto = valor.toString().trimmed().section(u' ', 0, 0).section(u'T', 0, 0);
        for (const char* forma : {"d/M/yyyy", "yyyy-MM-dd"}) {
            const QDate fecha = QDate::fromString(texto, QLatin1StringView(forma));
            if (fecha.isValid()) {
                return fecha;
            }
        }
        return {};
    }
    default:
        return {};
    }
}

QString parteFecha(const QDate& fecha, QChar letra, qsizetype veces) {
    const auto dosCifras = [](int n) { return QString::number(n).rightJustified(2, u'0'); };
    const auto abreviado = [](const char* nombre) { return QString::fromUtf8(nombre).left(3); };
    switch (letra.unicode()) {
    case u'd':
        if (veces <= 2) {
            return veces == 1 ? QString::number(fecha.day()) : dosCifras(fecha.day());
        }
        return veces == 3 ? abreviado(kDias[fecha.dayOfWeek() - 1])
                          : QString::fromUtf8(kDias[fecha.dayOfWeek() - 1]);
    case u'm':
        if (veces <= 2) {
            return veces == 1 ? QString::number(fecha.month()) : dosCifras(fecha.month());
        }
        return veces == 3 ? abreviado(kMeses[fecha.month() - 1])
                          : QString::fromUtf8(kMeses[fecha.month() - 1]);
    default: // 'y'
        if (veces == 1) {
            return QString::number(fecha.dayOfYear());
        }
        return veces <= 3 ? dosCifras(fecha.year() % 100)
                          : QString::number(fecha.year()).rightJustified(4, u'0');
    }
}

bool esLetraFecha(QChar c) {
    const QChar l = c.toLower();
    return l == u'd' || l == u'm' || l == u'y';
}

QString formateaFecha(const QDate& fecha, const QString& mascara) {
    QString resultado;
    for (qsizetype i = 0; i < mascara.size(); ++i) {
        QString literal;
        if (const qsizetype fin = leeEntrecomillado(mascara, i, literal); fin >= 0) {
            resultado += literal;
            i = fin;
        } else if (esLetraFecha(mascara[i])) {
            const QChar letra = mascara[i].toLower();
            qsizetype veces = 1;
            while (i + veces < mascara.size() && mascara[i + veces].toLower() == letra) {
                ++veces;
            }
            resultado += parteFecha(fecha, letra, veces);
            i += veces - 1;
        } else {
            resultado += mascara[i];
        }
    }
    return resultado;
}

// ---- text ----

QString textoPlano(const QVariant& valor) {
    double numero = 0;
    switch (valor.typeId()) {
    case QMetaType::Bool:
        return valor.toBool() ? QStringLiteral("Verdadero") : QStringLiteral("Falso");
    case QMetaType::QDate: {
        const QDate fecha = valor.toDate();
        return fecha.isValid() ? fecha.toString(u"dd/MM/yyyy") : QString();
    }
    case QMetaType::QDateTime: {
        const QDateTime momento = valor.toDateTime();
        if (!momento.isValid()) {
            return {};
        }
        QString texto = momento.date().toString(u"dd/MM/yyyy");
        if (momento.time() != QTime(0, 0)) {
            texto += u' ' + momento.time().toString(u"HH:mm:ss");
        }
        return texto;
    }
    case QMetaType::QString:
        return valor.toString();
    default:
        return aNumero(valor, numero) ? numeroPlano(numero) : valor.toString();
    }
}

QString formateaTexto(QString texto, const QString& mascara) {
    Piezas piezas;
    bool desdeIzquierda = false;
    for (qsizetype i = 0; i < mascara.size(); ++i) {
        const QChar c = mascara[i];
        QString literal;
        if (const qsizetype fin = leeEntrecomillado(mascara, i, literal); fin >= 0) {
            anadeLiteral(piezas, literal);
            i = fin;
        } else if (c == u'@' || c == u'&') {
            piezas.append(Pieza{c, {}});
        } else if (c == u'!') {
            desdeIzquierda = true;
        } else if (c == u'<') {
            texto = texto.toLower();
        } else if (c == u'>') {
            texto = texto.toUpper();
        } else {
            anadeLiteral(piezas, QString(c));
        }
    }
    return compone(piezas, caracteres(texto), desdeIzquierda);
}

} // namespace

QString Format(const QVariant& valor, const QString& mascara) {
    if (!valor.isValid() || valor.isNull()) {
        return {};
    }
    if (mascara.isEmpty()) {
        return textoPlano(valor);
    }
    const QString clase = sinEntrecomillados(mascara);
    if (clase.contains(u'@') || clase.contains(u'&')) {
        return formateaTexto(textoPlano(valor), mascara);
    }
    const bool numerica = clase.contains(u'0') || clase.contains(u'#');
    if (!numerica && std::any_of(clase.begin(), clase.end(), esLetraFecha)) {
        const QDate fecha = aFecha(valor);
        return fecha.isValid() ? formateaFecha(fecha, mascara) : textoPlano(valor);
    }
    double numero = 0;
    return aNumero(valor, numero) ? formateaNumero(numero, mascara) : textoPlano(valor);
}

QString FormatoMoneda(double importe) {
    return Format(importe, QStringLiteral("#,##0.00")) + QStringLiteral(" \u20AC");
}

double Val(const QString& texto) {
    QString numero;
    bool punto = false;
    for (const QChar c : texto.trimmed()) {
        if (c.isDigit()) {
            numero += c;
        } else if ((c == QLatin1Char('-') || c == QLatin1Char('+')) && numero.isEmpty()) {
            numero += c;
        } else if (c == QLatin1Char('.') && !punto) {
            punto = true;
            numero += c;
        } else {
            break;
        }
    }
    bool ok = false;
    const double v = numero.toDouble(&ok);
    return ok ? v : 0.0;
}

std::optional<double> LeeNumeroTecleado(const QString& texto) {
    QString t = texto;
    t.remove(QChar(0x20AC)).remove(QLatin1Char(' ')).remove(QChar(0xA0));
    if (t.contains(QLatin1Char(','))) {
        // Spanish: points group the thousands, the comma is the decimal point.
        t.remove(QLatin1Char('.')).replace(QLatin1Char(','), QLatin1Char('.'));
    }
    bool ok = false;
    const double v = t.toDouble(&ok);
    if (!ok) {
        return std::nullopt;
    }
    return v;
}

bool EsNumero(const QVariant& valor) {
    switch (valor.typeId()) {
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::Float:
    case QMetaType::Double:
        return true;
    default:
        return false;
    }
}

} // namespace vk
