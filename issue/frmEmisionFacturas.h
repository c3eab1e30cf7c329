// The dialog that picks the invoice design and the paper options of an issue
// run. The options it writes live in the session's parameter record only: they
// last until the parameters are read again, never reaching the table.
#pragma once

#include <Interaccion.h>
#include <QString>
#include <QStringList>
#include <array>

namespace vk {

class VKFACVENTAS;

// The design picked in the dialog; -1 when it was closed without one.
extern qint16 nDisenoEmision;

// The twenty invoice designs, by number.
const QStringList& DisenosFactura();

class frmEmisionFacturas : public DialogoModelo {
public:
    explicit frmEmisionFacturas(VKFACVENTAS& factura); // Form_Load
    QString Nombre() const override { return QStringLiteral("frmEmisionFacturas"); }

    const QString Caption = QStringLiteral("Emisión de facturas - Diseño de Factura");
    QStringList cmbDiseno;
    int cmbDisenoIndex = 0;
    // The ten paper options: caption and tick.
    struct Opcion {
        QString caption;
        bool marcada = false;
    };
    std::array<Opcion, 10> lstOpcionesPapel;
    QString cmdVerCaption;
    int Height = 1605; // twips: the short form hides the options

    void cmdVer();
    void cmdEmitir();
    void cmdSalir();

private:
    void cargaOpciones();
    VKFACVENTAS& factura_;
};

} // namespace vk
