// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QSocketNotifier>

#include <cstdlib>
#include <deque>
#include <memory>
#include <vector>

#include <xcb/xcb.h>

namespace platform {

/// Frees what xcb allocated with malloc().
struct XcbFree
{
    void operator()(void *memory) const { std::free(memory); }
};

template <typename T>
using XcbPointer = std::unique_ptr<T, XcbFree>;

/// A connection to the X server of our own, beside the toolkit's.
///
/// Windows of other programs vanish at any moment; an error on this connection is an answer like
/// any other and never ends the program. Events arrive through the event loop, one by one. A round
/// trip waits for the X server only, never for another program. Main thread only.
class X11Connection : public QObject
{
    Q_OBJECT

public:
    /// Connects to the display that the toolkit uses. Null when the toolkit does not run on X11 or
    /// the server does not let us in.
    static std::unique_ptr<X11Connection> create();
    ~X11Connection() override;

    xcb_connection_t *xcb() const { return m_connection.get(); }
    xcb_screen_t *screen() const { return m_screen; }
    xcb_window_t root() const { return m_screen->root; }

    /// The atom of that name; remembered, so only the first call asks the server.
    xcb_atom_t atom(const QByteArray &name);

    /// Waits for the answer to a request. Null on any error.
    /// Example: reply(xcb_get_input_focus_reply, xcb_get_input_focus(xcb()))
    template <typename Reply, typename Cookie>
    XcbPointer<Reply> reply(Reply *(*wait)(xcb_connection_t *, Cookie, xcb_generic_error_t **),
                            Cookie cookie)
    {
        xcb_generic_error_t *error = nullptr;
        XcbPointer<Reply> answer(wait(xcb(), cookie, &error));
        std::free(error);
        gatherEvents();
        return answer;
    }

    /// Waits until the server has carried out a checked request.
    /// @return the server's error code (X11 protocol, section 4), 0 for success
    int check(xcb_void_cookie_t cookie);

    /// A property as 32-bit numbers (windows, atoms, cardinals); empty when it is missing or of
    /// another format. At most 4096 numbers.
    std::vector<quint32> numbers(xcb_window_t window, xcb_atom_t property);

    /// Numbers of one property of many windows, in one round trip, in the order of `windows`.
    std::vector<std::vector<quint32>> numbersOfAll(const std::vector<quint32> &windows,
                                                   xcb_atom_t property);

    /// True if `window` was made by the toolkit's connection of this process.
    bool isOurs(xcb_window_t window) const;

    /// The window by which the running window manager makes itself known, and to which some give
    /// the focus when no other window has it; 0 while none of the EWMH kind runs.
    xcb_window_t windowManager();

    /// The server's time, in milliseconds; 0 if the connection is broken. One round trip.
    quint32 serverTime();

    /// Tells the server's time to the window manager, by a change of the root window's property
    /// _QUILLERY_TIME that adds nothing to it.
    void announceTime();

    /// Waits until the server has carried out everything that the toolkit has asked for so far.
    static void syncToolkit();

    /// The toolkit's own connection.
    static xcb_connection_t *toolkit();

signals:
    /// `event` lives as long as the call.
    void received(const xcb_generic_event_t &event);

private:
    struct Disconnect
    {
        void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
    };

    explicit X11Connection(xcb_connection_t *connection, int screenNumber);

    void gatherEvents();
    void readEvents();
    void deliver();

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    xcb_screen_t *m_screen = nullptr;
    QHash<QByteArray, xcb_atom_t> m_atoms;
    std::deque<XcbPointer<xcb_generic_event_t>> m_events;
    bool m_isDeliveryDue = false;
    QSocketNotifier m_notifier;
};

} // namespace platform
