#include "Semilla.h"

#include "ErrorBd.h"
#include "MensajesCore.h"

#include <QFile>
#include <QStringList>

// The data files are compiled into the static library; a static library's
// resources must be registered by hand before the first read.
static void registraRecursosSemilla() {
    Q_INIT_RESOURCE(semilla);
}

namespace vk {

QByteArray LeeRecursoSemilla(const QString& recurso) {
    static const bool registrados = (registraRecursosSemilla(), true);
    (void)registrados;
    QFile f(recurso);
    if (!f.open(QIODevice::ReadOnly)) {
        throw ErrorDispositivo(mensajes::kSemillaIlegible.arg(recurso));
    }
    return f.readAll();
}

namespace {

struct Csv {
    QStringList cabecera;
    QList<QStringList> filas;
};

// The files are plain: a header, comma separated values without quotes, and
// lines starting with '#' as comments.
Csv leeCsv(const QString& recurso) {
    Csv csv;
    for (const QString& linea :
         QString::fromUtf8(LeeRecursoSemilla(recurso)).split(QLatin1Char('\n'))) {
        const QString l = linea.trimmed();
        if (l.isEmpty() || l.startsWith(QLatin1Char('#'))) {
            continue;
        }
        if (csv.cabecera.isEmpty()) {
            csv.cabecera = l.split(QLatin1Char(','));
        } else {
            csv.filas << l.split(QLatin1Char(','));
        }
    }
    return csv;
}

struct Siembra {
    const char* recurso;
    const char* tabla;
    QStringList clave;                        // natural key, columns of the table
    QList<QPair<QString, QString>> renombres; // file column -> table column
    QList<QPair<QString, QVariant>> fijas;    // extra constant columns
};

int siembra(BdSesion& s, const Siembra& def) {
    const Csv csv = leeCsv(QString::fromLatin1(def.recurso));
    QStringList columnas;
    for (QString c : csv.cabecera) {
        for (const auto& [de, a] : def.renombres) {
            if (c == de) {
                c = a;
            }
        }
        columnas << c;
    }
    for (const auto& fija : def.fijas) {
        columnas << fija.first;
    }
    QStringList condiciones;
    for (const QString& c : def.clave) {
        condiciones << c + QStringLiteral(" = ?");
    }
    const QString tabla = QStringLiteral("vkcomun.") + QString::fromLatin1(def.tabla);
    const QString existe = QStringLiteral("SELECT 1 FROM %1 WHERE %2")
                               .arg(tabla, condiciones.join(QStringLiteral(" AND ")));
    const QString inserta =
        QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
            .arg(tabla, columnas.join(QStringLiteral(", ")), MarcadoresSql(columnas.size()));
    const bool tieneFecha = columnas.contains(QStringLiteral("Tiva_Fecha"));
    int anadidas = 0;
    for (const QStringList& fila : csv.filas) {
        if (fila.size() != csv.cabecera.size()) {
            throw ErrorBd(mensajes::kSemillaFilaMal.arg(QString::fromLatin1(def.recurso),
                                                        fila.join(QLatin1Char(','))));
        }
        QVariantList valores;
        for (int i = 0; i < fila.size(); ++i) {
            if (tieneFecha && columnas[i] == QLatin1String("Tiva_Fecha")) {
                valores << s.dialecto().valorFecha(QDate::fromString(fila[i], Qt::ISODate));
            } else {
                valores << fila[i];
            }
        }
        for (const auto& fija : def.fijas) {
            valores << fija.second;
        }
        QVariantList claves;
        for (const QString& c : def.clave) {
            claves << valores[columnas.indexOf(c)];
        }
        if (s.cn().Execute(existe, claves).Eof()) {
            s.cn().Execute(inserta, valores);
            ++anadidas;
        }
    }
    return anadidas;
}

} // namespace

int SiembraDatosComunes(BdSesion& s) {
    // Text values are bound as text: both engines convert them to the
    // column's number type on insert and in comparisons with it.
    const Siembra tablas[] = {
        {":/semilla/tivas.csv",
         "TIVAS",
         {QStringLiteral("Tiva_Reg"), QStringLiteral("Tiva_Art"), QStringLiteral("Tiva_Fecha")},
         {{QStringLiteral("Descripcion"), QStringLiteral("Tiva_Des")}},
         {}},
        {":/semilla/provincias.csv", "PROV", {QStringLiteral("PROV_COD")}, {}, {}},
        {":/semilla/paises.csv", "PAIS", {QStringLiteral("PAIS_COD")}, {}, {}},
        {":/semilla/vias.csv", "TVI", {QStringLiteral("TVI_COD")}, {}, {}},
        {":/semilla/situaciones.csv",
         "Situaciones",
         {QStringLiteral("Sit_Proceso"), QStringLiteral("Sit_Cod"), QStringLiteral("Sit_Idioma")},
         {},
         {{QStringLiteral("Sit_Idioma"), 0}}},
    };
    int anadidas = 0;
    for (const Siembra& def : tablas) {
        anadidas += siembra(s, def);
    }
    if (s.cn().Execute(QStringLiteral("SELECT 1 FROM vkcomun.Usu WHERE Usu_Id = 1")).Eof()) {
        s.cn().Execute(
            QStringLiteral("INSERT INTO vkcomun.Usu (Usu_Id, Usu_Nom, Usu_Admin) VALUES (?, ?, ?)"),
            {1, QStringLiteral("ADMINISTRADOR"), 1});
        ++anadidas;
    }
    s.AjustaIdentidad(QStringLiteral("vkcomun.Usu"), QStringLiteral("Usu_Id"));
    return anadidas;
}

int SiembraMencionesIva(BdSesion& s) {
    return siembra(
        s, {":/semilla/menciones-iva.csv", "MENIVA", {QStringLiteral("MenIva_Reg")}, {}, {}});
}

void SiembraDatosEmpresa(BdSesion& s) {
    if (!s.cn().Execute(QStringLiteral("SELECT 1 FROM Parametros")).Eof()) {
        return;
    }
    // The sensible starting point of a new company: series A, eight-digit
    // accounts, the general tax regime, the first invoice design.
    s.cn().Execute(QStringLiteral("INSERT INTO Parametros (Par_Catalog, PAR_NOMBRE, Par_SerFac, "
                                  "Par_SerAlb, Par_CtaNum, Par_RegFiscal, Par_NCopFac, Par_Pais) "
                                  "VALUES (?, ?, ?, ?, ?, ?, ?, ?)"),
                   {s.Catalogo(), s.Catalogo(), QStringLiteral("A"), QStringLiteral("A"), 8, 1, 1,
                    QStringLiteral("011")});
}

} // namespace vk
