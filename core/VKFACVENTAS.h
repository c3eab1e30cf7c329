// The one public class of the library: at once the entry point of a host and
// the in-memory record of the invoice in hand (`RegistroFactura`, whose
// members it shows under their legacy names). Its properties are plain
// members, read and written by every screen and engine; nothing keeps them
// consistent except the order of the calls.
//
// Each method body lives with the subsystem that owns the behaviour; this
// file defines the session, the clause and the screen entries.
#pragma once

#include "BdSesion.h"
#include "Componentes.h"
#include "RegistroFactura.h"

#include <QDate>
#include <QString>
#include <QVector>

namespace vk {

// How an issue run ended. A failure has been shown to the person already;
// the caller learns of it here, to stop or to set an exit status.
enum class ResultadoEmision {
    Hecha,     // delivered, or nothing to deliver
    Cancelada, // the person closed a dialog of the run
    Fallida,   // a failure, told to the person
};

class VKFACVENTAS : public RegistroFactura {
public:
    // Starts with the built-in data protection clause.
    VKFACVENTAS();
    ~VKFACVENTAS();
    VKFACVENTAS(const VKFACVENTAS&) = delete;
    VKFACVENTAS& operator=(const VKFACVENTAS&) = delete;

    // --- issue options of the invoice in hand ---
    quint8 Tipo_Emision = 0; // 0 viewer, 1 printer, 2 PDF file, 3 mail
    bool Copia = false;
    bool ImprimeAlbaran = false;
    qint16 NumCopias = 1;
    qint16 prnEmp = 0;
    QString DireccionEmail;
    bool VisualizarPDF = false;
    QString RutaFicheroPdf;
    QString PdfOutFile;
    bool DebugWeb = false;

    // --- the session ---
    BdSesion& MyBd() const;
    bool TieneSesion() const { return bd_ != nullptr; }
    // Stores the session and settles the clause for its company.
    void setMyBd(BdSesion& sesion);
    // The data protection clause printed on invoices.
    QString sTextoLOPD;
    // The user's delivery note series, left by getSeriesFactura.
    QString sSerieAlbaran;

    // --- screen entries (through the host's screen launcher) ---
    void jEditaFactura(const QString& sSerie, qint32 nNumero, bool bSoloLectura = false);
    void jFacturasVenta();
    // The batch deletion of invoices: the desktop's menu reaches it here like
    // every other screen; it refuses anyone but an administrator itself.
    void jBorradoFacturas();
    // The invoicing records (VERI*FACTU) and their state with the agency.
    void jRegistrosFiscales();
    void jFacturasContrataciones();
    void jInformeFacturasVenta();
    void jComparaVentas();
    void jInformeFacturasVenta2();
    void jConexionContable(qint16 nOrigen = 0, const QString& sConexion = {});
    void jEmisionFacturas();
    void jRetencionesNoFiscales() {} // reserved: the interface keeps it
    void jFacturaAlbaran() {}        // reserved: the interface keeps it

    // --- the invoice engine (engine/) ---
    // The invoice series of the current user; leaves the user's delivery note
    // series in sSerieAlbaran.
    QString getSeriesFactura();
    // Writes the header row and returns its Fav_Id, or 0 when none was made.
    qint32 NuevaFactura(qint16 nTipo = 0);
    // Reads the invoice's Fav row into the record; false when there is none.
    bool CargaFactura(qint32 idFactu);
    void CalculoTotalesFactura();
    bool GrabaFactura(bool bRecibos = false, bool bEdi = false);
    bool VerificarFechaFactura(const QString& sSerie, const QString& sFecha);

    // --- accounting ---
    // `sWhere` selects the invoices with `?` placeholders; `vWhere` are their
    // values, bound in order.
    bool ConexionContableFacturaVentas(qint16 nEmp, const QString& sWhere,
                                       const QVariantList& vWhere, bool bCobros = false,
                                       bool bBorra = false, bool bEdicion = false,
                                       const QString& sAsientoCobro = {});

    // --- issue ---
    ResultadoEmision EmisionFacturas(qint16 nDiseno, bool bDiseno);
    ResultadoEmision EmisionSimple(const QString& Serie, qint32 Numero);
    ResultadoEmision EmisionMultiplesFacturas(qint16 nDiseno, bool bDiseno,
                                              const QVector<qint32>& vIds, bool bForce = false,
                                              qint16 nOrigen = 0);
    // Issues one invoice by the route of Tipo_Emision, without the preamble,
    // and returns the file the PDF route wrote (empty when none).
    QString CreatePdf(qint32 nIdFactura);

private:
    BdSesion* bd_ = nullptr;
};

// The issue dispatcher, registered by name so that the facade reaches it
// without depending on the subsystem that implements it.
class EmisorFacturas : public Componente {
public:
    static constexpr const char* kProgId = "VKFACTUVEN.EMISION";
    virtual ResultadoEmision EmisionMultiplesFacturas(VKFACVENTAS& factura, qint16 nDiseno,
                                                      bool bDiseno, const QVector<qint32>& vIds,
                                                      bool bForce, qint16 nOrigen) = 0;
};

// The automatic posting, registered by name for the same reason.
class ContabilizadorVentas : public Componente {
public:
    static constexpr const char* kProgId = "VKFACTUVEN.CONTABILIZACION";
    virtual bool ConexionContableFacturaVentas(VKFACVENTAS& factura, qint16 nEmp,
                                               const QString& sWhere, const QVariantList& vWhere,
                                               bool bCobros, bool bBorra, bool bEdicion,
                                               const QString& sAsientoCobro) = 0;
};

// The built-in data protection clause, ending in "El Responsable del Fichero es: ".
QString TextoLOPDBase();

} // namespace vk
