// SPDX-License-Identifier: MIT
//
// The user may hold the very chord that is probed, and each of its repeats would wake a grab of
// ours. All requests of a probe go out together, so a grab lives for microseconds, and if it is
// woken in them, the request behind it ends that too. These requests touch only what belongs to
// this connection (X11 protocol, UngrabKey and UngrabKeyboard; XI2, XIUngrabDevice).
#include "platform/hotkeys/X11GrabProbe.h"

#include <algorithm>
#include <vector>

#include <xcb/xinput.h>

namespace platform {

namespace {

/// Every server makes its first keyboard under this number.
constexpr xcb_input_device_id_t kCoreKeyboard = 3;

bool hasCoreGrab(X11Connection &connection, xcb_keycode_t key, std::span<const quint16> masks)
{
    xcb_connection_t *xcb = connection.xcb();
    std::vector<xcb_void_cookie_t> cookies;
    for (const quint16 mask : masks) {
        cookies.push_back(xcb_grab_key_checked(xcb, 0, connection.root(), mask, key,
                                               XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
        xcb_ungrab_key(xcb, key, connection.root(), mask);
        xcb_ungrab_keyboard(xcb, XCB_CURRENT_TIME);
    }
    // Every answer is taken, also behind the first refusal.
    const auto refusals =
        std::ranges::count_if(cookies, [&connection](const xcb_void_cookie_t &cookie) {
            return connection.check(cookie) == XCB_ACCESS;
        });
    return refusals > 0;
}

// The two kinds of grab do not get in each other's way, so each is probed by its own.
bool hasInputGrab(X11Connection &connection, xcb_keycode_t key, std::span<const quint16> masks)
{
    xcb_connection_t *xcb = connection.xcb();
    const std::vector<quint32> modifiers(masks.begin(), masks.end());
    const auto count = static_cast<quint16>(modifiers.size());
    const quint32 events = XCB_INPUT_XI_EVENT_MASK_KEY_PRESS;
    const auto cookie = xcb_input_xi_passive_grab_device(
        xcb, XCB_CURRENT_TIME, connection.root(), XCB_NONE, key, kCoreKeyboard, count, 1,
        XCB_INPUT_GRAB_TYPE_KEYCODE, XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_MODE_22_ASYNC,
        XCB_INPUT_GRAB_OWNER_NO_OWNER, &events, modifiers.data());
    xcb_input_xi_passive_ungrab_device(xcb, connection.root(), key, kCoreKeyboard, count,
                                       XCB_INPUT_GRAB_TYPE_KEYCODE, modifiers.data());
    xcb_input_xi_ungrab_device(xcb, XCB_CURRENT_TIME, kCoreKeyboard);
    // The answer lists the modifiers that were refused.
    const auto answer = connection.reply(xcb_input_xi_passive_grab_device_reply, cookie);
    return answer && answer->num_modifiers > 0;
}

} // namespace

bool isGrabbedByOthers(X11Connection &connection, xcb_keycode_t key, std::span<const quint16> masks)
{
    return hasCoreGrab(connection, key, masks) || hasInputGrab(connection, key, masks);
}

} // namespace platform
