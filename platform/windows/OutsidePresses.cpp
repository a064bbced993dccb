// SPDX-License-Identifier: MIT
#include "platform/windows/OutsidePresses.h"

#include "platform/log/Log.h"
#include "platform/x11/X11Connection.h"

namespace platform {

namespace {

/// Buttons 4 to 7 are the two wheels; scrolling another window is no click elsewhere.
bool isWheel(quint32 button)
{
    return button >= 4 && button <= 7;
}

} // namespace

OutsidePresses::OutsidePresses(X11Connection &connection)
    : m_connection(connection)
    , m_input(connection, RawInput::Kind::ButtonPress)
{
    if (!m_input.isAvailable())
        qCWarning(logWindows) << "No raw button events here: menus close on focus changes only";
    connect(&m_input, &RawInput::happened, this, &OutsidePresses::handle);
}

// Raw events carry no position: the pointer is asked where it is.
void OutsidePresses::handle(quint32 button, quint32 time)
{
    if (isWheel(button))
        return;
    const auto pointer = m_connection.reply(
        xcb_query_pointer_reply, xcb_query_pointer(m_connection.xcb(), m_connection.root()));
    emit pressed(pointer ? pointer->child : quint32(XCB_NONE), time);
}

} // namespace platform
