// SPDX-License-Identifier: MIT
// The form in a window that is opened directly, outside the scenes.
#include "Quillery_Mac/app/Funcs.h"
#include "Quillery_Mac/editor/AddSnippet.h"
#include "Quillery_Mac/editor/ExactTextEdit.h"
#include "tests/fakes/FakePasteboard.h"
#include "tests/logic/StoreTestSupport.h"

#include <QScreen>
#include <QTest>

namespace {

constexpr int kFrame = 8;

class AddWindowTest : public StoreTest
{
protected:
    void TearDown() override { funcs.closeWindows(); }

    AddSnippet &open(bool copy)
    {
        funcs.openAddSnippetWindow(copy, view());
        auto *form = qobject_cast<AddSnippet *>(funcs.window);
        EXPECT_TRUE(QTest::qWaitForWindowExposed(form));
        return *form;
    }

    FakePasteboard pasteboard;
    int activations = 0;
    Funcs funcs{[this](bool copy, ManagedObjectContext &context) -> QWidget * {
                    return new AddSnippet(context, pasteboard, copy);
                },
                [this](QWidget &window) {
                    ++activations;
                    window.show();
                }};
};

TEST_F(AddWindowTest, itIsTitledInFrontAndInTheMiddleOfTheScreen)
{
    const AddSnippet &form = open(false);

    EXPECT_EQ(form.windowTitle(), QStringLiteral("Add Snippet"));
    EXPECT_EQ(activations, 1);
    // The frame is not known before the window is there.
    const QPoint away = form.frameGeometry().center() - form.screen()->availableGeometry().center();
    EXPECT_LE(away.manhattanLength(), kFrame);
}

TEST_F(AddWindowTest, itStartsWithTheCopiedText)
{
    pasteboard.text = "copied \xc3\xbc";

    EXPECT_EQ(open(true).findChild<ExactTextEdit *>()->utf8(), "copied \xc3\xbc");
    EXPECT_EQ(open(false).text.value(), "");
}

TEST_F(AddWindowTest, itAddsToTheContextThatItWasOpenedWithAndGoes)
{
    pasteboard.text = "copied";
    AddSnippet &form = open(true);
    EXPECT_EQ(&form.context, &view());

    form.addSnippet();

    EXPECT_EQ(answer(snippetsFile(), "SELECT content FROM Snippet"), "copied");
    EXPECT_TRUE(QTest::qWaitFor([this] { return funcs.window.isNull(); }));
}

} // namespace
