// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>
#include <xcb/xcb_keysyms.h>

/// What the floor programs share: the key that summons them, grabbed in the shortest way there is.
namespace floors {

inline constexpr xcb_keysym_t kKeyV = 0x76;
inline constexpr xcb_keysym_t kKeyReturn = 0xff0d;
inline constexpr xcb_keysym_t kKeyEscape = 0xff1b;
inline constexpr xcb_keysym_t kKeyControl = 0xffe3;

inline xcb_window_t rootOf(xcb_connection_t *connection)
{
    return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

/// The first key that bears the keysym; 0 if there is none.
inline xcb_keycode_t keycodeOf(xcb_connection_t *connection, xcb_keysym_t keysym)
{
    xcb_key_symbols_t *symbols = xcb_key_symbols_alloc(connection);
    xcb_keycode_t *codes = xcb_key_symbols_get_keycode(symbols, keysym);
    const xcb_keycode_t code = codes != nullptr ? codes[0] : xcb_keycode_t{0};
    free(codes);
    xcb_key_symbols_free(symbols);
    return code;
}

/// Grabs Shift+Super with a key, and returns the key's code.
inline xcb_keycode_t grabShiftSuper(xcb_connection_t *connection, xcb_keysym_t keysym)
{
    const xcb_keycode_t code = keycodeOf(connection, keysym);
    xcb_grab_key(connection, 0, rootOf(connection), XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_4, code,
                 XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    xcb_flush(connection);
    return code;
}

} // namespace floors
