// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace platform {

class X11Connection;

/// Whether a window never takes the keyboard by its own declaration (ICCCM 4.1.7, "No Input"):
/// on-screen keyboards and the panels of input methods, which serve the window that has it. Bars
/// and desktops, which declare the same, are not meant. A window that no window manager manages
/// declares nothing.
///
/// @param window a window of another program, as the window manager lists it
bool isFocusless(X11Connection &connection, quint32 window);

/// The window of a program under the pointer, inside the frame that a window manager may have put
/// around it.
///
/// @param outer the child of the root window under the pointer
/// @return 0 if none is managed there
quint32 managedUnderPointer(X11Connection &connection, quint32 outer);

} // namespace platform
