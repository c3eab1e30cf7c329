#include "InteraccionConsola.h"

#include "MensajesApp.h"

#include <EmisionInforme.h>
#include <ErrorBd.h>
#include <Ficheros.h>
#include <MensajesEmision.h>
#include <QDir>
#include <QTemporaryFile>
#include <frmIniFav.h>
#include <frmVisor.h>

namespace vk::app {

InteraccionConsola::InteraccionConsola(QTextStream& out, QTextStream& err) : out_(out), err_(err) {
    // Questions and progress are echoed to standard output by the script.
    EstableceEco(&out_);
    ResponderSiSiempre(true);
}

void InteraccionConsola::Mensaje(const QString& texto, Icono icono, const QString& titulo) {
    vistos.push_back({MensajeVisto::Tipo::Mensaje, texto, titulo, icono});
    QTextStream& destino = icono == Icono::Error || icono == Icono::Aviso ? err_ : out_;
    destino << texto << Qt::endl;
}

bool InteraccionConsola::MuestraDialogo(DialogoModelo& dialogo) {
    if (auto* visor = dynamic_cast<frmVisor*>(&dialogo)) {
        vistos.push_back(
            {MensajeVisto::Tipo::Dialogo, dialogo.Nombre(), dialogo.Nombre(), Icono::Ninguno});
        return muestraVisor(*visor);
    }
    // Answers queued by the command come first.
    if (!dialogos.empty()) {
        return InteraccionGuion::MuestraDialogo(dialogo);
    }
    if (auto* ini = dynamic_cast<frmIniFav*>(&dialogo)) {
        vistos.push_back(
            {MensajeVisto::Tipo::Dialogo, dialogo.Nombre(), dialogo.Nombre(), Icono::Ninguno});
        ini->Text1 = primerNumero > 0 ? QString::number(primerNumero) : QString();
        return ini->cmdInforme();
    }
    return InteraccionGuion::MuestraDialogo(dialogo);
}

bool InteraccionConsola::muestraVisor(frmVisor& visor) {
    // A file of its own each time: the viewer reads it after this program
    // has moved on, perhaps while another run writes its own.
    QTemporaryFile fichero(
        QDir(fnCarpetaFdoc(idUsuario)).filePath(QStringLiteral("vista-XXXXXX.pdf")));
    fichero.setAutoRemove(false);
    if (!fichero.open()) {
        throw ErrorDispositivo(mensajes::kVistaNoCreada.arg(fnCarpetaFdoc(idUsuario)));
    }
    const QString ruta = fichero.fileName();
    fichero.close();
    EscribePdf(*visor.reporte, ruta);
    try {
        return fnAbreFichero(ruta);
    } catch (const Error& e) {
        throw ErrorDispositivo(mensajes::kVisorNoDisponible.arg(ruta), e.Mensaje());
    }
}

} // namespace vk::app
