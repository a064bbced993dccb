// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <functional>

class QEvent;

namespace KeyboardShortcuts {

/// Sees what is typed and clicked in the program's windows before anybody else while it is started.
/// Main thread only.
///
/// Each event whose type is in the mask goes to the callback once, when it enters a window; the
/// callback answers the event to let it through, or null to swallow it. While key presses are
/// watched none of them is a shortcut of a window or of a menu. The callback may destroy the
/// monitor.
class LocalEventMonitor : public QObject
{
    Q_OBJECT

public:
    /// Event types, one bit each.
    enum EventMask : quint32 {
        LeftMouseUpMask = 0x4,
        RightMouseUpMask = 0x10,
        KeyDownMask = 0x400,
    };

    using Callback = std::function<QEvent *(QEvent *event)>;

    LocalEventMonitor(quint32 mask, Callback theCallback);

    const quint32 events;
    const Callback callback;

    void start();
    void stop();

    bool eventFilter(QObject *receiver, QEvent *event) override;

private:
    bool isWatched(const QEvent &event) const;
    bool handleWindowEvent(QEvent &event);

    bool m_isDroppingRelease = false; ///< on its way from the window to the widget
};

} // namespace KeyboardShortcuts
