// A fixed company for the text layouts: customers, payment terms, delivery
// notes with the lines each layout needs and invoices made through the
// facade, every name, date and amount fixed so that both backends print the
// same bytes. The spool of the suite writes to a file device.
#pragma once

#include "EmpresaPrueba.h"

#include <QByteArray>
#include <QTemporaryDir>
#include <functional>

namespace vk::prueba {

struct LineaSpool {
    QString des;
    double uni = 1;
    double precio = 0;
    double dto1 = 0;
    double dto2 = 0;
    int familia = 1; // rate family: 1 general, 2 reduced, 3 super-reduced
    int regimen = 1; // 2 equivalence surcharge, 3 professional withholding
    QString ampliades = {};
    QString codigo = {};
    QString lote = {};
    double resDes = 0;
    int bulto = 0;
    double largo = 0;
    double ancho = 0;
    bool imprimir = true;
    qint32 idDoc = 0;
    qint32 idObra = 0;
    qint32 idParte = 0;
};

class EmpresaSpool {
public:
    explicit EmpresaSpool(Motor motor);
    ~EmpresaSpool();

    EmpresaPrueba& e() { return e_; }
    VKFACVENTAS& f() { return e_.factura(); }
    InteraccionGuion& ui() { return ui_; }
    QString salida() const { return dir_.filePath(QStringLiteral("impresora.txt")); }

    // A customer with its name, tax id and payment terms (0: none).
    qint32 cliente(const QString& nombre, const QString& apellido, const QString& doc,
                   qint32 idFco);
    qint32 formaPago(const QString& descripcion, const std::vector<std::pair<int, double>>& plazos);
    // A delivery note of the customer with these lines.
    qint32 albaran(qint32 idCliente, const QDate& fecha, const std::vector<LineaSpool>& lineas,
                   int regimen = 1);
    // The ids of a note's lines in their order.
    QVector<qint32> lineas(qint32 idAlbaran);
    // The invoice of the notes, calculated and saved with its receipts, at
    // the fixed address of "C/ Mayor 12, 46001 Valencia".
    qint32 factura(qint32 idCliente, const QDate& fecha, const std::vector<qint32>& albaranes,
                   double dto1 = 0, double dto2 = 0);

    // Runs the layout over the ids and returns the bytes the printer got.
    QByteArray imprime(const std::function<bool(VKFACVENTAS&, const QVector<qint32>&)>& layout,
                       const QVector<qint32>& ids);
    // Messages shown since the last call.
    QStringList mensajes();

private:
    QTemporaryDir dir_;
    EmpresaPrueba e_;
    InteraccionGuion ui_;
    int siguienteAlbaran_ = 1;
};

// Compares with tests/spool/esperado/<nombre>.txt byte for byte; with
// VKFACTUVEN_REGENERA_ESPERADO set it writes the file instead.
void ComparaConEsperado(const QByteArray& bytes, const QString& nombre);

// The bytes shown for people: CP850 decoded, control characters named.
QString Legible(const QByteArray& bytes);

} // namespace vk::prueba
