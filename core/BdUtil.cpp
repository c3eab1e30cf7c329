#include "BdUtil.h"

#include "ErrorBd.h"
#include "Interaccion.h"
#include "MensajesCore.h"
#include "Redondeo.h"

namespace vk {

double BdUtil::Redondea(double valor, qint16 decimales) const {
    return vk::Redondea(valor, decimales);
}

QString BdUtil::Busca(const QString& sSql, const QString& sColumna, const QString& sCabCodigo,
                      const QString& sCabNombre, const QString& sTitulo, int nAnchoCodigo,
                      int nAnchoNombre, qint16) {
    return Busca(sSql, {}, sColumna, sCabCodigo, sCabNombre, sTitulo, nAnchoCodigo, nAnchoNombre);
}

QString BdUtil::Busca(const QString& sSql, const QVariantList& parametros, const QString& sColumna,
                      const QString& sCabCodigo, const QString& sCabNombre, const QString& sTitulo,
                      int nAnchoCodigo, int nAnchoNombre) {
    if (!cn_) {
        throw ErrorBd(mensajes::kBusquedaSinConexion);
    }
    Recordset rs = cn_->Execute(sSql, parametros);
    PeticionBusca p;
    p.titulo = sTitulo;
    p.columna = sColumna;
    p.cabeceraCodigo = sCabCodigo;
    p.cabeceraNombre = sCabNombre;
    p.anchoCodigo = nAnchoCodigo;
    p.anchoNombre = nAnchoNombre;
    p.columnas = rs.NombresCampos();
    for (; !rs.Eof(); rs.MoveNext()) {
        std::vector<QVariant> fila;
        for (int i = 0; i < rs.FieldCount(); ++i) {
            fila.push_back(rs.Fields(i).Value());
        }
        p.filas.push_back(std::move(fila));
    }
    const std::optional<int> elegida = Ui().Busca(p);
    if (!elegida || *elegida < 0 || *elegida >= static_cast<int>(p.filas.size())) {
        return {};
    }
    const std::vector<QVariant>& fila = p.filas[*elegida];
    QStringList partes;
    for (int i = 0; i < 3 && i < static_cast<int>(fila.size()); ++i) {
        partes << fila[i].toString();
    }
    return partes.join(kSeparador);
}

} // namespace vk
