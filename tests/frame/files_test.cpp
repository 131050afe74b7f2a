// Names of files, made of whatever a user wrote.

#include "frame/files.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(NombreSeguro, WhatASystemRefusesAndWhatNobodySeesBecomesALine) {
    EXPECT_EQ(NombreSeguro(u"IC/2026:0001*?\"<>|\\"_s), u"IC_2026_0001_______"_s);
    EXPECT_EQ(NombreSeguro(u"a\tb\nc\u007fd\u0085e"_s), u"a_b_c_d_e"_s);
    EXPECT_EQ(NombreSeguro(u"a\u2028b\u202efdp.exe"_s), u"a_b_fdp.exe"_s) << "it would read \"exe.pdf\"";
    EXPECT_EQ(NombreSeguro(u"O'Higgins; --%1 Ñandú 🚢"_s), u"O'Higgins; --%1 Ñandú 🚢"_s);
}

TEST(NombreSeguro, NoNameClimbsHidesOrIsNothing) {
    EXPECT_EQ(NombreSeguro(u"../x"_s), u"_.._x"_s);
    EXPECT_EQ(NombreSeguro(u".."_s), u"_"_s);
    EXPECT_EQ(NombreSeguro(u"a. ."_s), u"a"_s);
    EXPECT_EQ(NombreSeguro(QString()), u"_"_s);
}

TEST(NombreSeguro, ALongNameLeavesRoomForItsEndAndNoHalfOfALetter) {
    EXPECT_EQ(NombreSeguro(QString(10000, u'x')), QString(200, u'x'));
    // Two bytes a letter, and four a ship.
    EXPECT_EQ(NombreSeguro(QString(10000, u'ñ')), QString(100, u'ñ'));
    EXPECT_EQ(NombreSeguro(u'x' + u"🚢"_s.repeated(500)), u'x' + u"🚢"_s.repeated(49));
}
