#include "CodigoPagina.h"

#include "Error.h"
#include "MensajesCore.h"

#include <algorithm>
#include <cerrno>
#include <iconv.h>

namespace vk {

namespace {

// One pass of iconv over the bytes; an input it cannot take becomes "?", as
// printers do with what they cannot print.
QByteArray Iconv(const QByteArray& destino, const QByteArray& origen, QByteArray entrada,
                 const QString& codigoPagina) {
    iconv_t cd = iconv_open(destino.constData(), origen.constData());
    if (cd == reinterpret_cast<iconv_t>(-1)) {
        throw ErrorDispositivo(mensajes::kCodigoPaginaNoDisponible.arg(codigoPagina));
    }
    const bool desdeUtf8 = origen == "UTF-8";
    QByteArray salida(entrada.size() * 4 + 16, '\0');
    char* in = entrada.data();
    size_t inLeft = static_cast<size_t>(entrada.size());
    char* out = salida.data();
    size_t outLeft = static_cast<size_t>(salida.size());
    while (inLeft > 0) {
        if (iconv(cd, &in, &inLeft, &out, &outLeft) == static_cast<size_t>(-1)) {
            if (errno == EILSEQ || errno == EINVAL) {
                *out++ = '?';
                --outLeft;
                const auto b = static_cast<unsigned char>(*in);
                const size_t largo = !desdeUtf8  ? 1
                                     : b >= 0xF0 ? 4
                                     : b >= 0xE0 ? 3
                                     : b >= 0xC0 ? 2
                                                 : 1;
                in += std::min(inLeft, largo);
                inLeft -= std::min(inLeft, largo);
            } else {
                break; // E2BIG cannot happen with four bytes per character
            }
        }
    }
    iconv_close(cd);
    salida.truncate(salida.size() - static_cast<qsizetype>(outLeft));
    return salida;
}

} // namespace

QByteArray ConvierteCodigoPagina(const QString& texto, const QString& codigoPagina) {
    return Iconv(codigoPagina.toLatin1() + "//TRANSLIT", "UTF-8", texto.toUtf8(), codigoPagina);
}

QString AjustaCodigoPagina(const QString& texto, const QString& codigoPagina) {
    bool ascii = true;
    for (const QChar c : texto) {
        ascii = ascii && c.unicode() < 0x80;
    }
    if (ascii) {
        return texto; // the same in every code page the printers use
    }
    return QString::fromUtf8(Iconv("UTF-8", codigoPagina.toLatin1(),
                                   ConvierteCodigoPagina(texto, codigoPagina), codigoPagina));
}

} // namespace vk
