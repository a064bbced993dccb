// SPDX-License-Identifier: MIT
#include "tests/platform/MenuWindowsFixture.h"

#include <QMenu>

#include <gmock/gmock.h>

namespace {

class MenuWindows : public MenuWindowsFixture
{
};
INSTANTIATE_TEST_SUITE_P(On, MenuWindows, kAllWindowManagers, ::testing::PrintToStringParamName());

TEST_P(MenuWindows, presentTakesTheKeyboardAtOnce)
{
    presentOverTarget();
    user.tap(UserInput::kA);

    EXPECT_TRUE(windows->isKey());
    EXPECT_TRUE(waitFor([this] { return menu.presses == 1; }));
    EXPECT_TRUE(target.typed().empty());
}

TEST_P(MenuWindows, presentLeavesTheOtherProgramActive)
{
    ASSERT_TRUE(target.showFocused());

    windows->present(menu);

    // xfwm4 says "none" while a window that it does not manage has the focus.
    EXPECT_FALSE(resignsWithin(kQuiet));
    EXPECT_THAT(activeWindow(), ::testing::AnyOf(target.id(), xcb_window_t(XCB_NONE)));
}

TEST_P(MenuWindows, dismissGivesTheFocusBackAndResignsBeforeItReturns)
{
    presentOverTarget();
    windows->showPopover(popover);

    windows->dismiss();

    EXPECT_EQ(target.focusedWindow(), target.id());
    EXPECT_EQ(resignedCount, 1);
    EXPECT_FALSE(windows->isKey());
    EXPECT_FALSE(menu.isVisible());
    EXPECT_FALSE(popover.isVisible());
    user.tap(UserInput::kA);
    EXPECT_TRUE(waitFor([this] { return target.typed().size() == 1; }));
    EXPECT_TRUE(target.hasFocus());
}

TEST_P(MenuWindows, dismissWithoutAMenuDoesNothing)
{
    ASSERT_TRUE(target.showFocused());

    windows->dismiss();

    EXPECT_EQ(resignedCount, 0);
    EXPECT_TRUE(target.hasFocus());
}

TEST_P(MenuWindows, aClickOnAnotherWindowResigns)
{
    presentOverTarget();

    user.clickAt(target.centre());

    ASSERT_TRUE(resignsWithin(kPatience));
    EXPECT_TRUE(waitFor([this] { return target.hasFocus(); }));
    windows->dismiss();
    EXPECT_EQ(resignedCount, 1);
    EXPECT_FALSE(menu.isVisible());
    EXPECT_TRUE(target.hasFocus());
}

TEST_P(MenuWindows, aClickOnTheDesktopResigns)
{
    presentOverTarget();

    user.clickAt({1200, 20});

    EXPECT_TRUE(resignsWithin(kPatience));
    windows->dismiss();
    EXPECT_NE(target.focusedWindow(), idOf(menu));
}

TEST_P(MenuWindows, clicksInTheMenuAndItsPopoverKeepTheKeyboard)
{
    presentOverTarget();
    windows->showPopover(popover);

    user.clickAt(centreOf(menu));
    ASSERT_TRUE(waitFor([this] { return menu.clicks == 1; }));
    user.clickAt(centreOf(popover));
    ASSERT_TRUE(waitFor([this] { return popover.clicks == 1; }));

    EXPECT_FALSE(resignsWithin(kQuiet));
    EXPECT_TRUE(windows->isKey());
}

TEST_P(MenuWindows, aClickInTheGapBesideThePopoverKeepsTheKeyboard)
{
    target.setPlace(QRect(500, 100, 600, 500));
    presentOverTarget();
    windows->showPopover(popover);

    user.clickAt({855, 300});
    user.tap(UserInput::kA);

    EXPECT_TRUE(waitFor([this] { return menu.presses == 1; }));
    EXPECT_FALSE(resignsWithin(kQuiet));
    EXPECT_EQ(target.focusedWindow(), idOf(menu));
}

TEST_P(MenuWindows, whereThePopoverWasAClickResigns)
{
    presentOverTarget();
    windows->showPopover(popover);
    windows->hidePopover(popover);

    user.clickAt({855, 300});

    EXPECT_TRUE(resignsWithin(kPatience));
}

TEST_P(MenuWindows, aPopoverMakesNoWindowsInsideTheMenu)
{
    const QWidget first(&menu);
    const QWidget second(&menu);
    QWidget beside(&menu, Qt::Tool);
    windows->prepare(beside);
    presentOverTarget();

    windows->showPopover(beside);

    EXPECT_EQ(first.internalWinId(), 0U);
    EXPECT_EQ(second.internalWinId(), 0U);
    windows->dismiss();
}

TEST_P(MenuWindows, theLastPixelOfTheMenuIsInside)
{
    presentOverTarget();
    const QPoint lastPixel = menu.geometry().topLeft() * menu.devicePixelRatio() +
                             QPoint(qRound(menu.width() * menu.devicePixelRatio()) - 1,
                                    qRound(menu.height() * menu.devicePixelRatio()) - 1);

    user.clickAt(lastPixel);
    ASSERT_TRUE(waitFor([this] { return menu.clicks == 1; }));
    EXPECT_FALSE(resignsWithin(kQuiet));

    user.clickAt(lastPixel + QPoint(1, 1));
    EXPECT_TRUE(resignsWithin(kPatience));
}

TEST_P(MenuWindows, aClickInAContextMenuOfOursKeepsTheKeyboard)
{
    presentOverTarget();
    QMenu context;
    QAction *const action = context.addAction(QStringLiteral("Paste"));
    bool isTriggered = false;
    int moves = 0;
    QObject::connect(action, &QAction::triggered, action, [&] { isTriggered = true; });
    const qreal ratio = menu.devicePixelRatio();
    context.popup((QPointF(620, 500) / ratio).toPoint());
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&context));

    const QPoint place =
        (context.geometry().topLeft() + context.actionGeometry(action).center()) * ratio;
    // The toolkit's menus take no notice of the first move after they open.
    user.moveTo(place - QPoint(2, 2));
    ASSERT_TRUE(waitFor([&] {
        user.moveTo(place + QPoint(++moves % 2, 0));
        return context.activeAction() == action;
    }));
    user.clickAt(place);

    EXPECT_TRUE(waitFor([&] { return isTriggered; }));
    EXPECT_FALSE(resignsWithin(kQuiet));
}

TEST_P(MenuWindows, focusThatMovesToAnotherWindowResigns)
{
    presentOverTarget();
    ForeignWindow other("Other", QRect(700, 500, 200, 200));
    other.map();
    // Mapped, and looked at by the window manager if there is one.
    ASSERT_TRUE(waitFor([&] {
        other.focus();
        return other.hasFocus();
    }));

    ASSERT_TRUE(resignsWithin(kPatience));
    windows->dismiss();
    EXPECT_TRUE(other.hasFocus());
    EXPECT_EQ(resignedCount, 1);
}

TEST_P(MenuWindows, theKeyboardMovesToThePopoverAndBackWithoutResigning)
{
    presentOverTarget();
    windows->showPopover(popover);
    EXPECT_EQ(target.focusedWindow(), idOf(menu));

    windows->giveKeyboardTo(popover);
    user.tap(UserInput::kA);
    EXPECT_TRUE(waitFor([this] { return popover.presses == 1; }));

    windows->hidePopover(popover);
    user.tap(UserInput::kA);
    EXPECT_TRUE(waitFor([this] { return menu.presses == 1; }));

    EXPECT_FALSE(resignsWithin(kQuiet));
    windows->dismiss();
    EXPECT_TRUE(target.hasFocus());
    EXPECT_EQ(resignedCount, 1);
}

TEST_P(MenuWindows, dismissWhileThePopoverHasTheKeyboardGivesItBack)
{
    presentOverTarget();
    windows->showPopover(popover);
    windows->giveKeyboardTo(popover);

    windows->dismiss();

    EXPECT_EQ(target.focusedWindow(), target.id());
    EXPECT_EQ(resignedCount, 1);
}

TEST_P(MenuWindows, presentingAgainWhileShownKeepsTheTarget)
{
    presentOverTarget();
    menu.move(menu.pos() + QPoint(40, 30));

    windows->present(menu);
    user.tap(UserInput::kA);

    EXPECT_TRUE(waitFor([this] { return menu.presses == 1; }));
    EXPECT_EQ(resignedCount, 0);
    windows->dismiss();
    EXPECT_TRUE(target.hasFocus());
    EXPECT_EQ(resignedCount, 1);
}

TEST_P(MenuWindows, everyPresentResignsOnce)
{
    ASSERT_TRUE(target.showFocused());
    for (int round = 1; round <= 5; ++round) {
        windows->present(menu);
        ASSERT_EQ(target.focusedWindow(), idOf(menu));
        windows->dismiss();
        windows->dismiss();
        EXPECT_EQ(resignedCount, round);
        EXPECT_EQ(target.focusedWindow(), target.id());
    }
}

TEST_P(MenuWindows, summoningAfterAClickElsewhereWorks)
{
    presentOverTarget();
    user.clickAt(target.centre());
    ASSERT_TRUE(resignsWithin(kPatience));
    windows->dismiss();
    ASSERT_TRUE(waitFor([this] { return target.hasFocus(); }));

    windows->present(menu);
    user.tap(UserInput::kA);

    EXPECT_TRUE(waitFor([this] { return menu.presses == 1; }));
    EXPECT_TRUE(windows->isKey());
    EXPECT_EQ(resignedCount, 1);
}

TEST_P(MenuWindows, anotherProgramsKeyboardGrabDoesNotResign)
{
    presentOverTarget();

    const platform::XcbPointer<xcb_grab_keyboard_reply_t> grab(
        xcb_grab_keyboard_reply(target.xcb(),
                                xcb_grab_keyboard(target.xcb(), 0, target.id(), XCB_CURRENT_TIME,
                                                  XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                                nullptr));
    ASSERT_EQ(grab->status, XCB_GRAB_STATUS_SUCCESS);
    EXPECT_FALSE(resignsWithin(kQuiet));
    xcb_ungrab_keyboard(target.xcb(), XCB_CURRENT_TIME);
    target.focusedWindow();

    user.tap(UserInput::kA);
    EXPECT_TRUE(waitFor([this] { return menu.presses == 1; }));
    EXPECT_EQ(resignedCount, 0);
}

TEST_P(MenuWindows, aTargetThatVanishedIsSurvived)
{
    presentOverTarget();
    target.destroy();

    windows->dismiss();

    EXPECT_TRUE(waitFor([this] { return resignedCount == 1; }));
    EXPECT_FALSE(menu.isVisible());
    windows->present(menu);
    EXPECT_TRUE(windows->isKey());
}

TEST_P(MenuWindows, aMenuDeletedWhileShownIsSurvived)
{
    auto fresh = std::make_unique<RecordingWidget>();
    windows->prepare(*fresh);
    ASSERT_TRUE(target.showFocused());
    windows->present(*fresh);
    windows->showPopover(popover);

    fresh.reset();
    windows->dismiss();

    EXPECT_FALSE(popover.isVisible());
    EXPECT_EQ(resignedCount, 1);
}

TEST_P(MenuWindows, theHandlerOfResignedMayDismiss)
{
    presentOverTarget();
    QObject::connect(windows.get(), &platform::MenuWindows::resigned, windows.get(),
                     [this] { windows->dismiss(); });

    user.clickAt(target.centre());

    EXPECT_TRUE(waitFor([this] { return !menu.isVisible(); }));
    EXPECT_EQ(resignedCount, 1);
}

TEST_P(MenuWindows, noBarListsTheMenu)
{
    presentOverTarget();

    const auto clients =
        connection->numbers(connection->root(), connection->atom("_NET_CLIENT_LIST"));

    EXPECT_EQ(std::count(clients.begin(), clients.end(), idOf(menu)), 0);
    const auto types = connection->numbers(idOf(menu), connection->atom("_NET_WM_WINDOW_TYPE"));
    EXPECT_EQ(
        std::count(types.begin(), types.end(), connection->atom("_NET_WM_WINDOW_TYPE_POPUP_MENU")),
        1);
}

/// The server tells every client in the order in which things happened.
TEST_P(MenuWindows, theFocusIsBackBeforeTheMenuIsUnmapped)
{
    presentOverTarget();
    const quint32 focusMask = XCB_EVENT_MASK_FOCUS_CHANGE;
    const quint32 structureMask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_connection_t *observer = connection->xcb();
    xcb_change_window_attributes(observer, target.id(), XCB_CW_EVENT_MASK, &focusMask);
    xcb_change_window_attributes(observer, idOf(menu), XCB_CW_EVENT_MASK, &structureMask);
    std::vector<int> order;
    QObject::connect(connection.get(), &platform::X11Connection::received, connection.get(),
                     [&](const xcb_generic_event_t &event) {
                         const int type = event.response_type & 0x7f;
                         if (type == XCB_FOCUS_IN || type == XCB_UNMAP_NOTIFY)
                             order.push_back(type);
                     });
    platform::XcbPointer<xcb_get_input_focus_reply_t>(
        xcb_get_input_focus_reply(observer, xcb_get_input_focus(observer), nullptr));

    windows->dismiss();

    ASSERT_TRUE(waitFor([&] { return order.size() >= 2; }));
    EXPECT_EQ(order[0], XCB_FOCUS_IN);
    EXPECT_EQ(order[1], XCB_UNMAP_NOTIFY);
}

/// xfwm4 gives the focus to the window under the wheel, and openbox switches desktops by it.
class WheelLeavesFocus : public MenuWindowsFixture
{
};
INSTANTIATE_TEST_SUITE_P(On, WheelLeavesFocus,
                         ::testing::Values(WindowManager::Kind::None, WindowManager::Kind::I3),
                         ::testing::PrintToStringParamName());

TEST_P(WheelLeavesFocus, turningTheWheelElsewhereKeepsTheKeyboard)
{
    presentOverTarget();

    user.clickAt(target.centre(), 5);

    EXPECT_FALSE(resignsWithin(kQuiet));
}

/// An on-screen keyboard: a window that says that it never takes the keyboard.
class OnScreenKeyboard : public MenuWindowsFixture
{
protected:
    OnScreenKeyboard()
    {
        // WM_HINTS: the window takes no input, in the normal state.
        keyboard.setNumbers("WM_HINTS", XCB_ATOM_WM_HINTS, {3, 0, 1, 0, 0, 0, 0, 0, 0});
    }

    void present()
    {
        keyboard.map();
        ASSERT_TRUE(waitFor([this] { return keyboard.isManaged(); }));
        presentOverTarget();
    }

    ForeignWindow keyboard{"Keyboard", QRect(700, 550, 300, 150)};
};
/// The others take the keyboard from us even for a window that does not want it.
INSTANTIATE_TEST_SUITE_P(On, OnScreenKeyboard, ::testing::Values(WindowManager::Kind::Openbox),
                         ::testing::PrintToStringParamName());

TEST_P(OnScreenKeyboard, aClickOnItKeepsTheKeyboard)
{
    present();

    user.clickAt(keyboard.centre());
    user.tap(UserInput::kA);

    EXPECT_TRUE(waitFor([this] { return menu.presses == 1; }));
    EXPECT_FALSE(resignsWithin(kQuiet));
    EXPECT_TRUE(windows->isKey());
}

TEST_P(OnScreenKeyboard, aBarThatTakesNoKeyboardEitherIsElsewhere)
{
    keyboard.setNumbers("_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM,
                        {keyboard.atom("_NET_WM_WINDOW_TYPE_DOCK")});
    present();

    user.clickAt(keyboard.centre());

    EXPECT_TRUE(resignsWithin(kPatience));
}

/// Focus on nothing, and focus that follows the pointer, are states to be restored like any other.
class UnfocusedDesktop : public MenuWindowsFixture
{
};
INSTANTIATE_TEST_SUITE_P(On, UnfocusedDesktop, ::testing::Values(WindowManager::Kind::None),
                         ::testing::PrintToStringParamName());

TEST_P(UnfocusedDesktop, focusOnNothingIsRestored)
{
    target.setFocus(XCB_INPUT_FOCUS_NONE);
    windows->present(menu);
    ASSERT_EQ(target.focusedWindow(), idOf(menu));

    windows->dismiss();

    EXPECT_EQ(target.focusedWindow(), xcb_window_t(XCB_INPUT_FOCUS_NONE));
}

/// What a window manager does that is late with its news; here the test plays it.
class LateNews : public MenuWindowsFixture
{
protected:
    ~LateNews() override { target.forgetActiveWindow(); }

    void nameActive(xcb_window_t window)
    {
        connection->check(xcb_change_property_checked(
            connection->xcb(), XCB_PROP_MODE_REPLACE, connection->root(),
            connection->atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW, 32, 1, &window));
    }
};
INSTANTIATE_TEST_SUITE_P(MenuWindowsOn, LateNews, ::testing::Values(WindowManager::Kind::None),
                         ::testing::PrintToStringParamName());

TEST_P(LateNews, theProgramBelowTheMenuMayBeNamedActiveAfterwards)
{
    presentOverTarget();

    nameActive(target.id());

    EXPECT_FALSE(resignsWithin(kQuiet));
    EXPECT_EQ(target.focusedWindow(), idOf(menu));
}

TEST_P(LateNews, soMayTheProgramOfWhichAPartHadTheFocus)
{
    ASSERT_TRUE(target.showFocused());
    target.setFocus(target.addChild());
    windows->present(menu);

    nameActive(target.id());

    EXPECT_FALSE(resignsWithin(kQuiet));
    EXPECT_EQ(target.focusedWindow(), idOf(menu));
}

TEST_P(LateNews, anotherProgramNamedActiveResigns)
{
    presentOverTarget();
    const ForeignWindow other("Other", QRect(700, 500, 200, 200));

    nameActive(other.id());

    EXPECT_TRUE(resignsWithin(kPatience));
}

/// A pick opens a window of ours and closes the menu, and the window manager, which answers to the
/// pick, is slower than we are.
TEST_P(UnfocusedDesktop, aFocusThatFollowsFromAKeyInTheMenuMayComeAfterTheDismissal)
{
    ForeignWindow other("Other", QRect(700, 500, 200, 200));
    other.map();
    presentOverTarget();
    user.tap(UserInput::kA);
    ASSERT_TRUE(waitFor([this] { return menu.presses == 1; }));
    ASSERT_TRUE(waitFor([this] { return connection->serverTime() > menu.lastTime; }));

    windows->dismiss();
    xcb_set_input_focus(connection->xcb(), XCB_INPUT_FOCUS_PARENT, other.id(),
                        static_cast<quint32>(menu.lastTime));
    connection->serverTime(); // a round trip

    EXPECT_TRUE(other.hasFocus());
}

TEST_P(UnfocusedDesktop, focusThatFollowsThePointerIsRestored)
{
    target.setFocus(XCB_INPUT_FOCUS_POINTER_ROOT);
    windows->present(menu);
    ASSERT_EQ(target.focusedWindow(), idOf(menu));

    windows->dismiss();

    EXPECT_EQ(target.focusedWindow(), xcb_window_t(XCB_INPUT_FOCUS_POINTER_ROOT));
}

} // namespace
