// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>

#include <cmath>
#include <optional>

/// Tells a pointer that moves from a row that appears, or is scrolled, under a resting pointer: the
/// toolkit reports both as the pointer entering. One object for a menu and its popovers, in global
/// points.
class PointerMotion
{
public:
    /// The pointer rests here: an enter event at this very place is not the user's doing.
    void restAt(QPointF global) { m_last = global; }

    /// Whether the pointer has moved since the last move (or restAt()), by a point at least: on a
    /// scaled screen the same place may be told with and without its fraction.
    bool hasMovedTo(QPointF global)
    {
        if (m_last) {
            const QPointF way = global - *m_last;
            if (std::abs(way.x()) < 1 && std::abs(way.y()) < 1)
                return false;
        }
        m_last = global;
        m_isInUse = true;
        return true;
    }

    /// A key was pressed: from now on the keyboard is in use, until the pointer moves again.
    void keyPressed() { m_isInUse = false; }
    bool isInUse() const { return m_isInUse; }

private:
    std::optional<QPointF> m_last;
    bool m_isInUse = false;
};
