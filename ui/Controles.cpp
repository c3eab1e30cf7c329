#include "Controles.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTableWidget>
#include <QVariant>

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

namespace {

void configuraRejilla(QTableView* t, const QString& nombre) {
    t->setObjectName(nombre);
    t->setSelectionBehavior(QAbstractItemView::SelectRows);
    t->setSelectionMode(QAbstractItemView::SingleSelection);
    t->setEditTriggers(QAbstractItemView::NoEditTriggers);
    t->verticalHeader()->setVisible(false);
    t->verticalHeader()->setDefaultSectionSize(22);
    t->horizontalHeader()->setStretchLastSection(true);
    t->setAlternatingRowColors(true);
}

} // namespace

QTableWidget* NuevaRejilla(QWidget* padre, const QString& nombre, const QStringList& cabeceras) {
    auto* t = new QTableWidget(0, static_cast<int>(cabeceras.size()), padre);
    t->setHorizontalHeaderLabels(cabeceras);
    configuraRejilla(t, nombre);
    return t;
}

QTableView* NuevaRejilla(QWidget* padre, const QString& nombre, QAbstractItemModel* modelo) {
    auto* t = new QTableView(padre);
    t->setModel(modelo);
    configuraRejilla(t, nombre);
    return t;
}

QString TextoCelda(const QVariant& v) {
    return v.isNull() ? QString() : v.toString().trimmed();
}

QComboBox* NuevoCombo(QWidget* padre, const QString& nombre) {
    auto* c = new QComboBox(padre);
    c->setObjectName(nombre);
    c->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    c->setMinimumContentsLength(8);
    return c;
}

void RellenaCombo(QComboBox* combo, const QStringList& elementos, int indice) {
    bool iguales = combo->count() == elementos.size();
    for (int i = 0; iguales && i < combo->count(); ++i) {
        iguales = combo->itemText(i) == elementos[i];
    }
    if (!iguales) {
        combo->clear();
        combo->addItems(elementos);
    }
    combo->setCurrentIndex(indice >= 0 && indice < combo->count() ? indice : -1);
}

void PonTexto(QLineEdit* caja, const QString& texto) {
    if (caja->text() != texto) {
        caja->setText(texto);
    }
}

QTableWidgetItem* NuevaCelda(const QString& texto, bool numero) {
    auto* item = new QTableWidgetItem(texto);
    if (numero) {
        item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    return item;
}

QLabel* NuevaEtiqueta(QWidget* padre, const QString& texto, QWidget* companero) {
    auto* l = new QLabel(texto, padre);
    l->setBuddy(companero);
    return l;
}

bool TeclaFormulario(QDialog& dialogo, const QKeyEvent& evento) {
    switch (evento.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (auto* boton = qobject_cast<QAbstractButton*>(dialogo.focusWidget());
            boton && !qobject_cast<QCheckBox*>(boton) && !qobject_cast<QRadioButton*>(boton)) {
            boton->click();
        } else if (QWidget* foco = dialogo.focusWidget()) {
            // The next field in the tab chain, as Tab would go.
            for (QWidget* w = foco->nextInFocusChain(); w && w != foco; w = w->nextInFocusChain()) {
                if ((w->focusPolicy() & Qt::TabFocus) && w->isVisibleTo(&dialogo) &&
                    w->isEnabled() && dialogo.isAncestorOf(w)) {
                    w->setFocus(Qt::TabFocusReason);
                    break;
                }
            }
        }
        return true;
    case Qt::Key_Escape:
        dialogo.reject();
        return true;
    default:
        return false;
    }
}

} // namespace vk::ui
