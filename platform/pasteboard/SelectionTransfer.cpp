// SPDX-License-Identifier: MIT
#include "platform/pasteboard/SelectionTransfer.h"

#include <algorithm>
#include <utility>

namespace platform {

namespace {

/// An owner whose incremental transfer we gave up is still let to come to its end, so that it can
/// free what it holds; but not one that never ends.
constexpr int kMaxLeftovers = 4096;

} // namespace

SelectionTransfer::SelectionTransfer(SelectionConnection &connection, xcb_atom_t selection,
                                     Handlers handlers)
    : m_connection(connection)
    , m_selection(selection)
    , m_handlers(std::move(handlers))
{
    for (xcb_window_t &window : m_windows)
        window = m_connection.makeWindow();
}

void SelectionTransfer::start(xcb_atom_t target, xcb_timestamp_t time)
{
    cancel();
    const auto &properties = m_connection.atoms().transfersOf(m_selection);
    m_index = (m_index + 1) % m_windows.size();
    m_window = m_windows.at(m_index);
    m_property = properties.at(m_index);
    m_target = target;
    m_time = time;
    m_offset = 0;
    m_isIncremental = false;
    m_isIncrementDue = false;
    m_isOwnerGone = false;
    m_state = State::AwaitingAnswer;
    // What an abandoned transfer may have left there must not pass for the answer.
    xcb_delete_property(m_connection.xcb(), m_window, m_property);
    xcb_convert_selection(m_connection.xcb(), m_window, m_selection, target, m_property, time);
    m_connection.flush();
}

void SelectionTransfer::cancel()
{
    ++m_generation;
    if (std::exchange(m_state, State::Idle) == State::Idle)
        return;
    xcb_delete_property(m_connection.xcb(), m_window, m_property);
    m_connection.flush();
    m_leftovers = kMaxLeftovers;
}

void SelectionTransfer::ownerVanished()
{
    m_isOwnerGone = true;
    if (m_state == State::AwaitingAnswer || m_state == State::AwaitingIncrement)
        finish(Outcome::Refused);
}

void SelectionTransfer::handle(const xcb_selection_notify_event_t &event)
{
    if (m_state != State::AwaitingAnswer || event.selection != m_selection ||
        event.requestor != m_window)
        return;
    if (event.property == m_property) {
        m_handlers.progressed();
        fetch();
        return;
    }
    // A refusal names no property: the time tells whether it is this request that is refused.
    const bool isThisRequest =
        event.target == m_target && (event.time == m_time || event.time == 0);
    if (event.property == XCB_NONE && isThisRequest)
        finish(Outcome::Refused);
}

void SelectionTransfer::handle(const xcb_property_notify_event_t &event)
{
    if (event.state != XCB_PROPERTY_NEW_VALUE)
        return;
    const bool isOurs = event.window == m_window && event.atom == m_property;
    if (!isOurs || m_state == State::Idle) {
        discardLeftover(event);
    } else if (m_state == State::AwaitingIncrement) {
        fetch();
    } else if (m_state == State::Reading) {
        // The owner may be quicker than the reply to our reading of the increment before.
        m_isIncrementDue = true;
    }
}

void SelectionTransfer::fetch()
{
    m_state = State::Reading;
    // The server deletes the property with its last slice, which asks for the next increment.
    const xcb_get_property_cookie_t cookie = xcb_get_property(
        m_connection.xcb(), 1, m_window, m_property, XCB_ATOM_ANY, m_offset / 4, kSliceBytes / 4);
    m_connection.whenReplied(
        cookie, [this, generation = m_generation](const xcb_get_property_reply_t *reply) {
            if (generation == m_generation)
                take(reply);
        });
    m_connection.flush();
}

void SelectionTransfer::take(const xcb_get_property_reply_t *reply)
{
    if (reply == nullptr)
        return finish(Outcome::Refused);
    if (reply->type == XCB_NONE) {
        // A notice that came for the increment that we had just read.
        return m_isIncremental ? awaitIncrement() : finish(Outcome::Refused);
    }
    if (reply->type == m_connection.atoms().incr && !m_isIncremental) {
        m_isIncremental = true;
        m_handlers.progressed();
        return awaitIncrement();
    }
    const auto bytes = static_cast<quint32>(xcb_get_property_value_length(reply));
    const auto *first = static_cast<const char *>(xcb_get_property_value(reply));
    const int generation = m_generation;
    const bool isAccepted =
        m_handlers.piece({reply->type, reply->format, QByteArrayView(first, qsizetype(bytes))});
    if (generation != m_generation)
        return;
    if (!isAccepted)
        return finish(Outcome::Refused);
    m_handlers.progressed();
    sliceTaken(bytes, reply->bytes_after);
}

void SelectionTransfer::sliceTaken(quint32 bytes, quint32 bytesLeft)
{
    m_offset += bytes;
    if (bytesLeft > 0)
        fetch();
    else if (!m_isIncremental || m_offset == 0) // an empty increment is the last one
        finish(Outcome::Complete);
    else
        awaitIncrement();
}

void SelectionTransfer::awaitIncrement()
{
    m_offset = 0;
    m_state = State::AwaitingIncrement;
    if (std::exchange(m_isIncrementDue, false))
        fetch();
    else if (m_isOwnerGone)
        finish(Outcome::Refused);
}

void SelectionTransfer::discardLeftover(const xcb_property_notify_event_t &event)
{
    const auto window = std::find(m_windows.begin(), m_windows.end(), event.window);
    if (window == m_windows.end() || m_leftovers == 0)
        return;
    --m_leftovers;
    xcb_delete_property(m_connection.xcb(), event.window, event.atom);
    m_connection.flush();
}

void SelectionTransfer::finish(Outcome outcome)
{
    if (outcome == Outcome::Refused)
        cancel();
    m_state = State::Idle;
    ++m_generation;
    m_handlers.finished(outcome);
}

} // namespace platform
