// The built-in spool: text for impact printers, sent raw to a CUPS queue
// (lp -d QUEUE -o raw) or appended to a file, in the printer's code page.
//
// Settings (application "ORVA", section "Spool"): "Printer" is the queue, or a
// path (it holds a "/") for a file device; empty means the default queue.
// "CodePage" is the code page of the printer, CP850 when not set.
#pragma once

#include <ClsSpool.h>
#include <ControlImpresora.h>
#include <QByteArray>
#include <QFile>
#include <QString>

namespace vk::suite {

// The default queue named by the output of "lpstat -d" (in the C locale),
// empty when there is none: lpstat says so and still ends well, and lp
// would fail later with its own English text.
QString DestinoPorDefecto(const QByteArray& salidaLpstat);

class SpoolIncorporado : public ClsSpool {
public:
    SpoolIncorporado();
    void SelectPrinter() override;
    bool OpenDevice() override;
    void printline(const QString& texto) override;
    void CloseDevice() override;

    // The printer of this job: a queue or a file path.
    QString Impresora;
    QString CodigoPagina;

private:
    bool esFichero() const { return Impresora.contains(QLatin1Char('/')); }
    bool abierto_ = false;
    QFile fichero_;
    QByteArray trabajo_; // what goes to the queue at CloseDevice
};

void RegistraSpool();

} // namespace vk::suite
