// SPDX-License-Identifier: MIT
#include "platform/keyboard/X11Keyboard.h"

#include "platform/keyboard/XcbXkb.h"

#include <chrono>
#include <cstring>

namespace platform {

namespace {

// setxkbmap gives three NewKeyboardNotify within a few milliseconds.
constexpr std::chrono::milliseconds kGatherTime{50};
constexpr xcb_xkb_device_spec_t kCoreKeyboard = XCB_XKB_ID_USE_CORE_KBD;
constexpr quint8 kEventTypeMask = 0x7F; // the top bit marks events sent by clients

} // namespace

std::unique_ptr<X11Keyboard> X11Keyboard::create(X11Connection &connection)
{
    const xcb_query_extension_reply_t *extension =
        xcb_get_extension_data(connection.xcb(), &xcb_xkb_id);
    if (extension == nullptr || extension->present == 0)
        return nullptr;
    const auto use = connection.reply(
        xcb_xkb_use_extension_reply,
        xcb_xkb_use_extension(connection.xcb(), XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION));
    if (!use || use->supported == 0)
        return nullptr;
    return std::unique_ptr<X11Keyboard>(new X11Keyboard(connection, extension->first_event));
}

X11Keyboard::X11Keyboard(X11Connection &connection, quint8 firstEvent)
    : m_connection(connection)
    , m_firstEvent(firstEvent)
{
    m_gathering.setSingleShot(true);
    m_gathering.setInterval(kGatherTime);
    connect(&m_gathering, &QTimer::timeout, this, &X11Keyboard::mapChanged);
    connect(&connection, &X11Connection::received, this, &X11Keyboard::handle);
    watchMap();
}

void X11Keyboard::makeRepeatDetectable()
{
    constexpr quint32 kFlag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    m_connection.reply(
        xcb_xkb_per_client_flags_reply,
        xcb_xkb_per_client_flags(m_connection.xcb(), kCoreKeyboard, kFlag, kFlag, 0, 0, 0));
}

void X11Keyboard::watchGroup()
{
    xcb_xkb_select_events_details_t details = {};
    details.affectState = XCB_XKB_STATE_PART_GROUP_STATE;
    details.stateDetails = XCB_XKB_STATE_PART_GROUP_STATE;
    xcb_xkb_select_events_aux(m_connection.xcb(), kCoreKeyboard, XCB_XKB_EVENT_TYPE_STATE_NOTIFY, 0,
                              0, 0, 0, &details);
    xcb_flush(m_connection.xcb());
}

int X11Keyboard::group()
{
    const auto state = m_connection.reply(xcb_xkb_get_state_reply,
                                          xcb_xkb_get_state(m_connection.xcb(), kCoreKeyboard));
    return state ? state->group : 0;
}

int X11Keyboard::deviceId()
{
    const auto state = m_connection.reply(xcb_xkb_get_state_reply,
                                          xcb_xkb_get_state(m_connection.xcb(), kCoreKeyboard));
    return state ? state->deviceID : -1;
}

void X11Keyboard::watchMap()
{
    constexpr quint16 kEvents =
        XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    constexpr quint16 kParts = XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS |
                               XCB_XKB_MAP_PART_MODIFIER_MAP | XCB_XKB_MAP_PART_VIRTUAL_MOD_MAP;
    xcb_xkb_select_events_aux(m_connection.xcb(), kCoreKeyboard, kEvents, 0, kEvents, kParts,
                              kParts, nullptr);
    xcb_flush(m_connection.xcb());
}

void X11Keyboard::handle(const xcb_generic_event_t &event)
{
    const auto type = static_cast<quint8>(event.response_type & kEventTypeMask);
    // Servers tell XKB clients by XKB events; the core event comes too when a client remaps keys
    // with the core protocol.
    if (type == XCB_MAPPING_NOTIFY)
        m_gathering.start();
    else if (type == m_firstEvent)
        handleXkb(event);
}

void X11Keyboard::handleXkb(const xcb_generic_event_t &event)
{
    // All XKB events share one number; the second byte tells them apart (XKB protocol, section 16).
    switch (event.pad0) {
    case XCB_XKB_NEW_KEYBOARD_NOTIFY:
    case XCB_XKB_MAP_NOTIFY:
        m_gathering.start();
        break;
    case XCB_XKB_STATE_NOTIFY: {
        xcb_xkb_state_notify_event_t state = {};
        std::memcpy(&state, &event, sizeof(state));
        emit groupChanged(state.group);
        break;
    }
    default:
        break;
    }
}

} // namespace platform
