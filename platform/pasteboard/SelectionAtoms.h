// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <vector>

#include <xcb/xcb.h>

namespace platform {

/// The atoms of the selection protocols, interned once per connection.
/// Sources: ICCCM sections 2.6 and 2.7, the clipboard manager specification of freedesktop.org.
struct SelectionAtoms
{
    /// Consecutive transfers use different properties, so that a late answer to an abandoned one is
    /// never taken for an answer to the present one.
    using TransferProperties = std::array<xcb_atom_t, 8>;

    xcb_atom_t clipboard;
    xcb_atom_t clipboardManager;
    xcb_atom_t manager;
    xcb_atom_t targets;
    xcb_atom_t multiple;
    xcb_atom_t timestamp;
    xcb_atom_t saveTargets;
    xcb_atom_t atomPair;
    xcb_atom_t incr;
    xcb_atom_t null;
    xcb_atom_t utf8String;
    xcb_atom_t text;
    xcb_atom_t compoundText;
    xcb_atom_t plainText;
    xcb_atom_t plainTextUtf8;
    xcb_atom_t passwordManagerHint;
    /// A property of our window that only serves to learn the server's time.
    xcb_atom_t clock;
    /// The property that lists what a clipboard manager is to save on our behalf.
    xcb_atom_t saveList;
    TransferProperties clipboardTransfers;
    TransferProperties primaryTransfers;

    /// Waits for the X server once.
    static SelectionAtoms intern(xcb_connection_t *connection);

    /// The properties for reading that selection: each has its own, so that two can be read at
    /// once.
    const TransferProperties &transfersOf(xcb_atom_t selection) const;

    /// The targets that hold plain text, the best first.
    std::vector<xcb_atom_t> textTargets() const;
};

} // namespace platform
