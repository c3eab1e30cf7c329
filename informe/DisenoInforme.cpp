#include "DisenoInforme.h"

#include "CarpetaDatos.h"
#include "MensajesInforme.h"

#include <Error.h>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStandardPaths>
#include <QStringList>

namespace vk::informe {

namespace {

// The built-in designs: each subsystem that owns designs compiles them in
// under this prefix (issue's invoices), registered as the program starts.
const QString kRecursos = QStringLiteral(":/disenos");

// The file of that report in the folder, matched without regard to case
// (the report names come from code that was written for a case-blind system).
QString buscaEn(const QString& carpeta, const QString& nombre) {
    const QDir dir(carpeta);
    if (!dir.exists()) {
        return {};
    }
    const QString buscado = nombre + QStringLiteral(".json");
    for (const QString& f : dir.entryList({QStringLiteral("*.json")}, QDir::Files)) {
        if (f.compare(buscado, Qt::CaseInsensitive) == 0) {
            return dir.filePath(f);
        }
    }
    return {};
}

QJsonObject leeFichero(const QString& ruta) {
    QFile f(ruta);
    if (!f.open(QIODevice::ReadOnly)) {
        throw ErrorDiseno(mensajes::kDisenoIlegible.arg(ruta));
    }
    QJsonParseError error;
    const QJsonDocument doc = QJsonDocument::fromJson(f.readAll(), &error);
    if (!doc.isObject()) {
        throw ErrorDiseno(
            mensajes::kDisenoNoValido.arg(ruta, error.errorString()).arg(error.offset));
    }
    return doc.object();
}

// Levels where a design is looked for, most specific first.
QStringList carpetas() {
    return {CarpetaDisenos(), kRecursos};
}

QJsonObject leeConBase(const QString& ruta, const QString& nombre, int siguiente,
                       QStringList& cadena);

// The design found from level `desde` on, with its extension merged in.
QJsonObject leeDesde(const QString& nombre, int desde, QStringList& cadena) {
    const QStringList niveles = carpetas();
    for (int n = desde; n < niveles.size(); ++n) {
        const QString ruta = buscaEn(niveles[n], nombre);
        if (ruta.isEmpty()) {
            continue;
        }
        const QString clave = ruta.toLower();
        if (cadena.contains(clave)) {
            throw ErrorDiseno(mensajes::kDisenosEnCiclo.arg(cadena.join(QStringLiteral(" → "))));
        }
        cadena << clave;
        return leeConBase(ruta, nombre, n + 1, cadena);
    }
    throw ErrorDiseno(mensajes::kDisenoNoExiste.arg(nombre));
}

// The design of the file with the one it extends merged in. A base of its
// own name is looked for from level `siguiente` on.
QJsonObject leeConBase(const QString& ruta, const QString& nombre, int siguiente,
                       QStringList& cadena) {
    QJsonObject diseno = leeFichero(ruta);
    const QString base = diseno.value(QStringLiteral("Extiende")).toString();
    if (!base.isEmpty()) {
        // A design that extends its own name builds on the next level
        // down: an installation's file changing the built-in one.
        const bool mismo = base.compare(nombre, Qt::CaseInsensitive) == 0;
        const QJsonObject padre = leeDesde(base, mismo ? siguiente : 0, cadena);
        diseno.remove(QStringLiteral("Extiende"));
        diseno = FusionaDisenos(padre, diseno);
    }
    if (!diseno.contains(QStringLiteral("Name")) || !base.isEmpty()) {
        diseno.insert(QStringLiteral("Name"), nombre);
    }
    return diseno;
}

QString nombreDe(const QJsonValue& v) {
    return v.toObject().value(QStringLiteral("Name")).toString();
}

int posicion(const QJsonArray& a, const QString& nombre) {
    for (int i = 0; i < a.size(); ++i) {
        if (nombreDe(a[i]).compare(nombre, Qt::CaseInsensitive) == 0) {
            return i;
        }
    }
    return -1;
}

QJsonObject fusionaElemento(const QJsonObject& base, const QJsonObject& derivado);

QJsonArray fusionaLista(QJsonArray base, const QJsonArray& derivada) {
    for (const QJsonValue& v : derivada) {
        const QJsonObject o = v.toObject();
        const QString nombre = o.value(QStringLiteral("Name")).toString();
        const int i = nombre.isEmpty() ? -1 : posicion(base, nombre);
        if (o.value(QStringLiteral("Eliminar")).toBool()) {
            if (i >= 0) {
                base.removeAt(i);
            }
            continue;
        }
        if (i >= 0) {
            base[i] = fusionaElemento(base[i].toObject(), o);
            continue;
        }
        const int tras = posicion(base, o.value(QStringLiteral("Despues")).toString());
        if (tras >= 0) {
            base.insert(tras + 1, o);
        } else {
            base.append(o);
        }
    }
    return base;
}

bool esLista(const QString& clave) {
    return clave == QLatin1String("Grupos") || clave == QLatin1String("FormulaFields") ||
           clave == QLatin1String("Sections") || clave == QLatin1String("Objetos") ||
           clave == QLatin1String("Subinformes");
}

QJsonObject fusionaElemento(const QJsonObject& base, const QJsonObject& derivado) {
    QJsonObject r = base;
    for (auto it = derivado.begin(); it != derivado.end(); ++it) {
        if (esLista(it.key())) {
            r.insert(it.key(), fusionaLista(base.value(it.key()).toArray(), it.value().toArray()));
        } else if (it.value().isObject() && base.value(it.key()).isObject()) {
            r.insert(it.key(),
                     fusionaElemento(base.value(it.key()).toObject(), it.value().toObject()));
        } else {
            r.insert(it.key(), it.value());
        }
    }
    return r;
}

int color(const QJsonValue& v, int defecto) {
    if (v.isUndefined() || v.isNull()) {
        return defecto;
    }
    if (v.isDouble()) {
        return v.toInt();
    }
    QString t = v.toString().trimmed();
    if (t.isEmpty() || t == QLatin1String("-1")) {
        return kSinColor;
    }
    t.remove(u'#');
    bool ok = false;
    const int c = t.toInt(&ok, 16);
    if (!ok) {
        throw ErrorDiseno(mensajes::kColorNoValido.arg(v.toString()));
    }
    return c;
}

int alineacion(const QJsonValue& v, int defecto) {
    if (v.isDouble()) {
        return v.toInt();
    }
    static const QStringList nombres{QStringLiteral("defecto"), QStringLiteral("izquierda"),
                                     QStringLiteral("centro"), QStringLiteral("derecha"),
                                     QStringLiteral("justificado")};
    const qsizetype i = nombres.indexOf(v.toString().toLower());
    return i >= 0 ? static_cast<int>(i) : defecto;
}

Fuente fuente(const QJsonObject& o, Fuente f) {
    f.familia = o.value(QStringLiteral("familia")).toString(f.familia);
    f.puntos = o.value(QStringLiteral("puntos")).toDouble(f.puntos);
    f.negrita = o.value(QStringLiteral("negrita")).toBool(f.negrita);
    f.cursiva = o.value(QStringLiteral("cursiva")).toBool(f.cursiva);
    return f;
}

template <typename E>
E enumerado(const QString& texto, const QList<QPair<QString, E>>& valores, const QString& que) {
    for (const auto& [nombre, valor] : valores) {
        if (nombre.compare(texto, Qt::CaseInsensitive) == 0) {
            return valor;
        }
    }
    throw ErrorDiseno(mensajes::kTipoDesconocido.arg(que, texto));
}

ObjetoInforme objeto(const QJsonObject& o, const Fuente& fuenteBase) {
    ObjetoInforme r;
    r.Name = o.value(QStringLiteral("Name")).toString();
    r.Tipo =
        enumerado<TipoObjeto>(o.value(QStringLiteral("Tipo")).toString(QStringLiteral("texto")),
                              {{QStringLiteral("campo"), TipoObjeto::Campo},
                               {QStringLiteral("formula"), TipoObjeto::Formula},
                               {QStringLiteral("texto"), TipoObjeto::Texto},
                               {QStringLiteral("especial"), TipoObjeto::Especial},
                               {QStringLiteral("caja"), TipoObjeto::Caja},
                               {QStringLiteral("linea"), TipoObjeto::Linea},
                               {QStringLiteral("imagen"), TipoObjeto::Imagen},
                               {QStringLiteral("subinforme"), TipoObjeto::Subinforme}},
                              QStringLiteral("objeto"));
    r.Suppress = o.value(QStringLiteral("Suppress")).toBool(false);
    r.Left = o.value(QStringLiteral("Left")).toInt();
    r.Top = o.value(QStringLiteral("Top")).toInt();
    r.Width = o.value(QStringLiteral("Width")).toInt();
    r.Height = o.value(QStringLiteral("Height")).toInt();
    r.HorAlignment = alineacion(o.value(QStringLiteral("HorAlignment")), crDefaultAlign);
    r.BackColor = color(o.value(QStringLiteral("BackColor")), kSinColor);
    r.ForeColor = color(o.value(QStringLiteral("ForeColor")), 0);
    r.BorderColor = color(o.value(QStringLiteral("BorderColor")), kSinColor);
    r.LineWidth = o.value(QStringLiteral("LineWidth")).toInt(10);
    r.Redondeo = o.value(QStringLiteral("Redondeo")).toInt(0);
    r.Font = fuente(o.value(QStringLiteral("Font")).toObject(), fuenteBase);
    r.Texto = o.value(QStringLiteral("Texto")).toString();
    r.Formato = o.value(QStringLiteral("Formato")).toString();
    r.CanGrow = o.value(QStringLiteral("CanGrow")).toBool(false);
    r.SuprimeSiCero = o.value(QStringLiteral("SuprimeSiCero")).toBool(false);
    r.CompactaBlancos = o.value(QStringLiteral("CompactaBlancos")).toBool(false);
    r.VisibleSi = o.value(QStringLiteral("VisibleSi")).toString();
    r.Enlace = o.value(QStringLiteral("Enlace")).toString();
    return r;
}

} // namespace

QString CarpetaDisenos() {
    return QDir(fnCarpetaDatos()).filePath(QStringLiteral("disenos"));
}

QJsonObject FusionaDisenos(const QJsonObject& base, const QJsonObject& derivado) {
    return fusionaElemento(base, derivado);
}

QJsonObject LeeDiseno(const QString& nombreReporte) {
    QStringList cadena;
    return leeDesde(nombreReporte, 0, cadena);
}

std::unique_ptr<Reporte> ConstruyeReporte(const QJsonObject& d) {
    auto r = std::make_unique<Reporte>();
    r->Name = d.value(QStringLiteral("Name")).toString();
    r->ReportTitle = d.value(QStringLiteral("ReportTitle")).toString();
    r->AnchoPapel = d.value(QStringLiteral("AnchoPapel")).toInt(r->AnchoPapel);
    r->AltoPapel = d.value(QStringLiteral("AltoPapel")).toInt(r->AltoPapel);
    r->TopMargin = d.value(QStringLiteral("TopMargin")).toInt(r->TopMargin);
    r->BottomMargin = d.value(QStringLiteral("BottomMargin")).toInt(r->BottomMargin);
    r->LeftMargin = d.value(QStringLiteral("LeftMargin")).toInt(r->LeftMargin);
    r->RightMargin = d.value(QStringLiteral("RightMargin")).toInt(r->RightMargin);
    r->AnchoDescripcionConBultos =
        d.value(QStringLiteral("AnchoDescripcionConBultos")).toInt(r->AnchoDescripcionConBultos);
    r->AnchoDescripcionSinBultos =
        d.value(QStringLiteral("AnchoDescripcionSinBultos")).toInt(r->AnchoDescripcionSinBultos);
    const Fuente fuenteBase = fuente(d.value(QStringLiteral("Font")).toObject(), Fuente{});

    for (const QJsonValue& v : d.value(QStringLiteral("Grupos")).toArray()) {
        const QJsonObject g = v.toObject();
        r->Grupos.push_back({g.value(QStringLiteral("Name")).toString(),
                             g.value(QStringLiteral("Campo")).toString(),
                             g.value(QStringLiteral("NuevaPaginaDespues")).toBool(false),
                             g.value(QStringLiteral("ReiniciaPaginas")).toBool(false)});
    }
    for (const QJsonValue& v : d.value(QStringLiteral("FormulaFields")).toArray()) {
        const QJsonObject f = v.toObject();
        r->FormulaFields.Agrega(f.value(QStringLiteral("Name")).toString(),
                                f.value(QStringLiteral("Text")).toString());
    }
    for (const QJsonValue& v : d.value(QStringLiteral("Sections")).toArray()) {
        const QJsonObject s = v.toObject();
        Seccion sec;
        sec.Name = s.value(QStringLiteral("Name")).toString();
        sec.Tipo = enumerado<TipoSeccion>(
            s.value(QStringLiteral("Tipo")).toString(QStringLiteral("detalle")),
            {{QStringLiteral("cabeceraInforme"), TipoSeccion::CabeceraInforme},
             {QStringLiteral("cabeceraPagina"), TipoSeccion::CabeceraPagina},
             {QStringLiteral("cabeceraGrupo"), TipoSeccion::CabeceraGrupo},
             {QStringLiteral("detalle"), TipoSeccion::Detalle},
             {QStringLiteral("pieGrupo"), TipoSeccion::PieGrupo},
             {QStringLiteral("piePagina"), TipoSeccion::PiePagina},
             {QStringLiteral("pieInforme"), TipoSeccion::PieInforme}},
            QStringLiteral("sección"));
        sec.Grupo = s.value(QStringLiteral("Grupo")).toString();
        sec.Suppress = s.value(QStringLiteral("Suppress")).toBool(false);
        sec.Height = s.value(QStringLiteral("Height")).toInt();
        sec.BackColor = color(s.value(QStringLiteral("BackColor")), kSinColor);
        sec.RepiteEnCadaPagina = s.value(QStringLiteral("RepiteEnCadaPagina")).toBool(false);
        sec.AlPie = s.value(QStringLiteral("AlPie")).toBool(false);
        sec.VisibleSi = s.value(QStringLiteral("VisibleSi")).toString();
        const bool deGrupo =
            sec.Tipo == TipoSeccion::CabeceraGrupo || sec.Tipo == TipoSeccion::PieGrupo;
        if (deGrupo) {
            bool existe = false;
            for (const Grupo& g : r->Grupos) {
                existe = existe || g.Name.compare(sec.Grupo, Qt::CaseInsensitive) == 0;
            }
            if (!existe) {
                throw ErrorDiseno(mensajes::kSeccionSinGrupo.arg(sec.Name, sec.Grupo));
            }
        }
        for (const QJsonValue& o : s.value(QStringLiteral("Objetos")).toArray()) {
            sec.Objetos.push_back(objeto(o.toObject(), fuenteBase));
        }
        r->Sections.todas().push_back(std::move(sec));
    }
    for (const QJsonValue& v : d.value(QStringLiteral("Subinformes")).toArray()) {
        QJsonObject sub = v.toObject();
        if (!sub.contains(QStringLiteral("Font"))) {
            sub.insert(QStringLiteral("Font"), d.value(QStringLiteral("Font")));
        }
        r->Subreportes.push_back(ConstruyeReporte(sub));
    }
    return r;
}

std::unique_ptr<Reporte> CargaDiseno(const QString& nombreReporte) {
    return ConstruyeReporte(LeeDiseno(nombreReporte));
}

std::unique_ptr<Reporte> CargaDisenoFichero(const QString& ruta) {
    const QFileInfo info(ruta);
    if (!info.isFile()) {
        throw ErrorDiseno(mensajes::kFicheroDisenoNoExiste.arg(ruta));
    }
    QStringList cadena{info.absoluteFilePath().toLower()};
    return ConstruyeReporte(leeConBase(ruta, info.completeBaseName(), 0, cadena));
}

} // namespace vk::informe
