// The dialog that picks the invoice design and the paper options of an issue
// run. Its choices belong to the run that opened it: they never reach the
// session's parameters nor the table.
#pragma once

#include "ParametrosEmision.h"

#include <Interaccion.h>
#include <QString>
#include <QStringList>
#include <array>

namespace vk {

class VKFACVENTAS;

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

    // The design picked; -1 while none was, or when it was closed without one.
    qint16 nDisenoEmision = -1;
    // The design and the paper options as the run takes them, by parameter.
    ParametrosEmision Eleccion;

    void cmdVer();
    void cmdEmitir();
    void cmdSalir();

private:
    void cargaOpciones();
    VKFACVENTAS& factura_;
};

} // namespace vk
