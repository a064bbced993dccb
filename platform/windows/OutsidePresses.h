// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/RawInput.h"

#include <QObject>

namespace platform {

/// Tells of every mouse button that is pressed anywhere on the display, without a grab, and which
/// window it hits. Main thread only; the connection must outlive the object.
class OutsidePresses : public QObject
{
    Q_OBJECT

public:
    explicit OutsidePresses(X11Connection &connection);

    void start() { m_input.start(); }
    void stop() { m_input.stop(); }

signals:
    /// A button, not the wheel, went down. `window` is the child of the root window under the
    /// pointer, 0 if there is none: a window without a frame, or the frame around one. It may be
    /// another one than the press went to, if that closed at once. `time` is the server's.
    void pressed(quint32 window, quint32 time);

private:
    void handle(quint32 button, quint32 time);

    X11Connection &m_connection;
    RawInput m_input;
};

} // namespace platform
