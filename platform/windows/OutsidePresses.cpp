// SPDX-License-Identifier: MIT
#include "platform/windows/OutsidePresses.h"

#include "platform/log/Log.h"
#include "platform/x11/X11Connection.h"

#include <xcb/xinput.h>

namespace platform {

namespace {

/// Buttons 4 to 7 are the two wheels; scrolling another window is no click elsewhere.
bool isWheel(quint32 button)
{
    return button >= 4 && button <= 7;
}

/// 0 if the server lacks the extension or has an older version than `wanted`.
quint8 opcodeOfInputExtension(X11Connection &connection)
{
    const auto *extension = xcb_get_extension_data(connection.xcb(), &xcb_input_id);
    if (extension == nullptr || extension->present == 0)
        return 0;
    // From 2.1 on raw events are sent during grabs of other programs too.
    const auto version = connection.reply(xcb_input_xi_query_version_reply,
                                          xcb_input_xi_query_version(connection.xcb(), 2, 2));
    const bool isRecent = version && version->major_version == 2 && version->minor_version >= 1;
    return isRecent ? extension->major_opcode : quint8(0);
}

} // namespace

OutsidePresses::OutsidePresses(X11Connection &connection)
    : m_connection(connection)
    , m_opcode(opcodeOfInputExtension(connection))
{
    if (!isAvailable())
        qCWarning(logWindows) << "No raw button events here: menus close on focus changes only";
    connect(&connection, &X11Connection::received, this, &OutsidePresses::handle);
}

void OutsidePresses::start()
{
    if (std::exchange(m_isStarted, true))
        return;
    select(XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS);
}

void OutsidePresses::stop()
{
    if (std::exchange(m_isStarted, false))
        select(0);
}

void OutsidePresses::select(quint32 mask)
{
    if (!isAvailable())
        return;
    struct Selection
    {
        xcb_input_event_mask_t head;
        quint32 mask;
    } selection{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, mask};
    m_connection.check(xcb_input_xi_select_events_checked(m_connection.xcb(), m_connection.root(),
                                                          1, &selection.head));
}

// Raw events carry no position: the pointer is asked where it is.
void OutsidePresses::handle(const xcb_generic_event_t &event)
{
    if (!m_isStarted || (event.response_type & 0x7f) != XCB_GE_GENERIC)
        return;
    const auto &raw = reinterpret_cast<const xcb_input_raw_button_press_event_t &>(event);
    if (raw.extension != m_opcode || raw.event_type != XCB_INPUT_RAW_BUTTON_PRESS ||
        isWheel(raw.detail)) {
        return;
    }
    const auto pointer = m_connection.reply(
        xcb_query_pointer_reply, xcb_query_pointer(m_connection.xcb(), m_connection.root()));
    emit pressed(pointer ? pointer->child : quint32(XCB_NONE));
}

} // namespace platform
