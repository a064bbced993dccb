// SPDX-License-Identifier: MIT
#include "platform/keyboard/KeyTexts.h"

#include "platform/keyboard/NullKeyboardLayout.h"
#include "tests/support/Keymaps.h"

#include <gtest/gtest.h>

using platform::KeyTexts;

namespace {

KeyTexts textsOf(const char *layout)
{
    return KeyTexts(keymapOf(layout).get());
}

} // namespace

TEST(KeyTexts, theLowestLevelIsRead)
{
    const KeyTexts us = textsOf("us");

    EXPECT_EQ(us.groupCount(), 1);
    EXPECT_EQ(us.text(0, 9), QStringLiteral("v"));
    EXPECT_EQ(us.text(0, 18), QStringLiteral("1"));
    EXPECT_EQ(us.text(0, 50), QStringLiteral("`"));
}

TEST(KeyTexts, positionsNotCharactersAreAskedFor)
{
    const KeyTexts de = textsOf("de");
    const KeyTexts fr = textsOf("fr");

    EXPECT_EQ(de.text(0, 16), QStringLiteral("z"));
    EXPECT_EQ(de.text(0, 6), QStringLiteral("y"));
    EXPECT_EQ(de.text(0, 27), QStringLiteral("ß"));
    EXPECT_EQ(fr.text(0, 0), QStringLiteral("q"));
    EXPECT_EQ(fr.text(0, 18), QStringLiteral("&"));
}

TEST(KeyTexts, aDeadKeyIsItsAccent)
{
    const KeyTexts de = textsOf("de");

    EXPECT_EQ(de.text(0, 50), QStringLiteral("^"));
    EXPECT_EQ(de.text(0, 24), QStringLiteral("´"));
}

TEST(KeyTexts, aKeyThatTypesNothingHasNone)
{
    const KeyTexts us = textsOf("us");

    for (const int code : {56, 57, 72, 74, 53, 36, 200, -1, 0xFFFF})
        EXPECT_EQ(us.text(0, code), std::nullopt) << code;
}

TEST(KeyTexts, aGroupThatDoesNotExistHasNone)
{
    EXPECT_EQ(textsOf("us").text(1, 9), std::nullopt);
    EXPECT_EQ(textsOf("us").text(-1, 9), std::nullopt);
    EXPECT_EQ(KeyTexts().text(0, 9), std::nullopt);
}

TEST(KeyTexts, groupsWithLatinLettersAreTold)
{
    EXPECT_TRUE(textsOf("us").isAsciiCapable(0));
    EXPECT_TRUE(textsOf("fr").isAsciiCapable(0));
    EXPECT_TRUE(textsOf("epo").isAsciiCapable(0));
    EXPECT_FALSE(textsOf("ru").isAsciiCapable(0));
    EXPECT_FALSE(textsOf("gr").isAsciiCapable(0));
    const KeyTexts both = textsOf("ru,us");
    EXPECT_FALSE(both.isAsciiCapable(0));
    EXPECT_TRUE(both.isAsciiCapable(1));
    EXPECT_FALSE(both.isAsciiCapable(2));
    EXPECT_FALSE(both.isAsciiCapable(-1));
}

TEST(NullKeyboardLayout, hasNoTexts)
{
    platform::NullKeyboardLayout layout(QStringLiteral("No layout here."));

    EXPECT_FALSE(layout.availability().isAvailable);
    EXPECT_EQ(layout.availability().reason, QStringLiteral("No layout here."));
    EXPECT_EQ(layout.keyText(9), std::nullopt);
}
