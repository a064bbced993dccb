// SPDX-License-Identifier: MIT
#pragma once

#include "platform/windows/X11MenuWindows.h"
#include "platform/x11/X11Connection.h"
#include "tests/support/ForeignWindow.h"
#include "tests/support/UserInput.h"
#include "tests/support/WindowManager.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

constexpr int kPatience = 10000; // milliseconds, for what must happen on a busy machine
constexpr int kQuiet = 120;      // milliseconds, for what must not happen

/// A menu or a popover that counts what reaches it.
class RecordingWidget : public QWidget
{
public:
    int presses = 0; ///< of keys that are no modifiers
    int clicks = 0;
    quint64 lastTime = 0; ///< the server's, of the last of these, in milliseconds

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->key() < Qt::Key_Shift || event->key() > Qt::Key_ScrollLock)
            ++presses;
        lastTime = event->timestamp();
    }

    void mousePressEvent(QMouseEvent *event) override
    {
        ++clicks;
        lastTime = event->timestamp();
    }
};

/// A menu, a popover and another program's window under one of the window managers.
class MenuWindowsFixture : public ::testing::TestWithParam<WindowManager::Kind>
{
protected:
    MenuWindowsFixture()
    {
        QObject::connect(windows.get(), &platform::MenuWindows::resigned, windows.get(),
                         [this] { ++resignedCount; });
        windows->prepare(menu);
        windows->prepare(popover);
        const qreal ratio = menu.devicePixelRatio();
        menu.setGeometry(QRect(QPoint(600, 200) / ratio, QSize(250, 145) / ratio));
        popover.setGeometry(QRect(QPoint(860, 200) / ratio, QSize(300, 300) / ratio));
        // The pointer is where no window appears under it.
        user.moveTo({50, 750});
    }

    template <typename Condition>
    static bool waitFor(Condition condition)
    {
        return QTest::qWaitFor(condition, kPatience);
    }

    bool resignsWithin(int milliseconds)
    {
        return QTest::qWaitFor([this] { return resignedCount > 0; }, milliseconds);
    }

    static xcb_window_t idOf(const QWidget &widget)
    {
        return static_cast<xcb_window_t>(widget.internalWinId());
    }

    static QPoint centreOf(const QWidget &widget)
    {
        return widget.geometry().center() * widget.devicePixelRatio();
    }

    /// Another program's window in use, and the menu over it.
    void presentOverTarget()
    {
        ASSERT_TRUE(target.showFocused());
        windows->present(menu);
        ASSERT_EQ(target.focusedWindow(), idOf(menu));
    }

    xcb_window_t activeWindow()
    {
        const auto active =
            connection->numbers(connection->root(), connection->atom("_NET_ACTIVE_WINDOW"));
        return active.empty() ? xcb_window_t(XCB_NONE) : active.front();
    }

    WindowManager windowManager{GetParam()};
    UserInput user;
    std::unique_ptr<platform::X11Connection> connection = platform::X11Connection::create();
    ForeignWindow target;
    RecordingWidget menu;
    RecordingWidget popover;
    std::unique_ptr<platform::X11MenuWindows> windows = platform::X11MenuWindows::create();
    int resignedCount = 0;
};

inline const auto kAllWindowManagers =
    ::testing::Values(WindowManager::Kind::None, WindowManager::Kind::Openbox,
                      WindowManager::Kind::Xfwm4, WindowManager::Kind::I3);
