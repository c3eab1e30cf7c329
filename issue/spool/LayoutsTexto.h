// The text layouts of design 6 on the printer, one per customer's
// stationery, by the name the table of template keys gives (TablaReportes).
#pragma once

#include <QString>
#include <QVector>
#include <VKFACVENTAS.h>

namespace vk {

// Runs the layout of that name over the invoices; false when no layout has
// that name. The layout tells the user of its own failures.
bool EjecutaLayoutTexto(const QString& nombre, VKFACVENTAS& f, const QVector<qint32>& vIds);

void msFacturaSpoolMatricial(VKFACVENTAS& f, const QVector<qint32>& vIds);
void msFacturaSpoolPlt01(VKFACVENTAS& f, const QVector<qint32>& vIds);
void msFacturaSpoolPlt02(VKFACVENTAS& f, const QVector<qint32>& vIds);
void msFacturaSpoolPlt03(VKFACVENTAS& f, const QVector<qint32>& vIds);
void msFacturaSpoolPlt04(VKFACVENTAS& f, const QVector<qint32>& vIds);
void msFacturaSpoolPlt05(VKFACVENTAS& f, const QVector<qint32>& vIds);
void msFacturaSpoolPlt06(VKFACVENTAS& f, const QVector<qint32>& vIds);
void msFacturaSpoolPlt07(VKFACVENTAS& f, const QVector<qint32>& vIds);
void msFacturaSpoolPlt08(VKFACVENTAS& f, const QVector<qint32>& vIds);
void msFacturaSpoolPlt10(VKFACVENTAS& f, const QVector<qint32>& vIds); // PLT09 and PLT10
void msFacturaSpoolPlt11(VKFACVENTAS& f, const QVector<qint32>& vIds);
void msFacturaSpoolPlt12(VKFACVENTAS& f, const QVector<qint32>& vIds);
void msFacturaSpoolPlt13(VKFACVENTAS& f, const QVector<qint32>& vIds);
void msFacturaSpoolGomas(VKFACVENTAS& f, const QVector<qint32>& vIds);
void msFacturaSpoolPlt14(VKFACVENTAS& f, const QVector<qint32>& vIds);
void msFacturaSpoolPlt15(VKFACVENTAS& f, const QVector<qint32>& vIds);
void msFacturaSpoolPlt16(VKFACVENTAS& f, const QVector<qint32>& vIds);
void msFacturaSpoolPlt17(VKFACVENTAS& f, const QVector<qint32>& vIds);

} // namespace vk
