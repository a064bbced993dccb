// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QRect>

#include <memory>
#include <vector>

#include <xcb/xcb.h>

/// A window of "another program", on a connection of its own, that writes down what is typed into
/// it.
class ForeignWindow
{
public:
    struct Key
    {
        bool isPress;
        quint8 code;   ///< X keycode
        quint16 state; ///< modifiers that were down before it

        friend bool operator==(const Key &, const Key &) = default;
    };

    /// Creates the window without mapping it.
    /// @param windowClass the second part of WM_CLASS; empty for none
    explicit ForeignWindow(const QByteArray &windowClass = "Target",
                           const QRect &place = QRect(100, 100, 400, 300));
    ~ForeignWindow();
    Q_DISABLE_COPY_MOVE(ForeignWindow)

    xcb_window_t id() const { return m_window; }
    xcb_connection_t *xcb() const { return m_connection.get(); }

    void map();
    /// Moves the window, and gives it a size; before it is mapped.
    void setPlace(const QRect &place);
    /// Whether a window manager has taken the window over.
    bool isManaged() const;
    void destroy();
    /// Maps a child that fills the window; what is typed into it counts as typed into the window.
    xcb_window_t addChild();
    /// Gives itself the focus, as programs do that are clicked.
    void focus();
    /// Maps the window, has it activated as the user would, and waits until it has the focus.
    bool showFocused();

    /// The window that has the focus now; 0 and 1 as in the protocol.
    xcb_window_t focusedWindow() const;
    void setFocus(xcb_window_t window) const;
    bool hasProperty(xcb_window_t window, const QByteArray &name) const;
    bool hasFocus() const { return focusedWindow() == m_window; }

    /// What was typed into the window so far.
    const std::vector<Key> &keys();
    /// Of these, the presses of keys that are no modifiers.
    std::vector<Key> typed();
    void forgetKeys();
    /// The server's time of the last key, in milliseconds.
    quint32 lastTime() const { return m_lastTime; }

    /// The middle of the window, in pixels of the display.
    QPoint centre() const;

    /// Sets a property of 32-bit numbers.
    void setNumbers(const QByteArray &property, xcb_atom_t type,
                    const std::vector<quint32> &numbers) const;
    /// Removes what a window manager that has ended left on the root window.
    void forgetActiveWindow() const;
    xcb_atom_t atom(const QByteArray &name) const;

private:
    struct Disconnect
    {
        void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
    };

    void tellRoot(const QByteArray &message, xcb_window_t about, quint32 argument) const;
    bool waitForWindowManager() const;
    void readEvents();

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    xcb_screen_t *m_screen;
    xcb_window_t m_window;
    std::vector<Key> m_keys;
    quint32 m_lastTime = 0;
};
