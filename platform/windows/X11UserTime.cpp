// SPDX-License-Identifier: MIT
#include "platform/windows/X11UserTime.h"

#include "platform/x11/X11Connection.h"

#include <QCoreApplication>

#include <xcb/xinput.h>

namespace platform {

namespace {

quint8 opcodeOfInputExtension()
{
    const auto *extension = xcb_get_extension_data(X11Connection::toolkit(), &xcb_input_id);
    return extension != nullptr && extension->present != 0 ? extension->major_opcode : quint8(0);
}

/// The time of a press, 0 of any other event. The toolkit has mouse events sent in the form of the
/// input extension, and keys in the form of the core protocol.
quint32 timeOfPress(const xcb_generic_event_t &event, quint8 inputExtension)
{
    const int type = event.response_type & 0x7f;
    if (type == XCB_KEY_PRESS || type == XCB_BUTTON_PRESS)
        return reinterpret_cast<const xcb_button_press_event_t &>(event).time;
    if (type != XCB_GE_GENERIC)
        return 0;
    const auto &press = reinterpret_cast<const xcb_input_button_press_event_t &>(event);
    const bool isPress =
        press.extension == inputExtension && press.event_type == XCB_INPUT_BUTTON_PRESS;
    return isPress ? press.time : 0;
}

} // namespace

X11UserTime::X11UserTime(X11Connection &connection)
    : m_connection(connection)
    , m_inputExtension(opcodeOfInputExtension())
{
    QCoreApplication::instance()->installNativeEventFilter(this);
}

X11UserTime::~X11UserTime()
{
    QCoreApplication::instance()->removeNativeEventFilter(this);
}

void X11UserTime::note(quint32 time)
{
    constexpr quint32 kHalfOfAll = 0x80000000;
    const quint32 noted = time != 0 ? time : m_connection.serverTime();
    if (noted != 0 && (m_latest == 0 || noted - m_latest < kHalfOfAll))
        m_latest = noted;
}

bool X11UserTime::nativeEventFilter(const QByteArray &eventType, void *message,
                                    qintptr * /*result*/)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto &event = *static_cast<const xcb_generic_event_t *>(message);
    if (const quint32 time = timeOfPress(event, m_inputExtension))
        note(time);
    return false;
}

} // namespace platform
