#include "FamiliasInforme.h"

#include <ErrorBd.h>
#include <Interaccion.h>

namespace vk::familias {

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

bool Ejecuta(const QString& titulo, const QString& texto, const std::function<bool()>& familia) {
    bool hecha = false;
    try {
        hecha = familia();
    } catch (const Error& e) {
        Ui().PunteroEspera(false);
        Ui().Mensaje(texto + QLatin1Char('\n') + e.Mensaje(), Icono::Error, titulo);
        return false;
    }
    Ui().PunteroEspera(false);
    Ui().Cede();
    return hecha;
}

} // namespace vk::familias
