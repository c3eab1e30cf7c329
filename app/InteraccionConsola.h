// The interaction port of the command-line commands. What a screen says goes
// to the terminal, warnings and errors to standard error; every question is
// answered yes, since running the command was the confirmation; a series
// without invoices starts at the number given or at the dialog's default; and
// the viewer is the desktop's PDF viewer, as the program has no window.
#pragma once

#include <InteraccionGuion.h>
#include <QTextStream>

namespace vk {
class frmVisor;
}

namespace vk::app {

class InteraccionConsola : public InteraccionGuion {
public:
    InteraccionConsola(QTextStream& out, QTextStream& err);

    void Mensaje(const QString& texto, Icono icono, const QString& titulo) override;
    bool MuestraDialogo(DialogoModelo& dialogo) override;

    // First number of a series that has no invoices; 0 keeps the dialog's
    // default.
    qint32 primerNumero = 0;
    // The user whose working folder holds the viewer's files.
    int idUsuario = 0;

private:
    bool muestraVisor(frmVisor& visor);

    QTextStream& out_;
    QTextStream& err_;
};

} // namespace vk::app
