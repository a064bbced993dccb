// SPDX-License-Identifier: MIT
#include "Quillery_Mac/app/FloatingPanel.h"

#include "Quillery_Mac/app/AppState.h"
#include "Quillery_Mac/ui/Popover.h"
#include "Quillery_Mac/ui/WindowNotifications.h"
#include "tests/fakes/FakeMenuWindows.h"

#include <QPointer>

#include <gtest/gtest.h>

namespace {

class FloatingPanelTest : public ::testing::Test
{
protected:
    FakeMenuWindows windows;
    WindowNotifications notifications;
    QProperty<bool> isPresented{true};
    FloatingPanel panel{[] { return new QWidget; }, isPresented, QRect(0, 0, 250, 145), windows,
                        notifications};
};

} // namespace

TEST_F(FloatingPanelTest, aViewInItFindsItsPanel)
{
    auto *inner = new QWidget(panel.content());

    EXPECT_EQ(FloatingPanelKey::panelOf(*panel.content()), &panel);
    EXPECT_EQ(FloatingPanelKey::panelOf(*inner), &panel);
}

TEST_F(FloatingPanelTest, aViewInItsPopoverFindsItToo)
{
    auto *view = new QWidget;
    panel.popover().open(view, {panel.geometry(), QRect(0, 0, 250, 30), QRect(0, 0, 1280, 800)});

    EXPECT_EQ(FloatingPanelKey::panelOf(*view), &panel);
}

TEST_F(FloatingPanelTest, aViewElsewhereFindsNone)
{
    QWidget window;
    const QWidget view(&window);

    EXPECT_EQ(FloatingPanelKey::panelOf(view), FloatingPanelKey::defaultValue);
    EXPECT_EQ(FloatingPanelKey::defaultValue, nullptr);
}

TEST_F(FloatingPanelTest, itMayHaveTheKeyboardButIsNeverTheMainWindow)
{
    EXPECT_TRUE(panel.canBecomeKey());
    EXPECT_FALSE(panel.canBecomeMain());
}

TEST_F(FloatingPanelTest, resigningMainClosesIt)
{
    int closed = 0;
    notifications.willClose.addObserver(&panel, [&closed](QWidget &) { ++closed; });
    panel.makeKeyAndOrderFront();

    panel.resignMain();

    EXPECT_FALSE(panel.isVisible());
    EXPECT_FALSE(isPresented.value());
    EXPECT_EQ(windows.dismissCount, 1);
    EXPECT_EQ(closed, 1);
}

TEST(AppState, itsWindowGoesWithIt)
{
    auto state = std::make_unique<AppState>();
    EXPECT_EQ(state->window, nullptr);
    state->window = std::make_unique<QWidget>();
    const QPointer<QWidget> window = state->window.get();

    state.reset();

    EXPECT_TRUE(window.isNull());
}
