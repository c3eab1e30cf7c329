// The text layouts of design 6 on the printer, one per customer's
// stationery, by the name the table of template keys gives (TablaReportes).
#pragma once

#include <QString>
#include <QVector>
#include <VKFACVENTAS.h>

namespace vk {

// Runs the layout of that name over the invoices. Each layout tells the user
// of its own failure and returns false; a name without a layout throws
// ErrorDiseno.
bool EjecutaLayoutTexto(const QString& nombre, VKFACVENTAS& f, const QVector<qint32>& vIds);

// Each prints the invoices of vIds on its stationery: false after telling the
// user of a failure.
bool msFacturaSpoolMatricial(VKFACVENTAS& f, const QVector<qint32>& vIds);
bool msFacturaSpoolPlt01(VKFACVENTAS& f, const QVector<qint32>& vIds);
bool msFacturaSpoolPlt02(VKFACVENTAS& f, const QVector<qint32>& vIds);
bool msFacturaSpoolPlt03(VKFACVENTAS& f, const QVector<qint32>& vIds);
bool msFacturaSpoolPlt04(VKFACVENTAS& f, const QVector<qint32>& vIds);
bool msFacturaSpoolPlt05(VKFACVENTAS& f, const QVector<qint32>& vIds);
bool msFacturaSpoolPlt06(VKFACVENTAS& f, const QVector<qint32>& vIds);
bool msFacturaSpoolPlt07(VKFACVENTAS& f, const QVector<qint32>& vIds);
bool msFacturaSpoolPlt08(VKFACVENTAS& f, const QVector<qint32>& vIds);
bool msFacturaSpoolPlt10(VKFACVENTAS& f, const QVector<qint32>& vIds); // PLT09 and PLT10
bool msFacturaSpoolPlt11(VKFACVENTAS& f, const QVector<qint32>& vIds);
bool msFacturaSpoolPlt12(VKFACVENTAS& f, const QVector<qint32>& vIds);
bool msFacturaSpoolPlt13(VKFACVENTAS& f, const QVector<qint32>& vIds);
bool msFacturaSpoolGomas(VKFACVENTAS& f, const QVector<qint32>& vIds);
bool msFacturaSpoolPlt14(VKFACVENTAS& f, const QVector<qint32>& vIds);
bool msFacturaSpoolPlt15(VKFACVENTAS& f, const QVector<qint32>& vIds);
bool msFacturaSpoolPlt16(VKFACVENTAS& f, const QVector<qint32>& vIds);
bool msFacturaSpoolPlt17(VKFACVENTAS& f, const QVector<qint32>& vIds);

} // namespace vk
