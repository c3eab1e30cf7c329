#include "Reporte.h"

#include "MensajesInforme.h"

#include <Error.h>
#include <algorithm>
#include <cmath>
#include <numeric>

namespace vk::informe {

namespace {

bool mismoNombre(const QString& a, const QString& b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

// Group values compare as numbers when both are numbers, else as text.
int compara(const QVariant& a, const QVariant& b) {
    bool okA = false, okB = false;
    const double x = a.toDouble(&okA), y = b.toDouble(&okB);
    if (okA && okB) {
        return x < y ? -1 : (x > y ? 1 : 0);
    }
    return a.toString().compare(b.toString(), Qt::CaseInsensitive);
}

} // namespace

ObjetoInforme* Seccion::Busca(const QString& nombre) {
    for (ObjetoInforme& o : Objetos) {
        if (mismoNombre(o.Name, nombre)) {
            return &o;
        }
    }
    return nullptr;
}

ObjetoInforme& Seccion::Objeto(const QString& nombre) {
    if (ObjetoInforme* o = Busca(nombre)) {
        return *o;
    }
    throw ErrorDiseno(mensajes::kSeccionSinObjeto.arg(Name, nombre));
}

int Reporte::AnchoDescripcion(int figura) const {
    constexpr int kSinBultos = 7365, kConBultos = 6800;
    if (figura == kConBultos && AnchoDescripcionConBultos > 0) {
        return AnchoDescripcionConBultos;
    }
    if (AnchoDescripcionSinBultos <= 0) {
        return figura;
    }
    return static_cast<int>(
        std::lround(static_cast<double>(figura) * AnchoDescripcionSinBultos / kSinBultos));
}

Reporte& Reporte::Subreport(int indice) {
    if (indice < 1 || indice > static_cast<int>(Subreportes.size())) {
        throw ErrorDiseno(mensajes::kSinSubinforme.arg(Name).arg(indice));
    }
    return *Subreportes[static_cast<size_t>(indice - 1)];
}

Reporte& Reporte::OpenSubreport(const QString& nombre) {
    for (const auto& s : Subreportes) {
        if (mismoNombre(s->Name, nombre)) {
            return *s;
        }
    }
    throw ErrorDiseno(mensajes::kSinSubinforme.arg(Name, nombre));
}

FormulaField* ColeccionFormulas::Busca(const QString& nombre) {
    for (FormulaField& f : items_) {
        if (mismoNombre(f.Name, nombre)) {
            return &f;
        }
    }
    return nullptr;
}

const FormulaField* ColeccionFormulas::Busca(const QString& nombre) const {
    return const_cast<ColeccionFormulas*>(this)->Busca(nombre);
}

void ColeccionFormulas::Asigna(const QString& nombre, const QString& texto) {
    if (FormulaField* f = Busca(nombre)) {
        f->Text = texto;
    }
}

FormulaField& ColeccionFormulas::GetItemByName(const QString& nombre) {
    if (FormulaField* f = Busca(nombre)) {
        return *f;
    }
    throw ErrorDiseno(mensajes::kSinFormula.arg(nombre));
}

void ColeccionFormulas::Agrega(const QString& nombre, const QString& texto) {
    if (FormulaField* f = Busca(nombre)) {
        f->Text = texto;
    } else {
        items_.push_back({nombre, texto});
    }
}

Seccion* ColeccionSecciones::Busca(const QString& nombre) {
    for (Seccion& s : items_) {
        if (mismoNombre(s.Name, nombre)) {
            return &s;
        }
    }
    return nullptr;
}

Seccion& ColeccionSecciones::Item(const QString& nombre) {
    if (Seccion* s = Busca(nombre)) {
        return *s;
    }
    throw ErrorDiseno(mensajes::kSinSeccion.arg(nombre));
}

Seccion& ColeccionSecciones::Item(int indice) {
    if (indice < 1 || indice > Count()) {
        throw ErrorDiseno(mensajes::kSinSeccion.arg(indice));
    }
    return items_[static_cast<size_t>(indice - 1)];
}

void DatosInforme::IndexaColumnas() {
    porNombre_.clear();
    for (int i = 0; i < columnas.size(); ++i) {
        const QString clave = columnas[i].toCaseFolded();
        if (!porNombre_.contains(clave)) { // the first of a repeated name wins
            porNombre_.insert(clave, i);
        }
    }
}

int DatosInforme::indice(const QString& columna) const {
    if (!porNombre_.isEmpty()) {
        return porNombre_.value(columna.toCaseFolded(), -1);
    }
    for (int i = 0; i < columnas.size(); ++i) {
        if (mismoNombre(columnas[i], columna)) {
            return i;
        }
    }
    return -1;
}

void TablaInforme::SetDataSource(const Recordset& rs, int) {
    origen_ = rs;
}

TablaInforme& TablasInforme::Item(int indice) {
    if (indice != 1) {
        throw ErrorDiseno(mensajes::kSinTabla.arg(indice));
    }
    return tabla_;
}

ObjetoInforme* Reporte::BuscaObjeto(const QString& nombre) {
    for (Seccion& s : Sections.todas()) {
        if (ObjetoInforme* o = s.Busca(nombre)) {
            return o;
        }
    }
    return nullptr;
}

ObjetoInforme& Reporte::Objeto(const QString& nombre) {
    if (ObjetoInforme* o = BuscaObjeto(nombre)) {
        return *o;
    }
    throw ErrorDiseno(mensajes::kInformeSinObjeto.arg(Name, nombre));
}

void Reporte::ReadRecords() {
    if (guardados_) {
        return;
    }
    const std::optional<Recordset>& origen = Database.Tables.Item(1).origen();
    if (!origen) {
        throw ErrorDiseno(mensajes::kSinOrigenDatos.arg(Name));
    }
    Recordset rs = *origen;
    DatosInforme d;
    d.columnas = rs.NombresCampos();
    d.IndexaColumnas();
    if (rs.RecordCount() > 0) {
        for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
            std::vector<QVariant> fila;
            fila.reserve(static_cast<size_t>(rs.FieldCount()));
            for (int c = 0; c < rs.FieldCount(); ++c) {
                fila.push_back(rs.Fields(c).Value());
            }
            d.filas.push_back(std::move(fila));
        }
    }
    std::vector<int> columnasGrupo;
    for (const Grupo& g : Grupos) {
        const int c = d.indice(g.Campo);
        if (c < 0) {
            throw ErrorDiseno(mensajes::kGrupoFueraDeDatos.arg(Name, g.Campo));
        }
        columnasGrupo.push_back(c);
    }
    std::stable_sort(d.filas.begin(), d.filas.end(),
                     [&](const std::vector<QVariant>& a, const std::vector<QVariant>& b) {
                         for (const int c : columnasGrupo) {
                             const int r = compara(a[c], b[c]);
                             if (r != 0) {
                                 return r < 0;
                             }
                         }
                         return false;
                     });
    guardados_ = std::move(d);
}

const DatosInforme& Reporte::Datos() {
    ReadRecords();
    return *guardados_;
}

} // namespace vk::informe
