// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>

namespace platform {

class X11Connection;

/// What lies between two rectangles that stand side by side, as far as both reach up and down.
/// Null if nothing does.
QRect gapBetween(const QRect &one, const QRect &other);

/// An unseen window that lies in the gap between a menu and its popover: a press there is no press
/// on the program behind, which would take the keyboard. Nobody gets the press. Main thread only;
/// the connection must outlive the object.
class GapCover
{
public:
    explicit GapCover(X11Connection &connection);
    ~GapCover();
    Q_DISABLE_COPY_MOVE(GapCover)

    /// Lies down between two windows of ours that stand on the root, where they stand now.
    void coverBetween(quint32 menu, quint32 popover);
    void hide();

    quint32 window() const { return m_window; }

private:
    QRect frameOf(quint32 window) const;

    X11Connection &m_connection;
    quint32 m_window;
};

} // namespace platform
