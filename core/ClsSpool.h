// The spool class of the suite, created by name: the text layouts of impact
// printers write through it line by line, control characters included.
#pragma once

#include "Componentes.h"

#include <QString>

namespace vk {

class ClsSpool : public Componente {
public:
    static constexpr const char* kProgId = "VKSPOOL.ClsSpool";

    // Lets the user pick the printer (a queue, or a file to append to).
    virtual void SelectPrinter() = 0;
    // Opens the job; false when the printer or file cannot be reached.
    virtual bool OpenDevice() = 0;
    // Sends the text as it stands: no line end is added, the layouts send
    // "\r\n" and form feeds themselves.
    virtual void printline(const QString& texto) = 0;
    // Ends the job; throws ErrorDispositivo when the printer refuses it.
    virtual void CloseDevice() = 0;
};

} // namespace vk
