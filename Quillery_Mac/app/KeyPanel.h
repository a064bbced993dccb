// SPDX-License-Identifier: MIT
#pragma once

#include "Quillery_Mac/ui/PanelWindow.h"

class WindowNotifications;

/// A panel that takes the keyboard without making this program the active application, and that
/// tells when it became and when it ceased to be key. What the floating panel and the menu-bar
/// window have in common. Main thread only.
class KeyPanel : public PanelWindow
{
    Q_OBJECT

public:
    /// @param windows       the group of this panel and its popovers; outlives it
    /// @param notifications where key changes and closing are posted; outlives it
    KeyPanel(platform::MenuWindows &windows, WindowNotifications &notifications);

    /// Shows the panel where it stands and gives it the keyboard.
    void makeKeyAndOrderFront();

protected:
    /// Closing gives the keyboard back to the window that had it, then hides the panel.
    void closeEvent(QCloseEvent *event) override;

private:
    WindowNotifications &m_notifications;
};
