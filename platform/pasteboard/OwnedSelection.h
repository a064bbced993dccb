// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pasteboard/SelectionServer.h"

#include <xcb/xfixes.h>

namespace platform {

/// One selection (CLIPBOARD, PRIMARY, CLIPBOARD_MANAGER) as far as it is ours.
///
/// The server's time of an acquisition is learnt from the notice of XFixes that follows it, so that
/// taking a selection over never waits: the request carries CurrentTime, and the server puts its
/// own time in.
class OwnedSelection
{
public:
    enum class Change {
        Stale,   ///< happened before our own acquisition that is still to be noticed
        Ours,    ///< we own it now
        Foreign, ///< another program owns it now
        Nobodys,
    };

    OwnedSelection(SelectionConnection &connection, SelectionServer &server, xcb_atom_t selection);

    /// Asks the server for notices about the owner.
    void watch();
    void unwatch();

    /// Takes the selection over, whoever has it.
    void take(const std::optional<QByteArray> &text);
    /// Takes the selection over unless somebody has taken it since `since` (server time).
    void takeIfFreeSince(xcb_timestamp_t since, const std::optional<QByteArray> &text);
    void setText(const std::optional<QByteArray> &text) { m_offer.text = text; }

    xcb_atom_t atom() const { return m_selection; }
    bool isOurs() const { return m_isOurs; }
    const SelectionOffer &offer() const { return m_offer; }

    Change ownerChanged(const xcb_xfixes_selection_notify_event_t &event);
    void answer(const xcb_selection_request_event_t &request);

private:
    SelectionConnection &m_connection;
    SelectionServer &m_server;
    xcb_atom_t m_selection;
    SelectionOffer m_offer;
    bool m_isOurs = false;
    unsigned m_takenBySequence = 0; ///< of the last request that surely succeeded
};

} // namespace platform
