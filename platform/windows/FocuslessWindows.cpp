// SPDX-License-Identifier: MIT
#include "platform/windows/FocuslessWindows.h"

#include "platform/x11/X11Connection.h"

#include <algorithm>

namespace platform {

namespace {

/// The first numbers of WM_HINTS (ICCCM 4.1.2.4): which of the others are set, and the input hint.
constexpr quint32 kInputHint = 1;

bool contains(const std::vector<quint32> &numbers, quint32 number)
{
    return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

bool isPartOfDesktop(X11Connection &connection, quint32 window)
{
    const auto types = connection.numbers(window, connection.atom("_NET_WM_WINDOW_TYPE"));
    return contains(types, connection.atom("_NET_WM_WINDOW_TYPE_DOCK")) ||
           contains(types, connection.atom("_NET_WM_WINDOW_TYPE_DESKTOP"));
}

} // namespace

bool isFocusless(X11Connection &connection, quint32 window)
{
    const auto hints = connection.numbers(window, XCB_ATOM_WM_HINTS);
    const bool declinesInput = hints.size() >= 2 && (hints[0] & kInputHint) != 0 && hints[1] == 0;
    if (!declinesInput || isPartOfDesktop(connection, window))
        return false;
    const auto protocols = connection.numbers(window, connection.atom("WM_PROTOCOLS"));
    return !contains(protocols, connection.atom("WM_TAKE_FOCUS"));
}

quint32 managedUnderPointer(X11Connection &connection, quint32 outer)
{
    for (quint32 window = outer; window != XCB_NONE;) {
        if (!connection.numbers(window, connection.atom("WM_STATE")).empty())
            return window;
        const auto inside =
            connection.reply(xcb_query_pointer_reply, xcb_query_pointer(connection.xcb(), window));
        window = inside ? inside->child : quint32(XCB_NONE);
    }
    return XCB_NONE;
}

} // namespace platform
