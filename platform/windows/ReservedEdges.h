// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>

#include <array>
#include <optional>
#include <vector>

class QScreen;

namespace platform {

/// The room that one bar or dock keeps free, as it announces it. In pixels of the whole display.
struct Strut
{
    int left = 0; ///< depth from the left edge of the whole display; likewise the others
    int right = 0;
    int top = 0;
    int bottom = 0;
    /// Where along its edge each depth holds, first and last pixel: left, right, top, bottom.
    std::array<std::array<int, 2>, 4> spans{};

    /// Reads _NET_WM_STRUT_PARTIAL (12 numbers) or _NET_WM_STRUT (4 numbers, whole edges).
    /// None for any other count. Source: Extended Window Manager Hints 1.5.
    static std::optional<Strut> fromProperty(const std::vector<quint32> &numbers);
};

/// What the struts leave of one screen.
///
/// @param screen  the screen's place in the whole display, in pixels
/// @param display size of the whole display, in pixels
/// @return the free part, in pixels. A strut of another screen, one that only passes over this
///         screen to reach its own, and one that would leave nothing do not count.
QRect freePart(const QRect &screen, QSize display, const std::vector<Strut> &struts);

/// The screen that holds `point` (points), else the one nearest to it; null without screens.
QScreen *screenHolding(QPoint point);

} // namespace platform
