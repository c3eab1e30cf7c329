// The suite's spool as the printer sees it: the same CP850 bytes through a
// file device, and through a private CUPS scheduler with a queue of its own
// (started here as root, with bounded waits, and always stopped).
#include <Error.h>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>
#include <SpoolIncorporado.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace vk::prueba {
namespace {

// What the layouts send: accents, the euro sign (transliterated, CP850 has
// none), a form feed and the condensed mode characters.
const QStringList kTrozos = {QStringLiteral("Albarán nº: A/1 de fecha: 10/03/2026\r\n"),
                             QString(QChar(12)), QStringLiteral("Ñandú 12,50 €\r\n"),
                             QString(QChar(15)) + QStringLiteral("condensado"), QString(QChar(18))};
const QByteArray kEsperado("Albar\xa0n n\xa7: A/1 de fecha: 10/03/2026\r\n\x0c\xa5"
                           "and\xa3 12,50 EUR\r\n\x0f"
                           "condensado\x12");

void Envia(suite::SpoolIncorporado& spool) {
    for (const QString& t : kTrozos) {
        spool.printline(t);
    }
}

TEST(SpoolFichero, APathIsAFileDeviceThatGetsTheBytesInCp850) {
    QTemporaryDir dir;
    const QString ruta = dir.filePath(QStringLiteral("matricial.prn"));
    suite::SpoolIncorporado spool;
    spool.Impresora = ruta;
    ASSERT_TRUE(spool.OpenDevice());
    Envia(spool);
    spool.CloseDevice();
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), kEsperado);
    f.close();
    // A second job is appended, as a printer's paper goes on.
    ASSERT_TRUE(spool.OpenDevice());
    spool.printline(QStringLiteral("fin"));
    spool.CloseDevice();
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), kEsperado + "fin");

    spool.Impresora = dir.filePath(QStringLiteral("no/existe/matricial.prn"));
    EXPECT_FALSE(spool.OpenDevice());
    spool.Impresora = ruta;
    spool.CodigoPagina = QStringLiteral("NO-EXISTE-850");
    ASSERT_TRUE(spool.OpenDevice());
    EXPECT_THROW(spool.printline(QStringLiteral("x")), ErrorDispositivo);
    spool.CloseDevice();
}

TEST(SpoolCola, WithoutADefaultQueueThereIsNoDeviceToOpen) {
    // lpstat -d ends well either way: only its answer tells.
    EXPECT_EQ(suite::DestinoPorDefecto("no system default destination\n"), QString());
    EXPECT_EQ(suite::DestinoPorDefecto(""), QString());
    EXPECT_EQ(suite::DestinoPorDefecto("system default destination: oficina\n"),
              QStringLiteral("oficina"));
}

// A scheduler of its own: configuration, spool and socket in a temporary
// folder, so the machine's printers are never touched.
class CupsPrivado {
public:
    // Empty when it runs; otherwise why it cannot.
    QString Arranca() {
        if (geteuid() != 0) {
            return QStringLiteral("cupsd de prueba necesita root (los filtros corren como lp)");
        }
        for (const char* programa : {"cupsd", "lpadmin", "lp", "lpstat"}) {
            if (QStandardPaths::findExecutable(QString::fromLatin1(programa),
                                               {QStringLiteral("/usr/sbin"),
                                                QStringLiteral("/usr/bin"), QStringLiteral("/sbin"),
                                                QStringLiteral("/bin")})
                    .isEmpty()) {
                return QStringLiteral("falta %1 (paquetes cups, cups-client)")
                    .arg(QLatin1String(programa));
            }
        }
        if (!QFileInfo::exists(QStringLiteral("/usr/lib/cups/filter/gziptoany"))) {
            return QStringLiteral("falta el filtro gziptoany (paquete cups)");
        }
        // Short path: a Unix socket's name is limited to about 100 bytes.
        dir_ = std::make_unique<QTemporaryDir>(QStringLiteral("/tmp/vkcups-XXXXXX"));
        if (!dir_->isValid()) {
            return QStringLiteral("no se puede crear la carpeta temporal");
        }
        // The filters run as lp and read the spooled files under it.
        QFile::setPermissions(dir_->path(), QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                                QFileDevice::ExeOwner | QFileDevice::ReadGroup |
                                                QFileDevice::ExeGroup | QFileDevice::ReadOther |
                                                QFileDevice::ExeOther);
        for (const char* sub : {"etc", "spool", "cache", "state", "tmp", "log", "ssl"}) {
            QDir(dir_->path()).mkpath(QString::fromLatin1(sub));
        }
        socket_ = ruta("cups.sock");
        escribe("etc/cupsd.conf",
                QStringLiteral("Listen %1\nLogLevel warn\nErrorLog %2\nAccessLog %3\n"
                               "PageLog %3\nWebInterface No\nBrowsing No\n"
                               "DefaultAuthType None\n<Location />\n  Order allow,deny\n"
                               "  Allow all\n</Location>\n<Location /admin>\n"
                               "  Order allow,deny\n  Allow all\n</Location>\n"
                               "<Policy default>\n  <Limit All>\n    Order deny,allow\n"
                               "  </Limit>\n</Policy>\n")
                    .arg(socket_, ruta("log/error_log"), ruta("log/access_log")));
        escribe("etc/cups-files.conf",
                QStringLiteral("FileDevice Yes\nServerRoot %1\nRequestRoot %2\nCacheDir %3\n"
                               "StateDir %4\nTempDir %5\nServerKeychain %6\nPrintcap\n"
                               "ServerBin /usr/lib/cups\nDataDir /usr/share/cups\n"
                               "ErrorLog %7\nAccessLog %8\nPageLog %8\n")
                    .arg(ruta("etc"), ruta("spool"), ruta("cache"), ruta("state"), ruta("tmp"),
                         ruta("ssl"), ruta("log/error_log"), ruta("log/access_log")));
        cupsd_.setProcessChannelMode(QProcess::MergedChannels);
        cupsd_.start(QStringLiteral("cupsd"),
                     {QStringLiteral("-f"), QStringLiteral("-c"), ruta("etc/cupsd.conf"),
                      QStringLiteral("-s"), ruta("etc/cups-files.conf")});
        if (!cupsd_.waitForStarted(10000)) {
            return QStringLiteral("cupsd no arranca: %1").arg(cupsd_.errorString());
        }
        anterior_ = qgetenv("CUPS_SERVER");
        qputenv("CUPS_SERVER", socket_.toUtf8());
        QElapsedTimer reloj;
        reloj.start();
        while (reloj.elapsed() < 20000) {
            if (cupsd_.state() != QProcess::Running) {
                return QStringLiteral("cupsd ha terminado: %1 %2")
                    .arg(QString::fromLocal8Bit(cupsd_.readAll()), registro());
            }
            if (QFileInfo::exists(socket_) &&
                ejecuta(QStringLiteral("lpstat"), {QStringLiteral("-r")}) == 0) {
                return {};
            }
            QThread::msleep(200);
        }
        return QStringLiteral("cupsd no responde en 20 s: %1").arg(registro());
    }

    ~CupsPrivado() {
        if (cupsd_.state() != QProcess::NotRunning) {
            cupsd_.terminate();
            if (!cupsd_.waitForFinished(5000)) {
                cupsd_.kill();
                cupsd_.waitForFinished(5000);
            }
        }
        if (anterior_.isNull()) {
            qunsetenv("CUPS_SERVER");
        } else {
            qputenv("CUPS_SERVER", anterior_);
        }
    }

    // A queue that writes what it gets to a file. CUPS writes a file device
    // only through a filter, so the queue's PPD names one that passes the
    // data through untouched (gziptoany copies what is not compressed).
    bool Cola(const QString& nombre, const QString& salida) {
        escribe("texto.ppd",
                QStringLiteral("*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: "
                               "\"1.0\"\n*LanguageVersion: English\n*LanguageEncoding: "
                               "ISOLatin1\n*PCFileName: \"TEXTO.PPD\"\n*Manufacturer: "
                               "\"Generic\"\n*Product: \"(Texto)\"\n*ModelName: \"Texto\"\n"
                               "*ShortNickName: \"Texto\"\n*NickName: \"Texto\"\n*PSVersion: "
                               "\"(3010.000) 0\"\n*ColorDevice: False\n*DefaultColorSpace: "
                               "Gray\n*cupsFilter: \"application/vnd.cups-raw 0 gziptoany\"\n"
                               "*OpenUI *PageSize: PickOne\n*DefaultPageSize: A4\n*PageSize "
                               "A4/A4: \"\"\n*CloseUI: *PageSize\n*DefaultImageableArea: A4\n"
                               "*ImageableArea A4/A4: \"0 0 595 842\"\n*DefaultPaperDimension: "
                               "A4\n*PaperDimension A4/A4: \"595 842\"\n"));
        return ejecuta(QStringLiteral("lpadmin"),
                       {QStringLiteral("-p"), nombre, QStringLiteral("-E"), QStringLiteral("-v"),
                        QStringLiteral("file://") + salida, QStringLiteral("-P"),
                        ruta("texto.ppd")}) == 0;
    }

    QString ruta(const char* nombre) const {
        return QDir(dir_->path()).filePath(QString::fromLatin1(nombre));
    }
    QString registro() const {
        QFile f(ruta("log/error_log"));
        return f.open(QIODevice::ReadOnly) ? QString::fromLocal8Bit(f.readAll().right(2000))
                                           : QString();
    }

private:
    void escribe(const char* nombre, const QString& texto) {
        QFile f(ruta(nombre));
        if (f.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
            f.write(texto.toUtf8());
        }
    }
    static int ejecuta(const QString& programa, const QStringList& args) {
        QProcess p;
        p.start(programa, args);
        if (!p.waitForFinished(15000)) {
            p.kill();
            p.waitForFinished(5000);
            return -1;
        }
        return p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    }

    std::unique_ptr<QTemporaryDir> dir_;
    QProcess cupsd_;
    QString socket_;
    QByteArray anterior_;
};

TEST(SpoolCups, AQueueOfAPrivateSchedulerGetsTheSameBytes) {
    CupsPrivado cups;
    if (const QString porque = cups.Arranca(); !porque.isEmpty()) {
        GTEST_SKIP() << porque.toStdString();
    }
    const QString salida = cups.ruta("salida.prn");
    ASSERT_TRUE(cups.Cola(QStringLiteral("vkprueba"), salida)) << cups.registro().toStdString();

    suite::SpoolIncorporado spool;
    // The scheduler has a queue but no default one: no queue named is no
    // device, instead of lp's own failure when the job is sent.
    if (qEnvironmentVariableIsEmpty("LPDEST") && qEnvironmentVariableIsEmpty("PRINTER")) {
        spool.Impresora.clear();
        EXPECT_FALSE(spool.OpenDevice());
    }
    spool.Impresora = QStringLiteral("no-existe");
    EXPECT_FALSE(spool.OpenDevice());
    spool.Impresora = QStringLiteral("vkprueba");
    ASSERT_TRUE(spool.OpenDevice());
    Envia(spool);
    spool.CloseDevice(); // lp -d vkprueba -o raw

    // The job goes through the scheduler on its own time.
    QByteArray recibido;
    QElapsedTimer reloj;
    reloj.start();
    while (reloj.elapsed() < 30000) {
        QFile f(salida);
        if (f.open(QIODevice::ReadOnly)) {
            recibido = f.readAll();
            if (recibido.size() >= kEsperado.size()) {
                break;
            }
        }
        QThread::msleep(200);
    }
    EXPECT_EQ(recibido, kEsperado) << cups.registro().toStdString();
}

} // namespace
} // namespace vk::prueba
