// The text of a PDF as pdftotext -layout reads it, pages split on form feeds.
#pragma once

#include <QDir>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
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

// The text of one page (1-based) of a PDF.
inline QString TextoPaginaPdf(const QString& fichero, int pagina) {
    return TextoPdf(fichero).split(u'\f').value(pagina - 1);
}

// The QR codes a reader finds on one page (1-based) of a PDF, as a person's
// phone would: the page rasterised at 200 dpi by pdftoppm (poppler-utils),
// then read by zbarimg (zbar-tools). None when the page has no code.
inline QStringList QrDePaginaPdf(const QString& fichero, int pagina) {
    QTemporaryDir dir;
    const QString base = QDir(dir.path()).filePath(QStringLiteral("pagina"));
    const QString numero = QString::number(pagina);
    QProcess p;
    p.start(QStringLiteral("pdftoppm"),
            {QStringLiteral("-r"), QStringLiteral("200"), QStringLiteral("-png"),
             QStringLiteral("-singlefile"), QStringLiteral("-f"), numero, QStringLiteral("-l"),
             numero, fichero, base});
    if (!p.waitForFinished(60000) || p.exitCode() != 0) {
        ADD_FAILURE() << "pdftoppm (poppler-utils) failed on " << fichero.toStdString();
        return {};
    }
    QProcess z;
    z.start(QStringLiteral("zbarimg"),
            {QStringLiteral("--raw"), QStringLiteral("-q"), base + QStringLiteral(".png")});
    if (!z.waitForFinished(60000)) {
        ADD_FAILURE() << "zbarimg (zbar-tools) did not end";
        return {};
    }
    // zbarimg ends with 4 when it finds no code.
    if (z.exitCode() != 0 && z.exitCode() != 4) {
        ADD_FAILURE() << "zbarimg failed: " << z.readAllStandardError().toStdString();
        return {};
    }
    return QString::fromUtf8(z.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
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
