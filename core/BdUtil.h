// Utilities a screen or the facade keeps a private instance of: the money
// rounding of the totals and the modal lookup list.
#pragma once

#include "Conexion.h"

#include <QString>

namespace vk {

class BdUtil {
public:
    // Half away from zero to `decimales` places.
    double Redondea(double valor, qint16 decimales) const;

    // The connection the lookup reads from.
    void Prepara(Conexion& cn) { cn_ = &cn; }

    // Runs the SELECT (id, code, name ...) and shows the rows in the lookup
    // list of the interaction port. Returns the chosen row's first three
    // values joined by the character of code 1, or "" when nothing was chosen
    // (callers test for two characters or fewer).
    QString Busca(const QString& sSql, const QString& sColumna, const QString& sCabCodigo,
                  const QString& sCabNombre, const QString& sTitulo, int nAnchoCodigo,
                  int nAnchoNombre, qint16 nFlag = 0);
    // The same with the statement's `?` values bound in order.
    QString Busca(const QString& sSql, const QVariantList& parametros, const QString& sColumna,
                  const QString& sCabCodigo, const QString& sCabNombre, const QString& sTitulo,
                  int nAnchoCodigo, int nAnchoNombre);

    static constexpr QChar kSeparador = QChar(1);

private:
    Conexion* cn_ = nullptr;
};

} // namespace vk
