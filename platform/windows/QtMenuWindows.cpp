// SPDX-License-Identifier: MIT
#include "platform/windows/QtMenuWindows.h"

#include <QGuiApplication>

#include <utility>

namespace platform {

QtMenuWindows::QtMenuWindows()
{
    // Between two windows of ours the toolkit may report that none has the focus: look once the
    // move is over.
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &QtMenuWindows::focusMoved,
            Qt::QueuedConnection);
}

QString QtMenuWindows::backendId() const
{
    return QStringLiteral("qt");
}

Availability QtMenuWindows::availability() const
{
    return {false,
            QStringLiteral("this display has no menus that leave the active application be")};
}

void QtMenuWindows::prepare(QWidget &window)
{
    window.setWindowFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
}

void QtMenuWindows::present(QWidget &menu)
{
    m_menu = &menu;
    m_isPresented = true;
    m_isKey = true;
    m_hadFocus = false;
    menu.show();
    menu.raise();
    giveKeyboardTo(menu);
    focusMoved();
}

void QtMenuWindows::showPopover(QWidget &popover)
{
    if (!m_popovers.contains(&popover))
        m_popovers.append(&popover);
    popover.setAttribute(Qt::WA_ShowWithoutActivating);
    popover.show();
    popover.raise();
}

void QtMenuWindows::hidePopover(QWidget &popover)
{
    if (m_isKey && m_menu != nullptr && popover.windowHandle() != nullptr &&
        popover.windowHandle() == QGuiApplication::focusWindow()) {
        giveKeyboardTo(*m_menu);
    }
    m_popovers.removeAll(&popover);
    popover.hide();
}

void QtMenuWindows::giveKeyboardTo(QWidget &window)
{
    if (m_isKey)
        window.activateWindow();
}

void QtMenuWindows::dismiss()
{
    if (!std::exchange(m_isPresented, false))
        return;
    const QList<QPointer<QWidget>> popovers = std::exchange(m_popovers, {});
    for (const QPointer<QWidget> &popover : popovers) {
        if (popover != nullptr)
            popover->hide();
    }
    const QPointer<QWidget> menu = std::exchange(m_menu, nullptr);
    if (menu != nullptr)
        menu->hide();
    resign();
}

bool QtMenuWindows::isKey() const
{
    return m_isKey;
}

bool QtMenuWindows::isInGroup(const QWindow *window) const
{
    const auto isOf = [window](const QPointer<QWidget> &widget) {
        return widget != nullptr && widget->windowHandle() == window;
    };
    return window != nullptr &&
           (isOf(m_menu) || std::any_of(m_popovers.begin(), m_popovers.end(), isOf));
}

void QtMenuWindows::focusMoved()
{
    const QWindow *focused = QGuiApplication::focusWindow();
    // A context menu or a tool tip of a field in the group.
    if (!m_isKey || (focused != nullptr && focused->type() == Qt::Popup))
        return;
    if (isInGroup(focused))
        m_hadFocus = true;
    else if (m_hadFocus)
        resign();
}

void QtMenuWindows::resign()
{
    if (std::exchange(m_isKey, false))
        emit resigned();
}

} // namespace platform
