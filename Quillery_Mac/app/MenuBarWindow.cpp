// SPDX-License-Identifier: MIT
#include "Quillery_Mac/app/MenuBarWindow.h"

#include "Quillery_Mac/app/WindowPlacement.h"
#include "platform/windows/Desktop.h"
#include "platform/windows/MenuWindows.h"

#include <chrono>

namespace {

/// A click on the icon first takes the keyboard from the open window, which closes it, and arrives
/// here when the button is let go: people hold a button for 60 to 200 ms.
constexpr std::chrono::milliseconds kOneClick{400};

} // namespace

MenuBarWindow::MenuBarWindow(MenuBuilder buildMenu, platform::Desktop &desktop,
                             platform::MenuWindows &windows, WindowNotifications &notifications)
    : KeyPanel(windows, notifications)
    , m_buildMenu(std::move(buildMenu))
    , m_desktop(desktop)
{
    connect(&windows, &platform::MenuWindows::resigned, this, [this] {
        // Still shown: nobody closed it, it lost the keyboard.
        if (isVisible())
            m_sinceLost.start();
        close();
        setContent(nullptr);
    });
}

void MenuBarWindow::open(const QRect &icon)
{
    setContent(m_buildMenu(*this));
    place(icon);
    makeKeyAndOrderFront();
}

void MenuBarWindow::toggle(const QRect &icon)
{
    if (isVisible()) {
        close();
        return;
    }
    const bool isSameClick = m_sinceLost.isValid() && m_sinceLost.elapsed() < kOneClick.count();
    m_sinceLost.invalidate();
    if (!isSameClick)
        open(icon);
}

void MenuBarWindow::place(const QRect &icon)
{
    const QPoint pointer = m_desktop.pointer();
    const QRect frame = m_desktop.visibleFrame(icon.isNull() ? pointer : icon.center());
    move(menuBarWindowOrigin(icon, pointer, size(), frame));
}
