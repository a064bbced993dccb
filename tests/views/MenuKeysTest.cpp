// SPDX-License-Identifier: MIT
#include "Quillery_Mac/menu/MenuKeys.h"

#include "tests/views/MenuViewFixture.h"

#include <QKeyEvent>

using namespace optionWords;
using Kind = MenuKey::Kind;

namespace {

constexpr Qt::KeyboardModifiers kChord = Qt::MetaModifier | Qt::ShiftModifier;

std::optional<MenuKey> key(int code, Qt::KeyboardModifiers modifiers = {}, const QString &text = {},
                           Qt::LayoutDirection direction = Qt::LeftToRight)
{
    return menuKey(QKeyEvent(QEvent::KeyPress, code, modifiers, text), direction);
}

std::optional<MenuKey> kind(Kind expected)
{
    return MenuKey{expected, {}};
}

class MenuKeysTest : public MenuViewFixture
{
protected:
    void repeat(int code, const QString &text = {})
    {
        QKeyEvent event(QEvent::KeyPress, code, {}, text, true);
        QCoreApplication::sendEvent(focus(), &event);
    }
};

} // namespace

TEST(MenuKey, namedKeysAreRead)
{
    EXPECT_EQ(key(Qt::Key_Up), kind(Kind::Up));
    EXPECT_EQ(key(Qt::Key_Down), kind(Kind::Down));
    EXPECT_EQ(key(Qt::Key_Left), kind(Kind::Left));
    EXPECT_EQ(key(Qt::Key_Right), kind(Kind::Right));
    EXPECT_EQ(key(Qt::Key_Return), kind(Kind::Return));
    EXPECT_EQ(key(Qt::Key_Enter, Qt::KeypadModifier), kind(Kind::Return));
    EXPECT_EQ(key(Qt::Key_Space, {}, QStringLiteral(" ")), kind(Kind::Space));
    EXPECT_EQ(key(Qt::Key_Escape), kind(Kind::Escape));
    EXPECT_EQ(key(Qt::Key_F1), std::nullopt);
}

TEST(MenuKey, theModifiersOfTheShortcutThatAreStillHeldDoNotMatter)
{
    EXPECT_EQ(key(Qt::Key_Down, kChord), kind(Kind::Down));
    EXPECT_EQ(key(Qt::Key_Return, kChord), kind(Kind::Return));
    EXPECT_EQ(key(Qt::Key_Escape, kChord), kind(Kind::Escape));
}

TEST(MenuKey, controlAndAltMakeAKeySomebodyElses)
{
    for (const Qt::KeyboardModifier modifier : {Qt::ControlModifier, Qt::AltModifier}) {
        EXPECT_EQ(key(Qt::Key_Down, modifier), std::nullopt);
        EXPECT_EQ(key(Qt::Key_K, modifier, QStringLiteral("k")), std::nullopt);
    }
}

TEST(MenuKey, everyQuickKeyIsReadByTheCharacterItProduced)
{
    for (const QChar character : MenuState::chars) {
        EXPECT_EQ(key(Qt::Key_unknown, Qt::ShiftModifier, QString(character)),
                  (MenuKey{Kind::Character, character}));
    }
}

TEST(MenuKey, quickKeysAreNotReadWithSuperNorOtherCharacters)
{
    EXPECT_EQ(key(Qt::Key_K, Qt::MetaModifier, QStringLiteral("k")), std::nullopt);
    EXPECT_EQ(key(Qt::Key_V, kChord, QStringLiteral("V")), std::nullopt);
    EXPECT_EQ(key(Qt::Key_Adiaeresis, {}, QStringLiteral("\u00e4")), std::nullopt);
    EXPECT_EQ(key(Qt::Key_Semicolon, {}, QStringLiteral(";")), std::nullopt);
}

TEST(MenuKey, inRightToLeftReadingTheSidesChangePlaces)
{
    EXPECT_EQ(key(Qt::Key_Left, {}, {}, Qt::RightToLeft), kind(Kind::Right));
    EXPECT_EQ(key(Qt::Key_Right, {}, {}, Qt::RightToLeft), kind(Kind::Left));
    EXPECT_EQ(key(Qt::Key_Up, {}, {}, Qt::RightToLeft), kind(Kind::Up));
}

TEST_F(MenuKeysTest, whatIsTypedOnGoesToTheSearchField)
{
    bench.addSnippet(QStringLiteral("New York"));
    bench.addSnippet(QStringLiteral("Newcastle"));
    bench.show();

    type(QStringLiteral("new y"));

    EXPECT_EQ(bench.snippets()->searchField().text(), QStringLiteral("new y"));
    EXPECT_EQ(highlightedSnippet(), QStringLiteral("New York"));
}

TEST_F(MenuKeysTest, textReachesTheFieldWhileTheKeyboardIsOnItsWay)
{
    bench.addSnippet(QStringLiteral("New York"));
    bench.show();
    QTest::keyClick(bench.menu, 'n');

    QTest::keyClick(bench.menu, 'e');
    QTest::keyClick(bench.menu, Qt::Key_Space);
    QTest::keyClick(bench.menu, Qt::Key_Backspace);
    QTest::keyClick(bench.menu, 'w');

    EXPECT_EQ(bench.snippets()->searchField().text(), QStringLiteral("new"));
}

TEST_F(MenuKeysTest, characterKeysOutsideTheQuickKeysGoToTheOpenField)
{
    bench.addSnippet(QStringLiteral("a"));
    bench.show();
    type(QStringLiteral("a"));
    QKeyEvent umlaut(QEvent::KeyPress, Qt::Key_Udiaeresis, {}, QStringLiteral("\u00fc"));
    QCoreApplication::sendEvent(focus(), &umlaut);
    EXPECT_EQ(bench.snippets()->searchField().text(), QStringLiteral("a\u00fc"));
}

TEST_F(MenuKeysTest, inputMethodsComposeInTheField)
{
    bench.addSnippet(QStringLiteral("\u00e9clair"));
    bench.show();
    type(QStringLiteral("a"));
    press(Qt::Key_Backspace);
    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral("\u00e9"));
    QCoreApplication::sendEvent(focus(), &composed);
    EXPECT_EQ(bench.snippets()->searchText.value(), QStringLiteral("\u00e9"));
    EXPECT_EQ(highlightedSnippet(), QStringLiteral("\u00e9clair"));
}

TEST_F(MenuKeysTest, spaceSelectsWhileNoFieldIsOpen)
{
    addClips();
    bench.show();
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    press(Qt::Key_Space);
    EXPECT_EQ(bench.pasteboard.text, QByteArray("one"));
}

TEST_F(MenuKeysTest, arrowsAndReturnDriveTheListWhileTheFieldHasTheCursor)
{
    bench.addSnippet(QStringLiteral("apple"), "1");
    bench.addSnippet(QStringLiteral("apricot"), "2");
    bench.show();
    type(QStringLiteral("ap"));
    press(Qt::Key_Down, kChord);
    EXPECT_EQ(highlightedSnippet(), QStringLiteral("apricot"));
    EXPECT_EQ(bench.snippets()->searchField().text(), QStringLiteral("ap"));
    press(Qt::Key_Return, kChord);
    EXPECT_EQ(bench.pasteboard.text, QByteArray("2"));
}

TEST_F(MenuKeysTest, returnInTheFieldIsOneSelect)
{
    bench.addFolder(QStringLiteral("Folder"));
    bench.addSnippet(QStringLiteral("a"));
    bench.show();
    type(QStringLiteral("F"));
    press(Qt::Key_Return);
    EXPECT_EQ(bench.snippets()->openItemsList.value().size(), 1U);
    press(Qt::Key_Return);
    EXPECT_EQ(bench.snippets()->openItemsList.value().size(), 0U);
}

TEST_F(MenuKeysTest, returnInTheFieldWithoutTheKeyboardKeepsThePopover)
{
    bench.addSnippet(QStringLiteral("a"));
    bench.defaults.setBoolean(SettingsKeys::kClipHistory.key(), false);
    bench.show();
    press(Qt::Key_Down);
    ASSERT_EQ(focus(), &bench.snippets()->searchField());
    press(Qt::Key_Return);
    EXPECT_EQ(open(), kSnippets);
    EXPECT_FALSE(gives());
    EXPECT_FALSE(bench.pasteNow.value());
}

TEST_F(MenuKeysTest, aHeldReturnKeyDoesNotActAgain)
{
    addClips();
    bench.show();
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    repeat(Qt::Key_Return, QStringLiteral("\r"));
    EXPECT_FALSE(bench.pasteNow.value());
    repeat(Qt::Key_Down);
    EXPECT_EQ(highlightedClip(), QStringLiteral("two"));
}

TEST_F(MenuKeysTest, theHeldKeyOfTheShortcutIsNoQuickKey)
{
    bench.show();
    repeat(Qt::Key_V, QStringLiteral("V"));
    EXPECT_FALSE(open().has_value());
}

TEST_F(MenuKeysTest, aLetterWithSuperOrAltIsNotTyped)
{
    bench.addSnippet(QStringLiteral("a"));
    bench.show();
    type(QStringLiteral("a"));
    press(Qt::Key_B, Qt::AltModifier);
    press(Qt::Key_B, Qt::MetaModifier);
    EXPECT_EQ(bench.snippets()->searchField().text(), QStringLiteral("a"));
}

TEST_F(MenuKeysTest, controlKeysEditTheField)
{
    bench.addSnippet(QStringLiteral("a"));
    bench.show();
    type(QStringLiteral("ab"));
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
    EXPECT_EQ(bench.snippets()->searchField().text(), QString());
}

TEST_F(MenuKeysTest, tabLeavesTheFocusInTheField)
{
    bench.addSnippet(QStringLiteral("a"));
    bench.show();
    type(QStringLiteral("a"));
    press(Qt::Key_Tab);
    EXPECT_EQ(focus(), &bench.snippets()->searchField());
}

TEST_F(MenuKeysTest, aQuickKeyWhileTheHistoryIsOpenOpensTheSnippets)
{
    addClips();
    bench.addSnippet(QStringLiteral("kiwi"));
    bench.show();
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    type(QStringLiteral("k"));
    EXPECT_EQ(bench.history(), nullptr);
    ASSERT_NE(bench.snippets(), nullptr);
    EXPECT_EQ(bench.snippets()->searchText.value(), QStringLiteral("k"));
    EXPECT_TRUE(gives());
}

TEST_F(MenuKeysTest, aClosedPopoverActsOnNoLaterKey)
{
    addClips();
    bench.show();
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    press(Qt::Key_Left);
    press(Qt::Key_Right);
    press(Qt::Key_Return);
    EXPECT_EQ(clipTexts(), list({"two", "three"}));
}

TEST_F(MenuKeysTest, otherWindowsKeepTheirKeys)
{
    bench.show();
    QLineEdit other;
    other.show();
    QTest::keyClicks(&other, QStringLiteral("kk"));
    EXPECT_EQ(other.text(), QStringLiteral("kk"));
    EXPECT_FALSE(open().has_value());
}

TEST_F(MenuKeysTest, theFieldShowsItsRingOnlyWhileTheListHasTheKeyboard)
{
    bench.addSnippet(QStringLiteral("a"));
    bench.defaults.setBoolean(SettingsKeys::kClipHistory.key(), false);
    bench.show();
    press(Qt::Key_Down);
    EXPECT_FALSE(bench.snippets()->searchField().showsRing.value());
    press(Qt::Key_Right);
    EXPECT_TRUE(bench.snippets()->searchField().showsRing.value());
}
