#include "OrdenEdicion.h"

#include "Argumentos.h"
#include "ImpresionFactura.h"
#include "InteraccionConsola.h"
#include "MensajesApp.h"

#include <BdSesion.h>
#include <CopiaFactura.h>
#include <ErrorBd.h>
#include <Formato.h>
#include <RegistroSuite.h>
#include <ReglasFecha.h>
#include <VKFACVENTAS.h>
#include <frmBorradoFacturas.h>
#include <frmEdicionFacturas.h>
#include <limits>
#include <memory>

namespace vk::app {

namespace {

constexpr qint32 kMaximo = std::numeric_limits<qint32>::max();

// Every question gets the command's answer, and a lookup of customers picks
// the one the command named.
class InteraccionEdicion : public InteraccionConsola {
public:
    using InteraccionConsola::InteraccionConsola;

    std::optional<qint32> idCliente;

    void Contesta(bool siempreSi) {
        si_ = siempreSi;
        ResponderSiSiempre(siempreSi);
    }
    bool Pregunta(const QString& texto, const QString& titulo, bool siPorDefecto) override {
        if (!si_) {
            respuestas.push_back(false);
        }
        return InteraccionConsola::Pregunta(texto, titulo, siPorDefecto);
    }
    std::optional<int> Busca(const PeticionBusca& peticion) override {
        InteraccionConsola::Busca(peticion);
        for (std::size_t i = 0; idCliente && i < peticion.filas.size(); ++i) {
            if (!peticion.filas[i].empty() && peticion.filas[i][0].toLongLong() == *idCliente) {
                return static_cast<int>(i);
            }
        }
        return std::nullopt;
    }

private:
    bool si_ = true;
};

// The session, the facade and the screen on invoice --serie/--numero.
struct Edicion {
    std::unique_ptr<BdSesion> bd;
    std::unique_ptr<InteraccionEdicion> ui;
    std::unique_ptr<UsaInteraccion> puerto;
    std::unique_ptr<VKFACVENTAS> factura;
    std::unique_ptr<frmEdicionFacturas> pantalla;
};

void declaraFactura(Argumentos& a) {
    a.declaraOpcion(QStringLiteral("serie"), QStringLiteral("S"),
                    QStringLiteral("serie de la factura"));
    a.declaraOpcion(QStringLiteral("numero"), QStringLiteral("N"),
                    QStringLiteral("número de la factura"));
    a.declaraOpcion(QStringLiteral("usuario"), QStringLiteral("N"),
                    QStringLiteral("usuario de la sesión (por omisión, el de la conexión)"));
}

Edicion abre(const Argumentos& a, QTextStream& out, QTextStream& err, bool soloLectura) {
    const QString serie = LeeSerieOpcion(
        QStringLiteral("--serie"), a.requerido(QStringLiteral("serie"), mensajes::kIndiqueSerie));
    const qint32 numero = LeeEnteroOpcion(
        QStringLiteral("--numero"),
        a.requerido(QStringLiteral("numero"), mensajes::kIndiqueNumeroFactura), 1, kMaximo);
    const std::optional<qint32> usuario = a.entero(QStringLiteral("usuario"), 1, kMaximo);
    CadenaConexion cadena = CadenaConexion::Interpreta(a.baseDatos());
    if (usuario) {
        cadena.idUsuario = *usuario;
    }
    suite::RegistraComponentesSuite();
    Edicion e;
    e.bd = BdSesion::Abre(cadena);
    if (usuario) {
        CompruebaUsuario(*e.bd, *usuario);
    }
    e.ui = std::make_unique<InteraccionEdicion>(out, err);
    e.ui->Contesta(!a.bandera(QStringLiteral("no")));
    e.puerto = std::make_unique<UsaInteraccion>(*e.ui);
    e.factura = std::make_unique<VKFACVENTAS>();
    e.factura->setMyBd(*e.bd);
    e.pantalla = std::make_unique<frmEdicionFacturas>(*e.factura, serie, numero, soloLectura);
    if (!e.pantalla->HayFactura()) {
        throw ErrorRegla(mensajes::kFacturaInexistenteOrden.arg(serie).arg(numero));
    }
    return e;
}

// A note given as SERIE/NUMERO.
std::pair<QString, qint32> albaran(const QString& opcion, const QString& texto) {
    const qsizetype barra = texto.lastIndexOf(QLatin1Char('/'));
    if (barra <= 0) {
        throw ErrorUso(mensajes::kAlbaranMalEscrito.arg(opcion, texto));
    }
    return {texto.left(barra).trimmed(), LeeEnteroOpcion(opcion, texto.mid(barra + 1), 1, kMaximo)};
}

double numero(const QString& opcion, const QString& texto) {
    const std::optional<double> v = LeeNumeroTecleado(texto);
    if (!v) {
        throw ErrorUso(mensajes::kNumeroMalEscrito.arg(opcion, texto));
    }
    return *v;
}

} // namespace

int OrdenVer(const QStringList& args, QTextStream& out, QTextStream& err) {
    Argumentos a(QStringLiteral("ver"), QStringLiteral("--serie S --numero N [opciones]"),
                 QStringLiteral("Muestra una factura: cabecera, cliente, albaranes, importes por "
                                "tipo de IVA y recibos."));
    declaraFactura(a);
    a.analiza(args);
    Edicion e = abre(a, out, err, true);
    ImprimeFacturaEditada(*e.pantalla, *e.factura, out);
    return 0;
}

int OrdenEditar(const QStringList& args, QTextStream& out, QTextStream& err) {
    Argumentos a(QStringLiteral("editar"), QStringLiteral("--serie S --numero N [cambios]"),
                 QStringLiteral("Cambia una factura como la pantalla de edición de facturas, "
                                "contestando sí a sus\npreguntas (no, con --no). Si un paso se "
                                "rechaza, la factura queda como estaba."));
    declaraFactura(a);
    a.declaraOpcion(QStringLiteral("fecha"), QStringLiteral("DD/MM/AAAA"),
                    QStringLiteral("nueva fecha, entre las de la factura anterior y la siguiente"));
    a.declaraOpcion(
        QStringLiteral("serie-nueva"), QStringLiteral("S"),
        QStringLiteral("pasa la última factura de su serie al siguiente número de otra"));
    a.declaraOpcion(QStringLiteral("incluir-albaran"), QStringLiteral("SERIE/NUM"),
                    QStringLiteral("añade un albarán pendiente del cliente"));
    a.declaraOpcion(QStringLiteral("quitar-albaran"), QStringLiteral("SERIE/NUM"),
                    QStringLiteral("quita un albarán de la factura, que vuelve a estar pendiente"));
    a.declaraOpcion(QStringLiteral("total-manual"), QStringLiteral("IMPORTE"),
                    QStringLiteral("fija el total; la diferencia va a la primera línea"));
    a.declaraBandera(QStringLiteral("sin-total-manual"), QStringLiteral("deshace el total manual"));
    a.declaraOpcion(QStringLiteral("rca"), QStringLiteral("si|no"),
                    QStringLiteral("rectificativa para concurso de acreedores"));
    a.declaraOpcion(QStringLiteral("cliente"), QStringLiteral("COD"),
                    QStringLiteral("pasa la factura y sus albaranes a otro cliente"));
    a.declaraOpcion(QStringLiteral("observaciones"), QStringLiteral("TEXTO"),
                    QStringLiteral("observaciones de pie de la factura"));
    a.declaraOpcion(QStringLiteral("dto1"), QStringLiteral("X"),
                    QStringLiteral("primer descuento de la factura, en %"));
    a.declaraOpcion(QStringLiteral("dto2"), QStringLiteral("Y"),
                    QStringLiteral("segundo descuento de la factura, en %"));
    a.declaraBandera(QStringLiteral("regenerar-recibos"),
                     QStringLiteral("vuelve a hacer los recibos pendientes"));
    a.declaraBandera(QStringLiteral("no"), QStringLiteral("contesta no a las preguntas"));
    a.analiza(args);

    // Every value is checked before anything is written.
    const std::optional<QDate> fecha = a.fecha(QStringLiteral("fecha"));
    const std::optional<QString> serieNueva = a.serie(QStringLiteral("serie-nueva"));
    std::optional<std::pair<QString, qint32>> incluir, quitar;
    if (const auto v = a.valor(QStringLiteral("incluir-albaran"))) {
        incluir = albaran(QStringLiteral("--incluir-albaran"), *v);
    }
    if (const auto v = a.valor(QStringLiteral("quitar-albaran"))) {
        quitar = albaran(QStringLiteral("--quitar-albaran"), *v);
    }
    std::optional<double> totalManual, dto1, dto2;
    if (const auto v = a.valor(QStringLiteral("total-manual"))) {
        totalManual = numero(QStringLiteral("--total-manual"), *v);
    }
    if (totalManual && a.bandera(QStringLiteral("sin-total-manual"))) {
        throw ErrorUso(mensajes::kTotalManualYSin);
    }
    for (auto [nombre, destino] :
         {std::pair{QStringLiteral("dto1"), &dto1}, std::pair{QStringLiteral("dto2"), &dto2}}) {
        if (const auto v = a.valor(nombre)) {
            *destino = numero(QStringLiteral("--") + nombre, *v);
            if (**destino < 0 || **destino > 100) {
                throw ErrorUso(mensajes::kDescuentoFueraDeRango.arg(nombre));
            }
        }
    }
    const std::optional<QString> rca =
        a.eleccion(QStringLiteral("rca"), {QStringLiteral("si"), QStringLiteral("no")});
    const std::optional<qint32> codigoCliente = a.entero(QStringLiteral("cliente"), 1, kMaximo);
    const std::optional<QString> observaciones = a.valor(QStringLiteral("observaciones"));

    Edicion e = abre(a, out, err, false);
    frmEdicionFacturas& p = *e.pantalla;
    if (codigoCliente) {
        e.ui->idCliente = CompruebaCliente(*e.bd, *codigoCliente);
    }
    // The steps run in the screen's order inside one transaction: the first
    // one refused takes back those before it.
    Transaccion todo(e.bd->cn());
    const auto paso = [&p](const std::function<void()>& orden) {
        if (!p.ultimaOrdenFallida) {
            orden();
        }
    };
    if (rca && (*rca == QLatin1String("si")) != p.Check2) {
        paso([&] {
            p.Check2 = !p.Check2;
            p.Check2_Click();
        });
    }
    if (a.bandera(QStringLiteral("sin-total-manual"))) {
        paso([&] {
            p.Check1 = false;
            p.Check1_Click();
        });
    }
    if (incluir) {
        paso([&] {
            p.Text1[5] = incluir->first;
            p.Text1[6] = QString::number(incluir->second);
            p.cmdAñadir();
        });
    }
    if (quitar) {
        paso([&] {
            p.Text1[5] = quitar->first;
            p.Text1[6] = QString::number(quitar->second);
            p.cmdQuitar();
        });
    }
    if (codigoCliente) {
        paso([&] { p.XPButton2(); });
    }
    if (totalManual) {
        paso([&] {
            p.Check1 = true;
            p.Check1_Click();
        });
        paso([&] {
            p.Text1[4] = QString::number(*totalManual, 'f', 2);
            p.Text1_4_LostFocus();
        });
    }
    if (fecha || serieNueva || observaciones || dto1 || dto2) {
        paso([&] {
            if (fecha) {
                p.Text1[2] = fecha->toString(QStringLiteral("dd/MM/yyyy"));
            }
            if (serieNueva) {
                if (!p.cboSeries.contains(*serieNueva)) {
                    p.cboSeries << *serieNueva;
                }
                p.cboSeriesIndex = static_cast<int>(p.cboSeries.indexOf(*serieNueva));
            }
            if (observaciones) {
                p.txtFavObs = *observaciones;
            }
            if (dto1) {
                p.Text1[20] = QString::number(*dto1, 'f', 2);
            }
            if (dto2) {
                p.Text1[22] = QString::number(*dto2, 'f', 2);
            }
            p.cmdActualiza();
        });
    }
    if (a.bandera(QStringLiteral("regenerar-recibos"))) {
        paso([&] { p.msGeneraRecibos(); });
    }
    if (p.ultimaOrdenFallida) {
        todo.Deshaz();
        throw Error(mensajes::kFacturaSinCambios);
    }
    todo.Confirma();
    // Shown as stored after the commit.
    frmEdicionFacturas despues(*e.factura, p.Text1[0], p.Text1[1].toInt(), true);
    ImprimeFacturaEditada(despues, *e.factura, out);
    return 0;
}

int OrdenBorrar(const QStringList& args, QTextStream& out, QTextStream& err) {
    Argumentos a(QStringLiteral("borrar"), QStringLiteral("--serie S --numero N [opciones]"),
                 QStringLiteral("Borra la última factura de una serie: sus recibos y retenciones "
                                "se borran y sus\nalbaranes vuelven a estar pendientes."));
    declaraFactura(a);
    a.declaraBandera(QStringLiteral("no"), QStringLiteral("contesta no a las preguntas"));
    a.analiza(args);
    Edicion e = abre(a, out, err, false);
    const QString factura = e.pantalla->Text1[0] + QLatin1Char('/') + e.pantalla->Text1[1];
    const qint32 id = e.pantalla->IdFactura();
    e.pantalla->cmdBorrar();
    if (e.pantalla->ultimaOrdenFallida) {
        throw Error(mensajes::kFacturaSinCambios);
    }
    const bool borrada =
        e.bd->cn().Execute(QStringLiteral("SELECT 1 FROM Fav WHERE Fav_Id = ?"), {id}).Eof();
    out << (borrada ? mensajes::kFacturaBorrada : mensajes::kFacturaNoBorrada).arg(factura)
        << Qt::endl;
    return 0;
}

int OrdenBorrarLote(const QStringList& args, QTextStream& out, QTextStream& err) {
    Argumentos a(QStringLiteral("borrar-lote"), QStringLiteral("--serie S [opciones]"),
                 QStringLiteral("Borra de una vez las facturas de una serie entre dos números y "
                                "dos fechas, con sus\nrecibos y retenciones; sus albaranes "
                                "vuelven a estar pendientes o, con\n--borrar-albaranes, se "
                                "borran. Solo para administradores."));
    a.declaraOpcion(QStringLiteral("serie"), QStringLiteral("S"),
                    QStringLiteral("serie de las facturas"));
    a.declaraOpcion(QStringLiteral("desde-numero"), QStringLiteral("N"),
                    QStringLiteral("primer número"));
    a.declaraOpcion(QStringLiteral("hasta-numero"), QStringLiteral("M"),
                    QStringLiteral("último número"));
    a.declaraOpcion(QStringLiteral("desde"), QStringLiteral("DD/MM/AAAA"),
                    QStringLiteral("primera fecha"));
    a.declaraOpcion(QStringLiteral("hasta"), QStringLiteral("DD/MM/AAAA"),
                    QStringLiteral("última fecha"));
    a.declaraBandera(QStringLiteral("borrar-albaranes"),
                     QStringLiteral("borra también los albaranes y sus líneas"));
    a.declaraOpcion(QStringLiteral("usuario"), QStringLiteral("N"),
                    QStringLiteral("usuario de la sesión (por omisión, el de la conexión)"));
    a.analiza(args);

    // Every value is checked before the session opens.
    const QString serie = LeeSerieOpcion(
        QStringLiteral("--serie"), a.requerido(QStringLiteral("serie"), mensajes::kIndiqueSerie));
    const std::optional<qint32> desdeNumero = a.entero(QStringLiteral("desde-numero"), 1, kMaximo);
    const std::optional<qint32> hastaNumero = a.entero(QStringLiteral("hasta-numero"), 1, kMaximo);
    const std::optional<QDate> desde = a.fecha(QStringLiteral("desde"));
    const std::optional<QDate> hasta = a.fecha(QStringLiteral("hasta"));
    const std::optional<qint32> usuario = a.entero(QStringLiteral("usuario"), 1, kMaximo);
    CadenaConexion cadena = CadenaConexion::Interpreta(a.baseDatos());
    if (usuario) {
        cadena.idUsuario = *usuario;
    }
    suite::RegistraComponentesSuite();
    std::unique_ptr<BdSesion> bd = BdSesion::Abre(cadena);
    if (usuario) {
        CompruebaUsuario(*bd, *usuario);
    }
    InteraccionConsola ui(out, err);
    ui.ResponderSiSiempre(true);
    UsaInteraccion puerto(ui);
    VKFACVENTAS factura;
    factura.setMyBd(*bd);

    frmBorradoFacturas p(factura);
    if (p.Cerrada) {
        return 1; // the screen said why
    }
    p.Text1[5] = serie;
    const auto texto = [](const auto& v) { return v ? QString::number(*v) : QString(); };
    p.Text1[0] = texto(desdeNumero);
    p.Text1[1] = texto(hastaNumero);
    const auto dia = [](const std::optional<QDate>& f) {
        return f ? f->toString(u"dd/MM/yyyy") : QString();
    };
    p.Text1[2] = dia(desde);
    p.Text1[3] = dia(hasta);
    p.Check1 = a.bandera(QStringLiteral("borrar-albaranes"));
    p.cmdBuscar();
    if (p.ultimaOrdenFallida) {
        return 1;
    }
    p.cmdBorrar();
    if (p.ultimaOrdenFallida) {
        return 1;
    }
    out << mensajes::kFacturasBorradas.arg(p.facturasBorradas) << Qt::endl;
    return 0;
}

namespace {

// A new invoice from invoice --serie/--numero: a credit note or a copy.
int copia(const QStringList& args, QTextStream& out, QTextStream& err, bool abono) {
    Argumentos a(abono ? QStringLiteral("abonar") : QStringLiteral("copiar"),
                 QStringLiteral("--serie S --numero N [opciones]"),
                 abono ? QStringLiteral("Hace la factura de abono (rectificativa) de una factura: "
                                        "las mismas líneas con las\n"
                                        "cantidades en negativo y los "
                                        "tipos de IVA de la factura que corrige.")
                       : QStringLiteral("Hace una factura nueva con los mismos datos y líneas que "
                                        "otra, con los tipos de IVA\n"
                                        "de su fecha."));
    declaraFactura(a);
    a.declaraOpcion(QStringLiteral("serie-destino"), QStringLiteral("S"),
                    QStringLiteral("serie de la factura nueva (por omisión, la misma)"));
    a.declaraOpcion(QStringLiteral("fecha"), QStringLiteral("DD/MM/AAAA"),
                    QStringLiteral("fecha de la factura nueva (por omisión, hoy)"));
    if (!abono) {
        a.declaraOpcion(QStringLiteral("cliente"), QStringLiteral("COD"),
                        QStringLiteral("cliente de la factura nueva (por omisión, el mismo)"));
    }
    a.analiza(args);
    const std::optional<QString> destino = a.serie(QStringLiteral("serie-destino"));
    const std::optional<QDate> fecha = a.fecha(QStringLiteral("fecha"));
    const std::optional<qint32> codigo =
        abono ? std::nullopt : a.entero(QStringLiteral("cliente"), 1, kMaximo);

    Edicion e = abre(a, out, err, true);
    const std::optional<qint32> idCliente =
        codigo ? std::optional<qint32>(CompruebaCliente(*e.bd, *codigo)) : std::nullopt;
    const QString origen = e.pantalla->Text1[0] + QLatin1Char('/') + e.pantalla->Text1[1];
    const ResultadoFacturacion r = msCopiaFactura(
        *e.factura,
        fnCopiaDe(*e.bd, e.pantalla->IdFactura(), destino.value_or(e.pantalla->Text1[0]),
                  fecha.value_or(fnFechaServidor(*e.bd)), idCliente, abono));
    if (!r.Creada()) {
        throw Error(mensajes::kCopiaNoHecha.arg(r.motivo), r.detalle);
    }
    out << (abono ? mensajes::kAbonoHecho : mensajes::kCopiaHecha).arg(r.factura, origen)
        << Qt::endl;
    const QStringList partes = r.factura.split(QLatin1Char('/'));
    frmEdicionFacturas nueva(*e.factura, partes.value(0), partes.value(1).toInt(), true);
    ImprimeFacturaEditada(nueva, *e.factura, out);
    return 0;
}

} // namespace

int OrdenAbonar(const QStringList& args, QTextStream& out, QTextStream& err) {
    return copia(args, out, err, true);
}

int OrdenCopiar(const QStringList& args, QTextStream& out, QTextStream& err) {
    return copia(args, out, err, false);
}

} // namespace vk::app
