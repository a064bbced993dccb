// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/app/KeyPanel.h"

#include <QElapsedTimer>

#include <functional>

namespace platform {
class Desktop;
}

/// The window of the tray item: the whole menu, beside the icon. Every opening starts with a fresh
/// menu; it closes as soon as it loses the keyboard. Main thread only.
class MenuBarWindow : public KeyPanel
{
    Q_OBJECT

public:
    /// Builds the menu that the window is to show.
    using MenuBuilder = std::function<QWidget *(MenuBarWindow &window)>;

    MenuBarWindow(MenuBuilder buildMenu, platform::Desktop &desktop, platform::MenuWindows &windows,
                  WindowNotifications &notifications);

    /// Opens beside the icon, or at the pointer if `icon` is null, inside the work area.
    void open(const QRect &icon);

    /// As open(), for a click on the icon: closes the window if it is open, also when that very
    /// click has just taken the keyboard from it.
    void toggle(const QRect &icon);

private:
    void place(const QRect &icon);

    MenuBuilder m_buildMenu;
    platform::Desktop &m_desktop;
    QElapsedTimer m_sinceLost;
};
