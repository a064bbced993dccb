// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/X11Connection.h"

namespace platform {

/// Tells when a key is let go, whatever window has the keyboard by then.
///
/// XI2 raw events go to everybody who asked for them, also while the keyboard is grabbed (XI 2.1),
/// and come from the devices themselves, so that auto-repeat gives none. They are asked for only
/// between start() and stop(): typing never wakes the program at other times.
class X11KeyRelease : public QObject
{
    Q_OBJECT

public:
    /// Null when the server does not have XI 2.1.
    static std::unique_ptr<X11KeyRelease> create(X11Connection &connection);

    /// Whether requests sent from now on find every later release told. Sent, not flushed.
    void start();
    void stop();

signals:
    /// @param time the server's time in milliseconds
    void released(quint8 keycode, quint32 time);

private:
    X11KeyRelease(X11Connection &connection, quint8 majorOpcode);

    void select(quint32 mask);
    void handle(const xcb_generic_event_t &event);

    X11Connection &m_connection;
    quint8 m_majorOpcode;
    bool m_isStarted = false;
};

} // namespace platform
