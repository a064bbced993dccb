// SPDX-License-Identifier: MIT
#include "tests/platform/OtherProgram.h"

#include <QTest>

#include <gtest/gtest.h>

#include <cstdlib>

#include <xcb/xinput.h>

OtherProgram::OtherProgram()
    : m_connection(xcb_connect(nullptr, nullptr))
{
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data;
    m_root = screen->root;
    m_window = xcb_generate_id(m_connection.get());
    const quint32 values[] = {1, XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE |
                                     XCB_EVENT_MASK_FOCUS_CHANGE};
    xcb_create_window(m_connection.get(), XCB_COPY_FROM_PARENT, m_window, m_root, 0, 0, 50, 50, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual,
                      XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
    xcb_map_window(m_connection.get(), m_window);
    xcb_flush(m_connection.get());
}

OtherProgram::~OtherProgram() = default;

void OtherProgram::takeFocus()
{
    xcb_set_input_focus(m_connection.get(), XCB_INPUT_FOCUS_PARENT, m_window, XCB_CURRENT_TIME);
    xcb_flush(m_connection.get());
    EXPECT_TRUE(QTest::qWaitFor([this] {
        readEvents();
        return m_hasFocus;
    }));
}

bool OtherProgram::grab(xcb_keycode_t key, unsigned modifiers)
{
    const auto cookie =
        xcb_grab_key_checked(m_connection.get(), 0, m_root, static_cast<quint16>(modifiers), key,
                             XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    xcb_generic_error_t *error = xcb_request_check(m_connection.get(), cookie);
    const bool isOurs = error == nullptr;
    std::free(error);
    return isOurs;
}

void OtherProgram::ungrab(xcb_keycode_t key, unsigned modifiers)
{
    const auto cookie =
        xcb_ungrab_key_checked(m_connection.get(), key, m_root, static_cast<quint16>(modifiers));
    std::free(xcb_request_check(m_connection.get(), cookie));
}

bool OtherProgram::grabByInputExtension(xcb_keycode_t key, unsigned modifiers)
{
    constexpr xcb_input_device_id_t kCoreKeyboard = 3;
    xcb_connection_t *xcb = m_connection.get();
    std::free(
        xcb_input_xi_query_version_reply(xcb, xcb_input_xi_query_version(xcb, 2, 1), nullptr));
    const quint32 events = XCB_INPUT_XI_EVENT_MASK_KEY_PRESS;
    const auto cookie = xcb_input_xi_passive_grab_device(
        xcb, XCB_CURRENT_TIME, m_root, XCB_NONE, key, kCoreKeyboard, 1, 1,
        XCB_INPUT_GRAB_TYPE_KEYCODE, XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_MODE_22_ASYNC,
        XCB_INPUT_GRAB_OWNER_NO_OWNER, &events, &modifiers);
    auto *answer = xcb_input_xi_passive_grab_device_reply(xcb, cookie, nullptr);
    const bool isOurs = answer != nullptr && answer->num_modifiers == 0;
    std::free(answer);
    return isOurs;
}

const std::vector<xcb_keycode_t> &OtherProgram::presses()
{
    readEvents();
    return m_presses;
}

const std::vector<xcb_keycode_t> &OtherProgram::releases()
{
    readEvents();
    return m_releases;
}

int OtherProgram::timesGrabbed()
{
    readEvents();
    return m_timesGrabbed;
}

void OtherProgram::readEvents()
{
    while (xcb_generic_event_t *event = xcb_poll_for_event(m_connection.get())) {
        const int type = event->response_type & 0x7F;
        if (type == XCB_KEY_PRESS)
            m_presses.push_back(reinterpret_cast<xcb_key_press_event_t *>(event)->detail);
        else if (type == XCB_KEY_RELEASE)
            m_releases.push_back(reinterpret_cast<xcb_key_release_event_t *>(event)->detail);
        else if (type == XCB_FOCUS_IN)
            m_hasFocus = true;
        else if (type == XCB_FOCUS_OUT)
            m_timesGrabbed +=
                reinterpret_cast<xcb_focus_out_event_t *>(event)->mode == XCB_NOTIFY_MODE_GRAB ? 1
                                                                                               : 0;
        std::free(event);
    }
}
