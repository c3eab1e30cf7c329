// Registers the built-in implementations of the suite's classes under their
// program ids. Hosts call it once at start; a host may then replace any of
// them with its own.
#pragma once

namespace vk::suite {

void RegistraComponentesSuite();

} // namespace vk::suite
