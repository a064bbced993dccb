// SPDX-License-Identifier: MIT
#pragma once

#include <QSizeF>

namespace platform {

class X11Connection;

/// Whether the compositor announces that it blurs what is behind a window that asks for it: KWin
/// does, by a property of the root window, while that effect is on. The property alone says
/// nothing; it may be left over from a compositor that has ended. One round trip.
bool canBlurBehind(X11Connection &connection);

/// Asks for it, within a rectangle with round corners.
///
/// @param window one of this program's
/// @param size   of the rectangle, which begins in the window's upper left corner; in pixels
/// @param radius of its corners, in pixels
void blurBehind(X11Connection &connection, quint32 window, QSizeF size, qreal radius);

} // namespace platform
