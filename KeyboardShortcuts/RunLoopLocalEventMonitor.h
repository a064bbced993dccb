// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

class QEvent;

namespace KeyboardShortcuts {

/// Sees the program's events before anybody else while it is started.
///
/// Each event whose type is in the mask goes to the callback once, when it enters a window of the
/// program; the callback answers the event to let it through, or null to swallow it. Other events
/// pass untouched and in their order.
class RunLoopLocalEventMonitor : public QObject
{
    Q_OBJECT

public:
    /// Event types, one bit each.
    enum EventMask : quint32 {
        KeyDownMask = 0x400,
        KeyUpMask = 0x800,
    };

    using Callback = std::function<QEvent *(QEvent *event)>;

    RunLoopLocalEventMonitor(quint32 events, Callback callback);

    void start();
    void stop();
    bool isStarted() const { return m_isStarted; }

    bool eventFilter(QObject *receiver, QEvent *event) override;

private:
    quint32 m_events;
    Callback m_callback;
    bool m_isStarted = false;
};

} // namespace KeyboardShortcuts
