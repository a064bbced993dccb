// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/X11Connection.h"

#include <span>

namespace platform {

/// Whether another client holds a key with one of the modifier masks, by a grab of the core
/// protocol or of XI2 (mutter's). Tried by grabs that are given back before the answer is awaited:
/// nobody loses a key press, and nothing is left behind.
///
/// The connection must have told the server its XI2 version, and hold none of the grabs itself: it
/// would lose them. Two round trips.
/// @return false also if the connection is broken
bool isGrabbedByOthers(X11Connection &connection, xcb_keycode_t key,
                       std::span<const quint16> masks);

} // namespace platform
