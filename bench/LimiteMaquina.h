// What this machine can do at most for the shape of one invoice's
// transaction, driven straight through the engines' C interfaces: one
// transaction of 17 indexed selects and 17 inserts, every statement prepared
// once, the commit as durable as the product's. The benchmarks print their
// throughput as a share of this figure, measured in the same run, so that a
// busy or slow machine does not pass for a slow program.
#pragma once

#include <CadenaConexion.h>

namespace vk::bench {

struct Limite {
    double transaccionesPorSegundo = 0;
    int idasYVueltas = 0; // client-server round trips per transaction (0 on SQLite)
};

// Runs the shape for about `segundos` on a scratch table of the same engine
// (a scratch file beside the company's on SQLite, a scratch table on the
// same server and database on PostgreSQL), and removes it.
Limite MideLimite(const CadenaConexion& cadena, double segundos = 3.0);

} // namespace vk::bench
