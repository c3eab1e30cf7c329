#include "OrdenEmitir.h"

#include "Argumentos.h"

#include <BdSesion.h>
#include <EmisionInforme.h>
#include <ErrorBd.h>
#include <Ficheros.h>
#include <InteraccionGuion.h>
#include <MensajesEmision.h>
#include <MensajesSpool.h>
#include <QDir>
#include <QTemporaryDir>
#include <RegistroSuite.h>
#include <VKFACVENTAS.h>
#include <frmVisor.h>

namespace vk::app {

namespace {

qint32 numero(const Argumentos& a, const QString& opcion, qint32 defecto) {
    const std::optional<QString> v = a.valor(opcion);
    if (!v) {
        return defecto;
    }
    bool ok = false;
    const qint32 n = v->toInt(&ok);
    if (!ok || n < 0) {
        throw ErrorUso(QStringLiteral("%1 debe ser un número: «%2».").arg(opcion, *v));
    }
    return n;
}

// The command line has no viewer of its own: the screen route shows the
// invoices in the desktop's PDF viewer.
class InteraccionEmitir : public InteraccionGuion {
public:
    bool MuestraDialogo(DialogoModelo& d) override {
        if (auto* visor = dynamic_cast<frmVisor*>(&d)) {
            const QString fichero = QDir(fnCarpetaFdoc(0)).filePath(QStringLiteral("vista.pdf"));
            EscribePdf(*visor->reporte, fichero);
            return fnAbreFichero(fichero);
        }
        return InteraccionGuion::MuestraDialogo(d);
    }
    bool HuboError() const {
        for (const MensajeVisto& m : vistos) {
            // The text layouts tell of an unreachable printer under no title.
            if (m.titulo == mensajes::kAccionCancelada ||
                m.texto == mensajes::kErrorAccesoDispositivo) {
                return true;
            }
        }
        return false;
    }
};

} // namespace

int OrdenEmitir(const QStringList& argumentos, QTextStream& out) {
    // "--impresora COLA": the queue is optional, so it becomes "--cola COLA".
    QStringList args = argumentos;
    const qsizetype i = args.indexOf(QStringLiteral("--impresora"));
    if (i >= 0 && i + 1 < args.size() && !args[i + 1].startsWith(QLatin1String("--"))) {
        args.insert(i + 1, QStringLiteral("--cola"));
    }
    const Argumentos a(args,
                       {QStringLiteral("--db"), QStringLiteral("--serie"),
                        QStringLiteral("--desde"), QStringLiteral("--hasta"),
                        QStringLiteral("--pdf"), QStringLiteral("--diseno"),
                        QStringLiteral("--cola")},
                       {QStringLiteral("--impresora"), QStringLiteral("--pantalla"),
                        QStringLiteral("--copia"), QStringLiteral("--albaranes")});
    const QString serie = a.valor(QStringLiteral("--serie")).value_or(QString());
    if (serie.isEmpty() || !a.valor(QStringLiteral("--desde"))) {
        throw ErrorUso(QStringLiteral("Indique la serie y el primer número: --serie S --desde N."));
    }
    const qint32 desde = numero(a, QStringLiteral("--desde"), 0);
    const qint32 hasta = numero(a, QStringLiteral("--hasta"), desde);
    const std::optional<QString> carpeta = a.valor(QStringLiteral("--pdf"));
    const bool impresora = a.bandera(QStringLiteral("--impresora"));
    const bool pantalla = a.bandera(QStringLiteral("--pantalla"));
    if (int(carpeta.has_value()) + int(impresora) + int(pantalla) != 1) {
        throw ErrorUso(QStringLiteral("Indique una salida: --pdf CARPETA, --impresora [COLA] o "
                                      "--pantalla."));
    }

    suite::RegistraComponentesSuite();
    auto bd = BdSesion::Abre(a.baseDatos());
    InteraccionEmitir ui;
    ui.EstableceEco(&out);
    ui.ResponderSiSiempre(true);
    const QString cola = a.valor(QStringLiteral("--cola")).value_or(QString());
    if (!cola.isEmpty()) {
        ui.impresoras = {cola};
    }
    const UsaInteraccion puerto(ui);
    VKFACVENTAS f;
    f.setMyBd(*bd);
    f.Copia = a.bandera(QStringLiteral("--copia"));
    f.ImprimeAlbaran = a.bandera(QStringLiteral("--albaranes"));
    f.NumCopias = 1;
    f.Tipo_Emision = carpeta ? 2 : (impresora ? 1 : 0);

    Recordset rs = bd->cn().Execute(
        QStringLiteral("SELECT Fav_Id, Fav_Numero FROM Fav WHERE Fav_Serie = ? AND Fav_Numero "
                       "BETWEEN ? AND ? ORDER BY Fav_Numero"),
        {serie, desde, hasta});
    if (rs.Eof()) {
        throw ErrorBd(QStringLiteral("No hay facturas de la serie %1 entre los números %2 y %3.")
                          .arg(serie)
                          .arg(desde)
                          .arg(hasta));
    }
    // A design given chooses the report itself, as a caller of origin 1 does.
    const std::optional<QString> diseno = a.valor(QStringLiteral("--diseno"));
    const qint16 nOrigen = diseno ? 1 : 0;
    const qint16 nDiseno = static_cast<qint16>(numero(a, QStringLiteral("--diseno"), 0));

    if (carpeta) {
        if (!QDir().mkpath(*carpeta)) {
            throw ErrorBd(QStringLiteral("No se puede crear la carpeta %1.").arg(*carpeta));
        }
        f.RutaFicheroPdf = QDir(*carpeta).absolutePath();
        // One run per invoice, so that each gets its own file.
        int escritos = 0;
        for (; !rs.Eof(); rs.MoveNext()) {
            f.PdfOutFile.clear();
            f.EmisionMultiplesFacturas(nDiseno, true, {static_cast<qint32>(rs.Fields(0).Entero())},
                                       false, nOrigen);
            if (ui.HuboError()) {
                return 1;
            }
            if (!f.PdfOutFile.isEmpty() && fnExisteFichero(f.PdfOutFile)) {
                out << f.PdfOutFile << Qt::endl;
                ++escritos;
            }
        }
        out << QStringLiteral("Ficheros PDF escritos: %1.").arg(escritos) << Qt::endl;
        return 0;
    }
    QVector<qint32> ids;
    for (; !rs.Eof(); rs.MoveNext()) {
        ids << static_cast<qint32>(rs.Fields(0).Entero());
    }
    f.EmisionMultiplesFacturas(nDiseno, true, ids, false, nOrigen);
    if (ui.HuboError()) {
        return 1;
    }
    out << (impresora ? QStringLiteral("Trabajo de %1 facturas enviado a la impresora %2.")
                            .arg(ids.size())
                            .arg(cola.isEmpty() ? QStringLiteral("por defecto") : cola)
                      : QStringLiteral("%1 facturas mostradas.").arg(ids.size()))
        << Qt::endl;
    return 0;
}

} // namespace vk::app
