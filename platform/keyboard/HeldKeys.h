// SPDX-License-Identifier: MIT
#pragma once

#include "platform/keyboard/ChordKeys.h"

#include <QObject>

#include <vector>

namespace platform {

class X11Connection;

/// Which keys are down: as programs see it, and as the fingers on the keyboards know it.
///
/// What we type comes from a keyboard device of the server's own (XTEST); every other device is a
/// real one. Only asking each device by itself tells a key that the user holds from one that was
/// typed for him. Keyboards come and go, of which the server tells. Main thread only; the
/// connection must outlive the object.
class HeldKeys : public QObject
{
    Q_OBJECT

public:
    explicit HeldKeys(X11Connection &connection);

    struct Now
    {
        KeySet physically; ///< held down by the user on a real keyboard
        KeySet anywhere;   ///< down on any device, or counting as down for programs
    };

    /// What is down now. Asks the server, in one round trip.
    Now now();

    /// Looks now which keyboards there are, and not when it is first needed.
    void prepare();

private:
    void watchDevices();
    void handle(const xcb_generic_event_t &event);
    void findKeyboards();

    X11Connection &m_connection;
    std::vector<quint8> m_keyboards;     ///< real ones, as device numbers
    std::vector<quint8> m_testKeyboards; ///< those of XTEST
    bool m_areKnown = false;             ///< false after a keyboard came or went
};

} // namespace platform
