// SPDX-License-Identifier: MIT
#include "tests/platform/TestKeyboard.h"

#include "platform/keyboard/XcbXkb.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include <xcb/xtest.h>

TestKeyboard::TestKeyboard()
    : m_connection(xcb_connect(nullptr, nullptr))
{
    if (xcb_connection_has_error(m_connection.get()) != 0)
        ADD_FAILURE() << "No display to type on";
    std::free(xcb_xkb_use_extension_reply(
        m_connection.get(),
        xcb_xkb_use_extension(m_connection.get(), XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION),
        nullptr));
}

TestKeyboard::~TestKeyboard()
{
    while (!m_down.empty())
        release(m_down.back());
}

void TestKeyboard::press(xcb_keycode_t key)
{
    fake(XCB_KEY_PRESS, key);
    m_down.push_back(key);
}

void TestKeyboard::release(xcb_keycode_t key)
{
    fake(XCB_KEY_RELEASE, key);
    std::erase(m_down, key);
}

void TestKeyboard::strike(xcb_keycode_t key)
{
    press(key);
    release(key);
}

void TestKeyboard::strikeTogether(const std::vector<xcb_keycode_t> &keys)
{
    for (const xcb_keycode_t key : keys)
        press(key);
    for (auto key = keys.rbegin(); key != keys.rend(); ++key)
        release(*key);
}

unsigned TestKeyboard::modifiers()
{
    const xcb_window_t root =
        xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root;
    auto *reply = xcb_query_pointer_reply(m_connection.get(),
                                          xcb_query_pointer(m_connection.get(), root), nullptr);
    const unsigned mask = reply == nullptr ? 0U : reply->mask;
    std::free(reply);
    return mask;
}

void TestKeyboard::lockGroup(unsigned char group)
{
    xcb_xkb_latch_lock_state(m_connection.get(), XCB_XKB_ID_USE_CORE_KBD, 0, 0, 1, group, 0, 0, 0);
    sync();
}

void TestKeyboard::fake(unsigned char type, xcb_keycode_t key)
{
    xcb_test_fake_input(m_connection.get(), type, key, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    sync();
}

void TestKeyboard::sync()
{
    std::free(xcb_get_input_focus_reply(m_connection.get(), xcb_get_input_focus(m_connection.get()),
                                        nullptr));
}
