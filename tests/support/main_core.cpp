#include <gtest/gtest.h>

#include <QGuiApplication>

using namespace Qt::StringLiterals;

int main(int argc, char **argv) {
    ::testing::InitGoogleTest(&argc, argv);
    // Paper needs fonts, and no screen.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QCoreApplication::setApplicationName(u"zendra-pruebas"_s);
    return RUN_ALL_TESTS();
}
