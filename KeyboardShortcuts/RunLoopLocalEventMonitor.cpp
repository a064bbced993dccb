// SPDX-License-Identifier: MIT
#include "KeyboardShortcuts/RunLoopLocalEventMonitor.h"

#include <QCoreApplication>
#include <QEvent>

#include <utility>

namespace KeyboardShortcuts {

namespace {

quint32 maskOf(QEvent::Type type)
{
    switch (type) {
    case QEvent::KeyPress:
        return RunLoopLocalEventMonitor::KeyDownMask;
    case QEvent::KeyRelease:
        return RunLoopLocalEventMonitor::KeyUpMask;
    default:
        return 0;
    }
}

} // namespace

RunLoopLocalEventMonitor::RunLoopLocalEventMonitor(quint32 events, Callback callback)
    : m_events(events)
    , m_callback(std::move(callback))
{
}

void RunLoopLocalEventMonitor::start()
{
    if (QCoreApplication *application = QCoreApplication::instance())
        application->installEventFilter(this);
    m_isStarted = true;
}

void RunLoopLocalEventMonitor::stop()
{
    if (QCoreApplication *application = QCoreApplication::instance())
        application->removeEventFilter(this);
    m_isStarted = false;
}

// A key event is first sent to the window and from there on to widgets, with the same type: only
// the first of these is the event itself.
bool RunLoopLocalEventMonitor::eventFilter(QObject *receiver, QEvent *event)
{
    if ((maskOf(event->type()) & m_events) == 0 || !receiver->isWindowType())
        return false;
    return m_callback(event) == nullptr;
}

} // namespace KeyboardShortcuts
