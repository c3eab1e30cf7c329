// The invoicing records screen ("Registros de facturación VERI*FACTU"): how
// many records there are and where each stands with the tax agency, the
// reason of each rejection, and the chain checked whole on request.
// Toolkit-free; the records themselves are never written here.
#pragma once

#include <QString>
#include <array>
#include <vector>

namespace vk {

class BdSesion;
class VKFACVENTAS;

// One record as the list shows it.
struct FilaRegistroFiscal {
    qint32 id = 0;
    QString tipo;    // "Alta", "Anulación"
    QString factura; // series/number as registered
    QString fecha;
    QString tipoFactura;
    QString importe;
    QString estado; // "Pendiente", "Aceptado", "Aceptado con errores", "Rechazado"
    QString motivo; // the agency's code and description
    QString fechaHora;
};

class frmRegistrosFiscales {
public:
    explicit frmRegistrosFiscales(VKFACVENTAS& factura);

    QString Caption = QStringLiteral("Registros de facturación VERI*FACTU");
    // Records by sending state: pending, accepted, accepted with errors,
    // rejected.
    std::array<qint64, 4> porEstado{};
    qint64 total = 0;
    // The latest records (the most recent first), or only the rejected ones.
    std::vector<FilaRegistroFiscal> dbgRegistros;
    bool chkSoloRechazados = false;
    QString lblCadena; // the last check of the chain
    QString lblEntorno;

    void cmdActualizar();
    // Recomputes the whole chain and says how it stands.
    void cmdVerificar();

    static constexpr int kFilas = 500;

private:
    BdSesion& bd_;
};

} // namespace vk
