// SPDX-License-Identifier: MIT
#include "Quillery_Mac/settings/LocalEventMonitor.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPointer>

#include <utility>

// The toolkit first sends an event to the window and from there on to a widget, with the same type.
// Only the first of these is the event itself. A release of a mouse button that is swallowed still
// goes to the window, which keeps book of the buttons that are down; only its widget does not get
// it.

namespace KeyboardShortcuts {

namespace {

quint32 maskOf(const QEvent &event)
{
    if (event.type() == QEvent::KeyPress)
        return LocalEventMonitor::KeyDownMask;
    if (event.type() != QEvent::MouseButtonRelease)
        return 0;
    switch (static_cast<const QMouseEvent &>(event).button()) {
    case Qt::LeftButton:
        return LocalEventMonitor::LeftMouseUpMask;
    case Qt::RightButton:
        return LocalEventMonitor::RightMouseUpMask;
    default:
        return 0;
    }
}

} // namespace

LocalEventMonitor::LocalEventMonitor(quint32 mask, Callback theCallback)
    : events(mask)
    , callback(std::move(theCallback))
{
}

void LocalEventMonitor::start()
{
    QCoreApplication::instance()->installEventFilter(this);
}

void LocalEventMonitor::stop()
{
    QCoreApplication::instance()->removeEventFilter(this);
}

bool LocalEventMonitor::eventFilter(QObject *receiver, QEvent *event)
{
    // Asked before each key press: who accepts it gets the key, and no shortcut has it.
    if (event->type() == QEvent::ShortcutOverride && (events & KeyDownMask) != 0) {
        event->accept();
        return true;
    }
    if (!isWatched(*event))
        return false;
    if (receiver->isWindowType())
        return handleWindowEvent(*event);
    return std::exchange(m_isDroppingRelease, false);
}

bool LocalEventMonitor::isWatched(const QEvent &event) const
{
    return (maskOf(event) & events) != 0;
}

bool LocalEventMonitor::handleWindowEvent(QEvent &event)
{
    m_isDroppingRelease = false;
    const QPointer<LocalEventMonitor> self(this);
    const bool isKey = event.type() == QEvent::KeyPress;
    const bool isSwallowed = Callback(callback)(&event) == nullptr; // it may destroy this
    if (isKey || !isSwallowed || !self)
        return isSwallowed;
    m_isDroppingRelease = true;
    return false;
}

} // namespace KeyboardShortcuts
