#include "SpoolIncorporado.h"

#include "MensajesSuite.h"

#include <Ajustes.h>
#include <Error.h>
#include <Interaccion.h>
#include <QProcess>
#include <QStandardPaths>

namespace vk::suite {

namespace {

const QString kAplicacion = QStringLiteral("ORVA");
const QString kSeccion = QStringLiteral("Spool");

// The job goes to the queue in one piece when it ends; lp's own answer is
// what tells whether the queue took it.
constexpr int kEsperaLpMs = 30000;

} // namespace

QString DestinoPorDefecto(const QByteArray& salidaLpstat) {
    const QByteArray kMarca("system default destination:");
    for (const QByteArray& linea : salidaLpstat.split('\n')) {
        const QByteArray l = linea.trimmed();
        if (l.startsWith(kMarca)) {
            return QString::fromLocal8Bit(l.mid(kMarca.size()).trimmed());
        }
    }
    return {};
}

SpoolIncorporado::SpoolIncorporado()
    : Impresora(LeeAjuste(kAplicacion, kSeccion, QStringLiteral("Printer"))),
      CodigoPagina(spool::CodigoPaginaImpresora()) {}

void SpoolIncorporado::SelectPrinter() {
    if (const std::optional<QString> elegida = Ui().EligeImpresora(Impresora)) {
        Impresora = *elegida;
    }
}

bool SpoolIncorporado::OpenDevice() {
    trabajo_.clear();
    if (esFichero()) {
        fichero_.setFileName(Impresora);
        abierto_ = fichero_.open(QIODevice::WriteOnly | QIODevice::Append);
        return abierto_;
    }
    // A queue is reachable when CUPS knows it (the default one when none is
    // named) and lp is there to take the job.
    if (QStandardPaths::findExecutable(QStringLiteral("lp")).isEmpty()) {
        return false;
    }
    QProcess lpstat;
    // Its answer is read: in the C locale, whatever the user's language.
    QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
    entorno.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    lpstat.setProcessEnvironment(entorno);
    lpstat.start(QStringLiteral("lpstat"), Impresora.isEmpty()
                                               ? QStringList{QStringLiteral("-d")}
                                               : QStringList{QStringLiteral("-p"), Impresora});
    if (!lpstat.waitForFinished(kEsperaLpMs) || lpstat.exitStatus() != QProcess::NormalExit ||
        lpstat.exitCode() != 0) {
        return false;
    }
    if (Impresora.isEmpty() && DestinoPorDefecto(lpstat.readAllStandardOutput()).isEmpty()) {
        return false;
    }
    abierto_ = true;
    return true;
}

void SpoolIncorporado::printline(const QString& texto) {
    if (!abierto_) {
        return;
    }
    const QByteArray bytes = ConvierteCodigoPagina(texto, CodigoPagina);
    if (esFichero()) {
        if (fichero_.write(bytes) != bytes.size()) {
            throw ErrorDispositivo(mensajes::kSpoolFichero.arg(Impresora));
        }
    } else {
        trabajo_.append(bytes);
    }
}

void SpoolIncorporado::CloseDevice() {
    if (!abierto_) {
        return;
    }
    abierto_ = false;
    if (esFichero()) {
        const bool ok = fichero_.flush();
        fichero_.close();
        if (!ok) {
            throw ErrorDispositivo(mensajes::kSpoolFichero.arg(Impresora));
        }
        return;
    }
    QStringList args{QStringLiteral("-o"), QStringLiteral("raw")};
    if (!Impresora.isEmpty()) {
        args = QStringList{QStringLiteral("-d"), Impresora} + args;
    }
    QProcess lp;
    lp.start(QStringLiteral("lp"), args);
    lp.write(trabajo_);
    lp.closeWriteChannel();
    trabajo_.clear();
    if (!lp.waitForFinished(kEsperaLpMs) || lp.exitStatus() != QProcess::NormalExit ||
        lp.exitCode() != 0) {
        throw ErrorDispositivo(mensajes::kSpoolColaRechaza.arg(
            Impresora, QString::fromLocal8Bit(lp.readAllStandardError()).trimmed()));
    }
}

void RegistraSpool() {
    RegistraComponente(QString::fromLatin1(ClsSpool::kProgId),
                       [] { return std::make_unique<SpoolIncorporado>(); });
}

} // namespace vk::suite
