// SPDX-License-Identifier: MIT
#include "Quillery_Mac/clipboard/ClipHistoryView.h"

#include "Quillery_Mac/ui/ThinScrollBar.h"
#include "Quillery_Mac/ui/TintedButton.h"
#include "tests/views/MenuViewFixture.h"

#include <QElapsedTimer>
#include <QHelpEvent>
#include <QTextDocumentFragment>
#include <QToolTip>

using namespace optionWords;

namespace {

class ClipHistoryViewTest : public MenuViewFixture
{
protected:
    /// Opens the history by arrow and hands it the keyboard.
    void openHistory()
    {
        bench.show();
        press(Qt::Key_Down);
        press(Qt::Key_Right);
    }
    static QAbstractButton *deleteButton(ClipButton &row)
    {
        for (auto *button : row.findChildren<QAbstractButton *>()) {
            if (button->accessibleName() == QStringLiteral("Delete"))
                return button;
        }
        return nullptr;
    }
    static TintedButton *tinted(ClipButton &row, const QString &text)
    {
        for (auto *button : row.findChildren<TintedButton *>()) {
            if (button->text() == text)
                return button;
        }
        return nullptr;
    }
    int highlightedRows()
    {
        int count = 0;
        for (const auto &[index, widget] : bench.history()->column().rowsInView())
            count += static_cast<ClipButton *>(widget)->isHighlighted() ? 1 : 0;
        return count;
    }
    /// The pointer presses a row's delete button.
    void askToDelete(int index)
    {
        moveOnto(clipRow(index));
        click(*deleteButton(clipRow(index)));
    }
};

} // namespace

TEST_F(ClipHistoryViewTest, anEmptyHistoryIsThreeHundredWideAndTakesNoCommand)
{
    openHistory();
    EXPECT_EQ(bench.history()->width(), 300);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(bench.history()->isSelected.value(), nullptr);
    EXPECT_FALSE(bench.pasteNow.value());
    EXPECT_TRUE(bench.pasteboard.writes.empty());
}

TEST_F(ClipHistoryViewTest, rowsStandInFetchOrder)
{
    addClips();
    openHistory();
    EXPECT_EQ(clipRow(0).name(), QStringLiteral("one"));
    EXPECT_EQ(clipRow(2).name(), QStringLiteral("three"));
    EXPECT_EQ(bench.history()->column().rowsInView().size(), 3U);
}

TEST_F(ClipHistoryViewTest, theListIsAtMostFourHundredTall)
{
    addClips();
    openHistory();
    const int line = bench.history()->fontMetrics().height();
    EXPECT_EQ(bench.history()->height(), 3 * (line + 14));
    for (int i = 0; i < 40; ++i)
        bench.addClip("more");
    EXPECT_TRUE(eventually([this] { return bench.history()->height() == 400; }));
    EXPECT_TRUE(bench.history()->column().scrollBar().isVisible());
}

TEST_F(ClipHistoryViewTest, giveSelectsTheNewestClip)
{
    addClips();
    openHistory();
    EXPECT_EQ(highlightedClip(), QStringLiteral("one"));
    EXPECT_TRUE(clipRow(0).isHighlighted());
}

TEST_F(ClipHistoryViewTest, upAndDownWrapRound)
{
    addClips();
    openHistory();
    press(Qt::Key_Up);
    EXPECT_EQ(highlightedClip(), QStringLiteral("three"));
    press(Qt::Key_Down);
    EXPECT_EQ(highlightedClip(), QStringLiteral("one"));
    EXPECT_FALSE(controls::isSet(bench.menu->controls.value(), controls::kDown));
    EXPECT_EQ(highlightedRows(), 1);
}

TEST_F(ClipHistoryViewTest, withNothingSelectedTheFirstClipIsBeforeTheCommandActs)
{
    addClips();
    openHistory();
    bench.history()->isSelected = nullptr;
    press(Qt::Key_Down);
    EXPECT_EQ(highlightedClip(), QStringLiteral("two"));
}

TEST_F(ClipHistoryViewTest, withoutGiveEveryCommandIsIgnored)
{
    addClips();
    bench.show();
    press(Qt::Key_Down);
    for (const QString &word : {controls::kUp, controls::kDown, controls::kSelect})
        controls::set(bench.menu->controls, word, true);
    EXPECT_EQ(bench.history()->isSelected.value(), nullptr);
    EXPECT_TRUE(controls::isSet(bench.menu->controls.value(), controls::kDown));
    EXPECT_FALSE(bench.pasteNow.value());
}

TEST_F(ClipHistoryViewTest, rightIsNoCommandOfTheHistoryAndIsDroppedWhenItCloses)
{
    addClips();
    openHistory();
    press(Qt::Key_Right);
    EXPECT_EQ(highlightedClip(), QStringLiteral("one"));
    press(Qt::Key_Left);
    EXPECT_EQ(bench.menu->controls.value(), (Controls{{controls::kGive, false}}));
}

TEST_F(ClipHistoryViewTest, selectPastesTheClipAndDeletesIt)
{
    addClips();
    openHistory();
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(bench.pasteboard.text, QByteArray("two"));
    EXPECT_TRUE(bench.pasteNow.value());
    EXPECT_EQ(clipTexts(), list({"one", "three"}));
    EXPECT_FALSE(bench.context().hasChanges());
    EXPECT_FALSE(bench.panel.isVisible());
}

TEST_F(ClipHistoryViewTest, aClickPastesTheClipAndDeletesIt)
{
    addClips();
    openHistory();
    click(clipRow(2));
    EXPECT_EQ(bench.pasteboard.text, QByteArray("three"));
    EXPECT_EQ(bench.pasteboard.writes,
              std::vector({FakePasteboard::Write::Cleared, FakePasteboard::Write::StringSet}));
    EXPECT_TRUE(bench.pasteNow.value());
    EXPECT_EQ(clipTexts(), list({"one", "two"}));
}

TEST_F(ClipHistoryViewTest, pastingTheOnlyClipLeavesTheListEmpty)
{
    bench.addClip("only");
    openHistory();
    press(Qt::Key_Return);
    EXPECT_TRUE(clipTexts().isEmpty());
    bench.show();
    press(Qt::Key_Down);
    EXPECT_TRUE(bench.history()->column().rowsInView().empty());
}

TEST_F(ClipHistoryViewTest, aMissingContentIsPastedAsTheEmptyText)
{
    bench.addClip(std::nullopt);
    openHistory();
    EXPECT_EQ(clipRow(0).name(), QStringLiteral("Blank text"));
    press(Qt::Key_Return);
    EXPECT_EQ(bench.pasteboard.text, QByteArray(""));
    EXPECT_TRUE(bench.pasteNow.value());
}

TEST_F(ClipHistoryViewTest, aHoveredClipIsSelectedWithoutTakingTheKeyboard)
{
    addClips();
    bench.show();
    moveOnto(row(kHistory));
    ASSERT_EQ(open(), kHistory);
    moveOnto(clipRow(1));
    EXPECT_EQ(highlightedClip(), QStringLiteral("two"));
    EXPECT_TRUE(clipRow(1).hover.value());
    EXPECT_FALSE(gives());
    moveOnto(clipRow(2));
    EXPECT_FALSE(clipRow(1).hover.value());
    EXPECT_EQ(highlightedRows(), 1);
}

TEST_F(ClipHistoryViewTest, thePointerInsideTheHistoryIsKnown)
{
    addClips();
    bench.show();
    moveOnto(row(kHistory));
    moveOnto(clipRow(0));
    EXPECT_TRUE(bench.menu->overHistory.value());
    moveOnto(row(kHistory));
    EXPECT_FALSE(bench.menu->overHistory.value());
}

TEST_F(ClipHistoryViewTest, rowsThatScrollUnderARestingPointerDoNotStealTheHighlight)
{
    for (int i = 0; i < 60; ++i)
        bench.addClip(QByteArray::number(i));
    openHistory();
    moveOnto(clipRow(5));
    const QPoint rest = clipRow(5).mapTo(clipRow(5).window(), clipRow(5).rect().center());
    EXPECT_EQ(highlightedClip(), QStringLiteral("5"));

    for (int i = 0; i < 20; ++i)
        press(Qt::Key_Down);

    QTest::mouseMove(bench.panel.popover().windowHandle(), rest);
    EXPECT_EQ(highlightedClip(), QStringLiteral("25"));
    EXPECT_EQ(highlightedRows(), 1);
    QTest::mouseMove(bench.panel.popover().windowHandle(), rest + QPoint(1, 0));
    EXPECT_NE(highlightedClip(), QStringLiteral("25"));
}

TEST_F(ClipHistoryViewTest, theHighlightedRowIsKeptInView)
{
    for (int i = 0; i < 60; ++i)
        bench.addClip(QByteArray::number(i));
    openHistory();
    press(Qt::Key_Up);
    ASSERT_NE(bench.history()->column().rowWidget(59), nullptr);
    EXPECT_TRUE(clipRow(59).isHighlighted());
    const QRect geometry = clipRow(59).geometry();
    EXPECT_LE(geometry.bottom(), bench.history()->height());
}

TEST_F(ClipHistoryViewTest, deleteShowsOnTheHighlightedRowOnly)
{
    addClips();
    openHistory();
    EXPECT_TRUE(deleteButton(clipRow(0))->isVisible());
    press(Qt::Key_Down);
    EXPECT_FALSE(deleteButton(clipRow(0))->isVisible());
    EXPECT_TRUE(deleteButton(clipRow(1))->isVisible());
    EXPECT_EQ(deleteButton(clipRow(1))->size(), QSize(16, 16));
}

TEST_F(ClipHistoryViewTest, theDeleteButtonAsksInTheRow)
{
    addClips();
    openHistory();
    const int height = clipRow(1).height();
    askToDelete(1);
    EXPECT_TRUE(clipRow(1).confirmDelete.value());
    EXPECT_TRUE(tinted(clipRow(1), QStringLiteral("Cancel"))->isVisible());
    EXPECT_FALSE(deleteButton(clipRow(1))->isVisible());
    EXPECT_EQ(clipRow(1).height(), height);
    EXPECT_EQ(clipTexts().size(), 3);
}

TEST_F(ClipHistoryViewTest, cancelKeepsTheClip)
{
    addClips();
    openHistory();
    askToDelete(1);
    click(*tinted(clipRow(1), QStringLiteral("Cancel")));
    EXPECT_FALSE(clipRow(1).confirmDelete.value());
    EXPECT_EQ(clipTexts().size(), 3);
    EXPECT_FALSE(bench.pasteNow.value());
}

TEST_F(ClipHistoryViewTest, confirmRemovesTheRowAtOnceAndPastesNothing)
{
    addClips();
    ASSERT_TRUE(bench.context().save().has_value());
    openHistory();
    askToDelete(1);
    click(*tinted(clipRow(1), QStringLiteral("Confirm?")));
    EXPECT_EQ(bench.history()->column().rowsInView().size(), 2U);
    EXPECT_EQ(clipRow(1).name(), QStringLiteral("three"));
    EXPECT_FALSE(clipRow(1).confirmDelete.value());
    EXPECT_EQ(bench.context().fetch<Clip>()[1]->position(), 3);
    EXPECT_FALSE(bench.context().hasChanges());
    EXPECT_TRUE(bench.pasteboard.writes.empty());
    EXPECT_FALSE(bench.pasteNow.value());
    EXPECT_TRUE(bench.panel.isVisible());
}

TEST_F(ClipHistoryViewTest, aPressBetweenTheButtonsOfTheQuestionPastesNothing)
{
    addClips();
    openHistory();
    askToDelete(1);
    const QRect cancel = tinted(clipRow(1), QStringLiteral("Cancel"))->geometry();
    QTest::mouseClick(&clipRow(1), Qt::LeftButton, {}, QPoint(cancel.left() - 3, 15));
    EXPECT_FALSE(bench.pasteNow.value());
}

TEST_F(ClipHistoryViewTest, theQuestionStaysWithItsClipWhenANewOneIsRecorded)
{
    addClips();
    openHistory();
    askToDelete(1);
    auto &fresh = *bench.context().insert<Clip>();
    fresh.setContent(QByteArray("zero"));
    fresh.setPosition(0);
    EXPECT_TRUE(eventually([this] { return bench.history()->column().rowsInView().size() == 4; }));
    EXPECT_FALSE(clipRow(1).confirmDelete.value());
    EXPECT_TRUE(clipRow(2).confirmDelete.value());
    EXPECT_EQ(clipRow(2).name(), QStringLiteral("two"));
}

TEST_F(ClipHistoryViewTest, aClipThatIsDeletedElsewhereLeavesTheListWhileItIsOpen)
{
    addClips();
    ASSERT_TRUE(bench.context().save().has_value());
    openHistory();
    bench.controller.container->performBackgroundTask([](ManagedObjectContext &context) {
        context.deleteObject(*context.fetch<Clip>().front());
        ASSERT_TRUE(context.save().has_value());
    });
    bench.controller.container->waitForBackgroundTasks();
    EXPECT_TRUE(eventually([this] { return bench.history()->column().rowsInView().size() == 2; }));
    EXPECT_EQ(bench.history()->isSelected.value(), nullptr);
    press(Qt::Key_Return);
    EXPECT_EQ(bench.pasteboard.text, QByteArray("two"));
}

TEST_F(ClipHistoryViewTest, aFullHistoryWithAHugeClipOpensAtOnceAndPastesItWhole)
{
    const QByteArray huge(50 * 1024 * 1024, 'x');
    bench.addClip(huge);
    for (int i = 1; i < 998; ++i)
        bench.addClip("clip " + QByteArray::number(i) + "\nline");
    ASSERT_TRUE(bench.context().save().has_value());
    bench.show();
    QElapsedTimer timer;
    timer.start();
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    QApplication::processEvents();
    bench.panel.popover().grab();
    // Laying out the whole text would take minutes.
    EXPECT_LT(timer.elapsed(), 2000);
    EXPECT_EQ(clipRow(0).name().size(), 300);
    EXPECT_LT(bench.history()->findChildren<ClipButton *>().size(), 20);
    press(Qt::Key_Return);
    EXPECT_EQ(bench.pasteboard.text->size(), huge.size());
}

TEST_F(ClipHistoryViewTest, theHelpOfARowIsItsContent)
{
    bench.addClip("first\n\tsecond");
    openHistory();
    EXPECT_EQ(clipRow(0).help(), QStringLiteral("first\n\tsecond"));
}

TEST_F(ClipHistoryViewTest, theHelpOfALongTextIsItsFirstFourThousandNinetySixBytes)
{
    bench.addClip(QByteArray(4096, 'x'));
    bench.addClip(QByteArray(4097, 'y'));
    bench.addClip(QByteArray("\u20ac").repeated(2000));
    openHistory();
    EXPECT_EQ(clipRow(0).help(), QString(4096, u'x'));
    EXPECT_EQ(clipRow(1).help(), QString(4096, u'y') + u'\u2026');
    // A euro sign has three bytes, and the last one is left out whole.
    EXPECT_EQ(clipRow(2).help(), QString(1365, u'\u20ac') + u'\u2026');
}

TEST_F(ClipHistoryViewTest, theTooltipShowsAtMostFourThousandCharacters)
{
    bench.addClip(QByteArray(5000, 'x'));
    openHistory();
    moveOnto(clipRow(0));
    const QPoint place = clipRow(0).rect().center();
    QHelpEvent ask(QEvent::ToolTip, place, clipRow(0).mapToGlobal(place));
    QApplication::sendEvent(&clipRow(0), &ask);
    EXPECT_EQ(QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText(),
              QString(4000, u'x') + u'\u2026');
    QToolTip::hideText();
}
