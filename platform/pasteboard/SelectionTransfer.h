// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pasteboard/SelectionConnection.h"

#include <QByteArrayView>

#include <array>
#include <functional>
#include <tuple>

namespace platform {

/// Fetches one selection in one target, whole or in increments, piece by piece.
///
/// Knows no deadline: it waits, without cost, until the owner answers or it is cancelled. Used for
/// any number of transfers, one after the other. ICCCM sections 2.4 and 2.7.2.
///
/// Each transfer has a window of its own: there are owners (xclip among them) that take the
/// deletion of any property of the requestor's window for the cue to send their next increment, so
/// that the last increments of a transfer that was given up would make the next owner leave some
/// out.
class SelectionTransfer
{
public:
    /// A piece of the value, of at most kSliceBytes.
    struct Piece
    {
        xcb_atom_t type;
        int format; ///< bits per element: 8, 16 or 32
        QByteArrayView bytes;
    };

    enum class Outcome { Complete, Refused };

    /// What happens during a transfer. No handler may destroy the transfer; each may start another
    /// one or cancel.
    struct Handlers
    {
        /// Called for every piece, at least once (with no bytes for an empty value) before
        /// Complete.
        /// @return false to refuse the value: wrong type, too long
        std::function<bool(const Piece &)> piece;
        /// The owner did something: the deadline may start anew.
        std::function<void()> progressed;
        std::function<void(Outcome)> finished;
    };

    /// Long values are read in slices of this size (bytes). One fits into the socket of the
    /// connection, so that the rest of it is there when its start is: xcb waits for a reply that
    /// has begun.
    static constexpr quint32 kSliceBytes = 128 * 1024;

    SelectionTransfer(SelectionConnection &connection, xcb_atom_t selection, Handlers handlers);

    /// Asks the selection's owner; what was under way is cancelled.
    /// @param time server time of the event that led here (milliseconds)
    void start(xcb_atom_t target, xcb_timestamp_t time);
    void cancel();
    bool isActive() const { return m_state != State::Idle; }

    /// The owner is gone: nothing more will come than what lies on our window.
    void ownerVanished();

    void handle(const xcb_selection_notify_event_t &event);
    void handle(const xcb_property_notify_event_t &event);

private:
    enum class State { Idle, AwaitingAnswer, Reading, AwaitingIncrement };

    void fetch();
    void take(const xcb_get_property_reply_t *reply);
    void sliceTaken(quint32 bytes, quint32 bytesLeft);
    void awaitIncrement();
    void discardLeftover(const xcb_property_notify_event_t &event);
    void finish(Outcome outcome);

    SelectionConnection &m_connection;
    xcb_atom_t m_selection;
    Handlers m_handlers;
    State m_state = State::Idle;
    xcb_atom_t m_target = XCB_NONE;
    xcb_timestamp_t m_time = 0;
    std::array<xcb_window_t, std::tuple_size_v<SelectionAtoms::TransferProperties>> m_windows{};
    std::size_t m_index = 0;          ///< of the present window and property
    xcb_window_t m_window = XCB_NONE; ///< that asks
    xcb_atom_t m_property = XCB_NONE; ///< where the answer is put
    quint32 m_offset = 0;             ///< bytes of the present property that were read
    bool m_isIncremental = false;
    bool m_isIncrementDue = false;
    bool m_isOwnerGone = false;
    int m_leftovers = 0;
    int m_generation = 0;
};

} // namespace platform
