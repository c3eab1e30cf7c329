// The report viewer "EMISION DE FACTURAS" as a model: the rendered report and,
// when several invoices go together, the list of them to jump between.
#pragma once

#include <Interaccion.h>
#include <QStringList>
#include <Reporte.h>
#include <memory>

namespace vk {

class frmVisor : public DialogoModelo {
public:
    frmVisor(std::shared_ptr<informe::Reporte> informe, QStringList facturas)
        : reporte(std::move(informe)), lstFacturas(std::move(facturas)) {}
    QString Nombre() const override { return QStringLiteral("frmVisor"); }

    const QString Caption = QStringLiteral("EMISION DE FACTURAS");
    std::shared_ptr<informe::Reporte> reporte;
    QStringList lstFacturas; // "A/12": shown as a group list when more than one
    bool VerListaGrupos() const { return lstFacturas.size() > 1; }
};

} // namespace vk
