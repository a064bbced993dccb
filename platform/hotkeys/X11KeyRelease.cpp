// SPDX-License-Identifier: MIT
#include "platform/hotkeys/X11KeyRelease.h"

#include <cstring>

#include <xcb/xinput.h>

namespace platform {

namespace {

/// The first XI version whose raw events arrive during grabs too (XI2 protocol, changes of 2.1).
constexpr quint16 kMajorVersion = 2;
constexpr quint16 kMinorVersion = 1;

} // namespace

std::unique_ptr<X11KeyRelease> X11KeyRelease::create(X11Connection &connection)
{
    const xcb_query_extension_reply_t *extension =
        xcb_get_extension_data(connection.xcb(), &xcb_input_id);
    if (extension == nullptr || extension->present == 0)
        return nullptr;
    const auto version = connection.reply(
        xcb_input_xi_query_version_reply,
        xcb_input_xi_query_version(connection.xcb(), kMajorVersion, kMinorVersion));
    if (!version || version->major_version < kMajorVersion ||
        (version->major_version == kMajorVersion && version->minor_version < kMinorVersion)) {
        return nullptr;
    }
    return std::unique_ptr<X11KeyRelease>(new X11KeyRelease(connection, extension->major_opcode));
}

X11KeyRelease::X11KeyRelease(X11Connection &connection, quint8 majorOpcode)
    : m_connection(connection)
    , m_majorOpcode(majorOpcode)
{
    connect(&connection, &X11Connection::received, this, &X11KeyRelease::handle);
}

void X11KeyRelease::start()
{
    if (!m_isStarted)
        select(XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE);
    m_isStarted = true;
}

void X11KeyRelease::stop()
{
    if (m_isStarted)
        select(0);
    m_isStarted = false;
}

void X11KeyRelease::select(quint32 mask)
{
    struct
    {
        xcb_input_event_mask_t head;
        quint32 mask;
    } const selection = {{XCB_INPUT_DEVICE_ALL_MASTER, 1}, mask};
    xcb_input_xi_select_events(m_connection.xcb(), m_connection.root(), 1, &selection.head);
}

void X11KeyRelease::handle(const xcb_generic_event_t &event)
{
    if (event.response_type != XCB_GE_GENERIC)
        return;
    // The fixed part of a raw event has the size of any event plus full_sequence; what follows is
    // not read.
    xcb_ge_generic_event_t generic = {};
    std::memcpy(&generic, &event, sizeof(generic));
    if (generic.extension != m_majorOpcode || generic.event_type != XCB_INPUT_RAW_KEY_RELEASE) {
        return;
    }
    xcb_input_raw_key_release_event_t raw = {};
    std::memcpy(&raw, &event, sizeof(raw));
    emit released(static_cast<quint8>(raw.detail), raw.time);
}

} // namespace platform
