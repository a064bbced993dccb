// SPDX-License-Identifier: MIT
#include "platform/pasteboard/OwnedSelection.h"

namespace platform {

OwnedSelection::OwnedSelection(SelectionConnection &connection, SelectionServer &server,
                               xcb_atom_t selection)
    : m_connection(connection)
    , m_server(server)
    , m_selection(selection)
{
}

void OwnedSelection::watch()
{
    xcb_xfixes_select_selection_input(m_connection.xcb(), m_connection.window(), m_selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
}

void OwnedSelection::unwatch()
{
    xcb_xfixes_select_selection_input(m_connection.xcb(), m_connection.window(), m_selection, 0);
    m_connection.flush();
}

void OwnedSelection::take(const std::optional<QByteArray> &text)
{
    m_offer.text = text;
    m_isOurs = true;
    m_takenBySequence = xcb_set_selection_owner(m_connection.xcb(), m_connection.window(),
                                                m_selection, XCB_CURRENT_TIME)
                            .sequence;
    // The keys that make a program paste go out on another connection. Without waiting for the
    // server they can overtake this request on a busy machine, and nothing is pasted.
    m_connection.sync();
}

// The server refuses a time that lies before the last acquisition (X11 protocol,
// SetSelectionOwner).
void OwnedSelection::takeIfFreeSince(xcb_timestamp_t since, const std::optional<QByteArray> &text)
{
    m_offer.text = text;
    m_offer.acquiredAt = since;
    xcb_set_selection_owner(m_connection.xcb(), m_connection.window(), m_selection, since);
    m_connection.flush();
}

OwnedSelection::Change
OwnedSelection::ownerChanged(const xcb_xfixes_selection_notify_event_t &event)
{
    const auto &generic = reinterpret_cast<const xcb_generic_event_t &>(event);
    if (SelectionConnection::isBefore(generic, m_takenBySequence))
        return Change::Stale;
    m_isOurs = event.owner == m_connection.window();
    if (m_isOurs) {
        m_offer.acquiredAt = event.selection_timestamp;
        return Change::Ours;
    }
    m_offer.text.reset();
    return event.owner == XCB_NONE ? Change::Nobodys : Change::Foreign;
}

void OwnedSelection::answer(const xcb_selection_request_event_t &request)
{
    m_server.answer(request, m_offer);
}

} // namespace platform
