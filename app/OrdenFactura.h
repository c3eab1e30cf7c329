// `vkfactuven factura`: one invoice from given delivery notes of one customer,
// the programmatic road of the library.
#pragma once

#include <QStringList>
#include <QTextStream>

namespace vk::app {

int OrdenFactura(const QStringList& args, QTextStream& out, QTextStream& err);

} // namespace vk::app
