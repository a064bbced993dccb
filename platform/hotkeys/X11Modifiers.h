// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/X11Connection.h"

#include <optional>
#include <vector>

namespace platform {

/// Which of the eight X modifiers stand for what on the keyboard as it is mapped now.
class X11Modifiers
{
public:
    /// Without a server: the usual places (Mod4 is Super, Mod1 is Alt, Mod2 is Num Lock).
    X11Modifiers() = default;

    /// Asks the server, in one round trip. The usual places where it does not answer.
    static X11Modifiers read(X11Connection &connection);

    /// The X modifier mask of a hot key's modifiers (HotkeyModifier); none if there is a bit among
    /// them that stands for no modifier.
    std::optional<quint16> mask(quint32 hotkeyModifiers) const;

    /// Every combination of the lock modifiers, none of them (0) first. A lock that shares its
    /// modifier with one of `chord` is left out.
    std::vector<quint16> lockVariants(quint16 chord) const;

    /// An event's state without buttons, keyboard group and locks.
    quint16 withoutLocks(quint16 state) const;

    friend bool operator==(const X11Modifiers &, const X11Modifiers &) = default;

private:
    quint16 m_command = XCB_MOD_MASK_4;
    quint16 m_option = XCB_MOD_MASK_1;
    quint16 m_numLock = XCB_MOD_MASK_2;
    quint16 m_scrollLock = 0;
};

} // namespace platform
