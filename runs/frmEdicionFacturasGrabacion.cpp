// The edit screen's saves: its data, date and series, the manual total, the
// receipts and the rectifying flag. The questions are asked here; the writes
// are the engine's, one transaction each, checked again under the lock.
#include "Combos.h"
#include "MensajesRuns.h"
#include "frmEdicionFacturas.h"

#include <BdSesion.h>
#include <ErrorBd.h>
#include <Formato.h>
#include <Interaccion.h>
#include <MensajesMotor.h>
#include <Redondeo.h>
#include <RegistroFiscalFactura.h>
#include <ReglasFecha.h>
#include <Tesoreria.h>

namespace vk {

namespace {

// A figure typed in a box, or its stored value when the box holds no number.
double numeroTecleado(const QString& texto, double almacenado) {
    return LeeNumeroTecleado(texto).value_or(almacenado);
}

bool distintos(double a, double b) {
    return Redondea(a, 4) != Redondea(b, 4);
}

} // namespace

bool frmEdicionFacturas::intenta(const std::function<void()>& paso) {
    try {
        paso();
        return true;
    } catch (const ErrorRegla& e) {
        ultimaOrdenFallida = true;
        Ui().Mensaje(e.Mensaje(), Icono::Aviso, mensajes::kAccionCancelada);
    } catch (const Error& e) {
        ultimaOrdenFallida = true;
        Ui().Mensaje(e.Mensaje(), Icono::Error, mensajes::kTituloEdicion);
    }
    return false;
}

EdicionFactura frmEdicionFacturas::edicionMostrada() const {
    const RegistroFactura& f = cargada_;
    EdicionFactura e;
    e.idFactura = idFactura_;
    if (const QDate fecha = fechaMostrada(); fecha != f.FechaFactura) {
        e.fecha = fecha;
    }
    if (cboSeriesIndex >= 0 && cboSeriesIndex < cboSeries.size() &&
        cboSeries[cboSeriesIndex].trimmed() != f.SerieFactura.trimmed()) {
        e.serie = cboSeries[cboSeriesIndex].trimmed();
    }
    if (txtFavObs != f.Observaciones) {
        e.observaciones = txtFavObs;
    }
    if (Text1[24] != f.Aatencion) {
        e.atencion = Text1[24];
    }
    if (Text1[27].trimmed() != f.sCtaCompensa.trimmed()) {
        e.ctaCompensa = Text1[27].trimmed();
    }
    if (cboFpagoIndex >= 0 && cboFpagoIndex < cboFpago.size()) {
        if (const qint32 fco = fnIdCombo(cboFpago[cboFpagoIndex]); fco != f.IdFco) {
            e.idFco = fco;
        }
    }
    if (const double d = numeroTecleado(Text1[20], f.PorcentajeDto1);
        distintos(d, f.PorcentajeDto1)) {
        e.dto1 = d;
    }
    if (const double d = numeroTecleado(Text1[22], f.PorcentajeDto2);
        distintos(d, f.PorcentajeDto2)) {
        e.dto2 = d;
    }
    if (const double r = numeroTecleado(txtRetencionNF, f.porcentajeretencionnf);
        distintos(r, f.porcentajeretencionnf)) {
        e.retencionNF = r;
    }
    if (Option1 != (f.nModoRetNF == 1 ? 1 : 0)) {
        e.modoRetencionNF = static_cast<qint16>(Option1);
    }
    // The address is written only when a box changed; the invoice then keeps
    // it by value, as issued.
    if (direccion.Cambiada()) {
        e.direccion = direccion.Leida();
    }
    return e;
}

EdicionFactura::Recibos frmEdicionFacturas::preguntaRecibos() {
    if (!fnHayRecibosNoPendientes(bd_, idFactura_)) {
        return EdicionFactura::Recibos::SiCambian;
    }
    return Ui().Pregunta(mensajes::kRecibosNoPendientes, Caption, false)
               ? EdicionFactura::Recibos::Regenera
               : EdicionFactura::Recibos::Conserva;
}

bool frmEdicionFacturas::avisaRegistro(const EdicionFactura& e) {
    const bool identidad = e.fecha || e.serie;
    const bool contenido = e.albaranIncluido || e.albaranQuitado || e.cambioLineas || e.dto1 ||
                           e.dto2 || e.idClienteNuevo;
    if ((!identidad && !contenido) || !fnFacturaRegistrada(bd_, idFactura_)) {
        return true;
    }
    return Ui().Pregunta(identidad ? mensajes::kAvisoAnulacion : mensajes::kAvisoSubsanacion,
                         Caption, true);
}

bool frmEdicionFacturas::msRecalculaFactura(EdicionFactura edicion) {
    if (!avisaRegistro(edicion)) {
        return false;
    }
    const bool hecho = intenta([&] { vk::msRecalculaFactura(factura_, edicion); });
    recarga();
    return hecho;
}

void frmEdicionFacturas::cmdActualiza() {
    ultimaOrdenFallida = false;
    if (!HayFactura() || bSoloLectura) {
        return;
    }
    EdicionFactura e;
    if (!intenta([&] { e = edicionMostrada(); })) {
        return;
    }
    if (!sigueExistiendo()) {
        return;
    }
    const QDate fecha = e.fecha.value_or(cargada_.FechaFactura);
    if (e.serie) {
        if (!fnEsUltimaDeSerie(bd_, idFactura_)) {
            ultimaOrdenFallida = true;
            Ui().Mensaje(mensajes::kSoloUltimoNumero, Icono::Aviso, Caption);
            return;
        }
        if (!Ui().Pregunta(mensajes::kConfirmaCambioSerie.arg(cargada_.SerieFactura, *e.serie),
                           Caption, false)) {
            return;
        }
        const std::optional<QDate> nueva = fnFechaCambioSerie(bd_, *e.serie, fecha);
        if (!nueva) {
            ultimaOrdenFallida = true;
            return;
        }
        if (*nueva != cargada_.FechaFactura) {
            e.fecha = *nueva;
            Text1[2] = Format(*nueva, QStringLiteral("dd/mm/yyyy"));
        }
    } else if (e.fecha &&
               !fnFechaEntreVecinas(bd_, cargada_.SerieFactura, cargada_.NumeroFactura, *e.fecha)) {
        ultimaOrdenFallida = true;
        return;
    }
    if (!Ui().Pregunta(mensajes::kConfirmaCambios, Caption, true)) {
        return;
    }
    e.recibos = preguntaRecibos();
    msRecalculaFactura(std::move(e));
}

void frmEdicionFacturas::Check1_Click() {
    ultimaOrdenFallida = false;
    if (cargandoCheck_ || !HayFactura()) {
        return;
    }
    if (bSoloLectura) {
        Check1 = cargada_.IdLavManual > 0;
        return;
    }
    if (Check1) {
        if (cargada_.ImpDto1 + cargada_.ImpDto2 + cargada_.ImpDtoPie1 != 0) {
            ultimaOrdenFallida = true;
            Ui().Mensaje(mensajes::kTotalConDescuentos, Icono::Aviso, Caption);
            Check1 = false;
            return;
        }
        Text1_4_Enabled = true;
        return;
    }
    Text1_4_Enabled = false;
    if (cargada_.IdLavManual != 0) {
        intenta([&] { msDeshazTotalManual(factura_, idFactura_); });
        recarga();
    }
}

void frmEdicionFacturas::Text1_4_LostFocus() {
    ultimaOrdenFallida = false;
    if (!Check1 || !HayFactura() || bSoloLectura) {
        return;
    }
    const RegistroFactura& f = cargada_;
    const std::optional<double> nuevo = LeeNumeroTecleado(Text1[4]);
    double suma = f.SumaBases() - f.ImpRetencion;
    for (const TramoIva& t : f.TramosIva) {
        suma += t.ImpIva + t.ImpRecargo;
    }
    if (!nuevo || Redondea(*nuevo, 2) == Redondea(suma, 2)) {
        Text1[4] = Format(f.TotalFactura, QStringLiteral("#,###,##0.00"));
        return;
    }
    if (!Ui().Pregunta(mensajes::kConfirmaDiferencia, Caption, false)) {
        Text1[4] = Format(f.TotalFactura, QStringLiteral("#,###,##0.00"));
        return;
    }
    if (intenta([&] { msAjustaTotalManual(factura_, idFactura_, *nuevo); }) &&
        Ui().Pregunta(mensajes::kRecibosNuevoImporte, Caption, true)) {
        intenta([&] { msRegeneraRecibos(factura_, idFactura_, true); });
    }
    recarga();
}

void frmEdicionFacturas::Check2_Click() {
    ultimaOrdenFallida = false;
    if (cargandoCheck_ || !HayFactura()) {
        return;
    }
    const bool marcada = Check2;
    const auto restaura = [this, marcada] {
        cargandoCheck_ = true;
        Check2 = !marcada;
        cargandoCheck_ = false;
    };
    if (bSoloLectura) {
        restaura();
        return;
    }
    if (!Ui().Pregunta(marcada ? mensajes::kActivarRectificativa
                               : mensajes::kDesactivarRectificativa,
                       mensajes::kTituloAtencion, false)) {
        restaura();
        return;
    }
    try {
        msMarcaRectificativa(factura_, idFactura_, marcada);
    } catch (const Error&) {
        ultimaOrdenFallida = true;
        Ui().Mensaje(mensajes::kErrorProceso, Icono::Error, mensajes::kTituloAtencion);
        restaura();
    }
}

void frmEdicionFacturas::msGeneraRecibos() {
    ultimaOrdenFallida = false;
    if (!HayFactura() || bSoloLectura) {
        return;
    }
    intenta([&] { msRegeneraRecibos(factura_, idFactura_, false); });
    msCargarRecibos();
}

void frmEdicionFacturas::dbgRecibos_DblClick(int fila) {
    if (fila < 0 || fila >= static_cast<int>(dbgRecibos.size()) || dbgRecibos[fila].Rec_Sit != 1) {
        return;
    }
    const qint32 idRecibo = dbgRecibos[fila].Rec_Id;
    intenta([&] {
        std::unique_ptr<VKTESORE> t = CreaObjeto<VKTESORE>(QString::fromLatin1(VKTESORE::kProgId));
        t->MyBd = &bd_;
        t->jManteRecibos(idRecibo);
    });
    msCargarRecibos();
}

} // namespace vk
