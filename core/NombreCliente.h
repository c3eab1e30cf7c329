// The customer name fragment: an SQL expression that joins name and surnames
// in the order PAR_ORCONTANOM sets (0: name first; otherwise surnames first),
// leaving out empty parts. Every list of customers builds it once.
#pragma once

#include <QString>

namespace vk {

// `prefijo` qualifies the columns ("c." -> c.cli_nom) when the query joins Cli.
QString fnNombreCliente(int orden, const QString& prefijo = {});

} // namespace vk
