#include "TransaccionPorLotes.h"

#include "ErrorBd.h"

namespace vk {

TransaccionPorLotes::TransaccionPorLotes(Conexion& cn, int maximo, std::chrono::milliseconds espera)
    : cn_(cn),
      maximo_(maximo > 0 ? maximo : (cn.dialecto().esSQLite() ? kMaximoSqlite : kMaximoPostgres)),
      espera_(espera) {
    // SQLite keeps what undoes a savepoint in a temporary file once it
    // passes 64 KiB, and a batch's savepoints pass it: in memory it costs
    // one unit's pages and no system calls. It only holds rollback data, so
    // durability is untouched. Changed outside any transaction only.
    if (cn_.dialecto().esSQLite() && cn_.NivelTransaccion() == 0) {
        cn_.Execute(QStringLiteral("PRAGMA temp_store=MEMORY"));
        temporalEnMemoria_ = true;
    }
}

TransaccionPorLotes::~TransaccionPorLotes() {
    transaccion_.reset();
    if (temporalEnMemoria_) {
        try {
            cn_.Execute(QStringLiteral("PRAGMA temp_store=DEFAULT"));
        } catch (const ErrorBd&) {
            // The connection is gone: nothing is left to restore.
        }
    }
}

void TransaccionPorLotes::Empieza() {
    if (!transaccion_) {
        transaccion_.emplace(cn_);
        reloj_.start();
        unidades_ = 0;
    }
    ++unidades_;
}

bool TransaccionPorLotes::Toca() const {
    return transaccion_ && (unidades_ >= maximo_ || reloj_.elapsed() >= espera_.count());
}

void TransaccionPorLotes::Confirma() {
    if (!transaccion_) {
        return;
    }
    // Whatever the commit's outcome, the batch is over: a failed commit has
    // already rolled it back.
    struct Fin {
        std::optional<Transaccion>& t;
        ~Fin() { t.reset(); }
    } fin{transaccion_};
    transaccion_->Confirma();
}

} // namespace vk
