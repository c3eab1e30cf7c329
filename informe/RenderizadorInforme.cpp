#include "RenderizadorInforme.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPagedPaintDevice>

namespace vk::informe {

ResultadoRender RenderizaInforme(Reporte& reporte, QPagedPaintDevice& dispositivo) {
    const QPageSize papel(QSizeF(reporte.AnchoPapel / 1440.0, reporte.AltoPapel / 1440.0),
                          QPageSize::Inch, QString(), QPageSize::ExactMatch);
    dispositivo.setPageLayout(QPageLayout(papel, QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
    InformeMaquetado maquetado = MaquetaInforme(reporte, dispositivo);
    ResultadoRender res;
    res.paginas = static_cast<int>(maquetado.paginas.size());
    res.anchoPapel = maquetado.anchoPapel;
    res.pintados = PintaInforme(maquetado, dispositivo);
    res.colocadas = std::move(maquetado.colocadas);
    return res;
}

} // namespace vk::informe
