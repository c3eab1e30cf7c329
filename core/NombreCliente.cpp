#include "NombreCliente.h"

#include <QStringList>

namespace vk {

QString fnNombreCliente(int orden, const QString& prefijo) {
    const QStringList columnas =
        orden == 0 ? QStringList{QStringLiteral("cli_nom"), QStringLiteral("cli_ape1"),
                                 QStringLiteral("cli_ape2")}
                   : QStringList{QStringLiteral("cli_ape1"), QStringLiteral("cli_ape2"),
                                 QStringLiteral("cli_nom")};
    QStringList piezas;
    for (const QString& c : columnas) {
        const QString col = prefijo + c;
        piezas << QStringLiteral("(case when coalesce(%1,'') = '' then '' else %1 || ' ' end )")
                      .arg(col);
    }
    return piezas.join(QStringLiteral(" || ")) + QLatin1Char(' ');
}

} // namespace vk
