// SPDX-License-Identifier: MIT
#include "tests/support/ForeignWindow.h"

#include "platform/x11/X11Connection.h"

#include <QTest>

using platform::XcbPointer;

namespace {

constexpr int kFocusDeadline = 10000; // milliseconds

bool isModifier(quint8 code)
{
    // Shift, Control, Alt, Super and the locks of a US keyboard.
    constexpr quint8 kModifiers[] = {37, 50, 62, 64, 66, 77, 105, 108, 133, 134};
    return std::find(std::begin(kModifiers), std::end(kModifiers), code) != std::end(kModifiers);
}

} // namespace

ForeignWindow::ForeignWindow(const QByteArray &windowClass, const QRect &place)
    : m_connection(xcb_connect(nullptr, nullptr))
    , m_screen(xcb_setup_roots_iterator(xcb_get_setup(xcb())).data)
    , m_window(xcb_generate_id(xcb()))
{
    const quint32 values[] = {m_screen->white_pixel,
                              XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE};
    xcb_create_window(xcb(), XCB_COPY_FROM_PARENT, m_window, m_screen->root,
                      static_cast<qint16>(place.x()), static_cast<qint16>(place.y()),
                      static_cast<quint16>(place.width()), static_cast<quint16>(place.height()), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
    if (!windowClass.isEmpty()) {
        const QByteArray property = "instance" + QByteArray(1, '\0') + windowClass + '\0';
        xcb_change_property(xcb(), XCB_PROP_MODE_REPLACE, m_window, XCB_ATOM_WM_CLASS,
                            XCB_ATOM_STRING, 8, static_cast<quint32>(property.size()),
                            property.constData());
    }
    // WM_HINTS: the window takes input, in the normal state.
    setNumbers("WM_HINTS", XCB_ATOM_WM_HINTS, {3, 1, 1, 0, 0, 0, 0, 0, 0});
}

ForeignWindow::~ForeignWindow() = default;

void ForeignWindow::map()
{
    xcb_map_window(xcb(), m_window);
    xcb_flush(xcb());
}

void ForeignWindow::setPlace(const QRect &place)
{
    const quint32 values[] = {static_cast<quint32>(place.x()), static_cast<quint32>(place.y()),
                              static_cast<quint32>(place.width()),
                              static_cast<quint32>(place.height())};
    xcb_configure_window(xcb(), m_window,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT,
                         values);
    xcb_flush(xcb());
}

void ForeignWindow::destroy()
{
    xcb_destroy_window(xcb(), m_window);
    focusedWindow(); // a round trip: it is gone now
}

xcb_window_t ForeignWindow::addChild()
{
    const xcb_window_t child = xcb_generate_id(xcb());
    const quint32 mask = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE;
    xcb_create_window(xcb(), XCB_COPY_FROM_PARENT, child, m_window, 0, 0, 400, 300, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &mask);
    xcb_map_window(xcb(), child);
    focusedWindow(); // a round trip: it is there now
    return child;
}

void ForeignWindow::focus()
{
    setFocus(m_window);
}

// A window manager may keep the focus of a new window back: it is asked for it as bars ask. It may
// also give it twice; the second time would come as a surprise to the test.
bool ForeignWindow::showFocused()
{
    constexpr quint32 kSourcePager = 2;
    map();
    if (platform::X11Connection::create()->windowManager() == XCB_NONE) {
        focus();
        return hasFocus();
    }
    if (!QTest::qWaitFor([this] { return isManaged(); }, kFocusDeadline))
        return false;
    tellRoot("_NET_ACTIVE_WINDOW", m_window, kSourcePager);
    return waitForWindowManager() && QTest::qWaitFor([this] { return hasFocus(); }, kFocusDeadline);
}

// Window managers mark what they manage (ICCCM 4.1.3.1).
bool ForeignWindow::isManaged() const
{
    return hasProperty(m_window, "WM_STATE");
}

bool ForeignWindow::hasProperty(xcb_window_t window, const QByteArray &name) const
{
    const XcbPointer<xcb_get_property_reply_t> property(xcb_get_property_reply(
        xcb(), xcb_get_property(xcb(), 0, window, atom(name), XCB_ATOM_ANY, 0, 1), nullptr));
    return property && property->type != XCB_ATOM_NONE;
}

void ForeignWindow::tellRoot(const QByteArray &message, xcb_window_t about, quint32 argument) const
{
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = about;
    event.type = atom(message);
    event.data.data32[0] = argument;
    xcb_send_event(xcb(), 0, m_screen->root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&event));
    xcb_flush(xcb());
}

// It answers requests one after the other, and this one also for a window that is never mapped.
bool ForeignWindow::waitForWindowManager() const
{
    const xcb_window_t asked = xcb_generate_id(xcb());
    xcb_create_window(xcb(), XCB_COPY_FROM_PARENT, asked, m_screen->root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    tellRoot("_NET_REQUEST_FRAME_EXTENTS", asked, 0);
    const bool isAnswered =
        QTest::qWaitFor([&] { return hasProperty(asked, "_NET_FRAME_EXTENTS"); }, kFocusDeadline);
    xcb_destroy_window(xcb(), asked);
    return isAnswered;
}

void ForeignWindow::forgetActiveWindow() const
{
    xcb_delete_property(xcb(), m_screen->root, atom("_NET_ACTIVE_WINDOW"));
    focusedWindow(); // a round trip: it is gone now
}

xcb_window_t ForeignWindow::focusedWindow() const
{
    const XcbPointer<xcb_get_input_focus_reply_t> answer(
        xcb_get_input_focus_reply(xcb(), xcb_get_input_focus(xcb()), nullptr));
    return answer ? answer->focus : 0;
}

void ForeignWindow::setFocus(xcb_window_t window) const
{
    xcb_set_input_focus(xcb(), XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
    focusedWindow(); // a round trip: it is done now
}

const std::vector<ForeignWindow::Key> &ForeignWindow::keys()
{
    readEvents();
    return m_keys;
}

std::vector<ForeignWindow::Key> ForeignWindow::typed()
{
    std::vector<Key> presses;
    for (const Key &key : keys()) {
        if (key.isPress && !isModifier(key.code))
            presses.push_back(key);
    }
    return presses;
}

void ForeignWindow::forgetKeys()
{
    readEvents();
    m_keys.clear();
}

QPoint ForeignWindow::centre() const
{
    const XcbPointer<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(xcb(), xcb_get_geometry(xcb(), m_window), nullptr));
    const XcbPointer<xcb_translate_coordinates_reply_t> origin(xcb_translate_coordinates_reply(
        xcb(), xcb_translate_coordinates(xcb(), m_window, m_screen->root, 0, 0), nullptr));
    if (!size || !origin)
        return {};
    return {origin->dst_x + size->width / 2, origin->dst_y + size->height / 2};
}

void ForeignWindow::setNumbers(const QByteArray &property, xcb_atom_t type,
                               const std::vector<quint32> &numbers) const
{
    xcb_change_property(xcb(), XCB_PROP_MODE_REPLACE, m_window, atom(property), type, 32,
                        static_cast<quint32>(numbers.size()), numbers.data());
    xcb_flush(xcb());
}

xcb_atom_t ForeignWindow::atom(const QByteArray &name) const
{
    const XcbPointer<xcb_intern_atom_reply_t> answer(xcb_intern_atom_reply(
        xcb(), xcb_intern_atom(xcb(), 0, static_cast<quint16>(name.size()), name.constData()),
        nullptr));
    return answer ? answer->atom : xcb_atom_t(XCB_ATOM_NONE);
}

void ForeignWindow::readEvents()
{
    while (const XcbPointer<xcb_generic_event_t> event{xcb_poll_for_event(xcb())}) {
        const auto type = static_cast<quint8>(event->response_type & 0x7f);
        if (type != XCB_KEY_PRESS && type != XCB_KEY_RELEASE)
            continue;
        const auto &key = reinterpret_cast<const xcb_key_press_event_t &>(*event);
        m_lastTime = key.time;
        m_keys.push_back({type == XCB_KEY_PRESS, key.detail, key.state});
    }
}
