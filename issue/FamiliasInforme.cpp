#include "FamiliasInforme.h"

#include "OpcionesInforme.h"
#include "VKCRFACTURAS.h"

#include <Componentes.h>
#include <ErrorBd.h>
#include <Interaccion.h>
#include <QStringList>

namespace vk::familias {

std::unique_ptr<informe::Reporte> ReportePorNombre(const QString& nombre) {
    auto cargador = CreaObjeto<VKCRFACTURAS>(QString::fromLatin1(VKCRFACTURAS::kProgId));
    cargador->VKReportName = nombre;
    return cargador->Reporte();
}

void EnlazaSubinforme(informe::Reporte& r, int indice, const Recordset& rs) {
    if (indice > static_cast<int>(r.Subreportes.size())) {
        return;
    }
    informe::Reporte& sub = r.Subreport(indice);
    if (sub.HasSavedData()) {
        sub.DiscardSavedData();
    }
    sub.Database.Tables.Item(1).SetDataSource(rs, 3);
}

void Ejecuta(const QString& titulo, const QString& texto, const std::function<void()>& familia) {
    try {
        familia();
    } catch (const ErrorBd& e) {
        Ui().PunteroEspera(false);
        Ui().Mensaje(texto + QLatin1Char('\n') + e.Mensaje(), Icono::Error, titulo);
        return;
    }
    Ui().PunteroEspera(false);
    Ui().Cede();
}

} // namespace vk::familias
