// The three money roundings of the system. Each one stands where the legacy
// program put it, and they disagree on some inputs, so callers must use the one
// their rule names rather than "the best" one.
#pragma once

namespace vk {

// Int(Abs(valor) * 10^decimales + 0.5001001) / 10^decimales, with the sign of
// valor. The bias is a shade above one half: it rescues values such as 1.005
// (held in binary as 1.00499999...) and also rounds up anything whose fraction
// of the last place reaches 0.4998999 (1.004999 gives 1.01). Zero stays zero.
double fnRedondeoNormal(double valor, int decimales);

// Half away from zero on the decimal number the double stands for (its text to
// 15 significant digits), so binary representation errors never decide a cent:
// 2.675 gives 2.68 and -1.005 gives -1.01. Never returns -0.0.
double Redondea(double valor, int decimales);

// The server's ROUND(CAST(x AS money), 2), done here so that every backend gives
// the same cents: the cast keeps 4 decimals, then half away from zero to 2.
// 1.00499999 casts to 1.0050 and gives 1.01; 1.00494 casts to 1.0049 and gives 1.00.
double fnRedondeoMoney(double valor);

} // namespace vk
