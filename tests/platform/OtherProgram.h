// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

#include <xcb/xcb.h>

/// Another program on the display in $DISPLAY: it has a window, can have the keyboard, and can hold
/// hot keys of its own.
class OtherProgram
{
public:
    OtherProgram();
    ~OtherProgram();
    OtherProgram(const OtherProgram &) = delete;
    OtherProgram &operator=(const OtherProgram &) = delete;

    /// Gives its window the keyboard; returns when it has it.
    void takeFocus();

    /// Holds a chord, exactly these modifiers. @return false if somebody else has it
    bool grab(xcb_keycode_t key, unsigned modifiers);
    void ungrab(xcb_keycode_t key, unsigned modifiers);
    /// The same by the XI2 protocol, as mutter does it; ends with the program.
    bool grabByInputExtension(xcb_keycode_t key, unsigned modifiers);

    /// The keys pressed and let go in its window so far.
    const std::vector<xcb_keycode_t> &presses();
    const std::vector<xcb_keycode_t> &releases();

    /// How often a grab of somebody took the keyboard from its window.
    int timesGrabbed();

private:
    struct Disconnect
    {
        void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
    };

    void readEvents();

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    xcb_window_t m_root = XCB_NONE;
    xcb_window_t m_window = XCB_NONE;
    std::vector<xcb_keycode_t> m_presses;
    std::vector<xcb_keycode_t> m_releases;
    int m_timesGrabbed = 0;
    bool m_hasFocus = false;
};
