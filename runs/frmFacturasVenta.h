// The batch invoicing screen: pending delivery notes grouped by customer,
// payment terms, the notes' discounts and agent, turned into one invoice per
// group. Toolkit-free: the controls are typed members with their names, the
// commands are methods, and people are reached through the interaction port.
#pragma once

#include "GruposFacturables.h"

#include <FacturacionAlbaranes.h>
#include <QDate>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>
#include <Recordset.h>
#include <VKFACVENTAS.h>
#include <array>
#include <optional>
#include <utility>
#include <vector>

namespace vk {

class VKFACVENTAS;
class BdSesion;

// An invoice of the run that did not finish, or a group left undone, with
// the reason a person reads.
struct IncidenciaFacturacion {
    QString factura; // "A/12", or empty when no number was used
    QString cliente;
    QString motivo;
};

// One delivery note of the current group: a row of ListView1.
struct AlbaranFacturable {
    qint32 Cav_Id = 0;
    QString NuAlbaran; // series/number
    QDate Cav_Fecha;
    double TAlbaran = 0;
    QVariant Cav_Agente;
    bool marcado = true;
};

class frmFacturasVenta {
public:
    explicit frmFacturasVenta(VKFACVENTAS& factura); // Form_Load

    QString Caption;
    // 0 customer code, 1 its name, 2-3 dates of the notes, 4 series of the
    // notes, 5 series of the invoices, 6 invoice date, 7 remarks, 8-9
    // discounts, 10 printer, 11 copies, 14 attention line.
    std::array<QString, 15> Text1;
    bool Text1_14_Enabled = true;
    QStringList cboFpago;
    int cboFpagoIndex = -1;
    QStringList cboDir;
    int cboDirIndex = -1;
    bool Check1 = false;          // include notes at zero
    bool Check2 = false;          // remarks stay from one invoice to the next
    bool Check3 = false;          // receipts to the portfolio (shown only)
    bool Check4 = false;          // all customers
    bool Check5 = false;          // apply the discounts typed
    bool chkGroupAgentes = false; // agents do not split groups
    bool Frame4_Enabled = true;
    int optSalida = 0; // 0 screen, 1 printer, 2 PDF file
    QString Label1_1;
    QString lblCliObs;

    // The groups of the last search (dbgCli, rsCli), in its order: how
    // many, and one by its row, whose customer's data is read with its page.
    int NumeroGrupos() const { return grupos_.Numero(); }
    GrupoFacturable Grupo(int fila) const { return grupos_.Grupo(fila); }
    // Counts the searches: a view shows the groups again only when a search
    // changed them.
    int BusquedasHechas() const { return busquedas_; }
    int filaCli = -1; // the current row of dbgCli
    std::vector<AlbaranFacturable> ListView1;
    Recordset dbgLineas;
    QString lblLineas;

    // --- commands ---
    void msBuscarCliente(qint32 nCodigo); // F1 is -1
    void Text1_0_LostFocus();
    void cmdBuscar();
    void SeleccionaGrupo(int fila); // the row-change handler of rsCli
    void msLineasAlbaran(qint32 nIdCav);
    void cmdMarcar();
    void Check4_Click();
    void cmdImpresoras();
    void cmdFacturar();

    // What the last run made, for hosts that report it: the invoices made
    // (finished or not), those that did not finish and the groups left
    // undone, and whether the run stopped before the end.
    std::vector<qint32> facturasGeneradas;
    std::vector<IncidenciaFacturacion> incidencias;
    bool ejecucionDetenida = false;
    // The run ended in an error told to the person.
    bool ejecucionFallida = false;
    // How the issue of the invoices made ended.
    ResultadoEmision resultadoEmision = ResultadoEmision::Hecha;
    // A host that lists `incidencias` itself turns off the run's closing
    // message about them.
    bool muestraResumenIncidencias = true;
    bool ultimaOrdenRechazada = false;

private:
    struct Filtro {
        QString sql;
        QVariantList parametros;
    };
    Filtro clausulaFechas() const;
    Filtro clausulaComun() const; // dates, customer, state, series
    void msCargarAlbaranes(const GrupoFacturable& g);
    bool compruebaFacturacion();
    CabeceraFactura cabecera(const GrupoFacturable& g) const;
    // The invoice date typed in Text1[6]; invalid when it is not a date.
    QDate fechaFactura() const;
    // A date typed in a box, read once per text: a run asks for the dates
    // at every group.
    struct FechaTecleada {
        std::optional<QDate> De(const QString& texto);
        QString texto;
        std::optional<QDate> fecha;
        bool leida = false;
    };
    mutable FechaTecleada desde_, hasta_, fechaFactura_;
    ResultadoFacturacion facturaAlbaranes(const GrupoFacturable& g,
                                          const std::vector<qint32>& albaranes);
    // What the invoices since the last commit made and met: reported only
    // once their commit stands.
    struct FacturaHecha {
        qint32 id = 0;
        QString factura; // "serie/número"
        QString cliente;
    };
    struct PorConfirmar {
        std::vector<FacturaHecha> facturas;
        std::vector<IncidenciaFacturacion> incidencias;
        QVector<qint32> emitir;
    };
    // Commits the batch open in `lote` and reports what it held; when the
    // commit fails, reports each of its invoices as not made and stops.
    void confirmaLote(class TransaccionPorLotes& lote, QVector<qint32>& ids);
    // Reports what a commit holds: the invoices made and the incidents.
    void anota(PorConfirmar&& hechas, QVector<qint32>& ids);
    PorConfirmar porConfirmar_;
    // Outside any transaction, after a batch: refreshes the statistics when
    // the run has made far more invoices than at the last refresh.
    void actualizaEstadisticas(std::size_t hechas, std::size_t& umbral);
    QString resumenIncidencias() const;
    void facturacionSelectiva();
    void msFacturarTodos();
    void emite(bool todos, const QVector<qint32>& ids);

    VKFACVENTAS& factura_;
    BdSesion& bd_;
    QString nombreCliente_; // SQL of the customer's display name
    GruposFacturables grupos_;
    int busquedas_ = 0;
    qint32 idClienteFiltro_ = 0;
    std::vector<qint32> direcciones_; // Dir_Id of cboDir's items
    bool facturandoTodos_ = false;
};

} // namespace vk
