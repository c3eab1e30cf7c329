#include "OrdenEmitir.h"

#include "Argumentos.h"
#include "InteraccionConsola.h"
#include "MensajesApp.h"

#include <BdSesion.h>
#include <ErrorBd.h>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <RegistroSuite.h>
#include <VKFACVENTAS.h>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <limits>

namespace vk::app {

namespace {

constexpr qint32 kMaximoNumero = std::numeric_limits<qint32>::max();

// One file per invoice, "F_<serie>_<número>.pdf". The library names its file
// "F_<número>.pdf", the same for every series, so each invoice is written
// into a private folder inside the target one (same file system) and renamed
// into its own name: a file of another invoice is never replaced.
int emitePdf(VKFACVENTAS& f, Recordset& rs, const QString& carpeta, qint16 nDiseno, qint16 nOrigen,
             QTextStream& out, QTextStream& err) {
    if (!QDir().mkpath(carpeta)) {
        throw ErrorDispositivo(mensajes::kCarpetaNoCreada.arg(carpeta));
    }
    const QDir destino(QDir(carpeta).absolutePath());
    QTemporaryDir temporal(destino.filePath(QStringLiteral(".vkfactuven-XXXXXX")));
    if (!temporal.isValid()) {
        throw ErrorDispositivo(mensajes::kCarpetaNoEscribible.arg(destino.path()));
    }
    f.RutaFicheroPdf = temporal.path();
    int escritos = 0;
    for (; !rs.Eof(); rs.MoveNext()) {
        const QString serie = rs.Fields(QStringLiteral("Fav_Serie")).Texto();
        const qint64 numero = rs.Fields(QStringLiteral("Fav_Numero")).Entero();
        f.PdfOutFile.clear();
        if (f.EmisionMultiplesFacturas(
                nDiseno, true, {static_cast<qint32>(rs.Fields(QStringLiteral("Fav_Id")).Entero())},
                false, nOrigen) != ResultadoEmision::Hecha) {
            return 1;
        }
        if (f.PdfOutFile.isEmpty() || !QFileInfo(f.PdfOutFile).isFile()) {
            err << mensajes::kPdfFacturaNoEscrito.arg(serie).arg(numero) << Qt::endl;
            return 1;
        }
        const QString fichero = destino.filePath(
            QStringLiteral("F_%1_%2.pdf").arg(SerieEnNombreFichero(serie)).arg(numero));
        // rename() replaces only the file of this invoice's own name, in one
        // step, and never follows a link placed there.
        if (std::rename(QFile::encodeName(f.PdfOutFile).constData(),
                        QFile::encodeName(fichero).constData()) != 0) {
            throw ErrorDispositivo(mensajes::kFicheroNoEscrito.arg(
                fichero, QString::fromLocal8Bit(std::strerror(errno))));
        }
        out << fichero << Qt::endl;
        ++escritos;
    }
    out << mensajes::kPdfsEscritos.arg(escritos) << Qt::endl;
    return 0;
}

} // namespace

int OrdenEmitir(const QStringList& args, QTextStream& out, QTextStream& err) {
    Argumentos a(QStringLiteral("emitir"),
                 QStringLiteral("--serie S --desde N [--hasta N] (--pdf CARPETA | --impresora "
                                "[COLA] | --pantalla) [opciones]"),
                 QStringLiteral("Emite las facturas de una serie entre dos números por el diseño "
                                "de la empresa\n(o por el indicado con --diseno)."));
    a.declaraOpcion(QStringLiteral("serie"), QStringLiteral("S"),
                    QStringLiteral("serie de las facturas"));
    a.declaraOpcion(QStringLiteral("desde"), QStringLiteral("N"),
                    QStringLiteral("primer número de factura"));
    a.declaraOpcion(QStringLiteral("hasta"), QStringLiteral("N"),
                    QStringLiteral("último número (por omisión, el primero)"));
    a.declaraOpcion(QStringLiteral("pdf"), QStringLiteral("CARPETA"),
                    QStringLiteral("un fichero F_<serie>_<número>.pdf por factura en CARPETA"));
    a.declaraOpcionOpcional(QStringLiteral("impresora"), QStringLiteral("COLA"),
                            QStringLiteral("todas en un trabajo a la impresora COLA (o a la de "
                                           "siempre);\nuna ruta en lugar de la cola imprime en "
                                           "ese fichero"));
    a.declaraBandera(QStringLiteral("pantalla"),
                     QStringLiteral("las abre en el visor de PDF del escritorio"));
    a.declaraBandera(QStringLiteral("copia"), QStringLiteral("las marca como duplicado"));
    a.declaraBandera(QStringLiteral("albaranes"),
                     QStringLiteral("imprime los números de los albaranes"));
    a.declaraOpcion(QStringLiteral("diseno"), QStringLiteral("N"),
                    QStringLiteral("diseño de factura, de 0 a 19"));
    a.declaraOpcion(QStringLiteral("usuario"), QStringLiteral("N"),
                    QStringLiteral("usuario de la sesión (por omisión, el de la conexión)"));
    a.analiza(args);

    const QString serie =
        LeeSerieOpcion(QStringLiteral("--serie"),
                       a.requerido(QStringLiteral("serie"), mensajes::kIndiqueSerieYDesde));
    const qint32 desde = LeeEnteroOpcion(
        QStringLiteral("--desde"),
        a.requerido(QStringLiteral("desde"), mensajes::kIndiqueSerieYDesde), 1, kMaximoNumero);
    const qint32 hasta = a.entero(QStringLiteral("hasta"), 1, kMaximoNumero).value_or(desde);
    if (hasta < desde) {
        throw ErrorUso(mensajes::kHastaMenorQueDesde.arg(hasta).arg(desde));
    }
    const std::optional<QString> carpeta = a.valor(QStringLiteral("pdf"));
    if (carpeta && carpeta->trimmed().isEmpty()) {
        throw ErrorUso(mensajes::kIndiqueCarpetaPdf);
    }
    const bool impresora = a.bandera(QStringLiteral("impresora"));
    const bool pantalla = a.bandera(QStringLiteral("pantalla"));
    if (int(carpeta.has_value()) + int(impresora) + int(pantalla) != 1) {
        throw ErrorUso(mensajes::kIndiqueSalida);
    }
    // A design given chooses the report itself, as a caller of origin 1 does.
    const std::optional<qint32> diseno = a.entero(QStringLiteral("diseno"), 0, 19);
    const qint16 nOrigen = diseno ? 1 : 0;
    const qint16 nDiseno = static_cast<qint16>(diseno.value_or(0));
    const std::optional<qint32> usuario = a.entero(QStringLiteral("usuario"), 1, kMaximoNumero);

    CadenaConexion cadena = CadenaConexion::Interpreta(a.baseDatos());
    if (usuario) {
        cadena.idUsuario = *usuario;
    }
    suite::RegistraComponentesSuite();
    auto bd = BdSesion::Abre(cadena);
    if (usuario) {
        CompruebaUsuario(*bd, *usuario);
    }
    InteraccionConsola ui(out, err);
    ui.idUsuario = bd->IdUsuario();
    const QString cola = a.valor(QStringLiteral("impresora")).value_or(QString());
    if (!cola.isEmpty()) {
        ui.impresoras = {cola};
    }
    const UsaInteraccion puerto(ui);
    VKFACVENTAS f;
    f.setMyBd(*bd);
    f.Copia = a.bandera(QStringLiteral("copia"));
    f.ImprimeAlbaran = a.bandera(QStringLiteral("albaranes"));
    f.NumCopias = 1;
    f.Tipo_Emision = carpeta ? 2 : (impresora ? 1 : 0);

    Recordset rs = bd->cn().Execute(
        QStringLiteral("SELECT Fav_Id, Fav_Serie, Fav_Numero FROM Fav WHERE Fav_Serie = ? AND "
                       "Fav_Numero BETWEEN ? AND ? ORDER BY Fav_Numero"),
        {serie, desde, hasta});
    if (rs.Eof()) {
        throw ErrorRegla(mensajes::kSinFacturasEnRango.arg(serie).arg(desde).arg(hasta));
    }
    if (carpeta) {
        return emitePdf(f, rs, *carpeta, nDiseno, nOrigen, out, err);
    }
    QVector<qint32> ids;
    for (; !rs.Eof(); rs.MoveNext()) {
        ids << static_cast<qint32>(rs.Fields(QStringLiteral("Fav_Id")).Entero());
    }
    if (f.EmisionMultiplesFacturas(nDiseno, true, ids, false, nOrigen) != ResultadoEmision::Hecha) {
        return 1;
    }
    out << (impresora ? mensajes::kTrabajoEnviado.arg(ids.size())
                            .arg(cola.isEmpty() ? mensajes::kImpresoraPorDefecto : cola)
                      : mensajes::kFacturasMostradas.arg(ids.size()))
        << Qt::endl;
    return 0;
}

} // namespace vk::app
