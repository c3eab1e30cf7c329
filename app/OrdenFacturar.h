// `vkfactuven facturar`: the all-customers run of the batch invoicing screen,
// its confirmations answered yes, its messages on the terminal.
#pragma once

#include <QDate>
#include <QString>
#include <QStringList>
#include <QTextStream>
#include <optional>
#include <vector>

namespace vk {
class VKFACVENTAS;
}

namespace vk::app {

// The screen's filters and output, checked already.
struct OpcionesFacturar {
    QDate fecha;
    QString serie; // empty: the user's default series
    std::optional<QDate> desde, hasta;
    std::optional<qint32> cliente; // customer code, known to exist
    QString serieAlbaran;
    bool incluirCero = false;
    bool noAgruparAgentes = false;
    QString salida = QStringLiteral("ninguna"); // ninguna, pdf, impresora, pantalla
    std::optional<qint32> copias;               // without it, the company's number
};

struct ResultadoFacturar {
    bool rechazado = false;  // the screen refused the run before it began
    bool incompleto = false; // an invoice or group did not finish, or the run stopped
    bool errorEmision = false;
    std::vector<qint32> facturas;
};

// Runs the screen's all-customers run on the facade's company and prints one
// row per invoice made and a closing line on `out`; what did not finish goes
// to `err`.
ResultadoFacturar Factura(VKFACVENTAS& factura, const OpcionesFacturar& o, QTextStream& out,
                          QTextStream& err);

int OrdenFacturar(const QStringList& args, QTextStream& out, QTextStream& err);

} // namespace vk::app
