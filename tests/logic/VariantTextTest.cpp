// SPDX-License-Identifier: MIT
#include "platform/hotkeys/system_shortcuts/VariantText.h"

#include <gtest/gtest.h>

using platform::stringOf;
using platform::stringsOf;

TEST(VariantText, listsOfStringsAreRead)
{
    EXPECT_EQ(stringsOf(u"['<Super>v', '<Super>m']"),
              (QStringList{QStringLiteral("<Super>v"), QStringLiteral("<Super>m")}));
    EXPECT_EQ(stringsOf(u"['']"), QStringList{QString()});
    EXPECT_EQ(stringsOf(u"@as []"), QStringList());
}

TEST(VariantText, quotesAndEscapesAreRead)
{
    EXPECT_EQ(stringsOf(uR"(["it's", 'say "x"', 'a\\b', 'c\'d'])"),
              (QStringList{QStringLiteral("it's"), QStringLiteral("say \"x\""),
                           QStringLiteral("a\\b"), QStringLiteral("c'd")}));
}

TEST(VariantText, aStringIsRead)
{
    EXPECT_EQ(stringOf(u"'<Super>v'"), QStringLiteral("<Super>v"));
    EXPECT_EQ(stringOf(u"''"), QString(QLatin1String("")));
}

TEST(VariantText, otherTypesAndBrokenTextsAreRefused)
{
    for (const QStringView text :
         {QStringView(u"6"), QStringView(u"true"), QStringView(u""), QStringView(u"'a'"),
          QStringView(u"["), QStringView(u"['a'"), QStringView(u"['a"), QStringView(u"['a' 'b']"),
          QStringView(u"['a', 6]"), QStringView(u"[6]"), QStringView(u"['a\\")}) {
        EXPECT_EQ(stringsOf(text), std::nullopt) << qPrintable(text.toString());
    }
    EXPECT_EQ(stringOf(u"['a']"), std::nullopt);
    EXPECT_EQ(stringOf(u"'a' "), std::nullopt);
    EXPECT_EQ(stringOf(u"6"), std::nullopt);
    EXPECT_EQ(stringOf(u""), std::nullopt);
}
