// SPDX-License-Identifier: MIT
// A menu for a German: its words are those of the language, what it does is not.
#include "KeyboardShortcuts/ShortcutText.h"
#include "Quillery_Mac/app/Translation.h"
#include "Quillery_Mac/editor/ContentViewMac.h"
#include "Quillery_Mac/menu/MenuRow.h"
#include "Quillery_Mac/store/TextPreview.h"
#include "Quillery_Mac/ui/RowText.h"
#include "Quillery_Mac/ui/TintedButton.h"
#include "Quillery_Mac/ui/Tokens.h"
#include "tests/support/MenuBench.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QTranslator>

#include <gtest/gtest.h>

using namespace optionWords;

namespace {

class German : public ::testing::Test
{
protected:
    German()
    {
        QLocale::setDefault(QLocale(QLocale::German));
        installTranslation(*qApp);
    }
    ~German() override
    {
        qDeleteAll(qApp->findChildren<QTranslator *>());
        QLocale::setDefault(QLocale::c());
    }

    static QString nameOf(QObject &object)
    {
        return QAccessible::queryAccessibleInterface(&object)->text(QAccessible::Name);
    }
    static QString tally(const QByteArray &text)
    {
        return historyRowText(makeTextPreview(text, text.size())).tally;
    }
};

} // namespace

TEST_F(German, theRowsAreNamedInGermanAndKeepTheirWords)
{
    MenuBench bench;
    bench.show(MenuBench::Form::MenuBar);

    EXPECT_EQ(bench.menu->options.value(),
              (QStringList{kHistory, kClear, kSnippets, kQuickAdd, kSnippetEditor, kSettings,
                           kCheckForUpdates, kQuit}));
    QStringList names;
    for (const QString &word : bench.menu->options.value())
        names.append(nameOf(*bench.menu->rowOf(word)));
    EXPECT_EQ(names,
              (QStringList{QStringLiteral("Verlauf"), QStringLiteral("Verlauf löschen"),
                           QStringLiteral("Textbausteine"), QStringLiteral("Schnell hinzufügen …"),
                           QStringLiteral("Textbausteine bearbeiten …"),
                           QStringLiteral("Einstellungen …"),
                           QStringLiteral("Nach Updates suchen …"), QStringLiteral("Beenden")}));
}

TEST_F(German, theKeysReachAndPressTheRows)
{
    MenuBench bench;
    bench.show(MenuBench::Form::MenuBar);

    QTest::keyClick(bench.menu, Qt::Key_Up);
    EXPECT_EQ(bench.menu->currentActive.value(), kQuit);
    QTest::keyClick(bench.menu, Qt::Key_Return);

    EXPECT_EQ(bench.terminations, 1);
}

TEST_F(German, theLabelsFitIntoTheMenu)
{
    MenuBench bench;
    bench.show(MenuBench::Form::MenuBar);

    for (const QString &word : bench.menu->options.value()) {
        MenuRow &row = *bench.menu->rowOf(word);
        int taken = row.fontMetrics().horizontalAdvance(nameOf(row)) + 2 * tokens::kMenuRowPadding;
        if (word == kQuickAdd)
            taken += row.fontMetrics().horizontalAdvance(bench.hint) + tokens::kTextGap;
        if (word == kHistory || word == kSnippets)
            taken += tokens::kMenuChevron + tokens::kTextGap;
        EXPECT_LE(taken, tokens::kMenuWidth) << word.toStdString();
    }
}

TEST_F(German, theButtonsOfTheQuestionStayInTheirRow)
{
    MenuBench bench;
    bench.show();
    bench.menu->clearAlert = true;

    const auto buttons = bench.menu->rowOf(kClear)->findChildren<TintedButton *>();
    ASSERT_EQ(buttons.size(), 2);
    for (const TintedButton *button : buttons)
        EXPECT_GT(button->x(), tokens::kMenuRowPadding) << button->text().toStdString();
}

TEST_F(German, noTwoEntriesOfAMenuHaveTheSameLetter)
{
    MenuBench bench;
    const ContentViewMac library(
        EditorLinks{bench.context(), bench.funcs, bench.matcher, bench.pasteboard, [] {}});
    QList<QList<QAction *>> menus{library.findChild<QMenuBar *>()->actions()};
    for (const QAction *entry : menus.front())
        menus.append(entry->menu()->actions());
    ASSERT_EQ(menus.size(), 5);

    for (const QList<QAction *> &menu : menus) {
        QString letters;
        for (const QAction *action : menu) {
            const qsizetype mark = action->text().indexOf(u'&');
            if (mark >= 0)
                letters.append(action->text().at(mark + 1).toLower());
        }
        for (const QChar letter : letters)
            EXPECT_EQ(letters.count(letter), 1) << letters.toStdString();
        EXPECT_FALSE(letters.isEmpty());
    }
}

TEST_F(German, numbersHaveTheirPlural)
{
    EXPECT_EQ(tally("1\n2"), QStringLiteral("2 Zeilen"));
    EXPECT_EQ(tally(QByteArray("x\n").repeated(200)), QStringLiteral("99+ Zeilen"));
}

TEST_F(German, theSpaceBarHasItsName)
{
    EXPECT_EQ(KeyboardShortcuts::displayedKeyText(49, nullptr), QStringLiteral("Leertaste"));
    EXPECT_EQ(KeyboardShortcuts::keyText(49, nullptr), QStringLiteral("Space"));
}
