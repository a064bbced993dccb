// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace platform {

class X11Connection;

/// The X keyboard focus: takes it for a window of ours, and gives it back to the window that had
/// it.
///
/// The window that has the focus need not be an application's top-level: it may be a child of one
/// or a proxy beside it, and the focus may lie on nothing (0) or follow the pointer (1). Whatever
/// it is, exactly that is restored. Main thread only; the connection must outlive the object.
class FocusKeeper
{
public:
    explicit FocusKeeper(X11Connection &connection);

    /// The window that has the focus now; 0 or 1 for nothing and for "follows the pointer".
    quint32 current() const;

    /// Remembers who has the focus now.
    void remember();

    /// Whether what remember() found has the focus is `window` or stands inside it.
    bool isRememberedIn(quint32 window) const;

    /// Gives the focus to a mapped window of ours.
    /// @return false if the server refused, because the window cannot be seen
    bool take(quint32 window);

    /// Remembers that the focus is to go to another window than before.
    void remember(quint32 window) { m_window = window; }

    /// The window that the window manager calls active; 0 for none.
    quint32 active() const;

    /// Gives the focus back to whoever had it when remember() was called; if that window vanished
    /// meanwhile, to the one that the window manager calls active; else the focus stays. It stays
    /// too if somebody moved it after take(). Whoever moves it for something that the user did
    /// since take() comes before this, whichever request is earlier.
    void giveBack();

private:
    bool give(quint32 window, quint8 revertTo, quint32 time);

    X11Connection &m_connection;
    quint32 m_window = 0;
    quint8 m_revertTo = 0;
    quint32 m_takenAt = 0; ///< the server's time, in milliseconds, just after the last take()
};

} // namespace platform
