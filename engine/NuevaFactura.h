// The header row of a new invoice, with the reason when none was made.
#pragma once

#include <ErrorBd.h>
#include <QtGlobal>
#include <optional>

namespace vk {

class VKFACVENTAS;

struct CabeceraNueva {
    enum class Motivo {
        Creada,
        Abandonada, // the person gave up the series' first number
        SinCliente, // the customer is gone: nothing was written
        Rechazada,  // the database refused the row: `error` tells why
    };
    qint32 id = 0;
    Motivo motivo = Motivo::Creada;
    std::optional<ErrorBd> error;
};

// What `NuevaFactura` does, for callers that tell the reasons apart. A series
// that has run out of numbers or a lock that cannot be had is raised.
CabeceraNueva CreaCabeceraFactura(VKFACVENTAS& f, qint16 nTipo);

} // namespace vk
