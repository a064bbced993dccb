// SPDX-License-Identifier: MIT
#pragma once

#include "platform/keyboard/X11Keymap.h"

/// The map of an ordinary PC keyboard with these layouts, for example "us,de"; needs no display.
inline platform::XkbKeymap keymapOf(const char *layouts)
{
    const platform::XkbContext context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
    xkb_rule_names names = {};
    names.rules = "evdev";
    names.model = "pc105";
    names.layout = layouts;
    return platform::XkbKeymap(
        xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
}
