// SPDX-License-Identifier: MIT
#include "Quillery_Mac/ui/WindowNotifications.h"

#include "Quillery_Mac/ui/PanelWindow.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>

WindowNotification::Token WindowNotification::addObserver(const QWidget *window, Observer observer)
{
    m_entries.push_back({++m_lastToken, window, std::move(observer)});
    return m_lastToken;
}

void WindowNotification::removeObserver(Token token)
{
    std::erase_if(m_entries, [token](const Entry &entry) { return entry.token == token; });
}

void WindowNotification::post(QWidget &window)
{
    const std::vector<Entry> entries = m_entries;
    for (const Entry &entry : entries) {
        const bool isStillThere =
            std::any_of(m_entries.begin(), m_entries.end(),
                        [&entry](const Entry &other) { return other.token == entry.token; });
        if (isStillThere && (entry.window == nullptr || entry.window == &window))
            entry.observer(window);
    }
}

void WindowNotifications::watchApplication()
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool WindowNotifications::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::WindowActivate && event->type() != QEvent::WindowDeactivate &&
        event->type() != QEvent::Close)
        return false;
    auto *window = qobject_cast<QWidget *>(watched);
    if (window == nullptr || !window->isWindow() || qobject_cast<PanelWindow *>(window) != nullptr)
        return false;
    if (event->type() == QEvent::WindowActivate)
        didBecomeKey.post(*window);
    else if (event->type() == QEvent::WindowDeactivate)
        didResignKey.post(*window);
    else
        willClose.post(*window);
    return false;
}
