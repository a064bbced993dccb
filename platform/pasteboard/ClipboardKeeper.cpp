// SPDX-License-Identifier: MIT
#include "platform/pasteboard/ClipboardKeeper.h"

#include "platform/log/Log.h"

#include <utility>

namespace platform {

ClipboardKeeper::ClipboardKeeper(SelectionConnection &connection, SelectionServer &server,
                                 QObject *parent)
    : QObject(parent)
    , m_connection(connection)
    , m_server(server)
    , m_role(connection, server, connection.atoms().clipboardManager)
{
    m_role.watch();
}

void ClipboardKeeper::start(xcb_timestamp_t now)
{
    m_connection.whenReplied(xcb_get_selection_owner(m_connection.xcb(), m_role.atom()),
                             [this, now](xcb_window_t owner) {
                                 m_manager = owner;
                                 if (owner == XCB_NONE)
                                     take(now);
                             });
    m_connection.flush();
}

void ClipboardKeeper::ownerChanged(const xcb_xfixes_selection_notify_event_t &event)
{
    switch (m_role.ownerChanged(event)) {
    case OwnedSelection::Change::Stale:
        break;
    case OwnedSelection::Change::Ours:
        m_manager = event.owner;
        announce(event.selection_timestamp);
        qCInfo(logPasteboard, "nobody keeps the clipboard of this session: we do");
        emit becameManager();
        break;
    case OwnedSelection::Change::Foreign:
        m_manager = event.owner;
        qCInfo(logPasteboard, "another program keeps the clipboard of this session");
        break;
    case OwnedSelection::Change::Nobodys:
        m_manager = XCB_NONE;
        take(event.selection_timestamp);
        break;
    }
}

void ClipboardKeeper::take(xcb_timestamp_t since)
{
    m_role.takeIfFreeSince(since, std::nullopt);
}

// ICCCM section 2.8: who becomes a manager tells the root window.
void ClipboardKeeper::announce(xcb_timestamp_t time)
{
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = m_connection.root();
    message.type = m_connection.atoms().manager;
    message.data.data32[0] = time;
    message.data.data32[1] = m_role.atom();
    message.data.data32[2] = m_connection.window();
    xcb_send_event(m_connection.xcb(), 0, m_connection.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&message));
    m_connection.flush();
}

void ClipboardKeeper::answer(const xcb_selection_request_event_t &request, Copy copy)
{
    if (request.target == m_connection.atoms().saveTargets && copy == Copy::BeingRead) {
        m_waiting.push_back(request);
        return;
    }
    SelectionOffer offer = m_role.offer();
    offer.canSave = copy == Copy::HasText;
    m_server.answer(request, offer);
}

void ClipboardKeeper::settle(bool hasText)
{
    for (const auto &request : std::exchange(m_waiting, {}))
        answer(request, hasText ? Copy::HasText : Copy::HasNoText);
}

} // namespace platform
