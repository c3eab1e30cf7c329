#include "InteraccionQt.h"

#include "DialogoBusca.h"
#include "MensajesUi.h"
#include "RegistroVistas.h"

#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>

namespace vk::ui {

namespace {

QMessageBox::Icon iconoDe(Icono icono) {
    switch (icono) {
    case Icono::Informacion:
        return QMessageBox::Information;
    case Icono::Aviso:
        return QMessageBox::Warning;
    case Icono::Error:
        return QMessageBox::Critical;
    case Icono::Pregunta:
        return QMessageBox::Question;
    case Icono::Ninguno:
        break;
    }
    return QMessageBox::NoIcon;
}

QString tituloO(const QString& titulo) {
    return titulo.isEmpty() ? mensajes::kTituloFacturacion : titulo;
}

} // namespace

QWidget* InteraccionQt::padre() const {
    if (QWidget* activa = QApplication::activeModalWidget()) {
        return activa;
    }
    return padre_ ? padre_ : QApplication::activeWindow();
}

void InteraccionQt::Mensaje(const QString& texto, Icono icono, const QString& titulo) {
    QMessageBox caja(iconoDe(icono), tituloO(titulo), texto, QMessageBox::NoButton, padre());
    caja.addButton(QStringLiteral("Aceptar"), QMessageBox::AcceptRole);
    caja.exec();
}

bool InteraccionQt::Pregunta(const QString& texto, const QString& titulo, bool siPorDefecto) {
    QMessageBox caja(QMessageBox::Question, tituloO(titulo), texto, QMessageBox::NoButton, padre());
    QPushButton* si = caja.addButton(QStringLiteral("&Sí"), QMessageBox::YesRole);
    QPushButton* no = caja.addButton(QStringLiteral("&No"), QMessageBox::NoRole);
    caja.setDefaultButton(siPorDefecto ? si : no);
    caja.setEscapeButton(no);
    caja.exec();
    return caja.clickedButton() == si;
}

std::optional<QString> InteraccionQt::PideTexto(const QString& texto, const QString& titulo,
                                                const QString& defecto) {
    QInputDialog d(padre());
    d.setWindowTitle(tituloO(titulo));
    d.setLabelText(texto);
    d.setTextValue(defecto);
    d.setOkButtonText(QStringLiteral("Aceptar"));
    d.setCancelButtonText(QStringLiteral("Cancelar"));
    if (d.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    return d.textValue();
}

std::optional<int> InteraccionQt::Busca(const PeticionBusca& peticion) {
    DialogoBusca d(peticion, padre());
    if (d.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    return d.Elegida();
}

bool InteraccionQt::MuestraDialogo(DialogoModelo& dialogo) {
    return MuestraVistaDe(dialogo, padre());
}

bool MuestraVistaDe(DialogoModelo& dialogo, QWidget* padre) {
    if (const VistaDialogo* vista = BuscaVistaDialogo(dialogo)) {
        return (*vista)(dialogo, padre);
    }
    Ui().Mensaje(TextoNoDisponible(dialogo.Nombre()), Icono::Informacion, {});
    return false;
}

std::optional<QString> InteraccionQt::EligeImpresora(const QString& actual) {
    const QStringList colas = QPrinterInfo::availablePrinterNames();
    if (colas.isEmpty()) {
        // No CUPS queue: a file path or a queue name typed by hand.
        return PideTexto(QStringLiteral("Impresora (cola de CUPS o ruta de un fichero PDF):"),
                         QStringLiteral("Cambiar Impresora"), actual);
    }
    QPrinter impresora;
    if (colas.contains(actual)) {
        impresora.setPrinterName(actual);
    }
    QPrintDialog d(&impresora, padre());
    d.setWindowTitle(QStringLiteral("Cambiar Impresora"));
    if (d.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    return impresora.outputFormat() == QPrinter::PdfFormat ? impresora.outputFileName()
                                                           : impresora.printerName();
}

void InteraccionQt::PunteroEspera(bool activo) {
    if (activo) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        ++esperas_;
    } else {
        while (esperas_ > 0) {
            QApplication::restoreOverrideCursor();
            --esperas_;
        }
    }
}

void InteraccionQt::Cede() {
    QCoreApplication::processEvents();
}

void InteraccionQt::Progreso(int hechos, int total, const QString& texto) {
    if (avance_) {
        avance_(hechos, total, texto);
    }
}

} // namespace vk::ui
