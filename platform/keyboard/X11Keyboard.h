// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/X11Connection.h"

#include <QTimer>

namespace platform {

/// The keyboard as the XKB extension describes it on one connection: tells when its map or its
/// group became another one. Main thread only; the connection must outlive it.
class X11Keyboard : public QObject
{
    Q_OBJECT

public:
    /// Starts the extension on the connection. Null when the server does not have it.
    static std::unique_ptr<X11Keyboard> create(X11Connection &connection);

    /// From now on a held key gives this connection repeated presses and one true release, instead
    /// of a release and a press for each repeat (XKB protocol, section 4.1.2).
    void makeRepeatDetectable();

    /// From now on groupChanged() is emitted.
    void watchGroup();

    /// The effective group (0 to 3). Asks the server.
    int group();

    /// The core keyboard's device number, for xkbcommon; -1 when there is none. Asks the server.
    int deviceId();

signals:
    /// Keys or modifiers may mean something else now. One layout change arrives as several events
    /// in a row; they are gathered into one signal.
    void mapChanged();
    void groupChanged(int group);

private:
    X11Keyboard(X11Connection &connection, quint8 firstEvent);

    void watchMap();
    void handle(const xcb_generic_event_t &event);
    void handleXkb(const xcb_generic_event_t &event);

    X11Connection &m_connection;
    quint8 m_firstEvent;
    QTimer m_gathering;
};

} // namespace platform
