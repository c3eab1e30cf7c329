// The installation's data folder: where its own designs, stationery and
// per-user files live. Below issue, since the design loader reads it too.
#pragma once

#include <QString>

namespace vk {

// The installation's data folder (VKFACTUVEN_DATOS, default
// ~/.local/share/vkfactuven); who writes into it creates what it needs.
QString fnCarpetaDatos();

} // namespace vk
