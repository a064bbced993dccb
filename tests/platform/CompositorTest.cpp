// SPDX-License-Identifier: MIT
#include "platform/windows/MenuWindowsFactory.h"
#include "platform/x11/X11Connection.h"

#include <gtest/gtest.h>

using platform::X11Connection;

TEST(Compositor, isKnownByItsSelection)
{
    const std::unique_ptr<platform::MenuWindows> windows = platform::makeMenuWindows();
    EXPECT_FALSE(windows->isComposited());

    const std::unique_ptr<X11Connection> compositor = X11Connection::create();
    const xcb_window_t window = xcb_generate_id(compositor->xcb());
    xcb_create_window(compositor->xcb(), XCB_COPY_FROM_PARENT, window, compositor->root(), 0, 0, 1,
                      1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    const xcb_atom_t selection = compositor->atom("_NET_WM_CM_S0");
    compositor->check(
        xcb_set_selection_owner_checked(compositor->xcb(), window, selection, XCB_CURRENT_TIME));
    EXPECT_TRUE(windows->isComposited());

    compositor->check(xcb_destroy_window_checked(compositor->xcb(), window));
    EXPECT_FALSE(windows->isComposited());
}
