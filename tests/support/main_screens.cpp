#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char **argv) {
    ::testing::InitGoogleTest(&argc, argv);
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("zendra-pruebas"));
    return RUN_ALL_TESTS();
}
