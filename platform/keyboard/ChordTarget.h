// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>

namespace platform {

class X11Connection;

/// The window of another program that keys would go to now, if there is one.
///
/// @return its identifier; none while the focus is on a window of ours, on nothing, or where a
///         window manager leaves it when no window has it. Without a window manager the focus may
///         follow the pointer; then it is the window under the pointer.
std::optional<quint32> windowForKeys(X11Connection &connection);

/// The program's name in WM_CLASS (the second part) of the top-level above `window`, or of the
/// window that the window manager calls active if `window` is a proxy beside it. Empty when none
/// has a class.
QByteArray windowClassOf(X11Connection &connection, quint32 window);

} // namespace platform
