#include "SpoolIncorporado.h"

#include <Ajustes.h>
#include <ErrorBd.h>
#include <Interaccion.h>
#include <QProcess>
#include <QStandardPaths>
#include <cerrno>
#include <iconv.h>

namespace vk::suite {

namespace {

const QString kAplicacion = QStringLiteral("ORVA");
const QString kSeccion = QStringLiteral("Spool");

// The job goes to the queue in one piece when it ends; lp's own answer is
// what tells whether the queue took it.
constexpr int kEsperaLpMs = 30000;

} // namespace

QByteArray ConvierteCodigoPagina(const QString& texto, const QString& codigoPagina) {
    const QByteArray destino = codigoPagina.toLatin1() + "//TRANSLIT";
    iconv_t cd = iconv_open(destino.constData(), "UTF-8");
    if (cd == reinterpret_cast<iconv_t>(-1)) {
        throw ErrorBd(mensajes::kSpoolCodigoPagina.arg(codigoPagina));
    }
    QByteArray entrada = texto.toUtf8();
    QByteArray salida(entrada.size() * 4 + 16, '\0');
    char* in = entrada.data();
    size_t inLeft = static_cast<size_t>(entrada.size());
    char* out = salida.data();
    size_t outLeft = static_cast<size_t>(salida.size());
    while (inLeft > 0) {
        if (iconv(cd, &in, &inLeft, &out, &outLeft) == static_cast<size_t>(-1)) {
            if (errno == EILSEQ || errno == EINVAL) {
                // Nothing to transliterate it to: a question mark, as
                // printers do with what they cannot print.
                *out++ = '?';
                --outLeft;
                const auto b = static_cast<unsigned char>(*in);
                const size_t largo = b >= 0xF0 ? 4 : b >= 0xE0 ? 3 : b >= 0xC0 ? 2 : 1;
                in += std::min(inLeft, largo);
                inLeft -= std::min(inLeft, largo);
            } else {
                break; // E2BIG cannot happen with four bytes per character
            }
        }
    }
    iconv_close(cd);
    salida.truncate(salida.size() - static_cast<qsizetype>(outLeft));
    return salida;
}

SpoolIncorporado::SpoolIncorporado()
    : Impresora(LeeAjuste(kAplicacion, kSeccion, QStringLiteral("Printer"))),
      CodigoPagina(
          LeeAjuste(kAplicacion, kSeccion, QStringLiteral("CodePage"), QStringLiteral("CP850"))) {}

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
    lpstat.start(QStringLiteral("lpstat"), Impresora.isEmpty()
                                               ? QStringList{QStringLiteral("-d")}
                                               : QStringList{QStringLiteral("-p"), Impresora});
    if (!lpstat.waitForFinished(kEsperaLpMs) || lpstat.exitStatus() != QProcess::NormalExit ||
        lpstat.exitCode() != 0) {
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
            throw ErrorBd(mensajes::kSpoolFichero.arg(Impresora));
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
            throw ErrorBd(mensajes::kSpoolFichero.arg(Impresora));
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
        throw ErrorBd(mensajes::kSpoolColaRechaza.arg(
            Impresora, QString::fromLocal8Bit(lp.readAllStandardError()).trimmed()));
    }
}

void RegistraSpool() {
    RegistraComponente(QString::fromLatin1(ClsSpool::kProgId),
                       [] { return std::make_unique<SpoolIncorporado>(); });
}

} // namespace vk::suite
