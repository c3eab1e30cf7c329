// Several units of work (invoices) in one commit, each inside its own
// savepoint, so that a failed one is undone alone while the disk is
// synchronised once per batch instead of once per unit. The batch is
// committed when it holds `maximo` units or has held the write lock for
// `espera`, whichever comes first, so that another user never waits long.
// Nothing a caller reports may be reported before the commit that holds it.
#pragma once

#include "Conexion.h"

#include <QElapsedTimer>
#include <chrono>
#include <optional>

namespace vk {

class TransaccionPorLotes {
public:
    // PostgreSQL keeps the ids of 64 subtransactions per transaction in
    // shared memory, and an invoice uses two or three; SQLite has no such
    // limit, and each page a batch shares is written to the log once.
    static constexpr int kMaximoPostgres = 16;
    static constexpr int kMaximoSqlite = 64;
    static constexpr std::chrono::milliseconds kEsperaPorDefecto{30};

    // `maximo` 0 takes the engine's.
    explicit TransaccionPorLotes(Conexion& cn, int maximo = 0,
                                 std::chrono::milliseconds espera = kEsperaPorDefecto);
    ~TransaccionPorLotes();
    TransaccionPorLotes(const TransaccionPorLotes&) = delete;
    TransaccionPorLotes& operator=(const TransaccionPorLotes&) = delete;

    // Before a unit: opens the batch's transaction when none is open.
    void Empieza();
    // After a unit: true when the batch is due and should be committed.
    bool Toca() const;
    // Commits the batch; throws ErrorBd (and nothing stands) when the commit
    // fails. Nothing to do when no batch is open.
    void Confirma();
    bool Abierta() const { return transaccion_.has_value(); }

private:
    Conexion& cn_;
    int maximo_;
    std::chrono::milliseconds espera_;
    std::optional<Transaccion> transaccion_;
    QElapsedTimer reloj_;
    int unidades_ = 0;
    bool temporalEnMemoria_ = false;
};

} // namespace vk
