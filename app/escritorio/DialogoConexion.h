// Where the company is: an SQLite folder or a PostgreSQL address, and the
// user id. Remembered between runs in the user's settings.
#pragma once

#include <QDialog>

class QLineEdit;
class QRadioButton;
class QSpinBox;

namespace vk::escritorio {

class DialogoConexion : public QDialog {
public:
    explicit DialogoConexion(QWidget* padre = nullptr);
    // The connection string of what was typed.
    QString Cadena() const;
    // Stores the choice for the next run.
    void Recuerda() const;

private:
    void actualiza();

    QRadioButton* optSqlite_ = nullptr;
    QRadioButton* optPostgres_ = nullptr;
    QLineEdit* carpeta_ = nullptr;
    QLineEdit* servidor_ = nullptr;
    QSpinBox* usuario_ = nullptr;
};

} // namespace vk::escritorio
