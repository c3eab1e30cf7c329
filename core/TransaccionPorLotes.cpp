#include "TransaccionPorLotes.h"

namespace vk {

TransaccionPorLotes::TransaccionPorLotes(Conexion& cn, int maximo, std::chrono::milliseconds espera)
    : cn_(cn),
      maximo_(maximo > 0 ? maximo : (cn.dialecto().esSQLite() ? kMaximoSqlite : kMaximoPostgres)),
      espera_(espera) {}

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
