#include "Redondeo.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace vk {

double fnRedondeoNormal(double valor, int decimales) {
    if (std::isnan(valor)) {
        return valor;
    }
    const double escala = std::pow(10.0, decimales);
    const double resultado = std::floor(std::fabs(valor) * escala + 0.5001001) / escala;
    if (resultado == 0.0) {
        return 0.0; // Sgn(0) is 0; also avoids -0.0 for tiny negatives
    }
    return valor < 0 ? -resultado : resultado;
}

double Redondea(double valor, int decimales) {
    if (!std::isfinite(valor)) {
        return valor;
    }
    if (valor == 0.0) {
        return 0.0;
    }
    // Decimal mantissa of 15 significant digits: "d.dddddddddddddde+XX".
    // to_chars writes what printf's "%.14e" would, without its locale and
    // format parsing.
    char texto[40];
    const std::to_chars_result fin = std::to_chars(
        texto, texto + sizeof texto - 1, std::fabs(valor), std::chars_format::scientific, 14);
    *fin.ptr = '\0';
    const char* e = std::strchr(texto, 'e');
    std::int64_t mantisa = 0;
    for (const char* c = texto; c != e; ++c) {
        if (*c != '.') {
            mantisa = mantisa * 10 + (*c - '0');
        }
    }
    const int exponente = std::atoi(e + 1) - 14; // valor = mantisa * 10^exponente

    // Digits of the mantissa that fall beyond the requested decimals.
    const int sobran = -(exponente + decimales);
    if (sobran <= 0) {
        return valor; // already exact at that many decimals
    }
    if (sobran > 15) {
        return 0.0; // below half of the last place kept
    }
    std::int64_t divisor = 1;
    for (int i = 0; i < sobran; ++i) {
        divisor *= 10;
    }
    std::int64_t cociente = mantisa / divisor;
    if (2 * (mantisa % divisor) >= divisor) {
        ++cociente;
    }
    if (cociente == 0) {
        return 0.0;
    }
    // Both operands are exact, so the quotient is the double nearest the decimal result.
    const double resultado = decimales >= 0
                                 ? static_cast<double>(cociente) / std::pow(10.0, decimales)
                                 : static_cast<double>(cociente) * std::pow(10.0, -decimales);
    return valor < 0 ? -resultado : resultado;
}

double fnRedondeoMoney(double valor) {
    return Redondea(Redondea(valor, 4), 2);
}

} // namespace vk
