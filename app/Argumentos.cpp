#include "Argumentos.h"

#include "MensajesApp.h"

#include <BdSesion.h>
#include <ErrorBd.h>
#include <QCommandLineParser>
#include <ReglasFecha.h>
#include <algorithm>

namespace vk::app {

namespace {

bool detalleDeErrores = false;

const QStringList kNombresAyuda{QStringLiteral("h"), QStringLiteral("help"),
                                QStringLiteral("ayuda")};

constexpr int kLargoSerie = 10;

QString sinGuiones(const QString& nombre) {
    qsizetype i = 0;
    while (i < nombre.size() && nombre[i] == QLatin1Char('-')) {
        ++i;
    }
    return nombre.mid(i);
}

QString conGuiones(const QString& nombre) {
    return QStringLiteral("--") + sinGuiones(nombre);
}

// The option an argument names, "--serie=A" -> "serie"; empty for a word
// that is not an option.
QString nombreDeArgumento(const QString& arg) {
    if (arg.size() < 2 || arg[0] != QLatin1Char('-')) {
        return {};
    }
    const QString resto = arg.mid(arg.startsWith(QLatin1String("--")) ? 2 : 1);
    // "---x" is no option the parser knows; it reports it as unknown.
    return resto.startsWith(QLatin1Char('-')) ? QString() : resto.section(QLatin1Char('='), 0, 0);
}

bool esDigitoAscii(QChar c) {
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool esCaracterSerie(QChar c) {
    return c.isLetter() || esDigitoAscii(c) || c == QLatin1Char('-');
}

} // namespace

bool DetalleDeErrores() {
    return detalleDeErrores;
}

void EstableceDetalleDeErrores(bool detalle) {
    detalleDeErrores = detalle;
}

Argumentos::Argumentos(const QString& orden, const QString& uso, const QString& descripcion)
    : orden_(orden), uso_(uso), descripcion_(descripcion) {
    declaraOpcion(QStringLiteral("db"), QStringLiteral("DB"),
                  QStringLiteral("empresa: una carpeta (SQLite), sqlite:DIR?catalogo=NOMBRE o\n"
                                 "postgresql://usuario@servidor:puerto/base?catalogo=nombre;\n"
                                 "sin ella, VKFACTUVEN_DB y, si no está, ./datos"));
    declaraBandera(QStringLiteral("detalle"),
                   QStringLiteral("en los errores de la base de datos, también el texto del\n"
                                  "servidor y la sentencia"));
}

void Argumentos::declara(Declarada d) {
    d.nombre = sinGuiones(d.nombre);
    declaradas_.push_back(std::move(d));
}

void Argumentos::declaraOpcion(const QString& nombre, const QString& nombreValor,
                               const QString& ayuda) {
    declara({nombre, nombreValor, ayuda, false});
}

void Argumentos::declaraOpcionOpcional(const QString& nombre, const QString& nombreValor,
                                       const QString& ayuda) {
    declara({nombre, nombreValor, ayuda, true});
}

void Argumentos::declaraBandera(const QString& nombre, const QString& ayuda) {
    declara({nombre, QString(), ayuda, false});
}

const Argumentos::Declarada* Argumentos::busca(const QString& nombre) const {
    const QString n = sinGuiones(nombre);
    const auto it = std::find_if(declaradas_.begin(), declaradas_.end(),
                                 [&n](const Declarada& d) { return d.nombre == n; });
    return it == declaradas_.end() ? nullptr : &*it;
}

void Argumentos::analiza(const QStringList& entrada) {
    // An option whose value may be left out takes the next word only when
    // that word is not another option; alone it stands as "--name=".
    QStringList args;
    bool posicionales = false;
    for (qsizetype i = 0; i < entrada.size(); ++i) {
        const QString& a = entrada[i];
        posicionales = posicionales || a == QLatin1String("--");
        const Declarada* d = posicionales ? nullptr : busca(nombreDeArgumento(a));
        if (d && d->valorOpcional && !a.contains(QLatin1Char('=')) &&
            (i + 1 >= entrada.size() || entrada[i + 1].startsWith(QLatin1Char('-')))) {
            args << conGuiones(d->nombre) + QLatin1Char('=');
        } else {
            args << a;
        }
    }

    QCommandLineParser p;
    p.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    for (const Declarada& d : declaradas_) {
        p.addOption(QCommandLineOption(QStringList{d.nombre}, d.ayuda, d.nombreValor));
    }
    const QCommandLineOption ayuda(kNombresAyuda);
    p.addOption(ayuda);
    // The program's name leads the list the parser reads.
    const bool correcto = p.parse(QStringList{QStringLiteral("vkfactuven")} + args);
    if (p.isSet(ayuda)) {
        throw AyudaPedida{this->ayuda()};
    }

    // Mistakes the parser would report in English, or not at all: a value
    // missing at the end, the next option taken as a value ("--serie
    // --fecha 1/1/2026"), a value given to a flag.
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QString& a = args[i];
        if (a == QLatin1String("--")) {
            break;
        }
        const Declarada* d = busca(nombreDeArgumento(a));
        if (!d) {
            continue;
        }
        const bool conIgual = a.contains(QLatin1Char('='));
        if (d->nombreValor.isEmpty()) {
            if (conIgual) {
                throw ErrorUso(mensajes::kOpcionSinValor.arg(conGuiones(d->nombre)));
            }
            continue;
        }
        if (conIgual) {
            continue;
        }
        const QString siguiente = i + 1 < args.size() ? args[i + 1] : QString();
        const QString nombreSiguiente = nombreDeArgumento(siguiente);
        if (i + 1 >= args.size() ||
            (!nombreSiguiente.isEmpty() &&
             (busca(nombreSiguiente) || kNombresAyuda.contains(nombreSiguiente)))) {
            throw ErrorUso(mensajes::kFaltaValorOpcion.arg(conGuiones(d->nombre)));
        }
        ++i;
    }
    if (!p.unknownOptionNames().isEmpty()) {
        // Named as it was typed: "-x" or "--x".
        const QString desconocida = p.unknownOptionNames().first();
        QString escrita = QStringLiteral("--") + desconocida;
        for (const QString& a : args) {
            if (a.startsWith(QLatin1Char('-')) &&
                a.section(QLatin1Char('='), 0, 0).endsWith(QLatin1Char('-') + desconocida)) {
                escrita = a.section(QLatin1Char('='), 0, 0);
                break;
            }
        }
        throw ErrorUso(mensajes::kOpcionDesconocida.arg(escrita));
    }
    if (!correcto) {
        throw ErrorUso(mensajes::kArgumentosNoValidos);
    }
    if (!p.positionalArguments().isEmpty()) {
        throw ErrorUso(mensajes::kArgumentoInesperado.arg(p.positionalArguments().first()));
    }

    presentes_.clear();
    valores_.clear();
    for (const Declarada& d : declaradas_) {
        if (!p.isSet(d.nombre)) {
            continue;
        }
        presentes_ << d.nombre;
        if (d.nombreValor.isEmpty()) {
            continue;
        }
        const QStringList v = p.values(d.nombre);
        if (v.size() > 1) {
            throw ErrorUso(mensajes::kOpcionRepetida.arg(conGuiones(d.nombre)));
        }
        valores_.append({d.nombre, v.value(0)});
    }
    if (detalle()) {
        detalleDeErrores = true;
    }
}

bool Argumentos::presente(const QString& nombre) const {
    return presentes_.contains(sinGuiones(nombre));
}

std::optional<QString> Argumentos::valor(const QString& nombre) const {
    const QString n = sinGuiones(nombre);
    for (const auto& [clave, v] : valores_) {
        if (clave == n) {
            return v;
        }
    }
    return std::nullopt;
}

QString Argumentos::baseDatos() const {
    if (const auto db = valor(QStringLiteral("db"))) {
        if (db->trimmed().isEmpty()) {
            throw ErrorUso(mensajes::kDbEnBlanco);
        }
        return *db;
    }
    const QString entorno = qEnvironmentVariable("VKFACTUVEN_DB");
    return entorno.isEmpty() ? QStringLiteral("./datos") : entorno;
}

std::optional<QDate> Argumentos::fecha(const QString& nombre) const {
    const std::optional<QString> v = valor(nombre);
    return v ? std::optional<QDate>(LeeFechaOpcion(conGuiones(nombre), *v)) : std::nullopt;
}

std::optional<qint32> Argumentos::entero(const QString& nombre, qint32 minimo,
                                         qint32 maximo) const {
    const std::optional<QString> v = valor(nombre);
    return v ? std::optional<qint32>(LeeEnteroOpcion(conGuiones(nombre), *v, minimo, maximo))
             : std::nullopt;
}

std::optional<QString> Argumentos::serie(const QString& nombre) const {
    const std::optional<QString> v = valor(nombre);
    return v ? std::optional<QString>(LeeSerieOpcion(conGuiones(nombre), *v)) : std::nullopt;
}

std::optional<QString> Argumentos::eleccion(const QString& nombre,
                                            const QStringList& admitidos) const {
    const std::optional<QString> v = valor(nombre);
    if (!v) {
        return std::nullopt;
    }
    if (!admitidos.contains(*v)) {
        const QString lista =
            admitidos.size() < 2
                ? admitidos.join(QString())
                : admitidos.mid(0, admitidos.size() - 1).join(QStringLiteral(", ")) +
                      QStringLiteral(" o ") + admitidos.last();
        throw ErrorUso(mensajes::kValorNoAdmitido.arg(conGuiones(nombre), *v, lista));
    }
    return v;
}

QString Argumentos::requerido(const QString& nombre, const QString& mensaje) const {
    const std::optional<QString> v = valor(nombre);
    if (!v) {
        throw ErrorUso(mensaje);
    }
    return *v;
}

QString Argumentos::ayuda() const {
    QString texto = QStringLiteral("Uso: vkfactuven %1 %2\n")
                        .arg(orden_.isEmpty() ? QStringLiteral("ORDEN") : orden_,
                             uso_.isEmpty() ? QStringLiteral("[opciones]") : uso_);
    if (!descripcion_.isEmpty()) {
        texto += QLatin1Char('\n') + descripcion_ + QLatin1Char('\n');
    }
    QList<QPair<QString, QString>> filas;
    for (const Declarada& d : declaradas_) {
        QString izquierda = conGuiones(d.nombre);
        if (!d.nombreValor.isEmpty()) {
            izquierda += d.valorOpcional ? QStringLiteral(" [%1]").arg(d.nombreValor)
                                         : QLatin1Char(' ') + d.nombreValor;
        }
        filas.append({izquierda, d.ayuda});
    }
    filas.append({QStringLiteral("-h, --help, --ayuda"), QStringLiteral("muestra esta ayuda")});
    qsizetype ancho = 0;
    for (const auto& fila : filas) {
        ancho = std::max(ancho, fila.first.size());
    }
    texto += QStringLiteral("\nOpciones:\n");
    for (const auto& [izquierda, derecha] : filas) {
        const QStringList lineas = derecha.split(QLatin1Char('\n'));
        QString linea =
            QStringLiteral("  %1  %2").arg(izquierda, -static_cast<int>(ancho)).arg(lineas[0]);
        while (linea.endsWith(QLatin1Char(' '))) {
            linea.chop(1);
        }
        texto += linea + QLatin1Char('\n');
        for (qsizetype i = 1; i < lineas.size(); ++i) {
            texto += QString(ancho + 4, QLatin1Char(' ')) + lineas[i] + QLatin1Char('\n');
        }
    }
    return texto;
}

QDate LeeFechaOpcion(const QString& opcion, const QString& texto) {
    QDate fecha;
    try {
        fecha = fnLeeFecha(texto);
    } catch (const Error&) {
        throw ErrorUso(mensajes::kFechaOpcionNoValida.arg(opcion, texto));
    }
    if (!fnFechaFacturaAdmisible(fecha)) {
        throw ErrorUso(mensajes::kFechaOpcionFueraDeRango.arg(
            opcion, fecha.toString(QStringLiteral("dd/MM/yyyy")),
            kPrimeraFechaFactura.toString(QStringLiteral("dd/MM/yyyy")),
            kUltimaFechaFactura.toString(QStringLiteral("dd/MM/yyyy"))));
    }
    return fecha;
}

qint32 LeeEnteroOpcion(const QString& opcion, const QString& texto, qint32 minimo, qint32 maximo) {
    const QString t = texto.trimmed();
    const qsizetype inicio =
        t.startsWith(QLatin1Char('-')) || t.startsWith(QLatin1Char('+')) ? 1 : 0;
    const bool soloCifras =
        t.size() > inicio && std::all_of(t.begin() + inicio, t.end(), esDigitoAscii);
    if (!soloCifras) {
        throw ErrorUso(mensajes::kOpcionNoEntera.arg(opcion, texto));
    }
    // Too many digits for any range is out of range, never a wrapped value.
    bool ok = false;
    const qint64 n = t.toLongLong(&ok);
    if (!ok || n < minimo || n > maximo) {
        throw ErrorUso(
            mensajes::kOpcionFueraDeRango.arg(opcion).arg(minimo).arg(maximo).arg(texto));
    }
    return static_cast<qint32>(n);
}

QList<qint32> LeeListaEnterosOpcion(const QString& opcion, const QString& texto, qint32 minimo,
                                    qint32 maximo) {
    QList<qint32> lista;
    for (const QString& parte : texto.split(QLatin1Char(','))) {
        if (parte.trimmed().isEmpty()) {
            throw ErrorUso(mensajes::kListaSinNumero.arg(opcion, texto));
        }
        const qint32 n = LeeEnteroOpcion(opcion, parte, minimo, maximo);
        if (lista.contains(n)) {
            throw ErrorUso(mensajes::kListaRepetido.arg(opcion).arg(n));
        }
        lista << n;
    }
    return lista;
}

QString LeeSerieOpcion(const QString& opcion, const QString& texto) {
    const QString serie = texto.trimmed();
    if (serie.isEmpty()) {
        throw ErrorUso(mensajes::kOpcionEnBlanco.arg(opcion));
    }
    if (serie.size() > kLargoSerie) {
        throw ErrorUso(mensajes::kSerieLarga.arg(opcion).arg(kLargoSerie).arg(serie));
    }
    if (!std::all_of(serie.begin(), serie.end(), esCaracterSerie)) {
        throw ErrorUso(mensajes::kSerieNoValida.arg(opcion, serie));
    }
    return serie;
}

QString SerieEnNombreFichero(const QString& serie) {
    QString r = serie.trimmed();
    for (QChar& c : r) {
        if (!esCaracterSerie(c)) {
            c = QLatin1Char('_');
        }
    }
    return r;
}

void CompruebaUsuario(BdSesion& bd, qint32 idUsuario) {
    const qint64 n =
        bd.cn()
            .Execute(QStringLiteral("SELECT COUNT(*) FROM vkcomun.Usu WHERE Usu_Id = ?"),
                     {idUsuario})
            .Fields(0)
            .Entero();
    if (n == 0) {
        throw ErrorUso(mensajes::kUsuarioNoExiste.arg(idUsuario));
    }
}

qint32 CompruebaCliente(BdSesion& bd, qint32 codigo) {
    Recordset rs = bd.cn().Execute(
        QStringLiteral("SELECT Cli_Id FROM Cli WHERE Cli_Cod = ? ORDER BY Cli_Id"), {codigo});
    if (rs.Eof()) {
        throw ErrorUso(mensajes::kCodigoClienteNoExiste.arg(codigo));
    }
    return static_cast<qint32>(rs.Fields(0).Entero());
}

} // namespace vk::app
