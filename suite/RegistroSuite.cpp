#include "RegistroSuite.h"

#include "SpoolIncorporado.h"
#include "TesoreriaIncorporada.h"

#include <VKCRFACTURAS.h>

namespace vk::suite {

void RegistraComponentesSuite() {
    RegistraTesoreria();
    RegistraSpool();
    RegistraEmision();
}

} // namespace vk::suite
