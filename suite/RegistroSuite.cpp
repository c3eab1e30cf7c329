#include "RegistroSuite.h"

#include "TesoreriaIncorporada.h"

#include <VKCRFACTURAS.h>

namespace vk::suite {

void RegistraComponentesSuite() {
    RegistraTesoreria();
    RegistraEmision();
}

} // namespace vk::suite
