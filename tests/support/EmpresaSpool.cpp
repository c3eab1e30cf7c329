#include "EmpresaSpool.h"

#include <ErrorBd.h>
#include <QDir>
#include <QFile>
#include <RegistroSuite.h>

namespace vk::prueba {

EmpresaSpool::EmpresaSpool(Motor motor) : e_(motor) {
    suite::RegistraComponentesSuite();
    EstableceInteraccion(&ui_);
    ui_.impresoras = {salida()};
    e_.parametro(QStringLiteral("PAR_NOMBRE"), QStringLiteral("Suministros Albufera, S.L."));
    e_.parametro(QStringLiteral("par_deccan"), 2);
    e_.parametro(QStringLiteral("Par_DiseñoFactura"), 6);
}

EmpresaSpool::~EmpresaSpool() {
    EstableceInteraccion(nullptr);
}

qint32 EmpresaSpool::formaPago(const QString& descripcion,
                               const std::vector<std::pair<int, double>>& plazos) {
    std::vector<std::tuple<int, double, int>> p;
    for (const auto& [dias, parte] : plazos) {
        p.emplace_back(dias, parte, 2);
    }
    return e_.formaPago(descripcion, p);
}

qint32 EmpresaSpool::cliente(const QString& nombre, const QString& apellido, const QString& doc,
                             qint32 idFco) {
    const qint32 id = e_.cliente({.idFco = idFco});
    e_.cn().Execute(
        QStringLiteral("UPDATE Cli SET cli_nom = ?, cli_ape1 = ?, CLI_DOC = ? WHERE CLI_ID = ?"),
        {nombre, apellido, doc, id});
    return id;
}

qint32 EmpresaSpool::albaran(qint32 idCliente, const QDate& fecha,
                             const std::vector<LineaSpool>& lineas, int regimen) {
    const qint32 id = e_.albaran(idCliente, fecha, regimen, {});
    e_.cn().Execute(QStringLiteral("UPDATE Cav SET Cav_Numero = ? WHERE Cav_Id = ?"),
                    {siguienteAlbaran_++, id});
    int orden = 1;
    for (const LineaSpool& l : lineas) {
        const double importe =
            std::round(l.uni * l.precio * (1 - l.dto1 / 100) * (1 - l.dto2 / 100) * 100) / 100;
        e_.cn().Execute(
            QStringLiteral(
                "INSERT INTO Lav (Lav_IdCav, Lav_Orden, Lav_CodArt, Lav_Des, Lav_Ampliades, "
                "Lav_Cantidad, Lav_Uni, Lav_Precio, Lav_Dto1, Lav_Dto2, Lav_Importe, "
                "Lav_ImpResDes, Lav_Tiva, Lav_Lote, Lav_Bulto, Lav_Largo, Lav_ancho, "
                "Lav_Imprimir, lav_iddoc, Lav_IdObra, lav_idparte) VALUES (?, ?, ?, ?, ?, ?, ?, "
                "?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"),
            {id,
             orden++,
             l.codigo,
             l.des,
             l.ampliades,
             l.uni,
             l.uni,
             l.precio,
             l.dto1,
             l.dto2,
             importe,
             l.resDes,
             e_.tipoIva(l.regimen, l.familia, QDate(2026, 1, 1)),
             l.lote,
             l.bulto,
             l.largo,
             l.ancho,
             l.imprimir ? 1 : 0,
             l.idDoc,
             l.idObra,
             l.idParte});
    }
    return id;
}

QVector<qint32> EmpresaSpool::lineas(qint32 idAlbaran) {
    QVector<qint32> r;
    for (Recordset rs = e_.cn().Execute(
             QStringLiteral("SELECT Lav_Id FROM Lav WHERE Lav_IdCav = ? ORDER BY Lav_Orden"),
             {idAlbaran});
         !rs.Eof(); rs.MoveNext()) {
        r << static_cast<qint32>(rs.Fields(0).Entero());
    }
    return r;
}

qint32 EmpresaSpool::factura(qint32 idCliente, const QDate& fecha,
                             const std::vector<qint32>& albaranes, double dto1, double dto2) {
    // The first number of a new series is answered by the company's script.
    const UsaInteraccion puerto(e_.ui());
    const qint32 id = e_.nuevaFactura(idCliente, fecha, albaranes, dto1, dto2);
    if (id == 0) {
        throw ErrorBd(QStringLiteral("No se ha creado la factura"));
    }
    f().CalculoTotalesFactura();
    if (!f().GrabaFactura(true)) {
        throw ErrorBd(QStringLiteral("No se ha grabado la factura"));
    }
    e_.cn().Execute(
        QStringLiteral("UPDATE Fav SET Fav_IdDir = 0, Fav_Sg = 'C/', Fav_Nombre = 'Mayor', "
                       "Fav_Num = 12, Fav_Escalera = '', Fav_Piso = '2', Fav_Puerta = 'B', "
                       "Fav_Cp = '46001', Fav_Poblacion = 'Valencia', Fav_Provincia = 46, "
                       "Fav_Pais = '011' WHERE Fav_Id = ?"),
        {id});
    ui_.vistos.clear();
    return id;
}

QByteArray
EmpresaSpool::imprime(const std::function<bool(VKFACVENTAS&, const QVector<qint32>&)>& layout,
                      const QVector<qint32>& ids) {
    QFile::remove(salida());
    layout(f(), ids);
    QFile fichero(salida());
    return fichero.open(QIODevice::ReadOnly) ? fichero.readAll() : QByteArray();
}

QStringList EmpresaSpool::mensajes() {
    QStringList r;
    for (const MensajeVisto& m : ui_.vistos) {
        r << m.texto;
    }
    ui_.vistos.clear();
    return r;
}

QString Legible(const QByteArray& bytes) {
    QString texto;
    for (const char c : bytes) {
        const auto b = static_cast<unsigned char>(c);
        switch (b) {
        case 10:
            texto += QStringLiteral("\n");
            break;
        case 13:
            break;
        case 12:
            texto += QStringLiteral("<FF>");
            break;
        case 15:
            texto += QStringLiteral("<SI>");
            break;
        case 18:
            texto += QStringLiteral("<DC2>");
            break;
        case 27:
            texto += QStringLiteral("<ESC>");
            break;
        default:
            if (b < 128) {
                texto += QChar(b);
            } else {
                // CP850 letters of Spanish.
                static const QHash<unsigned char, QChar> kCp850 = {
                    {0xA0, u'á'}, {0x82, u'é'}, {0xA1, u'í'}, {0xA2, u'ó'}, {0xA3, u'ú'},
                    {0xA4, u'ñ'}, {0xA5, u'Ñ'}, {0xA7, u'º'}, {0xA6, u'ª'}, {0x81, u'ü'},
                    {0xB5, u'Á'}, {0x90, u'É'}, {0xD6, u'Í'}, {0xE0, u'Ó'}, {0xE9, u'Ú'}};
                texto += kCp850.value(b, QChar(u'¿'));
            }
        }
    }
    return texto;
}

void ComparaConEsperado(const QByteArray& bytes, const QString& nombre) {
    const QString ruta =
        QDir(QStringLiteral(VK_ESPERADO)).filePath(nombre + QStringLiteral(".txt"));
    if (qEnvironmentVariableIsSet("VKFACTUVEN_REGENERA_ESPERADO")) {
        QFile f(ruta);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate)) << ruta.toStdString();
        f.write(bytes);
        return;
    }
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly))
        << ruta.toStdString() << " no existe: VKFACTUVEN_REGENERA_ESPERADO=1 lo escribe";
    const QByteArray esperado = f.readAll();
    if (bytes == esperado) {
        return;
    }
    const QStringList a = Legible(esperado).split(u'\n');
    const QStringList b = Legible(bytes).split(u'\n');
    qsizetype i = 0;
    while (i < a.size() && i < b.size() && a[i] == b[i]) {
        ++i;
    }
    ADD_FAILURE() << nombre.toStdString() << ": first difference on line " << i + 1
                  << "\n  expected: «" << a.value(i).toStdString() << "»\n  printed:  «"
                  << b.value(i).toStdString() << "»\n--- printed ---\n"
                  << Legible(bytes).toStdString();
}

} // namespace vk::prueba
