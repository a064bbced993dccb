// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <xkbcommon/xkbcommon.h>

namespace platform {

class X11Connection;
class X11Keyboard;

/// Gives back what libxkbcommon counts references of.
struct XkbUnref
{
    void operator()(xkb_context *context) const { xkb_context_unref(context); }
    void operator()(xkb_keymap *keymap) const { xkb_keymap_unref(keymap); }
};

using XkbContext = std::unique_ptr<xkb_context, XkbUnref>;
using XkbKeymap = std::unique_ptr<xkb_keymap, XkbUnref>;

/// Reads the X server's keyboard map; its keycodes are X11 keycodes. A few round trips.
/// @return null, after a line in the log, if it cannot be read
XkbKeymap readX11Keymap(xkb_context *context, X11Connection &connection, X11Keyboard &keyboard);

} // namespace platform
