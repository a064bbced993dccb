// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <xcb/xcb.h>

namespace platform {

class X11Connection;

/// Tells of every mouse button that is pressed anywhere on the display, without a grab.
///
/// Raw events of the input extension (XI2 protocol, "RawEvent") reach us whoever gets the click
/// itself. They are selected only between start() and stop(), so an idle program hears nothing.
/// Main thread only; the connection must outlive the object.
class OutsidePresses : public QObject
{
    Q_OBJECT

public:
    explicit OutsidePresses(X11Connection &connection);

    /// False where the server lacks version 2.2 of the input extension; then nothing is told.
    bool isAvailable() const { return m_opcode != 0; }

    void start();
    void stop();

signals:
    /// A button, not the wheel, went down. `window` is the child of the root window under the
    /// pointer, 0 if there is none: a window without a frame, or the frame around one.
    void pressed(quint32 window);

private:
    void select(quint32 mask);
    void handle(const xcb_generic_event_t &event);

    X11Connection &m_connection;
    quint8 m_opcode = 0;
    bool m_isStarted = false;
};

} // namespace platform
