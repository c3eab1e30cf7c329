// The rows of the invoice reports: one row per delivery note line of an
// invoice, with the invoice header, the note, the line and the payment text.
#pragma once

#include <BdSesion.h>
#include <QString>
#include <QVector>

namespace vk {

// The row SELECT without WHERE or ORDER BY, in the portable SQL subset. The
// net weight comes from the lines' weights unless PAR_MALBPESO is set, when
// the note's own figure is taken. Columns (names as the designs use them):
// the invoice's Fav_*, Cli_Cod/Cli_Nom/Cli_Doc, Direcion (three lines joined by
// CR LF), NumeroAlbaran, Cav_*, the line's Lav_*, FormaPago (the first sales
// receipt's text, or eleven "#" without receipts), Comercial, Tiva_Iva,
// Tiva_Rec, PVP, the line's regime Tiva_Reg and its legal mention
// MenIva_Texto (vkcomun.MENIVA, NULL when the regime has none), and the rest
// of the legacy list. The invoice's columns MencionIva and UrlQr are added by
// the readers below, so the rows are read through them.
QString fnSqlFacturas(BdSesion& bd);

// The rows' column with the URL of the invoice's tax QR.
inline const QString kColumnaUrlQr = QStringLiteral("UrlQr");

// The rows of those invoices, ordered as the issue orders them (note date,
// note series and number, line order); ids are bound. Empty ids give no rows.
Recordset LeeFilasFacturas(BdSesion& bd, const QVector<qint32>& ids);

// The rows of fnSqlFacturas followed by `resto` (the WHERE and ORDER BY of a
// reader with an order of its own), bound with params, with MencionIva on
// every row: the legal mentions of the regimes of the invoice's lines, each
// once, in regime order, joined by ". "; empty when none. And UrlQr: the URL
// of the invoice's tax QR (fiscal::fnUrlQrFactura), empty when it has no
// record in force.
Recordset LeeFilasFacturasDonde(BdSesion& bd, const QString& resto, const QVariantList& params);

// The rows of the food design's two subreports, bound in this order: the VAT
// rates, and the composition of the articles the invoices' lines carry.
Recordset LeeTiposIva(BdSesion& bd);
Recordset LeeComposicionFacturas(BdSesion& bd, const QVector<qint32>& ids);

} // namespace vk
