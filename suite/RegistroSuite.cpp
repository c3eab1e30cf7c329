#include "RegistroSuite.h"

#include "TesoreriaIncorporada.h"

namespace vk::suite {

void RegistraComponentesSuite() {
    RegistraTesoreria();
}

} // namespace vk::suite
