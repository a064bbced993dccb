// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <xcb/xcb.h>

namespace platform {

class X11Connection;

/// Input events as the devices sent them, whichever window or grab gets them in the end.
///
/// They are selected only between start() and stop(), so an idle program hears nothing. Raw events
/// of the input extension (XI2 protocol, "RawEvent"). Main thread only; the connection must outlive
/// the object.
class RawInput : public QObject
{
    Q_OBJECT

public:
    enum class Kind { ButtonPress, KeyRelease };

    RawInput(X11Connection &connection, Kind kind);

    /// False where the server lacks version 2.1 of the input extension; then nothing is told.
    bool isAvailable() const { return m_opcode != 0; }

    /// Neither waits for the server. What it answers afterwards on the same connection was looked
    /// up when it had begun to tell.
    void start();
    void stop();

signals:
    /// @param detail the button's number or the key's keycode
    /// @param time   the server's time in milliseconds, the same as in the event that a window gets
    void happened(quint32 detail, quint32 time);

private:
    void select(quint32 mask);
    void handle(const xcb_generic_event_t &event);

    X11Connection &m_connection;
    quint16 m_eventType;
    quint8 m_opcode;
    bool m_isStarted = false;
};

} // namespace platform
