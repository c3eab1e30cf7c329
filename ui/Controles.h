// Helpers shared by the views. Widgets carry the model's control names as
// their objectName so that tests and scripts find them as the model names
// them; a control array element Text1(5) becomes "Text1_5", since an
// objectName cannot hold parentheses sensibly for findChild users.
#pragma once

#include <QString>

class QAbstractItemModel;
class QDialog;
class QKeyEvent;
class QLabel;
class QTableWidgetItem;
class QLineEdit;
class QPushButton;
class QCheckBox;
class QComboBox;
class QTableView;
class QTableWidget;
class QVariant;
class QWidget;

namespace vk::ui {

// "Text1", 5 -> "Text1_5".
QString NombreControl(const QString& control, int indice);

QLineEdit* NuevaCaja(QWidget* padre, const QString& nombre);
QPushButton* NuevoBoton(QWidget* padre, const QString& nombre, const QString& texto);
QCheckBox* NuevaCasilla(QWidget* padre, const QString& nombre, const QString& texto);
// A combo that shrinks to a few characters on a small screen.
QComboBox* NuevoCombo(QWidget* padre, const QString& nombre);
// Puts a model's items in a combo when they changed, and selects `indice`
// (-1 or out of range: none).
void RellenaCombo(QComboBox* combo, const QStringList& elementos, int indice);
// A read-only grid that selects whole rows.
QTableWidget* NuevaRejilla(QWidget* padre, const QString& nombre, const QStringList& cabeceras);
// The same grid over a model, which gives its headers: for lists too long
// to hold an item per cell.
QTableView* NuevaRejilla(QWidget* padre, const QString& nombre, QAbstractItemModel* modelo);

// A cell of a read-only grid; a number is aligned to the right.
QTableWidgetItem* NuevaCelda(const QString& texto, bool numero = false);
// A label that gives the focus to its field (its "&" key).
QLabel* NuevaEtiqueta(QWidget* padre, const QString& texto, QWidget* companero = nullptr);

// Money as the grids show it.
inline const QString kMascaraImporte = QStringLiteral("#,###,##0.00");
// A value as the grids show it: nothing for NULL, the text trimmed.
QString TextoCelda(const QVariant& v);

// The keys of every form, as the legacy forms had them: Enter moves to the
// next field (on a push button it presses it), Escape leaves. True when the
// key was one of them.
bool TeclaFormulario(QDialog& dialogo, const QKeyEvent& evento);

// Sets a line edit's text only when it differs: keeps the cursor and the
// modified flag of a box the person is typing in.
void PonTexto(QLineEdit* caja, const QString& texto);

} // namespace vk::ui
