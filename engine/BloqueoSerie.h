// The lock that makes "max + 1 in the series" and the series' date order safe
// under several users: held from the read of the series' last number and date
// to the end of the transaction that writes the new invoice.
#pragma once

#include <QString>

namespace vk {

class BdSesion;

// Takes the lock of one invoice series inside the open transaction. On SQLite
// the write transaction already holds the database's one write lock; on
// PostgreSQL an advisory lock keyed by catalog and series is held until the
// outermost transaction ends. Taking it twice is harmless.
void msBloqueaSerie(BdSesion& bd, const QString& serie);
// The same for a series of delivery notes, which a copied note numbers.
void msBloqueaSerieAlbaranes(BdSesion& bd, const QString& serie);

} // namespace vk
