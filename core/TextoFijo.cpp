#include "TextoFijo.h"

#include "Formato.h"

namespace vk {

QString Espacios(int n) {
    return n > 0 ? QString(n, QLatin1Char(' ')) : QString();
}

QString Derecha(const QString& texto, int n) {
    return Format(texto, QString(n, QLatin1Char('@')));
}

QString Izquierda(const QString& texto, int n) {
    return Format(texto, QLatin1Char('!') + QString(n, QLatin1Char('@')));
}

QString Cifra(const QVariant& valor, const QString& mascara, int n) {
    return Derecha(Format(valor, mascara), n);
}

QString CifraSi(double valor, const QString& mascara, int n) {
    return valor != 0 ? Cifra(valor, mascara, n) : Espacios(n);
}

QString TrimBlancos(const QString& texto) {
    qsizetype inicio = 0;
    qsizetype fin = texto.size();
    while (inicio < fin && texto[inicio] == QLatin1Char(' ')) {
        ++inicio;
    }
    while (fin > inicio && texto[fin - 1] == QLatin1Char(' ')) {
        --fin;
    }
    return texto.mid(inicio, fin - inicio);
}

QString fnAlinea(const QString& sTexto, int nAncho, int nModo) {
    const int largo = static_cast<int>(sTexto.size());
    if (largo == nAncho) {
        return sTexto;
    }
    if (largo > nAncho) {
        return sTexto.left(nAncho);
    }
    const int faltan = nAncho - largo;
    switch (nModo) {
    case 0:
        return sTexto + Espacios(faltan);
    case 1:
        return Espacios(faltan) + sTexto;
    default:
        return Espacios(faltan / 2) + sTexto + Espacios(faltan / 2);
    }
}

} // namespace vk
