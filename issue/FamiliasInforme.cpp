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

qint64 Entero(BdSesion& bd, const QString& nombre) {
    return bd.Parametros().Existe(nombre) ? bd.Parametros().Item(nombre).Entero() : 0;
}

QString Texto(BdSesion& bd, const QString& nombre) {
    return bd.Parametros().Existe(nombre) ? bd.Parametros().Item(nombre).Texto().trimmed()
                                          : QString();
}

QString Marcadores(qsizetype n) {
    return QStringList(n, QStringLiteral("?")).join(QStringLiteral(", "));
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

void LogoPorParametro(informe::Reporte& r, BdSesion& bd) {
    if (Entero(bd, QStringLiteral("Par_prnlogo")) == 1) {
        ColocaLogo(r, bd, bd.IdUsuario()); // suppresses the logo when it fails
    } else if (informe::ObjetoInforme* logo = r.BuscaObjeto(QStringLiteral("LogoEmpresa"))) {
        logo->Suppress = true;
    }
}

void PiesPorParametro(informe::Reporte& r, BdSesion& bd) {
    for (int i = 1; i <= 2; ++i) {
        informe::FormulaField* pie =
            r.FormulaFields.Busca(QStringLiteral("pLiteralLinea%1").arg(i));
        if (pie && Entero(bd, QStringLiteral("Par_PrnL%1").arg(i)) == 0) {
            pie->Text = QStringLiteral("''");
        }
    }
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
