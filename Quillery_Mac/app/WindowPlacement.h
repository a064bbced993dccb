// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

class QWidget;

/// Centres a top-level widget in the free part of its screen; before or after it is shown.
void centreOnScreen(QWidget &window);

/// Where the paste menu's top-left corner goes, in points: 5 to the right of the pointer with its
/// upper edge at the pointer's height, but never further right than 250 from the right end of
/// `visibleFrame`. The height is not looked at: near the lower edge the menu may pass it.
QPoint panelOrigin(QPoint pointer, const QRect &visibleFrame);

/// Where the menu-bar window's top-left corner goes, in points: 4 from the bar, below an icon in
/// the upper half of `visibleFrame` and above one in the lower half, its leading edge at the
/// icon's, pushed inside the frame. A null `icon` (the desktop does not tell) stands for the
/// pointer.
QPoint menuBarWindowOrigin(const QRect &icon, QPoint pointer, QSize window,
                           const QRect &visibleFrame);
