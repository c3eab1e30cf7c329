#include "GruposFacturables.h"

#include <Conexion.h>
#include <algorithm>
#include <utility>

namespace vk {

GruposFacturables::GruposFacturables(Conexion& cn, QString nombreCliente)
    : cn_(cn), nombreCliente_(std::move(nombreCliente)) {}

void GruposFacturables::Vacia() {
    claves_.clear();
    for (Pagina& p : paginas_) {
        p = Pagina();
    }
    formas_.reset();
}

void GruposFacturables::Anade(const ClaveGrupo& clave) {
    claves_.push_back(clave);
}

void GruposFacturables::Termina() {
    claves_.shrink_to_fit();
}

GrupoFacturable GruposFacturables::Grupo(int fila) const {
    if (fila < 0 || fila >= Numero()) {
        return {};
    }
    const Pagina& p = pagina(fila / kGruposPorPagina);
    return p.grupos[static_cast<std::size_t>(fila % kGruposPorPagina)];
}

const GruposFacturables::Pagina& GruposFacturables::pagina(int numero) const {
    for (std::size_t i = 0; i < paginas_.size(); ++i) {
        if (paginas_[i].numero == numero) {
            usadaUltima_ = i;
            return paginas_[i];
        }
    }
    // The page used less recently makes room.
    const std::size_t libre = 1 - usadaUltima_;
    leePagina(numero, paginas_[libre]);
    usadaUltima_ = libre;
    return paginas_[libre];
}

void GruposFacturables::leePagina(int numero, Pagina& p) const {
    p = Pagina(); // a read that fails leaves no half page behind
    if (!formas_) {
        QHash<qint32, QString> formas;
        cn_.Recorre(
            QStringLiteral("SELECT Fco_Id, Fco_Des FROM Fco"), {}, [&formas](const Recordset& rs) {
                formas.insert(static_cast<qint32>(rs.Fields(0).Entero()), rs.Fields(1).Texto());
            });
        formas_ = std::move(formas);
    }
    const auto desde = static_cast<std::size_t>(numero) * kGruposPorPagina;
    const std::size_t hasta = std::min(desde + kGruposPorPagina, claves_.size());
    // The search orders by customer, so a customer's groups are neighbours.
    // The list is filled up to a whole page with its last customer: every
    // page runs the same prepared statement.
    QList<qint32> ids;
    for (std::size_t i = desde; i < hasta; ++i) {
        if (ids.isEmpty() || ids.back() != claves_[i].Cav_Idcli) {
            ids << claves_[i].Cav_Idcli;
        }
    }
    while (ids.size() < kGruposPorPagina) {
        ids << ids.back();
    }
    QHash<qint32, GrupoFacturable> clientes;
    cn_.Recorre(QStringLiteral("SELECT Cli_Id, %1 AS Cli_Nom, CLI_ImpMin, CLI_CTA, CLI_DI1, "
                               "CLI_DI2, cli_favobs, Cli_Dto1, Cli_Dto2, Cli_Fatencion, "
                               "CLI_RetNFiscal, CLI_ModoRetNF FROM Cli WHERE Cli_Id IN (%2)")
                    .arg(nombreCliente_, MarcadoresSql(ids.size())),
                ValoresSql(ids), [&clientes](const Recordset& rs) {
                    GrupoFacturable c;
                    c.Cli_Nom = rs.Fields(QStringLiteral("Cli_Nom")).Texto();
                    c.CLI_ImpMin = rs.Fields(QStringLiteral("CLI_ImpMin")).Doble();
                    c.CLI_CTA = rs.Fields(QStringLiteral("CLI_CTA")).Value();
                    c.CLI_DI1 = static_cast<qint32>(rs.Fields(QStringLiteral("CLI_DI1")).Entero());
                    c.CLI_DI2 = static_cast<qint32>(rs.Fields(QStringLiteral("CLI_DI2")).Entero());
                    c.cli_favobs = rs.Fields(QStringLiteral("cli_favobs")).Value();
                    c.Cli_Dto1 = rs.Fields(QStringLiteral("Cli_Dto1")).Doble();
                    c.Cli_Dto2 = rs.Fields(QStringLiteral("Cli_Dto2")).Doble();
                    c.Cli_Fatencion = rs.Fields(QStringLiteral("Cli_Fatencion")).Value();
                    c.CLI_RetNFiscal = rs.Fields(QStringLiteral("CLI_RetNFiscal")).Doble();
                    c.CLI_ModoRetNF =
                        static_cast<qint16>(rs.Fields(QStringLiteral("CLI_ModoRetNF")).Entero());
                    clientes.insert(
                        static_cast<qint32>(rs.Fields(QStringLiteral("Cli_Id")).Entero()),
                        std::move(c));
                });
    std::vector<GrupoFacturable> grupos;
    grupos.reserve(hasta - desde);
    for (std::size_t i = desde; i < hasta; ++i) {
        const ClaveGrupo& k = claves_[i];
        // A customer deleted since the search keeps only what the search knew.
        GrupoFacturable g = clientes.value(k.Cav_Idcli);
        g.Cav_Idcli = k.Cav_Idcli;
        g.cav_IdFco = k.cav_IdFco;
        g.Fco_Des = formas_->value(k.cav_IdFco);
        g.cav_dto1 = k.cav_dto1;
        g.cav_dto2 = k.cav_dto2;
        g.tOTAL = k.tOTAL;
        g.Cav_Agente = k.Cav_Agente ? QVariant(*k.Cav_Agente) : QVariant();
        grupos.push_back(std::move(g));
    }
    p.grupos = std::move(grupos);
    p.numero = numero;
}

} // namespace vk
