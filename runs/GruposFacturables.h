// The billable groups of the batch screen's search, paged. The list keeps
// only each group's key and amount, in the search's order; the rest (the
// customer's data, the payment terms' name) is read a page of groups at a
// time when a row is asked for, so a search of tens of thousands of groups
// costs a few bytes each and the run reads one statement per page.
#pragma once

#include <QHash>
#include <QString>
#include <QVariant>
#include <array>
#include <optional>
#include <vector>

namespace vk {

class Conexion;

// One billable group: a row of dbgCli.
struct GrupoFacturable {
    qint32 Cav_Idcli = 0;
    QString Cli_Nom;
    QString Fco_Des;
    double cav_dto1 = 0;
    double cav_dto2 = 0;
    double CLI_ImpMin = 0;
    QVariant CLI_CTA;
    double tOTAL = 0; // after both discounts of the notes
    qint32 cav_IdFco = 0;
    qint32 CLI_DI1 = 0;
    qint32 CLI_DI2 = 0;
    QVariant cli_favobs;
    double Cli_Dto1 = 0;
    double Cli_Dto2 = 0;
    QVariant Cav_Agente; // 0 when agents do not split groups; NULL when the notes have none
    QVariant Cli_Fatencion;
    double CLI_RetNFiscal = 0;
    qint16 CLI_ModoRetNF = 0;
};

// What the search keeps of a group: what tells it from the others, and its
// amount.
struct ClaveGrupo {
    qint32 Cav_Idcli = 0;
    qint32 cav_IdFco = 0;
    double cav_dto1 = 0;
    double cav_dto2 = 0;
    double tOTAL = 0;                 // after both discounts of the notes
    std::optional<qint32> Cav_Agente; // none when the notes have none
};

class GruposFacturables {
public:
    // Groups whose customers are read in one statement.
    static constexpr int kGruposPorPagina = 256;

    // `nombreCliente` is the SQL of the customer's display name.
    GruposFacturables(Conexion& cn, QString nombreCliente);

    // A new search: forgets the groups and what was read of them.
    void Vacia();
    // The next group of the search, in its order.
    void Anade(const ClaveGrupo& clave);
    // The search is complete.
    void Termina();

    int Numero() const { return static_cast<int>(claves_.size()); }
    // The group of a row, read with its page unless that page is one of the
    // two kept; an empty group outside the list. A failed read throws.
    GrupoFacturable Grupo(int fila) const;

private:
    struct Pagina {
        int numero = -1;
        std::vector<GrupoFacturable> grupos;
    };
    const Pagina& pagina(int numero) const;
    void leePagina(int numero, Pagina& p) const;

    Conexion& cn_;
    QString nombreCliente_;
    std::vector<ClaveGrupo> claves_;
    // Two pages: the run's and the one a view shows need not evict each other.
    mutable std::array<Pagina, 2> paginas_;
    mutable std::size_t usadaUltima_ = 0;
    // Fco_Des by Fco_Id, read with the search's first page.
    mutable std::optional<QHash<qint32, QString>> formas_;
};

} // namespace vk
