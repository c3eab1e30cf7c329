// The report loader of the suite, created by name: given a report name it
// returns the loaded report design, ready for options and data.
#pragma once

#include <Componentes.h>
#include <Reporte.h>
#include <memory>

namespace vk {

class VKCRFACTURAS : public Componente {
public:
    static constexpr const char* kProgId = "VKCRFAV.VKCRFACTURAS";
    QString VKReportName;
    virtual std::unique_ptr<informe::Reporte> Reporte() = 0;
};

// The report of that name through the loader registered under kProgId.
std::unique_ptr<informe::Reporte> CargaReporte(const QString& nombre);

// Registers the built-in loader (designs by name: the installation's, then the
// built-in ones) and the issue dispatcher.
void RegistraEmision();

} // namespace vk
