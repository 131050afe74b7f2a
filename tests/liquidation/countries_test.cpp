// The zone of a country and the countries whose imports are capped.

#include <gtest/gtest.h>

#include <QSet>
#include <QStringList>

#include "liquidation/ClassLiquidacion.h"

using namespace Qt::StringLiterals;

namespace {

TEST(Countries, TheZoneOfACodeIsReadTrimmed) {
    const std::pair<const char *, const char *> casos[] = {
        {"225", "M"}, {"221", "M"}, {"203", "B"}, {" 203 ", "B"}, {"225 ", "M"}, {"", ""},
        {"   ", ""},  {"310", "E"}, {"400", "E"}, {"2030", "E"},  {"0203", "E"}, {"xx", "E"},
        {"200", "E"}, {"202", "E"}, {"204", "E"}, {"224", "E"},   {"226", "E"},  {"222", "E"},
    };
    for (const auto &[codigo, zona] : casos)
        EXPECT_EQ(ZonaDePais(QLatin1String(codigo)).toStdString(), zona) << "[" << codigo << "]";
}

// The list as the customs code table gives it, in its own order.
const char *const lista =
    "101, 103, 104, 105, 107, 108, 111, 112, 113, 115, 116, 117, 118, 120, 121, 124, "
    "125, 126, 127, 128, 129, 130, 131, 132, 133, 134, 135, 137, 139, 140, 141, 142, "
    "144, 149, 151, 153, 156, 158, 159, 200, 201, 202, 203, 204, 205, 206, 208, 209, "
    "210, 211, 212, 213, 214, 215, 216, 217, 218, 219, 220, 221, 222, 224, 225, 226, "
    "232, 233, 234, 235, 236, 237, 238, 240, 303, 304, 307, 308, 309, 312, 315, 316, "
    "319, 320, 322, 323, 326, 327, 329, 331, 332, 333, 335, 341, 344, 345, 346, 405, "
    "406, 407, 409, 410, 411, 412, 413, 414, 415, 416, 417, 418, 419, 420, 422, 423, "
    "424, 425, 426, 427, 429, 430, 435, 436, 438, 448, 449, 451, 501, 504, 512, 513, 518";

TEST(Countries, ExactlyTheListed129CodesAreCapped) {
    QSet<int> conTope;
    for (const QString &codigo : QString::fromLatin1(lista).split(u", "_s)) conTope.insert(codigo.toInt());
    ASSERT_EQ(conTope.size(), 129);
    for (int codigo = -600; codigo <= 1600; ++codigo)
        EXPECT_EQ(PaisConTopeArancelario(QString::number(codigo)), conTope.contains(codigo)) << codigo;
}

TEST(Countries, ACodeIsTruncatedToItsWholeNumber) {
    for (const char *codigo : {"101", " 101 ", "0101", "101.9", "101,9", "1.01e2"})
        EXPECT_TRUE(PaisConTopeArancelario(QLatin1String(codigo))) << codigo;
    for (const char *codigo : {"100.9", "", " ", "abc", "101x", "1e300", "310", "102.99"})
        EXPECT_FALSE(PaisConTopeArancelario(QLatin1String(codigo))) << codigo;
}

}  // namespace
