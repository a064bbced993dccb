// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QSize>

/// What a popover's place depends on, in global points.
struct PopoverAnchor
{
    QRect menu;     ///< the frame of the menu's window
    QRect row;      ///< the row that the popover belongs to
    QRect workArea; ///< of the screen that holds the menu
    Qt::LayoutDirection direction = Qt::LeftToRight;
};

/// Where a popover of `size` opens: beside the menu with a gap, its upper edge on the row's. In
/// reading direction first; if it would pass the work area less a gap there, on the other side; if
/// neither fits, on the roomier side, pushed in. Too low, it moves up until it ends a gap above the
/// edge. A popover taller than the work area is cut to it.
QRect popoverFrame(const PopoverAnchor &anchor, QSize size);

/// The height that a popover whose upper edge stays at `top` may take of the height it wants.
int popoverHeight(int top, int wanted, const QRect &workArea);
