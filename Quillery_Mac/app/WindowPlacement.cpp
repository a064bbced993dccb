// SPDX-License-Identifier: MIT
#include "Quillery_Mac/app/WindowPlacement.h"

#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace {

constexpr int kPanelWidth = 250;
constexpr int kPointerGap = 5;
constexpr int kBarGap = 4;

/// QRect::right() is one less than the edge.
int maxX(const QRect &rect)
{
    return rect.x() + rect.width();
}

int maxY(const QRect &rect)
{
    return rect.y() + rect.height();
}

int pushInside(int value, int low, int high)
{
    return std::max(low, std::min(value, high));
}

} // namespace

void centreOnScreen(QWidget &window)
{
    window.ensurePolished();
    const QSize size = window.testAttribute(Qt::WA_Resized) ? window.size() : window.sizeHint();
    const QRect free = window.screen()->availableGeometry();
    window.move(free.x() + (free.width() - size.width()) / 2,
                free.y() + (free.height() - size.height()) / 2);
}

QPoint panelOrigin(QPoint pointer, const QRect &visibleFrame)
{
    return {std::min(maxX(visibleFrame) - kPanelWidth, pointer.x() + kPointerGap), pointer.y()};
}

QPoint menuBarWindowOrigin(const QRect &icon, QPoint pointer, QSize window,
                           const QRect &visibleFrame)
{
    const QRect anchor = icon.isNull() ? QRect(pointer, QSize(1, 1)) : icon;
    const bool isBarOnTop = anchor.center().y() < visibleFrame.center().y();
    const int y = isBarOnTop ? maxY(anchor) + kBarGap : anchor.y() - kBarGap - window.height();
    return {pushInside(anchor.x(), visibleFrame.x(), maxX(visibleFrame) - window.width()),
            pushInside(y, visibleFrame.y(), maxY(visibleFrame) - window.height())};
}
