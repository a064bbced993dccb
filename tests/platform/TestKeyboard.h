// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

#include <xcb/xcb.h>

/// The user's fingers on the keyboard of the display in $DISPLAY. Every call returns after the
/// server has acted on it; keys that are still down are let go at the end.
class TestKeyboard
{
public:
    static constexpr xcb_keycode_t kReturn = 36;
    static constexpr xcb_keycode_t kControl = 37;
    static constexpr xcb_keycode_t kShift = 50;
    static constexpr xcb_keycode_t kC = 54;
    static constexpr xcb_keycode_t kV = 55;
    static constexpr xcb_keycode_t kCapsLock = 66;
    static constexpr xcb_keycode_t kNumLock = 77;
    static constexpr xcb_keycode_t kSuper = 133;

    TestKeyboard();
    ~TestKeyboard();
    TestKeyboard(const TestKeyboard &) = delete;
    TestKeyboard &operator=(const TestKeyboard &) = delete;

    void press(xcb_keycode_t key);
    void release(xcb_keycode_t key);
    /// Presses and releases.
    void strike(xcb_keycode_t key);
    /// Holds the keys in order, then lets them go in reverse order.
    void strikeTogether(const std::vector<xcb_keycode_t> &keys);

    /// The modifiers in force now, locks included (X11 protocol, KEYBUTMASK).
    unsigned modifiers();
    /// Makes a group of the layout (0 to 3) the one in use until told otherwise.
    void lockGroup(unsigned char group);

private:
    struct Disconnect
    {
        void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
    };

    void fake(unsigned char type, xcb_keycode_t key);
    void sync();

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    std::vector<xcb_keycode_t> m_down;
};
