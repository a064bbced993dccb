// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/MenuItem.h"

#include "tests/fakes/FakeKeyboardLayout.h"

#include <gtest/gtest.h>

using namespace KeyboardShortcuts;

namespace {

MenuItem item(const char *title, const char *key, Modifiers mask)
{
    return {QString::fromUtf8(title), QString::fromUtf8(key), mask, {}};
}

class MenuItemTest : public ::testing::Test
{
protected:
    std::optional<QString> find(const Shortcut &shortcut, const std::vector<MenuItem> &menu)
    {
        return titleOfItemUsing(shortcut, menu, &layout);
    }

    FakeKeyboardLayout layout;
    const Shortcut controlV{Key::v, Modifier::Control};
    const Shortcut controlShiftV{Key::v, Modifier::Control | Modifier::Shift};
};

} // namespace

TEST_F(MenuItemTest, matchesKeyAndModifiers)
{
    const std::vector<MenuItem> menu{item("Copy", "c", Modifier::Control),
                                     item("Paste", "v", Modifier::Control)};

    EXPECT_EQ(find(controlV, menu), QStringLiteral("Paste"));
}

TEST_F(MenuItemTest, theModifiersMustBeExactlyTheSame)
{
    EXPECT_EQ(find(controlV, {item("Paste", "v", {})}), std::nullopt);
    EXPECT_EQ(find(controlV, {item("Paste", "v", Modifier::Control | Modifier::Shift)}),
              std::nullopt);
    EXPECT_EQ(find(controlShiftV, {item("Paste", "v", Modifier::Control)}), std::nullopt);
    EXPECT_EQ(find(controlV, {item("Paste", "v", Modifier::Command)}), std::nullopt);
}

TEST_F(MenuItemTest, submenusAreSearchedInReadingOrder)
{
    MenuItem edit = item("Edit", "", {});
    MenuItem more = item("More", "", {});
    more.submenu = {item("Deep", "v", Modifier::Control)};
    edit.submenu = {item("Copy", "c", Modifier::Control), more};
    const std::vector<MenuItem> menu{edit, item("Later", "v", Modifier::Control)};

    EXPECT_EQ(find(controlV, menu), QStringLiteral("Deep"));
}

TEST_F(MenuItemTest, anUpperCaseKeyEquivalentImpliesShift)
{
    const std::vector<MenuItem> menu{item("Paste Special", "V", Modifier::Control)};

    EXPECT_EQ(find(controlShiftV, menu), QStringLiteral("Paste Special"));
    EXPECT_EQ(find(controlV, menu), std::nullopt);
}

TEST_F(MenuItemTest, theLayoutsTextIsComparedAsItStands)
{
    layout.texts[9] = QStringLiteral("ß");
    EXPECT_EQ(find(controlV, {item("Paste", "v", Modifier::Control)}), std::nullopt);
    EXPECT_EQ(find(controlV, {item("Sharp", "ß", Modifier::Control)}), QStringLiteral("Sharp"));

    layout.texts[9] = QStringLiteral("V");
    EXPECT_EQ(find(controlV, {item("Paste", "v", Modifier::Control)}), std::nullopt);
}

TEST_F(MenuItemTest, theTableOfSpecialKeysDoesNotCount)
{
    const Shortcut f5(Key::f5, Modifier::Control);
    EXPECT_EQ(find(f5, {item("Reload", "F5", Modifier::Control)}), std::nullopt);

    const Shortcut space(Key::space, Modifier::Control);
    layout.texts[49] = QStringLiteral(" ");
    EXPECT_EQ(find(space, {item("Word", "Space", Modifier::Control)}), std::nullopt);
    EXPECT_EQ(find(space, {item("Blank", " ", Modifier::Control)}), QStringLiteral("Blank"));
}

TEST_F(MenuItemTest, aKeyWithoutATextBelongsToNoItem)
{
    const Shortcut unknown(Key{93}, Modifier::Control);
    EXPECT_EQ(find(unknown, {item("Nothing", "", Modifier::Control)}), std::nullopt);

    layout.texts[93] = QString();
    EXPECT_EQ(find(unknown, {item("Nothing", "", Modifier::Control)}), std::nullopt);

    EXPECT_EQ(titleOfItemUsing(controlV, {item("Paste", "v", Modifier::Control)}, nullptr),
              std::nullopt);
}
