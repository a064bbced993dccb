// SPDX-License-Identifier: MIT
#pragma once

#include "platform/pasteboard/SelectionAtoms.h"
#include "platform/x11/X11Connection.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QSocketNotifier>

#include <deque>
#include <functional>
#include <memory>

#include <xcb/xcb.h>

namespace platform {

/// The pasteboard's own connection to the X server, with one hidden window.
///
/// Unlike X11Connection it does not wait for answers (but in sync()): they come through the event
/// loop as events do, and a long row of them is handed out in slices of a few milliseconds. It
/// sleeps while nothing happens. Main thread only.
class SelectionConnection : public QObject
{
    Q_OBJECT

public:
    using PropertyHandler = std::function<void(const xcb_get_property_reply_t *)>;
    using OwnerHandler = std::function<void(xcb_window_t)>;

    /// Connects, which asks the server a few questions and waits for it.
    /// @param display as in $DISPLAY; empty: $DISPLAY itself
    /// @return null when there is no server or it lacks the XFixes extension
    static std::unique_ptr<SelectionConnection> create(const QByteArray &display);

    xcb_connection_t *xcb() const { return m_connection.get(); }
    xcb_window_t window() const { return m_window; }
    xcb_window_t root() const { return m_root; }
    /// Makes another window like window(), whose properties' changes are received too.
    xcb_window_t makeWindow();
    const SelectionAtoms &atoms() const { return m_atoms; }
    /// The type of xcb_xfixes_selection_notify_event_t on this connection.
    int selectionNotifyType() const { return m_selectionNotifyType; }
    /// Bytes that fit into one property change.
    qsizetype maxPropertyBytes() const { return m_maxPropertyBytes; }
    bool isBroken() const { return xcb_connection_has_error(xcb()) != 0; }

    /// True if both windows were made by the same program (X11 protocol, section 8).
    bool isSameClient(xcb_window_t one, xcb_window_t other) const;

    /// True if the server made `event` before it carried out the request with that sequence number.
    static bool isBefore(const xcb_generic_event_t &event, unsigned sequence);

    /// Answers by `handler`, with null if the property's window is gone.
    void whenReplied(xcb_get_property_cookie_t cookie, PropertyHandler handler);
    void whenReplied(xcb_get_selection_owner_cookie_t cookie, OwnerHandler handler);

    /// Sends what was asked for so far. Needed after requests made outside of received() and the
    /// handlers above.
    void flush();

    /// As flush(), and returns when the server has carried it out: what another connection asks for
    /// afterwards, such as the keys that make a program paste, comes later for everybody. Waits for
    /// the server only, never for another program.
    void sync();

    /// Waits, serving this connection only, until `isDone` or the deadline is over. Only for
    /// quitting.
    bool pumpUntil(const std::function<bool()> &isDone, const QDeadlineTimer &deadline);

signals:
    /// An event, or the error of a request (type 0). `event` lives as long as the call.
    void received(const xcb_generic_event_t &event);

private:
    struct Disconnect
    {
        void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
    };
    struct Awaited
    {
        unsigned sequence;
        std::function<void(const void *)> handler;
    };

    SelectionConnection(xcb_connection_t *connection, int screenNumber);

    bool startXfixes();
    void drain();
    void queueDrain();
    bool deliverEvent(xcb_generic_event_t *event);
    bool deliverReply();
    bool deliverNext();

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    SelectionAtoms m_atoms;
    xcb_window_t m_root = XCB_NONE;
    xcb_window_t m_window = XCB_NONE;
    int m_selectionNotifyType = 0;
    qsizetype m_maxPropertyBytes = 0;
    std::deque<Awaited> m_awaited;
    bool m_isDrainQueued = false;
    QSocketNotifier m_notifier;
};

} // namespace platform
