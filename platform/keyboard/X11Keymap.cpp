// SPDX-License-Identifier: MIT
#include "platform/keyboard/X11Keymap.h"

#include "platform/keyboard/X11Keyboard.h"
#include "platform/log/Log.h"
#include "platform/x11/X11Connection.h"

#include <xkbcommon/xkbcommon-x11.h>

namespace platform {

XkbKeymap readX11Keymap(xkb_context *context, X11Connection &connection, X11Keyboard &keyboard)
{
    XkbKeymap keymap(xkb_x11_keymap_new_from_device(context, connection.xcb(), keyboard.deviceId(),
                                                    XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (!keymap)
        qCWarning(logKeyboard) << "The X server's keyboard map cannot be read";
    return keymap;
}

} // namespace platform
