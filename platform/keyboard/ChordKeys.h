// SPDX-License-Identifier: MIT
#pragma once

#include "platform/keyboard/X11Keyboard.h"

#include <bitset>
#include <memory>
#include <optional>

struct xkb_context;
struct xkb_keymap;

namespace platform {

class X11Connection;

/// A set of X keycodes (8 to 255).
using KeySet = std::bitset<256>;

/// Where on the keyboard the keys of the chords are, as it is mapped now.
///
/// The map is read once and again after it changed, and the server tells when another group becomes
/// active: what is asked here asks the server for nothing in between. Main thread only; the
/// connection must outlive the object.
class ChordKeys
{
public:
    explicit ChordKeys(X11Connection &connection);
    ~ChordKeys();
    Q_DISABLE_COPY_MOVE(ChordKeys)

    /// Reads the map now, which takes some milliseconds, and not when it is first needed.
    void prepare();

    /// The key that types `keysym` without modifiers: in the group that is active, because programs
    /// see the key through that one, else in any group, else `fallback`.
    quint8 find(quint32 keysym, quint8 fallback);

    /// The keys that act as modifiers (shift, control, super and so on, locks included).
    KeySet modifiers();

    /// The keys that switch a lock. To let them go would switch it.
    KeySet locks();

private:
    struct Unreference
    {
        void operator()(xkb_context *context) const;
        void operator()(xkb_keymap *keymap) const;
    };

    void forget();
    KeySet readModifiers() const;
    xkb_keymap *keymap();

    X11Connection &m_connection;
    std::unique_ptr<X11Keyboard> m_keyboard; ///< null without the XKB extension
    std::unique_ptr<xkb_context, Unreference> m_context;
    std::unique_ptr<xkb_keymap, Unreference> m_keymap; ///< null after a change
    std::optional<KeySet> m_modifiers;                 ///< likewise
    int m_group = 0;
};

} // namespace platform
