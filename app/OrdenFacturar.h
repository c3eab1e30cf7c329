// `vkfactuven facturar`: the all-customers run of the batch invoicing screen,
// its confirmations answered yes, its messages on the terminal.
#pragma once

#include <QString>
#include <QStringList>
#include <QTextStream>
#include <vector>

namespace vk {
class VKFACVENTAS;
}

namespace vk::app {

struct OpcionesFacturar {
    QString fecha; // empty: the screen refuses with its own message
    QString serie; // empty: the user's default series
    QString desde, hasta;
    QString cliente; // customer code
    QString serieAlbaran;
    bool incluirCero = false;
    bool noAgruparAgentes = false;
    QString salida = QStringLiteral("ninguna");
    QString copias;
};

struct ResultadoFacturar {
    bool rechazado = false;
    std::vector<qint32> facturas;
};

// Runs the screen's all-customers run on the facade's company and prints one
// row per invoice made and a closing line.
ResultadoFacturar Factura(VKFACVENTAS& factura, const OpcionesFacturar& o, QTextStream& out);

int OrdenFacturar(const QStringList& args, QTextStream& out);

} // namespace vk::app
