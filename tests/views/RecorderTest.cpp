// SPDX-License-Identifier: MIT
#include "tests/views/RecorderFixture.h"

using namespace KeyboardShortcuts;

namespace {

constexpr Qt::KeyboardModifiers kShiftSuper = Qt::ShiftModifier | Qt::MetaModifier;
const Shortcut kDefault(9, 768);

class RecorderTest : public RecorderFixture
{
protected:
    RecorderTest() { open(); }

    void expectIdle()
    {
        EXPECT_FALSE(recorder().isRecording());
        EXPECT_FALSE(isPaused());
        EXPECT_EQ(recorder().placeholder(), QStringLiteral("Record Shortcut"));
    }

    void expectRecording()
    {
        EXPECT_TRUE(recorder().isRecording());
        EXPECT_TRUE(isPaused());
        EXPECT_TRUE(recorder().hasFocus());
        EXPECT_EQ(recorder().placeholder(), QStringLiteral("Press Shortcut"));
    }
};

} // namespace

TEST_F(RecorderTest, showsTheStoredShortcut)
{
    EXPECT_EQ(recorder().stringValue(), QStringLiteral("⇧⌘V"));
    EXPECT_TRUE(recorder().cancelButton().isVisible());
    expectIdle();
}

TEST_F(RecorderTest, showsNothingWithoutAShortcut)
{
    setShortcut(std::nullopt, Name::contextHotKey());

    EXPECT_TRUE(recorder().stringValue().isEmpty());
    EXPECT_FALSE(recorder().cancelButton().isVisible());
    EXPECT_TRUE(changes.empty());
    expectIdle();
}

TEST_F(RecorderTest, followsItsNameAndNoOther)
{
    setShortcut(Shortcut(Key::f5, {}), Name::addHotKey());
    EXPECT_EQ(recorder().stringValue(), QStringLiteral("⇧⌘V"));

    setShortcut(Shortcut(Key::f6, {}), Name::contextHotKey());
    EXPECT_EQ(recorder().stringValue(), QStringLiteral("F6"));

    row->setName(Name::addHotKey());
    EXPECT_EQ(recorder().stringValue(), QStringLiteral("F5"));
}

TEST_F(RecorderTest, followsTheKeyboardLayout)
{
    layout.texts[9] = QStringLiteral("м");
    emit layout.changed();

    EXPECT_EQ(recorder().stringValue(), QStringLiteral("⇧⌘М"));
}

TEST_F(RecorderTest, aKeyWithoutATextIsTheReplacementCharacter)
{
    setShortcut(Shortcut(Key{93}, Modifier::Command), Name::contextHotKey());

    EXPECT_EQ(recorder().stringValue(), QStringLiteral("⌘\uFFFD"));
}

TEST_F(RecorderTest, openingTheWindowDoesNotStartRecording)
{
    expectIdle();
    EXPECT_FALSE(recorder().hasFocus());
}

TEST_F(RecorderTest, aWindowWithNothingElseDoesNotStartRecordingEither)
{
    RecorderCocoa alone(Name::addHotKey(), links());
    EXPECT_FALSE(alone.canBecomeKeyView());

    bringToFront(alone);

    EXPECT_FALSE(alone.isRecording());
    EXPECT_TRUE(alone.canBecomeKeyView());
}

TEST_F(RecorderTest, aWindowThatBecomesKeyLetsTheFieldBecomeKeyOnTheNextTurn)
{
    ASSERT_TRUE(recorder().canBecomeKeyView());
    EXPECT_EQ(recorder().focusPolicy(), Qt::StrongFocus);

    QEvent activation(QEvent::WindowActivate);
    QCoreApplication::sendEvent(window.get(), &activation);
    EXPECT_FALSE(recorder().canBecomeKeyView());
    EXPECT_EQ(recorder().focusPolicy(), Qt::NoFocus);
    clickAt(recorder().rect().center());
    EXPECT_FALSE(recorder().hasFocus());

    EXPECT_TRUE(QTest::qWaitFor([&] { return recorder().canBecomeKeyView(); }));
    clickAt(recorder().rect().center());
    expectRecording();
}

TEST_F(RecorderTest, aClickStartsRecording)
{
    EXPECT_EQ(system.refreshes, 1) << "asked when the field came into its window";

    clickAt(recorder().rect().center());

    expectRecording();
    EXPECT_EQ(recorder().stringValue(), QStringLiteral("⇧⌘V"));
    EXPECT_TRUE(recorder().cancelButton().isVisible());
    EXPECT_EQ(system.refreshes, 2);
}

TEST_F(RecorderTest, tabStartsRecordingAndTabMovesOn)
{
    QWidget::setTabOrder(field, &recorder());
    QWidget::setTabOrder(&recorder(), button);
    field->setFocus();

    type(Qt::Key_Tab, Key::tab);
    expectRecording();

    type(Qt::Key_Tab, Key::tab);
    EXPECT_TRUE(button->hasFocus());
    expectIdle();
    EXPECT_EQ(shortcut(), kDefault);
}

TEST_F(RecorderTest, tabMovesFromOneRecorderToTheNext)
{
    auto *second = new Recorder(Name::addHotKey(), links());
    window->layout()->addWidget(second);
    QWidget::setTabOrder(&recorder(), &second->control());
    EXPECT_TRUE(QTest::qWaitFor([&] { return second->control().canBecomeKeyView(); }));
    startRecording();

    type(Qt::Key_Tab, Key::tab);

    EXPECT_FALSE(recorder().isRecording());
    EXPECT_TRUE(second->control().isRecording());
    EXPECT_TRUE(isPaused());
}

TEST_F(RecorderTest, tabEndsRecordingWhereNothingElseTakesTheKeyboard)
{
    field->setFocusPolicy(Qt::NoFocus);
    button->setFocusPolicy(Qt::NoFocus);
    startRecording();

    type(Qt::Key_Tab, Key::tab);

    expectIdle();
    EXPECT_FALSE(recorder().hasFocus());
}

TEST_F(RecorderTest, shiftTabBeepsAndKeepsRecording)
{
    startRecording();

    type(Qt::Key_Backtab, Key::tab, Qt::ShiftModifier);

    EXPECT_EQ(beeps, 1);
    expectRecording();
}

TEST_F(RecorderTest, aChordIsStoredAndEndsRecording)
{
    startRecording();

    type(Qt::Key_C, Key::c, Qt::ControlModifier | Qt::AltModifier);

    const Shortcut expected(Key::c, Modifier::Control | Modifier::Option);
    EXPECT_EQ(shortcut(), expected);
    EXPECT_EQ(recorder().stringValue(), QStringLiteral("⌃⌥C"));
    EXPECT_EQ(changes, std::vector{std::optional(expected)});
    EXPECT_TRUE(service->holds(8, 0x1800));
    EXPECT_FALSE(service->holds(9, 768));
    EXPECT_FALSE(recorder().hasFocus());
    expectIdle();
}

TEST_F(RecorderTest, aFieldWithoutAShortcutGetsItsClearButtonWithTheFirstOne)
{
    setShortcut(std::nullopt, Name::contextHotKey());
    startRecording();

    type(Qt::Key_F5, Key::f5);

    EXPECT_EQ(recorder().stringValue(), QStringLiteral("F5"));
    EXPECT_TRUE(recorder().cancelButton().isVisible());
}

TEST_F(RecorderTest, aPlainLetterBeepsAndKeepsRecording)
{
    startRecording();

    type(Qt::Key_V, Key::v);
    type(Qt::Key_V, Key::v, Qt::ShiftModifier);

    EXPECT_EQ(beeps, 2);
    EXPECT_EQ(shortcut(), kDefault);
    expectRecording();
}

TEST_F(RecorderTest, functionTwelveIsAcceptedWhoeverHasIt)
{
    system.enabled = {{111, 0}};
    startRecording();

    type(Qt::Key_F12, Key::f12);

    EXPECT_EQ(shortcut(), Shortcut(Key::f12, {}));
    EXPECT_EQ(alerts, 0);
}

TEST_F(RecorderTest, aModifierAloneIsNotRecorded)
{
    startRecording();

    type(Qt::Key_Super_L, Key::command);
    type(Qt::Key_Shift, Key::shift, Qt::MetaModifier);

    EXPECT_EQ(beeps, 0);
    EXPECT_EQ(shortcut(), kDefault);
    expectRecording();
}

TEST_F(RecorderTest, aHeldKeyBeepsOnce)
{
    startRecording();

    sendKey(QEvent::KeyPress, Qt::Key_V, Key::v, {});
    for (int i = 0; i < 5; ++i)
        sendKey(QEvent::KeyPress, Qt::Key_V, Key::v, {}, true);

    EXPECT_EQ(beeps, 1);
}

TEST_F(RecorderTest, escapeKeepsTheShortcutAndEndsRecording)
{
    startRecording();

    type(Qt::Key_Escape, Key::escape);

    EXPECT_EQ(shortcut(), kDefault);
    EXPECT_TRUE(changes.empty());
    EXPECT_EQ(window->focusWidget(), nullptr);
    expectIdle();
}

TEST_F(RecorderTest, deleteClearsAndKeepsRecording)
{
    startRecording();

    type(Qt::Key_Delete, Key::forwardDelete);

    EXPECT_EQ(shortcut(), std::nullopt);
    EXPECT_EQ(defaults->boolean(Name::contextHotKey().defaultsKey(), true), false);
    EXPECT_EQ(changes, std::vector{std::optional<Shortcut>()});
    EXPECT_TRUE(recorder().stringValue().isEmpty());
    EXPECT_FALSE(recorder().cancelButton().isVisible());
    expectRecording();
}

TEST_F(RecorderTest, backspaceClearsAndInAnEmptyFieldDoesNothing)
{
    startRecording();

    type(Qt::Key_Backspace, Key::delete_);
    type(Qt::Key_Backspace, Key::delete_);

    EXPECT_EQ(shortcut(), std::nullopt);
    EXPECT_EQ(changes.size(), 1U);
    EXPECT_EQ(beeps, 0);
    expectRecording();
}

TEST_F(RecorderTest, theClearButtonOfAFieldAtRestClearsAndStartsRecording)
{
    clickAt(recorder().cancelButton().geometry().center());

    EXPECT_EQ(shortcut(), std::nullopt);
    EXPECT_EQ(changes, std::vector{std::optional<Shortcut>()});
    expectRecording();
}

TEST_F(RecorderTest, theClearButtonWorksWhileRecording)
{
    startRecording();

    clickAt(recorder().cancelButton().geometry().center());

    EXPECT_EQ(shortcut(), std::nullopt);
    expectRecording();
}

TEST_F(RecorderTest, aClickWithinThreePointsOutsideKeepsRecording)
{
    startRecording();
    const QRect capsule = recorder().bounds().toRect();

    clickAt(capsule.topLeft() - QPoint(3, 3));
    clickAt(capsule.bottomRight() + QPoint(3, 3));
    clickAt(capsule.center(), Qt::RightButton);

    expectRecording();
}

TEST_F(RecorderTest, aClickFurtherAwayEndsRecordingAndReachesItsTarget)
{
    startRecording();
    clickAt(recorder().bounds().toRect().topLeft() - QPoint(4, 0));
    expectIdle();

    startRecording();
    clickAt(recorder().bounds().toRect().topLeft() - QPoint(0, 4), Qt::RightButton);
    expectIdle();

    startRecording();
    int clicks = 0;
    QObject::connect(button, &QPushButton::clicked, [&clicks] { ++clicks; });
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, button->geometry().center());
    EXPECT_EQ(clicks, 1);
    expectIdle();
}

TEST_F(RecorderTest, aClickInAnotherWindowOfTheProgramEndsRecording)
{
    QWidget other;
    other.setGeometry(500, 500, 100, 100);
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&other));
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    QCoreApplication::processEvents();
    startRecording();

    QTest::mouseClick(other.windowHandle(), Qt::LeftButton, {}, QPoint(50, 50));

    expectIdle();
}

TEST_F(RecorderTest, losingTheKeyboardEndsRecordingAndLeavesNoFirstResponder)
{
    startRecording();
    QWidget other;
    bringToFront(other);

    expectIdle();
    EXPECT_EQ(window->focusWidget(), nullptr);

    bringToFront(*window);
    expectIdle();
}

TEST_F(RecorderTest, leavingItsWindowEndsRecordingForGood)
{
    startRecording();
    recorder().hide();
    expectIdle();

    recorder().show();
    EXPECT_FALSE(recorder().canBecomeKeyView());
    QCoreApplication::processEvents();
    expectIdle();
}

TEST_F(RecorderTest, closingAndOpeningTheWindowDoesNotStartRecording)
{
    startRecording();
    window->close();
    expectIdle();

    bringToFront(*window);
    expectIdle();
}

TEST_F(RecorderTest, aRecorderThatIsDestroyedEndsThePause)
{
    startRecording();

    window.reset();

    EXPECT_FALSE(isPaused());
}

TEST_F(RecorderTest, aHotKeyOfOursIsRecordedAndCallsNoHandler)
{
    int calls = 0;
    onKeyDown(Name::contextHotKey(), [&calls] { ++calls; });
    onKeyUp(Name::addHotKey(), [&calls] { ++calls; });
    onKeyDown(Name::addHotKey(), [&calls] { ++calls; });
    startRecording();

    EXPECT_TRUE(service->press(8, 768));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !recorder().isRecording(); }));
    service->release(8, 768);

    EXPECT_EQ(shortcut(), Shortcut(8, 768));
    EXPECT_EQ(recorder().stringValue(), QStringLiteral("⇧⌘C"));
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(alerts, 0);
}

TEST_F(RecorderTest, theShortcutThatItHasCanBeStoredAgain)
{
    onKeyDown(Name::contextHotKey(), [] { FAIL(); });
    startRecording();

    EXPECT_TRUE(service->press(9, 768));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !recorder().isRecording(); }));

    EXPECT_EQ(shortcut(), kDefault);
    EXPECT_EQ(changes, std::vector{std::optional(kDefault)});
    EXPECT_TRUE(service->holds(9, 768));
}

TEST_F(RecorderTest, noShortcutOfTheWindowActsWhileRecording)
{
    int calls = 0;
    const auto count = [&calls] { ++calls; };
    QAction quit;
    quit.setShortcut(Qt::CTRL | Qt::Key_Q);
    QObject::connect(&quit, &QAction::triggered, count);
    window->addAction(&quit);
    button->setText(QStringLiteral("&Button"));
    QObject::connect(button, &QPushButton::clicked, count);

    startRecording();
    type(Qt::Key_Q, Key::q, Qt::ControlModifier);
    EXPECT_EQ(shortcut(), Shortcut(Key::q, Modifier::Control));
    startRecording();
    type(Qt::Key_B, Key::b, Qt::AltModifier);
    EXPECT_EQ(shortcut(), Shortcut(Key::b, Modifier::Option));
    EXPECT_FALSE(button->isDown());
    EXPECT_EQ(calls, 0);

    type(Qt::Key_Q, Key::q, Qt::ControlModifier);
    EXPECT_EQ(calls, 1);
    type(Qt::Key_B, Key::b, Qt::AltModifier);
    EXPECT_TRUE(button->isDown());
    EXPECT_TRUE(QTest::qWaitFor([&] { return calls == 2; }));
}

TEST_F(RecorderTest, takesNoTextFromInputMethods)
{
    EXPECT_FALSE(recorder().testAttribute(Qt::WA_InputMethodEnabled));
    EXPECT_FALSE(recorder().inputMethodQuery(Qt::ImEnabled).toBool());
}

TEST_F(RecorderTest, aListenerMayDestroyIt)
{
    row->setOnChange(
        [this](const std::optional<Shortcut> &) { delete std::exchange(row, nullptr); });
    startRecording();

    type(Qt::Key_F5, Key::f5);

    EXPECT_EQ(row, nullptr);
    EXPECT_EQ(shortcut(), Shortcut(Key::f5, {}));
    EXPECT_FALSE(isPaused());
}

TEST_F(RecorderTest, aListenerMayDestroyItWhenItIsCleared)
{
    row->setOnChange(
        [this](const std::optional<Shortcut> &) { delete std::exchange(row, nullptr); });
    startRecording();

    type(Qt::Key_Delete, Key::forwardDelete);

    EXPECT_EQ(row, nullptr);
    EXPECT_EQ(shortcut(), std::nullopt);
    EXPECT_FALSE(isPaused());
}
