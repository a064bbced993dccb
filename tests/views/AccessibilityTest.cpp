// SPDX-License-Identifier: MIT
#include "Quillery_Mac/menu/ClearHistoryRow.h"
#include "Quillery_Mac/ui/TintedButton.h"
#include "tests/views/MenuViewFixture.h"

#include <QAccessible>

using namespace optionWords;

namespace {

class AccessibilityTest : public MenuViewFixture
{
protected:
    static QAccessibleInterface &accessible(QObject &object)
    {
        return *QAccessible::queryAccessibleInterface(&object);
    }
    static QString name(QObject &object) { return accessible(object).text(QAccessible::Name); }
    static QString description(QObject &object)
    {
        return accessible(object).text(QAccessible::Description);
    }
};

} // namespace

TEST_F(AccessibilityTest, menuRowsAreNamedByTheirLabels)
{
    bench.show(MenuBench::Form::MenuBar);
    EXPECT_EQ(name(row(kHistory)), QStringLiteral("History"));
    EXPECT_EQ(name(row(kClear)), QStringLiteral("Clear History"));
    EXPECT_EQ(name(row(kQuit)), QStringLiteral("Quit"));
    EXPECT_EQ(description(row(kQuickAdd)), bench.hint);
    EXPECT_EQ(name(*bench.menu), QStringLiteral("Quillery"));
}

TEST_F(AccessibilityTest, theHighlightIsASelection)
{
    bench.show();
    EXPECT_FALSE(accessible(row(kHistory)).state().selected);
    press(Qt::Key_Down);
    EXPECT_TRUE(accessible(row(kHistory)).state().selected);
    EXPECT_FALSE(accessible(row(kSnippets)).state().selected);
}

TEST_F(AccessibilityTest, aRowWithAPopoverTellsWhetherItIsOpen)
{
    bench.show();
    EXPECT_TRUE(accessible(row(kHistory)).state().expandable);
    EXPECT_TRUE(accessible(row(kHistory)).state().collapsed);
    press(Qt::Key_Down);
    EXPECT_TRUE(accessible(row(kHistory)).state().expanded);
    EXPECT_FALSE(accessible(row(kQuickAdd)).state().expandable);
}

TEST_F(AccessibilityTest, aDisabledRowIsDisabled)
{
    bench.updater.canCheck = false;
    bench.show(MenuBench::Form::MenuBar);
    EXPECT_TRUE(accessible(row(kCheckForUpdates)).state().disabled);
}

TEST_F(AccessibilityTest, pressingARowActsAsAClick)
{
    bench.show(MenuBench::Form::MenuBar);
    QAccessibleActionInterface *actions = accessible(row(kQuit)).actionInterface();
    ASSERT_TRUE(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
    actions->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(bench.terminations, 1);
}

TEST_F(AccessibilityTest, theSearchFieldAndItsButtonHaveNames)
{
    bench.addSnippet(QStringLiteral("a"));
    bench.show();
    type(QStringLiteral("a"));
    SearchField &field = bench.snippets()->searchField();
    EXPECT_EQ(name(field), QStringLiteral("Search"));
    EXPECT_EQ(accessible(field).role(), QAccessible::EditableText);
    EXPECT_EQ(name(*field.findChild<QAbstractButton *>()), QStringLiteral("Clear"));
}

TEST_F(AccessibilityTest, snippetAndFolderRowsAreNamedByTheirTitles)
{
    bench.addFolder(QStringLiteral("Code"));
    bench.addSnippet(QStringLiteral("Bash"));
    bench.show();
    type(QStringLiteral("C"));
    EXPECT_EQ(name(snippetRow(0)), QStringLiteral("Code"));
    EXPECT_TRUE(accessible(snippetRow(0)).state().collapsed);
    press(Qt::Key_Right);
    EXPECT_TRUE(accessible(snippetRow(0)).state().expanded);
    EXPECT_EQ(name(snippetRow(1)), QStringLiteral("Bash"));
    EXPECT_EQ(accessible(snippetRow(1)).role(), QAccessible::ListItem);
    EXPECT_EQ(name(bench.snippets()->column()), QStringLiteral("Snippets"));
}

TEST_F(AccessibilityTest, historyRowsAreNamedByTheirTextAndDescribedByTheirTally)
{
    bench.addClip("SELECT id\nFROM snippet");
    bench.show();
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    EXPECT_EQ(name(clipRow(0)), QStringLiteral("SELECT id \u21b5 FROM snippet"));
    EXPECT_EQ(description(clipRow(0)), QStringLiteral("2 lines"));
    EXPECT_TRUE(accessible(clipRow(0)).state().selected);
    EXPECT_EQ(name(*clipRow(0).findChild<QAbstractButton *>()), QStringLiteral("Delete"));
    EXPECT_EQ(name(bench.history()->column()), QStringLiteral("History"));
    EXPECT_EQ(accessible(bench.history()->column()).role(), QAccessible::List);
}

TEST_F(AccessibilityTest, theButtonsOfTheQuestionAreNamedByTheirText)
{
    bench.show();
    bench.menu->clearAlert = true;
    QStringList names;
    for (auto *button : row(kClear).findChildren<TintedButton *>())
        names.append(name(*button));
    EXPECT_EQ(names, list({"Cancel", "Confirm?"}));
}
