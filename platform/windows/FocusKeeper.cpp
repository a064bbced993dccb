// SPDX-License-Identifier: MIT
#include "platform/windows/FocusKeeper.h"

#include "platform/log/Log.h"
#include "platform/x11/X11Connection.h"

namespace platform {

FocusKeeper::FocusKeeper(X11Connection &connection)
    : m_connection(connection)
{
}

quint32 FocusKeeper::current() const
{
    const auto answer =
        m_connection.reply(xcb_get_input_focus_reply, xcb_get_input_focus(m_connection.xcb()));
    return answer ? answer->focus : quint32(XCB_INPUT_FOCUS_NONE);
}

void FocusKeeper::remember()
{
    const auto answer =
        m_connection.reply(xcb_get_input_focus_reply, xcb_get_input_focus(m_connection.xcb()));
    m_window = answer ? answer->focus : quint32(XCB_INPUT_FOCUS_POINTER_ROOT);
    m_revertTo = answer ? answer->revert_to : quint8(XCB_INPUT_FOCUS_POINTER_ROOT);
}

bool FocusKeeper::isRememberedIn(quint32 window) const
{
    quint32 inner = m_window;
    while (inner > XCB_INPUT_FOCUS_POINTER_ROOT && inner != m_connection.root()) {
        if (inner == window)
            return true;
        const auto tree =
            m_connection.reply(xcb_query_tree_reply, xcb_query_tree(m_connection.xcb(), inner));
        inner = tree ? tree->parent : quint32(XCB_NONE);
    }
    return false;
}

bool FocusKeeper::take(quint32 window)
{
    const bool isTaken = give(window, XCB_INPUT_FOCUS_PARENT, XCB_CURRENT_TIME);
    m_takenAt = m_connection.serverTime();
    return isTaken;
}

quint32 FocusKeeper::active() const
{
    const std::vector<quint32> window =
        m_connection.numbers(m_connection.root(), m_connection.atom("_NET_ACTIVE_WINDOW"));
    return window.empty() ? quint32(XCB_NONE) : window.front();
}

// A window manager that answers to a key or a click gives the focus with the time of that, and the
// server ignores it if the focus was moved at a later time: giving back must not be later.
void FocusKeeper::giveBack()
{
    if (give(m_window, m_revertTo, m_takenAt))
        return;
    const quint32 other = active();
    if (other == XCB_NONE || !give(other, m_revertTo, m_takenAt))
        qCInfo(logWindows) << "The window that had the keyboard is gone";
}

bool FocusKeeper::give(quint32 window, quint8 revertTo, quint32 time)
{
    return m_connection.check(
               xcb_set_input_focus_checked(m_connection.xcb(), revertTo, window, time)) == 0;
}

} // namespace platform
