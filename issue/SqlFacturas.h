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
// Tiva_Rec, PVP, and the rest of the legacy list.
QString fnSqlFacturas(BdSesion& bd);

// "?, ?, ?": the placeholders of a list bound value by value.
QString MarcadoresSql(qsizetype n);

// The rows of those invoices, ordered as the issue orders them (note date,
// note series and number, line order); ids are bound. Empty ids give no rows.
Recordset LeeFilasFacturas(BdSesion& bd, const QVector<qint32>& ids);

// The rows of the food design's two subreports, bound in this order: the VAT
// rates, and the composition of the articles the invoices' lines carry.
Recordset LeeTiposIva(BdSesion& bd);
Recordset LeeComposicionFacturas(BdSesion& bd, const QVector<qint32>& ids);

} // namespace vk
