#include "FacturaObras.h"

#include "EmisionInforme.h"
#include "FamiliasInforme.h"
#include "Ficheros.h"
#include "MensajesEmision.h"
#include "OpcionesInforme.h"
#include "RutasEmision.h"
#include "SqlFacturas.h"
#include "VKCRFACTURAS.h"

#include <DisenoInforme.h>
#include <ErrorBd.h>
#include <Interaccion.h>
#include <QFileInfo>
#include <QHash>
#include <VKFACVENTAS.h>

namespace vk {

namespace {

// Ids are integers formatted here, so they may travel in the statement.
QString enteros(const QList<qint64>& ids) {
    QStringList t;
    for (const qint64 id : ids) {
        t << QString::number(id);
    }
    return t.join(QLatin1Char(','));
}

// The works options of the company on the report.
void aplicaOpciones(VKFACVENTAS& f, informe::Reporte& r, const ContextoInforme& c,
                    const QString& plantillaObras) {
    BdSesion& bd = f.MyBd();
    const qint16 nDiseno = c.nDiseno;
    const EmpresaEmision empresa = CargaEmpresa(bd);
    OpcionProteccionDatos(r, bd, c);
    OpcionBultos(r, bd, c);
    OpcionLotesAgente(r, bd, c);
    OpcionFormaPago(r, bd, c);
    if (informe::Seccion* s = r.Sections.Busca(QStringLiteral("GroupHeaderSection1"))) {
        s->Suppress = !f.ImprimeAlbaran;
    }
    // The retention layouts but PLT44 print a narrower description, to make
    // room for the retention columns.
    if (nDiseno == 9 && plantillaObras != QLatin1String("PLT44")) {
        if (informe::ObjetoInforme* d = r.BuscaObjeto(QStringLiteral("LiteralDescripcion1"))) {
            d->Width = r.AnchoDescripcion(5000);
        }
    }
    AplicaCopia(r, f.Copia);
    AplicaMarcos(r, bd, empresa, c);
    MembreteGrupoA(r, bd, empresa, c);
    PiesPorParametro(r, bd, c);
    // The installations of these keys print their logo from the design.
    if (!QStringList{QStringLiteral("PLT41"), QStringLiteral("PLT42"), QStringLiteral("PLT43")}
             .contains(plantillaObras)) {
        LogoPorParametro(r, bd, c);
    }
}

} // namespace

ReporteObras fnReporteObras(qint16 nDiseno, bool bObras, const QString& plantillaObras,
                            const QString& plantillaFactura, const QString& carpetaDatos) {
    const auto fichero = [&](const QString& nombre) {
        return ReporteObras{{}, carpetaDatos + QLatin1Char('/') + nombre.trimmed()};
    };
    if (!bObras) {
        return fichero(plantillaFactura);
    }
    const QString clave = plantillaObras.trimmed().toUpper();
    if (nDiseno == 7) {
        return clave.isEmpty() ? ReporteObras{QStringLiteral("crFObras"), {}}
                               : fichero(plantillaObras);
    }
    if (nDiseno == 9) {
        static const QList<QPair<QString, QString>> porClave{
            {QStringLiteral("PLT44"), QStringLiteral("crFPlt44")},
            {QStringLiteral("PLT41"), QStringLiteral("crFPlt41")},
            {QStringLiteral("PLT42"), QStringLiteral("crFPlt41Elec")},
            {QStringLiteral("PLT43"), QStringLiteral("crFPlt41Viales")},
            {QStringLiteral("PLT48"), QStringLiteral("crFObrasRetVb")},
            {QStringLiteral("RETENCION"), QStringLiteral("crFObrasRetCod")},
        };
        for (const auto& [k, nombre] : porClave) {
            if (clave == k) {
                return {nombre, {}};
            }
        }
        return {QStringLiteral("crFObrasRet"), {}};
    }
    return {QStringLiteral("crFObras2"), {}};
}

ListasObras RecogeListasObras(BdSesion& bd, const Recordset& filas) {
    ListasObras l;
    Recordset rs = filas;
    // Id 0 is "none" in this schema, as NULL is.
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
        if (const qint64 obra = rs.Fields(QStringLiteral("Lav_IdObra")).Entero(); obra > 0) {
            l.obras << obra;
        }
        if (const qint64 parte = rs.Fields(QStringLiteral("Lav_IdParte")).Entero(); parte > 0) {
            l.partes << parte;
        }
        const QString codigo = rs.Fields(QStringLiteral("Lav_CodArt")).Texto().trimmed();
        if (!codigo.isEmpty()) {
            l.articulos << codigo;
        }
    }
    if (l.partes.isEmpty()) {
        return l;
    }
    // A work report made from a fault (origin 2) brings that fault in.
    QHash<qint64, qint64> averiaDe;
    Recordset p = bd.cn().Execute(
        QStringLiteral("SELECT partes_id, partes_IdOrigen FROM Partes WHERE partes_Torigen = 2 "
                       "AND partes_id IN (%1)")
            .arg(enteros(l.partes)));
    for (; !p.Eof(); p.MoveNext()) {
        averiaDe.insert(p.Fields(QStringLiteral("partes_id")).Entero(),
                        p.Fields(QStringLiteral("partes_IdOrigen")).Entero());
    }
    for (const qint64 parte : l.partes) {
        if (averiaDe.value(parte) > 0) {
            l.averias << averiaDe.value(parte);
        }
    }
    return l;
}

CursoresObras LeeCursoresObras(BdSesion& bd, const ListasObras& l) {
    Conexion& cn = bd.cn();
    CursoresObras c;
    const QString obras = enteros(l.obras);
    c.obras = cn.Execute(
        QStringLiteral("SELECT obras_id, obras_cod, obras_des, obras_situacion, obras_zona "
                       "FROM Obras WHERE ") +
        (obras.isEmpty() ? QStringLiteral("obras_id = -1000")
                         : QStringLiteral("obras_id IN (%1)").arg(obras)) +
        QStringLiteral(" ORDER BY obras_cod"));
    const QString averias = enteros(l.averias);
    c.averias =
        cn.Execute(QStringLiteral("SELECT averias_id, averias_cod, averias_des, averias_situacion, "
                                  "averias_zona FROM Averias WHERE ") +
                   (averias.size() < 3 ? QStringLiteral("averias_id = -1")
                                       : QStringLiteral("averias_id IN (%1)").arg(averias)) +
                   QStringLiteral(" ORDER BY averias_cod"));
    const QString partes = enteros(l.partes);
    c.partes =
        cn.Execute(QStringLiteral("SELECT partes_id, partes_alta, partes_Torigen, partes_IdOrigen "
                                  "FROM Partes WHERE ") +
                   (partes.isEmpty() ? QStringLiteral("partes_id = -1000")
                                     : QStringLiteral("partes_id IN (%1)").arg(partes)) +
                   QStringLiteral(" ORDER BY partes_id"));
    QVariantList codigos;
    for (const QString& a : l.articulos) {
        codigos << a;
    }
    c.articulos = cn.Execute(
        QStringLiteral("SELECT Art_Medida, Art_Cod FROM Art WHERE ") +
            (codigos.isEmpty()
                 ? QStringLiteral("Art_Id = -1000")
                 : QStringLiteral("Art_Cod IN (%1)").arg(MarcadoresSql(codigos.size()))) +
            QStringLiteral(" ORDER BY Art_Cod"),
        codigos);
    return c;
}

bool msFacturaObras(VKFACVENTAS& f, const QVector<qint32>& vIds, bool bObras,
                    const ParametrosEmision& parametros) {
    return familias::Ejecuta(mensajes::kGeneradorInformes, mensajes::kErrorGenerando, [&] {
        BdSesion& bd = f.MyBd();
        const ContextoInforme contexto =
            ContextoDe(f,
                       static_cast<qint16>(
                           parametros.Entero(bd.Parametros(), QStringLiteral("Par_DiseñoFactura"))),
                       parametros);
        const QString plantillaObras = contexto.Texto(bd, QStringLiteral("PAR_PLANTILLA_FOBRAS"));
        const ReporteObras eleccion = fnReporteObras(
            contexto.nDiseno, bObras, plantillaObras,
            contexto.Texto(bd, QStringLiteral("PAR_PLANTILLA_FAC")), fnCarpetaDatos());
        std::unique_ptr<informe::Reporte> r;
        if (eleccion.fichero.isEmpty()) {
            r = CargaReporte(eleccion.nombre);
        } else {
            if (!bObras && !QFileInfo(eleccion.fichero).isFile()) {
                Ui().Mensaje(mensajes::kPlantillaPersonalNoPresente, Icono::Aviso,
                             mensajes::kAccionCancelada);
                return false;
            }
            try {
                r = informe::CargaDisenoFichero(eleccion.fichero);
            } catch (const Error& e) {
                Ui().Mensaje(mensajes::kErrorAperturandoPlantilla + QLatin1Char('\n') + e.Mensaje(),
                             Icono::Error, mensajes::kAccionCancelada);
                return false;
            }
        }
        // The margin of the company's stationery, on every route.
        r->TopMargin += static_cast<int>(contexto.Entero(bd, QStringLiteral("Par_TopMarg")));

        Ui().PunteroEspera(true);
        Ui().Cede();
        const Recordset rs = LeeFilasFacturas(bd, vIds);
        if (rs.RecordCount() == 0) {
            return true;
        }
        const CursoresObras c = LeeCursoresObras(bd, RecogeListasObras(bd, rs));
        aplicaOpciones(f, *r, contexto, plantillaObras.toUpper());
        if (r->HasSavedData()) {
            r->DiscardSavedData();
        }
        r->Database.Tables.Item(1).SetDataSource(rs, 3);
        int i = 0;
        for (const Recordset* s : {&c.obras, &c.averias, &c.partes, &c.articulos}) {
            familias::EnlazaSubinforme(*r, ++i, *s);
        }
        EntregaInforme(f, std::move(r), rs, {.sumaMargen = false});
        return true;
    });
}

} // namespace vk
