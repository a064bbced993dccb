// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/ExactTextEdit.h"

#include "Quillery_Mac/editor/ShownText.h"
#include "Quillery_Mac/ui/FieldPasting.h"
#include "tests/fakes/FakePasteboard.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace {

// Opens what is protected.
class Field : public ExactTextEdit
{
public:
    using ExactTextEdit::createMimeDataFromSelection;
    using ExactTextEdit::dropEvent;
    using ExactTextEdit::ExactTextEdit;
    using ExactTextEdit::moveSelection;
};

} // namespace

class ExactTextEditTest : public ::testing::Test
{
protected:
    ExactTextEditTest()
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(&before);
        layout->addWidget(&field);
        layout->addWidget(&after);
        window.resize(400, 300);
        window.show();
        window.activateWindow();
        field.setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    // Whether the document shows what stands in the bytes, break for break.
    void expectShown() const { EXPECT_EQ(documentText(), textOfBytes()); }
    QString documentText() const
    {
        return field.document()->toRawText().replace(QChar::ParagraphSeparator, u'\n');
    }
    QString textOfBytes() const
    {
        QString text;
        for (QByteArrayView rest = field.utf8(); !rest.empty();) {
            const shownText::Character first = shownText::first(rest);
            shownText::append(text, first.code);
            rest = rest.sliced(first.bytes);
        }
        return text;
    }

    // Not between the halves of a pair, where no key takes a cursor.
    int wholeAt(int position) const
    {
        const bool isInside = field.document()->characterAt(position).isLowSurrogate();
        return isInside ? position - 1 : position;
    }
    void select(int from, int to)
    {
        QTextCursor cursor = field.textCursor();
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        field.setTextCursor(cursor);
    }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&field, static_cast<Qt::Key>(key), modifiers);
    }

    // Drops a text of another program before the character at `position`.
    void drop(int position, const QMimeData &mime)
    {
        QTextCursor cursor = field.textCursor();
        cursor.setPosition(position);
        QDropEvent event(field.cursorRect(cursor).center(), Qt::CopyAction, &mime, Qt::LeftButton,
                         Qt::NoModifier);
        field.dropEvent(&event);
    }

    QWidget window;
    QLineEdit before;
    Field field;
    QLineEdit after;
};

TEST_F(ExactTextEditTest, whatIsTypedStandsInTheBytes)
{
    QSignalSpy edited(&field, &ExactTextEdit::edited);

    QTest::keyClicks(&field, QStringLiteral("ab"));
    press(Qt::Key_Return);
    press(Qt::Key_Tab);
    QTest::keyClicks(&field, QStringLiteral("c"));

    EXPECT_EQ(field.utf8(), "ab\n\tc");
    EXPECT_EQ(edited.count(), 5);
}

TEST_F(ExactTextEditTest, everyReturnKeyWritesALineFeed)
{
    press(Qt::Key_Return, Qt::ShiftModifier);
    press(Qt::Key_Enter, Qt::KeypadModifier);

    EXPECT_EQ(field.utf8(), "\n\n");
}

TEST_F(ExactTextEditTest, typingLeavesTheOtherLinesAsTheyAre)
{
    const QByteArray bytes("one\r\ntwo\rthree\xc2\xa0\xe2\x80\xa9"
                           "four\xff\x01\xef\xb7\x90"
                           "five\tend ");
    field.setUtf8(bytes);
    EXPECT_EQ(field.utf8(), bytes);

    field.moveCursor(QTextCursor::End);
    QTest::keyClicks(&field, QStringLiteral("x"));
    EXPECT_EQ(field.utf8(), bytes + "x");
    field.moveCursor(QTextCursor::Start);
    QTest::keyClicks(&field, QStringLiteral("y"));
    EXPECT_EQ(field.utf8(), "y" + bytes + "x");
    expectShown();
}

TEST_F(ExactTextEditTest, settingATextIsNoEdit)
{
    QSignalSpy edited(&field, &ExactTextEdit::edited);

    field.setUtf8("one\r\n");
    field.become("two\r\n");

    EXPECT_EQ(field.utf8(), "two\r\n");
    EXPECT_EQ(edited.count(), 0);
}

TEST_F(ExactTextEditTest, backspaceTakesAWholeLineEnd)
{
    field.setUtf8("a\r\nb");
    field.moveCursor(QTextCursor::End);
    press(Qt::Key_Left);
    press(Qt::Key_Backspace);

    EXPECT_EQ(field.utf8(), "ab");
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(field.utf8(), "a\r\nb");
}

TEST_F(ExactTextEditTest, undoAndRedoKeepTheLineEnds)
{
    const QByteArray bytes("one\r\ntwo\rthree\n");
    field.setUtf8(bytes);
    press(Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&field, QStringLiteral("x"));
    ASSERT_EQ(field.utf8(), "x");

    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(field.utf8(), bytes);
    expectShown();
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(field.utf8(), "x");
    field.undo();
    EXPECT_EQ(field.utf8(), bytes);
    field.redo();
    EXPECT_EQ(field.utf8(), "x");
}

TEST_F(ExactTextEditTest, withoutAHistoryUndoDoesNothing)
{
    field.setUtf8("text");
    QSignalSpy edited(&field, &ExactTextEdit::edited);

    press(Qt::Key_Z, Qt::ControlModifier);
    field.redo();

    EXPECT_EQ(field.utf8(), "text");
    EXPECT_EQ(edited.count(), 0);
}

TEST_F(ExactTextEditTest, theWholeTextCanBeDeletedAndWrittenAgain)
{
    field.setUtf8("one\r\ntwo");
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Delete);
    EXPECT_EQ(field.utf8(), "");
    QTest::keyClicks(&field, QStringLiteral("z"));
    EXPECT_EQ(field.utf8(), "z");
    expectShown();
}

TEST_F(ExactTextEditTest, aPasteIsExact)
{
    FakePasteboard pasteboard;
    const FieldPasting pasting(pasteboard);
    const QByteArray bytes = QByteArray("a\r\nb\rc\xe2\x80\xa9") + '\0' + "\xef\xb7\x91\xff\t\x1b";
    pasteboard.text = bytes;
    field.setUtf8("<>");
    select(1, 1);

    press(Qt::Key_V, Qt::ControlModifier);

    EXPECT_EQ(field.utf8(), "<" + bytes + ">");
    expectShown();
    QTest::keyClicks(&field, QStringLiteral("x"));
    EXPECT_EQ(field.utf8(), "<" + bytes + "x>");
    field.undo();
    field.undo();
    EXPECT_EQ(field.utf8(), "<>");
}

TEST_F(ExactTextEditTest, aPasteReplacesTheSelection)
{
    FakePasteboard pasteboard;
    const FieldPasting pasting(pasteboard);
    pasteboard.text = "X\r\n";
    field.setUtf8("one two three");
    select(4, 7);

    press(Qt::Key_V, Qt::ControlModifier);

    EXPECT_EQ(field.utf8(), "one X\r\n three");
    field.setReadOnly(true);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(field.utf8(), "one X\r\n three");
}

TEST_F(ExactTextEditTest, copiesAreExact)
{
    field.setUtf8("a\r\nb\xc2\xa0\rc");
    select(1, 5);
    const std::unique_ptr<QMimeData> copied(field.createMimeDataFromSelection());

    EXPECT_EQ(copied->data(QStringLiteral("text/plain;charset=utf-8")), "\r\nb\xc2\xa0\r");
    EXPECT_EQ(copied->text(), QStringLiteral("\r\nb\u00a0\r"));
    EXPECT_FALSE(copied->hasHtml());

    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(field.utf8(), "ac");
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("\r\nb\u00a0\r"));
    field.undo();
    EXPECT_EQ(field.utf8(), "a\r\nb\xc2\xa0\rc");
}

TEST_F(ExactTextEditTest, aDropFromElsewhereIsExact)
{
    field.setUtf8("<>");
    QMimeData mime;
    mime.setText(QStringLiteral("a\r\nb\r"));

    drop(1, mime);

    EXPECT_EQ(field.utf8(), "<a\r\nb\r>");
    expectShown();
    field.undo();
    EXPECT_EQ(field.utf8(), "<>");
}

TEST_F(ExactTextEditTest, lineEndsThatOnlyTheDragHasChangedAreTakenBack)
{
    field.setUtf8("<>");
    QMimeData mime;
    mime.setText(QStringLiteral("a\nb"));
    mime.setData(QStringLiteral("text/plain;charset=utf-8"), "a\r\nb");

    drop(1, mime);

    EXPECT_EQ(field.utf8(), "<a\nb>");
}

TEST_F(ExactTextEditTest, aSelectionThatIsDraggedWithinTheFieldMovesExactly)
{
    field.setUtf8("one\r\ntwo\rthree");
    select(0, 4);
    field.moveSelection(field.textCursor(), 8, "one\r\n");
    EXPECT_EQ(field.utf8(), "two\rone\r\nthree");
    expectShown();
    field.undo();
    EXPECT_EQ(field.utf8(), "one\r\ntwo\rthree");

    select(8, 13);
    field.moveSelection(field.textCursor(), 4, "three");
    EXPECT_EQ(field.utf8(), "one\r\nthreetwo\r");
    select(0, 4);
    field.moveSelection(field.textCursor(), 4, "one\r\n");
    EXPECT_EQ(field.utf8(), "one\r\nthreetwo\r");
}

TEST_F(ExactTextEditTest, aComposedWordIsTextOnlyOnceItIsCommitted)
{
    QSignalSpy edited(&field, &ExactTextEdit::edited);
    field.setUtf8("a\r\nb");
    field.moveCursor(QTextCursor::End);

    QInputMethodEvent composing(QStringLiteral("ni"), {});
    QApplication::sendEvent(&field, &composing);
    EXPECT_EQ(field.utf8(), "a\r\nb");
    EXPECT_EQ(edited.count(), 0);

    QInputMethodEvent committing;
    committing.setCommitString(QStringLiteral("\u4f60\U0001f600\u2029"));
    QApplication::sendEvent(&field, &committing);
    EXPECT_EQ(field.utf8(), "a\r\nb\u4f60\U0001f600\u2029");
    EXPECT_EQ(edited.count(), 1);
    expectShown();
}

TEST_F(ExactTextEditTest, signsOfSeveralCharactersAreDeletedAndKeptWhole)
{
    const QByteArray family("\U0001f469\u200d\U0001f469\u200d\U0001f467");
    field.setUtf8("x" + family + "\u05d0\u05d1");
    field.moveCursor(QTextCursor::Start);
    press(Qt::Key_Right);
    press(Qt::Key_Delete);
    EXPECT_EQ(field.utf8(), "x\u05d0\u05d1");

    press(Qt::Key_End);
    QTest::sendKeyEvent(QTest::Click, &field, Qt::Key_unknown, QStringLiteral("\u05d2"),
                        Qt::NoModifier);
    EXPECT_EQ(field.utf8(), "x\u05d0\u05d1\u05d2");
    field.undo();
    field.undo();
    EXPECT_EQ(field.utf8(), "x" + family + "\u05d0\u05d1");
}

TEST_F(ExactTextEditTest, theTextIsAlignedToTheSideItIsReadFrom)
{
    const auto alignment = [this] { return field.document()->defaultTextOption().alignment(); };
    field.setUtf8("\u05d0\u05d1\nabc");
    EXPECT_EQ(alignment(), Qt::AlignRight);
    EXPECT_EQ(field.utf8(), "\u05d0\u05d1\nabc");

    field.setUtf8("abc \u05d0");
    EXPECT_EQ(alignment(), Qt::AlignLeft);
    field.insertUtf8("\u05d0 ");
    EXPECT_EQ(alignment(), Qt::AlignRight);
    field.setUtf8({});
    EXPECT_EQ(alignment(), Qt::AlignLeft);
    field.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(alignment(), Qt::AlignRight);
}

TEST_F(ExactTextEditTest, halfASurrogatePairHarmsNothing)
{
    field.insertPlainText(QString(QChar(0xd83d)));
    QTest::keyClicks(&field, QStringLiteral("a"));

    EXPECT_EQ(field.utf8(), "\xef\xbf\xbd"
                            "a");
    press(Qt::Key_Backspace);
    press(Qt::Key_Backspace);
    EXPECT_EQ(field.utf8(), "");
}

TEST_F(ExactTextEditTest, whatIsWrittenInsideASurrogatePairTakesItApart)
{
    field.setUtf8("a\U0001f469z");
    select(2, 2);
    QTest::keyClicks(&field, QStringLiteral("q"));

    EXPECT_EQ(field.utf8(), "a\xef\xbf\xbdq\xef\xbf\xbdz");
    QTest::keyClicks(&field, QStringLiteral("r"));
    EXPECT_EQ(field.utf8(), "a\xef\xbf\xbdqr\xef\xbf\xbdz");
}

TEST_F(ExactTextEditTest, tabsAreTextAndTheFieldIsLeftWithControlOrShift)
{
    press(Qt::Key_Tab);
    EXPECT_TRUE(field.hasFocus());
    EXPECT_EQ(field.utf8(), "\t");

    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_TRUE(after.hasFocus());
    field.setFocus();
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(before.hasFocus());
    EXPECT_EQ(field.utf8(), "\t");
    EXPECT_FALSE(field.accessibleDescription().isEmpty());
}

TEST_F(ExactTextEditTest, aChangeFromElsewhereLeavesTheCursorWithItsText)
{
    field.setUtf8("one\r\ntwo\r\nthree");
    select(8, 8);

    field.become("zero\r\none\r\ntwo\r\nthree");
    QTest::keyClicks(&field, QStringLiteral("x"));

    EXPECT_EQ(field.utf8(), "zero\r\none\r\ntwo\r\nxthree");
    expectShown();
}

TEST_F(ExactTextEditTest, theContextMenuUndoesAndPastesWithoutAskingTheClipboard)
{
    FakePasteboard pasteboard;
    const FieldPasting pasting(pasteboard);
    pasteboard.text = "a\r\nb";
    const auto choose = [this](int index) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5),
                                field.viewport()->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(field.viewport(), &event);
        const QPointer<QMenu> menu = field.findChild<QMenu *>();
        ASSERT_FALSE(menu.isNull());
        menu->actions().at(index)->trigger();
        menu->close();
        ASSERT_TRUE(QTest::qWaitFor([&menu] { return menu.isNull(); }));
    };

    choose(5);
    EXPECT_EQ(field.utf8(), "a\r\nb");
    choose(0);
    EXPECT_EQ(field.utf8(), "");
    choose(1);
    EXPECT_EQ(field.utf8(), "a\r\nb");
}

TEST_F(ExactTextEditTest, aBreakInALongLineIsNoCharacter)
{
    const QByteArray bytes(12000, 'x');
    field.setUtf8(bytes);
    ASSERT_GT(field.blockCount(), 1);
    const int start = field.document()->findBlockByNumber(1).position();

    select(start, start);
    press(Qt::Key_Backspace);
    EXPECT_EQ(field.utf8().size(), 11999);
    select(start - 2, start - 2);
    press(Qt::Key_Delete);
    EXPECT_EQ(field.utf8().size(), 11998);
    press(Qt::Key_A, Qt::ControlModifier);
    const std::unique_ptr<QMimeData> copied(field.createMimeDataFromSelection());
    EXPECT_EQ(copied->text(), QString(11998, u'x'));
}

TEST_F(ExactTextEditTest, aLineThatGrowsLongByPastingIsBroken)
{
    for (int i = 0; i < 20; ++i)
        field.insertUtf8(QByteArray(1000, 'x'));

    EXPECT_EQ(field.utf8(), QByteArray(20000, 'x'));
    EXPECT_GT(field.blockCount(), 2);
    QTest::keyClicks(&field, QStringLiteral("y"));
    EXPECT_EQ(field.utf8(), QByteArray(20000, 'x') + 'y');
    while (field.utf8().size() > 0)
        field.undo();
    EXPECT_EQ(field.document()->characterCount(), 1);
}

TEST_F(ExactTextEditTest, keysInAnyOrderKeepDocumentAndBytesTogether)
{
    QRandomGenerator random(7);
    const QList<QByteArray> pastes{
        "\r\n",         "\r",           "\u2029", "\xff", "\U0001f469\u200d\U0001f467",
        "\u05d0\u05d1", "a\r\nb\nc\rd", "\n"};
    field.setUtf8("start\r\nof\rit");
    for (int i = 0; i < 2000; ++i) {
        const int length = field.document()->characterCount() - 1;
        const int place = random.bounded(length + 1);
        if (random.bounded(4) == 0)
            select(wholeAt(place), wholeAt(std::min(length, place + random.bounded(8))));
        switch (random.bounded(9)) {
        case 0:
        case 1:
            QTest::keyClicks(&field, QStringLiteral("q"));
            break;
        case 2:
            press(Qt::Key_Return);
            break;
        case 3:
            press(Qt::Key_Backspace);
            break;
        case 4:
            press(Qt::Key_Delete, random.bounded(2) ? Qt::ControlModifier : Qt::NoModifier);
            break;
        case 5:
        case 6:
            field.insertUtf8(pastes.at(random.bounded(pastes.size())));
            break;
        case 7:
            field.undo();
            break;
        default:
            field.redo();
        }
        ASSERT_EQ(documentText().remove(u'\n'), textOfBytes().remove(u'\n')) << i;
    }
    const QByteArray end = field.utf8();
    for (int i = 0; i < 3000; ++i)
        field.undo();
    EXPECT_EQ(field.utf8(), "start\r\nof\rit");
    expectShown();
    for (int i = 0; i < 3000; ++i)
        field.redo();
    EXPECT_EQ(field.utf8(), end);
}
