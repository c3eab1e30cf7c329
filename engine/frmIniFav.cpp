#include "frmIniFav.h"

#include "MensajesMotor.h"

#include <VKFACVENTAS.h>

namespace vk {

frmIniFav::frmIniFav(VKFACVENTAS& factura) : factura_(factura) {
    lblSerie = QStringLiteral("Serie: ") + factura.SerieFactura;
    if (factura.NumeroFactura > 0) {
        Text1 = QString::number(factura.NumeroFactura);
    }
}

bool frmIniFav::cmdInforme() {
    const QString t = Text1.trimmed();
    if (t.isEmpty()) {
        factura_.NumeroFactura = 1;
        return true;
    }
    bool ok = false;
    const qint32 n = t.toInt(&ok);
    if (!ok || n < 1) {
        Ui().Mensaje(mensajes::kNumeroInicialNoValido, Icono::Aviso, Caption);
        return false;
    }
    factura_.NumeroFactura = n;
    return true;
}

} // namespace vk
