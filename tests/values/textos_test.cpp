// What of a text can be kept, and how it is told.

#include "frame/base/texts.h"

#include <gtest/gtest.h>

#include "frame/base/failure.h"
#include "frame/base/position.h"
#include "frame/base/values.h"

using namespace Qt::StringLiterals;

namespace {

QString dichoDe(QString (*comillas)(const QString &), const QString &texto) {
    try {
        return comillas(texto);
    } catch (const Falla &e) {
        return u"! "_s + e.descripcion;
    }
}

}  // namespace

TEST(Comillas, ACodeWithAQuoteIsRefusedAndATextHasItDoubled) {
    EXPECT_EQ(dichoDe(EnComillas, u"A-1"_s).toStdString(), "'A-1'");
    EXPECT_EQ(dichoDe(EnComillas, u"x' or '1'='1"_s).toStdString(),
              "! El código \"x' or '1'='1\" tiene un apóstrofo, que un código no lleva; quítelo y vuelva a "
              "intentar.");
    EXPECT_EQ(dichoDe(TextoEnComillas, u"d'Or"_s).toStdString(), "'d''Or'");
}

// A store of files takes half of a pair together with the quote behind it, and what follows is a statement.
TEST(Comillas, WhatNoStoreKeepsIsRefusedBothAsACodeAndAsAText) {
    const QString nulo = u"a"_s + QChar(0) + u'b';
    const QString media = QString(QChar(0xD83D)) + u" or 1=1 --"_s;
    for (const auto comillas : {EnComillas, TextoEnComillas}) {
        EXPECT_EQ(
            dichoDe(comillas, nulo),
            u"! El texto \"a\ufffdb\" tiene un carácter nulo, que no se puede guardar; quítelo y vuelva a "
            "intentar."_s);
        EXPECT_EQ(dichoDe(comillas, media),
                  u"! El texto \"\ufffd or 1=1 --\" tiene un carácter incompleto, que no se puede guardar; "
                  "bórrelo y vuelva a intentar."_s);
    }
    EXPECT_EQ(dichoDe(TextoEnComillas, u"🚢"_s), u"'🚢'"_s);
}

TEST(Textos, AQuotationIsShortAndShowsAMarkForWhatCannotBeSeen) {
    EXPECT_EQ(Citado(u"a\tb\u202ec"_s), u"a\ufffdb\ufffdc"_s);
    EXPECT_EQ(Citado(QString(61, u'x')), QString(60, u'x') + u'…');
    EXPECT_EQ(Citado(QString(59, u'x') + u"🚢y"_s), QString(59, u'x') + u'…')
        << "no half of a pair at the cut";
}

TEST(Textos, ALineForATerminalHoldsNoneOfItsOrders) {
    EXPECT_EQ(EnUnRenglon(u"a\u001b[31m\nb\u2028c🚢"_s), u"a\\u001b[31m\\u000ab\\u2028c🚢"_s);
    EXPECT_EQ(EnUnRenglon(u"a"_s + QChar(0xD83D)), u"a\\ud83d"_s);
}

TEST(Textos, ACutLeavesNoHalfOfAPair) {
    EXPECT_EQ(Recortado(u"ab🚢c"_s, 3), u"ab"_s);
    EXPECT_EQ(Recortado(u"ab🚢c"_s, 4), u"ab🚢"_s);
    EXPECT_EQ(Recortado(u"ab"_s, 5), u"ab"_s);
    EXPECT_EQ(Recortado(QString(), 5), QString());
}

TEST(Textos, APositionWithAQuoteIsOneThatIsNotThere) {
    EXPECT_EQ(CondicionDePosicion(CortarPosicion(u"8413.70.1'.100L"_s)).toStdString(),
              "[001] = '8413.70.1''' and [002] = '100' and [003] = 'L'");
}
