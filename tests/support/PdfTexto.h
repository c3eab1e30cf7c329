// The text of a PDF as pdftotext -layout reads it, pages split on form feeds.
#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>
#include <gtest/gtest.h>

namespace vk::prueba {

inline QString TextoPdf(const QString& fichero) {
    QProcess p;
    p.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), fichero, QStringLiteral("-")});
    if (!p.waitForFinished(60000) || p.exitCode() != 0) {
        ADD_FAILURE() << "pdftotext (poppler-utils) failed on " << fichero.toStdString();
        return {};
    }
    return QString::fromUtf8(p.readAllStandardOutput());
}

// True when the texts appear in this order.
inline ::testing::AssertionResult EnOrden(const QString& texto, const QStringList& piezas) {
    qsizetype desde = 0;
    for (const QString& p : piezas) {
        const qsizetype i = texto.indexOf(p, desde);
        if (i < 0) {
            return ::testing::AssertionFailure()
                   << "«" << p.toStdString() << "» missing after position " << desde;
        }
        desde = i + p.size();
    }
    return ::testing::AssertionSuccess();
}

} // namespace vk::prueba
