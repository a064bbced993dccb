// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>

#include <optional>

/// Tells a pointer that moves from a row that appears, or is scrolled, under a resting pointer: the
/// toolkit reports both as the pointer entering. One object for a menu and its popovers, in global
/// points.
class PointerMotion
{
public:
    /// The pointer rests here: an enter event at this very place is not the user's doing.
    void restAt(QPointF global) { m_last = global; }

    /// Whether the pointer has moved since the last event (or restAt()); takes note of its place.
    bool hasMovedTo(QPointF global)
    {
        const bool hasMoved = m_last != global;
        m_last = global;
        m_isInUse = m_isInUse || hasMoved;
        return hasMoved;
    }

    /// A key was pressed: from now on the keyboard is in use, until the pointer moves again.
    void keyPressed() { m_isInUse = false; }
    bool isInUse() const { return m_isInUse; }

private:
    std::optional<QPointF> m_last;
    bool m_isInUse = false;
};
