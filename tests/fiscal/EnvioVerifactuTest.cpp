// The sending of the invoicing records to a real HTTPS service started here
// (tests/fiscal/servicio_aeat.py: self-signed certificates, a client
// certificate required, every submission checked with xmllint against the
// agency's schema), and the export of the submissions; on both backends.
#include "BasePrueba.h"

#include <CadenaFiscal.h>
#include <EnvioFiscal.h>
#include <Error.h>
#include <FormatoFiscal.h>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace vk::prueba {
namespace {

using namespace fiscal;

const QString kNif = QStringLiteral("B12345674");

// The service, one for the whole program, started before the first test
// and stopped after the last: what it answers is the file "modo" of its
// folder, rewritten by each test.
class Servicio {
public:
    static Servicio& uno() { return *instancia(); }
    static std::unique_ptr<Servicio>& instancia() {
        static std::unique_ptr<Servicio> s;
        return s;
    }
    Servicio() {
        modo(QStringLiteral("correcto"));
        proceso_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        proceso_.start(QStringLiteral("python3"),
                       {QStringLiteral(VK_SERVICIO_AEAT), QStringLiteral("--carpeta"), dir_.path(),
                        QStringLiteral("--esquemas"), QStringLiteral(VK_ESQUEMAS)});
        QByteArray linea;
        while (!linea.contains('\n') && proceso_.waitForReadyRead(60000)) {
            linea += proceso_.readAllStandardOutput();
        }
        if (linea.startsWith("PUERTO ")) {
            puerto_ = linea.mid(7).trimmed().toInt();
        }
    }
    ~Servicio() {
        proceso_.kill();
        proceso_.waitForFinished();
    }
    bool listo() const { return puerto_ > 0; }
    QString url() const { return QStringLiteral("https://127.0.0.1:%1/").arg(puerto_); }
    QString fichero(const QString& nombre) const { return dir_.filePath(nombre); }
    void modo(const QString& m) {
        QFile f(fichero(QStringLiteral("modo")));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(m.toUtf8());
    }
    // The submissions received since the last call, in order.
    QStringList recibidos() {
        QStringList r;
        const QDir d(dir_.path());
        for (const QString& n :
             d.entryList({QStringLiteral("recibido-*.xml")}, QDir::Files, QDir::Name)) {
            QFile f(d.filePath(n));
            EXPECT_TRUE(f.open(QIODevice::ReadOnly));
            r << QString::fromUtf8(f.readAll());
            f.close();
            QFile::remove(d.filePath(n));
        }
        return r;
    }
    AjustesEnvio ajustes() const {
        AjustesEnvio a;
        a.url = url();
        a.certificado = fichero(QStringLiteral("cliente.pem"));
        a.clavePrivada = fichero(QStringLiteral("cliente.key"));
        a.ca = fichero(QStringLiteral("servidor.pem"));
        a.tiempoMaximo = 20;
        // The service asks for 60 s between sends, as the agency does.
        a.esperaMaxima = 0;
        return a;
    }

private:
    QTemporaryDir dir_;
    QProcess proceso_;
    int puerto_ = 0;
};

class EntornoServicio : public ::testing::Environment {
public:
    void SetUp() override { Servicio::instancia() = std::make_unique<Servicio>(); }
    void TearDown() override { Servicio::instancia().reset(); }
};
[[maybe_unused]] ::testing::Environment* const kEntorno =
    ::testing::AddGlobalTestEnvironment(new EntornoServicio);

struct Salida {
    int codigo;
    QString salida, error;
};

Salida ejecuta(const QStringList& args, const QProcessEnvironment& entorno) {
    QProcess p;
    p.setProcessEnvironment(entorno);
    p.start(QStringLiteral(VK_PROGRAMA), args);
    p.waitForFinished(120000);
    return {p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1,
            QString::fromUtf8(p.readAllStandardOutput()),
            QString::fromUtf8(p.readAllStandardError())};
}

// A throwaway folder of settings with the service's certificates, as an
// installation keeps them.
QProcessEnvironment entornoConAjustes(const QTemporaryDir& config, const QString& extra = {}) {
    Servicio& s = Servicio::uno();
    QDir(config.path()).mkpath(QStringLiteral("vkfactuven"));
    QFile f(config.filePath(QStringLiteral("vkfactuven/vkfactuven.ini")));
    EXPECT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(QStringLiteral("[verifactu]\ncertificado=%1\nclave_privada=%2\nca=%3\n"
                           "espera_maxima=0\n%4")
                .arg(s.fichero(QStringLiteral("cliente.pem")),
                     s.fichero(QStringLiteral("cliente.key")),
                     s.fichero(QStringLiteral("servidor.pem")), extra)
                .toUtf8());
    f.close();
    QProcessEnvironment e = QProcessEnvironment::systemEnvironment();
    e.insert(QStringLiteral("XDG_CONFIG_HOME"), config.path());
    return e;
}

class EnvioVerifactu : public PruebaMotores {
protected:
    void SetUp() override {
        ASSERT_TRUE(Servicio::uno().listo()) << "el servicio de pruebas no arrancó";
        Servicio::uno().modo(QStringLiteral("correcto"));
        Servicio::uno().recibidos();
        base = std::make_unique<BasePrueba>(GetParam());
        bd = base->CreaEmpresa();
        bd->cn().Execute(QStringLiteral("UPDATE Parametros SET Par_Nombre = ?"),
                         {QStringLiteral("Ventas & Servicios, S.L.")});
        bd->RecargaParametros();
    }
    void TearDown() override {
        bd.reset();
        base.reset();
    }

    FacturaFiscal factura(qint32 n, const QString& nifCliente = QStringLiteral("12345678Z")) {
        FacturaFiscal f;
        f.idFactura = n;
        f.numSerie = QStringLiteral("A/%1").arg(n);
        f.fecha = QDate::currentDate();
        f.tipoFactura = QStringLiteral("F1");
        f.descripcion = QStringLiteral("Venta");
        f.destinatario = DestinatarioFiscal{QStringLiteral("Cliente"), nifCliente, {}, {}, {}};
        f.desglose.push_back({21, 100, 21, 0, 0});
        f.cuotaTotal = 21;
        f.importeTotal = 121;
        return f;
    }
    qint32 alta(qint32 n) {
        Transaccion t(bd->cn());
        const qint32 id = msRegistraAlta(*bd, factura(n));
        t.Confirma();
        return id;
    }
    // A record as one made ten minutes ago, of invoice `n`, chained after
    // the last one: the alta of invoice 1 with another number and timestamp.
    qint32 altaAntigua(qint32 n) {
        RegistroGuardado r = *fnRegistroVigente(*bd, 1);
        const RegistroGuardado ultimo = *fnUltimoRegistro(*bd);
        const QString numSerie = QStringLiteral("A/%1").arg(n);
        const QString fechaHora =
            fnFechaHoraFiscal(fnLeeFechaHoraFiscal(r.fechaHora).addSecs(-600));
        QString x = r.xml;
        x.replace(QStringLiteral(">%1<").arg(r.numSerie), QStringLiteral(">%1<").arg(numSerie));
        x.replace(r.fechaHora, fechaHora);
        const QString huellaVieja = r.huella;
        r.numSerie = numSerie;
        r.fechaHora = fechaHora;
        // Chained after the last one, so that the chain takes the next alta.
        r.idAnterior = ultimo.id;
        r.huellaAnterior = ultimo.huella;
        r.huella = r.HuellaCalculada();
        x.replace(huellaVieja, r.huella);
        const qint32 nuevo = static_cast<qint32>(
            bd->cn()
                .Execute(QStringLiteral(
                             "INSERT INTO VfRegistro (Vfr_Tipo, Vfr_IdFactura, Vfr_IdAnterior, "
                             "Vfr_Nif, Vfr_NumSerie, Vfr_Fecha, Vfr_TipoFactura, Vfr_CuotaTotal, "
                             "Vfr_ImporteTotal, Vfr_HuellaAnterior, Vfr_FechaHora, Vfr_Huella, "
                             "Vfr_Subsanacion, Vfr_RechazoPrevio, Vfr_Xml) VALUES (?, ?, ?, ?, ?, "
                             "?, ?, ?, ?, ?, ?, ?, ?, ?, ?) RETURNING Vfr_Id"),
                         {r.tipo, n, r.idAnterior, r.nif, r.numSerie, r.fecha, r.tipoFactura,
                          r.cuotaTotal, r.importeTotal, r.huellaAnterior, r.fechaHora, r.huella,
                          r.subsanacion, r.rechazoPrevio, x})
                .Fields(0)
                .Entero());
        bd->cn().Execute(QStringLiteral("INSERT INTO VfEnvio (Vfe_IdRegistro, Vfe_Estado, "
                                        "Vfe_Intentos) VALUES (?, 0, 0)"),
                         {nuevo});
        return nuevo;
    }
    // State, code, description, CSV and attempts of a record's row in the queue.
    struct Envio {
        int estado = -1, codigo = 0, intentos = 0;
        QString descripcion, csv, fecha;
    };
    Envio envio(qint32 id) {
        const Recordset rs = bd->cn().Execute(
            QStringLiteral("SELECT Vfe_Estado, Vfe_Codigo, Vfe_Descripcion, Vfe_Csv, "
                           "Vfe_Intentos, Vfe_FechaEnvio FROM VfEnvio WHERE Vfe_IdRegistro = ?"),
            {id});
        if (rs.Eof()) {
            return {};
        }
        return {static_cast<int>(rs.Fields(0).Entero()),
                static_cast<int>(rs.Fields(1).Entero()),
                static_cast<int>(rs.Fields(4).Entero()),
                rs.Fields(2).Texto(),
                rs.Fields(3).Texto(),
                rs.Fields(5).Texto()};
    }
    QString xml(qint32 id) {
        return bd->cn()
            .Execute(QStringLiteral("SELECT Vfr_Xml FROM VfRegistro WHERE Vfr_Id = ?"), {id})
            .Fields(0)
            .Texto();
    }
    static int cuenta(const QString& texto, const QString& que) {
        return static_cast<int>(texto.count(que));
    }

    std::unique_ptr<BasePrueba> base;
    std::unique_ptr<BdSesion> bd;
};

TEST_P(EnvioVerifactu, TodoCorrectoDejaCadaRegistroAceptadoConElCsv) {
    const std::vector<qint32> ids{alta(1), alta(2), alta(3)};
    const ResumenEnvio r = msEnviaPendientes(*bd, Servicio::uno().ajustes());
    ASSERT_FALSE(r.Fallo()) << r.error.toStdString();
    EXPECT_EQ(r.remisiones, 1);
    EXPECT_EQ(r.enviados, 3);
    EXPECT_EQ(r.correctos, 3);
    ASSERT_EQ(r.csv.size(), 1);
    const QStringList recibidos = Servicio::uno().recibidos();
    ASSERT_EQ(recibidos.size(), 1);
    // The stored elements travel byte for byte, and the header names the issuer.
    for (const qint32 id : ids) {
        EXPECT_TRUE(recibidos[0].contains(xml(id))) << id;
        const Envio e = envio(id);
        EXPECT_EQ(e.estado, 1);
        EXPECT_EQ(e.csv, r.csv[0]);
        EXPECT_EQ(e.intentos, 1);
        EXPECT_FALSE(e.fecha.isEmpty());
    }
    EXPECT_TRUE(recibidos[0].contains(QStringLiteral("<sf:NIF>%1</sf:NIF>").arg(kNif)));
    EXPECT_TRUE(recibidos[0].contains(QStringLiteral("Ventas &amp; Servicios, S.L.")));
    EXPECT_FALSE(recibidos[0].contains(QStringLiteral("Incidencia")));
    // Nothing is left to send.
    EXPECT_EQ(msEnviaPendientes(*bd, Servicio::uno().ajustes()).enviados, 0);
    EXPECT_TRUE(Servicio::uno().recibidos().isEmpty());
}

TEST_P(EnvioVerifactu, UnRechazoNoImpideQueSeAceptenLosDemas) {
    const qint32 a = alta(1), b = alta(2), c = alta(3);
    Servicio::uno().modo(QStringLiteral("parcial A/2"));
    const ResumenEnvio r = msEnviaPendientes(*bd, Servicio::uno().ajustes());
    ASSERT_FALSE(r.Fallo()) << r.error.toStdString();
    EXPECT_EQ(r.correctos, 2);
    EXPECT_EQ(r.rechazados, 1);
    ASSERT_EQ(r.incidencias.size(), 1U);
    EXPECT_EQ(r.incidencias[0].idRegistro, b);
    EXPECT_EQ(envio(a).estado, 1);
    EXPECT_EQ(envio(c).estado, 1);
    EXPECT_FALSE(envio(a).csv.isEmpty());
    const Envio e = envio(b);
    EXPECT_EQ(e.estado, 3);
    EXPECT_EQ(e.codigo, 1100);
    EXPECT_EQ(e.descripcion,
              QStringLiteral("Valor o tipo incorrecto del campo: NIF del destinatario"));
    // A rejected record is not sent again: it is corrected by a new one.
    EXPECT_EQ(msEnviaPendientes(*bd, Servicio::uno().ajustes()).enviados, 0);
}

TEST_P(EnvioVerifactu, UnFalloSoapDejaTodoPendienteYDiceElMotivo) {
    const qint32 a = alta(1), b = alta(2);
    Servicio::uno().modo(QStringLiteral("fallo"));
    const ResumenEnvio r = msEnviaPendientes(*bd, Servicio::uno().ajustes());
    ASSERT_TRUE(r.Fallo());
    EXPECT_TRUE(r.error.contains(QStringLiteral("4104"))) << r.error.toStdString();
    EXPECT_EQ(r.enviados, 0);
    for (const qint32 id : {a, b}) {
        const Envio e = envio(id);
        EXPECT_EQ(e.estado, 0);
        EXPECT_EQ(e.intentos, 1);
        EXPECT_TRUE(e.descripcion.contains(QStringLiteral("4104")));
    }
    // Sent again once the service answers.
    Servicio::uno().modo(QStringLiteral("correcto"));
    EXPECT_EQ(msEnviaPendientes(*bd, Servicio::uno().ajustes()).correctos, 2);
    EXPECT_EQ(envio(a).intentos, 2);
}

TEST_P(EnvioVerifactu, SinRespuestaATiempoTodoQuedaPendiente) {
    const qint32 a = alta(1);
    Servicio::uno().modo(QStringLiteral("lento"));
    AjustesEnvio ajustes = Servicio::uno().ajustes();
    ajustes.tiempoMaximo = 2;
    const ResumenEnvio r = msEnviaPendientes(*bd, ajustes);
    ASSERT_TRUE(r.Fallo());
    EXPECT_TRUE(r.error.contains(QStringLiteral("no respondió"))) << r.error.toStdString();
    EXPECT_EQ(envio(a).estado, 0);
    EXPECT_EQ(envio(a).intentos, 1);
}

TEST_P(EnvioVerifactu, UnServidorQueNoEsElDeConfianzaNoRecibeNada) {
    const qint32 a = alta(1);
    AjustesEnvio ajustes = Servicio::uno().ajustes();
    // Its own certificate as the CA: the server's is not trusted.
    ajustes.ca = ajustes.certificado;
    const ResumenEnvio r = msEnviaPendientes(*bd, ajustes);
    ASSERT_TRUE(r.Fallo());
    EXPECT_TRUE(r.error.contains(QStringLiteral("no se pudo conectar"))) << r.error.toStdString();
    EXPECT_EQ(envio(a).estado, 0);
    EXPECT_TRUE(Servicio::uno().recibidos().isEmpty());
}

TEST_P(EnvioVerifactu, LosLotesNoPasanDelTamanoIndicado) {
    std::vector<qint32> ids;
    for (int i = 1; i <= 5; ++i) {
        ids.push_back(alta(i));
    }
    OpcionesEnvio o;
    o.tamLote = 2;
    const ResumenEnvio r = msEnviaPendientes(*bd, Servicio::uno().ajustes(), o);
    ASSERT_FALSE(r.Fallo()) << r.error.toStdString();
    EXPECT_EQ(r.remisiones, 3);
    EXPECT_EQ(r.correctos, 5);
    const QStringList recibidos = Servicio::uno().recibidos();
    ASSERT_EQ(recibidos.size(), 3);
    EXPECT_EQ(cuenta(recibidos[0], QStringLiteral("<sfLR:RegistroFactura>")), 2);
    EXPECT_EQ(cuenta(recibidos[1], QStringLiteral("<sfLR:RegistroFactura>")), 2);
    EXPECT_EQ(cuenta(recibidos[2], QStringLiteral("<sfLR:RegistroFactura>")), 1);
    // In the chain's order.
    EXPECT_TRUE(recibidos[2].contains(xml(ids[4])));
}

TEST_P(EnvioVerifactu, LosRegistrosTardiosVanAparteConIncidencia) {
    const qint32 a = alta(1);
    const qint32 b = alta(2);
    const qint32 viejo = altaAntigua(50);
    const ResumenEnvio r = msEnviaPendientes(*bd, Servicio::uno().ajustes());
    ASSERT_FALSE(r.Fallo()) << r.error.toStdString();
    EXPECT_EQ(r.remisiones, 2);
    const QStringList recibidos = Servicio::uno().recibidos();
    ASSERT_EQ(recibidos.size(), 2);
    EXPECT_TRUE(recibidos[0].contains(
        QStringLiteral("<sf:RemisionVoluntaria><sf:Incidencia>S</sf:Incidencia>")));
    EXPECT_TRUE(recibidos[0].contains(xml(viejo)));
    EXPECT_EQ(cuenta(recibidos[0], QStringLiteral("<sfLR:RegistroFactura>")), 1);
    EXPECT_FALSE(recibidos[1].contains(QStringLiteral("Incidencia")));
    EXPECT_TRUE(recibidos[1].contains(xml(a)) && recibidos[1].contains(xml(b)));
    EXPECT_EQ(envio(viejo).estado, 1);
    // Measured at a later moment, every record is late.
    OpcionesEnvio o;
    o.ahora = QDateTime::currentDateTime().addSecs(kSegundosIncidencia + 60);
    alta(3);
    EXPECT_EQ(msEnviaPendientes(*bd, Servicio::uno().ajustes(), o).correctos, 1);
    EXPECT_TRUE(Servicio::uno().recibidos().value(0).contains(QStringLiteral("Incidencia>S<")));
}

TEST_P(EnvioVerifactu, ElAltaQueCorrigeUnRechazoLoDice) {
    const qint32 a = alta(1);
    const qint32 b = alta(2);
    Servicio::uno().modo(QStringLiteral("parcial A/2"));
    ASSERT_EQ(msEnviaPendientes(*bd, Servicio::uno().ajustes()).rechazados, 1);
    // Rejected as first alta: the invoice does not exist at the agency ("X").
    {
        Transaccion t(bd->cn());
        EXPECT_EQ(msActualizaRegistro(*bd, factura(2, QStringLiteral("87654321X"))),
                  CambioRegistro::Subsanacion);
        t.Confirma();
    }
    const auto b2 = fnRegistroVigente(*bd, 2);
    ASSERT_TRUE(b2 && b2->id != b);
    EXPECT_EQ(b2->subsanacion, QStringLiteral("S"));
    EXPECT_EQ(b2->rechazoPrevio, QStringLiteral("X"));
    EXPECT_TRUE(b2->xml.contains(QStringLiteral(
        "<sf:Subsanacion>S</sf:Subsanacion><sf:RechazoPrevio>X</sf:RechazoPrevio>")));
    // A correction of an accepted invoice that is rejected in turn: "S".
    {
        Transaccion t(bd->cn());
        msActualizaRegistro(*bd, factura(1, QStringLiteral("87654321X")));
        t.Confirma();
    }
    const auto a2 = fnRegistroVigente(*bd, 1);
    EXPECT_EQ(a2->rechazoPrevio, QString());
    Servicio::uno().modo(QStringLiteral("parcial A/1"));
    const ResumenEnvio r = msEnviaPendientes(*bd, Servicio::uno().ajustes());
    EXPECT_EQ(r.rechazados, 1);
    EXPECT_EQ(r.correctos, 1);
    EXPECT_EQ(envio(a).estado, 1);
    EXPECT_EQ(envio(a2->id).estado, 3);
    {
        Transaccion t(bd->cn());
        // Registered again as it stands, without a change of its own.
        msSubsanaRechazado(*bd, factura(1, QStringLiteral("87654321X")));
        t.Confirma();
    }
    const auto a3 = fnRegistroVigente(*bd, 1);
    EXPECT_EQ(a3->subsanacion, QStringLiteral("S"));
    EXPECT_EQ(a3->rechazoPrevio, QStringLiteral("S"));
    // Only a rejected alta is corrected so.
    {
        Transaccion t(bd->cn());
        EXPECT_THROW(msSubsanaRechazado(*bd, factura(2, QStringLiteral("87654321X"))), ErrorRegla);
    }
    Servicio::uno().modo(QStringLiteral("correcto"));
    EXPECT_EQ(msEnviaPendientes(*bd, Servicio::uno().ajustes()).correctos, 1);
    EXPECT_EQ(envio(a3->id).estado, 1);
}

TEST_P(EnvioVerifactu, ExportarEscribeEnviosQueXmllintValida) {
    alta(1);
    alta(2);
    alta(3);
    {
        Transaccion t(bd->cn());
        msAnulaRegistro(*bd, 2);
        t.Confirma();
    }
    QTemporaryDir salida;
    const QString db = base->cadenaCatalogo(QStringLiteral("vkemp0001"));
    const QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
    const QString carpeta = salida.filePath(QStringLiteral("envios"));
    Salida s = ejecuta({QStringLiteral("verifactu"), QStringLiteral("exportar"),
                        QStringLiteral("--salida"), carpeta, QStringLiteral("--lote"),
                        QStringLiteral("3"), QStringLiteral("--db"), db},
                       entorno);
    ASSERT_EQ(s.codigo, 0) << s.error.toStdString();
    EXPECT_TRUE(s.salida.contains(QStringLiteral("Exportados 4 registros en 2 ficheros")))
        << s.salida.toStdString();
    const QStringList ficheros = QDir(carpeta).entryList(QDir::Files, QDir::Name);
    ASSERT_EQ(ficheros, (QStringList{QStringLiteral("verifactu-0001.xml"),
                                     QStringLiteral("verifactu-0002.xml")}));
    for (const QString& f : ficheros) {
        QProcess x;
        x.start(QStringLiteral("xmllint"),
                {QStringLiteral("--noout"), QStringLiteral("--nonet"), QStringLiteral("--schema"),
                 QStringLiteral(VK_ESQUEMAS "/SuministroLR.xsd"), QDir(carpeta).filePath(f)});
        ASSERT_TRUE(x.waitForFinished(60000));
        EXPECT_EQ(x.exitCode(), 0) << QString::fromUtf8(x.readAllStandardError()).toStdString();
    }
    QFile segundo(QDir(carpeta).filePath(ficheros[1]));
    ASSERT_TRUE(segundo.open(QIODevice::ReadOnly));
    const QByteArray antes = segundo.readAll();
    EXPECT_TRUE(antes.contains("<sf:RegistroAnulacion"));
    // Again into the same folder: nothing is replaced, the reason is said.
    s = ejecuta({QStringLiteral("verifactu"), QStringLiteral("exportar"),
                 QStringLiteral("--salida"), carpeta, QStringLiteral("--db"), db},
                entorno);
    EXPECT_EQ(s.codigo, 1);
    EXPECT_TRUE(s.error.contains(QStringLiteral("no se sobrescribe"))) << s.error.toStdString();
    segundo.seek(0);
    EXPECT_EQ(segundo.readAll(), antes);
    // A mistake in the call: exit status 2, in Spanish.
    s = ejecuta(
        {QStringLiteral("verifactu"), QStringLiteral("exportar"), QStringLiteral("--db"), db},
        entorno);
    EXPECT_EQ(s.codigo, 2);
    EXPECT_TRUE(s.error.contains(QStringLiteral("Falta --salida"))) << s.error.toStdString();
}

TEST_P(EnvioVerifactu, EnviarDesdeLaOrdenConLosAjustesDeLaInstalacion) {
    const qint32 a = alta(1);
    const qint32 b = alta(2);
    const QString db = base->cadenaCatalogo(QStringLiteral("vkemp0001"));
    QTemporaryDir config;
    const QProcessEnvironment entorno =
        entornoConAjustes(config, QStringLiteral("servidor=%1\n").arg(Servicio::uno().url()));
    // Without an answer: exit status 1 and the reason.
    Servicio::uno().modo(QStringLiteral("fallo"));
    Salida s =
        ejecuta({QStringLiteral("verifactu"), QStringLiteral("enviar"), QStringLiteral("--db"), db},
                entorno);
    EXPECT_EQ(s.codigo, 1) << s.salida.toStdString();
    EXPECT_TRUE(s.error.contains(QStringLiteral("siguen pendientes"))) << s.error.toStdString();
    EXPECT_EQ(envio(a).estado, 0);
    Servicio::uno().modo(QStringLiteral("parcial A/2"));
    s = ejecuta({QStringLiteral("verifactu"), QStringLiteral("enviar"), QStringLiteral("--db"), db},
                entorno);
    ASSERT_EQ(s.codigo, 0) << s.error.toStdString();
    EXPECT_TRUE(s.salida.contains(QStringLiteral("Enviados 2 registros en 1 envíos")))
        << s.salida.toStdString();
    EXPECT_TRUE(s.salida.contains(QStringLiteral("Aceptados: 1")));
    EXPECT_TRUE(s.salida.contains(QStringLiteral("Rechazados: 1")));
    EXPECT_TRUE(s.salida.contains(QStringLiteral(
        "rechazado: código 1100, Valor o tipo incorrecto del campo: NIF del destinatario")))
        << s.salida.toStdString();
    EXPECT_EQ(envio(a).estado, 1);
    EXPECT_EQ(envio(b).estado, 3);
    // The state shows the reason; the correction of a record that was not
    // rejected is refused.
    s = ejecuta({QStringLiteral("verifactu"), QStringLiteral("estado"), QStringLiteral("--db"), db},
                entorno);
    EXPECT_TRUE(s.salida.contains(QStringLiteral("Rechazados: 1"))) << s.salida.toStdString();
    s = ejecuta({QStringLiteral("verifactu"), QStringLiteral("subsanar"),
                 QStringLiteral("--registro"), QString::number(a), QStringLiteral("--db"), db},
                entorno);
    EXPECT_EQ(s.codigo, 1);
    EXPECT_TRUE(s.error.contains(QStringLiteral("no es un alta rechazada")))
        << s.error.toStdString();
    // --servidor wins over the settings: nobody listens there.
    alta(3);
    s = ejecuta({QStringLiteral("verifactu"), QStringLiteral("enviar"),
                 QStringLiteral("--servidor"), QStringLiteral("https://127.0.0.1:1/"),
                 QStringLiteral("--db"), db},
                entorno);
    EXPECT_EQ(s.codigo, 1);
    EXPECT_TRUE(s.error.contains(QStringLiteral("no se pudo conectar"))) << s.error.toStdString();
}

VK_EN_AMBOS_MOTORES(EnvioVerifactu);

} // namespace
} // namespace vk::prueba
