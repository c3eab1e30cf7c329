// Helpers shared by the views. Widgets carry the model's control names as
// their objectName so that tests and scripts find them as the model names
// them; a control array element Text1(5) becomes "Text1_5", since an
// objectName cannot hold parentheses sensibly for findChild users.
#pragma once

#include <QString>

class QLineEdit;
class QPushButton;
class QCheckBox;
class QTableWidget;
class QWidget;

namespace vk::ui {

// "Text1", 5 -> "Text1_5".
QString NombreControl(const QString& control, int indice);

QLineEdit* NuevaCaja(QWidget* padre, const QString& nombre);
QPushButton* NuevoBoton(QWidget* padre, const QString& nombre, const QString& texto);
QCheckBox* NuevaCasilla(QWidget* padre, const QString& nombre, const QString& texto);
// A read-only grid that selects whole rows.
QTableWidget* NuevaRejilla(QWidget* padre, const QString& nombre, const QStringList& cabeceras);

// Sets a line edit's text only when it differs: keeps the cursor and the
// modified flag of a box the person is typing in.
void PonTexto(QLineEdit* caja, const QString& texto);

} // namespace vk::ui
