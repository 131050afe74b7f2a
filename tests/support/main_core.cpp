#include <gtest/gtest.h>

#include <QCoreApplication>

using namespace Qt::StringLiterals;

int main(int argc, char **argv) {
    ::testing::InitGoogleTest(&argc, argv);
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(u"zendra-pruebas"_s);
    return RUN_ALL_TESTS();
}
