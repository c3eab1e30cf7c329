#include "DialogoBusca.h"

#include "Controles.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <numeric>

namespace vk::ui {

namespace {

// Widths come in twips, as the callers always gave them.
int pixeles(int twips, int defecto) {
    return twips > 0 ? twips / 15 : defecto;
}

QString texto(const std::vector<QVariant>& fila, int i) {
    return i < static_cast<int>(fila.size()) ? fila[i].toString() : QString();
}

} // namespace

DialogoBusca::DialogoBusca(const PeticionBusca& peticion, QWidget* padre)
    : QDialog(padre), peticion_(peticion) {
    setObjectName(QStringLiteral("frmBusca"));
    setWindowTitle(peticion.titulo);
    // Rows are (id, code, name): the searched column decides which of the
    // two visible ones the box filters and the list is sorted on.
    int indice = -1;
    for (int i = 0; i < peticion.columnas.size(); ++i) {
        if (peticion.columnas[i].compare(peticion.columna, Qt::CaseInsensitive) == 0) {
            indice = i;
        }
    }
    columnaBusca_ = indice == 1 ? 0 : 1;

    auto* capa = new QVBoxLayout(this);
    auto* etiqueta = new QLabel(QStringLiteral("Buscar:"), this);
    busca_ = NuevaCaja(this, QStringLiteral("txtBusca"));
    etiqueta->setBuddy(busca_);
    // Code and name, then whatever further columns the rows bring.
    QStringList cabeceras{peticion.cabeceraCodigo, peticion.cabeceraNombre};
    for (qsizetype c = 3; c < peticion.columnas.size(); ++c) {
        cabeceras << peticion.columnas[c];
    }
    const auto visibles = static_cast<int>(cabeceras.size());
    lista_ = NuevaRejilla(this, QStringLiteral("lstBusca"), cabeceras);
    capa->addWidget(etiqueta);
    capa->addWidget(busca_);
    capa->addWidget(lista_);

    std::vector<int> orden(peticion.filas.size());
    std::iota(orden.begin(), orden.end(), 0);
    const int columnaOrden = columnaBusca_ + 1;
    if (peticion.ordenar) {
        std::stable_sort(orden.begin(), orden.end(), [&](int a, int b) {
            return QString::localeAwareCompare(texto(peticion.filas[a], columnaOrden),
                                               texto(peticion.filas[b], columnaOrden)) < 0;
        });
    }
    lista_->setRowCount(static_cast<int>(orden.size()));
    for (int r = 0; r < static_cast<int>(orden.size()); ++r) {
        const auto& fila = peticion.filas[orden[r]];
        for (int c = 0; c < visibles; ++c) {
            auto* item = new QTableWidgetItem(texto(fila, c + 1).trimmed());
            item->setData(Qt::UserRole, orden[r]);
            lista_->setItem(r, c, item);
        }
    }
    const int anchoCodigo = pixeles(peticion.anchoCodigo, 90);
    const int anchoNombre = pixeles(peticion.anchoNombre, 300);
    lista_->setColumnWidth(0, anchoCodigo);
    lista_->setColumnWidth(1, anchoNombre);
    constexpr int kAnchoOtra = 110;
    lista_->horizontalHeader()->setStretchLastSection(true);
    resize(anchoCodigo + anchoNombre + (visibles - 2) * kAnchoOtra + 50, 420);
    if (lista_->rowCount() > 0) {
        lista_->setCurrentCell(0, 0);
    }

    QObject::connect(busca_, &QLineEdit::textChanged, this,
                     [this](const QString& t) { filtra(t); });
    QObject::connect(lista_, &QTableWidget::cellDoubleClicked, this, [this] { elige(); });
    // Arrow keys typed in the search box move the list, as lookups do.
    busca_->installEventFilter(this);
    busca_->setFocus();
}

void DialogoBusca::filtra(const QString& t) {
    const QString buscado = t.trimmed();
    int primera = -1;
    for (int r = 0; r < lista_->rowCount(); ++r) {
        const bool ve =
            buscado.isEmpty() ||
            lista_->item(r, columnaBusca_)->text().contains(buscado, Qt::CaseInsensitive);
        lista_->setRowHidden(r, !ve);
        if (ve && primera < 0) {
            primera = r;
        }
    }
    if (primera >= 0) {
        lista_->setCurrentCell(primera, 0);
    } else {
        lista_->setCurrentCell(-1, -1);
    }
}

void DialogoBusca::elige() {
    const int r = lista_->currentRow();
    if (r < 0 || lista_->isRowHidden(r)) {
        return;
    }
    elegida_ = lista_->item(r, 0)->data(Qt::UserRole).toInt();
    accept();
}

void DialogoBusca::keyPressEvent(QKeyEvent* evento) {
    switch (evento->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        elige();
        return;
    case Qt::Key_Escape:
        elegida_.reset();
        reject();
        return;
    default:
        QDialog::keyPressEvent(evento);
    }
}

bool DialogoBusca::eventFilter(QObject* objeto, QEvent* evento) {
    if (objeto == busca_ && evento->type() == QEvent::KeyPress) {
        auto* tecla = static_cast<QKeyEvent*>(evento);
        const int k = tecla->key();
        if (k == Qt::Key_Up || k == Qt::Key_Down || k == Qt::Key_PageUp || k == Qt::Key_PageDown) {
            QCoreApplication::sendEvent(lista_, evento);
            return true;
        }
    }
    return QDialog::eventFilter(objeto, evento);
}

} // namespace vk::ui
