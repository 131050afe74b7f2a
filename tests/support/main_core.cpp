#include <gtest/gtest.h>

#include <QCoreApplication>

int main(int argc, char **argv) {
    ::testing::InitGoogleTest(&argc, argv);
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("zendra-pruebas"));
    return RUN_ALL_TESTS();
}
