// Test main of the suites that paint (informe, issue, the text layouts, whose
// PLT15 goes on to the report route): painting text needs a QGuiApplication.
// The user's settings and data folder are the test's own, so that no
// printer, stationery or design of the machine leaks in.
#include <QGuiApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    QTemporaryDir casa;
    qputenv("XDG_CONFIG_HOME", casa.filePath(QStringLiteral("config")).toUtf8());
    qputenv("VKFACTUVEN_DATOS", casa.filePath(QStringLiteral("datos")).toUtf8());
    QGuiApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
