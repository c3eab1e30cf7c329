// The billable groups of the batch screen (dbgCli) as a table model. Rows
// are asked of the screen model as the grid shows them, so the grid holds
// nothing per group however long the search.
#pragma once

#include <QAbstractTableModel>

namespace vk {
class frmFacturasVenta;
}

namespace vk::ui {

class ModeloGrupos : public QAbstractTableModel {
public:
    explicit ModeloGrupos(const frmFacturasVenta& pantalla, QObject* padre = nullptr);

    int rowCount(const QModelIndex& padre = {}) const override;
    int columnCount(const QModelIndex& padre = {}) const override;
    QVariant data(const QModelIndex& indice, int rol = Qt::DisplayRole) const override;
    QVariant headerData(int seccion, Qt::Orientation orientacion,
                        int rol = Qt::DisplayRole) const override;

    // Takes the rows of the screen's last search when it is a new one.
    void Actualiza();

private:
    const frmFacturasVenta& pantalla_;
    // What the grid was told: until Actualiza, a search the screen ran
    // meanwhile does not change the rows the grid knows of.
    int filas_ = 0;
    int busqueda_ = -1;
};

} // namespace vk::ui
