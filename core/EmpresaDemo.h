// Demo data of a small wholesale and services company in Valencia: company
// settings, users, masters, customers of every tax regime, pending delivery
// notes and service contracts. The data is fixed (no clock, no unseeded
// randomness), so two runs build the same company and tests can count on it.
#pragma once

#include "BdSesion.h"

namespace vk {

struct ResumenDemo {
    int clientes = 0, articulos = 0, albaranes = 0, lineas = 0, contratos = 0;
    bool yaExistia = false; // the company had customers: nothing was written
};

// Fills the session's company in one transaction. The catalogs, their seed
// data, the company's row in vkcomun.Emp and its Parametros row must exist
// (CreaEmpresa). Does nothing when Cli already has rows. Throws ErrorBd, or
// ErrorRegla when the company lacks what the demo data needs.
ResumenDemo CreaDatosDemo(BdSesion& s);

} // namespace vk
