// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/SheetAlert.h"
#include "tests/views/RecorderFixture.h"

#include <QLabel>
#include <QMessageBox>

using namespace KeyboardShortcuts;

namespace {

class RecorderAlertTest : public RecorderFixture
{
protected:
    RecorderAlertTest() { open(); }

    /// The window manager gives the keyboard back to the window that had the alert.
    void expectRecordingGoesOn()
    {
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitFor([this] { return recorder().isRecording(); }));
        EXPECT_TRUE(isPaused());
        EXPECT_TRUE(recorder().hasFocus());
    }
};

const QString kOk = QStringLiteral("OK");
const QString kUseAnyway = QStringLiteral("Use Anyway");
const Shortcut kDefault(9, 768);

} // namespace

TEST_F(RecorderAlertTest, okToTheSystemsShortcutKeepsTheOldOneAndRecordingGoesOn)
{
    system.enabled = {{8, 0x100}};
    startRecording();

    answerAlert(kOk);
    type(Qt::Key_C, Key::c, Qt::MetaModifier);

    EXPECT_EQ(alerts, 1);
    EXPECT_EQ(shortcut(), kDefault);
    EXPECT_TRUE(changes.empty());
    expectRecordingGoesOn();
    EXPECT_EQ(system.refreshes, 3);
}

TEST_F(RecorderAlertTest, useAnywayStoresTheSystemsShortcut)
{
    system.held = {{8, 0x100}};
    startRecording();

    answerAlert(kUseAnyway);
    type(Qt::Key_C, Key::c, Qt::MetaModifier);

    EXPECT_EQ(alerts, 1);
    EXPECT_EQ(shortcut(), Shortcut(8, 0x100));
    EXPECT_EQ(recorder().stringValue(), QStringLiteral("⌘C"));
    bringToFront(*window);
    EXPECT_FALSE(recorder().isRecording());
    EXPECT_FALSE(recorder().hasFocus());
}

TEST_F(RecorderAlertTest, theSystemsAlertIsASheetWithBothTexts)
{
    system.enabled = {{8, 0x100}};
    startRecording();

    atAlert([this](QMessageBox &alert) {
        EXPECT_EQ(alert.text(), QStringLiteral("This shortcut is already used by the desktop or "
                                               "another program."));
        EXPECT_EQ(alert.informativeText(),
                  QStringLiteral("Choose another one, or free it in the desktop’s keyboard "
                                 "settings."));
        EXPECT_EQ(alert.icon(), QMessageBox::Warning);
        EXPECT_EQ(alert.windowModality(), Qt::WindowModal);
        EXPECT_EQ(alert.parentWidget(), window.get());
        EXPECT_EQ(alert.buttons().size(), 2);
        EXPECT_EQ(alert.defaultButton()->text(), kOk);
        EXPECT_FALSE(isPaused());
        EXPECT_FALSE(recorder().isRecording());
        alert.close();
    });
    type(Qt::Key_C, Key::c, Qt::MetaModifier);

    EXPECT_EQ(alerts, 1);
    EXPECT_EQ(shortcut(), kDefault);
}

TEST_F(RecorderAlertTest, aMenuItemsShortcutIsNamedAndRefused)
{
    QMenu *submenu = menu.addMenu(QStringLiteral("&File"));
    layout.texts[12] = QStringLiteral("q");
    submenu->addAction(QStringLiteral("&Quit"))->setShortcut(Qt::CTRL | Qt::Key_Q);
    startRecording();

    atAlert([](QMessageBox &alert) {
        EXPECT_EQ(alert.text(),
                  QStringLiteral("This shortcut already belongs to the menu item “Quit”."));
        EXPECT_TRUE(alert.informativeText().isEmpty());
        EXPECT_EQ(alert.buttons().size(), 1);
        alert.buttons().constFirst()->click();
    });
    type(Qt::Key_Q, Key::q, Qt::ControlModifier);

    EXPECT_EQ(alerts, 1);
    EXPECT_EQ(shortcut(), kDefault);
    expectRecordingGoesOn();
}

TEST_F(RecorderAlertTest, aHotKeyOfOursThatTheSystemAlsoHasIsAskedAbout)
{
    system.enabled = {{8, 768}};
    setShortcut(Shortcut(8, 768), Name::addHotKey());
    startRecording();

    answerAlert(kOk);
    service->press(8, 768);
    EXPECT_TRUE(QTest::qWaitFor([&] { return alerts == 1; }));

    EXPECT_EQ(shortcut(), kDefault);
    expectRecordingGoesOn();
}

TEST_F(RecorderAlertTest, theRecorderMayGoWhileItsAlertIsShown)
{
    system.enabled = {{8, 0x100}};
    startRecording();

    atAlert([this](QMessageBox &alert) {
        delete std::exchange(row, nullptr);
        alert.close();
    });
    type(Qt::Key_C, Key::c, Qt::MetaModifier);

    EXPECT_EQ(alerts, 1);
    EXPECT_EQ(shortcut(), kDefault);
    EXPECT_FALSE(isPaused());
}

TEST_F(RecorderAlertTest, theWindowMayGoWhileItsAlertIsShown)
{
    system.enabled = {{8, 0x100}};
    startRecording();

    atAlert([this](QMessageBox &) { window.reset(); });
    type(Qt::Key_C, Key::c, Qt::MetaModifier);

    EXPECT_EQ(alerts, 1);
    EXPECT_EQ(shortcut(), kDefault);
    EXPECT_FALSE(isPaused());
}

TEST_F(RecorderAlertTest, aSheetAnswersTheNumberOfItsButton)
{
    const SheetAlert alert{QStringLiteral("Message"),
                           {},
                           {QStringLiteral("One"), QStringLiteral("Two"), QStringLiteral("Three")}};
    for (int index = 0; index < alert.buttons.size(); ++index) {
        answerAlert(alert.buttons[index]);
        EXPECT_EQ(alert.run(window.get()), 1000 + index);
    }
}

TEST_F(RecorderAlertTest, escapeIsTheFirstButton)
{
    const SheetAlert alert{
        QStringLiteral("Message"), {}, {QStringLiteral("One"), QStringLiteral("Two")}};

    atAlert([](QMessageBox &box) { QTest::keyClick(&box, Qt::Key_Escape); });

    EXPECT_EQ(alert.run(button), 1000);
}

TEST_F(RecorderAlertTest, whatHappenedStandsOutFromTheAdvice)
{
    atAlert([](QMessageBox &box) {
        const auto *message = box.findChild<QLabel *>(QStringLiteral("qt_msgbox_label"));
        const auto *advice = box.findChild<QLabel *>(QStringLiteral("qt_msgbox_informativelabel"));
        ASSERT_NE(message, nullptr);
        ASSERT_NE(advice, nullptr);
        EXPECT_TRUE(message->font().bold());
        EXPECT_FALSE(advice->font().bold());
        EXPECT_GE(message->width(), message->minimumSizeHint().width());
        box.close();
    });

    const SheetAlert alert{QStringLiteral("Message"), QStringLiteral("Advice"), {}};
    EXPECT_EQ(alert.run(window.get()), 1000);
}

TEST_F(RecorderAlertTest, aSheetWithoutButtonsHasOneOk)
{
    atAlert([](QMessageBox &box) {
        ASSERT_EQ(box.buttons().size(), 1);
        EXPECT_EQ(box.buttons().constFirst()->text().remove(u'&'), kOk);
        EXPECT_TRUE(box.buttons().constFirst()->icon().isNull());
        QTest::keyClick(&box, Qt::Key_Return);
    });

    EXPECT_EQ((SheetAlert{QStringLiteral("Message"), {}, {}}.run(window.get())), 1000);
}

TEST_F(RecorderAlertTest, anAlertWithoutAWindowGoesBeforeAll)
{
    atAlert([](QMessageBox &box) {
        EXPECT_EQ(box.windowModality(), Qt::ApplicationModal);
        EXPECT_EQ(box.parentWidget(), nullptr);
        box.close();
    });

    EXPECT_EQ((SheetAlert{QStringLiteral("Message"), {}, {}}.run(nullptr)), 1000);
}

TEST_F(RecorderAlertTest, aSheetThatGoesWithItsWindowHasNoAnswer)
{
    atAlert([this](QMessageBox &) { window.reset(); });

    EXPECT_EQ((SheetAlert{QStringLiteral("Message"), {}, {}}.run(window.get())), std::nullopt);
}
