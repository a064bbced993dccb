// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/MenuTracking.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWindow>

#include <algorithm>

namespace KeyboardShortcuts {

MenuTracking::MenuTracking()
{
    if (QCoreApplication *application = QCoreApplication::instance())
        application->installEventFilter(this);
}

bool MenuTracking::eventFilter(QObject *receiver, QEvent *event)
{
    if (event->type() == QEvent::Show && receiver->isWindowType()) {
        if (static_cast<QWindow *>(receiver)->type() == Qt::Popup)
            opened(receiver);
    } else if (event->type() == QEvent::Hide) {
        closed(receiver);
    }
    return false;
}

void MenuTracking::opened(QObject *window)
{
    if (std::ranges::find(m_menus, window) != m_menus.end())
        return;
    m_menus.push_back(window);
    connect(window, &QObject::destroyed, this, &MenuTracking::closed);
    if (m_menus.size() == 1)
        emit menuDidBeginTracking();
}

void MenuTracking::closed(QObject *window)
{
    if (std::erase(m_menus, window) == 0)
        return;
    disconnect(window, &QObject::destroyed, this, &MenuTracking::closed);
    if (m_menus.empty())
        emit menuDidEndTracking();
}

} // namespace KeyboardShortcuts
