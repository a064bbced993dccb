// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/SpokenText.h"

#include "KeyboardShortcuts/ShortcutText.h"
#include "tests/logic/KeyboardShortcutsTest.h"

using namespace KeyboardShortcuts;

using SpokenTextTest = KeyboardShortcutsTest;

TEST_F(SpokenTextTest, hasTheNamesThatTheKeysHaveHere)
{
    const Modifiers shiftCommand = Modifier::Shift | Modifier::Command;
    EXPECT_EQ(Shortcut(Key::v, shiftCommand).spokenDescription(), QStringLiteral("Shift+Super+V"));
    EXPECT_EQ(Shortcut(Key::pageUp, Modifier::Control | Modifier::Option).spokenDescription(),
              QStringLiteral("Ctrl+Alt+Page Up"));
    EXPECT_EQ(Shortcut(Key::f5, Modifiers()).spokenDescription(), QStringLiteral("F5"));
}

TEST_F(SpokenTextTest, modifiersStandInTheOrderOfTheirSymbols)
{
    const Modifiers all =
        Modifier::Command | Modifier::Shift | Modifier::Option | Modifier::Control;

    EXPECT_EQ(spokenModifiers(all),
              (QStringList{QStringLiteral("Ctrl"), QStringLiteral("Alt"), QStringLiteral("Shift"),
                           QStringLiteral("Super")}));
}

TEST_F(SpokenTextTest, everyKeyThatShowsASymbolHasWords)
{
    for (const SpecialKey &key : kSpecialKeys) {
        const QString words = spokenKey(key.keyCode, nullptr);
        EXPECT_FALSE(words.isEmpty());
        for (const QChar character : words)
            EXPECT_LT(character.unicode(), 0x80) << "key code " << key.keyCode;
    }
}

TEST_F(SpokenTextTest, noTwoKeysHaveTheSameWords)
{
    QSet<QString> words;
    for (const SpecialKey &key : kSpecialKeys)
        words.insert(spokenKey(key.keyCode, nullptr));

    EXPECT_EQ(words.size(), qsizetype(kSpecialKeys.size()));
}

TEST_F(SpokenTextTest, theLayoutNamesTheOthers)
{
    layout.texts[41] = QStringLiteral("ö");

    EXPECT_EQ(spokenKey(41, &layout), QStringLiteral("Ö"));
}

TEST_F(SpokenTextTest, aKeyWithoutATextHasItsNumber)
{
    EXPECT_EQ(Shortcut(Key{93}, Modifier::Command).spokenDescription(),
              QStringLiteral("Super+key 93"));
}
