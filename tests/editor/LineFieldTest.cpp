// SPDX-License-Identifier: MIT
#include "Quillery_Mac/editor/LineField.h"

#include "Quillery_Mac/ui/FieldPasting.h"
#include "tests/fakes/FakePasteboard.h"

#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QTest>

#include <gtest/gtest.h>

namespace {

constexpr qsizetype kLong = 10'000'000; // units
constexpr int kMany = 70;

class LineFieldTest : public ::testing::Test
{
protected:
    LineFieldTest() { field.show(); }

    void paste(const QString &text)
    {
        pasteboard.copyElsewhere(text.toUtf8());
        press(Qt::Key_V, Qt::ControlModifier);
    }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&field, static_cast<Qt::Key>(key), modifiers);
    }
    void type(const char *text) { QTest::keyClicks(&field, QString::fromUtf8(text)); }
    void selectAll() { press(Qt::Key_A, Qt::ControlModifier); }
    void undo() { press(Qt::Key_Z, Qt::ControlModifier); }
    void redo() { press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }

    // Long texts are not printed.
    bool isWhole(const QString &text) const { return field.wholeText() == text; }

    const QString longText =
        QStringLiteral("  a\r\n\U0001f469 ").repeated(kLong / 8) + QStringLiteral("end ");
    FakePasteboard pasteboard;
    FieldPasting pasting{pasteboard};
    LineField field;
};

} // namespace

TEST_F(LineFieldTest, aShortTextIsShownAsItIs)
{
    field.setWholeText(QStringLiteral("short"));

    EXPECT_EQ(field.text(), QStringLiteral("short"));
    EXPECT_EQ(field.wholeText(), QStringLiteral("short"));
}

TEST_F(LineFieldTest, aLongTextIsPastedWhole)
{
    paste(longText);

    EXPECT_TRUE(isWhole(longText));
    EXPECT_LT(field.text().size(), 20000);
}

TEST_F(LineFieldTest, aLongTextInTheMiddleKeepsWhatStandsAroundIt)
{
    field.setWholeText(QStringLiteral("[]"));
    field.setCursorPosition(1);

    paste(longText);
    type("x");
    EXPECT_TRUE(isWhole(u'[' + longText + QStringLiteral("x]")));

    press(Qt::Key_Backspace);
    undo();
    undo();
    undo();
    EXPECT_EQ(field.wholeText(), QStringLiteral("[]"));
    redo();
    EXPECT_TRUE(field.wholeText().startsWith(u'[' + longText));
}

TEST_F(LineFieldTest, aLongTextIsEmptiedWholeAndComesBackWhole)
{
    field.setWholeText(longText);

    selectAll();
    press(Qt::Key_Delete);
    EXPECT_EQ(field.wholeText(), QString());

    undo();
    EXPECT_TRUE(isWhole(longText));
    redo();
    EXPECT_EQ(field.wholeText(), QString());
}

TEST_F(LineFieldTest, aLongTextIsReplacedWhole)
{
    field.setWholeText(longText);

    selectAll();
    type("new");

    EXPECT_EQ(field.wholeText(), QStringLiteral("new"));
}

TEST_F(LineFieldTest, aLongTextIsShortenedFromItsEnd)
{
    field.setWholeText(longText);

    press(Qt::Key_End);
    press(Qt::Key_Backspace);
    EXPECT_EQ(field.wholeText(), field.text());
    EXPECT_TRUE(longText.startsWith(field.text()));
    EXPECT_GT(field.text().size(), 16000);

    field.setCursorPosition(3);
    press(Qt::Key_End, Qt::ShiftModifier);
    press(Qt::Key_Delete);
    EXPECT_EQ(field.wholeText(), longText.left(3));
}

TEST_F(LineFieldTest, whatIsTypedIntoALongTextLeavesTheRest)
{
    field.setWholeText(longText);

    press(Qt::Key_Home);
    type("x");
    press(Qt::Key_End);
    type("y");

    EXPECT_TRUE(isWhole(u'x' + longText + u'y'));
}

TEST_F(LineFieldTest, aLongTextIsCopiedAndCutWhole)
{
    field.setWholeText(longText);
    const QClipboard &clipboard = *QGuiApplication::clipboard();

    selectAll();
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(clipboard.text() == longText);
    EXPECT_TRUE(isWhole(longText));

    QGuiApplication::clipboard()->clear();
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_TRUE(clipboard.text() == longText);
    EXPECT_EQ(field.wholeText(), QString());
}

TEST_F(LineFieldTest, aLongTextIsDroppedWhole)
{
    field.setWholeText(QStringLiteral("before "));
    QMimeData mime;
    mime.setText(longText);
    const QPoint end(field.width() - 5, 5);
    QDragEnterEvent enter(end, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QDropEvent drop(end, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    drop.ignore();

    QCoreApplication::sendEvent(&field, &enter);
    QCoreApplication::sendEvent(&field, &drop);

    EXPECT_TRUE(drop.isAccepted());
    EXPECT_TRUE(isWhole(QStringLiteral("before ") + longText));
}

TEST_F(LineFieldTest, everyOneOfManyLongTextsIsKept)
{
    const QString one(20000, u'\u00e4');
    for (int i = 0; i < kMany; ++i)
        paste(one);
    EXPECT_TRUE(isWhole(one.repeated(kMany)));

    selectAll();
    paste(one);
    EXPECT_TRUE(isWhole(one));
}

TEST_F(LineFieldTest, manyLongTextsInTheMiddleKeepTheirOrder)
{
    const QString one(20000, u'\u00e4');
    field.setWholeText(QStringLiteral("[]"));
    field.setCursorPosition(1);
    for (int i = 0; i < kMany; ++i)
        paste(one);

    EXPECT_TRUE(isWhole(u'[' + one.repeated(kMany) + u']'));
}

TEST_F(LineFieldTest, aWordIsShownInALongTextToo)
{
    field.setWholeText(longText);
    press(Qt::Key_Home);

    paste(QStringLiteral("word "));

    EXPECT_TRUE(field.text().startsWith(QStringLiteral("word ")));
    EXPECT_TRUE(isWhole(QStringLiteral("word ") + longText));
}

TEST_F(LineFieldTest, aLongTextIsNotCutInsideAPair)
{
    for (const qsizetype before : {16382, 16383, 16384}) {
        const QString text = QString(before, u'a') + QStringLiteral("\U0001f469 and more");
        field.setWholeText(text);

        EXPECT_EQ(field.wholeText(), text);
        for (const QChar unit : field.text().right(3))
            EXPECT_FALSE(unit.isHighSurrogate() && field.text().endsWith(unit));
        press(Qt::Key_End);
        press(Qt::Key_Backspace);
        EXPECT_TRUE(text.startsWith(field.wholeText()));
        EXPECT_FALSE(field.wholeText().back().isHighSurrogate());
    }
}

TEST_F(LineFieldTest, unitsThatAreNoCharactersStay)
{
    const QString text = QStringLiteral("a\ufdd0b\ufdefc\ufdd0");
    field.setWholeText(text);
    EXPECT_EQ(field.wholeText(), text);

    press(Qt::Key_Home);
    paste(text);
    EXPECT_EQ(field.wholeText(), text + text);
}
