#include <gtest/gtest.h>

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "frame/ui/estilo.h"

using namespace Qt::StringLiterals;

int main(int argc, char **argv) {
    ::testing::InitGoogleTest(&argc, argv);
    QApplication app(argc, argv);
    // As the program starts: a screen is tested with the look, the words and the locale that users see.
    QApplication::setApplicationName(u"Zendra"_s);
    QApplication::setQuitOnLastWindowClosed(false);
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Argentina));
    QTranslator textosDeQt;
    if (textosDeQt.load(u"qtbase_es"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&textosDeQt);
    estilo::Aplicar(app);
    return RUN_ALL_TESTS();
}
