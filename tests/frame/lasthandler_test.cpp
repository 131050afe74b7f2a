// What a program says and answers when nobody caught a failure.

#include "frame/lasthandler.h"

#include <gtest/gtest.h>

#include <QStringList>
#include <new>
#include <stdexcept>

#include "frame/base/failure.h"

using namespace Qt::StringLiterals;

namespace {

/// What was told, and the status.
struct Fin {
    int estado = -1;
    QStringList dicho;
};

Fin correr(const std::function<int()> &trabajo) {
    Fin fin;
    fin.estado = CorrerConUltimaDefensa(
        trabajo, [&fin](const QString &texto) { fin.dicho << texto; }, 7);
    return fin;
}

TEST(LastHandler, WorkThatEndsWellAnswersItsOwnStatusWithoutAWord) {
    const Fin fin = correr([] { return 2; });
    EXPECT_EQ(fin.estado, 2);
    EXPECT_EQ(fin.dicho, QStringList());
}

TEST(LastHandler, AFailureIsToldInItsOwnWords) {
    const Fin fin = correr([]() -> int { throw Falla{1, u"NCM"_s, u"no such table: ncm"_s, {}}; });
    EXPECT_EQ(fin.estado, 7);
    EXPECT_EQ(fin.dicho, QStringList{u"no such table: ncm"_s});
}

TEST(LastHandler, AnExceptionOfTheLanguageIsToldAsADefectWithItsWords) {
    const Fin fin = correr([]() -> int { throw std::out_of_range("no such control: txtX"); });
    EXPECT_EQ(fin.estado, 7);
    ASSERT_EQ(fin.dicho.size(), 1);
    EXPECT_TRUE(fin.dicho[0].contains(u"(no such control: txtX)"_s)) << fin.dicho[0].toStdString();
    EXPECT_TRUE(fin.dicho[0].contains(u"avise"_s)) << fin.dicho[0].toStdString();
}

TEST(LastHandler, MissingMemoryIsToldAsSuch) {
    const Fin fin = correr([]() -> int { throw std::bad_alloc(); });
    EXPECT_EQ(fin.estado, 7);
    ASSERT_EQ(fin.dicho.size(), 1);
    EXPECT_TRUE(fin.dicho[0].contains(u"memoria"_s)) << fin.dicho[0].toStdString();
}

TEST(LastHandler, WhatIsNoExceptionAtAllDoesNotSlipPast) {
    const Fin fin = correr([]() -> int { throw 5; });
    EXPECT_EQ(fin.estado, 7);
    ASSERT_EQ(fin.dicho.size(), 1);
    EXPECT_FALSE(fin.dicho[0].isEmpty());
}

TEST(LastHandler, AFailureWhileTellingIsToldOnStandardError) {
    testing::internal::CaptureStderr();
    const int estado = CorrerConUltimaDefensa(
        []() -> int {
            throw Falla{1, {}, u"la primera"_s, {}};
        },
        [](const QString &) {
            throw Falla{1, {}, u"la segunda"_s, {}};
        });
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "la primera\nla segunda\n");
    EXPECT_EQ(estado, EXIT_FAILURE);
}

}  // namespace
