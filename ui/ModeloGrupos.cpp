#include "ModeloGrupos.h"

#include "Controles.h"

#include <Error.h>
#include <Formato.h>
#include <frmFacturasVenta.h>

namespace vk::ui {

namespace {

const QString kDescuento = QStringLiteral("##0.00");

const QStringList& cabeceras() {
    static const QStringList c = {QStringLiteral("Cliente"),
                                  QStringLiteral("Forma de cobro"),
                                  QStringLiteral("% Dto1"),
                                  QStringLiteral("% Dto2"),
                                  QStringLiteral("Importe facturable"),
                                  QStringLiteral("%Dto Pie Albaran"),
                                  QStringLiteral("Agente"),
                                  QStringLiteral("Factura A/A")};
    return c;
}

QString texto(const GrupoFacturable& g, int columna) {
    switch (columna) {
    case 0:
        return g.Cli_Nom.trimmed();
    case 1:
        return g.Fco_Des.trimmed();
    case 2:
        return Format(g.cav_dto1, kDescuento);
    case 3:
        return Format(g.cav_dto2, kDescuento);
    case 4:
        return Format(g.tOTAL, kMascaraImporte) + QLatin1Char(' ');
    case 5:
        return Format(g.Cli_Dto1, kDescuento) + QStringLiteral(" / ") +
               Format(g.Cli_Dto2, kDescuento);
    case 6:
        return TextoCelda(g.Cav_Agente);
    case 7:
        return TextoCelda(g.Cli_Fatencion);
    default:
        return {};
    }
}

} // namespace

ModeloGrupos::ModeloGrupos(const frmFacturasVenta& pantalla, QObject* padre)
    : QAbstractTableModel(padre), pantalla_(pantalla) {}

int ModeloGrupos::rowCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : filas_;
}

int ModeloGrupos::columnCount(const QModelIndex& padre) const {
    return padre.isValid() ? 0 : static_cast<int>(cabeceras().size());
}

QVariant ModeloGrupos::data(const QModelIndex& indice, int rol) const {
    if (!indice.isValid()) {
        return {};
    }
    if (rol == Qt::TextAlignmentRole) {
        // The amounts, discounts and agent to the right.
        const int c = indice.column();
        return c >= 2 && c <= 6 ? QVariant((Qt::AlignRight | Qt::AlignVCenter).toInt())
                                : QVariant();
    }
    // A search that emptied the list may be painted over before the grid
    // hears of it.
    if (rol != Qt::DisplayRole || indice.row() >= pantalla_.NumeroGrupos()) {
        return {};
    }
    try {
        return texto(pantalla_.Grupo(indice.row()), indice.column());
    } catch (const Error&) {
        // Painting cannot tell anyone: the next command meets the failure.
        return {};
    }
}

QVariant ModeloGrupos::headerData(int seccion, Qt::Orientation orientacion, int rol) const {
    if (orientacion != Qt::Horizontal || rol != Qt::DisplayRole || seccion < 0 ||
        seccion >= cabeceras().size()) {
        return QAbstractTableModel::headerData(seccion, orientacion, rol);
    }
    return cabeceras()[seccion];
}

void ModeloGrupos::Actualiza() {
    if (busqueda_ == pantalla_.BusquedasHechas()) {
        return;
    }
    beginResetModel();
    busqueda_ = pantalla_.BusquedasHechas();
    filas_ = pantalla_.NumeroGrupos();
    endResetModel();
}

} // namespace vk::ui
