// SPDX-License-Identifier: MIT
#include "platform/x11/RawInput.h"

#include "platform/x11/X11Connection.h"

#include <utility>

#include <xcb/xinput.h>

namespace platform {

namespace {

/// 0 if the server lacks the extension or has too old a version: only from 2.1 on raw events are
/// sent during grabs of other programs too.
quint8 opcodeOfInputExtension(X11Connection &connection)
{
    const auto *extension = xcb_get_extension_data(connection.xcb(), &xcb_input_id);
    if (extension == nullptr || extension->present == 0)
        return 0;
    const auto version = connection.reply(xcb_input_xi_query_version_reply,
                                          xcb_input_xi_query_version(connection.xcb(), 2, 2));
    const bool isRecent = version && version->major_version == 2 && version->minor_version >= 1;
    return isRecent ? extension->major_opcode : quint8(0);
}

quint16 eventTypeOf(RawInput::Kind kind)
{
    return kind == RawInput::Kind::ButtonPress ? XCB_INPUT_RAW_BUTTON_PRESS
                                               : XCB_INPUT_RAW_KEY_RELEASE;
}

} // namespace

RawInput::RawInput(X11Connection &connection, Kind kind)
    : m_connection(connection)
    , m_eventType(eventTypeOf(kind))
    , m_opcode(opcodeOfInputExtension(connection))
{
    connect(&connection, &X11Connection::received, this, &RawInput::handle);
}

void RawInput::start()
{
    if (std::exchange(m_isStarted, true) || !isAvailable())
        return;
    select(1U << m_eventType);
}

void RawInput::stop()
{
    if (!std::exchange(m_isStarted, false) || !isAvailable())
        return;
    select(0);
}

void RawInput::select(quint32 mask)
{
    struct Selection
    {
        xcb_input_event_mask_t head;
        quint32 mask;
    } selection{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, mask};
    xcb_input_xi_select_events(m_connection.xcb(), m_connection.root(), 1, &selection.head);
    xcb_flush(m_connection.xcb());
}

// The server adds a field after the first 32 bytes of these events, so only what comes before it
// has the place that the structure says.
void RawInput::handle(const xcb_generic_event_t &event)
{
    if (!m_isStarted || (event.response_type & 0x7f) != XCB_GE_GENERIC)
        return;
    const auto &raw = reinterpret_cast<const xcb_input_raw_button_press_event_t &>(event);
    if (raw.extension == m_opcode && raw.event_type == m_eventType)
        emit happened(raw.detail, raw.time);
}

} // namespace platform
