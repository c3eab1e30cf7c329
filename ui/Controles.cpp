#include "Controles.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>

namespace vk::ui {

QString NombreControl(const QString& control, int indice) {
    return control + QLatin1Char('_') + QString::number(indice);
}

QLineEdit* NuevaCaja(QWidget* padre, const QString& nombre) {
    auto* c = new QLineEdit(padre);
    c->setObjectName(nombre);
    return c;
}

QPushButton* NuevoBoton(QWidget* padre, const QString& nombre, const QString& texto) {
    auto* b = new QPushButton(texto, padre);
    b->setObjectName(nombre);
    // Enter moves between fields in these screens; it must not press a button
    // that merely happens to be the dialog's default.
    b->setAutoDefault(false);
    b->setDefault(false);
    return b;
}

QCheckBox* NuevaCasilla(QWidget* padre, const QString& nombre, const QString& texto) {
    auto* c = new QCheckBox(texto, padre);
    c->setObjectName(nombre);
    return c;
}

QTableWidget* NuevaRejilla(QWidget* padre, const QString& nombre, const QStringList& cabeceras) {
    auto* t = new QTableWidget(0, static_cast<int>(cabeceras.size()), padre);
    t->setObjectName(nombre);
    t->setHorizontalHeaderLabels(cabeceras);
    t->setSelectionBehavior(QAbstractItemView::SelectRows);
    t->setSelectionMode(QAbstractItemView::SingleSelection);
    t->setEditTriggers(QAbstractItemView::NoEditTriggers);
    t->verticalHeader()->setVisible(false);
    t->verticalHeader()->setDefaultSectionSize(22);
    t->horizontalHeader()->setStretchLastSection(true);
    t->setAlternatingRowColors(true);
    return t;
}

void PonTexto(QLineEdit* caja, const QString& texto) {
    if (caja->text() != texto) {
        caja->setText(texto);
    }
}

} // namespace vk::ui
