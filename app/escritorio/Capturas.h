// Screenshots of every view on an open company, for the documentation. The
// company is changed: one invoice is made to show the viewer, so it is meant
// for a throwaway demo company.
#pragma once

#include <QString>

namespace vk {
class VKFACVENTAS;
}

namespace vk::escritorio {

// Writes one PNG per view into `carpeta`; returns the process exit code.
int HazCapturas(VKFACVENTAS& factura, const QString& carpeta);

} // namespace vk::escritorio
