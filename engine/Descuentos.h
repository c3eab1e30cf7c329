// The two header discounts of a group of lines, in cascade, each step with
// the server's money rounding: the one rule behind an invoice's tax groups
// and the amounts the invoicing screens show for notes and groups.
#pragma once

namespace vk {

struct ImportesDescontados {
    double bruto; // the sum, rounded
    double dto1;  // on the unrounded sum
    double dto2;  // on the rounded gross less the first
    double neto;  // gross less both and the per-unit discounts
};

ImportesDescontados fnDescuentosEnCascada(double suma, double porcentajeDto1, double porcentajeDto2,
                                          double dtoUnidad = 0);

} // namespace vk
