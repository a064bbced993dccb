// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>

namespace platform {

class X11Connection;

/// When the user last did something that was meant for this program, in the server's time: pressed
/// a key or a button in one of our windows or on our icon in a bar, which is seen here, or
/// something that note() is told of. Window managers compare it to tell a wanted window from one
/// that steals the focus (Extended Window Manager Hints 1.5, _NET_WM_USER_TIME). Main thread only.
class X11UserTime : public QAbstractNativeEventFilter
{
public:
    explicit X11UserTime(X11Connection &connection);
    ~X11UserTime() override;
    Q_DISABLE_COPY_MOVE(X11UserTime)

    /// @return milliseconds; 0: the user did nothing yet
    quint32 latest() const { return m_latest; }

    /// Takes a time over unless a later one is known. The server's time starts again at 0 after 49
    /// days; the later one of two is the one that lies ahead by less than half of that.
    /// @param time 0: now
    void note(quint32 time);

    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;

private:
    X11Connection &m_connection;
    quint8 m_inputExtension;
    quint32 m_latest = 0;
};

} // namespace platform
