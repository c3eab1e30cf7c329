#include "DialogoConexion.h"

#include <Ajustes.h>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QStandardPaths>
#include <QVBoxLayout>

namespace vk::escritorio {

namespace {
const QString kAplicacion = QStringLiteral("vkfactuven-escritorio");
const QString kSeccion = QStringLiteral("Conexion");
} // namespace

DialogoConexion::DialogoConexion(QWidget* padre) : QDialog(padre) {
    setObjectName(QStringLiteral("frmConexion"));
    setWindowTitle(QStringLiteral("Conexión con la empresa"));
    auto* capa = new QVBoxLayout(this);
    capa->addWidget(new QLabel(QStringLiteral("¿Dónde están los datos de la empresa?"), this));

    optSqlite_ = new QRadioButton(QStringLiteral("Carpeta local (SQLite)"), this);
    optSqlite_->setObjectName(QStringLiteral("optSqlite"));
    carpeta_ = new QLineEdit(this);
    carpeta_->setObjectName(QStringLiteral("txtCarpeta"));
    auto* examinar = new QPushButton(QStringLiteral("&Examinar…"), this);
    examinar->setObjectName(QStringLiteral("cmdExaminar"));
    auto* filaCarpeta = new QHBoxLayout;
    filaCarpeta->addSpacing(20);
    filaCarpeta->addWidget(carpeta_, 1);
    filaCarpeta->addWidget(examinar);

    optPostgres_ = new QRadioButton(QStringLiteral("Servidor PostgreSQL"), this);
    optPostgres_->setObjectName(QStringLiteral("optPostgres"));
    servidor_ = new QLineEdit(this);
    servidor_->setObjectName(QStringLiteral("txtServidor"));
    servidor_->setPlaceholderText(
        QStringLiteral("postgresql://usuario@servidor:5432/base?catalogo=vkemp0001"));
    auto* filaServidor = new QHBoxLayout;
    filaServidor->addSpacing(20);
    filaServidor->addWidget(servidor_, 1);

    usuario_ = new QSpinBox(this);
    usuario_->setObjectName(QStringLiteral("txtUsuario"));
    usuario_->setRange(1, 99999);
    auto* formulario = new QFormLayout;
    formulario->addRow(QStringLiteral("Usuario (número)"), usuario_);

    auto* botones = new QDialogButtonBox(this);
    botones->addButton(QStringLiteral("&Conectar"), QDialogButtonBox::AcceptRole);
    botones->addButton(QStringLiteral("&Cancelar"), QDialogButtonBox::RejectRole);

    capa->addWidget(optSqlite_);
    capa->addLayout(filaCarpeta);
    capa->addWidget(optPostgres_);
    capa->addLayout(filaServidor);
    capa->addLayout(formulario);
    capa->addWidget(botones);
    setMinimumWidth(520);

    const QString defecto = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                            QStringLiteral("/vkfactuven");
    carpeta_->setText(LeeAjuste(kAplicacion, kSeccion, QStringLiteral("Carpeta"),
                                qEnvironmentVariable("VKFACTUVEN_DATOS", defecto)));
    servidor_->setText(LeeAjuste(kAplicacion, kSeccion, QStringLiteral("Servidor")));
    usuario_->setValue(
        LeeAjuste(kAplicacion, kSeccion, QStringLiteral("Usuario"), QStringLiteral("1")).toInt());
    const bool postgres =
        LeeAjuste(kAplicacion, kSeccion, QStringLiteral("Motor")) == QLatin1String("postgresql");
    (postgres ? optPostgres_ : optSqlite_)->setChecked(true);
    actualiza();

    QObject::connect(optSqlite_, &QRadioButton::toggled, this, [this] { actualiza(); });
    QObject::connect(examinar, &QPushButton::clicked, this, [this] {
        const QString d = QFileDialog::getExistingDirectory(
            this, QStringLiteral("Carpeta de los datos"), carpeta_->text());
        if (!d.isEmpty()) {
            carpeta_->setText(QDir::toNativeSeparators(d));
        }
    });
    QObject::connect(botones, &QDialogButtonBox::accepted, this, [this] { accept(); });
    QObject::connect(botones, &QDialogButtonBox::rejected, this, [this] { reject(); });
}

void DialogoConexion::actualiza() {
    const bool sqlite = optSqlite_->isChecked();
    carpeta_->setEnabled(sqlite);
    servidor_->setEnabled(!sqlite);
}

QString DialogoConexion::Cadena() const {
    const QString usuario = QStringLiteral("usuario=%1").arg(usuario_->value());
    if (optSqlite_->isChecked()) {
        return QStringLiteral("sqlite:%1?%2").arg(carpeta_->text().trimmed(), usuario);
    }
    const QString s = servidor_->text().trimmed();
    return s + (s.contains(QLatin1Char('?')) ? QLatin1Char('&') : QLatin1Char('?')) + usuario;
}

void DialogoConexion::Recuerda() const {
    GuardaAjuste(kAplicacion, kSeccion, QStringLiteral("Motor"),
                 optSqlite_->isChecked() ? QStringLiteral("sqlite") : QStringLiteral("postgresql"));
    GuardaAjuste(kAplicacion, kSeccion, QStringLiteral("Carpeta"), carpeta_->text().trimmed());
    GuardaAjuste(kAplicacion, kSeccion, QStringLiteral("Servidor"), servidor_->text().trimmed());
    GuardaAjuste(kAplicacion, kSeccion, QStringLiteral("Usuario"),
                 QString::number(usuario_->value()));
}

} // namespace vk::escritorio
