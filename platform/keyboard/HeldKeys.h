// SPDX-License-Identifier: MIT
#pragma once

#include "platform/keyboard/ChordKeys.h"

#include <vector>

namespace platform {

class X11Connection;

/// Which keys are down: as programs see it, and as the fingers on the keyboards know it.
///
/// What we type comes from a keyboard device of the server's own (XTEST); every other device is a
/// real one. Only asking each device by itself tells a key that the user holds from one that was
/// typed for him. Main thread only; the connection must outlive the object.
class HeldKeys
{
public:
    explicit HeldKeys(X11Connection &connection);

    /// Looks which keyboards there are; they come and go.
    void findKeyboards();

    struct Now
    {
        KeySet physically; ///< held down by the user on a real keyboard
        KeySet anywhere;   ///< down on any device, or counting as down for programs
    };

    /// What is down now. Asks the server, in one round trip.
    Now now() const;

private:
    X11Connection &m_connection;
    std::vector<quint8> m_keyboards;     ///< real ones, as device numbers
    std::vector<quint8> m_testKeyboards; ///< those of XTEST
};

} // namespace platform
