// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/FieldPasting.h"

#include "tests/fakes/FakePasteboard.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextEdit>

#include <gtest/gtest.h>

class FieldPastingTest : public ::testing::Test
{
protected:
    FieldPastingTest()
    {
        // What the toolkit would paste must show nowhere.
        QApplication::clipboard()->setText(QStringLiteral("the toolkit's"));
        pasteboard.copyElsewhere("gr\xC3\xBC\xC3\x9F");
    }

    static void pressPaste(QWidget &field)
    {
        field.show();
        QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
    }

    FakePasteboard pasteboard;
    FieldPasting pasting{pasteboard};
};

TEST_F(FieldPastingTest, aLineEditPastesThePasteboardInPlaceOfItsSelection)
{
    QLineEdit field(QStringLiteral("a word z"));
    field.setSelection(2, 4);

    pressPaste(field);

    EXPECT_EQ(field.text(), QStringLiteral("a gr\u00FC\u00DF z"));
}

TEST_F(FieldPastingTest, textEditsPasteThePasteboard)
{
    QTextEdit rich;
    QPlainTextEdit plain;

    pressPaste(rich);
    pressPaste(plain);

    EXPECT_EQ(rich.toPlainText(), QStringLiteral("gr\u00FC\u00DF"));
    EXPECT_EQ(plain.toPlainText(), QStringLiteral("gr\u00FC\u00DF"));
}

TEST_F(FieldPastingTest, pastingIsUndoneInOneStep)
{
    QLineEdit field(QStringLiteral("before "));
    field.end(false);

    pressPaste(field);
    field.undo();

    EXPECT_EQ(field.text(), QStringLiteral("before "));
}

TEST_F(FieldPastingTest, aReadOnlyFieldStaysAsItIs)
{
    QLineEdit field(QStringLiteral("fixed"));
    field.setReadOnly(true);

    pressPaste(field);

    EXPECT_EQ(field.text(), QStringLiteral("fixed"));
}

TEST_F(FieldPastingTest, withoutTextNothingIsPasted)
{
    pasteboard.copyElsewhere(std::nullopt);
    QLineEdit field(QStringLiteral("kept"));

    pressPaste(field);

    EXPECT_EQ(field.text(), QStringLiteral("kept"));
}

TEST_F(FieldPastingTest, aLineEditTakesTheStartOfALongText)
{
    pasteboard.copyElsewhere(QByteArray("\xE2\x82\xAC").repeated(1000000));
    QLineEdit field;

    pressPaste(field);

    EXPECT_EQ(field.text(), QString(field.maxLength(), QChar(0x20AC)));
}

namespace {

/// Counts the releases of the mouse that would let it paste.
class WatchedLineEdit : public QLineEdit
{
public:
    int releases = 0;

protected:
    void mouseReleaseEvent(QMouseEvent *event) override
    {
        ++releases;
        QLineEdit::mouseReleaseEvent(event);
    }
};

} // namespace

TEST_F(FieldPastingTest, theMiddleClickDoesNotReachAField)
{
    WatchedLineEdit field;
    field.show();

    QTest::mouseClick(&field, Qt::MiddleButton);
    EXPECT_EQ(field.releases, 0);

    QTest::mouseClick(&field, Qt::LeftButton);
    EXPECT_EQ(field.releases, 1);
}

TEST_F(FieldPastingTest, otherKeysAreLeftAlone)
{
    QLineEdit field;
    field.show();

    QTest::keyClicks(&field, QStringLiteral("v"));

    EXPECT_EQ(field.text(), QStringLiteral("v"));
}
