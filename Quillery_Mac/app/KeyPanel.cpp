// SPDX-License-Identifier: MIT
#include "Quillery_Mac/app/KeyPanel.h"

#include "Quillery_Mac/ui/WindowNotifications.h"
#include "platform/windows/MenuWindows.h"

#include <QCloseEvent>

KeyPanel::KeyPanel(platform::MenuWindows &windows, WindowNotifications &notifications)
    : PanelWindow(windows)
    , m_notifications(notifications)
{
    connect(&windows, &platform::MenuWindows::resigned, this,
            [this] { m_notifications.didResignKey.post(*this); });
}

void KeyPanel::makeKeyAndOrderFront()
{
    menuWindows().present(*this);
    m_notifications.didBecomeKey.post(*this);
}

void KeyPanel::closeEvent(QCloseEvent *event)
{
    event->accept();
    if (!isVisible())
        return;
    m_notifications.willClose.post(*this);
    menuWindows().dismiss();
}
