// SPDX-License-Identifier: MIT
// The least that a paste menu can be: one window, one hot key, one text. It shows what the X server
// and the target take of the time from a key to a painted menu, and from the pick to the pasted
// text.
#include "bench/HotkeyGrab.h"

#include <xcb/xtest.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

namespace {

constexpr std::string_view kText = "floor";
constexpr uint16_t kWidth = 250;
constexpr uint16_t kHeight = 149;
constexpr uint32_t kBackground = 0xefefef;

template <class T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

template <class T>
Reply<T> adopt(T *reply)
{
    return {reply, &std::free};
}

class Menu
{
public:
    explicit Menu(xcb_connection_t *connection)
        : m_connection(connection)
        , m_window(xcb_generate_id(connection))
        , m_paint(xcb_generate_id(connection))
        , m_clipboard(atom("CLIPBOARD"))
        , m_utf8(atom("UTF8_STRING"))
        , m_summonKey(floors::grabShiftSuper(connection, floors::kKeyV))
        , m_pasteKey(m_summonKey)
        , m_pickKey(floors::keycodeOf(connection, floors::kKeyReturn))
        , m_leaveKey(floors::keycodeOf(connection, floors::kKeyEscape))
        , m_controlKey(floors::keycodeOf(connection, floors::kKeyControl))
    {
        createWindow();
        xcb_flush(connection);
    }

    void handle(const xcb_generic_event_t &event)
    {
        switch (event.response_type & ~0x80) {
        case XCB_KEY_PRESS:
            if (reinterpret_cast<const xcb_key_press_event_t &>(event).detail == m_summonKey)
                show();
            break;
        case XCB_KEY_RELEASE:
            keyReleased(reinterpret_cast<const xcb_key_release_event_t &>(event).detail);
            break;
        case XCB_EXPOSE:
            paint();
            break;
        case XCB_SELECTION_REQUEST:
            serve(reinterpret_cast<const xcb_selection_request_event_t &>(event));
            break;
        default:
            break;
        }
        xcb_flush(m_connection);
    }

private:
    xcb_atom_t atom(const char *name)
    {
        const auto length = static_cast<uint16_t>(std::strlen(name));
        const auto cookie = xcb_intern_atom(m_connection, 0, length, name);
        return adopt(xcb_intern_atom_reply(m_connection, cookie, nullptr))->atom;
    }

    void createWindow()
    {
        const uint32_t values[] = {1, XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_KEY_RELEASE};
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window,
                          floors::rootOf(m_connection), 300, 200, kWidth, kHeight, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
        xcb_create_gc(m_connection, m_paint, m_window, XCB_GC_FOREGROUND, &kBackground);
        constexpr std::string_view kClass("floor\0Floor", 12);
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, XCB_ATOM_WM_CLASS,
                            XCB_ATOM_STRING, 8, kClass.size(), kClass.data());
    }

    void show()
    {
        const auto cookie = xcb_get_input_focus(m_connection);
        m_previousFocus = adopt(xcb_get_input_focus_reply(m_connection, cookie, nullptr))->focus;
        xcb_ungrab_keyboard(m_connection, XCB_CURRENT_TIME);
        xcb_map_window(m_connection, m_window);
        focus(m_window);
    }

    void focus(xcb_window_t window)
    {
        xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    }

    void paint()
    {
        const xcb_rectangle_t all{0, 0, kWidth, kHeight};
        xcb_poly_fill_rectangle(m_connection, m_window, m_paint, 1, &all);
    }

    void keyReleased(xcb_keycode_t key)
    {
        if (key != m_pickKey && key != m_leaveKey)
            return;
        focus(m_previousFocus);
        xcb_unmap_window(m_connection, m_window);
        if (key == m_pickKey)
            paste();
    }

    void paste()
    {
        xcb_set_selection_owner(m_connection, m_window, m_clipboard, XCB_CURRENT_TIME);
        type(XCB_KEY_PRESS, m_controlKey);
        type(XCB_KEY_PRESS, m_pasteKey);
        type(XCB_KEY_RELEASE, m_pasteKey);
        type(XCB_KEY_RELEASE, m_controlKey);
    }

    void type(uint8_t kind, xcb_keycode_t key)
    {
        xcb_test_fake_input(m_connection, kind, key, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    }

    void serve(const xcb_selection_request_event_t &request)
    {
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, request.requestor,
                            request.property, m_utf8, 8, kText.size(), kText.data());
        // The server takes 32 bytes of every event that is sent.
        union {
            xcb_selection_notify_event_t event;
            char bytes[32];
        } answer{};
        answer.event.response_type = XCB_SELECTION_NOTIFY;
        answer.event.time = request.time;
        answer.event.requestor = request.requestor;
        answer.event.selection = request.selection;
        answer.event.target = request.target;
        answer.event.property = request.property;
        xcb_send_event(m_connection, 0, request.requestor, XCB_EVENT_MASK_NO_EVENT, answer.bytes);
    }

    xcb_connection_t *m_connection;
    xcb_window_t m_window;
    xcb_gcontext_t m_paint;
    xcb_atom_t m_clipboard;
    xcb_atom_t m_utf8;
    xcb_keycode_t m_summonKey;
    xcb_keycode_t m_pasteKey;
    xcb_keycode_t m_pickKey;
    xcb_keycode_t m_leaveKey;
    xcb_keycode_t m_controlKey;
    xcb_window_t m_previousFocus = XCB_NONE;
};

} // namespace

int main()
{
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection) != 0)
        return EXIT_FAILURE;
    Menu menu(connection);
    while (const auto event = adopt(xcb_wait_for_event(connection)))
        menu.handle(*event);
    return EXIT_SUCCESS;
}
