#include "RegistroSuite.h"

#include "AlbaranesIncorporados.h"
#include "SpoolIncorporado.h"
#include "TesoreriaIncorporada.h"
#include "TransportesIncorporados.h"

#include <VKCRFACTURAS.h>

namespace vk::suite {

void RegistraComponentesSuite() {
    RegistraTesoreria();
    RegistraAlbaranes();
    RegistraTransportes();
    RegistraSpool();
    RegistraEmision();
}

} // namespace vk::suite
